#include "demo/figures.h"

namespace cli::demo {

namespace {

// Contribution rates: sozialleistungen.at "Wichtige Werte für 2024" (KV, PV, UV, ALV,
// Schlechtwetter, Nachtschwerarbeit), sozialversicherung.at (WBF, AK), gesundheitskasse.at
// and elda.at (IESG, apprentice KV); for 2025 digital.bdo.at "Sozialversicherungswerte
// 2025". Ceilings: ig-tax.at and klinger-rieger.at (2024), gesundheitskasse.at
// "Veränderliche Werte 2025" (2025).
std::vector<Contribution> Contributions(double ceiling, double special_ceiling, double apprentice_alv,
                                        bool construction_and_night) {
  std::vector<Contribution> rates = {
      {1, "Arbeitslosenversicherung", 2.95, 2.95, ceiling, special_ceiling},
      {14, "Arbeitslosenversicherung Lehrlinge", apprentice_alv, 0, ceiling, special_ceiling},
      {2, "Krankenversicherung", 3.87, 3.78, ceiling, special_ceiling},
      {3, "Krankenversicherung Arbeiter", 3.87, 3.78, ceiling, special_ceiling},
      {4, "Krankenversicherung Angestellte", 3.87, 3.78, ceiling, special_ceiling},
      {15, "Krankenversicherung Lehrlinge", 1.67, 1.68, ceiling, special_ceiling},
      {6, "Pensionsversicherung", 10.25, 12.55, ceiling, special_ceiling},
      {7, "Arbeiterkammerumlage", 0.50, 0, ceiling, 0},
      {9, "Wohnbauförderungsbeitrag", 0.50, 0.50, ceiling, 0},
      {11, "Unfallversicherung", 0, 1.10, ceiling, 0},
      {12, "IESG-Zuschlag", 0, 0.10, ceiling, 0},
  };
  // Published for 2024 only; a later table carries them once they are confirmed.
  if (construction_and_night) {
    rates.push_back({10, "Schlechtwetterentschädigung", 0.70, 0.70, ceiling, special_ceiling});
    rates.push_back({13, "Nachtschwerarbeitsbeitrag", 0, 3.80, ceiling, 0});
  }
  return rates;
}

// Commuter allowance, monthly: BMF text on oesterreich.gv.at (2024-2025).
const std::array<CommuterBand, 4> kCommuter = {{
    {2, 20, 0, 31},
    {20, 40, 58, 123},
    {40, 60, 113, 214},
    {60, 0, 168, 306},
}};

std::vector<YearFigures> Make() {
  YearFigures y2024;
  y2024.year = 2024;
  y2024.period = 202401;
  y2024.contributions = Contributions(6060.00, 12120.00, 1.2, true);
  // Yearly tariff: finanzrechner.at/brutto-netto/2024.
  y2024.tax_bands = {{0, 12816, 0},      {12816, 20818, 20},    {20818, 34513, 30},  {34513, 66612, 40},
                     {66612, 99266, 48}, {99266, 1000000, 50}, {1000000, 0, 55}};
  y2024.commuter = kCommuter;
  y2024.marginal_limit = 518.44;
  y2024.marginal_levy_limit = 777.66;
  y2024.marginal_levy_percent = 19.4;  // gesundheitskasse.at, from 2024
  y2024.alv_bounds = {1951, 2128, 2306};
  y2024.db_percent = 3.9;  // confida.at: 3.9 % in general,
  y2024.db_reduced_percent = 3.7;  // 3.7 % where a collective rule provides it
  // Zuschlag zum DB 2024: 360.lexisnexis.at ARD 2023/6878.
  y2024.dz_percent = {0.40, 0.37, 0.35, 0.32, 0.36, 0.34, 0.39, 0.33, 0.36};
  y2024.kommunalsteuer_percent = 3.0;
  y2024.ubahn_per_week = 2.0;  // since 1 June 2012
  y2024.employer_sv_current = 20.98;
  y2024.employer_sv_special = 20.48;
  y2024.familienbonus = 166.68;  // bmf.gv.at, usp.gv.at
  y2024.familienbonus18 = 58.34;
  y2024.verkehrsabsetzbetrag = 463;  // usp.gv.at
  y2024.avab_one_child = 572;
  y2024.avab_two_children = 774;
  y2024.avab_each_further = 255;

  YearFigures y2025 = y2024;
  y2025.year = 2025;
  y2025.period = 202501;
  y2025.contributions = Contributions(6450.00, 12900.00, 1.15, false);
  // Yearly tariff: diefinanz.at/steuern/einkommensteuer.
  y2025.tax_bands = {{0, 13308, 0},       {13308, 21617, 20},    {21617, 35836, 30},  {35836, 69166, 40},
                     {69166, 103072, 48}, {103072, 1000000, 50}, {1000000, 0, 55}};
  y2025.marginal_limit = 551.10;
  y2025.marginal_levy_limit = 826.65;
  y2025.alv_bounds = {2074, 2262, 2451};
  y2025.db_percent = 3.7;  // confida.at: 3.7 % from 2025
  y2025.db_reduced_percent = 0;
  // Zuschlag zum DB 2025: wko.at/lohnverrechnung/zuschlag-hoehe-dienstgeberbeitrag.
  y2025.dz_percent = {0.40, 0.37, 0.34, 0.31, 0.36, 0.34, 0.39, 0.33, 0.36};
  y2025.verkehrsabsetzbetrag = 487;
  y2025.avab_one_child = 601;
  y2025.avab_two_children = 813;
  y2025.avab_each_further = 268;
  return {y2024, y2025};
}

}  // namespace

const std::vector<YearFigures>& AustrianFigures() {
  static const std::vector<YearFigures> figures = Make();
  return figures;
}

}  // namespace cli::demo
