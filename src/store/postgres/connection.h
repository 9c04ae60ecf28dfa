// A connection to a PostgreSQL server for one store: opening it (and, for a new
// store, the database and the schema), the session settings every connection of
// the library has, and the failures of the server as StoreErrors that name the
// server, the statement, PostgreSQL's message and its SQLSTATE, never a password.
#pragma once

#include <string>
#include <string_view>

#include "handles.h"

namespace ormelix::detail::postgres {

// What the library knows of the server of a store.
struct Server {
  std::string conninfo;  // for libpq: the location without the schema parameter, with a connect timeout
  std::string schema;    // "" for the server's search path
  std::string shown;     // the location without its password, for messages
  std::string password;  // the password the location holds, to keep out of messages

  static Server Of(const std::string& location);
  // A message of libpq or the server on one line, the password blotted out.
  std::string Clean(std::string_view message) const;
};

struct SessionSettings {
  bool read_only = false;
  int lock_timeout_ms = 5000;
  int statement_timeout_ms = 60000;  // also the longest wait for any answer
};

// Opens a connection and sets the session up. With create, a database that does
// not exist is created (through the server's maintenance database) and so is the
// schema; a database or schema that holds tables already is refused.
ConnectionHandle Connect(const Server& server, const SessionSettings& settings, bool create);

// Sets up (again, after a reset) what every connection of the library has: UTF-8,
// the store's schema, read-only, the lock and statement timeouts.
void SetUpSession(PGconn* conn, const Server& server, const SessionSettings& settings);

// The failure of a statement: the server's message and SQLSTATE (or, for a lost
// connection, libpq's and 08006), raised as a StoreError about the statement.
[[noreturn]] void ThrowRefused(const char* what_failed, std::string_view subject, PGconn* conn,
                               const PGresult* result, const Server& server);

// True when a result is an error (a null result, a fatal error, a lost connection).
bool Failed(const PGresult* result);

}  // namespace ormelix::detail::postgres
