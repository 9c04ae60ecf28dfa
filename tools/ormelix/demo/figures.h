// Austrian statutory figures of 2024 and 2025 for the demo store, each as
// published (the sources are named in the comments of figures.cpp). Figures
// that were not confirmed for a year are not carried: their values stay 0.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace cli::demo {

// Employee and employer share in percent, the monthly ceiling and the yearly
// ceiling for special payments, of one insurance group of the contribution rates.
struct Contribution {
  int group;          // eBasisSAVersicherungsgruppe
  const char* label;  // what the line is, for the output
  double employee;
  double employer;
  double ceiling;
  double special_ceiling;
};

struct TaxBand {
  double from;
  double to;  // 0: open-ended
  double rate;
};

struct CommuterBand {
  double from_km;
  double to_km;  // 0: open-ended
  double small;  // public transport possible
  double large;  // not possible
};

struct YearFigures {
  int year;
  std::int32_t period;  // yyyymm from which the dated table holds
  std::vector<Contribution> contributions;
  std::vector<TaxBand> tax_bands;  // yearly tariff
  std::array<CommuterBand, 4> commuter;
  double marginal_limit;         // Geringfügigkeitsgrenze, monthly
  double marginal_levy_limit;    // limit for the employer levy on marginal employment, monthly
  double marginal_levy_percent;  // that levy (Dienstgeberabgabe)
  std::array<double, 3> alv_bounds;  // employee ALV share 0 %, 1 %, 2 % up to these bases
  double db_percent;             // Dienstgeberbeitrag (FALAST)
  double db_reduced_percent;     // where a collective rule provides it (FALASTLGV), 0 if none
  std::array<double, 9> dz_percent;  // Zuschlag zum DB by province, Burgenland .. Wien
  double kommunalsteuer_percent;
  double ubahn_per_week;         // Wiener Dienstgeberabgabe, EUR per employee and week
  double employer_sv_current;    // employer's social insurance on current pay, white/blue collar
  double employer_sv_special;    // the same on special payments
  double familienbonus;          // FABO under 18, monthly
  double familienbonus18;        // 18 and over, monthly
  double verkehrsabsetzbetrag;   // yearly
  double avab_one_child;         // Alleinverdiener-/Alleinerzieherabsetzbetrag, yearly
  double avab_two_children;
  double avab_each_further;
};

// The figures of 2024 (dated table from 202401) and 2025 (from 202501).
const std::vector<YearFigures>& AustrianFigures();

}  // namespace cli::demo
