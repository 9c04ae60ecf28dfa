// The short-time row beside a pay month: saved and loaded with the pay record,
// one row per pay row, the hours before short-time work stored as their getter
// gives them, and nothing written where a figure is no number.
#include <gtest/gtest.h>

#include <cmath>

#include "employee/employee_fixture.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/error.h"
#include "support/column_fill.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

constexpr const char* kTable = "Mitarbeiter_Lohnzettel_Kurzarbeit";

class KurzarbeitRow : public test::EmployeeTest {
 protected:
  std::string employee = AddEmployee("Kurz");
  std::string PayRowOf(std::int32_t period) { return ToText(PayColumn(employee, period, "ID")); }
  std::string RowOf(const std::string& pay_row) { return "[LohnzettelID]=" + SqlID(pay_row); }
};

class KurzarbeitRows : public KurzarbeitRow, public ::testing::WithParamInterface<int> {};

TEST_P(KurzarbeitRows, EveryColumnIsStoredWithThePayMonthAndComesBackInANewSession) {
  const int phase = GetParam();
  auto lohn = Loaded(manager, employee);
  LLohn_Kurzarbeit& k = *lohn->Kurzarbeit(4);
  const auto& columns = modDatabase::KurzarbeitColumns();
  test::FillAll(columns, k, phase);
  k.SetStundenVorKurzarbeit(12.5);
  const auto written = test::Written(columns, k);
  lohn->Update(*manager, ucTableLohnzettel, 4);

  const std::string pay_row = PayRowOf(202404);
  test::ExpectStored(db, written, kTable, RowOf(pay_row));
  // The hours before short-time work go in as the getter gives them: 0 for a
  // month that is wholly short-time work.
  EXPECT_EQ(ToAmount(Stored(kTable, RowOf(pay_row), "StundenVorKurzarbeit")), k.IsZeitraumAliquot ? 12.5 : 0);
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Lohnzettel_Kurzarbeit]");
  test::ExpectEveryColumnDeclared(columns, *rs, {"ID", "Nr", "LohnzettelID"});
  test::ExpectDistinctProperties(columns, k);

  auto reloaded = Loaded(ReopenedSession(), employee);
  test::ExpectLoaded(columns, *reloaded->Kurzarbeit(4), written);
  EXPECT_EQ(reloaded->Kurzarbeit(4)->StundenVorKurzarbeit(), k.IsZeitraumAliquot ? 12.5 : 0);
  EXPECT_FALSE(reloaded->Kurzarbeit(5)->IsKurzarbeit);  // a month without a pay row
}

INSTANTIATE_TEST_SUITE_P(FlagsOnAndOff, KurzarbeitRows, ::testing::Values(0, 1));

TEST_F(KurzarbeitRow, SavingAMonthTwiceChangesItsOneRow) {
  auto lohn = Loaded(manager, employee);
  LLohn_Kurzarbeit& k = *lohn->Kurzarbeit(3);
  EXPECT_FALSE(k.IsKurzarbeit);  // a fresh record is all zero
  EXPECT_EQ(k.Gehalt, 0);
  k.IsKurzarbeit = true;
  k.Gehalt = 1000;
  lohn->Update(*manager, ucTableLohnzettel, 3);
  k.Gehalt = 1250.5;
  lohn->Update(*manager, ucTableLohnzettel, 3);
  EXPECT_EQ(test::CountRows(db, kTable), 1);
  EXPECT_EQ(ToAmount(Stored(kTable, RowOf(PayRowOf(202403)), "Gehalt")), 1250.5);
  EXPECT_EQ(ToLong(Stored(kTable, RowOf(PayRowOf(202403)), "IsKurzarbeit")), -1);
}

TEST_F(KurzarbeitRow, AMonthWithoutARowKeepsWhatItsRecordHeld) {
  const std::string pay_row = AddPayRow(employee, 202402);  // a pay row, but no short-time row
  auto lohn = Loaded(manager, employee);
  lohn->Kurzarbeit(2)->Gehalt = 77;
  lohn->Kurzarbeit(6)->Gehalt = 66;  // no pay row at all
  lohn->Refresh(*manager, ucTableLohnzettel);
  EXPECT_EQ(lohn->Kurzarbeit(2)->Gehalt, 77);
  EXPECT_EQ(lohn->Kurzarbeit(6)->Gehalt, 66);
  EXPECT_EQ(test::CountRows(db, kTable), 0);  // a load writes nothing

  // Once another session has written the row, a refresh reads it.
  test::AddRow(db, kTable, {{"LohnzettelID", pay_row}, {"Gehalt", 1900.0}, {"IsKurzarbeit", -1}});
  lohn->Refresh(*manager, ucTableLohnzettel);
  EXPECT_EQ(lohn->Kurzarbeit(2)->Gehalt, 1900);
  EXPECT_TRUE(lohn->Kurzarbeit(2)->IsKurzarbeit);
}

TEST_F(KurzarbeitRow, AFigureThatIsNoNumberWritesNothingOfTheMonth) {
  auto lohn = Loaded(manager, employee);
  for (double bad : {std::nan(""), -HUGE_VAL}) {
    lohn->Kurzarbeit(3)->MindestentgeltBrutto = bad;
    try {
      lohn->Update(*manager, ucTableLohnzettel, 3);
      ADD_FAILURE() << "the save went through with " << bad;
    } catch (const ConversionError& e) {
      EXPECT_NE(std::string(e.what()).find("MindestentgeltBrutto"), std::string::npos) << e.what();
      EXPECT_NE(std::string(e.what()).find(kTable), std::string::npos) << e.what();
    }
  }
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel"), 0);
  EXPECT_EQ(test::CountRows(db, kTable), 0);
}

}  // namespace
