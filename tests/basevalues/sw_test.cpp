// The wage-group rates: the apprentice row read from group 3 and written to group 8.
#include <gtest/gtest.h>

#include "ormelix/basevalues/mod_basiswerte.h"
#include "ormelix/store/value_helpers.h"
#include "support/basis_values.h"

using namespace ormelix;

namespace {

class SWTest : public test::BasisStoreTest {
 protected:
  std::shared_ptr<LBasis> table = FolderWithTables("Standard", {202401})->Zeittabellen()->Item(1);

  Variant Stored(const LBasis& of, int group, const char* column) {
    return StoredValue("Basiswerte_Zeittabelle_SW_Werte", column,
                       "[SWID]=" + SubRowID("Basiswerte_Zeittabelle_SW", of) + " AND [DNGruppe]=" + std::to_string(group));
  }
};

TEST_F(SWTest, LehrlingArbeiterIsReadFromTheRowOfArbeiterAndWrittenToItsOwn) {
  auto& sw = *table->SW();
  sw.Arbeiter()->Prozent = 1.5;
  sw.Arbeiter()->grenze = 400;
  sw.LehrlingArbeiter()->Prozent = 2.5;
  table->Update();
  EXPECT_EQ(Stored(*table, 3, "Prozent"), Variant(1.5));
  EXPECT_EQ(Stored(*table, 8, "Prozent"), Variant(2.5));
  table->Refresh();
  EXPECT_EQ(sw.LehrlingArbeiter()->Prozent, 1.5);
  EXPECT_EQ(sw.LehrlingArbeiter()->grenze, 400);
  table->Update();  // a load and a save carry group 3 into group 8
  EXPECT_EQ(Stored(*table, 8, "Prozent"), Variant(1.5));
  EXPECT_EQ(Stored(*table, 8, "grenze"), Variant(400.0));
}

TEST_F(SWTest, ACopyHasTheRowsOfGroup3InGroup8) {
  table->SW()->Arbeiter()->USTeiler = 30;
  table->Update();
  SetStored("Basiswerte_Zeittabelle_SW_Werte", "USTeiler", 99.0,
            "[SWID]=" + SubRowID("Basiswerte_Zeittabelle_SW", *table) + " AND [DNGruppe]=8");
  auto copy = modBasiswerte::CopyZeittabelle(*session, table->ID(), table->BasisID(), 202501, "");
  ASSERT_TRUE(copy);
  EXPECT_EQ(Stored(*copy, 8, "USTeiler"), Variant(30.0));
  EXPECT_EQ(Stored(*table, 8, "USTeiler"), Variant(99.0));
}

TEST_F(SWTest, ValuesAreReadToTwoDecimalsAndBetragAsAWholeNumber) {
  std::string sw_id = SubRowID("Basiswerte_Zeittabelle_SW", *table);
  SetStored("Basiswerte_Zeittabelle_SW", "Betriebsrat", 1.005, "[ID]=" + sw_id);
  SetStored("Basiswerte_Zeittabelle_SW", "Betrag", 7, "[ID]=" + sw_id);
  SetStored("Basiswerte_Zeittabelle_SW_Werte", "Prozent", 12.345, "[SWID]=" + sw_id + " AND [DNGruppe]=11");
  SetStored("Basiswerte_Zeittabelle_SW_Werte", "grenze", Variant::NullValue(), "[SWID]=" + sw_id + " AND [DNGruppe]=1");
  table->SW()->Geschäftsführer()->grenze = 5;
  table->Refresh();
  EXPECT_EQ(table->SW()->Betriebsrat, 1.01);
  EXPECT_EQ(table->SW()->Betrag, 7);
  EXPECT_EQ(table->SW()->LehrlingForstArbeiter()->Prozent, 12.35);
  EXPECT_EQ(table->SW()->Geschäftsführer()->grenze, 0);  // Null reads as 0
}

TEST_F(SWTest, ATableWithoutRowsKeepsItsValuesAndGainsTheRowsAtTheNextSave) {
  std::string bare = test::AddRow(db, "Basiswerte_Zeittabelle", {{"BasisID", table->BasisID()}, {"Datum", 202501}});
  LBasis_SW sw;
  sw.Bauarbeiter()->Prozent = 4;
  modBasiswerte::LoadBasisSW(*session, sw, bare);
  EXPECT_EQ(sw.Bauarbeiter()->Prozent, 4);
  modBasiswerte::SaveBasisSW(*session, sw, bare);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_SW", "[ZeittabellenID]=" + bare), 1);
  std::string sw_id = ValueHelpers::ToText(StoredValue("Basiswerte_Zeittabelle_SW", "ID", "[ZeittabellenID]=" + bare));
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_SW_Werte", "[SWID]=" + sw_id), 11);
  modBasiswerte::SaveBasisSW(*session, sw, bare);  // a second save changes the rows in place
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_SW_Werte", "[SWID]=" + sw_id), 11);
}

}  // namespace
