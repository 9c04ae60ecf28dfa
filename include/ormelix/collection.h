/// \file
/// The keyed collection every list of the library is built on: ordered, counted
/// from 1, with optional text keys (compared without regard to case), insertion
/// before or after a key or position, and lookup by position or key. Items are
/// shared: what a lookup hands out is the object in the list, not a copy.
#pragma once

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "ormelix/error.h"
#include "ormelix/store/variant.h"
#include "ormelix/text.h"

namespace ormelix {

/// \brief The keyed collection every list of the library is built on: ordered,
/// positions from 1, optional text keys compared without regard to case.
///
/// Items are shared: what a lookup hands out is the object in the list, not a copy.
/// A failed lookup by key or position is a KeyNotFound naming the list.
template <class T>
class Collection {
 public:
  /// An item, shared.
  using Ptr = std::shared_ptr<T>;

 private:
  struct Entry {
    Ptr item;
    std::string key;  // folded; "" for none
  };

 public:

  /// An empty list; name is what a KeyNotFound calls it ("the employee list").
  explicit Collection(std::string name = "collection") : name_(std::move(name)) {}

  /// The number of items.
  long Count() const { return static_cast<long>(items_.size()); }
  /// True without items.
  bool Empty() const { return items_.empty(); }

  /// Adds at the end, or before/after the entry that `before`/`after` names (a
  /// position from 1 or a key). A key already in use is a failure.
  void Add(Ptr item, const std::string& key = "", const Variant& before = {}, const Variant& after = {}) {
    std::size_t at = items_.size();
    if (!before.IsMissing()) at = IndexOf(before);
    else if (!after.IsMissing()) at = IndexOf(after) + 1;
    std::string folded = FoldCase(key);
    if (!key.empty()) {
      if (keys_.count(folded)) throw Error("the key '" + key + "' is already in " + name_);
      keys_.emplace(folded, item);
    }
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(at), Entry{std::move(item), std::move(folded)});
  }

  /// By position (a number, from 1) or key (a text). KeyNotFound when there is none.
  const Ptr& Item(const Variant& index) const {
    if (index.IsText()) {
      auto found = keys_.find(FoldCase(index.AsText()));
      if (found == keys_.end()) throw KeyNotFound(index.AsText(), name_);
      return found->second;
    }
    return items_[IndexOf(index)].item;
  }
  /// By position, from 1; KeyNotFound outside 1..Count.
  const Ptr& operator[](long position) const { return Item(Variant(position)); }

  /// True if the key is in the list.
  bool HasKey(const std::string& key) const { return keys_.count(FoldCase(key)) != 0; }

  /// Removes the item at a position (from 1) or key; KeyNotFound when there is none.
  void Remove(const Variant& index) {
    std::size_t at = IndexOf(index);
    if (!items_[at].key.empty()) keys_.erase(items_[at].key);
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(at));
  }

  /// Removes every item.
  void Clear() {
    items_.clear();
    keys_.clear();
  }

  /// Iteration over the items in order (NewEnum).
  class const_iterator {
   public:
    /// \name Iterator traits
    ///@{

    /// A forward iterator over the shared items.
    using iterator_category = std::forward_iterator_tag;
    using value_type = Ptr;
    using difference_type = std::ptrdiff_t;
    using pointer = const Ptr*;
    using reference = const Ptr&;
    ///@}
    /// \cond INTERNAL
    // Library-internal: begin() and end() make the iterators.
    explicit const_iterator(typename std::vector<Entry>::const_iterator it) : it_(it) {}
    /// \endcond
    /// \name Iteration
    ///@{

    /// The item, the step to the next one, and the comparison with end().
    const Ptr& operator*() const { return it_->item; }
    const Ptr* operator->() const { return &it_->item; }
    const_iterator& operator++() {
      ++it_;
      return *this;
    }
    bool operator==(const const_iterator& other) const { return it_ == other.it_; }
    ///@}

   private:
    typename std::vector<Entry>::const_iterator it_;
  };
  /// \name Iteration
  ///@{

  /// The first item and the end, for range-for.
  const_iterator begin() const { return const_iterator(items_.begin()); }
  const_iterator end() const { return const_iterator(items_.end()); }
  ///@}

 private:
  std::size_t IndexOf(const Variant& index) const {
    if (index.IsText()) {
      auto found = keys_.find(FoldCase(index.AsText()));
      if (found != keys_.end()) {
        for (std::size_t i = 0; i < items_.size(); ++i)
          if (items_[i].item == found->second) return i;
      }
      throw KeyNotFound(index.AsText(), name_);
    }
    double number = 0;
    if (index.IsMissing() || !index.TryNumber(number)) throw KeyNotFound(index.Describe(), name_);
    double position = std::nearbyint(number);
    if (position < 1 || position > static_cast<double>(items_.size()))
      throw KeyNotFound("position " + FormatNumber(position) + " (of " + std::to_string(items_.size()) + ")", name_);
    return static_cast<std::size_t>(position) - 1;
  }

  std::string name_;
  std::vector<Entry> items_;
  std::unordered_map<std::string, Ptr> keys_;
};

}  // namespace ormelix
