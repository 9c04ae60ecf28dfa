// The employer contributions: Basiswerte_Zeittabelle_DG (one row per dated table)
// and the 128 rows of Basiswerte_Zeittabelle_DG_Werte below it, one per employee
// group and, for apprentices, per length of apprenticeship. In the store the
// matrix lies the other way round from the objects: a row per group, a column per
// kind of contribution.
#include <stdexcept>
#include <string>

#include "basis_rows.h"
#include "basis_store.h"
#include "ormelix/basevalues/basis_columns.h"
#include "ormelix/basevalues/mod_basiswerte.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::modBasiswerte {

using namespace ValueHelpers;

namespace {

constexpr const char* kHead = "Basiswerte_Zeittabelle_DG";
constexpr const char* kValues = "Basiswerte_Zeittabelle_DG_Werte";

// The cell of one kind of contribution for the row's group and length, named
// after the kind (SV_Laufend, DZBL(eBasisWien)).
template <const LBasis_DG::Wert& (LBasis_DG::*Kind)() const>
PropertyRef CellGet(DGRow& r) {
  return &((*r.dg).*Kind)()->Wert(r.group, r.index);
}
template <const LBasis_DG::Wert& (LBasis_DG::*Kind)() const>
constexpr Property<DGRow> Cell{&CellGet<Kind>, kMemberName<Kind>};

template <eBasisBundesländer Province>
PropertyRef DZBLCellGet(DGRow& r) {
  return &r.dg->DZBL(Province)->Wert(r.group, r.index);
}
template <eBasisBundesländer Province>
constexpr Property<DGRow> DZBLCell{&DZBLCellGet<Province>, kIndexedName<&LBasis_DG::DZBL, Province>};

// The crooked write: group 23 takes its reduced rate from group 19.
constexpr Property<DGRow> CrookedFALASTLGV{
    [](DGRow& r) -> PropertyRef {
      return &r.dg->FALASTLGV()->Wert(
          r.group == eBasisdgLehrlingForstArbeiter5 ? eBasisdgLehrlingForstArbeiter1 : r.group, r.index);
    },
    kMemberName<&LBasis_DG::FALASTLGV>};

std::string ValuesOf(const std::string& dg_id) {
  return std::string("SELECT * FROM [") + kValues + "] WHERE [DGID]=" + SqlID(dg_id);
}

bool IsApprenticeGroup(int group) { return (group >= 9 && group <= 23) || (group >= 26 && group <= 40); }

int CheckedLength(int group, int sortnr, const std::string& dg_id) {
  if (sortnr < 0 || sortnr > 4)
    throw std::out_of_range(std::string(kValues) + ": the row with DNGruppe " + std::to_string(group) +
                            " and SortNr " + std::to_string(sortnr) + " (DGID " + dg_id +
                            ") has a length of apprenticeship outside 0 to 4");
  return sortnr;
}

// One stored row into the objects; rows of other groups (24 and 25 among them) are skipped.
void LoadRow(LBasis_DG& dg, const Recordset& rs, const std::vector<int>& bound, const std::vector<int>& bound2016,
             const std::string& dg_id) {
  int group = ToInteger(rs.Fields("DNGruppe"));
  if (group >= 1 && group <= 8) {
    DGRow row{&dg, group, 0};
    DGWerteColumns().Load(row, rs, bound);
  } else if (IsApprenticeGroup(group)) {
    DGRow row{&dg, group, CheckedLength(group, ToInteger(rs.Fields("SortNr")), dg_id)};
    if (group <= 23) DGWerteColumns().Load(row, rs, bound);
    else DGWerte2016Columns().Load(row, rs, bound2016);
  }
}

void SaveRow(LBasis_DG& dg, Recordset& rs, const DGZeile& zeile, const std::string& dg_id) {
  std::string filter = "[DNGruppe]=" + std::to_string(zeile.group);
  if (zeile.sortnr > 0) filter += " AND [SortNr]=" + std::to_string(zeile.sortnr);
  rs.Filter(filter);
  if (rs.Eof()) {
    rs.AddNew();
    rs.Collect("DGID", dg_id);
    rs.Collect("DNGruppe", static_cast<std::int32_t>(zeile.group));
    if (zeile.sortnr > 0) rs.Collect("SortNr", static_cast<std::int16_t>(zeile.sortnr));
  }
  DGRow row{&dg, zeile.group, zeile.sortnr};
  (zeile.is2016 ? DGWerte2016Columns() : DGWerteColumns()).Save(row, rs);
  rs.Update();
}

}  // namespace

const ColumnSet<LBasis_DG>& DGColumns() {
  static const ColumnSet<LBasis_DG> columns{
      {"Kindergeld", Member<&LBasis_DG::Kindergeld>, LoadAs::Round2, SaveAs::Direct},
  };
  return columns;
}

const ColumnSet<DGRow>& DGWerteColumns() {
  using D = LBasis_DG;
  static const ColumnSet<DGRow> columns{
      {"SV_Laufend", Cell<&D::SV_Laufend>, LoadAs::Round2, SaveAs::Direct},
      {"SV_Sonderzahlung", Cell<&D::SV_Sonderzahlung>, LoadAs::Round2, SaveAs::Direct},
      {"FALAST", Cell<&D::FALAST>, LoadAs::Round2, SaveAs::Direct},
      {"FALASTLGV", Cell<&D::FALASTLGV>, LoadAs::Round2, SaveAs::Direct, CrookedFALASTLGV},
      {"Kommunalsteuer", Cell<&D::Kommunalsteuer>, LoadAs::Round2, SaveAs::Direct},
      {"DZBL_B", DZBLCell<eBasisBurgenland>, LoadAs::Round2, SaveAs::Direct},
      {"DZBL_K", DZBLCell<eBasisKärnten>, LoadAs::Round2, SaveAs::Direct},
      {"DZBL_NÖ", DZBLCell<eBasisNiederösterreich>, LoadAs::Round2, SaveAs::Direct},
      {"DZBL_OÖ", DZBLCell<eBasisOberösterreich>, LoadAs::Round2, SaveAs::Direct},
      {"DZBL_S", DZBLCell<eBasisSalzburg>, LoadAs::Round2, SaveAs::Direct},
      {"DZBL_ST", DZBLCell<eBasisSteiermark>, LoadAs::Round2, SaveAs::Direct},
      {"DZBL_T", DZBLCell<eBasisTirol>, LoadAs::Round2, SaveAs::Direct},
      {"DZBL_V", DZBLCell<eBasisVoralberg>, LoadAs::Round2, SaveAs::Direct},
      {"DZBL_W", DZBLCell<eBasisWien>, LoadAs::Round2, SaveAs::Direct},
      {"UBahn", Cell<&D::U_Bahn>, LoadAs::Round2, SaveAs::Direct},
      {"Produktivitaetsfaktor", Cell<&D::Produktivitaetsfaktor>, LoadAs::Round2, SaveAs::Direct},
  };
  return columns;
}

const ColumnSet<DGRow>& DGWerte2016Columns() {
  using D = LBasis_DG;
  static const ColumnSet<DGRow> columns{
      {"SV_Laufend2016", Cell<&D::SV_Laufend>, LoadAs::Round2, SaveAs::Direct},
      {"SV_Sonderzahlung2016", Cell<&D::SV_Sonderzahlung>, LoadAs::Round2, SaveAs::Direct},
  };
  return columns;
}

const std::vector<DGZeile>& DGZeilen() {
  static const std::vector<DGZeile> rows = [] {
    std::vector<DGZeile> list;
    for (int group = 1; group <= 8; ++group) list.push_back({group, 0, false});
    for (int group = 9; group <= 23; ++group)
      for (int sortnr = 1; sortnr <= 4; ++sortnr) list.push_back({group, sortnr, false});
    for (int group = 26; group <= 40; ++group)
      for (int sortnr = 1; sortnr <= 4; ++sortnr) list.push_back({group, sortnr, true});
    return list;
  }();
  return rows;
}

void LoadBasisDG(clsManager& pManager, LBasis_DG& pDG, const std::string& pZeittabellenID) {
  auto head = detail::OpenRead(pManager, detail::RowOfTable(kHead, pZeittabellenID));
  if (head->Eof()) {
    head->Close();
    return;
  }
  DGColumns().Load(pDG, *head);
  std::string dg_id = ToText(head->Fields("ID"));
  auto values = detail::OpenRead(pManager, ValuesOf(dg_id) + " ORDER BY [DNGruppe] ASC, [SortNr] ASC");
  std::vector<int> bound = DGWerteColumns().Bind(*values);
  std::vector<int> bound2016 = DGWerte2016Columns().Bind(*values);
  for (; !values->Eof(); values->MoveNext()) LoadRow(pDG, *values, bound, bound2016, dg_id);
  head->Close();
  values->Close();
}

void SaveBasisDG(clsManager& pManager, LBasis_DG& pDG, const std::string& pZeittabellenID) {
  StoreWriteTransaction save(detail::PayrollStore(pManager), StoreWriteTransaction::KeepWritten);
  auto head = detail::OpenWrite(pManager, detail::RowOfTable(kHead, pZeittabellenID));
  std::string dg_id = detail::SaveHeadRow(*head, DGColumns(), pDG, pZeittabellenID);
  auto values = detail::OpenWrite(pManager, ValuesOf(dg_id));
  for (const DGZeile& zeile : DGZeilen()) SaveRow(pDG, *values, zeile, dg_id);
  head->Close();
  values->Close();
  save.Commit();
}

}  // namespace ormelix::modBasiswerte
