/// \file
/// The store as the domain logic sees it: a StoreConnection that the host opens and
/// hands to the session, and the StoreSession it gives out, which runs statements.
/// SQL texts are written in the Jet flavour the domain uses and translated once per
/// distinct text into the backend's dialect.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ormelix/store/recordset.h"
#include "ormelix/store/variant.h"

namespace ormelix {

class StoreSession;

namespace detail {
class Backend;
struct ReadAheadRows;
std::shared_ptr<Backend> BackendOf(const StoreSession& session);
// The times the session's connection has waited for its server's answers (one
// per pipeline of statements), for benchmarks and tests; 0 for an SQLite store.
std::uint64_t RoundTrips(const StoreSession& session);
// Runs an action statement whose count of rows is not wanted: within a write
// transaction a store on a server sends it with the next statement that waits
// for an answer, and a failure of it is raised there, naming it.
void ExecuteAhead(StoreSession& session, std::string_view sql);
}  // namespace detail

/// \brief An open store that runs statements: the SQL of the domain in, recordsets
/// and row counts out.
///
/// Reached through StoreConnection::Session. SQL is written in the Jet flavour the
/// domain uses (`[brackets]`, `DELETE *`, `LCASE`, `FALSE`, IDs as `{GUID}` literals)
/// and translated once per distinct text into SQLite's or PostgreSQL's dialect.
/// Exactly one statement per call: trailing SQL is refused with a StoreError that
/// names the statement, as is any statement the backend refuses.
class StoreSession {
 public:
  /// \cond INTERNAL
  // Library-internal: StoreConnection::Open and CreateStore make the session.
  explicit StoreSession(std::shared_ptr<detail::Backend> backend);
  /// \endcond
  /// Closes the store if it is open.
  ~StoreSession();

  /// Runs a statement and gives its rows; the recordset stands on the first row,
  /// or at EOF when there are none.
  std::unique_ptr<Recordset> OpenRecordset(std::string_view sql, CursorTypeEnum cursor = adOpenForwardOnly,
                                           LockTypeEnum lock = adLockReadOnly);
  /// Runs an action statement; the result is the number of rows it touched.
  Variant ExecuteSql(std::string_view sql, bool flag = true);

  /// True while the store is open.
  bool IsOpen() const;
  /// Opens the database again with what StorePath and StoreConnect gave earlier.
  void OpenStore(const std::string& path, const std::string& connect);
  /// Closes the store; statements fail until OpenStore.
  void CloseStore();
  /// The path (a file, or a connection string without its password) the store was
  /// opened with.
  std::string StorePath() const;
  /// The connect text the store was opened with ("" for SQLite).
  std::string StoreConnect() const;

 private:
  friend class StoreWriteTransaction;
  friend class StoreReadSnapshot;
  friend class StoreSharedReads;
  friend class StoreReadAhead;
  friend std::shared_ptr<detail::Backend> detail::BackendOf(const StoreSession& session);
  friend std::uint64_t detail::RoundTrips(const StoreSession& session);
  friend void detail::ExecuteAhead(StoreSession& session, std::string_view sql);
  std::shared_ptr<detail::Backend> backend_;
  int write_depth_ = 0;  ///< open StoreWriteTransaction scopes
  int read_depth_ = 0;   ///< open StoreReadSnapshot scopes
  int shared_depth_ = 0;  ///< open StoreSharedReads scopes
  /// The rows read in the open StoreSharedReads scopes, by statement text.
  std::unordered_map<std::string, std::shared_ptr<detail::RowSet>> shared_rows_;
  int ahead_depth_ = 0;  // open StoreReadAhead scopes
  // The rows read ahead for statements not yet run: each answers its statement once.
  std::unique_ptr<detail::ReadAheadRows> ahead_rows_;
  // What a write makes stale: the rows shared and read ahead.
  void DropReadRows();
};

/// Reads of one scope see one state of the store: a load of many employees reads
/// each of them as the store stood at the start of the load, not some before and
/// some after another program's save, and the store's read lock is taken once for
/// the whole load instead of once per statement. Scopes nest; the outermost one
/// decides. A write within the scope ends the snapshot (the write is made durable
/// by its own transaction), and the reads after it see the store as it is.
class StoreReadSnapshot {
 public:
  /// Nothing happens for a closed store: the reads fail on their own.
  explicit StoreReadSnapshot(StoreSession* session);
  ~StoreReadSnapshot();
  StoreReadSnapshot(const StoreReadSnapshot&) = delete;
  StoreReadSnapshot& operator=(const StoreReadSnapshot&) = delete;

 private:
  StoreSession* session_;
  bool outermost_ = false;
};

/// Within its scope the read-only recordsets of one statement text share the rows
/// of the first read of that text (with the indexes their filters made) instead
/// of reading them again: a load that reads a whole table for each of many objects
/// (the value tables of the base values, for every dated table) reads it once, so
/// that it grows with the store and not with its square. It holds a read snapshot,
/// so the shared rows are what a new read would give; a write within its scope
/// (a recordset opened for writing, an action statement, a write transaction)
/// drops what was shared, and the reads after it read afresh. Scopes nest; the
/// rows go with the outermost.
class StoreSharedReads {
 public:
  /// Nothing happens for a closed store.
  explicit StoreSharedReads(StoreSession* session);
  ~StoreSharedReads();
  StoreSharedReads(const StoreSharedReads&) = delete;
  StoreSharedReads& operator=(const StoreSharedReads&) = delete;

 private:
  StoreReadSnapshot snapshot_;
  StoreSession* session_;
};

/// \brief Answers many per-key statements from one read each: the rows of every
/// key, read ahead together.
///
/// Within its scope a routine that runs one statement for each of many keys (the
/// pay rows of each employee of a list, the entitlements of each child) is answered
/// from one read per statement for all the keys, taken by Read beforehand: a
/// statement read ahead so gives its recordset exactly the rows, in exactly the
/// order, that running it would give (the rows of one key that tie in its ORDER BY
/// come in the order they were written, as the statement gives them). On a store
/// one network away that is one wait for the server per Read instead of one per
/// key and statement; on SQLite it saves the statements' own work. The scope holds
/// a read snapshot, so what was read ahead is what a new read would give; a write
/// within it drops what was read ahead, and so does the scope's end: the rows are
/// held only while the scope is open. A key that is no ID ({...}) is left to its
/// statement. clsMitarbeiter::Load reads through one.
class StoreReadAhead {
 public:
  /// A statement that a routine runs for one key at a time.
  struct Statement {
    /// Its text for a key, exactly as the routine makes it (the key, as the routine
    /// hands it in, standing in it once, as "[Column]=" and the key's literal).
    std::function<std::string(const std::string& key)> text;
    /// The column the key is compared with.
    std::string key_column;
    /// The keys to read ahead for.
    std::vector<std::string> keys;
    /// Few rows per key (most keys none or one: the short-time row of a pay row)
    /// tells a store to read by the keys one by one rather than through an index of
    /// them; it reads the same rows either way.
    bool few_rows_per_key = false;
  };

  /// Opens the scope and its read snapshot; nothing happens for a closed store (or none).
  explicit StoreReadAhead(StoreSession* session);
  /// Drops whatever was read ahead and not asked for.
  ~StoreReadAhead();
  StoreReadAhead(const StoreReadAhead&) = delete;
  StoreReadAhead& operator=(const StoreReadAhead&) = delete;

  /// Reads the rows of every statement for all its keys, one statement per
  /// statement (a store on a server gets them together and answers them together),
  /// and keeps them to answer the statements, beside what was read ahead before and
  /// not yet asked for. A statement whose text does not take its keys so is left to
  /// run on its own. Reads the store.
  void Read(std::vector<Statement> statements);

  /// How many keys a Read best takes at a time on this store (1 for none): a
  /// hundred on SQLite (their rows stay in the processor's cache until taken), a
  /// thousand on a server (each Read waits for it).
  std::size_t KeysPerRead() const;

  /// The values (as text) of a column of the rows read ahead for statement
  /// (by position in the last Read), of the rows that match criteria (a filter
  /// text as Recordset::Filter takes it; "" for all), in the order read: the keys
  /// of statements that depend on these rows.
  std::vector<std::string> Values(std::size_t statement, std::string_view column, std::string_view criteria = "") const;

 private:
  StoreReadSnapshot snapshot_;
  StoreSession* session_;
  std::vector<std::vector<std::shared_ptr<detail::RowSet>>> read_;  // per statement of the last Read: its key's rows
};

/// One write transaction of a session: what is read and written between its start
/// and Commit holds together, and another program's writes cannot come between
/// (a save that looks for its row and then inserts or changes it gives one row,
/// also when two programs save the same new row at once). Writes land with
/// Commit. A scope left without it (an exception unwinding) rolls them back, or,
/// made with KeepWritten, keeps what was written before the failure, as the
/// library's own saves do (a save that fails half-way leaves what it had written,
/// as it always has; the transaction only keeps other programs out meanwhile).
/// A store that has moved or gone gets nothing either way.
///
/// Scopes nest: an inner scope begins and commits nothing, so a routine that saves
/// one record can be called alone or from a larger save; the outermost scope
/// decides. Close the recordsets of the transaction (or call their Update) before
/// Commit: a pending row is written only then.
class StoreWriteTransaction {
 public:
  /// What a scope left without Commit does with the writes made so far.
  enum OnUnwind {
    RollBack,    ///< undo them
    KeepWritten  ///< keep them, as the library's own saves do
  };
  /// When the store's write lock is taken. A store on a server sends a lock taken
  /// with the first statement together with that statement, so that a save that
  /// begins by reading its row waits for the server once instead of twice; a lock
  /// that cannot be had then fails that statement instead of the constructor. (An
  /// SQLite store takes it at once either way.)
  enum Locking {
    LockAtOnce,             ///< in the constructor
    LockWithFirstStatement  ///< with the transaction's first statement
  };

  /// Takes the store's write lock (or readies it, LockWithFirstStatement); StoreError
  /// when the store is read-only, locked by another program longer than the busy
  /// timeout, or has moved or gone.
  explicit StoreWriteTransaction(StoreSession& session, OnUnwind on_unwind = RollBack,
                                 Locking locking = LockAtOnce);
  ~StoreWriteTransaction();
  StoreWriteTransaction(const StoreWriteTransaction&) = delete;
  StoreWriteTransaction& operator=(const StoreWriteTransaction&) = delete;

  /// Makes the writes durable (the outermost scope) or does nothing (an inner one).
  void Commit();

 private:
  StoreSession& session_;
  OnUnwind on_unwind_;
  bool outermost_ = false;
  bool open_ = true;
};

/// \brief A store as the host hands it to the session (clsManager::SetAktDB,
/// SetImportDB): an SQLite file or a database on a PostgreSQL server.
///
/// A host opens one with Open (an existing store) or CreateStore (a new one from the
/// shipped schema) and shares it as a StoreConnectionPtr.
class StoreConnection {
 public:
  /// Opens an existing store. connect selects the backend: "" or "sqlite" for an
  /// SQLite file at path. A missing file or one that is no database is a StoreError.
  static std::shared_ptr<StoreConnection> Open(const std::string& path, const std::string& connect = "");

  /// A connection around a session made by the library.
  explicit StoreConnection(std::shared_ptr<StoreSession> session) : session_(std::move(session)) {}

  /// The session that runs the statements.
  StoreSession& Session() const { return *session_; }

 private:
  std::shared_ptr<StoreSession> session_;
};

/// A shared store: the form in which the session and the employer classes hold it.
using StoreConnectionPtr = std::shared_ptr<StoreConnection>;

}  // namespace ormelix
