#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/indexed_array.h"
#include "ormelix/store/variant.h"

namespace ormelix {

/// The personal data of an employee, from the table Mitarbeiter, and
/// the two value holders of its unemployment-insurance data.
class LLohn_Arbeiter {
 public:
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
  /// Open leave days of each month: a column of the monthly pay record.
  MonthArray<double> OffeneUT{"OffeneUT"};
};

/// One group of unemployment-insurance data: a value holder for the caller.
class LLohn_Arbeiter_ALVBGruppeE {
 public:
  std::int16_t BeitragsbefreiungMonat = 0;
  std::string ALVDateBegin;
  std::string ALVDateEnd;
  float ALVBemessung = 0;
};

/// The six groups, created with the object and handed out as the same objects.
class LLohn_Arbeiter_ALVBGruppe {
 public:
  using Gruppe = std::shared_ptr<LLohn_Arbeiter_ALVBGruppeE>;

  const Gruppe& N15g() const { return n15g_; }
  const Gruppe& N15m() const { return n15m_; }
  const Gruppe& N15n() const { return n15n_; }
  const Gruppe& N25g() const { return n25g_; }
  const Gruppe& N25m() const { return n25m_; }
  const Gruppe& N25n() const { return n25n_; }

 private:
  Gruppe n15g_ = std::make_shared<LLohn_Arbeiter_ALVBGruppeE>();
  Gruppe n15m_ = std::make_shared<LLohn_Arbeiter_ALVBGruppeE>();
  Gruppe n15n_ = std::make_shared<LLohn_Arbeiter_ALVBGruppeE>();
  Gruppe n25g_ = std::make_shared<LLohn_Arbeiter_ALVBGruppeE>();
  Gruppe n25m_ = std::make_shared<LLohn_Arbeiter_ALVBGruppeE>();
  Gruppe n25n_ = std::make_shared<LLohn_Arbeiter_ALVBGruppeE>();
};

}  // namespace ormelix
