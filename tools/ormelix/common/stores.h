// Where a command finds its stores, and how it opens or makes them.
#pragma once

#include <memory>
#include <string>

#include "ormelix/session/manager.h"
#include "ormelix/store/schema.h"

namespace cli {

// Where the payroll store and its reference store lie, for a folder (payroll.db
// and reference.db in it), a payroll store file (reference.db beside it) or a
// connection string (the reference store in the schema "reference" of the same
// database, or SCHEMA_reference beside schema=SCHEMA).
struct StoreLocations {
  std::string payroll;
  std::string reference;
  bool server = false;
};
StoreLocations LocateStores(const std::string& where);

// The payroll store at `where` (as LocateStores takes it) and the reference store
// beside it (null when there is none), opened read-only if asked, checked as
// OpenStores checks them.
struct OpenedStores {
  StoreLocations where;
  ormelix::StoreConnectionPtr payroll;
  ormelix::StoreConnectionPtr reference;
};
OpenedStores OpenStoreFiles(const std::string& where, bool read_only);

// True when a store is at the location (a file, or a schema with the tables).
bool StoreExists(const std::string& location, bool server);
// The store at the location, made from the schema where there is none (and then
// *created is set): a new file (its folder made), or the tables in an empty schema.
ormelix::StoreConnectionPtr OpenOrCreateStore(const std::string& location, bool server, ormelix::StoreKind kind,
                                              bool* created = nullptr);

// A session on a payroll store (and the reference store beside it, if there is
// one), opened read-only if asked. `where` is as LocateStores takes it. A missing
// path or a database that is no payroll store is a UsageError; a file that is
// no store or a server that cannot be reached a StoreError.
std::shared_ptr<ormelix::clsManager> OpenStores(const std::string& where, bool read_only);

}  // namespace cli
