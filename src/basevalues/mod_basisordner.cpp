// The rows of Basiswerte: one per folder.
#include "basis_rows.h"
#include "basis_store.h"
#include "ormelix/basevalues/basis_columns.h"
#include "ormelix/basevalues/mod_basiswerte.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::modBasiswerte {

using namespace ValueHelpers;
using DateHelpers::IsID;

namespace {
constexpr const char* kSortedFolders =
    "SELECT * FROM [Basiswerte] ORDER BY [Standardordner] ASC, [Wiederherstellung] DESC, [Bezeichnung] ASC";
}

const ColumnSet<clsBasisordner>& BasiswerteColumns() {
  using F = clsBasisordner;
  static const ColumnSet<F> columns{
      {"Bezeichnung", Member<&F::Bezeichnung>, LoadAs::Text, SaveAs::Direct},
      {"Wiederherstellung", Member<&F::Wiederherstellung>, LoadAs::Flag, SaveAs::Direct},
      {"Standardordner", Member<&F::Standardordner>, LoadAs::Flag, SaveAs::Direct},
  };
  return columns;
}

void LoadBasisordner(clsManager& pManager, clsBasisordner& pBasisordner, const std::string& pID) {
  auto rs = detail::OpenRead(pManager, "SELECT * FROM [Basiswerte] WHERE [ID]=" + SqlID(pID));
  if (!rs->Eof()) {
    pBasisordner.SetManager(detail::Shared(pManager));
    pBasisordner.SetID(SqlID(ToText(rs->Fields("ID"))));
    BasiswerteColumns().Load(pBasisordner, *rs);
  }
  rs->Close();
}

void SaveBasisordner(clsManager& pManager, clsBasisordner& pBasisordner) {
  StoreWriteTransaction save(detail::PayrollStore(pManager), StoreWriteTransaction::KeepWritten);
  auto rs = detail::OpenWrite(pManager, "SELECT * FROM [Basiswerte]");
  rs->Filter("[ID]=" + SqlID(pBasisordner.ID()));
  if (rs->Eof()) rs->AddNew();
  BasiswerteColumns().Save(pBasisordner, *rs);
  rs->Update();
  pBasisordner.SetID(DateHelpers::GetNewRowID(*rs));
  rs->Close();
  save.Commit();
}

bool DeleteBasisordner(clsManager& pManager, const std::string& pID) {
  if (!IsID(Variant(pID))) return false;
  return ToFlag(detail::PayrollStore(pManager).ExecuteSql("DELETE * FROM [Basiswerte] WHERE [ID]=" + SqlID(pID), true));
}

std::shared_ptr<clsBasisordner> CopyBasisordner(clsManager& pManager, const std::string& pSourceID,
                                                const std::string& pBezeichnung) {
  auto rs = detail::OpenWrite(pManager, "SELECT * FROM [Basiswerte]");
  rs->Filter("[ID]=" + SqlID(pSourceID));
  if (rs->Eof()) {
    rs->Close();
    return nullptr;
  }
  auto folder = std::make_shared<clsBasisordner>();
  folder->SetManager(detail::Shared(pManager));
  folder->Bezeichnung = DateHelpers::IsEmptyText(Variant(pBezeichnung)) ? ToText(rs->Fields("Bezeichnung")) : pBezeichnung;
  folder->LoadZeittabellen(pManager, pSourceID);
  // Only the name and the Standard flag are written: a copy of the restore folder
  // takes the column's default for Wiederherstellung.
  rs->AddNew();
  rs->Collect("Bezeichnung", folder->Bezeichnung);
  rs->Collect("Standardordner", false);
  rs->Update();
  folder->SetID(DateHelpers::GetNewRowID(*rs));
  const auto& tables = *folder->Zeittabellen();
  for (long position = 1; position <= tables.Count(); ++position) {
    const auto& table = tables.Item(Variant(position));
    CopyZeittabelle(pManager, table->ID(), folder->ID(), table->Zeitraum()->Item, table->Bezeichnung);
  }
  rs->Close();
  return folder;
}

void InsertBasisordnerSorted(clsManager& pManager, Collection<clsBasisordner>& pCollection,
                             const std::shared_ptr<clsBasisordner>& pBasisordner) {
  pBasisordner->SetManager(detail::Shared(pManager));
  pBasisordner->LoadZeittabellen(pManager);
  if (pCollection.Empty()) {
    pCollection.Add(pBasisordner, pBasisordner->ID());
    return;
  }
  auto rs = detail::OpenRead(pManager, kSortedFolders);
  detail::InsertBesideNeighbour(*rs, pCollection, pBasisordner);
  rs->Close();
}

}  // namespace ormelix::modBasiswerte
