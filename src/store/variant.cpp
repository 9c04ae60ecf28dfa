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
