#include "demo_store.h"

#include "test_store.h"

namespace ormelix::test {

namespace {

// On PostgreSQL the demo's stores go to a fresh schema of the test server.
struct Demo {
  TempDir dir;
  std::string store = DemoLocation(dir);
  ToolRun run = RunTool({"demo", store}, dir.Path().string());
};

const Demo& Built() {
  static const Demo demo;
  return demo;
}

}  // namespace

const std::filesystem::path& DemoStoreTest::DemoDir() { return Built().dir.Path(); }

const ToolRun& DemoStoreTest::Demo() { return Built().run; }

std::string DemoStoreTest::Store() { return Built().store; }

ToolRun DemoStoreTest::Show(std::vector<std::string> args) {
  args.insert(args.begin(), {"show", "--store", Store()});
  return RunTool(args);
}

JsonValue DemoStoreTest::ShowJson(std::vector<std::string> args) {
  args.push_back("--json");
  const ToolRun run = Show(args);
  EXPECT_EQ(run.status, 0) << run.err;
  return JsonValue::Parse(run.out);
}

ToolRun DemoStoreTest::Month(const std::string& employee, const std::string& period, bool json) {
  std::vector<std::string> args = {"month", "--employee", employee, "--period", period};
  if (json) args.push_back("--json");
  ToolRun run = Show(args);
  EXPECT_EQ(run.status, 0) << run.err;
  return run;
}

JsonValue DemoStoreTest::MonthJson(const std::string& employee, const std::string& period) {
  return ShowJson({"month", "--employee", employee, "--period", period});
}

}  // namespace ormelix::test
