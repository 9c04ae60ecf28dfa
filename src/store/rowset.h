// The rows of one read, as a recordset holds them (or shares them with other
// recordsets of the same statement), with the indexes its filters made.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "backend.h"
#include "ormelix/store/text_order.h"
#include "ormelix/text.h"

namespace ormelix::detail {

using RowList = std::vector<std::uint32_t>;

// Rows of one column by value, so that an equality term of a filter costs a hash
// lookup instead of a scan. Texts are keyed in the store's text order, as the
// filter compares them ('ÄRZTE' finds 'ärzte'). Lists are ascending, as rows are indexed in order.
// Text keys view the cells' own text, which stays in place while the cells vector
// grows; a column whose cells are rewritten loses its index first.
struct ColumnIndex {
  std::unordered_map<double, RowList> by_number;            // cells that are numbers
  std::unordered_map<std::string_view, RowList, TextHash, TextEqual> by_text;  // cells that are texts
  std::unordered_map<double, RowList> by_number_text;       // texts that read as numbers

  void Add(const Variant& cell, std::uint32_t row) {
    double number = 0;
    if (cell.IsText()) {
      by_text[cell.AsText()].push_back(row);
      if (ParseNumber(cell.AsText(), number)) by_number_text[number].push_back(row);
    } else if (cell.TryNumber(number)) {
      by_number[number].push_back(row);
    }
  }

  static const RowList* Find(const auto& map, const auto& key) {
    auto found = map.find(key);
    return found == map.end() ? nullptr : &found->second;
  }

  // The rows whose cell equals the literal, in ascending order.
  RowList Lookup(const Variant& literal) const {
    const RowList* first = nullptr;
    const RowList* second = nullptr;
    double number = 0;
    if (literal.IsText()) {
      first = Find(by_text, std::string_view(literal.AsText()));
      if (ParseNumber(literal.AsText(), number)) second = Find(by_number, number);
    } else if (literal.TryNumber(number)) {
      first = Find(by_number, number);
      second = Find(by_number_text, number);
    }
    if (!first && !second) return {};
    if (!second) return *first;
    if (!first) return *second;
    RowList merged;
    std::set_union(first->begin(), first->end(), second->begin(), second->end(), std::back_inserter(merged));
    return merged;
  }
};

// The rows of one read and the filter indexes made on them. A recordset holds
// its own; within a StoreSharedReads scope the recordsets of one statement share
// the rows of its first read, and within a StoreReadAhead scope a recordset stands
// on the rows read ahead for its statement.
struct RowSet {
  std::shared_ptr<const ColumnLayout> layout;
  std::vector<Variant> cells;  // row-major; none in a slice:
  // The rows of one key of a read for many keys lie together in that read's
  // cells: a slice of them stands on them, from cell `first`, `size` cells.
  std::shared_ptr<std::vector<Variant>> block;
  std::size_t first = 0;
  std::size_t size = 0;
  mutable std::vector<std::unique_ptr<ColumnIndex>> indexes;

  Variant* Data() { return block ? block->data() + first : cells.data(); }
  const Variant* Data() const { return block ? block->data() + first : cells.data(); }
  std::size_t CellCount() const { return block ? size : cells.size(); }
};

}  // namespace ormelix::detail
