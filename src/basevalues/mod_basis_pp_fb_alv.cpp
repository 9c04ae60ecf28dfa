// The three small sub-objects: commuter-allowance bands (Basiswerte_Zeittabelle_PP,
// four rows by SortNr), allowances (_FB) and ALV bounds (_ALV), one row each.
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

constexpr const char* kPP = "Basiswerte_Zeittabelle_PP";

std::string BandsOf(const std::string& zeittabellen_id) {
  return detail::RowOfTable(kPP, zeittabellen_id) + " ORDER BY [SortNr] ASC";
}

int CheckedBand(int sortnr, const std::string& zeittabellen_id) {
  if (sortnr < 0 || sortnr > 4)
    throw std::out_of_range(std::string(kPP) + ": the row with SortNr " + std::to_string(sortnr) +
                            " of the dated table " + zeittabellen_id + " lies outside the bands 0 to 4");
  return sortnr;
}

}  // namespace

const ColumnSet<PPRow>& PPColumns() {
  static const ColumnSet<PPRow> columns{
      {"Von", Named<PPRow>("Von", [](PPRow& r) -> PropertyRef { return &r.pp->Von[r.index]; }), LoadAs::Round2,
       SaveAs::Direct},
      {"Bis", Named<PPRow>("Bis", [](PPRow& r) -> PropertyRef { return &r.pp->Bis[r.index]; }), LoadAs::Round2,
       SaveAs::Direct},
      {"klein", Named<PPRow>("klein", [](PPRow& r) -> PropertyRef { return &r.pp->klein[r.index]; }), LoadAs::Round2,
       SaveAs::Direct},
      {"gross", Named<PPRow>("gross", [](PPRow& r) -> PropertyRef { return &r.pp->gross[r.index]; }), LoadAs::Round2,
       SaveAs::Direct},
  };
  return columns;
}

const ColumnSet<LBasis_FB>& FBColumns() {
  using F = LBasis_FB;
  static const ColumnSet<F> columns{
      {"Werbekosten", Member<&F::Werbekosten>, LoadAs::Round2, SaveAs::Direct},
      {"Sonderausgaben", Member<&F::Sonderausgaben>, LoadAs::Round2, SaveAs::Direct},
      {"Allgemein", Member<&F::Allgemein>, LoadAs::Round2, SaveAs::Direct},
      {"Arbeitsnehmer", Member<&F::Arbeitsnehmer>, LoadAs::Round2, SaveAs::Direct},
      {"Verkehr", Member<&F::Verkehr>, LoadAs::Round2, SaveAs::Direct},
      {"ErhoehterVerkehr", Member<&F::ErhoehterVerkehr>, LoadAs::Round2, SaveAs::Direct},
      {"EinschleifgrenzeVABVon", Member<&F::EinschleifgrenzeVABVon>, LoadAs::Round2, SaveAs::Direct},
      {"EinschleifgrenzeVABBis", Member<&F::EinschleifgrenzeVABBis>, LoadAs::Round2, SaveAs::Direct},
      {"Alleinverdiener", Member<&F::Alleinverdiener>, LoadAs::Round2, SaveAs::Direct},
      {"Alleinerzieher", Member<&F::Alleinerzieher>, LoadAs::Round2, SaveAs::Direct},
      {"Kinderzuschlag_Kind1", Member<&F::Kinderzuschlag_Kind1>, LoadAs::Round2, SaveAs::Direct},
      {"Kinderzuschlag_Kind2", Member<&F::Kinderzuschlag_Kind2>, LoadAs::Round2, SaveAs::Direct},
      {"Kinderzuschlag_Kind3", Member<&F::Kinderzuschlag_AbKind3>, LoadAs::Round2, SaveAs::Direct},
      {"FABO", Member<&F::FABO>, LoadAs::Round2, SaveAs::Direct},
      {"FABO18", Member<&F::FABO18>, LoadAs::Round2, SaveAs::Direct},
  };
  return columns;
}

const ColumnSet<LBasis_ALV>& ALVColumns() {
  using A = LBasis_ALV;
  static const ColumnSet<A> columns{
      {"N25a", Member<&A::N25a_bis>, LoadAs::Round2, SaveAs::Direct},
      {"N25b", Member<&A::N25b_bis>, LoadAs::Round2, SaveAs::Direct},
      {"N25c", Member<&A::N25c_bis>, LoadAs::Round2, SaveAs::Direct},
      {"N25d", Member<&A::N25d_bis>, LoadAs::Round2, SaveAs::Direct},
      {"N25e", Member<&A::N25e_bis>, LoadAs::Round2, SaveAs::Direct},
  };
  return columns;
}

void LoadBasisPP(clsManager& pManager, LBasis_PP& pPP, const std::string& pZeittabellenID) {
  auto rs = detail::OpenRead(pManager, BandsOf(pZeittabellenID));
  std::vector<int> bound = PPColumns().Bind(*rs);
  for (; !rs->Eof(); rs->MoveNext()) {
    PPRow row{&pPP, CheckedBand(ToInteger(rs->Fields("SortNr")), pZeittabellenID)};
    PPColumns().Load(row, *rs, bound);
  }
  rs->Close();
}

void SaveBasisPP(clsManager& pManager, LBasis_PP& pPP, const std::string& pZeittabellenID) {
  StoreWriteTransaction save(detail::PayrollStore(pManager), StoreWriteTransaction::KeepWritten);
  auto rs = detail::OpenWrite(pManager, BandsOf(pZeittabellenID));
  for (int band = 1; band <= 4; ++band) {
    rs->Filter("[SortNr]=" + std::to_string(band));
    if (rs->Eof()) {
      rs->AddNew();
      rs->Collect("ZeittabellenID", pZeittabellenID);
      rs->Collect("SortNr", static_cast<std::int16_t>(band));
    }
    PPRow row{&pPP, band};
    PPColumns().Save(row, *rs);
    rs->Update();
  }
  rs->Close();
  save.Commit();
}

void LoadBasisFB(clsManager& pManager, LBasis_FB& pFB, const std::string& pZeittabellenID) {
  detail::LoadSingleRow(pManager, "Basiswerte_Zeittabelle_FB", FBColumns(), pFB, pZeittabellenID);
}

void SaveBasisFB(clsManager& pManager, LBasis_FB& pFB, const std::string& pZeittabellenID) {
  detail::SaveSingleRow(pManager, "Basiswerte_Zeittabelle_FB", FBColumns(), pFB, pZeittabellenID);
}

void LoadBasisALV(clsManager& pManager, LBasis_ALV& pALV, const std::string& pZeittabellenID) {
  detail::LoadSingleRow(pManager, "Basiswerte_Zeittabelle_ALV", ALVColumns(), pALV, pZeittabellenID);
}

void SaveBasisALV(clsManager& pManager, LBasis_ALV& pALV, const std::string& pZeittabellenID) {
  detail::SaveSingleRow(pManager, "Basiswerte_Zeittabelle_ALV", ALVColumns(), pALV, pZeittabellenID);
}

}  // namespace ormelix::modBasiswerte
