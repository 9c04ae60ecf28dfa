/// \file
/// The columns of every base-value table, declared once: these lists drive load,
/// save and copy of the table routines. They are public so that a tool can walk
/// every stored value of a dated table (an export, a comparison of two tables).
///
/// Where a row's values lie in more than one object or at an index, the target of
/// the list is a small row struct that points at them.
#pragma once

#include <array>
#include <vector>

#include "ormelix/basevalues/basis.h"
#include "ormelix/basevalues/basisordner.h"
#include "ormelix/store/columns.h"

namespace ormelix::modBasiswerte {

/// A row of Basiswerte_Zeittabelle_PP: the band at index (SortNr).
struct PPRow {
  LBasis_PP* pp;  ///< the bands
  int index;      ///< the band, SortNr
};
/// A row of Basiswerte_Zeittabelle_DG_Werte: employee group and length.
struct DGRow {
  LBasis_DG* dg;  ///< the contributions
  int group;      ///< the employee group, DNGruppe
  int index;      ///< the length of apprenticeship, SortNr
};
/// The row of Basiswerte_Zeittabelle_DG_Geringfügig: it fills DGM and SA.
struct DGMHead {
  LBasis_DG_GF* dgm;  ///< the marginal-employment rates
  LBasis_SA* sa;      ///< the contribution rates (GrenzbetragGeringBeschaeftigte)
};
/// A row of Basiswerte_Zeittabelle_DG_Geringfügig_Werte: group 24 (Angestellte) or 25 (Arbeiter).
struct DGMRow {
  LBasis_DG_GF* dgm;  ///< the marginal-employment rates
  int group;          ///< 24 or 25, DNGruppe
};

/// \name Column declarations
///@{

/// The column declarations of the base-value tables.
///
/// The columns of a table of the base values, in table order, each with the
/// property it feeds and its conversions: Basiswerte, Basiswerte_Zeittabelle and
/// the sub-tables _SW, _SW_Werte, _LST, _LST_Werte, _SA, _SA_Werte, _PP, _FB, _ALV,
/// _DG, _DG_Werte (DGWerteColumns and DGWerte2016Columns below),
/// _DG_Geringfügig and _DG_Geringfügig_Werte.
const ColumnSet<clsBasisordner>& BasiswerteColumns();
const ColumnSet<LBasis>& ZeittabelleColumns();
const ColumnSet<LBasis_SW>& SWColumns();
const ColumnSet<LBasis_SW_Wert>& SWWerteColumns();
const ColumnSet<LBasis_LST>& LSTColumns();
const ColumnSet<LBasis_LST_Werte>& LSTWerteColumns();
const ColumnSet<LBasis_SA>& SAColumns();
const ColumnSet<LBasis_SA_Wert>& SAWerteColumns();
const ColumnSet<PPRow>& PPColumns();
const ColumnSet<LBasis_FB>& FBColumns();
const ColumnSet<LBasis_ALV>& ALVColumns();
const ColumnSet<LBasis_DG>& DGColumns();
///@}
/// The 16 value columns of groups 1 to 23. The FALASTLGV column of group 23 is
/// written from group 19 at the same index: a save overwrites the reduced rate of
/// LehrlingForstArbeiter5 with that of LehrlingForstArbeiter1.
const ColumnSet<DGRow>& DGWerteColumns();
/// The two columns of the 2016 apprentice groups 26 to 40.
const ColumnSet<DGRow>& DGWerte2016Columns();
/// \name Column declarations of marginal employment
///@{

/// The column declarations of marginal employment.
///
/// The columns of Basiswerte_Zeittabelle_DG_Geringfügig (its Prozent and
/// Grenzbetrag fill SA.GrenzbetragGeringBeschaeftigte) and of its two value rows.
const ColumnSet<DGMHead>& DGMColumns();
const ColumnSet<DGMRow>& DGMWerteColumns();
///@}

/// The groups of the wage-group rates: the value object (and the DNGruppe it is
/// written to) and the DNGruppe it is read from.
struct SWGruppe {
  eBasisSWDienstnehmergruppe gruppe;  ///< the value object, and the DNGruppe written
  int load_gruppe;                    ///< the DNGruppe read (3 for LehrlingArbeiter)
};
/// The eleven groups in the order they are read and written.
const std::array<SWGruppe, 11>& SWGruppen();

/// The insurance groups in the order they are read and written.
const std::array<eBasisSAVersicherungsgruppe, 16>& SAGruppen();

/// The 128 rows of Basiswerte_Zeittabelle_DG_Werte of one table, in the order they
/// are written: groups 1 to 8 (SortNr 0, not written), then 9 to 23 and 26 to 40
/// with SortNr 1 to 4.
struct DGZeile {
  int group;    ///< DNGruppe
  int sortnr;   ///< SortNr: the length of apprenticeship, 0 for groups 1 to 8
  bool is2016;  ///< a 2016 apprentice group (two value columns only)
};
/// The rows, in that order.
const std::vector<DGZeile>& DGZeilen();

}  // namespace ormelix::modBasiswerte
