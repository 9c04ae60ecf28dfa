// Marginal employment: Basiswerte_Zeittabelle_DG_Geringfügig (one row per dated
// table, which also carries SA.GrenzbetragGeringBeschaeftigte) and the two rows of
// Basiswerte_Zeittabelle_DG_Geringfügig_Werte (24 Angestellte, 25 Arbeiter), read
// from one recordset over the whole value table, picked by Filter.
#include <string>

#include "basis_rows.h"
#include "basis_store.h"
#include "ormelix/basevalues/basis_columns.h"
#include "ormelix/basevalues/mod_basiswerte.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::modBasiswerte {

using namespace ValueHelpers;

namespace {

constexpr const char* kHead = "Basiswerte_Zeittabelle_DG_Geringfügig";
constexpr const char* kAllValues = "SELECT * FROM [Basiswerte_Zeittabelle_DG_Geringfügig_Werte]";
constexpr int kGroups[] = {eBasisDGGeringfügigAngestellte, eBasisdgGeringfügigArbeiter};

// The cell of one kind of contribution for the row's group, named after the kind.
template <const LBasis_DG_GF::Wert& (LBasis_DG_GF::*Kind)() const>
PropertyRef CellGet(DGMRow& r) {
  LBasis_DG_GF_Wert& wert = *((*r.dgm).*Kind)();
  return r.group == eBasisDGGeringfügigAngestellte ? &wert.Angestellte : &wert.Arbeiter;
}
template <const LBasis_DG_GF::Wert& (LBasis_DG_GF::*Kind)() const>
constexpr Property<DGMRow> Cell{&CellGet<Kind>, kMemberName<Kind>};

detail::GroupRow ValueRow(const std::string& dg_id, int group) { return {"DGID", dg_id, "DNGruppe", group}; }

}  // namespace

// Named as the dated table (LBasis) reaches them: the row fills SA and DGM.
const ColumnSet<DGMHead>& DGMColumns() {
  static const ColumnSet<DGMHead> columns{
      {"Prozent", Named<DGMHead>("SA.GrenzbetragGeringBeschaeftigte.Prozent", [](DGMHead& h) -> PropertyRef {
         return &h.sa->GrenzbetragGeringBeschaeftigte()->Prozent;
       }),
       LoadAs::Round2, SaveAs::Direct},
      {"Grenzbetrag", Named<DGMHead>("SA.GrenzbetragGeringBeschaeftigte.Obergrenze", [](DGMHead& h) -> PropertyRef {
         return &h.sa->GrenzbetragGeringBeschaeftigte()->Obergrenze;
       }),
       LoadAs::Round2, SaveAs::Direct},
      {"Lohnsumme", Named<DGMHead>("DGM.GrenzbetragMinderBeschaeftigte", [](DGMHead& h) -> PropertyRef {
         return &h.dgm->GrenzbetragMinderBeschaeftigte;
       }),
       LoadAs::Round2, SaveAs::Direct},
  };
  return columns;
}

const ColumnSet<DGMRow>& DGMWerteColumns() {
  using G = LBasis_DG_GF;
  static const ColumnSet<DGMRow> columns{
      {"SV_Laufend", Cell<&G::SV_Laufend>, LoadAs::Round2, SaveAs::Direct},
      {"SV_Sonderzahlung", Cell<&G::SV_Sonderzahlung>, LoadAs::Round2, SaveAs::Direct},
      {"FALAST", Cell<&G::FALAST>, LoadAs::Round2, SaveAs::Direct},
      {"FALASTLGV", Cell<&G::FALASTLGV>, LoadAs::Round2, SaveAs::Direct},
      {"DZ", Cell<&G::DZ>, LoadAs::Round2, SaveAs::Direct},
      {"Kommunalsteuer", Cell<&G::Kommunalsteuer>, LoadAs::Round2, SaveAs::Direct},
      {"UBahn", Cell<&G::U_Bahn>, LoadAs::Round2, SaveAs::Direct},
      {"Produktivitaetsfaktor", Cell<&G::Produktivitaetsfaktor>, LoadAs::Round2, SaveAs::Direct},
  };
  return columns;
}

void LoadBasisDGM(clsManager& pManager, LBasis_DG_GF& pDGM, LBasis_SA& pSA, const std::string& pZeittabellenID) {
  auto head = detail::OpenRead(pManager, detail::RowOfTable(kHead, pZeittabellenID));
  if (head->Eof()) {
    head->Close();
    return;
  }
  DGMHead target{&pDGM, &pSA};
  DGMColumns().Load(target, *head);
  std::string dg_id = ToText(head->Fields("ID"));
  auto values = detail::OpenRead(pManager, kAllValues);
  std::vector<int> bound = DGMWerteColumns().Bind(*values);
  for (int group : kGroups) {
    DGMRow row{&pDGM, group};
    detail::LoadGroupRow(*values, ValueRow(dg_id, group), DGMWerteColumns(), row, bound);
  }
  head->Close();
  values->Close();
}

void SaveBasisDGM(clsManager& pManager, LBasis_DG_GF& pDGM, LBasis_SA& pSA, const std::string& pZeittabellenID) {
  StoreWriteTransaction save(detail::PayrollStore(pManager), StoreWriteTransaction::KeepWritten);
  auto head = detail::OpenWrite(pManager, detail::RowOfTable(kHead, pZeittabellenID));
  DGMHead target{&pDGM, &pSA};
  std::string dg_id = detail::SaveHeadRow(*head, DGMColumns(), target, pZeittabellenID);
  head->Close();
  auto values = detail::OpenWrite(pManager, kAllValues);
  for (int group : kGroups) {
    DGMRow row{&pDGM, group};
    detail::SaveGroupRow(*values, ValueRow(dg_id, group), DGMWerteColumns(), row);
  }
  values->Close();
  save.Commit();
}

}  // namespace ormelix::modBasiswerte
