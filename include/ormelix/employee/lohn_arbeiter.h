#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/indexed_array.h"
#include "ormelix/store/variant.h"

namespace ormelix {

/// \brief The personal data of an employee: the row of Mitarbeiter (LLohn::Mitarbeiter).
///
/// Read by LLohn::LoadMitarbeiter and written by LLohn::Update (ucTableMitarbeiter)
/// together with the columns of Mitarbeiter that LLohn holds itself. A save never
/// inserts the row (clsMitarbeiter::Add does), writes every column, and writes the
/// row in two steps (up to SVNRAnforderungsID, then the rest). The file also holds
/// the two value holders of unemployment-insurance data.
class LLohn_Arbeiter {
 public:
  /// \name Texts (table Mitarbeiter)
  ///@{

  /// A text of the master record.
  ///
  /// Texts of the row, written as they stand (no trimming; a text longer than the
  /// column fails in the store). Columns: FName, FName1, FName2 are Familienname,
  /// Familienname1, Familienname2; VName is VorName; Vers_Nr and Vers_NrZusatz are
  /// VersNr and VersNrZusatz; Beschaeftigt is Tätigkeit; pName and pVers_Nr are
  /// Partner_Name and Partner_VersNr; kName and kVers_Nr are Kind_Name and
  /// Kind_VersNr; FreiDNFA and FreiDNFASteuerNr are FDN_FAFinanzamtNr and
  /// FDN_FASteuerNr; the others have their own name. SVNRAnforderungsID is saved in
  /// its SqlID form.
  std::string FName;
  std::string FName1;
  std::string VName;
  std::string Adresse;
  std::string PLZ;
  std::string Ort;
  std::string Titel;
  std::string KFZ;
  std::string Vers_Nr;
  std::string Beschaeftigt;
  std::string pName;
  std::string pVers_Nr;
  std::string kName;
  std::string kVers_Nr;
  std::string Telefon;
  std::string Handy;
  std::string Fax;
  std::string EMail;
  std::string Internet;
  std::string FName2;
  std::string Vers_NrZusatz;
  std::string FreiDNFA;
  std::string FreiDNFASteuerNr;
  std::string SVNRAnforderungsID;
  ///@}

  /// \name Numbers, flags and dates (table Mitarbeiter)
  ///@{

  /// Numbers of the row (16-bit unless named otherwise; a flag holds True as -1).
  /// Columns of their own name, but BeschaeftigtTyp (Beschäftigungstyp) and
  /// FreiDNSZNotCheck (FDN_SZNotCheck). Gemeinde is a 32-bit municipality number,
  /// Stunden single precision; ArbeitsbewilligungBis (column
  /// Arbeitsbewilligung_Bis), Pensionsstichtag and PensionbezugAb are day counts
  /// (0: none, which a save writes back as date 0, not as Null).
  std::int16_t Personalnummer = 0;
  std::int16_t Staaten = 0;
  std::int16_t Geschlecht = 0;
  std::int16_t BeschaeftigtTyp = 0;
  std::int16_t BAUURLKasse = 0;
  std::int16_t FreiDNSZNotCheck = 0;
  std::int16_t NFBeschraengteBeguenstigung = 0;
  std::int16_t BauarbeiterNoZuschlag = 0;
  std::int32_t Gemeinde = 0;
  float Stunden = 0;
  double ArbeitsbewilligungBis = 0;  ///< a date as a day count
  Date Pensionsstichtag = 0;
  Date PensionbezugAb = 0;
  bool IgnorierenNeuregelung2013Pensionsstichtag = false;
  ///@}
  /// Open leave days of each month (0 to 12): the column EL_OffeneUrlaubstage of the
  /// monthly pay record (Mitarbeiter_Lohnzettel), read and written with the month.
  MonthArray<double> OffeneUT{"OffeneUT"};
};

/// One group of unemployment-insurance data: a value holder for the caller; no
/// table holds it and the library reads nothing of it.
class LLohn_Arbeiter_ALVBGruppeE {
 public:
  /// \name Values
  ///@{

  /// A value of the group, kept as set.
  ///
  /// The month of exemption from contributions, the first and last day as texts,
  /// and the basis (single precision), kept as set.
  std::int16_t BeitragsbefreiungMonat = 0;
  std::string ALVDateBegin;
  std::string ALVDateEnd;
  float ALVBemessung = 0;
  ///@}
};

/// The six groups of unemployment-insurance data, created with the object and
/// handed out as the same objects; a value holder for the caller, no table holds it.
class LLohn_Arbeiter_ALVBGruppe {
 public:
  /// A group, shared.
  using Gruppe = std::shared_ptr<LLohn_Arbeiter_ALVBGruppeE>;

  /// \name The six groups
  ///@{

  /// The group of that name (N15g, N15m, N15n, N25g, N25m, N25n); never null.
  const Gruppe& N15g() const { return n15g_; }
  const Gruppe& N15m() const { return n15m_; }
  const Gruppe& N15n() const { return n15n_; }
  const Gruppe& N25g() const { return n25g_; }
  const Gruppe& N25m() const { return n25m_; }
  const Gruppe& N25n() const { return n25n_; }
  ///@}

 private:
  Gruppe n15g_ = std::make_shared<LLohn_Arbeiter_ALVBGruppeE>();
  Gruppe n15m_ = std::make_shared<LLohn_Arbeiter_ALVBGruppeE>();
  Gruppe n15n_ = std::make_shared<LLohn_Arbeiter_ALVBGruppeE>();
  Gruppe n25g_ = std::make_shared<LLohn_Arbeiter_ALVBGruppeE>();
  Gruppe n25m_ = std::make_shared<LLohn_Arbeiter_ALVBGruppeE>();
  Gruppe n25n_ = std::make_shared<LLohn_Arbeiter_ALVBGruppeE>();
};

}  // namespace ormelix
