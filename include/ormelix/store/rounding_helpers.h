/// \file
/// RoundingHelpers: rounding to a number of decimals, and the division and
/// multiplication the short-time figures use.
///
/// Rounding is commercial: half away from zero (1234.565 -> 1234.57, -0.125 -> -0.13),
/// which is how payroll amounts are rounded, applied to the decimal value a binary
/// number stands for (15 significant digits of a double, 7 of a single), so that the
/// binary noise of 1234.565 does not turn it into 1234.56. The result is the double
/// nearest to the rounded decimal, so rounding it again changes nothing.
#pragma once

#include "ormelix/store/recordset.h"
#include "ormelix/store/variant.h"

/// \brief Commercial rounding (half away from zero) to a number of decimals, and the
/// exact division and multiplication of the short-time figures.
namespace ormelix::RoundingHelpers {

/// \name RoundTo
///@{

/// The value rounded to `digits` decimals, half away from zero.
///
/// The value rounded to `digits` decimals, half away from zero, of the decimal the
/// number stands for (a double's 15 significant digits, a single's 7). Null and
/// Empty give 0, as does a field without a current row.
double RoundTo(double value, int digits);
double RoundTo(float value, int digits);
double RoundTo(const Variant& value, int digits);
double RoundTo(const Field& field, int digits);
///@}

/// a / b held to that many decimals; a division by 0 gives 0.
double DivideExact(double a, double b, int digits);
/// a * b rounded to that many decimals.
double MultiplyExact(double a, const Variant& b, int digits);

}  // namespace ormelix::RoundingHelpers
