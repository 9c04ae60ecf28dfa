// The wage-tax table: Basiswerte_Zeittabelle_LST (one row per dated table) and
// its bands in Basiswerte_Zeittabelle_LST_Werte, which a save deletes and writes
// anew and a load appends to the list in memory, ordered by Von.
#include <string>

#include "basis_rows.h"
#include "basis_store.h"
#include "ormelix/basevalues/basis_columns.h"
#include "ormelix/basevalues/mod_basiswerte.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::modBasiswerte {

using namespace ValueHelpers;

namespace {

constexpr const char* kHead = "Basiswerte_Zeittabelle_LST";

std::string BandsOf(const std::string& lohnsteuer_id) {
  return "SELECT * FROM [Basiswerte_Zeittabelle_LST_Werte] WHERE [LohnsteuerID]=" + SqlID(lohnsteuer_id) +
         " ORDER BY [Von] ASC";
}

}  // namespace

const ColumnSet<LBasis_LST>& LSTColumns() {
  using L = LBasis_LST;
  static const ColumnSet<L> columns{
      {"FreibetragGemäß68Abs1EStG", Member<&L::FreibetragGemäß68Abs1EStG>, LoadAs::Round2, SaveAs::Direct},
      {"FreibetragGemäß68Abs6EStG", Member<&L::FreibetragGemäß68Abs6EStG>, LoadAs::Round2, SaveAs::Direct},
      {"LStFreieÜberstundenGemäß68Abs2EStG", Member<&L::LStFreieÜberstundenGemäß68Abs2EStG>, LoadAs::Round2,
       SaveAs::Direct},
      {"ObergrenzeFürLStFeieÜberstundenGemäß68Abs2EStG", Member<&L::ObergrenzeFürLStFeieÜberstundenGemäß68Abs2EStG>,
       LoadAs::Round2, SaveAs::Direct},
  };
  return columns;
}

const ColumnSet<LBasis_LST_Werte>& LSTWerteColumns() {
  using W = LBasis_LST_Werte;
  static const ColumnSet<W> columns{
      {"Von", Member<&W::Von>, LoadAs::Round2, SaveAs::Direct},
      {"Bis", Member<&W::Bis>, LoadAs::Round2, SaveAs::Direct},
      {"steuersatz", Member<&W::steuersatz>, LoadAs::Round4, SaveAs::Direct},
      {"Unbeschränkt", Member<&W::unbeschraenkt>, LoadAs::Round2, SaveAs::Direct},
      {"Beschränkt", Member<&W::beschraenkt>, LoadAs::Round2, SaveAs::Direct},
  };
  return columns;
}

void LoadBasisLST(clsManager& pManager, LBasis_LST& pLST, const std::string& pZeittabellenID) {
  auto rs = detail::OpenRead(pManager, detail::RowOfTable(kHead, pZeittabellenID));
  if (rs->Eof()) {
    rs->Close();
    return;
  }
  LSTColumns().Load(pLST, *rs);
  LoadBasisLSTWerte(pManager, pLST, ToText(rs->Fields("ID")));
  rs->Close();
}

void LoadBasisLSTWerte(clsManager& pManager, LBasis_LST& pLST, const std::string& pLohnsteuerID) {
  auto rs = detail::OpenRead(pManager, BandsOf(pLohnsteuerID));
  std::vector<int> bound = LSTWerteColumns().Bind(*rs);
  for (; !rs->Eof(); rs->MoveNext()) {
    auto band = std::make_shared<LBasis_LST_Werte>();
    band->SetID(ToText(rs->Fields("ID")));
    LSTWerteColumns().Load(*band, *rs, bound);
    pLST.Add(band);
  }
  rs->Close();
}

void SaveBasisLST(clsManager& pManager, LBasis_LST& pLST, const std::string& pZeittabellenID) {
  StoreWriteTransaction save(detail::PayrollStore(pManager), StoreWriteTransaction::KeepWritten);
  auto rs = detail::OpenWrite(pManager, detail::RowOfTable(kHead, pZeittabellenID));
  if (rs->Eof()) {
    rs->AddNew();
    rs->Collect("ZeittabellenID", pZeittabellenID);
  }
  LSTColumns().Save(pLST, *rs);
  rs->Update();
  // A fresh row that does not show its key yet is found again by its Nr.
  if (!DateHelpers::IsID(rs->Fields("ID").ValueOrEmpty())) {
    std::int32_t nr = ToLong(rs->Fields("Nr"));
    rs->Requery();
    rs->Filter("[Nr]=" + std::to_string(nr));
  }
  SaveBasisLSTWerte(pManager, pLST, ToText(rs->Fields("ID")));
  rs->Close();
  save.Commit();
}

void SaveBasisLSTWerte(clsManager& pManager, LBasis_LST& pLST, const std::string& pLohnsteuerID) {
  StoreWriteTransaction save(detail::PayrollStore(pManager), StoreWriteTransaction::KeepWritten);
  detail::PayrollStore(pManager).ExecuteSql(
      "DELETE * FROM [Basiswerte_Zeittabelle_LST_Werte] WHERE [LohnsteuerID]=" + SqlID(pLohnsteuerID), true);
  auto rs = detail::OpenWrite(pManager, BandsOf(pLohnsteuerID));
  for (const auto& band : pLST) {
    rs->AddNew();
    rs->Collect("LohnsteuerID", ToText(Variant(pLohnsteuerID)));
    LSTWerteColumns().Save(*band, *rs);
    rs->Update();
    rs->MoveNext();
  }
  rs->Close();
  save.Commit();
}

}  // namespace ormelix::modBasiswerte
