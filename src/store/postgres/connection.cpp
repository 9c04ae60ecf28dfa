#include "connection.h"

#include "../sql_dialect.h"
#include "wire.h"
#include "ormelix/error.h"
#include "ormelix/store/location.h"
#include "ormelix/text.h"

namespace ormelix::detail::postgres {

namespace {

// libpq says why a connection failed only in words; the SQLSTATE the server
// sent with it is not handed out. The cases a user meets are told apart by the
// server's words (its messages are in English on the servers we start; another
// language gives the general code).
std::string ConnectState(std::string_view message) {
  auto has = [&](const char* words) { return message.find(words) != std::string_view::npos; };
  if (has("password authentication failed") || has("no password supplied")) return "28P01";
  if (has("database \"") && has("does not exist")) return "3D000";
  if (has("role \"") && has("does not exist")) return "28000";
  return "08001";
}

[[noreturn]] void ThrowCannotOpen(const Server& server, PGconn* conn) {
  std::string message = server.Clean(conn ? PQerrorMessage(conn) : "out of memory");
  throw StoreError("cannot open store", server.shown,
                   message + " (SQLSTATE " + ConnectState(message) + ", server " + server.shown + ")");
}

// The server's notices (a schema that exists already, cascades of a drop) are no
// failures; the library has no log to write them to.
void IgnoreNotice(void*, const char*) {}

ConnectionHandle Open(const std::string& conninfo) {
  ConnectionHandle conn(PQconnectdb(conninfo.c_str()));
  if (conn) PQsetNoticeProcessor(conn.get(), IgnoreNotice, nullptr);
  return conn;
}

// A statement of the setting-up, its wait bounded by the statement timeout.
ResultHandle Run(PGconn* conn, const std::string& sql, const Server& server, int timeout_ms) {
  Wire wire;
  wire.Attach(conn, &server, timeout_ms);
  ResultHandle result = wire.Exec(sql);
  if (Failed(result.get())) ThrowRefused("statement refused by the store", sql, conn, result.get(), server);
  return result;
}

bool Exists(PGconn* conn, const std::string& sql, const Server& server, int timeout_ms) {
  return PQntuples(Run(conn, sql, server, timeout_ms).get()) > 0;
}

// A new store's database, made through the maintenance database as createdb does.
// UTF-8 and the C locale: the text columns carry the store's own order, so the
// database's default order matters nowhere. A database made meanwhile by another
// program (SQLSTATE 42P04) is as good.
void CreateDatabase(const Server& server, PGconn* refused) {
  std::string name = PQdb(refused) ? PQdb(refused) : "";
  if (name.empty()) ThrowCannotOpen(server, refused);
  ConnectionHandle admin = Open(WithLocationParameter(server.conninfo, "dbname", "postgres"));
  if (PQstatus(admin.get()) != CONNECTION_OK) ThrowCannotOpen(server, admin.get());
  std::string sql = "CREATE DATABASE " + QuoteIdentifier(name) +
                    " TEMPLATE template0 ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C'";
  Wire wire;
  wire.Attach(admin.get(), &server, 60000);
  ResultHandle result = wire.Exec(sql);
  const char* state = PQresultErrorField(result.get(), PG_DIAG_SQLSTATE);
  // Two programs making it at once: the second learns of the first as 42P04, or,
  // when both got past the check, as the unique key of the catalogue (23505).
  bool made_meanwhile = state && (std::string_view(state) == "42P04" || std::string_view(state) == "23505");
  if (Failed(result.get()) && !made_meanwhile)
    ThrowRefused("cannot create the store's database", sql, admin.get(), result.get(), server);
}

}  // namespace

Server Server::Of(const std::string& location) {
  Server server;
  server.conninfo = WithLocationParameter(location, "schema", "");  // the schema parameter is the library's own
  // A server (or a network between) that never answers must not hold the
  // program forever: libpq waits without end unless told otherwise.
  if (LocationParameter(location, "connect_timeout").empty())
    server.conninfo = WithLocationParameter(server.conninfo, "connect_timeout", "10");
  server.schema = LocationParameter(location, "schema");
  server.shown = ShownLocation(location);
  server.password = LocationParameter(location, "password");
  return server;
}

std::string Server::Clean(std::string_view message) const {
  std::string text;
  for (char c : TrimBlanks(message)) {
    bool blank = c == '\n' || c == '\r' || c == '\t' || c == ' ';
    if (blank && (text.empty() || text.back() == ' ')) continue;
    text += blank ? ' ' : c;
  }
  while (!text.empty() && text.back() == ' ') text.pop_back();
  if (password.size() >= 3) {
    for (std::size_t at; (at = text.find(password)) != std::string::npos;) text.replace(at, password.size(), "***");
  }
  return text;
}

ConnectionHandle Connect(const Server& server, const SessionSettings& settings, bool create) {
  ConnectionHandle conn = Open(server.conninfo);
  if (PQstatus(conn.get()) != CONNECTION_OK) {
    if (!create || ConnectState(PQerrorMessage(conn.get())) != "3D000") ThrowCannotOpen(server, conn.get());
    CreateDatabase(server, conn.get());
    conn = Open(server.conninfo);
    if (PQstatus(conn.get()) != CONNECTION_OK) ThrowCannotOpen(server, conn.get());
  }
  const int timeout = settings.statement_timeout_ms;
  if (create && !server.schema.empty())
    Run(conn.get(), "CREATE SCHEMA IF NOT EXISTS " + QuoteIdentifier(server.schema), server, timeout);
  SetUpSession(conn.get(), server, settings);
  if (!Exists(conn.get(), "SELECT current_schema() WHERE current_schema() IS NOT NULL", server, timeout))
    throw StoreError("cannot open store", server.shown,
                     "the database has no schema " + (server.schema.empty() ? "on its search path" : server.schema) +
                         " (server " + server.shown + ")");
  if (create && Exists(conn.get(), "SELECT 1 FROM pg_tables WHERE schemaname = current_schema()", server, timeout))
    throw StoreError("cannot create store", server.shown,
                     "the schema " + std::string(server.schema.empty() ? "of the database" : server.schema) +
                         " holds tables already (server " + server.shown + ")");
  return conn;
}

void SetUpSession(PGconn* conn, const Server& server, const SessionSettings& settings) {
  std::string sql = "SET client_encoding TO 'UTF8'; SET lock_timeout TO " +
                    std::to_string(settings.lock_timeout_ms) + "; SET statement_timeout TO " +
                    std::to_string(settings.statement_timeout_ms) + ";";
  if (!server.schema.empty()) sql += " SET search_path TO " + QuoteIdentifier(server.schema) + ";";
  if (settings.read_only) sql += " SET default_transaction_read_only TO on;";
  Run(conn, sql, server, settings.statement_timeout_ms);
}

bool Failed(const PGresult* result) {
  if (!result) return true;
  ExecStatusType status = PQresultStatus(result);
  return status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK;
}

void ThrowRefused(const char* what_failed, std::string_view subject, PGconn* conn, const PGresult* result,
                  const Server& server) {
  const char* state = result ? PQresultErrorField(result, PG_DIAG_SQLSTATE) : nullptr;
  std::string message;
  if (result && PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY)) {
    message = PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY);
    if (const char* detail = PQresultErrorField(result, PG_DIAG_MESSAGE_DETAIL)) message += " (" + std::string(detail) + ")";
  } else {
    message = result ? PQresultErrorMessage(result) : "";
    if (message.empty()) message = PQerrorMessage(conn);
  }
  std::string code = state ? state : (PQstatus(conn) == CONNECTION_BAD ? "08006" : "XX000");
  throw StoreError(what_failed, std::string(subject),
                   server.Clean(message) + " (SQLSTATE " + code + ", server " + server.shown + ")");
}

}  // namespace ormelix::detail::postgres
