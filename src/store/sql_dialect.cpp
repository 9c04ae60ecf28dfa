#include "sql_dialect.h"

#include <array>
#include <cctype>
#include <charconv>

#include "ormelix/error.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/text_order.h"
#include "ormelix/text.h"

namespace ormelix::detail {

namespace {

enum class Tok { Space, Word, Bracket, String, Number, Guid, DateLit, Symbol, Star, Semicolon };

struct Token {
  Tok type;
  std::string_view text;  // for Bracket/String/Guid/DateLit: the inner text
};

[[noreturn]] void Refuse(std::string_view sql, const std::string& why) {
  throw StoreError("SQL outside the supported dialect", std::string(sql), why);
}

// ASCII classes by hand: the <cctype> functions consult the locale on every call,
// and every statement of a load passes through here.
bool IsSpace(unsigned char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsDigit(unsigned char c) { return c >= '0' && c <= '9'; }
bool IsAlpha(unsigned char c) { return (c | 0x20) >= 'a' && (c | 0x20) <= 'z'; }
bool IsWordStart(unsigned char c) { return IsAlpha(c) || c == '_' || c >= 0x80; }
bool IsWordChar(unsigned char c) { return IsAlpha(c) || IsDigit(c) || c == '_' || c >= 0x80; }

std::size_t FindClosing(std::string_view sql, std::size_t from, char closing) {
  std::size_t end = sql.find(closing, from);
  return end;
}

// The tokens of a statement into tokens (emptied first, its capacity kept).
void Tokenize(std::string_view sql, std::vector<Token>& tokens) {
  tokens.clear();
  std::size_t i = 0;
  const std::size_t n = sql.size();
  while (i < n) {
    unsigned char c = static_cast<unsigned char>(sql[i]);
    if (IsSpace(c)) {
      std::size_t j = i;
      while (j < n && IsSpace(static_cast<unsigned char>(sql[j]))) ++j;
      tokens.push_back({Tok::Space, sql.substr(i, j - i)});
      i = j;
    } else if (c == '[') {
      std::size_t end = FindClosing(sql, i + 1, ']');
      if (end == std::string_view::npos) Refuse(sql, "unterminated [identifier]");
      tokens.push_back({Tok::Bracket, sql.substr(i + 1, end - i - 1)});
      i = end + 1;
    } else if (c == '\'' || c == '"') {
      // A quote doubled inside the literal stands for itself.
      std::size_t j = i + 1;
      for (;;) {
        j = sql.find(static_cast<char>(c), j);
        if (j == std::string_view::npos) Refuse(sql, "unterminated text literal");
        if (j + 1 < n && sql[j + 1] == static_cast<char>(c)) {
          j += 2;
          continue;
        }
        break;
      }
      tokens.push_back({Tok::String, sql.substr(i, j - i + 1)});  // quotes kept
      i = j + 1;
    } else if (c == '{') {
      std::size_t end = FindClosing(sql, i + 1, '}');
      if (end == std::string_view::npos) Refuse(sql, "unterminated {ID}");
      std::string_view guid = sql.substr(i, end - i + 1);
      if (!IsGuidText(guid)) Refuse(sql, "malformed ID literal " + std::string(guid));
      tokens.push_back({Tok::Guid, guid});
      i = end + 1;
    } else if (c == '#') {
      std::size_t end = FindClosing(sql, i + 1, '#');
      if (end == std::string_view::npos) Refuse(sql, "unterminated #date#");
      tokens.push_back({Tok::DateLit, sql.substr(i + 1, end - i - 1)});
      i = end + 1;
    } else if (IsDigit(c) || (c == '.' && i + 1 < n && IsDigit(static_cast<unsigned char>(sql[i + 1])))) {
      std::size_t j = i;
      while (j < n && (IsDigit(static_cast<unsigned char>(sql[j])) || sql[j] == '.')) ++j;
      if (j < n && (sql[j] == 'e' || sql[j] == 'E')) {
        std::size_t k = j + 1;
        if (k < n && (sql[k] == '+' || sql[k] == '-')) ++k;
        if (k < n && IsDigit(static_cast<unsigned char>(sql[k]))) {
          j = k;
          while (j < n && IsDigit(static_cast<unsigned char>(sql[j]))) ++j;
        }
      }
      if (j < n && IsWordChar(static_cast<unsigned char>(sql[j]))) Refuse(sql, "malformed number");
      tokens.push_back({Tok::Number, sql.substr(i, j - i)});
      i = j;
    } else if (IsWordStart(c)) {
      std::size_t j = i;
      while (j < n && IsWordChar(static_cast<unsigned char>(sql[j]))) ++j;
      tokens.push_back({Tok::Word, sql.substr(i, j - i)});
      i = j;
    } else if (c == '-' && i + 1 < n && sql[i + 1] == '-') {
      Refuse(sql, "comments are not part of the dialect");
    } else if (c == '/' && i + 1 < n && sql[i + 1] == '*') {
      Refuse(sql, "comments are not part of the dialect");
    } else if (c == ';') {
      tokens.push_back({Tok::Semicolon, sql.substr(i, 1)});
      ++i;
    } else if (c == '*') {
      tokens.push_back({Tok::Star, sql.substr(i, 1)});
      ++i;
    } else if (c == '?' || c == ':' || c == '@' || c == '$') {
      // The backend would take these for placeholders of values nobody binds.
      Refuse(sql, std::string("'") + static_cast<char>(c) + "' outside a literal is not part of the dialect");
    } else if (c == '\0') {
      // The backend would stop reading there and drop the rest unseen.
      Refuse(sql, "a NUL character is not part of the dialect");
    } else {
      std::size_t len = 1;
      if (i + 1 < n) {
        std::string_view two = sql.substr(i, 2);
        if (two == "<=" || two == ">=" || two == "<>" || two == "!=" || two == "||") len = 2;
      }
      tokens.push_back({Tok::Symbol, sql.substr(i, len)});
      i += len;
    }
  }
}

std::vector<Token> Tokenize(std::string_view sql) {
  std::vector<Token> tokens;
  Tokenize(sql, tokens);
  return tokens;
}

std::string AsciiUpper(std::string_view word) {
  std::string out(word);
  for (char& ch : out)
    if (ch >= 'a' && ch <= 'z') ch = static_cast<char>(ch - 'a' + 'A');
  return out;
}

// Words that stay bare in PostgreSQL; any other bare word there is an identifier
// and is quoted, so that mixed case and umlauts survive.
// The first token after tokens[i] that is not blank, or nullptr at the end.
const Token* NextToken(const std::vector<Token>& tokens, std::size_t i) {
  for (std::size_t j = i + 1; j < tokens.size(); ++j)
    if (tokens[j].type != Tok::Space) return &tokens[j];
  return nullptr;
}

// A word followed by '(' names a function and stays bare.
bool IsCall(const std::vector<Token>& tokens, std::size_t i) {
  const Token* next = NextToken(tokens, i);
  return next && next->type == Tok::Symbol && next->text == "(";
}

bool NextIsLike(const std::vector<Token>& tokens, std::size_t i) {
  const Token* next = NextToken(tokens, i);
  return next && next->type == Tok::Word && AsciiUpper(next->text) == "LIKE";
}

bool IsKeyword(const std::string& upper) {
  static const char* const kKeywords[] = {
      "SELECT", "FROM",  "WHERE", "AND",   "OR",    "NOT",  "ORDER", "BY",    "ASC",
      "DESC",   "AS",    "INNER", "LEFT",  "RIGHT", "OUTER", "JOIN", "ON",    "DELETE",
      "INSERT", "INTO",  "VALUES", "UPDATE", "SET",  "NULL", "IS",   "IN",    "LIKE",
      "DISTINCT", "GROUP", "COUNT", "BETWEEN", "LOWER", "HAVING", "ALL", "EXISTS", "CASE",
      "WHEN", "THEN", "ELSE", "END", "UNION", "CROSS", "FULL", "LIMIT", "OFFSET", "ESCAPE",
      "BEGIN", "COMMIT", "ROLLBACK", "TRANSACTION", "WORK"};
  for (const char* keyword : kKeywords)
    if (upper == keyword) return true;
  return false;
}

struct Emitter {
  SqlDialect dialect;
  std::string out;

  // PostgreSQL tells quoted names by case: a name of the schema is written as the
  // schema has it, however the statement spells it.
  void Identifier(std::string_view name) {
    if (!out.empty() && (std::isalnum(static_cast<unsigned char>(out.back())) || out.back() == '_'))
      out += ' ';
    out += QuoteIdentifier(dialect == SqlDialect::Postgres ? CanonicalIdentifier(name) : name);
  }
};

// Finds the parentheses of each LCASE(...) and UCASE(...) call and gives the call
// the store's text order. On SQLite the result of the registered function is a
// plain text: the order goes after the call, so that LCASE(a)=LCASE(b) compares
// as a=b does. On PostgreSQL lower() and upper() fold by the collation of their
// argument (which for a literal is the database's, perhaps "C", which knows no
// umlauts): the order goes onto the argument.
class CaseCalls {
 public:
  explicit CaseCalls(SqlDialect dialect) : postgres_(dialect == SqlDialect::Postgres) {}

  void Word(const std::string& upper) { called_ = upper == "LCASE" ? Lower : upper == "UCASE" ? Upper : None; }

  // The function's name on PostgreSQL (SQLite has LCASE and UCASE registered).
  static const char* PostgresName(bool lower) { return lower ? "lower" : "replace(upper"; }

  void Symbol(std::string_view symbol, std::string& out) {
    if (symbol == "(") {
      ++depth_;
      out += '(';
      if (called_ != None) {
        calls_.push_back({depth_, called_});
        if (postgres_) out += called_ == Upper ? "replace((" : "(";
      }
    } else if (symbol == ")") {
      if (!calls_.empty() && calls_.back().depth == depth_) {
        out += Closing(calls_.back().kind);
        calls_.pop_back();
      } else {
        out += ')';
      }
      --depth_;
    } else {
      out += symbol;
    }
    called_ = None;
  }

 private:
  enum Kind { None, Lower, Upper };
  struct Call {
    int depth;
    Kind kind;
  };

  // PostgreSQL's upper() makes SS of ß, which the store's order tells from ß
  // ('Straße' <> 'STRASSE'); ß is kept out of its way, as SQLite's UCASE keeps it.
  // replace() wants a deterministic order ("C") around it.
  std::string Closing(Kind kind) const {
    std::string order = std::string(" COLLATE ") + (postgres_ ? QuoteIdentifier(kTextCollation) : kTextCollation);
    if (!postgres_) return ")" + order;
    if (kind == Lower) return ")" + order + ")";
    return ") COLLATE \"C\", 'ß', chr(1))" + order + ") COLLATE \"C\", chr(1), 'ß')" + order;
  }

  bool postgres_;
  Kind called_ = None;
  int depth_ = 0;
  std::vector<Call> calls_;  // the open calls
};

// The value of a 'text' literal: between the quotes, a doubled quote standing for
// one; Jet also reads "text" as a literal.
std::string StringValue(std::string_view quoted) {
  char quote = quoted.front();
  std::string value;
  for (std::size_t k = 1; k + 1 < quoted.size(); ++k) {
    if (quoted[k] == quote && quoted[k + 1] == quote) ++k;
    value += quoted[k];
  }
  return value;
}

double DateValue(std::string_view inner, std::string_view sql) {
  double day_count = 0;
  if (!ParseDateLiteral(inner, day_count)) Refuse(sql, "malformed date literal #" + std::string(inner) + "#");
  return day_count;
}

Variant NumberValue(std::string_view text) {
  double number = 0;
  ParseNumber(text, number);
  bool whole = text.find_first_of(".eE") == std::string_view::npos && number < 9e18;
  return whole ? Variant(static_cast<std::int64_t>(number)) : Variant(number);
}

bool WordIs(std::string_view word, std::string_view upper) {
  if (word.size() != upper.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i)
    if ((word[i] >= 'a' && word[i] <= 'z' ? word[i] - 'a' + 'A' : word[i]) != upper[i]) return false;
  return true;
}

}  // namespace

SqlShape ShapeOf(std::string_view jet_sql) {
  SqlShape shape;
  shape.key.reserve(jet_sql.size());
  std::size_t copied = 0;  // jet_sql up to here is in the key
  // A bound literal's place in the text becomes \x01 in the key; its value a parameter.
  auto take = [&](std::string_view span, Variant value) {
    std::size_t at = static_cast<std::size_t>(span.data() - jet_sql.data());
    shape.key.append(jet_sql.substr(copied, at - copied));
    shape.key += '\x01';
    copied = at + span.size();
    shape.params.push_back(std::move(value));
  };
  bool bind = false;  // the same places as the translation binds: conditions only
  // One token list for every shape taken: a load takes thousands.
  thread_local std::vector<Token> tokens;
  Tokenize(jet_sql, tokens);
  for (const Token& token : tokens) {
    switch (token.type) {
      case Tok::Word:
        if (WordIs(token.text, "WHERE") || WordIs(token.text, "ON") || WordIs(token.text, "HAVING")) bind = true;
        if (WordIs(token.text, "ORDER") || WordIs(token.text, "GROUP") || WordIs(token.text, "LIMIT")) bind = false;
        if (bind && WordIs(token.text, "FALSE")) take(token.text, Variant(static_cast<std::int64_t>(0)));
        if (bind && WordIs(token.text, "TRUE")) take(token.text, Variant(static_cast<std::int64_t>(-1)));
        break;
      case Tok::String:
        if (bind) take(token.text, Variant(StringValue(token.text)));
        break;
      case Tok::Guid:
        if (bind) take(token.text, Variant(NormalizeGuid(token.text)));
        break;
      case Tok::DateLit:
        if (bind)
          take(std::string_view(token.text.data() - 1, token.text.size() + 2), Variant(DateValue(token.text, jet_sql)));
        break;
      case Tok::Number:
        if (bind) take(token.text, NumberValue(token.text));
        break;
      default:
        break;
    }
  }
  shape.key.append(jet_sql.substr(copied));
  return shape;
}

void AppendQuotedIdentifier(std::string& out, std::string_view name) {
  out += '"';
  for (std::size_t quote; (quote = name.find('"')) != std::string_view::npos; name.remove_prefix(quote + 1)) {
    out.append(name.substr(0, quote + 1));
    out += '"';
  }
  out.append(name);
  out += '"';
}

std::string QuotedIdentifierList(const std::vector<std::string>& names) {
  std::string out;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i) out += ',';
    AppendQuotedIdentifier(out, names[i]);
  }
  return out;
}

std::string QuoteIdentifier(std::string_view name) {
  std::string out;
  out.reserve(name.size() + 2);
  AppendQuotedIdentifier(out, name);
  return out;
}

bool IsGuidText(std::string_view text) {
  // {XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}: checked against a pattern, a table
  // of hex digits at hand (every statement of a load checks its keys so).
  static constexpr std::string_view kPattern = "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}";
  static const auto kHex = [] {
    std::array<bool, 256> hex{};
    for (const char c : std::string_view("0123456789abcdefABCDEF")) hex[static_cast<unsigned char>(c)] = true;
    return hex;
  }();
  if (text.size() != kPattern.size()) return false;
  for (std::size_t i = 0; i < kPattern.size(); ++i) {
    const char c = text[i];
    if (kPattern[i] == 'x' ? !kHex[static_cast<unsigned char>(c)] : c != kPattern[i]) return false;
  }
  return true;
}

std::string NormalizeGuid(std::string_view text) {
  std::string upper(text);
  for (char& c : upper)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - ('a' - 'A'));
  return upper;
}

bool ParseDateLiteral(std::string_view inner, double& day_count) {
  inner = TrimBlanks(inner);
  int parts[3] = {0, 0, 0};
  int count = 0;
  char separator = 0;
  std::size_t i = 0;
  while (i <= inner.size() && count < 3) {
    std::size_t j = i;
    while (j < inner.size() && std::isdigit(static_cast<unsigned char>(inner[j]))) ++j;
    if (j == i) return false;
    std::from_chars(inner.data() + i, inner.data() + j, parts[count]);
    ++count;
    if (j == inner.size()) break;
    if (separator == 0) separator = inner[j];
    if (inner[j] != separator || (separator != '-' && separator != '/')) return false;
    i = j + 1;
  }
  if (count != 3) return false;
  int year, month, day;
  if (separator == '-') {
    year = parts[0], month = parts[1], day = parts[2];
  } else {
    month = parts[0], day = parts[1], year = parts[2];
  }
  if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) return false;
  day_count = DateHelpers::DateSerial(year, month, day);
  return DateHelpers::Month(day_count) == month;
}

namespace {

// The rows of one table come in the order of its autonumber where the statement
// leaves it open: after its own ORDER BY terms (between rows that tie in them), or
// as the whole order. Rows that tie so come in the order they were written, on
// either store alike, and a statement asked for one key gives its rows in the
// same order as one asked for many keys (the employee load reads ahead so).
void AppendRowOrder(bool ordered, std::string& out) {
  while (!out.empty() && out.back() == ' ') out.pop_back();
  out += ordered ? ", \"Nr\"" : " ORDER BY \"Nr\"";
}

// The key of a statement asked for many keys: "[Column]=key" becomes a list of
// keys, bound as one parameter. Joined (on SQLite), the comparison goes: the keys
// join the table instead (see JoinKeys), and "1" stands in its place.
void EmitKeyList(std::string_view jet_sql, SqlDialect dialect, std::size_t number, bool joined, std::string& out) {
  while (!out.empty() && out.back() == ' ') out.pop_back();
  if (out.empty() || out.back() != '=')
    Refuse(jet_sql, "the key asked for many keys is not compared by '='");
  out.pop_back();
  if (joined) {
    while (!out.empty() && out.back() == ' ') out.pop_back();
    const std::size_t quoted = out.size() >= 2 && out.back() == '"' ? out.rfind('"', out.size() - 2) : std::string::npos;
    if (quoted == std::string::npos) Refuse(jet_sql, "the key asked for many keys is no column");
    out.erase(quoted);
    out += "1";
    return;
  }
  // A server plans the statement once for any number of keys: as a join with the
  // keys, each found by the key's index (= ANY of an array has it compare each
  // row with every key once the plan no longer knows how many there are).
  out += dialect == SqlDialect::Postgres ? " IN (SELECT unnest($" + std::to_string(number) + "::text[]))"
                                         : " IN (SELECT value FROM json_each(?))";
}

// The keys of a joined key list as the first table of the statement: "SELECT *
// FROM T" reads the rows of T that join the keys of parameter `number`.
void JoinKeys(std::string_view jet_sql, const std::string& table, const std::string& column, std::size_t number,
              std::string& out) {
  std::string quoted_table;
  AppendQuotedIdentifier(quoted_table, CanonicalIdentifier(table));
  const std::string from = "SELECT * FROM " + quoted_table;
  if (out.compare(0, from.size(), from) != 0) Refuse(jet_sql, "the statement asked for many keys reads no one table");
  std::string quoted_column;
  AppendQuotedIdentifier(quoted_column, column);
  out.replace(0, from.size(),
              "SELECT " + quoted_table + ".* FROM json_each(?" + std::to_string(number) + ") AS \"ormelix_keys\" JOIN " +
                  quoted_table + " ON " + quoted_table + "." + quoted_column + " = \"ormelix_keys\".value");
}

// The terms of a statement's top-level ORDER BY, when each is a number column
// of the table ([Column] or [Column] ASC/DESC), then the row key; false for any
// other order (a text, an expression), which the server then keeps.
bool ClientOrderTerms(const std::vector<Token>& tokens, const std::vector<std::size_t>& significant,
                      const std::string& table, std::vector<OrderTerm>& terms) {
  std::size_t s = 0;
  int depth = 0;
  for (; s + 1 < significant.size(); ++s) {
    const Token& token = tokens[significant[s]];
    if (token.type == Tok::Symbol && token.text == "(") ++depth;
    if (token.type == Tok::Symbol && token.text == ")") --depth;
    if (depth == 0 && token.type == Tok::Word && AsciiUpper(token.text) == "ORDER") break;
  }
  for (s += 2; s < significant.size();) {
    const Token& column = tokens[significant[s]];
    if (column.type != Tok::Bracket && column.type != Tok::Word) return false;
    const std::string name(CanonicalIdentifier(column.text));
    if (!IsNumberColumn(table, name)) return false;
    OrderTerm term{name, false};
    ++s;
    if (s < significant.size() && tokens[significant[s]].type == Tok::Word) {
      const std::string word = AsciiUpper(tokens[significant[s]].text);
      if (word != "ASC" && word != "DESC") return false;
      term.descending = word == "DESC";
      ++s;
    }
    terms.push_back(std::move(term));
    if (s < significant.size() && tokens[significant[s]].type == Tok::Semicolon) break;
    if (s < significant.size() && !(tokens[significant[s]].type == Tok::Symbol && tokens[significant[s]].text == ","))
      return false;
    ++s;
  }
  if (!IsKeyedTable(table)) return false;
  terms.push_back({"Nr", false});
  return true;
}

// ClientOrderTerms, leaving TERMS empty unless the whole order is the client's.
bool ClientOrder(const std::vector<Token>& tokens, const std::vector<std::size_t>& significant,
                 const std::string& table, std::vector<OrderTerm>& terms) {
  std::vector<OrderTerm> found;
  if (!ClientOrderTerms(tokens, significant, table, found)) return false;
  terms = std::move(found);
  return true;
}

}  // namespace

Variant KeyListValue(const std::vector<std::string>& keys, SqlDialect dialect) {
  // A JSON array for SQLite's json_each, an array literal for PostgreSQL; the
  // keys are IDs, which hold nothing either form would have to escape.
  std::string list(1, dialect == SqlDialect::Postgres ? '{' : '[');
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (i) list += ',';
    list += '"';
    list += keys[i];
    list += '"';
  }
  list += dialect == SqlDialect::Postgres ? '}' : ']';
  return Variant(std::move(list));
}

TranslatedSql TranslateSql(std::string_view jet_sql, SqlDialect dialect, const KeyListForm* key_list) {
  std::vector<Token> tokens = Tokenize(jet_sql);
  TranslatedSql result;
  Emitter emit{dialect, {}};
  emit.out.reserve(jet_sql.size() + 16);

  std::vector<std::size_t> significant;  // indices of non-space tokens
  for (std::size_t i = 0; i < tokens.size(); ++i)
    if (tokens[i].type != Tok::Space) significant.push_back(i);

  for (std::size_t s = 0; s < significant.size(); ++s) {
    const Token& token = tokens[significant[s]];
    if (token.type == Tok::Semicolon) {
      if (s + 1 != significant.size()) Refuse(jet_sql, "only one statement per call: text follows the ';'");
    }
  }

  // Literals of the conditions (WHERE, ON, HAVING) become bound parameters, so that
  // statements that differ only in a key share one prepared shape. Literals
  // elsewhere (select list, ORDER BY) stay in the text.
  bool bind = false;
  // Joined, the key list's parameter comes first in the text: the parameters are
  // numbered then.
  const bool joined = key_list && key_list->joined && dialect == SqlDialect::Sqlite;
  auto literal = [&](Variant value, const std::string& text) {
    if (bind && key_list && result.params.size() == key_list->param) {
      result.params.push_back(std::move(value));
      EmitKeyList(jet_sql, dialect, result.params.size(), joined, emit.out);
    } else if (bind) {
      result.params.push_back(std::move(value));
      if (dialect == SqlDialect::Postgres) emit.out += "$" + std::to_string(result.params.size());
      else emit.out += joined ? "?" + std::to_string(result.params.size()) : "?";
    } else {
      emit.out += text;
    }
  };

  CaseCalls case_calls{dialect};

  const Token* previous = nullptr;
  int depth = 0;                           // of parentheses
  std::size_t order_at = std::string::npos;  // where the terms of the top-level ORDER BY begin
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const Token& token = tokens[i];
    if (token.type == Tok::Symbol && token.text == "(") ++depth;
    if (token.type == Tok::Symbol && token.text == ")") --depth;
    switch (token.type) {
      case Tok::Space:
        emit.out += ' ';
        break;
      case Tok::Word: {
        std::string upper = AsciiUpper(token.text);
        if (upper == "WHERE" || upper == "ON" || upper == "HAVING") bind = true;
        if (upper == "ORDER" || upper == "GROUP" || upper == "LIMIT") bind = false;
        if (upper == "FALSE") {
          literal(Variant(static_cast<std::int64_t>(0)), "0");
        } else if (upper == "TRUE") {
          literal(Variant(static_cast<std::int64_t>(-1)), "-1");
        } else if (dialect == SqlDialect::Postgres && (upper == "LCASE" || upper == "UCASE")) {
          emit.out += CaseCalls::PostgresName(upper == "LCASE");
        } else if (dialect == SqlDialect::Postgres && (upper == "LIKE" || (upper == "NOT" && NextIsLike(tokens, i)))) {
          // The text order is nondeterministic, which PostgreSQL's LIKE refuses;
          // LIKE compares as on SQLite: ASCII letters without regard to case.
          if (upper == "NOT") emit.out += "COLLATE \"C\" NOT";
          else emit.out += previous && AsciiUpper(previous->text) == "NOT" ? "ILIKE" : "COLLATE \"C\" ILIKE";
        } else if (dialect == SqlDialect::Postgres && !IsKeyword(upper) && !IsCall(tokens, i)) {
          emit.Identifier(token.text);
        } else {
          emit.out += token.text;
        }
        break;
      }
      case Tok::Bracket: {
        std::string_view name = token.text;
        std::size_t dot = name.find('.');
        if (dot == std::string_view::npos) {
          emit.Identifier(name);
        } else {
          emit.Identifier(name.substr(0, dot));
          emit.out += '.';
          emit.out += QuoteIdentifier(name.substr(dot + 1));
        }
        break;
      }
      case Tok::String: {
        std::string value = StringValue(token.text);
        std::string text = "'";
        for (char c : value) text += c == '\'' ? std::string("''") : std::string(1, c);
        literal(Variant(value), text + "'");
        break;
      }
      case Tok::Guid: {
        std::string id = NormalizeGuid(token.text);
        literal(Variant(id), "'" + id + "'");
        break;
      }
      case Tok::DateLit: {
        double day_count = DateValue(token.text, jet_sql);
        literal(Variant(day_count), FormatNumber(day_count));
        break;
      }
      case Tok::Number:
        literal(NumberValue(token.text), std::string(token.text));
        break;
      case Tok::Star:
        // "DELETE * FROM" is Jet's; the star goes.
        if (previous && previous->type == Tok::Word && AsciiUpper(previous->text) == "DELETE") break;
        emit.out += '*';
        break;
      case Tok::Semicolon:
        break;
      case Tok::Symbol:
        case_calls.Symbol(token.text, emit.out);
        break;
    }
    if (depth == 0 && token.type == Tok::Word && previous && previous->type == Tok::Word &&
        AsciiUpper(previous->text) == "ORDER" && AsciiUpper(token.text) == "BY")
      order_at = emit.out.size();
    if (token.type == Tok::Word) case_calls.Word(AsciiUpper(token.text));
    else if (token.type != Tok::Space && token.type != Tok::Symbol) case_calls.Word("");
    if (token.type != Tok::Space) previous = &token;
  }

  // SELECT * FROM <table> [WHERE ...|ORDER BY ...]: the recordset may write to <table>.
  auto word_is = [&](std::size_t s, const char* word) {
    return s < significant.size() && tokens[significant[s]].type == Tok::Word &&
           AsciiUpper(tokens[significant[s]].text) == word;
  };
  result.is_select = word_is(0, "SELECT");
  if (result.is_select && significant.size() >= 4 && tokens[significant[1]].type == Tok::Star && word_is(2, "FROM")) {
    const Token& table = tokens[significant[3]];
    bool plain = (table.type == Tok::Bracket && table.text.find('.') == std::string_view::npos) ||
                 (table.type == Tok::Word && !IsKeyword(AsciiUpper(table.text)));
    bool single = significant.size() == 4 || word_is(4, "WHERE") || word_is(4, "ORDER") ||
                  tokens[significant[4]].type == Tok::Semicolon;
    if (plain && single) result.base_table = std::string(table.text);
  }
  bool ordered = order_at != std::string::npos;
  if (key_list && dialect == SqlDialect::Postgres && !result.base_table.empty() &&
      ClientOrder(tokens, significant, result.base_table, result.client_order)) {
    // The server gives the rows as they come; the client groups them by key and
    // puts each key's rows in the statement's order.
    if (ordered) {
      const std::size_t order = emit.out.rfind("ORDER", order_at);
      emit.out.erase(order == std::string::npos ? order_at : order);
      while (!emit.out.empty() && emit.out.back() == ' ') emit.out.pop_back();
    }
    result.text = std::move(emit.out);
    return result;
  }
  if (joined) {
    if (result.base_table.empty()) Refuse(jet_sql, "the statement asked for many keys reads no one table");
    JoinKeys(jet_sql, result.base_table, key_list->column, key_list->param + 1, emit.out);
  } else if (key_list) {
    // The rows of one key together, a key written in another case with them (the
    // keys are IDs: on a server in lower case byte by byte, which it sorts far
    // faster than in the store's text order), then in the statement's own order.
    std::string term;
    if (dialect == SqlDialect::Postgres) term += "lower(";
    AppendQuotedIdentifier(term, key_list->column);
    if (dialect == SqlDialect::Postgres) term += ") COLLATE \"C\"";
    if (ordered) {
      emit.out.insert(order_at, " " + term + ",");
    } else {
      while (!emit.out.empty() && emit.out.back() == ' ') emit.out.pop_back();
      emit.out += " ORDER BY " + term;
      ordered = true;
    }
  }
  // SQLite gives the rows of a statement without an order as its index holds them,
  // which for a key's rows is the order they were written in where the statement
  // names every column of the index (as each key's statement of a load does); the
  // order is left to it, so that it need not sort (a table of many rows per key,
  // such as the values of a dated table, would be sorted for nothing). A server
  // gives such rows in no order at all: there they are put in order.
  const bool ties = ordered || key_list || dialect == SqlDialect::Postgres;
  if (ties && !result.base_table.empty() && IsKeyedTable(result.base_table)) AppendRowOrder(ordered, emit.out);
  result.text = std::move(emit.out);
  return result;
}

}  // namespace ormelix::detail
