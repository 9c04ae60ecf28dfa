#include "ormelix/text.h"

namespace ormelix {

namespace {

// In UTF-8 the Latin-1 capitals U+00C0..U+00DE are 0xC3 0x80..0x9E and their small
// letters U+00E0..U+00FE are 0xC3 0xA0..0xBE; U+00D7 and U+00F7 are signs.
template <bool ToLower>
std::string Fold(std::string_view text) {
  std::string out(text);
  for (std::size_t i = 0; i < out.size(); ++i) {
    unsigned char c = static_cast<unsigned char>(out[i]);
    if (c < 0x80) {
      if (ToLower && c >= 'A' && c <= 'Z') out[i] = static_cast<char>(c + 32);
      if (!ToLower && c >= 'a' && c <= 'z') out[i] = static_cast<char>(c - 32);
    } else if (c == 0xC3 && i + 1 < out.size()) {
      unsigned char d = static_cast<unsigned char>(out[i + 1]);
      if (ToLower && d >= 0x80 && d <= 0x9E && d != 0x97) out[i + 1] = static_cast<char>(d + 0x20);
      if (!ToLower && d >= 0xA0 && d <= 0xBE && d != 0xB7) out[i + 1] = static_cast<char>(d - 0x20);
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

}  // namespace ormelix
