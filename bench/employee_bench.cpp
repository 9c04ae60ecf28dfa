// Loading the employee list against a hand-written raw sqlite3 loader doing the
// same reads, in one run: 1,000 and 10,000 employees of one employer, each with 12
// pay rows of the year, 3 career steps, 2 children with 3 entitlement rows each, a
// bank row, the year data and the 40 wage-type rows (8 groups of 5 lines) of one
// month; every tenth employee has a short-time row on March and two replacement
// benefits on December; a reference store beside it holds the catalogue of exit
// reasons.
//
// The raw loader runs the statements the library runs (the employer's employees,
// all career steps, the replacement benefits of the year; then per employee its
// career steps with their exit reasons looked up in the catalogue, which it reads
// per employee as the library does, its children and per child their entitlement
// rows, its master row, its bank row, its wage-type rows, its pay rows with the
// replacement benefits (in period order) and the short-time row of each, its
// transfers and its year data), prepared once with sqlite3
// and bound per employee, and keeps every column of those rows in plain structs. It
// filters the year with hash maps of its own. When later work adds tables to the
// employee load (password), the raw loader must read them too.
//
// The same load runs on PostgreSQL when ORMELIX_TEST_PG names a server (./dev
// bench starts a throwaway one, reached over its Unix socket): the stores are
// copied there, and the library's load (with its statement cache, and once
// without) runs beside a raw libpq loader that prepares the same statements once
// and reads the same rows in text form into the same plain structs.
//
// At the end the run prints the ratios: library / raw, 10,000 / 1,000, the first
// load of a fresh session for both, and the heap bytes held per loaded LLohn
// (glibc's mallinfo2 before and after a Load); on PostgreSQL library / libpq and
// what the statement cache saves.
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

constexpr int kYear = 2024;

// ---------------------------------------------------------------- the data

using bench::Inserter;
using bench::RawRow;
using bench::ReadRow;
using bench::Statement;

struct Store {
  std::string path;
  std::string reference;
  std::string employer;
  std::string pg;            // the same stores on PostgreSQL, "" without a server
  std::string pg_reference;
};

std::string PostgresServer() {
  const char* server = std::getenv("ORMELIX_TEST_PG");
  return server ? server : "";
}

// Runs one statement of PostgreSQL's own on a fresh connection (as the store's
// schema, if the location names one); false when it fails.
bool RunOnServer(const std::string& location, const std::string& sql) {
  std::string schema = LocationParameter(location, "schema");
  std::string conninfo = WithLocationParameter(location, "schema", "");
  if (!schema.empty()) conninfo = WithLocationParameter(conninfo, "options", "-csearch_path=" + schema);
  PGconn* conn = PQconnectdb(conninfo.c_str());
  PGresult* result = PQstatus(conn) == CONNECTION_OK ? PQexec(conn, sql.c_str()) : nullptr;
  bool ok = result && PQresultStatus(result) == PGRES_COMMAND_OK;
  PQclear(result);
  PQfinish(conn);
  return ok;
}

// The stores copied to the server, into schemas of the database ormelix_bench.
void CopyToPostgres(Store& store, int employees) {
  std::string server = PostgresServer();
  if (server.empty()) return;
  std::string schema = "employees_" + std::to_string(employees);
  std::string database = WithLocationParameter(server, "dbname", "ormelix_bench");
  store.pg = WithLocationParameter(database, "schema", schema);
  store.pg_reference = WithLocationParameter(database, "schema", schema + "_reference");
  RunOnServer(store.pg, "DROP SCHEMA IF EXISTS " + schema + ", " + schema + "_reference CASCADE");
  CopyStore(StoreConnection::Open(store.path), CreateStore(store.pg, StoreKind::Payroll), StoreKind::Payroll);
  CopyStore(StoreConnection::Open(store.reference), CreateStore(store.pg_reference, StoreKind::Reference),
            StoreKind::Reference);
  RunOnServer(store.pg, "ANALYZE");
}

constexpr int kReasons = 12;  // exit reasons in the catalogue, codes 0 to 11

void MakeReferenceStore(const std::string& path) {
  std::filesystem::remove(path);
  auto db = CreateStore(path, StoreKind::Reference);
  for (int code = 0; code < kReasons; ++code)
    db->Session().ExecuteSql("INSERT INTO [DM_Austrittsgründe] ([Code], [Kürzel], [Grund]) VALUES (" +
                             std::to_string(code) + ", 'G" + std::to_string(code) + "', 'Austrittsgrund " +
                             std::to_string(code) + "')");
}

constexpr const char* kStorePrefix = "ormelix-employee-bench-";

Store MakeStore(int employees) {
  Store store;
  // Named by the process too: another run on the same machine must not replace the
  // store under this one.
  store.path = (std::filesystem::temp_directory_path() /
                (kStorePrefix + std::to_string(getpid()) + "-" + std::to_string(employees) + ".db"))
                   .string();
  std::filesystem::remove(store.path);
  store.reference = store.path + ".reference";
  MakeReferenceStore(store.reference);
  {
    auto db = CreateStore(store.path, StoreKind::Payroll);
    auto rs = db->Session().OpenRecordset("SELECT * FROM [Mandanten]", adOpenDynamic, adLockOptimistic);
    rs->AddNew();
    rs->Collect("Name", Variant("Bench GmbH"));
    rs->Update();
    store.employer = ValueHelpers::ToText(rs->Fields("ID"));
    rs->Close();
  }
  sqlite3* db = nullptr;
  sqlite3_open(store.path.c_str(), &db);
  RegisterSqliteText(db);  // the store's text columns compare in its text order
  sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
  {
    Inserter master(db, "Mitarbeiter"), bank(db, "Mitarbeiter_Bankverbindung"), career(db, "Mitarbeiter_Laufbahn"),
        pay(db, "Mitarbeiter_Lohnzettel"), lines(db, "Mitarbeiter_Lohnarten"), year(db, "Mitarbeiter_Jahresdaten"),
        children(db, "Mitarbeiter_Kinder"), entries(db, "Mitarbeiter_Kinder_ZB"),
        shorttime(db, "Mitarbeiter_Lohnzettel_Kurzarbeit"), benefits(db, "Mitarbeiter_Lohnzettel_EL");
    for (int e = 0; e < employees; ++e) {
      std::string id = ValueHelpers::NewID();
      master.Insert(e, {{"ID", Variant(id)}, {"MandantenID", Variant(store.employer)}, {"Personalnummer", e % 30000},
                        {"ForstarbeiterLand", -1}, {"Neuanlage", 0}, {"SortNr", e}});
      bank.Insert(e, {{"MitarbeiterID", Variant(id)}});
      // entry, rest, entry again; a reason on the rest (in the catalogue or not),
      // none on the entries
      const int steps[3][2] = {{1, 2015}, {2, 2019}, {1, 2020}};
      for (const auto& step : steps)
        career.Insert(e, {{"MitarbeiterID", Variant(id)}, {"Schritt", step[0]},
                          {"Datum", DateHelpers::DateSerial(step[1], 3, 1)},
                          {"Grund", step[0] == 2 ? Variant(e % (kReasons + 2)) : Variant::NullValue()}});
      // two children, each with three entitlement rows: whole bonus, half, whole again
      for (int c = 0; c < 2; ++c) {
        std::string kid = ValueHelpers::NewID();
        children.Insert(e * 2 + c, {{"ID", Variant(kid)}, {"MitarbeiterID", Variant(id)},
                                    {"GebDatum", DateHelpers::DateSerial(2008 + c * 5 + e % 4, 1 + e % 12, 1 + e % 28)}});
        const int periods[3] = {202001, 202301, 202403};
        for (int r = 0; r < 3; ++r)
          entries.Insert(e * 6 + c * 3 + r, {{"KID", Variant(kid)}, {"Zeitraum", periods[r]}, {"KFZ", Variant("A")},
                                             {"FB_Bezieher", 1 + (e + r) % 3}, {"FABO", 1 + r % 2}, {"AVAB", -1}});
      }
      for (int month = 1; month <= 12; ++month) {
        const std::string row = ValueHelpers::NewID();
        pay.Insert(e * 12 + month, {{"ID", Variant(row)}, {"MitarbeiterID", Variant(id)},
                                    {"Zeitraum", kYear * 100 + month}, {"FB_Tage", Variant("0315")}});
        if (e % 10 != 0) continue;
        if (month == 3) shorttime.Insert(e, {{"LohnzettelID", Variant(row)}});
        if (month == 12)  // the later period first: the loads put them in order
          for (int period : {(kYear + 1) * 100 + 1, kYear * 100 + 12})
            benefits.Insert(e + period, {{"LohnzettelID", Variant(row)}, {"Zeitraum", period}});
      }
      for (int group = 1; group <= 8; ++group)
        for (int line = 1; line <= 5; ++line)
          lines.Insert(e * 40 + group * 5 + line, {{"MitarbeiterID", Variant(id)}, {"Zeitraum", kYear * 100 + 3},
                                                   {"Lohnarttyp", group}, {"SortNr", line}});
      year.Insert(e, {{"MitarbeiterID", Variant(id)}, {"Jahr", kYear}});
    }
  }
  sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
  sqlite3_close(db);
  CopyToPostgres(store, employees);
  return store;
}

// One store per size, made on first use and kept for the run.
std::map<int, Store>& Stores() {
  static std::map<int, Store> stores;
  return stores;
}

const Store& Data(int employees) {
  auto found = Stores().find(employees);
  if (found == Stores().end()) found = Stores().emplace(employees, MakeStore(employees)).first;
  return found->second;
}

// A store file with its journals.
void RemoveStoreFiles(const std::string& path) {
  std::error_code ignored;
  for (const char* suffix : {"", "-wal", "-shm", "-journal"}) std::filesystem::remove(path + suffix, ignored);
}

void RemoveStores() {
  for (const auto& [employees, store] : Stores()) {
    RemoveStoreFiles(store.path);
    RemoveStoreFiles(store.reference);
  }
}

// The stores that runs which did not reach their end (stopped, killed) left in the
// temporary folder: those named by a process that no longer exists.
void RemoveStaleStores() {
  std::error_code failed;
  std::vector<std::filesystem::path> stale;
  for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::temp_directory_path(), failed)) {
    const std::string name = entry.path().filename().string();
    if (name.rfind(kStorePrefix, 0) != 0) continue;
    const long pid = std::strtol(name.c_str() + std::strlen(kStorePrefix), nullptr, 10);
    if (pid > 0 && kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH) stale.push_back(entry.path());
  }
  for (const auto& path : stale) std::filesystem::remove(path, failed);
}

// ---------------------------------------------------------------- the library

ManagerPtr Session(const Store& store, bool postgres = false, const std::string& connect = "") {
  auto manager = clsManager::Create();
  manager->SetAktDB(StoreConnection::Open(postgres ? store.pg : store.path, connect));
  manager->SetImportDB(StoreConnection::Open(postgres ? store.pg_reference : store.reference, connect));
  manager->AktJahr = kYear;
  manager->AktMonat = 3;
  manager->ChangeAktMandant(store.employer);
  return manager;
}

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
BENCHMARK(Ormelix_MitarbeiterLoad)->Arg(1000)->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK(Ormelix_MitarbeiterLoad)->Arg(10000)->Iterations(3)->Unit(benchmark::kMillisecond);

// The same on PostgreSQL, with the statement cache and (connect text
// statement_cache=0) without it, when a server is named.
void LoadOnPostgres(benchmark::State& state, const std::string& connect) {
  const Store& store = Data(static_cast<int>(state.range(0)));
  if (store.pg.empty()) return state.SkipWithError("no PostgreSQL server: set ORMELIX_TEST_PG (./dev bench does)");
  auto manager = Session(store, true, connect);
  manager->Mitarbeiter()->Load(kYear, lcPersonalnummer);
  for (auto _ : state) {
    manager->Mitarbeiter()->Load(kYear, lcPersonalnummer);
    if (manager->Mitarbeiter()->Count() != state.range(0)) state.SkipWithError("not every employee was loaded");
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
void Postgres_MitarbeiterLoad(benchmark::State& state) { LoadOnPostgres(state, ""); }
void PostgresNoCache_MitarbeiterLoad(benchmark::State& state) { LoadOnPostgres(state, "statement_cache=0"); }
BENCHMARK(Postgres_MitarbeiterLoad)->Arg(1000)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(Postgres_MitarbeiterLoad)->Arg(10000)->Iterations(2)->Unit(benchmark::kMillisecond);
BENCHMARK(PostgresNoCache_MitarbeiterLoad)->Arg(1000)->Iterations(3)->Unit(benchmark::kMillisecond);

// ---------------------------------------------------------------- the raw loader

struct RawReason {
  double code = 0;
  std::string kuerzel;
  std::string text;
};

// A career row with its reason from the catalogue (code -1 when there is none).
struct RawStep {
  RawRow row;
  int reason_index = 0;
  int reason_code = -1;
  std::string reason_kuerzel;
  std::string reason_text;
};

// A child with its entitlement rows.
struct RawChild {
  RawRow row;
  std::vector<RawRow> entries;
};

struct RawEmployee {
  std::string id;
  int index = 0;
  std::vector<RawStep> career;
  std::vector<RawChild> children;
  RawRow master;
  RawRow bank;
  std::vector<RawRow> lines;  // the wage-type rows of the year
  std::vector<RawRow> months = std::vector<RawRow>(13);
  std::vector<RawRow> transfers = std::vector<RawRow>(13);
  std::vector<std::vector<RawRow>> benefits = std::vector<std::vector<RawRow>>(13);  // of each pay row
  std::vector<RawRow> shorttime = std::vector<RawRow>(13);
  RawRow year;
};

struct Step {
  int schritt;
  double datum;
};

// The employee's career rows by date, each with its reason looked up in the
// catalogue, which is read anew per employee as the library does.
void RawCareer(Statement& steps, Statement& reasons, const std::string& id, RawEmployee& employee) {
  std::vector<RawReason> catalogue;
  sqlite3_reset(reasons.get());
  while (sqlite3_step(reasons.get()) == SQLITE_ROW)
    catalogue.push_back({sqlite3_column_double(reasons.get(), 0),
                         reinterpret_cast<const char*>(sqlite3_column_text(reasons.get(), 1)),
                         reinterpret_cast<const char*>(sqlite3_column_text(reasons.get(), 2))});
  steps.Bind(id);
  const int grund = 5;  // Nr, ID, MitarbeiterID, Schritt, Datum, Grund
  while (sqlite3_step(steps.get()) == SQLITE_ROW) {
    RawStep& step = employee.career.emplace_back();
    ReadRow(steps.get(), step.row);
    if (sqlite3_column_type(steps.get(), grund) == SQLITE_NULL) continue;
    const double code = sqlite3_column_double(steps.get(), grund);
    for (const RawReason& reason : catalogue) {
      if (reason.code != code) continue;
      step.reason_code = static_cast<int>(code);
      step.reason_index = step.reason_code + 1;
      step.reason_kuerzel = reason.kuerzel;
      step.reason_text = reason.text;
      break;
    }
  }
}

// The employee's children by birth date, and per child its entitlement rows by period.
void RawChildren(Statement& children, Statement& entries, const std::string& id, RawEmployee& employee) {
  children.Bind(id);
  while (sqlite3_step(children.get()) == SQLITE_ROW) {
    RawChild& child = employee.children.emplace_back();
    ReadRow(children.get(), child.row);
    const std::string kid = reinterpret_cast<const char*>(sqlite3_column_text(children.get(), 1));
    entries.Bind(kid);
    while (sqlite3_step(entries.get()) == SQLITE_ROW) ReadRow(entries.get(), child.entries.emplace_back());
  }
}

std::vector<RawEmployee> RawLoad(sqlite3* db, sqlite3* reference, const std::string& employer) {
  Statement employees(db, "SELECT * FROM \"Mitarbeiter\" WHERE \"MandantenID\"=? ORDER BY \"Personalnummer\" ASC");
  Statement career(db, "SELECT * FROM \"Mitarbeiter_Laufbahn\" ORDER BY \"Datum\" DESC, \"Nr\" DESC");
  Statement replacements(db,
                         "SELECT \"MitarbeiterID\", \"Mitarbeiter_Lohnzettel_EL\".\"Zeitraum\" AS \"Zeitraum\" FROM "
                         "\"Mitarbeiter_Lohnzettel\" INNER JOIN \"Mitarbeiter_Lohnzettel_EL\" ON "
                         "\"Mitarbeiter_Lohnzettel\".\"ID\"=\"Mitarbeiter_Lohnzettel_EL\".\"LohnzettelID\" WHERE "
                         "\"Mitarbeiter_Lohnzettel_EL\".\"Zeitraum\">=? AND \"Mitarbeiter_Lohnzettel_EL\".\"Zeitraum\"<=?");
  Statement steps(db,
                  "SELECT * FROM \"Mitarbeiter_Laufbahn\" WHERE \"MitarbeiterID\"=? ORDER BY \"Datum\" ASC, \"Nr\" ASC");
  Statement reasons(reference, "SELECT * FROM \"DM_Austrittsgründe\"");
  Statement children(db,
                     "SELECT * FROM \"Mitarbeiter_Kinder\" WHERE \"MitarbeiterID\"=? ORDER BY \"GebDatum\" ASC");
  Statement child_entries(db, "SELECT * FROM \"Mitarbeiter_Kinder_ZB\" WHERE \"KID\"=? ORDER BY \"Zeitraum\" ASC");
  Statement master(db, "SELECT * FROM \"Mitarbeiter\" WHERE \"ID\"=?");
  Statement bank(db, "SELECT * FROM \"Mitarbeiter_Bankverbindung\" WHERE \"MitarbeiterID\"=?");
  Statement lines(db, "SELECT * FROM \"Mitarbeiter_Lohnarten\" WHERE \"MitarbeiterID\"=? ORDER BY \"Zeitraum\", \"SortNr\"");
  Statement pay(db, "SELECT * FROM \"Mitarbeiter_Lohnzettel\" WHERE \"MitarbeiterID\"=? ORDER BY \"Zeitraum\" ASC");
  Statement benefits(
      db, "SELECT * FROM \"Mitarbeiter_Lohnzettel_EL\" WHERE \"LohnzettelID\"=? ORDER BY \"Zeitraum\" ASC");
  Statement shorttime(db, "SELECT * FROM \"Mitarbeiter_Lohnzettel_Kurzarbeit\" WHERE \"LohnzettelID\"=?");
  Statement transfers(db, "SELECT * FROM \"Mitarbeiter_Übertritte\" WHERE \"MitarbeiterID\"=? ORDER BY \"Zeitraum\" ASC");
  Statement year(db, "SELECT * FROM \"Mitarbeiter_Jahresdaten\" WHERE \"MitarbeiterID\"=? AND \"Jahr\"=?");

  // Newest step up to the year's end per employee; employees with a benefit in the year.
  const double year_end = DateHelpers::DateSerial(kYear, 12, 31);
  const double year_start = DateHelpers::DateSerial(kYear, 1, 1);
  std::unordered_map<std::string, Step> last_step;
  while (sqlite3_step(career.get()) == SQLITE_ROW) {
    double datum = sqlite3_column_double(career.get(), 4);
    if (datum > year_end) continue;
    last_step.try_emplace(reinterpret_cast<const char*>(sqlite3_column_text(career.get(), 2)),
                          Step{sqlite3_column_int(career.get(), 3), datum});
  }
  std::unordered_map<std::string, bool> has_replacement;
  sqlite3_bind_int(replacements.get(), 1, kYear * 100 + 1);
  sqlite3_bind_int(replacements.get(), 2, kYear * 100 + 12);
  while (sqlite3_step(replacements.get()) == SQLITE_ROW)
    has_replacement[reinterpret_cast<const char*>(sqlite3_column_text(replacements.get(), 0))] = true;

  std::vector<RawEmployee> result;
  employees.Bind(employer);
  const int neuanlage = sqlite3_column_count(employees.get()) - 2;  // Neuanlage, Anonymize
  while (sqlite3_step(employees.get()) == SQLITE_ROW) {
    std::string id = reinterpret_cast<const char*>(sqlite3_column_text(employees.get(), 1));
    auto step = last_step.find(id);
    bool exit = step != last_step.end() && step->second.schritt == 3;
    double entry_date = step != last_step.end() && !exit ? step->second.datum : 0;
    double exit_date = exit ? step->second.datum : 0;
    if (!((entry_date > 0 && exit_date == 0) || exit_date >= year_start ||
          sqlite3_column_int(employees.get(), neuanlage) != 0 || has_replacement.count(id)))
      continue;
    RawEmployee& employee = result.emplace_back();
    employee.id = id;
    employee.index = static_cast<int>(result.size());
    RawCareer(steps, reasons, id, employee);
    RawChildren(children, child_entries, id, employee);
    master.Bind(id);
    if (sqlite3_step(master.get()) == SQLITE_ROW) ReadRow(master.get(), employee.master);
    bank.Bind(id);
    if (sqlite3_step(bank.get()) == SQLITE_ROW) ReadRow(bank.get(), employee.bank);
    lines.Bind(id);
    while (sqlite3_step(lines.get()) == SQLITE_ROW) {
      int zeitraum = sqlite3_column_int(lines.get(), 3);
      if (zeitraum / 100 == kYear && zeitraum % 100 >= 1 && zeitraum % 100 <= 12)
        ReadRow(lines.get(), employee.lines.emplace_back());
    }
    pay.Bind(id);
    while (sqlite3_step(pay.get()) == SQLITE_ROW) {
      int zeitraum = sqlite3_column_int(pay.get(), 3);
      if (zeitraum / 100 == kYear && zeitraum % 100 >= 1 && zeitraum % 100 <= 12) {
        const auto month = static_cast<std::size_t>(zeitraum % 100);
        ReadRow(pay.get(), employee.months[month]);
        const std::string row = reinterpret_cast<const char*>(sqlite3_column_text(pay.get(), 1));
        benefits.Bind(row);
        while (sqlite3_step(benefits.get()) == SQLITE_ROW) ReadRow(benefits.get(), employee.benefits[month].emplace_back());
        shorttime.Bind(row);
        if (sqlite3_step(shorttime.get()) == SQLITE_ROW) ReadRow(shorttime.get(), employee.shorttime[month]);
      }
    }
    transfers.Bind(id);
    while (sqlite3_step(transfers.get()) == SQLITE_ROW) {
      int zeitraum = sqlite3_column_int(transfers.get(), 3);
      if (zeitraum / 100 == kYear && zeitraum % 100 >= 1 && zeitraum % 100 <= 12)
        ReadRow(transfers.get(), employee.transfers[static_cast<std::size_t>(zeitraum % 100)]);
    }
    year.Bind(id);
    sqlite3_bind_int(year.get(), 2, kYear);
    if (sqlite3_step(year.get()) == SQLITE_ROW) ReadRow(year.get(), employee.year);
  }
  return result;
}

void Raw_MitarbeiterLoad(benchmark::State& state) {
  const Store& store = Data(static_cast<int>(state.range(0)));
  sqlite3* db = nullptr;
  sqlite3* reference = nullptr;
  sqlite3_open_v2(store.path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  sqlite3_open_v2(store.reference.c_str(), &reference, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  RegisterSqliteText(db);
  RegisterSqliteText(reference);
  benchmark::DoNotOptimize(RawLoad(db, reference, store.employer).size());
  for (auto _ : state) {
    auto employees = RawLoad(db, reference, store.employer);
    if (static_cast<long>(employees.size()) != state.range(0)) state.SkipWithError("not every employee was loaded");
    benchmark::DoNotOptimize(employees.data());
  }
  sqlite3_close(reference);
  sqlite3_close(db);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Raw_MitarbeiterLoad)->Arg(1000)->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK(Raw_MitarbeiterLoad)->Arg(10000)->Iterations(3)->Unit(benchmark::kMillisecond);

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
      const double code = Number(rows, row, grund);
      for (const RawReason& reason : catalogue) {
        if (reason.code != code) continue;
        raw.reason_code = static_cast<int>(code);
        raw.reason_index = raw.reason_code + 1;
        raw.reason_kuerzel = reason.kuerzel;
        raw.reason_text = reason.text;
        break;
      }
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
  }
  return result;
}

// Connections as the library makes them: the store's schema on the search path.
PGconn* ConnectRaw(const std::string& location) {
  std::string conninfo = WithLocationParameter(
      WithLocationParameter(location, "options", "-csearch_path=" + LocationParameter(location, "schema")), "schema",
      "");
  return PQconnectdb(conninfo.c_str());
}

void Libpq_MitarbeiterLoad(benchmark::State& state) {
  const Store& store = Data(static_cast<int>(state.range(0)));
  if (store.pg.empty()) return state.SkipWithError("no PostgreSQL server: set ORMELIX_TEST_PG (./dev bench does)");
  PGconn* db = ConnectRaw(store.pg);
  PGconn* reference = ConnectRaw(store.pg_reference);
  benchmark::DoNotOptimize(PgRawLoad(db, reference, store.employer).size());
  for (auto _ : state) {
    auto employees = PgRawLoad(db, reference, store.employer);
    if (static_cast<long>(employees.size()) != state.range(0)) state.SkipWithError("not every employee was loaded");
    benchmark::DoNotOptimize(employees.data());
  }
  PQfinish(reference);
  PQfinish(db);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Libpq_MitarbeiterLoad)->Arg(1000)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(Libpq_MitarbeiterLoad)->Arg(10000)->Iterations(2)->Unit(benchmark::kMillisecond);

// ---------------------------------------------------------------- the summary

// Keeps the fastest repetition of each benchmark (the machine is shared, and the
// minimum is the figure least disturbed by other work) and prints the ratios.
class SummaryReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
      std::string name = run.run_name.function_name + "/" + run.run_name.args;
      double seconds = run.GetAdjustedRealTime();
      if (!best_.count(name) || seconds < best_[name]) best_[name] = seconds;
    }
    ConsoleReporter::ReportRuns(runs);
  }
  void Finalize() override {
    ConsoleReporter::Finalize();
    auto at = [&](const std::string& name) { return best_.count(name) ? best_[name] : 0.0; };
    for (const char* n : {"1000", "10000"}) {
      double lib = at(std::string("Ormelix_MitarbeiterLoad/") + n);
      double raw = at(std::string("Raw_MitarbeiterLoad/") + n);
      if (lib > 0 && raw > 0)
        std::printf("%s employees (best repetition): library %.0f ms, raw %.0f ms, library / raw = %.2f (target <= 2)\n",
                    n, lib, raw, lib / raw);
    }
    double small = at("Ormelix_MitarbeiterLoad/1000");
    double large = at("Ormelix_MitarbeiterLoad/10000");
    if (small > 0 && large > 0) std::printf("library 10,000 / 1,000 = %.2f (target <= 11)\n", large / small);
    double raw_small = at("Raw_MitarbeiterLoad/1000");
    double raw_large = at("Raw_MitarbeiterLoad/10000");
    if (raw_small > 0 && raw_large > 0) std::printf("raw 10,000 / 1,000 = %.2f\n", raw_large / raw_small);
    for (const char* n : {"1000", "10000"}) {
      double pg = at(std::string("Postgres_MitarbeiterLoad/") + n);
      double libpq = at(std::string("Libpq_MitarbeiterLoad/") + n);
      double sqlite = at(std::string("Ormelix_MitarbeiterLoad/") + n);
      if (pg > 0 && libpq > 0)
        std::printf("%s employees on PostgreSQL (best repetition): library %.0f ms, raw libpq %.0f ms, "
                    "library / libpq = %.2f (target <= 1.5); the library on SQLite %.0f ms\n",
                    n, pg, libpq, pg / libpq, sqlite);
    }
    double cached = at("Postgres_MitarbeiterLoad/1000");
    double uncached = at("PostgresNoCache_MitarbeiterLoad/1000");
    if (cached > 0 && uncached > 0)
      std::printf("1000 employees on PostgreSQL without the statement cache %.0f ms, with it %.0f ms: the cache "
                  "saves %.0f %%\n",
                  uncached, cached, 100.0 * (uncached - cached) / uncached);
  }

 private:
  std::map<std::string, double> best_;
};

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
    sqlite3* db = nullptr;
    sqlite3* reference = nullptr;
    sqlite3_open_v2(store.path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    sqlite3_open_v2(store.reference.c_str(), &reference, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    RegisterSqliteText(db);
    RegisterSqliteText(reference);
    benchmark::DoNotOptimize(RawLoad(db, reference, store.employer).size());
    sqlite3_close(reference);
    sqlite3_close(db);
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
  std::printf("%d employees: %.0f heap bytes per loaded LLohn (sizeof(LLohn) = %zu; target < 32768)\n", employees,
              static_cast<double>(after - before) / static_cast<double>(manager->Mitarbeiter()->Count()),
              sizeof(LLohn));
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  RemoveStaleStores();
  SummaryReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  ReportFirstLoad(1000);
  ReportFirstLoad(10000);
  ReportMemoryPerEmployee(1000);
  ReportMemoryPerEmployee(10000);
  RemoveStores();
  benchmark::Shutdown();
  return 0;
}
