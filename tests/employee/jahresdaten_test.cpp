// The employee's year data: the row of the current year, found by the employee key
// as given on load and by its SqlID form on save, and what a load leaves alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "employee_fixture.h"
#include "ormelix/error.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

class JahresdatenTest : public test::EmployeeTest {
 protected:
  std::string YearRow(const std::string& employee, int year) {
    return "[MitarbeiterID]=" + SqlID(employee) + " AND [Jahr]=" + std::to_string(year);
  }
};

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

TEST_F(JahresdatenTest, ASaveInsertsTheRowOfTheYearOnceAndChangesItInPlaceAfterwards) {
  const std::string id = AddEmployee("Jahr");
  auto lohn = Loaded(manager, id);
  LLohn_Jahresdaten& j = *lohn->Jahresdaten();
  ASSERT_TRUE(j.SachbezugRegelung());
  EXPECT_FALSE(j.SachbezugRegelung()->SBezugAb);
  j.DZBundesland = eBasisTirol;
  j.KFZ_Anzahl_Kalendermonate = 3;
  j.SachbezugRegelung()->SBezugAb = true;
  j.SachbezugRegelung()->SBezugMonat = 4;
  lohn->Update(*manager, uctableJahresdaten);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Jahresdaten"), 1);
  EXPECT_EQ(ToLong(Stored("Mitarbeiter_Jahresdaten", YearRow(id, 2024), "DZBundesland")), 7);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel"), 0);  // only the flagged table

  j.KFZ_Anzahl_Kalendermonate = 12;
  lohn->Update(*manager, uctableJahresdaten);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Jahresdaten"), 1);
  auto reloaded = Loaded(ReopenedSession(), id);
  EXPECT_EQ(reloaded->Jahresdaten()->KFZ_Anzahl_Kalendermonate, 12);
  EXPECT_EQ(reloaded->Jahresdaten()->DZBundesland, eBasisTirol);
  EXPECT_TRUE(reloaded->Jahresdaten()->SachbezugRegelung()->SBezugAb);
  EXPECT_EQ(reloaded->Jahresdaten()->SachbezugRegelung()->SBezugMonat, 4);
}

TEST_F(JahresdatenTest, AnEmployeeAddedToTheListGetsTheRowOfTheCurrentYear) {
  auto lohn = std::make_shared<LLohn>();
  lohn->Jahresdaten()->Bemerkung = "neu";
  manager->Mitarbeiter()->Add(lohn, 0, lcPersonalnummer);
  EXPECT_EQ(ToText(Stored("Mitarbeiter_Jahresdaten", YearRow(lohn->ID(), 2024), "Bemerkung")), "neu");
  EXPECT_EQ(lohn->Jahresdaten()->Bemerkung, "neu");  // the list's object, loaded from the store
}

TEST_F(JahresdatenTest, WithoutARowForTheYearTheValuesStayAndASaveInsertsThemUnderTheCurrentYear) {
  const std::string id = AddEmployee("Wechsel");
  test::AddRow(db, "Mitarbeiter_Jahresdaten",
               {{"MitarbeiterID", id}, {"Jahr", 2024}, {"KFZ_Anzahl_Kalendermonate", 5}, {"Bemerkung", "aus 2024"}});
  auto lohn = Loaded(manager, id);
  EXPECT_EQ(lohn->Jahresdaten()->KFZ_Anzahl_Kalendermonate, 5);

  manager->AktJahr = 2025;
  db->Session().ExecuteSql("UPDATE [Mitarbeiter_Jahresdaten] SET [Bemerkung]='geändert'");
  EXPECT_EQ(lohn->Jahresdaten()->Bemerkung, "aus 2024");  // a change of year alone reloads nothing
  lohn->Refresh(*manager, uctableJahresdaten);
  EXPECT_EQ(lohn->Jahresdaten()->Bemerkung, "aus 2024");  // no row of 2025: nothing changes

  lohn->Update(*manager, uctableJahresdaten);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Jahresdaten"), 2);
  EXPECT_EQ(ToInteger(Stored("Mitarbeiter_Jahresdaten", YearRow(id, 2025), "KFZ_Anzahl_Kalendermonate")), 5);
  EXPECT_EQ(ToText(Stored("Mitarbeiter_Jahresdaten", YearRow(id, 2025), "Bemerkung")), "aus 2024");
  EXPECT_EQ(ToText(Stored("Mitarbeiter_Jahresdaten", YearRow(id, 2024), "Bemerkung")), "geändert");
}

TEST_F(JahresdatenTest, LoadByThePlainKeyAndSaveBySqlIDMeetInTheRowAnotherProgramWrote) {
  const std::string id = AddEmployee("Fremd");
  {
    // Another program on the same file wrote the row.
    auto other = StoreConnection::Open(db->Session().StorePath());
    test::AddRow(other, "Mitarbeiter_Jahresdaten", {{"MitarbeiterID", id}, {"Jahr", 2024}, {"BeitragsTeilentgeld", 12.5}});
  }
  EXPECT_EQ(Loaded(manager, id)->Jahresdaten()->BeitragsTeilentgeld, 12.5);
  // The key as a host may hold it, in lower case: the load takes it as it stands,
  // the save in its SqlID form, and both reach that row.
  auto lohn = Loaded(manager, Lower(id));
  EXPECT_EQ(lohn->Jahresdaten()->BeitragsTeilentgeld, 12.5);
  lohn->Jahresdaten()->BeitragsTeilentgeld = 99.25;
  lohn->Update(*manager, uctableJahresdaten);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Jahresdaten"), 1);
  EXPECT_EQ(ToAmount(Stored("Mitarbeiter_Jahresdaten", YearRow(id, 2024), "BeitragsTeilentgeld")), 99.25);

  // A key that is no ID (a host's own numbering) is a literal on both ways too.
  auto numbered = std::make_shared<LLohn>();
  numbered->LoadMitarbeiter(*manager, "P-17", 1);
  numbered->Jahresdaten()->Bemerkung = "nummeriert";
  numbered->Update(*manager, uctableJahresdaten);
  numbered->Update(*manager, uctableJahresdaten);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Jahresdaten", "[MitarbeiterID]='P-17'"), 1);
  EXPECT_EQ(Loaded(manager, "P-17")->Jahresdaten()->Bemerkung, "nummeriert");
}

TEST_F(JahresdatenTest, AnEmptyPlaceOfWorkIsStoredAsTheIDThatMatchesNoRow) {
  const std::string id = AddEmployee("Ort");
  auto lohn = Loaded(manager, id);
  lohn->Update(*manager, uctableJahresdaten);
  const std::string stored = ToText(Stored("Mitarbeiter_Jahresdaten", YearRow(id, 2024), "ArbeitsstaetteID"));
  EXPECT_EQ(stored, SqlID(""));
  EXPECT_FALSE(DateHelpers::IsID(Variant(stored)));
  EXPECT_EQ(Loaded(manager, id)->Jahresdaten()->ArbeitsstaetteID, SqlID(""));  // and reads back so

  const std::string place = NewID();
  lohn->Jahresdaten()->ArbeitsstaetteID = Lower(place);
  lohn->Update(*manager, uctableJahresdaten);
  EXPECT_EQ(ToText(Stored("Mitarbeiter_Jahresdaten", YearRow(id, 2024), "ArbeitsstaetteID")), place);
}

TEST_F(JahresdatenTest, AngewandterKVIsReadThroughItsTextAndATextThatIsNoBooleanStopsTheLoadThere) {
  const std::string id = AddEmployee("KV");
  const std::string row = test::AddRow(db, "Mitarbeiter_Jahresdaten",
                                       {{"MitarbeiterID", id},
                                        {"Jahr", 2024},
                                        {"Bemerkung", "vorher"},
                                        {"AngewandterKV", -1},
                                        {"AngewandterKVText", "Hotel- und Gastgewerbe"}});
  auto lohn = Loaded(manager, id);
  EXPECT_TRUE(lohn->Jahresdaten()->AngewandterKV);
  EXPECT_EQ(lohn->Jahresdaten()->AngewandterKVText, "Hotel- und Gastgewerbe");

  for (const Variant& bad : {Variant::NullValue(), Variant("vielleicht")}) {
    if (test::OnPostgres() && bad.IsText()) continue;  // a number column of PostgreSQL holds no text
    auto fresh = std::make_shared<LLohn>();
    fresh->Jahresdaten()->AngewandterKVText = "unverändert";
    auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Jahresdaten] WHERE [ID]=" + SqlID(row),
                                          adOpenDynamic, adLockOptimistic);
    rs->Collect("AngewandterKV", bad);
    rs->Update();
    EXPECT_THROW(fresh->LoadMitarbeiter(*manager, id, 1), ConversionError) << bad.Describe();
    EXPECT_EQ(fresh->Jahresdaten()->Bemerkung, "vorher");  // the columns before it are read
    EXPECT_EQ(fresh->Jahresdaten()->AngewandterKVText, "unverändert");  // those after it are not
  }
}

}  // namespace
