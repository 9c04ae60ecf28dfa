#pragma once

#include <cstdint>
#include <memory>

#include "ormelix/basevalues/basis_enums.h"
#include "ormelix/indexed_array.h"

namespace ormelix {

/// \brief One kind of employer contribution (a row of the matrix of LBasis_DG) for
/// every employee group: the values of one column of Basiswerte_Zeittabelle_DG_Werte.
///
/// Each row of Basiswerte_Zeittabelle_DG_Werte is one employee group (DNGruppe,
/// eBasisDGDienstnehmergruppe) at one length of apprenticeship (SortNr 1 to 4, 0 for
/// groups 1 to 8) and holds a column per kind (SV_Laufend, SV_Sonderzahlung,
/// FALAST, FALASTLGV, Kommunalsteuer, DZBL_B to DZBL_W, UBahn,
/// Produktivitaetsfaktor; the 2016 groups SV_Laufend2016 and SV_Sonderzahlung2016
/// only). The value of kind K for group G at length i is LBasis_DG::K()->G[i].
/// Rates are rounded to 2 decimals on load and stored as they stand.
class LBasis_DG_Wert {
 public:
  /// One value per length of apprenticeship, index 0 to 4; index 0 is neither
  /// loaded nor saved, anything outside is std::out_of_range.
  using Lehrjahre = IndexedArray<double, 0, 4>;

  /// \name Groups 1 to 8 (SortNr 0)
  ///@{

  /// The value of an employee group, 1 to 8.
  ///
  /// The value of the employee group of that name (eBasisDGDienstnehmergruppe 1 to
  /// 8; Ferialpraktikant is group 5, the harvest hands).
  double Geschäftsführer = 0;
  double Angestellte = 0;
  double Arbeiter = 0;
  double Bauarbeiter = 0;
  double Ferialpraktikant = 0;
  double Forstarbeiter = 0;
  double RAWAnwaerter = 0;
  double FreierMitarbeiter = 0;
  ///@}

  /// \name Apprentices, groups 9 to 23 and 26 to 40
  ///@{

  /// The values of an apprentice group, by length of apprenticeship.
  ///
  /// The value of the apprentice group of that name (year 1 to 5 of the
  /// apprenticeship, and the 2016 groups) by total length of the apprenticeship,
  /// index 1 to 4 (eBasisLehrjahre, the column SortNr).
  Lehrjahre LehrlingArbeiter1{"LehrlingArbeiter1"};
  Lehrjahre LehrlingArbeiter2{"LehrlingArbeiter2"};
  Lehrjahre LehrlingArbeiter3{"LehrlingArbeiter3"};
  Lehrjahre LehrlingArbeiter4{"LehrlingArbeiter4"};
  Lehrjahre LehrlingArbeiter5{"LehrlingArbeiter5"};
  Lehrjahre LehrlingAngestellte1{"LehrlingAngestellte1"};
  Lehrjahre LehrlingAngestellte2{"LehrlingAngestellte2"};
  Lehrjahre LehrlingAngestellte3{"LehrlingAngestellte3"};
  Lehrjahre LehrlingAngestellte4{"LehrlingAngestellte4"};
  Lehrjahre LehrlingAngestellte5{"LehrlingAngestellte5"};
  Lehrjahre LehrlingForstArbeiter1{"LehrlingForstArbeiter1"};
  Lehrjahre LehrlingForstArbeiter2{"LehrlingForstArbeiter2"};
  Lehrjahre LehrlingForstArbeiter3{"LehrlingForstArbeiter3"};
  Lehrjahre LehrlingForstArbeiter4{"LehrlingForstArbeiter4"};
  Lehrjahre LehrlingForstArbeiter5{"LehrlingForstArbeiter5"};
  Lehrjahre LehrlingArbeiter12016{"LehrlingArbeiter12016"};
  Lehrjahre LehrlingArbeiter22016{"LehrlingArbeiter22016"};
  Lehrjahre LehrlingArbeiter32016{"LehrlingArbeiter32016"};
  Lehrjahre LehrlingArbeiter42016{"LehrlingArbeiter42016"};
  Lehrjahre LehrlingArbeiter52016{"LehrlingArbeiter52016"};
  Lehrjahre LehrlingAngestellte12016{"LehrlingAngestellte12016"};
  Lehrjahre LehrlingAngestellte22016{"LehrlingAngestellte22016"};
  Lehrjahre LehrlingAngestellte32016{"LehrlingAngestellte32016"};
  Lehrjahre LehrlingAngestellte42016{"LehrlingAngestellte42016"};
  Lehrjahre LehrlingAngestellte52016{"LehrlingAngestellte52016"};
  Lehrjahre LehrlingForstArbeiter12016{"LehrlingForstArbeiter12016"};
  Lehrjahre LehrlingForstArbeiter22016{"LehrlingForstArbeiter22016"};
  Lehrjahre LehrlingForstArbeiter32016{"LehrlingForstArbeiter32016"};
  Lehrjahre LehrlingForstArbeiter42016{"LehrlingForstArbeiter42016"};
  Lehrjahre LehrlingForstArbeiter52016{"LehrlingForstArbeiter52016"};
  ///@}

  /// The value of an employee group (eBasisDGDienstnehmergruppe) at a length of
  /// apprenticeship: the plain property for groups 1 to 8 (pIndex unused), the
  /// indexed one for 9 to 23 and 26 to 40. Groups 24 and 25 (marginal employment)
  /// and all others have no property here: std::out_of_range.
  double& Wert(int pDNGruppe, int pIndex);
  /// The same, read-only.
  double Wert(int pDNGruppe, int pIndex) const;

 private:
  double* PlainGroup(int pDNGruppe);
  Lehrjahre* ApprenticeGroup(int pDNGruppe);
};

/// The employer contributions of a dated table, a matrix of kinds of
/// contribution (the LBasis_DG_Wert objects: SV_Laufend, SV_Sonderzahlung, FALAST,
/// FALASTLGV, Kommunalsteuer, DZBL per province, U_Bahn, Produktivitaetsfaktor) by
/// employee group (the properties of LBasis_DG_Wert). Apprentice groups have one
/// value per total length of the apprenticeship (index 1 to 4, eBasisLehrjahre);
/// the 2016 apprentice groups carry only the two social-insurance rows.
///
/// Tables: Basiswerte_Zeittabelle_DG (one row per dated table: Kindergeld) and
/// Basiswerte_Zeittabelle_DG_Werte (128 rows per dated table, one per group and
/// length, see LBasis_DG_Wert). Read with the dated table (clsBasisdaten::Load,
/// LBasis::Refresh) and written by LBasis::Update. One crossing is kept: a save
/// writes the FALASTLGV column of group 23 (LehrlingForstArbeiter5) from group 19
/// (LehrlingForstArbeiter1) at the same length, so a reduced rate entered for
/// LehrlingForstArbeiter5 lasts until the next load.
class LBasis_DG {
 public:
  /// A kind of contribution, shared.
  using Wert = std::shared_ptr<LBasis_DG_Wert>;

  /// Creates the value objects: the seven single rows and DZBL 1 to 9.
  LBasis_DG();

  /// \name Kinds of contribution
  ///@{

  /// A kind of contribution (a column of the value rows).
  ///
  /// The value objects of the social-insurance contribution on current pay and on
  /// special payments, and of the family-burden fund contribution (FALAST) and its
  /// reduced rate (FALASTLGV): the columns of their name (UBahn for U_Bahn).
  const Wert& SV_Laufend() const { return sv_laufend_; }
  const Wert& SV_Sonderzahlung() const { return sv_sonderzahlung_; }
  const Wert& FALAST() const { return falast_; }
  const Wert& FALASTLGV() const { return falastlgv_; }
  ///@}

  /// \name The family-burden fund rate of a group
  ///@{

  /// The family-burden fund rate of the group, reduced or not.
  ///
  /// FALASTLGV's value of the group with pDBSenkung, FALAST's without (the
  /// employer's DBSenkung of clsMandant_Jahresdaten says which).
  double GetFALASTGeschäftsführer(bool pDBSenkung) const;
  double GetFALASTAngestellte(bool pDBSenkung) const;
  double GetFALASTArbeiter(bool pDBSenkung) const;
  double GetFALASTBauarbeiter(bool pDBSenkung) const;
  double GetFALASTFerialpraktikant(bool pDBSenkung) const;
  double GetFALASTForstarbeiter(bool pDBSenkung) const;
  double GetFALASTRAWAnwaerter(bool pDBSenkung) const;
  double GetFALASTFreierMitarbeiter(bool pDBSenkung) const;
  ///@}
  /// \name The family-burden fund rate of an apprentice group
  ///@{

  /// The same for the apprentices at length pLehrjahr.
  ///
  /// The same for the apprentices at length pLehrjahr; a bad index is
  /// std::out_of_range whatever the flag.
  double GetFALASTLehrlingArbeiter1(std::int16_t pLehrjahr, bool pDBSenkung) const;
  double GetFALASTLehrlingArbeiter2(std::int16_t pLehrjahr, bool pDBSenkung) const;
  double GetFALASTLehrlingArbeiter3(std::int16_t pLehrjahr, bool pDBSenkung) const;
  double GetFALASTLehrlingArbeiter4(std::int16_t pLehrjahr, bool pDBSenkung) const;
  double GetFALASTLehrlingArbeiter5(std::int16_t pLehrjahr, bool pDBSenkung) const;
  double GetFALASTLehrlingAngestellte1(std::int16_t pLehrjahr, bool pDBSenkung) const;
  double GetFALASTLehrlingAngestellte2(std::int16_t pLehrjahr, bool pDBSenkung) const;
  double GetFALASTLehrlingAngestellte3(std::int16_t pLehrjahr, bool pDBSenkung) const;
  double GetFALASTLehrlingAngestellte4(std::int16_t pLehrjahr, bool pDBSenkung) const;
  double GetFALASTLehrlingAngestellte5(std::int16_t pLehrjahr, bool pDBSenkung) const;
  double GetFALASTLehrlingForstArbeiter1(std::int16_t pLehrjahr, bool pDBSenkung) const;
  double GetFALASTLehrlingForstArbeiter2(std::int16_t pLehrjahr, bool pDBSenkung) const;
  double GetFALASTLehrlingForstArbeiter3(std::int16_t pLehrjahr, bool pDBSenkung) const;
  double GetFALASTLehrlingForstArbeiter4(std::int16_t pLehrjahr, bool pDBSenkung) const;
  double GetFALASTLehrlingForstArbeiter5(std::int16_t pLehrjahr, bool pDBSenkung) const;
  ///@}

  /// The municipal tax (column Kommunalsteuer).
  const Wert& Kommunalsteuer() const { return kommunalsteuer_; }
  /// The surcharge of a province (eBasisBundesländer, 1 to 9). Index 0 holds no
  /// object; an index outside 0 to 9 is std::out_of_range.
  const Wert& DZBL(int pIndex) const { return dzbl_[pIndex]; }
  /// The underground levy of Vienna (column UBahn).
  const Wert& U_Bahn() const { return u_bahn_; }
  /// The productivity factor (column Produktivitaetsfaktor).
  const Wert& Produktivitaetsfaktor() const { return produktivitaetsfaktor_; }

  /// \name Replacing a kind
  ///@{

  /// Replacing a value object; an unset one is refused (Error).
  void SetSV_Laufend(Wert p);
  void SetSV_Sonderzahlung(Wert p);
  void SetFALAST(Wert p);
  void SetFALASTLGV(Wert p);
  void SetKommunalsteuer(Wert p);
  void SetDZBL(int pIndex, Wert p);
  void SetU_Bahn(Wert p);
  void SetProduktivitaetsfaktor(Wert p);
  ///@}

  /// The child allowance: the column Kindergeld of Basiswerte_Zeittabelle_DG,
  /// rounded to 2 decimals on load.
  double Kindergeld = 0;

 private:
  double FalastOf(int pDNGruppe, int pIndex, bool pDBSenkung) const;

  Wert sv_laufend_;
  Wert sv_sonderzahlung_;
  Wert falast_;
  Wert falastlgv_;
  Wert kommunalsteuer_;
  IndexedArray<Wert, 0, 9> dzbl_{"DZBL"};
  Wert u_bahn_;
  Wert produktivitaetsfaktor_;
};

}  // namespace ormelix
