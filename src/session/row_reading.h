// Library-internal: reading the columns of a stored row so that a value that cannot
// be read becomes a StoreError naming the table, the column and the row's key, and a
// payroll office can find and mend the row.
#pragma once

#include <exception>
#include <string>
#include <vector>

#include "ormelix/error.h"
#include "ormelix/store/columns.h"
#include "ormelix/store/recordset.h"

namespace ormelix::detail {

// The row being read, for messages: "the child" with ID ... "of Mitarbeiter_Kinder".
struct RowOf {
  const char* what;
  const char* table;
  const std::string& id;
};

[[noreturn]] void UnreadableColumn(const RowOf& row, const char* column, const std::exception& failure);

// Runs the read of one column; any failure but a StoreError becomes one that names
// table, column and row.
template <class Read>
void Reading(const RowOf& row, const char* column, Read&& read) {
  try {
    read();
  } catch (const StoreError&) {
    throw;
  } catch (const std::exception& failure) {
    UnreadableColumn(row, column, failure);
  }
}

// A stored day must be a day of the calendar, 1 January 100 to 31 December 9999.
// Null or a blank text is no day: a ConversionError, unless blank_is_no_date, when
// it reads as date 0 (no date).
Date StoredDate(const char* column, const Variant& value, bool blank_is_no_date);

// Reads every column of the declaration that the recordset has bound, each through
// Reading; a date column must hold a day of the calendar or nothing.
template <class Target>
void ReadColumns(const ColumnSet<Target>& columns, const std::vector<int>& bound, Target& target,
                 const Recordset& recordset, const RowOf& row) {
  static const Variant kNoRow;
  const Variant* cells = recordset.CurrentRow();  // looked up once for the whole row
  const auto& decls = columns.Columns();
  for (std::size_t i = 0; i < decls.size(); ++i) {
    if (bound[i] < 0) continue;
    const auto& decl = decls[i];
    Reading(row, decl.column, [&] {
      if (decl.load == LoadAs::Custom) return decl.load_with(target, recordset.Fields(bound[i]));
      const Variant& value = cells ? cells[bound[i]] : kNoRow;
      if (decl.load == LoadAs::Date) StoredDate(decl.column, value, true);
      LoadProperty(value, decl.load, decl.property(target));
    });
  }
}

}  // namespace ormelix::detail
