// The SQLite store's own checks and its online backup.
#pragma once

#include <sqlite3.h>

#include <string>
#include <vector>

namespace ormelix::detail::sqlite {

// What PRAGMA integrity_check and PRAGMA foreign_key_check find, a text each.
std::vector<std::string> IntegrityProblems(sqlite3* db);

// Copies the database of the connection into a new file of mode 0600 by SQLite's
// online backup, in one step: within an open read transaction the copy holds
// what that transaction reads, though other programs write meanwhile. The file
// is removed again when the copy fails.
void Backup(sqlite3* source, const std::string& file);

}  // namespace ormelix::detail::sqlite
