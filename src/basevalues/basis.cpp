#include "ormelix/basevalues/basis.h"

#include "ormelix/basevalues/mod_basiswerte.h"

namespace ormelix {

LBasis::LBasis()
    : zeitraum_(std::make_shared<clsZeitraum>()),
      sw_(std::make_shared<LBasis_SW>()),
      lst_(std::make_shared<LBasis_LST>()),
      sa_(std::make_shared<LBasis_SA>()),
      pp_(std::make_shared<LBasis_PP>()),
      fb_(std::make_shared<LBasis_FB>()),
      dg_(std::make_shared<LBasis_DG>()),
      dgm_(std::make_shared<LBasis_DG_GF>()),
      alv_(std::make_shared<LBasis_ALV>()) {}

Date LBasis::Datum_Von() const { return zeitraum_->GetDate(); }

void LBasis::Update() { modBasiswerte::SaveZeittabelle(*manager_.Get(), *this, basis_id_); }

void LBasis::Refresh() { modBasiswerte::LoadZeittabelle(*manager_.Get(), *this, id_, basis_id_); }

}  // namespace ormelix
