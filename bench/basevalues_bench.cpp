// Basis.Load (every folder, dated table and sub-object into memory) against two
// hand-written raw sqlite3 loaders in the same run: one that runs the statements
// as the routines give them (the value tables of SW, SA and marginal employment
// read whole for every dated table, so it grows with the square of the number of
// tables), prepared once and bound, and one that reads each of those three tables
// once and picks the rows of every dated table from that. Basis.Load shares the
// whole-table reads of one load, so it should grow linearly, like the second.
// Three folders with 10, 20 and 40 dated tables each, so that the growth shows.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "best_reporter.h"
#include "ormelix/store/sqlite_text.h"
#include "ormelix/basevalues/basisdaten.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/schema.h"

using namespace ormelix;

namespace {

constexpr int kFolders = 3;
constexpr int kBandsPerTable = 7;

// A store with kFolders folders of tables_per_folder dated tables, filled through
// the library (with a few values set, and seven wage-tax bands per table).
std::string MakeStore(int tables_per_folder) {
  std::string path = (std::filesystem::temp_directory_path() /
                      ("ormelix-basevalues-bench-" + std::to_string(tables_per_folder) + ".db"))
                         .string();
  std::filesystem::remove(path);
  auto session = clsManager::Create();
  session->SetAktDB(CreateStore(path, StoreKind::Payroll));
  session->AktDB()->Session().ExecuteSql("BEGIN", true);
  for (int f = 0; f < kFolders; ++f) {
    auto folder = session->Basis()->AddNew("Ordner " + std::to_string(f));
    for (int t = 0; t < tables_per_folder; ++t) {
      auto table = folder->Zeittabellen()->AddNew(200001 + t * 100 + f, "Tabelle " + std::to_string(t));
      table->SA()->Krankenversicherung()->Prozent = 3.87 + t;
      table->DG()->FALAST()->LehrlingArbeiter3(eBasis4Lehrjahre) = 3.7;
      table->DGM()->DZ()->Arbeiter = 0.44;
      for (int b = 0; b < kBandsPerTable; ++b) {
        auto band = std::make_shared<LBasis_LST_Werte>();
        band->Von = b * 1000.0;
        band->steuersatz = b * 5.5;
        table->LST()->Add(band);
      }
      table->Update();
    }
  }
  session->AktDB()->Session().ExecuteSql("COMMIT", true);
  return path;
}

const std::string& StorePath(int tables_per_folder) {
  static std::map<int, std::string> paths;
  auto found = paths.find(tables_per_folder);
  if (found == paths.end()) found = paths.emplace(tables_per_folder, MakeStore(tables_per_folder)).first;
  return found->second;
}

// ---- the library

void Ormelix_BasisLoad(benchmark::State& state) {
  int per_folder = static_cast<int>(state.range(0));
  auto session = clsManager::Create();
  session->SetAktDB(StoreConnection::Open(StorePath(per_folder)));
  long tables = 0;
  for (auto _ : state) {
    session->Basis()->Load();
    tables = 0;
    for (const auto& folder : *session->Basis()) tables += folder->Zeittabellen()->Count();
  }
  if (tables != kFolders * per_folder) state.SkipWithError("the load did not find every table");
  state.counters["tables"] = static_cast<double>(tables);
}
BENCHMARK(Ormelix_BasisLoad)->Arg(10)->Arg(20)->Arg(40)->MinTime(0.2)->Repetitions(3)->Unit(benchmark::kMillisecond);

// ---- the raw baseline: the same statements, prepared once, parameters bound

class RawLoader {
 public:
  explicit RawLoader(const std::string& path) {
    sqlite3_open_v2(path.c_str(), &db_, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
    RegisterSqliteText(db_);  // the store's text columns compare in its text order
  }
  ~RawLoader() {
    for (auto& [sql, stmt] : statements_) sqlite3_finalize(stmt);
    sqlite3_close(db_);
  }

  // Runs a statement with an optional text parameter and hands each row to read.
  template <class Read>
  void Run(const char* sql, const std::string* parameter, Read&& read) {
    sqlite3_stmt* stmt = Prepared(sql);
    if (parameter) sqlite3_bind_text(stmt, 1, parameter->c_str(), static_cast<int>(parameter->size()), SQLITE_STATIC);
    while (sqlite3_step(stmt) == SQLITE_ROW) read(stmt);
    sqlite3_reset(stmt);
    ++statements_run;
  }

  long statements_run = 0;

 private:
  sqlite3_stmt* Prepared(const char* sql) {
    sqlite3_stmt*& stmt = statements_[sql];
    if (!stmt) sqlite3_prepare_v2(db_, sql, -1, &stmt, nullptr);
    return stmt;
  }

  sqlite3* db_ = nullptr;
  std::map<const char*, sqlite3_stmt*> statements_;
};

std::string Text(sqlite3_stmt* stmt, int column) {
  const unsigned char* text = sqlite3_column_text(stmt, column);
  return text ? reinterpret_cast<const char*>(text) : "";
}

// Every value column of a row from `first` on, as doubles.
void Values(sqlite3_stmt* stmt, int first, std::vector<double>& into) {
  for (int i = first; i < sqlite3_column_count(stmt); ++i) into.push_back(sqlite3_column_double(stmt, i));
}

struct RawTable {
  std::string id;
  int datum = 0;
  std::string name;
  std::vector<double> values;
};

struct RawFolder {
  std::string id;
  std::string name;
  std::vector<RawTable> tables;
};

// A head row (Nr, ID, ZeittabellenID, values...) and its ID.
std::string Head(RawLoader& raw, const char* sql, const std::string& table_id, std::vector<double>& values) {
  std::string id;
  raw.Run(sql, &table_id, [&](sqlite3_stmt* s) {
    id = Text(s, 1);
    Values(s, 3, values);
  });
  return id;
}

// ---- the raw baselines: as the routines read, and reading each whole value table once

// The rows of a whole value table by their parent's ID, read once per load.
using RowsByParent = std::map<std::string, std::vector<std::vector<double>>>;

RowsByParent ReadWhole(RawLoader& raw, const char* sql) {
  RowsByParent rows;
  raw.Run(sql, nullptr, [&](sqlite3_stmt* s) { Values(s, 3, rows[Text(s, 2)].emplace_back()); });
  return rows;
}

void Take(const RowsByParent& rows, const std::string& parent, std::vector<double>& values) {
  auto found = rows.find(parent);
  if (found == rows.end()) return;
  for (const auto& row : found->second) values.insert(values.end(), row.begin(), row.end());
}

// The three value tables that the routines read whole, read once per load; without
// them, each read as the routines do, whole for every dated table.
struct WholeTables {
  RowsByParent sw, sa, dgm;
};

// The values of the whole table SQL (or of its copy in ONCE) that belong to PARENT.
void ValuesOf(RawLoader& raw, const char* sql, const RowsByParent* once, const std::string& parent,
              std::vector<double>& values) {
  if (once) return Take(*once, parent, values);
  raw.Run(sql, nullptr, [&](sqlite3_stmt* s) {
    if (Text(s, 2) == parent) Values(s, 3, values);
  });
}

void LoadRawTable(RawLoader& raw, const WholeTables* whole, RawTable& table) {
  auto& v = table.values;
  raw.Run("SELECT * FROM [Basiswerte_Zeittabelle] WHERE [ID]=?", &table.id, [&](sqlite3_stmt* s) {
    table.datum = sqlite3_column_int(s, 3);
    table.name = Text(s, 4);
  });
  std::string sw = Head(raw, "SELECT * FROM [Basiswerte_Zeittabelle_SW] WHERE [ZeittabellenID]=?", table.id, v);
  ValuesOf(raw, "SELECT * FROM [Basiswerte_Zeittabelle_SW_Werte]", whole ? &whole->sw : nullptr, sw, v);
  std::string lst = Head(raw, "SELECT * FROM [Basiswerte_Zeittabelle_LST] WHERE [ZeittabellenID]=?", table.id, v);
  raw.Run("SELECT * FROM [Basiswerte_Zeittabelle_LST_Werte] WHERE [LohnsteuerID]=? ORDER BY [Von] ASC", &lst,
          [&](sqlite3_stmt* s) { Values(s, 3, v); });
  std::string sa = Head(raw, "SELECT * FROM [Basiswerte_Zeittabelle_SA] WHERE [ZeittabellenID]=?", table.id, v);
  ValuesOf(raw, "SELECT * FROM [Basiswerte_Zeittabelle_SA_Werte]", whole ? &whole->sa : nullptr, sa, v);
  raw.Run("SELECT * FROM [Basiswerte_Zeittabelle_PP] WHERE [ZeittabellenID]=? ORDER BY [SortNr] ASC", &table.id,
          [&](sqlite3_stmt* s) { Values(s, 3, v); });
  Head(raw, "SELECT * FROM [Basiswerte_Zeittabelle_FB] WHERE [ZeittabellenID]=?", table.id, v);
  std::string dg = Head(raw, "SELECT * FROM [Basiswerte_Zeittabelle_DG] WHERE [ZeittabellenID]=?", table.id, v);
  raw.Run("SELECT * FROM [Basiswerte_Zeittabelle_DG_Werte] WHERE [DGID]=? ORDER BY [DNGruppe] ASC, [SortNr] ASC",
          &dg, [&](sqlite3_stmt* s) { Values(s, 3, v); });
  std::string dgm =
      Head(raw, "SELECT * FROM [Basiswerte_Zeittabelle_DG_Geringfügig] WHERE [ZeittabellenID]=?", table.id, v);
  ValuesOf(raw, "SELECT * FROM [Basiswerte_Zeittabelle_DG_Geringfügig_Werte]", whole ? &whole->dgm : nullptr, dgm,
           v);
  Head(raw, "SELECT * FROM [Basiswerte_Zeittabelle_ALV] WHERE [ZeittabellenID]=?", table.id, v);
}

// The folders in their order, each with its dated tables.
std::vector<RawFolder> LoadFolders(RawLoader& raw, const WholeTables* whole) {
  std::vector<RawFolder> folders;
  raw.Run("SELECT [ID] FROM [Basiswerte] ORDER BY [Standardordner] ASC, [Wiederherstellung] DESC, [Bezeichnung] ASC",
          nullptr, [&](sqlite3_stmt* s) { folders.push_back({Text(s, 0), "", {}}); });
  for (RawFolder& folder : folders) {
    raw.Run("SELECT * FROM [Basiswerte] WHERE [ID]=?", &folder.id,
            [&](sqlite3_stmt* s) { folder.name = Text(s, 2); });
    raw.Run("SELECT [ID] FROM [Basiswerte_Zeittabelle] WHERE [BasisID]=? ORDER BY [Datum] ASC", &folder.id,
            [&](sqlite3_stmt* s) { folder.tables.push_back({Text(s, 0), 0, "", {}}); });
    for (RawTable& table : folder.tables) LoadRawTable(raw, whole, table);
  }
  return folders;
}

// As the routines specify: the whole value tables read again for every dated table.
std::vector<RawFolder> LoadRaw(RawLoader& raw) { return LoadFolders(raw, nullptr); }

std::vector<RawFolder> LoadRawOnce(RawLoader& raw) {
  WholeTables whole{ReadWhole(raw, "SELECT * FROM [Basiswerte_Zeittabelle_SW_Werte]"),
                    ReadWhole(raw, "SELECT * FROM [Basiswerte_Zeittabelle_SA_Werte]"),
                    ReadWhole(raw, "SELECT * FROM [Basiswerte_Zeittabelle_DG_Geringfügig_Werte]")};
  return LoadFolders(raw, &whole);
}

template <std::vector<RawFolder> (*Load)(RawLoader&)>
void RunRaw(benchmark::State& state) {
  int per_folder = static_cast<int>(state.range(0));
  RawLoader raw(StorePath(per_folder));
  long tables = 0;
  for (auto _ : state) {
    std::vector<RawFolder> folders = Load(raw);
    tables = 0;
    for (const RawFolder& folder : folders) tables += static_cast<long>(folder.tables.size());
    benchmark::DoNotOptimize(folders);
  }
  if (tables != kFolders * per_folder) state.SkipWithError("the raw load did not find every table");
  state.counters["tables"] = static_cast<double>(tables);
}

void RawOnce_BasisLoad(benchmark::State& state) { RunRaw<LoadRawOnce>(state); }
BENCHMARK(RawOnce_BasisLoad)->Arg(10)->Arg(20)->Arg(40)->MinTime(0.2)->Repetitions(3)->Unit(benchmark::kMillisecond);

void Raw_BasisLoad(benchmark::State& state) { RunRaw<LoadRaw>(state); }
BENCHMARK(Raw_BasisLoad)->Arg(10)->Arg(20)->Arg(40)->MinTime(0.2)->Repetitions(3)->Unit(benchmark::kMillisecond);

// ---- the summary

// Prints the growth and ratios from the fastest repetitions (they take turns).
class SummaryReporter : public bench::BestRunReporter {
 public:
  void Finalize() override {
    ConsoleReporter::Finalize();
    auto at = [&](const std::string& name) { return Best(name); };
    const double lib10 = at("Ormelix_BasisLoad/10"), lib40 = at("Ormelix_BasisLoad/40");
    const double raw10 = at("Raw_BasisLoad/10"), raw40 = at("Raw_BasisLoad/40");
    const double once10 = at("RawOnce_BasisLoad/10"), once40 = at("RawOnce_BasisLoad/40");
    if (lib10 > 0 && lib40 > 0) std::printf("library 40 / 10 tables per folder = %.2f (target <= 4.5)\n", lib40 / lib10);
    if (raw10 > 0 && raw40 > 0) std::printf("raw as the routines read, 40 / 10 = %.2f\n", raw40 / raw10);
    if (once10 > 0 && once40 > 0) std::printf("raw reading each table once, 40 / 10 = %.2f\n", once40 / once10);
    if (lib40 > 0 && raw40 > 0)
      std::printf("40 tables: library / raw as the routines read = %.2f (target <= 1.0)\n", lib40 / raw40);
    if (lib40 > 0 && once40 > 0)
      std::printf("40 tables: library / raw reading each table once = %.2f (target <= 2.0)\n", lib40 / once40);
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (!bench::InitializeInterleaved(argc, argv)) return 1;
  SummaryReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
