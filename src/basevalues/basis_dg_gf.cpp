#include "ormelix/basevalues/basis_dg_gf.h"

namespace ormelix {

LBasis_DG_GF::LBasis_DG_GF()
    : sv_laufend_(std::make_shared<LBasis_DG_GF_Wert>()),
      sv_sonderzahlung_(std::make_shared<LBasis_DG_GF_Wert>()),
      falast_(std::make_shared<LBasis_DG_GF_Wert>()),
      falastlgv_(std::make_shared<LBasis_DG_GF_Wert>()),
      kommunalsteuer_(std::make_shared<LBasis_DG_GF_Wert>()),
      dz_(std::make_shared<LBasis_DG_GF_Wert>()),
      u_bahn_(std::make_shared<LBasis_DG_GF_Wert>()),
      produktivitaetsfaktor_(std::make_shared<LBasis_DG_GF_Wert>()) {}

}  // namespace ormelix
