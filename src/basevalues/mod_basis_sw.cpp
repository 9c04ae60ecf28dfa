// The wage-group rates: Basiswerte_Zeittabelle_SW (one row per dated table) and
// Basiswerte_Zeittabelle_SW_Werte (eleven rows, by DNGruppe). The value rows are
// read from one recordset over the whole value table, picked by Filter.
#include <string>

#include "basis_rows.h"
#include "basis_store.h"
#include "ormelix/basevalues/basis_columns.h"
#include "ormelix/basevalues/mod_basiswerte.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::modBasiswerte {

using namespace ValueHelpers;

namespace {

constexpr const char* kHead = "Basiswerte_Zeittabelle_SW";
constexpr const char* kAllValues = "SELECT * FROM [Basiswerte_Zeittabelle_SW_Werte]";

detail::GroupRow ValueRow(const std::string& parent_id, int group) { return {"SWID", parent_id, "DNGruppe", group}; }

}  // namespace

const ColumnSet<LBasis_SW>& SWColumns() {
  static const ColumnSet<LBasis_SW> columns{
      {"Betriebsrat", Member<&LBasis_SW::Betriebsrat>, LoadAs::Round2, SaveAs::Direct},
      {"Betrag", Member<&LBasis_SW::Betrag>, LoadAs::Integer, SaveAs::Direct},
  };
  return columns;
}

const ColumnSet<LBasis_SW_Wert>& SWWerteColumns() {
  using W = LBasis_SW_Wert;
  static const ColumnSet<W> columns{
      {"USTeiler", Member<&W::USTeiler>, LoadAs::Round2, SaveAs::Direct},
      {"Prozent", Member<&W::Prozent>, LoadAs::Round2, SaveAs::Direct},
      {"grenze", Member<&W::grenze>, LoadAs::Round2, SaveAs::Direct},
  };
  return columns;
}

const std::array<SWGruppe, 11>& SWGruppen() {
  // LehrlingArbeiter is read from the row of Arbeiter (3) and written to its own (8).
  static const std::array<SWGruppe, 11> groups{{{eBasisSWGeschäftsführer, 1},
                                                {eBasisSWAngestellte, 2},
                                                {eBasisSWArbeiter, 3},
                                                {eBasisSWBauarbeiter, 4},
                                                {eBasisSWRAWAnwärter, 5},
                                                {eBasisSWFreierMitarbeiter, 6},
                                                {eBasisSWLehrlingAngestellte, 7},
                                                {eBasisSWLehrlingArbeiter, 3},
                                                {eBasisSWFerialpraktikant, 9},
                                                {eBasisSWForstarbeiter, 10},
                                                {eBasisSWLehrlingForstArbeiter, 11}}};
  return groups;
}

void LoadBasisSW(clsManager& pManager, LBasis_SW& pSW, const std::string& pZeittabellenID) {
  auto head = detail::OpenRead(pManager, detail::RowOfTable(kHead, pZeittabellenID));
  auto values = detail::OpenRead(pManager, kAllValues);
  if (!head->Eof()) {
    SWColumns().Load(pSW, *head);
    std::string parent_id = ToText(head->Fields("ID"));
    std::vector<int> bound = SWWerteColumns().Bind(*values);
    for (const SWGruppe& group : SWGruppen())
      detail::LoadGroupRow(*values, ValueRow(parent_id, group.load_gruppe), SWWerteColumns(), *pSW.Gruppe(group.gruppe),
                           bound);
  }
  head->Close();
  values->Close();
}

void SaveBasisSW(clsManager& pManager, LBasis_SW& pSW, const std::string& pZeittabellenID) {
  StoreWriteTransaction save(detail::PayrollStore(pManager), StoreWriteTransaction::KeepWritten);
  auto head = detail::OpenWrite(pManager, detail::RowOfTable(kHead, pZeittabellenID));
  auto values = detail::OpenWrite(pManager, kAllValues);
  std::string parent_id = detail::SaveHeadRow(*head, SWColumns(), pSW, pZeittabellenID);
  for (const SWGruppe& group : SWGruppen())
    detail::SaveGroupRow(*values, ValueRow(parent_id, group.gruppe), SWWerteColumns(), *pSW.Gruppe(group.gruppe));
  head->Close();
  values->Close();
  save.Commit();
}

}  // namespace ormelix::modBasiswerte
