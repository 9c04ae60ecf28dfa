#include "ormelix/store/rounding_helpers.h"

#include <charconv>
#include <cmath>
#include <string>

#include "ormelix/error.h"
#include "ormelix/store/columns.h"
#include "ormelix/store/recordset.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::RoundingHelpers {

namespace {

// Rounds value, read to `significant` significant digits, to `digits` decimals,
// half away from zero, working on the decimal digits themselves.
double RoundDecimal(double value, int digits, int significant) {
  if (!std::isfinite(value) || value == 0) return value;
  char buffer[64];
  auto [end, ec] =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, significant - 1);
  if (ec != std::errc()) return value;
  std::string text(buffer, end);  // [-]d.ddddde[+-]xx
  bool negative = text[0] == '-';
  std::size_t e = text.find('e');
  int exponent = std::stoi(text.substr(e + 1));
  std::string mantissa;
  for (std::size_t i = negative ? 1 : 0; i < e; ++i)
    if (text[i] != '.') mantissa += text[i];
  // value = 0.mantissa * 10^(exponent + 1); keep the digits down to 10^-digits.
  int keep = exponent + 1 + digits;
  if (keep >= static_cast<int>(mantissa.size())) {
    double exact = 0;
    std::from_chars(text.data(), text.data() + text.size(), exact);
    return exact;
  }
  if (keep < 0) return 0;
  // A leading zero digit gives the carry room and covers keep == 0.
  mantissa.insert(mantissa.begin(), '0');
  ++keep;
  ++exponent;
  bool round_up = mantissa[keep] >= '5';
  mantissa.resize(keep);
  if (round_up) {
    int i = keep - 1;
    while (i >= 0 && mantissa[i] == '9') mantissa[i--] = '0';
    if (i >= 0) ++mantissa[i];
  }
  std::string rounded = (negative ? "-0." : "0.") + mantissa + "e" + std::to_string(exponent + 1);
  double result = 0;
  std::from_chars(rounded.data(), rounded.data() + rounded.size(), result);
  return result == 0 ? 0.0 : result;
}

}  // namespace

double RoundTo(double value, int digits) { return RoundDecimal(value, digits, 15); }

double RoundTo(float value, int digits) { return RoundDecimal(static_cast<double>(value), digits, 7); }

double RoundTo(const Variant& value, int digits) { return RoundTo(ValueHelpers::ToAmount(value), digits); }

double RoundTo(const Field& field, int digits) {
  try {
    return RoundTo(field.Peek(), digits);
  } catch (...) {
    RethrowUnreadable(field);
  }
}

double DivideExact(double a, double b, int digits) {
  if (b == 0) return 0;
  return RoundDecimal(a / b, digits, 15);
}

double MultiplyExact(double a, const Variant& b, int digits) {
  return RoundDecimal(a * ValueHelpers::ToAmount(b), digits, 15);
}

}  // namespace ormelix::RoundingHelpers
