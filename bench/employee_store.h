// The store of the employee benchmarks: 1,000 or 10,000 employees of one employer,
// each with 12 pay rows of the year, 3 career steps, 2 children with 3 entitlement
// rows each, a bank row, the year data and the 40 wage-type rows (8 groups of 5
// lines) of one month; every tenth employee has a short-time row on March and two
// replacement benefits on December; a reference store beside it holds the
// catalogue of exit reasons. Made once per size and run, named by the process, and
// copied to PostgreSQL when ORMELIX_TEST_PG names a server.
#pragma once

#include <libpq-fe.h>
#include <signal.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ormelix/employer/mandant.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/copy.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/location.h"
#include "ormelix/store/schema.h"
#include "ormelix/store/sqlite_text.h"
#include "ormelix/store/value_helpers.h"
#include "latency_relay.h"
#include "raw_sqlite.h"

namespace bench {

using namespace ormelix;

inline constexpr int kYear = 2024;

// ---------------------------------------------------------------- the data


struct Store {
  std::string path;
  std::string reference;
  std::string employer;
  std::string pg;            // the same stores on PostgreSQL, "" without a server
  std::string pg_reference;
};

inline std::string PostgresServer() {
  const char* server = std::getenv("ORMELIX_TEST_PG");
  return server ? server : "";
}

// The server one office network away: a relay on 127.0.0.1 in front of it that
// holds back what passes by 0.5 ms each way. Made at first use; nullptr when no
// server is named.
inline relay::LatencyRelay* Relay() {
  static std::unique_ptr<relay::LatencyRelay> relay = [] {
    const std::string server = PostgresServer();
    if (server.empty()) return std::unique_ptr<relay::LatencyRelay>();
    const std::string port = LocationParameter(server, "port");
    return std::make_unique<relay::LatencyRelay>(LocationParameter(server, "host") + "/.s.PGSQL." +
                                                 (port.empty() ? "5432" : port));
  }();
  return relay.get();
}

// A location on the server, reached through the relay.
inline std::string ThroughRelay(const std::string& location) {
  return WithLocationParameter(WithLocationParameter(location, "host", "127.0.0.1"), "port",
                               std::to_string(Relay()->Port()));
}

// A libpq connection as the library makes one: the store's schema on the search path.
inline PGconn* ConnectRaw(const std::string& location) {
  return PQconnectdb(LibpqConnectionString(location).c_str());
}

// Runs one statement of PostgreSQL's own on a fresh connection, its notices
// unprinted; false when it fails.
inline bool RunOnServer(const std::string& location, const std::string& sql) {
  PGconn* conn = ConnectRaw(location);
  std::string quiet = "SET client_min_messages TO warning; " + sql;
  PGresult* result = PQstatus(conn) == CONNECTION_OK ? PQexec(conn, quiet.c_str()) : nullptr;
  bool ok = result && PQresultStatus(result) == PGRES_COMMAND_OK;
  PQclear(result);
  PQfinish(conn);
  return ok;
}

// The stores copied to the server, into schemas of the database ormelix_bench.
inline void CopyToPostgres(Store& store, int employees) {
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

inline constexpr int kReasons = 12;  // exit reasons in the catalogue, codes 0 to 11

inline void MakeReferenceStore(const std::string& path) {
  std::filesystem::remove(path);
  auto db = CreateStore(path, StoreKind::Reference);
  for (int code = 0; code < kReasons; ++code)
    db->Session().ExecuteSql("INSERT INTO [DM_Austrittsgründe] ([Code], [Kürzel], [Grund]) VALUES (" +
                             std::to_string(code) + ", 'G" + std::to_string(code) + "', 'Austrittsgrund " +
                             std::to_string(code) + "')");
}

inline constexpr const char* kStorePrefix = "ormelix-employee-bench-";

inline Store MakeStore(int employees) {
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
  return store;
}

// One store per size, made on first use and kept for the run.
inline std::map<int, Store>& Stores() {
  static std::map<int, Store> stores;
  return stores;
}

inline const Store& Data(int employees) {
  auto found = Stores().find(employees);
  if (found == Stores().end()) found = Stores().emplace(employees, MakeStore(employees)).first;
  return found->second;
}

// The same store, copied to the PostgreSQL server on first use when one is named
// (its pg locations stay empty when none is).
inline const Store& DataOnPostgres(int employees) {
  Data(employees);
  Store& store = Stores()[employees];
  if (store.pg.empty()) CopyToPostgres(store, employees);
  return store;
}

// A store file with its journals.
inline void RemoveStoreFiles(const std::string& path) {
  std::error_code ignored;
  for (const char* suffix : {"", "-wal", "-shm", "-journal"}) std::filesystem::remove(path + suffix, ignored);
}

inline void RemoveStores() {
  for (const auto& [employees, store] : Stores()) {
    RemoveStoreFiles(store.path);
    RemoveStoreFiles(store.reference);
  }
}

// The stores that runs which did not reach their end (stopped, killed) left in the
// temporary folder: those named by a process that no longer exists.
inline void RemoveStaleStores() {
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

// Where a session of the benchmarks reaches its stores.
enum class Reach { SQLite, Postgres, PostgresThroughRelay };

// The round trips of a session's two stores so far.
inline std::uint64_t RoundTrips(const ManagerPtr& manager) {
  return detail::RoundTrips(manager->AktDB()->Session()) + detail::RoundTrips(manager->ImportDB()->Session());
}

inline ManagerPtr Session(const Store& store, Reach reach = Reach::SQLite, const std::string& connect = "") {
  auto manager = clsManager::Create();
  auto location = [&](const std::string& path, const std::string& pg) {
    if (reach == Reach::SQLite) return path;
    return reach == Reach::Postgres ? pg : ThroughRelay(pg);
  };
  manager->SetAktDB(StoreConnection::Open(location(store.path, store.pg), connect));
  manager->SetImportDB(StoreConnection::Open(location(store.reference, store.pg_reference), connect));
  manager->AktJahr = kYear;
  manager->AktMonat = 3;
  manager->ChangeAktMandant(store.employer);
  return manager;
}

}  // namespace bench
