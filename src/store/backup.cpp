#include "ormelix/store/backup.h"

#include <filesystem>

#include "backend.h"
#include "ormelix/error.h"

namespace ormelix {

std::vector<TableCopy> BackupStore(const StoreConnectionPtr& store, StoreKind kind, const std::string& file) {
  std::shared_ptr<detail::Backend> backend = detail::BackendOf(store->Session());
  std::vector<TableCopy> sums;
  {
    // The sums and the copy come from one snapshot: the reads of the sums open it,
    // and the backup, within it, copies what they read.
    StoreReadSnapshot snapshot(&store->Session());
    sums = StoreChecksums(store, kind);
    backend->BackupInto(file);
  }
  try {
    std::vector<TableCopy> copied = StoreChecksums(StoreConnection::Open(file), kind);
    for (std::size_t i = 0; i < sums.size(); ++i)
      if (copied.size() != sums.size() || copied[i].rows != sums[i].rows || copied[i].checksum != sums[i].checksum)
        throw StoreError("the backup does not read back as the store", file,
                         "table " + sums[i].table + ": " + std::to_string(sums[i].rows) + " rows in the store, " +
                             (i < copied.size() ? std::to_string(copied[i].rows) : std::string("none")) + " in the backup");
  } catch (...) {
    std::error_code ignored;
    for (const char* side : {"", "-wal", "-shm", "-journal"}) std::filesystem::remove(file + side, ignored);
    throw;
  }
  return sums;
}

}  // namespace ormelix
