// Commuter-allowance bands, allowances and ALV bounds.
#include <gtest/gtest.h>

#include "ormelix/store/value_helpers.h"
#include "support/basis_values.h"

using namespace ormelix;

namespace {

class PPFBALVTest : public test::BasisStoreTest {
 protected:
  std::shared_ptr<clsBasisordner> folder = FolderWithTables("Standard", {202401});
  std::shared_ptr<LBasis> table = folder->Zeittabellen()->Item(1);
  std::string of_table = "[ZeittabellenID]=" + table->ID();
};

TEST_F(PPFBALVTest, TheBandsAreIndexedOneToFourAndIndexZeroIsNotSaved) {
  auto& pp = *table->PP();
  pp.Von(0) = 1;
  pp.Von(2) = 40;
  pp.Bis(2) = 60;
  pp.klein(2) = 2016;
  pp.gross(4) = 3672;
  EXPECT_THROW(pp.Von(5), std::out_of_range);
  EXPECT_THROW(pp.gross(-1) = 1, std::out_of_range);
  table->Update();
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_PP", of_table), 4);
  EXPECT_EQ(StoredValue("Basiswerte_Zeittabelle_PP", "klein", of_table + " AND [SortNr]=2"), Variant(2016.0));
  auto reloaded = Reopened()->Basis()->Item(folder->ID())->Zeittabellen()->Item(1)->PP();
  EXPECT_EQ(reloaded->Von(0), 0);
  EXPECT_EQ(reloaded->Von(2), 40);
  EXPECT_EQ(reloaded->Bis(2), 60);
  EXPECT_EQ(reloaded->gross(4), 3672);
}

TEST_F(PPFBALVTest, AStoredBandZeroIsLoadedAndOneOutsideTheRangeFailsNamingTheRow) {
  test::AddRow(db, "Basiswerte_Zeittabelle_PP", {{"ZeittabellenID", table->ID()}, {"SortNr", 0}, {"Von", 12.345}});
  table->Refresh();
  EXPECT_EQ(table->PP()->Von(0), 12.35);
  test::AddRow(db, "Basiswerte_Zeittabelle_PP", {{"ZeittabellenID", table->ID()}, {"SortNr", 5}});
  try {
    table->Refresh();
    FAIL() << "no failure";
  } catch (const std::out_of_range& failure) {
    std::string message = failure.what();
    EXPECT_NE(message.find("Basiswerte_Zeittabelle_PP"), std::string::npos) << message;
    EXPECT_NE(message.find("SortNr 5"), std::string::npos) << message;
  }
}

TEST_F(PPFBALVTest, AllowancesAndBoundsGoToTheirColumnsAndKind3ToAbKind3) {
  table->FB()->Kinderzuschlag_AbKind3 = 220;
  table->FB()->FABO18 = 700.08;
  table->ALV()->N25c_bis = 2306;
  table->Update();
  EXPECT_EQ(StoredValue("Basiswerte_Zeittabelle_FB", "Kinderzuschlag_Kind3", of_table), Variant(220.0));
  EXPECT_EQ(StoredValue("Basiswerte_Zeittabelle_ALV", "N25c", of_table), Variant(2306.0));
  SetStored("Basiswerte_Zeittabelle_FB", "Kinderzuschlag_Kind3", 290.005, of_table);
  SetStored("Basiswerte_Zeittabelle_ALV", "N25e", 2451.5, of_table);
  table->Refresh();
  EXPECT_EQ(table->FB()->Kinderzuschlag_AbKind3, 290.01);
  EXPECT_EQ(table->FB()->FABO18, 700.08);
  EXPECT_EQ(table->ALV()->N25e_bis, 2451.5);
}

}  // namespace
