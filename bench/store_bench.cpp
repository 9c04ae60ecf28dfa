// The store layer against hand-written raw sqlite3 doing the same reads, in one run:
//  - opening and reading a 1,000-row table (the widest one, the monthly pay record),
//  - 10,000 key filters on a 100,000-row recordset,
//  - 1,000 key queries whose texts differ only in the key,
//  - sorting 100,000 names in the store's text order against SQLite's plain
//    byte order (the cost of ignoring case on the path of every ORDER BY).
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>
#include <vector>

#include "ormelix/store/sqlite_text.h"
#include "ormelix/store/schema.h"
#include "ormelix/store/value_helpers.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

constexpr int kPayRows = 1000;
constexpr int kEmployees = 10000;
constexpr int kAccountRowsPerEmployee = 10;
constexpr int kNames = 100000;

struct Fixture {
  std::string path;
  std::vector<std::string> employees;
  std::vector<std::string> pay_columns;

  Fixture() {
    path = (std::filesystem::temp_directory_path() / "ormelix-store-bench.db").string();
    std::filesystem::remove(path);
    auto db = CreateStore(path, StoreKind::Payroll);
    db->Session().ExecuteSql("BEGIN", true);
    auto pay = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Lohnzettel]", adOpenDynamic, adLockOptimistic);
    for (int i = 0; i < pay->FieldCount(); ++i) pay_columns.push_back(pay->FieldName(i));
    for (int row = 0; row < kPayRows; ++row) {
      pay->AddNew();
      pay->Collect("MitarbeiterID", NewID());
      pay->Collect("Zeitraum", 202401 + row % 12);
      for (std::size_t i = 0; i < pay_columns.size(); ++i) {
        const std::string& name = pay_columns[i];
        if (name == "ID" || name == "Nr" || name == "MitarbeiterID" || name == "Zeitraum") continue;
        pay->Collect(name, name.find("Text") != std::string::npos ? Variant("Text " + std::to_string(row))
                                                                  : Variant(row * 1.25 + static_cast<double>(i)));
      }
      pay->Update();
    }
    pay->Close();
    auto accounts =
        db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Beitragskonto]", adOpenDynamic, adLockOptimistic);
    for (int e = 0; e < kEmployees; ++e) {
      employees.push_back(NewID());
      for (int k = 0; k < kAccountRowsPerEmployee; ++k) {
        accounts->AddNew();
        accounts->Collect("MitarbeiterID", employees.back());
        accounts->Collect("Zeitraum", 201501 + k * 100);
        accounts->Collect("BeitragskontoID", NewID());
        accounts->Update();
      }
    }
    accounts->Close();
    // Family names as a payroll holds them: some with umlauts, cases mixed.
    const char* const families[] = {"Müller", "mayer", "Öztürk", "Huber", "ÄRZTE", "wagner", "Berger", "Schütz"};
    auto names = db->Session().OpenRecordset("SELECT * FROM [Settings]", adOpenDynamic, adLockOptimistic);
    for (int i = 0; i < kNames; ++i) {
      names->AddNew();
      names->Collect("Sections", std::string(families[i % 8]) + " " + std::to_string((i * 7919) % kNames));
      names->Update();
    }
    names->Close();
    db->Session().ExecuteSql("COMMIT", true);
  }
};

Fixture& Data() {
  static Fixture fixture;
  return fixture;
}

sqlite3* OpenRaw() {
  sqlite3* db = nullptr;
  sqlite3_open_v2(Data().path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  RegisterSqliteText(db);  // the store's text columns compare in its text order
  return db;
}

// ---- opening and reading 1,000 rows of the pay record, every column

void Ormelix_OpenAndRead1000Rows(benchmark::State& state) {
  auto db = StoreConnection::Open(Data().path);
  double sum = 0;
  for (auto _ : state) {
    auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Lohnzettel]");
    while (!rs->Eof()) {
      for (const std::string& name : Data().pay_columns) {
        Field field = rs->Fields(name);
        if (field.Peek().IsText()) sum += static_cast<double>(ToText(field).size());
        else sum += ToAmount(field);
      }
      rs->MoveNext();
    }
    rs->Close();
  }
  benchmark::DoNotOptimize(sum);
  state.SetItemsProcessed(state.iterations() * kPayRows);
}
BENCHMARK(Ormelix_OpenAndRead1000Rows)->Unit(benchmark::kMillisecond);

void Raw_OpenAndRead1000Rows(benchmark::State& state) {
  sqlite3* db = OpenRaw();
  double sum = 0;
  for (auto _ : state) {
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(db, "SELECT * FROM \"Mitarbeiter_Lohnzettel\"", -1, &stmt, nullptr);
    int columns = sqlite3_column_count(stmt);
    while (sqlite3_step(stmt) == SQLITE_ROW) {
      for (int i = 0; i < columns; ++i) {
        if (sqlite3_column_type(stmt, i) == SQLITE_TEXT) sum += static_cast<double>(sqlite3_column_bytes(stmt, i));
        else sum += sqlite3_column_double(stmt, i);
      }
    }
    sqlite3_finalize(stmt);
  }
  benchmark::DoNotOptimize(sum);
  sqlite3_close(db);
  state.SetItemsProcessed(state.iterations() * kPayRows);
}
BENCHMARK(Raw_OpenAndRead1000Rows)->Unit(benchmark::kMillisecond);

// ---- 10,000 key filters on a 100,000-row recordset (opened once)

void Ormelix_10000KeyFilters(benchmark::State& state) {
  auto db = StoreConnection::Open(Data().path);
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Beitragskonto] ORDER BY [Zeitraum] DESC");
  long rows = 0;
  for (auto _ : state) {
    for (const std::string& employee : Data().employees) {
      rs->Filter("[MitarbeiterID]=" + SqlID(employee));
      while (!rs->Eof()) {
        rows += ToLong(rs->Fields("Zeitraum")) > 0;
        rs->MoveNext();
      }
    }
  }
  benchmark::DoNotOptimize(rows);
  state.SetItemsProcessed(state.iterations() * kEmployees);
}
BENCHMARK(Ormelix_10000KeyFilters)->Unit(benchmark::kMillisecond);

void Raw_10000KeyQueries(benchmark::State& state) {
  sqlite3* db = OpenRaw();
  sqlite3_stmt* stmt = nullptr;
  sqlite3_prepare_v2(db,
                     "SELECT * FROM \"Mitarbeiter_Beitragskonto\" WHERE \"MitarbeiterID\"=? ORDER BY \"Zeitraum\" DESC",
                     -1, &stmt, nullptr);
  long rows = 0;
  for (auto _ : state) {
    for (const std::string& employee : Data().employees) {
      sqlite3_bind_text(stmt, 1, employee.c_str(), static_cast<int>(employee.size()), SQLITE_STATIC);
      while (sqlite3_step(stmt) == SQLITE_ROW) rows += sqlite3_column_int(stmt, 3) > 0;
      sqlite3_reset(stmt);
    }
  }
  benchmark::DoNotOptimize(rows);
  sqlite3_finalize(stmt);
  sqlite3_close(db);
  state.SetItemsProcessed(state.iterations() * kEmployees);
}
BENCHMARK(Raw_10000KeyQueries)->Unit(benchmark::kMillisecond);

void Ormelix_Open100000RowRecordset(benchmark::State& state) {
  auto db = StoreConnection::Open(Data().path);
  for (auto _ : state) {
    auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Beitragskonto] ORDER BY [Zeitraum] DESC");
    rs->Filter("[MitarbeiterID]=" + SqlID(Data().employees[0]));  // builds the index once
    benchmark::DoNotOptimize(rs->RecordCount());
  }
}
BENCHMARK(Ormelix_Open100000RowRecordset)->Unit(benchmark::kMillisecond);

// ---- 1,000 key queries whose texts differ only in the key

void Ormelix_1000KeyQueries(benchmark::State& state) {
  auto db = StoreConnection::Open(Data().path);
  long rows = 0;
  for (auto _ : state) {
    for (int e = 0; e < 1000; ++e) {
      auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Beitragskonto] WHERE [MitarbeiterID]=" +
                                            SqlID(Data().employees[e]) + " ORDER BY [Zeitraum] DESC");
      rows += rs->RecordCount();
      rs->Close();
    }
  }
  benchmark::DoNotOptimize(rows);
  state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(Ormelix_1000KeyQueries)->Unit(benchmark::kMillisecond);

void Raw_1000KeyQueries(benchmark::State& state) {
  sqlite3* db = OpenRaw();
  sqlite3_stmt* stmt = nullptr;
  sqlite3_prepare_v2(db,
                     "SELECT * FROM \"Mitarbeiter_Beitragskonto\" WHERE \"MitarbeiterID\"=? ORDER BY \"Zeitraum\" DESC",
                     -1, &stmt, nullptr);
  long rows = 0;
  for (auto _ : state) {
    for (int e = 0; e < 1000; ++e) {
      const std::string& employee = Data().employees[e];
      sqlite3_bind_text(stmt, 1, employee.c_str(), static_cast<int>(employee.size()), SQLITE_STATIC);
      while (sqlite3_step(stmt) == SQLITE_ROW) {
        for (int i = 0; i < sqlite3_column_count(stmt); ++i) benchmark::DoNotOptimize(sqlite3_column_text(stmt, i));
        ++rows;
      }
      sqlite3_reset(stmt);
    }
  }
  benchmark::DoNotOptimize(rows);
  sqlite3_finalize(stmt);
  sqlite3_close(db);
  state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(Raw_1000KeyQueries)->Unit(benchmark::kMillisecond);

// ---- sorting 100,000 names: the store's text order (1) against byte order (0),
// both sorted (not read along the index, which holds the text order)

void Raw_Sort100000Names(benchmark::State& state) {
  sqlite3* db = OpenRaw();
  sqlite3_stmt* stmt = nullptr;
  sqlite3_prepare_v2(db,
                     state.range(0) ? "SELECT \"Sections\" FROM \"Settings\" NOT INDEXED ORDER BY \"Sections\""
                                    : "SELECT \"Sections\" FROM \"Settings\" NOT INDEXED ORDER BY \"Sections\" COLLATE BINARY",
                     -1, &stmt, nullptr);
  long bytes = 0;
  for (auto _ : state) {
    while (sqlite3_step(stmt) == SQLITE_ROW) bytes += sqlite3_column_bytes(stmt, 0);
    sqlite3_reset(stmt);
  }
  benchmark::DoNotOptimize(bytes);
  sqlite3_finalize(stmt);
  sqlite3_close(db);
  state.SetItemsProcessed(state.iterations() * kNames);
}
BENCHMARK(Raw_Sort100000Names)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
