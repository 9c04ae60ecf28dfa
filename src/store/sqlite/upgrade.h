// Stores made before text was compared without regard to case declare their text
// columns without the store's text order. Opening such a store brings it up to
// date: each table of the shipped schema is rebuilt with the order declared on its
// text columns (rows, keys, autonumbers and indexes kept), in one transaction.
#pragma once

#include <string>

#include "../backend.h"
#include "handles.h"

namespace ormelix::detail::sqlite {

inline constexpr int kStoreVersion = kSqliteStoreVersion;
inline constexpr int kTextOrderVersion = 1;

// The CREATE TABLE text with the text order declared on every text column (and on
// columns of no type) that declares none; the text as it is where nothing changes.
std::string WithTextOrder(sqlite3* db, const std::string& table, const std::string& create_sql);

// True when tables of the shipped schema lack the text order.
bool NeedsUpgrade(sqlite3* db);

// Rebuilds those tables and sets the version; StoreError naming the table that
// failed, with nothing changed. A store that needs nothing gets the version only.
// True when tables were rebuilt.
bool UpgradeStore(sqlite3* db, const std::string& path);

// Makes the indexes that the schema declares unique so, where the table's rows
// allow it. A table that holds two rows for one key already keeps its plain index
// (nothing is deleted) and is tried again at the next writable open; the version
// becomes 2 when every one is in place. Nothing happens while another program
// holds the store. True when the store is complete.
bool AddUniqueKeys(sqlite3* db);

// The connection to use for an opened store: the one given, brought up to date
// if the store needs it. A store opened read-only is not written: an old one is
// brought up to date in a copy in memory, which then serves, read-only too (it
// needs no unique keys, as it is not written).
DatabaseHandle OpenUpToDate(DatabaseHandle db, bool read_only, const std::string& path);

}  // namespace ormelix::detail::sqlite
