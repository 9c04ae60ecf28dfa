// Helpers of the test suites: scratch folders and fresh stores made from the
// shipped schema, on SQLite or, when the test run asks for it, on PostgreSQL.
//
// Every test binary runs twice under ctest: as it is (SQLite) and with
// ORMELIX_TEST_BACKEND=postgres, where NewStore gives stores on the server that
// ORMELIX_TEST_PG names (a connection string). Each binary gets a database of its
// own on that server and each store a fresh schema in it, dropped when the
// process ends. Without ORMELIX_TEST_PG the PostgreSQL run skips every test.
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

// True in the run on PostgreSQL.
bool OnPostgres();
// The server of the PostgreSQL run (ORMELIX_TEST_PG), "" when none is named.
std::string TestServer();
// A location for a new store: a file of the folder on SQLite, a fresh schema of
// the binary's database on PostgreSQL (dropped, with the reference schema
// beside it, when the process ends).
std::string NewStoreLocation(const TempDir& dir, StoreKind kind = StoreKind::Payroll, const std::string& name = "");

// Where ormelix demo puts its stores in a test: the folder "store" of dir, or on
// PostgreSQL a fresh schema (and its _reference beside it).
std::string DemoLocation(const TempDir& dir);

// A fresh payroll (or reference) store: a file of the folder, or on PostgreSQL a
// fresh schema (name then only tells the stores of one test apart).
StoreConnectionPtr NewStore(const TempDir& dir, StoreKind kind = StoreKind::Payroll,
                            const std::string& name = "");

// Inserts a row with these columns (the store fills the rest) and gives its ID.
std::string AddRow(const StoreConnectionPtr& db, const std::string& table,
                   std::initializer_list<std::pair<const char*, Variant>> values = {});

// Number of rows of a table (or of a WHERE clause on it).
long CountRows(const StoreConnectionPtr& db, const std::string& table, const std::string& where = "");

// Makes the store refuse to insert or change a row of the table for which the
// condition on NEW holds (triggers, put in through a connection of their own), so
// that a save fails at the step that writes such a value.
void RefuseRows(const StoreConnectionPtr& db, const std::string& table, const std::string& condition);

// Runs SQL of the server's own dialect on a PostgreSQL store's database, through a
// connection of its own, in the store's schema; the first cell of the result.
std::string RunOnServer(const std::string& location, const std::string& sql);

}  // namespace ormelix::test

// Skips a test that is about SQLite files (paths, raw sqlite3, old layouts) in the
// PostgreSQL run, where it would only repeat the SQLite run.
#define ORMELIX_SQLITE_ONLY()                                                 \
  do {                                                                        \
    if (::ormelix::test::OnPostgres()) GTEST_SKIP() << "a test of SQLite files"; \
  } while (0)
