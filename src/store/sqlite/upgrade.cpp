#include "upgrade.h"

#include <sqlite3.h>

#include <cctype>
#include <set>
#include <vector>

#include "../sql_dialect.h"
#include "handles.h"
#include "ormelix/error.h"
#include "ormelix/store/schema.h"
#include "ormelix/store/sqlite_text.h"
#include "ormelix/store/text_order.h"
#include "ormelix/text.h"

namespace ormelix::detail::sqlite {

namespace {

struct Statement {
  StatementHandle handle;

  Statement(sqlite3* db, const std::string& sql) {
    sqlite3_stmt* raw = nullptr;
    int rc = sqlite3_prepare_v2(db, sql.c_str(), -1, &raw, nullptr);
    handle = StatementHandle(raw);
    if (rc != SQLITE_OK) throw StoreError("cannot bring the store up to date", sql, sqlite3_errmsg(db), rc);
  }
  bool Step() { return sqlite3_step(handle.get()) == SQLITE_ROW; }
  std::string Text(int column) {
    const unsigned char* text = sqlite3_column_text(handle.get(), column);
    return text ? reinterpret_cast<const char*>(text) : "";
  }
};

void Run(sqlite3* db, const std::string& sql) {
  char* error = nullptr;
  int rc = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &error);
  if (rc != SQLITE_OK) {
    std::string message = error ? error : sqlite3_errstr(rc);
    sqlite3_free(error);
    throw StoreError("cannot bring the store up to date", sql, message, rc);
  }
}

int UserVersion(sqlite3* db) {
  Statement version(db, "PRAGMA user_version");
  return version.Step() ? sqlite3_column_int(version.handle.get(), 0) : 0;
}

// The tables the library's schema declares; other tables of a file stay as they are.
bool IsSchemaTable(const std::string& name) {
  for (StoreKind kind : {StoreKind::Payroll, StoreKind::Reference})
    for (const SchemaTable& table : SchemaTables(kind))
      if (table.name == name) return true;
  return false;
}

// Text affinity by SQLite's rules (INT first), or no declared type at all.
bool TakesTextOrder(const std::string& declared_type) {
  std::string upper = UpperCase(declared_type);
  auto has = [&](const char* part) { return upper.find(part) != std::string::npos; };
  if (upper.empty()) return true;
  return !has("INT") && (has("CHAR") || has("CLOB") || has("TEXT"));
}

// The parts of a CREATE TABLE between its outer parentheses, split at the commas
// that stand outside quotes and inner parentheses: column definitions and table
// constraints. Each part keeps its offsets in the text.
struct Part {
  std::size_t begin, end;
};

std::vector<Part> SplitDefinitions(const std::string& sql, std::size_t open, std::size_t close) {
  std::vector<Part> parts;
  std::size_t start = open + 1;
  int depth = 0;
  char quote = 0;
  for (std::size_t i = open + 1; i < close; ++i) {
    char c = sql[i];
    if (quote) {
      if (c == quote) quote = 0;
    } else if (c == '"' || c == '\'' || c == '`') {
      quote = c;
    } else if (c == '[') {
      quote = ']';
    } else if (c == '(') {
      ++depth;
    } else if (c == ')') {
      --depth;
    } else if (c == ',' && depth == 0) {
      parts.push_back({start, i});
      start = i + 1;
    }
  }
  parts.push_back({start, close});
  return parts;
}

// The column a definition names ("" for a table constraint).
std::string DefinedColumn(std::string_view part) {
  part = TrimBlanks(part);
  while (!part.empty() && (part.front() == '\n' || part.front() == '\r')) part = TrimBlanks(part.substr(1));
  if (part.empty()) return "";
  char first = part.front();
  char closing = first == '"' ? '"' : first == '[' ? ']' : first == '`' ? '`' : 0;
  if (closing) {
    std::size_t end = part.find(closing, 1);
    return end == std::string_view::npos ? "" : std::string(part.substr(1, end - 1));
  }
  std::size_t end = 0;
  while (end < part.size() && (std::isalnum(static_cast<unsigned char>(part[end])) || part[end] == '_' ||
                               static_cast<unsigned char>(part[end]) >= 0x80))
    ++end;
  std::string word(part.substr(0, end));
  static const std::set<std::string> kConstraints = {"CONSTRAINT", "PRIMARY", "UNIQUE", "CHECK", "FOREIGN"};
  return kConstraints.count(UpperCase(word)) ? "" : word;
}

bool DeclaresCollation(std::string_view part) { return UpperCase(part).find("COLLATE") != std::string::npos; }

// A text as an SQL literal (names of tables, which hold no quote in this schema).
std::string TextLiteral(const std::string& text) {
  std::string out = "'";
  for (char c : text) out += c == '\'' ? std::string("''") : std::string(1, c);
  return out + "'";
}

struct Rebuild {
  std::string table;
  std::string create_sql;            // with the text order
  std::vector<std::string> indexes;  // CREATE INDEX texts, made again after the rebuild
};

bool HasAutonumbers(sqlite3* db) {
  Statement found(db, "SELECT 1 FROM sqlite_master WHERE name='sqlite_sequence'");
  return found.Step();
}

// SQLite's way to change a column's declaration: a new table, the rows copied,
// the old one dropped and the new one renamed, its indexes made again. The
// autonumber goes on where it stood, also past rows deleted at the end.
void RebuildTable(sqlite3* db, const Rebuild& rebuild) {
  const std::string name = QuoteIdentifier(rebuild.table);
  const std::string temp = QuoteIdentifier("ormelix_upgrade_" + rebuild.table);
  std::string sequence;
  if (HasAutonumbers(db)) {
    Statement seq(db, "SELECT seq FROM sqlite_sequence WHERE name=" + TextLiteral(rebuild.table));
    if (seq.Step()) sequence = seq.Text(0);
  }
  Run(db, "CREATE TABLE " + temp + " " + rebuild.create_sql.substr(rebuild.create_sql.find('(')));
  Run(db, "INSERT INTO " + temp + " SELECT * FROM " + name);
  Run(db, "DROP TABLE " + name);
  Run(db, "ALTER TABLE " + temp + " RENAME TO " + name);
  for (const std::string& index : rebuild.indexes) Run(db, index);
  if (sequence.empty()) return;
  const std::string literal = TextLiteral(rebuild.table);
  Run(db, "UPDATE sqlite_sequence SET seq=max(seq," + sequence + ") WHERE name=" + literal);
  Run(db, "INSERT INTO sqlite_sequence (name, seq) SELECT " + literal + "," + sequence +
              " WHERE NOT EXISTS (SELECT 1 FROM sqlite_sequence WHERE name=" + literal + ")");
}

}  // namespace

std::string WithTextOrder(sqlite3* db, const std::string& table, const std::string& create_sql) {
  std::size_t open = create_sql.find('(');
  std::size_t close = create_sql.rfind(')');
  if (open == std::string::npos || close == std::string::npos || close < open) return create_sql;
  std::vector<std::pair<std::string, bool>> columns;  // name, takes the order
  Statement info(db, "PRAGMA table_info(" + QuoteIdentifier(table) + ")");
  while (info.Step()) columns.emplace_back(info.Text(1), TakesTextOrder(info.Text(2)));
  auto takes_order = [&](const std::string& name) {
    for (const auto& [column, text] : columns)
      if (EqualsFolded(column, name)) return text;
    return false;
  };
  std::string out = create_sql.substr(0, open + 1);
  std::vector<Part> parts = SplitDefinitions(create_sql, open, close);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    std::string definition = create_sql.substr(parts[i].begin, parts[i].end - parts[i].begin);
    std::string column = DefinedColumn(definition);
    std::size_t last = definition.find_last_not_of(" \t\r\n");
    if (!column.empty() && takes_order(column) && !DeclaresCollation(definition) && last != std::string::npos)
      definition.insert(last + 1, std::string(" COLLATE ") + kTextCollation);
    out += (i ? "," : "") + definition;
  }
  out += create_sql.substr(close);
  return out;
}

bool NeedsUpgrade(sqlite3* db) {
  if (UserVersion(db) >= kTextOrderVersion) return false;
  Statement tables(db, "SELECT name, sql FROM sqlite_master WHERE type='table'");
  while (tables.Step()) {
    std::string name = tables.Text(0), sql = tables.Text(1);
    if (IsSchemaTable(name) && WithTextOrder(db, name, sql) != sql) return true;
  }
  return false;
}

bool UpgradeStore(sqlite3* db, const std::string& path) {
  std::vector<Rebuild> rebuilds;
  bool ours = false;
  {
    Statement tables(db, "SELECT name, sql FROM sqlite_master WHERE type='table'");
    while (tables.Step()) {
      std::string name = tables.Text(0), sql = tables.Text(1);
      if (!IsSchemaTable(name)) continue;
      ours = true;
      std::string upgraded = WithTextOrder(db, name, sql);
      if (upgraded != sql) rebuilds.push_back({name, upgraded, {}});
    }
  }
  if (!ours) return false;  // no store of this library: nothing is written
  for (Rebuild& rebuild : rebuilds) {
    Statement indexes(db, "SELECT sql FROM sqlite_master WHERE type='index' AND sql IS NOT NULL AND tbl_name=" +
                              TextLiteral(rebuild.table));
    while (indexes.Step()) rebuild.indexes.push_back(indexes.Text(0));
  }
  // Dropping a table that others refer to would delete their rows with it.
  Run(db, "PRAGMA foreign_keys=OFF");
  try {
    Run(db, "BEGIN IMMEDIATE");
    for (const Rebuild& rebuild : rebuilds) RebuildTable(db, rebuild);
    Run(db, "PRAGMA user_version=" + std::to_string(kTextOrderVersion));
    Run(db, "COMMIT");
  } catch (const StoreError& e) {
    sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_exec(db, "PRAGMA foreign_keys=ON", nullptr, nullptr, nullptr);
    throw StoreError("cannot bring the store up to date (text columns without regard to case); it is unchanged",
                     path, e.Subject() + ": " + e.BackendMessage(), e.Code());
  }
  Run(db, "PRAGMA foreign_keys=ON");
  return !rebuilds.empty();
}

namespace {

// The unique indexes of the schema that the file's tables lack, by table and
// position; whether the file holds tables of the schema at all.
std::vector<std::pair<const SchemaTable*, std::size_t>> MissingUniqueKeys(sqlite3* db, bool& ours) {
  std::vector<std::pair<const SchemaTable*, std::size_t>> missing;
  for (StoreKind kind : {StoreKind::Payroll, StoreKind::Reference}) {
    for (const SchemaTable& table : SchemaTables(kind)) {
      Statement exists(db, "SELECT 1 FROM sqlite_master WHERE type='table' AND name=" + TextLiteral(table.name));
      if (!exists.Step()) continue;
      ours = true;
      for (std::size_t i = 0; i < table.indexes.size(); ++i) {
        if (!table.indexes[i].unique) continue;
        Statement index(db, "SELECT sql FROM sqlite_master WHERE type='index' AND name=" +
                                TextLiteral(SchemaIndexName(table, i + 1)));
        if (!index.Step() || UpperCase(index.Text(0)).rfind("CREATE UNIQUE", 0) != 0) missing.emplace_back(&table, i + 1);
      }
    }
  }
  return missing;
}

}  // namespace

bool AddUniqueKeys(sqlite3* db) {
  bool ours = false, complete = true;
  Run(db, "BEGIN IMMEDIATE");
  try {
    for (const auto& [table, position] : MissingUniqueKeys(db, ours)) {
      // Two rows of one key make the unique index fail: the plain one stays.
      Run(db, "SAVEPOINT ormelix_unique");
      std::string sql = "DROP INDEX IF EXISTS " + QuoteIdentifier(SchemaIndexName(*table, position)) + "; " +
                        SchemaIndexDdl(*table, position);
      if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        complete = false;
        Run(db, "ROLLBACK TO ormelix_unique");
      }
      Run(db, "RELEASE ormelix_unique");
    }
    if (ours && complete) Run(db, "PRAGMA user_version=" + std::to_string(kStoreVersion));
    Run(db, "COMMIT");
  } catch (...) {
    sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
    throw;
  }
  return ours && complete;
}

DatabaseHandle OpenUpToDate(DatabaseHandle db, bool read_only, const std::string& path) {
  int version = UserVersion(db.get());
  if (version >= kStoreVersion) return db;
  if (!read_only) {
    // The rebuilt tables leave the old pages free: the file is made compact again.
    if (version < kTextOrderVersion && UpgradeStore(db.get(), path)) Run(db.get(), "VACUUM");
    try {
      AddUniqueKeys(db.get());
    } catch (const StoreError& e) {
      // Another program holds the store, or the file may not be written: the
      // keys wait for the next open that can add them.
      int primary = e.Code() & 0xff;
      if (primary != SQLITE_BUSY && primary != SQLITE_LOCKED && primary != SQLITE_READONLY) throw;
    }
    return db;
  }
  if (!NeedsUpgrade(db.get())) return db;
  // A store opened read-only is not written: it is read into memory and brought
  // up to date there, and that copy serves the connection, read-only as well.
  sqlite3* raw = nullptr;
  int rc = sqlite3_open_v2(":memory:", &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  DatabaseHandle memory(raw);
  if (rc != SQLITE_OK) throw StoreError("cannot open store", path, sqlite3_errstr(rc), rc);
  sqlite3_backup* backup = sqlite3_backup_init(memory.get(), "main", db.get(), "main");
  if (!backup) throw StoreError("cannot open store", path, sqlite3_errmsg(memory.get()));
  sqlite3_backup_step(backup, -1);
  rc = sqlite3_backup_finish(backup);
  if (rc != SQLITE_OK) throw StoreError("cannot open store", path, sqlite3_errmsg(memory.get()), rc);
  RegisterSqliteText(memory.get());
  Run(memory.get(), "PRAGMA foreign_keys=ON");
  UpgradeStore(memory.get(), path);
  Run(memory.get(), "PRAGMA query_only=ON");
  return memory;
}

}  // namespace ormelix::detail::sqlite
