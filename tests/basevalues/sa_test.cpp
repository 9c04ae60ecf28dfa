// The contribution rates by insurance group, and the marginal-employment row that
// shares its limit with them.
#include <gtest/gtest.h>

#include <utility>

#include "ormelix/basevalues/mod_basiswerte.h"
#include "ormelix/store/value_helpers.h"
#include "support/basis_values.h"

using namespace ormelix;

namespace {

class SATest : public test::BasisStoreTest {
 protected:
  std::shared_ptr<clsBasisordner> folder = FolderWithTables("Standard", {202401});
  std::shared_ptr<LBasis> table = folder->Zeittabellen()->Item(1);

  std::string SAWerte(int group) {
    return "[SAID]=" + SubRowID("Basiswerte_Zeittabelle_SA", *table) + " AND [VGruppe]=" + std::to_string(group);
  }
  std::string DGMWerte(int group) {
    return "[DGID]=" + SubRowID("Basiswerte_Zeittabelle_DG_Geringfügig", *table) +
           " AND [DNGruppe]=" + std::to_string(group);
  }
};

TEST_F(SATest, EveryInsuranceGroupReadsItsOwnRow) {
  for (int group = 1; group <= 16; ++group) SetStored("Basiswerte_Zeittabelle_SA_Werte", "Prozent_DN", group, SAWerte(group));
  table->Refresh();
  const LBasis_SA& sa = *table->SA();
  const std::pair<const LBasis_SA::Wert&, int> expected[] = {
      {sa.Arbeitslosenversicherung(), 1},
      {sa.Krankenversicherung(), 2},
      {sa.KrankenversicherungArbeiter(), 3},
      {sa.KrankenversicherungAngestellte(), 4},
      {sa.KrankenversicherungFreierMitarbeiter(), 5},
      {sa.Pensionsversicherung(), 6},
      {sa.Kammerumlage(), 7},
      {sa.LandArbeiterKammerumlage(), 8},
      {sa.Wohnbaufoederung(), 9},
      {sa.Schlechtwetter(), 10},
      {sa.Unfallversicherung(), 11},
      {sa.IESGZuschlag(), 12},
      {sa.Nachtschwerarbeit(), 13},
      {sa.ArbeitslosenversicherungLehrlinge2016(), 14},
      {sa.KrankenversicherungLehrlinge2016(), 15},
      {sa.KrankenversicherungLehrlingeBis2016(), 16}};
  for (const auto& [wert, group] : expected) EXPECT_EQ(wert->Prozent, group) << "VGruppe " << group;
  EXPECT_EQ(sa.GrenzbetragGeringBeschaeftigte()->Prozent, 0);
}

TEST_F(SATest, RatesAreRoundedToTwoDecimalsButTheThreeFlatValuesAreNot) {
  SetStored("Basiswerte_Zeittabelle_SA_Werte", "Prozent_DN", 3.825, SAWerte(2));
  SetStored("Basiswerte_Zeittabelle_SA_Werte", "Sonderzahlung", 1.114, SAWerte(2));
  std::string sa_row = "[ZeittabellenID]=" + table->ID();
  SetStored("Basiswerte_Zeittabelle_SA", "ServiceEntgelt", 12.345, sa_row);
  SetStored("Basiswerte_Zeittabelle_SA", "Auflösungsabgabe", 131.001, sa_row);
  SetStored("Basiswerte_Zeittabelle_SA", "BeitragssatzAÜG", 0.3333, sa_row);
  table->Refresh();
  EXPECT_EQ(table->SA()->Krankenversicherung()->Prozent, 3.83);
  EXPECT_EQ(table->SA()->Krankenversicherung()->Sonderzahlung, 1.11);
  EXPECT_EQ(table->SA()->ServiceEntgelt, 12.345);
  EXPECT_EQ(table->SA()->Auflösungsabgabe, 131.001);
  EXPECT_EQ(table->SA()->BeitragssatzAÜG, 0.3333);
}

TEST_F(SATest, ProzentGesamtAddsBothSharesAndLohnStufeIsNeverStored) {
  auto& kv = *table->SA()->Krankenversicherung();
  kv.Prozent = 3;
  kv.Prozent_DG = 3.5;
  EXPECT_EQ(kv.ProzentGesamt(), 6.5);
  table->SA()->LohnStufe = 4;
  table->Update();
  auto reloaded = Reopened()->Basis()->Item(folder->ID())->Zeittabellen()->Item(1);
  EXPECT_EQ(reloaded->SA()->LohnStufe, 0);
  EXPECT_EQ(reloaded->SA()->Krankenversicherung()->ProzentGesamt(), 6.5);
}

TEST_F(SATest, WithoutTheRowTheFlatValuesReadAsZeroAndTheGroupsStay) {
  table->SA()->ServiceEntgelt = 12.3;
  table->SA()->Pensionsversicherung()->Prozent = 10.25;
  db->Session().ExecuteSql("DELETE * FROM [Basiswerte_Zeittabelle_SA] WHERE [ZeittabellenID]=" + table->ID(), true);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_SA_Werte"), 0);  // gone by cascade
  modBasiswerte::LoadBasisSA(*session, *table->SA(), table->ID());
  EXPECT_EQ(table->SA()->ServiceEntgelt, 0);
  EXPECT_EQ(table->SA()->Pensionsversicherung()->Prozent, 10.25);
  modBasiswerte::SaveBasisSA(*session, *table->SA(), table->ID());
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_SA", "[ZeittabellenID]=" + table->ID()), 1);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_SA_Werte"), 16);
}

TEST_F(SATest, TheMarginalEmploymentRowFeedsTheLimitOfSA) {
  auto& limit = *table->SA()->GrenzbetragGeringBeschaeftigte();
  limit.Prozent = 19.4;
  limit.Obergrenze = 518.44;
  limit.Prozent_DG = 1;      // stored nowhere
  limit.Sonderzahlung = 2;   // stored nowhere
  table->DGM()->GrenzbetragMinderBeschaeftigte = 777.66;
  table->Update();
  std::string row = "[ZeittabellenID]=" + table->ID();
  EXPECT_EQ(StoredValue("Basiswerte_Zeittabelle_DG_Geringfügig", "Grenzbetrag", row), Variant(518.44));
  EXPECT_EQ(StoredValue("Basiswerte_Zeittabelle_DG_Geringfügig", "Prozent", row), Variant(19.4));
  EXPECT_EQ(StoredValue("Basiswerte_Zeittabelle_DG_Geringfügig", "Lohnsumme", row), Variant(777.66));
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_SA_Werte", "[VGruppe]>16 OR [VGruppe]<1"), 0);
  SetStored("Basiswerte_Zeittabelle_DG_Geringfügig", "Grenzbetrag", 551.1, row);
  auto reloaded = Reopened()->Basis()->Item(folder->ID())->Zeittabellen()->Item(1);
  const auto& loaded = *reloaded->SA()->GrenzbetragGeringBeschaeftigte();
  EXPECT_EQ(loaded.Obergrenze, 551.1);
  EXPECT_EQ(loaded.Prozent, 19.4);
  EXPECT_EQ(loaded.Prozent_DG, 0);
  EXPECT_EQ(loaded.Sonderzahlung, 0);
  EXPECT_EQ(reloaded->DGM()->GrenzbetragMinderBeschaeftigte, 777.66);
}

TEST_F(SATest, MarginalRatesComeFromGroup24ForAngestellteAnd25ForArbeiter) {
  SetStored("Basiswerte_Zeittabelle_DG_Geringfügig_Werte", "DZ", 0.333, DGMWerte(24));
  SetStored("Basiswerte_Zeittabelle_DG_Geringfügig_Werte", "DZ", 0.444, DGMWerte(25));
  SetStored("Basiswerte_Zeittabelle_DG_Geringfügig_Werte", "UBahn", 2, DGMWerte(25));
  // Rows of these groups in the employer contributions are other rows.
  std::string dg_id = SubRowID("Basiswerte_Zeittabelle_DG", *table);
  test::AddRow(db, "Basiswerte_Zeittabelle_DG_Werte", {{"DGID", dg_id}, {"DNGruppe", 24}, {"SV_Laufend", 9.0}});
  table->Refresh();
  EXPECT_EQ(table->DGM()->DZ()->Angestellte, 0.33);
  EXPECT_EQ(table->DGM()->DZ()->Arbeiter, 0.44);
  EXPECT_EQ(table->DGM()->U_Bahn()->Arbeiter, 2);
  EXPECT_EQ(table->DGM()->SV_Laufend()->Angestellte, 0);
  table->DGM()->FALASTLGV()->Angestellte = 3.7;
  table->Update();
  EXPECT_EQ(StoredValue("Basiswerte_Zeittabelle_DG_Geringfügig_Werte", "FALASTLGV", DGMWerte(24)), Variant(3.7));
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_DG_Geringfügig_Werte"), 2);
}

}  // namespace
