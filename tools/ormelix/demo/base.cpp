// The base values of the demo: a Standard folder with a dated table for 2024 and a
// copy edited for 2025, and a restore folder copied from it, all through the
// library's objects.
#include "demo/demo.h"
#include "demo/figures.h"
#include "ormelix/basevalues/basisdaten.h"

namespace cli {

using namespace ormelix;

namespace {

void FillContributions(LBasis& table, const demo::YearFigures& year) {
  for (int group = 1; group <= 16; ++group) {  // a copied table starts from last year's rates
    LBasis_SA_Wert& rate = *table.SA()->Gruppe(group);
    rate = LBasis_SA_Wert{};
  }
  for (const demo::Contribution& c : year.contributions) {
    LBasis_SA_Wert& rate = *table.SA()->Gruppe(c.group);
    rate.Prozent = c.employee;
    rate.Prozent_DG = c.employer;
    rate.Obergrenze = c.ceiling;
    rate.Sonderzahlung = c.special_ceiling;
  }
  table.SA()->GrenzbetragGeringBeschaeftigte()->Prozent = year.marginal_levy_percent;
  table.SA()->GrenzbetragGeringBeschaeftigte()->Obergrenze = year.marginal_limit;
  table.DGM()->GrenzbetragMinderBeschaeftigte = year.marginal_levy_limit;
}

void FillWageTax(LBasis& table, const demo::YearFigures& year) {
  table.LST()->Clear();
  for (const demo::TaxBand& band : year.tax_bands) {
    auto row = std::make_shared<LBasis_LST_Werte>();
    row->Von = band.from;
    row->Bis = band.to;
    row->steuersatz = band.rate;
    table.LST()->Add(row);
  }
}

void FillAllowances(LBasis& table, const demo::YearFigures& year) {
  for (int band = 1; band <= 4; ++band) {
    const demo::CommuterBand& c = year.commuter[band - 1];
    table.PP()->Von[band] = c.from_km;
    table.PP()->Bis[band] = c.to_km;
    table.PP()->klein[band] = c.small;
    table.PP()->gross[band] = c.large;
  }
  LBasis_FB& fb = *table.FB();
  fb.FABO = year.familienbonus;
  fb.FABO18 = year.familienbonus18;
  fb.Verkehr = year.verkehrsabsetzbetrag;
  fb.Alleinverdiener = year.avab_one_child;
  fb.Alleinerzieher = year.avab_one_child;
  fb.Kinderzuschlag_Kind1 = year.avab_one_child;
  fb.Kinderzuschlag_Kind2 = year.avab_two_children;
  fb.Kinderzuschlag_AbKind3 = year.avab_each_further;
  table.ALV()->N25a_bis = year.alv_bounds[0];
  table.ALV()->N25b_bis = year.alv_bounds[1];
  table.ALV()->N25c_bis = year.alv_bounds[2];
}

// Employer contributions of managing directors, white- and blue-collar employees.
void FillEmployerContributions(LBasis& table, const demo::YearFigures& year) {
  LBasis_DG& dg = *table.DG();
  for (double LBasis_DG_Wert::*group :
       {&LBasis_DG_Wert::Geschäftsführer, &LBasis_DG_Wert::Angestellte, &LBasis_DG_Wert::Arbeiter}) {
    (*dg.SV_Laufend()).*group = year.employer_sv_current;
    (*dg.SV_Sonderzahlung()).*group = year.employer_sv_special;
    (*dg.FALAST()).*group = year.db_percent;
    (*dg.FALASTLGV()).*group = year.db_reduced_percent;
    (*dg.Kommunalsteuer()).*group = year.kommunalsteuer_percent;
    (*dg.U_Bahn()).*group = year.ubahn_per_week;
    for (int province = 1; province <= 9; ++province) (*dg.DZBL(province)).*group = year.dz_percent[province - 1];
  }
}

}  // namespace

std::shared_ptr<clsBasisordner> BuildBaseValues(clsManager& manager, std::ostream& out) {
  auto basis = manager.Basis();
  basis->Load();
  auto folder = basis->AddNew("Standard");
  folder->Standardordner = true;
  folder->Update(manager);
  std::shared_ptr<LBasis> previous;
  for (const demo::YearFigures& year : demo::AustrianFigures()) {
    std::string name = "Werte " + std::to_string(year.year);
    // A new year's table is a copy of the year before, then edited.
    auto table = previous ? folder->Zeittabellen()->Copy(previous, year.period, name)
                          : folder->Zeittabellen()->AddNew(year.period, name);
    FillContributions(*table, year);
    FillWageTax(*table, year);
    FillAllowances(*table, year);
    FillEmployerContributions(*table, year);
    table->Update();
    previous = table;
    out << "  dated table " << name << " from " << year.period << "\n";
  }
  auto restore = basis->Copy(folder, "Wiederherstellung");
  restore->Wiederherstellung = true;
  restore->Update(manager);
  basis->Load();
  out << "  folders: Standard, Wiederherstellung (a copy of Standard)\n";
  return basis->GetStandardBOrdner();
}

}  // namespace cli
