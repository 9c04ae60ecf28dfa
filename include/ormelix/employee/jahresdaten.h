#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/basevalues/basis_enums.h"

namespace ormelix {

/// From which month and year the benefit-in-kind rule applies: three columns of
/// the row of Mitarbeiter_Jahresdaten (LLohn_Jahresdaten::SachbezugRegelung).
class LLohn_SachbezugRegelung {
 public:
  bool SBezugAb = false;            ///< the rule applies from SBezugMonat/SBezugJahr on
  std::int16_t SBezugJahr = 0;      ///< the year it applies from
  std::int16_t SBezugMonat = 0;     ///< the month it applies from, 1 to 12
};

/// What is settled for one employee for one calendar year, a row
/// of Mitarbeiter_Jahresdaten. The year is always the session's AktJahr at the load:
/// an employee object holds the year data of that year only, and the object has no
/// key of its own (the row is found by the employee and the year).
///
/// LLohn_SachbezugRegelung, inside it, says from which month and year the benefit-in-
/// kind rule applies. LLohn_BeitragsnachweisJahr is a plain holder of three names for
/// a caller's own use: no table holds it and no class of the library refers to it.
///
/// Read by LLohn::LoadMitarbeiter and Refresh (uctableJahresdaten), written by
/// LLohn::Update: the row of the employee and AktJahr, inserted when there is none.
/// Without a row the object keeps what it held, also the values of another year.
class LLohn_Jahresdaten {
 public:
  /// Empty values and a blank benefit rule.
  LLohn_Jahresdaten() = default;
  /// The benefit rule belongs to this object alone: a copy would share it.
  LLohn_Jahresdaten(const LLohn_Jahresdaten&) = delete;
  /// Not assignable, as not copyable.
  LLohn_Jahresdaten& operator=(const LLohn_Jahresdaten&) = delete;

  /// \name Company car, works transport, part pay (table Mitarbeiter_Jahresdaten)
  ///@{

  /// Columns of the row under their own name.
  ///
  /// Columns of the row under their own name: the months with a company car and
  /// with works transport, and the day and amount of part pay. Whole numbers are
  /// 16-bit, the amount double.
  std::int16_t KFZ_Anzahl_Kalendermonate = 0;
  std::int16_t Werksverkehr_Anzahl_Kalendermonate = 0;
  std::int16_t BeitragsTeilentgeldTag = 0;
  double BeitragsTeilentgeld = 0;
  ///@}
  /// Place of work: stored in its SQL form, so an empty one is stored (and read
  /// back) as the ID that matches no row.
  std::string ArbeitsstaetteID;
  /// The place of work is printed too.
  bool ArbeitsstaetteMitausgeben = false;
  /// \name Service charge and N70
  ///@{

  /// The month and count of the service charge, and the flag that N70 is not reckoned.
  ///
  /// The month and count of the service charge, and the flag that N70 is not
  /// reckoned; columns of their own name.
  std::int16_t ServiceEntgeltMonat = 0;
  std::int16_t ServiceEntgeltAnzahl = 0;
  bool N70NichtRechnen = false;
  ///@}
  /// The federal state whose DZ applies, from 1 (0 until one is chosen). The
  /// benefits in kind take their default state from it.
  eBasisBundesländer DZBundesland{};
  /// \name Remarks, collective agreement, one-sixth control
  ///@{

  /// Remark, collective agreement and one-sixth control of the year.
  ///
  /// The remark and whether it is left off the print, the collective agreement
  /// applied (flag and text), and whether the one-sixth control is not reckoned;
  /// columns of their own name.
  bool BemerkungNotPrint = false;
  std::string Bemerkung;
  bool AngewandterKV = false;
  std::string AngewandterKVText;
  bool KontrollSechstelNichtRechnen = false;
  ///@}
  /// \name The one-sixth's 15 percent raise
  ///@{

  /// Two independent flags: nothing keeps them from both being True.
  bool SechstelImmerUm15ProzentErhöhen = false;
  bool SechstelNieUm15ProzentErhöhen = false;
  ///@}

  /// The benefit-in-kind rule, three columns of the same row. Created with the
  /// object and living as long as it; the same object each time.
  const std::shared_ptr<LLohn_SachbezugRegelung>& SachbezugRegelung() const { return sachbezug_regelung_; }

 private:
  std::shared_ptr<LLohn_SachbezugRegelung> sachbezug_regelung_ = std::make_shared<LLohn_SachbezugRegelung>();
};

/// Three names for a caller's own use (the year's contribution statement): no table
/// holds them and no class of the library refers to them.
class LLohn_BeitragsnachweisJahr {
 public:
  std::string Familienname;  ///< family name
  std::string VorName;       ///< first name
  std::string Titel;         ///< title
};

}  // namespace ormelix
