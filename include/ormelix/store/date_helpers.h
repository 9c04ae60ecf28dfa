/// \file
/// DateHelpers: state tests, period keys and calendar dates. Dates are day counts
/// (Date, day 0 = 30 December 1899); a period key (Zeitraum) is yyyymm as a number.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/store/variant.h"

namespace ormelix {

class Recordset;
class Field;

/// \brief State tests, period keys and calendar dates (day counts, day 0 = 30 December 1899).
namespace DateHelpers {

/// \name IsEmptyText
///@{

/// True for Empty, Null and a text of blanks only (a field: of the current row, and
/// True without one).
bool IsEmptyText(const Variant& value, bool flag = false);
bool IsEmptyText(const Field& value, bool flag = false);
///@}
/// True for a well-formed ID of this store: an upper- or lower-case GUID in braces,
/// {8-4-4-4-12}, other than the all-zero one. A number, a name and "" are no IDs.
bool IsID(const Variant& value, bool flag = false);

/// \name IsNothingObject
///@{

/// True for an unset reference (a null pointer).
template <class T>
bool IsNothingObject(const std::shared_ptr<T>& object) {
  return !object;
}
template <class T>
bool IsNothingObject(const T* object) {
  return object == nullptr;
}
///@}

/// The ID of the row that the last Update wrote, inserted or changed. If the row
/// does not show its key yet, the recordset is read again and stands on that row.
std::string GetNewRowID(Recordset& recordset);

/// Calendar arithmetic. DateSerial rolls over like a calendar does: month 13 is
/// January of the next year, day 0 the last day of the month before.
Date DateSerial(int year, int month, int day);
/// \name Parts of a date
///@{

/// The year, month (1 to 12) and day (1 to 31) of a day count.
int Year(Date date);
int Month(Date date);
int Day(Date date);
///@}
/// The last day of the date's month.
Date LastDayOfMonth(Date date);

/// \name Parts of a period key
///@{

/// The month (the last two digits) and the year (the digits before) of a yyyymm key.
std::int32_t ZeitraumMonth(std::int32_t zeitraum);
std::int32_t ZeitraumYear(std::int32_t zeitraum);
///@}
/// The day `day` of the period's month, as DateSerial rolls it.
Date ZeitraumToDate(std::int32_t zeitraum, std::int16_t day = 1);
/// The period `years` years later (earlier for a negative number); std::out_of_range
/// when that leaves a 32-bit key.
std::int32_t ZeitraumAddYears(std::int32_t zeitraum, const Variant& years);

/// Today's date (local time).
Date Today();
/// "2024-03-15" for display; "" for date 0.
std::string FormatDate(Date date);

}  // namespace DateHelpers
}  // namespace ormelix
