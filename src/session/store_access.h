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

// The session of a store the manager may not have: nullptr then.
inline StoreSession* SessionOf(const StoreConnectionPtr& store) { return store ? &store->Session() : nullptr; }

// Read snapshots of both stores of the session (those it has) for a load of many
// rows: see StoreReadSnapshot.
struct LoadSnapshot {
  explicit LoadSnapshot(const clsManager& manager)
      : payroll(SessionOf(manager.AktDB())), reference(SessionOf(manager.ImportDB())) {}
  StoreReadSnapshot payroll;
  StoreReadSnapshot reference;
};

// A statement opened forward-only and read-only (a load), or dynamic and
// optimistic (a save).
std::unique_ptr<Recordset> OpenRead(const clsManager& manager, const std::string& sql);
std::unique_ptr<Recordset> OpenWrite(const clsManager& manager, const std::string& sql);

}  // namespace ormelix::detail
