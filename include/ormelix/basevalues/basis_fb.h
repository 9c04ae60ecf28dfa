#pragma once

namespace ormelix {

/// The allowances and deductions of a dated table, one row of
/// Basiswerte_Zeittabelle_FB. Kinderzuschlag_AbKind3 is the column Kinderzuschlag_Kind3.
///
/// Read with the dated table and written by LBasis::Update; each value rounded to
/// 2 decimals on load.
class LBasis_FB {
 public:
  /// \name Allowances and deductions (columns of their own name)
  ///@{

  /// The allowance or deduction of that name.
  ///
  /// The allowance or deduction of that name: income-related expenses, special
  /// expenses, the general, employee and commuter allowances, the raised commuter
  /// allowance and its phase-in bounds, the sole-earner and sole-parent allowances
  /// and their supplements for the first, second and each further child, and the
  /// family bonus (FABO) and its amount past 18 (FABO18).
  double Werbekosten = 0;
  double Sonderausgaben = 0;
  double Allgemein = 0;
  double Arbeitsnehmer = 0;
  double Verkehr = 0;
  double ErhoehterVerkehr = 0;
  double EinschleifgrenzeVABVon = 0;
  double EinschleifgrenzeVABBis = 0;
  double Alleinverdiener = 0;
  double Alleinerzieher = 0;
  double Kinderzuschlag_Kind1 = 0;
  double Kinderzuschlag_Kind2 = 0;
  double Kinderzuschlag_AbKind3 = 0;
  double FABO = 0;
  double FABO18 = 0;
  ///@}
};

}  // namespace ormelix
