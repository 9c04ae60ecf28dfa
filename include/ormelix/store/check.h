/// \file
/// Whether a store is sound: the store's own integrity (SQLite's integrity_check
/// and foreign_key_check, PostgreSQL's catalog), its tables and columns as the
/// schema has them, and then the domain's: rows whose owner is gone (a pay record
/// without its employee, a short-time or replacement row without its pay record,
/// entitlements without their child), a second row where one per key belongs,
/// values outside their column's range (column_values.h), and a store file that
/// others may read.
#pragma once

#include <string>
#include <vector>

#include "ormelix/store/schema.h"
#include "ormelix/store/store.h"

namespace ormelix {

/// One thing that is not sound.
struct CheckFinding {
  std::string kind;    ///< integrity, schema, owner, key, range or access
  std::string table;   ///< "" for the store as a whole
  std::string row;     ///< "Nr 12 (ID {...})", "" for none
  std::string column;  ///< "" for none
  std::string message;  ///< what is wrong, in a sentence
};

/// What CheckStore found.
struct StoreCheck {
  std::vector<CheckFinding> findings;  ///< the first kMaxFindings
  long more = 0;                       ///< findings beyond those
  long tables = 0;                     ///< the tables read
  long rows = 0;                       ///< the rows read

  /// How many findings are kept; the rest are counted in `more`.
  static constexpr std::size_t kMaxFindings = 1000;
  /// True when nothing was found.
  bool Sound() const { return findings.empty(); }
};

/// Checks the store, reading it only (open it read-only); the tables in one
/// snapshot. StoreError only when the store cannot be read at all.
StoreCheck CheckStore(const StoreConnectionPtr& store, StoreKind kind);

}  // namespace ormelix
