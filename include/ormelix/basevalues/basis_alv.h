#pragma once

namespace ormelix {

/// The five upper bounds of the unemployment-insurance steps of a dated
/// table, columns N25a to N25e of Basiswerte_Zeittabelle_ALV.
///
/// Read with the dated table and written by LBasis::Update; 2 decimals on load.
class LBasis_ALV {
 public:
  /// \name Upper bounds of the steps
  ///@{

  /// The upper bound of the step (N25a_bis is the column N25a, and so on).
  double N25a_bis = 0;
  double N25b_bis = 0;
  double N25c_bis = 0;
  double N25d_bis = 0;
  double N25e_bis = 0;
  ///@}
};

}  // namespace ormelix
