#include "json.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace cli::json {

namespace {

// The length of the well-formed UTF-8 sequence at text[i], 0 for a byte that
// starts none (a stray continuation byte, an overlong form, a surrogate, a code
// point past U+10FFFF, a sequence cut short).
std::size_t Utf8Length(const std::string& text, std::size_t i) {
  auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
  unsigned char lead = byte(i);
  if (lead < 0x80) return 1;
  std::size_t length = lead >= 0xC2 && lead <= 0xDF ? 2 : lead >= 0xE0 && lead <= 0xEF ? 3
                       : lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
  if (length == 0 || i + length > text.size()) return 0;
  unsigned char low = 0x80, high = 0xBF;  // the range of the second byte
  if (lead == 0xE0) low = 0xA0;
  if (lead == 0xED) high = 0x9F;
  if (lead == 0xF0) low = 0x90;
  if (lead == 0xF4) high = 0x8F;
  if (byte(i + 1) < low || byte(i + 1) > high) return 0;
  for (std::size_t k = 2; k < length; ++k)
    if (byte(i + k) < 0x80 || byte(i + k) > 0xBF) return 0;
  return length;
}

// A JSON string of the text. Bytes that are no UTF-8 (a stored name written in
// another encoding) each become U+FFFD, so that the document stays valid.
void WriteString(std::string& out, const std::string& text) {
  out += '"';
  for (std::size_t i = 0; i < text.size();) {
    std::size_t length = Utf8Length(text, i);
    if (length == 0) {
      out += "\\ufffd";
      ++i;
      continue;
    }
    if (length > 1) {
      out.append(text, i, length);
      i += length;
      continue;
    }
    unsigned char c = static_cast<unsigned char>(text[i++]);
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default:
        if (c < 0x20) {
          char buffer[8];
          std::snprintf(buffer, sizeof buffer, "\\u%04x", c);
          out += buffer;
        } else {
          out += static_cast<char>(c);
        }
    }
  }
  out += '"';
}

void WriteNumber(std::string& out, double value) {
  if (!std::isfinite(value)) {
    out += "null";
    return;
  }
  if (value == 0) {
    out += "0";
    return;
  }
  char buffer[32];
  auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
  out.append(buffer, end);
}

void NewLine(std::string& out, int indent, int depth) {
  if (indent <= 0) return;
  out += '\n';
  out.append(static_cast<std::size_t>(indent * depth), ' ');
}

}  // namespace

Value& Value::Set(const std::string& key, Value value) {
  if (Find(key)) throw std::logic_error("the JSON object has the key '" + key + "' already");
  auto& object = std::get<Object>(data_);
  object.emplace_back(key, std::move(value));
  return object.back().second;
}

Value* Value::Find(const std::string& key) {
  for (auto& [name, member] : std::get<Object>(data_))
    if (name == key) return &member;
  return nullptr;
}

Value& Value::Push(Value value) {
  auto& array = std::get<Array>(data_);
  array.push_back(std::move(value));
  return array.back();
}

std::string Value::Dump(int indent) const {
  std::string out;
  Write(out, indent, 0);
  out += '\n';
  return out;
}

void Value::Write(std::string& out, int indent, int depth) const {
  if (std::holds_alternative<std::nullptr_t>(data_)) {
    out += "null";
  } else if (auto* flag = std::get_if<bool>(&data_)) {
    out += *flag ? "true" : "false";
  } else if (auto* integer = std::get_if<std::int64_t>(&data_)) {
    out += std::to_string(*integer);
  } else if (auto* number = std::get_if<double>(&data_)) {
    WriteNumber(out, *number);
  } else if (auto* text = std::get_if<std::string>(&data_)) {
    WriteString(out, *text);
  } else if (auto* object = std::get_if<Object>(&data_)) {
    out += '{';
    for (std::size_t i = 0; i < object->size(); ++i) {
      if (i) out += ',';
      NewLine(out, indent, depth + 1);
      WriteString(out, (*object)[i].first);
      out += indent > 0 ? ": " : ":";
      (*object)[i].second.Write(out, indent, depth + 1);
    }
    if (!object->empty()) NewLine(out, indent, depth);
    out += '}';
  } else if (auto* array = std::get_if<Array>(&data_)) {
    out += '[';
    for (std::size_t i = 0; i < array->size(); ++i) {
      if (i) out += ',';
      NewLine(out, indent, depth + 1);
      (*array)[i].Write(out, indent, depth + 1);
    }
    if (!array->empty()) NewLine(out, indent, depth);
    out += ']';
  }
}

}  // namespace cli::json
