#include "basis_store.h"

namespace ormelix::modBasiswerte::detail {

StoreSession& Store(clsManager& manager) {
  if (!manager.AktDB()) throw Error("the base values need the payroll store, and the session has none (AktDB)");
  return manager.AktDB()->Session();
}

std::unique_ptr<Recordset> OpenRead(clsManager& manager, const std::string& sql) {
  return Store(manager).OpenRecordset(sql, adOpenForwardOnly, adLockReadOnly);
}

std::unique_ptr<Recordset> OpenWrite(clsManager& manager, const std::string& sql) {
  return Store(manager).OpenRecordset(sql, adOpenDynamic, adLockOptimistic);
}

std::shared_ptr<clsManager> Shared(clsManager& manager) { return manager.shared_from_this(); }

}  // namespace ormelix::modBasiswerte::detail
