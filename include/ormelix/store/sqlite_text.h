/// \file
/// For a host's own sqlite3 connection to a store (a report, a maintenance tool):
/// the text order the schema declares on every text column (kTextCollation) and
/// the LCASE and UCASE functions, as every connection of the library has them.
/// Without the order SQLite refuses any statement that compares or sorts a text
/// column of the store ("no such collation sequence: ormelix_text").
#pragma once

struct sqlite3;

namespace ormelix {

/// Registers the order and the two functions on the connection; StoreError if
/// SQLite refuses them.
void RegisterSqliteText(sqlite3* db);

}  // namespace ormelix
