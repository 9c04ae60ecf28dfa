// Translation of the Jet-flavoured SQL the domain writes into a backend's dialect.
// Exactly this subset is understood: bracketed identifiers (also with umlauts and
// with a dotted name inside one pair of brackets), bare identifiers, 'text' literals
// built by concatenation, numbers, IDs in braces, #dates#, DELETE *, LCASE/UCASE,
// TRUE/FALSE, AS[x], and one statement per call.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ormelix/store/variant.h"

namespace ormelix::detail {

enum class SqlDialect { Sqlite, Postgres };

// A term of an order the client puts the rows in (see KeyListForm).
struct OrderTerm {
  std::string column;
  bool descending = false;
};

struct TranslatedSql {
  std::string text;              // in the backend's dialect
  std::vector<Variant> params;   // bound to the placeholders in order (? on SQLite, $n on PostgreSQL)
  std::string base_table;        // for "SELECT * FROM <one table> ...": that table, else ""
  bool is_select = false;
  // Of a statement asked for many keys on a server whose order is of number
  // columns only: that order (the row key last), which the server is spared and
  // the client gives the rows of each key (sorting wide rows costs a server more
  // than the statement).
  std::vector<OrderTerm> client_order;
};

// The shape of a statement: its text with the literals that the translation binds
// as parameters each replaced by \x01, and their values in order. Statements of
// one shape translate to one text and differ only in their parameters.
struct SqlShape {
  std::string key;
  std::vector<Variant> params;
};
SqlShape ShapeOf(std::string_view jet_sql);

// A statement asked for many keys at once (see StoreReadAhead): the bound literal
// at `param` (by position among the bound literals), compared by "=", becomes a
// list of keys bound as one parameter (its value: KeyListValue), and the rows
// come in the order of `column` first, rows of one key together, then in the
// statement's own order.
// Joined (on SQLite), the keys are read one by one and join the table instead,
// and the rows come in the statement's own order only, those of one key not
// together: for many keys with few rows each, which SQLite so finds without an
// index of the keys.
struct KeyListForm {
  std::size_t param = 0;
  std::string column;
  bool joined = false;
};

// Throws StoreError (naming the SQL) for text outside the dialect: an unterminated
// literal or bracket, a comment, a second statement.
TranslatedSql TranslateSql(std::string_view jet_sql, SqlDialect dialect, const KeyListForm* key_list = nullptr);

// The parameter of a key list (KeyListForm) of these keys (IDs).
Variant KeyListValue(const std::vector<std::string>& keys, SqlDialect dialect);

// Quotes an identifier for the dialect ("Name", with inner quotes doubled).
std::string QuoteIdentifier(std::string_view name);
// The same, appended to OUT: the statements of a row's save name every column.
void AppendQuotedIdentifier(std::string& out, std::string_view name);
// "a","b","c": the columns of an INSERT.
std::string QuotedIdentifierList(const std::vector<std::string>& names);

// The name as the schema of either store spells it (a table or a column, found
// without regard to case, umlauts included); any other name as it stands.
std::string_view CanonicalIdentifier(std::string_view name);

// True for a table of either store's schema that has the autonumber Nr.
bool IsKeyedTable(std::string_view table);

// True for a column of either store's schema that holds numbers (whole numbers,
// doubles, flags, dates), Nr of a keyed table included.
bool IsNumberColumn(std::string_view table, std::string_view column);

// True for a column the schema gives no fixed type ("any"), as Settings.Values.
bool IsUntypedColumn(std::string_view table, std::string_view column);

// True for the ID form of this store: {8-4-4-4-12} hex digits, any case.
bool IsGuidText(std::string_view text);
std::string NormalizeGuid(std::string_view text);  // upper case, braces kept

// A #date# literal: #yyyy-mm-dd# or #m/d/yyyy#. Returns false if malformed.
bool ParseDateLiteral(std::string_view inner, double& day_count);

}  // namespace ormelix::detail
