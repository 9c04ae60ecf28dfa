#include "test_store.h"

#include <atomic>
#include <random>

#include "ormelix/store/value_helpers.h"

namespace ormelix::test {

TempDir::TempDir() {
  static std::atomic<int> counter{0};
  std::random_device random;
  path_ = std::filesystem::temp_directory_path() /
          ("ormelix-test-" + std::to_string(random()) + "-" + std::to_string(counter++));
  std::filesystem::create_directories(path_);
}

TempDir::~TempDir() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

StoreConnectionPtr NewStore(const TempDir& dir, StoreKind kind, const std::string& name) {
  static std::atomic<int> counter{0};
  std::string file = name.empty() ? (kind == StoreKind::Payroll ? "payroll" : "reference") +
                                        std::to_string(counter++) + ".db"
                                  : name;
  return CreateStore(dir.File(file), kind);
}

std::string AddRow(const StoreConnectionPtr& db, const std::string& table,
                   std::initializer_list<std::pair<const char*, Variant>> values) {
  auto rs = db->Session().OpenRecordset("SELECT * FROM [" + table + "]", adOpenDynamic, adLockOptimistic);
  rs->AddNew();
  for (const auto& [column, value] : values) rs->Collect(column, value);
  rs->Update();
  std::string id = rs->FindFieldIndex("ID") >= 0 ? ValueHelpers::ToText(rs->Fields("ID")) : "";
  rs->Close();
  return id;
}

long CountRows(const StoreConnectionPtr& db, const std::string& table, const std::string& where) {
  auto rs = db->Session().OpenRecordset("SELECT COUNT(*) AS [n] FROM [" + table + "]" +
                                        (where.empty() ? "" : " WHERE " + where));
  return ValueHelpers::ToLong(rs->Fields("n"));
}

}  // namespace ormelix::test
