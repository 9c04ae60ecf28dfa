#include "ormelix/store/location.h"

#include <cctype>
#include <vector>

#include "ormelix/text.h"

namespace ormelix {

namespace {

bool StartsWithFolded(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() && EqualsFolded(text.substr(0, prefix.size()), prefix);
}

bool IsUri(std::string_view location) {
  location = TrimBlanks(location);
  return StartsWithFolded(location, "postgresql://") || StartsWithFolded(location, "postgres://");
}

struct Parameter {
  std::string key;
  std::string value;  // decoded
};

// A connection string taken apart: for a URI the part before '?' (with the user
// and password in it) and the query parameters; for the key=value form the pairs.
struct Parsed {
  bool uri = false;
  std::string base;
  std::vector<Parameter> parameters;
};

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

std::string PercentDecode(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size() && HexValue(text[i + 1]) >= 0 && HexValue(text[i + 2]) >= 0) {
      out += static_cast<char>(HexValue(text[i + 1]) * 16 + HexValue(text[i + 2]));
      i += 2;
    } else {
      out += text[i];
    }
  }
  return out;
}

std::string PercentEncode(std::string_view text) {
  static const char* const kHex = "0123456789ABCDEF";
  std::string out;
  for (char c : text) {
    auto byte = static_cast<unsigned char>(c);
    if (std::isalnum(byte) || c == '-' || c == '_' || c == '.' || c == '~' || c == '/') {
      out += c;
    } else {
      out += '%';
      out += kHex[byte >> 4];
      out += kHex[byte & 15];
    }
  }
  return out;
}

// key=value pairs as libpq reads them: blanks around '=', a value in single
// quotes may hold blanks, a backslash takes the next character as it is.
std::vector<Parameter> ParsePairs(std::string_view text) {
  std::vector<Parameter> pairs;
  std::size_t i = 0;
  auto skip_blanks = [&] {
    while (i < text.size() && std::isspace(static_cast<unsigned char>(text[i]))) ++i;
  };
  for (;;) {
    skip_blanks();
    if (i >= text.size()) break;
    Parameter pair;
    while (i < text.size() && text[i] != '=' && !std::isspace(static_cast<unsigned char>(text[i]))) pair.key += text[i++];
    skip_blanks();
    if (i < text.size() && text[i] == '=') ++i;
    skip_blanks();
    if (i < text.size() && text[i] == '\'') {
      for (++i; i < text.size() && text[i] != '\''; ++i) {
        if (text[i] == '\\' && i + 1 < text.size()) ++i;
        pair.value += text[i];
      }
      ++i;
    } else {
      for (; i < text.size() && !std::isspace(static_cast<unsigned char>(text[i])); ++i) {
        if (text[i] == '\\' && i + 1 < text.size()) ++i;
        pair.value += text[i];
      }
    }
    pairs.push_back(std::move(pair));
  }
  return pairs;
}

std::string QuotePairValue(std::string_view value) {
  bool plain = !value.empty();
  for (char c : value)
    if (std::isspace(static_cast<unsigned char>(c)) || c == '\'' || c == '\\') plain = false;
  if (plain) return std::string(value);
  std::string out = "'";
  for (char c : value) {
    if (c == '\'' || c == '\\') out += '\\';
    out += c;
  }
  return out + "'";
}

Parsed Parse(std::string_view location) {
  Parsed parsed;
  location = TrimBlanks(location);
  parsed.uri = IsUri(location);
  if (!parsed.uri) {
    parsed.parameters = ParsePairs(location);
    return parsed;
  }
  std::size_t question = location.find('?');
  parsed.base = std::string(location.substr(0, question));
  if (question == std::string_view::npos) return parsed;
  std::string_view query = location.substr(question + 1);
  while (!query.empty()) {
    std::size_t amp = query.find('&');
    std::string_view item = query.substr(0, amp);
    std::size_t eq = item.find('=');
    if (!item.empty())
      parsed.parameters.push_back({PercentDecode(item.substr(0, eq)),
                                   eq == std::string_view::npos ? "" : PercentDecode(item.substr(eq + 1))});
    if (amp == std::string_view::npos) break;
    query.remove_prefix(amp + 1);
  }
  return parsed;
}

std::string Compose(const Parsed& parsed) {
  std::string out = parsed.uri ? parsed.base : "";
  bool first = true;
  for (const Parameter& parameter : parsed.parameters) {
    if (parsed.uri) {
      out += first ? "?" : "&";
      out += PercentEncode(parameter.key) + "=" + PercentEncode(parameter.value);
    } else {
      out += (first ? "" : " ") + parameter.key + "=" + QuotePairValue(parameter.value);
    }
    first = false;
  }
  return out;
}

// The span of the password in a URI's user part ("user:password@host"), or npos.
std::pair<std::size_t, std::size_t> UriPassword(std::string_view base) {
  std::size_t start = base.find("://") + 3;
  std::size_t end = base.find('/', start);
  std::string_view authority = base.substr(start, end == std::string_view::npos ? end : end - start);
  std::size_t at = authority.rfind('@');
  if (at == std::string_view::npos) return {std::string_view::npos, 0};
  std::size_t colon = authority.substr(0, at).find(':');
  if (colon == std::string_view::npos) return {std::string_view::npos, 0};
  return {start + colon, at - colon};  // ":password"
}

}  // namespace

bool IsServerLocation(std::string_view location) {
  location = TrimBlanks(location);
  if (IsUri(location)) return true;
  // key=value: the text before the first '=' is one plain word (a file path has
  // a slash or a dot before it, if it has an '=' at all).
  std::size_t eq = location.find('=');
  if (eq == std::string_view::npos) return false;
  std::string_view key = TrimBlanks(location.substr(0, eq));
  if (key.empty()) return false;
  for (char c : key)
    if (!std::isalpha(static_cast<unsigned char>(c)) && c != '_') return false;
  return true;
}

std::string ShownLocation(std::string_view location) {
  if (!IsServerLocation(location)) return std::string(location);
  Parsed parsed = Parse(location);
  std::erase_if(parsed.parameters, [](const Parameter& p) { return EqualsFolded(p.key, "password"); });
  if (parsed.uri) {
    auto [at, length] = UriPassword(parsed.base);
    if (at != std::string::npos) parsed.base.erase(at, length);
  }
  return Compose(parsed);
}

std::string LocationParameter(std::string_view location, std::string_view key) {
  if (!IsServerLocation(location)) return "";
  Parsed parsed = Parse(location);
  std::string value;
  for (const Parameter& parameter : parsed.parameters)
    if (parameter.key == key) value = parameter.value;
  if (parsed.uri && key == "password") {
    auto [at, length] = UriPassword(parsed.base);
    if (at != std::string::npos && value.empty()) value = PercentDecode(parsed.base.substr(at + 1, length - 1));
  }
  return value;
}

std::string WithLocationParameter(std::string_view location, std::string_view key, std::string_view value) {
  Parsed parsed = Parse(location);
  std::erase_if(parsed.parameters, [&](const Parameter& p) { return p.key == key; });
  if (!value.empty()) parsed.parameters.push_back({std::string(key), std::string(value)});
  return Compose(parsed);
}

std::string LibpqConnectionString(std::string_view location) {
  std::string schema = LocationParameter(location, "schema");
  std::string conninfo = WithLocationParameter(location, "schema", "");
  if (schema.empty()) return conninfo;
  std::string options = LocationParameter(conninfo, "options");
  return WithLocationParameter(conninfo, "options", (options.empty() ? "" : options + " ") + "-csearch_path=" + schema);
}

}  // namespace ormelix
