/// \file
/// The wage-type groups of an employee's free pay lines (table Mitarbeiter_Lohnarten,
/// column Lohnarttyp): up to five lines a month in each of eight groups. Groups 1 to
/// 6 are held in LLohn's ZSL_ grids (group as the first index), group 7 in the
/// SonstigeAbz_ grids, group 8 in the Aufwandsentsch_ grids.
#pragma once

namespace ormelix {

enum eLohnartenConstants {
  Laufende_Bezüge_LST_pfl_SV_pfl_Zusatz = 1,
  Laufende_Bezüge_LST_frei_SV_frei_Zusatz = 2,
  Laufende_Bezüge_LST_frei_SV_pfl_Zusatz = 3,
  Laufende_Bezüge_LST_pfl_SV_frei_Zusatz = 4,
  Zulagen_LST_frei_68_SV_pfl_Zusatz = 5,
  Zulagen_LST_frei_68_SV_frei_Zusatz = 6,
  Sonstige_Abzüge_Zusatz = 7,
  Aufwandsentschädigung_Zusatz = 8,
  MaxAnzahl = 8  // the number of groups, not a group
};

}  // namespace ormelix
