// The employee object: its index ranges and children, the flags of Update and
// Refresh, the contribution account and the marked parts of wage-type lines.
#include <gtest/gtest.h>

#include "employee_fixture.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

using LohnTest = test::EmployeeTest;

void ExpectRangeFailure(const std::function<void()>& access, const std::string& names) {
  try {
    access();
    ADD_FAILURE() << names << " did not fail";
  } catch (const std::out_of_range& failure) {
    EXPECT_NE(std::string(failure.what()).find(names), std::string::npos) << failure.what();
  }
}

TEST(LLohn, MonthIndicesOutsideTheirRangeFailNamingPropertyAndIndex) {
  LLohn lohn;
  lohn.Gehalt(0) = 12.5f;
  EXPECT_EQ(lohn.Gehalt(0), 12.5f);
  ExpectRangeFailure([&] { lohn.Gehalt(13) = 1; }, "Gehalt(13)");
  ExpectRangeFailure([&] { (void)lohn.Gehalt(-1); }, "Gehalt(-1)");
  ExpectRangeFailure([&] { (void)lohn.op_PendlerDrittel(0); }, "op_PendlerDrittel(0)");
  ExpectRangeFailure([&] { (void)lohn.Sonstige_Abzuege_Text(0); }, "Sonstige_Abzuege_Text(0)");
  ExpectRangeFailure([&] { (void)lohn.ZSL_Betrag(7, 1, 1); }, "ZSL_Betrag(7)");
  ExpectRangeFailure([&] { (void)lohn.SonstigeAbz_Betrag(1, 13); }, "SonstigeAbz_Betrag(13)");
  ExpectRangeFailure([&] { (void)lohn.Sechstel(13); }, "Sechstel(13)");
  ExpectRangeFailure([&] { (void)lohn.Kurzarbeit(-1); }, "Kurzarbeit(-1)");
  ExpectRangeFailure([&] { lohn.FB_Fallweise(1)->Tage(32) = true; }, "Tage(32)");
  EXPECT_NO_THROW(lohn.op_PendlerDrittel(12) = 2);
  EXPECT_NO_THROW(lohn.ZSL_Betrag(6, 5, 0) = 1);
}

// A load makes a month's short-time record or benefit list only where the store
// has rows for it; the others come fresh at their first use, as if made with the
// employee, and a list the host filled is emptied by a load as before.
TEST_F(LohnTest, MonthlyRecordsWithoutRowsStayAsIfNewAndAFilledListIsEmptiedByALoad) {
  std::string id = AddEmployee("Huber");
  std::string march = AddPayRow(id, 202403);
  AddPayRow(id, 202404);
  test::AddRow(db, "Mitarbeiter_Lohnzettel_EL", {{"LohnzettelID", march}, {"Zeitraum", 202402}, {"SVTage", 3}});
  auto lohn = std::make_shared<LLohn>();
  lohn->SV_EL_Laufend(4)->Add(std::make_shared<LLohn_Ersatzleistung>());  // the host's, before the load
  lohn->LoadMitarbeiter(*manager, id, 1);
  EXPECT_EQ(lohn->SV_EL_Laufend(3)->Count(), 1);
  EXPECT_EQ(lohn->SV_EL_Laufend(4)->Count(), 0);  // emptied: the pay row has none
  EXPECT_EQ(lohn->SV_EL_Laufend(5)->Count(), 0);
  EXPECT_FALSE(lohn->Kurzarbeit(3)->IsKurzarbeit);
  EXPECT_EQ(lohn->Kurzarbeit(3), lohn->Kurzarbeit(3));
}

TEST(LLohn, MonthlyChildrenExistForMonthsOneToTwelveAndAreTheSameEachTime) {
  LLohn lohn;
  EXPECT_EQ(lohn.ID(), "");
  EXPECT_FALSE(lohn.Sechstel(0));
  EXPECT_FALSE(lohn.FB_Fallweise(0));
  EXPECT_FALSE(lohn.Uebertritt(0));
  EXPECT_FALSE(lohn.PendlerAR(0));
  EXPECT_FALSE(lohn.SV_EL_Laufend(0));
  EXPECT_FALSE(lohn.Kurzarbeit(0));
  for (int month = 1; month <= 12; ++month) {
    ASSERT_TRUE(lohn.Sechstel(month));
    EXPECT_EQ(lohn.Sechstel(month), lohn.Sechstel(month));
    EXPECT_EQ(lohn.SV_EL_Laufend(month)->Count(), 0);
  }
  EXPECT_NE(lohn.PendlerAR(1), lohn.PendlerAR(2));
  EXPECT_EQ(lohn.Mitarbeiter(), lohn.Mitarbeiter());
  LLohn_Arbeiter_ALVBGruppe alv;
  EXPECT_NE(alv.N15g(), alv.N25n());
  EXPECT_EQ(alv.N15m(), alv.N15m());
}

// Two lines of group t in month 4: 2 x 25.00 marked, and 50.00 unmarked.
void TwoLines(LLohn& lohn, int t, MonthGrid<bool, 1, 5>& marking) {
  lohn.ZSL_Anzahl(t, 1, 4) = 2;
  lohn.ZSL_Satz(t, 1, 4) = 25;
  marking(1, 4) = true;
  lohn.ZSL_Betrag(t, 2, 4) = 50;
}

TEST(LLohn, TheMarkedPartCountsOnlyWhenTheLinesAddUpToTheBase) {
  LLohn lohn;
  TwoLines(lohn, 1, lohn.ZSL_DBDZKST_frei);
  EXPECT_EQ(lohn.GetDBDZKST_frei(4), 0);  // no base amount
  lohn.LFD_Bezuege(4) = 100.004f;         // rounds to the lines' 100.00
  EXPECT_DOUBLE_EQ(lohn.GetDBDZKST_frei(4), 50);
  lohn.LFD_Bezuege(4) = 100.01f;
  EXPECT_EQ(lohn.GetDBDZKST_frei(4), 0);
  lohn.LFD_Bezuege(4) = 100;
  lohn.ZSL_Betrag(2, 3, 4) = 99;  // lines of another group do not count here
  EXPECT_DOUBLE_EQ(lohn.GetDBDZKST_frei(4), 50);
  EXPECT_EQ(lohn.GetDBDZKST_frei(5), 0);
}

TEST(LLohn, EachGetReadsItsGroupBaseAndMarking) {
  LLohn lohn;
  TwoLines(lohn, 2, lohn.ZSL_Teuerungsprämie);
  lohn.LFD_Bezuege_LS_frei(4) = 100;
  EXPECT_DOUBLE_EQ(lohn.GetTeuerungsprämie(4), 50);
  EXPECT_EQ(lohn.GetTeuerungsprämieKV(4), 0);  // its own flag is not set
  lohn.ZSL_TeuerungsprämieKV(2, 4) = true;
  EXPECT_DOUBLE_EQ(lohn.GetTeuerungsprämieKV(4), 50);
  TwoLines(lohn, 3, lohn.ZSL_Mitarbeitergewinnbeteiligung);
  EXPECT_EQ(lohn.GetMitarbeitergewinnbeteiligung(4), 0);  // its base is LFD_Bezuege_LS_frei_pfl
  lohn.LFD_Bezuege_LS_frei_pfl(4) = 100;
  EXPECT_DOUBLE_EQ(lohn.GetMitarbeitergewinnbeteiligung(4), 50);
}

TEST_F(LohnTest, TheContributionAccountInForceIsTheNewestNotAfterThePeriod) {
  const std::string id = AddEmployee("Konto");
  auto lohn = Loaded(manager, id);
  EXPECT_EQ(lohn->BeitragskontoID(*manager, 202406), "");
  test::AddRow(db, "Mitarbeiter_Beitragskonto", {{"MitarbeiterID", id}, {"Zeitraum", 202401}, {"BeitragskontoID", "B"}});
  test::AddRow(db, "Mitarbeiter_Beitragskonto", {{"MitarbeiterID", id}, {"Zeitraum", 202301}, {"BeitragskontoID", "A"}});
  EXPECT_EQ(lohn->BeitragskontoID(*manager, 202212), "");
  EXPECT_EQ(lohn->BeitragskontoID(*manager, 202301), "A");
  EXPECT_EQ(lohn->BeitragskontoID(*manager, 202312), "A");
  EXPECT_EQ(lohn->BeitragskontoID(*manager, 202406), "B");
}

TEST_F(LohnTest, UpdateWithFlagsThatHaveNoTableWritesNothing) {
  const std::string id = AddEmployee("Ohne");
  auto lohn = Loaded(manager, id);
  lohn->Mitarbeiter()->FName = "Geändert";
  lohn->Update(*manager, ucTableKinder | ucTableLaufbahn | ucTableSendedaten, 3);
  EXPECT_EQ(ToText(Stored("Mitarbeiter", "[ID]=" + SqlID(id), "Familienname")), "Ohne");
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel"), 0);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Bankverbindung"), 0);
  lohn->Update(*manager, ucAllTables, 5);  // all tables; the pay record of May
  EXPECT_EQ(ToText(Stored("Mitarbeiter", "[ID]=" + SqlID(id), "Familienname")), "Geändert");
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Bankverbindung"), 1);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel", "[Zeitraum]=202405"), 1);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel"), 1);
}

TEST_F(LohnTest, RefreshReadsOnlyTheFlaggedTables) {
  const std::string id = AddEmployee("Alt");
  AddPayRow(id, 202403);
  auto lohn = Loaded(manager, id);
  db->Session().ExecuteSql("UPDATE [Mitarbeiter] SET [Familienname]='Neu'");
  db->Session().ExecuteSql("UPDATE [Mitarbeiter_Lohnzettel] SET [Gehalt]=2500");
  lohn->Refresh(*manager, ucTableMitarbeiter);
  EXPECT_EQ(lohn->Mitarbeiter()->FName, "Neu");
  EXPECT_EQ(lohn->Gehalt(3), 0);
  lohn->Refresh(*manager, ucAllTables);
  EXPECT_EQ(lohn->Gehalt(3), 2500);
  EXPECT_EQ(lohn->ID(), id);  // identity stays
}

TEST_F(LohnTest, ARefreshUnderAnotherYearRefillsTheMonthsFoundAndDefaultsTheOthers) {
  const std::string id = AddEmployee("Jahreswechsel");
  test::AddRow(db, "Mitarbeiter_Lohnzettel",
               {{"MitarbeiterID", id}, {"Zeitraum", 202403}, {"Gehalt", 100}, {"UE_Laufend_Tage", 12}});
  test::AddRow(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", id}, {"Zeitraum", 202504}, {"Gehalt", 200}});
  auto lohn = Loaded(manager, id);
  EXPECT_EQ(lohn->Gehalt(3), 100);
  EXPECT_EQ(lohn->Gehalt(4), 0);
  manager->AktJahr = 2025;
  EXPECT_EQ(lohn->Gehalt(3), 100);  // a change of year alone reloads nothing
  lohn->Refresh(*manager, ucTableLohnzettel);
  EXPECT_EQ(lohn->Gehalt(4), 200);
  EXPECT_EQ(lohn->Gehalt(3), 100);           // no row in 2025: the old value stays...
  EXPECT_EQ(lohn->UE_Laufend_Tage(3), 30);  // ...beside the defaults
}

TEST_F(LohnTest, ElementZeroIsNeitherSavedNorLoaded) {
  const std::string id = AddEmployee("Null");
  test::AddRow(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", id}, {"Zeitraum", 202400}, {"Gehalt", 9}});
  auto lohn = Loaded(manager, id);
  EXPECT_EQ(lohn->Gehalt(0), 0);
  lohn->Gehalt(0) = 5;
  lohn->Update(*manager, ucTableLohnzettel, 3);
  EXPECT_EQ(ToAmount(PayColumn(id, 202403, "Gehalt")), 0);
  EXPECT_EQ(ToAmount(PayColumn(id, 202400, "Gehalt")), 9);
}

}  // namespace
