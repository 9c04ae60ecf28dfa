// Transfers between contribution groups: the row of AktMonat that a save writes,
// the months of the year that a load picks from all of the employee's rows.
#include <gtest/gtest.h>

#include "employee_fixture.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

class UebertritteTest : public test::EmployeeTest {
 protected:
  std::string id = AddEmployee("Lehrling");

  std::string Period(std::int32_t zeitraum) {
    return "[MitarbeiterID]=" + SqlID(id) + " AND [Zeitraum]=" + std::to_string(zeitraum);
  }
  void AddTransfer(std::int32_t zeitraum, int from, int to, const std::string& code) {
    test::AddRow(db, "Mitarbeiter_Übertritte",
                 {{"MitarbeiterID", id}, {"Zeitraum", zeitraum}, {"Beitragsgruppe1", from}, {"Beitragsgruppe2", to},
                  {"BeitragsgruppeKürzel2", code}});
  }
};

TEST_F(UebertritteTest, ASaveWritesTheRowOfAktMonatOnlyAndLeavesTheOtherMonthsAlone) {
  AddTransfer(202401, 1, 2, "Jänner");
  auto lohn = Loaded(manager, id);
  EXPECT_EQ(lohn->Uebertritt(1)->BEGR2, 2);
  lohn->Uebertritt(1)->BEGR2 = 9;  // changed in memory, but January is not saved
  lohn->Uebertritt(2)->BEGR2 = 9;
  LLohn_Übertritt& march = *lohn->Uebertritt(3);
  march.Datum = DateHelpers::DateSerial(2024, 3, 16);
  march.BEGR1 = 60;
  march.BEGR2 = 1;
  march.BEGRKürzel1 = "B1";
  march.BEGRKürzel2 = "D1";
  march.LehrJahre = 3;
  lohn->Update(*manager, ucTableÜbertritte);
  lohn->Update(*manager, ucTableÜbertritte);  // the second save changes the row in place
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Übertritte"), 2);
  EXPECT_EQ(ToInteger(Stored("Mitarbeiter_Übertritte", Period(202401), "Beitragsgruppe2")), 2);
  EXPECT_EQ(ToText(Stored("Mitarbeiter_Übertritte", Period(202403), "BeitragsgruppeKürzel2")), "D1");
  EXPECT_EQ(ToDate(Stored("Mitarbeiter_Übertritte", Period(202403), "Datum")), DateHelpers::DateSerial(2024, 3, 16));

  // A month without a transfer gets its row too, with zeros and empty codes.
  manager->AktMonat = 4;
  lohn->Update(*manager, ucTableÜbertritte);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Übertritte"), 3);
  EXPECT_EQ(ToInteger(Stored("Mitarbeiter_Übertritte", Period(202404), "Beitragsgruppe1")), 0);
  EXPECT_EQ(ToText(Stored("Mitarbeiter_Übertritte", Period(202404), "BeitragsgruppeKürzel1")), "");
}

TEST_F(UebertritteTest, BasesAreStoredWithTwoDecimalsAndComeBackInSinglePrecision) {
  auto lohn = Loaded(manager, id);
  lohn->Uebertritt(3)->Basis1 = 1234.565f;
  lohn->Uebertritt(3)->Basis2 = 2345.674f;
  lohn->Update(*manager, ucTableÜbertritte);
  EXPECT_EQ(ToAmount(Stored("Mitarbeiter_Übertritte", Period(202403), "Basis1")), 1234.57);
  EXPECT_EQ(ToAmount(Stored("Mitarbeiter_Übertritte", Period(202403), "Basis2")), 2345.67);
  auto reloaded = Loaded(ReopenedSession(), id);
  EXPECT_EQ(reloaded->Uebertritt(3)->Basis1, 1234.57f);
  EXPECT_EQ(reloaded->Uebertritt(3)->Basis2, 2345.67f);
}

TEST_F(UebertritteTest, ALoadPicksTheMonthsOfTheYearAndClearsNothing) {
  AddTransfer(202306, 1, 2, "voriges Jahr");
  AddTransfer(202409, 1, 2, "erste");
  AddTransfer(202409, 1, 3, "zweite");
  auto lohn = std::make_shared<LLohn>();
  lohn->Uebertritt(5)->BEGRKürzel2 = "im Speicher";
  lohn->LoadMitarbeiter(*manager, id, 1);
  EXPECT_EQ(lohn->Uebertritt(6)->BEGRKürzel2, "");  // June of another year is passed over
  EXPECT_EQ(lohn->Uebertritt(9)->BEGRKürzel2, "zweite");  // of two rows of a month the last one wins
  EXPECT_EQ(lohn->Uebertritt(9)->BEGR2, 3);
  EXPECT_EQ(lohn->Uebertritt(5)->BEGRKürzel2, "im Speicher");

  db->Session().ExecuteSql("DELETE * FROM [Mitarbeiter_Übertritte]");
  lohn->Refresh(*manager, ucTableÜbertritte);
  EXPECT_EQ(lohn->Uebertritt(9)->BEGRKürzel2, "zweite");  // no rows: the values in memory stay
}

}  // namespace
