// Stored values as text and as JSON, walked through the column declarations of
// the library, so that a view shows every value a table stores.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "json.h"
#include "ormelix/store/columns.h"

namespace cli {

json::Value PropertyJson(ormelix::PropertyRef property);
std::string PropertyText(ormelix::PropertyRef property);

// Every read column of the declaration with its value in the target.
template <class Target>
std::vector<std::pair<std::string, ormelix::PropertyRef>> ColumnValues(const ormelix::ColumnSet<Target>& columns,
                                                                       Target& target) {
  std::vector<std::pair<std::string, ormelix::PropertyRef>> values;
  for (const auto& decl : columns.Columns())
    if (decl.column && decl.property && decl.load != ormelix::LoadAs::None)
      values.emplace_back(decl.column, decl.property(target));
  return values;
}

template <class Target>
json::Value ColumnsJson(const ormelix::ColumnSet<Target>& columns, Target& target) {
  json::Value object = json::Value::MakeObject();
  for (auto& [column, property] : ColumnValues(columns, target)) object.Set(column, PropertyJson(property));
  return object;
}

}  // namespace cli
