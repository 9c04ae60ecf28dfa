// The rows of Basiswerte_Zeittabelle: one per dated table, with its eight
// sub-objects loaded, saved and copied in one fixed order.
#include "basis_rows.h"
#include "basis_store.h"
#include "ormelix/basevalues/basis_columns.h"
#include "ormelix/basevalues/mod_basiswerte.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::modBasiswerte {

using namespace ValueHelpers;

namespace {

constexpr const char* kAllTables = "SELECT * FROM [Basiswerte_Zeittabelle]";

void LoadSubObjects(clsManager& manager, LBasis& table, const std::string& id) {
  LoadBasisSW(manager, *table.SW(), id);
  LoadBasisLST(manager, *table.LST(), id);
  LoadBasisSA(manager, *table.SA(), id);
  LoadBasisPP(manager, *table.PP(), id);
  LoadBasisFB(manager, *table.FB(), id);
  LoadBasisDG(manager, *table.DG(), id);
  LoadBasisDGM(manager, *table.DGM(), *table.SA(), id);
  LoadBasisALV(manager, *table.ALV(), id);
}

void SaveSubObjects(clsManager& manager, LBasis& table, const std::string& id) {
  SaveBasisSW(manager, *table.SW(), id);
  SaveBasisLST(manager, *table.LST(), id);
  SaveBasisSA(manager, *table.SA(), id);
  SaveBasisPP(manager, *table.PP(), id);
  SaveBasisFB(manager, *table.FB(), id);
  SaveBasisDG(manager, *table.DG(), id);
  SaveBasisDGM(manager, *table.DGM(), *table.SA(), id);
  SaveBasisALV(manager, *table.ALV(), id);
}

}  // namespace

const ColumnSet<LBasis>& ZeittabelleColumns() {
  static const ColumnSet<LBasis> columns{
      {"Datum", Named<LBasis>("Zeitraum.Item", [](LBasis& t) -> PropertyRef { return &t.Zeitraum()->Item; }),
       LoadAs::Long, SaveAs::Direct},
      {"Bezeichnung", Member<&LBasis::Bezeichnung>, LoadAs::Text, SaveAs::Direct},
  };
  return columns;
}

void LoadZeittabelle(clsManager& pManager, LBasis& pBasis, const std::string& pID, const std::string& pBasisID) {
  auto rs = detail::OpenRead(pManager, "SELECT * FROM [Basiswerte_Zeittabelle] WHERE [ID]=" + SqlID(pID));
  if (rs->Eof()) {
    rs->Close();
    return;
  }
  pBasis.SetManager(detail::Shared(pManager));
  pBasis.SetBasisID(SqlID(pBasisID));
  pBasis.SetID(SqlID(ToText(rs->Fields("ID"))));
  ZeittabelleColumns().Load(pBasis, *rs);
  LoadSubObjects(pManager, pBasis, pID);
  rs->Close();
}

void SaveZeittabelle(clsManager& pManager, LBasis& pBasis, const std::string& pBasisID) {
  // The table's own row is one save; each sub-object is one more.
  StoreWriteTransaction save(detail::PayrollStore(pManager), StoreWriteTransaction::KeepWritten);
  auto rs = detail::OpenWrite(pManager, kAllTables);
  rs->Filter("[ID]=" + SqlID(pBasis.ID()));
  if (rs->Eof()) {
    rs->AddNew();
    rs->Collect("BasisID", pBasisID);
  }
  ZeittabelleColumns().Save(pBasis, *rs);
  rs->Update();
  pBasis.SetID(DateHelpers::GetNewRowID(*rs));
  pBasis.SetBasisID(pBasisID);
  rs->Close();
  save.Commit();
  SaveSubObjects(pManager, pBasis, pBasis.ID());
}

std::shared_ptr<LBasis> CopyZeittabelle(clsManager& pManager, const std::string& pSourceID,
                                        const std::string& pBasisID, std::int32_t pZeitraum,
                                        const std::string& pBezeichnung) {
  auto rs = detail::OpenWrite(pManager, kAllTables);
  rs->Filter("[ID]=" + SqlID(pSourceID));
  if (rs->Eof()) {
    rs->Close();
    return nullptr;
  }
  auto table = std::make_shared<LBasis>();
  table->SetManager(detail::Shared(pManager));
  table->SetBasisID(SqlID(pBasisID));
  table->Zeitraum()->Item = pZeitraum;
  table->Bezeichnung =
      DateHelpers::IsEmptyText(Variant(pBezeichnung)) ? ToText(rs->Fields("Bezeichnung")) : pBezeichnung;
  LoadSubObjects(pManager, *table, pSourceID);
  rs->AddNew();
  rs->Collect("BasisID", pBasisID);
  ZeittabelleColumns().Save(*table, *rs);
  rs->Update();
  table->SetID(DateHelpers::GetNewRowID(*rs));
  SaveSubObjects(pManager, *table, table->ID());
  rs->Close();
  return table;
}

void DeleteZeittabelle(clsManager& pManager, const std::string& pID) {
  if (!DateHelpers::IsID(Variant(pID))) return;
  detail::PayrollStore(pManager).ExecuteSql("DELETE * FROM [Basiswerte_Zeittabelle] WHERE [ID]=" + SqlID(pID), true);
}

void InsertZeittabelleSorted(clsManager& pManager, Collection<LBasis>& pCollection,
                             const std::shared_ptr<LBasis>& pBasis, const std::string& pBasisID) {
  pBasis->SetManager(detail::Shared(pManager));
  if (pCollection.Empty()) {
    pCollection.Add(pBasis, pBasis->ID());
    return;
  }
  auto rs = detail::OpenRead(pManager, "SELECT * FROM [Basiswerte_Zeittabelle] WHERE [BasisID]=" + SqlID(pBasisID) +
                                           " ORDER BY [Datum] ASC");
  detail::InsertBesideNeighbour(*rs, pCollection, pBasis);
  rs->Close();
}

}  // namespace ormelix::modBasiswerte
