/// \file
/// Copying a whole store onto another, from SQLite to PostgreSQL or back (or
/// between two of one kind): every table of the schema, row by row with its ID
/// and Nr, in one transaction on the target, and verified before that commits.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "ormelix/store/schema.h"
#include "ormelix/store/store.h"

namespace ormelix {

/// What one table held, on either side.
struct TableCopy {
  std::string table;  ///< the table's name
  long rows = 0;      ///< its row count
  std::uint64_t checksum = 0;  ///< over every value of every row, in Nr order
};

/// How CopyStore works.
struct CopyOptions {
  /// A target that holds rows is refused unless its rows may be replaced.
  bool replace = false;
  /// Called per table and every few thousand rows: table, rows copied, rows of it.
  std::function<void(const std::string& table, long done, long total)> progress;
};

/// The tables of a store with their row counts and checksums. A value counts by
/// what it is, not by how a backend holds it (5 and 5.0 in a number column alike,
/// a text as its bytes), so that a copy and its source agree across backends.
std::vector<TableCopy> StoreChecksums(const StoreConnectionPtr& store, StoreKind kind);

/// True when a table of the store holds a row.
bool StoreHoldsRows(const StoreConnectionPtr& store, StoreKind kind);

/// Copies source onto target and gives the checksums both agree on. StoreError if
/// the target holds rows (unless options.replace), if a statement fails, or if the
/// copy does not read back as the source reads: the target is then as it was.
std::vector<TableCopy> CopyStore(const StoreConnectionPtr& source, const StoreConnectionPtr& target, StoreKind kind,
                                 const CopyOptions& options = {});

}  // namespace ormelix
