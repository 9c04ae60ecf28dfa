// Stored values as text and as JSON, walked through the column declarations of
// the library, so that a view shows every property a table fills, keyed by the
// property's name.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "common/json.h"
#include "ormelix/store/columns.h"

namespace cli {

// One property of a declaration: its name (the property's as the object model has
// it, "Mitarbeiter.FName" for one of a member object, else the column's) and its
// value; for a column with a conversion of its own (a text of day numbers, say)
// the value as it is stored.
struct ColumnValue {
  std::string name;
  std::optional<ormelix::PropertyRef> property;
  ormelix::Variant stored;
  ormelix::LoadAs load = ormelix::LoadAs::None;  // a date shows as a date
  std::string column = {};  // the store's column it is read from (or written to); "" for none
};

json::Value ValueJson(const ColumnValue& value);
std::string ValueText(const ColumnValue& value);
// True for 0, False, "" and date 0.
bool IsBlank(const ColumnValue& value);

// A titled two-column table of field and value; blank values left out if asked.
void PrintPairs(std::ostream& out, const std::string& title, const std::vector<ColumnValue>& values,
                bool skip_blank = false);

// Every property of the declaration with its value in the target, once each, in
// the order of the declaration: a property read from one column and written to
// another (a crossing) shows once, under its own name.
template <class Target>
std::vector<ColumnValue> ColumnValues(const ormelix::ColumnSet<Target>& columns, Target& target) {
  std::vector<ColumnValue> values;
  auto seen = [&](const std::string& name) {
    for (const ColumnValue& value : values)
      if (value.name == name) return true;
    return false;
  };
  for (const auto& decl : columns.Columns()) {
    if (!decl.column || seen(decl.Name())) continue;
    if (decl.property) values.push_back({decl.Name(), decl.property(target), {}, decl.load, decl.column});
    else if (decl.save_with) values.push_back({decl.Name(), std::nullopt, decl.save_with(target), decl.load, decl.column});
  }
  return values;
}

// Puts each value into the object under its name, a dotted name into nested
// objects ("Mitarbeiter.FName" into "Mitarbeiter"); a name the object holds
// already is the same property and is left as it is.
void AddValues(json::Value& object, const std::vector<ColumnValue>& values);

template <class Target>
void AddColumns(json::Value& object, const ormelix::ColumnSet<Target>& columns, Target& target) {
  AddValues(object, ColumnValues(columns, target));
}

template <class Target>
json::Value ColumnsJson(const ormelix::ColumnSet<Target>& columns, Target& target) {
  json::Value object = json::Value::MakeObject();
  AddColumns(object, columns, target);
  return object;
}

}  // namespace cli
