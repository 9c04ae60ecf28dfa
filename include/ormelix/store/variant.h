/// \file
/// A store value as the domain logic sees it: empty, Null, a boolean, a whole
/// number, a double or a text. Dates travel as doubles (day counts, 0 = no date).
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

namespace ormelix {

/// A calendar date as a day count: day 0 is 30 December 1899, so 1 January 1900 is 2.
/// 0 also means "no date".
using Date = double;

/// \brief A store value: empty, Null, a boolean, a whole number, a double or a text.
///
/// Sixteen bytes: a kind and a payload; a text lives on the heap (an empty text
/// takes no allocation), so that a snapshot of many cells stays compact.
class Variant {
 public:
  /// What a value holds.
  enum Kind : unsigned char {
    Empty,    ///< no value at all: a missing argument, a field at no current row
    Null,     ///< the store's Null
    Boolean,  ///< a boolean (reads as -1 or 0 as a number)
    Integer,  ///< a whole number, 64-bit
    Double,   ///< a double (dates travel so)
    Text      ///< a text (UTF-8)
  };

  /// Empty.
  Variant() noexcept : kind_(Empty), integer_(0) {}
  /// \name From plain values
  ///@{

  /// A value of the kind of its argument.
  ///
  /// A value of the kind of its argument: bool is Boolean, a whole number Integer,
  /// float and double Double, a text Text. Implicit, so that a plain value can be
  /// passed where a Variant is asked for.
  Variant(bool value) noexcept : kind_(Boolean), integer_(0) { boolean_ = value; }
  template <std::integral I>
    requires(!std::same_as<I, bool> && !std::same_as<I, char>)
  Variant(I value) noexcept : kind_(Integer), integer_(static_cast<std::int64_t>(value)) {}
  Variant(double value) noexcept : kind_(Double), double_(value) {}
  Variant(float value) noexcept : kind_(Double), double_(static_cast<double>(value)) {}
  Variant(std::string value) : kind_(Text), text_(value.empty() ? nullptr : new std::string(std::move(value))) {}
  Variant(std::string_view value) : kind_(Text), text_(value.empty() ? nullptr : new std::string(value)) {}
  Variant(const char* value) : Variant(std::string_view(value)) {}
  ///@}

  /// \name Copy and move
  ///@{

  /// A copy holds its own text; a move leaves the source of the same kind.
  Variant(const Variant& other) : kind_(other.kind_), integer_(other.integer_) {
    if (kind_ == Text && other.text_) text_ = new std::string(*other.text_);
  }
  Variant(Variant&& other) noexcept : kind_(other.kind_), integer_(other.integer_) {
    if (kind_ == Text) other.text_ = nullptr;
  }
  Variant& operator=(const Variant& other) {
    if (this != &other) *this = Variant(other);
    return *this;
  }
  Variant& operator=(Variant&& other) noexcept {
    if (this != &other) {
      Release();
      kind_ = other.kind_;
      integer_ = other.integer_;
      if (kind_ == Text) other.text_ = nullptr;
    }
    return *this;
  }
  ///@}
  /// Frees the text, if any.
  ~Variant() { Release(); }

  /// The store's Null.
  static Variant NullValue() noexcept {
    Variant v;
    v.kind_ = Null;
    return v;
  }

  /// What the value holds.
  Kind kind() const noexcept { return kind_; }
  /// \name Tests of the kind
  ///@{

  /// True for the kind named.
  ///
  /// True for the kind named: Empty, Null, Empty or Null (IsMissing), a number
  /// (Integer, Double or Boolean), a text.
  bool IsEmpty() const noexcept { return kind_ == Empty; }
  bool IsNull() const noexcept { return kind_ == Null; }
  bool IsMissing() const noexcept { return kind_ <= Null; }
  bool IsNumber() const noexcept { return kind_ == Integer || kind_ == Double || kind_ == Boolean; }
  bool IsText() const noexcept { return kind_ == Text; }
  ///@}

  /// \name Raw access
  ///@{

  /// Raw access; the caller has checked kind(). (ValueHelpers converts any kind.)
  bool AsBool() const noexcept { return boolean_; }
  std::int64_t AsInteger() const noexcept { return integer_; }
  double AsDouble() const noexcept { return double_; }
  const std::string& AsText() const noexcept { return text_ ? *text_ : EmptyText(); }
  ///@}

  /// The value as a number: booleans as -1/0, numeric text parsed (C locale).
  /// Returns false when there is no number to be had.
  bool TryNumber(double& out) const;

  /// A readable form for messages and output: "" for empty, "Null" for Null.
  std::string Describe() const;

  /// Same kind and same value (texts compared byte for byte).
  friend bool operator==(const Variant& a, const Variant& b);

 private:
  static const std::string& EmptyText() noexcept;
  void Release() noexcept {
    if (kind_ == Text) delete text_;
  }

  Kind kind_;
  union {
    bool boolean_;
    std::int64_t integer_;
    double double_;
    std::string* text_;  ///< nullptr for ""
  };
};

static_assert(sizeof(Variant) == 16, "a stored value is meant to take sixteen bytes");

/// Parses a decimal number written in C locale ("12", "-3.5", "1e3"), the whole
/// text after trimming blanks. Returns false if it is not one.
bool ParseNumber(std::string_view text, double& out);

/// The shortest decimal text that reads back as the same double ("0.1", "1234.57", "3").
std::string FormatNumber(double value);

}  // namespace ormelix
