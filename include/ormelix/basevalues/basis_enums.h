/// \file
/// The axes along which a statutory value is addressed: employee group (for the
/// wage-group rates and for the employer contributions, two different lists),
/// insurance group, length of an apprenticeship and province. The values are those
/// the tables store in DNGruppe, VGruppe and SortNr.
#pragma once

namespace ormelix {

/// Employee groups of the wage-group rates (column DNGruppe of
/// Basiswerte_Zeittabelle_SW_Werte as written). Apprentices appear once per kind.
enum eBasisSWDienstnehmergruppe {
  eBasisSWGeschäftsführer = 1,
  eBasisSWAngestellte = 2,
  eBasisSWArbeiter = 3,
  eBasisSWBauarbeiter = 4,
  eBasisSWRAWAnwärter = 5,
  eBasisSWFreierMitarbeiter = 6,
  eBasisSWLehrlingAngestellte = 7,
  eBasisSWLehrlingArbeiter = 8,
  eBasisSWFerialpraktikant = 9,
  eBasisSWForstarbeiter = 10,
  eBasisSWLehrlingForstArbeiter = 11
};

/// Insurance groups of the contribution rates (column VGruppe).
enum eBasisSAVersicherungsgruppe {
  eBasisSAArbeitslosenversicherung = 1,
  eBasisSAKrankenversicherung = 2,
  eBasisSAKrankenversicherungArbeiter = 3,
  eBasisSAKrankenversicherungAngestellte = 4,
  eBasisSAKrankenversicherungFreierMitarbeiter = 5,
  eBasisSAPensionsversicherung = 6,
  eBasisSAKammerumlage = 7,
  eBasisSALandArbeiterKammerumlage = 8,
  eBasisSAWohnbaufoederung = 9,
  eBasisSASchlechtwetter = 10,
  eBasisSAUnfallversicherung = 11,
  eBasisSAIESGZuschlag = 12,
  eBasisSANachtschwerarbeit = 13,
  eBasisSAArbeitslosenversicherungLehrlinge2016 = 14,
  eBasisSAKrankenversicherungLehrlinge2016 = 15,
  eBasisSAKrankenversicherungLehrlingeBis2016 = 16
};

/// Employee groups of the employer contributions (column DNGruppe of
/// Basiswerte_Zeittabelle_DG_Werte and _DG_Geringfügig_Werte). The mixed case of the
/// names is theirs. Value 5 is the column of the harvest hands, which the value
/// objects call Ferialpraktikant.
enum eBasisDGDienstnehmergruppe {
  eBasisDGGeschäftsführer = 1,
  eBasisDGAngestellte = 2,
  eBasisDGArbeiter = 3,
  eBasisDGBauarbeiter = 4,
  eBasisDGErntehelfer = 5,
  eBasisDGForstarbeiter = 6,
  eBasisDGRAWAnwaerter = 7,
  eBasisDGFreierMitarbeiter = 8,
  eBasisDGLehrlingArbeiter1 = 9,
  eBasisdgLehrlingArbeiter2 = 10,
  eBasisdgLehrlingArbeiter3 = 11,
  eBasisDGLehrlingArbeiter4 = 12,
  eBasisDGLehrlingArbeiter5 = 13,
  eBasisDGLehrlingAngestellte1 = 14,
  eBasisdgLehrlingAngestellte2 = 15,
  eBasisDGLehrlingAngestellte3 = 16,
  eBasisdgLehrlingAngestellte4 = 17,
  eBasisdgLehrlingAngestellte5 = 18,
  eBasisdgLehrlingForstArbeiter1 = 19,
  eBasisdgLehrlingForstArbeiter2 = 20,
  eBasisdgLehrlingForstArbeiter3 = 21,
  eBasisdgLehrlingForstArbeiter4 = 22,
  eBasisdgLehrlingForstArbeiter5 = 23,
  eBasisDGGeringfügigAngestellte = 24,
  eBasisdgGeringfügigArbeiter = 25,
  eBasisDGLehrlingArbeiter12016 = 26,
  eBasisdgLehrlingArbeiter22016 = 27,
  eBasisdgLehrlingArbeiter32016 = 28,
  eBasisDGLehrlingArbeiter42016 = 29,
  eBasisDGLehrlingArbeiter52016 = 30,
  eBasisDGLehrlingAngestellte12016 = 31,
  eBasisdgLehrlingAngestellte22016 = 32,
  eBasisDGLehrlingAngestellte32016 = 33,
  eBasisdgLehrlingAngestellte42016 = 34,
  eBasisdgLehrlingAngestellte52016 = 35,
  eBasisdgLehrlingForstArbeiter12016 = 36,
  eBasisdgLehrlingForstArbeiter22016 = 37,
  eBasisdgLehrlingForstArbeiter32016 = 38,
  eBasisdgLehrlingForstArbeiter42016 = 39,
  eBasisdgLehrlingForstArbeiter52016 = 40
};

/// The total length of an apprenticeship: the index of the apprentice arrays and the
/// column SortNr of the apprentice rows.
enum eBasisLehrjahre {
  eBasis2Lehrjahre = 1,   ///< two years
  eBasis3Lehrjahre = 2,   ///< three years
  eBasis35Lehrjahre = 3,  ///< three and a half years
  eBasis4Lehrjahre = 4    ///< four years
};

/// The provinces: the index of LBasis_DG::DZBL, columns DZBL_B to DZBL_W. Of fixed
/// width, as the employee's year data stores a province as a 32-bit number.
enum eBasisBundesländer : int {
  eBasisBurgenland = 1,
  eBasisKärnten = 2,
  eBasisNiederösterreich = 3,
  eBasisOberösterreich = 4,
  eBasisSalzburg = 5,
  eBasisSteiermark = 6,
  eBasisTirol = 7,
  eBasisVoralberg = 8,
  eBasisWien = 9
};

}  // namespace ormelix
