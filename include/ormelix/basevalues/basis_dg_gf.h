#pragma once

#include <memory>

namespace ormelix {

class LBasis_DG_GF_Wert {
 public:
  double Angestellte = 0;
  double Arbeiter = 0;
};

/// The employer rates for marginal employment of a dated table, for
/// its two groups (24 Angestellte, 25 Arbeiter), and the wage sum below which the
/// reduced rules apply. Its table row also carries the limit of marginal employment,
/// which the table hands out as SA.GrenzbetragGeringBeschaeftigte.
class LBasis_DG_GF {
 public:
  using Wert = std::shared_ptr<LBasis_DG_GF_Wert>;

  /// Creates the eight value objects.
  LBasis_DG_GF();

  const Wert& SV_Laufend() const { return sv_laufend_; }
  const Wert& SV_Sonderzahlung() const { return sv_sonderzahlung_; }
  const Wert& FALAST() const { return falast_; }
  const Wert& FALASTLGV() const { return falastlgv_; }
  const Wert& Kommunalsteuer() const { return kommunalsteuer_; }
  /// One surcharge for all provinces.
  const Wert& DZ() const { return dz_; }
  const Wert& U_Bahn() const { return u_bahn_; }
  const Wert& Produktivitaetsfaktor() const { return produktivitaetsfaktor_; }

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
