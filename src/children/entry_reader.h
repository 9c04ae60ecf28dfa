// Library-internal: the values of the current row of a recordset over
// Mitarbeiter_Kinder_ZB (alone, or joined with Mitarbeiter_Kinder) as the questions
// about one child read them. A value that cannot be read is a StoreError naming the
// table, the column and the child.
#pragma once

#include <cstdint>
#include <string>

#include "ormelix/store/recordset.h"
#include "ormelix/store/variant.h"

namespace ormelix::detail {

class EntryReader {
 public:
  EntryReader(const Recordset& rows, const std::string& child_id) : rows_(rows), child_id_(child_id) {}

  std::int32_t Long(const char* column) const;
  std::int16_t Integer(const char* column) const;
  bool Flag(const char* column) const;
  std::string Text(const char* column) const;
  // A date column read as a date (ToDate) or as a whole day number (ToLong).
  Date DateOf(const char* column) const;
  std::int32_t DayNumber(const char* column) const;

 private:
  template <class T, class Convert>
  T Read(const char* column, Convert convert) const;

  const Recordset& rows_;
  const std::string& child_id_;
};

}  // namespace ormelix::detail
