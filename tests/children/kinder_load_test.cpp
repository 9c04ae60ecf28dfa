// The children of an employee and their entries as a load reads them, their place
// in the employee's load, the entry in force, and rows that cannot be read.
#include <gtest/gtest.h>

#include "children_fixture.h"
#include "ormelix/error.h"

using namespace ormelix;

namespace {

class KinderLoadTest : public test::ChildrenTest {};

TEST_F(KinderLoadTest, ChildrenStandByBirthDateEachWithItsEntriesByPeriod) {
  const std::string younger = Child("Marie", D(2019, 5, 10));
  const std::string older = Child("Lukas", D(2007, 8, 21));
  Child("Fremd", D(2010, 1, 1), AddEmployee("Andere", 2));
  AddEntries(younger, {{.zeitraum = 202503, .fb = 2, .fabo = 2, .avab = false, .kfz = "d", .fabo18 = true,
                        .zuschlag_ab = 202504},
                       {.zeitraum = 201906}});
  auto kinder = Kinder();
  ASSERT_EQ(kinder->Count(), 2);
  EXPECT_EQ(kinder->Item(1)->ID, older);
  EXPECT_EQ(kinder->Item(2)->Name(), "Marie Huber");
  EXPECT_EQ(kinder->Item(2)->VersNr, "1234 Marie");
  EXPECT_EQ(kinder->Item(2)->Geburtsdatum, D(2019, 5, 10));
  EXPECT_EQ(kinder->Item(Variant(younger)), kinder->Item(2));  // one object by key or position
  EXPECT_EQ(kinder->Item(1)->Zeitbezuege()->Count(), 0);

  const LLohn_Kind_Zeitbezuege& entries = *kinder->Item(2)->Zeitbezuege();
  ASSERT_EQ(entries.Count(), 2);
  EXPECT_EQ(entries.Item(1)->Zeitraum, 201906);
  const LLohn_Kind_Zeitbezug& later = *entries.Item(2);
  EXPECT_EQ(later.FB_Bezieher, eFBB_Partner_Familienbeihilfenbezieher);
  EXPECT_EQ(later.FABO, eFABO_halber_FABO);
  EXPECT_FALSE(later.AVAB);
  EXPECT_TRUE(later.FABO18);
  EXPECT_EQ(later.KFZ, "d");
  EXPECT_EQ(later.Kinderzuschlag_ab, 202504);
  EXPECT_EQ(entries.Item(Variant(later.ID)).get(), &later);

  EXPECT_THROW(kinder->Item(3), KeyNotFound);
  EXPECT_THROW(kinder->Item(Variant(ValueHelpers::NewID())), KeyNotFound);
  EXPECT_THROW(entries.Item(0), KeyNotFound);
  kinder->Load();  // each load replaces the contents
  EXPECT_EQ(kinder->Count(), 2);
  kinder->Clear();
  EXPECT_EQ(kinder->Count(), 0);
}

TEST_F(KinderLoadTest, NamesAreTrimmedAndAMissingBirthDateIsDateZero) {
  const std::string id = test::AddRow(db, "Mitarbeiter_Kinder", {{"MitarbeiterID", employee}, {"Nachname", "Gruber"}});
  auto kinder = Kinder();
  ASSERT_EQ(kinder->Count(), 1);
  EXPECT_EQ(kinder->Item(1)->Name(), "Gruber");
  EXPECT_EQ(kinder->Item(1)->Geburtsdatum, 0);
  EXPECT_EQ(kinder->Item(1)->ID, id);
}

TEST_F(KinderLoadTest, KeysOfAnotherSpellingFindTheSameChildAndEntry) {
  // A host that wrote its keys in lower case: KID, GetZB and Item must still meet.
  const std::string id = "{0a1b2c3d-0000-4000-8000-00000000abcd}";
  const std::string entry = "{0a1b2c3d-0000-4000-8000-00000000ef01}";
  test::AddRow(db, "Mitarbeiter_Kinder", {{"ID", id}, {"MitarbeiterID", employee}, {"GebDatum", D(2015, 1, 1)}});
  test::AddRow(db, "Mitarbeiter_Kinder_ZB", {{"ID", entry}, {"KID", id}, {"Zeitraum", 202001}, {"FB_Bezieher", 1},
                                       {"FABO", 1}, {"AVAB", true}});
  auto kinder = Kinder();
  ASSERT_EQ(kinder->Count(), 1);
  auto child = kinder->Item(Variant(ValueHelpers::SqlID(id)));
  EXPECT_EQ(child, kinder->Item(Variant(id)));
  EXPECT_EQ(child->Zeitbezuege()->GetZB(202403), child->Zeitbezuege()->Item(Variant(entry)));
  EXPECT_EQ(Names(kinder->GetFABOKinder(202403)), "");  // no VorName: found, under its key
  EXPECT_EQ(kinder->GetFABOKinder(202403).Count(), 1);
  EXPECT_EQ(kinder->GetFABOKinder(202403).Item(Variant(id)), child);
}

TEST_F(KinderLoadTest, GetZBGivesTheEntryInForceFromTheHistory) {
  const std::string kid = Child("Lukas", D(2007, 8, 21));
  AddEntries(kid, {{.zeitraum = 201901}, {.zeitraum = 201906, .fabo = 2}});
  auto kinder = Kinder();
  const auto& history = kinder->Item(1)->Zeitbezuege();
  EXPECT_EQ(history->GetZB(201905), history->Item(1));
  EXPECT_EQ(history->GetZB(201906), history->Item(2));
  EXPECT_EQ(history->GetZB(203001), history->Item(2));
  EXPECT_EQ(history->GetZB(201812), nullptr);
  // An entry stored since the load is not in the history: the store and the
  // history disagree, and the lookup says so.
  AddEntry(kid, {.zeitraum = 202001});
  EXPECT_THROW(history->GetZB(202001), KeyNotFound);
}

TEST_F(KinderLoadTest, ARowThatCannotBeReadNamesTableColumnAndRowAndLeavesTheListEmpty) {
  const std::string good = Child("Lukas", D(2007, 8, 21));
  AddEntry(good, {.zeitraum = 202001});
  ASSERT_EQ(Kinder()->Count(), 1);
  struct Case {
    const char* table;
    const char* column;
    const char* value;
    const char* says;
  } cases[] = {{"Mitarbeiter_Kinder", "GebDatum", "'bald'", "bald"},
               {"Mitarbeiter_Kinder", "GebDatum", "1e9", "no date"},
               {"Mitarbeiter_Kinder_ZB", "Zeitraum", "'Jänner'", "Jänner"},
               {"Mitarbeiter_Kinder_ZB", "FABO", "'ganz'", "ganz"},
               {"Mitarbeiter_Kinder_ZB", "Kinderzuschlag_ab", "1e12", "range"}};
  auto kinder = Kinder();
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.table) + "." + c.column);
    // The bad row is the second child (born later), or an entry of the first.
    const std::string child = Child("Marie", D(2019, 5, 10));
    const std::string bad = std::string(c.table) == "Mitarbeiter_Kinder" ? child : AddEntry(good, {.zeitraum = 202301});
    auto remove = [&] {
      db->Session().ExecuteSql("DELETE * FROM [Mitarbeiter_Kinder] WHERE [ID]=" + child);
      db->Session().ExecuteSql("DELETE * FROM [Mitarbeiter_Kinder_ZB] WHERE [ID]=" + bad);
    };
    try {
      db->Session().ExecuteSql("UPDATE [" + std::string(c.table) + "] SET [" + c.column + "]=" + c.value +
                               " WHERE [ID]=" + bad);
    } catch (const StoreError&) {
      if (!test::OnPostgres()) throw;
      remove();  // its number columns hold no text and nothing out of their range
      continue;
    }
    try {
      kinder->Load();
      ADD_FAILURE() << "the load read the bad row";
    } catch (const StoreError& error) {
      const std::string what = error.what();
      EXPECT_NE(what.find(std::string(c.table) + "." + c.column), std::string::npos) << what;
      EXPECT_NE(what.find(bad), std::string::npos) << what;
      EXPECT_NE(what.find(c.says), std::string::npos) << what;
    }
    EXPECT_EQ(kinder->Count(), 0);
    remove();
  }
  kinder->Load();
  EXPECT_EQ(kinder->Count(), 1);
  EXPECT_EQ(kinder->Item(1)->Zeitbezuege()->Count(), 1);
}

TEST_F(KinderLoadTest, TheEmployeeLoadReadsChildrenAndUpdateAndRefreshLeaveThem) {
  const std::string kid = Child("Lukas", D(2007, 8, 21));
  AddEntry(kid, {.zeitraum = 202001});
  AddStep(employee, eLBEintritt, D(2020, 1, 1));
  AddPayRow(employee, 202403);
  clsMitarbeiter& list = *manager->Mitarbeiter();
  list.Load(2024, lcPersonalnummer);
  ASSERT_EQ(list.Count(), 1);
  auto lohn = list.Item(1);
  const auto& kinder = lohn->Kinder();
  ASSERT_EQ(kinder->Count(), 1);
  EXPECT_EQ(kinder->EmployeeID(), employee);
  EXPECT_EQ(Names(kinder->GetFABOKinder(202403)), "Lukas");

  // Children are written by the host alone: Update with their flag writes nothing
  // and does not fail, and Refresh, even of all tables, keeps them as loaded.
  const long rows = test::CountRows(db, "Mitarbeiter_Kinder") + test::CountRows(db, "Mitarbeiter_Kinder_ZB");
  kinder->Item(1)->VorName = "geändert";
  EXPECT_NO_THROW(lohn->Update(*manager, ucTableKinder));
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Kinder") + test::CountRows(db, "Mitarbeiter_Kinder_ZB"), rows);
  EXPECT_EQ(Stored("Mitarbeiter_Kinder", "[ID]=" + kid, "VorName"), Variant("Lukas"));
  Child("Marie", D(2019, 5, 10));
  lohn->Refresh(*manager, ucAllTables);
  EXPECT_EQ(kinder->Count(), 1);
  EXPECT_EQ(kinder->Item(1)->VorName, "geändert");
}

TEST_F(KinderLoadTest, WithoutASessionTheQuestionsAnswerNothingOrFail) {
  LLohn_Kinder unbound;
  EXPECT_EQ(unbound.GetFABOKinder(202401).Count(), 0);
  EXPECT_EQ(unbound.GetAVAEKinder(202401).Count(), 0);
  EXPECT_THROW(unbound.Load(), Error);
  LLohn_Kind made;
  made.ID = ValueHelpers::NewID();
  bool avae = false;
  EXPECT_THROW(made.Eingang(avae), Error);
  EXPECT_THROW(made.ZUab(), Error);
  EXPECT_THROW(made.Abgang(), Error);
  std::string staat;
  bool a = false, b = false, c = false, d = false;
  std::int16_t m1 = 0, m2 = 0, m3 = 0, m4 = 0;
  EXPECT_THROW(made.GetL16Daten(202401, 202412, staat, a, b, c, d, m1, m2, m3, m4), Error);
  EXPECT_EQ(made.Name(), "");
}

}  // namespace
