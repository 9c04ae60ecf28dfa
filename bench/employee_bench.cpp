// Loading the employee list against a hand-written raw sqlite3 loader doing the
// same reads, in one run: 1,000 and 10,000 employees of one employer, each with 12
// pay rows of the year, 3 career steps, 2 children with 3 entitlement rows each, a
// bank row, the year data and the 40 wage-type rows (8 groups of 5 lines) of one
// month; every tenth employee has a short-time row on March and two replacement
// benefits on December; a reference store beside it holds the catalogue of exit
// reasons.
//
// The raw loader runs the statements each employee's load would run on its own
// (the employer's employees, all career steps, the replacement benefits of the
// year; then per employee its career steps with their exit reasons looked up in
// the catalogue, which it reads per employee, its children and per child their
// entitlement rows, its master row, its bank row, its wage-type rows, its pay rows
// with the replacement benefits (in period order) and the short-time row of each,
// its transfers and its year data), prepared once with sqlite3 and bound per
// employee, and keeps every column of those rows in plain structs. It filters the
// year with hash maps of its own. When later work adds tables to the employee
// load, the raw loader (raw_employee_loader.h) must read them too. The library
// reads the same rows ahead, a table at a time for up to 1,000 employees.
//
// The same load runs on PostgreSQL when ORMELIX_TEST_PG names a server (./dev
// bench starts a throwaway one): the stores are copied there, and the library's
// load runs over the server's Unix socket and through a relay on 127.0.0.1 that
// holds back what passes it by 0.5 ms each way (a server one office network
// away), and at 1,000 employees once without the statement cache and beside a
// raw libpq loader that prepares the per-employee statements once and reads the
// same rows in text form into the same plain structs.
//
// At the end the run prints the ratios: library / raw on SQLite, PostgreSQL (over
// the socket and through the relay) / SQLite, the round trips of a load on
// PostgreSQL, the growth 10,000 / 1,000, the first load of a fresh session for
// both, and the heap bytes held per loaded LLohn (glibc's mallinfo2 before and
// after a Load).
#include <benchmark/benchmark.h>
#include <libpq-fe.h>
#include <malloc.h>
#include <signal.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <initializer_list>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "best_reporter.h"
#include "employee_store.h"
#include "raw_employee_loader.h"
#include "raw_sqlite.h"
#include "ormelix/store/sqlite_text.h"
#include "ormelix/employee/mitarbeiter_list.h"
#include "ormelix/employer/mandant.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/copy.h"
#include "ormelix/store/location.h"
#include "ormelix/store/schema.h"
#include "ormelix/store/value_helpers.h"

using namespace ormelix;

namespace {

using namespace bench;

// ---------------------------------------------------------------- the library


// Repeated loads in one session, after one untimed load that prepares the
// statements and fills the caches (the raw loader gets the same warm-up).
void Ormelix_MitarbeiterLoad(benchmark::State& state) {
  const Store& store = Data(static_cast<int>(state.range(0)));
  auto manager = Session(store);
  manager->Mitarbeiter()->Load(kYear, lcPersonalnummer);
  for (auto _ : state) {
    manager->Mitarbeiter()->Load(kYear, lcPersonalnummer);
    if (manager->Mitarbeiter()->Count() != state.range(0)) state.SkipWithError("not every employee was loaded");
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
// Repetitions, taking turns with the raw loader's: the best of them counts.
BENCHMARK(Ormelix_MitarbeiterLoad)->Arg(1000)->Iterations(3)->Repetitions(4)->Unit(benchmark::kMillisecond);
BENCHMARK(Ormelix_MitarbeiterLoad)->Arg(10000)->Iterations(1)->Repetitions(2)->Unit(benchmark::kMillisecond);

// Each warmed up by one load, as on SQLite.
void LoadOnPostgres(benchmark::State& state, Reach reach, const std::string& connect) {
  const Store& store = DataOnPostgres(static_cast<int>(state.range(0)));
  if (store.pg.empty()) return state.SkipWithError("no PostgreSQL server: set ORMELIX_TEST_PG (./dev bench does)");
  auto manager = Session(store, reach, connect);
  manager->Mitarbeiter()->Load(kYear, lcPersonalnummer);
  for (auto _ : state) {
    manager->Mitarbeiter()->Load(kYear, lcPersonalnummer);
    if (manager->Mitarbeiter()->Count() != state.range(0)) state.SkipWithError("not every employee was loaded");
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
void Postgres_MitarbeiterLoad(benchmark::State& state) { LoadOnPostgres(state, Reach::Postgres, ""); }
void PostgresNoCache_MitarbeiterLoad(benchmark::State& state) {
  LoadOnPostgres(state, Reach::Postgres, "statement_cache=0");
}
void Relay_MitarbeiterLoad(benchmark::State& state) { LoadOnPostgres(state, Reach::PostgresThroughRelay, ""); }
BENCHMARK(Postgres_MitarbeiterLoad)->Arg(1000)->Iterations(2)->Repetitions(2)->Unit(benchmark::kMillisecond);
BENCHMARK(Postgres_MitarbeiterLoad)->Arg(10000)->Iterations(1)->Repetitions(2)->Unit(benchmark::kMillisecond);
BENCHMARK(Relay_MitarbeiterLoad)->Arg(1000)->Iterations(2)->Repetitions(2)->Unit(benchmark::kMillisecond);
BENCHMARK(Relay_MitarbeiterLoad)->Arg(10000)->Iterations(1)->Repetitions(2)->Unit(benchmark::kMillisecond);
BENCHMARK(PostgresNoCache_MitarbeiterLoad)->Arg(1000)->Iterations(1)->Unit(benchmark::kMillisecond);

// The timed loads of a raw loader (after an untimed one when WARM_UP), each
// checked to hold every employee.
template <class Load>
void TimeRawLoads(benchmark::State& state, bool warm_up, Load load) {
  if (warm_up) benchmark::DoNotOptimize(load().size());
  for (auto _ : state) {
    auto employees = load();
    if (static_cast<long>(employees.size()) != state.range(0)) state.SkipWithError("not every employee was loaded");
    benchmark::DoNotOptimize(employees.data());
  }
}

void Raw_MitarbeiterLoad(benchmark::State& state) {
  const Store& store = Data(static_cast<int>(state.range(0)));
  RawConnections raw(store);
  TimeRawLoads(state, true, [&] { return RawLoad(raw.db, raw.reference, store.employer); });
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Raw_MitarbeiterLoad)->Arg(1000)->Iterations(3)->Repetitions(4)->Unit(benchmark::kMillisecond);
BENCHMARK(Raw_MitarbeiterLoad)->Arg(10000)->Iterations(1)->Repetitions(2)->Unit(benchmark::kMillisecond);

// ---------------------------------------------------------------- the raw libpq loader

// A statement prepared once on a connection, run with text parameters; the
// result in text form, as the library reads it.
class PgStatement {
 public:
  PgStatement(PGconn* conn, const char* name, const char* sql) : conn_(conn), name_(name) {
    PQclear(PQprepare(conn, name, sql, 0, nullptr));
  }
  ~PgStatement() { PQclear(result_); }
  PGresult* Run(std::initializer_list<const char*> params) {
    PQclear(result_);
    std::vector<const char*> values(params);
    result_ = PQexecPrepared(conn_, name_, static_cast<int>(values.size()), values.data(), nullptr, nullptr, 0);
    return result_;
  }

 private:
  PGconn* conn_;
  const char* name_;
  PGresult* result_ = nullptr;
};

// Every column of a row: texts as strings, everything else as a number.
void ReadRow(const PGresult* result, int row, RawRow& out) {
  out.numbers.clear();
  out.texts.clear();
  for (int i = 0; i < PQnfields(result); ++i) {
    const char* value = PQgetvalue(result, row, i);
    if (PQftype(result, i) == 25) out.texts.emplace_back(value, static_cast<std::size_t>(PQgetlength(result, row, i)));
    else out.numbers.push_back(PQgetisnull(result, row, i) ? 0 : std::strtod(value, nullptr));
  }
}

double Number(const PGresult* result, int row, int column) {
  return std::strtod(PQgetvalue(result, row, column), nullptr);
}

void ReadMonths(PGresult* result, std::vector<RawRow>& months) {
  for (int row = 0; row < PQntuples(result); ++row) {
    int zeitraum = static_cast<int>(Number(result, row, 3));
    if (zeitraum / 100 == kYear && zeitraum % 100 >= 1 && zeitraum % 100 <= 12)
      ReadRow(result, row, months[static_cast<std::size_t>(zeitraum % 100)]);
  }
}

std::vector<RawEmployee> PgRawLoad(PGconn* db, PGconn* reference, const std::string& employer) {
  PgStatement employees(db, "e", "SELECT * FROM \"Mitarbeiter\" WHERE \"MandantenID\"=$1 ORDER BY \"Personalnummer\" ASC");
  PgStatement career(db, "c", "SELECT * FROM \"Mitarbeiter_Laufbahn\" ORDER BY \"Datum\" DESC, \"Nr\" DESC");
  PgStatement replacements(db, "r",
                           "SELECT \"MitarbeiterID\", \"Mitarbeiter_Lohnzettel_EL\".\"Zeitraum\" AS \"Zeitraum\" FROM "
                           "\"Mitarbeiter_Lohnzettel\" INNER JOIN \"Mitarbeiter_Lohnzettel_EL\" ON "
                           "\"Mitarbeiter_Lohnzettel\".\"ID\"=\"Mitarbeiter_Lohnzettel_EL\".\"LohnzettelID\" WHERE "
                           "\"Mitarbeiter_Lohnzettel_EL\".\"Zeitraum\">=$1 AND "
                           "\"Mitarbeiter_Lohnzettel_EL\".\"Zeitraum\"<=$2");
  PgStatement steps(db, "s",
                    "SELECT * FROM \"Mitarbeiter_Laufbahn\" WHERE \"MitarbeiterID\"=$1 ORDER BY \"Datum\" ASC, \"Nr\" ASC");
  PgStatement reasons(reference, "g", "SELECT * FROM \"DM_Austrittsgründe\"");
  PgStatement children(db, "k", "SELECT * FROM \"Mitarbeiter_Kinder\" WHERE \"MitarbeiterID\"=$1 ORDER BY \"GebDatum\" ASC");
  PgStatement child_entries(db, "z", "SELECT * FROM \"Mitarbeiter_Kinder_ZB\" WHERE \"KID\"=$1 ORDER BY \"Zeitraum\" ASC");
  PgStatement benefits(db, "el",
                       "SELECT * FROM \"Mitarbeiter_Lohnzettel_EL\" WHERE \"LohnzettelID\"=$1 ORDER BY \"Zeitraum\" ASC");
  PgStatement shorttime(db, "ka", "SELECT * FROM \"Mitarbeiter_Lohnzettel_Kurzarbeit\" WHERE \"LohnzettelID\"=$1");
  PgStatement master(db, "m", "SELECT * FROM \"Mitarbeiter\" WHERE \"ID\"=$1");
  PgStatement bank(db, "b", "SELECT * FROM \"Mitarbeiter_Bankverbindung\" WHERE \"MitarbeiterID\"=$1");
  PgStatement lines(db, "l",
                    "SELECT * FROM \"Mitarbeiter_Lohnarten\" WHERE \"MitarbeiterID\"=$1 ORDER BY \"Zeitraum\", \"SortNr\"");
  PgStatement pay(db, "p", "SELECT * FROM \"Mitarbeiter_Lohnzettel\" WHERE \"MitarbeiterID\"=$1 ORDER BY \"Zeitraum\" ASC");
  PgStatement transfers(db, "t",
                        "SELECT * FROM \"Mitarbeiter_Übertritte\" WHERE \"MitarbeiterID\"=$1 ORDER BY \"Zeitraum\" ASC");
  PgStatement year(db, "y", "SELECT * FROM \"Mitarbeiter_Jahresdaten\" WHERE \"MitarbeiterID\"=$1 AND \"Jahr\"=$2");
  PgStatement password(db, "pw", "SELECT * FROM \"Mitarbeiter_PDFEncrypt\" WHERE \"MitarbeiterID\"=$1");

  const double year_end = DateHelpers::DateSerial(kYear, 12, 31);
  const double year_start = DateHelpers::DateSerial(kYear, 1, 1);
  std::unordered_map<std::string, Step> last_step;
  PGresult* all_steps = career.Run({});
  for (int row = 0; row < PQntuples(all_steps); ++row) {
    double datum = Number(all_steps, row, 4);
    if (datum > year_end) continue;
    last_step.try_emplace(PQgetvalue(all_steps, row, 2), Step{static_cast<int>(Number(all_steps, row, 3)), datum});
  }
  std::unordered_map<std::string, bool> has_replacement;
  std::string first = std::to_string(kYear * 100 + 1), last = std::to_string(kYear * 100 + 12);
  PGresult* in_year = replacements.Run({first.c_str(), last.c_str()});
  for (int row = 0; row < PQntuples(in_year); ++row) has_replacement[PQgetvalue(in_year, row, 0)] = true;

  std::vector<RawEmployee> result;
  std::string year_text = std::to_string(kYear);
  PGresult* list = employees.Run({employer.c_str()});
  const int neuanlage = PQnfields(list) - 2;  // Neuanlage, Anonymize
  for (int e = 0; e < PQntuples(list); ++e) {
    std::string id = PQgetvalue(list, e, 1);
    auto step = last_step.find(id);
    bool exit = step != last_step.end() && step->second.schritt == 3;
    double entry_date = step != last_step.end() && !exit ? step->second.datum : 0;
    double exit_date = exit ? step->second.datum : 0;
    if (!((entry_date > 0 && exit_date == 0) || exit_date >= year_start || Number(list, e, neuanlage) != 0 ||
          has_replacement.count(id)))
      continue;
    RawEmployee& employee = result.emplace_back();
    employee.id = id;
    employee.index = static_cast<int>(result.size());
    std::vector<RawReason> catalogue;
    PGresult* codes = reasons.Run({});
    for (int row = 0; row < PQntuples(codes); ++row)
      catalogue.push_back({Number(codes, row, 0), PQgetvalue(codes, row, 1), PQgetvalue(codes, row, 2)});
    PGresult* rows = steps.Run({id.c_str()});
    const int grund = 5;  // Nr, ID, MitarbeiterID, Schritt, Datum, Grund
    for (int row = 0; row < PQntuples(rows); ++row) {
      RawStep& raw = employee.career.emplace_back();
      ReadRow(rows, row, raw.row);
      if (PQgetisnull(rows, row, grund)) continue;
      TakeReason(catalogue, Number(rows, row, grund), raw);
    }
    PGresult* kids = children.Run({id.c_str()});
    for (int row = 0; row < PQntuples(kids); ++row) {
      RawChild& child = employee.children.emplace_back();
      ReadRow(kids, row, child.row);
      PGresult* entries = child_entries.Run({PQgetvalue(kids, row, 1)});
      for (int entry = 0; entry < PQntuples(entries); ++entry) ReadRow(entries, entry, child.entries.emplace_back());
    }
    rows = master.Run({id.c_str()});
    if (PQntuples(rows)) ReadRow(rows, 0, employee.master);
    rows = bank.Run({id.c_str()});
    if (PQntuples(rows)) ReadRow(rows, 0, employee.bank);
    rows = lines.Run({id.c_str()});
    for (int row = 0; row < PQntuples(rows); ++row) {
      int zeitraum = static_cast<int>(Number(rows, row, 3));
      if (zeitraum / 100 == kYear && zeitraum % 100 >= 1 && zeitraum % 100 <= 12)
        ReadRow(rows, row, employee.lines.emplace_back());
    }
    PGresult* months = pay.Run({id.c_str()});
    for (int row = 0; row < PQntuples(months); ++row) {
      int zeitraum = static_cast<int>(Number(months, row, 3));
      if (zeitraum / 100 != kYear || zeitraum % 100 < 1 || zeitraum % 100 > 12) continue;
      const auto month = static_cast<std::size_t>(zeitraum % 100);
      ReadRow(months, row, employee.months[month]);
      PGresult* extra = benefits.Run({PQgetvalue(months, row, 1)});
      for (int b = 0; b < PQntuples(extra); ++b) ReadRow(extra, b, employee.benefits[month].emplace_back());
      extra = shorttime.Run({PQgetvalue(months, row, 1)});
      if (PQntuples(extra)) ReadRow(extra, 0, employee.shorttime[month]);
    }
    ReadMonths(transfers.Run({id.c_str()}), employee.transfers);
    rows = year.Run({id.c_str(), year_text.c_str()});
    if (PQntuples(rows)) ReadRow(rows, 0, employee.year);
    rows = password.Run({id.c_str()});
    if (PQntuples(rows)) ReadRow(rows, 0, employee.password);
  }
  return result;
}

void Libpq_MitarbeiterLoad(benchmark::State& state) {
  const Store& store = DataOnPostgres(static_cast<int>(state.range(0)));
  if (store.pg.empty()) return state.SkipWithError("no PostgreSQL server: set ORMELIX_TEST_PG (./dev bench does)");
  PGconn* db = ConnectRaw(store.pg);
  PGconn* reference = ConnectRaw(store.pg_reference);
  TimeRawLoads(state, true, [&] { return PgRawLoad(db, reference, store.employer); });
  PQfinish(reference);
  PQfinish(db);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
// At 1,000 only: 36 waits for the server per employee, half a minute at 10,000.
BENCHMARK(Libpq_MitarbeiterLoad)->Arg(1000)->Iterations(1)->Unit(benchmark::kMillisecond);

// ---------------------------------------------------------------- the summary

// Prints the ratios from the fastest repetitions.
class SummaryReporter : public BestRunReporter {
 public:
  void Finalize() override {
    ConsoleReporter::Finalize();
    auto at = [&](const std::string& name) { return Best(name); };
    for (const char* n : {"1000", "10000"}) {
      double lib = at(std::string("Ormelix_MitarbeiterLoad/") + n);
      double raw = at(std::string("Raw_MitarbeiterLoad/") + n);
      if (lib > 0 && raw > 0)
        std::printf("%s employees (best repetition): library %.0f ms, raw %.0f ms, library / raw = %.2f (target <= 1.2)\n",
                    n, lib, raw, lib / raw);
    }
    double small = at("Ormelix_MitarbeiterLoad/1000");
    double large = at("Ormelix_MitarbeiterLoad/10000");
    double raw_small = at("Raw_MitarbeiterLoad/1000");
    double raw_large = at("Raw_MitarbeiterLoad/10000");
    // Information only: on a machine whose cache holds the smaller store and not
    // the larger, SQLite's own reading grows faster than the employees (the raw
    // loader's growth beside it shows how much).
    if (small > 0 && large > 0 && raw_small > 0 && raw_large > 0)
      std::printf("growth 10,000 / 1,000 (information): library %.2f, raw %.2f\n", large / small, raw_large / raw_small);
    auto us_per_employee = [](double ms, int employees) { return ms * 1000.0 / employees; };
    if (small > 0 && large > 0 && raw_small > 0 && raw_large > 0)
      std::printf("library's own time per employee (library - raw): %.1f us at 1,000, %.1f us at 10,000\n",
                  us_per_employee(small - raw_small, 1000), us_per_employee(large - raw_large, 10000));
    for (const char* n : {"1000", "10000"}) {
      const double sqlite = at(std::string("Ormelix_MitarbeiterLoad/") + n);
      const double socket = at(std::string("Postgres_MitarbeiterLoad/") + n);
      const double relay = at(std::string("Relay_MitarbeiterLoad/") + n);
      if (socket > 0 && sqlite > 0)
        std::printf("%s employees on PostgreSQL over its Unix socket %.0f ms, on SQLite %.0f ms: PostgreSQL / SQLite = "
                    "%.2f (target <= 1.5)\n",
                    n, socket, sqlite, socket / sqlite);
      if (relay > 0 && sqlite > 0)
        std::printf("%s employees on PostgreSQL through the relay (0.5 ms each way) %.0f ms: relay / SQLite = %.2f "
                    "(target <= 2.0)\n",
                    n, relay, relay / sqlite);
    }
    double libpq = at("Libpq_MitarbeiterLoad/1000");
    double pg = at("Postgres_MitarbeiterLoad/1000");
    if (pg > 0 && libpq > 0)
      std::printf("1000 employees on PostgreSQL: library %.0f ms, raw libpq loader of the per-employee statements %.0f "
                  "ms (information: library / libpq = %.2f)\n",
                  pg, libpq, pg / libpq);
    double uncached = at("PostgresNoCache_MitarbeiterLoad/1000");
    if (pg > 0 && uncached > 0)
      std::printf("1000 employees on PostgreSQL without the statement cache %.0f ms, with it %.0f ms (information)\n",
                  uncached, pg);
  }
};

// The times one Mitarbeiter.Load on PostgreSQL waits for the server (both stores),
// in a warm session.
void ReportRoundTrips(int employees) {
  const Store& store = DataOnPostgres(employees);
  if (store.pg.empty()) return;
  auto manager = Session(store, Reach::Postgres);
  manager->Mitarbeiter()->Load(kYear, lcPersonalnummer);
  const std::uint64_t before = RoundTrips(manager);
  manager->Mitarbeiter()->Load(kYear, lcPersonalnummer);
  std::printf("Mitarbeiter.Load of %d employees on PostgreSQL: round trips = %llu (target <= 100)\n", employees,
              static_cast<unsigned long long>(RoundTrips(manager) - before));
}

// The first load of a fresh session (new connection, statements prepared anew,
// heap not yet grown), for both loaders, once each.
void ReportFirstLoad(int employees) {
  const Store& store = Data(employees);
  auto start = std::chrono::steady_clock::now();
  {
    auto manager = Session(store);
    manager->Mitarbeiter()->Load(kYear, lcPersonalnummer);
  }
  double library = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
  start = std::chrono::steady_clock::now();
  {
    RawConnections raw(store);
    benchmark::DoNotOptimize(RawLoad(raw.db, raw.reference, store.employer).size());
  }
  double raw = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
  std::printf("%d employees, first load of a fresh session (with its end): library %.0f ms, raw %.0f ms, ratio %.2f\n",
              employees, library, raw, library / raw);
}

// Heap bytes that one Load leaves held, per loaded employee (the list's LLohn
// objects and their children; the recordsets are closed by then). The session has
// loaded the list once and then a year without employees, so that what the
// connection keeps for any load (SQLite's page cache, prepared statements) is
// held already and the list is empty when the count starts.
void ReportMemoryPerEmployee(int employees) {
  auto manager = Session(Data(employees));
  manager->Mitarbeiter()->Load(kYear, lcPersonalnummer);
  manager->Mitarbeiter()->Load(1900, lcPersonalnummer);
  if (manager->Mitarbeiter()->Count() != 0) std::printf("the year 1900 has employees: the count below is off\n");
  std::size_t before = mallinfo2().uordblks;
  manager->Mitarbeiter()->Load(kYear, lcPersonalnummer);
  std::size_t after = mallinfo2().uordblks;
  std::printf("%d employees: heap bytes per loaded LLohn = %.0f (target <= 32767); sizeof(LLohn) = %zu\n", employees,
              static_cast<double>(after - before) / static_cast<double>(manager->Mitarbeiter()->Count()),
              sizeof(LLohn));
}

}  // namespace

int main(int argc, char** argv) {
  if (!bench::InitializeInterleaved(argc, argv)) return 1;
  RemoveStaleStores();
  SummaryReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  ReportFirstLoad(1000);
  ReportFirstLoad(10000);
  ReportMemoryPerEmployee(1000);
  ReportMemoryPerEmployee(10000);
  ReportRoundTrips(1000);
  ReportRoundTrips(10000);
  RemoveStores();
  benchmark::Shutdown();
  return 0;
}
