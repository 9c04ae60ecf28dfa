// Mitarbeiter_Übertritte: one row per employee and month with a change of
// contribution group, held in LLohn.Uebertritt(1..12).
#include "load_statements.h"
#include "month_check.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/store/value_helpers.h"
#include "store_access.h"

namespace ormelix::modDatabase {

namespace {

using namespace ValueHelpers;
using U = LLohn_Übertritt;

std::string TableSql(const std::string& id) {
  return "SELECT * FROM [Mitarbeiter_Übertritte] WHERE [MitarbeiterID]=" + SqlID(id);
}

}  // namespace

// The columns of Mitarbeiter_Übertritte in table order, after the keys
// MitarbeiterID and Zeitraum, which a save writes on a new row only.
const ColumnSet<LLohn_Übertritt>& UebertritteColumns() {
  static const ColumnSet<LLohn_Übertritt> columns{
      {"Datum", Member<&U::Datum>, LoadAs::Date, SaveAs::Date},
      {"Beitragsgruppe1", Member<&U::BEGR1>, LoadAs::Integer, SaveAs::Direct},
      {"Beitragsgruppe2", Member<&U::BEGR2>, LoadAs::Integer, SaveAs::Direct},
      {"BeitragsgruppeKürzel1", Member<&U::BEGRKürzel1>, LoadAs::Text, SaveAs::Direct},
      {"BeitragsgruppeKürzel2", Member<&U::BEGRKürzel2>, LoadAs::Text, SaveAs::Direct},
      {"Basis1", Member<&U::Basis1>, LoadAs::Amount, SaveAs::Round2},
      {"Basis2", Member<&U::Basis2>, LoadAs::Amount, SaveAs::Round2},
      {"LehrJahre", Member<&U::LehrJahre>, LoadAs::Integer, SaveAs::Direct},
  };
  return columns;
}

void LoadUebertritte(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID) {
  // All of the employee's rows, of every year: the month filter picks those of AktJahr.
  auto rs = PayrollStore(pManager).OpenRecordset(detail::TransfersLoadSql(pMitarbeiterID));
  if (rs->Eof()) {
    rs->Close();
    return;
  }
  const auto bound = UebertritteColumns().Bind(*rs);
  for (int month = 1; month <= 12; ++month) {
    rs->Filter("[Zeitraum]=" + std::to_string(MakeZeitraum(static_cast<std::int16_t>(month), pManager.AktJahr)));
    for (; !rs->Eof(); rs->MoveNext()) UebertritteColumns().Load(*pLohn.Uebertritt(month), *rs, bound);
  }
  rs->Close();
}

void SaveUebertritte(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID) {
  const std::int16_t month = pManager.AktMonat;
  RequireSaveMonth("SaveUebertritte", "AktMonat", month);
  const std::int32_t zeitraum = MakeZeitraum(month, pManager.AktJahr);
  StoreWriteTransaction save(PayrollStore(pManager), StoreWriteTransaction::KeepWritten,
                             StoreWriteTransaction::LockWithFirstStatement);
  auto rs = PayrollStore(pManager).OpenRecordset(
      TableSql(pMitarbeiterID) + " AND [Zeitraum]=" + std::to_string(zeitraum), adOpenDynamic, adLockOptimistic);
  if (rs->Eof()) {
    rs->AddNew();
    rs->Collect("MitarbeiterID", Variant(pMitarbeiterID));
    rs->Collect("Zeitraum", Variant(zeitraum));
  }
  UebertritteColumns().Save(*pLohn.Uebertritt(month), *rs);
  rs->Update();
  rs->Close();
  save.Commit();
}

}  // namespace ormelix::modDatabase

namespace ormelix::detail {

// All of the employee's rows, of every year: the month filter picks those of AktJahr.
std::string TransfersLoadSql(const std::string& employee_id) {
  return modDatabase::TableSql(employee_id) + " ORDER BY [Zeitraum] ASC";
}

}  // namespace ormelix::detail
