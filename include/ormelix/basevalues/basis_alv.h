#pragma once

namespace ormelix {

/// The five upper bounds of the unemployment-insurance steps of a dated
/// table, columns N25a to N25e of Basiswerte_Zeittabelle_ALV.
class LBasis_ALV {
 public:
  double N25a_bis = 0;
  double N25b_bis = 0;
  double N25c_bis = 0;
  double N25d_bis = 0;
  double N25e_bis = 0;
};

}  // namespace ormelix
