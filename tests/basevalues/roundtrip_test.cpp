// Every stored value of a dated table, walked through the column declarations: a
// full round trip through a new session, the copy of a whole folder compared table
// by table, and the declarations against the schema.
#include <gtest/gtest.h>

#include <set>

#include "ormelix/basevalues/basis_columns.h"
#include "ormelix/store/schema.h"
#include "ormelix/store/value_helpers.h"
#include "support/basis_values.h"

using namespace ormelix;
using test::BasisValueKey;
using test::BasisValues;

namespace {

class RoundTripTest : public test::BasisStoreTest {};

// Where a reloaded value comes from: its own cell, but for the two crossings that
// a save and a load make on purpose.
BasisValueKey Source(BasisValueKey key) {
  if (key.table == "_SW_Werte" && key.group == eBasisSWLehrlingArbeiter) key.group = eBasisSWArbeiter;
  if (key.table == "_DG_Werte" && key.group == eBasisdgLehrlingForstArbeiter5 && key.column == "FALASTLGV")
    key.group = eBasisdgLehrlingForstArbeiter1;
  return key;
}

void AddBands(LBasis& table, int count) {
  for (int i = 0; i < count; ++i) {
    auto band = std::make_shared<LBasis_LST_Werte>();
    table.LST()->Add(band);
  }
}

void ExpectSameValues(const BasisValues& actual, const BasisValues& expected, const std::string& what) {
  ASSERT_EQ(actual.size(), expected.size()) << what;
  for (const auto& [key, value] : actual) {
    auto source = expected.find(key);
    ASSERT_NE(source, expected.end()) << what << ": " << key.Describe();
    EXPECT_EQ(value, source->second) << what << ": " << key.Describe();
  }
}

TEST_F(RoundTripTest, EveryValueOfADatedTableComesBackInANewSession) {
  auto folder = Basis().AddNew("Standard");
  auto table = folder->Zeittabellen()->AddNew(202401, "Jänner 2024");
  AddBands(*table, 3);
  BasisValues filled = test::FillBasisValues(*table, 1);
  ASSERT_GT(filled.size(), 1300u);  // the 128 employer rows alone hold 1,208 values
  table->Update();

  auto second = Reopened();
  auto loaded = second->Basis()->Item(folder->ID())->Zeittabellen()->Item(1);
  EXPECT_NE(loaded, table);
  BasisValues reloaded = test::ReadBasisValues(*loaded);
  ASSERT_EQ(reloaded.size(), filled.size());
  for (const auto& [key, value] : reloaded) EXPECT_EQ(value, filled.at(Source(key))) << key.Describe();
  // The row of group 8 holds what LehrlingArbeiter had, though no load reads it.
  std::string sw_id = ValueHelpers::ToText(StoredValue("Basiswerte_Zeittabelle_SW", "ID", "[ZeittabellenID]=" + table->ID()));
  EXPECT_EQ(StoredValue("Basiswerte_Zeittabelle_SW_Werte", "grenze", "[SWID]=" + sw_id + " AND [DNGruppe]=8"),
            filled.at({"_SW_Werte", eBasisSWLehrlingArbeiter, 0, "grenze"}));
}

TEST_F(RoundTripTest, ACopiedFolderEqualsItsSourceTableByTable) {
  auto source = FolderWithTables("Quelle", {202301, 202307, 202401});
  int seed = 1;
  for (const auto& table : *source->Zeittabellen()) {
    AddBands(*table, 2);
    test::FillBasisValues(*table, seed += 5000);
    table->Update();
  }
  auto copy = Basis().Copy(source, "");
  EXPECT_EQ(copy->Bezeichnung, "Quelle");
  EXPECT_FALSE(copy->Standardordner);
  EXPECT_NE(copy->ID(), source->ID());
  EXPECT_EQ(Basis().Count(), 2);

  auto second = Reopened();
  const auto& stored_source = *second->Basis()->Item(source->ID())->Zeittabellen();
  const auto& stored_copy = *second->Basis()->Item(copy->ID())->Zeittabellen();
  ASSERT_EQ(copy->Zeittabellen()->Count(), 3);
  ASSERT_EQ(stored_copy.Count(), 3);
  for (long i = 1; i <= 3; ++i) {
    auto from = stored_source.Item(i);
    auto to = stored_copy.Item(i);
    EXPECT_NE(to->ID(), from->ID());
    EXPECT_EQ(to->BasisID(), copy->ID());
    BasisValues expected = test::ReadBasisValues(*from);
    ExpectSameValues(test::ReadBasisValues(*to), expected, "stored copy of table " + std::to_string(i));
    ExpectSameValues(test::ReadBasisValues(*copy->Zeittabellen()->Item(i)), expected,
                     "copy in memory of table " + std::to_string(i));
  }
  // Two folders of three tables each: every sub-table holds the rows of six.
  const std::map<std::string, long> rows_per_table = {
      {"Basiswerte_Zeittabelle_SW_Werte", 11}, {"Basiswerte_Zeittabelle_SA_Werte", 16},
      {"Basiswerte_Zeittabelle_LST_Werte", 2}, {"Basiswerte_Zeittabelle_DG_Werte", 128},
      {"Basiswerte_Zeittabelle_DG_Geringfügig_Werte", 2}, {"Basiswerte_Zeittabelle_PP", 4},
      {"Basiswerte_Zeittabelle_FB", 1}, {"Basiswerte_Zeittabelle_ALV", 1}};
  for (const auto& [name, rows] : rows_per_table) EXPECT_EQ(test::CountRows(db, name), 6 * rows) << name;
}

// Basis.Load reads the whole value tables once for all dated tables and shares
// them; loading each folder's tables on their own reads them anew for every
// table. Both must give every value alike.
TEST_F(RoundTripTest, ALoadThatSharesTheWholeTableReadsEqualsOneThatReadsThemPerTable) {
  int seed = 1;
  for (const char* name : {"Erster", "Zweiter", "Dritter"}) {
    auto folder = FolderWithTables(name, {202301, 202307, 202401, 202407});
    for (const auto& table : *folder->Zeittabellen()) {
      AddBands(*table, 2);
      test::FillBasisValues(*table, seed += 3000);
      table->Update();
    }
  }
  auto shared = Reopened();
  shared->Basis()->Load();
  auto apart = Reopened();
  ASSERT_EQ(shared->Basis()->Count(), 3);
  int compared = 0;
  for (const auto& folder : *shared->Basis()) {
    auto alone = std::make_shared<clsBasisordner>();
    alone->LoadZeittabellen(*apart, folder->ID());  // outside Basis.Load: nothing shared
    ASSERT_EQ(alone->Zeittabellen()->Count(), 4);
    for (long i = 1; i <= 4; ++i, ++compared)
      ExpectSameValues(test::ReadBasisValues(*folder->Zeittabellen()->Item(i)),
                       test::ReadBasisValues(*alone->Zeittabellen()->Item(i)),
                       folder->Bezeichnung + " table " + std::to_string(i));
  }
  EXPECT_EQ(compared, 12);
}

TEST_F(RoundTripTest, TheDeclarationsCoverEveryValueColumnOfTheSchema) {
  auto table = FolderWithTables("Standard", {202401})->Zeittabellen()->Item(1);
  AddBands(*table, 1);
  std::map<std::string, std::set<std::string>> declared;
  test::VisitBasisValues(*table, [&](const BasisValueKey& key, PropertyRef) {
    declared["Basiswerte_Zeittabelle" + key.table].insert(key.column);
  });
  // Keys and row selectors are written by the routines themselves.
  const std::set<std::string> keys = {"ZeittabellenID", "BasisID", "SWID",     "SAID",
                                      "DGID",           "LohnsteuerID", "DNGruppe", "VGruppe", "SortNr"};
  int tables = 0;
  for (const SchemaTable& schema : SchemaTables(StoreKind::Payroll)) {
    if (schema.name.rfind("Basiswerte_Zeittabelle", 0) != 0) continue;
    ++tables;
    for (const SchemaColumn& column : schema.columns) {
      if (keys.count(column.name)) continue;
      EXPECT_TRUE(declared[schema.name].count(column.name)) << schema.name << "." << column.name;
    }
  }
  EXPECT_EQ(tables, 14);
}

}  // namespace
