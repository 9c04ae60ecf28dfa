#include "ormelix/basevalues/basis_lst.h"

#include "basis_store.h"

namespace ormelix {

void LBasis_LST::Add(Wert& pLSTWert) {
  werte_.Add(modBasiswerte::detail::RequireObject(pLSTWert, "LBasis_LST.Add"));
}

}  // namespace ormelix
