#include "ormelix/store/copy.h"

#include <algorithm>

#include "table_walk.h"
#include "ormelix/error.h"

namespace ormelix {

namespace {

using detail::Backend;
using detail::TableRows;

// Where two reads of a table part: the first row and column whose values differ.
std::string FirstDifference(const TableRows& source, const TableRows& copy) {
  for (std::size_t row = 0; row < std::min(source.Rows(), copy.Rows()); ++row)
    for (std::size_t i = 0; i < source.names.size(); ++i) {
      std::string a = source.Canonical(row, i), b = copy.Canonical(row, i);
      if (a != b)
        return "; row " + std::to_string(row + 1) + ", column " + source.names[i] + ": " + source.Cell(row, i).Describe() +
               " in the source, " + copy.Cell(row, i).Describe() + " in the copy";
    }
  return "";
}

void CopyTable(Backend& from, Backend& to, const SchemaTable& table, const CopyOptions& options) {
  const TableRows rows(from, table);
  detail::InsertTableRows(
      to, table, rows.names, rows.Rows(),
      [&](std::size_t row, std::vector<Variant>& cells) {
        for (std::size_t i = 0; i < rows.names.size(); ++i) cells.push_back(rows.Cell(row, i));
      },
      options);
}

}  // namespace

std::vector<TableCopy> StoreChecksums(const StoreConnectionPtr& store, StoreKind kind) {
  std::shared_ptr<Backend> backend = detail::BackendOf(store->Session());
  std::vector<TableCopy> sums;
  for (const SchemaTable& table : SchemaTables(kind)) sums.push_back(TableRows(*backend, table).Sum());
  return sums;
}

bool StoreHoldsRows(const StoreConnectionPtr& store, StoreKind kind) {
  std::shared_ptr<Backend> backend = detail::BackendOf(store->Session());
  for (const SchemaTable& table : SchemaTables(kind)) {
    detail::QueryResult result = backend->Query("SELECT COUNT(*) AS [n] FROM [" + table.name + "]");
    if (!result.cells.empty() && result.cells[0].kind() == Variant::Integer && result.cells[0].AsInteger() > 0)
      return true;
  }
  return false;
}

std::vector<TableCopy> CopyStore(const StoreConnectionPtr& source, const StoreConnectionPtr& target, StoreKind kind,
                                 const CopyOptions& options) {
  std::shared_ptr<Backend> from = detail::BackendOf(source->Session());
  std::shared_ptr<Backend> to = detail::BackendOf(target->Session());
  const std::vector<SchemaTable>& tables = SchemaTables(kind);
  to->BeginWrite();  // the target's write lock, held to the end: no other program writes between
  try {
    if (StoreHoldsRows(target, kind)) {
      if (!options.replace)
        throw StoreError("the target store holds rows already", to->Path(),
                         "a copy goes only into an empty store, or replaces what it holds when asked to");
      // Children first: the cascades would take them anyway, but not those
      // without one.
      std::vector<const SchemaTable*> all;
      for (const SchemaTable& table : tables) all.push_back(&table);
      detail::EmptyTables(*to, all);
    }
    for (const SchemaTable& table : tables) CopyTable(*from, *to, table, options);
    std::vector<TableCopy> sums = StoreChecksums(source, kind);
    std::vector<TableCopy> copied = StoreChecksums(target, kind);
    for (std::size_t i = 0; i < sums.size(); ++i)
      if (sums[i].rows != copied[i].rows || sums[i].checksum != copied[i].checksum)
        throw StoreError("the copy does not read back as the source", to->Path(),
                         "table " + sums[i].table + ": " + std::to_string(sums[i].rows) + " rows in the source, " +
                             std::to_string(copied[i].rows) + " in the copy, checksums " +
                             std::to_string(sums[i].checksum) + " and " + std::to_string(copied[i].checksum) +
                             FirstDifference(TableRows(*from, tables[i]), TableRows(*to, tables[i])));
    to->CommitWrite();
    return sums;
  } catch (...) {
    try {
      to->RollbackWrite();
    } catch (const StoreError&) {
      // The connection is gone: the server has rolled back.
    }
    throw;
  }
}

}  // namespace ormelix
