#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/basevalues/basis_enums.h"

namespace ormelix {

class LLohn_SachbezugRegelung {
 public:
  bool SBezugAb = false;
  std::int16_t SBezugJahr = 0;
  std::int16_t SBezugMonat = 0;
};

/// What is settled for one employee for one calendar year, a row
/// of Mitarbeiter_Jahresdaten. The year is always the session's AktJahr at the load:
/// an employee object holds the year data of that year only, and the object has no
/// key of its own (the row is found by the employee and the year).
///
/// LLohn_SachbezugRegelung, inside it, says from which month and year the benefit-in-
/// kind rule applies. LLohn_BeitragsnachweisJahr is a plain holder of three names for
/// a caller's own use: no table holds it and no class of the library refers to it.
class LLohn_Jahresdaten {
 public:
  LLohn_Jahresdaten() = default;
  /// The benefit rule belongs to this object alone: a copy would share it.
  LLohn_Jahresdaten(const LLohn_Jahresdaten&) = delete;
  LLohn_Jahresdaten& operator=(const LLohn_Jahresdaten&) = delete;

  std::int16_t KFZ_Anzahl_Kalendermonate = 0;
  std::int16_t Werksverkehr_Anzahl_Kalendermonate = 0;
  std::int16_t BeitragsTeilentgeldTag = 0;
  double BeitragsTeilentgeld = 0;
  /// Place of work: stored in its SQL form, so an empty one is stored (and read
  /// back) as the ID that matches no row.
  std::string ArbeitsstaetteID;
  bool ArbeitsstaetteMitausgeben = false;
  std::int16_t ServiceEntgeltMonat = 0;
  std::int16_t ServiceEntgeltAnzahl = 0;
  bool N70NichtRechnen = false;
  /// The federal state whose DZ applies, from 1 (0 until one is chosen). The
  /// benefits in kind take their default state from it.
  eBasisBundesländer DZBundesland{};
  bool BemerkungNotPrint = false;
  std::string Bemerkung;
  bool AngewandterKV = false;
  std::string AngewandterKVText;
  bool KontrollSechstelNichtRechnen = false;
  /// Two independent flags: nothing keeps them from both being True.
  bool SechstelImmerUm15ProzentErhöhen = false;
  bool SechstelNieUm15ProzentErhöhen = false;

  /// Created with the object and living as long as it; the same object each time.
  const std::shared_ptr<LLohn_SachbezugRegelung>& SachbezugRegelung() const { return sachbezug_regelung_; }

 private:
  std::shared_ptr<LLohn_SachbezugRegelung> sachbezug_regelung_ = std::make_shared<LLohn_SachbezugRegelung>();
};

class LLohn_BeitragsnachweisJahr {
 public:
  std::string Familienname;
  std::string VorName;
  std::string Titel;
};

}  // namespace ormelix
