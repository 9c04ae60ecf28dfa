// What only a PostgreSQL store shows: the server's failures as StoreErrors, a lost
// connection, and two programs on one database. Runs in the PostgreSQL run only.
#include <gtest/gtest.h>

#include "ormelix/error.h"
#include "ormelix/store/copy.h"
#include "ormelix/store/location.h"
#include "ormelix/store/value_helpers.h"
#include "support/test_store.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

class PostgresStore : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!test::OnPostgres()) GTEST_SKIP() << "a test of the PostgreSQL run";
  }
  test::TempDir dir;
  StoreConnectionPtr db = test::OnPostgres() ? test::NewStore(dir) : nullptr;

  std::string Location() const { return db->Session().StorePath(); }
  static std::string Caught(const std::function<void()>& action) {
    try {
      action();
    } catch (const StoreError& error) {
      return error.what();
    }
    return "no failure";
  }
};

TEST_F(PostgresStore, AStatementTheServerRefusesNamesStatementServerMessageAndSqlstate) {
  std::string what = Caught([&] { db->Session().OpenRecordset("SELECT [Nope] FROM [Mandanten]"); });
  EXPECT_NE(what.find("column \"Nope\" does not exist"), std::string::npos) << what;
  EXPECT_NE(what.find("SQLSTATE 42703"), std::string::npos) << what;
  EXPECT_NE(what.find("SELECT [Nope] FROM [Mandanten]"), std::string::npos) << what;
  EXPECT_NE(what.find("dbname=ormelix_store_tests"), std::string::npos) << what;
}

TEST_F(PostgresStore, AMissingDatabaseOrSchemaIsNamed) {
  std::string missing = WithLocationParameter(Location(), "dbname", "ormelix_no_such_database");
  std::string what = Caught([&] { StoreConnection::Open(missing); });
  EXPECT_NE(what.find("SQLSTATE 3D000"), std::string::npos) << what;
  EXPECT_NE(what.find("ormelix_no_such_database"), std::string::npos) << what;
  what = Caught([&] { StoreConnection::Open(WithLocationParameter(Location(), "schema", "no_such_schema")); });
  EXPECT_NE(what.find("no schema no_such_schema"), std::string::npos) << what;
}

TEST_F(PostgresStore, AWrongPasswordIsRefusedAndNeverShown) {
  // The scratch server checks the password of the user wrongpw only.
  test::RunOnServer(Location(),
                    "DO $$BEGIN IF NOT EXISTS (SELECT FROM pg_roles WHERE rolname = 'wrongpw') THEN "
                    "CREATE ROLE wrongpw LOGIN PASSWORD 'right'; END IF; END$$");
  std::string location = WithLocationParameter(WithLocationParameter(Location(), "user", "wrongpw"), "password",
                                               "wrong-secret");
  std::string what = Caught([&] { StoreConnection::Open(location); });
  if (what == "no failure") GTEST_SKIP() << "this server does not check the password of wrongpw";
  EXPECT_NE(what.find("SQLSTATE 28P01"), std::string::npos) << what;
  EXPECT_EQ(what.find("wrong-secret"), std::string::npos) << what;
  EXPECT_NE(what.find("user=wrongpw"), std::string::npos) << what;
}

TEST_F(PostgresStore, ALostConnectionFailsTheSaveLeavesTheRowAndTheNextStatementReconnects) {
  std::string id = test::AddRow(db, "Mandanten", {{"Name", "Vorher"}});
  auto rs = db->Session().OpenRecordset("SELECT pg_backend_pid() AS [pid]");
  std::string pid = ToText(rs->Fields("pid"));
  rs->Close();
  auto save = db->Session().OpenRecordset("SELECT * FROM [Mandanten] WHERE [ID]=" + SqlID(id), adOpenDynamic,
                                          adLockOptimistic);
  save->Collect("Name", "Nachher");
  test::RunOnServer(Location(), "SELECT pg_terminate_backend(" + pid + ")");
  std::string what = Caught([&] { save->Update(); });
  // Terminated by an administrator, or just gone, as the timing has it.
  EXPECT_TRUE(what.find("SQLSTATE 57P01") != std::string::npos || what.find("SQLSTATE 08006") != std::string::npos)
      << what;
  EXPECT_NE(what.find("UPDATE \"Mandanten\""), std::string::npos) << what;
  save.reset();
  EXPECT_EQ(test::CountRows(db, "Mandanten", "[Name]='Vorher'"), 1);  // a new connection, the row as it was
}

TEST_F(PostgresStore, TwoConnectionsSeeEachOthersSavesAtTheirNextRead) {
  auto other = StoreConnection::Open(Location());
  std::string id = test::AddRow(db, "Mandanten", {{"Name", "Eins"}});
  EXPECT_EQ(test::CountRows(other, "Mandanten", "[ID]=" + SqlID(id)), 1);
  auto rs = other->Session().OpenRecordset("SELECT * FROM [Mandanten] WHERE [ID]=" + SqlID(id), adOpenDynamic,
                                           adLockOptimistic);
  rs->Collect("Name", "Zwei");
  rs->Update();
  EXPECT_EQ(test::CountRows(db, "Mandanten", "[Name]='zwei'"), 1);
}

TEST_F(PostgresStore, TheStatementCacheCanBeTurnedOffAndAnswersAlike) {
  test::AddRow(db, "Basiswerte", {{"Bezeichnung", "Standard"}});
  auto uncached = StoreConnection::Open(Location(), "statement_cache=0");
  for (int pass = 0; pass < 2; ++pass)
    EXPECT_EQ(test::CountRows(uncached, "Basiswerte", "LCASE([Bezeichnung])=LCASE('STANDARD')"), 1);
  test::AddRow(uncached, "Basiswerte", {{"Bezeichnung", "Zweiter"}});
  EXPECT_EQ(test::CountRows(db, "Basiswerte"), 2);
}

TEST_F(PostgresStore, AReadOnlyConnectionRefusesWrites) {
  auto reader = StoreConnection::Open(Location(), "readonly");
  std::string what = Caught([&] { test::AddRow(reader, "Mandanten", {{"Name", "X"}}); });
  EXPECT_NE(what.find("SQLSTATE 25006"), std::string::npos) << what;
}

TEST_F(PostgresStore, ANewStoreIsRefusedWhereTheSchemaHoldsTablesAlready) {
  std::string what = Caught([&] { CreateStore(Location(), StoreKind::Payroll); });
  EXPECT_NE(what.find("holds tables already"), std::string::npos) << what;
}

}  // namespace
