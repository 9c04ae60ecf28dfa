// The monthly pay record: defaults of a missing month, the month a save writes,
// rounding, the crossed total and the day text of casual employment.
#include <gtest/gtest.h>

#include "employee_fixture.h"
#include "ormelix/error.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

using LohnzettelTest = test::EmployeeTest;

TEST_F(LohnzettelTest, ANewEmployeeHasTheDefaultsInEveryMonth) {
  auto lohn = Loaded(manager, AddEmployee("Neu"));
  for (int month = 1; month <= 12; ++month) {
    EXPECT_EQ(lohn->UE_Laufend_Tage(month), 30) << month;
    EXPECT_EQ(lohn->op_Angestellter(month), -1) << month;
    EXPECT_EQ(lohn->op_KrankenscheinNetto(month), month == 11 ? -1 : 0) << month;
    EXPECT_EQ(lohn->Gehalt(month), 0);
  }
  EXPECT_EQ(lohn->UE_Laufend_Tage(0), 0);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel"), 0);  // a load creates no row
}

TEST_F(LohnzettelTest, AMonthWithARowTakesItsValuesAndNoDefaults) {
  const std::string id = AddEmployee("Zeile");
  AddPayRow(id, 202402);
  test::AddRow(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", id}, {"Zeitraum", 202302}, {"Gehalt", 7}});
  auto lohn = Loaded(manager, id);
  EXPECT_EQ(lohn->UE_Laufend_Tage(2), 0);
  EXPECT_EQ(lohn->op_Angestellter(2), 0);
  EXPECT_EQ(lohn->Gehalt(2), 0);  // the row of 2023 is not this year's
}

TEST_F(LohnzettelTest, TheMonthSavedIsPMonatOrAktMonat) {
  const std::string id = AddEmployee("Monat");
  auto lohn = Loaded(manager, id);
  lohn->Gehalt(3) = 3000;
  lohn->Gehalt(5) = 5000;
  lohn->Update(*manager, ucTableLohnzettel, 0);  // AktMonat is 3
  EXPECT_EQ(ToAmount(PayColumn(id, 202403, "Gehalt")), 3000);
  lohn->Update(*manager, ucTableLohnzettel, 5);
  EXPECT_EQ(ToAmount(PayColumn(id, 202405, "Gehalt")), 5000);
  lohn->Gehalt(5) = 5100;
  lohn->Update(*manager, ucTableLohnzettel, 5);  // the existing row changes in place
  EXPECT_EQ(ToAmount(PayColumn(id, 202405, "Gehalt")), 5100);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel"), 2);
  manager->AktJahr = 2025;  // a save after a change of year writes under the new key
  lohn->Update(*manager, ucTableLohnzettel, 5);
  EXPECT_EQ(ToAmount(PayColumn(id, 202505, "Gehalt")), 5100);
}

TEST_F(LohnzettelTest, AMonthOutsideOneToTwelveIsRefusedBeforeAnythingIsWritten) {
  const std::string id = AddEmployee("Kein Monat");
  auto lohn = Loaded(manager, id);
  manager->AktMonat = 0;
  EXPECT_THROW(lohn->Update(*manager, ucTableLohnzettel, 0), std::out_of_range);
  EXPECT_THROW(lohn->Update(*manager, ucTableLohnzettel, 13), std::out_of_range);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel"), 0);
}

TEST_F(LohnzettelTest, AnExistingRowIsWrittenInThreeStepsAndANewRowInOne) {
  const std::string id = AddEmployee("Schritte");
  auto lohn = Loaded(manager, id);
  lohn->Gehalt(3) = 100;          // before Covid19Bonus
  lohn->HomeofficeTage(3) = 4;    // before HomeofficePauschale
  lohn->Jobticket_Text(3) = "x";  // in the last step, which the store refuses
  RefuseRows("Mitarbeiter_Lohnzettel", "NEW.\"Jobticket_Text\" = 'x'");
  EXPECT_THROW(lohn->Update(*manager, ucTableLohnzettel, 3), StoreError);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel"), 0);  // a new row goes in whole or not at all
  AddPayRow(id, 202403);
  EXPECT_THROW(lohn->Update(*manager, ucTableLohnzettel, 3), StoreError);
  EXPECT_EQ(ToAmount(PayColumn(id, 202403, "Gehalt")), 100);
  EXPECT_EQ(ToInteger(PayColumn(id, 202403, "HomeofficeTage")), 4);
  EXPECT_TRUE(PayColumn(id, 202403, "Jobticket_Text").IsNull());
}

TEST_F(LohnzettelTest, AmountsAreRoundedOnTheWayToTheStoreOnly) {
  const std::string id = AddEmployee("Rundung");
  auto lohn = Loaded(manager, id);
  lohn->Gehalt(3) = 1234.565f;
  lohn->SV_Laufend_DG(3) = 10.126;  // a double written directly
  lohn->Update(*manager, ucTableLohnzettel, 3);
  EXPECT_EQ(lohn->Gehalt(3), 1234.565f);
  EXPECT_DOUBLE_EQ(ToAmount(PayColumn(id, 202403, "Gehalt")), 1234.57);
  EXPECT_DOUBLE_EQ(ToAmount(PayColumn(id, 202403, "SV_Laufend_DG")), 10.126);
  auto reloaded = Loaded(ReopenedSession(), id);
  EXPECT_EQ(reloaded->Gehalt(3), 1234.57f);
}

TEST_F(LohnzettelTest, SZUBAndThePercentagesOfOvertimeAreRoundedOnLoad) {
  const std::string id = AddEmployee("Laden");
  test::AddRow(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", id},
                                              {"Zeitraum", 202403},
                                              {"SZUB_Bauarbeiter", 1.005},
                                              {"Überstunden_50_Prozent", 50.5},
                                              {"Überstunden_100_Prozent", 51.5}});
  auto lohn = Loaded(manager, id);
  EXPECT_EQ(lohn->SZUB_Bauarbeiter(3), 1.01f);
  EXPECT_EQ(lohn->Ueberst__50_Prozent(3), 50);  // half to even
  EXPECT_EQ(lohn->Ueberst_100_Prozent(3), 52);
}

TEST_F(LohnzettelTest, MinderSonderBasisGesamtIsWrittenToItsColumnButReadFromTheLaufendOne) {
  const std::string id = AddEmployee("Minder");
  auto lohn = Loaded(manager, id);
  lohn->MinderSonderBasisGesamt(3) = 5;
  lohn->MinderLaufendBasisGesamt(3) = 7;
  lohn->Update(*manager, ucTableLohnzettel, 3);
  EXPECT_EQ(ToAmount(PayColumn(id, 202403, "MinderSonderBasisGesamt")), 5);
  EXPECT_EQ(ToAmount(PayColumn(id, 202403, "MinderLaufendBasisGesamt")), 7);
  auto reloaded = Loaded(manager, id);
  EXPECT_EQ(reloaded->MinderSonderBasisGesamt(3), 7);
  EXPECT_EQ(reloaded->MinderLaufendBasisGesamt(3), 7);
}

class FBTageTest : public test::EmployeeTest {
 protected:
  // Loads the employee with FB_Tage of March set to the text; gives the days set.
  std::string DaysAfterLoading(const std::string& text) {
    const std::string id = AddEmployee("Tage " + text);
    test::AddRow(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", id}, {"Zeitraum", 202403}, {"FB_Tage", text}});
    auto lohn = Loaded(manager, id);
    std::string days;
    for (int day = 0; day <= 31; ++day)
      if (lohn->FB_Fallweise(3)->Tage(day)) days += std::to_string(day) + " ";
    return days;
  }
};

TEST_F(FBTageTest, TheTextIsReadInPairsCountedByHalfItsLengthRoundedToEven) {
  EXPECT_EQ(DaysAfterLoading(""), "");
  EXPECT_EQ(DaysAfterLoading("0131"), "1 31 ");
  EXPECT_EQ(DaysAfterLoading("031428"), "3 14 28 ");
  EXPECT_EQ(DaysAfterLoading("01315"), "1 31 ");  // 2.5 pairs round to 2: the 5 is left out
  EXPECT_EQ(DaysAfterLoading("013"), "1 3 ");     // 1.5 rounds to 2: the 3 stands alone
  EXPECT_EQ(DaysAfterLoading("7"), "");           // 0.5 rounds to 0
  EXPECT_EQ(DaysAfterLoading("00"), "0 ");        // day 0 exists and is never written back
}

TEST_F(FBTageTest, ALoadClearsTheDaysAndASaveWritesThemInAscendingOrder) {
  const std::string id = AddEmployee("Schreiben");
  auto lohn = Loaded(manager, id);
  auto days = lohn->FB_Fallweise(3);
  days->Tage(0) = days->Tage(31) = days->Tage(1) = days->Tage(9) = true;
  lohn->Update(*manager, ucTableLohnzettel, 3);
  EXPECT_EQ(ToText(PayColumn(id, 202403, "FB_Tage")), "010931");
  db->Session().ExecuteSql("UPDATE [Mitarbeiter_Lohnzettel] SET [FB_Tage]=''");
  lohn->Refresh(*manager, ucTableLohnzettel);
  for (int day = 1; day <= 31; ++day) EXPECT_FALSE(days->Tage(day)) << day;
  EXPECT_TRUE(days->Tage(0));  // untouched by the load
}

TEST_F(FBTageTest, ADayOutsideTheMonthStopsTheLoadAtThatColumn) {
  const std::string id = AddEmployee("Falsch");
  test::AddRow(db, "Mitarbeiter_Lohnzettel",
               {{"MitarbeiterID", id}, {"Zeitraum", 202403}, {"Gehalt", 1}, {"FB_Tage", "0532"}, {"MVZuschlag", 2}});
  test::AddRow(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", id}, {"Zeitraum", 202404}, {"Gehalt", 4}});
  LLohn lohn;
  try {
    lohn.LoadMitarbeiter(*manager, id, 1);
    ADD_FAILURE() << "the load did not fail";
  } catch (const std::out_of_range& failure) {
    EXPECT_NE(std::string(failure.what()).find("Tage(32)"), std::string::npos) << failure.what();
  }
  EXPECT_EQ(lohn.Gehalt(3), 1);       // read before FB_Tage
  EXPECT_TRUE(lohn.FB_Fallweise(3)->Tage(5));
  EXPECT_EQ(lohn.MVZuschlag(3), 0);   // after it: not read
  EXPECT_EQ(lohn.Gehalt(4), 0);       // later months: not read
  EXPECT_THROW(DaysAfterLoading("0x"), ConversionError);
}

}  // namespace
