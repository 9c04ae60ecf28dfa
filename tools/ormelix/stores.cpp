#include <filesystem>

#include "commands.h"
#include "paths.h"
#include "ormelix/error.h"
#include "ormelix/store/store.h"
#include "ormelix/store/value_helpers.h"

namespace cli {

std::shared_ptr<ormelix::clsManager> OpenStores(const std::string& where, bool read_only) {
  namespace fs = std::filesystem;
  fs::path payroll = where;
  fs::path reference;
  fs::file_type kind = KindAt(payroll);
  if (kind == fs::file_type::directory) {
    reference = payroll / "reference.db";
    payroll /= "payroll.db";
    kind = KindAt(payroll);
  } else {
    reference = payroll.parent_path() / "reference.db";
  }
  if (kind == fs::file_type::not_found)
    throw UsageError("no payroll store at '" + Shown(payroll) +
                     "'; expected a store file or a folder with payroll.db (made by ormelix init or ormelix demo)");
  if (kind != fs::file_type::regular)
    throw UsageError("'" + Shown(payroll) + "' is no file but a folder, device or pipe; expected a payroll store file");
  RequireReadable(payroll);
  std::string connect = read_only ? "sqlite;readonly" : "sqlite";
  auto store = ormelix::StoreConnection::Open(payroll.string(), connect);
  try {
    store->Session().OpenRecordset("SELECT [ID] FROM [Mandanten] WHERE [ID]=" + ormelix::ValueHelpers::SqlID(""));
  } catch (const ormelix::StoreError& error) {
    throw UsageError("'" + payroll.string() + "' is no payroll store (" + error.BackendMessage() +
                     "); expected a file made by ormelix init or ormelix demo");
  }
  auto manager = ormelix::clsManager::Create();
  manager->OpenAktDB(store);
  if (KindAt(reference) != fs::file_type::not_found) {
    RequireReadable(reference);
    manager->SetImportDB(ormelix::StoreConnection::Open(reference.string(), connect));
  }
  return manager;
}

}  // namespace cli
