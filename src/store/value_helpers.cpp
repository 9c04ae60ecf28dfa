#include "ormelix/store/value_helpers.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <stdexcept>

#include "ormelix/error.h"
#include "ormelix/store/columns.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/text.h"
#include "sql_dialect.h"

namespace ormelix::ValueHelpers {

namespace {

constexpr const char* kNoMatchID = "{00000000-0000-0000-0000-000000000000}";

// The number a value stands for, 0 for Null/Empty/blank text; a text that is no
// number is a ConversionError naming the wanted type.
double NumberOf(const Variant& value, const char* wanted) {
  if (value.kind() == Variant::Double) return value.AsDouble();  // the usual case, first
  if (value.IsMissing()) return 0;
  if (value.IsText() && TrimBlanks(value.AsText()).empty()) return 0;
  double number = 0;
  if (!value.TryNumber(number))
    throw ConversionError("cannot convert '" + value.Describe() + "' to " + std::string(wanted));
  return number;
}

template <class Int>
Int RoundToIntegerType(double number, const char* wanted) {
  double rounded = std::nearbyint(number);  // the default mode rounds half to even
  if (!(rounded >= static_cast<double>(std::numeric_limits<Int>::min()) &&
        rounded <= static_cast<double>(std::numeric_limits<Int>::max())))
    throw std::out_of_range(FormatNumber(number) + " lies outside the range of " + wanted);
  return static_cast<Int>(rounded);
}

std::string FormatGeneral(double value) {
  // Up to 15 significant digits, the way a number is shown as text.
  if (value == 0) return "0";
  char buffer[40];
  auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 15);
  return ec == std::errc() ? std::string(buffer, end) : FormatNumber(value);
}

}  // namespace

std::string ToText(const Variant& value) {
  switch (value.kind()) {
    case Variant::Empty:
    case Variant::Null:
      return "";
    case Variant::Boolean:
      return value.AsBool() ? "True" : "False";
    case Variant::Integer:
      return std::to_string(value.AsInteger());
    case Variant::Double:
      return FormatGeneral(value.AsDouble());
    case Variant::Text:
      return value.AsText();
  }
  return "";
}

bool ToFlag(const Variant& value) {
  if (value.IsMissing()) return false;
  if (value.kind() == Variant::Boolean) return value.AsBool();
  if (value.IsText()) {
    std::string folded = FoldCase(TrimBlanks(value.AsText()));
    if (folded == "true") return true;
    if (folded == "false" || folded.empty()) return false;
  }
  double number = 0;
  return value.TryNumber(number) && number != 0;
}

std::int32_t ToLong(const Variant& value) { return RoundToIntegerType<std::int32_t>(NumberOf(value, "Long"), "Long"); }

std::int16_t ToInteger(const Variant& value) {
  return RoundToIntegerType<std::int16_t>(NumberOf(value, "Integer"), "Integer");
}

float ToSingle(const Variant& value) { return static_cast<float>(NumberOf(value, "Single")); }

double ToAmount(const Variant& value) { return NumberOf(value, "Double"); }

Date ToDate(const Variant& value) {
  if (value.IsText()) {
    double day_count = 0;
    std::string_view text = TrimBlanks(value.AsText());
    if (!text.empty() && !ParseNumber(text, day_count) && detail::ParseDateLiteral(text, day_count))
      return day_count;
  }
  double day_count = NumberOf(value, "Date");
  if (!std::isfinite(day_count)) throw ConversionError("cannot convert '" + value.Describe() + "' to Date");
  return day_count;
}

Variant ToVariantValue(const Variant& value, bool) { return value; }

namespace {

// A stored value that cannot be read is named with where it lies, so that a
// payroll office can find the row.
template <class Convert>
auto ReadField(const Field& field, Convert convert) -> decltype(convert(field.Peek())) {
  try {
    return convert(field.Peek());
  } catch (...) {
    RethrowUnreadable(field);
  }
}

}  // namespace

std::string ToText(const Field& field) { return ToText(field.Peek()); }
bool ToFlag(const Field& field) { return ReadField(field, [](const Variant& v) { return ToFlag(v); }); }
std::int32_t ToLong(const Field& field) { return ReadField(field, [](const Variant& v) { return ToLong(v); }); }
std::int16_t ToInteger(const Field& field) { return ReadField(field, [](const Variant& v) { return ToInteger(v); }); }
float ToSingle(const Field& field) { return ReadField(field, [](const Variant& v) { return ToSingle(v); }); }
double ToAmount(const Field& field) { return ReadField(field, [](const Variant& v) { return ToAmount(v); }); }
Date ToDate(const Field& field) { return ReadField(field, [](const Variant& v) { return ToDate(v); }); }
Variant ToVariantValue(const Field& field, bool flag) { return ToVariantValue(field.Peek(), flag); }

bool TextToBool(const std::string& text) {
  std::string folded = FoldCase(TrimBlanks(text));
  if (folded == "true") return true;
  if (folded == "false") return false;
  double number = 0;
  if (ParseNumber(folded, number)) return number != 0;
  throw ConversionError("cannot convert '" + text + "' to Boolean");
}

std::int16_t AmountToInteger(double value) { return RoundToIntegerType<std::int16_t>(value, "Integer"); }

std::string SqlID(std::string_view id) {
  std::string_view trimmed = TrimBlanks(id);
  if (trimmed.empty()) return kNoMatchID;
  if (detail::IsGuidText(trimmed)) return detail::NormalizeGuid(trimmed);
  if (trimmed.size() == 36) {
    std::string braced = "{" + std::string(trimmed) + "}";
    if (detail::IsGuidText(braced)) return detail::NormalizeGuid(braced);
  }
  return "'" + std::string(id) + "'";
}

std::string SqlDate(Date date, bool) { return FormatNumber(date); }

std::string NewID() {
  thread_local std::mt19937_64 generator{std::random_device{}()};
  std::uniform_int_distribution<std::uint64_t> bits;
  std::uint64_t high = bits(generator), low = bits(generator);
  high = (high & 0xFFFFFFFFFFFF0FFFULL) | 0x0000000000004000ULL;  // version 4
  low = (low & 0x3FFFFFFFFFFFFFFFULL) | 0x8000000000000000ULL;   // RFC 4122 variant
  char buffer[40];
  std::snprintf(buffer, sizeof buffer, "{%08X-%04X-%04X-%04X-%012llX}", static_cast<unsigned>(high >> 32),
                static_cast<unsigned>((high >> 16) & 0xFFFF), static_cast<unsigned>(high & 0xFFFF),
                static_cast<unsigned>(low >> 48), static_cast<unsigned long long>(low & 0xFFFFFFFFFFFFULL));
  return buffer;
}

std::string TrimText(std::string_view text) { return std::string(TrimBlanks(text)); }

std::int32_t MakeZeitraum(std::int16_t month, std::int16_t year) { return year * 100 + month; }

std::int32_t DateToZeitraum(Date date) { return DateHelpers::Year(date) * 100 + DateHelpers::Month(date); }

}  // namespace ormelix::ValueHelpers
