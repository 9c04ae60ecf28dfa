#include "ormelix/store/variant.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace ormelix {

namespace {

std::string_view Trim(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

}  // namespace

bool ParseNumber(std::string_view text, double& out) {
  text = Trim(text);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  if (text.empty()) return false;
  double value = 0;
  auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (ec != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return false;
  out = value;
  return true;
}

std::string FormatNumber(double value) {
  if (value == 0) return "0";  // also folds -0
  char buffer[32];
  auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
  if (ec != std::errc()) return std::to_string(value);
  return std::string(buffer, end);
}

const std::string& Variant::EmptyText() noexcept {
  static const std::string empty;
  return empty;
}

bool operator==(const Variant& a, const Variant& b) {
  if (a.kind_ != b.kind_) return false;
  switch (a.kind_) {
    case Variant::Empty:
    case Variant::Null:
      return true;
    case Variant::Boolean:
      return a.boolean_ == b.boolean_;
    case Variant::Integer:
      return a.integer_ == b.integer_;
    case Variant::Double:
      return a.double_ == b.double_;
    case Variant::Text:
      return a.AsText() == b.AsText();
  }
  return false;
}

bool Variant::TryNumber(double& out) const {
  switch (kind()) {
    case Boolean:
      out = AsBool() ? -1.0 : 0.0;
      return true;
    case Integer:
      out = static_cast<double>(AsInteger());
      return true;
    case Double:
      out = AsDouble();
      return true;
    case Text:
      return ParseNumber(AsText(), out);
    default:
      return false;
  }
}

std::string Variant::Describe() const {
  switch (kind()) {
    case Empty:
      return "";
    case Null:
      return "Null";
    case Boolean:
      return AsBool() ? "True" : "False";
    case Integer:
      return std::to_string(AsInteger());
    case Double:
      return FormatNumber(AsDouble());
    case Text:
      return AsText();
  }
  return "";
}

}  // namespace ormelix
