/// \file
/// Arrays with the index ranges of the domain: months 0..12 (MonthArray), months
/// 1..12 (Month1Array), and grids such as line 1..5 x month 0..12. An index outside
/// the range is std::out_of_range naming the property and the index, at once, in
/// the getter as in the setter.
#pragma once

#include <array>
#include <memory>
#include <stdexcept>
#include <string>

namespace ormelix {

namespace detail {
[[noreturn]] inline void IndexOutOfRange(const char* name, int index, int low, int high) {
  throw std::out_of_range(std::string(name ? name : "array") + "(" + std::to_string(index) +
                          "): index outside " + std::to_string(low) + ".." + std::to_string(high));
}
}  // namespace detail

/// \brief A checked array of the indices Low to High: a bad index is
/// std::out_of_range naming the property and the index.
template <class T, int Low, int High>
class IndexedArray {
 public:
  /// \name Index range
  ///@{

  /// The lowest and highest index.
  static constexpr int kLow = Low;
  static constexpr int kHigh = High;
  ///@}

  /// Every element T{}; name is the property's, for the message of a bad index.
  explicit IndexedArray(const char* name = nullptr) : name_(name) { values_.fill(T{}); }

  /// \name Element access
  ///@{

  /// The element at index, Low to High; std::out_of_range outside, in the getter as
  /// in the setter. `a(i)` reads as the domain's indexed property, `a[i]` as C++.
  T& operator[](int index) { return values_[Offset(index)]; }
  const T& operator[](int index) const { return values_[Offset(index)]; }
  T& operator()(int index) { return values_[Offset(index)]; }
  const T& operator()(int index) const { return values_[Offset(index)]; }
  ///@}

  /// The property's name, as given at construction (nullptr for none).
  const char* Name() const { return name_; }

 private:
  std::size_t Offset(int index) const {
    if (index < Low || index > High) detail::IndexOutOfRange(name_, index, Low, High);
    return static_cast<std::size_t>(index - Low);
  }

  std::array<T, High - Low + 1> values_;
  const char* name_;
};

/// A month array 0 to 12: element 0 exists but is never loaded or saved.
template <class T>
using MonthArray = IndexedArray<T, 0, 12>;
/// A month array 1 to 12: there is no element 0.
template <class T>
using Month1Array = IndexedArray<T, 1, 12>;

/// \cond INTERNAL
// The storage of the grids below: a block of cells per month, allocated at the
// first write into that month, so that an object with many grids that a load
// leaves untouched (the wage-type lines of an employee without any) costs a pointer
// each, and one with the lines of one month holds that month only. A read of an
// untouched cell gives T{}.
template <class T, std::size_t PerMonth>
class MonthBlocks {
 public:
  using Block = std::array<T, PerMonth>;

  MonthBlocks() = default;
  MonthBlocks(const MonthBlocks& other) { CopyFrom(other); }
  MonthBlocks& operator=(const MonthBlocks& other) {
    if (this != &other) CopyFrom(other);
    return *this;
  }
  MonthBlocks(MonthBlocks&&) noexcept = default;
  MonthBlocks& operator=(MonthBlocks&&) noexcept = default;

  T& At(int month, std::size_t offset) {
    if (!months_) months_ = std::make_unique<Months>();
    std::unique_ptr<Block>& block = (*months_)[static_cast<std::size_t>(month)];
    if (!block) {
      block = std::make_unique<Block>();
      block->fill(T{});
    }
    return (*block)[offset];
  }
  const T& At(int month, std::size_t offset) const {
    static const T kUntouched{};
    if (!months_) return kUntouched;
    const std::unique_ptr<Block>& block = (*months_)[static_cast<std::size_t>(month)];
    return block ? (*block)[offset] : kUntouched;
  }
  bool Allocated() const { return months_ != nullptr; }

 private:
  using Months = std::array<std::unique_ptr<Block>, 13>;

  void CopyFrom(const MonthBlocks& other) {
    months_.reset();
    if (!other.months_) return;
    months_ = std::make_unique<Months>();
    for (std::size_t m = 0; m < 13; ++m)
      if ((*other.months_)[m]) (*months_)[m] = std::make_unique<Block>(*(*other.months_)[m]);
  }

  std::unique_ptr<Months> months_;
};
/// \endcond

/// Two indices (a, month): a in ALow..AHigh, month 0..12.
template <class T, int ALow, int AHigh>
class MonthGrid {
 public:
  /// Every cell T{}; name is the property's, for the message of a bad index.
  explicit MonthGrid(const char* name = nullptr) : name_(name) {}

  /// \name Cell access
  ///@{

  /// The cell (a, month); std::out_of_range for a bad index. The first index is
  /// checked before the month. A read of a cell never written gives T{}.
  T& operator()(int a, int month) {
    const std::size_t at = Offset(a);
    return values_.At(Month(month), at);
  }
  const T& operator()(int a, int month) const {
    const std::size_t at = Offset(a);
    return values_.At(Month(month), at);
  }
  ///@}
  /// False while no value has been written.
  bool Allocated() const { return values_.Allocated(); }

 private:
  std::size_t Offset(int a) const {
    if (a < ALow || a > AHigh) detail::IndexOutOfRange(name_, a, ALow, AHigh);
    return static_cast<std::size_t>(a - ALow);
  }
  int Month(int month) const {
    if (month < 0 || month > 12) detail::IndexOutOfRange(name_, month, 0, 12);
    return month;
  }

  MonthBlocks<T, AHigh - ALow + 1> values_;
  const char* name_;
};

/// Three indices (a, b, month): a in ALow..AHigh, b in BLow..BHigh, month 0..12.
template <class T, int ALow, int AHigh, int BLow, int BHigh>
class MonthGrid3 {
 public:
  /// Every cell T{}; name is the property's, for the message of a bad index.
  explicit MonthGrid3(const char* name = nullptr) : name_(name) {}

  /// \name Cell access
  ///@{

  /// The cell (a, b, month); std::out_of_range for a bad index. The indices are
  /// checked in order: a, b, month. A read of a cell never written gives T{}.
  T& operator()(int a, int b, int month) {
    const std::size_t at = Offset(a, b);
    return values_.At(Month(month), at);
  }
  const T& operator()(int a, int b, int month) const {
    const std::size_t at = Offset(a, b);
    return values_.At(Month(month), at);
  }
  ///@}
  /// False while no value has been written.
  bool Allocated() const { return values_.Allocated(); }

 private:
  std::size_t Offset(int a, int b) const {
    if (a < ALow || a > AHigh) detail::IndexOutOfRange(name_, a, ALow, AHigh);
    if (b < BLow || b > BHigh) detail::IndexOutOfRange(name_, b, BLow, BHigh);
    return static_cast<std::size_t>(a - ALow) * (BHigh - BLow + 1) + static_cast<std::size_t>(b - BLow);
  }
  int Month(int month) const {
    if (month < 0 || month > 12) detail::IndexOutOfRange(name_, month, 0, 12);
    return month;
  }

  MonthBlocks<T, (AHigh - ALow + 1) * (BHigh - BLow + 1)> values_;
  const char* name_;
};

}  // namespace ormelix
