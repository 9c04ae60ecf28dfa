// Store files are their owner's alone from the moment they are made, whatever
// the umask, and SQLite's side files follow them; a file that exists keeps the
// permissions it was given.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "ormelix/store/backup.h"
#include "ormelix/store/copy.h"
#include "support/test_store.h"

using namespace ormelix;

namespace {

unsigned Mode(const std::string& file) {
  struct stat status {};
  return ::stat(file.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

class PrivateFilesTest : public ::testing::Test {
 protected:
  void SetUp() override { ORMELIX_SQLITE_ONLY(); }
  void TearDown() override { ::umask(saved_); }
  test::TempDir dir;
  mode_t saved_ = ::umask(022);
};

TEST_F(PrivateFilesTest, ANewStoreAndItsSideFilesAreOwnerOnlyWhateverTheUmask) {
  for (mode_t mask : {0000, 0022, 0277}) {
    ::umask(mask);
    const std::string path = dir.File("store" + std::to_string(mask) + ".db");
    auto db = CreateStore(path, StoreKind::Payroll);
    test::AddRow(db, "Mandanten", {{"Name", "Muster"}});  // the log and its index are made now
    for (const char* side : {"", "-wal", "-shm"}) EXPECT_EQ(Mode(path + side), 0600u) << path << side << " umask " << mask;
    const std::string backup = dir.File("backup" + std::to_string(mask) + ".db");
    BackupStore(db, StoreKind::Payroll, backup);
    EXPECT_EQ(Mode(backup), 0600u) << backup;
  }
}

TEST_F(PrivateFilesTest, AStoreThatExistsKeepsItsPermissions) {
  ::umask(0);
  const std::string path = dir.File("shared.db");
  CreateStore(path, StoreKind::Payroll)->Session().CloseStore();
  ::chmod(path.c_str(), 0660);  // a group of clerks shares it
  auto source = CreateStore(dir.File("source.db"), StoreKind::Payroll);
  test::AddRow(source, "Mandanten", {{"Name", "Muster"}});
  auto target = StoreConnection::Open(path);
  CopyStore(source, target, StoreKind::Payroll);
  for (const char* side : {"", "-wal", "-shm"}) EXPECT_EQ(Mode(path + side), 0660u) << side;
}

}  // namespace
