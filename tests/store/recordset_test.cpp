// The recordset idioms of the domain: filters, finds, moves, writes.
#include <gtest/gtest.h>

#include "ormelix/error.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "support/test_store.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

class RecordsetTest : public ::testing::Test {
 protected:
  test::TempDir dir;
  StoreConnectionPtr db = test::NewStore(dir);
  std::string employee = NewID();

  // Twelve pay rows of 2024 and two of 2023 for one employee.
  void AddPayRows() {
    auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Lohnzettel]", adOpenDynamic, adLockOptimistic);
    for (int key : {202311, 202312}) AddPayRow(*rs, key, 100);
    for (int month = 1; month <= 12; ++month) AddPayRow(*rs, MakeZeitraum(month, 2024), 1000 + month);
    rs->Close();
  }
  void AddPayRow(Recordset& rs, int key, double salary) {
    rs.AddNew();
    rs.Collect("MitarbeiterID", employee);
    rs.Collect("Zeitraum", key);
    rs.Collect("Gehalt", salary);
    rs.Update();
  }
  std::unique_ptr<Recordset> PayRows(LockTypeEnum lock = adLockReadOnly) {
    return db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Lohnzettel] WHERE [MitarbeiterID]=" +
                                           SqlID(employee) + " ORDER BY [Zeitraum] ASC",
                                       lock == adLockReadOnly ? adOpenForwardOnly : adOpenDynamic, lock);
  }
};

TEST_F(RecordsetTest, FilterReplacesTheOneBeforeAndStandsOnTheFirstMatch) {
  AddPayRows();
  auto rs = PayRows();
  EXPECT_EQ(rs->RecordCount(), 14);
  rs->Filter("[Zeitraum]>202402");
  EXPECT_EQ(rs->RecordCount(), 10);
  EXPECT_EQ(ToLong(rs->Fields("Zeitraum")), 202403);
  rs->MoveLast();
  rs->Filter("[Zeitraum]=" + std::to_string(MakeZeitraum(6, 2024)));  // replaces, not narrows
  EXPECT_EQ(rs->RecordCount(), 1);
  EXPECT_DOUBLE_EQ(ToAmount(rs->Fields("Gehalt")), 1006);
  rs->Filter("[Zeitraum]<=202312 AND [Gehalt]=100");
  EXPECT_EQ(rs->RecordCount(), 2);
  rs->Filter("");
  EXPECT_EQ(rs->RecordCount(), 14);
  EXPECT_EQ(ToLong(rs->Fields("Zeitraum")), 202311);
}

TEST_F(RecordsetTest, AFilterThatMatchesNothingLeavesNoRowAndConversionsGiveEmptyValues) {
  AddPayRows();
  auto rs = PayRows();
  rs->Filter("[Zeitraum]=" + std::to_string(MakeZeitraum(1, 2030)));
  EXPECT_TRUE(rs->Eof());
  EXPECT_EQ(rs->RecordCount(), 0);
  EXPECT_EQ(ToText(rs->Fields("MitarbeiterID")), "");
  EXPECT_EQ(ToInteger(rs->Fields("AbrechnungsTage")), 0);
  EXPECT_DOUBLE_EQ(ToAmount(rs->Fields("Gehalt")), 0);
  EXPECT_FALSE(ToFlag(rs->Fields("op_Bonus")));
  EXPECT_EQ(ToDate(rs->Fields("Abrechnung_Von")), 0);
  EXPECT_THROW(rs->Fields("Gehalt").Value(), StoreError);  // a plain read needs a row
  EXPECT_THROW(rs->Fields("NoSuchColumn"), StoreError);     // an unknown name fails even so
}

TEST_F(RecordsetTest, FilterFormsCompareNumbersTextsIdsAndNull) {
  std::string other = NewID();
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Settings]", adOpenDynamic, adLockOptimistic);
  for (auto [section, field, sub] : {std::tuple{"A", "x", ""}, std::tuple{"A", "y", "1"}, std::tuple{"B", "x", ""}}) {
    rs->AddNew();
    rs->Collect("Sections", section);
    rs->Collect("Fields", field);
    if (*sub) rs->Collect("SubFields", sub);
    rs->Update();
  }
  rs->Filter("[Sections]='A' AND [Fields]='y'");
  EXPECT_EQ(rs->RecordCount(), 1);
  rs->Filter("[Sections]<>'A'");
  EXPECT_EQ(rs->RecordCount(), 1);
  rs->Filter("[SubFields]=NULL");
  EXPECT_EQ(rs->RecordCount(), 2);
  rs->Filter("[Sections]>='B' OR [Fields]<'y'");
  EXPECT_EQ(rs->RecordCount(), 2);
  rs->Filter("[ID]=" + SqlID(other));
  EXPECT_TRUE(rs->Eof());
  rs->Filter("[Nr]>1 AND [Nr]<=3");
  EXPECT_EQ(rs->RecordCount(), 2);
}

TEST_F(RecordsetTest, AFilterThatCannotBeParsedNamesTheFilter) {
  AddPayRows();
  auto rs = PayRows();
  // #1/1/40671762#: found by fuzzing, a date past the year 9999 escaped as another failure.
  for (std::string bad : {"[Zeitraum]=", "[Zeitraum]>>2", "[Nope]=1", "[MitarbeiterID]='O'Brien'", "[Zeitraum] 1",
                          "[Zeitraum]=#1/1/40671762#"}) {
    try {
      rs->Filter(bad);
      FAIL() << bad;
    } catch (const StoreError& error) {
      EXPECT_EQ(error.Subject(), bad);
      EXPECT_FALSE(error.BackendMessage().empty()) << bad;
    }
  }
  // Found by fuzzing: parentheses nested thousands deep ran the parser out of stack.
  const std::string deep = std::string(5000, '(') + "[Zeitraum]=202401" + std::string(5000, ')');
  EXPECT_THROW(rs->Filter(deep), StoreError);
  EXPECT_THROW(rs->Find(deep), StoreError);
  rs->Filter(std::string(60, '(') + "[Zeitraum]=202401" + std::string(60, ')'));  // deep enough for any real use
  EXPECT_FALSE(rs->Eof());
}

TEST_F(RecordsetTest, AColumnPositionOutsideTheRowIsRefusedNamingIt) {
  AddPayRows();
  auto rs = db->Session().OpenRecordset("SELECT [Zeitraum], [Gehalt] FROM [Mitarbeiter_Lohnzettel]");
  EXPECT_EQ(rs->FieldName(1), "Gehalt");
  EXPECT_NO_THROW(rs->Fields(1).Value());
  // Positions a host computes wrongly: before the first column, one past the last, far out.
  for (int bad : {-1, 2, 1000}) {
    const std::string position = "position " + std::to_string(bad) + " of 2 columns";
    auto refused = [&](auto&& call) {
      try {
        call();
        ADD_FAILURE() << bad;
      } catch (const StoreError& error) {
        EXPECT_NE(std::string(error.what()).find(position), std::string::npos) << error.what();
      }
    };
    refused([&] { rs->Fields(bad).Value(); });
    refused([&] { rs->Fields(bad).Peek(); });
    refused([&] { rs->FieldName(bad); });
    refused([&] { rs->FieldTable(bad); });
  }
  rs->MoveLast();
  rs->MoveNext();  // at EOF the position is still checked first
  EXPECT_THROW(rs->Fields(7).ValueOrEmpty(), StoreError);
}

TEST_F(RecordsetTest, FindSeeksForwardFromTheCurrentRow) {
  AddPayRows();
  auto rs = PayRows();
  rs->Find("[Zeitraum]=202403");
  EXPECT_EQ(ToLong(rs->Fields("Zeitraum")), 202403);
  rs->Find("[Gehalt]>1000");  // the current row matches: it stays
  EXPECT_EQ(ToLong(rs->Fields("Zeitraum")), 202403);
  rs->Find("[Gehalt]=100");  // only behind the current row: not found
  EXPECT_TRUE(rs->Eof());
  rs->MoveFirst();
  rs->Find("[Gehalt]=100");
  EXPECT_EQ(ToLong(rs->Fields("Zeitraum")), 202311);
}

TEST_F(RecordsetTest, MovePreviousReachesBofAndMovesPastTheEndsFail) {
  AddPayRows();
  auto rs = PayRows();
  rs->Find("[Zeitraum]=202312");
  rs->MovePrevious();
  EXPECT_FALSE(rs->Bof());
  EXPECT_EQ(ToLong(rs->Fields("Zeitraum")), 202311);
  rs->MovePrevious();
  EXPECT_TRUE(rs->Bof());
  EXPECT_FALSE(rs->Eof());
  EXPECT_EQ(ToText(rs->Fields("MitarbeiterID")), "");
  EXPECT_THROW(rs->MovePrevious(), StoreError);
  rs->Find("[Zeitraum]=202311");  // from BOF the search starts at the first row
  EXPECT_EQ(ToLong(rs->Fields("Zeitraum")), 202311);
  rs->MoveLast();
  rs->MoveNext();
  EXPECT_TRUE(rs->Eof());
  EXPECT_THROW(rs->MoveNext(), StoreError);
}

TEST_F(RecordsetTest, AnEmptyRecordsetIsAtBothEnds) {
  auto rs = PayRows();
  EXPECT_TRUE(rs->Eof());
  EXPECT_TRUE(rs->Bof());
  rs->MoveFirst();
  rs->MoveLast();
  EXPECT_TRUE(rs->Eof());
  EXPECT_EQ(rs->RecordCount(), 0);
}

TEST_F(RecordsetTest, AddNewUpdateKeepsTheNewRowCurrentWithTheStoreFilledKeys) {
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Basiswerte]", adOpenDynamic, adLockOptimistic);
  rs->AddNew();
  EXPECT_TRUE(rs->Fields("ID").Value().IsNull());  // no key before the row is stored
  rs->Collect("Bezeichnung", "Standard");
  rs->Update();
  std::string id = DateHelpers::GetNewRowID(*rs);
  EXPECT_TRUE(DateHelpers::IsID(Variant(id)));
  EXPECT_EQ(ToText(rs->Fields("Bezeichnung")), "Standard");
  EXPECT_GT(ToLong(rs->Fields("Nr")), 0);
  EXPECT_FALSE(ToFlag(rs->Fields("Standardordner")));  // the column's default
  // The row stays current: a second Collect and Update change it in place.
  rs->Collect("Standardordner", true);
  rs->Update();
  EXPECT_EQ(DateHelpers::GetNewRowID(*rs), id);
  rs->Close();
  auto check = db->Session().OpenRecordset("SELECT * FROM [Basiswerte]");
  ASSERT_EQ(check->RecordCount(), 1);
  EXPECT_TRUE(ToFlag(check->Fields("Standardordner")));
}

TEST_F(RecordsetTest, AddingToAWholeTableReadsItsRowsOnlyWhenAsked) {
  AddPayRows();
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Lohnzettel]", adOpenDynamic, adLockOptimistic);
  rs->AddNew();
  rs->Collect("MitarbeiterID", employee);
  rs->Collect("Zeitraum", 202501);
  rs->Update();
  std::string id = DateHelpers::GetNewRowID(*rs);  // the new row is current before any row is read
  EXPECT_EQ(ToLong(rs->Fields("Zeitraum")), 202501);
  rs->Collect("Gehalt", 77.5);  // and it can be changed again
  rs->Update();
  EXPECT_EQ(rs->RecordCount(), 15);  // now the rows are read, and it stays the current one
  EXPECT_EQ(ToText(rs->Fields("ID")), id);
  EXPECT_DOUBLE_EQ(ToAmount(rs->Fields("Gehalt")), 77.5);
  rs->MoveFirst();
  EXPECT_EQ(ToLong(rs->Fields("Zeitraum")), 202311);
}

// The unfiltered view of rows already read is made when first walked; a row added
// before that walk, or after a filter is lifted, is counted once.
TEST_F(RecordsetTest, ARowAddedToReadRowsIsCountedOnceWhateverTheFilterDid) {
  AddPayRows();
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Lohnzettel]", adOpenDynamic, adLockOptimistic);
  rs->Filter("");  // reads the rows, walks none of them
  rs->AddNew();
  rs->Collect("MitarbeiterID", employee);
  rs->Collect("Zeitraum", 202501);
  rs->Update();
  EXPECT_EQ(rs->RecordCount(), 15);
  EXPECT_EQ(ToLong(rs->Fields("Zeitraum")), 202501);
  rs->Filter("[Zeitraum]=202501");
  EXPECT_EQ(rs->RecordCount(), 1);
  rs->Filter("");
  rs->AddNew();
  rs->Collect("MitarbeiterID", employee);
  rs->Collect("Zeitraum", 202502);
  rs->Update();
  EXPECT_EQ(rs->RecordCount(), 16);
  rs->MoveLast();
  EXPECT_EQ(ToLong(rs->Fields("Zeitraum")), 202502);
  rs->Delete();
  EXPECT_EQ(rs->RecordCount(), 15);
}

TEST_F(RecordsetTest, TheNewRowIsFoundAgainByNrAfterRequery) {
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Mandanten]", adOpenDynamic, adLockOptimistic);
  rs->AddNew();
  rs->Collect("Name", "Muster GmbH");
  rs->Update();
  std::int32_t nr = ToLong(rs->Fields("Nr"));
  std::string shown = ToText(rs->Fields("ID"));
  rs->Requery();
  rs->Filter("[Nr]=" + std::to_string(nr));
  ASSERT_FALSE(rs->Eof());
  EXPECT_EQ(ToText(rs->Fields("ID")), shown);
  EXPECT_EQ(ToText(rs->Fields("Name")), "Muster GmbH");
}

TEST_F(RecordsetTest, RequeryShowsWhatOthersWroteAndKeepsTheFilter) {
  AddPayRows();
  auto rs = PayRows();
  rs->Filter("[Gehalt]=100");
  EXPECT_EQ(rs->RecordCount(), 2);
  db->Session().ExecuteSql("DELETE * FROM [Mitarbeiter_Lohnzettel] WHERE [Zeitraum]=202311", true);
  rs->Requery();
  EXPECT_EQ(rs->RecordCount(), 1);
  EXPECT_EQ(rs->Filter(), "[Gehalt]=100");
}

TEST_F(RecordsetTest, WritesGoToTheStoreAndTheFilterIndexFollowsThem) {
  AddPayRows();
  auto rs = PayRows(adLockOptimistic);
  rs->Filter("[Zeitraum]=202405");  // builds the index of Zeitraum
  rs->Collect("Zeitraum", 202501);
  rs->Update();
  rs->Filter("[Zeitraum]=202405");
  EXPECT_TRUE(rs->Eof());
  rs->Filter("[Zeitraum]=202501");
  EXPECT_EQ(rs->RecordCount(), 1);
  rs->AddNew();
  rs->Collect("MitarbeiterID", "{00000000-0000-0000-0000-0000000000B2}");  // another employee's month
  rs->Collect("Zeitraum", 202501);
  rs->Update();
  rs->Filter("[Zeitraum]=202501");
  EXPECT_EQ(rs->RecordCount(), 2);
  rs->Close();
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel", "[Zeitraum]=202501"), 2);
}

TEST_F(RecordsetTest, AMoveSavesPendingChangesAndDeleteRemovesTheRow) {
  AddPayRows();
  auto rs = PayRows(adLockOptimistic);
  rs->Collect("Gehalt", 55.5);
  rs->MoveNext();  // saves the change, as a move does
  rs->Delete();    // removes 202312
  EXPECT_EQ(ToLong(rs->Fields("Zeitraum")), 202401);
  rs->Close();
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel", "[Gehalt]=55.5"), 1);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel", "[Zeitraum]=202312"), 0);
}

TEST_F(RecordsetTest, AnUpdateOfARowThatHasGoneFailsAndLosesNothingSilently) {
  AddPayRows();
  auto rs = PayRows(adLockOptimistic);
  ASSERT_EQ(ToLong(rs->Fields("Zeitraum")), 202311);  // the row has been seen
  db->Session().ExecuteSql("DELETE * FROM [Mitarbeiter_Lohnzettel] WHERE [Zeitraum]=202311", true);
  rs->Collect("Gehalt", 1);
  EXPECT_THROW(rs->Update(), StoreError);
}

TEST_F(RecordsetTest, ReadOnlyAndJoinedRecordsetsRefuseWrites) {
  AddPayRows();
  auto rs = PayRows(adLockReadOnly);
  EXPECT_THROW(rs->Collect("Gehalt", 1), StoreError);
  EXPECT_THROW(rs->AddNew(), StoreError);
  auto columns = db->Session().OpenRecordset("SELECT [ID], [Zeitraum] FROM [Mitarbeiter_Lohnzettel]", adOpenDynamic,
                                             adLockOptimistic);
  EXPECT_THROW(columns->Collect("Zeitraum", 1), StoreError);
  auto writable = PayRows(adLockOptimistic);
  EXPECT_THROW(writable->Collect("Nr", 99), StoreError);  // the row key is the store's
}

TEST_F(RecordsetTest, NullInANumericColumnLoadsAsZeroAndIsWrittenBackAsZero) {
  AddPayRows();
  db->Session().ExecuteSql("UPDATE [Mitarbeiter_Lohnzettel] SET [Gehalt]=NULL WHERE [Zeitraum]=202401", true);
  auto rs = PayRows(adLockOptimistic);
  rs->Filter("[Zeitraum]=202401");
  EXPECT_TRUE(rs->Fields("Gehalt").Value().IsNull());
  double salary = ToAmount(rs->Fields("Gehalt"));
  EXPECT_EQ(salary, 0);
  rs->Collect("Gehalt", salary);
  rs->Update();
  rs->Close();
  auto check = PayRows();
  check->Filter("[Zeitraum]=202401");
  EXPECT_EQ(check->Fields("Gehalt").Value(), Variant(0.0));
}

TEST_F(RecordsetTest, KeyFiltersOnALargeRecordsetMatchAScan) {
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Beitragskonto]", adOpenDynamic, adLockOptimistic);
  std::vector<std::string> ids;
  for (int i = 0; i < 50; ++i) ids.push_back(NewID());
  for (int i = 0; i < 500; ++i) {
    rs->AddNew();
    rs->Collect("MitarbeiterID", ids[i % 50]);
    rs->Collect("Zeitraum", 202001 + i % 12);
    rs->Collect("BeitragskontoID", std::to_string(i));
    rs->Update();
  }
  for (int k = 0; k < 50; k += 7) {
    rs->Filter("[MitarbeiterID]=" + SqlID(ids[k]) + " AND [Zeitraum]<=202006");
    long expected = 0;
    for (int i = 0; i < 500; ++i) expected += (i % 50 == k && 202001 + i % 12 <= 202006) ? 1 : 0;
    EXPECT_EQ(rs->RecordCount(), expected) << k;
    while (!rs->Eof()) {
      EXPECT_EQ(ToText(rs->Fields("MitarbeiterID")), ids[k]);
      rs->MoveNext();
    }
  }
}

TEST_F(RecordsetTest, AClosedRecordsetAndAClosedStoreFailCleanly) {
  AddPayRows();
  auto rs = PayRows(adLockOptimistic);
  rs->Close();
  EXPECT_FALSE(rs->IsOpen());
  EXPECT_THROW(rs->MoveNext(), StoreError);
  auto open = PayRows(adLockOptimistic);
  db->Session().CloseStore();
  EXPECT_FALSE(db->Session().IsOpen());
  EXPECT_THROW(open->AddNew(), StoreError);
  EXPECT_THROW(db->Session().OpenRecordset("SELECT * FROM [Basiswerte]"), StoreError);
}

TEST(StoreOpen, MissingFilesAndFilesThatAreNoStoreNameThePath) {
  test::TempDir dir;
  std::string missing = dir.File("missing.db");
  try {
    StoreConnection::Open(missing);
    FAIL();
  } catch (const StoreError& error) {
    EXPECT_EQ(error.Subject(), missing);
  }
  std::string text = dir.File("notes.txt");
  FILE* file = std::fopen(text.c_str(), "w");
  std::fputs("this is a text file and no database at all, however long it may be......", file);
  std::fclose(file);
  try {
    StoreConnection::Open(text);
    FAIL();
  } catch (const StoreError& error) {
    EXPECT_EQ(error.Subject(), text);
    EXPECT_NE(error.BackendMessage().find("not a database"), std::string::npos);
  }
}

TEST(StoreOpen, CloseAndReopenWithPathAndConnect) {
  test::TempDir dir;
  auto db = test::NewStore(dir);
  std::string path = db->Session().StorePath();
  std::string connect = db->Session().StoreConnect();
  db->Session().CloseStore();
  db->Session().OpenStore(path, connect);
  EXPECT_TRUE(db->Session().IsOpen());
  EXPECT_EQ(test::CountRows(db, "Basiswerte"), 0);
}

}  // namespace

namespace {

TEST(StoreOpen, AReadOnlyConnectionReadsAndRefusesWrites) {
  test::TempDir dir;
  auto db = test::NewStore(dir);
  test::AddRow(db, "Basiswerte", {{"Bezeichnung", "Standard"}});
  std::string path = db->Session().StorePath();
  auto reader = StoreConnection::Open(path, "sqlite;readonly");
  EXPECT_EQ(test::CountRows(reader, "Basiswerte"), 1);
  auto rs = reader->Session().OpenRecordset("SELECT * FROM [Basiswerte]", adOpenDynamic, adLockOptimistic);
  rs->Collect("Bezeichnung", "changed");
  EXPECT_THROW(rs->Update(), StoreError);
  EXPECT_THROW(StoreConnection::Open(path, "oracle"), StoreError);
}

}  // namespace
