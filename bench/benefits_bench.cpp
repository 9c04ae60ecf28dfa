// clsMitarbeiter_Sachbezüge.Load of one period for every employee, against a raw
// sqlite3 program that runs the same keyed query (employee and period), prepared
// once and bound per employee, and keeps every column of the row in a plain
// struct; both in one run. 10,000 employees, each with benefits in kind in 12
// periods (120,000 rows), so that a load that read the whole table per employee
// would show at once.
//
// At the end the run prints the ratio library / raw of the best repetition, by
// wall-clock and by CPU time; the repetitions of the two take turns.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "best_reporter.h"
#include "ormelix/benefits/sachbezuege.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/schema.h"
#include "ormelix/store/sqlite_text.h"
#include "ormelix/store/value_helpers.h"
#include "raw_sqlite.h"

using namespace ormelix;

namespace {

constexpr int kEmployees = 10000;
constexpr int kYear = 2025;
constexpr std::int32_t kPeriod = kYear * 100 + 3;

struct Store {
  std::string path;
  std::vector<std::string> employees;
};

const Store& Data() {
  static const Store store = [] {
    Store made;
    // Named by the process: another run on the same machine must not replace the
    // store under this one.
    made.path = (std::filesystem::temp_directory_path() /
                 ("ormelix-benefits-bench-" + std::to_string(getpid()) + ".db"))
                    .string();
    std::filesystem::remove(made.path);
    CreateStore(made.path, StoreKind::Payroll);
    sqlite3* db = nullptr;
    sqlite3_open(made.path.c_str(), &db);
    RegisterSqliteText(db);
    sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
    {
      bench::Inserter rows(db, "Mitarbeiter_Sachbezüge");
      for (int e = 0; e < kEmployees; ++e) {
        made.employees.push_back(ValueHelpers::NewID());
        for (int month = 1; month <= 12; ++month)
          rows.Insert(e * 12 + month, {{"MitarbeiterID", Variant(made.employees.back())},
                                       {"Zeitraum", kYear * 100 + month}});
      }
    }
    sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    return made;
  }();
  return store;
}

// Repeated loads in one session, after one untimed pass that prepares the
// statement (the raw program gets the same warm-up).
void Ormelix_SachbezuegeLoad(benchmark::State& state) {
  const Store& store = Data();
  auto manager = clsManager::Create();
  manager->SetAktDB(StoreConnection::Open(store.path));
  manager->AktJahr = kYear;
  std::vector<clsMitarbeiter_Sachbezüge> loaded(store.employees.size());
  for (auto& benefits : loaded) benefits.Init(manager);
  auto pass = [&] {
    for (std::size_t i = 0; i < loaded.size(); ++i) loaded[i].Load(store.employees[i], kPeriod);
  };
  pass();
  for (auto _ : state) {
    pass();
    if (loaded.back().ID().empty()) state.SkipWithError("a row was not found");
  }
  state.SetItemsProcessed(state.iterations() * kEmployees);
}
BENCHMARK(Ormelix_SachbezuegeLoad)->Iterations(3)->Repetitions(6)->Unit(benchmark::kMillisecond);

void Raw_SachbezuegeLoad(benchmark::State& state) {
  const Store& store = Data();
  sqlite3* db = nullptr;
  sqlite3_open_v2(store.path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  RegisterSqliteText(db);
  std::vector<bench::RawRow> loaded(store.employees.size());
  {
    bench::Statement query(db, "SELECT * FROM \"Mitarbeiter_Sachbezüge\" WHERE \"MitarbeiterID\"=? AND \"Zeitraum\"=?");
    auto pass = [&] {
      for (std::size_t i = 0; i < loaded.size(); ++i) {
        query.Bind(store.employees[i]);
        sqlite3_bind_int(query.get(), 2, kPeriod);
        if (sqlite3_step(query.get()) == SQLITE_ROW) bench::ReadRow(query.get(), loaded[i]);
      }
    };
    pass();
    for (auto _ : state) {
      pass();
      if (loaded.back().texts.empty()) state.SkipWithError("a row was not found");
    }
  }
  sqlite3_close(db);
  state.SetItemsProcessed(state.iterations() * kEmployees);
}
BENCHMARK(Raw_SachbezuegeLoad)->Iterations(3)->Repetitions(6)->Unit(benchmark::kMillisecond);

// Prints the ratio by wall and by CPU time from the fastest repetitions.
class SummaryReporter : public bench::BestRunReporter {
 public:
  void Finalize() override {
    ConsoleReporter::Finalize();
    Print("wall", Best("Ormelix_SachbezuegeLoad"), Best("Raw_SachbezuegeLoad"));
    Print("CPU", BestCpu("Ormelix_SachbezuegeLoad"), BestCpu("Raw_SachbezuegeLoad"));
  }

 private:
  static void Print(const char* clock, double lib, double raw) {
    if (lib > 0 && raw > 0)
      std::printf(
          "%d employees, benefits in kind of one period (best repetition, %s time): library %.1f ms, raw %.1f ms, "
          "library / raw = %.2f (target <= 1.5)\n",
          kEmployees, clock, lib, raw, lib / raw);
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (!bench::InitializeInterleaved(argc, argv)) return 1;
  SummaryReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  std::filesystem::remove(Data().path);
  benchmark::Shutdown();
  return 0;
}
