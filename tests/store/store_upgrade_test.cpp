// Stores made before text columns declared the text order: they open and then
// compare as new stores do, with every row, key, autonumber, index and cascade
// kept; read-only they are brought up to date in memory and left untouched.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "ormelix/error.h"
#include "ormelix/store/value_helpers.h"
#include "support/old_store.h"
#include "support/test_store.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

constexpr const char* kFolderA = "{00000000-0000-0000-0000-00000000000A}";
constexpr const char* kFolderALower = "{00000000-0000-0000-0000-00000000000a}";

class OldStore : public ::testing::Test {
 protected:
  test::TempDir dir;
  std::string path = dir.File("old.db");

  void SetUp() override {
    test::MakeOldStore(path);
    // Written as the older library wrote: rows of folders (one inserted last and
    // deleted again, so the autonumber stands past the highest row), a dated table
    // of the first folder, and a setting.
    test::RunRawSql(path,
                    "INSERT INTO \"Basiswerte\" (\"ID\", \"Bezeichnung\") VALUES ('" + std::string(kFolderA) +
                        "', 'beta');"
                        "INSERT INTO \"Basiswerte\" (\"Bezeichnung\") VALUES ('Alpha'), ('alpine'), ('Gamma'), "
                        "('ÄRZTE'), ('gone');"
                        "DELETE FROM \"Basiswerte\" WHERE \"Bezeichnung\"='gone';"
                        "INSERT INTO \"Basiswerte_Zeittabelle\" (\"BasisID\", \"Datum\", \"Bezeichnung\") VALUES ('" +
                        kFolderA + "', 202401, 'Werte 2024');"
                        "INSERT INTO \"Settings\" (\"Sections\", \"Fields\", \"Values\") VALUES ('Druck', 'Drucker', "
                        "'Büro');");
  }

  static std::vector<std::string> Folders(const StoreConnectionPtr& db) {
    std::vector<std::string> names;
    auto rs = db->Session().OpenRecordset("SELECT [Bezeichnung] FROM [Basiswerte] ORDER BY [Bezeichnung] ASC");
    for (; !rs->Eof(); rs->MoveNext()) names.push_back(ToText(rs->Fields("Bezeichnung")));
    return names;
  }

  // What an old store must answer once open, writable or not.
  static void ExpectNewComparisons(const StoreConnectionPtr& db) {
    EXPECT_EQ(Folders(db), (std::vector<std::string>{"Alpha", "alpine", "ÄRZTE", "beta", "Gamma"}));
    EXPECT_EQ(test::CountRows(db, "Basiswerte", "[Bezeichnung]='ärzte'"), 1);
    EXPECT_EQ(test::CountRows(db, "Settings", "[Sections]='DRUCK' AND [Fields]='drucker'"), 1);
    EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle", "[BasisID]='" + std::string(kFolderALower) + "'"), 1);
  }

  std::string FileBytes() const {
    std::ifstream in(path, std::ios::binary);
    std::stringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
  }
};

TEST_F(OldStore, OpenedWritableItIsRebuiltWithEveryRowKeyAutonumberIndexAndCascade) {
  ASSERT_EQ(test::UserVersion(path), 0);
  {
    auto db = StoreConnection::Open(path);
    ExpectNewComparisons(db);
    auto folder = db->Session().OpenRecordset("SELECT * FROM [Basiswerte] WHERE [ID]=" + std::string(kFolderA));
    EXPECT_EQ(ToText(folder->Fields("Bezeichnung")), "beta");
    EXPECT_EQ(ToLong(folder->Fields("Nr")), 1);
    // The autonumber goes on past the deleted row (6), not from the highest left (5).
    test::AddRow(db, "Basiswerte", {{"Bezeichnung", "Delta"}});
    auto added = db->Session().OpenRecordset("SELECT [Nr] FROM [Basiswerte] WHERE [Bezeichnung]='DELTA'");
    EXPECT_EQ(ToLong(added->Fields("Nr")), 7);
    auto plan = db->Session().OpenRecordset(
        "EXPLAIN QUERY PLAN SELECT * FROM [Settings] WHERE [Sections]='DRUCK' AND [Fields]='drucker'");
    EXPECT_NE(ToText(plan->Fields("detail")).find("ix_Settings_1"), std::string::npos);
    // The cascade below the folder still holds.
    db->Session().ExecuteSql("DELETE * FROM [Basiswerte] WHERE [ID]=" + std::string(kFolderA), true);
    EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle"), 0);
  }
  EXPECT_EQ(test::UserVersion(path), 2);  // text order, then unique keys
  // Opened again, it is a store of the new layout and is not rebuilt again.
  auto again = StoreConnection::Open(path);
  auto tables = again->Session().OpenRecordset("SELECT [sql] FROM [sqlite_master] WHERE [name]='Basiswerte'");
  std::string sql = ToText(tables->Fields("sql"));
  EXPECT_NE(sql.find("\"Bezeichnung\" TEXT COLLATE ormelix_text"), std::string::npos) << sql;
  EXPECT_EQ(Folders(again).size(), 5u);
}

TEST_F(OldStore, OpenedReadOnlyItComparesTheSameAndTheFileStaysAsItWas) {
  std::string before = FileBytes();
  {
    auto db = StoreConnection::Open(path, "readonly");
    ExpectNewComparisons(db);
    auto rs = db->Session().OpenRecordset("SELECT * FROM [Basiswerte]", adOpenDynamic, adLockOptimistic);
    rs->AddNew();
    rs->Collect("Bezeichnung", "neu");
    EXPECT_THROW(rs->Update(), StoreError);
  }
  EXPECT_EQ(FileBytes(), before);
  EXPECT_EQ(test::UserVersion(path), 0);
}

TEST(OldReferenceStore, ItsCataloguesCompareWithoutRegardToCase) {
  test::TempDir dir;
  std::string path = dir.File("reference.db");
  test::MakeOldStore(path, StoreKind::Reference);
  test::RunRawSql(path, "INSERT INTO \"Länder\" (\"Bezeichnung\") VALUES ('Österreich'), ('Ägypten'), ('Deutschland');");
  auto db = StoreConnection::Open(path);
  EXPECT_EQ(test::CountRows(db, "Länder", "[Bezeichnung]='ÖSTERREICH'"), 1);
  auto rs = db->Session().OpenRecordset("SELECT [Bezeichnung] FROM [Länder] ORDER BY [Bezeichnung] ASC");
  EXPECT_EQ(ToText(rs->Fields("Bezeichnung")), "Ägypten");
}

TEST(OtherFiles, ADatabaseThatHoldsNoTableOfTheStoresIsLeftAsItIs) {
  test::TempDir dir;
  std::string path = dir.File("other.db");
  test::RunRawSql(path, "CREATE TABLE \"Notizen\" (\"Text\" TEXT); INSERT INTO \"Notizen\" VALUES ('b'), ('A');");
  {
    auto db = StoreConnection::Open(path);
    auto rs = db->Session().OpenRecordset("SELECT [Text] FROM [Notizen] ORDER BY [Text] ASC");
    EXPECT_EQ(ToText(rs->Fields("Text")), "A");
    auto schema = db->Session().OpenRecordset("SELECT [sql] FROM [sqlite_master]");
    EXPECT_EQ(ToText(schema->Fields("sql")).find("COLLATE"), std::string::npos);
  }
  EXPECT_EQ(test::UserVersion(path), 0);
}

TEST(NewStores, AreMadeInTheCurrentLayout) {
  ORMELIX_SQLITE_ONLY();
  test::TempDir dir;
  auto db = test::NewStore(dir);
  EXPECT_EQ(test::UserVersion(db->Session().StorePath()), 2);
}

}  // namespace
