// Helpers of the test suites: scratch folders and fresh stores made from the
// shipped schema.
#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>
#include <utility>

#include "ormelix/store/schema.h"
#include "ormelix/store/store.h"

namespace ormelix::test {

// A folder of its own under the system's temporary folder, removed with the object.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

// A fresh payroll (or reference) store in a file of the folder.
StoreConnectionPtr NewStore(const TempDir& dir, StoreKind kind = StoreKind::Payroll,
                            const std::string& name = "");

// Inserts a row with these columns (the store fills the rest) and gives its ID.
std::string AddRow(const StoreConnectionPtr& db, const std::string& table,
                   std::initializer_list<std::pair<const char*, Variant>> values = {});

// Number of rows of a table (or of a WHERE clause on it).
long CountRows(const StoreConnectionPtr& db, const std::string& table, const std::string& where = "");

}  // namespace ormelix::test
