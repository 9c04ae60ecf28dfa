#include "table_walk.h"

#include <algorithm>
#include <unordered_map>

#include "ormelix/text.h"

namespace ormelix::detail {

namespace {

constexpr long kStep = 2000;

bool IsNumberType(const std::string& type) { return type != "text" && type != "any"; }

std::string SelectAll(const SchemaTable& table) {
  std::string sql = "SELECT * FROM [" + table.name + "]";
  if (table.keyed) return sql + " ORDER BY [Nr] ASC";
  for (const SchemaColumn& column : table.columns)
    if (column.primary) return sql + " ORDER BY [" + column.name + "] ASC";
  return sql;
}

}  // namespace

std::vector<std::string> WalkedColumns(const SchemaTable& table) {
  std::vector<std::string> columns;
  if (table.keyed) columns = {"Nr", "ID"};
  for (const SchemaColumn& column : table.columns) columns.push_back(column.name);
  return columns;
}

SchemaColumn WalkedColumn(const SchemaTable& table, std::string_view name) {
  if (table.keyed && EqualsFolded(name, "Nr")) return SchemaColumn{"Nr", "int32", "", "", false, true};
  if (table.keyed && EqualsFolded(name, "ID")) return SchemaColumn{"ID", "text", "", "", false, true};
  for (const SchemaColumn& column : table.columns)
    if (EqualsFolded(column.name, name)) return column;
  return SchemaColumn{};
}

void Checksum::Add(std::string_view bytes) {
  for (unsigned char c : bytes) {
    hash ^= c;
    hash *= 1099511628211ULL;
  }
  hash ^= 0xFF;
  hash *= 1099511628211ULL;
}

std::string Checksum::Canonical(const Variant& value, bool number_column) {
  double number = 0;
  if (value.IsMissing()) return "\x01N";
  if (value.kind() == Variant::Text) return value.AsText();
  value.TryNumber(number);
  if (number_column) return FormatNumber(number);
  return value.kind() == Variant::Double ? DoubleAsStoredText(number) : std::to_string(static_cast<long long>(number));
}

TableRows::TableRows(Backend& backend, const SchemaTable& schema_table)
    : table(schema_table), result(backend.Query(SelectAll(schema_table))) {
  names = WalkedColumns(table);
  for (const std::string& name : names) at.push_back(result.layout->Lookup(name));
  numeric.assign(names.size(), true);
  for (std::size_t i = 0; i < table.columns.size(); ++i)
    numeric[names.size() - table.columns.size() + i] = IsNumberType(table.columns[i].type);
  if (table.keyed) numeric[1] = false;  // ID
}

const Variant& TableRows::Cell(std::size_t row, std::size_t i) const {
  static const Variant null = Variant::NullValue();
  return at[i] < 0 ? null : result.cells[row * result.layout->Size() + at[i]];
}

TableCopy TableRows::Sum() const {
  TableCopy sum{table.name, static_cast<long>(Rows()), 0};
  Checksum checksum;
  for (std::size_t row = 0; row < Rows(); ++row)
    for (std::size_t i = 0; i < names.size(); ++i) checksum.Add(Canonical(row, i));
  sum.checksum = checksum.hash;
  return sum;
}

std::string TableRows::RowName(std::size_t row) const {
  if (table.keyed) return "Nr " + Cell(row, 0).Describe() + " (ID " + Cell(row, 1).Describe() + ")";
  for (std::size_t i = 0; i < table.columns.size(); ++i)
    if (table.columns[i].primary) return table.columns[i].name + " " + Cell(row, i).Describe();
  return "row " + std::to_string(row + 1);
}

void InsertTableRows(Backend& to, const SchemaTable& table, const std::vector<std::string>& columns,
                     std::size_t rows, const RowCells& row_cells, const CopyOptions& options) {
  const long total = static_cast<long>(rows);
  if (options.progress) options.progress(table.name, 0, total);
  std::vector<Variant> batch;
  for (long row = 0; row < total;) {
    long end = std::min(total, row + kStep);
    batch.clear();
    for (; row < end; ++row) row_cells(static_cast<std::size_t>(row), batch);
    to.InsertRows(table.name, columns, batch);
    if (options.progress) options.progress(table.name, row, total);
  }
  // The autonumber goes on after the rows that came with their Nr (SQLite's
  // AUTOINCREMENT does so by itself).
  bool with_nr = std::find(columns.begin(), columns.end(), kRowKeyColumn) != columns.end();
  if (table.keyed && with_nr && to.Dialect() == SqlDialect::Postgres && total > 0)
    to.ExecuteNative("SELECT setval(pg_get_serial_sequence('\"" + table.name + "\"', 'Nr'), (SELECT max(\"Nr\") FROM \"" +
                     table.name + "\"))");
}

std::vector<std::vector<std::string>> OneRowKeys(const SchemaTable& table) {
  std::vector<std::vector<std::string>> keys;
  if (table.keyed) keys = {{"ID"}, {"Nr"}};
  for (const SchemaColumn& column : table.columns)
    if (column.primary) keys.push_back({column.name});
  for (const SchemaIndex& index : table.indexes)
    if (index.unique) keys.push_back(index.columns);
  return keys;
}

std::string KeyText(const Variant& value) {
  if (value.IsText()) return FoldCase(value.AsText());
  double number = 0;
  value.TryNumber(number);
  return FormatNumber(number);
}

std::vector<RepeatedKey> RepeatedKeys(std::size_t rows, const std::vector<std::size_t>& key, const CellAt& cell) {
  std::vector<RepeatedKey> repeated;
  std::unordered_map<std::string, std::size_t> seen;
  for (std::size_t row = 0; row < rows; ++row) {
    std::string text;
    bool null = false;
    for (std::size_t column : key) {
      const Variant& value = cell(row, column);
      null = null || value.IsMissing();
      text += KeyText(value) + '\x1f';
    }
    if (null) continue;
    auto [first, inserted] = seen.emplace(std::move(text), row);
    if (!inserted) repeated.push_back({row, first->second});
  }
  return repeated;
}

void EmptyTables(Backend& backend, const std::vector<const SchemaTable*>& tables) {
  for (auto table = tables.rbegin(); table != tables.rend(); ++table)
    backend.ExecuteNative("DELETE FROM \"" + (*table)->name + "\"");
}

}  // namespace ormelix::detail
