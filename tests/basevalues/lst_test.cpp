// The wage-tax bands: written anew on every save, appended on every load.
#include <gtest/gtest.h>

#include "ormelix/store/value_helpers.h"
#include "support/basis_values.h"

using namespace ormelix;

namespace {

class LSTTest : public test::BasisStoreTest {
 protected:
  std::shared_ptr<clsBasisordner> folder = FolderWithTables("Standard", {202401});
  std::shared_ptr<LBasis> table = folder->Zeittabellen()->Item(1);

  std::shared_ptr<LBasis_LST_Werte> AddBand(double von, double bis, double satz) {
    auto band = std::make_shared<LBasis_LST_Werte>();
    band->Von = von;
    band->Bis = bis;
    band->steuersatz = satz;
    table->LST()->Add(band);
    return band;
  }
  std::shared_ptr<LBasis> Reloaded() { return Reopened()->Basis()->Item(folder->ID())->Zeittabellen()->Item(1); }
  long StoredBands() {
    return test::CountRows(db, "Basiswerte_Zeittabelle_LST_Werte",
                           "[LohnsteuerID]=" + SubRowID("Basiswerte_Zeittabelle_LST", *table));
  }
};

TEST_F(LSTTest, ATableWithoutBandsHasNoneAndClearDoesNothing) {
  EXPECT_EQ(table->LST()->Count(), 0);
  EXPECT_TRUE(table->LST()->Clear().IsEmpty());
  EXPECT_EQ(Reloaded()->LST()->Count(), 0);
  EXPECT_THROW(table->LST()->Item(1), KeyNotFound);
  EXPECT_THROW(table->LST()->Remove(1), KeyNotFound);
  std::shared_ptr<LBasis_LST_Werte> none;
  EXPECT_THROW(table->LST()->Add(none), Error);
}

TEST_F(LSTTest, BandsKeepTheOrderOfAddInMemoryAndComeBackSortedByVon) {
  auto upper = AddBand(5000, 9999.99, 40);
  AddBand(1000, 4999.99, 20);
  EXPECT_EQ(table->LST()->Item(1), upper);
  table->Update();
  EXPECT_EQ(table->LST()->Item(1)->Von, 5000);
  auto reloaded = Reloaded();
  ASSERT_EQ(reloaded->LST()->Count(), 2);
  EXPECT_EQ(reloaded->LST()->Item(1)->Von, 1000);
  EXPECT_EQ(reloaded->LST()->Item(2)->Von, 5000);
}

TEST_F(LSTTest, TheTaxRateIsReadToFourDecimalsAndTheOthersToTwo) {
  auto band = AddBand(1234.567, 2000, 36.51254);
  band->unbeschraenkt = 0.125;
  band->beschraenkt = 7.004;
  table->Update();
  auto loaded = Reloaded()->LST()->Item(1);
  EXPECT_EQ(loaded->steuersatz, 36.5125);
  EXPECT_EQ(loaded->Von, 1234.57);
  EXPECT_EQ(loaded->unbeschraenkt, 0.13);
  EXPECT_EQ(loaded->beschraenkt, 7.0);
}

TEST_F(LSTTest, ASaveRewritesEveryBandUnderNewIDs) {
  AddBand(0, 1000, 0);
  AddBand(1000, 2000, 20);
  AddBand(2000, 3000, 30);
  table->Update();
  EXPECT_EQ(StoredBands(), 3);
  auto loaded = Reloaded()->LST()->Item(2);
  std::string old_id = loaded->ID();
  EXPECT_EQ(ValueHelpers::ToText(StoredValue("Basiswerte_Zeittabelle_LST_Werte", "Von", "[ID]=" + old_id)), "1000");
  table->LST()->Remove(1);
  table->Update();
  EXPECT_EQ(StoredBands(), 2);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_LST_Werte", "[ID]=" + old_id), 0);
  table->LST()->Clear();
  table->Update();
  EXPECT_EQ(StoredBands(), 0);
}

TEST_F(LSTTest, ARefreshAppendsTheBandsUnlessTheListWasCleared) {
  AddBand(0, 1000, 0);
  AddBand(1000, 2000, 20);
  table->Update();
  table->Refresh();
  EXPECT_EQ(table->LST()->Count(), 4);
  table->LST()->Clear();
  table->Refresh();
  EXPECT_EQ(table->LST()->Count(), 2);
}

}  // namespace
