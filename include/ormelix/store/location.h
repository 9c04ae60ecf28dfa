/// \file
/// Where a store lies. A store is a file (SQLite) or a database on a PostgreSQL
/// server, named by a connection string in either of libpq's forms:
///
/// \code{.unparsed}
///   postgres://user@host:port/payroll            (postgresql:// too)
///   host=/run/postgresql port=5432 dbname=payroll user=lohn
/// \endcode
///
/// Both forms take one parameter of the library's own, schema=NAME, which puts the
/// store's tables into that schema of the database (a payroll store and its
/// reference store can share one database so); without it the tables lie in the
/// schema the server's search path names first (usually public). A connection
/// string that holds a password is never shown as it stands: every error, log line
/// and output of the library shows ShownLocation() of it.
#pragma once

#include <string>
#include <string_view>

namespace ormelix {

/// True for a connection string (either form), false for a file path.
bool IsServerLocation(std::string_view location);

/// The location without its password (a file path as it stands).
std::string ShownLocation(std::string_view location);

/// The value of a parameter of a connection string ("" when it has none), and the
/// connection string with that parameter set (replacing the one it had; an empty
/// value takes the parameter out).
std::string LocationParameter(std::string_view location, std::string_view key);
/// The connection string with the parameter key set to value (see LocationParameter).
std::string WithLocationParameter(std::string_view location, std::string_view key, std::string_view value);

/// The connection string a program hands libpq itself to reach the store as the
/// library does: libpq does not know schema=NAME, so the schema goes onto the
/// search path instead (libpq's options parameter, added to any it has).
std::string LibpqConnectionString(std::string_view location);

}  // namespace ormelix
