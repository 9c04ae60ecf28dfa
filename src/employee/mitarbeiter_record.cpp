// Mitarbeiter and Mitarbeiter_Bankverbindung: the master record of an employee and
// its bank details.
#include "load_statements.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/employer/mandant.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "store_access.h"

namespace ormelix::modDatabase {

namespace {

using namespace ValueHelpers;
using Columns = ColumnSet<LLohn>;

// A property of the personal data (LLohn_Arbeiter), named Mitarbeiter.X.
template <auto M>
PropertyRef ArbeiterGet(LLohn& lohn) {
  return &((*lohn.Mitarbeiter()).*M);
}
template <auto M>
constexpr Property<LLohn> Arbeiter{&ArbeiterGet<M>, kMemberPath<&LLohn::Mitarbeiter, M>};

// ForstarbeiterLandWF counts only for a forest worker of the Land: without
// op_ForstarbeiterLand it reads as 0 whatever the column holds (and the next save
// writes that 0 back).
void LoadForstarbeiterLandWF(LLohn& lohn, const Field& field) {
  lohn.op_ForstarbeiterLandWF = lohn.op_ForstarbeiterLand != 0 && ToFlag(field) ? -1 : 0;
}

std::string EmployeeSql(const std::string& table, const std::string& key_column, const std::string& id) {
  return "SELECT * FROM [" + table + "] WHERE [" + key_column + "]=" + SqlID(id);
}

}  // namespace

// The columns of Mitarbeiter in table order. The row is written in two steps: the
// checkpoint after SVNRAnforderungsID stores the first half before the rest is set.
// An empty BasisID is written as Null; ForstarbeiterKULK is read as a number and
// written as a flag.
const ColumnSet<LLohn>& MitarbeiterColumns() {
  static const Columns columns{
      {"Personalnummer", Arbeiter<&LLohn_Arbeiter::Personalnummer>, LoadAs::Integer, SaveAs::Direct},
      {"Familienname", Arbeiter<&LLohn_Arbeiter::FName>, LoadAs::Text, SaveAs::Direct},
      {"Familienname1", Arbeiter<&LLohn_Arbeiter::FName1>, LoadAs::Text, SaveAs::Direct},
      {"VorName", Arbeiter<&LLohn_Arbeiter::VName>, LoadAs::Text, SaveAs::Direct},
      {"Adresse", Arbeiter<&LLohn_Arbeiter::Adresse>, LoadAs::Text, SaveAs::Direct},
      {"PLZ", Arbeiter<&LLohn_Arbeiter::PLZ>, LoadAs::Text, SaveAs::Direct},
      {"Ort", Arbeiter<&LLohn_Arbeiter::Ort>, LoadAs::Text, SaveAs::Direct},
      {"Titel", Arbeiter<&LLohn_Arbeiter::Titel>, LoadAs::Text, SaveAs::Direct},
      {"KFZ", Arbeiter<&LLohn_Arbeiter::KFZ>, LoadAs::Text, SaveAs::Direct},
      {"Staaten", Arbeiter<&LLohn_Arbeiter::Staaten>, LoadAs::Integer, SaveAs::Direct},
      {"Geschlecht", Arbeiter<&LLohn_Arbeiter::Geschlecht>, LoadAs::Integer, SaveAs::Direct},
      {"Arbeitsbewilligung_Bis", Arbeiter<&LLohn_Arbeiter::ArbeitsbewilligungBis>, LoadAs::Date, SaveAs::Date},
      {"VersNr", Arbeiter<&LLohn_Arbeiter::Vers_Nr>, LoadAs::Text, SaveAs::Direct},
      {"Tätigkeit", Arbeiter<&LLohn_Arbeiter::Beschaeftigt>, LoadAs::Text, SaveAs::Direct},
      {"Partner_Name", Arbeiter<&LLohn_Arbeiter::pName>, LoadAs::Text, SaveAs::Direct},
      {"Partner_VersNr", Arbeiter<&LLohn_Arbeiter::pVers_Nr>, LoadAs::Text, SaveAs::Direct},
      {"Partner_WegfallÄnderung", Member<&LLohn::PartnerWegfallÄnderung>, LoadAs::Flag, SaveAs::Direct},
      {"Partner_AlleinlaufendeJahr", Member<&LLohn::PartnerAlleinlaufendeJahr>, LoadAs::Flag, SaveAs::Direct},
      {"Partner_AlleinFolgendeJahr", Member<&LLohn::PartnerAlleinFolgendeJahr>, LoadAs::Flag, SaveAs::Direct},
      {"Kind_Name", Arbeiter<&LLohn_Arbeiter::kName>, LoadAs::Text, SaveAs::Direct},
      {"Kind_VersNr", Arbeiter<&LLohn_Arbeiter::kVers_Nr>, LoadAs::Text, SaveAs::Direct},
      {"Telefon", Arbeiter<&LLohn_Arbeiter::Telefon>, LoadAs::Text, SaveAs::Direct},
      {"Handy", Arbeiter<&LLohn_Arbeiter::Handy>, LoadAs::Text, SaveAs::Direct},
      {"Fax", Arbeiter<&LLohn_Arbeiter::Fax>, LoadAs::Text, SaveAs::Direct},
      {"EMail", Arbeiter<&LLohn_Arbeiter::EMail>, LoadAs::Text, SaveAs::Direct},
      {"Internet", Arbeiter<&LLohn_Arbeiter::Internet>, LoadAs::Text, SaveAs::Direct},
      {"Beschäftigungstyp", Arbeiter<&LLohn_Arbeiter::BeschaeftigtTyp>, LoadAs::Integer, SaveAs::Direct},
      {"Familienname2", Arbeiter<&LLohn_Arbeiter::FName2>, LoadAs::Text, SaveAs::Direct},
      {"Stunden", Arbeiter<&LLohn_Arbeiter::Stunden>, LoadAs::Amount, SaveAs::Direct},
      {"BAUURLKasse", Arbeiter<&LLohn_Arbeiter::BAUURLKasse>, LoadAs::Integer, SaveAs::Direct},
      {"VersNrZusatz", Arbeiter<&LLohn_Arbeiter::Vers_NrZusatz>, LoadAs::Text, SaveAs::Direct},
      {"Gemeinde", Arbeiter<&LLohn_Arbeiter::Gemeinde>, LoadAs::Long, SaveAs::Direct},
      {"FDN_FAFinanzamtNr", Arbeiter<&LLohn_Arbeiter::FreiDNFA>, LoadAs::Text, SaveAs::Direct},
      {"FDN_FASteuerNr", Arbeiter<&LLohn_Arbeiter::FreiDNFASteuerNr>, LoadAs::Text, SaveAs::Direct},
      {"FDN_SZNotCheck", Arbeiter<&LLohn_Arbeiter::FreiDNSZNotCheck>, LoadAs::Integer, SaveAs::Direct},
      {"NFBeschraengteBeguenstigung", Arbeiter<&LLohn_Arbeiter::NFBeschraengteBeguenstigung>, LoadAs::Flag, SaveAs::Flag},
      {"BauarbeiterNoZuschlag", Arbeiter<&LLohn_Arbeiter::BauarbeiterNoZuschlag>, LoadAs::Flag, SaveAs::Flag},
      {"Pensionsstichtag", Arbeiter<&LLohn_Arbeiter::Pensionsstichtag>, LoadAs::Date, SaveAs::Date},
      {"PensionbezugAb", Arbeiter<&LLohn_Arbeiter::PensionbezugAb>, LoadAs::Date, SaveAs::Date},
      {"IgnorierenNeuregelung2013Pensionsstichtag", Arbeiter<&LLohn_Arbeiter::IgnorierenNeuregelung2013Pensionsstichtag>, LoadAs::Flag, SaveAs::Flag},
      {"SVNRAnforderungsID", Arbeiter<&LLohn_Arbeiter::SVNRAnforderungsID>, LoadAs::Text, SaveAs::SqlID},
      Columns::Checkpoint(),
      {"Geburtsdatum", Member<&LLohn::Geb_Datum>, LoadAs::Date, SaveAs::Date},
      {"BasisID", Member<&LLohn::BasisID>, LoadAs::Text, SaveAs::IDOrNull},
      {"pAbgaben", Member<&LLohn::pAbgaben>, LoadAs::Integer, SaveAs::Direct},
      {"pBankliste", Member<&LLohn::pBankliste>, LoadAs::Integer, SaveAs::Direct},
      {"pAusdruck", Member<&LLohn::pAusdruck>, LoadAs::Integer, SaveAs::Direct},
      {"pMitarbeiter", Member<&LLohn::pMitarbeiter>, LoadAs::Integer, SaveAs::Direct},
      {"pBeitragsNachweis", Member<&LLohn::pBeitragsNachweis>, LoadAs::Integer, SaveAs::Direct},
      {"pDienstgeber", Member<&LLohn::pDienstgeber>, LoadAs::Integer, SaveAs::Direct},
      {"pGrafik", Member<&LLohn::pGrafik>, LoadAs::Integer, SaveAs::Direct},
      {"pLohnkonto", Member<&LLohn::pLohnkonto>, LoadAs::Integer, SaveAs::Direct},
      {"pJahresLohnZettel", Member<&LLohn::pJahresLohnZettel>, LoadAs::Integer, SaveAs::Direct},
      {"pBeitragsNachweisJahr", Member<&LLohn::pBeitragsNachweisJahr>, LoadAs::Integer, SaveAs::Direct},
      {"pZahlschein", Member<&LLohn::pZahlschein>, LoadAs::Integer, SaveAs::Direct},
      {"pTelebanking", Member<&LLohn::pTelebanking>, LoadAs::Integer, SaveAs::Direct},
      {"pLohnjournal", Member<&LLohn::pLohnjournal>, LoadAs::Integer, SaveAs::Direct},
      {"pBanklisteBerechnung", Member<&LLohn::pBanklisteBerechnung>, LoadAs::Integer, SaveAs::Direct},
      {"pBuchungsliste", Member<&LLohn::pBuchungsliste>, LoadAs::Integer, SaveAs::Direct},
      {"pKommunal", Member<&LLohn::pKommunal>, LoadAs::Integer, SaveAs::Direct},
      {"pMitarbeiterblatt", Member<&LLohn::pMitarbeiterblatt>, LoadAs::Integer, SaveAs::Direct},
      {"ErntehelferLAGKULK", Member<&LLohn::op_ErntehelferLAGKULK>, LoadAs::Flag, SaveAs::Flag},
      {"NoLKKUForstArbeiter", Member<&LLohn::op_NoLKKUForstArbeiter>, LoadAs::Flag, SaveAs::Flag},
      {"NoLKKUForstAngestellter", Member<&LLohn::op_NoLKKUForstAngestellter>, LoadAs::Flag, SaveAs::Flag},
      {"ForstarbeiterLand", Member<&LLohn::op_ForstarbeiterLand>, LoadAs::Flag, SaveAs::Flag},
      {"ForstarbeiterLandWF", Member<&LLohn::op_ForstarbeiterLandWF>, LoadAs::Custom, SaveAs::Flag, nullptr,
       &LoadForstarbeiterLandWF},
      {"IsEhepartner", Member<&LLohn::IsEhepartner>, LoadAs::Flag, SaveAs::Flag},
      {"Malus_Monat", Member<&LLohn::Malus_Monat>, LoadAs::Integer, SaveAs::Direct},
      {"ForstarbeiterKULK", Member<&LLohn::op_ForstarbeiterKULK>, LoadAs::Integer, SaveAs::Flag},
      {"Frei_Forstarbeiter", Member<&LLohn::op_Frei_Forstarbeiter>, LoadAs::Flag, SaveAs::Flag},
      {"KinderWegfallFB", Member<&LLohn::KinderWegfallFB>, LoadAs::Flag, SaveAs::Flag},
      {"AuswahlBNW", Member<&LLohn::AuswahlBNW>, LoadAs::Flag, SaveAs::Direct},
      {"AnzeigeVNWErsteintritt", Member<&LLohn::AnzeigeVNWErsteintritt>, LoadAs::Flag, SaveAs::Direct},
      {"Neuanlage", Member<&LLohn::Neuanlage>, LoadAs::Flag, SaveAs::Direct},
      {"Anonymize", Member<&LLohn::Anonymize>, LoadAs::Flag, SaveAs::Direct},
  };
  return columns;
}

const ColumnSet<LLohn>& BankverbindungColumns() {
  static const Columns columns{
      {"Bank", Member<&LLohn::BankName>, LoadAs::Text, SaveAs::Direct},
      {"BIC", Member<&LLohn::BIC>, LoadAs::Text, SaveAs::Direct},
      {"IBAN", Member<&LLohn::IBAN>, LoadAs::Text, SaveAs::Direct},
      {"Barauszahler", Member<&LLohn::Barauszahler>, LoadAs::Flag, SaveAs::Direct},
  };
  return columns;
}

void LoadMitarbeiterRecord(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID) {
  auto rs = PayrollStore(pManager).OpenRecordset(detail::MasterLoadSql(pMitarbeiterID));
  if (!rs->Eof()) MitarbeiterColumns().Load(pLohn, *rs);
  rs->Close();
}

void SaveMitarbeiterRecord(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID) {
  StoreWriteTransaction save(PayrollStore(pManager), StoreWriteTransaction::KeepWritten,
                             StoreWriteTransaction::LockWithFirstStatement);
  auto rs = PayrollStore(pManager).OpenRecordset(EmployeeSql("Mitarbeiter", "ID", pMitarbeiterID), adOpenDynamic,
                                                 adLockOptimistic);
  // A save never inserts: the row comes from InsertMitarbeiterRecord.
  if (!rs->Eof()) {
    MitarbeiterColumns().Save(pLohn, *rs);
    rs->Update();
  }
  rs->Close();
  save.Commit();
}

std::string InsertMitarbeiterRecord(clsManager& pManager) {
  const auto& employer = pManager.AktMandant();
  if (!employer) throw Error("an employee can only be added for a current employer: call ChangeAktMandant first");
  StoreWriteTransaction save(PayrollStore(pManager), StoreWriteTransaction::KeepWritten,
                             StoreWriteTransaction::LockWithFirstStatement);
  auto rs = PayrollStore(pManager).OpenRecordset("SELECT * FROM [Mitarbeiter]", adOpenDynamic, adLockOptimistic);
  rs->AddNew();
  rs->Collect("MandantenID", Variant(SqlID(employer->ID())));
  rs->Update();
  std::string id = DateHelpers::GetNewRowID(*rs);
  rs->Close();
  save.Commit();
  return id;
}

void LoadBankverbindung(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID) {
  auto rs = PayrollStore(pManager).OpenRecordset(detail::BankLoadSql(pMitarbeiterID));
  if (!rs->Eof()) BankverbindungColumns().Load(pLohn, *rs);
  rs->Close();
}

void SaveBankverbindung(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID) {
  StoreWriteTransaction save(PayrollStore(pManager), StoreWriteTransaction::KeepWritten,
                             StoreWriteTransaction::LockWithFirstStatement);
  auto rs = PayrollStore(pManager).OpenRecordset(
      EmployeeSql("Mitarbeiter_Bankverbindung", "MitarbeiterID", pMitarbeiterID), adOpenDynamic, adLockOptimistic);
  if (rs->Eof()) {
    rs->AddNew();
    rs->Collect("MitarbeiterID", Variant(pMitarbeiterID));
  }
  BankverbindungColumns().Save(pLohn, *rs);
  rs->Update();
  rs->Close();
  save.Commit();
}

}  // namespace ormelix::modDatabase

namespace ormelix::detail {

std::string MasterLoadSql(const std::string& employee_id) {
  return modDatabase::EmployeeSql("Mitarbeiter", "ID", employee_id);
}

std::string BankLoadSql(const std::string& employee_id) {
  return modDatabase::EmployeeSql("Mitarbeiter_Bankverbindung", "MitarbeiterID", employee_id);
}

}  // namespace ormelix::detail
