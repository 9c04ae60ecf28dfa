// The PostgreSQL backend: one connection, prepared statements cached by their
// text, values sent and read in text form, booleans as smallint -1/0, dates as
// day counts, the text order as the ICU collation the schema declares.
#include <libpq-fe.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <list>
#include <unordered_map>

#include "../backend.h"
#include "connection.h"
#include "handles.h"
#include "maintenance.h"
#include "ormelix/error.h"
#include "ormelix/text.h"

namespace ormelix::detail {

namespace {

using postgres::ConnectionHandle;
using postgres::ResultHandle;
using postgres::Server;

// Type numbers of pg_type that the store's columns and expressions give.
constexpr Oid kBool = 16, kInt8 = 20, kInt2 = 21, kInt4 = 23, kText = 25, kFloat4 = 700, kFloat8 = 701,
              kBpchar = 1042, kVarchar = 1043, kNumeric = 1700, kUnknown = 0;

Affinity AffinityOf(Oid type) {
  switch (type) {
    case kBool:
    case kInt2:
    case kInt4:
    case kInt8:
      return Affinity::Integer;
    case kFloat4:
    case kFloat8:
    case kNumeric:
      return Affinity::Real;
    case kText:
    case kBpchar:
    case kVarchar:
      return Affinity::Text;
    default:
      return Affinity::Any;
  }
}

std::string IntegerText(std::int64_t value) {
  char buffer[24];
  auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  return std::string(buffer, end);
}

// A value as a column of that affinity holds it: a whole number in an integer
// column (rounded half to even, as PostgreSQL rounds), a double in a real one, a
// text in a text column. What cannot be converted stays, for the server to refuse.
Variant StoredForm(const Variant& value, Affinity affinity) {
  if (value.kind() == Variant::Boolean) return Variant(static_cast<std::int64_t>(value.AsBool() ? -1 : 0));
  if (value.IsMissing()) return value;
  double number = 0;
  switch (affinity) {
    case Affinity::Integer:
      if (!value.TryNumber(number) || std::fabs(number) >= 9.2e18) return value;
      return value.kind() == Variant::Integer ? value : Variant(static_cast<std::int64_t>(std::nearbyint(number)));
    case Affinity::Real:
      if (!value.TryNumber(number)) return value;
      return Variant(number);
    case Affinity::Text:
      if (value.kind() == Variant::Integer) return Variant(IntegerText(value.AsInteger()));
      if (value.kind() == Variant::Double) return Variant(DoubleAsStoredText(value.AsDouble()));
      return value;
    case Affinity::Any:
      return value;  // written as UntypedText, read back by UntypedValue
  }
  return value;
}

// A column of no fixed type is a text column on PostgreSQL. A number goes in as
// text that reads back as that number in its kind: a whole number as "3", a
// double always with a point or exponent ("3.0", "1.25"), to every digit.
std::string UntypedText(const Variant& value) {
  if (value.kind() == Variant::Integer) return IntegerText(value.AsInteger());
  std::string text = FormatNumber(value.AsDouble());
  if (text.find_first_of(".eEn") == std::string::npos) text += ".0";
  return text;
}

// What a text of such a column was: a number in one of those forms is that
// number again (so a text that reads as one comes back as a number: the one
// difference from SQLite, whose untyped columns keep the kind of each value).
Variant UntypedValue(std::string_view text) {
  if (text.empty() || text.size() > 32) return Variant(text);
  const char* begin = text.data();
  const char* end = begin + text.size();
  std::int64_t whole = 0;
  auto [at, error] = std::from_chars(begin, end, whole);
  if (error == std::errc() && at == end && (text[0] != '0' || text.size() == 1)) return Variant(whole);
  double number = 0;
  auto [dat, derror] = std::from_chars(begin, end, number);
  if (derror == std::errc() && dat == end && text.find_first_of(".eE") != std::string_view::npos &&
      UntypedText(Variant(number)) == text)
    return Variant(number);
  return Variant(text);
}

// The text form of a value that is not Null: booleans as -1/0, numbers to every digit.
std::string TextForm(const Variant& value) {
  switch (value.kind()) {
    case Variant::Boolean:
      return value.AsBool() ? "-1" : "0";
    case Variant::Integer:
      return IntegerText(value.AsInteger());
    case Variant::Double:
      return FormatNumber(value.AsDouble());
    default:
      return value.AsText();
  }
}

// $1,$2,$3 for as many parameters.
std::string Placeholders(std::size_t count) {
  std::string marks;
  for (std::size_t i = 1; i <= count; ++i) marks += (i > 1 ? ",$" : "$") + std::to_string(i);
  return marks;
}

// The text form of a parameter (Null as no text at all).
struct ParamTexts {
  std::vector<std::string> texts;
  std::vector<const char*> values;

  void Set(const std::vector<Variant>& params) {
    texts.assign(params.size(), {});
    values.assign(params.size(), nullptr);
    for (std::size_t i = 0; i < params.size(); ++i) {
      if (params[i].IsMissing()) continue;
      texts[i] = TextForm(params[i]);
      values[i] = texts[i].c_str();
    }
  }
  // The same for the columns the values go into: a number for a column of no
  // fixed type in its own text form.
  void Set(const std::vector<Variant>& params, const std::vector<Affinity>& affinities) {
    Set(params);
    for (std::size_t i = 0; i < params.size() && i < affinities.size(); ++i) {
      if (affinities[i] != Affinity::Any || !values[i] || params[i].IsText()) continue;
      texts[i] = UntypedText(params[i]);
      values[i] = texts[i].c_str();
    }
  }
};

// The type a statement's parameter is declared with: numbers as what they are,
// so that "[Gehalt]=100" compares numbers; texts and Null as unknown, which the
// server reads as the type the place of the parameter wants.
Oid DeclaredType(const Variant& value) {
  switch (value.kind()) {
    case Variant::Integer:
    case Variant::Boolean:
      return kInt8;
    case Variant::Double:
      return kFloat8;
    default:
      return kUnknown;
  }
}

// A cell in text form as the column's type gives it (kUnknown: a column of no
// fixed type).
Variant Cell(const PGresult* result, int row, int column, Oid type) {
  if (PQgetisnull(result, row, column)) return Variant::NullValue();
  const char* text = PQgetvalue(result, row, column);
  int length = PQgetlength(result, row, column);
  switch (type) {
    case kUnknown:
      return UntypedValue(std::string_view(text, static_cast<std::size_t>(length)));
    case kInt2:
    case kInt4:
    case kInt8: {
      std::int64_t number = 0;
      std::from_chars(text, text + length, number);
      return Variant(number);
    }
    case kFloat4:
    case kFloat8:
    case kNumeric: {
      double number = 0;
      if (std::from_chars(text, text + length, number).ec != std::errc()) number = std::strtod(text, nullptr);
      return Variant(number);
    }
    case kBool:
      return Variant(static_cast<std::int64_t>(text[0] == 't' ? -1 : 0));
    default:
      return Variant(std::string(text, static_cast<std::size_t>(length)));
  }
}

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
    cache_limit_ = options.statement_cache;
    conn_ = postgres::Connect(server_, settings_, create);
    path_ = server_.shown;
    connect_ = connect;
  }

  void Close() override {
    own_write_ = joined_ = step_saved_ = reading_ = false;
    statements_.clear();
    order_.clear();
    tables_.clear();
    conn_.Reset();
  }

  bool IsOpen() const override { return static_cast<bool>(conn_); }
  std::string Path() const override { return path_; }
  std::string Connect() const override { return connect_; }

  QueryResult Query(std::string_view jet_sql) override {
    const TranslatedSql& sql = Translate(jet_sql);
    ResultHandle result = Run(sql.text, sql.params, jet_sql, /*declare=*/true);
    return Fetch(result.get(), LayoutOf(sql.text, sql.params, result.get()));
  }

  std::shared_ptr<const ColumnLayout> Describe(std::string_view jet_sql) override {
    const TranslatedSql& sql = Translate(jet_sql);
    Statement& statement = Prepare(sql.text, sql.params, jet_sql, /*declare=*/true);
    if (!statement.layout) {
      ResultHandle description(PQdescribePrepared(conn_.get(), statement.name.c_str()));
      if (postgres::Failed(description.get())) Refused(jet_sql, description.get());
      statement.layout = MakeLayout(description.get());
    }
    std::shared_ptr<const ColumnLayout> layout = statement.layout;
    if (cache_limit_ == 0) Forget(statement);
    return layout;
  }

  long Execute(std::string_view jet_sql) override {
    EndSnapshotForWrite();
    const TranslatedSql& sql = Translate(jet_sql);
    ResultHandle result = Run(sql.text, sql.params, jet_sql, /*declare=*/true);
    return Changes(result.get());
  }

  void ExecuteNative(const std::string& script) override {
    RequireOpen(script);
    ResultHandle result(PQexec(conn_.get(), script.c_str()));
    if (postgres::Failed(result.get())) Refused(script, result.get());
  }

  QueryResult InsertRow(const std::string& table, const std::vector<std::string>& columns,
                        const std::vector<Variant>& values) override {
    EndSnapshotForWrite();
    std::string sql = "INSERT INTO " + QuoteIdentifier(table);
    if (columns.empty()) sql += " DEFAULT VALUES";
    else sql += " (" + QuotedIdentifierList(columns) + ") VALUES (" + Placeholders(columns.size()) + ")";
    sql += " RETURNING *";
    ResultHandle result = RunWrite(sql, values, table, columns);
    return Fetch(result.get(), LayoutOf(sql, values, result.get()));
  }

  // COPY: one statement for all rows, each value in the form its column holds.
  void InsertRows(const std::string& table, const std::vector<std::string>& columns,
                  const std::vector<Variant>& cells) override {
    if (columns.empty() || cells.empty()) return;
    const std::string names = QuotedIdentifierList(columns);
    std::string insert =
        "INSERT INTO " + QuoteIdentifier(table) + " (" + names + ") VALUES (" + Placeholders(columns.size()) + ")";
    Statement& statement = Prepare(insert, {}, insert, false);
    std::vector<Affinity> affinities = ParamAffinities(statement, insert, table, columns);
    if (cache_limit_ == 0) Forget(statement);
    std::string sql = "COPY " + QuoteIdentifier(table) + " (" + names + ") FROM STDIN";
    SaveStep();
    ResultHandle start(PQexec(conn_.get(), sql.c_str()));
    if (PQresultStatus(start.get()) != PGRES_COPY_IN) Refused(sql, start.get());
    std::string buffer;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      std::size_t column = i % columns.size();
      if (column) buffer += '\t';
      const Variant& cell = cells[i];
      bool untyped = affinities[column] == Affinity::Any && cell.IsNumber();
      AppendCopyText(untyped ? Variant(UntypedText(StoredForm(cell, Affinity::Any))) : StoredForm(cell, affinities[column]),
                     buffer);
      if (column + 1 == columns.size()) buffer += '\n';
      if (buffer.size() > (1 << 16) || i + 1 == cells.size()) {
        if (PQputCopyData(conn_.get(), buffer.data(), static_cast<int>(buffer.size())) != 1) break;
        buffer.clear();
      }
    }
    PQputCopyEnd(conn_.get(), nullptr);
    for (PGresult* raw; (raw = PQgetResult(conn_.get())) != nullptr;) {
      ResultHandle result(raw);
      if (postgres::Failed(result.get())) Refused(sql, result.get());
    }
  }

  void UpdateRow(const std::string& table, const Variant& row_key, const std::vector<std::string>& columns,
                 const std::vector<Variant>& values) override {
    EndSnapshotForWrite();
    if (columns.empty()) return;
    std::string sql = "UPDATE " + QuoteIdentifier(table) + " SET ";
    sql.reserve(sql.size() + columns.size() * 36);
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (i) sql += ',';
      AppendQuotedIdentifier(sql, columns[i]);
      sql += "=$" + std::to_string(i + 1);
    }
    sql += " WHERE " + QuoteIdentifier(kRowKeyColumn) + "=$" + std::to_string(columns.size() + 1);
    std::vector<Variant> params = values;
    params.push_back(row_key);
    ResultHandle result = RunWrite(sql, params, table, columns);
    if (Changes(result.get()) == 0)
      throw StoreError("row cannot be located for updating", sql,
                       "the row " + row_key.Describe() + " of " + table + " has gone from the store");
  }

  void DeleteRow(const std::string& table, const Variant& row_key) override {
    EndSnapshotForWrite();
    std::string sql = "DELETE FROM " + QuoteIdentifier(table) + " WHERE " + QuoteIdentifier(kRowKeyColumn) + "=$1";
    RunWrite(sql, {row_key}, table, {});
  }

  // A read snapshot is a transaction of repeatable reads: every statement of it
  // sees the store as of its first.
  void BeginRead() override {
    if (!conn_ || PQstatus(conn_.get()) != CONNECTION_OK || PQtransactionStatus(conn_.get()) != PQTRANS_IDLE) return;
    ResultHandle result(PQexec(conn_.get(), "BEGIN ISOLATION LEVEL REPEATABLE READ"));
    if (postgres::Failed(result.get())) Refused("BEGIN", result.get());
    reading_ = true;
  }

  void EndRead() override { EndSnapshotForWrite(); }

  // One writer at a time per store, as SQLite's BEGIN IMMEDIATE has it: the
  // transaction takes a lock of the store's schema (an advisory lock, held to its
  // end) before it reads anything. A save that looks for its row and then
  // inserts it is so never run beside another program's save of the same row:
  // the second waits (up to the busy timeout, as lock_timeout), then finds the
  // first one's row and changes it, and two first saves of one pay month leave
  // one whole row. The unique indexes of the schema guard the same keys against
  // programs that write without the lock. Reads take no lock and see what
  // committed before each statement.
  void BeginWrite() override {
    // A read snapshot ends here: the write needs a transaction of its own, so that
    // its Commit makes it durable at once.
    EndSnapshotForWrite();
    RequireOpen("BEGIN");
    if (settings_.read_only)
      throw StoreError("the store is open read-only; nothing was written", path_,
                       "it was opened with 'readonly' in its connect text");
    // A transaction the host began by its own statement (BEGIN) is joined and
    // left for the host to end.
    joined_ = PQtransactionStatus(conn_.get()) != PQTRANS_IDLE;
    if (joined_) return;
    ResultHandle result(PQexec(conn_.get(), "BEGIN; SELECT pg_advisory_xact_lock(1869440344, hashtext(current_schema()))"));
    if (postgres::Failed(result.get())) {
      const char* state = PQresultErrorField(result.get(), PG_DIAG_SQLSTATE);
      ResultHandle ignored(PQexec(conn_.get(), "ROLLBACK"));
      if (state && std::string_view(state) == "55P03")
        throw StoreError("the store is locked by another program", path_,
                         "it stayed locked longer than " + std::to_string(settings_.lock_timeout_ms) +
                             " ms (SQLSTATE 55P03, server " + server_.shown +
                             "); try again when the other program has finished");
      Refused("BEGIN", result.get());
    }
    own_write_ = true;
    step_saved_ = false;
  }

  void CommitWrite() override {
    if (std::exchange(joined_, false) || !std::exchange(own_write_, false)) return;
    RequireOpen("COMMIT");
    bool failed = PQtransactionStatus(conn_.get()) == PQTRANS_INERROR;
    ResultHandle result(PQexec(conn_.get(), failed ? "ROLLBACK" : "COMMIT"));
    if (postgres::Failed(result.get())) Refused("COMMIT", result.get());
    if (failed)
      throw StoreError("the write transaction failed; nothing of it was written", "COMMIT",
                       "a statement of it failed (server " + server_.shown + ")");
  }

  void RollbackWrite() override {
    if (std::exchange(joined_, false) || !std::exchange(own_write_, false) || !conn_) return;
    if (PQstatus(conn_.get()) != CONNECTION_OK || PQtransactionStatus(conn_.get()) == PQTRANS_IDLE) return;
    ResultHandle ignored(PQexec(conn_.get(), "ROLLBACK"));
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

  // A write ends a read snapshot first: made within it, it would become durable
  // only with the snapshot's end.
  void EndSnapshotForWrite() {
    if (std::exchange(reading_, false)) EndReading();
  }

  void RequireOpen(std::string_view subject) {
    if (!conn_) throw StoreError("the store is closed", std::string(subject));
    // A connection the server dropped (a restart, an administrator) is made
    // anew before the next statement; its prepared statements went with it.
    if (PQstatus(conn_.get()) == CONNECTION_BAD) {
      // Within a write transaction the lost connection took the transaction
      // with it: that save fails whole.
      if (own_write_) Refused(subject, nullptr);
      reading_ = false;  // the snapshot went with the connection
      statements_.clear();
      order_.clear();
      PQreset(conn_.get());
      if (PQstatus(conn_.get()) != CONNECTION_OK) Refused(subject, nullptr);
      postgres::SetUpSession(conn_.get(), server_, settings_);
    }
  }

  // Within a write transaction of ours every statement runs after a savepoint,
  // so that one the server refuses is undone alone and the transaction goes on
  // with what was written before it, as on SQLite (where a failed statement
  // ends nothing). One round trip more per statement of a save; loads run
  // outside transactions and pay nothing.
  void SaveStep() {
    if (!own_write_ || PQtransactionStatus(conn_.get()) != PQTRANS_INTRANS) return;
    ResultHandle result(PQexec(conn_.get(), step_saved_ ? "RELEASE SAVEPOINT ormelix_step; SAVEPOINT ormelix_step"
                                                        : "SAVEPOINT ormelix_step"));
    if (postgres::Failed(result.get())) Refused("SAVEPOINT", result.get());
    step_saved_ = true;
  }

  // Ends the transaction of a read snapshot; it wrote nothing.
  void EndReading() {
    if (!conn_ || PQstatus(conn_.get()) != CONNECTION_OK || PQtransactionStatus(conn_.get()) == PQTRANS_IDLE) return;
    ResultHandle ignored(PQexec(conn_.get(), "ROLLBACK"));
  }

  [[noreturn]] void Refused(std::string_view subject, const PGresult* result) {
    // A refused statement spoils the transaction of a read snapshot for every
    // statement after it: the snapshot ends, and the reads after it (of a caller
    // that goes on) run statement by statement, as they would on SQLite.
    if (reading_ && conn_ && PQstatus(conn_.get()) == CONNECTION_OK &&
        PQtransactionStatus(conn_.get()) == PQTRANS_INERROR) {
      reading_ = false;
      EndReading();
    }
    if (own_write_ && step_saved_ && conn_ && PQstatus(conn_.get()) == CONNECTION_OK &&
        PQtransactionStatus(conn_.get()) == PQTRANS_INERROR) {
      ResultHandle undone(PQexec(conn_.get(), "ROLLBACK TO SAVEPOINT ormelix_step"));
    }
    postgres::ThrowRefused("statement refused by the store", subject, conn_.get(), result, server_);
  }

  static std::string KeyOf(const std::string& text, const std::vector<Variant>& params, bool declare) {
    if (!declare) return text;
    std::string key = text;
    key += '\x1f';
    for (const Variant& value : params) key += static_cast<char>('0' + DeclaredType(value) % 64);
    return key;
  }

  // The prepared statement of a text (and of the types of its parameters),
  // prepared at its first use and kept; the oldest goes when the cache is full.
  Statement& Prepare(const std::string& text, const std::vector<Variant>& params, std::string_view subject,
                     bool declare) {
    RequireOpen(subject);
    std::string key = KeyOf(text, params, declare);
    auto found = statements_.find(key);
    if (found != statements_.end()) return found->second;
    if (cache_limit_ > 0 && statements_.size() >= cache_limit_) Forget(statements_.at(order_.front()));
    std::vector<Oid> types(params.size(), kUnknown);
    if (declare) std::transform(params.begin(), params.end(), types.begin(), DeclaredType);
    std::string name = cache_limit_ > 0 ? "ormelix_" + std::to_string(++prepared_) : "";
    SaveStep();
    ResultHandle result(PQprepare(conn_.get(), name.c_str(), text.c_str(), static_cast<int>(types.size()),
                                  types.data()));
    if (postgres::Failed(result.get())) Refused(subject, result.get());
    order_.push_back(key);
    Statement& statement = statements_[key];
    statement.name = std::move(name);
    statement.position = std::prev(order_.end());
    return statement;
  }

  void Forget(Statement& statement) {
    if (!statement.name.empty()) {
      std::string sql = "DEALLOCATE " + statement.name;
      ResultHandle ignored(PQexec(conn_.get(), sql.c_str()));
    }
    std::string key = *statement.position;
    order_.erase(statement.position);
    statements_.erase(key);
  }

  ResultHandle Execute(Statement& statement, const std::vector<Variant>& params, std::string_view subject) {
    texts_.Set(params, statement.param_affinities);
    SaveStep();
    ResultHandle result(PQexecPrepared(conn_.get(), statement.name.c_str(), static_cast<int>(params.size()),
                                       texts_.values.data(), nullptr, nullptr, 0));
    if (postgres::Failed(result.get())) Refused(subject, result.get());
    return result;
  }

  ResultHandle Run(const std::string& text, const std::vector<Variant>& params, std::string_view subject,
                   bool declare) {
    Statement& statement = Prepare(text, params, subject, declare);
    ResultHandle result = Execute(statement, params, subject);
    if (cache_limit_ == 0) Forget(statement);
    return result;
  }

  // A write of the store layer's own: its parameters are declared by the
  // columns they go into, and each value is sent in the form that column holds.
  ResultHandle RunWrite(const std::string& text, const std::vector<Variant>& values, const std::string& table,
                        const std::vector<std::string>& columns) {
    Statement& statement = Prepare(text, values, text, /*declare=*/false);
    const std::vector<Affinity>& affinities = ParamAffinities(statement, text, table, columns);
    std::vector<Variant> stored(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) stored[i] = StoredForm(values[i], affinities[i]);
    ResultHandle result = Execute(statement, stored, text);
    if (cache_limit_ == 0) Forget(statement);
    return result;
  }

  // The affinities of the columns a write's parameters go into, as the server
  // read them when it prepared the statement.
  // The first parameters go into the columns named, of the table.
  const std::vector<Affinity>& ParamAffinities(Statement& statement, std::string_view subject, const std::string& table,
                                               const std::vector<std::string>& columns) {
    if (!statement.described) {
      ResultHandle description(PQdescribePrepared(conn_.get(), statement.name.c_str()));
      if (postgres::Failed(description.get())) Refused(subject, description.get());
      statement.param_affinities.clear();
      for (int i = 0; i < PQnparams(description.get()); ++i) {
        Affinity affinity = AffinityOf(PQparamtype(description.get(), i));
        auto index = static_cast<std::size_t>(i);
        if (affinity == Affinity::Text && index < columns.size() && IsUntypedColumn(table, columns[index]))
          affinity = Affinity::Any;
        statement.param_affinities.push_back(affinity);
      }
      statement.described = true;
    }
    return statement.param_affinities;
  }

  static void AppendCopyText(const Variant& value, std::string& out) {
    switch (value.kind()) {
      case Variant::Empty:
      case Variant::Null:
        out += "\\N";
        return;
      case Variant::Boolean:
      case Variant::Integer:
      case Variant::Double:
        out += TextForm(value);
        return;
      case Variant::Text:
        for (char c : value.AsText()) {
          switch (c) {
            case '\\': out += "\\\\"; break;
            case '\n': out += "\\n"; break;
            case '\r': out += "\\r"; break;
            case '\t': out += "\\t"; break;
            default: out += c;
          }
        }
        return;
    }
  }

  static long Changes(const PGresult* result) {
    const char* count = PQcmdTuples(const_cast<PGresult*>(result));
    return count && *count ? std::atol(count) : 0;
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
      columns.push_back(std::move(column));
    }
    return std::make_shared<const ColumnLayout>(std::move(columns));
  }

  // The name of a table by its number, from the catalogue, kept for the connection.
  std::string TableName(Oid table) {
    if (table == InvalidOid) return "";
    auto found = tables_.find(table);
    if (found != tables_.end()) return found->second;
    std::string number = std::to_string(table);
    const char* values[] = {number.c_str()};
    ResultHandle result(PQexecParams(conn_.get(), "SELECT relname FROM pg_class WHERE oid = $1::oid", 1, nullptr,
                                     values, nullptr, nullptr, 0));
    std::string name = !postgres::Failed(result.get()) && PQntuples(result.get()) ? PQgetvalue(result.get(), 0, 0) : "";
    return tables_.emplace(table, name).first->second;
  }

  QueryResult Fetch(const PGresult* result, std::shared_ptr<const ColumnLayout> layout) {
    QueryResult out;
    out.layout = std::move(layout);
    int rows = PQntuples(result);
    int count = PQnfields(result);
    std::vector<Oid> types(count);
    for (int i = 0; i < count; ++i)
      types[i] = out.layout->Columns()[i].affinity == Affinity::Any ? kUnknown : PQftype(result, i);
    out.cells = TakeSpare();
    out.cells.reserve(static_cast<std::size_t>(rows) * count);
    for (int row = 0; row < rows; ++row)
      for (int column = 0; column < count; ++column) out.cells.push_back(Cell(result, row, column, types[column]));
    return out;
  }

  Server server_;
  postgres::SessionSettings settings_;
  ConnectionHandle conn_;
  std::string path_;
  std::string connect_;
  std::size_t cache_limit_ = 256;
  long prepared_ = 0;
  std::unordered_map<std::string, Statement> statements_;
  std::list<std::string> order_;  // oldest first, for eviction
  std::unordered_map<Oid, std::string> tables_;
  ParamTexts texts_;
  bool own_write_ = false;   // a write transaction of ours is open
  bool joined_ = false;      // BeginWrite found the host's own transaction open
  bool step_saved_ = false;  // the savepoint of the latest statement is set
  bool reading_ = false;     // a read snapshot (BeginRead) is open
};

}  // namespace

std::shared_ptr<Backend> MakePostgresBackend() { return std::make_shared<PostgresBackend>(); }

}  // namespace ormelix::detail
