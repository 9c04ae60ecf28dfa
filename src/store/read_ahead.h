// The rows a StoreReadAhead read for statements not yet run: per statement form
// (its text with the key cut out) the rows of each key, taken once each.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "rowset.h"

namespace ormelix::detail {

struct ReadAheadRows {
  static constexpr std::size_t kIdLength = 38;  // {8-4-4-4-12}

  // A statement's text around its key: before "=" and the key's literal, after it.
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>{}(key); }
  };
  struct Form {
    std::string before;
    std::string after;
    // By the key's value: an ID in upper case.
    std::unordered_map<std::string, std::shared_ptr<RowSet>, Hash, std::equal_to<>> rows;
  };
  std::deque<Form> forms;  // a deque: a form stays where it is as others join

  // The form of these texts, made if there is none.
  Form& FormOf(const std::string& before, const std::string& after);
  // The value of the key the text of a statement of the form stands for: its
  // literal in upper case (into value, which holds an ID), or false when the text
  // is not of the form or its literal is no ID.
  static bool KeyOf(const Form& form, std::string_view text, char (&value)[kIdLength]);
  // The rows read ahead for a statement's text, taken out; null when there are none.
  std::shared_ptr<RowSet> Take(std::string_view text);
  bool Empty() const { return forms.empty(); }
  void Clear() { forms.clear(); }
};

}  // namespace ormelix::detail
