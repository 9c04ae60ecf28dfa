// A monthly pay run as a host makes it, against a hand-written raw sqlite3 program
// doing the same reads and writes, in one run: open the session, Basis.Load (one
// folder of ten dated tables), Mitarbeiter.Load of the year (1,000 and 10,000
// employees with everything an employee loads: see employee_store.h), then for
// every employee change the month's pay record and LLohn.Update(ucTableLohnzettel,
// month), which writes the pay row, its replacement benefits and its short-time
// row in one write transaction. Between load and saves the library asks each
// employee's career and children for the month (Laufbahnschritt, GetFABOKinder),
// which go to the store on each call: timed apart, and left out of the run.
//
// The raw program opens its connections as the library does (write-ahead log,
// synchronous=NORMAL), reads every row of the fourteen base-value tables once,
// loads the employees with the raw loader of the employee benchmark, and saves each
// employee's month with prepared statements in one BEGIN IMMEDIATE transaction:
// the pay row read and written back whole with the changed salary, its replacement
// benefits deleted, its short-time row read and written whole (inserted where there
// is none, as the library's save does).
//
// Load (session, base values, employees) and save (every employee's month) are
// timed apart and each is reported against the raw program's. When ORMELIX_TEST_PG
// names a server, the library's run is made once more on PostgreSQL through a
// relay that holds back what passes it by 0.5 ms each way (a server one office
// network away), with its round trips per saved month, against the run on SQLite.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "employee_store.h"
#include "ormelix/basevalues/basisdaten.h"
#include "ormelix/employee/mitarbeiter_list.h"
#include "raw_employee_loader.h"
#include "raw_sqlite.h"

using namespace bench;

namespace {

constexpr std::int16_t kMonth = 3;
constexpr int kDatedTables = 10;

// The employee store of a size with a base-value folder added through the library.
const Store& PayRunStore(int employees) {
  static std::map<int, bool> prepared;
  const Store& store = Data(employees);
  if (prepared[employees]) return store;
  auto session = clsManager::Create();
  session->SetAktDB(StoreConnection::Open(store.path));
  auto folder = session->Basis()->AddNew("Standard");
  for (int t = 0; t < kDatedTables; ++t) {
    auto table = folder->Zeittabellen()->AddNew((kYear - kDatedTables + 1 + t) * 100 + 1, "Werte " + std::to_string(t));
    table->SA()->Krankenversicherung()->Prozent = 3.87;
    table->Update();
  }
  prepared[employees] = true;
  return store;
}

struct Timing {
  double load_ms = 0;
  double save_ms = 0;
  double query_ms = 0;               // the month's career and children queries (the library's runs)
  std::uint64_t save_round_trips = 0;  // on PostgreSQL
  std::uint64_t query_round_trips = 0;
  long months = 0;  // saved
};

double Since(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// ---------------------------------------------------------------- the library

// The month's questions to each employee's career and children, which ask the
// store anew on each call.
void AskTheMonth(const ManagerPtr& manager, Timing& timing) {
  const std::int32_t period = kYear * 100 + kMonth;
  const std::uint64_t before = RoundTrips(manager);
  auto start = std::chrono::steady_clock::now();
  std::size_t answers = 0;
  for (const auto& lohn : *manager->Mitarbeiter()) {
    answers += lohn->Laufbahn()->Laufbahnschritt(period, false, false) ? 1 : 0;
    answers += static_cast<std::size_t>(lohn->Kinder()->GetFABOKinder(period).Count());
  }
  benchmark::DoNotOptimize(answers);
  timing.query_ms = Since(start);
  timing.query_round_trips = RoundTrips(manager) - before;
}

Timing LibraryRun(const Store& store, int round, Reach reach = Reach::SQLite) {
  Timing timing;
  auto start = std::chrono::steady_clock::now();
  ManagerPtr manager = Session(store, reach);
  manager->AktMonat = kMonth;
  manager->Basis()->Load();
  manager->Mitarbeiter()->Load(kYear, lcPersonalnummer);
  timing.load_ms = Since(start);
  AskTheMonth(manager, timing);
  const std::uint64_t before = RoundTrips(manager);
  start = std::chrono::steady_clock::now();
  for (const auto& lohn : *manager->Mitarbeiter()) {
    lohn->Gehalt(kMonth) = static_cast<float>(2000 + round);
    lohn->Update(*manager, ucTableLohnzettel, kMonth);
  }
  timing.save_ms = Since(start);
  timing.save_round_trips = RoundTrips(manager) - before;
  timing.months = manager->Mitarbeiter()->Count();
  return timing;
}

// ---------------------------------------------------------------- the raw program

sqlite3* OpenRaw(const std::string& path) {
  sqlite3* db = nullptr;
  sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  sqlite3_exec(db, "PRAGMA busy_timeout=5000; PRAGMA synchronous=NORMAL;", nullptr, nullptr, nullptr);
  RegisterSqliteText(db);
  return db;
}

std::vector<std::vector<RawRow>> RawBaseValues(sqlite3* db) {
  static const char* const kTables[] = {
      "Basiswerte", "Basiswerte_Zeittabelle", "Basiswerte_Zeittabelle_SW", "Basiswerte_Zeittabelle_SW_Werte",
      "Basiswerte_Zeittabelle_LST", "Basiswerte_Zeittabelle_LST_Werte", "Basiswerte_Zeittabelle_SA",
      "Basiswerte_Zeittabelle_SA_Werte", "Basiswerte_Zeittabelle_PP", "Basiswerte_Zeittabelle_FB",
      "Basiswerte_Zeittabelle_ALV", "Basiswerte_Zeittabelle_DG", "Basiswerte_Zeittabelle_DG_Werte",
      "Basiswerte_Zeittabelle_DG_Geringfügig_Werte"};
  std::vector<std::vector<RawRow>> tables;
  for (const char* table : kTables) {
    Statement all(db, ("SELECT * FROM \"" + std::string(table) + "\"").c_str());
    auto& rows = tables.emplace_back();
    while (sqlite3_step(all.get()) == SQLITE_ROW) ReadRow(all.get(), rows.emplace_back());
  }
  return tables;
}

// "UPDATE table SET every column but Nr and ID =? WHERE Nr=?" and the matching
// INSERT, with the columns in table order.
struct RowWriter {
  RowWriter(sqlite3* db, const std::string& table) {
    std::string sets, names, marks;
    for (const Column& column : Columns(db, table)) {
      if (column.name == "Nr" || column.name == "ID") continue;
      written.push_back(column.name);
      sets += (sets.empty() ? "\"" : ",\"") + column.name + "\"=?";
      names += (names.empty() ? "\"" : ",\"") + column.name + "\"";
      marks += marks.empty() ? "?" : ",?";
    }
    sqlite3_prepare_v2(db, ("UPDATE \"" + table + "\" SET " + sets + " WHERE \"Nr\"=?").c_str(), -1, &update, nullptr);
    sqlite3_prepare_v2(db, ("INSERT INTO \"" + table + "\" (" + names + ") VALUES (" + marks + ")").c_str(), -1,
                       &insert, nullptr);
  }
  ~RowWriter() {
    sqlite3_finalize(update);
    sqlite3_finalize(insert);
  }
  std::vector<std::string> written;
  sqlite3_stmt* update = nullptr;
  sqlite3_stmt* insert = nullptr;
};

// Binds the columns of a row just read (by name) to a writer's statement, with
// one column changed if given.
void BindRead(sqlite3_stmt* read, const RowWriter& writer, sqlite3_stmt* into, const std::string& changed = "",
              double value = 0) {
  std::map<std::string, int> at;
  for (int i = 0; i < sqlite3_column_count(read); ++i) at[sqlite3_column_name(read, i)] = i;
  for (std::size_t i = 0; i < writer.written.size(); ++i) {
    const int slot = static_cast<int>(i) + 1;
    if (writer.written[i] == changed) sqlite3_bind_double(into, slot, value);
    else sqlite3_bind_value(into, slot, sqlite3_column_value(read, at.at(writer.written[i])));
  }
}

struct RawSaver {
  explicit RawSaver(sqlite3* db)
      : db(db),
        pay_row(db, "SELECT * FROM \"Mitarbeiter_Lohnzettel\" WHERE \"MitarbeiterID\"=? AND \"Zeitraum\"=?"),
        drop_benefits(db, "DELETE FROM \"Mitarbeiter_Lohnzettel_EL\" WHERE \"LohnzettelID\"=?"),
        shorttime_row(db, "SELECT * FROM \"Mitarbeiter_Lohnzettel_Kurzarbeit\" WHERE \"LohnzettelID\"=?"),
        pay(db, "Mitarbeiter_Lohnzettel"),
        shorttime(db, "Mitarbeiter_Lohnzettel_Kurzarbeit") {}

  void Save(const std::string& employee, double salary) {
    sqlite3_exec(db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    pay_row.Bind(employee);
    sqlite3_bind_int(pay_row.get(), 2, kYear * 100 + kMonth);
    if (sqlite3_step(pay_row.get()) == SQLITE_ROW) {
      const std::string row_id = reinterpret_cast<const char*>(sqlite3_column_text(pay_row.get(), 1));
      sqlite3_reset(pay.update);
      BindRead(pay_row.get(), pay, pay.update, "Gehalt", salary);
      sqlite3_bind_int64(pay.update, static_cast<int>(pay.written.size()) + 1, sqlite3_column_int64(pay_row.get(), 0));
      sqlite3_step(pay.update);
      drop_benefits.Bind(row_id);
      sqlite3_step(drop_benefits.get());
      SaveShorttime(row_id);
    }
    sqlite3_reset(pay_row.get());
    sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
  }

  void SaveShorttime(const std::string& row_id) {
    shorttime_row.Bind(row_id);
    if (sqlite3_step(shorttime_row.get()) == SQLITE_ROW) {
      sqlite3_reset(shorttime.update);
      BindRead(shorttime_row.get(), shorttime, shorttime.update);
      sqlite3_bind_int64(shorttime.update, static_cast<int>(shorttime.written.size()) + 1,
                         sqlite3_column_int64(shorttime_row.get(), 0));
      sqlite3_step(shorttime.update);
    } else {
      // A blank record, as the library writes a month without short-time work.
      sqlite3_reset(shorttime.insert);
      for (std::size_t i = 0; i < shorttime.written.size(); ++i) {
        const int slot = static_cast<int>(i) + 1;
        if (shorttime.written[i] == "LohnzettelID")
          sqlite3_bind_text(shorttime.insert, slot, row_id.c_str(), -1, SQLITE_TRANSIENT);
        else
          sqlite3_bind_double(shorttime.insert, slot, 0);
      }
      sqlite3_step(shorttime.insert);
    }
    sqlite3_reset(shorttime_row.get());
  }

  sqlite3* db;
  Statement pay_row, drop_benefits, shorttime_row;
  RowWriter pay, shorttime;
};

Timing RawRun(const Store& store, int round) {
  Timing timing;
  auto start = std::chrono::steady_clock::now();
  sqlite3* db = OpenRaw(store.path);
  sqlite3* reference = OpenRaw(store.reference);
  auto base_values = RawBaseValues(db);
  auto employees = RawLoad(db, reference, store.employer);
  benchmark::DoNotOptimize(base_values.data());
  timing.load_ms = Since(start);
  start = std::chrono::steady_clock::now();
  {
    RawSaver saver(db);
    for (const RawEmployee& employee : employees) saver.Save(employee.id, 2000 + round);
  }
  timing.save_ms = Since(start);
  sqlite3_close(reference);
  sqlite3_close(db);
  return timing;
}

// ---------------------------------------------------------------- the run

void PrintGrowth(const char* what, std::map<int, Timing>& seen) {
  std::printf("%s: load %.2f, save %.2f, whole run %.2f\n", what, seen[10000].load_ms / seen[1000].load_ms,
              seen[10000].save_ms / seen[1000].save_ms,
              (seen[10000].load_ms + seen[10000].save_ms) / (seen[1000].load_ms + seen[1000].save_ms));
}

double Whole(const Timing& timing) { return timing.load_ms + timing.save_ms; }

Timing Best(const Timing& a, const Timing& b) {
  Timing best = Whole(a) <= Whole(b) ? a : b;
  best.load_ms = std::min(a.load_ms, b.load_ms);
  best.save_ms = std::min(a.save_ms, b.save_ms);
  best.query_ms = std::min(a.query_ms, b.query_ms);
  return best;
}

// The library's run on PostgreSQL through the relay, against its run on SQLite.
void CompareThroughRelay(int employees, int rounds, const Timing& sqlite) {
  const Store& store = DataOnPostgres(employees);
  if (store.pg.empty()) return;
  LibraryRun(store, 0, Reach::PostgresThroughRelay);  // statements prepared, as on SQLite
  Timing relay{1e300, 1e300, 1e300};
  for (int round = 1; round <= rounds; ++round) relay = Best(relay, LibraryRun(store, round, Reach::PostgresThroughRelay));
  std::printf("pay run of %d employees on PostgreSQL through the relay (0.5 ms each way, best of %d): load %.0f ms, "
              "save %.0f ms; round trips per saved month = %.2f (target <= 3)\n",
              employees, rounds, relay.load_ms, relay.save_ms,
              static_cast<double>(relay.save_round_trips) / static_cast<double>(relay.months));
  std::printf("pay run of %d employees, whole run through the relay / on SQLite = %.2f (target <= 3.0)\n", employees,
              Whole(relay) / Whole(sqlite));
  std::printf("month queries of %d employees (career and children, apart from the run): %.0f ms on SQLite, %.0f ms "
              "through the relay, %.2f round trips per employee\n",
              employees, sqlite.query_ms, relay.query_ms,
              static_cast<double>(relay.query_round_trips) / static_cast<double>(relay.months));
}

// The library and the raw program take turns, a warm-up round each first (it
// also gives every pay month its short-time row); the best of the rounds counts.
void Compare(int employees, int rounds, int relay_rounds) {
  const Store& store = PayRunStore(employees);
  LibraryRun(store, 0);
  RawRun(store, 0);
  Timing library{1e300, 1e300, 1e300}, raw{1e300, 1e300};
  for (int round = 1; round <= rounds; ++round) {
    library = Best(library, LibraryRun(store, round));
    raw = Best(raw, RawRun(store, round));
  }
  std::printf("pay run of %d employees (best of %d): load library %.0f ms, raw %.0f ms, ratio %.2f; "
              "save library %.0f ms, raw %.0f ms, ratio %.2f; whole run library / raw = %.2f (target <= 1.2)\n",
              employees, rounds, library.load_ms, raw.load_ms, library.load_ms / raw.load_ms, library.save_ms,
              raw.save_ms, library.save_ms / raw.save_ms, Whole(library) / Whole(raw));
  static std::map<int, Timing> seen, seen_raw;
  seen[employees] = library;
  seen_raw[employees] = raw;
  if (seen.count(1000) && seen.count(10000)) {
    // Information only, as for the load: the raw program's growth beside it.
    PrintGrowth("pay run growth 10,000 / 1,000 (information)", seen);
    PrintGrowth("raw program's growth 10,000 / 1,000", seen_raw);
    // What the library adds per employee to the work the raw program does too.
    auto own = [&](int n) { return (Whole(seen[n]) - Whole(seen_raw[n])) * 1000.0 / n; };
    std::printf("library's own time per employee (library - raw, whole run): %.1f us at 1,000, %.1f us at 10,000\n",
                own(1000), own(10000));
  }
  if (relay_rounds > 0) CompareThroughRelay(employees, relay_rounds, library);
}

}  // namespace

int main() {
  RemoveStaleStores();
  Compare(1000, 5, 2);
  // Through the relay only at 1,000: at 10,000 a run waits half a minute for
  // the network alone.
  Compare(10000, 2, 0);
  RemoveStores();
  return 0;
}
