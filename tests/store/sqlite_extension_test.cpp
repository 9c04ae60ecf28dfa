// The store's text order as a loadable extension: Debian's sqlite3 shell (and
// Python's sqlite3, where there is one) read and write a store with it as the
// library does, and without it are refused what compares text.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdio>
#include <fstream>

#include "ormelix/store/schema.h"
#include "ormelix/store/value_helpers.h"
#include "support/test_store.h"

using namespace ormelix;

namespace {

struct Shell {
  int status = -1;
  std::string out;
};

// Runs a command line, its standard error after its standard output.
Shell RunShell(const std::string& command) {
  Shell shell;
  FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  if (!pipe) return shell;
  char buffer[4096];
  for (std::size_t n; (n = fread(buffer, 1, sizeof buffer, pipe)) > 0;) shell.out.append(buffer, n);
  shell.status = pclose(pipe);
  return shell;
}

bool Have(const char* program) { return RunShell(std::string("command -v ") + program).status == 0; }

class SqliteExtensionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ORMELIX_SQLITE_ONLY();
    auto db = CreateStore(store, StoreKind::Payroll);
    for (const char* name : {"beta", "Gamma", "alpine", "Alpha", "Ärzte"}) test::AddRow(db, "Basiswerte", {{"Bezeichnung", name}});
  }
  test::TempDir dir;
  std::string store = dir.File("payroll.db");
};

TEST_F(SqliteExtensionTest, TheSqliteShellReadsAndWritesAStoreWithIt) {
  ASSERT_TRUE(Have("sqlite3")) << "Debian's sqlite3 shell is not installed (./dev installs it)";
  const std::string shell = "sqlite3 '" + store + "'";
  const std::string order = "SELECT group_concat(Bezeichnung, ',') FROM (SELECT Bezeichnung FROM Basiswerte ORDER BY Bezeichnung);";
  Shell without = RunShell(shell + " \"" + order + "\"");
  EXPECT_NE(without.out.find("no such collation sequence: ormelix_text"), std::string::npos) << without.out;

  std::ofstream(dir.File("script.sql"))
      << order << "\n"
      << "SELECT count(*) FROM Basiswerte WHERE Bezeichnung = 'ÄRZTE';\n"
      << "SELECT LCASE('ÄÖÜ Straße'), UCASE('äöü straße');\n"
      << "INSERT INTO Mitarbeiter (MandantenID, Familienname) VALUES ('{0A1B2C3D-0000-4000-8000-000000000001}', 'Öller');\n"
      << "SELECT count(*) FROM Mitarbeiter WHERE MandantenID = '{0a1b2c3d-0000-4000-8000-000000000001}';\n"
      << "PRAGMA integrity_check;\n";
  Shell with = RunShell(shell + " -cmd \".load " ORMELIX_SQLITE_TEXT_PATH "\" < '" + dir.File("script.sql") + "'");
  EXPECT_EQ(with.status, 0) << with.out;
  EXPECT_EQ(with.out, "Alpha,alpine,Ärzte,beta,Gamma\n1\näöü straße|ÄÖÜ STRAßE\n1\nok\n");

  // What the shell wrote, the library reads: the row, found by its indexed key.
  auto db = StoreConnection::Open(store);
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter] WHERE [MandantenID]='{0A1B2C3D-0000-4000-8000-000000000001}'");
  ASSERT_FALSE(rs->Eof());
  EXPECT_EQ(ValueHelpers::ToText(rs->Fields("Familienname")), "Öller");
}

TEST_F(SqliteExtensionTest, PythonsSqliteLoadsIt) {
  // Debian's Python; one built without loading extensions (as pyenv builds it by
  // default) cannot.
  const std::string python = Have("/usr/bin/python3") ? "/usr/bin/python3" : "python3";
  if (!Have(python.c_str())) GTEST_SKIP() << "no python3 here";
  std::ofstream(dir.File("load.py")) << "import sqlite3, sys\n"
                                        "db = sqlite3.connect(sys.argv[1])\n"
                                        "if not hasattr(db, 'enable_load_extension'): sys.exit(77)\n"
                                        "db.enable_load_extension(True)\n"
                                        "db.load_extension(sys.argv[2])\n"
                                        "names = db.execute('SELECT Bezeichnung FROM Basiswerte ORDER BY Bezeichnung')\n"
                                        "print(','.join(name for (name,) in names))\n"
                                        "print(db.execute('PRAGMA integrity_check').fetchone()[0])\n";
  Shell run = RunShell(python + " '" + dir.File("load.py") + "' '" + store + "' " ORMELIX_SQLITE_TEXT_PATH);
  if (WIFEXITED(run.status) && WEXITSTATUS(run.status) == 77) GTEST_SKIP() << python << " cannot load extensions";
  EXPECT_EQ(run.out, "Alpha,alpine,Ärzte,beta,Gamma\nok\n");
}

}  // namespace
