#include "row_reading.h"

#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::detail {

void UnreadableColumn(const RowOf& row, const char* column, const std::exception& failure) {
  throw StoreError("cannot read " + std::string(row.what) + " with ID " + (row.id.empty() ? std::string("(none)") : row.id) +
                       " of " + row.table,
                   std::string(row.table) + "." + column, failure.what());
}

Date StoredDate(const char* column, const Variant& value, bool blank_is_no_date) {
  if (DateHelpers::IsEmptyText(value)) {
    if (blank_is_no_date) return 0;
    throw ConversionError(std::string(column) + (value.IsText() ? " is an empty text, not a date" : " is Null, not a date"));
  }
  static const Date first = DateHelpers::DateSerial(100, 1, 1);
  static const Date last = DateHelpers::DateSerial(9999, 12, 31);
  const Date date = ValueHelpers::ToDate(value);
  if (!(date >= first && date <= last))
    throw ConversionError(std::string(column) + " holds " + value.Describe() + ", which is no date of the years 100 to 9999");
  return date;
}

}  // namespace ormelix::detail
