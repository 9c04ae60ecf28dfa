#include "basis_store.h"

namespace ormelix::modBasiswerte::detail {

std::shared_ptr<clsManager> Shared(clsManager& manager) { return manager.shared_from_this(); }

}  // namespace ormelix::modBasiswerte::detail
