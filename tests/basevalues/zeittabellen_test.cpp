// The dated tables of a folder: the table in force for a period, insertion at the
// place of its period, copies and removal.
#include <gtest/gtest.h>

#include "ormelix/basevalues/mod_basiswerte.h"
#include "ormelix/error.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "support/basis_values.h"

using namespace ormelix;
using ValueHelpers::NewID;

namespace {

class ZeittabellenTest : public test::BasisStoreTest {
 protected:
  std::vector<std::int32_t> Periods(const clsBasisZeittabellen& tables) {
    std::vector<std::int32_t> periods;
    for (const auto& table : tables) periods.push_back(table->Zeitraum()->Item);
    return periods;
  }
};

TEST_F(ZeittabellenTest, GetZeittabelleGivesTheTableInForceAndTheNewestForAnEarlierPeriod) {
  auto tables = FolderWithTables("Standard", {202307, 202301})->Zeittabellen();
  auto january = tables->Item(1);
  auto july = tables->Item(2);
  EXPECT_EQ(january->Zeitraum()->Item, 202301);
  EXPECT_EQ(tables->GetZeittabelle(202306), january);
  EXPECT_EQ(tables->GetZeittabelle(202307), july);
  EXPECT_EQ(tables->GetZeittabelle(202312), july);
  EXPECT_EQ(tables->GetZeittabelle(202212), july);
  EXPECT_EQ(july->Datum_Von(), DateHelpers::DateSerial(2023, 7, 1));
}

TEST_F(ZeittabellenTest, GetZeittabelleAsksTheStoreAndHandsOutTheSessionsObject) {
  auto folder = FolderWithTables("Standard", {202301, 202307});
  auto tables = folder->Zeittabellen();
  auto july = tables->Item(2);
  july->Zeitraum()->Item = 202401;  // not yet saved: the store still says 202307
  EXPECT_EQ(tables->GetZeittabelle(202312), july);
  july->Update();
  EXPECT_EQ(tables->GetZeittabelle(202312), tables->Item(1));
  // A table that is in the store but not in memory cannot be handed out.
  test::AddRow(db, "Basiswerte_Zeittabelle", {{"BasisID", folder->ID()}, {"Datum", 202501}});
  EXPECT_TRUE(tables->ExistZeitraum(202501));
  EXPECT_FALSE(tables->ExistZeitraum(202502));
  EXPECT_THROW(tables->GetZeittabelle(202506), KeyNotFound);
}

TEST_F(ZeittabellenTest, AFolderWithoutTablesFailsWithKeyNotFoundNamingTheFolder) {
  auto folder = Basis().AddNew("Leerer Ordner");
  try {
    folder->Zeittabellen()->GetZeittabelle(202401);
    FAIL() << "no failure";
  } catch (const KeyNotFound& failure) {
    EXPECT_NE(std::string(failure.what()).find("Leerer Ordner"), std::string::npos) << failure.what();
    EXPECT_NE(std::string(failure.what()).find(folder->ID()), std::string::npos) << failure.what();
  }
}

TEST_F(ZeittabellenTest, AddNewWritesATableOfZeroesWithAllItsRowsAtItsPlace) {
  auto tables = FolderWithTables("Standard", {202301, 202401})->Zeittabellen();
  EXPECT_EQ(tables->AddNew(0, "Null"), nullptr);
  EXPECT_EQ(tables->AddNew(-1, "Minus"), nullptr);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle"), 2);
  auto july = tables->AddNew(202307, "Juli");
  EXPECT_EQ(Periods(*tables), (std::vector<std::int32_t>{202301, 202307, 202401}));
  EXPECT_EQ(tables->Item(2), july);
  EXPECT_TRUE(DateHelpers::IsID(Variant(july->ID())));
  const std::string of_table = "[ZeittabellenID]=" + july->ID();
  for (const char* table : {"SW", "LST", "SA", "FB", "ALV", "DG", "DG_Geringfügig"})
    EXPECT_EQ(test::CountRows(db, std::string("Basiswerte_Zeittabelle_") + table, of_table), 1) << table;
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_PP", of_table + " AND [SortNr]>=1 AND [SortNr]<=4"), 4);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_SW_Werte"), 3 * 11);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_SA_Werte"), 3 * 16);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_DG_Werte"), 3 * 128);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_DG_Geringfügig_Werte"), 3 * 2);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_LST_Werte"), 0);
  // A period the folder has already is taken as well.
  tables->AddNew(202307, "Juli noch einmal");
  EXPECT_EQ(tables->Count(), 4);
}

TEST_F(ZeittabellenTest, CopyTakesEveryValueToTheNewPeriodAlsoFromAnotherFolder) {
  auto source = FolderWithTables("Quelle", {202301})->Zeittabellen()->Item(1);
  source->SA()->Krankenversicherung()->Prozent = 3.87;
  source->DG()->DZBL(eBasisWien)->Arbeiter = 0.41;
  source->Update();
  auto target = FolderWithTables("Ziel", {202301, 202501})->Zeittabellen();
  auto copy = target->Copy(source, 202401, "");
  EXPECT_EQ(copy->Bezeichnung, source->Bezeichnung);
  EXPECT_EQ(copy->Zeitraum()->Item, 202401);
  EXPECT_EQ(copy->BasisID(), Basis().Item("Ziel")->ID());
  EXPECT_NE(copy->ID(), source->ID());
  EXPECT_EQ(target->Item(2), copy);
  EXPECT_EQ(copy->SA()->Krankenversicherung()->Prozent, 3.87);
  EXPECT_EQ(copy->DG()->DZBL(eBasisWien)->Arbeiter, 0.41);
  auto named = target->Copy(source, 202402, "Februar");
  EXPECT_EQ(named->Bezeichnung, "Februar");
  // The copy is independent of its source.
  source->SA()->Krankenversicherung()->Prozent = 9;
  source->Update();
  copy->Refresh();
  EXPECT_EQ(copy->SA()->Krankenversicherung()->Prozent, 3.87);
}

TEST_F(ZeittabellenTest, RemoveAndClearDeleteTheTablesWithTheirRows) {
  auto tables = FolderWithTables("Standard", {202301, 202307, 202401})->Zeittabellen();
  tables->Remove(NewID());
  EXPECT_EQ(tables->Count(), 3);
  EXPECT_FALSE(tables->Exist(NewID()));
  std::string july = tables->Item(2)->ID();
  EXPECT_TRUE(tables->Exist(july));
  tables->Remove(july);
  EXPECT_EQ(Periods(*tables), (std::vector<std::int32_t>{202301, 202401}));
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_DG_Werte"), 2 * 128);
  tables->Clear();
  EXPECT_EQ(tables->Count(), 0);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle"), 0);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_SW_Werte"), 0);
  EXPECT_EQ(Basis().Count(), 1);  // the folder stays
}

TEST_F(ZeittabellenTest, AHostMadeTableIsSavedIntoTheFolderByAddItem) {
  auto tables = FolderWithTables("Standard", {202401})->Zeittabellen();
  auto table = std::make_shared<LBasis>();
  table->Zeitraum()->Add(1, 2023);
  table->Bezeichnung = "Vom Programm";
  table->FB()->Verkehr = 463;
  EXPECT_THROW(table->Update(), Error);  // no session until it belongs to a folder
  tables->AddItem(table);
  EXPECT_EQ(tables->Item(1), table);
  EXPECT_EQ(Reopened()->Basis()->Item(1)->Zeittabellen()->Item(1)->FB()->Verkehr, 463);
  EXPECT_THROW(tables->AddItem(nullptr), Error);
  EXPECT_THROW(tables->Copy(nullptr, 202501, ""), Error);
}

}  // namespace
