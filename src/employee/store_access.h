// The payroll store of a session, for the employee's table routines.
#pragma once

#include "ormelix/error.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/store.h"

namespace ormelix::modDatabase {

inline StoreSession& PayrollStore(const clsManager& manager) {
  if (!manager.AktDB()) throw Error("the session has no payroll database (AktDB): set one before loading employees");
  return manager.AktDB()->Session();
}

}  // namespace ormelix::modDatabase
