#include "json_reader.h"

#include <cctype>
#include <cstdlib>

namespace ormelix::test {

class JsonParser {
 public:
  JsonParser(const std::string& text, bool unique_keys) : text_(text), unique_keys_(unique_keys) {}

  JsonValue Document() {
    JsonValue value = Read();
    Skip();
    if (pos_ != text_.size()) Fail("text after the document");
    return value;
  }

 private:
  [[noreturn]] void Fail(const std::string& why) const {
    throw std::runtime_error("JSON: " + why + " at offset " + std::to_string(pos_));
  }
  void Skip() {
    while (pos_ < text_.size() && std::isspace(static_cast<unsigned char>(text_[pos_]))) ++pos_;
  }
  bool Accept(const std::string& word) {
    if (text_.compare(pos_, word.size(), word) != 0) return false;
    pos_ += word.size();
    return true;
  }
  std::string ReadString() {
    if (text_[pos_] != '"') Fail("a string is expected");
    ++pos_;
    std::string out;
    while (pos_ < text_.size() && text_[pos_] != '"') {
      char c = text_[pos_++];
      if (c == '\\') {
        char e = text_[pos_++];
        if (e == 'n') out += '\n';
        else if (e == 't') out += '\t';
        else if (e == 'r') out += '\r';
        else if (e == 'u') {
          out += static_cast<char>(std::strtol(text_.substr(pos_, 4).c_str(), nullptr, 16));
          pos_ += 4;
        } else out += e;
      } else {
        out += c;
      }
    }
    if (pos_ >= text_.size()) Fail("unterminated string");
    ++pos_;
    return out;
  }
  JsonValue Read() {
    Skip();
    if (pos_ >= text_.size()) Fail("a value is expected");
    JsonValue value;
    char c = text_[pos_];
    if (c == '{') {
      ++pos_;
      value.kind_ = JsonValue::Object;
      Skip();
      if (Accept("}")) return value;
      do {
        Skip();
        std::string key = ReadString();
        Skip();
        if (!Accept(":")) Fail("':' is expected");
        if (unique_keys_ && value.object_.count(key)) Fail("the key '" + key + "' appears twice in one object");
        value.object_[key] = Read();
        Skip();
      } while (Accept(","));
      if (!Accept("}")) Fail("'}' is expected");
    } else if (c == '[') {
      ++pos_;
      value.kind_ = JsonValue::Array;
      Skip();
      if (Accept("]")) return value;
      do value.array_.push_back(Read());
      while ((Skip(), Accept(",")));
      if (!Accept("]")) Fail("']' is expected");
    } else if (c == '"') {
      value.kind_ = JsonValue::String;
      value.string_ = ReadString();
    } else if (Accept("true") || Accept("false")) {
      value.kind_ = JsonValue::Bool;
      value.boolean_ = text_[pos_ - 1] == 'e' && text_[pos_ - 2] == 'u';
    } else if (Accept("null")) {
      value.kind_ = JsonValue::Null;
    } else {
      char* end = nullptr;
      value.kind_ = JsonValue::Number;
      value.number_ = std::strtod(text_.c_str() + pos_, &end);
      if (end == text_.c_str() + pos_) Fail("a value is expected");
      pos_ = static_cast<std::size_t>(end - text_.c_str());
    }
    return value;
  }

  const std::string& text_;
  std::size_t pos_ = 0;
  bool unique_keys_ = false;
};

JsonValue JsonValue::Parse(const std::string& text) { return JsonParser(text, false).Document(); }
JsonValue JsonValue::ParseUnique(const std::string& text) { return JsonParser(text, true).Document(); }

const JsonValue& JsonValue::operator[](const std::string& key) const {
  auto found = object_.find(key);
  if (found == object_.end()) throw std::out_of_range("JSON: no member " + key);
  return found->second;
}

}  // namespace ormelix::test
