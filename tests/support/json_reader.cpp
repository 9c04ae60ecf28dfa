#include "json_reader.h"

#include <cctype>
#include <cstdlib>

#include "ormelix/text.h"

namespace ormelix::test {

class JsonParser {
 public:
  explicit JsonParser(const std::string& text) : text_(text) {}

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
  // A string as RFC 8259 has it: no raw control characters, only the escapes it
  // names, \\u escapes (with surrogate pairs) written out as UTF-8.
  std::string ReadString() {
    if (pos_ >= text_.size() || text_[pos_] != '"') Fail("a string is expected");
    ++pos_;
    std::string out;
    for (;;) {
      if (pos_ >= text_.size()) Fail("unterminated string");
      char c = text_[pos_++];
      if (c == '"') return out;
      if (static_cast<unsigned char>(c) < 0x20) Fail("a control character inside a string");
      if (static_cast<unsigned char>(c) >= 0x80) {
        out += ReadUtf8Rest(static_cast<unsigned char>(c));
        continue;
      }
      if (c != '\\') {
        out += c;
        continue;
      }
      if (pos_ >= text_.size()) Fail("unterminated escape");
      char e = text_[pos_++];
      switch (e) {
        case '"': case '\\': case '/': out += e; break;
        case 'b': out += '\b'; break;
        case 'f': out += '\f'; break;
        case 'n': out += '\n'; break;
        case 'r': out += '\r'; break;
        case 't': out += '\t'; break;
        case 'u': ormelix::AppendUtf8(out, ReadEscapedCodePoint()); break;
        default: Fail(std::string("an unknown escape \\") + e);
      }
    }
  }
  // The rest of a UTF-8 sequence after its first byte; a byte that is no UTF-8
  // (JSON text must be UTF-8) is refused.
  std::string ReadUtf8Rest(unsigned char lead) {
    std::size_t length = lead >= 0xC2 && lead <= 0xDF ? 2 : lead >= 0xE0 && lead <= 0xEF ? 3
                         : lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
    if (length == 0 || pos_ + length - 1 > text_.size()) Fail("a byte that is no UTF-8");
    unsigned char low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    unsigned char high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    std::string out(1, static_cast<char>(lead));
    for (std::size_t k = 1; k < length; ++k) {
      auto byte = static_cast<unsigned char>(text_[pos_++]);
      if (byte < (k == 1 ? low : 0x80) || byte > (k == 1 ? high : 0xBF)) Fail("a byte that is no UTF-8");
      out += static_cast<char>(byte);
    }
    return out;
  }
  unsigned ReadHex4() {
    if (pos_ + 4 > text_.size()) Fail("a \\u escape needs four hex digits");
    unsigned value = 0;
    for (int i = 0; i < 4; ++i) {
      char c = text_[pos_++];
      if (!std::isxdigit(static_cast<unsigned char>(c))) Fail("a \\u escape needs four hex digits");
      value = value * 16 + static_cast<unsigned>(std::isdigit(static_cast<unsigned char>(c)) ? c - '0' : (c | 0x20) - 'a' + 10);
    }
    return value;
  }
  unsigned ReadEscapedCodePoint() {
    unsigned first = ReadHex4();
    if (first < 0xD800 || first > 0xDFFF) return first;
    if (first > 0xDBFF || !Accept("\\u")) Fail("a lone surrogate");
    unsigned second = ReadHex4();
    if (second < 0xDC00 || second > 0xDFFF) Fail("a lone surrogate");
    return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
  }
  // -?(0|[1-9][0-9]*)(.[0-9]+)?([eE][+-]?[0-9]+)?
  double ReadNumber() {
    std::size_t start = pos_;
    auto digits = [&] {
      std::size_t from = pos_;
      while (pos_ < text_.size() && std::isdigit(static_cast<unsigned char>(text_[pos_]))) ++pos_;
      return pos_ - from;
    };
    Accept("-");
    if (Accept("0")) {
    } else if (digits() == 0) {
      Fail("a value is expected");
    }
    if (Accept(".") && digits() == 0) Fail("digits after the decimal point are expected");
    if (pos_ < text_.size() && (text_[pos_] == 'e' || text_[pos_] == 'E')) {
      ++pos_;
      if (!Accept("+")) Accept("-");
      if (digits() == 0) Fail("digits of the exponent are expected");
    }
    return std::strtod(text_.substr(start, pos_ - start).c_str(), nullptr);
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
        if (value.object_.count(key)) Fail("the key \"" + key + "\" twice in one object");
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
      value.kind_ = JsonValue::Number;
      value.number_ = ReadNumber();
    }
    return value;
  }

  const std::string& text_;
  std::size_t pos_ = 0;
};

JsonValue JsonValue::Parse(const std::string& text) { return JsonParser(text).Document(); }
JsonValue JsonValue::ParseUnique(const std::string& text) { return Parse(text); }

const JsonValue& JsonValue::operator[](const std::string& key) const {
  auto found = object_.find(key);
  if (found == object_.end()) throw std::out_of_range("JSON: no member " + key);
  return found->second;
}

}  // namespace ormelix::test
