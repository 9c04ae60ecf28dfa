// The one walk over a store's tables that every command reading or writing whole
// stores shares (copy, export, import, backup, check), and the one checksum of a
// table's values, so that what one of them writes another can verify.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "backend.h"
#include "ormelix/store/copy.h"
#include "ormelix/store/schema.h"

namespace ormelix::detail {

// The columns of a table in the order the walk gives them: Nr and ID first (for
// a keyed table), then the schema's columns.
std::vector<std::string> WalkedColumns(const SchemaTable& table);
// The schema's column of that name (Nr and ID, which the schema does not list,
// are given as a column of type "int32" and "text").
SchemaColumn WalkedColumn(const SchemaTable& table, std::string_view name);

// FNV-1a over the canonical text of each value, a separator after each.
struct Checksum {
  std::uint64_t hash = 1469598103934665603ULL;

  void Add(std::string_view bytes);
  // The text a value is summed as: the same on both stores for the same value
  // (5 and 5.0 in a number column alike, a text as its bytes).
  static std::string Canonical(const Variant& value, bool number_column);
};

// The rows of a table as the walk reads them, in Nr order (or the order of the
// primary key): the columns in WalkedColumns order, their positions in the
// result, and whether each holds numbers.
struct TableRows {
  const SchemaTable& table;
  QueryResult result;
  std::vector<std::string> names;
  std::vector<int> at;
  std::vector<bool> numeric;

  TableRows(Backend& backend, const SchemaTable& table);
  std::size_t Rows() const { return result.layout->Size() ? result.cells.size() / result.layout->Size() : 0; }
  const Variant& Cell(std::size_t row, std::size_t i) const;
  std::string Canonical(std::size_t row, std::size_t i) const { return Checksum::Canonical(Cell(row, i), numeric[i]); }
  // The row count and checksum of all values.
  TableCopy Sum() const;
  // "Nr 12" (or the key of a table without Nr) and the ID, for a message.
  std::string RowName(std::size_t row) const;
};

// Appends the cells of one row (by its position) in the order of the columns.
using RowCells = std::function<void(std::size_t row, std::vector<Variant>& cells)>;

// Inserts the rows into a table, in steps of a few thousand, calling progress
// after each; then the table's autonumber goes on after the highest Nr that came
// with the rows.
void InsertTableRows(Backend& to, const SchemaTable& table, const std::vector<std::string>& columns,
                     std::size_t rows, const RowCells& row_cells, const CopyOptions& options);

// The keys of one row per key of a table: ID and Nr, the primary key, the keys
// the schema declares unique.
std::vector<std::vector<std::string>> OneRowKeys(const SchemaTable& table);

// A value as keys compare it: texts without regard to case, numbers by value.
std::string KeyText(const Variant& value);

// A row whose key (the values at the key's columns) an earlier row has, and that
// row; a key with a Null in it is each row's own.
struct RepeatedKey {
  std::size_t row;
  std::size_t first;
};
using CellAt = std::function<const Variant&(std::size_t row, std::size_t column)>;
std::vector<RepeatedKey> RepeatedKeys(std::size_t rows, const std::vector<std::size_t>& key, const CellAt& cell);

// Deletes every row of the tables, the last first (children before the rows
// their cascades would take).
void EmptyTables(Backend& backend, const std::vector<const SchemaTable*>& tables);

}  // namespace ormelix::detail
