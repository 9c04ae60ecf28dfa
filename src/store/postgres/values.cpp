#include "values.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "ormelix/text.h"

namespace ormelix::detail::postgres {

Affinity AffinityOf(Oid type) {
  switch (type) {
    case kBool:
    case kInt2:
    case kInt4:
    case kInt8:
      return Affinity::Integer;
    case kFloat4:
    case kFloat8:
    case kNumeric:
      return Affinity::Real;
    case kText:
    case kBpchar:
    case kVarchar:
      return Affinity::Text;
    default:
      return Affinity::Any;
  }
}

namespace {

std::string IntegerText(std::int64_t value) {
  char buffer[24];
  auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  return std::string(buffer, end);
}

}  // namespace

Variant StoredForm(const Variant& value, Affinity affinity) {
  if (value.kind() == Variant::Boolean) return Variant(static_cast<std::int64_t>(value.AsBool() ? -1 : 0));
  if (value.IsMissing()) return value;
  double number = 0;
  switch (affinity) {
    case Affinity::Integer:
      if (!value.TryNumber(number) || std::fabs(number) >= 9.2e18) return value;
      return value.kind() == Variant::Integer ? value : Variant(static_cast<std::int64_t>(std::nearbyint(number)));
    case Affinity::Real:
      if (!value.TryNumber(number)) return value;
      return Variant(number);
    case Affinity::Text:
      if (value.kind() == Variant::Integer) return Variant(IntegerText(value.AsInteger()));
      if (value.kind() == Variant::Double) return Variant(DoubleAsStoredText(value.AsDouble()));
      return value;
    case Affinity::Any:
      return value;  // written as UntypedText, read back by UntypedValue
  }
  return value;
}

std::string UntypedText(const Variant& value) {
  if (value.kind() == Variant::Integer) return IntegerText(value.AsInteger());
  std::string text = FormatNumber(value.AsDouble());
  if (text.find_first_of(".eEn") == std::string::npos) text += ".0";
  return text;
}

// What a text of such a column was: a number in one of those forms is that
// number again (so a text that reads as one comes back as a number: the one
// difference from SQLite, whose untyped columns keep the kind of each value).
Variant UntypedValue(std::string_view text) {
  if (text.empty() || text.size() > 32) return Variant(text);
  const char* begin = text.data();
  const char* end = begin + text.size();
  std::int64_t whole = 0;
  auto [at, error] = std::from_chars(begin, end, whole);
  if (error == std::errc() && at == end && (text[0] != '0' || text.size() == 1)) return Variant(whole);
  double number = 0;
  auto [dat, derror] = std::from_chars(begin, end, number);
  if (derror == std::errc() && dat == end && text.find_first_of(".eE") != std::string_view::npos &&
      UntypedText(Variant(number)) == text)
    return Variant(number);
  return Variant(text);
}

std::string TextForm(const Variant& value) {
  switch (value.kind()) {
    case Variant::Boolean:
      return value.AsBool() ? "-1" : "0";
    case Variant::Integer:
      return IntegerText(value.AsInteger());
    case Variant::Double:
      return FormatNumber(value.AsDouble());
    default:
      return value.AsText();
  }
}

std::string Placeholders(std::size_t count) {
  std::string marks;
  for (std::size_t i = 1; i <= count; ++i) marks += (i > 1 ? ",$" : "$") + std::to_string(i);
  return marks;
}

void ParamTexts::Set(const std::vector<Variant>& params) {
  texts.assign(params.size(), {});
  values.assign(params.size(), nullptr);
  for (std::size_t i = 0; i < params.size(); ++i) {
    if (params[i].IsMissing()) continue;
    texts[i] = TextForm(params[i]);
    values[i] = texts[i].c_str();
  }
}

void ParamTexts::Set(const std::vector<Variant>& params, const std::vector<Affinity>& affinities) {
  Set(params);
  for (std::size_t i = 0; i < params.size() && i < affinities.size(); ++i) {
    if (affinities[i] != Affinity::Any || !values[i] || params[i].IsText()) continue;
    texts[i] = UntypedText(params[i]);
    values[i] = texts[i].c_str();
  }
}

Oid DeclaredType(const Variant& value) {
  switch (value.kind()) {
    case Variant::Integer:
    case Variant::Boolean:
      return kInt8;
    case Variant::Double:
      return kFloat8;
    default:
      return kUnknown;
  }
}

Variant Cell(const PGresult* result, int row, int column, Oid type) {
  if (PQgetisnull(result, row, column)) return Variant::NullValue();
  const char* text = PQgetvalue(result, row, column);
  int length = PQgetlength(result, row, column);
  switch (type) {
    case kUnknown:
      return UntypedValue(std::string_view(text, static_cast<std::size_t>(length)));
    case kInt2:
    case kInt4:
    case kInt8: {
      std::int64_t number = 0;
      std::from_chars(text, text + length, number);
      return Variant(number);
    }
    case kFloat4:
    case kFloat8:
    case kNumeric: {
      double number = 0;
      if (std::from_chars(text, text + length, number).ec != std::errc()) number = std::strtod(text, nullptr);
      return Variant(number);
    }
    case kBool:
      return Variant(static_cast<std::int64_t>(text[0] == 't' ? -1 : 0));
    default:
      return Variant(std::string(text, static_cast<std::size_t>(length)));
  }
}

namespace {

// A whole number of `bytes` bytes in network order.
std::int64_t BigEndian(const char* data, int bytes) {
  std::uint64_t value = 0;
  for (int i = 0; i < bytes; ++i) value = value << 8 | static_cast<unsigned char>(data[i]);
  const int unused = 64 - 8 * bytes;  // sign-extended from its width
  return static_cast<std::int64_t>(value << unused) >> unused;
}

}  // namespace

bool HasBinaryForm(Oid type) {
  switch (type) {
    case kBool:
    case kInt2:
    case kInt4:
    case kInt8:
    case kFloat4:
    case kFloat8:
    case kText:
    case kBpchar:
    case kVarchar:
    case kUnknown:
      return true;
    default:
      return false;
  }
}

Variant BinaryCell(const PGresult* result, int row, int column, Oid type) {
  if (PQgetisnull(result, row, column)) return Variant::NullValue();
  const char* data = PQgetvalue(result, row, column);
  const int length = PQgetlength(result, row, column);
  switch (type) {
    case kBool:
      return Variant(static_cast<std::int64_t>(data[0] ? -1 : 0));
    case kInt2:
    case kInt4:
    case kInt8:
      return Variant(BigEndian(data, length));
    case kFloat4: {
      const auto bits = static_cast<std::uint32_t>(BigEndian(data, 4));
      float number;
      std::memcpy(&number, &bits, sizeof number);
      return Variant(static_cast<double>(number));
    }
    case kFloat8: {
      const auto bits = static_cast<std::uint64_t>(BigEndian(data, 8));
      double number;
      std::memcpy(&number, &bits, sizeof number);
      return Variant(number);
    }
    case kUnknown:
      return UntypedValue(std::string_view(data, static_cast<std::size_t>(length)));
    default:  // the texts, whose binary form is their text
      return Variant(std::string(data, static_cast<std::size_t>(length)));
  }
}

void AppendCopyText(const Variant& value, std::string& out) {
  switch (value.kind()) {
    case Variant::Empty:
    case Variant::Null:
      out += "\\N";
      return;
    case Variant::Boolean:
    case Variant::Integer:
    case Variant::Double:
      out += TextForm(value);
      return;
    case Variant::Text:
      for (char c : value.AsText()) {
        switch (c) {
          case '\\': out += "\\\\"; break;
          case '\n': out += "\\n"; break;
          case '\r': out += "\\r"; break;
          case '\t': out += "\\t"; break;
          default: out += c;
        }
      }
      return;
  }
}

}  // namespace ormelix::detail::postgres
