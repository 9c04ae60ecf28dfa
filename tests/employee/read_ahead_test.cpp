// Mitarbeiter.Load reads ahead for many employees at once what each employee's
// load reads: the list it gives is the same as without the read-ahead, property
// for property, on the demo store and on a store of varied shapes (employees
// without rows and with many, Nulls, ties in every sort order, keys written in
// another case, rows of another employer), with the read-ahead taken in several
// parts; the same errors for a value a column cannot hold; and on a server it
// waits for the server a few times per read-ahead, not per employee.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "employee_fixture.h"
#include "ormelix/career/laufbahn_columns.h"
#include "ormelix/career/laufbahnen.h"
#include "ormelix/children/kind.h"
#include "ormelix/children/kind_zeitbezuege.h"
#include "ormelix/children/kinder.h"
#include "ormelix/children/kinder_columns.h"
#include "ormelix/benefits/ersatzleistungen.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/employer/lohn_pdf_encrypt.h"
#include "ormelix/error.h"
#include "ormelix/shorttime/kurzarbeit.h"
#include "ormelix/store/location.h"
#include "support/run_tool.h"

using namespace ormelix;

namespace {

// ---------------------------------------------------------------- every loaded property, as text

std::string Text(PropertyRef ref) {
  char number[64];
  return std::visit(Overloaded{[](std::string* p) { return "'" + *p + "'"; },
                               [](bool* p) { return std::string(*p ? "True" : "False"); },
                               [](std::int16_t* p) { return std::to_string(*p); },
                               [](std::int32_t* p) { return std::to_string(*p); },
                               [&](float* p) {
                                 std::snprintf(number, sizeof number, "%.9g", static_cast<double>(*p));
                                 return std::string(number);
                               },
                               [&](double* p) {
                                 std::snprintf(number, sizeof number, "%.17g", *p);
                                 return std::string(number);
                               },
                               [](Variant* p) { return p->Describe(); }},
                    ref);
}

class Described {
 public:
  void Add(const std::string& path, PropertyRef value) { lines_.push_back(path + " = " + Text(value)); }
  template <class T>
  void Add(const std::string& path, T value) {
    Add(path, PropertyRef(&value));
  }
  // Every property a column declaration reads (custom conversions are added by hand).
  template <class Target>
  void Add(const std::string& path, const ColumnSet<Target>& columns, Target& target) {
    for (const auto& decl : columns.Columns())
      if (decl.property) Add(path + decl.Name(), decl.property(target));
  }
  const std::vector<std::string>& Lines() const { return lines_; }

 private:
  std::vector<std::string> lines_;
};

void DescribeLines(Described& out, LLohn& lohn, int m) {
  const std::string at = "(" + std::to_string(m) + ")";
  for (int i = 1; i <= 5; ++i) {
    const std::string line = "(" + std::to_string(i) + "," + std::to_string(m) + ")";
    for (int t = 1; t <= 6; ++t) {
      const std::string cell = "(" + std::to_string(t) + "," + std::to_string(i) + "," + std::to_string(m) + ")";
      out.Add("ZSL_Text" + cell, lohn.ZSL_Text(t, i, m));
      out.Add("ZSL_Anzahl" + cell, lohn.ZSL_Anzahl(t, i, m));
      out.Add("ZSL_Satz" + cell, lohn.ZSL_Satz(t, i, m));
      out.Add("ZSL_Prozent" + cell, lohn.ZSL_Prozent(t, i, m));
      out.Add("ZSL_Betrag" + cell, lohn.ZSL_Betrag(t, i, m));
    }
    out.Add("SonstigeAbz_text" + line, lohn.SonstigeAbz_text(i, m));
    out.Add("SonstigeAbz_Betrag" + line, lohn.SonstigeAbz_Betrag(i, m));
    out.Add("SonstigeAbz_Anzahl" + line, lohn.SonstigeAbz_Anzahl(i, m));
    out.Add("SonstigeAbz_Satz" + line, lohn.SonstigeAbz_Satz(i, m));
    out.Add("Aufwandsentsch_text" + line, lohn.Aufwandsentsch_text(i, m));
    out.Add("Aufwandsentsch_Betrag" + line, lohn.Aufwandsentsch_Betrag(i, m));
    out.Add("Aufwandsentsch_Anzahl" + line, lohn.Aufwandsentsch_Anzahl(i, m));
    out.Add("Aufwandsentsch_Satz" + line, lohn.Aufwandsentsch_Satz(i, m));
    out.Add("ZSL_DBDZKST_frei" + line, lohn.ZSL_DBDZKST_frei(i, m));
    out.Add("ZSL_Teuerungsprämie" + line, lohn.ZSL_Teuerungsprämie(i, m));
    out.Add("ZSL_TeuerungsprämieKV" + line, lohn.ZSL_TeuerungsprämieKV(i, m));
    out.Add("ZSL_Mitarbeitergewinnbeteiligung" + line, lohn.ZSL_Mitarbeitergewinnbeteiligung(i, m));
  }
}

void DescribeMonth(Described& out, LLohn& lohn, int m) {
  const std::string at = "(" + std::to_string(m) + ").";
  modDatabase::LohnzettelMonth month{&lohn, m};
  out.Add("month" + at, modDatabase::LohnzettelColumns(), month);
  for (int day = 1; day <= 31; ++day) out.Add("FB_Fallweise" + at + "Tage(" + std::to_string(day) + ")",
                                              lohn.FB_Fallweise(m)->Tage(day));
  out.Add("Kurzarbeit" + at, modDatabase::KurzarbeitColumns(), *lohn.Kurzarbeit(m));
  out.Add("Kurzarbeit" + at + "StundenVorKurzarbeit", lohn.Kurzarbeit(m)->StundenVorKurzarbeit());
  out.Add("SV_EL_Laufend" + at + "made", lohn.HasSV_EL_Laufend(m));
  if (lohn.HasSV_EL_Laufend(m)) {
    int n = 0;
    for (const auto& benefit : *lohn.SV_EL_Laufend(m))
      out.Add("SV_EL_Laufend" + at + std::to_string(++n) + ".", modDatabase::ErsatzleistungColumns(), *benefit);
  }
  out.Add("Uebertritt" + at, modDatabase::UebertritteColumns(), *lohn.Uebertritt(m));
  DescribeLines(out, lohn, m);
}

std::vector<std::string> Describe(LLohn& lohn) {
  Described out;
  out.Add("ID", lohn.ID());
  out.Add("Index", lohn.Index());
  out.Add("", modDatabase::MitarbeiterColumns(), lohn);
  out.Add("op_ForstarbeiterLandWF", lohn.op_ForstarbeiterLandWF);
  out.Add("", modDatabase::BankverbindungColumns(), lohn);
  for (int m = 1; m <= 12; ++m) DescribeMonth(out, lohn, m);
  out.Add("Jahresdaten.", modDatabase::JahresdatenColumns(), *lohn.Jahresdaten());
  out.Add("PDFEncrypt.VSPassword", lohn.PDFEncrypt()->VSPassword);
  out.Add("Laufbahn.Count", static_cast<std::int32_t>(lohn.Laufbahn()->Count()));
  for (const auto& step : *lohn.Laufbahn()) {
    const std::string at = "Laufbahn(" + std::to_string(step->Index) + ").";
    out.Add(at, LaufbahnColumns(), *step);
    out.Add(at + "Grund", step->GrundIndex);
    out.Add(at + "GrundNr", step->GrundNr);
    out.Add(at + "GrundKürzel", step->GrundKürzel);
    out.Add(at + "GrundText", step->GrundText);
  }
  out.Add("Kinder.Count", static_cast<std::int32_t>(lohn.Kinder()->Count()));
  int child = 0;
  for (const auto& kind : *lohn.Kinder()) {
    const std::string at = "Kinder(" + std::to_string(++child) + ").";
    out.Add(at, KindColumns(), *kind);
    int entry = 0;
    for (const auto& zeitbezug : *kind->Zeitbezuege())
      out.Add(at + "Zeitbezuege(" + std::to_string(++entry) + ").", ZeitbezugColumns(), *zeitbezug);
  }
  return out.Lines();
}

// The list of the session's year, loaded with read-ahead parts of this many
// employees (0: none), described employee by employee.
std::vector<std::vector<std::string>> LoadedList(clsManager& manager, std::size_t read_ahead) {
  manager.Mitarbeiter()->SetReadAhead(read_ahead);
  manager.Mitarbeiter()->Load(manager.AktJahr, lcName);
  std::vector<std::vector<std::string>> list;
  for (const auto& lohn : *manager.Mitarbeiter()) list.push_back(Describe(*lohn));
  return list;
}

// Equal line for line, naming the first line that differs.
void ExpectSameLists(const std::vector<std::vector<std::string>>& ahead,
                     const std::vector<std::vector<std::string>>& alone, const std::string& what) {
  ASSERT_EQ(ahead.size(), alone.size()) << what;
  for (std::size_t e = 0; e < ahead.size(); ++e) {
    ASSERT_EQ(ahead[e].size(), alone[e].size()) << what << ", employee " << e + 1;
    for (std::size_t i = 0; i < ahead[e].size(); ++i)
      ASSERT_EQ(ahead[e][i], alone[e][i]) << what << ", employee " << e + 1;
  }
}

// ---------------------------------------------------------------- a store of varied shapes

class ReadAheadTest : public test::EmployeeTest {
 protected:
  std::string other = test::AddRow(db, "Mandanten", {{"Name", "Andere GmbH"}});
  StoreConnectionPtr reference = test::NewStore(dir, StoreKind::Reference, "reference");

  void SetUp() override {
    for (const char* code : {"0", "1", "2"})  // the catalogue has no ID to write through a recordset by
      reference->Session().ExecuteSql("INSERT INTO [DM_Austrittsgründe] ([Code], [Kürzel], [Grund]) VALUES (" +
                                      std::string(code) + ", 'G" + code + "', 'Grund " + code + "')");
    manager->SetImportDB(reference);
    for (int k = 0; k < 23; ++k) AddVariedEmployee(k, employer);
    for (int k = 0; k < 3; ++k) AddVariedEmployee(k + 1, other);  // rows no load of this employer reads
  }

  static std::string Lower(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
  }

  // Employee k: every fifth one without any row but its own (kept by Neuanlage),
  // the others with rows of every table in numbers and orders that vary with k,
  // ties in each table's sort order, Nulls, and rows keyed by the ID in lower case.
  void AddVariedEmployee(int k, const std::string& of) {
    const std::string id = test::AddRow(db, "Mitarbeiter",
                                        {{"MandantenID", of},
                                         {"Familienname", "Name " + std::to_string(k % 7)},
                                         {"VorName", k % 3 ? Variant("Vor") : Variant::NullValue()},
                                         {"Personalnummer", 100 + k},
                                         {"Neuanlage", -1}});
    if (k % 5 == 0) return;
    const std::string key = k % 4 == 1 ? Lower(id) : id;  // as another program may have written it
    AddCareer(k, id, key);
    AddChildren(k, key);
    for (int month = 1; month <= 12; month += 1 + k % 3) AddPayMonth(k, key, 2024 * 100 + month);
    AddPayMonth(k, id, 2023 * 100 + 12);  // another year
    for (int n = 0; n < 2 + k % 3; ++n)  // the same line of one group, more than once
      test::AddRow(db, "Mitarbeiter_Lohnarten", {{"MitarbeiterID", key}, {"Zeitraum", 202403}, {"Lohnarttyp", 1 + k % 8},
                                                 {"SortNr", 1 + n % 2}, {"Betrag", 10.0 * n + k}, {"Bezeichnung", "L" + std::to_string(n)}});
    test::AddRow(db, "Mitarbeiter_Lohnarten", {{"MitarbeiterID", id}, {"Zeitraum", 202411}, {"Lohnarttyp", 7},
                                               {"SortNr", 5}, {"Betrag", Variant::NullValue()}});
    for (int n = 0; n < k % 3; ++n)  // two transfers of one month: the later row wins
      test::AddRow(db, "Mitarbeiter_Übertritte", {{"MitarbeiterID", key}, {"Zeitraum", 202405}, {"Basis1", 100.5 + n}});
    test::AddRow(db, "Mitarbeiter_Übertritte", {{"MitarbeiterID", id}, {"Zeitraum", 202305}, {"Basis1", 1.25}});
    for (int year : {2023, 2024})
      if (k % 2 || year == 2024)
        test::AddRow(db, "Mitarbeiter_Jahresdaten", {{"MitarbeiterID", key}, {"Jahr", year}, {"DZBundesland", year - 2015}});
    if (k % 3) test::AddRow(db, "Mitarbeiter_Bankverbindung", {{"MitarbeiterID", key}, {"IBAN", "AT" + std::to_string(k)}});
    if (k % 4 == 2) test::AddRow(db, "Mitarbeiter_PDFEncrypt", {{"MitarbeiterID", key}, {"VSPassword", "pw"}});
  }

  // Steps of one date in either order (entry and rest), reasons in the catalogue,
  // not in it and none.
  void AddCareer(int k, const std::string& id, const std::string& key) {
    const Date day = DateHelpers::DateSerial(2020 + k % 3, 1 + k % 12, 1);
    const int first = k % 2 ? 1 : 2;
    test::AddRow(db, "Mitarbeiter_Laufbahn", {{"MitarbeiterID", key}, {"Schritt", first}, {"Datum", day}, {"Grund", k % 4}});
    test::AddRow(db, "Mitarbeiter_Laufbahn", {{"MitarbeiterID", id}, {"Schritt", 3 - first}, {"Datum", day}});
    for (int n = 0; n < k % 4; ++n)
      test::AddRow(db, "Mitarbeiter_Laufbahn", {{"MitarbeiterID", id}, {"Schritt", 1}, {"Datum", day + 30 * (n + 1)},
                                                {"Grund", Variant::NullValue()}});
  }

  // Up to three children, two born on one day; entitlements with ties in their
  // period, and a child without any.
  void AddChildren(int k, const std::string& key) {
    const Date born = DateHelpers::DateSerial(2010 + k % 5, 6, 1);
    for (int c = 0; c < k % 4; ++c) {
      const std::string child = test::AddRow(db, "Mitarbeiter_Kinder", {{"MitarbeiterID", key}, {"GebDatum", born + (c == 2 ? 400 : 0)},
                                                                       {"VorName", "Kind " + std::to_string(c)}});
      for (int e = 0; e < (c + k) % 3; ++e)
        test::AddRow(db, "Mitarbeiter_Kinder_ZB", {{"KID", c == 1 ? Lower(child) : child}, {"Zeitraum", 202301 + 100 * (e / 2)},
                                                   {"FB_Bezieher", e + 1}, {"KFZ", e % 2 ? Variant("A") : Variant::NullValue()}});
    }
    if (k % 2 == 0) return;  // a child of no known birthday, and an entitlement of no period: Nulls in the sort columns
    const std::string child = test::AddRow(db, "Mitarbeiter_Kinder", {{"MitarbeiterID", key}, {"GebDatum", Variant::NullValue()},
                                                                     {"VorName", "Kind ohne Datum"}});
    test::AddRow(db, "Mitarbeiter_Kinder_ZB", {{"KID", child}, {"Zeitraum", 202301}, {"FB_Bezieher", 1}});
    test::AddRow(db, "Mitarbeiter_Kinder_ZB", {{"KID", child}, {"Zeitraum", Variant::NullValue()}, {"FB_Bezieher", 2}});
  }

  // A pay row with a few figures (the rest Null or default), short-time work in
  // some months and replacement benefits (of distinct periods) in others.
  void AddPayMonth(int k, const std::string& key, std::int32_t zeitraum) {
    const std::string row = test::AddRow(db, "Mitarbeiter_Lohnzettel",
                                         {{"MitarbeiterID", key}, {"Zeitraum", zeitraum}, {"Gehalt", 2000.5 + k},
                                          {"FB_Tage", zeitraum % 3 ? Variant("0315") : Variant::NullValue()},
                                          {"Sonderzahlungen_Text", zeitraum % 2 ? Variant("T") : Variant::NullValue()}});
    const std::string row_key = zeitraum % 5 == 0 ? Lower(row) : row;
    if (zeitraum % 4 == k % 4)
      test::AddRow(db, "Mitarbeiter_Lohnzettel_Kurzarbeit", {{"LohnzettelID", row_key}, {"IsKurzarbeit", -1}, {"SVBG", 12.5}});
    for (int n = 0; n < zeitraum % 3; ++n)
      test::AddRow(db, "Mitarbeiter_Lohnzettel_EL", {{"LohnzettelID", row_key}, {"Zeitraum", zeitraum + 100 - n}, {"SVTage", n}});
  }
};

TEST_F(ReadAheadTest, TheListIsTheSameWithAndWithoutTheReadAheadInEveryProperty) {
  const auto alone = LoadedList(*manager, 0);
  ASSERT_EQ(alone.size(), 23u);
  // In parts of 4 (the last one smaller), and all at once.
  ExpectSameLists(LoadedList(*manager, 4), alone, "read ahead by 4");
  ExpectSameLists(LoadedList(*manager, 1000), alone, "read ahead by 1000");
  // Another year: other months, year data and replacement benefits.
  manager->AktJahr = 2023;
  ExpectSameLists(LoadedList(*manager, 5), LoadedList(*manager, 0), "2023, read ahead by 5");
}

TEST_F(ReadAheadTest, RowsThatTieComeInTheOrderTheyWereWrittenAlsoAfterAChange) {
  const std::string id = test::AddRow(db, "Mitarbeiter", {{"MandantenID", employer}, {"Neuanlage", -1}});
  const Date born = DateHelpers::DateSerial(2016, 4, 1);  // children born on one day: ties in their order
  std::vector<std::string> children;
  for (const char* name : {"Anna", "Bert", "Cleo", "Dora", "Emil"})
    children.push_back(test::AddRow(db, "Mitarbeiter_Kinder", {{"MitarbeiterID", id}, {"VorName", name}, {"GebDatum", born}}));
  // A change moves a row elsewhere in a server's table; its place in the order stays.
  for (int i : {0, 1, 3})
    db->Session().ExecuteSql("UPDATE [Mitarbeiter_Kinder] SET [Nachname]='X' WHERE [ID]=" + children[i]);
  for (std::size_t read_ahead : {0, 1000}) {
    manager->Mitarbeiter()->SetReadAhead(read_ahead);
    manager->Mitarbeiter()->Load(2024, lcName);
    std::string order;
    for (const auto& kind : *manager->Mitarbeiter()->Item(Variant(id))->Kinder()) order += kind->VorName + " ";
    EXPECT_EQ(order, "Anna Bert Cleo Dora Emil ") << "read ahead by " << read_ahead;
  }
}

TEST_F(ReadAheadTest, OnAServerItWaitsForTheServerTwicePerPartNotPerEmployee) {
  if (!test::OnPostgres()) GTEST_SKIP() << "an SQLite store has no server to wait for";
  StoreSession& session = db->Session();
  auto waits = [&](std::size_t read_ahead) {
    const std::uint64_t before = detail::RoundTrips(session);
    LoadedList(*manager, read_ahead);
    return detail::RoundTrips(session) - before;
  };
  waits(1000);  // statements prepared
  // The list's own three reads and the snapshot's end, then two per part.
  EXPECT_LE(waits(1000), 6u);
  EXPECT_LE(waits(4), 4u + 2 * 6);
  EXPECT_GT(waits(0), 23u * 9);  // each employee's statements one by one
}

TEST_F(ReadAheadTest, AValueAColumnCannotHoldFailsTheLoadAsWithoutTheReadAhead) {
  ORMELIX_SQLITE_ONLY();  // a server's typed columns hold no such value
  const std::string last = test::AddRow(
      db, "Mitarbeiter", {{"MandantenID", employer}, {"Familienname", "Zzz"}, {"Neuanlage", -1}});
  test::AddRow(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", last}, {"Zeitraum", 202402}, {"Abrechnung_Von", "kein Datum"}});
  std::string messages[2];
  long loaded[2];
  for (std::size_t read_ahead : {0, 4}) {
    manager->Mitarbeiter()->SetReadAhead(read_ahead);
    try {
      manager->Mitarbeiter()->Load(2024, lcName);
      ADD_FAILURE() << "the load took a text as a date";
    } catch (const ConversionError& e) {
      messages[read_ahead ? 1 : 0] = e.what();
    }
    loaded[read_ahead ? 1 : 0] = manager->Mitarbeiter()->Count();
  }
  EXPECT_EQ(messages[1], messages[0]);
  for (const char* part : {"Abrechnung_Von", "Mitarbeiter_Lohnzettel", "kein Datum"})
    EXPECT_NE(messages[1].find(part), std::string::npos) << part << " in: " << messages[1];
  EXPECT_EQ(loaded[1], loaded[0]);  // the employees before it, loaded whole
  EXPECT_EQ(loaded[1], 23);
}

// ---------------------------------------------------------------- the demo store

TEST(ReadAheadDemo, TheDemoStoreLoadsTheSameWithAndWithoutTheReadAhead) {
  test::TempDir dir;
  const std::string store = test::DemoLocation(dir);
  const test::ToolRun demo = test::RunTool({"demo", store}, dir.Path().string());
  ASSERT_EQ(demo.status, 0) << demo.err;
  const bool server = IsServerLocation(store);
  const std::string schema = server ? LocationParameter(store, "schema") : "";
  auto manager = clsManager::Create();
  manager->SetAktDB(StoreConnection::Open(server ? store : store + "/payroll.db"));
  manager->SetImportDB(StoreConnection::Open(server ? WithLocationParameter(store, "schema", schema + "_reference")
                                                    : store + "/reference.db"));
  auto employers = manager->AktDB()->Session().OpenRecordset("SELECT [ID] FROM [Mandanten]");
  manager->ChangeAktMandant(ValueHelpers::ToText(employers->Fields("ID")));
  for (std::int16_t year : {2024, 2025}) {
    manager->AktJahr = year;
    const auto alone = LoadedList(*manager, 0);
    EXPECT_EQ(alone.size(), 5u) << year;
    ExpectSameLists(LoadedList(*manager, 2), alone, "demo " + std::to_string(year) + ", read ahead by 2");
    ExpectSameLists(LoadedList(*manager, 1000), alone, "demo " + std::to_string(year));
  }
}

}  // namespace
