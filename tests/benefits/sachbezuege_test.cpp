// Benefits in kind of an employee and period: the defaults of a period without a
// row, the choice of the row at a save (in place, or under another period) also
// against rows another session wrote, and periods that are no yyyymm.
#include "ormelix/benefits/sachbezuege.h"

#include <gtest/gtest.h>

#include <cmath>

#include "employee/employee_fixture.h"
#include "ormelix/benefits/sachbezuege_columns.h"
#include "ormelix/error.h"
#include "support/column_fill.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

constexpr const char* kTable = "Mitarbeiter_Sachbezüge";

class Sachbezuege : public test::EmployeeTest {
 protected:
  std::string employee = Employed("Sach", eBasisSalzburg);

  // An employee in the year's list, with year data naming a federal state.
  std::string Employed(const std::string& name, eBasisBundesländer state) {
    const std::string id = AddEmployee(name);
    AddStep(id, 1, DateHelpers::DateSerial(2020, 1, 1));
    test::AddRow(db, "Mitarbeiter_Jahresdaten",
                 {{"MitarbeiterID", id}, {"Jahr", 2024}, {"DZBundesland", static_cast<int>(state)}});
    return id;
  }
  // A session with the employee list of 2024 loaded, and an object bound to it.
  clsMitarbeiter_Sachbezüge Bound(const ManagerPtr& session) {
    session->Mitarbeiter()->Load(2024);
    clsMitarbeiter_Sachbezüge benefits;
    benefits.Init(session);
    return benefits;
  }
  // A row as another session writes it.
  std::string RowOf(std::int32_t period, double miete) {
    return test::AddRow(db, kTable, {{"MitarbeiterID", employee}, {"Zeitraum", period}, {"Miete", miete}});
  }
  double StoredMiete(std::int32_t period) {
    return ToAmount(
        Stored(kTable, "[MitarbeiterID]=" + SqlID(employee) + " AND [Zeitraum]=" + std::to_string(period), "Miete"));
  }
  long Rows() { return test::CountRows(db, kTable); }
};

TEST_F(Sachbezuege, APeriodWithoutARowGivesTheDefaults) {
  auto benefits = Bound(manager);
  test::FillAll(SachbezuegeColumns(), benefits, 0);  // what an earlier load left
  EXPECT_FALSE(benefits.Load(employee, 202403));
  EXPECT_EQ(benefits.ID(), "");
  EXPECT_EQ(benefits.Zehntelregelung, 10);
  EXPECT_EQ(benefits.Baujahr, DateHelpers::Year(DateHelpers::Today()));
  EXPECT_EQ(benefits.Bundesland, eBasisSalzburg - 1);
  // Everything else is 0 or False.
  for (const auto& decl : SachbezuegeColumns().Columns()) {
    const std::string name = decl.column;
    if (name == "Zehntelregelung" || name == "Baujahr" || name == "Bundesland") continue;
    EXPECT_TRUE(test::Same(test::AsStored(decl.property(benefits)), Variant(0))) << name;
  }
  EXPECT_EQ(Rows(), 0);  // a load writes nothing
}

TEST_F(Sachbezuege, ALoadedRowAlsoGivesFalse) {
  const std::string key = RowOf(202403, 650.5);
  auto benefits = Bound(manager);
  EXPECT_FALSE(benefits.Load(employee, 202403));
  EXPECT_EQ(benefits.ID(), key);
  EXPECT_EQ(benefits.Miete, 650.5);
  EXPECT_EQ(benefits.Zehntelregelung, 0);  // the row's value, not the default
}

TEST_F(Sachbezuege, AnEmployeeTheListDoesNotHoldFailsAtTheDefaultsWithItsIDCleared) {
  const std::string stranger = AddEmployee("Fremd");  // no career: not in the year's list
  RowOf(202403, 1);
  auto benefits = Bound(manager);
  benefits.Load(employee, 202403);
  EXPECT_THROW(benefits.Load(stranger, 202403), KeyNotFound);
  EXPECT_EQ(benefits.ID(), "");
}

TEST_F(Sachbezuege, ASaveInPlaceWritesTheLoadedRowOrInsertsOneUnderTheKeptPeriod) {
  auto benefits = Bound(manager);
  benefits.Load(employee, 202403);
  benefits.Miete = 700;
  benefits.Update();
  ASSERT_EQ(Rows(), 1);
  const std::string key = ToText(Stored(kTable, "[Zeitraum]=202403", "ID"));
  EXPECT_EQ(benefits.ID(), key);
  EXPECT_EQ(ToText(Stored(kTable, "[ID]=" + SqlID(key), "MitarbeiterID")), employee);
  EXPECT_EQ(ToInteger(Stored(kTable, "[ID]=" + SqlID(key), "Zehntelregelung")), 10);

  benefits.Miete = 720;
  benefits.Update(0);
  EXPECT_EQ(Rows(), 1);
  EXPECT_EQ(StoredMiete(202403), 720);
  EXPECT_EQ(benefits.ID(), key);
}

TEST_F(Sachbezuege, ASaveUnderAnotherPeriodOverwritesItsRowAndLeavesTheObjectAsItWas) {
  const std::string march = RowOf(202403, 600);
  const std::string april = RowOf(202404, 610);  // written by another session
  auto benefits = Bound(manager);
  benefits.Load(employee, 202403);
  benefits.Miete = 650;
  benefits.Update(202404);
  EXPECT_EQ(Rows(), 2);
  EXPECT_EQ(StoredMiete(202404), 650);
  EXPECT_EQ(StoredMiete(202403), 600);  // the loaded row stays as it was
  EXPECT_EQ(ToText(Stored(kTable, "[Zeitraum]=202404", "ID")), april);
  EXPECT_EQ(benefits.ID(), march);

  benefits.Update(202404);  // a second time: the object is unchanged
  EXPECT_EQ(benefits.ID(), march);
  EXPECT_EQ(Rows(), 2);

  benefits.Update(202405, "ignored");  // no row there: a new one, which only a Load reaches
  EXPECT_EQ(Rows(), 3);
  EXPECT_EQ(benefits.ID(), march);
  benefits.Miete = 1;
  benefits.Update();  // still in place: March
  EXPECT_EQ(StoredMiete(202403), 1);
  EXPECT_EQ(StoredMiete(202405), 650);
}

TEST_F(Sachbezuege, AnotherSessionsRowOfThePeriodIsWrittenRatherThanDoubled) {
  auto benefits = Bound(manager);
  benefits.Load(employee, 202403);                // no row yet
  const std::string theirs = RowOf(202403, 500);  // another session saves first
  benefits.Miete = 555;
  benefits.Update();
  EXPECT_EQ(Rows(), 1);
  EXPECT_EQ(StoredMiete(202403), 555);
  EXPECT_EQ(benefits.ID(), theirs);

  // The loaded row is removed by another session: a new row, once.
  db->Session().ExecuteSql("DELETE * FROM [Mitarbeiter_Sachbezüge] WHERE [ID]=" + SqlID(theirs));
  benefits.Update();
  benefits.Update();
  EXPECT_EQ(Rows(), 1);
  EXPECT_EQ(StoredMiete(202403), 555);

  // A second session sees what the first wrote.
  const auto session = ReopenedSession();
  auto other = Bound(session);
  other.Load(employee, 202403);
  EXPECT_EQ(other.Miete, 555);
}

TEST_F(Sachbezuege, APeriodThatIsNoYyyymmFailsBeforeAnythingIsReadOrWritten) {
  RowOf(202403, 600);
  auto benefits = Bound(manager);
  benefits.Load(employee, 202403);
  benefits.Miete = 999;
  for (std::int32_t bad : {202413, 202400, 0, -202403, 99912, 20243, 1202403}) {
    EXPECT_THROW(benefits.Load(employee, bad), std::out_of_range) << bad;
    EXPECT_EQ(benefits.Miete, 999) << bad;  // nothing read
    EXPECT_THROW(benefits.Update(bad == 0 ? 202413 : bad), std::out_of_range) << bad;
  }
  EXPECT_EQ(Rows(), 1);
  EXPECT_EQ(StoredMiete(202403), 600);  // nothing written

  clsMitarbeiter_Sachbezüge never_loaded;
  never_loaded.Init(manager);
  EXPECT_THROW(never_loaded.Update(), std::out_of_range);
  clsMitarbeiter_Sachbezüge without_session;
  EXPECT_THROW(without_session.Load(employee, 202403), Error);
  benefits.Heizkosten = std::nan("");
  EXPECT_THROW(benefits.Update(), ConversionError);
  EXPECT_EQ(Rows(), 1);
}

TEST_F(Sachbezuege, EveryColumnComesBackInANewSession) {
  for (int phase : {0, 1}) {
    auto benefits = Bound(manager);
    benefits.Load(employee, 202401 + phase);
    const auto& columns = SachbezuegeColumns();
    test::FillAll(columns, benefits, phase);
    const auto written = test::Written(columns, benefits);
    benefits.Update();
    const std::string where = "[Zeitraum]=" + std::to_string(202401 + phase);
    test::ExpectStored(db, written, kTable, where);
    auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Sachbezüge]");
    test::ExpectEveryColumnDeclared(columns, *rs, {"ID", "Nr", "MitarbeiterID", "Zeitraum"});
    test::ExpectDistinctProperties(columns, benefits);
    const auto session = ReopenedSession();
    auto reloaded = Bound(session);
    reloaded.Load(employee, 202401 + phase);
    test::ExpectLoaded(columns, reloaded, written);
  }
  EXPECT_EQ(SachbezuegeColumns().Columns().size(), 74u);
}

}  // namespace
