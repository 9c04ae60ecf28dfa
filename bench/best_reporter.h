#pragma once
// The console reporter of every benchmark here: it keeps the fastest repetition of
// each benchmark (the machine is shared, and the minimum is the figure least
// disturbed by other work), by wall and CPU time, for the summary a benchmark
// prints after its table.
#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace bench {

class BestRunReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
      std::string name = run.run_name.function_name;
      if (!run.run_name.args.empty()) name += "/" + run.run_name.args;
      Keep(wall_, name, run.GetAdjustedRealTime());
      Keep(cpu_, name, run.GetAdjustedCPUTime());
    }
    ConsoleReporter::ReportRuns(runs);
  }

 protected:
  // The best wall time of the benchmark NAME ("Function/arg"), 0 when it did not run.
  double Best(const std::string& name) const { return Find(wall_, name); }
  double BestCpu(const std::string& name) const { return Find(cpu_, name); }

 private:
  static void Keep(std::map<std::string, double>& best, const std::string& name, double value) {
    auto found = best.find(name);
    if (found == best.end() || value < found->second) best[name] = value;
  }
  static double Find(const std::map<std::string, double>& best, const std::string& name) {
    auto found = best.find(name);
    return found == best.end() ? 0.0 : found->second;
  }

  std::map<std::string, double> wall_;
  std::map<std::string, double> cpu_;
};

// Initializes the benchmark library with the repetitions of all benchmarks
// taking turns, so that the work of other programs on a shared machine falls on
// the library and its raw baseline alike. False on an unknown argument.
inline bool InitializeInterleaved(int argc, char** argv) {
  static std::vector<char*> args;
  static std::string interleave = "--benchmark_enable_random_interleaving=true";
  args.assign(argv, argv + argc);
  args.insert(args.begin() + 1, interleave.data());
  int count = static_cast<int>(args.size());
  benchmark::Initialize(&count, args.data());
  return !benchmark::ReportUnrecognizedArguments(count, args.data());
}

}  // namespace bench
