/// \file
/// The wage-type groups of an employee's free pay lines (table Mitarbeiter_Lohnarten,
/// column Lohnarttyp): up to five lines a month in each of eight groups. Groups 1 to
/// 6 are held in LLohn's ZSL_ grids (group as the first index), group 7 in the
/// SonstigeAbz_ grids, group 8 in the Aufwandsentsch_ grids.
#pragma once

namespace ormelix {

/// The eight wage-type groups of the free pay lines: the values of the column
/// Lohnarttyp of Mitarbeiter_Lohnarten (LLohn's ZSL_, SonstigeAbz_ and
/// Aufwandsentsch_ grids).
enum eLohnartenConstants {
  Laufende_Bezüge_LST_pfl_SV_pfl_Zusatz = 1,    ///< current pay, taxed, insured: ZSL_...(1, line, month)
  Laufende_Bezüge_LST_frei_SV_frei_Zusatz = 2,  ///< current pay, tax-free, not insured: ZSL_...(2, ...)
  Laufende_Bezüge_LST_frei_SV_pfl_Zusatz = 3,   ///< current pay, tax-free, insured: ZSL_...(3, ...)
  Laufende_Bezüge_LST_pfl_SV_frei_Zusatz = 4,   ///< current pay, taxed, not insured: ZSL_...(4, ...)
  Zulagen_LST_frei_68_SV_pfl_Zusatz = 5,        ///< allowances tax-free by § 68, insured: ZSL_...(5, ...)
  Zulagen_LST_frei_68_SV_frei_Zusatz = 6,       ///< allowances tax-free by § 68, not insured: ZSL_...(6, ...)
  Sonstige_Abzüge_Zusatz = 7,                   ///< other deductions: SonstigeAbz_...(line, month)
  Aufwandsentschädigung_Zusatz = 8,             ///< expense allowances: Aufwandsentsch_...(line, month)
  MaxAnzahl = 8  // the number of groups, not a group
};

}  // namespace ormelix
