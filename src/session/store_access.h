// Library-internal: the payroll store of a session as the table routines reach it.
#pragma once

#include <memory>
#include <string>

#include "ormelix/session/manager.h"
#include "ormelix/store/recordset.h"
#include "ormelix/store/store.h"

namespace ormelix::detail {

// The StoreSession of the session's payroll store (AktDB); Error when none is set.
StoreSession& PayrollStore(const clsManager& manager);

// A statement opened forward-only and read-only (a load), or dynamic and
// optimistic (a save).
std::unique_ptr<Recordset> OpenRead(const clsManager& manager, const std::string& sql);
std::unique_ptr<Recordset> OpenWrite(const clsManager& manager, const std::string& sql);

}  // namespace ormelix::detail
