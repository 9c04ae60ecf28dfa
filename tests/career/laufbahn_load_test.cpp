// A career step's own logic, the load of a career with its exit reasons, bad rows,
// the write-back of the Bef_ figures, and the list operations.
#include <gtest/gtest.h>

#include "career_fixture.h"
#include "ormelix/career/laufbahn_columns.h"
#include "ormelix/error.h"

using namespace ormelix;

namespace {

class LaufbahnLoadTest : public test::CareerTest {};

TEST_F(LaufbahnLoadTest, PeriodAndTheEndOfTheTimeBeforeAStep) {
  LLohn_Laufbahn blank;
  EXPECT_EQ(blank.Zeitraum(), 189912);
  EXPECT_EQ(blank.WochengeldDatumEnde(), D(1900, 12, 31));
  EXPECT_TRUE(blank.GrundNr.IsEmpty());
  blank.SetWochengeldDatumEnde(D(2021, 6, 30));
  EXPECT_EQ(blank.WochengeldDatumEnde(), D(2022, 12, 31));  // only a blank step reads the field

  LLohn_Laufbahn entry;
  entry.Schritt = eLBEintritt;
  entry.Datum = D(2020, 3, 1);
  entry.SetWochengeldDatumEnde(D(2030, 1, 1));
  EXPECT_EQ(entry.WochengeldDatumEnde(), D(2020, 2, 29));
  EXPECT_EQ(entry.Zeitraum(), 202003);
  entry.Schritt = eLBAustritt;
  EXPECT_EQ(entry.WochengeldDatumEnde(), D(2020, 3, 1));

  entry.ELKalendertage = 12;
  entry.SetBef_EL_Kalendertage(5);
  entry.SetBef_EL_Kalendertage2(6);
  EXPECT_EQ(entry.Bef_EL_Kalendertage(), 12);
  EXPECT_EQ(entry.Bef_EL_Kalendertage2(), 12);
}

TEST_F(LaufbahnLoadTest, StepsStandByDateThenNrWithTheirIndexAndKey) {
  const std::string later = Step(eLBAustritt, D(2021, 6, 30));
  const std::string first = Step(eLBEintritt, D(2020, 1, 1));
  const std::string same_day = Step(eLBDVRuht, D(2021, 6, 30));  // a higher Nr on the day of the exit
  AddStep(AddEmployee("Andere"), eLBEintritt, D(2019, 1, 1));
  auto career = Career();
  ASSERT_EQ(career->Count(), 3);
  EXPECT_EQ(Describe(*career), "2020-01-01 1, 2021-06-30 3, 2021-06-30 2");
  EXPECT_EQ(career->Item(2)->ID, later);
  EXPECT_EQ(career->Item(Variant(same_day))->Index, 3);
  EXPECT_EQ(career->Item(Variant(first)), career->Item(1));  // one object, by key or position

  career->Load();  // each load replaces the contents
  EXPECT_EQ(career->Count(), 3);
  auto empty = std::make_shared<LLohn_Laufbahnen>();
  empty->InitLaufbahnen(manager, AddEmployee("Ohne Laufbahn"));
  empty->Load();
  EXPECT_EQ(empty->Count(), 0);
}

TEST_F(LaufbahnLoadTest, TheColumnsAsALoadReadsThem) {
  Step(eLBAustritt, D(2024, 5, 31),
       {{"Anmerkung", "Übergabe"}, {"Bruttogehalt", 3100.5}, {"BefristetBeschäftigt", true},
        {"BefristetBis", D(2024, 12, 31)}, {"AbfertigungNeuProzent", 1.53}, {"Bef_Tage", 7}, {"Bef_Tage2", 9},
        {"ELKalendertage", 2.5}, {"Bef_EL_Kalendertage", 3.5}, {"Bef_EL_Kalendertage2", 4.5},
        {"AushilfskraftKU", 0.5}, {"AushilfskraftLK", 0}, {"Sosntige_Bezüge_nach_67_2_6_10", 12.25},
        {"DiätenNach26Z4", 80}});
  Step(eLBEintritt, D(2024, 6, 1), {{"ELKalendertage", 3.5}});
  auto career = Career();
  const LLohn_Laufbahn& exit = *career->Item(1);
  EXPECT_EQ(exit.Schritt, eLBAustritt);
  EXPECT_EQ(exit.Anmerkung, "Übergabe");
  EXPECT_EQ(exit.Bruttogehalt, 3100.5);
  EXPECT_TRUE(exit.BefristetBeschäftigt);
  EXPECT_EQ(exit.BefristetBis, D(2024, 12, 31));
  EXPECT_EQ(exit.AbfertigungNeuProzent, 1.53);
  EXPECT_EQ(exit.Bef_Tage, 9);   // the column Bef_Tage2 lands in Bef_Tage
  EXPECT_EQ(exit.Bef_Tage2, 0);  // and the property Bef_Tage2 stays 0
  EXPECT_EQ(exit.ELKalendertage, 2);  // half to even
  EXPECT_EQ(career->Item(2)->ELKalendertage, 4);
  EXPECT_EQ(exit.Bef_EL_Kalendertage(), 2);
  EXPECT_TRUE(exit.AushilfskraftKU);
  EXPECT_FALSE(exit.AushilfskraftLK);
  EXPECT_EQ(exit.Sosntige_Bezüge_nach_67_2_6_10, 12.25);
  EXPECT_EQ(exit.DiätenNach26Z4, 80);
}

TEST_F(LaufbahnLoadTest, ExitReasonsFromTheReferenceStore) {
  Step(eLBAustritt, D(2020, 1, 31), {{"Grund", 5}});
  Step(eLBAustritt, D(2020, 2, 29), {{"Grund", 0}});
  Step(eLBAustritt, D(2020, 3, 31));  // Grund Null
  Step(eLBAustritt, D(2020, 4, 30), {{"Grund", 77}});  // not in the catalogue
  auto career = Career();
  const LLohn_Laufbahn& agreed = *career->Item(1);
  EXPECT_EQ(agreed.GrundIndex, 6);
  EXPECT_EQ(agreed.GrundNr, Variant(5));
  EXPECT_EQ(agreed.GrundKürzel, "EL");
  EXPECT_EQ(agreed.GrundText, "Einvernehmliche Lösung");
  EXPECT_EQ(career->Item(2)->GrundIndex, 1);
  EXPECT_EQ(career->Item(2)->GrundNr, Variant(0));
  for (long i : {3, 4}) {
    EXPECT_EQ(career->Item(i)->GrundIndex, 0) << i;
    EXPECT_TRUE(career->Item(i)->GrundNr.IsNull()) << i;
    EXPECT_EQ(career->Item(i)->GrundKürzel + career->Item(i)->GrundText, "") << i;
  }
  manager->SetImportDB(nullptr);  // a host without a reference store still gets its careers
  career = Career();
  EXPECT_EQ(career->Count(), 4);
  EXPECT_TRUE(career->Item(1)->GrundNr.IsNull());
}

TEST_F(LaufbahnLoadTest, TheEmployeeListLoadsEachCareerAndFiltersTheYearOverTheRows) {
  Step(eLBEintritt, D(2015, 3, 1));
  Step(eLBDVRuht, D(2019, 3, 1));
  Step(eLBEintritt, D(2020, 3, 1));
  Step(eLBAustritt, D(2024, 6, 30), {{"Grund", 5}, {"Bruttobezüge_25", 1250.4}});
  const std::string old = AddEmployee("Alt", 2);
  test::AddRow(db, "Mitarbeiter_Laufbahn", {{"MitarbeiterID", old}, {"Schritt", 1}, {"Datum", D(2010, 1, 1)}});
  test::AddRow(db, "Mitarbeiter_Laufbahn",
               {{"MitarbeiterID", old}, {"Schritt", 3}, {"Datum", D(2023, 12, 31)}, {"Grund", 0}});
  const std::string back = AddEmployee("Wieder", 3);
  AddStep(back, eLBEintritt, D(2018, 4, 1));
  AddStep(back, eLBAustritt, D(2021, 12, 31));
  AddStep(back, eLBEintritt, D(2024, 12, 31));
  clsMitarbeiter& list = *manager->Mitarbeiter();
  list.Load(2024, lcPersonalnummer);
  ASSERT_EQ(list.Count(), 2);
  const auto& career = list.Item(Variant(employee))->Laufbahn();
  EXPECT_EQ(Describe(*career), "2015-03-01 1, 2019-03-01 2, 2020-03-01 1, 2024-06-30 3");
  EXPECT_EQ(career->Item(4)->GrundText, "Einvernehmliche Lösung");
  EXPECT_EQ(career->Item(4)->Bruttobezüge_25, 1250.4);
  EXPECT_EQ(list.Item(Variant(back))->Laufbahn()->Count(), 3);
  list.Load(2025, lcPersonalnummer);
  ASSERT_EQ(list.Count(), 1);
  EXPECT_EQ(list.Item(1)->ID(), back);
}

TEST_F(LaufbahnLoadTest, ARowThatCannotBeReadNamesTableColumnAndRowAndLeavesTheListEmpty) {
  Step(eLBEintritt, D(2020, 1, 1));
  auto career = Career();
  ASSERT_EQ(career->Count(), 1);
  struct Case {
    const char* column;
    Variant value;
    const char* says;
  } cases[] = {{"Datum", Variant::NullValue(), "Null, not a date"},
               {"Datum", "bald", "bald"},
               {"Datum", 1e9, "no date"},
               {"Bruttogehalt", "viel", "viel"},
               {"Grund", "x", "x"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.column);
    if (test::OnPostgres() && c.value.IsText()) continue;  // a number column of PostgreSQL holds no text
    const std::string bad = Step(eLBDVRuht, D(2021, 1, 1));
    db->Session().ExecuteSql("UPDATE [Mitarbeiter_Laufbahn] SET [" + std::string(c.column) + "]=" +
                             (c.value.IsText() ? "'" + c.value.AsText() + "'" : c.value.IsNull() ? "NULL" : "1e9") +
                             " WHERE [ID]=" + bad);
    try {
      career->Load();
      ADD_FAILURE() << "the load read the bad row";
    } catch (const StoreError& error) {
      const std::string what = error.what();
      EXPECT_NE(what.find("Mitarbeiter_Laufbahn." + std::string(c.column)), std::string::npos) << what;
      EXPECT_NE(what.find(bad), std::string::npos) << what;
      EXPECT_NE(what.find(c.says), std::string::npos) << what;
    }
    EXPECT_EQ(career->Count(), 0);
    db->Session().ExecuteSql("DELETE * FROM [Mitarbeiter_Laufbahn] WHERE [ID]=" + bad);
  }
  career->Load();
  EXPECT_EQ(career->Count(), 1);
}

TEST_F(LaufbahnLoadTest, UpdateBefWritesTheBefFiguresWithTheirCrossings) {
  const std::string id = Step(eLBAustritt, D(2024, 5, 31), {{"Bruttogehalt", 2000}, {"Bef_EL_Kalendertage", 1}});
  auto career = Career();
  auto step = career->Item(1);
  step->Bef_Tage = 7;
  step->Bef_Tage2 = 9;
  step->ELKalendertage = 12;
  step->SetBef_EL_Kalendertage(5);
  step->Bef_SV_Laufend_Basis = 3456.78;
  step->Bef_SonderBasis2 = 99.5;
  step->Bruttogehalt = 1;  // not a Bef_ figure: not written
  EXPECT_TRUE(career->UpdateBef(step));
  const std::string where = "[ID]=" + id;
  EXPECT_EQ(Stored("Mitarbeiter_Laufbahn", where, "Bef_Tage"), Variant(7));
  EXPECT_EQ(Stored("Mitarbeiter_Laufbahn", where, "Bef_Tage2"), Variant(7));
  EXPECT_EQ(Stored("Mitarbeiter_Laufbahn", where, "Bef_EL_Kalendertage").AsDouble(), 12);
  EXPECT_EQ(Stored("Mitarbeiter_Laufbahn", where, "Bef_EL_Kalendertage2").AsDouble(), 12);
  EXPECT_EQ(Stored("Mitarbeiter_Laufbahn", where, "Bef_SV_Laufend_Basis").AsDouble(), 3456.78);
  EXPECT_EQ(Stored("Mitarbeiter_Laufbahn", where, "Bef_SonderBasis2").AsDouble(), 99.5);
  EXPECT_EQ(Stored("Mitarbeiter_Laufbahn", where, "Bruttogehalt").AsDouble(), 2000);

  EXPECT_FALSE(career->UpdateBef(nullptr));
  LLohn_Laufbahnen unbound;
  EXPECT_FALSE(unbound.UpdateBef(step));
  RefuseRows("Mitarbeiter_Laufbahn", "1=1");
  EXPECT_FALSE(career->UpdateBef(step));  // the store refuses: False, no failure
  db->Session().ExecuteSql("DELETE * FROM [Mitarbeiter_Laufbahn]");
  EXPECT_FALSE(career->UpdateBef(step));  // the row is gone
}

TEST_F(LaufbahnLoadTest, ItemRemoveAndAddItemKeepToTheirRules) {
  Step(eLBEintritt, D(2020, 1, 1));
  Step(eLBAustritt, D(2022, 8, 15));
  auto career = Career();
  auto marker = career->Item(0);
  EXPECT_EQ(marker->ID, "");
  EXPECT_EQ(career->Item(-1), marker);
  EXPECT_EQ(career->Item(Variant()), marker);
  EXPECT_EQ(career->Item("kein Schlüssel"), marker);
  EXPECT_EQ(career->Item(3), marker);
  EXPECT_EQ(marker->WochengeldDatumEnde(), D(2023, 12, 31));  // the year after the last step
  EXPECT_THROW(career->Item(ValueHelpers::NewID()), KeyNotFound);

  auto made = std::make_shared<LLohn_Laufbahn>();
  made->ID = ValueHelpers::NewID();
  EXPECT_TRUE(career->AddItem(made, Variant(1)).IsEmpty());
  EXPECT_EQ(career->Item(1), made);
  EXPECT_EQ(career->Item(2)->Index, 1);  // Index is the position at load time
  auto after = std::make_shared<LLohn_Laufbahn>(*made);
  after->ID = ValueHelpers::NewID();
  career->AddItem(after, {}, Variant(2));
  EXPECT_EQ(career->Item(3), after);
  EXPECT_THROW(career->AddItem(made), Error);  // a key is unique

  EXPECT_FALSE(career->Remove(Variant(ValueHelpers::NewID())));
  EXPECT_FALSE(career->Remove(9));
  EXPECT_EQ(career->Count(), 4);
  EXPECT_TRUE(career->Remove(Variant(made->ID)));
  EXPECT_TRUE(career->Remove(2));
  EXPECT_EQ(Describe(*career), "2020-01-01 1, 2022-08-15 3");
  career->Clear();
  EXPECT_EQ(career->Count(), 0);
  EXPECT_EQ(career->Item(1), marker);
}

}  // namespace
