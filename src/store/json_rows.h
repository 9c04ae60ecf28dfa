// The JSON form of a table file: an array of objects, one per row, whose members
// are the row's columns and whose values are scalars (string, number, true,
// false, null). The reader follows RFC 8259 and tells where each row begins.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ormelix/store/column_values.h"

namespace ormelix::detail {

struct JsonMember {
  std::string key;
  FileValue value;  // its text lies in `text`
  std::string text;
  std::size_t line = 0;
};

// A text that is no such array, at a line (from 1).
struct JsonRowsError {
  std::size_t line;
  std::string message;
};

// Calls row for each object of the array, with the line it begins on and its
// members in order. Throws JsonRowsError.
void ReadJsonRows(std::string_view text,
                  const std::function<void(std::size_t line, std::vector<JsonMember>& members)>& row);

}  // namespace ormelix::detail
