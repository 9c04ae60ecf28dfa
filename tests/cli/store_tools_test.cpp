// ormelix export, import, backup and check on the demo store (SQLite, or
// PostgreSQL in that run): what works, and each kind of bad input as one line on
// standard error, exit status 2 and nothing written. And the demo's files are
// their owner's alone.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "ormelix/store/location.h"
#include "support/demo_store.h"
#include "support/json_reader.h"
#include "support/run_tool.h"
#include "support/test_store.h"

using namespace ormelix;
using test::RunTool;
namespace fs = std::filesystem;

namespace {

class StoreToolsTest : public test::DemoStoreTest {
 protected:
  test::TempDir dir;
  std::string Folder(const std::string& name) const { return dir.File(name); }
  // A store location of this test: a folder on SQLite, a fresh schema on PostgreSQL.
  std::string NewTarget(const std::string& name) const {
    return test::OnPostgres() ? test::NewStoreLocation(dir) : dir.File(name);
  }
  static std::string Employers(const std::string& store) {
    auto run = RunTool({"show", "--store", store, "employers", "--json"});
    EXPECT_EQ(run.status, 0) << run.err;
    return run.out;
  }
};

struct Refusal {
  std::vector<std::string> args;
  std::vector<std::string> words;
};

void ExpectRefused(const Refusal& c, const test::ToolRun& run) {
  std::string shown;
  for (const std::string& arg : c.args) shown += arg + " ";
  EXPECT_EQ(run.status, 2) << shown << "\n" << run.err;
  EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << shown << "\n" << run.err;
  EXPECT_TRUE(run.out.empty()) << shown << "\n" << run.out;
  for (const std::string& word : c.words) EXPECT_NE(run.err.find(word), std::string::npos) << shown << "\n" << run.err;
}

TEST_F(StoreToolsTest, TheDemoStoreGoesOutAndBackInBothFormsWithEqualChecksums) {
  ASSERT_EQ(Demo().status, 0) << Demo().err;
  for (const char* format : {"csv", "json"}) {
    const std::string out = Folder(std::string("export-") + format);
    auto exported = RunTool({"export", Store(), out, "--format", format});
    ASSERT_EQ(exported.status, 0) << exported.err;
    EXPECT_NE(exported.out.find("payroll store: 39 tables"), std::string::npos) << exported.out;
    EXPECT_NE(exported.out.find("reference store: 5 tables"), std::string::npos) << exported.out;
    EXPECT_TRUE(fs::exists(fs::path(out) / (std::string("Mitarbeiter_Lohnzettel.") + format)));
    EXPECT_TRUE(fs::exists(fs::path(out) / "checksums.txt"));
    const std::string target = NewTarget(std::string("imported-") + format);
    auto imported = RunTool({"import", out, target});
    ASSERT_EQ(imported.status, 0) << imported.err;
    EXPECT_NE(imported.out.find("row counts and checksums agree with checksums.txt"), std::string::npos) << imported.out;
    EXPECT_EQ(Employers(target), Employers(Store())) << format;
    auto month = RunTool({"show", "--store", target, "month", "--employee", "1002", "--period", "202503"});
    EXPECT_EQ(month.status, 0) << month.err;
    // Once more into the same store: its tables hold rows now, unless replaced.
    auto again = RunTool({"import", out, target});
    EXPECT_EQ(again.status, 2);
    EXPECT_NE(again.err.find("holds"), std::string::npos) << again.err;
    EXPECT_EQ(RunTool({"import", out, target, "--replace"}).status, 0);
  }
  // Some tables only.
  auto some = RunTool({"export", Store(), Folder("some"), "--tables", "mitarbeiter, Länder"});
  ASSERT_EQ(some.status, 0) << some.err;
  std::vector<std::string> files;
  for (const auto& entry : fs::directory_iterator(Folder("some"))) files.push_back(entry.path().filename().string());
  std::sort(files.begin(), files.end());
  EXPECT_EQ(files, (std::vector<std::string>{"Länder.csv", "Mitarbeiter.csv", "checksums.txt"}));
}

TEST_F(StoreToolsTest, BadInputOfExportAndImportIsOneLineAndWritesNothing) {
  ASSERT_EQ(Demo().status, 0) << Demo().err;
  fs::create_directories(Folder("full"));
  std::ofstream(Folder("full") + "/notes.txt") << "kept";
  std::ofstream(Folder("a-file")) << "no folder";
  fs::create_directories(Folder("odd"));
  std::ofstream(Folder("odd") + "/notes.txt") << "no table";
  fs::create_directories(Folder("badvalue"));
  std::ofstream(Folder("badvalue") + "/Mitarbeiter.csv") << "Personalnummer,Familienname\n1001,\"Huber\"\nabc,\"Gruber\"\n";
  const std::string fresh = NewTarget("fresh");
  const Refusal cases[] = {
      {{"export", Store()}, {"export needs a store and a folder"}},
      {{"export", Store(), Folder("x"), "--format", "xml"}, {"--format 'xml' is neither csv nor json"}},
      {{"export", Store(), Folder("x"), "--tables", "Mitarbeiter,Lohn"}, {"unknown table 'Lohn'", "Mitarbeiter_Lohnzettel"}},
      {{"export", Store(), Folder("full")}, {"holds files already"}},
      {{"export", Store(), Folder("a-file")}, {"is no folder"}},
      {{"export", Folder("nothing"), Folder("x")}, {"no payroll store"}},
      {{"import", Folder("nothing"), fresh}, {"is no folder"}},
      {{"import", Folder("odd"), fresh}, {"notes.txt", "names no table"}},
      {{"import", Folder("badvalue"), fresh}, {"Mitarbeiter.csv line 3, column Personalnummer", "'abc' is no number"}},
      {{"import", Folder("badvalue")}, {"import needs a folder and a store"}},
  };
  for (const Refusal& c : cases) ExpectRefused(c, RunTool(c.args));
  EXPECT_FALSE(fs::exists(Folder("x")));
  EXPECT_EQ(fs::directory_iterator(Folder("full"))->path().filename(), "notes.txt");
  if (!test::OnPostgres()) {
    EXPECT_FALSE(fs::exists(fs::path(fresh) / "payroll.db"));
  }
}

TEST_F(StoreToolsTest, BackupAndCheckOfTheDemoStore) {
  ASSERT_EQ(Demo().status, 0) << Demo().err;
  auto check = RunTool({"check", Store()});
  EXPECT_EQ(check.status, 0) << check.out << check.err;
  EXPECT_NE(check.out.find(": sound (39 tables"), std::string::npos) << check.out;
  auto json = RunTool({"check", Store(), "--json"});
  EXPECT_EQ(json.status, 0) << json.err;
  test::JsonValue document = test::JsonValue::Parse(json.out);
  EXPECT_TRUE(document["sound"].AsBool());
  EXPECT_EQ(document["stores"].Size(), 2u);
  EXPECT_EQ(document["stores"][0]["findings"].Size(), 0u);

  const std::string backup = Folder("backup");
  auto run = RunTool({"backup", Store(), backup});
  if (test::OnPostgres()) {
    ExpectRefused({{"backup", Store(), backup}, {"pg_dump --format=custom", "--schema="}}, run);
    EXPECT_EQ(run.err.find("password"), std::string::npos);
    EXPECT_FALSE(fs::exists(backup));
    return;
  }
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("payroll store: 39 tables"), std::string::npos) << run.out;
  EXPECT_EQ(Employers(backup), Employers(Store()));
  const Refusal cases[] = {
      {{"backup", Store(), backup}, {"exists already"}},
      {{"backup", Store()}, {"backup needs a store and a file"}},
      {{"backup", Folder("nothing"), Folder("b.db")}, {"no payroll store"}},
      {{"backup", (fs::path(Store()) / "payroll.db").string(), Folder("no/such/b.db")}, {"no folder"}},
      {{"check"}, {"check needs a store"}},
      {{"check", Folder("nothing")}, {"no payroll store"}},
  };
  for (const Refusal& c : cases) ExpectRefused(c, RunTool(c.args));
}

TEST_F(StoreToolsTest, CheckGivesOneLinePerFindingAndStatusOne) {
  ORMELIX_SQLITE_ONLY();
  ASSERT_EQ(RunTool({"init", "payroll.db", "reference.db"}, dir.Path().string()).status, 0);
  auto db = StoreConnection::Open(dir.File("payroll.db"));
  test::AddRow(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", "{00000000-0000-4000-8000-0000000000AA}"}, {"Zeitraum", 202503}});
  test::AddRow(db, "Mitarbeiter_Lohnarten", {{"MitarbeiterID", Variant::NullValue()}});
  db->Session().CloseStore();
  ::chmod(dir.File("payroll.db").c_str(), 0644);
  auto run = RunTool({"check", dir.File("payroll.db")});
  EXPECT_EQ(run.status, 1) << run.err;
  EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 4) << run.out;  // three findings, the sound reference
  EXPECT_NE(run.out.find("payroll.db: Mitarbeiter_Lohnzettel Nr 1 (ID {"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("column MitarbeiterID: the row's employee {00000000-0000-4000-8000-0000000000AA} is not in Mitarbeiter"),
            std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find("others may read "), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("reference.db: sound"), std::string::npos) << run.out;
}

TEST_F(StoreToolsTest, TheDemoMakesItsFilesTheOwnersAloneWhateverTheUmask) {
  ORMELIX_SQLITE_ONLY();
  mode_t saved = ::umask(0);
  auto run = RunTool({"demo", "open"}, dir.Path().string());
  ::umask(saved);
  ASSERT_EQ(run.status, 0) << run.err;
  int files = 0;
  for (const auto& entry : fs::directory_iterator(Folder("open"))) {
    ++files;
    EXPECT_EQ(entry.status().permissions() & fs::perms::all, fs::perms::owner_read | fs::perms::owner_write)
        << entry.path();
  }
  EXPECT_GE(files, 2);
}

}  // namespace
