#pragma once

namespace ormelix {

/// The allowances and deductions of a dated table, one row of
/// Basiswerte_Zeittabelle_FB. Kinderzuschlag_AbKind3 is the column Kinderzuschlag_Kind3.
class LBasis_FB {
 public:
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
};

}  // namespace ormelix
