#include "ormelix/store/date_helpers.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <limits>
#include <stdexcept>

#include "ormelix/store/recordset.h"
#include "ormelix/store/value_helpers.h"
#include "sql_dialect.h"

namespace ormelix::DateHelpers {

namespace {

// Days since 1 January 1970 of a proleptic Gregorian date (H. Hinnant's algorithm).
constexpr long long DaysFromCivil(long long y, int m, int d) {
  y -= m <= 2;
  const long long era = (y >= 0 ? y : y - 399) / 400;
  const long long yoe = y - era * 400;
  const long long doy = (153LL * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  const long long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + doe - 719468;
}

struct Civil {
  long long year;
  int month;
  int day;
};

Civil CivilFromDays(long long z) {
  z += 719468;
  const long long era = (z >= 0 ? z : z - 146096) / 146097;
  const long long doe = z - era * 146097;
  const long long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const long long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const long long mp = (5 * doy + 2) / 153;
  const int d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
  const int m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  return {yoe + era * 400 + (m <= 2), m, d};
}

// Day 0 of the store's day count, 30 December 1899, in days since 1970. A constant
// of the compiler, so that dates made during the static initialisation of another
// file (a table of dates at namespace scope) do not find it still 0.
constexpr long long kEpoch = DaysFromCivil(1899, 12, 30);

// A day count past some eight million years, infinite or NaN names no day.
Civil CivilOf(Date date) {
  if (!(std::fabs(date) <= 3e9))
    throw std::out_of_range("the day count " + ValueHelpers::ToText(Variant(date)) + " is no date");
  return CivilFromDays(static_cast<long long>(std::floor(date)) + kEpoch);
}

}  // namespace

bool IsEmptyText(const Variant& value, bool) {
  if (value.IsMissing()) return true;
  if (value.IsText()) {
    for (char c : value.AsText())
      if (c != ' ' && c != '\t') return false;
    return true;
  }
  return false;
}

bool IsEmptyText(const Field& value, bool flag) { return IsEmptyText(value.Peek(), flag); }

bool IsID(const Variant& value, bool) {
  if (!value.IsText()) return false;
  const std::string& text = value.AsText();
  return detail::IsGuidText(text) && detail::NormalizeGuid(text) != ValueHelpers::SqlID("");
}

std::string GetNewRowID(Recordset& recordset) {
  int id_column = recordset.FindFieldIndex("ID");
  if (id_column >= 0) {
    std::string id = ValueHelpers::ToText(recordset.Fields(id_column));
    if (!id.empty()) return id;
  }
  // The row does not show its key yet: read the recordset again and find the row by Nr.
  int nr_column = recordset.FindFieldIndex("Nr");
  if (nr_column < 0 || id_column < 0) return "";
  std::int32_t nr = ValueHelpers::ToLong(recordset.Fields(nr_column));
  recordset.Requery();
  recordset.Filter("[Nr]=" + std::to_string(nr));
  return ValueHelpers::ToText(recordset.Fields(id_column));
}

Date DateSerial(int year, int month, int day) {
  long long months = static_cast<long long>(year) * 12 + (month - 1);
  long long y = months >= 0 ? months / 12 : -((-months + 11) / 12);
  int m = static_cast<int>(months - y * 12) + 1;
  return static_cast<Date>(DaysFromCivil(y, m, 1) - kEpoch + (day - 1));
}

int Year(Date date) { return static_cast<int>(CivilOf(date).year); }
int Month(Date date) { return CivilOf(date).month; }
int Day(Date date) { return CivilOf(date).day; }

Date LastDayOfMonth(Date date) {
  Civil c = CivilOf(date);
  return DateSerial(static_cast<int>(c.year), c.month + 1, 0);
}

std::int32_t ZeitraumMonth(std::int32_t zeitraum) { return zeitraum % 100; }
std::int32_t ZeitraumYear(std::int32_t zeitraum) { return zeitraum / 100; }

Date ZeitraumToDate(std::int32_t zeitraum, std::int16_t day) {
  return DateSerial(zeitraum / 100, zeitraum % 100, day);
}

std::int32_t ZeitraumAddYears(std::int32_t zeitraum, const Variant& years) {
  long long later = zeitraum + static_cast<long long>(ValueHelpers::ToLong(years)) * 100;
  if (later < std::numeric_limits<std::int32_t>::min() || later > std::numeric_limits<std::int32_t>::max())
    throw std::out_of_range("the period " + std::to_string(zeitraum) + " plus " + ValueHelpers::ToText(years) +
                            " years lies outside the periods of a 32-bit key");
  return static_cast<std::int32_t>(later);
}

Date Today() {
  std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return DateSerial(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

std::string FormatDate(Date date) {
  if (date == 0) return "";
  Civil c = CivilOf(date);
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%04lld-%02d-%02d", c.year, c.month, c.day);
  return buffer;
}

}  // namespace ormelix::DateHelpers
