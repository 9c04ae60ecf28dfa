/// \file
/// The values of a column of the schema as table files write them and read them
/// back (ormelix export and import), and the range each column holds (which
/// ormelix check asks of every stored value):
///
/// - text: any UTF-8 text without NUL; in a column of IDs (ID and the columns whose
///   names end in ID) a GUID without braces is given its braces.
/// - bool: -1 (True) and 0; read also from 1, TRUE and FALSE, as mdb-export writes them.
/// - int16, int32: whole numbers of 16 and 32 bits; a column Zeitraum a period
///   YYYYMM (a year from 1000, a month from 01 to 12).
/// - double: a finite number.
/// - date: a day count (day 0 = 30 December 1899, also "no date") of the years 100
///   to 9999, written as 2025-03-17 (with 08:30:00 for a time of day); 0 and a day
///   count that no such text gives back exactly are written as the number. Read
///   from YYYY-MM-DD, MM/DD/YYYY or MM/DD/YY (00 to 29 as 20xx), each with an
///   optional HH:MM[:SS], and from a day count.
/// - any: a text, a whole number or a number with a decimal point ("2.0" stays a
///   number with a fraction, as the store holds it).
#pragma once

#include <string>
#include <string_view>

#include "ormelix/store/schema.h"
#include "ormelix/store/variant.h"

namespace ormelix {

/// A value as a table file holds it, before its column gives it a type.
struct FileValue {
  /// How the file writes it.
  enum Form {
    Null,   ///< an empty CSV field without quotes, JSON null
    Text,   ///< a quoted CSV field, a JSON string
    Bare,   ///< an unquoted CSV field, a JSON number
    True,   ///< JSON true
    False,  ///< JSON false
  };
  Form form = Null;       ///< how the file writes it
  std::string_view text;  ///< its characters (of Text and Bare)
};

/// The value the column takes from a file value. ConversionError saying why for
/// a value the column cannot hold (in a word, without naming the column).
Variant ParseColumnValue(const SchemaColumn& column, const FileValue& value);

/// What is wrong with a value for its column, "" when nothing is: a text where a
/// number belongs, a number outside the column's range, a text that is no UTF-8.
std::string ColumnValueProblem(const SchemaColumn& column, const Variant& value);

/// How a table file writes a stored value.
struct ValueText {
  /// How the file writes it.
  enum Kind {
    Null,    ///< nothing (CSV), null (JSON)
    Text,    ///< quoted (CSV), a string (JSON)
    Number,  ///< as it stands (CSV), a number (JSON)
    Word,    ///< as it stands (CSV), a string (JSON): a date, a number that is infinite
  };
  Kind kind = Null;  ///< how the file writes it
  std::string text;  ///< its characters (but for Null)
};
/// How a table file writes the value of the column.
ValueText ColumnValueText(const SchemaColumn& column, const Variant& value);

/// A date as 2025-03-17 or 2025-03-17 08:30:00, "" when no such text reads back
/// as exactly that day count (0, a fraction finer than a second, a year outside
/// 100 to 9999).
std::string FormatDateText(double date);
/// A day count from a date text of the forms above (not a plain number); false
/// for any other text or a day that the calendar does not have.
bool ParseDateText(std::string_view text, double& date);

}  // namespace ormelix
