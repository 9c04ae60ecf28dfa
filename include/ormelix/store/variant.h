// A store value as the domain logic sees it: empty, Null, a boolean, a whole
// number, a double or a text. Dates travel as doubles (day counts, 0 = no date).
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace ormelix {

// A calendar date as a day count: day 0 is 30 December 1899, so 1 January 1900 is 2.
// 0 also means "no date".
using Date = double;

class Variant {
 public:
  enum Kind { Empty, Null, Boolean, Integer, Double, Text };

  Variant() = default;
  Variant(bool value) : value_(value) {}
  template <std::integral I>
    requires(!std::same_as<I, bool> && !std::same_as<I, char>)
  Variant(I value) : value_(static_cast<std::int64_t>(value)) {}
  Variant(double value) : value_(value) {}
  Variant(float value) : value_(static_cast<double>(value)) {}
  Variant(std::string value) : value_(std::move(value)) {}
  Variant(std::string_view value) : value_(std::string(value)) {}
  Variant(const char* value) : value_(std::string(value)) {}

  static Variant NullValue() {
    Variant v;
    v.value_ = NullTag{};
    return v;
  }

  Kind kind() const noexcept { return static_cast<Kind>(value_.index()); }
  bool IsEmpty() const noexcept { return kind() == Empty; }
  bool IsNull() const noexcept { return kind() == Null; }
  bool IsMissing() const noexcept { return kind() <= Null; }  // Empty or Null
  bool IsNumber() const noexcept { return kind() == Integer || kind() == Double || kind() == Boolean; }
  bool IsText() const noexcept { return kind() == Text; }

  // Raw access; the caller has checked kind().
  bool AsBool() const { return std::get<bool>(value_); }
  std::int64_t AsInteger() const { return std::get<std::int64_t>(value_); }
  double AsDouble() const { return std::get<double>(value_); }
  const std::string& AsText() const { return std::get<std::string>(value_); }

  // The value as a number: booleans as -1/0, numeric text parsed (C locale).
  // Returns false when there is no number to be had.
  bool TryNumber(double& out) const;

  // A readable form for messages and output: "" for empty, "Null" for Null.
  std::string Describe() const;

  friend bool operator==(const Variant& a, const Variant& b) = default;

 private:
  struct NullTag {
    friend bool operator==(NullTag, NullTag) { return true; }
  };
  std::variant<std::monostate, NullTag, bool, std::int64_t, double, std::string> value_;
};

// Parses a decimal number written in C locale ("12", "-3.5", "1e3"), the whole
// text after trimming blanks. Returns false if it is not one.
bool ParseNumber(std::string_view text, double& out);

// The shortest decimal text that reads back as the same double ("0.1", "1234.57", "3").
std::string FormatNumber(double value);

}  // namespace ormelix
