// One record's save is one write transaction: scopes nest, what an unwinding
// scope does with its writes, another program's lock, a file that has moved or
// gone, and the unique keys of the tables of one row per key, also in stores
// made before them.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "ormelix/error.h"
#include "ormelix/store/value_helpers.h"
#include "support/raw_store.h"
#include "support/test_store.h"

using namespace ormelix;

namespace {

class WriteTransactionTest : public ::testing::Test {
 protected:
  test::TempDir dir;
  StoreConnectionPtr db = test::NewStore(dir, StoreKind::Payroll, "payroll.db");
  std::string path = db->Session().StorePath();

  long Folders(const StoreConnectionPtr& store) { return test::CountRows(store, "Basiswerte"); }
  void AddFolder(const StoreConnectionPtr& store, const char* name) {
    test::AddRow(store, "Basiswerte", {{"Bezeichnung", name}});
  }
  static std::string Bytes(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    std::stringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
  }
};

TEST_F(WriteTransactionTest, InnerScopesLeaveTheDecisionToTheOutermost) {
  {
    StoreWriteTransaction outer(db->Session());
    {
      StoreWriteTransaction inner(db->Session());
      AddFolder(db, "inner");
      inner.Commit();  // nothing yet: the outer scope decides
    }
    auto other = StoreConnection::Open(path, "busy_timeout=50");
    EXPECT_EQ(Folders(other), 0);  // not visible to another connection before the outer commit
    AddFolder(db, "outer");
    outer.Commit();
  }
  EXPECT_EQ(Folders(StoreConnection::Open(path)), 2);
}

TEST_F(WriteTransactionTest, AnUnwindingScopeRollsBackOrKeepsWhatItWrote) {
  auto fail_after_one = [&](StoreWriteTransaction::OnUnwind on_unwind) {
    try {
      StoreWriteTransaction save(db->Session(), on_unwind);
      AddFolder(db, "written");
      throw std::runtime_error("the save fails half-way");
    } catch (const std::runtime_error&) {
    }
  };
  fail_after_one(StoreWriteTransaction::RollBack);
  EXPECT_EQ(Folders(db), 0);
  fail_after_one(StoreWriteTransaction::KeepWritten);
  EXPECT_EQ(Folders(db), 1);
  StoreWriteTransaction next(db->Session());  // the store is free again
  next.Commit();
}

TEST_F(WriteTransactionTest, AnotherProgramsWriteWaitsAndThenFailsNamingTheStore) {
  auto other = StoreConnection::Open(path, "busy_timeout=100");
  StoreWriteTransaction holding(db->Session());
  try {
    StoreWriteTransaction blocked(other->Session());
    FAIL() << "a second writer got in";
  } catch (const StoreError& e) {
    EXPECT_NE(std::string(e.what()).find("locked by another program"), std::string::npos) << e.what();
    EXPECT_EQ(e.Subject(), path);
    EXPECT_NE(std::string(e.what()).find("100 ms"), std::string::npos) << e.what();
  }
  holding.Commit();
  StoreWriteTransaction now_free(other->Session());
  now_free.Commit();
}

TEST_F(WriteTransactionTest, OpeningALockedStoreWaitsTheBusyTimeout) {
  ORMELIX_SQLITE_ONLY();
  db->Session().CloseStore();
  test::RawConnection locker(path);
  locker.Run("PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE; INSERT INTO \"Basiswerte\" (\"Bezeichnung\") "
             "VALUES ('held');");
  try {
    StoreConnection::Open(path, "busy_timeout=150");
    FAIL() << "opened a store another program holds";
  } catch (const StoreError& e) {
    EXPECT_NE(std::string(e.what()).find("locked by another program"), std::string::npos) << e.what();
    EXPECT_NE(std::string(e.what()).find(path), std::string::npos) << e.what();
  }
  // Released within the timeout, the open goes through and sees what was written.
  std::thread release([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    locker.Run("COMMIT;");
    locker.Close();
  });
  StoreConnectionPtr opened;
  EXPECT_NO_THROW(opened = StoreConnection::Open(path, "busy_timeout=5000"));
  release.join();
  ASSERT_TRUE(opened);
  EXPECT_EQ(Folders(opened), 1);
}

TEST_F(WriteTransactionTest, AStoreThatMovedOrWentTakesNoWrite) {
  ORMELIX_SQLITE_ONLY();
  AddFolder(db, "before");
  const std::string elsewhere = dir.File("elsewhere.db");
  auto expect_refused = [&](const char* what) {
    try {
      StoreWriteTransaction save(db->Session());
      ADD_FAILURE() << what << ": a write transaction began";
    } catch (const StoreError& e) {
      EXPECT_NE(std::string(e.what()).find("has moved or gone"), std::string::npos) << what << ": " << e.what();
      EXPECT_EQ(e.Subject(), path) << what;
    }
    EXPECT_THROW(AddFolder(db, "lost"), StoreError) << what;  // a write outside a transaction too
  };

  std::filesystem::rename(path, elsewhere);  // renamed
  expect_refused("renamed");
  EXPECT_FALSE(std::filesystem::exists(path));
  std::filesystem::rename(elsewhere, path);
  AddFolder(db, "back in place");  // the same file in its place again takes writes

  auto replacement = test::NewStore(dir, StoreKind::Payroll, "replacement.db");
  AddFolder(replacement, "replacement's own");
  replacement->Session().CloseStore();
  std::filesystem::rename(path, elsewhere);
  std::filesystem::rename(dir.File("replacement.db"), path);  // replaced by another store
  const std::string replacement_bytes = Bytes(path);
  expect_refused("replaced");
  EXPECT_EQ(Bytes(path), replacement_bytes);

  std::filesystem::remove(path);  // deleted
  expect_refused("deleted");
  db->Session().CloseStore();
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_EQ(Folders(StoreConnection::Open(elsewhere)), 2);  // the moved file kept its two rows
}

TEST_F(WriteTransactionTest, TablesOfOneRowPerKeyRefuseASecondRow) {
  const std::string employee = "{00000000-0000-0000-0000-000000000001}";
  test::AddRow(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", employee}, {"Zeitraum", 202403}});
  EXPECT_THROW(test::AddRow(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", employee}, {"Zeitraum", 202403}}),
               StoreError);
  // The key compares as text does in the store: another case is the same key.
  test::AddRow(db, "Mitarbeiter_Jahresdaten", {{"MitarbeiterID", "{abc}"}, {"Jahr", 2024}});
  EXPECT_THROW(test::AddRow(db, "Mitarbeiter_Jahresdaten", {{"MitarbeiterID", "{ABC}"}, {"Jahr", 2024}}), StoreError);
  // Tables of several rows per key keep taking them: lines of a month, steps of a career.
  for (int i = 0; i < 2; ++i) {
    test::AddRow(db, "Mitarbeiter_Lohnarten", {{"MitarbeiterID", employee}, {"Zeitraum", 202403}});
    test::AddRow(db, "Mitarbeiter_Laufbahn", {{"MitarbeiterID", employee}, {"Datum", 45000}});
    test::AddRow(db, "Mitarbeiter_Lohnzettel_EL", {{"LohnzettelID", employee}});
    test::AddRow(db, "Mandanten_BMVG_Kasse", {{"MandantenID", employee}});
  }
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnarten"), 2);
  EXPECT_EQ(test::CountRows(db, "Mandanten_BMVG_Kasse"), 2);
}

// A store of the layout before the unique keys (version 1), as an older library
// left it: plain indexes, and maybe two rows of one month already.
class StoreBeforeUniqueKeys : public WriteTransactionTest {
 protected:
  const std::string employee = "{00000000-0000-0000-0000-000000000002}";

  void MakeVersion1(bool with_duplicates) {
    db->Session().CloseStore();
    test::RawConnection raw(path);
    raw.Run("DROP INDEX \"ix_Mitarbeiter_Lohnzettel_1\";"
            "CREATE INDEX \"ix_Mitarbeiter_Lohnzettel_1\" ON \"Mitarbeiter_Lohnzettel\" (\"MitarbeiterID\", "
            "\"Zeitraum\");"
            "PRAGMA user_version=1;");
    std::string insert = "INSERT INTO \"Mitarbeiter_Lohnzettel\" (\"MitarbeiterID\", \"Zeitraum\", \"Gehalt\") "
                         "VALUES ('" + employee + "', 202403, ";
    raw.Run(insert + "100);");
    if (with_duplicates) raw.Run(insert + "200);");
  }
  std::string Version() { return test::RawConnection(path).Text("PRAGMA user_version"); }
  std::string IndexSql() {
    return test::RawConnection(path).Text(
        "SELECT sql FROM sqlite_master WHERE name='ix_Mitarbeiter_Lohnzettel_1'");
  }
};

TEST_F(StoreBeforeUniqueKeys, GetsItsUniqueKeysWhenOpenedWritable) {
  ORMELIX_SQLITE_ONLY();
  MakeVersion1(false);
  StoreConnection::Open(path, "readonly");  // a read-only open changes nothing
  EXPECT_EQ(Version(), "1");
  StoreConnection::Open(path);
  EXPECT_EQ(Version(), "2");
  EXPECT_EQ(IndexSql().rfind("CREATE UNIQUE INDEX", 0), 0u) << IndexSql();
}

TEST_F(StoreBeforeUniqueKeys, WithTwoRowsOfOneMonthOpensKeepsThemAndTriesAgainLater) {
  ORMELIX_SQLITE_ONLY();
  MakeVersion1(true);
  auto opened = StoreConnection::Open(path);
  EXPECT_EQ(test::CountRows(opened, "Mitarbeiter_Lohnzettel"), 2);  // nothing deleted
  EXPECT_EQ(Version(), "1");
  EXPECT_EQ(IndexSql().rfind("CREATE INDEX", 0), 0u) << IndexSql();  // the plain index stays
  // The other tables got theirs all the same.
  test::AddRow(opened, "Mitarbeiter_Jahresdaten", {{"MitarbeiterID", employee}, {"Jahr", 2024}});
  EXPECT_THROW(test::AddRow(opened, "Mitarbeiter_Jahresdaten", {{"MitarbeiterID", employee}, {"Jahr", 2024}}),
               StoreError);
  opened->Session().ExecuteSql("DELETE * FROM [Mitarbeiter_Lohnzettel] WHERE [Gehalt]=200", true);
  opened->Session().CloseStore();
  StoreConnection::Open(path);  // once the duplicate is gone, the next open completes the keys
  EXPECT_EQ(Version(), "2");
}

}  // namespace

namespace {

// A load's reads see the store as it stood when the load began, and a save made
// while they run is durable at its own commit, not at the end of the reads.
TEST_F(WriteTransactionTest, AReadSnapshotSeesOneStateAndAWriteWithinItIsDurableAtOnce) {
  AddFolder(db, "first");
  auto other = StoreConnection::Open(path);
  {
    StoreReadSnapshot snapshot(&db->Session());
    {
      StoreReadSnapshot inner(&db->Session());  // nested: the outer one decides
      EXPECT_EQ(Folders(db), 1);
    }
    AddFolder(other, "by another program");
    EXPECT_EQ(Folders(db), 1);  // still the state at the start
    {
      StoreWriteTransaction save(db->Session());
      AddFolder(db, "own save");
      save.Commit();
    }
    EXPECT_EQ(Folders(other), 3);  // the save is in the store before the snapshot ends
    EXPECT_EQ(Folders(db), 3);     // and the reads after it see the store as it is
  }
  EXPECT_EQ(Folders(db), 3);
  {
    StoreReadSnapshot snapshot(&db->Session());
    EXPECT_EQ(Folders(db), 3);
    AddFolder(db, "plain write");  // a recordset's own write, without a transaction scope
    EXPECT_EQ(Folders(other), 4);  // in the store at once, not with the snapshot's end
  }
  StoreReadSnapshot on_nothing(nullptr);  // no store: nothing to do
}

}  // namespace

namespace {

// Within a StoreSharedReads scope a second read of a statement stands on the rows
// of the first, with a filter of its own; a write in the scope makes the next read
// read afresh.
TEST_F(WriteTransactionTest, SharedReadsGiveTheRowsOfTheFirstReadUntilAWrite) {
  AddFolder(db, "Alpha");
  AddFolder(db, "Beta");
  StoreSharedReads shared(&db->Session());
  const std::string all = "SELECT * FROM [Basiswerte] ORDER BY [Bezeichnung]";
  auto first = db->Session().OpenRecordset(all);
  first->Filter("[Bezeichnung]='Beta'");
  auto second = db->Session().OpenRecordset(all);
  EXPECT_EQ(second->RecordCount(), 2);  // the filter of the first is its own
  EXPECT_EQ(ValueHelpers::ToText(second->Fields("Bezeichnung")), "Alpha");
  EXPECT_EQ(first->RecordCount(), 1);
  second->Close();
  EXPECT_EQ(ValueHelpers::ToText(first->Fields("Bezeichnung")), "Beta");  // closing one leaves the other

  AddFolder(db, "Gamma");  // a write through a recordset of the session
  EXPECT_EQ(db->Session().OpenRecordset(all)->RecordCount(), 3);
}

}  // namespace
