#include <filesystem>

#include "commands.h"
#include "ormelix/error.h"
#include "ormelix/store/store.h"
#include "ormelix/store/value_helpers.h"

namespace cli {

std::shared_ptr<ormelix::clsManager> OpenStores(const std::string& where, bool read_only) {
  namespace fs = std::filesystem;
  fs::path payroll = where;
  fs::path reference;
  if (fs::is_directory(payroll)) {
    reference = payroll / "reference.db";
    payroll /= "payroll.db";
  } else {
    reference = payroll.parent_path() / "reference.db";
  }
  if (!fs::exists(payroll))
    throw UsageError("no payroll store at '" + payroll.string() +
                     "'; expected a store file or a folder with payroll.db (made by ormelix init or ormelix demo)");
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
  if (fs::exists(reference)) manager->SetImportDB(ormelix::StoreConnection::Open(reference.string(), connect));
  return manager;
}

}  // namespace cli
