// The criteria language of Recordset::Filter and Recordset::Find: comparisons of a
// field with a literal ([Zeitraum]<=202403, [Sections]='a', [ID]={...}, [Datum]>=#2024-01-01#,
// [Code]=NULL), joined by AND and OR, with parentheses.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "ormelix/store/variant.h"

namespace ormelix::detail {

enum class CompareOp { Eq, Ne, Lt, Le, Gt, Ge };

struct FilterNode {
  enum Kind { Term, And, Or };
  Kind kind = Term;
  // Term
  int column = -1;
  CompareOp op = CompareOp::Eq;
  Variant literal;
  // And / Or
  std::vector<FilterNode> children;
};

// resolve gives the column index of a field name, or -1. Throws StoreError naming
// the criteria for text that does not parse or names an unknown field.
FilterNode ParseFilter(std::string_view criteria, const std::function<int(std::string_view)>& resolve);

// Does the row (cells indexed by column) match?
bool Evaluate(const FilterNode& node, const Variant* row);

// The comparison of a cell with a literal, as the filter sees it: numbers compare
// as numbers (numeric text included), texts in the store's text order (without
// regard to case, umlauts included), Null matches only =NULL.
bool CompareCell(const Variant& cell, CompareOp op, const Variant& literal);

}  // namespace ormelix::detail
