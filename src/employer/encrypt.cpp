#include "ormelix/employer/encrypt.h"

#include <array>
#include <cstdint>

#include "ormelix/text.h"

namespace ormelix {

namespace {

// The characters of the bytes 0x80 to 0x9F; the undefined ones stand for
// themselves (U+0081 and so on), as the system's own conversion does.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t CharOf(unsigned char byte) {
  if (byte >= 0x80 && byte <= 0x9F) return kHighControls[byte - 0x80];
  return byte;
}

int ByteOf(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<int>(c);
  for (std::size_t i = 0; i < kHighControls.size(); ++i)
    if (kHighControls[i] == c) return static_cast<int>(0x80 + i);
  return -1;
}

// The next character of UTF-8 text from `at`, which it moves on; an ill-formed
// sequence gives U+FFFD and moves one byte.
char32_t NextChar(std::string_view text, std::size_t& at) {
  auto lead = static_cast<unsigned char>(text[at]);
  int length = lead < 0x80 ? 1 : (lead >> 5) == 0x6 ? 2 : (lead >> 4) == 0xE ? 3 : (lead >> 3) == 0x1E ? 4 : 0;
  if (length == 0 || at + length > text.size()) {
    ++at;
    return lead < 0x80 ? lead : 0xFFFD;
  }
  char32_t c = length == 1 ? lead : lead & (0x7F >> length);
  for (int i = 1; i < length; ++i) {
    auto next = static_cast<unsigned char>(text[at + i]);
    if ((next & 0xC0) != 0x80) {
      ++at;
      return 0xFFFD;
    }
    c = (c << 6) | (next & 0x3F);
  }
  at += length;
  return c;
}

}  // namespace

void Encrypt(std::string& pText, std::string_view pKey) {
  if (pKey.empty()) return;
  for (std::size_t i = 0; i < pText.size(); ++i) {
    auto byte = static_cast<unsigned char>(pText[i]);
    auto key = static_cast<unsigned char>(pKey[i % pKey.size()]);
    // Bytes 0 and key would swap into each other, and NUL must never appear: both stay.
    if (byte != 0 && byte != key) pText[i] = static_cast<char>(byte ^ key);
  }
}

std::string EncryptPassword(std::string_view pText) {
  std::string bytes = ToWindows1252(pText);
  Encrypt(bytes, kEncryptKey);
  return FromWindows1252(bytes);
}

std::string ToWindows1252(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    int byte = ByteOf(NextChar(utf8, at));
    bytes += static_cast<char>(byte < 0 ? '?' : byte);
  }
  return bytes;
}

std::string FromWindows1252(std::string_view bytes) {
  std::string utf8;
  utf8.reserve(bytes.size() * 2);
  for (char byte : bytes) AppendUtf8(utf8, CharOf(static_cast<unsigned char>(byte)));
  return utf8;
}

}  // namespace ormelix
