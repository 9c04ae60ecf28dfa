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

namespace ormelix::ValueHelpers {

std::string ToText(const Variant& value);
std::string ToText(const Field& field);
/// Any number but 0 is True; texts "True"/"False" and numeric texts are read too.
bool ToFlag(const Variant& value);
bool ToFlag(const Field& field);
/// Whole numbers round half to even, as a number-to-integer conversion does.
/// A value outside the type's range is std::out_of_range; a text that is no number
/// is a ConversionError.
std::int32_t ToLong(const Variant& value);
std::int32_t ToLong(const Field& field);
std::int16_t ToInteger(const Variant& value);
std::int16_t ToInteger(const Field& field);
float ToSingle(const Variant& value);
float ToSingle(const Field& field);
double ToAmount(const Variant& value);
double ToAmount(const Field& field);
Date ToDate(const Variant& value);
Date ToDate(const Field& field);
/// The stored value in its own type (Null stays Null); Empty at no current row.
Variant ToVariantValue(const Variant& value, bool flag = true);
Variant ToVariantValue(const Field& field, bool flag = true);

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
std::string TrimText(std::string_view text);
std::int32_t MakeZeitraum(std::int16_t month, std::int16_t year);
std::int32_t DateToZeitraum(Date date);

}  // namespace ormelix::ValueHelpers
