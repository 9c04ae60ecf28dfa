// Every column of one pay month and of the master record, driven by the column
// declarations themselves: each property gets a distinct value, is saved, and must
// stand in its column and come back in a new session. Each case runs twice with
// the flags inverted, so that every flag is True in one of the rounds.
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "employee_fixture.h"
#include "support/column_fill.h"
#include "ormelix/employee/mod_database.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;
using modDatabase::LohnartenLine;
using modDatabase::LohnzettelMonth;
using namespace ormelix::test;

namespace {

class RoundTrip : public test::EmployeeTest, public ::testing::WithParamInterface<int> {
 protected:
  void ExpectStored(const std::map<std::string, Variant>& written, const std::string& table, const std::string& where) {
    test::ExpectStored(db, written, table, where);
  }
};

TEST_P(RoundTrip, EveryColumnOfAPayMonthIsStoredAndComesBackInANewSession) {
  const int phase = GetParam();
  const std::string id = AddEmployee("Rund");
  auto lohn = Loaded(manager, id);
  LohnzettelMonth row{lohn.get(), 7};
  const auto& columns = modDatabase::LohnzettelColumns();
  FillAll(columns, row, phase);
  auto days = lohn->FB_Fallweise(7);
  days->Tage(1) = days->Tage(17 + phase) = days->Tage(31) = true;
  const auto written = Written(columns, row);
  lohn->Update(*manager, ucTableLohnzettel, 7);

  const std::string where = "[MitarbeiterID]=" + SqlID(id) + " AND [Zeitraum]=202407";
  ExpectStored(written, "Mitarbeiter_Lohnzettel", where);
  EXPECT_EQ(ToText(Stored("Mitarbeiter_Lohnzettel", where, "FB_Tage")), phase ? "011831" : "011731");
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Lohnzettel] WHERE " + where);
  ExpectEveryColumnDeclared(columns, *rs, {"ID", "Nr", "MitarbeiterID", "Zeitraum", "FB_Tage"});
  ExpectDistinctProperties(columns, row);

  auto reloaded = Loaded(ReopenedSession(), id);
  LohnzettelMonth back{reloaded.get(), 7};
  ExpectLoaded(columns, back, written);
  for (int day = 1; day <= 31; ++day)
    EXPECT_EQ(reloaded->FB_Fallweise(7)->Tage(day), day == 1 || day == 17 + phase || day == 31) << "day " << day;
  EXPECT_EQ(reloaded->UE_Laufend_Tage(6), 30);  // the months around have no row
  EXPECT_EQ(reloaded->Gehalt(8), 0);
}

TEST_P(RoundTrip, EveryColumnOfTheMasterRecordAndTheBankRowComesBackInANewSession) {
  const int phase = GetParam();
  const std::string id = AddEmployee("Stamm");
  auto lohn = Loaded(manager, id);
  FillAll(modDatabase::MitarbeiterColumns(), *lohn, phase);
  FillAll(modDatabase::BankverbindungColumns(), *lohn, phase);
  // Keys stay keys; ForstarbeiterLandWF counts only for a forest worker of the Land.
  lohn->BasisID = NewID();
  lohn->Mitarbeiter()->SVNRAnforderungsID = NewID();
  lohn->op_ForstarbeiterLand = -1;
  const auto master = Written(modDatabase::MitarbeiterColumns(), *lohn);
  const auto bank = Written(modDatabase::BankverbindungColumns(), *lohn);
  lohn->Update(*manager, ucTableMitarbeiter | ucTableBankverbindung);

  ExpectStored(master, "Mitarbeiter", "[ID]=" + SqlID(id));
  ExpectStored(bank, "Mitarbeiter_Bankverbindung", "[MitarbeiterID]=" + SqlID(id));
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter] WHERE [ID]=" + SqlID(id));
  ExpectEveryColumnDeclared(modDatabase::MitarbeiterColumns(), *rs, {"ID", "Nr", "MandantenID", "SortNr"});
  ExpectDistinctProperties(modDatabase::MitarbeiterColumns(), *lohn);
  ExpectDistinctProperties(modDatabase::BankverbindungColumns(), *lohn);

  auto reloaded = Loaded(ReopenedSession(), id);
  ExpectLoaded(modDatabase::MitarbeiterColumns(), *reloaded, master);
  ExpectLoaded(modDatabase::BankverbindungColumns(), *reloaded, bank);
}

// The same for the employee's year data.
TEST_P(RoundTrip, EveryColumnOfTheYearDataComesBackInANewSession) {
  const int phase = GetParam();
  const std::string id = AddEmployee("Jahresdaten");
  auto lohn = Loaded(manager, id);
  LLohn_Jahresdaten& jahresdaten = *lohn->Jahresdaten();
  const auto& columns = modDatabase::JahresdatenColumns();
  FillAll(columns, jahresdaten, phase);
  jahresdaten.ArbeitsstaetteID = NewID();  // written in its SQL form, which an ID keeps
  jahresdaten.DZBundesland = phase ? eBasisWien : eBasisKärnten;
  const auto written = Written(columns, jahresdaten);
  lohn->Update(*manager, uctableJahresdaten);

  const std::string where = "[MitarbeiterID]=" + SqlID(id) + " AND [Jahr]=2024";
  ExpectStored(written, "Mitarbeiter_Jahresdaten", where);
  EXPECT_EQ(ToLong(Stored("Mitarbeiter_Jahresdaten", where, "DZBundesland")), phase ? 9 : 2);
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Jahresdaten] WHERE " + where);
  ExpectEveryColumnDeclared(columns, *rs, {"ID", "Nr", "MitarbeiterID", "Jahr"});
  ExpectDistinctProperties(columns, jahresdaten);

  auto reloaded = Loaded(ReopenedSession(), id);
  ExpectLoaded(columns, *reloaded->Jahresdaten(), written);
  EXPECT_EQ(reloaded->Jahresdaten()->DZBundesland, phase ? eBasisWien : eBasisKärnten);
}

// The whole wage-type grid of a month, every line of the eight groups, from the
// declarations of each group; every column of the table is written by some group.
TEST_P(RoundTrip, EveryColumnOfEveryWageTypeLineComesBackInANewSession) {
  const int phase = GetParam();
  const std::string id = AddEmployee("Lohnarten");
  auto lohn = Loaded(manager, id);
  std::map<std::pair<int, int>, std::map<std::string, Variant>> written;
  std::set<std::string> declared;
  for (int group = 1; group <= 8; ++group) {
    const auto& decls = modDatabase::LohnartenColumns(group).Columns();
    for (int line = 1; line <= 5; ++line) {
      LohnartenLine row{lohn.get(), group, line, 3};
      for (std::size_t i = 0; i < decls.size(); ++i)
        Fill(decls[i], row, (group * 5 + line) * 10 + static_cast<int>(i), phase);
      written[{group, line}] = Written(modDatabase::LohnartenColumns(group), row);
      ExpectDistinctProperties(modDatabase::LohnartenColumns(group), row);
    }
    for (const auto& decl : decls) declared.insert(decl.column);
  }
  lohn->Update(*manager, ucTableLohnarten);

  auto where = [&](int group, int line) {
    return "[MitarbeiterID]=" + SqlID(id) + " AND [Zeitraum]=202403 AND [Lohnarttyp]=" + std::to_string(group) +
           " AND [SortNr]=" + std::to_string(line);
  };
  for (const auto& [key, values] : written) ExpectStored(values, "Mitarbeiter_Lohnarten", where(key.first, key.second));
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Lohnarten]");
  const std::set<std::string> keys{"ID", "Nr", "MitarbeiterID", "Zeitraum", "Lohnarttyp", "SortNr"};
  for (int i = 0; i < rs->FieldCount(); ++i)
    EXPECT_TRUE(keys.count(rs->FieldName(i)) || declared.count(rs->FieldName(i)))
        << rs->FieldName(i) << " is not written";

  auto reloaded = Loaded(ReopenedSession(), id);
  for (const auto& [key, values] : written) {
    LohnartenLine back{reloaded.get(), key.first, key.second, 3};
    ExpectLoaded(modDatabase::LohnartenColumns(key.first), back, values);
  }
}

// The same for the transfer of a month.
TEST_P(RoundTrip, EveryColumnOfATransferComesBackInANewSession) {
  const int phase = GetParam();
  const std::string id = AddEmployee("Übertritt");
  auto lohn = Loaded(manager, id);
  const auto& columns = modDatabase::UebertritteColumns();
  FillAll(columns, *lohn->Uebertritt(3), phase);
  const auto written = Written(columns, *lohn->Uebertritt(3));
  lohn->Update(*manager, ucTableÜbertritte);

  const std::string where = "[MitarbeiterID]=" + SqlID(id) + " AND [Zeitraum]=202403";
  ExpectStored(written, "Mitarbeiter_Übertritte", where);
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Übertritte] WHERE " + where);
  ExpectEveryColumnDeclared(columns, *rs, {"ID", "Nr", "MitarbeiterID", "Zeitraum"});
  ExpectDistinctProperties(columns, *lohn->Uebertritt(3));
  ExpectLoaded(columns, *Loaded(ReopenedSession(), id)->Uebertritt(3), written);
}

INSTANTIATE_TEST_SUITE_P(FlagsOnAndOff, RoundTrip, ::testing::Values(0, 1));

}  // namespace
