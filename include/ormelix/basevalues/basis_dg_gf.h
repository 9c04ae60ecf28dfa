#pragma once

#include <memory>

namespace ormelix {

/// One kind of employer contribution for marginal employment, for its two groups:
/// one column of the two rows of Basiswerte_Zeittabelle_DG_Geringfügig_Werte
/// (DNGruppe 24 and 25), rounded to 2 decimals on load.
class LBasis_DG_GF_Wert {
 public:
  double Angestellte = 0;  ///< group 24, the row DNGruppe 24
  double Arbeiter = 0;     ///< group 25, the row DNGruppe 25
};

/// The employer rates for marginal employment of a dated table, for
/// its two groups (24 Angestellte, 25 Arbeiter), and the wage sum below which the
/// reduced rules apply. Its table row also carries the limit of marginal employment,
/// which the table hands out as SA.GrenzbetragGeringBeschaeftigte.
///
/// Tables: Basiswerte_Zeittabelle_DG_Geringfügig (Lohnsumme, and the Prozent and
/// Grenzbetrag of SA.GrenzbetragGeringBeschaeftigte) and
/// Basiswerte_Zeittabelle_DG_Geringfügig_Werte (two rows). Read with the dated
/// table and written by LBasis::Update.
class LBasis_DG_GF {
 public:
  /// A kind of contribution, shared.
  using Wert = std::shared_ptr<LBasis_DG_GF_Wert>;

  /// Creates the eight value objects.
  LBasis_DG_GF();

  /// \name Kinds of contribution
  ///@{

  /// The value object of that kind: the column of its name (UBahn for U_Bahn) of
  /// the two rows.
  const Wert& SV_Laufend() const { return sv_laufend_; }
  const Wert& SV_Sonderzahlung() const { return sv_sonderzahlung_; }
  const Wert& FALAST() const { return falast_; }
  const Wert& FALASTLGV() const { return falastlgv_; }
  const Wert& Kommunalsteuer() const { return kommunalsteuer_; }
  ///@}
  /// One surcharge for all provinces.
  const Wert& DZ() const { return dz_; }
  /// \name Kinds of contribution, continued
  ///@{

  /// The underground levy (column UBahn) and the productivity factor.
  const Wert& U_Bahn() const { return u_bahn_; }
  const Wert& Produktivitaetsfaktor() const { return produktivitaetsfaktor_; }
  ///@}

  /// The wage sum below which the reduced rules apply (column Lohnsumme).
  double GrenzbetragMinderBeschaeftigte = 0;

 private:
  Wert sv_laufend_;
  Wert sv_sonderzahlung_;
  Wert falast_;
  Wert falastlgv_;
  Wert kommunalsteuer_;
  Wert dz_;
  Wert u_bahn_;
  Wert produktivitaetsfaktor_;
};

}  // namespace ormelix
