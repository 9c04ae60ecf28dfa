// The ormelix command line, run as a program.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/json_reader.h"
#include "support/run_tool.h"
#include "support/test_store.h"

using namespace ormelix;
using test::JsonValue;
using test::RunTool;

namespace {

int Lines(const std::string& text) { return static_cast<int>(std::count(text.begin(), text.end(), '\n')); }

TEST(Cli, InitThenShowOnTheEmptyStore) {
  test::TempDir dir;
  auto run = RunTool({"init", "payroll.db", "reference.db"}, dir.Path().string());
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(std::filesystem::exists(dir.Path() / "payroll.db"));
  EXPECT_TRUE(std::filesystem::exists(dir.Path() / "reference.db"));
  auto show = RunTool({"show", "--store", dir.Path().string(), "employers", "--json"});
  ASSERT_EQ(show.status, 0) << show.err;
  JsonValue document = JsonValue::Parse(show.out);
  EXPECT_EQ(document["employers"].kind(), JsonValue::Array);
  EXPECT_EQ(document["employers"].Size(), 0u);
}

TEST(Cli, InitOverwritesNothing) {
  test::TempDir dir;
  {
    std::ofstream out(dir.File("payroll.db"));
    out << "keep";
  }
  auto run = RunTool({"init", "payroll.db", "reference.db"}, dir.Path().string());
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(Lines(run.err), 1) << run.err;
  EXPECT_NE(run.err.find("exists already"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(dir.Path() / "reference.db"));
  std::ifstream in(dir.File("payroll.db"));
  std::string content;
  in >> content;
  EXPECT_EQ(content, "keep");
}

TEST(Cli, BadInputGivesOneLineAndStatusTwo) {
  test::TempDir dir;
  ASSERT_EQ(RunTool({"init", "payroll.db", "reference.db"}, dir.Path().string()).status, 0);
  {
    std::ofstream out(dir.File("notes.txt"));
    out << "no database here, just some words that are long enough to fill a page header";
  }
  struct Case {
    std::vector<std::string> args;
    std::string expected;
  } cases[] = {
      {{"show", "--store", dir.File("missing.db"), "employers"}, "no payroll store at"},
      {{"show", "--store", dir.File("notes.txt"), "employers"}, "not a database"},
      {{"show", "--store", dir.File("reference.db"), "employers"}, "is no payroll store"},
      {{"show", "--store", dir.Path().string(), "salaries"}, "unknown show 'salaries'"},
      {{"show", "--store", dir.Path().string()}, "show needs WHAT"},
      {{"show", "--store", dir.Path().string(), "employers", "--bogus"}, "unexpected argument '--bogus'"},
      {{"frobnicate"}, "unknown command 'frobnicate'"},
      {{"init", "only-one.db"}, "init needs two files"},
  };
  for (const Case& c : cases) {
    auto run = RunTool(c.args, dir.Path().string());
    EXPECT_EQ(run.status, 2) << c.expected << ": " << run.err;
    EXPECT_EQ(Lines(run.err), 1) << run.err;
    EXPECT_NE(run.err.find(c.expected), std::string::npos) << run.err;
    EXPECT_TRUE(run.out.empty()) << run.out;
  }
}

TEST(Cli, ARowWithoutADateWhereOneMustBeIsReportedWithItsKey) {
  struct Case {
    const char* table;
    const char* column;
    Variant value;
    std::vector<std::vector<std::string>> shows;
  } cases[] = {
      {"Mitarbeiter_Laufbahn", "Datum", Variant::NullValue(),
       {{"career", "--year", "2024"}, {"month", "--period", "202403"}}},
      {"Mitarbeiter_Kinder", "GebDatum", "im Sommer", {{"l16", "--year", "2024"}, {"month", "--period", "202403"}}},
  };
  for (const Case& c : cases) {
    test::TempDir dir;
    ASSERT_EQ(RunTool({"init", "payroll.db", "reference.db"}, dir.Path().string()).status, 0);
    auto db = StoreConnection::Open(dir.File("payroll.db"));
    const std::string employer = test::AddRow(db, "Mandanten", {{"Name", "Muster GmbH"}});
    const std::string employee =
        test::AddRow(db, "Mitarbeiter", {{"MandantenID", employer}, {"Personalnummer", 7}, {"Neuanlage", true}});
    const std::string row = test::AddRow(db, c.table, {{"MitarbeiterID", employee}, {c.column, c.value}});
    db.reset();
    for (const auto& show : c.shows) {
      std::vector<std::string> args = {"show", "--store", dir.Path().string(), show[0], "--employee", "7"};
      args.insert(args.end(), show.begin() + 1, show.end());
      auto run = RunTool(args);
      EXPECT_EQ(run.status, 2) << run.err;
      EXPECT_EQ(Lines(run.err), 1) << run.err;
      EXPECT_NE(run.err.find(std::string(c.table) + "." + c.column), std::string::npos) << run.err;
      EXPECT_NE(run.err.find(row), std::string::npos) << run.err;
      EXPECT_TRUE(run.out.empty()) << run.out;
    }
  }
}

TEST(Cli, HelpDescribesEveryCommand) {
  auto run = RunTool({"--help"});
  EXPECT_EQ(run.status, 0);
  for (const char* command : {"init", "demo", "show"}) {
    EXPECT_NE(run.out.find(command), std::string::npos) << command;
    auto help = RunTool({command, "--help"});
    EXPECT_EQ(help.status, 0) << command;
    EXPECT_NE(help.out.find(std::string("usage: ormelix ") + command), std::string::npos) << help.out;
  }
  const std::string show = RunTool({"show", "--help"}).out;
  EXPECT_NE(show.find("--json"), std::string::npos);
  EXPECT_NE(show.find("l16 --employee ID --year YYYY"), std::string::npos);
  EXPECT_NE(run.out.find("l16"), std::string::npos);
}

TEST(Cli, VersionIsTheProjects) {
  for (const char* word : {"--version", "version"}) {
    auto run = RunTool({word});
    EXPECT_EQ(run.status, 0) << word;
    EXPECT_EQ(run.out, std::string("ormelix (OrmelixCore) ") + ORMELIX_VERSION + "\n") << word;
    EXPECT_TRUE(run.err.empty()) << run.err;
    auto extra = RunTool({word, "2025"});
    EXPECT_EQ(extra.status, 2) << word;
    EXPECT_EQ(Lines(extra.err), 1) << extra.err;
    EXPECT_NE(extra.err.find("'2025'"), std::string::npos) << extra.err;
    EXPECT_TRUE(extra.out.empty()) << extra.out;
  }
  EXPECT_NE(RunTool({"--help"}).out.find("--version"), std::string::npos);
}

}  // namespace
