#include "ormelix/basevalues/basisordner.h"

#include "ormelix/basevalues/mod_basiswerte.h"

namespace ormelix {

void clsBasisordner::Update(clsManager& Manager) { modBasiswerte::SaveBasisordner(Manager, *this); }

void clsBasisordner::Refresh() { modBasiswerte::LoadBasisordner(*manager_.Get(), *this, id_); }

void clsBasisordner::LoadZeittabellen(clsManager& pManager, const std::string& pBasisID) {
  zeittabellen_->LoadZeittabellen(pManager, pBasisID);
}

}  // namespace ormelix
