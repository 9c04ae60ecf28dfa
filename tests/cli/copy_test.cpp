// ormelix copy: the demo store across (to PostgreSQL in that run, to another
// folder otherwise) and back, shown alike on every side.
#include <gtest/gtest.h>

#include "support/run_tool.h"
#include "support/test_store.h"

using namespace ormelix;
using test::RunTool;

namespace {

std::string ShowEmployers(const std::string& store) {
  auto run = RunTool({"show", "--store", store, "employers", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  return run.out;
}

TEST(CopyCommand, TheDemoStoreGoesAcrossAndBackAndAFullTargetIsRefused) {
  test::TempDir dir;
  auto demo = RunTool({"demo", "source"}, dir.Path().string());
  ASSERT_EQ(demo.status, 0) << demo.err;
  std::string source = dir.File("source");
  std::string across = test::OnPostgres() ? test::DemoLocation(dir) : dir.File("across");
  std::string back = dir.File("back");

  auto there = RunTool({"copy", source, across});
  ASSERT_EQ(there.status, 0) << there.err;
  EXPECT_NE(there.out.find("payroll store: "), std::string::npos) << there.out;
  EXPECT_NE(there.out.find("reference store: "), std::string::npos) << there.out;
  EXPECT_NE(there.out.find("row counts and checksums agree"), std::string::npos) << there.out;
  auto again = RunTool({"copy", across, back});
  ASSERT_EQ(again.status, 0) << again.err;
  EXPECT_EQ(ShowEmployers(across), ShowEmployers(source));
  EXPECT_EQ(ShowEmployers(back), ShowEmployers(source));
  auto countries = RunTool({"show", "--store", back, "countries", "--period", "202003"});
  EXPECT_EQ(countries.status, 0) << countries.err;

  auto refused = RunTool({"copy", source, across});
  EXPECT_EQ(refused.status, 2) << refused.err;
  EXPECT_NE(refused.err.find("holds rows already"), std::string::npos) << refused.err;
  auto replaced = RunTool({"copy", source, across, "--replace"});
  EXPECT_EQ(replaced.status, 0) << replaced.err;
  auto missing = RunTool({"copy", dir.File("nothing"), dir.File("elsewhere")});
  EXPECT_EQ(missing.status, 2) << missing.err;
}

}  // namespace
