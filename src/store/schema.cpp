#include "ormelix/store/schema.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <sstream>
#include <unordered_map>
#include <unordered_set>

#include "backend.h"
#include "ormelix/error.h"
#include "ormelix/store/text_order.h"
#include "ormelix/text.h"

namespace ormelix {

namespace detail {
extern const char* const kPayrollTables;
extern const char* const kReferenceTables;
}  // namespace detail

namespace {

std::vector<std::string> Words(const std::string& line) {
  std::vector<std::string> words;
  std::istringstream in(line);
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

std::vector<SchemaTable> ParseTables(const char* source, const char* file) {
  std::vector<SchemaTable> tables;
  std::istringstream in(source);
  int number = 0;
  auto fail = [&](const std::string& why) {
    throw Error(std::string("schema ") + file + " line " + std::to_string(number) + ": " + why);
  };
  for (std::string line; std::getline(in, line);) {
    ++number;
    if (auto hash = line.find('#'); hash != std::string::npos) line.erase(hash);
    std::vector<std::string> words = Words(line);
    if (words.empty()) continue;
    if (words[0] == "table") {
      if (words.size() < 2) fail("table without a name");
      SchemaTable table;
      table.name = words[1];
      table.keyed = !(words.size() > 2 && words[2] == "nokey");
      tables.push_back(std::move(table));
    } else if (words[0] == "index" || words[0] == "unique") {
      std::string rest = line.substr(line.find(words[0]) + words[0].size());
      std::size_t open = rest.find('('), close = rest.find(')');
      if (open == std::string::npos || close == std::string::npos) fail("index needs (columns)");
      std::string name(TrimBlanks(rest.substr(0, open)));
      auto table = std::find_if(tables.begin(), tables.end(), [&](const SchemaTable& t) { return t.name == name; });
      if (table == tables.end()) fail("index of an unknown table " + name);
      SchemaIndex index;
      index.unique = words[0] == "unique";
      std::istringstream list(rest.substr(open + 1, close - open - 1));
      for (std::string column; std::getline(list, column, ',');) index.columns.emplace_back(TrimBlanks(column));
      table->indexes.push_back(std::move(index));
    } else {
      if (tables.empty()) fail("column outside a table");
      if (words.size() < 2) fail("column without a type");
      SchemaColumn column;
      column.name = words[0];
      column.type = words[1];
      static const char* const kTypes[] = {"text", "bool", "int16", "int32", "double", "date", "any"};
      if (std::find(std::begin(kTypes), std::end(kTypes), column.type) == std::end(kTypes))
        fail("unknown type " + column.type);
      bool numeric = column.type == "bool" || column.type == "int16" || column.type == "int32" ||
                     column.type == "double";
      if (numeric) column.default_value = "0";
      for (std::size_t i = 2; i < words.size(); ++i) {
        if (words[i] == "null") {
          column.default_value.clear();
        } else if (words[i] == "default" && i + 1 < words.size()) {
          column.default_value = words[++i];
        } else if (words[i] == "primary") {
          column.primary = true;
          column.default_value.clear();
        } else if (words[i] == "->" && i + 1 < words.size()) {
          column.references = words[++i];
          column.default_value.clear();
        } else if (words[i] == "cascade") {
          column.cascade = true;
        } else {
          fail("unknown word " + words[i]);
        }
      }
      tables.back().columns.push_back(std::move(column));
    }
  }
  return tables;
}

std::string ColumnType(const std::string& type, bool postgres) {
  static const std::map<std::string, std::pair<const char*, const char*>> kTypes = {
      {"text", {"TEXT", "TEXT"}},         {"bool", {"BOOLEAN", "SMALLINT"}},
      {"int16", {"SMALLINT", "SMALLINT"}}, {"int32", {"INTEGER", "INTEGER"}},
      {"double", {"DOUBLE", "DOUBLE PRECISION"}}, {"date", {"DATE", "DOUBLE PRECISION"}},
      {"any", {"", "TEXT"}}};
  auto found = kTypes.find(type);
  return postgres ? found->second.second : found->second.first;
}

std::string Quote(const std::string& name) { return detail::QuoteIdentifier(name); }

// Text columns (and columns of any type, which hold text too) compare in the
// store's text order: without regard to case, umlauts included. SQLite knows the
// order from each connection (RegisterSqliteText); PostgreSQL has it as an ICU
// collation that the DDL creates first: level 2 ignores case and keeps accents,
// and a nondeterministic collation makes '=' follow it too.
bool TakesTextOrder(const std::string& type) { return type == "text" || type == "any"; }

std::string TextOrderClause() { return std::string(" COLLATE ") + kTextCollation; }

std::string PostgresTextOrder() {
  return std::string("CREATE COLLATION IF NOT EXISTS ") + kTextCollation +
         " (provider = icu, locale = 'und-u-ks-level2', deterministic = false);\n\n";
}

const char* kSqliteGuid =
    "('{' || hex(randomblob(4)) || '-' || hex(randomblob(2)) || '-' || hex(randomblob(2)) || '-' || "
    "hex(randomblob(2)) || '-' || hex(randomblob(6)) || '}')";
const char* kPostgresGuid = "('{' || upper(gen_random_uuid()::text) || '}')";

}  // namespace

std::string SchemaIndexName(const SchemaTable& table, std::size_t position) {
  return "ix_" + table.name + "_" + std::to_string(position);
}

std::string SchemaIndexDdl(const SchemaTable& table, std::size_t position) {
  const SchemaIndex& index = table.indexes.at(position - 1);
  std::string columns;
  for (const std::string& column : index.columns) columns += (columns.empty() ? "" : ", ") + Quote(column);
  return std::string(index.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
         Quote(SchemaIndexName(table, position)) + " ON " + Quote(table.name) + " (" + columns + ")";
}

const std::vector<SchemaTable>& SchemaTables(StoreKind kind) {
  static const std::vector<SchemaTable> payroll = ParseTables(detail::kPayrollTables, "payroll.tables");
  static const std::vector<SchemaTable> reference = ParseTables(detail::kReferenceTables, "reference.tables");
  return kind == StoreKind::Payroll ? payroll : reference;
}

std::string SchemaDdl(StoreKind kind, std::string_view dialect) {
  std::string folded = FoldCase(dialect);
  bool postgres = folded == "postgresql" || folded == "postgres";
  if (!postgres && folded != "sqlite") throw Error("no DDL for the dialect '" + std::string(dialect) + "'");
  std::string ddl = postgres ? PostgresTextOrder() : "";
  for (const SchemaTable& table : SchemaTables(kind)) {
    std::vector<std::string> lines;
    if (table.keyed) {
      lines.push_back(postgres ? "  \"Nr\" BIGINT GENERATED BY DEFAULT AS IDENTITY PRIMARY KEY"
                               : "  \"Nr\" INTEGER PRIMARY KEY AUTOINCREMENT");
      lines.push_back(std::string("  \"ID\" TEXT") + TextOrderClause() + " NOT NULL UNIQUE DEFAULT " +
                      (postgres ? kPostgresGuid : kSqliteGuid));
    }
    for (const SchemaColumn& column : table.columns) {
      std::string line = "  " + Quote(column.name);
      std::string type = ColumnType(column.type, postgres);
      if (!type.empty()) line += " " + type;
      if (TakesTextOrder(column.type)) line += TextOrderClause();
      if (column.primary) line += " PRIMARY KEY";
      if (!column.default_value.empty()) line += " DEFAULT " + column.default_value;
      if (!column.references.empty()) {
        line += " REFERENCES " + Quote(column.references) + " (\"ID\")";
        if (column.cascade) line += " ON DELETE CASCADE";
      }
      lines.push_back(line);
    }
    ddl += "CREATE TABLE " + Quote(table.name) + " (\n";
    for (std::size_t i = 0; i < lines.size(); ++i) ddl += lines[i] + (i + 1 < lines.size() ? ",\n" : "\n");
    ddl += ");\n";
    for (std::size_t i = 0; i < table.indexes.size(); ++i) ddl += SchemaIndexDdl(table, i + 1) + ";\n";
    ddl += "\n";
  }
  return ddl;
}

namespace detail {

std::string_view CanonicalIdentifier(std::string_view name) {
  static const std::unordered_map<std::string, std::string> names = [] {
    std::unordered_map<std::string, std::string> map;
    for (StoreKind kind : {StoreKind::Payroll, StoreKind::Reference}) {
      for (const SchemaTable& table : SchemaTables(kind)) {
        map.emplace(FoldCase(table.name), table.name);
        for (const SchemaColumn& column : table.columns) map.emplace(FoldCase(column.name), column.name);
      }
    }
    map.emplace("id", "ID");
    map.emplace("nr", "Nr");
    return map;
  }();
  auto found = names.find(FoldCase(name));
  return found == names.end() ? name : std::string_view(found->second);
}

bool IsKeyedTable(std::string_view table) {
  static const std::unordered_map<std::string, bool> tables = [] {
    std::unordered_map<std::string, bool> map;
    for (StoreKind kind : {StoreKind::Payroll, StoreKind::Reference})
      for (const SchemaTable& schema_table : SchemaTables(kind)) map.emplace(FoldCase(schema_table.name), schema_table.keyed);
    return map;
  }();
  auto found = tables.find(FoldCase(table));
  return found != tables.end() && found->second;
}

namespace {

// "table.column" (folded) of every column of either store's schema that passes keep.
using ColumnNames = std::unordered_set<std::string>;
ColumnNames SchemaColumnsWhere(const std::function<bool(const SchemaTable&, const SchemaColumn&)>& keep) {
  ColumnNames names;
  for (StoreKind kind : {StoreKind::Payroll, StoreKind::Reference})
    for (const SchemaTable& schema_table : SchemaTables(kind))
      for (const SchemaColumn& schema_column : schema_table.columns)
        if (keep(schema_table, schema_column))
          names.insert(FoldCase(schema_table.name) + "." + FoldCase(schema_column.name));
  return names;
}

bool Holds(const ColumnNames& names, std::string_view table, std::string_view column) {
  return !table.empty() && names.count(FoldCase(table) + "." + FoldCase(column)) > 0;
}

}  // namespace

bool IsNumberColumn(std::string_view table, std::string_view column) {
  static const ColumnNames columns = [] {
    ColumnNames names = SchemaColumnsWhere([](const SchemaTable&, const SchemaColumn& schema_column) {
      return schema_column.type != "text" && schema_column.type != "any";
    });
    for (StoreKind kind : {StoreKind::Payroll, StoreKind::Reference})
      for (const SchemaTable& schema_table : SchemaTables(kind))
        if (schema_table.keyed) names.insert(FoldCase(schema_table.name) + ".nr");
    return names;
  }();
  return Holds(columns, table, column);
}

bool IsUntypedColumn(std::string_view table, std::string_view column) {
  static const ColumnNames columns = SchemaColumnsWhere(
      [](const SchemaTable&, const SchemaColumn& schema_column) { return schema_column.type == "any"; });
  return Holds(columns, table, column);
}

}  // namespace detail

StoreConnectionPtr CreateStore(const std::string& path, StoreKind kind, const std::string& connect) {
  std::shared_ptr<detail::Backend> backend = detail::MakeBackend(connect, path);
  backend->Open(path, connect, /*create=*/true);
  if (backend->Dialect() == detail::SqlDialect::Postgres) {
    try {
      backend->ExecuteNative("BEGIN;\n" + SchemaDdl(kind, "postgresql") + "COMMIT;");
    } catch (...) {
      backend->Close();
      throw;
    }
    return std::make_shared<StoreConnection>(std::make_shared<StoreSession>(std::move(backend)));
  }
  try {
    backend->ExecuteNative("BEGIN;\n" + SchemaDdl(kind, "sqlite") + "PRAGMA user_version=" +
                           std::to_string(detail::kSqliteStoreVersion) + ";\nCOMMIT;");
  } catch (...) {
    backend->Close();
    if (path != ":memory:") std::filesystem::remove(path);
    throw;
  }
  return std::make_shared<StoreConnection>(std::make_shared<StoreSession>(std::move(backend)));
}

}  // namespace ormelix
