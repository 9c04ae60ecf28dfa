#include "ormelix/text.h"

namespace ormelix {

namespace {

// Case pairs of Latin-1 and Latin Extended-A (U+00C0..U+017F): capitals at
// U+00C0..U+00DE beside small letters 0x20 above, and in Extended-A pairs of
// neighbouring code points (capital first, on even or odd points by range). ß,
// ı, İ, ĸ, ŉ and ſ stay as they are: their other case is no single letter of the
// same length here.
char32_t LowerOf(char32_t c) {
  if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 0x20;
  if (c == 0x178) return 0xFF;
  bool even = c % 2 == 0;
  if ((c >= 0x100 && c <= 0x137 && even && c != 0x130) || (c >= 0x139 && c <= 0x148 && !even) ||
      (c >= 0x14A && c <= 0x177 && even) || (c >= 0x179 && c <= 0x17E && !even))
    return c + 1;
  return c;
}

char32_t UpperOf(char32_t c) {
  if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return c - 0x20;
  if (c == 0xFF) return 0x178;
  bool even = c % 2 == 0;
  if ((c >= 0x101 && c <= 0x137 && !even && c != 0x131) || (c >= 0x13A && c <= 0x148 && even) ||
      (c >= 0x14B && c <= 0x177 && !even) || (c >= 0x17A && c <= 0x17E && even))
    return c - 1;
  return c;
}

// Every letter concerned is two bytes in UTF-8 (0xC3..0xC5 and one more), and so
// is its other case: the text keeps its length.
template <bool ToLower>
std::string Fold(std::string_view text) {
  std::string out(text);
  for (std::size_t i = 0; i < out.size(); ++i) {
    unsigned char c = static_cast<unsigned char>(out[i]);
    if (c < 0x80) {
      if (ToLower && c >= 'A' && c <= 'Z') out[i] = static_cast<char>(c + 32);
      if (!ToLower && c >= 'a' && c <= 'z') out[i] = static_cast<char>(c - 32);
    } else if (c >= 0xC3 && c <= 0xC5 && i + 1 < out.size() && (static_cast<unsigned char>(out[i + 1]) & 0xC0) == 0x80) {
      char32_t code = (static_cast<char32_t>(c & 0x1F) << 6) | (static_cast<unsigned char>(out[i + 1]) & 0x3F);
      char32_t folded = ToLower ? LowerOf(code) : UpperOf(code);
      out[i] = static_cast<char>(0xC0 | (folded >> 6));
      out[i + 1] = static_cast<char>(0x80 | (folded & 0x3F));
      ++i;
    }
  }
  return out;
}

}  // namespace

std::string FoldCase(std::string_view text) { return Fold<true>(text); }

std::string UpperCase(std::string_view text) { return Fold<false>(text); }

bool EqualsFolded(std::string_view a, std::string_view b) {
  return a.size() == b.size() && (a == b || FoldCase(a) == FoldCase(b));
}

std::string_view TrimBlanks(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

std::size_t Utf8Length(std::string_view text, std::size_t i) {
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

void AppendUtf8(std::string& out, char32_t code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | (code >> 6));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0 | (code >> 12));
    out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (code >> 18));
    out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

bool IsUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    std::size_t length = Utf8Length(text, i);
    if (length == 0) return false;
    i += length;
  }
  return true;
}

void AppendJsonString(std::string& out, std::string_view text) {
  static const char kHex[] = "0123456789abcdef";
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
          out += "\\u00";
          out += kHex[c >> 4];
          out += kHex[c & 0xF];
        } else {
          out += static_cast<char>(c);
        }
    }
  }
  out += '"';
}

}  // namespace ormelix
