#include "ormelix/store/rounding_helpers.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "ormelix/error.h"
#include "ormelix/store/columns.h"
#include "ormelix/store/recordset.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::RoundingHelpers {

namespace {

// Rounds value, read to `significant` significant digits, to `digits` decimals,
// half away from zero, working on the decimal digits themselves (in buffers on
// the stack: a save rounds every amount of a pay record).
double RoundDecimal(double value, int digits, int significant) {
  if (!std::isfinite(value) || value == 0) return value;
  char text[64];  // [-]d.ddddde[+-]xx
  const auto [end, ec] =
      std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, significant - 1);
  if (ec != std::errc()) return value;
  const bool negative = text[0] == '-';
  const char* e = std::find(text, end, 'e');
  int exponent = 0;
  std::from_chars(e + (e[1] == '+' ? 2 : 1), end, exponent);
  // The digits, after a leading zero that gives the carry room and covers keep == 0.
  char mantissa[64];
  int count = 0;
  mantissa[count++] = '0';
  for (const char* p = text + (negative ? 1 : 0); p < e; ++p)
    if (*p != '.') mantissa[count++] = *p;
  // value = 0.digits * 10^(exponent + 1); keep the digits down to 10^-digits.
  int keep = exponent + 1 + digits;
  if (keep >= count - 1) {
    double exact = 0;
    std::from_chars(text, end, exact);
    return exact;
  }
  if (keep < 0) return 0;
  ++keep;  // counting the leading zero
  if (mantissa[keep] >= '5') {
    int i = keep - 1;
    while (i >= 0 && mantissa[i] == '9') mantissa[i--] = '0';
    if (i >= 0) ++mantissa[i];
  }
  char rounded[96];  // [-]0.digits e exponent, with the leading zero: exponent + 2
  char* out = rounded;
  if (negative) *out++ = '-';
  *out++ = '0';
  *out++ = '.';
  out = std::copy(mantissa, mantissa + keep, out);
  *out++ = 'e';
  out = std::to_chars(out, rounded + sizeof rounded, exponent + 2).ptr;
  double result = 0;
  std::from_chars(rounded, out, result);
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
