// The employer contributions: 128 rows per table, the apprentice lengths, the 2016
// groups, the reduced FALAST and the crooked write of group 23.
#include <gtest/gtest.h>

#include "ormelix/basevalues/basisdaten.h"
#include "ormelix/store/value_helpers.h"
#include "support/basis_values.h"

using namespace ormelix;

namespace {

class DGTest : public test::BasisStoreTest {
 protected:
  std::shared_ptr<clsBasisordner> folder = FolderWithTables("Standard", {202401});
  std::shared_ptr<LBasis> table = folder->Zeittabellen()->Item(1);
  LBasis_DG& dg = *table->DG();

  std::string Row(int group, int sortnr = 0) {
    std::string where = "[DGID]=" + SubRowID("Basiswerte_Zeittabelle_DG", *table) + " AND [DNGruppe]=" +
                        std::to_string(group);
    return sortnr ? where + " AND [SortNr]=" + std::to_string(sortnr) : where;
  }
  Variant Stored(const char* column, int group, int sortnr = 0) {
    return StoredValue("Basiswerte_Zeittabelle_DG_Werte", column, Row(group, sortnr));
  }
};

TEST_F(DGTest, GetFALASTGivesTheReducedRateOnlyWithTheFlag) {
  dg.FALAST()->Arbeiter = 3.7;
  dg.FALASTLGV()->Arbeiter = 3.3;
  dg.FALAST()->Ferialpraktikant = 1.1;
  dg.FALAST()->LehrlingArbeiter1(eBasis3Lehrjahre) = 0.5;
  dg.FALASTLGV()->LehrlingArbeiter1(eBasis3Lehrjahre) = 0.4;
  EXPECT_EQ(dg.GetFALASTArbeiter(true), 3.3);
  EXPECT_EQ(dg.GetFALASTArbeiter(false), 3.7);
  EXPECT_EQ(dg.GetFALASTFerialpraktikant(false), 1.1);
  EXPECT_EQ(dg.GetFALASTLehrlingArbeiter1(eBasis3Lehrjahre, true), 0.4);
  EXPECT_EQ(dg.GetFALASTLehrlingArbeiter1(eBasis3Lehrjahre, false), 0.5);
  EXPECT_THROW(dg.GetFALASTLehrlingArbeiter1(5, false), std::out_of_range);
  EXPECT_THROW(dg.GetFALASTLehrlingForstArbeiter5(-1, true), std::out_of_range);
}

TEST_F(DGTest, ATableHas128RowsAndTheValuesLieInTheRowOfTheirGroup) {
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_DG_Werte"), 128);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_DG_Werte", "[SortNr] IS NULL"), 8);
  dg.Kindergeld = 3.9;
  dg.DZBL(eBasisWien)->Arbeiter = 0.29;
  dg.SV_Sonderzahlung()->LehrlingAngestellte3(eBasis4Lehrjahre) = 17.5;
  dg.Produktivitaetsfaktor()->Geschäftsführer = 1.25;
  table->Update();
  EXPECT_EQ(Stored("DZBL_W", eBasisDGArbeiter), Variant(0.29));
  EXPECT_EQ(Stored("SV_Sonderzahlung", eBasisDGLehrlingAngestellte3, eBasis4Lehrjahre), Variant(17.5));
  EXPECT_EQ(Stored("Produktivitaetsfaktor", eBasisDGGeschäftsführer), Variant(1.25));
  SetStored("Basiswerte_Zeittabelle_DG_Werte", "DZBL_W", 0.125, Row(eBasisDGArbeiter));
  SetStored("Basiswerte_Zeittabelle_DG_Werte", "Kommunalsteuer", Variant::NullValue(), Row(eBasisDGAngestellte));
  dg.Kommunalsteuer()->Angestellte = 3;
  table->Refresh();
  EXPECT_EQ(dg.DZBL(eBasisWien)->Arbeiter, 0.13);
  EXPECT_EQ(dg.Kommunalsteuer()->Angestellte, 0);
  EXPECT_EQ(dg.Kindergeld, 3.9);
  EXPECT_EQ(dg.DZBL(0), nullptr);
  EXPECT_THROW(dg.DZBL(10), std::out_of_range);
  EXPECT_THROW(dg.SetDZBL(eBasisTirol, nullptr), Error);
}

TEST_F(DGTest, ASaveWritesTheReducedRateOfGroup19IntoGroup23) {
  dg.FALASTLGV()->LehrlingForstArbeiter1(2) = 0.5;
  dg.FALASTLGV()->LehrlingForstArbeiter5(2) = 1.5;
  dg.FALAST()->LehrlingForstArbeiter5(2) = 2.5;
  table->Update();
  EXPECT_EQ(Stored("FALASTLGV", eBasisdgLehrlingForstArbeiter5, 2), Variant(0.5));
  EXPECT_EQ(Stored("FALAST", eBasisdgLehrlingForstArbeiter5, 2), Variant(2.5));
  // The load reads the column straight; the next save crooks it again.
  SetStored("Basiswerte_Zeittabelle_DG_Werte", "FALASTLGV", 3.3, Row(eBasisdgLehrlingForstArbeiter5, 2));
  table->Refresh();
  EXPECT_EQ(dg.FALASTLGV()->LehrlingForstArbeiter5(2), 3.3);
  table->Update();
  EXPECT_EQ(Stored("FALASTLGV", eBasisdgLehrlingForstArbeiter5, 2), Variant(0.5));
}

TEST_F(DGTest, The2016GroupsCarryOnlyTheirTwoSocialInsuranceColumns) {
  SetStored("Basiswerte_Zeittabelle_DG_Werte", "SV_Laufend2016", 1.23, Row(eBasisDGLehrlingArbeiter12016, 1));
  SetStored("Basiswerte_Zeittabelle_DG_Werte", "SV_Laufend", 9.0, Row(eBasisDGLehrlingArbeiter12016, 1));
  SetStored("Basiswerte_Zeittabelle_DG_Werte", "FALAST", 5.0, Row(eBasisDGLehrlingArbeiter12016, 1));
  table->Refresh();
  EXPECT_EQ(dg.SV_Laufend()->LehrlingArbeiter12016(eBasis2Lehrjahre), 1.23);
  EXPECT_EQ(dg.FALAST()->LehrlingArbeiter12016(eBasis2Lehrjahre), 0);
  dg.SV_Sonderzahlung()->LehrlingForstArbeiter52016(4) = 2.2;
  dg.FALAST()->LehrlingForstArbeiter52016(4) = 7;  // has no column to go to
  table->Update();
  EXPECT_EQ(Stored("SV_Sonderzahlung2016", eBasisdgLehrlingForstArbeiter52016, 4), Variant(2.2));
  EXPECT_EQ(Stored("FALAST", eBasisdgLehrlingForstArbeiter52016, 4), Variant(0.0));
  EXPECT_EQ(Stored("SV_Laufend", eBasisDGLehrlingArbeiter12016, 1), Variant(9.0));  // left as it was
  // A table without the 2016 rows gains them at its next save.
  db->Session().ExecuteSql("DELETE * FROM [Basiswerte_Zeittabelle_DG_Werte] WHERE [DNGruppe]>=26", true);
  table->Update();
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_DG_Werte"), 128);
}

TEST_F(DGTest, RowsOfOtherGroupsAreSkippedAndAnApprenticeLengthOutsideTheRangeFails) {
  std::string dg_id = SubRowID("Basiswerte_Zeittabelle_DG", *table);
  test::AddRow(db, "Basiswerte_Zeittabelle_DG_Werte", {{"DGID", dg_id}, {"DNGruppe", 24}, {"SV_Laufend", 9.0}});
  test::AddRow(db, "Basiswerte_Zeittabelle_DG_Werte", {{"DGID", dg_id}, {"DNGruppe", 41}, {"SV_Laufend", 9.0}});
  SetStored("Basiswerte_Zeittabelle_DG_Werte", "SortNr", 9, Row(eBasisDGArbeiter));  // not read for groups 1 to 8
  table->Refresh();
  EXPECT_EQ(dg.SV_Laufend()->Arbeiter, 0);
  EXPECT_THROW(dg.SV_Laufend()->Wert(24, 1), std::out_of_range);

  SetStored("Basiswerte_Zeittabelle_DG_Werte", "SortNr", 7, Row(eBasisdgLehrlingAngestellte2, 3));
  try {
    Reopened();
    FAIL() << "no failure";
  } catch (const std::out_of_range& failure) {
    std::string message = failure.what();
    EXPECT_NE(message.find("Basiswerte_Zeittabelle_DG_Werte"), std::string::npos) << message;
    EXPECT_NE(message.find("DNGruppe 15"), std::string::npos) << message;
    EXPECT_NE(message.find("SortNr 7"), std::string::npos) << message;
  }
}

}  // namespace
