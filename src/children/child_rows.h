// Library-internal: how the children and their entries are read and keyed.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "../session/row_reading.h"
#include "ormelix/collection.h"
#include "ormelix/store/columns.h"
#include "ormelix/store/recordset.h"
#include "ormelix/store/value_helpers.h"
#include "ormelix/text.h"

namespace ormelix::detail {

// The key under which a child stands in LLohn_Kinder and an entry in
// LLohn_Kind_Zeitbezuege: an ID in the form SqlID gives it (upper case, in braces),
// so that a key read from another column (KID) or handed on by a query in SQL form
// finds the object that was added under the ID its own row stores; a text that is
// no ID as it is.
inline std::string ChildKey(const std::string& id) {
  // SqlID gives an ID in braces, any other text in quotes, and a text of blanks the
  // ID that matches nothing.
  std::string key = ValueHelpers::SqlID(id);
  return key.front() == '{' && !TrimBlanks(id).empty() ? key : id;
}

// A lookup argument with a text brought to that form; positions as they are.
inline Variant ChildIndex(const Variant& index) {
  return index.IsText() ? Variant(ChildKey(index.AsText())) : index;
}

// Every row of the recordset as a new object (its ID, then the declared columns),
// finished by `then` and added under its key to a list built aside, so that a row
// that cannot be read (a StoreError naming table, column and row) leaves no half
// filled list behind. T has a member ID, which the declaration reads first.
template <class T, class Then>
Collection<T> ReadRows(Recordset& rows, const ColumnSet<T>& columns, const char* list_name, const char* what,
                       const char* table, Then&& then) {
  Collection<T> loaded(list_name);
  const std::vector<int> bound = columns.Bind(rows);
  for (; !rows.Eof(); rows.MoveNext()) {
    auto item = std::make_shared<T>();
    ReadColumns(columns, bound, *item, rows, RowOf{what, table, item->ID});
    then(*item);
    loaded.Add(item, ChildKey(item->ID));
  }
  return loaded;
}

}  // namespace ormelix::detail
