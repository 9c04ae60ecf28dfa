#pragma once

#include <cstdint>

#include "ormelix/store/variant.h"

namespace ormelix {

/// Holds one period key (yyyymm) for the dated tables of the base values.
/// Its settled quirks are kept: Add does not add but sets; AddDate writes the month
/// without a leading zero (15 March 2024 gives 20243); GetMonth and GetYear read the
/// last two and the first four characters of the key.
class clsZeitraum {
 public:
  std::int32_t Item = 0;  ///< the key, yyyymm (0 until set)

  /// Item becomes the year printed with "0000" followed by the month with "00".
  void Add(std::int16_t pMonth, std::int16_t pYear);
  /// Item becomes the year followed by the month, in plain decimal.
  void AddDate(Date pDate);
  /// The month: the last two characters of the key as text (so 20243 gives 43).
  std::int16_t GetMonth() const;
  /// The year: the first four characters of the key as text.
  std::int16_t GetYear() const;
  /// Day 1 of GetYear/GetMonth; an impossible month runs on into later years.
  Date GetDate() const;
};

/// The number made of the year printed with "0000" followed by the month printed
/// with "00", as clsManager.GetZeitraum and clsZeitraum.Add form it.
std::int32_t ComposeZeitraum(std::int32_t year, std::int32_t month);

}  // namespace ormelix
