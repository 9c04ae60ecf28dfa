#include "ormelix/basevalues/basis_sa.h"

#include "basis_store.h"

namespace ormelix {

LBasis_SA::LBasis_SA() : gering_(std::make_shared<LBasis_SA_Wert>()) {
  for (int group = 1; group <= 16; ++group) gruppen_[group] = std::make_shared<LBasis_SA_Wert>();
}

void LBasis_SA::SetGruppe(int pVGruppe, Wert pWert) {
  gruppen_[pVGruppe] = modBasiswerte::detail::RequireObject(std::move(pWert), "LBasis_SA group");
}

void LBasis_SA::SetGrenzbetragGeringBeschaeftigte(Wert p) {
  gering_ = modBasiswerte::detail::RequireObject(std::move(p), "LBasis_SA.GrenzbetragGeringBeschaeftigte");
}

}  // namespace ormelix
