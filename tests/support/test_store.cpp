#include "test_store.h"

#include <gtest/gtest.h>
#include <libpq-fe.h>
#include <sqlite3.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <mutex>
#include <random>
#include <stdexcept>
#include <vector>

#include "ormelix/store/location.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::test {

namespace {

// The schemas this process made, dropped when it ends, so that a shared server
// keeps nothing of a test run.
class Schemas {
 public:
  static Schemas& Instance() {
    static Schemas schemas;
    return schemas;
  }
  void Add(const std::string& location) {
    std::lock_guard lock(mutex_);
    locations_.push_back(location);
  }
  ~Schemas() {
    for (const std::string& location : locations_) {
      try {
        std::string schema = LocationParameter(location, "schema");
        RunOnServer(location, "DROP SCHEMA IF EXISTS \"" + schema + "\", \"" + schema + "_reference\" CASCADE");
      } catch (const std::exception&) {
      }
    }
  }

 private:
  std::mutex mutex_;
  std::vector<std::string> locations_;
};

// Skips every test of the PostgreSQL run when no server is named.
class ServerEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    if (OnPostgres() && TestServer().empty())
      GTEST_SKIP() << "ORMELIX_TEST_BACKEND=postgres, but ORMELIX_TEST_PG names no server";
  }
};

[[maybe_unused]] auto* const kEnvironment = ::testing::AddGlobalTestEnvironment(new ServerEnvironment);

std::string BinaryName() {
  std::error_code error;
  std::string name = std::filesystem::read_symlink("/proc/self/exe", error).filename().string();
  return name.empty() ? "tests" : name;
}

}  // namespace

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

bool OnPostgres() {
  const char* backend = std::getenv("ORMELIX_TEST_BACKEND");
  return backend && std::string(backend) == "postgres";
}

std::string TestServer() {
  const char* server = std::getenv("ORMELIX_TEST_PG");
  return server ? server : "";
}

std::string NewStoreLocation(const TempDir& dir, StoreKind kind, const std::string& name) {
  static std::atomic<int> counter{0};
  std::string kind_name = kind == StoreKind::Payroll ? "payroll" : "reference";
  if (!OnPostgres()) return dir.File(name.empty() ? kind_name + std::to_string(counter++) + ".db" : name);
  std::string location = WithLocationParameter(TestServer(), "dbname", BinaryName());
  std::string schema = kind_name + "_" + std::to_string(getpid()) + "_" + std::to_string(counter++);
  location = WithLocationParameter(location, "schema", schema);
  Schemas::Instance().Add(location);
  return location;
}

StoreConnectionPtr NewStore(const TempDir& dir, StoreKind kind, const std::string& name) {
  return CreateStore(NewStoreLocation(dir, kind, name), kind);
}

std::string DemoLocation(const TempDir& dir) {
  return OnPostgres() ? NewStoreLocation(dir) : (dir.Path() / "store").string();
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

void RefuseRows(const StoreConnectionPtr& db, const std::string& table, const std::string& condition) {
  std::string location = db->Session().StorePath();
  if (IsServerLocation(location)) {
    RunOnServer(location,
                "CREATE OR REPLACE FUNCTION refuse_row() RETURNS trigger LANGUAGE plpgsql AS "
                "$$BEGIN RAISE EXCEPTION 'refused by the test'; END$$");
    RunOnServer(location, "CREATE TRIGGER refuse BEFORE INSERT OR UPDATE ON \"" + table +
                              "\" FOR EACH ROW WHEN (" + condition + ") EXECUTE FUNCTION refuse_row()");
    return;
  }
  sqlite3* raw = nullptr;
  ASSERT_EQ(sqlite3_open(location.c_str(), &raw), SQLITE_OK);
  for (const char* event : {"INSERT", "UPDATE"}) {
    std::string sql = std::string("CREATE TRIGGER \"refuse_") + event + "\" BEFORE " + event + " ON \"" + table +
                      "\" WHEN " + condition + " BEGIN SELECT RAISE(ABORT, 'refused by the test'); END";
    EXPECT_EQ(sqlite3_exec(raw, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(raw);
  }
  sqlite3_close(raw);
}

std::string RunOnServer(const std::string& location, const std::string& sql) {
  const std::string options = LocationParameter(location, "options");
  std::string conninfo = LibpqConnectionString(WithLocationParameter(
      location, "options", (options.empty() ? "" : options + " ") + "-cclient_min_messages=warning"));
  PGconn* conn = PQconnectdb(conninfo.c_str());
  std::string cell;
  std::string failure;
  if (PQstatus(conn) != CONNECTION_OK) {
    failure = PQerrorMessage(conn);
  } else {
    PGresult* result = PQexec(conn, sql.c_str());
    ExecStatusType status = PQresultStatus(result);
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) failure = PQresultErrorMessage(result);
    else if (PQntuples(result) > 0 && PQnfields(result) > 0) cell = PQgetvalue(result, 0, 0);
    PQclear(result);
  }
  PQfinish(conn);
  if (!failure.empty()) throw std::runtime_error("on the test server: " + failure + " [" + sql + "]");
  return cell;
}

}  // namespace ormelix::test
