#include "ormelix/store/column_values.h"

#include <cmath>
#include <cstdio>
#include <cstdint>
#include <limits>

#include "backend.h"
#include "ormelix/error.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/text.h"

namespace ormelix {

namespace {

constexpr double kSecondsPerDay = 86400;

// Reads digits (at most `most`, at least one) at text[at] into number.
bool TakeDigits(std::string_view text, std::size_t& at, std::size_t most, int& number, std::size_t* taken = nullptr) {
  std::size_t start = at;
  number = 0;
  while (at < text.size() && at - start < most && text[at] >= '0' && text[at] <= '9') number = number * 10 + (text[at++] - '0');
  if (taken) *taken = at - start;
  return at > start;
}

bool Take(std::string_view text, std::size_t& at, char c) {
  if (at >= text.size() || text[at] != c) return false;
  ++at;
  return true;
}

int DaysInMonth(int year, int month) {
  return static_cast<int>(DateHelpers::DateSerial(year, month + 1, 1) - DateHelpers::DateSerial(year, month, 1));
}

// " HH:MM[:SS]" (or "THH:MM[:SS]" after an ISO date) at text[at] to the end.
bool TakeTime(std::string_view text, std::size_t& at, bool iso, int& seconds) {
  seconds = 0;
  if (at == text.size()) return true;
  if (!Take(text, at, ' ') && !(iso && Take(text, at, 'T'))) return false;
  int hour = 0, minute = 0, second = 0;
  std::size_t taken = 0;
  if (!TakeDigits(text, at, 2, hour) || !Take(text, at, ':') || !TakeDigits(text, at, 2, minute, &taken) || taken != 2)
    return false;
  if (Take(text, at, ':') && (!TakeDigits(text, at, 2, second, &taken) || taken != 2)) return false;
  if (at != text.size() || hour > 23 || minute > 59 || second > 59) return false;
  seconds = hour * 3600 + minute * 60 + second;
  return true;
}

// YYYY-MM-DD or MM/DD/YYYY (MM/DD/YY) at the start of text.
bool TakeDay(std::string_view text, std::size_t& at, int& year, int& month, int& day, bool& iso) {
  std::size_t taken = 0;
  int first = 0;
  if (!TakeDigits(text, at, 4, first, &taken)) return false;
  iso = taken == 4;
  if (iso) {
    year = first;
    return Take(text, at, '-') && TakeDigits(text, at, 2, month) && Take(text, at, '-') && TakeDigits(text, at, 2, day);
  }
  month = first;
  if (!Take(text, at, '/') || !TakeDigits(text, at, 2, day) || !Take(text, at, '/') ||
      !TakeDigits(text, at, 4, year, &taken) || (taken != 2 && taken != 4))
    return false;
  if (taken == 2) year += year < 30 ? 2000 : 1900;
  return true;
}

bool IsBareGuid(std::string_view text) {
  if (text.size() != 36) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    bool dash = i == 8 || i == 13 || i == 18 || i == 23;
    char c = text[i];
    bool hex = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
    if (dash ? c != '-' : !hex) return false;
  }
  return true;
}

bool IsIdColumn(const SchemaColumn& column) {
  return column.type == "text" && column.name.size() >= 2 && column.name.compare(column.name.size() - 2, 2, "ID") == 0;
}

// A number as a person reads it: a whole one with all its digits (5000000, not
// 5e+06), another as the shortest text that reads back as it.
std::string PlainNumber(double number) {
  if (number == std::floor(number) && std::fabs(number) < 1e15) {
    char text[32];
    std::snprintf(text, sizeof text, "%.0f", number);
    return number == 0 ? "0" : text;
  }
  return FormatNumber(number);
}

std::string Quoted(std::string_view text) { return "'" + ShortenForMessage(text, 60) + "'"; }

std::string NumberWord(const std::string& type) {
  if (type == "bool") return "a boolean (-1 or 0)";
  if (type == "date") return "a date";
  if (type == "double") return "a number";
  return "a whole number";
}

Variant ParseBoolean(std::string_view text) {
  text = TrimBlanks(text);
  if (text == "-1" || text == "1" || EqualsFolded(text, "true")) return Variant(static_cast<std::int64_t>(-1));
  if (text == "0" || EqualsFolded(text, "false")) return Variant(static_cast<std::int64_t>(0));
  throw ConversionError(Quoted(text) + " is no boolean (-1 or 0; 1, TRUE and FALSE are read too)");
}

Variant ParseNumberOf(const SchemaColumn& column, std::string_view text) {
  double number = 0;
  if (column.type == "date" && ParseDateText(text, number)) return Variant(number);
  if (!ParseNumber(text, number)) {
    if (column.type == "date")
      throw ConversionError(Quoted(text) + " is no date (YYYY-MM-DD, MM/DD/YYYY or MM/DD/YY, each with an optional "
                            "HH:MM:SS, or a day count)");
    throw ConversionError(Quoted(text) + " is no number");
  }
  if (column.type == "double" || column.type == "date") return Variant(number);
  if (number != std::floor(number)) throw ConversionError(Quoted(text) + " is no whole number");
  if (std::fabs(number) > 9e15) throw ConversionError(Quoted(text) + " lies outside the range of its column");
  return Variant(static_cast<std::int64_t>(number));
}

// In a column of any type a bare word is a number if it reads as one: whole
// without a decimal point or exponent, else with a fraction.
Variant ParseUntyped(std::string_view text) {
  double number = 0;
  std::string_view trimmed = TrimBlanks(text);
  if (trimmed.size() != text.size() || !ParseNumber(text, number)) return Variant(text);
  bool whole = text.find_first_of(".eE") == std::string_view::npos;
  if (whole && std::fabs(number) < 9e15) return Variant(static_cast<std::int64_t>(number));
  return Variant(number);
}

std::string RangeProblem(const SchemaColumn& column, double number) {
  auto outside = [&](const std::string& range) { return PlainNumber(number) + " lies outside " + range; };
  if (column.type == "bool") return number == -1 || number == 0 ? "" : PlainNumber(number) + " is no boolean (-1 or 0)";
  if (!std::isfinite(number)) return PlainNumber(number) + " is no finite number";
  if (column.type == "double") return "";
  if (column.type == "date") {
    bool inside = number >= DateHelpers::DateSerial(100, 1, 1) && number < DateHelpers::DateSerial(10000, 1, 1);
    return inside ? "" : outside("the dates of the years 100 to 9999");
  }
  if (number != std::floor(number)) return PlainNumber(number) + " is no whole number";
  if (column.type == "int16" && (number < -32768 || number > 32767)) return outside("16 bits (-32768 to 32767)");
  if (column.type == "int32" && (number < std::numeric_limits<std::int32_t>::min() ||
                                 number > std::numeric_limits<std::int32_t>::max()))
    return outside("32 bits");
  if (column.name == "Nr" && column.primary && number < 1) return PlainNumber(number) + " is no row number (from 1)";
  if (column.name == "Zeitraum") {
    auto period = static_cast<long long>(number);
    if (period < 100001 || period > 999912 || period % 100 < 1 || period % 100 > 12)
      return PlainNumber(number) + " is no period YYYYMM (a year from 1000, a month from 01 to 12)";
  }
  return "";
}

}  // namespace

std::string FormatDateText(double date) {
  if (!std::isfinite(date) || date == 0 || date < DateHelpers::DateSerial(100, 1, 1) ||
      date >= DateHelpers::DateSerial(10000, 1, 1))
    return "";
  double day = date >= 0 ? std::floor(date) : std::ceil(date);
  long long seconds = std::llround(std::fabs(date - day) * kSecondsPerDay);
  if (seconds >= 86400) return "";
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", DateHelpers::Year(day), DateHelpers::Month(day),
                DateHelpers::Day(day));
  std::string out = text;
  if (seconds > 0) {
    std::snprintf(text, sizeof text, " %02lld:%02lld:%02lld", seconds / 3600, seconds / 60 % 60, seconds % 60);
    out += text;
  }
  double back = 0;
  return ParseDateText(out, back) && back == date ? out : "";
}

bool ParseDateText(std::string_view text, double& date) {
  text = TrimBlanks(text);
  std::size_t at = 0;
  int year = 0, month = 0, day = 0, seconds = 0;
  bool iso = false;
  if (!TakeDay(text, at, year, month, day, iso) || !TakeTime(text, at, iso, seconds)) return false;
  if (year < 100 || month < 1 || month > 12 || day < 1 || day > DaysInMonth(year, month)) return false;
  double whole = DateHelpers::DateSerial(year, month, day);
  // Before day 0 the time of day counts away from it, as the stores of old had it.
  date = whole < 0 ? whole - seconds / kSecondsPerDay : whole + seconds / kSecondsPerDay;
  return true;
}

Variant ParseColumnValue(const SchemaColumn& column, const FileValue& value) {
  Variant parsed;
  switch (value.form) {
    case FileValue::Null:
      if (column.primary) throw ConversionError("a key cannot be empty (Null)");
      return Variant::NullValue();
    case FileValue::True:
    case FileValue::False:
      if (column.type == "text") throw ConversionError("a boolean is no text");
      parsed = Variant(static_cast<std::int64_t>(value.form == FileValue::True ? -1 : 0));
      break;
    case FileValue::Text:
    case FileValue::Bare:
      if (column.type == "text") {
        parsed = IsIdColumn(column) && IsBareGuid(value.text) ? Variant("{" + std::string(value.text) + "}")
                                                               : Variant(value.text);
      } else if (column.type == "any") {
        parsed = value.form == FileValue::Text ? Variant(value.text) : ParseUntyped(value.text);
      } else if (column.type == "bool") {
        parsed = ParseBoolean(value.text);
      } else {
        parsed = ParseNumberOf(column, value.text);
      }
      break;
  }
  std::string problem = ColumnValueProblem(column, parsed);
  if (!problem.empty()) throw ConversionError(problem);
  return parsed;
}

std::string ColumnValueProblem(const SchemaColumn& column, const Variant& value) {
  if (value.IsMissing()) return column.primary ? "a key cannot be empty (Null)" : "";
  if (value.IsText()) {
    const std::string& text = value.AsText();
    if (column.type == "text" || column.type == "any") {
      if (!IsUtf8(text)) return "the text " + Quoted(text) + " is no UTF-8";
      if (text.find('\0') != std::string::npos) return "the text " + Quoted(text) + " holds a NUL byte";
      return "";
    }
    return "the text " + Quoted(text) + " stands where " + NumberWord(column.type) + " belongs";
  }
  if (column.type == "text" || column.type == "any") return "";
  double number = 0;
  value.TryNumber(number);
  return RangeProblem(column, number);
}

ValueText ColumnValueText(const SchemaColumn& column, const Variant& value) {
  if (value.IsMissing()) return {};
  if (value.IsText()) return {ValueText::Text, value.AsText()};
  if (value.kind() == Variant::Boolean) return {ValueText::Number, value.AsBool() ? "-1" : "0"};
  double number = 0;
  value.TryNumber(number);
  if (!std::isfinite(number)) return {ValueText::Word, FormatNumber(number)};
  if (column.type == "date") {
    std::string date = FormatDateText(number);
    if (!date.empty()) return {ValueText::Word, date};
  }
  if (value.kind() == Variant::Integer) return {ValueText::Number, std::to_string(value.AsInteger())};
  if (column.type == "any") return {ValueText::Number, detail::DoubleAsStoredText(number)};
  return {ValueText::Number, PlainNumber(number)};
}

}  // namespace ormelix
