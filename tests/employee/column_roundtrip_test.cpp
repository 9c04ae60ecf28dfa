// Every column of one pay month and of the master record, driven by the column
// declarations themselves: each property gets a distinct value, is saved, and must
// stand in its column and come back in a new session. Each case runs twice with
// the flags inverted, so that every flag is True in one of the rounds.
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "employee_fixture.h"
#include "ormelix/employee/mod_database.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;
using modDatabase::LohnartenLine;
using modDatabase::LohnzettelMonth;

namespace {

template <class Target>
bool IsFlag(const ColumnDecl<Target>& decl) {
  return decl.load == LoadAs::Flag || decl.save == SaveAs::Flag;
}

// A distinct value for entry i, of the property's type and in the range its
// conversions give back unchanged (whole numbers where a conversion rounds to
// them, -1/0 where a column is a flag, at most two decimals for amounts).
template <class Target>
void Fill(const ColumnDecl<Target>& decl, Target& target, int i, int phase) {
  const bool on = (i + phase) % 2 == 0;
  std::visit(Overloaded{[&](std::string* p) { *p = "Wert " + std::to_string(i) + (phase ? " ä" : " ß"); },
                        [&](bool* p) { *p = on; },
                        [&](std::int16_t* p) {
                          *p = static_cast<std::int16_t>(IsFlag(decl) ? (on ? -1 : 0) : 100 + i + 300 * phase);
                        },
                        [&](std::int32_t* p) { *p = 100000 + i + 1000 * phase; },
                        [&](float* p) { *p = static_cast<float>(i + 1000 * phase) + 0.25f; },
                        [&](double* p) { *p = 45000.0 + i + 1000 * phase + (decl.load == LoadAs::Date ? 0 : 0.75); },
                        [&](Variant* p) { *p = Variant(i); }},
             decl.property(target));
}

// The value a column must hold for a property: the value itself, True as -1.
Variant AsStored(PropertyRef ref) {
  return std::visit(Overloaded{[](std::string* p) { return Variant(*p); },
                               [](bool* p) { return Variant(*p ? -1 : 0); },
                               [](std::int16_t* p) { return Variant(*p); },
                               [](std::int32_t* p) { return Variant(*p); },
                               [](float* p) { return Variant(static_cast<double>(*p)); },
                               [](double* p) { return Variant(*p); },
                               [](Variant* p) { return *p; }},
                    ref);
}

// Equal as texts, or equal as numbers whatever the number's kind.
::testing::AssertionResult Same(const Variant& actual, const Variant& expected) {
  double a = 0;
  double b = 0;
  bool equal = expected.IsText() ? actual.IsText() && actual.AsText() == expected.AsText()
                                 : !actual.IsText() && actual.TryNumber(a) && expected.TryNumber(b) && a == b;
  if (equal) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "holds '" << actual.Describe() << "', expected '" << expected.Describe() << "'";
}

// Fills every property of the declaration and gives, per written column, the value
// its property held.
template <class Target>
void FillAll(const ColumnSet<Target>& columns, Target& target, int phase) {
  const auto& decls = columns.Columns();
  for (std::size_t i = 0; i < decls.size(); ++i)
    if (decls[i].property) Fill(decls[i], target, static_cast<int>(i), phase);
}

template <class Target>
std::map<std::string, Variant> Written(const ColumnSet<Target>& columns, Target& target) {
  std::map<std::string, Variant> written;
  for (const auto& decl : columns.Columns())
    if (decl.column && decl.property && decl.save != SaveAs::None && decl.save != SaveAs::Custom)
      written[decl.column] = AsStored(decl.save_property ? decl.save_property(target) : decl.property(target));
  return written;
}

// Every property read by the declaration holds what was written to the column it
// is read from.
template <class Target>
void ExpectLoaded(const ColumnSet<Target>& columns, Target& target, const std::map<std::string, Variant>& written) {
  int compared = 0;
  for (const auto& decl : columns.Columns()) {
    if (!decl.column || !decl.property || decl.load == LoadAs::None) continue;
    EXPECT_TRUE(Same(AsStored(decl.property(target)), written.at(decl.column))) << "property read from " << decl.column;
    ++compared;
  }
  EXPECT_GT(compared, 0);
}

// Every column of the table but the keys is written by the declaration.
template <class Target>
void ExpectEveryColumnDeclared(const ColumnSet<Target>& columns, Recordset& rs, std::set<std::string> keys) {
  std::set<std::string> declared;
  for (const auto& decl : columns.Columns())
    if (decl.column && decl.save != SaveAs::None) declared.insert(decl.column);
  for (int i = 0; i < rs.FieldCount(); ++i) {
    if (keys.count(rs.FieldName(i))) continue;
    EXPECT_TRUE(declared.count(rs.FieldName(i))) << rs.FieldName(i) << " is not written";
  }
}

// No two columns that are both read and written share a property: a column mapped
// to the wrong member would leave that member's own column doubled.
template <class Target>
void ExpectDistinctProperties(const ColumnSet<Target>& columns, Target& target) {
  std::map<const void*, std::string> seen;
  for (const auto& decl : columns.Columns()) {
    if (!decl.property || decl.load == LoadAs::None || decl.save == SaveAs::None) continue;
    const void* address = std::visit([](auto* p) { return static_cast<const void*>(p); }, decl.property(target));
    auto [it, fresh] = seen.emplace(address, decl.column);
    EXPECT_TRUE(fresh) << decl.column << " and " << it->second << " share a property";
  }
}

class RoundTrip : public test::EmployeeTest, public ::testing::WithParamInterface<int> {
 protected:
  void ExpectStored(const std::map<std::string, Variant>& written, const std::string& table, const std::string& where) {
    auto rs = db->Session().OpenRecordset("SELECT * FROM [" + table + "] WHERE " + where);
    ASSERT_FALSE(rs->Eof());
    for (const auto& [column, value] : written) EXPECT_TRUE(Same(rs->Fields(column).Value(), value)) << column;
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
