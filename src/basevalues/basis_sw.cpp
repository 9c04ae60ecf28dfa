#include "ormelix/basevalues/basis_sw.h"

#include "basis_store.h"

namespace ormelix {

LBasis_SW::LBasis_SW() {
  for (int group = 1; group <= 11; ++group) gruppen_[group] = std::make_shared<LBasis_SW_Wert>();
}

void LBasis_SW::SetGruppe(int pGruppe, Wert pWert) {
  gruppen_[pGruppe] = modBasiswerte::detail::RequireObject(std::move(pWert), "LBasis_SW group");
}

}  // namespace ormelix
