// The contract of the ormelix host, case by case: every path, permission, kind of
// file, period, number, option and stored value that cannot be used gives one
// line on standard error that names what was wrong, exit status 2 and nothing on
// standard output; --json output is valid JSON whatever the store holds; a
// read-only look creates nothing beside a store where nothing may be created.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>

#include "support/json_reader.h"
#include "support/raw_store.h"
#include "support/run_tool.h"
#include "support/test_store.h"

using namespace ormelix;
using test::RunTool;

namespace fs = std::filesystem;

namespace {

struct Case {
  std::vector<std::string> args;
  std::vector<std::string> words;  // each must stand in the one line
};

void ExpectRefused(const Case& c, const test::ToolRun& run) {
  std::string shown;
  for (const std::string& arg : c.args) shown += (arg.size() > 60 ? arg.substr(0, 60) + "..." : arg) + " ";
  EXPECT_EQ(run.status, 2) << shown << "\n" << run.err;
  EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << shown << "\n" << run.err;
  EXPECT_TRUE(run.out.empty()) << shown << "\n" << run.out;
  for (const std::string& word : c.words) EXPECT_NE(run.err.find(word), std::string::npos) << shown << "\n" << run.err;
  EXPECT_EQ(run.err.find("filesystem error"), std::string::npos) << run.err;
}

std::set<std::string> Files(const fs::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename().string());
  return names;
}

// A store made by init with one employer and two employees: 1 with a birth date
// that is no date, 2 with a name that is no UTF-8 and an infinite salary in
// March 2025.
class ContractTest : public ::testing::Test {
 protected:
  test::TempDir dir;
  std::string store = dir.Path().string();

  void SetUp() override {
    ASSERT_EQ(RunTool({"init", "payroll.db", "reference.db"}, store).status, 0);
    auto db = StoreConnection::Open(dir.File("payroll.db"));
    std::string employer = test::AddRow(db, "Mandanten", {{"Name", "Muster GmbH"}});
    test::AddRow(db, "Basiswerte", {{"Bezeichnung", "Standard"}, {"Standardordner", true}});
    std::string second;
    for (int number : {1, 2})
      second = test::AddRow(db, "Mitarbeiter", {{"MandantenID", employer}, {"Personalnummer", number}});
    test::AddRow(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", second}, {"Zeitraum", 202503}});
    db->Session().CloseStore();
    test::RawConnection raw(dir.File("payroll.db"));
    raw.Run("UPDATE \"Mitarbeiter\" SET \"Geburtsdatum\"='garbage' WHERE \"Personalnummer\"=1;"
            "UPDATE \"Mitarbeiter\" SET \"Familienname\"=X'4DFC6C6C6572' WHERE \"Personalnummer\"=2;"
            "UPDATE \"Mitarbeiter_Lohnzettel\" SET \"Gehalt\"=9e999;");
  }
  std::vector<std::string> Show(std::initializer_list<std::string> rest) {
    std::vector<std::string> args{"show", "--store", store};
    args.insert(args.end(), rest);
    return args;
  }
};

TEST_F(ContractTest, BadPathsAndKindsOfFile) {
  fs::create_symlink("loop-b", dir.Path() / "loop-a");
  fs::create_symlink("loop-a", dir.Path() / "loop-b");
  ASSERT_EQ(mkfifo(dir.File("fifo").c_str(), 0600), 0);
  fs::create_directories(dir.Path() / "nested" / "payroll.db");
  std::ofstream(dir.File("notes.txt")) << "no store";
  const std::string long_path = store + "/" + std::string(5000, 'x');
  const Case cases[] = {
      {{"show", "--store", long_path, "employers"}, {"cannot look at", "File name too long"}},
      {{"show", "--store", "loop-a", "employers"}, {"loop-a", "Too many levels of symbolic links"}},
      {{"show", "--store", "/dev/null", "employers"}, {"/dev/null", "is no file"}},
      {{"show", "--store", "fifo", "employers"}, {"fifo", "is no file"}},
      {{"show", "--store", "nested", "employers"}, {"nested/payroll.db", "is no file"}},
      {{"demo", "notes.txt"}, {"notes.txt", "is no folder"}},
      {{"demo", long_path}, {"File name too long"}},
      {{"init", "missing/p.db", "missing/r.db"}, {"no folder 'missing'"}},
      {{"init", long_path, "r.db"}, {"File name too long"}},
  };
  for (const Case& c : cases) ExpectRefused(c, RunTool(c.args, store));
  EXPECT_FALSE(fs::exists(dir.Path() / "r.db"));
}

TEST_F(ContractTest, BadPeriodsNumbersAndOptions) {
  const Case cases[] = {
      {Show({"month", "--employee", "2", "--period", "2025-03"}), {"period '2025-03'", "YYYYMM"}},
      {Show({"month", "--employee", "2", "--period", "202513"}), {"period '202513'"}},
      {Show({"month", "--employee", "2", "--period", "000003"}), {"period '000003'"}},
      {Show({"countries", "--period", "2025031"}), {"period '2025031'"}},
      {Show({"employees", "--year", "25"}), {"year '25'"}},
      {Show({"employees", "--year", "0999"}), {"year '0999'"}},
      {Show({"employees", "--year", "20x5"}), {"year '20x5'"}},
      {Show({"employees", "--year"}), {"--year needs a value"}},
      {Show({"employees", "--year", "2025", "--sort", "salary"}), {"unknown sort 'salary'"}},
      {Show({"employees", "--year", "2025", "--employer", "Muster"}), {"unknown employer 'Muster'"}},
      {Show({"employees", "--year", "2025", "--bogus"}), {"unexpected argument '--bogus'"}},
      {Show({"month", "--employee", "abc", "--period", "202503"}), {"'abc' is neither an ID nor a Personalnummer"}},
      {Show({"month", "--employee", "99999", "--period", "202503"}), {"'99999' is neither"}},
      {Show({"month", "--employee", "42", "--period", "202503"}), {"unknown employee '42'"}},
      {Show({"month", "--employee", "{00000000-0000-0000-0000-000000000042}", "--period", "202503"}),
       {"unknown employee"}},
      {Show({"base", "--period", "202503", "--folder", "1"}), {"unknown folder '1'", "Standard"}},
      {Show({"base", "--period", "202503", "--folder", "standard"}), {"'Standard' holds no dated table"}},
      {{"demo", "--employees", "abc"}, {"--employees 'abc'", "5 to 30000"}},
      {{"demo", "--employees", "4"}, {"--employees '4'"}},
      {{"demo", "--employees", "99999999999999999999"}, {"5 to 30000"}},
  };
  for (const Case& c : cases) ExpectRefused(c, RunTool(c.args, store));
}

TEST_F(ContractTest, AStoredValueThatCannotBeReadIsNamedWithItsColumnTableAndRow) {
  Case c{Show({"month", "--employee", "1", "--period", "202503"}),
         {"Geburtsdatum", "table Mitarbeiter", "garbage", "row {"}};
  ExpectRefused(c, RunTool(c.args, store));
}

TEST_F(ContractTest, JsonStaysValidForTextThatIsNoUtf8AndForInfiniteNumbers) {
  auto run = RunTool(Show({"month", "--employee", "2", "--period", "202503", "--json"}), store);
  ASSERT_EQ(run.status, 0) << run.err;
  test::JsonValue document = test::JsonValue::Parse(run.out);  // refuses bytes that are no UTF-8
  EXPECT_NE(run.out.find("M\\ufffdller"), std::string::npos);  // the Latin-1 ü, replaced
  EXPECT_NE(run.out.find("\"Gehalt\": null"), std::string::npos);
}

TEST_F(ContractTest, WithoutPermissionsOneLineSaysWhichPathMayNotBeUsed) {
  for (const char* folder : {"closed", "readonly", "readonly-store"}) fs::create_directories(dir.Path() / folder);
  fs::copy_file(dir.File("payroll.db"), dir.Path() / "closed" / "payroll.db");
  fs::copy_file(dir.File("payroll.db"), dir.Path() / "readonly-store" / "payroll.db");
  fs::copy_file(dir.File("reference.db"), dir.Path() / "readonly-store" / "reference.db");
  // Stores are made private; these two are opened to everyone on purpose.
  for (const char* file : {"payroll.db", "reference.db"})
    fs::permissions(dir.Path() / "readonly-store" / file, fs::perms::others_read | fs::perms::group_read,
                    fs::perm_options::add);
  fs::permissions(dir.Path() / "closed", fs::perms::owner_all, fs::perm_options::replace);
  fs::permissions(dir.File("payroll.db"), fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::replace);
  const fs::perms read_only = fs::perms::owner_read | fs::perms::owner_exec | fs::perms::group_read |
                              fs::perms::group_exec | fs::perms::others_read | fs::perms::others_exec;
  fs::permissions(dir.Path() / "readonly", read_only, fs::perm_options::replace);
  fs::permissions(dir.Path() / "readonly-store", read_only, fs::perm_options::replace);
  const Case cases[] = {
      {Show({"employers"}), {"cannot read", "payroll.db", "Permission denied"}},
      {{"show", "--store", "closed/payroll.db", "employers"}, {"closed/payroll.db", "Permission denied"}},
      {{"demo", "readonly"}, {"cannot write in the folder 'readonly'", "Permission denied"}},
      {{"init", "readonly/p.db", "readonly/r.db"}, {"cannot write in the folder 'readonly'"}},
  };
  std::string why_not;
  for (const Case& c : cases) {
    auto run = test::RunToolUnprivileged(c.args, store, why_not);
    if (!run) GTEST_SKIP() << why_not;
    ExpectRefused(c, *run);
  }
  // A store in a folder nobody may write to is read all the same, and nothing is
  // made beside it.
  const auto before = Files(dir.Path() / "readonly-store");
  auto show = test::RunToolUnprivileged({"show", "--store", "readonly-store", "employers", "--json"}, store, why_not);
  ASSERT_TRUE(show);
  EXPECT_EQ(show->status, 0) << show->err;
  EXPECT_EQ(test::JsonValue::Parse(show->out)["employers"].Size(), 1u);
  EXPECT_EQ(Files(dir.Path() / "readonly-store"), before);
  fs::permissions(dir.Path() / "closed", fs::perms::owner_all, fs::perm_options::add);
}

}  // namespace
