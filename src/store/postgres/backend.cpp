// The PostgreSQL backend: one connection, prepared statements cached by their
// text, values sent and read in text form, booleans as smallint -1/0, dates as
// day counts, the text order as the ICU collation the schema declares.
//
// Statements go out in pipelines (see Wire): a statement whose answer is needed
// at once (a read, a commit) is sent together with whatever was sent ahead of
// it, and the connection waits for the server once for all of them. Within a
// write transaction of ours the writes whose answer nobody needs yet (a row's
// update, an insert whose stored row is not read, a delete) are only sent: they
// are answered with the next statement that waits. A save of a pay month so
// waits three times, however many statements it runs.
#include <libpq-fe.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <functional>
#include <list>
#include <unordered_map>

#include "../backend.h"
#include "connection.h"
#include "handles.h"
#include "maintenance.h"
#include "ormelix/error.h"
#include "ormelix/text.h"
#include "values.h"
#include "wire.h"

namespace ormelix::detail {

namespace {

using namespace postgres;

// The advisory lock of a store's writers: one key for the library, one per schema.
constexpr const char* kWriteLock = "SELECT pg_advisory_xact_lock(1869440344, hashtext(current_schema()))";

class PostgresBackend final : public Backend {
 public:
  PostgresBackend() : Backend(SqlDialect::Postgres) {}
  ~PostgresBackend() override { Close(); }

  void Open(const std::string& path, const std::string& connect, bool create) override {
    Close();
    ConnectOptions options = ParseConnect(connect, path);
    server_ = Server::Of(path);
    settings_.read_only = options.read_only && !create;
    settings_.lock_timeout_ms = options.busy_timeout_ms;
    settings_.statement_timeout_ms = options.statement_timeout_ms;
    cache_limit_ = options.statement_cache;
    conn_ = postgres::Connect(server_, settings_, create);
    wire_.Attach(conn_.get(), &server_, settings_.statement_timeout_ms);
    path_ = server_.shown;
    connect_ = connect;
  }

  void Close() override {
    own_write_ = joined_ = reading_ = false;
    sent_.clear();
    steps_ = 0;
    statements_.clear();
    order_.clear();
    tables_.clear();
    column_affinities_.clear();
    tables_read_ = false;
    wire_.Detach();
    conn_.Reset();
  }

  bool IsOpen() const override { return static_cast<bool>(conn_); }
  std::string Path() const override { return path_; }
  std::string Connect() const override { return connect_; }
  std::uint64_t RoundTrips() const override { return wire_.RoundTrips(); }
  std::size_t ReadAheadKeys() const override { return 1000; }

  QueryResult Query(std::string_view jet_sql) override {
    const TranslatedSql& sql = Translate(jet_sql);
    Sent& sent = SendStatement(sql.text, sql.params, jet_sql, true);
    Wire::AnswerPtr answer = sent.answer;
    Settle(jet_sql);
    return FetchAnswer(sql.text, sql.params, answer);
  }

  // The statements go out together and are answered together: one round trip.
  // Each result is taken in as it comes, while the server makes the next.
  std::vector<QueryResult> QueryNative(const std::vector<NativeQuery>& queries) override {
    if (queries.empty()) return {};
    ReadTableNamesOnce();  // at hand before the answers come
    std::vector<Wire::AnswerPtr> answers;
    answers.reserve(queries.size());
    for (const NativeQuery& query : queries)
      answers.push_back(
          SendStatement(query.sql.text, query.sql.params, query.subject, true, query.columns_of_a_table).answer);
    std::vector<QueryResult> results(queries.size());
    std::vector<char> taken(queries.size(), 0);
    std::size_t next = 0;  // answers come in order
    Settle(queries.front().subject, [&](Wire::Answer& answer) {
      while (next < answers.size() && answers[next].get() != &answer) ++next;
      if (next == answers.size() || !answer.result || postgres::Failed(answer.result.get())) return;
      const NativeQuery& query = queries[next];
      // A layout that needs the catalogue is made after, when the connection is free.
      if (!KnownLayout(query.sql.text, query.sql.params) && !TablesKnown(answer.result.get())) return;
      results[next] = FetchAnswer(query.sql.text, query.sql.params, answers[next]);
      taken[next] = 1;
    });
    for (std::size_t i = 0; i < queries.size(); ++i)
      if (!taken[i]) results[i] = FetchAnswer(queries[i].sql.text, queries[i].sql.params, answers[i]);
    return results;
  }

  std::shared_ptr<const ColumnLayout> Describe(std::string_view jet_sql) override {
    const TranslatedSql& sql = Translate(jet_sql);
    Statement& statement = Prepare(sql.text, sql.params, jet_sql, true);
    if (!statement.layout) {
      Wire::AnswerPtr description = Send(wire_.Describe(statement.name), jet_sql).answer;
      Settle(jet_sql);
      statement.layout = MakeLayout(description->result.get());
    }
    std::shared_ptr<const ColumnLayout> layout = statement.layout;
    if (cache_limit_ == 0) Forget(KeyOf(sql.text, sql.params, true));
    return layout;
  }

  long Execute(std::string_view jet_sql) override {
    EndSnapshotForWrite();
    const TranslatedSql& sql = Translate(jet_sql);
    Wire::AnswerPtr answer = SendStatement(sql.text, sql.params, jet_sql, true).answer;
    Settle(jet_sql);
    return Changes(answer->result.get());
  }

  long ExecuteAhead(std::string_view jet_sql) override {
    if (!SendsAhead()) return Execute(jet_sql);
    const TranslatedSql& sql = Translate(jet_sql);
    SendStatement(sql.text, sql.params, jet_sql, true);
    return -1;
  }

  void ExecuteNative(const std::string& script) override {
    RequireOpen(script);
    const int step = SaveStep();
    Settle(script);
    ResultHandle result = wire_.Exec(script);
    if (Failed(result.get())) Refuse(script, result.get(), step);
  }

  QueryResult InsertRow(const std::string& table, const std::vector<std::string>& columns,
                        const std::vector<Variant>& values) override {
    Wire::AnswerPtr answer = SendInsert(table, columns, values);
    Settle(table);
    return FetchAnswer(InsertSql(table, columns), {}, answer);
  }

  std::function<QueryResult()> InsertRowAhead(const std::string& table, const std::vector<std::string>& columns,
                                              const std::vector<Variant>& values) override {
    if (!SendsAhead()) return Backend::InsertRowAhead(table, columns, values);
    Wire::AnswerPtr answer = SendInsert(table, columns, values);
    return [this, answer, sql = InsertSql(table, columns)] {
      if (!answer->answered) Settle(sql);
      if (!answer->result)
        throw StoreError("the row was not written", sql, "a statement sent before it failed (server " + server_.shown + ")");
      return FetchAnswer(sql, {}, answer);
    };
  }

  // COPY: one statement for all rows, each value in the form its column holds.
  void InsertRows(const std::string& table, const std::vector<std::string>& columns,
                  const std::vector<Variant>& cells) override {
    if (columns.empty() || cells.empty()) return;
    const std::string names = QuotedIdentifierList(columns);
    std::string insert =
        "INSERT INTO " + QuoteIdentifier(table) + " (" + names + ") VALUES (" + Placeholders(columns.size()) + ")";
    std::vector<Affinity> affinities =
        ParamAffinities(Prepare(insert, {}, insert, false), insert, table, columns, columns.size());
    if (cache_limit_ == 0) Forget(insert);
    std::string sql = "COPY " + QuoteIdentifier(table) + " (" + names + ") FROM STDIN";
    int step = SaveStep();
    Settle(sql);
    std::size_t i = 0;
    ResultHandle result = wire_.Copy(sql, [&](std::string& chunk) {
      for (; i < cells.size() && chunk.size() < (1 << 16); ++i) {
        std::size_t column = i % columns.size();
        if (column) chunk += '\t';
        const Variant& cell = cells[i];
        bool untyped = affinities[column] == Affinity::Any && cell.IsNumber();
        AppendCopyText(untyped ? Variant(UntypedText(StoredForm(cell, Affinity::Any)))
                               : StoredForm(cell, affinities[column]),
                       chunk);
        if (column + 1 == columns.size()) chunk += '\n';
      }
      return i < cells.size();
    });
    if (Failed(result.get())) Refuse(sql, result.get(), step);
  }

  // The row must be there: an update of none fails (on the server, so that what
  // was sent after it in the same pipeline is not run either).
  void UpdateRow(const std::string& table, const Variant& row_key, const std::vector<std::string>& columns,
                 const std::vector<Variant>& values) override {
    if (columns.empty()) return;
    std::string sql = "WITH changed AS (UPDATE " + QuoteIdentifier(table) + " SET ";
    sql.reserve(sql.size() + columns.size() * 36);
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (i) sql += ',';
      AppendQuotedIdentifier(sql, columns[i]);
      sql += "=$" + std::to_string(i + 1);
    }
    sql += " WHERE " + QuoteIdentifier(kRowKeyColumn) + "=$" + std::to_string(columns.size() + 1);
    // 1/0 (SQLSTATE 22012) when no row was changed; told as what it means.
    sql += " RETURNING 1) SELECT 1/count(*) FROM changed";
    std::vector<Variant> params = values;
    params.push_back(row_key);
    Sent& sent = SendWrite(sql, params, table, columns);
    sent.gone = "the row " + row_key.Describe() + " of " + table + " has gone from the store";
    if (!SendsAhead()) Settle(sql);
  }

  void DeleteRow(const std::string& table, const Variant& row_key) override {
    std::string sql = "DELETE FROM " + QuoteIdentifier(table) + " WHERE " + QuoteIdentifier(kRowKeyColumn) + "=$1";
    SendWrite(sql, {row_key}, table, {});
    if (!SendsAhead()) Settle(sql);
  }

  // A read snapshot is a transaction of repeatable reads: every statement of it
  // sees the store as of its first. Its BEGIN goes with the first of them.
  void BeginRead() override {
    if (!conn_ || PQstatus(conn_.get()) != CONNECTION_OK || own_write_ || joined_ || reading_) return;
    if (sent_.empty() && PQtransactionStatus(conn_.get()) != PQTRANS_IDLE) return;  // the host's own transaction
    SendControl("BEGIN ISOLATION LEVEL REPEATABLE READ");
    // The reads of a snapshot are those of a load, read ahead for many keys and
    // sorted by the server: in memory rather than on disk.
    SendControl("SET LOCAL work_mem = '64MB'");
    reading_ = true;
  }

  void EndRead() override {
    EndSnapshotForWrite();
    // The snapshot's end is sent at once (the server lets go of what the
    // snapshot holds); its answer comes with the next statement.
    if (conn_ && !sent_.empty()) wire_.Push("ROLLBACK");
  }

  // One writer at a time per store, as SQLite's BEGIN IMMEDIATE has it: the
  // transaction takes a lock of the store's schema (an advisory lock, held to its
  // end) before it reads anything. A save that looks for its row and then
  // inserts it is so never run beside another program's save of the same row:
  // the second waits (up to the busy timeout, as lock_timeout), then finds the
  // first one's row and changes it, and two first saves of one pay month leave
  // one whole row. The unique indexes of the schema guard the same keys against
  // programs that write without the lock. Reads take no lock and see what
  // committed before each statement.
  void BeginWrite(WriteOptions options) override {
    RequireOpen("BEGIN");
    if (settings_.read_only)
      throw StoreError("the store is open read-only; nothing was written", path_,
                       "it was opened with 'readonly' in its connect text");
    // A read snapshot ends here: the write needs a transaction of its own, so that
    // its Commit makes it durable at once.
    const bool snapshot = reading_;
    EndSnapshotForWrite();
    // A transaction the host began by its own statement (BEGIN) is joined and
    // left for the host to end.
    joined_ = !snapshot && sent_.empty() && PQtransactionStatus(conn_.get()) != PQTRANS_IDLE;
    if (joined_) return;
    keep_on_failure_ = options.keep_on_failure;
    SendControl("BEGIN");
    SendControl(kWriteLock).lock = true;
    own_write_ = true;
    steps_ = 0;
    if (options.lock_at_once) Settle("BEGIN");
  }

  // The COMMIT goes with the writes sent ahead. Where one of them failed, the
  // server ran nothing after it: what came before it is kept (committed) when the
  // transaction keeps what it wrote, else nothing is; either way the failure is
  // raised.
  void CommitWrite() override {
    if (std::exchange(joined_, false) || !own_write_) return;
    RequireOpen("COMMIT");
    SendControl("COMMIT");
    commit_sent_ = true;
    try {
      Settle("COMMIT");
    } catch (...) {
      own_write_ = commit_sent_ = false;
      throw;
    }
    own_write_ = commit_sent_ = false;
  }

  void RollbackWrite() override {
    if (std::exchange(joined_, false) || !std::exchange(own_write_, false) || !conn_) return;
    if (PQstatus(conn_.get()) != CONNECTION_OK) return;
    // What was sent ahead is of no account any more.
    SendControl("ROLLBACK");
    try {
      Settle("ROLLBACK");
    } catch (const StoreError&) {
    }
  }

  std::vector<std::string> IntegrityProblems() override {
    RequireOpen("the catalog");
    return postgres::CatalogProblems(conn_.get(), server_);
  }

  Variant Normalize(const Variant& value, Affinity affinity) const override {
    if (affinity == Affinity::Any && value.IsNumber()) return UntypedValue(UntypedText(StoredForm(value, affinity)));
    return StoredForm(value, affinity);
  }

 private:
  struct Statement {
    std::string name;                            // "" when not cached
    std::list<std::string>::iterator position;
    std::shared_ptr<const ColumnLayout> layout;  // made at the first fetch or describe
    std::vector<Affinity> param_affinities;      // for writes: those of the columns the parameters go into
    bool described = false;
  };

  // A command sent and not yet answered, with what its answer means.
  struct Sent {
    Wire::AnswerPtr answer;
    std::string subject;    // the statement, for a message
    int step = 0;           // the savepoint set just before it (0: none)
    bool lock = false;      // the write lock: a failure is another program's lock
    std::string prepared;   // the key of the statement it prepares: forgotten if that failed
    std::string gone;       // an update's row: what SQLSTATE 22012 means
  };

  bool SendsAhead() const { return own_write_; }

  Sent& Send(Wire::AnswerPtr answer, std::string_view subject, int step = 0) {
    answer->subject = subject;
    return sent_.emplace_back(Sent{std::move(answer), std::string(subject), step, false, {}, {}});
  }

  Sent& SendControl(const char* sql) { return Send(wire_.RunText(sql), sql); }

  // A statement of the domain's (declared parameter types) or of the store
  // layer's own writes, prepared if need be, after its savepoint.
  Sent& SendStatement(const std::string& text, const std::vector<Variant>& params, std::string_view subject,
                      bool declare, bool binary = false) {
    Statement& statement = Prepare(text, params, subject, declare);
    texts_.Set(params, statement.param_affinities);
    int step = SaveStep();
    Send(wire_.Run(statement.name, texts_.values, binary), subject, step);
    const std::size_t at = sent_.size() - 1;
    if (cache_limit_ == 0) Forget(KeyOf(text, params, declare));
    return sent_[at];
  }

  // A write of the store layer's own: its parameters are declared by the
  // columns they go into, and each value is sent in the form that column holds.
  Sent& SendWrite(const std::string& text, const std::vector<Variant>& values, const std::string& table,
                  const std::vector<std::string>& columns) {
    EndSnapshotForWrite();
    const std::vector<Affinity>& affinities =
        ParamAffinities(Prepare(text, values, text, false), text, table, columns, values.size());
    std::vector<Variant> stored(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) stored[i] = StoredForm(values[i], affinities[i]);
    return SendStatement(text, stored, text, false);
  }

  static std::string InsertSql(const std::string& table, const std::vector<std::string>& columns) {
    std::string sql = "INSERT INTO " + QuoteIdentifier(table);
    if (columns.empty()) sql += " DEFAULT VALUES";
    else sql += " (" + QuotedIdentifierList(columns) + ") VALUES (" + Placeholders(columns.size()) + ")";
    return sql + " RETURNING *";
  }

  Wire::AnswerPtr SendInsert(const std::string& table, const std::vector<std::string>& columns,
                             const std::vector<Variant>& values) {
    return SendWrite(InsertSql(table, columns), values, table, columns).answer;
  }

  // A write ends a read snapshot first: made within it, it would become durable
  // only with the snapshot's end.
  void EndSnapshotForWrite() {
    if (!std::exchange(reading_, false) || !conn_ || PQstatus(conn_.get()) != CONNECTION_OK) return;
    SendControl("ROLLBACK");
  }

  void RequireOpen(std::string_view subject) {
    if (!conn_) throw StoreError("the store is closed", std::string(subject));
    // A connection the server dropped (a restart, an administrator) is made
    // anew before the next statement; its prepared statements went with it.
    if (PQstatus(conn_.get()) == CONNECTION_BAD) {
      // Within a write transaction the lost connection took the transaction
      // with it: that save fails whole.
      if (own_write_) ThrowRefused("statement refused by the store", subject, conn_.get(), nullptr, server_);
      reading_ = false;  // the snapshot went with the connection
      sent_.clear();
      steps_ = 0;
      statements_.clear();
      order_.clear();
      PQreset(conn_.get());
      if (PQstatus(conn_.get()) != CONNECTION_OK)
        ThrowRefused("statement refused by the store", subject, conn_.get(), nullptr, server_);
      SetUpSession(conn_.get(), server_, settings_);
      wire_.Attach(conn_.get(), &server_, settings_.statement_timeout_ms);
    }
  }

  // Within a write transaction of ours every statement runs after a savepoint of
  // its own, so that one the server refuses is undone with what was sent after
  // it, and the transaction goes on with what was written before it, as on
  // SQLite (where a failed statement ends nothing). The savepoints of a pipeline
  // are released together at the start of the next one. They cost no round trip.
  int SaveStep() {
    if (!own_write_) return 0;
    if (sent_.empty() && steps_ > 0) {
      SendControl("RELEASE SAVEPOINT ormelix_1");
      steps_ = 0;
    }
    const std::string sql = "SAVEPOINT ormelix_" + std::to_string(++steps_);
    Send(wire_.RunText(sql), "SAVEPOINT");
    return steps_;
  }

  // Waits for the answers of what was sent, and raises the first failure among
  // them: see Failed.
  void Settle(std::string_view subject, const std::function<void(Wire::Answer&)>& answered = {}) {
    if (sent_.empty()) return;
    std::vector<Sent> sent = std::move(sent_);
    sent_.clear();
    try {
      wire_.Sync(subject, answered);
    } catch (...) {
      reading_ = false;  // the connection is gone, and the snapshot with it
      throw;
    }
    const Sent* failure = nullptr;
    for (const Sent& one : sent) {
      const PGresult* result = one.answer->result.get();
      bool ok = result && !postgres::Failed(result);
      if (!ok && !one.prepared.empty()) Forget(one.prepared, false);
      if (!ok && !failure && !one.answer->skipped) failure = &one;
    }
    if (failure) Refuse(failure->subject, failure->answer->result.get(), failure->step, *failure);
  }

  // A statement the server refused, answered now: raised as a StoreError about it.
  // Within a write transaction of ours, its savepoint takes back it and what was
  // sent after it; where the transaction cannot go on (its lock was not had, or
  // its COMMIT failed) it is rolled back.
  [[noreturn]] void Refuse(std::string_view subject, const PGresult* result, int step) { Refuse(subject, result, step, {}); }
  [[noreturn]] void Refuse(std::string_view subject, const PGresult* result, int step, const Sent& what) {
    const char* code = result ? PQresultErrorField(result, PG_DIAG_SQLSTATE) : nullptr;
    const std::string state = code ? code : "";
    const bool open = conn_ && PQstatus(conn_.get()) == CONNECTION_OK;
    if (reading_ && open && PQtransactionStatus(conn_.get()) == PQTRANS_INERROR) {
      // A refused statement spoils the snapshot's transaction for every statement
      // after it: the snapshot ends, and the reads after it (of a caller that goes
      // on) run statement by statement, as they would on SQLite.
      reading_ = false;
      Rollback("ROLLBACK");
    }
    if (own_write_ && open && (what.lock || step == 0 || what.subject == "COMMIT")) {
      own_write_ = false;
      Rollback("ROLLBACK");
    } else if (own_write_ && open) {
      Rollback("ROLLBACK TO SAVEPOINT ormelix_" + std::to_string(step));
      steps_ = step;
      // Where the commit was sent with the failed statement it was not run: the
      // transaction ends now, keeping what came before the failure if it keeps
      // what it wrote.
      if (commit_sent_) {
        own_write_ = false;
        Rollback(keep_on_failure_ ? "COMMIT" : "ROLLBACK");
      }
    }
    if (what.lock && state == "55P03")
      throw StoreError("the store is locked by another program", path_,
                       "it stayed locked longer than " + std::to_string(settings_.lock_timeout_ms) +
                           " ms (SQLSTATE 55P03, server " + server_.shown +
                           "); try again when the other program has finished");
    if (!what.gone.empty() && state == "22012")
      throw StoreError("row cannot be located for updating", std::string(subject), what.gone);
    ThrowRefused("statement refused by the store", subject, conn_.get(), result, server_);
  }

  // A statement of the transaction's control, answered at once; its own failure
  // is of no account (the transaction is over either way).
  void Rollback(const std::string& sql) {
    try {
      ResultHandle ignored = wire_.Exec(sql);
    } catch (const StoreError&) {
    }
  }

  static std::string KeyOf(const std::string& text, const std::vector<Variant>& params, bool declare) {
    if (!declare) return text;
    std::string key = text;
    key += '\x1f';
    for (const Variant& value : params) key += static_cast<char>('0' + DeclaredType(value) % 64);
    return key;
  }

  // The prepared statement of a text (and of the types of its parameters),
  // prepared at its first use (sent with the statement that uses it) and kept;
  // the oldest goes when the cache is full.
  Statement& Prepare(const std::string& text, const std::vector<Variant>& params, std::string_view subject,
                     bool declare) {
    RequireOpen(subject);
    std::string key = KeyOf(text, params, declare);
    auto found = statements_.find(key);
    if (found != statements_.end()) return found->second;
    if (cache_limit_ > 0 && statements_.size() >= cache_limit_) Forget(order_.front());
    std::vector<Oid> types(params.size(), kUnknown);
    if (declare) std::transform(params.begin(), params.end(), types.begin(), DeclaredType);
    std::string name = cache_limit_ > 0 ? "ormelix_" + std::to_string(++prepared_) : "";
    Send(wire_.Prepare(name, text, types), subject, SaveStep()).prepared = key;
    order_.push_back(key);
    Statement& statement = statements_[key];
    statement.name = std::move(name);
    statement.position = std::prev(order_.end());
    return statement;
  }

  // Drops a statement from the cache (and, when it was prepared, from the server:
  // sent with the next statement).
  void Forget(const std::string& key, bool deallocate = true) {
    auto found = statements_.find(key);
    if (found == statements_.end()) return;
    if (deallocate && !found->second.name.empty()) Send(wire_.RunText("DEALLOCATE " + found->second.name), "DEALLOCATE");
    order_.erase(found->second.position);
    statements_.erase(found);
  }

  // The affinities of the columns a write's parameters go into: the first
  // `count` parameters go into the columns named, of the table, and any further
  // one compares with its row key. Known from the columns of the table's rows read
  // before (a recordset that writes has read or described them), else as the
  // server read them when it prepared the statement (a wait for it).
  const std::vector<Affinity>& ParamAffinities(Statement& statement, std::string_view subject, const std::string& table,
                                               const std::vector<std::string>& columns, std::size_t count) {
    if (statement.described) return statement.param_affinities;
    statement.param_affinities.clear();
    for (std::size_t i = 0; i < count; ++i) {
      auto known = column_affinities_.find(ColumnKey(table, i < columns.size() ? columns[i] : kRowKeyColumn));
      if (known == column_affinities_.end()) break;
      statement.param_affinities.push_back(known->second);
    }
    if (statement.param_affinities.size() != count) {
      Wire::AnswerPtr description = Send(wire_.Describe(statement.name), subject).answer;
      Settle(subject);
      statement.param_affinities.clear();
      for (int i = 0; i < PQnparams(description->result.get()); ++i) {
        Affinity affinity = AffinityOf(PQparamtype(description->result.get(), i));
        auto index = static_cast<std::size_t>(i);
        if (affinity == Affinity::Text && index < columns.size() && IsUntypedColumn(table, columns[index]))
          affinity = Affinity::Any;
        statement.param_affinities.push_back(affinity);
      }
    }
    statement.described = true;
    return statement.param_affinities;
  }

  static std::string ColumnKey(std::string_view table, std::string_view column) {
    return FoldCase(table) + "." + FoldCase(column);
  }

  static long Changes(const PGresult* result) {
    const char* count = PQcmdTuples(const_cast<PGresult*>(result));
    return count && *count ? std::atol(count) : 0;
  }

  QueryResult FetchAnswer(const std::string& text, const std::vector<Variant>& params, const Wire::AnswerPtr& answer) {
    return Fetch(answer->result.get(), LayoutOf(text, params, answer->result.get()));
  }

  // Whether the columns of a prepared statement's result are known (no catalogue
  // read to make them).
  bool KnownLayout(const std::string& text, const std::vector<Variant>& params) const {
    auto found = statements_.find(KeyOf(text, params, true));
    return found != statements_.end() && found->second.layout;
  }

  std::shared_ptr<const ColumnLayout> LayoutOf(const std::string& text, const std::vector<Variant>& params,
                                               const PGresult* result) {
    auto found = statements_.find(KeyOf(text, params, true));
    if (found == statements_.end()) found = statements_.find(KeyOf(text, params, false));
    if (found != statements_.end() && found->second.layout) return found->second.layout;
    std::shared_ptr<const ColumnLayout> layout = MakeLayout(result);
    if (found != statements_.end()) found->second.layout = layout;
    return layout;
  }

  std::shared_ptr<const ColumnLayout> MakeLayout(const PGresult* result) {
    std::vector<ColumnInfo> columns;
    int count = PQnfields(result);
    columns.reserve(count);
    for (int i = 0; i < count; ++i) {
      ColumnInfo column{PQfname(result, i), TableName(PQftable(result, i)), AffinityOf(PQftype(result, i))};
      if (column.affinity == Affinity::Text && IsUntypedColumn(column.table, column.name)) column.affinity = Affinity::Any;
      if (!column.table.empty()) column_affinities_[ColumnKey(column.table, column.name)] = column.affinity;
      columns.push_back(std::move(column));
    }
    return std::make_shared<const ColumnLayout>(std::move(columns));
  }

  // The name of a table by its number, from the catalogue, kept for the
  // connection: the tables of the store's schema are read at the first need, all
  // at once; a table elsewhere is looked up by its number.
  std::string TableName(Oid table) {
    if (table == InvalidOid) return "";
    ReadTableNamesOnce();
    auto found = tables_.find(table);
    if (found != tables_.end()) return found->second;
    ReadTableNames("SELECT oid::text, relname FROM pg_class WHERE oid = " + std::to_string(table));
    return tables_[table];
  }

  void ReadTableNamesOnce() {
    if (std::exchange(tables_read_, true)) return;
    ReadTableNames("SELECT c.oid::text, c.relname FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace "
                   "WHERE n.nspname = ANY (current_schemas(false))");
  }

  // Whether the tables of a result's columns are all known by name.
  bool TablesKnown(const PGresult* result) const {
    for (int i = 0; i < PQnfields(result); ++i)
      if (PQftable(result, i) != InvalidOid && !tables_.count(PQftable(result, i))) return false;
    return true;
  }

  void ReadTableNames(const std::string& sql) {
    Settle(sql);
    ResultHandle result = wire_.Exec(sql);
    if (Failed(result.get())) return;
    for (int row = 0; row < PQntuples(result.get()); ++row)
      tables_[static_cast<Oid>(std::stoul(PQgetvalue(result.get(), row, 0)))] = PQgetvalue(result.get(), row, 1);
  }

  static bool Failed(const PGresult* result) { return postgres::Failed(result); }

  QueryResult Fetch(const PGresult* result, std::shared_ptr<const ColumnLayout> layout) {
    QueryResult out;
    out.layout = std::move(layout);
    int rows = PQntuples(result);
    int count = PQnfields(result);
    std::vector<Oid> types(count);
    bool binary = false;
    for (int i = 0; i < count; ++i) {
      types[i] = out.layout->Columns()[i].affinity == Affinity::Any ? kUnknown : PQftype(result, i);
      if (PQfformat(result, i) == 0) continue;
      binary = true;
      if (!HasBinaryForm(types[i]))
        throw StoreError("cannot read a column in binary form", out.layout->Columns()[i].name,
                         "its type " + std::to_string(types[i]) + " has no binary form here");
    }
    out.cells = TakeSpare();
    out.cells.reserve(static_cast<std::size_t>(rows) * count);
    for (int row = 0; row < rows; ++row) {
      for (int column = 0; column < count; ++column)
        out.cells.push_back(binary ? BinaryCell(result, row, column, types[column]) : Cell(result, row, column, types[column]));
      // Answers still coming (of the statements sent with this one) are taken off
      // the connection meanwhile, so that the server goes on making them instead
      // of waiting for room to send them in.
      if (row % 256 == 255 && conn_) PQconsumeInput(conn_.get());
    }
    return out;
  }

  Server server_;
  SessionSettings settings_;
  ConnectionHandle conn_;
  Wire wire_;
  std::string path_;
  std::string connect_;
  std::size_t cache_limit_ = 256;
  long prepared_ = 0;
  std::unordered_map<std::string, Statement> statements_;
  std::list<std::string> order_;  // oldest first, for eviction
  std::unordered_map<Oid, std::string> tables_;
  std::unordered_map<std::string, Affinity> column_affinities_;  // by "table.column", folded
  bool tables_read_ = false;
  ParamTexts texts_;
  std::vector<Sent> sent_;        // sent and not yet answered, in order
  int steps_ = 0;                 // savepoints ormelix_1 .. ormelix_steps_ of the latest pipeline
  bool own_write_ = false;        // a write transaction of ours is open
  bool keep_on_failure_ = false;  // ... that keeps what came before a failed statement
  bool commit_sent_ = false;      // its COMMIT is among what was sent
  bool joined_ = false;           // BeginWrite found the host's own transaction open
  bool reading_ = false;          // a read snapshot (BeginRead) is open
};

}  // namespace

std::shared_ptr<Backend> MakePostgresBackend() { return std::make_shared<PostgresBackend>(); }

}  // namespace ormelix::detail
