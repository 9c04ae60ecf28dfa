// Mitarbeiter_Lohnzettel_Kurzarbeit: at most one row per monthly pay row, keyed by
// LohnzettelID, loaded and saved with the pay month.
#include "../employee/load_statements.h"
#include "../session/store_access.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/shorttime/kurzarbeit.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::modDatabase {

namespace {

using K = LLohn_Kurzarbeit;
using Columns = ColumnSet<LLohn_Kurzarbeit>;
using namespace ValueHelpers;

// Written from the getter, which gives 0 unless IsZeitraumAliquot, and read into
// the setter.
void LoadStundenVor(K& record, const Field& field) { record.SetStundenVorKurzarbeit(ToAmount(field)); }
Variant SaveStundenVor(K& record) { return Variant(record.StundenVorKurzarbeit()); }

std::string RowSql(const std::string& pLohnzettelID) {
  return "SELECT * FROM [Mitarbeiter_Lohnzettel_Kurzarbeit] WHERE [LohnzettelID]=" + SqlID(pLohnzettelID);
}

}  // namespace

// The columns of Mitarbeiter_Lohnzettel_Kurzarbeit in table order, after the key
// LohnzettelID.
const ColumnSet<LLohn_Kurzarbeit>& KurzarbeitColumns() {
  static const Columns columns{
      Plain<&K::IsKurzarbeit>(LoadAs::Flag),
      Plain<&K::IsZeitraumAliquot>(LoadAs::Flag),
      Plain<&K::Beginndatum>(LoadAs::Date, SaveAs::Date),
      Plain<&K::Endedatum>(LoadAs::Date, SaveAs::Date),
      Plain<&K::SVBG>(LoadAs::Amount),
      Plain<&K::BVBG>(LoadAs::Amount),
      Plain<&K::ReferenzGehalt>(LoadAs::Amount),
      Plain<&K::Überstundenpauschale>(LoadAs::Amount),
      Plain<&K::Sachbezug>(LoadAs::Amount),
      Plain<&K::ReferenzBezügeLstPflSVPfl>(LoadAs::Amount),
      Plain<&K::ReferenzBezügeLstFreiSvPfl>(LoadAs::Amount),
      Plain<&K::ReferenzZulagenSVPfl>(LoadAs::Amount),
      Plain<&K::Stundenlöhner>(LoadAs::Flag),
      Plain<&K::AktuellesGehalt>(LoadAs::Amount),
      Plain<&K::AktuellerSatz>(LoadAs::Amount),
      Columns::Custom("StundenVorKurzarbeit", &LoadStundenVor, &SaveStundenVor),
      Plain<&K::EFZEntgelt>(LoadAs::Amount),
      Plain<&K::Wochenstunden>(LoadAs::Amount),
      Plain<&K::Stundenteiler>(LoadAs::Amount),
      Plain<&K::Provision>(LoadAs::Amount),
      Plain<&K::IsReduktionProzent>(LoadAs::Flag),
      Plain<&K::ReduktionProzentUm>(LoadAs::Amount),
      Plain<&K::IsReduktionStunden>(LoadAs::Flag),
      Plain<&K::ReduktionStundenAuf>(LoadAs::Amount),
      Plain<&K::IsReduktionGehalt>(LoadAs::Flag),
      Plain<&K::ReduktionGehaltAuf>(LoadAs::Amount),
      Plain<&K::IsPhasenWechsel>(LoadAs::Flag),
      Plain<&K::IsReduktionProzentWechsel>(LoadAs::Flag),
      Plain<&K::ReduktionProzentUmWechsel>(LoadAs::Amount),
      Plain<&K::IsReduktionStundenWechsel>(LoadAs::Flag),
      Plain<&K::ReduktionStundenAufWechsel>(LoadAs::Amount),
      Plain<&K::IsReduktionGehaltWechsel>(LoadAs::Flag),
      Plain<&K::ReduktionGehaltAufWechsel>(LoadAs::Amount),
      Plain<&K::Nettoersatzrate>(LoadAs::Amount),
      Plain<&K::Bruttoersatzrate>(LoadAs::Amount),
      Plain<&K::MindestentgeltBrutto>(LoadAs::Amount),
      Plain<&K::MindestentgeltBruttoMitAufschlag>(LoadAs::Amount),
      Plain<&K::AufschlagProzent>(LoadAs::Amount),
      Plain<&K::Gehalt>(LoadAs::Amount),
      Plain<&K::GehaltWechsel>(LoadAs::Amount),
      Plain<&K::GehaltOhneKurzarbeit>(LoadAs::Amount),
      Plain<&K::ProvisionKurzarbeit>(LoadAs::Amount),
      Plain<&K::ProvisionOhneKurzarbeit>(LoadAs::Amount),
      Plain<&K::Urlaubsstunden>(LoadAs::Amount),
      Plain<&K::Zeitausgleich>(LoadAs::Amount),
      Plain<&K::Urlaubsentgelt>(LoadAs::Amount),
      Plain<&K::Zeitausgleichsentgelt>(LoadAs::Amount),
      Plain<&K::IsLehrling>(LoadAs::Flag),
      Plain<&K::Quarantäne>(LoadAs::Amount),
      Plain<&K::QuarantäneStunden>(LoadAs::Amount),
      Plain<&K::IsKurzarbeitsbonus>(LoadAs::Flag),
      Plain<&K::Kurzarbeitsbonus>(LoadAs::Amount),
  };
  return columns;
}

void LoadKurzarbeit(clsManager& pManager, LLohn_Kurzarbeit& pKurzarbeit, const std::string& pLohnzettelID) {
  auto rs = detail::OpenRead(pManager, detail::ShortTimeLoadSql(pLohnzettelID));
  if (!rs->Eof()) KurzarbeitColumns().Load(pKurzarbeit, *rs);
  rs->Close();
}

void LoadKurzarbeit(clsManager& pManager, LLohn& pLohn, std::int16_t pMonat, const std::string& pLohnzettelID) {
  auto rs = detail::OpenRead(pManager, detail::ShortTimeLoadSql(pLohnzettelID));
  if (!rs->Eof()) KurzarbeitColumns().Load(*pLohn.Kurzarbeit(pMonat), *rs);
  rs->Close();
}

void SaveKurzarbeit(clsManager& pManager, LLohn_Kurzarbeit& pKurzarbeit, const std::string& pLohnzettelID) {
  RequireFinite(KurzarbeitColumns(), pKurzarbeit, "Mitarbeiter_Lohnzettel_Kurzarbeit", "the pay row " + pLohnzettelID);
  StoreWriteTransaction save(detail::PayrollStore(pManager), StoreWriteTransaction::KeepWritten,
                             StoreWriteTransaction::LockWithFirstStatement);
  auto rs = detail::OpenWrite(pManager, RowSql(pLohnzettelID));
  if (rs->Eof()) rs->AddNew();
  rs->Collect("LohnzettelID", Variant(pLohnzettelID));
  KurzarbeitColumns().Save(pKurzarbeit, *rs);
  rs->Update();
  rs->Close();
  save.Commit();
}

}  // namespace ormelix::modDatabase

namespace ormelix::detail {

std::string ShortTimeLoadSql(const std::string& pay_row) { return modDatabase::RowSql(pay_row); }

}  // namespace ormelix::detail
