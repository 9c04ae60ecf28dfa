// The SQLite backend: one connection, prepared statements cached by their text,
// booleans stored as -1/0, the text order and LCASE/UCASE registered on every
// connection (text columns declare the order; LCASE and UCASE fold umlauts).
#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <list>
#include <unordered_map>
#include <utility>

#include "../backend.h"
#include "../private_file.h"
#include "handles.h"
#include "maintenance.h"
#include "ormelix/store/sqlite_text.h"
#include "upgrade.h"
#include "ormelix/error.h"
#include "ormelix/text.h"

namespace ormelix::detail {

namespace {

using sqlite::DatabaseHandle;
using sqlite::StatementHandle;

constexpr std::size_t kStatementCacheLimit = 256;

Affinity AffinityOf(const char* declared) {
  // SQLite's own rules: INT -> integer; CHAR, CLOB, TEXT -> text; BLOB or none -> as
  // given; REAL, FLOA, DOUB -> real; anything else (DATE, BOOLEAN) is NUMERIC, which
  // keeps whole numbers whole, as integer affinity does.
  if (!declared || !*declared) return Affinity::Any;
  std::string upper = UpperCase(declared);
  auto has = [&](const char* part) { return upper.find(part) != std::string::npos; };
  if (has("INT")) return Affinity::Integer;
  if (has("CHAR") || has("CLOB") || has("TEXT")) return Affinity::Text;
  if (has("BLOB")) return Affinity::Any;
  if (has("REAL") || has("FLOA") || has("DOUB")) return Affinity::Real;
  return Affinity::Integer;
}

// Opens a connection; StoreError naming the file when SQLite cannot.
DatabaseHandle OpenConnection(const std::string& target, int flags, const ConnectOptions& options) {
  sqlite3* raw = nullptr;
  int rc = sqlite3_open_v2(target.c_str(), &raw, flags, nullptr);
  DatabaseHandle db(raw);
  if (rc != SQLITE_OK)
    throw StoreError("cannot open store", target, raw ? sqlite3_errmsg(raw) : sqlite3_errstr(rc), rc);
  // The wait for another program's lock covers the very first read too.
  sqlite3_busy_timeout(db.get(), options.busy_timeout_ms);
  sqlite3_extended_result_codes(db.get(), 1);
  return db;
}

int Setup(sqlite3* db, const std::string& setup, std::string& message) {
  char* error = nullptr;
  int rc = sqlite3_exec(db, setup.c_str(), nullptr, nullptr, &error);
  if (rc != SQLITE_OK) message = error ? error : sqlite3_errstr(rc);
  sqlite3_free(error);
  return rc;
}

// SQLite could not make or open the side files of a store with a write-ahead log.
bool NeedsSideFiles(int code) {
  int primary = code & 0xff;
  return primary == SQLITE_READONLY || primary == SQLITE_CANTOPEN;
}

void RequireNoPendingLog(const std::string& path) {
  std::error_code error;
  auto size = std::filesystem::file_size(path + "-wal", error);
  if (error || size == 0) return;
  throw StoreError("cannot read the store where it lies", path,
                   "its log " + path + "-wal holds changes not yet written into the store, and no side files can be "
                   "made here to read them; open the store once where it may be written (or copy its folder there)");
}

// The store read as it stands, with no locks and no side files.
std::string ImmutableUri(const std::string& path) {
  std::string uri = "file:";
  for (char c : path) {
    if (c == '%' || c == '?' || c == '#') {
      char escaped[4];
      std::snprintf(escaped, sizeof escaped, "%%%02X", static_cast<unsigned char>(c));
      uri += escaped;
    } else {
      uri += c;
    }
  }
  return uri + "?immutable=1";
}

bool IsLocked(int code) {
  int primary = code & 0xff;
  return primary == SQLITE_BUSY || primary == SQLITE_LOCKED;
}

// Another program held the store longer than this connection waits: that is
// what the user needs to hear, with the file and what was being done.
StoreError LockedError(const std::string& path, int timeout_ms, const std::string& message, std::string_view doing,
                       int code) {
  return StoreError("the store is locked by another program", path,
                    "it stayed locked longer than " + std::to_string(timeout_ms) + " ms (" + message +
                        "); try again when the other program has finished; while " + ShortenForMessage(doing),
                    code);
}

class SqliteBackend final : public Backend {
 public:
  SqliteBackend() : Backend(SqlDialect::Sqlite) {}
  ~SqliteBackend() override { Close(); }

  void Open(const std::string& path, const std::string& connect, bool create) override {
    Close();
    ConnectOptions options = ParseConnect(connect, path);
    bool memory = path == ":memory:";
    std::string shown = memory ? path : std::filesystem::absolute(path).string();
    // A new store is made private (0600) before SQLite writes a byte into it; its
    // side files take that mode from it.
    if (create && !memory) CreatePrivateFile(path);
    if (!create && !memory && !std::filesystem::is_regular_file(path))
      throw StoreError("cannot open store", path, "no such file");
    // A connection serves one thread (the host's), so SQLite's own locking of it
    // would only cost time.
    int flags = (options.read_only && !create ? SQLITE_OPEN_READONLY
                                              : SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0)) |
                SQLITE_OPEN_NOMUTEX;
    // Reading the schema is what tells a database from any other file. A new store
    // gets write-ahead logging, which stays with the file; an existing file keeps
    // the journal it has. The page cache may grow to 8 MiB (SQLite's default is
    // 2 MiB), taken as pages are read: the base values, which a load reads whole,
    // stay in it instead of coming from the file again at each load once they
    // outgrow 2 MiB. A cache much larger than that made the pay run's load and
    // save slower (its pages no longer reused while the processor still holds them).
    std::string setup = "SELECT count(*) FROM sqlite_master; PRAGMA foreign_keys=ON; PRAGMA cache_size=-8192;";
    if (create) setup += " PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL;";
    std::string message;
    DatabaseHandle db;
    int rc = SQLITE_OK;
    try {
      db = OpenConnection(path, flags, options);
      rc = Setup(db.get(), setup, message);
    } catch (const StoreError&) {
      if (create && !memory) std::filesystem::remove(path);
      throw;
    }
    if (rc != SQLITE_OK && options.read_only && !create && !memory && NeedsSideFiles(rc)) {
      // A store with a write-ahead log is read through side files beside it; where
      // none can be made (a read-only folder or medium) it is read as it stands,
      // which holds all of it when no log is left over from a program that ended
      // without writing its log back.
      RequireNoPendingLog(shown);
      db = OpenConnection(ImmutableUri(shown), flags | SQLITE_OPEN_URI, options);
      rc = Setup(db.get(), setup, message);
    }
    if (rc != SQLITE_OK) {
      db.Reset();
      if (create && !memory) std::filesystem::remove(path);
      if (IsLocked(rc)) throw LockedError(shown, options.busy_timeout_ms, message, "opening it", rc);
      throw StoreError("cannot open store", path, message, rc);
    }
    if (!create) sqlite3_exec(db.get(), "PRAGMA synchronous=NORMAL;", nullptr, nullptr, nullptr);
    RegisterSqliteText(db.get());
    if (!create && !memory) db = sqlite::OpenUpToDate(std::move(db), options.read_only, path);
    db_ = std::move(db);
    path_ = shown;
    connect_ = connect;
    options_ = options;
  }

  void Close() override {
    joined_ = false;
    reading_ = false;
    if (db_ && HasMoved()) {
      // Closing would delete the log by its name, which may be another file's now.
      if (!InAutocommit()) sqlite3_exec(db_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
      WriteBackLog();
      sqlite3_db_config(db_.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    }
    statements_.clear();
    order_.clear();
    db_.Reset();
  }

  bool IsOpen() const override { return static_cast<bool>(db_); }

  // The lock is taken at once whatever the options say: waiting for it costs no
  // round trip here, and each statement's failure is raised by the statement.
  void BeginWrite(WriteOptions) override {
    RequireOpen("BEGIN IMMEDIATE");
    if (options_.read_only)
      throw StoreError("the store is open read-only; nothing was written", path_,
                       "it was opened with 'readonly' in its connect text");
    RequireInPlace();
    // A read snapshot ends here: the write needs a transaction of its own, so
    // that its Commit makes it durable at once.
    EndSnapshotForWrite();
    // A transaction the host began by its own statement (BEGIN) is joined and
    // left for the host to end.
    joined_ = !InAutocommit();
    if (joined_) return;
    RunControl("BEGIN IMMEDIATE");
    RequireInPlace();  // the file may have gone while the lock was awaited
  }

  void BeginRead() override {
    if (!db_ || !InAutocommit()) return;  // within a transaction the reads are in one already
    RunControl("BEGIN");
    reading_ = true;
  }

  void EndRead() override { EndSnapshotForWrite(); }

  void CommitWrite() override {
    RequireOpen("COMMIT");
    if (std::exchange(joined_, false)) return;
    if (InAutocommit()) return;  // SQLite ended it already (it said so by an error before)
    RequireInPlace();
    RunControl("COMMIT");
  }

  void RollbackWrite() override {
    if (std::exchange(joined_, false) || !db_ || InAutocommit()) return;
    RunControl("ROLLBACK");
  }

  std::string Path() const override { return path_; }
  std::string Connect() const override { return connect_; }

  QueryResult Query(std::string_view jet_sql) override {
    const TranslatedSql& sql = Translate(jet_sql);
    CachedStatement& stmt = Prepare(sql.text, jet_sql);
    Bind(stmt.handle.get(), sql.params, jet_sql);
    return Fetch(stmt, jet_sql);
  }

  std::vector<QueryResult> QueryNative(const std::vector<NativeQuery>& queries) override {
    std::vector<QueryResult> results;
    results.reserve(queries.size());
    for (const NativeQuery& query : queries) {
      CachedStatement& stmt = Prepare(query.sql.text, query.subject);
      Bind(stmt.handle.get(), query.sql.params, query.subject);
      results.push_back(Fetch(stmt, query.subject));
    }
    return results;
  }

  std::shared_ptr<const ColumnLayout> Describe(std::string_view jet_sql) override {
    const TranslatedSql& sql = Translate(jet_sql);
    return LayoutOf(Prepare(sql.text, jet_sql));
  }

  long Execute(std::string_view jet_sql) override {
    EndSnapshotForWrite();
    const TranslatedSql& sql = Translate(jet_sql);
    if (InAutocommit()) RequireInPlace();
    CachedStatement& stmt = Prepare(sql.text, jet_sql);
    Bind(stmt.handle.get(), sql.params, jet_sql);
    Run(stmt.handle.get(), jet_sql);
    return sqlite3_changes(db_.get());
  }

  void ExecuteNative(const std::string& script) override {
    RequireOpen(script);
    char* error = nullptr;
    int rc = sqlite3_exec(db_.get(), script.c_str(), nullptr, nullptr, &error);
    if (rc != SQLITE_OK) {
      std::string message = error ? error : sqlite3_errstr(rc);
      sqlite3_free(error);
      throw StoreError("statement refused by the store", script, message, rc);
    }
  }

  QueryResult InsertRow(const std::string& table, const std::vector<std::string>& columns,
                        const std::vector<Variant>& values) override {
    EndSnapshotForWrite();
    if (InAutocommit()) RequireInPlace();
    std::string sql = "INSERT INTO " + QuoteIdentifier(table);
    if (columns.empty()) {
      sql += " DEFAULT VALUES";
    } else {
      sql += " (" + QuotedIdentifierList(columns) + ") VALUES (?";
      for (std::size_t i = 1; i < columns.size(); ++i) sql += ",?";
      sql += ")";
    }
    sqlite3_stmt* stmt = Prepare(sql, sql).handle.get();
    Bind(stmt, values, sql);
    Run(stmt, sql);
    sqlite3_int64 rowid = sqlite3_last_insert_rowid(db_.get());
    std::string select = "SELECT * FROM " + QuoteIdentifier(table) + " WHERE rowid=?";
    CachedStatement& read = Prepare(select, select);
    Bind(read.handle.get(), {Variant(static_cast<std::int64_t>(rowid))}, select);
    return Fetch(read, select);
  }

  void UpdateRow(const std::string& table, const Variant& row_key, const std::vector<std::string>& columns,
                 const std::vector<Variant>& values) override {
    EndSnapshotForWrite();
    if (columns.empty()) return;
    if (InAutocommit()) RequireInPlace();
    std::string sql = "UPDATE " + QuoteIdentifier(table) + " SET ";
    sql.reserve(sql.size() + columns.size() * 32);
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (i) sql += ',';
      AppendQuotedIdentifier(sql, columns[i]);
      sql += "=?";
    }
    sql += " WHERE " + QuoteIdentifier(kRowKeyColumn) + "=?";
    std::vector<Variant> params = values;
    params.push_back(row_key);
    sqlite3_stmt* stmt = Prepare(sql, sql).handle.get();
    Bind(stmt, params, sql);
    Run(stmt, sql);
    if (sqlite3_changes(db_.get()) == 0)
      throw StoreError("row cannot be located for updating", sql,
                       "the row " + row_key.Describe() + " of " + table + " has gone from the store");
  }

  void DeleteRow(const std::string& table, const Variant& row_key) override {
    EndSnapshotForWrite();
    if (InAutocommit()) RequireInPlace();
    std::string sql = "DELETE FROM " + QuoteIdentifier(table) + " WHERE " + QuoteIdentifier(kRowKeyColumn) + "=?";
    sqlite3_stmt* stmt = Prepare(sql, sql).handle.get();
    Bind(stmt, {row_key}, sql);
    Run(stmt, sql);
  }

  std::vector<std::string> IntegrityProblems() override {
    RequireOpen("PRAGMA integrity_check");
    return sqlite::IntegrityProblems(db_.get());
  }

  void BackupInto(const std::string& file) override {
    RequireOpen("backup");
    sqlite::Backup(db_.get(), file);
  }

  Variant Normalize(const Variant& value, Affinity affinity) const override {
    if (value.kind() == Variant::Boolean) return Variant(static_cast<std::int64_t>(value.AsBool() ? -1 : 0));
    double number = 0;
    switch (affinity) {
      case Affinity::Integer:
      case Affinity::Real: {
        if (value.IsMissing() || !value.TryNumber(number)) return value;  // Null, or a text that is no number
        bool whole = number == std::floor(number) && std::fabs(number) < 9.2e18;
        if (affinity == Affinity::Integer && whole) return Variant(static_cast<std::int64_t>(number));
        return Variant(number);
      }
      case Affinity::Text:
        if (value.kind() == Variant::Integer) return Variant(std::to_string(value.AsInteger()));
        if (value.kind() == Variant::Double) return Variant(FormatDoubleAsSqlite(value.AsDouble()));
        return value;
      case Affinity::Any:
        return value;
    }
    return value;
  }

 private:
  static std::string FormatDoubleAsSqlite(double value) {
    char buffer[64];
    sqlite3_snprintf(sizeof buffer, buffer, "%!.15g", value);
    return buffer;
  }

  void RequireOpen(std::string_view subject) const {
    if (!db_) throw StoreError("the store is closed", std::string(subject));
  }

  bool InAutocommit() const { return db_ && sqlite3_get_autocommit(db_.get()); }

  // Ends an open read snapshot. A write ends it first: made within it, it would
  // become durable only with the snapshot's end.
  void EndSnapshotForWrite() {
    if (std::exchange(reading_, false) && db_ && !InAutocommit()) RunControl("COMMIT");
  }

  // A write goes only to the file that was opened: one deleted, renamed or replaced
  // by another since then would take the write where nobody finds it again, or
  // have the old log applied to the new file.
  void RequireInPlace() {
    if (!HasMoved()) return;
    if (!InAutocommit()) RunControl("ROLLBACK");
    WriteBackLog();
    throw StoreError("the store file has moved or gone since it was opened; nothing was written", path_,
                     "it was deleted, renamed or replaced by another file; open the store again where it is now",
                     SQLITE_READONLY_DBMOVED);
  }

  bool HasMoved() const {
    int moved = 0;
    return sqlite3_file_control(db_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK && moved;
  }

  // The log of a file that has moved belongs to that file, but lies beside its old
  // name, where another file may come to lie and would take it as its own. Its
  // committed changes are written back into the file they belong to, and the log
  // is left empty.
  void WriteBackLog() {
    sqlite3_wal_checkpoint_v2(db_.get(), "main", SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
  }

  // BEGIN, COMMIT and ROLLBACK, prepared once like any statement.
  void RunControl(const std::string& sql) { Run(Prepare(sql, sql).handle.get(), sql); }

  struct CachedStatement {
    StatementHandle handle;
    std::list<std::string>::iterator position;
    std::shared_ptr<const ColumnLayout> layout;  // made at the first fetch
    std::size_t last_rows = 0;                   // rows of the last fetch, to size the next one
  };

  CachedStatement& Prepare(const std::string& text, std::string_view subject) {
    RequireOpen(subject);
    auto found = statements_.find(text);
    if (found != statements_.end()) {
      sqlite3_stmt* stmt = found->second.handle.get();
      sqlite3_reset(stmt);
      sqlite3_clear_bindings(stmt);
      return found->second;
    }
    if (statements_.size() >= kStatementCacheLimit) {
      statements_.erase(order_.front());
      order_.pop_front();
    }
    sqlite3_stmt* raw = nullptr;
    const char* tail = nullptr;
    int rc = sqlite3_prepare_v2(db_.get(), text.c_str(), static_cast<int>(text.size()), &raw, &tail);
    StatementHandle stmt(raw);
    if (rc != SQLITE_OK) {
      int code = sqlite3_extended_errcode(db_.get());
      if (IsLocked(code)) throw LockedError(path_, options_.busy_timeout_ms, sqlite3_errmsg(db_.get()), subject, code);
      throw StoreError("statement refused by the store", std::string(subject), sqlite3_errmsg(db_.get()), code);
    }
    if (!raw) throw StoreError("statement refused by the store", std::string(subject), "the text holds no statement");
    if (tail) {
      while (*tail == ' ' || *tail == '\n' || *tail == '\t' || *tail == '\r' || *tail == ';') ++tail;
      if (*tail) throw StoreError("only one statement per call", std::string(subject), "text follows the statement");
    }
    order_.push_back(text);
    auto [it, inserted] = statements_.emplace(text, CachedStatement{std::move(stmt), std::prev(order_.end()), nullptr});
    return it->second;
  }

  void Bind(sqlite3_stmt* stmt, const std::vector<Variant>& params, std::string_view subject) {
    for (std::size_t i = 0; i < params.size(); ++i) {
      int index = static_cast<int>(i + 1);
      const Variant& value = params[i];
      int rc = SQLITE_OK;
      switch (value.kind()) {
        case Variant::Empty:
        case Variant::Null:
          rc = sqlite3_bind_null(stmt, index);
          break;
        case Variant::Boolean:
          rc = sqlite3_bind_int(stmt, index, value.AsBool() ? -1 : 0);
          break;
        case Variant::Integer:
          rc = sqlite3_bind_int64(stmt, index, value.AsInteger());
          break;
        case Variant::Double:
          rc = sqlite3_bind_double(stmt, index, value.AsDouble());
          break;
        case Variant::Text:
          rc = sqlite3_bind_text(stmt, index, value.AsText().data(), static_cast<int>(value.AsText().size()),
                                 SQLITE_TRANSIENT);
          break;
      }
      if (rc != SQLITE_OK) throw StoreError("cannot bind a value", std::string(subject), sqlite3_errmsg(db_.get()));
    }
  }

  void Run(sqlite3_stmt* stmt, std::string_view subject) {
    int rc = sqlite3_step(stmt);
    while (rc == SQLITE_ROW) rc = sqlite3_step(stmt);
    if (rc != SQLITE_DONE) Refused(stmt, subject);
    sqlite3_reset(stmt);
  }

  // The failure of a step: the store's message and number, the statement reset.
  [[noreturn]] void Refused(sqlite3_stmt* stmt, std::string_view subject) {
    std::string message = sqlite3_errmsg(db_.get());
    int code = sqlite3_extended_errcode(db_.get());
    sqlite3_reset(stmt);
    if (IsLocked(code)) throw LockedError(path_, options_.busy_timeout_ms, message, subject, code);
    throw StoreError("statement refused by the store", std::string(subject), message, code);
  }

  // The columns of a prepared statement, made once and kept with it.
  const std::shared_ptr<const ColumnLayout>& LayoutOf(CachedStatement& cached) {
    if (!cached.layout) {
      sqlite3_stmt* stmt = cached.handle.get();
      int count = sqlite3_column_count(stmt);
      std::vector<ColumnInfo> columns;
      columns.reserve(count);
      for (int i = 0; i < count; ++i) {
        const char* name = sqlite3_column_name(stmt, i);
        const char* table = sqlite3_column_table_name(stmt, i);
        columns.push_back({name ? name : "", table ? table : "", AffinityOf(sqlite3_column_decltype(stmt, i))});
      }
      cached.layout = std::make_shared<const ColumnLayout>(std::move(columns));
    }
    return cached.layout;
  }

  QueryResult Fetch(CachedStatement& cached, std::string_view subject) {
    sqlite3_stmt* stmt = cached.handle.get();
    int count = sqlite3_column_count(stmt);
    QueryResult result;
    result.layout = LayoutOf(cached);
    result.cells = TakeSpare();
    // A statement of one shape tends to give as many rows as last time (the pay
    // months of one employee after those of another): sizing the cells for that
    // spares the regrowth of a large vector of variants.
    result.cells.reserve(static_cast<std::size_t>(count) * std::max<std::size_t>(cached.last_rows, 1));
    std::size_t rows = 0;
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
      ++rows;
      for (int i = 0; i < count; ++i) {
        // The cell's value once, then its type and content from it: half the calls
        // of asking the statement for each (a load reads millions of cells).
        sqlite3_value* value = sqlite3_column_value(stmt, i);
        switch (sqlite3_value_type(value)) {
          case SQLITE_INTEGER:
            result.cells.emplace_back(static_cast<std::int64_t>(sqlite3_value_int64(value)));
            break;
          case SQLITE_FLOAT:
            result.cells.emplace_back(sqlite3_value_double(value));
            break;
          case SQLITE_NULL:
            result.cells.push_back(Variant::NullValue());
            break;
          default: {
            const char* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
            int bytes = sqlite3_value_bytes(value);
            result.cells.emplace_back(std::string_view(text ? text : "", static_cast<std::size_t>(bytes)));
          }
        }
      }
    }
    if (rc != SQLITE_DONE) Refused(stmt, subject);
    sqlite3_reset(stmt);
    cached.last_rows = rows;
    return result;
  }

  DatabaseHandle db_;
  std::string path_;
  std::string connect_;
  ConnectOptions options_;
  bool joined_ = false;  // the write transaction is the host's own
  bool reading_ = false;  // a read snapshot (BeginRead) is open
  std::unordered_map<std::string, CachedStatement> statements_;
  std::list<std::string> order_;  // oldest first, for eviction
};

}  // namespace

std::shared_ptr<Backend> MakeSqliteBackend() { return std::make_shared<SqliteBackend>(); }

}  // namespace ormelix::detail
