#include "common/json.h"

#include <charconv>
#include <cmath>
#include <stdexcept>

#include "ormelix/text.h"

namespace cli::json {

namespace {

void WriteString(std::string& out, const std::string& text) { ormelix::AppendJsonString(out, text); }

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
