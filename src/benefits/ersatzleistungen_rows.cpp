// Mitarbeiter_Lohnzettel_EL: the replacement benefits of a pay row, keyed by
// LohnzettelID; loaded in period order, saved by deleting the row's benefits and
// inserting the list anew.
#include "../employee/load_statements.h"
#include "../employee/month_check.h"
#include "../session/store_access.h"
#include "ormelix/benefits/ersatzleistungen.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::modDatabase {

namespace {

using E = LLohn_Ersatzleistung;
using Columns = ColumnSet<LLohn_Ersatzleistung>;
using ValueHelpers::SqlID;

constexpr const char* kTable = "Mitarbeiter_Lohnzettel_EL";

std::string RowsSql(const std::string& pLohnzettelID) {
  return "SELECT * FROM [Mitarbeiter_Lohnzettel_EL] WHERE [LohnzettelID]=" + SqlID(pLohnzettelID);
}

}  // namespace

// The columns of Mitarbeiter_Lohnzettel_EL in the order of load and save. ID is
// read and never written (the store gives each inserted row a new one);
// LohnzettelID is written by the save from the pay row's key and never read.
const ColumnSet<LLohn_Ersatzleistung>& ErsatzleistungColumns() {
  static const Columns columns{
      Plain<&E::ID>(LoadAs::Text, SaveAs::None),
      Plain<&E::LaufbahnID>(LoadAs::Text),
      Plain<&E::Geringfügig>(LoadAs::Flag),
      Plain<&E::TarifGruppe>(LoadAs::Text),
      Plain<&E::Zeitraum>(LoadAs::Long),
      Plain<&E::SVTage>(LoadAs::Integer),
      Plain<&E::ALV_Index>(LoadAs::Integer),
      Plain<&E::ALV_Basis>(LoadAs::Amount),
      Plain<&E::ALV>(LoadAs::Amount),
      Plain<&E::SV_Laufend_Basis>(LoadAs::Amount),
      Plain<&E::SV_Laufend_DN>(LoadAs::Amount),
      Plain<&E::SV_Laufend_DG>(LoadAs::Amount),
      Plain<&E::SV_N70_Laufend_DN>(LoadAs::Amount),
      Plain<&E::SV_N70_Laufend_DG>(LoadAs::Amount),
      Plain<&E::NeuFög_Laufend>(LoadAs::Amount),
      Plain<&E::SV_Laufend_DGA>(LoadAs::Amount),
      Plain<&E::SV_A22_Laufend_Basis>(LoadAs::Amount),
      Plain<&E::SV_A22_Laufend_Betrag>(LoadAs::Amount),
      Plain<&E::BV_Basis>(LoadAs::Amount),
      Plain<&E::BV_Betrag>(LoadAs::Amount),
      Plain<&E::BV_Zuschlag>(LoadAs::Amount),
      Plain<&E::BV_Prozent>(LoadAs::Amount),
  };
  return columns;
}

void RequireStorableErsatzleistungen(const LLohn_Ersatzleistungen& pListe, const std::string& pRow) {
  for (const auto& entry : pListe)
    RequireFinite(ErsatzleistungColumns(), *entry, kTable,
                  "the benefit of period " + std::to_string(entry->Zeitraum) + " of " + pRow);
}

namespace {

std::unique_ptr<Recordset> OpenRows(clsManager& pManager, const std::string& pLohnzettelID) {
  return detail::OpenRead(pManager, detail::BenefitsLoadSql(pLohnzettelID));
}

void Fill(LLohn_Ersatzleistungen& pListe, Recordset& rs) {
  pListe.Clear();
  const auto bound = ErsatzleistungColumns().Bind(rs);
  for (; !rs.Eof(); rs.MoveNext()) {
    auto entry = std::make_shared<LLohn_Ersatzleistung>();
    ErsatzleistungColumns().Load(*entry, rs, bound);
    pListe.Add(entry);
  }
  rs.Close();
}

}  // namespace

void LoadErsatzleistungen(clsManager& pManager, LLohn_Ersatzleistungen& pListe, const std::string& pLohnzettelID) {
  Fill(pListe, *OpenRows(pManager, pLohnzettelID));
}

void LoadErsatzleistungen(clsManager& pManager, LLohn& pLohn, std::int16_t pMonat, const std::string& pLohnzettelID) {
  auto rs = OpenRows(pManager, pLohnzettelID);
  // An empty list that was never made stays unmade: emptying it changes nothing.
  if (rs->Eof() && !pLohn.HasSV_EL_Laufend(pMonat)) return;
  Fill(*pLohn.SV_EL_Laufend(pMonat), *rs);
}

void SaveErsatzleistungen(clsManager& pManager, LLohn& pLohn, const std::string& pLohnzettelID, std::int16_t pMonat) {
  RequireSaveMonth("SaveErsatzleistungen", "the month", pMonat);
  const LLohn_Ersatzleistungen& liste = *pLohn.SV_EL_Laufend(pMonat);
  RequireStorableErsatzleistungen(liste, "the pay row " + pLohnzettelID);
  // Delete and insert hold together against other programs; a failure half-way
  // keeps what was written, as every save does.
  StoreWriteTransaction save(detail::PayrollStore(pManager), StoreWriteTransaction::KeepWritten,
                             StoreWriteTransaction::LockWithFirstStatement);
  detail::ExecuteAhead(detail::PayrollStore(pManager),
                       "DELETE * FROM [Mitarbeiter_Lohnzettel_EL] WHERE [LohnzettelID]=" + SqlID(pLohnzettelID));
  // The pay row has no benefit left: the statement of its rows serves to insert.
  auto rs = detail::OpenWrite(pManager, RowsSql(pLohnzettelID));
  for (const auto& entry : liste) {
    rs->AddNew();
    rs->Collect("LohnzettelID", Variant(SqlID(pLohnzettelID)));
    ErsatzleistungColumns().Save(*entry, *rs);
    rs->Update();
  }
  rs->Close();
  save.Commit();
}

}  // namespace ormelix::modDatabase

namespace ormelix::detail {

std::string BenefitsLoadSql(const std::string& pay_row) {
  return modDatabase::RowsSql(pay_row) + " ORDER BY [Zeitraum] ASC";
}

}  // namespace ormelix::detail
