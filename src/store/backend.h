// The narrow interface a store backend implements. The recordset, the filter and
// the helpers are written against it; SQLite is the first backend.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "filter.h"
#include "ormelix/store/variant.h"
#include "sql_dialect.h"

namespace ormelix::detail {

enum class Affinity { Text, Integer, Real, Any };

struct ColumnInfo {
  std::string name;   // as the statement names it (alias or column)
  std::string table;  // the table it comes from, "" for an expression
  Affinity affinity = Affinity::Any;
};

// The columns of a result and their lookup by name, made once per statement and
// shared by every recordset of it. Names are found as given or without regard to
// case, or as "table.column"; a name two columns share finds the first of them.
class ColumnLayout {
 public:
  explicit ColumnLayout(std::vector<ColumnInfo> columns);

  const std::vector<ColumnInfo>& Columns() const { return columns_; }
  std::size_t Size() const { return columns_.size(); }
  // The column index, -1 for an unknown name.
  int Lookup(std::string_view name) const;

  // A filter text parsed against these columns, kept: the recordsets of one
  // statement are filtered by the same few texts again and again (a month, a group
  // of lines), one recordset per employee. parse is called for a text not seen yet.
  // The column indices of a column declaration set (by its key), kept as
  // ParsedFilter keeps filters; nullptr for a set not bound yet.
  const std::vector<int>* FindBinding(std::uint64_t set_key) const {
    auto found = bindings_.find(set_key);
    return found == bindings_.end() ? nullptr : &found->second;
  }
  void KeepBinding(std::uint64_t set_key, std::vector<int> binding) const {
    if (bindings_.size() >= 256) bindings_.clear();  // sets made on the fly keep no memory
    bindings_[set_key] = std::move(binding);
  }

  std::shared_ptr<const FilterNode> ParsedFilter(std::string_view criteria,
                                                 const std::function<FilterNode(std::string_view)>& parse) const;

 private:
  struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>{}(name); }
  };
  std::vector<ColumnInfo> columns_;
  std::unordered_map<std::string, int, NameHash, std::equal_to<>> exact_;
  std::unordered_map<std::string, int> folded_;
  std::unordered_map<std::string, int> qualified_;
  mutable std::unordered_map<std::string, std::shared_ptr<const FilterNode>, NameHash, std::equal_to<>> filters_;
  mutable std::unordered_map<std::uint64_t, std::vector<int>> bindings_;
};

struct QueryResult {
  std::shared_ptr<const ColumnLayout> layout;
  std::vector<Variant> cells;  // row-major, layout->Size() per row
};

// The layout version of an SQLite store, kept in its user_version: 0 for a store
// made before text columns declared the store's text order, 1 since, 2 once the
// tables of one row per key have their unique indexes.
inline constexpr int kSqliteStoreVersion = 2;

// The column every writable table carries to tell its rows apart.
inline constexpr const char* kRowKeyColumn = "Nr";

class Backend {
 public:
  virtual ~Backend() = default;

  // Opens an existing store, or with create a new, empty one (which must not exist).
  virtual void Open(const std::string& path, const std::string& connect, bool create = false) = 0;
  virtual void Close() = 0;
  virtual bool IsOpen() const = 0;
  virtual std::string Path() const = 0;
  virtual std::string Connect() const = 0;

  // Runs a SELECT in the domain's dialect and fetches all its rows.
  virtual QueryResult Query(std::string_view jet_sql) = 0;
  // Runs several SELECTs and fetches the rows of each; a backend that can sends
  // them together and waits for the server once.
  std::vector<QueryResult> QueryMany(const std::vector<std::string>& jet_sqls);
  // The same for statements in the backend's own dialect, each with the text it
  // stands for in messages.
  // Of one table's columns (as a read ahead is), a query's rows may travel in
  // the server's binary form, which it makes and the client reads far faster than
  // text.
  struct NativeQuery {
    TranslatedSql sql;
    std::string subject;
    bool columns_of_a_table = false;
  };
  virtual std::vector<QueryResult> QueryNative(const std::vector<NativeQuery>& queries) = 0;
  // The translation of a statement asked for many keys (see KeyListForm), made
  // once per text; its key list parameter is the caller's to set.
  const TranslatedSql& TranslateForKeys(std::string_view jet_sql, const KeyListForm& form);
  // The columns a SELECT gives, without running it; a statement the store
  // refuses fails here.
  virtual std::shared_ptr<const ColumnLayout> Describe(std::string_view jet_sql) = 0;
  // Runs an action statement in the domain's dialect; gives the rows it touched.
  virtual long Execute(std::string_view jet_sql) = 0;
  // The same where the count is not wanted: within a write transaction a backend
  // that sends statements ahead sends it with the next statement that waits for
  // an answer, and a failure of it is raised there (naming it). Gives -1 then.
  virtual long ExecuteAhead(std::string_view jet_sql) { return Execute(jet_sql); }

  // Runs statements of the backend's own dialect, as they stand (schema creation).
  virtual void ExecuteNative(const std::string& script) = 0;

  // A read transaction around many reads, as the session's StoreReadSnapshot
  // asks for it (only the outermost scope reaches the backend): the reads see one
  // state of the store, and its read lock is taken once for all of them instead of
  // once per statement. A write transaction begun meanwhile ends it first. A
  // backend without it reads statement by statement.
  virtual void BeginRead() {}
  virtual void EndRead() {}

  // One write transaction, as the session's StoreWriteTransaction asks for it
  // (only the outermost scope reaches the backend). BeginWrite takes the store's
  // write lock at once, waiting the busy timeout for another program's, so that
  // what is read after it stays true until CommitWrite; a store that is read-only,
  // locked, moved or gone fails here with a StoreError. CommitWrite makes the
  // writes since BeginWrite durable together; RollbackWrite drops them and does
  // nothing when no transaction is open (it also serves unwinding).
  //
  // A backend that sends the statements of a write transaction ahead (without
  // waiting for each answer) is told how the transaction wants it: whether
  // BeginWrite waits for the lock or the lock goes with the transaction's first
  // statement (a store locked too long fails that statement), and what a
  // statement that fails later than it was sent leaves: what came before it
  // (keep_on_failure) or nothing.
  struct WriteOptions {
    bool lock_at_once = true;
    bool keep_on_failure = false;
  };
  virtual void BeginWrite(WriteOptions options) = 0;
  void BeginWrite() { BeginWrite(WriteOptions{}); }
  virtual void CommitWrite() = 0;
  virtual void RollbackWrite() = 0;

  // Writes for updatable recordsets. InsertRow gives the stored row as
  // "SELECT * FROM table" shows it (with the key and defaults the store filled).
  virtual QueryResult InsertRow(const std::string& table, const std::vector<std::string>& columns,
                                const std::vector<Variant>& values) = 0;
  // Many rows at once, cells row-major in the order of columns (a copy of a
  // store); nothing is read back.
  virtual void InsertRows(const std::string& table, const std::vector<std::string>& columns,
                          const std::vector<Variant>& cells);
  // The same where the stored row may be wanted later: the function gives it. A
  // backend that sends writes ahead answers it once the store has (waiting for
  // the answer if it must); a failure of the insert is raised with the next
  // statement that waits for an answer.
  virtual std::function<QueryResult()> InsertRowAhead(const std::string& table, const std::vector<std::string>& columns,
                                                      const std::vector<Variant>& values);
  virtual void UpdateRow(const std::string& table, const Variant& row_key, const std::vector<std::string>& columns,
                         const std::vector<Variant>& values) = 0;
  virtual void DeleteRow(const std::string& table, const Variant& row_key) = 0;

  // What the backend's own checks find wrong with the store (SQLite's
  // integrity_check and foreign_key_check, PostgreSQL's catalog), a text each.
  virtual std::vector<std::string> IntegrityProblems() = 0;
  // Copies the store into a new file (mode 0600) by the backend's online backup.
  // Within a read snapshot that has read, the copy holds what the snapshot reads.
  // StoreError where the backend has no such copy, or the file exists.
  virtual void BackupInto(const std::string& file);

  // The value as the store would hand it back from a column of that affinity.
  virtual Variant Normalize(const Variant& value, Affinity affinity) const = 0;

  SqlDialect Dialect() const { return dialect_; }

  // The times this connection waited for its server's answers (0 for a store
  // without a server): what a store one network away pays for in latency.
  virtual std::uint64_t RoundTrips() const { return 0; }

  // How many keys a read ahead (StoreReadAhead) best takes at a time: on a store
  // in the same process few enough that the rows read stay in the processor's
  // cache until they are taken (measured: a hundred employees' rows), on a server
  // more, each read being a wait for it.
  virtual std::size_t ReadAheadKeys() const { return 100; }

  // Translation of the domain's SQL, cached per distinct text.
  const TranslatedSql& Translate(std::string_view jet_sql);

  // The cells of a closed recordset, kept (emptied) for the next fetch, so that a
  // run of small queries reuses one allocation instead of touching fresh memory
  // each time. Only buffers up to kSpareCells are kept.
  void Recycle(std::vector<Variant>&& cells) {
    if (cells.capacity() > kSpareCells || cells.capacity() <= spare_.capacity()) return;
    cells.clear();
    spare_ = std::move(cells);
  }

 protected:
  explicit Backend(SqlDialect dialect) : dialect_(dialect) {}
  // An empty cells vector for a fetch, with the capacity of the spare buffer.
  std::vector<Variant> TakeSpare() {
    std::vector<Variant> cells = std::move(spare_);
    spare_ = {};
    return cells;
  }

 private:
  static constexpr std::size_t kSpareCells = 16384;  // 640 KB of variants
  SqlDialect dialect_;
  std::vector<Variant> spare_;
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
  };
  using TranslationCache = std::unordered_map<std::string, TranslatedSql, TextHash, std::equal_to<>>;
  TranslationCache translations_;        // by shape (see ShapeOf)
  TranslationCache exact_translations_;  // texts without bound literals, by text
  TranslationCache key_translations_;    // statements asked for many keys, by text
  TranslatedSql uncached_;
  const TranslatedSql* latest_ = nullptr;  // the latest translation handed out, of latest_text_
  std::string latest_text_;
  const TranslatedSql& TranslateAnew(std::string_view jet_sql);
};

// A double as SQLite writes it into a text column ("2.5", "3.0", "1.0e+20"); the
// PostgreSQL backend writes it so too, so that both stores hold the same text.
std::string DoubleAsStoredText(double value);

// What the connect text of a store asks for: the backend ("sqlite", the default
// for a file; "postgres" for a connection string, which needs no word) and options
// ("readonly", "busy_timeout=MS"; "statement_cache=N", the prepared statements a
// PostgreSQL connection keeps, 0 for none; "statement_timeout=MS"), separated by
// ';' or ','. StoreError
// naming the path for anything else.
struct ConnectOptions {
  std::string backend = "sqlite";
  bool read_only = false;
  // How long a statement waits for another program's lock before it fails.
  int busy_timeout_ms = 5000;
  std::size_t statement_cache = 256;
  // How long a PostgreSQL statement may take, and the longest wait for any answer
  // of the server: past it the statement fails and the connection is made anew.
  int statement_timeout_ms = 60000;
};
ConnectOptions ParseConnect(const std::string& connect, const std::string& path);

// A backend for the connect text; StoreError for one this build does not have.
std::shared_ptr<Backend> MakeBackend(const std::string& connect, const std::string& path);
std::shared_ptr<Backend> MakeSqliteBackend();
std::shared_ptr<Backend> MakePostgresBackend();

}  // namespace ormelix::detail
