/// \file
/// A backup of a live SQLite store: a consistent copy made while other programs
/// save, verified before it is handed out.
#pragma once

#include <string>
#include <vector>

#include "ormelix/store/copy.h"
#include "ormelix/store/schema.h"
#include "ormelix/store/store.h"

namespace ormelix {

/// Copies the store into a new file (readable and writable by its owner only) by
/// SQLite's online backup: the copy holds the store as it stood at one moment,
/// though others save meanwhile. Then each table of the copy must read back with
/// the rows and checksum the store had at that moment; those are given. StoreError
/// when the file exists, the store is no SQLite store (a PostgreSQL store is backed
/// up with pg_dump), or the copy does not verify (the file is then removed).
std::vector<TableCopy> BackupStore(const StoreConnectionPtr& store, StoreKind kind, const std::string& file);

}  // namespace ormelix
