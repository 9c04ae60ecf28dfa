#include "filter.h"

#include <cctype>

#include "ormelix/error.h"
#include "ormelix/store/text_order.h"
#include "sql_dialect.h"

namespace ormelix::detail {

namespace {

class Parser {
 public:
  Parser(std::string_view text, const std::function<int(std::string_view)>& resolve)
      : text_(text), resolve_(resolve) {}

  FilterNode Parse() {
    FilterNode node = ParseOr();
    SkipBlanks();
    if (pos_ != text_.size()) Fail("unexpected text at position " + std::to_string(pos_ + 1));
    return node;
  }

 private:
  [[noreturn]] void Fail(const std::string& why) const {
    throw StoreError("cannot parse filter", std::string(text_), why);
  }

  void SkipBlanks() {
    while (pos_ < text_.size() && std::isspace(static_cast<unsigned char>(text_[pos_]))) ++pos_;
  }

  bool AcceptWord(const char* word) {
    SkipBlanks();
    std::size_t len = std::char_traits<char>::length(word);
    if (pos_ + len > text_.size()) return false;
    for (std::size_t i = 0; i < len; ++i)
      if (std::toupper(static_cast<unsigned char>(text_[pos_ + i])) != word[i]) return false;
    if (pos_ + len < text_.size()) {
      unsigned char next = static_cast<unsigned char>(text_[pos_ + len]);
      if (std::isalnum(next) || next == '_' || next >= 0x80) return false;
    }
    pos_ += len;
    return true;
  }

  FilterNode ParseOr() {
    FilterNode first = ParseAnd();
    if (!AcceptWord("OR")) return first;
    FilterNode node;
    node.kind = FilterNode::Or;
    node.children.push_back(std::move(first));
    do node.children.push_back(ParseAnd());
    while (AcceptWord("OR"));
    return node;
  }

  FilterNode ParseAnd() {
    FilterNode first = ParsePrimary();
    if (!AcceptWord("AND")) return first;
    FilterNode node;
    node.kind = FilterNode::And;
    node.children.push_back(std::move(first));
    do node.children.push_back(ParsePrimary());
    while (AcceptWord("AND"));
    return node;
  }

  FilterNode ParsePrimary() {
    SkipBlanks();
    if (pos_ < text_.size() && text_[pos_] == '(') {
      // Each level costs stack here and in Evaluate: no criteria of the domain
      // come near this depth, and a deeper text would end the program.
      if (++depth_ > kMaxDepth) Fail("parentheses nest deeper than " + std::to_string(kMaxDepth));
      ++pos_;
      FilterNode inner = ParseOr();
      --depth_;
      SkipBlanks();
      if (pos_ >= text_.size() || text_[pos_] != ')') Fail("missing )");
      ++pos_;
      return inner;
    }
    FilterNode term;
    term.column = ParseField();
    term.op = ParseOperator();
    term.literal = ParseLiteral();
    return term;
  }

  int ParseField() {
    SkipBlanks();
    std::string_view name;
    if (pos_ < text_.size() && text_[pos_] == '[') {
      std::size_t end = text_.find(']', pos_);
      if (end == std::string_view::npos) Fail("unterminated [field]");
      name = text_.substr(pos_ + 1, end - pos_ - 1);
      pos_ = end + 1;
    } else {
      std::size_t start = pos_;
      while (pos_ < text_.size()) {
        unsigned char c = static_cast<unsigned char>(text_[pos_]);
        if (!(std::isalnum(c) || c == '_' || c == '.' || c >= 0x80)) break;
        ++pos_;
      }
      name = text_.substr(start, pos_ - start);
      if (name.empty()) Fail("a field name is expected at position " + std::to_string(start + 1));
    }
    int column = resolve_(name);
    if (column < 0) Fail("unknown field " + std::string(name));
    return column;
  }

  CompareOp ParseOperator() {
    SkipBlanks();
    auto starts = [&](std::string_view op) { return text_.substr(pos_, op.size()) == op; };
    struct {
      const char* text;
      CompareOp op;
    } const kOps[] = {{"<=", CompareOp::Le}, {">=", CompareOp::Ge}, {"<>", CompareOp::Ne}, {"!=", CompareOp::Ne},
                      {"=", CompareOp::Eq},  {"<", CompareOp::Lt},  {">", CompareOp::Gt}};
    for (const auto& candidate : kOps) {
      if (starts(candidate.text)) {
        pos_ += std::char_traits<char>::length(candidate.text);
        return candidate.op;
      }
    }
    Fail("a comparison (=, <>, <, <=, >, >=) is expected at position " + std::to_string(pos_ + 1));
  }

  Variant ParseLiteral() {
    SkipBlanks();
    if (pos_ >= text_.size()) Fail("a value is expected at the end");
    char c = text_[pos_];
    if (c == '\'' || c == '"') {
      // The value runs to the next quote; a doubled quote stands for one.
      std::string value;
      std::size_t i = pos_ + 1;
      for (;;) {
        if (i >= text_.size()) Fail("unterminated text value");
        if (text_[i] == c) {
          if (i + 1 < text_.size() && text_[i + 1] == c) {
            value += c;
            i += 2;
            continue;
          }
          break;
        }
        value += text_[i++];
      }
      pos_ = i + 1;
      return Variant(std::move(value));
    }
    if (c == '{') {
      std::size_t end = text_.find('}', pos_);
      if (end == std::string_view::npos) Fail("unterminated {ID}");
      std::string_view guid = text_.substr(pos_, end - pos_ + 1);
      if (!IsGuidText(guid)) Fail("malformed ID " + std::string(guid));
      pos_ = end + 1;
      return Variant(NormalizeGuid(guid));
    }
    if (c == '#') {
      std::size_t end = text_.find('#', pos_ + 1);
      if (end == std::string_view::npos) Fail("unterminated #date#");
      double day_count = 0;
      if (!ParseDateLiteral(text_.substr(pos_ + 1, end - pos_ - 1), day_count)) Fail("malformed date");
      pos_ = end + 1;
      return Variant(day_count);
    }
    if (AcceptWord("NULL")) return Variant::NullValue();
    if (AcceptWord("TRUE")) return Variant(static_cast<std::int64_t>(-1));
    if (AcceptWord("FALSE")) return Variant(static_cast<std::int64_t>(0));
    std::size_t start = pos_;
    if (c == '-' || c == '+') ++pos_;
    while (pos_ < text_.size()) {
      char d = text_[pos_];
      if (std::isdigit(static_cast<unsigned char>(d)) || d == '.' || d == 'e' || d == 'E' ||
          ((d == '-' || d == '+') && (text_[pos_ - 1] == 'e' || text_[pos_ - 1] == 'E')))
        ++pos_;
      else
        break;
    }
    double number = 0;
    if (!ParseNumber(text_.substr(start, pos_ - start), number))
      Fail("a value (number, 'text', {ID}, #date#, NULL) is expected at position " + std::to_string(start + 1));
    // The range first: a double past it has no integer to be cast to.
    if (number > -9e18 && number < 9e18 && number == static_cast<double>(static_cast<std::int64_t>(number)))
      return Variant(static_cast<std::int64_t>(number));
    return Variant(number);
  }

  static constexpr int kMaxDepth = 64;
  std::string_view text_;
  const std::function<int(std::string_view)>& resolve_;
  std::size_t pos_ = 0;
  int depth_ = 0;
};

bool Holds(int order, CompareOp op) {
  switch (op) {
    case CompareOp::Eq:
      return order == 0;
    case CompareOp::Ne:
      return order != 0;
    case CompareOp::Lt:
      return order < 0;
    case CompareOp::Le:
      return order <= 0;
    case CompareOp::Gt:
      return order > 0;
    case CompareOp::Ge:
      return order >= 0;
  }
  return false;
}

}  // namespace

FilterNode ParseFilter(std::string_view criteria, const std::function<int(std::string_view)>& resolve) {
  return Parser(criteria, resolve).Parse();
}

bool CompareCell(const Variant& cell, CompareOp op, const Variant& literal) {
  if (literal.IsNull()) {
    if (op == CompareOp::Eq) return cell.IsMissing();
    if (op == CompareOp::Ne) return !cell.IsMissing();
    return false;
  }
  if (cell.IsMissing()) return false;
  double a = 0, b = 0;
  bool cell_number = cell.IsNumber();
  bool literal_number = literal.IsNumber();
  if (cell_number || literal_number) {
    // One side is a number: compare as numbers if the other reads as one.
    if (cell.TryNumber(a) && literal.TryNumber(b)) return Holds(a < b ? -1 : (a > b ? 1 : 0), op);
    return op == CompareOp::Ne;
  }
  int order = CompareText(cell.AsText(), literal.AsText());
  return Holds(order < 0 ? -1 : (order > 0 ? 1 : 0), op);
}

bool Evaluate(const FilterNode& node, const Variant* row) {
  switch (node.kind) {
    case FilterNode::Term:
      return CompareCell(row[node.column], node.op, node.literal);
    case FilterNode::And:
      for (const FilterNode& child : node.children)
        if (!Evaluate(child, row)) return false;
      return true;
    case FilterNode::Or:
      for (const FilterNode& child : node.children)
        if (Evaluate(child, row)) return true;
      return false;
  }
  return false;
}

}  // namespace ormelix::detail
