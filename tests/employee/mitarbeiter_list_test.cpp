// The employee list: the year filter, the sort orders, lookups, Add and the sum of
// marginal bases.
#include <gtest/gtest.h>

#include "employee_fixture.h"
#include "ormelix/career/laufbahnen.h"
#include "ormelix/error.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;
using DateHelpers::DateSerial;

namespace {

class MitarbeiterListTest : public test::EmployeeTest {
 protected:
  clsMitarbeiter& List() { return *manager->Mitarbeiter(); }
  // The family names of the list, in list order.
  std::string Names() {
    std::string names;
    for (const auto& lohn : List()) names += lohn->Mitarbeiter()->FName + " ";
    return names;
  }
  std::string LoadedNames(std::int16_t year) {
    List().Load(year, lcName);
    return Names();
  }
  void AddReplacement(const std::string& employee, std::int32_t pay_period, std::int32_t benefit_period) {
    const std::string pay_row = AddPayRow(employee, pay_period);
    test::AddRow(db, "Mitarbeiter_Lohnzettel_EL", {{"LohnzettelID", pay_row}, {"Zeitraum", benefit_period}});
  }
};

TEST_F(MitarbeiterListTest, YearZeroTakesEveryEmployeeOfTheEmployerOnly) {
  AddStep(AddEmployee("Alt"), eLBAustritt, DateSerial(2001, 6, 30));
  AddEmployee("Ohne Laufbahn");
  AddEmployee("Fremd", 1, test::AddRow(db, "Mandanten", {{"Name", "Andere"}}));
  EXPECT_EQ(LoadedNames(0), "Alt Ohne Laufbahn ");
}

TEST_F(MitarbeiterListTest, TheLastStepUpToTheYearsEndDecides) {
  AddStep(AddEmployee("Aktiv"), eLBEintritt, DateSerial(2020, 1, 1));
  AddStep(AddEmployee("Ruht"), eLBDVRuht, DateSerial(2023, 5, 1));  // no exit
  AddStep(AddEmployee("Silvester"), eLBAustritt, DateSerial(2024, 12, 31));
  AddStep(AddEmployee("Neujahr"), eLBAustritt, DateSerial(2024, 1, 1));
  AddStep(AddEmployee("Vorjahr"), eLBAustritt, DateSerial(2023, 12, 31));
  const std::string back = AddEmployee("Zurück");
  AddStep(back, eLBEintritt, DateSerial(2019, 1, 1));
  AddStep(back, eLBAustritt, DateSerial(2022, 3, 31));
  AddStep(back, eLBEintritt, DateSerial(2024, 9, 1));
  AddStep(AddEmployee("Künftig"), eLBEintritt, DateSerial(2025, 1, 1));  // after the year's end
  AddEmployee("Ohne Laufbahn");
  EXPECT_EQ(LoadedNames(2024), "Aktiv Neujahr Ruht Silvester Zurück ");
  EXPECT_EQ(LoadedNames(2025), "Aktiv Künftig Ruht Zurück ");
}

TEST_F(MitarbeiterListTest, AnExitOnTheSameDayAsAnEntryCountsByItsNr) {
  const std::string same_day = AddEmployee("Gleicher Tag");
  AddStep(same_day, eLBEintritt, DateSerial(2020, 1, 1));
  AddStep(same_day, eLBAustritt, DateSerial(2020, 1, 1));  // the later Nr is the last step
  EXPECT_EQ(LoadedNames(2024), "");
}

TEST_F(MitarbeiterListTest, NeuanlageAndAReplacementBenefitInTheYearKeepAnEmployee) {
  test::AddRow(db, "Mitarbeiter", {{"MandantenID", employer}, {"Familienname", "Neuanlage"}, {"Neuanlage", true}});
  const std::string january = AddEmployee("Januar");
  AddStep(january, eLBAustritt, DateSerial(2022, 6, 30));
  AddReplacement(january, 202206, 202401);
  const std::string december = AddEmployee("Dezember");
  AddStep(december, eLBAustritt, DateSerial(2022, 6, 30));
  AddReplacement(december, 202206, 202412);
  const std::string before = AddEmployee("Vorher");
  AddStep(before, eLBAustritt, DateSerial(2022, 6, 30));
  AddReplacement(before, 202206, 202312);
  EXPECT_EQ(LoadedNames(2024), "Dezember Januar Neuanlage ");
  EXPECT_EQ(LoadedNames(2019), "Neuanlage ");
}

TEST_F(MitarbeiterListTest, SortOrdersAndTheIndexFollowingThem) {
  test::AddRow(db, "Mitarbeiter", {{"MandantenID", employer}, {"Familienname", "Berger"}, {"VorName", "Zoe"},
                                   {"Personalnummer", 1}, {"Neuanlage", true}});
  test::AddRow(db, "Mitarbeiter", {{"MandantenID", employer}, {"Familienname", "Berger"}, {"VorName", "Anna"},
                                   {"Personalnummer", 3}, {"Neuanlage", true}});
  test::AddRow(db, "Mitarbeiter", {{"MandantenID", employer}, {"Familienname", "Auer"}, {"VorName", "Max"},
                                   {"Personalnummer", 2}, {"Neuanlage", true}});
  List().Load(2024, lcName);
  std::string order;
  for (const auto& lohn : List())
    order += lohn->Mitarbeiter()->VName + std::to_string(lohn->Index()) + " ";
  EXPECT_EQ(order, "Max1 Anna2 Zoe3 ");
  List().Load(2024, lcPersonalnummer);
  EXPECT_EQ(List().Item(Variant(1))->Mitarbeiter()->VName, "Zoe");
  EXPECT_EQ(List().Item(Variant(3))->Index(), 3);
  List().Load(2024, static_cast<eSortOrderMitarbeiter>(7));  // anything but lcName
  EXPECT_EQ(List().Item(Variant(2))->Mitarbeiter()->VName, "Max");
}

TEST_F(MitarbeiterListTest, ByNameIgnoresCaseAndSortsUmlautsWithTheirLetter) {
  struct Person {
    const char* family;
    const char* first;
  } const people[] = {{"müller", "Bernd"}, {"MÜLLER", "anna"}, {"Müller", "Carl"}, {"Muller", "Zoe"},
                      {"mayer", "Eva"},    {"Maier", "Udo"},   {"Ölz", "Ida"},    {"Obermayr", "Jan"}};
  for (const Person& p : people)
    test::AddRow(db, "Mitarbeiter",
                 {{"MandantenID", employer}, {"Familienname", p.family}, {"VorName", p.first}, {"Neuanlage", true}});
  List().Load(2024, lcName);
  std::string order;
  for (const auto& lohn : List()) order += lohn->Mitarbeiter()->FName + "/" + lohn->Mitarbeiter()->VName + " ";
  // Names that differ only in case are one name, ordered by the first name.
  EXPECT_EQ(order, "Maier/Udo mayer/Eva Muller/Zoe MÜLLER/anna müller/Bernd Müller/Carl Obermayr/Jan Ölz/Ida ");
}

TEST_F(MitarbeiterListTest, EachLoadedEmployeeCarriesItsMasterBankAndPayData) {
  const std::string id = AddEmployee("Voll", 17);
  test::AddRow(db, "Mitarbeiter_Bankverbindung", {{"MitarbeiterID", id}, {"IBAN", "AT02"}});
  test::AddRow(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", id}, {"Zeitraum", 202402}, {"Gehalt", 2100}});
  AddStep(id, eLBEintritt, DateSerial(2023, 1, 1));
  List().Load(2024, lcPersonalnummer);
  ASSERT_EQ(List().Count(), 1);
  auto lohn = List().Item(Variant(id));
  EXPECT_EQ(lohn->ID(), id);
  EXPECT_EQ(lohn->Mitarbeiter()->Personalnummer, 17);
  EXPECT_EQ(lohn->IBAN, "AT02");
  EXPECT_EQ(lohn->Gehalt(2), 2100);
  EXPECT_EQ(lohn->UE_Laufend_Tage(3), 30);
  manager->ChangeAktMitarbeiter(id);
  EXPECT_EQ(manager->AktMitarbeiterIndex, 1);
}

TEST_F(MitarbeiterListTest, ItemAndExist) {
  const std::string id = test::AddRow(db, "Mitarbeiter", {{"MandantenID", employer}, {"SortNr", 42}, {"Neuanlage", true}});
  List().Load(2024, lcPersonalnummer);
  auto blank = List().Item(Variant(""));
  EXPECT_EQ(blank->ID(), "");
  EXPECT_EQ(List().Item(Variant("Meier")), blank);
  EXPECT_THROW(List().Item(Variant(0)), KeyNotFound);
  EXPECT_THROW(List().Item(Variant(2)), KeyNotFound);
  const std::string unknown = NewID();
  try {
    List().Item(Variant(unknown));
    ADD_FAILURE() << "an unknown ID was found";
  } catch (const KeyNotFound& failure) {
    EXPECT_EQ(failure.Key(), unknown);
  }
  EXPECT_TRUE(List().Exist(id));
  EXPECT_TRUE(List().Exist("42"));  // a number is the SortNr
  EXPECT_FALSE(List().Exist("43"));
  EXPECT_FALSE(List().Exist(unknown));
  EXPECT_FALSE(List().Exist(""));
  EXPECT_FALSE(List().Exist("Meier"));
}

TEST_F(MitarbeiterListTest, LoadWithoutAnEmployerFailsSayingSo) {
  AddEmployee("Jemand");
  manager->ChangeAktMandant("");
  try {
    List().Load(0, lcPersonalnummer);
    ADD_FAILURE() << "Load did not fail";
  } catch (const Error& failure) {
    EXPECT_NE(std::string(failure.what()).find("no current employer"), std::string::npos) << failure.what();
  }
  EXPECT_EQ(List().Count(), 0);
  EXPECT_FALSE(List().Exist("1"));
}

TEST_F(MitarbeiterListTest, AddInsertsSavesAndHandsBackTheListsObject) {
  auto lohn = std::make_shared<LLohn>();
  lohn->Mitarbeiter()->FName = "Neu";
  lohn->Neuanlage = true;
  lohn->IBAN = "AT99";
  lohn->Gehalt(3) = 1000;  // pay records are not saved by Add
  auto given = lohn;
  List().Add(lohn, 2024, lcName);
  EXPECT_NE(lohn, given);
  ASSERT_EQ(List().Count(), 1);
  EXPECT_EQ(lohn, List().Item(Variant(1)));
  EXPECT_TRUE(DateHelpers::IsID(Variant(lohn->ID())));
  EXPECT_EQ(lohn->Mitarbeiter()->FName, "Neu");
  EXPECT_EQ(lohn->IBAN, "AT99");
  EXPECT_EQ(lohn->Gehalt(3), 0);
  EXPECT_EQ(ToText(Stored("Mitarbeiter", "[ID]=" + SqlID(lohn->ID()), "MandantenID")), employer);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel"), 0);
}

TEST_F(MitarbeiterListTest, AnAddedEmployeeThatTheFilterLeavesOutStaysInTheStore) {
  auto lohn = std::make_shared<LLohn>();  // no Neuanlage, no career
  EXPECT_THROW(List().Add(lohn, 2024, lcName), KeyNotFound);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter"), 1);
  std::shared_ptr<LLohn> none;
  EXPECT_THROW(List().Add(none, 2024, lcName), Error);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter"), 1);
}

TEST_F(MitarbeiterListTest, RefreshReadsEveryEmployeeAgain) {
  const std::string id = AddEmployee("Vorher", 1);
  AddStep(id, eLBEintritt, DateSerial(2020, 1, 1));
  List().Load(2024, lcName);
  db->Session().ExecuteSql("UPDATE [Mitarbeiter] SET [Familienname]='Nachher'");
  List().Refresh(ucTableLohnzettel);
  EXPECT_EQ(Names(), "Vorher ");
  List().Refresh(ucTableMitarbeiter);
  EXPECT_EQ(Names(), "Nachher ");
}

TEST_F(MitarbeiterListTest, TheMarginalBaseSumTakesTheFirstReplacementBenefitOnly) {
  for (const char* name : {"A", "B", "C"})
    test::AddRow(db, "Mitarbeiter", {{"MandantenID", employer}, {"Familienname", name}, {"Neuanlage", true}});
  List().Load(2024, lcName);
  auto a = List().Item(Variant(1));
  auto b = List().Item(Variant(2));
  auto c = List().Item(Variant(3));
  a->op_mBeschaeftigt(4) = -1;
  a->SV_Laufend_Basis_Berechnet(4) = 300;
  for (std::int32_t period : {202301, 202302}) {
    auto benefit = std::make_shared<LLohn_Ersatzleistung>();
    benefit->Zeitraum = period;
    benefit->BV_Basis = period == 202301 ? 40 : 1000;
    a->SV_EL_Laufend(4)->Add(benefit);
  }
  b->op_mBeschaeftigt(4) = -1;
  b->SV_Laufend_Basis_Berechnet(4) = 25.5;
  c->SV_Laufend_Basis_Berechnet(4) = 999;  // not marginally employed
  EXPECT_DOUBLE_EQ(List().SUM_SV_Laufend_Basis(4), 365.5);
  EXPECT_EQ(List().SUM_SV_Laufend_Basis(5), 0);
}

}  // namespace

namespace {

TEST_F(MitarbeiterListTest, ProgressCountsEveryEmployeeRowAlsoThoseTheYearLeavesOut) {
  AddEmployee("Aigner", 1);
  std::string left = AddEmployee("Binder", 2);
  AddStep(left, eLBAustritt, DateSerial(2020, 6, 30));
  AddEmployee("Czerny", 3);
  std::vector<std::pair<long, long>> seen;
  manager->Mitarbeiter()->SetProgress([&](long done, long total) { seen.emplace_back(done, total); });
  manager->Mitarbeiter()->Load(0);
  ASSERT_EQ(seen.size(), 3u);
  EXPECT_EQ(seen.back(), std::make_pair(3L, 3L));
  seen.clear();
  manager->Mitarbeiter()->Load(2024);
  EXPECT_EQ(seen.size(), 3u);
  EXPECT_EQ(manager->Mitarbeiter()->Count(), 0);  // no career step: nobody belongs to 2024
}

}  // namespace
