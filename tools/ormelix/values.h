// Stored values as text and as JSON, walked through the column declarations of
// the library, so that a view shows every value a table stores.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "json.h"
#include "ormelix/store/columns.h"

namespace cli {

// One read column: its property, or for a column with a conversion of its own
// (a text of day numbers, say) the value as it is stored.
struct ColumnValue {
  std::string column;
  std::optional<ormelix::PropertyRef> property;
  ormelix::Variant stored;
  ormelix::LoadAs load = ormelix::LoadAs::None;  // a date shows as a date
};

json::Value ValueJson(const ColumnValue& value);
std::string ValueText(const ColumnValue& value);
// True for 0, False, "" and date 0.
bool IsBlank(const ColumnValue& value);

// Every read column of the declaration with its value in the target.
template <class Target>
std::vector<ColumnValue> ColumnValues(const ormelix::ColumnSet<Target>& columns, Target& target) {
  std::vector<ColumnValue> values;
  for (const auto& decl : columns.Columns()) {
    if (!decl.column || decl.load == ormelix::LoadAs::None) continue;
    if (decl.property) values.push_back({decl.column, decl.property(target), {}, decl.load});
    else if (decl.save_with) values.push_back({decl.column, std::nullopt, decl.save_with(target), decl.load});
  }
  return values;
}

template <class Target>
json::Value ColumnsJson(const ormelix::ColumnSet<Target>& columns, Target& target) {
  json::Value object = json::Value::MakeObject();
  for (const ColumnValue& value : ColumnValues(columns, target)) object.Set(value.column, ValueJson(value));
  return object;
}

}  // namespace cli
