#include "json_rows.h"

#include <cstdint>

#include "ormelix/text.h"

namespace ormelix::detail {

namespace {

class Parser {
 public:
  explicit Parser(std::string_view text) : text_(text) {}

  void Rows(const std::function<void(std::size_t, std::vector<JsonMember>&)>& row) {
    if (text_.substr(0, 3) == "\xEF\xBB\xBF") at_ = 3;
    Expect('[', "the file begins with no '[' of an array of rows");
    std::vector<JsonMember> members;
    if (!Accept(']')) {
      do {
        Blank();
        std::size_t line = line_;
        Object(members);
        row(line, members);
      } while (Accept(','));
      Expect(']', "a row is followed by neither ',' nor the ']' that ends the array");
    }
    Blank();
    if (at_ != text_.size()) Fail("text follows the array of rows");
  }

 private:
  [[noreturn]] void Fail(const std::string& message) const { throw JsonRowsError{line_, message}; }

  void Blank() {
    while (at_ < text_.size()) {
      char c = text_[at_];
      if (c == '\n') ++line_;
      else if (c != ' ' && c != '\t' && c != '\r') break;
      ++at_;
    }
  }
  bool Accept(char c) {
    Blank();
    if (at_ < text_.size() && text_[at_] == c) {
      ++at_;
      return true;
    }
    return false;
  }
  void Expect(char c, const char* message) {
    if (!Accept(c)) Fail(message);
  }

  void Object(std::vector<JsonMember>& members) {
    members.clear();
    Expect('{', "a row is no object {...}");
    if (Accept('}')) return;
    do {
      JsonMember& member = members.emplace_back();
      Blank();
      if (at_ >= text_.size() || text_[at_] != '"') Fail("a member of a row has no name in quotes");
      member.key = String();
      Expect(':', "a member's name is followed by no ':'");
      Blank();
      member.line = line_;
      Value(member);
    } while (Accept(','));
    Expect('}', "a member is followed by neither ',' nor the '}' that ends the row");
    // The values point into the members' own texts, which stay where they are now.
    for (JsonMember& member : members) member.value.text = member.text;
  }

  void Value(JsonMember& member) {
    if (at_ >= text_.size()) Fail("the text ends where a value belongs");
    char c = text_[at_];
    if (c == '"') {
      member.text = String();
      member.value.form = FileValue::Text;
    } else if (c == '-' || (c >= '0' && c <= '9')) {
      member.text = Number();
      member.value.form = FileValue::Bare;
    } else if (Word("true")) {
      member.value.form = FileValue::True;
    } else if (Word("false")) {
      member.value.form = FileValue::False;
    } else if (Word("null")) {
      member.value.form = FileValue::Null;
    } else if (c == '{' || c == '[') {
      Fail("the value of " + member.key + " is an object or array; a column holds one value");
    } else {
      Fail("the value of " + member.key + " is no JSON value");
    }
  }

  bool Word(std::string_view word) {
    if (text_.substr(at_, word.size()) != word) return false;
    at_ += word.size();
    return true;
  }

  std::string Number() {
    std::size_t start = at_;
    auto digits = [&] {
      std::size_t from = at_;
      while (at_ < text_.size() && text_[at_] >= '0' && text_[at_] <= '9') ++at_;
      return at_ > from;
    };
    if (text_[at_] == '-') ++at_;
    if (at_ < text_.size() && text_[at_] == '0') ++at_;
    else if (!digits()) Fail("a number has no digits");
    if (at_ < text_.size() && text_[at_] == '.' && (++at_, !digits())) Fail("a number has no digits after its point");
    if (at_ < text_.size() && (text_[at_] == 'e' || text_[at_] == 'E')) {
      ++at_;
      if (at_ < text_.size() && (text_[at_] == '+' || text_[at_] == '-')) ++at_;
      if (!digits()) Fail("a number has no digits in its exponent");
    }
    return std::string(text_.substr(start, at_ - start));
  }

  unsigned Hex4() {
    if (at_ + 4 > text_.size()) Fail("a \\u escape has fewer than four hex digits");
    unsigned code = 0;
    for (int i = 0; i < 4; ++i) {
      char c = text_[at_++];
      unsigned digit = c >= '0' && c <= '9' ? c - '0' : c >= 'a' && c <= 'f' ? c - 'a' + 10 : c >= 'A' && c <= 'F' ? c - 'A' + 10 : 16;
      if (digit == 16) Fail("a \\u escape has a character that is no hex digit");
      code = code * 16 + digit;
    }
    return code;
  }

  void Escape(std::string& out) {
    if (at_ >= text_.size()) Fail("a string ends in a backslash");
    char c = text_[at_++];
    switch (c) {
      case '"': case '\\': case '/': out += c; return;
      case 'b': out += '\b'; return;
      case 'f': out += '\f'; return;
      case 'n': out += '\n'; return;
      case 'r': out += '\r'; return;
      case 't': out += '\t'; return;
      case 'u': break;
      default: Fail(std::string("a string has the unknown escape \\") + c);
    }
    std::uint32_t code = Hex4();
    if (code >= 0xDC00 && code <= 0xDFFF) Fail("a string has a low surrogate without its high one");
    if (code >= 0xD800 && code <= 0xDBFF) {
      if (!Word("\\u")) Fail("a string has a high surrogate without its low one");
      std::uint32_t low = Hex4();
      if (low < 0xDC00 || low > 0xDFFF) Fail("a string has a high surrogate without its low one");
      code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
    }
    AppendUtf8(out, code);
  }

  std::string String() {
    const std::size_t opened = line_;
    ++at_;  // the opening quote
    std::string out;
    for (;;) {
      if (at_ >= text_.size()) throw JsonRowsError{opened, "a string that begins here is never closed"};
      char c = text_[at_++];
      if (c == '"') return out;
      if (c == '\\') Escape(out);
      else if (static_cast<unsigned char>(c) < 0x20) Fail("a string holds a control character (written \\n, \\t or \\u00XX in JSON)");
      else out += c;
    }
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
};

}  // namespace

void ReadJsonRows(std::string_view text,
                  const std::function<void(std::size_t line, std::vector<JsonMember>& members)>& row) {
  Parser(text).Rows(row);
}

}  // namespace ormelix::detail
