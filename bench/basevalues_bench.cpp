// Basis.Load (every folder, dated table and sub-object into memory) against a
// hand-written raw sqlite3 loader that runs the same statements, prepared once
// and bound, and reads the same rows, in the same run. Three folders with 10, 20
// and 40 dated tables each, so that the growth shows: the value tables of SW, SA
// and marginal employment are read whole for every dated table, so both loads
// grow with the square of the number of tables.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

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
BENCHMARK(Ormelix_BasisLoad)->Arg(10)->Arg(20)->Arg(40)->Unit(benchmark::kMillisecond);

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

// The rows of a whole value table that belong to the parent, picked as a filter would.
void Pick(RawLoader& raw, const char* sql, const std::string& parent, std::vector<double>& values) {
  raw.Run(sql, nullptr, [&](sqlite3_stmt* s) {
    if (Text(s, 2) == parent) Values(s, 3, values);
  });
}

void LoadRawTable(RawLoader& raw, RawTable& table) {
  auto& v = table.values;
  raw.Run("SELECT * FROM [Basiswerte_Zeittabelle] WHERE [ID]=?", &table.id, [&](sqlite3_stmt* s) {
    table.datum = sqlite3_column_int(s, 3);
    table.name = Text(s, 4);
  });
  std::string sw = Head(raw, "SELECT * FROM [Basiswerte_Zeittabelle_SW] WHERE [ZeittabellenID]=?", table.id, v);
  Pick(raw, "SELECT * FROM [Basiswerte_Zeittabelle_SW_Werte]", sw, v);
  std::string lst = Head(raw, "SELECT * FROM [Basiswerte_Zeittabelle_LST] WHERE [ZeittabellenID]=?", table.id, v);
  raw.Run("SELECT * FROM [Basiswerte_Zeittabelle_LST_Werte] WHERE [LohnsteuerID]=? ORDER BY [Von] ASC", &lst,
          [&](sqlite3_stmt* s) { Values(s, 3, v); });
  std::string sa = Head(raw, "SELECT * FROM [Basiswerte_Zeittabelle_SA] WHERE [ZeittabellenID]=?", table.id, v);
  Pick(raw, "SELECT * FROM [Basiswerte_Zeittabelle_SA_Werte]", sa, v);
  raw.Run("SELECT * FROM [Basiswerte_Zeittabelle_PP] WHERE [ZeittabellenID]=? ORDER BY [SortNr] ASC", &table.id,
          [&](sqlite3_stmt* s) { Values(s, 3, v); });
  Head(raw, "SELECT * FROM [Basiswerte_Zeittabelle_FB] WHERE [ZeittabellenID]=?", table.id, v);
  std::string dg = Head(raw, "SELECT * FROM [Basiswerte_Zeittabelle_DG] WHERE [ZeittabellenID]=?", table.id, v);
  raw.Run("SELECT * FROM [Basiswerte_Zeittabelle_DG_Werte] WHERE [DGID]=? ORDER BY [DNGruppe] ASC, [SortNr] ASC",
          &dg, [&](sqlite3_stmt* s) { Values(s, 3, v); });
  std::string dgm =
      Head(raw, "SELECT * FROM [Basiswerte_Zeittabelle_DG_Geringfügig] WHERE [ZeittabellenID]=?", table.id, v);
  Pick(raw, "SELECT * FROM [Basiswerte_Zeittabelle_DG_Geringfügig_Werte]", dgm, v);
  Head(raw, "SELECT * FROM [Basiswerte_Zeittabelle_ALV] WHERE [ZeittabellenID]=?", table.id, v);
}

std::vector<RawFolder> LoadRaw(RawLoader& raw) {
  std::vector<RawFolder> folders;
  raw.Run("SELECT [ID] FROM [Basiswerte] ORDER BY [Standardordner] ASC, [Wiederherstellung] DESC, [Bezeichnung] ASC",
          nullptr, [&](sqlite3_stmt* s) { folders.push_back({Text(s, 0), "", {}}); });
  for (RawFolder& folder : folders) {
    raw.Run("SELECT * FROM [Basiswerte] WHERE [ID]=?", &folder.id,
            [&](sqlite3_stmt* s) { folder.name = Text(s, 2); });
    raw.Run("SELECT [ID] FROM [Basiswerte_Zeittabelle] WHERE [BasisID]=? ORDER BY [Datum] ASC", &folder.id,
            [&](sqlite3_stmt* s) { folder.tables.push_back({Text(s, 0), 0, "", {}}); });
    for (RawTable& table : folder.tables) LoadRawTable(raw, table);
  }
  return folders;
}

void Raw_BasisLoad(benchmark::State& state) {
  int per_folder = static_cast<int>(state.range(0));
  RawLoader raw(StorePath(per_folder));
  long tables = 0;
  for (auto _ : state) {
    std::vector<RawFolder> folders = LoadRaw(raw);
    tables = 0;
    for (const RawFolder& folder : folders) tables += static_cast<long>(folder.tables.size());
    benchmark::DoNotOptimize(folders);
  }
  if (tables != kFolders * per_folder) state.SkipWithError("the raw load did not find every table");
  state.counters["tables"] = static_cast<double>(tables);
}
BENCHMARK(Raw_BasisLoad)->Arg(10)->Arg(20)->Arg(40)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
