#include "entry_reader.h"

#include <cstring>

#include "../session/row_reading.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::detail {

template <class T, class Convert>
T EntryReader::Read(const char* column, Convert convert) const {
  // The one column of the children's table that the questions read.
  const bool of_child = std::strcmp(column, "GebDatum") == 0;
  const RowOf row{of_child ? "the child" : "an entry of the child", of_child ? "Mitarbeiter_Kinder" : "Mitarbeiter_Kinder_ZB",
                  child_id_};
  T value{};
  Reading(row, column, [&] { value = convert(rows_.Fields(column)); });
  return value;
}

std::int32_t EntryReader::Long(const char* column) const {
  return Read<std::int32_t>(column, [](const Field& f) { return ValueHelpers::ToLong(f); });
}
std::int16_t EntryReader::Integer(const char* column) const {
  return Read<std::int16_t>(column, [](const Field& f) { return ValueHelpers::ToInteger(f); });
}
bool EntryReader::Flag(const char* column) const {
  return Read<bool>(column, [](const Field& f) { return ValueHelpers::ToFlag(f); });
}
std::string EntryReader::Text(const char* column) const {
  return Read<std::string>(column, [](const Field& f) { return ValueHelpers::ToText(f); });
}
Date EntryReader::DateOf(const char* column) const {
  return Read<Date>(column, [column](const Field& f) { return StoredDate(column, f.Peek(), true); });
}
std::int32_t EntryReader::DayNumber(const char* column) const {
  return Read<std::int32_t>(column, [column](const Field& f) {
    StoredDate(column, f.Peek(), true);
    return ValueHelpers::ToLong(f);
  });
}

}  // namespace ormelix::detail
