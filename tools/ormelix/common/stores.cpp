#include <filesystem>

#include "cli.h"
#include "common/paths.h"
#include "common/stores.h"
#include "ormelix/error.h"
#include "ormelix/store/location.h"
#include "ormelix/store/store.h"
#include "ormelix/store/value_helpers.h"

namespace cli {

namespace fs = std::filesystem;

StoreLocations LocateStores(const std::string& where) {
  StoreLocations stores;
  if (ormelix::IsServerLocation(where)) {
    // On a server the reference store lies beside the payroll store in a schema
    // of the same database: "reference", or SCHEMA_reference beside schema=SCHEMA.
    std::string schema = ormelix::LocationParameter(where, "schema");
    stores.payroll = where;
    stores.reference =
        ormelix::WithLocationParameter(where, "schema", schema.empty() ? "reference" : schema + "_reference");
    stores.server = true;
    return stores;
  }
  fs::path payroll = where;
  fs::path reference;
  if (KindAt(payroll) == fs::file_type::directory) {
    reference = payroll / "reference.db";
    payroll /= "payroll.db";
  } else {
    reference = payroll.parent_path() / "reference.db";
  }
  stores.payroll = payroll.string();
  stores.reference = reference.string();
  return stores;
}

namespace {

// The payroll store file must be there, be a file and be readable.
void RequireStoreFile(const fs::path& payroll) {
  const fs::file_type kind = KindAt(payroll);
  if (kind == fs::file_type::not_found)
    throw UsageError("no payroll store at '" + Shown(payroll) +
                     "'; expected a store file, a folder with payroll.db or a connection string "
                     "(made by ormelix init or ormelix demo)");
  if (kind != fs::file_type::regular)
    throw UsageError("'" + Shown(payroll) + "' is no file but a folder, device or pipe; expected a payroll store file");
  RequireReadable(payroll);
}

}  // namespace

OpenedStores OpenStoreFiles(const std::string& where, bool read_only) {
  OpenedStores opened;
  opened.where = LocateStores(where);
  const StoreLocations& stores = opened.where;
  if (!stores.server) RequireStoreFile(stores.payroll);
  std::string connect = read_only ? "readonly" : "";
  opened.payroll = ormelix::StoreConnection::Open(stores.payroll, connect);
  std::string shown = stores.server ? ormelix::ShownLocation(stores.payroll) : Shown(stores.payroll);
  try {
    opened.payroll->Session().OpenRecordset("SELECT [ID] FROM [Mandanten] WHERE [ID]=" + ormelix::ValueHelpers::SqlID(""));
  } catch (const ormelix::StoreError& error) {
    throw UsageError("'" + shown + "' is no payroll store (" + error.BackendMessage() +
                     "); expected a store made by ormelix init or ormelix demo");
  }
  if (!stores.server) {
    if (KindAt(stores.reference) != fs::file_type::not_found) {
      RequireReadable(stores.reference);
      opened.reference = ormelix::StoreConnection::Open(stores.reference, connect);
    }
    return opened;
  }
  try {
    opened.reference = ormelix::StoreConnection::Open(stores.reference, connect);
  } catch (const ormelix::StoreError&) {
    // No reference schema beside the payroll store: it has none, as a folder may not.
  }
  return opened;
}

std::shared_ptr<ormelix::clsManager> OpenStores(const std::string& where, bool read_only) {
  OpenedStores opened = OpenStoreFiles(where, read_only);
  auto manager = ormelix::clsManager::Create();
  manager->OpenAktDB(opened.payroll);
  if (opened.reference) manager->SetImportDB(opened.reference);
  return manager;
}

bool StoreExists(const std::string& location, bool server) {
  if (!server) return fs::exists(location);
  try {
    ormelix::StoreConnection::Open(location, "readonly");
    return true;
  } catch (const ormelix::StoreError&) {
    return false;  // no schema (or no tables) there yet
  }
}

ormelix::StoreConnectionPtr OpenOrCreateStore(const std::string& location, bool server, ormelix::StoreKind kind,
                                              bool* created) {
  if (created) *created = false;
  if (!server && !fs::exists(location)) {
    fs::path folder = fs::path(location).parent_path();
    if (!folder.empty()) fs::create_directories(folder);
    if (created) *created = true;
    return ormelix::CreateStore(location, kind);
  }
  if (server) {
    try {
      auto store = ormelix::CreateStore(location, kind);
      if (created) *created = true;
      return store;
    } catch (const ormelix::StoreError& error) {
      if (error.BackendMessage().find("holds tables already") == std::string::npos) throw;
    }
  }
  return ormelix::StoreConnection::Open(location);
}

}  // namespace cli
