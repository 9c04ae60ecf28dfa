/// \file
/// ValueHelpers: store values to plain values and plain values to SQL literals.
/// Every conversion gives its empty value ("" / False / 0 / date 0) for Null, for
/// Empty and for a field that has no current row (after a Filter that matched
/// nothing, say), so a load can read a narrowed recordset without testing EOF.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "ormelix/store/recordset.h"
#include "ormelix/store/variant.h"

/// \brief Store values to plain values, and plain values to SQL literals.
///
/// Every conversion gives its empty value ("" / False / 0 / date 0) for Null, for
/// Empty and for a field without a current row, so a load can read a narrowed
/// recordset without testing EOF.
namespace ormelix::ValueHelpers {

/// \name Store values to plain values
/// Each conversion takes a value or a field (of the current row) and gives its empty
/// value for Null, Empty and a field without a current row.
///@{

/// A value as text: numbers in decimal form, booleans "True" and
/// "False"; "" for Null and Empty.
std::string ToText(const Variant& value);
std::string ToText(const Field& field);
///@}
/// \name
///@{

/// Any number but 0 is True; texts "True"/"False" and numeric texts are read too.
bool ToFlag(const Variant& value);
bool ToFlag(const Field& field);
///@}
/// \name
///@{

/// A whole number, 32-bit or 16-bit.
///
/// Whole numbers, 32-bit (ToLong) or 16-bit (ToInteger), rounded half to even, as
/// a number-to-integer conversion does. A value outside the type's range is
/// std::out_of_range; a text that is no number is a ConversionError.
std::int32_t ToLong(const Variant& value);
std::int32_t ToLong(const Field& field);
std::int16_t ToInteger(const Variant& value);
std::int16_t ToInteger(const Field& field);
///@}
/// \name
///@{

/// A number in single (ToSingle) or double precision (ToAmount).
///
/// A number in single (ToSingle) or double precision (ToAmount); numeric texts are
/// read too, other texts are a ConversionError.
float ToSingle(const Variant& value);
float ToSingle(const Field& field);
double ToAmount(const Variant& value);
double ToAmount(const Field& field);
///@}
/// \name
///@{

/// A date as a day count: a number as it stands, a date text read as a date; 0 for
/// none.
Date ToDate(const Variant& value);
Date ToDate(const Field& field);
///@}
/// \name
///@{

/// The stored value in its own type (Null stays Null); Empty at no current row.
Variant ToVariantValue(const Variant& value, bool flag = true);
Variant ToVariantValue(const Field& field, bool flag = true);
///@}

/// A text read as a boolean the way a text-to-boolean conversion does: "True",
/// "False" (any case) or a number; anything else, "" included, is a ConversionError.
bool TextToBool(const std::string& text);
/// A double brought to a 16-bit integer, half to even (for 16-bit properties fed
/// from an amount).
std::int16_t AmountToInteger(double value);

/// The form in which an ID stands in a WHERE clause, a Filter or an ID column.
/// An ID comes back as it is (upper case); "" gives the all-zero ID, which matches
/// no row and which IsID rejects; any other text comes back quoted.
std::string SqlID(std::string_view id);
/// The literal for a comparison with a date column: the day count.
std::string SqlDate(Date date, bool flag = false);
/// A fresh ID for a record that exists only in memory.
std::string NewID();
/// The text without leading and trailing spaces and tabs.
std::string TrimText(std::string_view text);
/// The period key year x 100 + month (MakeZeitraum(3, 2025) is 202503).
std::int32_t MakeZeitraum(std::int16_t month, std::int16_t year);
/// The period key of the month a date falls in.
std::int32_t DateToZeitraum(Date date);

}  // namespace ormelix::ValueHelpers
