// Text compares as the domain's stores did: without regard to case, umlauts
// included, in memory and through the store (=, <, ORDER BY, DISTINCT, indexes,
// LCASE, Filter, Find).
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ormelix/store/text_order.h"
#include "ormelix/store/value_helpers.h"
#include "support/test_store.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

int Sign(int value) { return (value > 0) - (value < 0); }

struct Pair {
  const char* a;
  const char* b;
  int expected;  // sign of CompareText(a, b)
};

TEST(TextOrder, PairsCompareWithoutRegardToCaseAndUmlautsSortWithTheirLetter) {
  const Pair pairs[] = {
      // ASCII
      {"Alpha", "alpine", -1}, {"alpine", "beta", -1}, {"beta", "Gamma", -1}, {"ABC", "abc", 0},
      {"ab", "abc", -1}, {"", "a", -1}, {"", "", 0},
      {"{8A9B0C1D-AAAA-BBBB-CCCC-DDDDEEEEFFFF}", "{8a9b0c1d-aaaa-bbbb-cccc-ddddeeeeffff}", 0},
      {"Müller-Lüdenscheidt GmbH & Co KG", "MÜLLER-LÜDENSCHEIDT GMBH & CO KG", 0},
      {"Müller-Lüdenscheidt GmbH & Co KG", "Müller-Lüdenscheidt GmbH & Co KG.", -1},
      // umlauts: their letter first, the umlaut only between otherwise equal names
      {"ÄRZTE", "ärzte", 0}, {"Österreich", "ÖSTERREICH", 0}, {"ÜBERTRITT", "übertritt", 0},
      {"Arzt", "Ärzte", -1}, {"Ärzte", "Asche", -1}, {"Hanel", "Hänel", -1}, {"Hänel", "Hanelt", -1},
      {"ärzte", "aerzte", 1}, {"Muller", "müller", -1},
      // ß sorts as ss and is a letter of its own; ẞ is its capital
      {"Strasse", "Straße", -1}, {"Straße", "STRASSE", 1}, {"Straße", "Strassen", -1}, {"STRAẞE", "straße", 0},
      // other accents likewise
      {"École", "ÉCOLE", 0}, {"École", "ecole", 1}, {"Čapek", "čapek", 0}, {"Capek", "Čapek", -1},
      {"Łukasz", "ŁUKASZ", 0}, {"Łukasz", "Lukas", 1}, {"Øre", "ore", 1},
      // a decomposed umlaut is the umlaut
      {"a\xCC\x88rzte", "ÄRZTE", 0},
      // blanks and punctuation before digits, digits before letters
      {"_alt", "2024", -1}, {"2024", "Alpha", -1}, {"Müller Hans", "Müller-Lüdenscheidt", -1},
      {"Zoë", "zoe", 1}, {"10", "9", -1},
  };
  for (const Pair& p : pairs) {
    EXPECT_EQ(Sign(CompareText(p.a, p.b)), p.expected) << p.a << " vs " << p.b;
    EXPECT_EQ(Sign(CompareText(p.b, p.a)), -p.expected) << p.b << " vs " << p.a;
    if (p.expected == 0) {
      EXPECT_EQ(HashText(p.a), HashText(p.b)) << p.a << " and " << p.b;
    }
  }
}

// Names in the store, compared and sorted by the store and by a recordset.
class TextInTheStore : public ::testing::Test {
 protected:
  test::TempDir dir;
  StoreConnectionPtr db = test::NewStore(dir);

  void SetUp() override {
    for (const char* name : {"beta", "Alpha", "alpine", "Gamma", "ärzte", "ÄRZTE", "Arzt", "Straße", "STRASSE"})
      test::AddRow(db, "Basiswerte", {{"Bezeichnung", name}});
  }
  std::vector<std::string> Names(const std::string& sql) {
    std::vector<std::string> names;
    for (auto rs = db->Session().OpenRecordset(sql); !rs->Eof(); rs->MoveNext())
      names.push_back(ToText(rs->Fields("Bezeichnung")));
    return names;
  }
};

TEST_F(TextInTheStore, EqualsLessAndLcaseInAWhereClause) {
  struct Case {
    const char* where;
    long rows;
  } const cases[] = {
      {"[Bezeichnung]='Ärzte'", 2},
      {"[Bezeichnung]='ALPHA'", 1},
      {"'GAMMA'=[Bezeichnung]", 1},
      {"[Bezeichnung]<>'arzt'", 8},
      {"[Bezeichnung]<'B'", 5},  // Alpha, alpine, ärzte, ÄRZTE, Arzt
      {"[Bezeichnung]>='strasse'", 2},
      {"[Bezeichnung]='Strasse'", 1},
      {"LCASE([Bezeichnung])=LCASE('äRZTE')", 2},
      {"LCASE([Bezeichnung])=LCASE('STRAßE')", 1},
      {"UCASE([Bezeichnung])='straße'", 1},
  };
  for (const Case& c : cases) EXPECT_EQ(test::CountRows(db, "Basiswerte", c.where), c.rows) << c.where;
}

TEST_F(TextInTheStore, OrderByDistinctAndGroupBy) {
  std::vector<std::string> sorted = Names("SELECT [Bezeichnung] FROM [Basiswerte] ORDER BY [Bezeichnung] ASC, [Nr] ASC");
  EXPECT_EQ(sorted, (std::vector<std::string>{"Alpha", "alpine", "Arzt", "ärzte", "ÄRZTE", "beta", "Gamma",
                                              "STRASSE", "Straße"}));
  auto distinct = db->Session().OpenRecordset("SELECT DISTINCT [Bezeichnung] FROM [Basiswerte]");
  EXPECT_EQ(distinct->RecordCount(), 8);
  auto grouped = db->Session().OpenRecordset(
      "SELECT [Bezeichnung], COUNT(*) AS [n] FROM [Basiswerte] GROUP BY [Bezeichnung] ORDER BY [Bezeichnung] ASC");
  grouped->Filter("[n]=2");
  ASSERT_EQ(grouped->RecordCount(), 1);
  EXPECT_TRUE(EqualText(ToText(grouped->Fields("Bezeichnung")), "ärzte"));
}

TEST_F(TextInTheStore, FilterFindAndTheHashIndexCompareTheSameWay) {
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Basiswerte] ORDER BY [Bezeichnung] ASC, [Nr] ASC");
  struct Case {
    const char* criteria;
    long rows;
  } const cases[] = {
      {"[Bezeichnung]='ÄRZTE'", 2}, {"[Bezeichnung]='alpha'", 1},  {"[Bezeichnung]='Aerzte'", 0},
      {"[Bezeichnung]<'b'", 5},     {"[Bezeichnung]>'STRASSE'", 1}, {"[Bezeichnung]='gamma' OR [Bezeichnung]='BETA'", 2},
  };
  // Twice: the first equality builds the column's index, the second reads it.
  for (int pass = 0; pass < 2; ++pass)
    for (const Case& c : cases) {
      rs->Filter(c.criteria);
      EXPECT_EQ(rs->RecordCount(), c.rows) << c.criteria << " pass " << pass;
    }
  rs->Filter("");
  rs->Find("[Bezeichnung]='GAMMA'");
  ASSERT_FALSE(rs->Eof());
  EXPECT_EQ(ToText(rs->Fields("Bezeichnung")), "Gamma");
  rs->MoveFirst();
  rs->Find("[Bezeichnung]='arzte'");
  EXPECT_TRUE(rs->Eof());
}

TEST_F(TextInTheStore, IndexesServeComparisonsWithoutRegardToCase) {
  test::AddRow(db, "Settings", {{"Sections", "Druck"}, {"Fields", "Drucker"}, {"Values", "Büro"}});
  EXPECT_EQ(test::CountRows(db, "Settings", "[Sections]='DRUCK' AND [Fields]='drucker'"), 1);
  std::string plan;
  if (test::OnPostgres()) {
    // Too few rows for the planner to want an index unless told to.
    plan = test::RunOnServer(db->Session().StorePath(),
                             "SET enable_seqscan = off; EXPLAIN SELECT * FROM \"Settings\" "
                             "WHERE \"Sections\" = 'DRUCK' AND \"Fields\" = 'drucker'");
  } else {
    auto rs = db->Session().OpenRecordset(
        "EXPLAIN QUERY PLAN SELECT * FROM [Settings] WHERE [Sections]='DRUCK' AND [Fields]='drucker'");
    plan = ToText(rs->Fields("detail"));
  }
  EXPECT_NE(plan.find("ix_Settings_1"), std::string::npos) << plan;
  // The key too: an ID written in small letters inside quotes is the same ID.
  std::string id = test::AddRow(db, "Basiswerte", {{"Bezeichnung", "Zeta"}});
  std::string lower = id;
  std::transform(lower.begin(), lower.end(), lower.begin(), [](unsigned char c) { return std::tolower(c); });
  EXPECT_EQ(test::CountRows(db, "Basiswerte", "[ID]='" + lower + "'"), 1);
}

TEST(TextOrderSchema, EveryTextColumnOfBothDialectsDeclaresTheOrder) {
  for (const char* dialect : {"sqlite", "postgresql"}) {
    for (StoreKind kind : {StoreKind::Payroll, StoreKind::Reference}) {
      std::string ddl = SchemaDdl(kind, dialect);
      for (const SchemaTable& table : SchemaTables(kind))
        for (const SchemaColumn& column : table.columns) {
          std::size_t line = ddl.find("\n  \"" + column.name + "\"", ddl.find("TABLE \"" + table.name + "\""));
          ASSERT_NE(line, std::string::npos) << table.name << "." << column.name;
          std::string text = ddl.substr(line, ddl.find('\n', line + 1) - line);
          bool textual = column.type == "text" || column.type == "any";
          EXPECT_EQ(text.find("COLLATE ormelix_text") != std::string::npos, textual) << dialect << ": " << text;
        }
      EXPECT_NE(ddl.find("\"ID\" TEXT COLLATE ormelix_text NOT NULL UNIQUE"), std::string::npos) << dialect;
    }
  }
  EXPECT_EQ(SchemaDdl(StoreKind::Payroll, "postgresql")
                .rfind("CREATE COLLATION IF NOT EXISTS ormelix_text (provider = icu, locale = 'und-u-ks-level2', "
                       "deterministic = false);",
                       0),
            0u);
}

}  // namespace
