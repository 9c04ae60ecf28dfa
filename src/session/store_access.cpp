#include "store_access.h"

#include "ormelix/error.h"

namespace ormelix::detail {

StoreSession& PayrollStore(const clsManager& manager) {
  if (!manager.AktDB())
    throw Error("the session has no payroll store (AktDB): hand one over with SetAktDB or OpenAktDB first");
  return manager.AktDB()->Session();
}

std::unique_ptr<Recordset> OpenRead(const clsManager& manager, const std::string& sql) {
  return PayrollStore(manager).OpenRecordset(sql, adOpenForwardOnly, adLockReadOnly);
}

std::unique_ptr<Recordset> OpenWrite(const clsManager& manager, const std::string& sql) {
  return PayrollStore(manager).OpenRecordset(sql, adOpenDynamic, adLockOptimistic);
}

}  // namespace ormelix::detail
