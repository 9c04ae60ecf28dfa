// ormelix backup of a store while another process saves pay months: each backup
// is one state of the store (every pay row with the short-time row saved with it
// in one transaction), sound, private, and later backups hold no fewer months.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <thread>

#include "employee_fixture.h"
#include "ormelix/error.h"
#include "ormelix/store/backup.h"
#include "support/raw_store.h"
#include "support/run_tool.h"

using namespace ormelix;

namespace {

class BackupTest : public test::EmployeeTest {
 protected:
  std::string employee = AddEmployee("Laufend", 7);
};

long Count(test::RawConnection& raw, const std::string& sql) { return std::stol(raw.Text(sql)); }

TEST_F(BackupTest, BackupsWhileAnotherProcessSavesMonthsAreEachOneSoundStateOfTheStore) {
  ORMELIX_SQLITE_ONLY();
  const std::string path = db->Session().StorePath();
  int go[2];
  ASSERT_EQ(pipe(go), 0);
  pid_t saver = fork();
  if (saver == 0) {
    close(go[0]);
    int status = 0;
    try {
      auto session = OpenSession(StoreConnection::Open(path, "busy_timeout=20000"), 2001);
      auto lohn = Loaded(session, employee);
      for (int i = 0; i < 240; ++i) {
        session->AktJahr = static_cast<std::int16_t>(2001 + i / 12);
        lohn->Gehalt(i % 12 + 1) = static_cast<float>(1000 + i);
        lohn->Update(*session, ucTableLohnzettel, static_cast<std::int16_t>(i % 12 + 1));
        if (i == 10 && write(go[1], "g", 1) != 1) status = 1;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));  // a clerk's pace, roughly
      }
    } catch (const std::exception& e) {
      std::fprintf(stderr, "saver: %s\n", e.what());
      status = 1;
    }
    _exit(status);
  }
  close(go[1]);
  char byte = 0;
  ASSERT_EQ(read(go[0], &byte, 1), 1) << "the saver did not start";
  close(go[0]);
  long before = 0;
  int taken = 0;
  for (int n = 0; n < 6; ++n) {
    const std::string file = dir.File("backup" + std::to_string(n) + ".db");
    auto run = test::RunTool({"backup", path, file});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("row counts and checksums agree"), std::string::npos) << run.out;
    struct stat status {};
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u) << file;
    test::RawConnection raw(file);
    EXPECT_EQ(raw.Text("PRAGMA integrity_check"), "ok");
    long months = Count(raw, "SELECT count(*) FROM \"Mitarbeiter_Lohnzettel\"");
    // Each pay row went in with its short-time row, in one transaction.
    EXPECT_EQ(Count(raw, "SELECT count(*) FROM \"Mitarbeiter_Lohnzettel_Kurzarbeit\""), months) << file;
    EXPECT_EQ(Count(raw, "SELECT count(*) FROM \"Mitarbeiter_Lohnzettel\" l WHERE NOT EXISTS (SELECT 1 FROM "
                         "\"Mitarbeiter_Lohnzettel_Kurzarbeit\" k WHERE k.\"LohnzettelID\" = l.\"ID\")"),
              0)
        << file;
    EXPECT_GE(months, before);
    before = months;
    if (months < 240) ++taken;
  }
  int status = 0;
  waitpid(saver, &status, 0);
  ASSERT_EQ(status, 0) << "the saver failed; see its message above";
  EXPECT_GT(taken, 0) << "no backup was taken while the saver saved";
  auto check = test::RunTool({"check", dir.File("backup5.db")});
  EXPECT_EQ(check.status, 0) << check.out << check.err;
}

TEST_F(BackupTest, AServerStoreIsBackedUpByTheServersOwnTools) {
  if (!test::OnPostgres()) GTEST_SKIP() << "a test of the PostgreSQL run";
  try {
    BackupStore(db, StoreKind::Payroll, dir.File("copy.db"));
    ADD_FAILURE() << "a server store was copied into a file";
  } catch (const StoreError& error) {
    EXPECT_NE(std::string(error.what()).find("pg_dump"), std::string::npos) << error.what();
  }
  EXPECT_FALSE(std::filesystem::exists(dir.File("copy.db")));
}

}  // namespace
