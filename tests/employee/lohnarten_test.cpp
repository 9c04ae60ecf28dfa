// Wage-type lines: the grid of 40 rows a save writes for AktMonat, the decimals the
// store keeps, the markings that belong to one group each, what a load leaves
// alone, and stored rows whose SortNr names no line.
#include <gtest/gtest.h>

#include "employee_fixture.h"
#include "ormelix/employee/mod_database.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

class LohnartenTest : public test::EmployeeTest {
 protected:
  std::string id = AddEmployee("Zulage");

  std::string Row(std::int32_t zeitraum, int group, int sort_nr) {
    return "[MitarbeiterID]=" + SqlID(id) + " AND [Zeitraum]=" + std::to_string(zeitraum) +
           " AND [Lohnarttyp]=" + std::to_string(group) + " AND [SortNr]=" + std::to_string(sort_nr);
  }
  Variant LineColumn(std::int32_t zeitraum, int group, int sort_nr, const std::string& column) {
    return Stored("Mitarbeiter_Lohnarten", Row(zeitraum, group, sort_nr), column);
  }
  // A row as another program writes it, with the given columns.
  std::string AddLine(std::int32_t zeitraum, int group, int sort_nr,
                      std::initializer_list<std::pair<const char*, Variant>> more = {}) {
    auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Lohnarten]", adOpenDynamic, adLockOptimistic);
    rs->AddNew();
    rs->Collect("MitarbeiterID", id);
    rs->Collect("Zeitraum", zeitraum);
    rs->Collect("Lohnarttyp", group);
    rs->Collect("SortNr", sort_nr);
    for (const auto& [column, value] : more) rs->Collect(column, value);
    rs->Update();
    return ToText(rs->Fields("ID"));
  }
};

TEST_F(LohnartenTest, AFirstSaveWritesFortyRowsAndASecondChangesThemInPlace) {
  auto lohn = Loaded(manager, id);
  lohn->Update(*manager, ucTableLohnarten);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnarten"), 40);
  for (int group = 1; group <= 8; ++group)
    for (int line = 1; line <= 5; ++line)
      EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnarten", Row(202403, group, line)), 1) << group << "/" << line;

  lohn->ZSL_Text(4, 2, 3) = "Schmutzzulage";
  lohn->Aufwandsentsch_Betrag(5, 3) = 12.5f;
  lohn->Update(*manager, ucTableLohnarten);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnarten"), 40);
  EXPECT_EQ(ToText(LineColumn(202403, 4, 2, "Bezeichnung")), "Schmutzzulage");
  EXPECT_EQ(ToAmount(LineColumn(202403, 8, 5, "Betrag")), 12.5);
}

TEST_F(LohnartenTest, RateAndPercentageKeepThreeDecimalsQuantityAndAmountTwo) {
  auto lohn = Loaded(manager, id);
  lohn->ZSL_Anzahl(1, 1, 3) = 1.236f;
  lohn->ZSL_Satz(1, 1, 3) = 12.3456f;
  lohn->ZSL_Betrag(1, 1, 3) = 10.005f;
  lohn->ZSL_Prozent(1, 1, 3) = 33.3333f;
  lohn->SonstigeAbz_Satz(2, 3) = 0.1235f;
  lohn->SonstigeAbz_Betrag(2, 3) = -7.125f;
  lohn->Update(*manager, ucTableLohnarten);
  EXPECT_EQ(ToAmount(LineColumn(202403, 1, 1, "Anzahl")), 1.24);
  EXPECT_EQ(ToAmount(LineColumn(202403, 1, 1, "Satz")), 12.346);
  EXPECT_EQ(ToAmount(LineColumn(202403, 1, 1, "Betrag")), 10.01);
  EXPECT_EQ(ToAmount(LineColumn(202403, 1, 1, "Zuschlag_Prozent")), 33.333);
  EXPECT_EQ(ToAmount(LineColumn(202403, 7, 2, "Satz")), 0.124);
  EXPECT_EQ(ToAmount(LineColumn(202403, 7, 2, "Betrag")), -7.13);
}

TEST_F(LohnartenTest, TheLinesOfAktMonatAreSavedWhateverMonthUpdateNames) {
  manager->AktMonat = 5;
  auto lohn = Loaded(manager, id);
  lohn->ZSL_Betrag(1, 1, 5) = 50;
  lohn->ZSL_Betrag(1, 1, 3) = 30;
  lohn->Update(*manager, ucTableLohnarten, 3);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnarten", "[Zeitraum]=202405"), 40);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnarten", "[Zeitraum]<>202405"), 0);
  EXPECT_EQ(ToAmount(LineColumn(202405, 1, 1, "Betrag")), 50);

  lohn->Update(*manager, ucAllTables, 3);  // the pay record of March, the lines of May
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel", "[Zeitraum]=202403"), 1);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnarten"), 40);
}

TEST_F(LohnartenTest, EachMarkingIsWrittenAndReadByTheRowsOfItsOwnGroupOnly) {
  auto lohn = Loaded(manager, id);
  lohn->ZSL_DBDZKST_frei(1, 3) = true;
  lohn->ZSL_Teuerungsprämie(1, 3) = true;
  lohn->ZSL_Mitarbeitergewinnbeteiligung(2, 3) = true;
  lohn->Update(*manager, ucTableLohnarten);
  EXPECT_EQ(ToLong(LineColumn(202403, 1, 1, "ZSL_DBDZKST_frei")), -1);
  EXPECT_EQ(ToLong(LineColumn(202403, 1, 1, "ZSL_Teuerungsprämie")), 0);  // not a column of group 1
  EXPECT_EQ(ToLong(LineColumn(202403, 2, 1, "ZSL_Teuerungsprämie")), -1);
  EXPECT_EQ(ToLong(LineColumn(202403, 2, 1, "ZSL_DBDZKST_frei")), 0);
  EXPECT_EQ(ToLong(LineColumn(202403, 3, 2, "ZSL_Mitarbeitergewinnbeteiligung")), -1);
  for (int group : {4, 5, 6, 7, 8}) EXPECT_EQ(ToLong(LineColumn(202403, group, 1, "ZSL_DBDZKST_frei")), 0) << group;

  // Another program marks a line of group 2 as free of DB/DZ/KommSt, and stores True
  // as 1 in group 1: only the row of the marking's own group counts, as a number.
  db->Session().ExecuteSql("UPDATE [Mitarbeiter_Lohnarten] SET [ZSL_DBDZKST_frei]=-1 WHERE " + Row(202403, 2, 4));
  db->Session().ExecuteSql("UPDATE [Mitarbeiter_Lohnarten] SET [ZSL_DBDZKST_frei]=1 WHERE " + Row(202403, 1, 5));
  auto reloaded = Loaded(ReopenedSession(), id);
  EXPECT_TRUE(reloaded->ZSL_DBDZKST_frei(1, 3));
  EXPECT_FALSE(reloaded->ZSL_DBDZKST_frei(4, 3));
  EXPECT_TRUE(reloaded->ZSL_DBDZKST_frei(5, 3));
  EXPECT_TRUE(reloaded->ZSL_Teuerungsprämie(1, 3));
  EXPECT_TRUE(reloaded->ZSL_Mitarbeitergewinnbeteiligung(2, 3));
}

TEST_F(LohnartenTest, ALoadFillsTheMonthsOfTheYearAndLeavesLinesWithoutARowAlone) {
  AddLine(202402, 1, 1, {{"Bezeichnung", "Überstunden 50 %"}, {"Anzahl", 10}, {"Satz", 31.25}});
  AddLine(202402, 7, 3, {{"Bezeichnung", "Vorschuss"}, {"Betrag", 200}});
  AddLine(202412, 8, 5, {{"Bezeichnung", "Kilometergeld"}, {"Anzahl", 120}, {"Satz", 0.5}});
  AddLine(202502, 1, 1, {{"Bezeichnung", "nächstes Jahr"}});
  AddLine(202402, 9, 2, {{"Bezeichnung", "keine Gruppe"}});  // no group: passed over
  auto lohn = std::make_shared<LLohn>();
  lohn->ZSL_Text(1, 2, 2) = "im Speicher";
  lohn->LoadMitarbeiter(*manager, id, 1);
  EXPECT_EQ(lohn->ZSL_Text(1, 1, 2), "Überstunden 50 %");
  EXPECT_EQ(lohn->ZSL_Anzahl(1, 1, 2), 10);
  EXPECT_EQ(lohn->ZSL_Satz(1, 1, 2), 31.25f);
  EXPECT_EQ(lohn->SonstigeAbz_text(3, 2), "Vorschuss");
  EXPECT_EQ(lohn->SonstigeAbz_Betrag(3, 2), 200);
  EXPECT_EQ(lohn->Aufwandsentsch_Satz(5, 12), 0.5f);
  EXPECT_EQ(lohn->ZSL_Text(1, 2, 2), "im Speicher");  // no row for that line
  EXPECT_EQ(lohn->ZSL_Text(1, 1, 1), "");            // rows of another year are passed over

  db->Session().ExecuteSql("DELETE * FROM [Mitarbeiter_Lohnarten]");
  lohn->Refresh(*manager, ucTableLohnarten);
  EXPECT_EQ(lohn->SonstigeAbz_text(3, 2), "Vorschuss");  // a refresh clears nothing
}

TEST_F(LohnartenTest, TheMarkedPartsAnswerFromTheStoredLines) {
  AddLine(202403, 1, 1, {{"Anzahl", 2}, {"Satz", 25}, {"ZSL_DBDZKST_frei", -1}});
  AddLine(202403, 1, 2, {{"Betrag", 50}});
  AddLine(202403, 2, 1, {{"Betrag", 80}, {"ZSL_TeuerungsprämieKV", -1}});
  AddPayRow(id, 202403);
  db->Session().ExecuteSql("UPDATE [Mitarbeiter_Lohnzettel] SET [LFD_Bezüge]=100, [LFD_Bezüge_LS_frei]=80");
  auto lohn = Loaded(manager, id);
  EXPECT_DOUBLE_EQ(lohn->GetDBDZKST_frei(3), 50);
  EXPECT_DOUBLE_EQ(lohn->GetTeuerungsprämieKV(3), 80);
  EXPECT_EQ(lohn->GetTeuerungsprämie(3), 0);
  EXPECT_EQ(lohn->GetDBDZKST_frei(4), 0);
}

TEST_F(LohnartenTest, ASaveTakesAGroupsRowsInOrderWhateverLineTheirSortNrNames) {
  auto lohn = Loaded(manager, id);  // loaded before the other program's rows come
  const std::string group9 = AddLine(202403, 9, 1, {{"Bezeichnung", "Gruppe 9"}});
  const std::string line0 = AddLine(202403, 1, 0, {{"Bezeichnung", "Zeile 0"}});
  const std::string line2 = AddLine(202403, 1, 2, {{"Bezeichnung", "zweite"}});
  const std::string line7 = AddLine(202403, 7, 7, {{"Bezeichnung", "sieben"}});
  lohn->ZSL_Text(1, 1, 3) = "eins";
  lohn->ZSL_Text(1, 2, 3) = "zwei";
  lohn->SonstigeAbz_text(1, 3) = "Vorschuss";
  lohn->Update(*manager, ucTableLohnarten);
  // A row of no group 1..8 is no row of any group's filter.
  EXPECT_EQ(ToText(Stored("Mitarbeiter_Lohnarten", "[ID]=" + group9, "Bezeichnung")), "Gruppe 9");
  // Line 1 goes into the first row by SortNr (0), line 2 into the second (2), and
  // neither SortNr is rewritten; the group gets rows only for lines 3 to 5.
  EXPECT_EQ(ToText(Stored("Mitarbeiter_Lohnarten", "[ID]=" + line0, "Bezeichnung")), "eins");
  EXPECT_EQ(ToInteger(Stored("Mitarbeiter_Lohnarten", "[ID]=" + line0, "SortNr")), 0);
  EXPECT_EQ(ToText(Stored("Mitarbeiter_Lohnarten", "[ID]=" + line2, "Bezeichnung")), "zwei");
  EXPECT_EQ(ToText(Stored("Mitarbeiter_Lohnarten", "[ID]=" + line7, "Bezeichnung")), "Vorschuss");
  EXPECT_EQ(ToInteger(Stored("Mitarbeiter_Lohnarten", "[ID]=" + line7, "SortNr")), 7);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnarten", "[Lohnarttyp]=1"), 5);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnarten", "[Lohnarttyp]=7"), 5);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnarten"), 41);
  for (int line = 3; line <= 5; ++line)
    EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnarten", Row(202403, 1, line)), 1) << line;

  // The load still refuses a row that stands for no line.
  try {
    Loaded(manager, id);
    ADD_FAILURE() << "a stored SortNr 0 was loaded";
  } catch (const std::out_of_range& failure) {
    EXPECT_NE(std::string(failure.what()).find("SortNr 0 of group 1"), std::string::npos) << failure.what();
  }
}

TEST_F(LohnartenTest, AMonthOutsideOneToTwelveStopsUpdateBeforeAnythingIsWritten) {
  auto lohn = Loaded(manager, id);
  lohn->Mitarbeiter()->FName = "Geändert";
  for (std::int16_t month : {0, 13}) {
    manager->AktMonat = month;
    for (int flags :
         {int{ucAllTables}, int{ucTableLohnarten}, int{ucTableÜbertritte}, ucTableMitarbeiter | ucTableLohnzettel}) {
      try {
        lohn->Update(*manager, flags);
        ADD_FAILURE() << "AktMonat " << month << " was saved with flags " << flags;
      } catch (const std::out_of_range& failure) {
        EXPECT_NE(std::string(failure.what()).find("LLohn.Update: AktMonat " + std::to_string(month)),
                  std::string::npos)
            << failure.what();
      }
    }
    EXPECT_THROW(modDatabase::SaveLohnarten(*manager, *lohn, id), std::out_of_range);
  }
  manager->AktMonat = 3;
  EXPECT_THROW(lohn->Update(*manager, ucTableLohnzettel, 13), std::out_of_range);
  EXPECT_EQ(ToText(Stored("Mitarbeiter", "[ID]=" + SqlID(id), "Familienname")), "Zulage");
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnarten"), 0);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel"), 0);
  EXPECT_NO_THROW(lohn->Update(*manager, ucTableMitarbeiter, 13));  // no month is saved there
}

}  // namespace
