#include "ormelix/store/copy.h"

#include <algorithm>
#include <cmath>

#include "backend.h"
#include "ormelix/error.h"

namespace ormelix {

namespace {

using detail::Backend;

constexpr long kProgressStep = 2000;

// The columns of a table in the order the checksum reads them.
std::vector<std::string> ColumnsOf(const SchemaTable& table) {
  std::vector<std::string> columns;
  if (table.keyed) columns = {"Nr", "ID"};
  for (const SchemaColumn& column : table.columns) columns.push_back(column.name);
  return columns;
}

bool IsNumberType(const std::string& type) { return type != "text" && type != "any"; }

std::string SelectAll(const SchemaTable& table) {
  std::string sql = "SELECT * FROM [" + table.name + "]";
  if (table.keyed) return sql + " ORDER BY [Nr] ASC";
  for (const SchemaColumn& column : table.columns)
    if (column.primary) return sql + " ORDER BY [" + column.name + "] ASC";
  return sql;
}

// FNV-1a over the canonical text of each value, a separator after each.
struct Checksum {
  std::uint64_t hash = 1469598103934665603ULL;

  void Add(std::string_view bytes) {
    for (unsigned char c : bytes) {
      hash ^= c;
      hash *= 1099511628211ULL;
    }
    hash ^= 0xFF;
    hash *= 1099511628211ULL;
  }

  void Add(const Variant& value, bool number_column) { Add(Canonical(value, number_column)); }

  // The text a value is summed as: the same on both stores for the same value.
  static std::string Canonical(const Variant& value, bool number_column) {
    double number = 0;
    if (value.IsMissing()) return "\x01N";
    if (value.kind() == Variant::Text) return value.AsText();
    value.TryNumber(number);
    if (number_column) return FormatNumber(number);
    return value.kind() == Variant::Double ? detail::DoubleAsStoredText(number)
                                           : std::to_string(static_cast<long long>(number));
  }
};

// The cells of a table as the copy and the checksum read them: the columns in
// checksum order, their positions in the result, and whether each holds numbers.
struct TableRows {
  detail::QueryResult result;
  std::vector<std::string> names;
  std::vector<int> at;
  std::vector<bool> numeric;

  TableRows(Backend& backend, const SchemaTable& table) : result(backend.Query(SelectAll(table))) {
    names = ColumnsOf(table);
    for (const std::string& name : names) at.push_back(result.layout->Lookup(name));
    numeric.assign(names.size(), true);
    for (std::size_t i = 0; i < table.columns.size(); ++i)
      numeric[names.size() - table.columns.size() + i] = IsNumberType(table.columns[i].type);
    if (table.keyed) numeric[1] = false;  // ID
  }
  std::size_t Rows() const { return result.layout->Size() ? result.cells.size() / result.layout->Size() : 0; }
  const Variant& Cell(std::size_t row, std::size_t i) const {
    static const Variant null = Variant::NullValue();
    return at[i] < 0 ? null : result.cells[row * result.layout->Size() + at[i]];
  }
  std::string Canonical(std::size_t row, std::size_t i) const { return Checksum::Canonical(Cell(row, i), numeric[i]); }
};

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

TableCopy Sum(Backend& backend, const SchemaTable& table) {
  TableRows rows(backend, table);
  TableCopy sum{table.name, static_cast<long>(rows.Rows()), 0};
  Checksum checksum;
  for (std::size_t row = 0; row < rows.Rows(); ++row)
    for (std::size_t i = 0; i < rows.names.size(); ++i) checksum.Add(rows.Canonical(row, i));
  sum.checksum = checksum.hash;
  return sum;
}

void CopyTable(Backend& from, Backend& to, const SchemaTable& table, const CopyOptions& options) {
  const TableRows rows(from, table);
  const long total = static_cast<long>(rows.Rows());
  if (options.progress) options.progress(table.name, 0, total);
  std::vector<Variant> batch;
  for (long row = 0; row < total;) {
    long end = std::min(total, row + kProgressStep);
    batch.clear();
    for (; row < end; ++row)
      for (std::size_t i = 0; i < rows.names.size(); ++i) batch.push_back(rows.Cell(static_cast<std::size_t>(row), i));
    to.InsertRows(table.name, rows.names, batch);
    if (options.progress) options.progress(table.name, row, total);
  }
  // The autonumber goes on after the rows that came with their Nr.
  if (table.keyed && to.Dialect() == detail::SqlDialect::Postgres && total > 0)
    to.ExecuteNative("SELECT setval(pg_get_serial_sequence('\"" + table.name +
                     "\"', 'Nr'), (SELECT max(\"Nr\") FROM \"" + table.name + "\"))");
}

}  // namespace

std::vector<TableCopy> StoreChecksums(const StoreConnectionPtr& store, StoreKind kind) {
  std::shared_ptr<Backend> backend = detail::BackendOf(store->Session());
  std::vector<TableCopy> sums;
  for (const SchemaTable& table : SchemaTables(kind)) sums.push_back(Sum(*backend, table));
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
      for (auto table = tables.rbegin(); table != tables.rend(); ++table)
        to->ExecuteNative("DELETE FROM \"" + table->name + "\"");
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
