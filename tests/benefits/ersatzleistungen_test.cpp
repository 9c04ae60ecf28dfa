// Replacement benefits of a pay month: the list and its sums, the load in period
// order, and the save that deletes the pay row's benefits and inserts the list anew.
#include <gtest/gtest.h>

#include <cmath>

#include "employee/employee_fixture.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/error.h"
#include "support/column_fill.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

constexpr const char* kTable = "Mitarbeiter_Lohnzettel_EL";

std::shared_ptr<LLohn_Ersatzleistung> Benefit(std::int32_t zeitraum, double dn, double dg) {
  auto entry = std::make_shared<LLohn_Ersatzleistung>();
  entry->Zeitraum = zeitraum;
  entry->SV_Laufend_Basis = dn * 10;
  entry->SV_Laufend_DN = dn;
  entry->SV_Laufend_DG = dg;
  entry->ALV_Basis = dn * 10;
  entry->ALV = dn / 10;
  entry->SV_N70_Laufend_DN = 1;
  entry->SV_N70_Laufend_DG = 2;
  entry->NeuFög_Laufend = 3;
  entry->SV_Laufend_DGA = 4;
  entry->BV_Basis = 500;  // BV and A22 have no sum
  return entry;
}

TEST(ErsatzleistungenList, SumsAddEachEntryAndFollowAtOnce) {
  LLohn_Ersatzleistungen list;
  EXPECT_EQ(list.SV_Laufend_DN_Gesamt(), 0);
  EXPECT_EQ(list.ALV_Gesamt(), 0);
  EXPECT_EQ(list.SV_Laufend_DGA_Gesamt(), 0);

  list.Add(Benefit(202502, 18.07, 20.98));
  list.Add(Benefit(202501, 100.10, 116.22));
  EXPECT_DOUBLE_EQ(list.SV_Laufend_DN_Gesamt(), 118.17);
  EXPECT_DOUBLE_EQ(list.SV_Laufend_DG_Gesamt(), 137.20);
  EXPECT_DOUBLE_EQ(list.SV_Laufend_Basis_Gesamt(), 1181.7);
  EXPECT_DOUBLE_EQ(list.ALV_Basis_Gesamt(), 1181.7);
  EXPECT_DOUBLE_EQ(list.ALV_Gesamt(), 11.817);
  EXPECT_EQ(list.SV_N70_Laufend_DN_Gesamt(), 2);
  EXPECT_EQ(list.SV_N70_Laufend_DG_Gesamt(), 4);
  EXPECT_EQ(list.NeuFög_Laufend_Gesamt(), 6);
  EXPECT_EQ(list.SV_Laufend_DGA_Gesamt(), 8);

  // By position in the order of adding, or by the period as text.
  EXPECT_EQ(list.Item(Variant(1))->Zeitraum, 202502);
  const auto january = list.Item(Variant("202501"));
  EXPECT_EQ(january->Zeitraum, 202501);
  EXPECT_DOUBLE_EQ(january->SV_Laufend_Gesamt(), 216.32);
  january->SV_Laufend_DG = 0;
  EXPECT_DOUBLE_EQ(january->SV_Laufend_Gesamt(), 100.10);
  EXPECT_DOUBLE_EQ(list.SV_Laufend_DG_Gesamt(), 20.98);

  EXPECT_THROW(list.Add(Benefit(202501, 1, 1)), Error);  // one benefit per period
  EXPECT_EQ(list.Count(), 2);
  EXPECT_THROW((void)list.Item(Variant("202503")), KeyNotFound);
  EXPECT_THROW((void)list.Item(Variant(3)), KeyNotFound);
  list.Remove(Variant("202502"));
  EXPECT_EQ(list.Item(Variant(1))->Zeitraum, 202501);
  list.Clear();
  EXPECT_EQ(list.Count(), 0);
  EXPECT_EQ(list.SV_Laufend_DN_Gesamt(), 0);
}

class ErsatzleistungenRows : public test::EmployeeTest {
 protected:
  std::string employee = AddEmployee("Ersatz");
  std::string RowsOf(const std::string& pay_row) { return "[LohnzettelID]=" + SqlID(pay_row); }
};

TEST_F(ErsatzleistungenRows, ALoadTakesTheRowsInPeriodOrderWhateverTheOrderTheyWereWritten) {
  const std::string pay_row = AddPayRow(employee, 202412);
  const std::string other_row = AddPayRow(employee, 202411);
  // Written by another program, the later period first.
  test::AddRow(db, kTable, {{"LohnzettelID", pay_row}, {"Zeitraum", 202502}, {"SV_Laufend_DN", 20.5}, {"SVTage", 28}});
  test::AddRow(db, kTable,
               {{"LohnzettelID", pay_row},
                {"Zeitraum", 202501},
                {"SV_Laufend_DN", 30.25},
                {"SV_Laufend_DG", 9.75},
                {"Geringfügig", -1},
                {"TarifGruppe", "B1"}});
  test::AddRow(db, kTable, {{"LohnzettelID", other_row}, {"Zeitraum", 202412}, {"SV_Laufend_DN", 1000.0}});

  auto lohn = Loaded(manager, employee);
  const LLohn_Ersatzleistungen& december = *lohn->SV_EL_Laufend(12);
  ASSERT_EQ(december.Count(), 2);
  EXPECT_EQ(december.Item(Variant(1))->Zeitraum, 202501);
  EXPECT_EQ(december.Item(Variant(2))->Zeitraum, 202502);
  EXPECT_TRUE(december.Item(Variant("202501"))->Geringfügig);
  EXPECT_EQ(december.Item(Variant("202501"))->TarifGruppe, "B1");
  EXPECT_EQ(december.Item(Variant("202502"))->SVTage, 28);
  EXPECT_FALSE(december.Item(Variant(1))->ID.empty());
  EXPECT_DOUBLE_EQ(december.SV_Laufend_DN_Gesamt(), 50.75);
  EXPECT_DOUBLE_EQ(december.Item(Variant(1))->SV_Laufend_Gesamt(), 40);
  EXPECT_EQ(lohn->SV_EL_Laufend(11)->Count(), 1);
  EXPECT_EQ(lohn->SV_EL_Laufend(10)->Count(), 0);
}

TEST_F(ErsatzleistungenRows, TwoRowsOfOnePeriodCannotBeLoaded) {
  const std::string pay_row = AddPayRow(employee, 202412);
  test::AddRow(db, kTable, {{"LohnzettelID", pay_row}, {"Zeitraum", 202501}});
  test::AddRow(db, kTable, {{"LohnzettelID", pay_row}, {"Zeitraum", 202501}});
  auto lohn = std::make_shared<LLohn>();
  EXPECT_THROW(lohn->LoadMitarbeiter(*manager, employee, 1), Error);
}

TEST_F(ErsatzleistungenRows, ASaveReplacesThePayRowsBenefitsUnderNewKeys) {
  auto lohn = Loaded(manager, employee);
  lohn->SV_EL_Laufend(12)->Add(Benefit(202502, 18.07, 20.98));
  lohn->SV_EL_Laufend(12)->Add(Benefit(202501, 100.10, 116.22));
  lohn->SV_EL_Laufend(11)->Add(Benefit(202412, 5, 6));
  lohn->Update(*manager, ucTableLohnzettel, 11);
  lohn->Update(*manager, ucTableLohnzettel, 12);
  const std::string december = ToText(PayColumn(employee, 202412, "ID"));
  EXPECT_EQ(test::CountRows(db, kTable, RowsOf(december)), 2);
  EXPECT_EQ(ToText(Stored(kTable, RowsOf(december) + " AND [Zeitraum]=202501", "LohnzettelID")), december);

  auto reloaded = Loaded(ReopenedSession(), employee);
  const auto first = reloaded->SV_EL_Laufend(12)->Item(Variant(1));
  const std::string first_key = first->ID;
  EXPECT_EQ(first->Zeitraum, 202501);

  // An unchanged list saved again: the same columns under new keys; the objects
  // keep the keys of their load.
  reloaded->Update(*manager, ucTableLohnzettel, 12);
  EXPECT_EQ(test::CountRows(db, kTable, RowsOf(december)), 2);
  EXPECT_EQ(test::CountRows(db, kTable, "[ID]=" + SqlID(first_key)), 0);
  EXPECT_EQ(first->ID, first_key);
  EXPECT_DOUBLE_EQ(ToAmount(Stored(kTable, RowsOf(december) + " AND [Zeitraum]=202501", "SV_Laufend_DG")), 116.22);

  // An empty list leaves the pay row with none; November's stays.
  reloaded->SV_EL_Laufend(12)->Clear();
  reloaded->Update(*manager, ucTableLohnzettel, 12);
  EXPECT_EQ(test::CountRows(db, kTable, RowsOf(december)), 0);
  EXPECT_EQ(test::CountRows(db, kTable), 1);
}

TEST_F(ErsatzleistungenRows, EveryColumnComesBackInANewSession) {
  auto lohn = Loaded(manager, employee);
  auto entry = std::make_shared<LLohn_Ersatzleistung>();
  const auto& columns = modDatabase::ErsatzleistungColumns();
  test::FillAll(columns, *entry, 1);
  entry->Zeitraum = 202405;
  entry->ID.clear();
  lohn->SV_EL_Laufend(4)->Add(entry);
  const auto written = test::Written(columns, *entry);
  lohn->Update(*manager, ucTableLohnzettel, 4);
  test::ExpectStored(db, written, kTable, "[Zeitraum]=202405");
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Lohnzettel_EL]");
  test::ExpectEveryColumnDeclared(columns, *rs, {"ID", "Nr", "LohnzettelID"});
  test::ExpectDistinctProperties(columns, *entry);

  auto reloaded = Loaded(ReopenedSession(), employee)->SV_EL_Laufend(4)->Item(Variant(1));
  auto expected = written;
  expected["ID"] = Variant(ToText(Stored(kTable, "[Zeitraum]=202405", "ID")));
  test::ExpectLoaded(columns, *reloaded, expected);
}

TEST_F(ErsatzleistungenRows, AnAmountThatIsNoNumberDeletesNothing) {
  auto lohn = Loaded(manager, employee);
  lohn->SV_EL_Laufend(12)->Add(Benefit(202501, 10, 10));
  lohn->Update(*manager, ucTableLohnzettel, 12);
  lohn->SV_EL_Laufend(12)->Item(Variant(1))->BV_Betrag = std::nan("");
  EXPECT_THROW(lohn->Update(*manager, ucTableLohnzettel, 12), ConversionError);
  EXPECT_EQ(test::CountRows(db, kTable), 1);
  EXPECT_EQ(ToAmount(Stored(kTable, "[Zeitraum]=202501", "BV_Betrag")), 0);
}

}  // namespace
