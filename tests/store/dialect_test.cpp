// The Jet-flavoured SQL of the domain, form by form, against a real SQLite store.
#include <gtest/gtest.h>

#include "ormelix/error.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "support/test_store.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

class DialectTest : public ::testing::Test {
 protected:
  test::TempDir dir;
  StoreConnectionPtr db = test::NewStore(dir);
  StoreConnectionPtr ref = test::NewStore(dir, StoreKind::Reference);

  static std::string Insert(const StoreConnectionPtr& store, const std::string& table,
                            std::initializer_list<std::pair<const char*, Variant>> values) {
    return test::AddRow(store, table, values);
  }
};

TEST_F(DialectTest, BracketsWithUmlautsAndTheOneBareTable) {
  std::string employee = NewID();
  Insert(db, "Mitarbeiter_Übertritte", {{"MitarbeiterID", employee}, {"Zeitraum", 202403}});
  Insert(db, "Mitarbeiter_Sachbezüge", {{"MitarbeiterID", employee}, {"Zeitraum", 202403}, {"Käse", 2.5}});

  auto transfers = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Übertritte] WHERE [MitarbeiterID]=" +
                                               SqlID(employee) + " ORDER BY [Zeitraum] ASC");
  EXPECT_EQ(transfers->RecordCount(), 1);
  auto benefits = db->Session().OpenRecordset("SELECT * FROM Mitarbeiter_Sachbezüge WHERE [MitarbeiterID]=" +
                                              SqlID(employee) + " AND [Zeitraum]=202403");
  ASSERT_FALSE(benefits->Eof());
  EXPECT_DOUBLE_EQ(ToAmount(benefits->Fields("käse")), 2.5);  // field names fold umlauts too
}

TEST_F(DialectTest, DottedNameInsideBracketsAndAliasInAJoin) {
  std::string employee = NewID();
  std::string slip = Insert(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", employee}, {"Zeitraum", 202405}});
  Insert(db, "Mitarbeiter_Lohnzettel_EL", {{"LohnzettelID", slip}, {"Zeitraum", 202311}});
  Insert(db, "Mitarbeiter_Lohnzettel_EL", {{"LohnzettelID", slip}, {"Zeitraum", 202402}});

  std::string sql =
      "SELECT [MitarbeiterID], [Mitarbeiter_Lohnzettel_EL.Zeitraum] AS [Zeitraum] FROM [Mitarbeiter_Lohnzettel] "
      "INNER JOIN [Mitarbeiter_Lohnzettel_EL] ON [Mitarbeiter_Lohnzettel].[ID]=[Mitarbeiter_Lohnzettel_EL].[LohnzettelID] "
      "WHERE [Mitarbeiter_Lohnzettel_EL.Zeitraum]>=" + std::to_string(MakeZeitraum(1, 2024)) +
      " AND [Mitarbeiter_Lohnzettel_EL.Zeitraum]<=" + std::to_string(MakeZeitraum(12, 2024));
  auto rs = db->Session().OpenRecordset(sql);
  ASSERT_EQ(rs->RecordCount(), 1);
  EXPECT_EQ(ToLong(rs->Fields("Zeitraum")), 202402);
  EXPECT_EQ(ToText(rs->Fields("MitarbeiterID")), employee);
  rs->Filter("[MitarbeiterID]=" + SqlID(employee));
  EXPECT_FALSE(rs->Eof());
}

TEST_F(DialectTest, JoinedColumnsOfTheSameNameAreReachedByTableAndColumn) {
  std::string carrier = Insert(db, "Versicherungsträger", {{"Code", "11"}, {"Bezeichnung", "ÖGK Wien"}});
  std::string employer = NewID();
  std::string account = Insert(db, "Mandanten_Beitragskonten", {{"MandantenID", employer}, {"VTID", carrier}});
  auto rs = db->Session().OpenRecordset(
      "SELECT * FROM [Mandanten_Beitragskonten] INNER JOIN [Versicherungsträger] ON "
      "[Mandanten_Beitragskonten].[VTID]=[Versicherungsträger].[ID] WHERE [Mandanten_Beitragskonten].[MandantenID]=" +
      SqlID(employer) + " ORDER BY [Mandanten_Beitragskonten].[Nr] ASC");
  ASSERT_FALSE(rs->Eof());
  EXPECT_EQ(ToText(rs->Fields("Mandanten_Beitragskonten.ID")), account);
  EXPECT_EQ(ToText(rs->Fields("Versicherungsträger.ID")), carrier);
  EXPECT_EQ(ToText(rs->Fields("Bezeichnung")), "ÖGK Wien");
  // A name both tables have gives the first such column of the row, in any case,
  // and so does a filter on it.
  EXPECT_EQ(ToText(rs->Fields("ID")), account);
  EXPECT_EQ(ToText(rs->Fields("id")), account);
  EXPECT_EQ(rs->FieldIndex("ID"), rs->FieldIndex("Mandanten_Beitragskonten.ID"));
  rs->Filter("[ID]=" + SqlID(carrier));
  EXPECT_TRUE(rs->Eof());
  rs->Filter("[ID]=" + SqlID(account));
  EXPECT_FALSE(rs->Eof());
}

TEST_F(DialectTest, DistinctWithAsWithoutBlank) {
  Insert(ref, "Gemeinden", {{"Gemeinde", "Wien"}, {"Gemeindenummer", "90001"}});
  Insert(ref, "Gemeinden", {{"Gemeinde", "Wien-Alt"}, {"Gemeindenummer", "90001"}});
  Insert(ref, "Gemeinden", {{"Gemeinde", "Graz"}, {"Gemeindenummer", "60101"}});
  auto rs = ref->Session().OpenRecordset(
      "SELECT DISTINCT([Gemeindenummer]) AS[Gemeindenummer], * FROM [Gemeinden] WHERE [Gemeindenummer]='90001'");
  ASSERT_FALSE(rs->Eof());
  EXPECT_EQ(ToText(rs->Fields("Gemeinde")), "Wien");
  // The number is in the row twice: the name gives the first column, the
  // qualified name the table's own.
  EXPECT_EQ(rs->FieldIndex("Gemeindenummer"), 0);
  EXPECT_EQ(ToText(rs->Fields("Gemeindenummer")), "90001");
  EXPECT_EQ(ToText(rs->Fields("Gemeinden.Gemeindenummer")), "90001");
  const int own = rs->FieldIndex("Gemeinden.Gemeindenummer");
  EXPECT_GT(own, 0);
  EXPECT_EQ(rs->FieldName(own), "Gemeindenummer");
}

TEST_F(DialectTest, DeleteStarAndExecuteSqlCountsRows) {
  std::string a = Insert(db, "Basiswerte", {{"Bezeichnung", "A"}});
  Insert(db, "Basiswerte", {{"Bezeichnung", "B"}});
  Variant touched = db->Session().ExecuteSql("DELETE * FROM [Basiswerte] WHERE [ID]=" + SqlID(a), true);
  EXPECT_EQ(ToLong(touched), 1);
  EXPECT_EQ(test::CountRows(db, "Basiswerte"), 1);
}

TEST_F(DialectTest, LcaseFoldsUmlautsOnBothSides) {
  Insert(db, "Basiswerte", {{"Bezeichnung", "ÄRZTE Österreich"}});
  auto rs = db->Session().OpenRecordset(
      "SELECT [ID] FROM [Basiswerte] WHERE LCASE([Bezeichnung])=LCASE('ärzte ÖSTERREICH')");
  EXPECT_FALSE(rs->Eof());
  auto none = db->Session().OpenRecordset("SELECT [ID] FROM [Basiswerte] WHERE LCASE([Bezeichnung])=LCASE('Aerzte')");
  EXPECT_TRUE(none->Eof());
}

TEST_F(DialectTest, FalseLiteralMatchesStoredFalse) {
  std::string child = NewID();
  Insert(db, "Mitarbeiter_Kinder_ZB", {{"KID", child}, {"Zeitraum", 202001}, {"FB_Bezieher", 1}, {"AVAB", true}});
  Insert(db, "Mitarbeiter_Kinder_ZB", {{"KID", child}, {"Zeitraum", 202002}, {"FB_Bezieher", 0}, {"AVAB", true}});
  Insert(db, "Mitarbeiter_Kinder_ZB", {{"KID", child}, {"Zeitraum", 202003}, {"FB_Bezieher", 0}, {"AVAB", false}});
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Kinder_ZB] WHERE [KID]=" + SqlID(child) +
                                        " AND ([FB_Bezieher]=" + "0" + " OR [AVAB]=FALSE) ORDER BY [Zeitraum] DESC");
  ASSERT_EQ(rs->RecordCount(), 2);
  EXPECT_EQ(ToLong(rs->Fields("Zeitraum")), 202003);
  EXPECT_FALSE(ToFlag(rs->Fields("AVAB")));
  rs->MoveNext();
  EXPECT_TRUE(ToFlag(rs->Fields("AVAB")));  // stored as -1
  auto raw = db->Session().OpenRecordset("SELECT [AVAB] FROM [Mitarbeiter_Kinder_ZB] WHERE [Zeitraum]=202001");
  EXPECT_EQ(ToLong(raw->Fields("AVAB")), -1);
}

TEST_F(DialectTest, IdsStandAsLiteralsInAnyCase) {
  std::string id = Insert(db, "Basiswerte", {{"Bezeichnung", "X"}});
  std::string lower = id;
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Basiswerte] WHERE [ID]=" + lower);
  EXPECT_FALSE(rs->Eof());
  auto none = db->Session().OpenRecordset("SELECT * FROM [Basiswerte] WHERE [ID]=" + SqlID(""));
  EXPECT_TRUE(none->Eof());
}

TEST_F(DialectTest, OnlyOneStatementPerCall) {
  Insert(db, "Basiswerte", {{"Bezeichnung", "keep me"}});
  EXPECT_THROW(db->Session().OpenRecordset("SELECT * FROM [Basiswerte]; DELETE * FROM [Basiswerte]"), StoreError);
  EXPECT_THROW(db->Session().ExecuteSql("DELETE * FROM [Basiswerte] WHERE [Bezeichnung]='x'; DROP TABLE [Basiswerte]"),
               StoreError);
  EXPECT_EQ(test::CountRows(db, "Basiswerte"), 1);
  // A trailing semicolon alone is one statement.
  EXPECT_NO_THROW(db->Session().OpenRecordset("SELECT * FROM [Basiswerte];"));
}

TEST_F(DialectTest, AQuoteInAConcatenatedValueIsAStoreFailureNotASecondStatement) {
  Insert(db, "Basiswerte", {{"Bezeichnung", "O"}});
  std::string name = "O'); DELETE * FROM [Basiswerte] WHERE ('1'='1";
  std::string sql = "SELECT [ID] FROM [Basiswerte] WHERE LCASE([Bezeichnung])=LCASE('" + name + "')";
  EXPECT_THROW(db->Session().OpenRecordset(sql), StoreError);
  try {
    db->Session().OpenRecordset("SELECT [ID] FROM [Basiswerte] WHERE LCASE([Bezeichnung])=LCASE('O'Brien')");
    FAIL() << "the broken text must be refused";
  } catch (const StoreError& error) {
    EXPECT_NE(error.Subject().find("O'Brien"), std::string::npos);
    EXPECT_FALSE(error.BackendMessage().empty());
  }
  EXPECT_EQ(test::CountRows(db, "Basiswerte"), 1);
}

// Found by fuzzing: a bare '?' (or another of SQLite's parameter marks) went to
// the store as a placeholder nobody binds, and a NUL ended the statement there.
TEST_F(DialectTest, ParameterMarksAndNulOutsideLiteralsAreRefused) {
  Insert(db, "Basiswerte", {{"Bezeichnung", "a?b:c@d$e"}});
  for (const char* sql : {"SELECT * FROM [Basiswerte] WHERE [Bezeichnung]=?", "SELECT * FROM [Basiswerte] WHERE [Nr]=:n",
                          "SELECT * FROM [Basiswerte] WHERE [Nr]=@n", "SELECT * FROM [Basiswerte] WHERE [Nr]=$n"})
    EXPECT_THROW(db->Session().OpenRecordset(sql), StoreError) << sql;
  EXPECT_THROW(db->Session().ExecuteSql(std::string("DELETE * FROM [Basiswerte] WHERE [Nr]=0\0 OR 1=1", 47), true),
               StoreError);
  // Inside a literal or a bracket they are plain characters.
  EXPECT_EQ(test::CountRows(db, "Basiswerte", "[Bezeichnung]='a?b:c@d$e'"), 1);
}

TEST_F(DialectTest, AnErrorNamesTheFirst200CharactersOfItsStatementOnOneLine) {
  std::string where;
  for (int i = 0; i < 100; ++i) where += (i ? " OR\n [Bezeichnung]='" : " WHERE [Bezeichnung]='") + std::to_string(i) + "'";
  const std::string sql = "SELECT * FROM [Basiswerte_Gibt_Es_Nicht]" + where;
  try {
    db->Session().OpenRecordset(sql);
    FAIL();
  } catch (const StoreError& error) {
    const std::string text = error.what();
    EXPECT_EQ(error.Subject(), sql);  // whole, for a program that wants it
    EXPECT_NE(text.find("Basiswerte_Gibt_Es_Nicht"), std::string::npos) << text;
    EXPECT_NE(text.find(sql.substr(0, 60)), std::string::npos) << text;
    EXPECT_NE(text.find("...]"), std::string::npos) << text;
    EXPECT_EQ(text.find("'99'"), std::string::npos) << text;
    EXPECT_EQ(text.find('\n'), std::string::npos) << text;
    const std::size_t shown = text.find("[SELECT");  // the statement, cut after 200 characters
    ASSERT_NE(shown, std::string::npos) << text;
    EXPECT_LE(text.size() - shown, 200u + 6u) << text;
  }
}

TEST_F(DialectTest, CommentsAndUnknownTablesAreRefusedNamingTheSql) {
  EXPECT_THROW(db->Session().OpenRecordset("SELECT * FROM [Basiswerte] -- all"), StoreError);
  try {
    db->Session().OpenRecordset("SELECT * FROM [Nowhere]");
    FAIL();
  } catch (const StoreError& error) {
    EXPECT_EQ(error.Subject(), "SELECT * FROM [Nowhere]");
    EXPECT_NE(error.BackendMessage().find(test::OnPostgres() ? "relation \"Nowhere\" does not exist" : "no such table"),
              std::string::npos)
        << error.BackendMessage();
  }
}

TEST_F(DialectTest, DateLiteralsAndSqlDateCompareWithDateColumns) {
  std::string employee = NewID();
  Insert(db, "Mitarbeiter_Laufbahn", {{"MitarbeiterID", employee}, {"Schritt", 1},
                                       {"Datum", DateHelpers::DateSerial(2020, 3, 31)}});
  auto by_literal = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Laufbahn] WHERE [Datum]<=#2020-03-31#");
  EXPECT_EQ(by_literal->RecordCount(), 1);
  auto by_sqldate = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Laufbahn] WHERE [Datum]<" +
                                                SqlDate(DateHelpers::DateSerial(2020, 3, 31), false));
  EXPECT_EQ(by_sqldate->RecordCount(), 0);
  auto all = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Laufbahn] WHERE [Datum]>=" + SqlDate(0, false));
  EXPECT_EQ(all->RecordCount(), 1);
}

}  // namespace

namespace {

// Statements that differ only in the literals of their conditions share one
// prepared translation; each must still find its own rows, whatever the kind of
// literal, and literals outside the conditions must not be shared.
TEST_F(DialectTest, StatementsOfOneShapeEachFindTheirOwnRows) {
  std::string a = Insert(db, "Mitarbeiter_Lohnarten", {{"Bezeichnung", "Alpha"}, {"SortNr", 1}});
  std::string b = Insert(db, "Mitarbeiter_Lohnarten", {{"Bezeichnung", "Beta"}, {"SortNr", 2}});
  auto name_of = [&](const std::string& sql) {
    auto rs = db->Session().OpenRecordset(sql);
    return rs->Eof() ? std::string("-") : ToText(rs->Fields(0));
  };
  for (int round = 0; round < 2; ++round) {  // the second round runs from the cache
    EXPECT_EQ(name_of("SELECT [Bezeichnung] FROM [Mitarbeiter_Lohnarten] WHERE [ID]=" + SqlID(a)), "Alpha");
    EXPECT_EQ(name_of("SELECT [Bezeichnung] FROM [Mitarbeiter_Lohnarten] WHERE [ID]=" + SqlID(b)), "Beta");
    EXPECT_EQ(name_of("SELECT [Bezeichnung] FROM [Mitarbeiter_Lohnarten] WHERE [SortNr]=2"), "Beta");
    EXPECT_EQ(name_of("SELECT [Bezeichnung] FROM [Mitarbeiter_Lohnarten] WHERE [SortNr]='1'"), "Alpha");
    EXPECT_EQ(name_of("SELECT [Bezeichnung] FROM [Mitarbeiter_Lohnarten] WHERE [SortNr]=2.5"), "-");
    EXPECT_EQ(name_of("SELECT [Bezeichnung] FROM [Mitarbeiter_Lohnarten] WHERE [Bezeichnung]='al''pha' OR [SortNr]=1"), "Alpha");
    // A literal of the select list is part of the statement's text, not a parameter.
    EXPECT_EQ(name_of("SELECT 'x' AS [v] FROM [Mitarbeiter_Lohnarten] WHERE [SortNr]=1"), "x");
    EXPECT_EQ(name_of("SELECT 'y' AS [v] FROM [Mitarbeiter_Lohnarten] WHERE [SortNr]=1"), "y");
    // A text holding the marker the shapes use is still its own statement.
    EXPECT_EQ(name_of("SELECT [Bezeichnung] FROM [Mitarbeiter_Lohnarten] WHERE [Bezeichnung]='\x01'"), "-");
  }
}

TEST_F(DialectTest, AFilterTextIsParsedOnceAndStillFailsForAnUnknownField) {
  Insert(db, "Mitarbeiter_Lohnarten", {{"Bezeichnung", "Alpha"}, {"SortNr", 1}});
  Insert(db, "Mitarbeiter_Lohnarten", {{"Bezeichnung", "Beta"}, {"SortNr", 2}});
  for (int round = 0; round < 2; ++round) {
    auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Lohnarten] ORDER BY [SortNr]");
    rs->Filter("[SortNr]=2");
    ASSERT_EQ(rs->RecordCount(), 1);
    EXPECT_EQ(ToText(rs->Fields("Bezeichnung")), "Beta");
    EXPECT_THROW(rs->Filter("[Unbekannt]=2"), StoreError);
  }
}

}  // namespace
