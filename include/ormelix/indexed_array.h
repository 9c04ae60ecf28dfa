// Arrays with the index ranges of the domain: months 0..12 (MonthArray), months
// 1..12 (Month1Array), and grids such as line 1..5 x month 0..12. An index outside
// the range is std::out_of_range naming the property and the index, at once, in
// the getter as in the setter.
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

template <class T, int Low, int High>
class IndexedArray {
 public:
  static constexpr int kLow = Low;
  static constexpr int kHigh = High;

  explicit IndexedArray(const char* name = nullptr) : name_(name) { values_.fill(T{}); }

  T& operator[](int index) { return values_[Offset(index)]; }
  const T& operator[](int index) const { return values_[Offset(index)]; }
  T& operator()(int index) { return values_[Offset(index)]; }
  const T& operator()(int index) const { return values_[Offset(index)]; }

  const char* Name() const { return name_; }

 private:
  std::size_t Offset(int index) const {
    if (index < Low || index > High) detail::IndexOutOfRange(name_, index, Low, High);
    return static_cast<std::size_t>(index - Low);
  }

  std::array<T, High - Low + 1> values_;
  const char* name_;
};

template <class T>
using MonthArray = IndexedArray<T, 0, 12>;
template <class T>
using Month1Array = IndexedArray<T, 1, 12>;

// The storage of the grids below: allocated at the first write, so that an object
// with many grids that a load leaves untouched (the wage-type lines of an employee
// without any) costs a pointer each. A read of an untouched grid gives T{}.
template <class T, std::size_t N>
class LazyCells {
 public:
  LazyCells() = default;
  LazyCells(const LazyCells& other) : cells_(other.cells_ ? std::make_unique<std::array<T, N>>(*other.cells_) : nullptr) {}
  LazyCells& operator=(const LazyCells& other) {
    if (this != &other) cells_ = other.cells_ ? std::make_unique<std::array<T, N>>(*other.cells_) : nullptr;
    return *this;
  }
  LazyCells(LazyCells&&) noexcept = default;
  LazyCells& operator=(LazyCells&&) noexcept = default;

  T& At(std::size_t offset) {
    if (!cells_) {
      cells_ = std::make_unique<std::array<T, N>>();
      cells_->fill(T{});
    }
    return (*cells_)[offset];
  }
  const T& At(std::size_t offset) const {
    static const T kUntouched{};
    return cells_ ? (*cells_)[offset] : kUntouched;
  }
  bool Allocated() const { return cells_ != nullptr; }

 private:
  std::unique_ptr<std::array<T, N>> cells_;
};

// Two indices (a, month): a in ALow..AHigh, month 0..12.
template <class T, int ALow, int AHigh>
class MonthGrid {
 public:
  explicit MonthGrid(const char* name = nullptr) : name_(name) {}

  T& operator()(int a, int month) { return values_.At(Offset(a, month)); }
  const T& operator()(int a, int month) const { return values_.At(Offset(a, month)); }
  // False while no value has been written.
  bool Allocated() const { return values_.Allocated(); }

 private:
  std::size_t Offset(int a, int month) const {
    if (a < ALow || a > AHigh) detail::IndexOutOfRange(name_, a, ALow, AHigh);
    if (month < 0 || month > 12) detail::IndexOutOfRange(name_, month, 0, 12);
    return static_cast<std::size_t>(a - ALow) * 13 + static_cast<std::size_t>(month);
  }

  LazyCells<T, (AHigh - ALow + 1) * 13> values_;
  const char* name_;
};

// Three indices (a, b, month): a in ALow..AHigh, b in BLow..BHigh, month 0..12.
template <class T, int ALow, int AHigh, int BLow, int BHigh>
class MonthGrid3 {
 public:
  explicit MonthGrid3(const char* name = nullptr) : name_(name) {}

  T& operator()(int a, int b, int month) { return values_.At(Offset(a, b, month)); }
  const T& operator()(int a, int b, int month) const { return values_.At(Offset(a, b, month)); }
  // False while no value has been written.
  bool Allocated() const { return values_.Allocated(); }

 private:
  std::size_t Offset(int a, int b, int month) const {
    if (a < ALow || a > AHigh) detail::IndexOutOfRange(name_, a, ALow, AHigh);
    if (b < BLow || b > BHigh) detail::IndexOutOfRange(name_, b, BLow, BHigh);
    if (month < 0 || month > 12) detail::IndexOutOfRange(name_, month, 0, 12);
    return (static_cast<std::size_t>(a - ALow) * (BHigh - BLow + 1) + static_cast<std::size_t>(b - BLow)) * 13 +
           static_cast<std::size_t>(month);
  }

  LazyCells<T, (AHigh - ALow + 1) * (BHigh - BLow + 1) * 13> values_;
  const char* name_;
};

}  // namespace ormelix
