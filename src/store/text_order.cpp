// The store's text order. Each character becomes one or more collation elements
// of a primary weight (the letter: a for A, ä, á) and a secondary weight (the
// accent). Two texts are compared by their primary weights first and only where
// those are all equal by their secondary weights, so that an accent decides only
// between names that are otherwise the same; case counts nowhere. Accented
// letters are a base element and an accent element that has no primary weight,
// as the Unicode collation algorithm has them, so a decomposed "a" + U+0308
// equals "ä". Weights and their order follow ICU's root collation for the
// characters of Latin-1, Latin Extended-A and the common punctuation.
//
// Texts of ASCII only, the usual case, are compared byte by byte through one
// table and never decoded.
#include "ormelix/store/text_order.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <functional>

namespace ormelix {

namespace {

using Weight = std::uint32_t;

// Secondary weights: the common one of every base letter, and the accents in the
// order ICU gives them.
enum Mark : std::uint8_t {
  kNone = 0,
  kCommon = 0x05,
  kVariant = 0x70,    // ß, æ, œ, ð: the same letters as ss, ae, oe, d, told apart
  kLongS = 0x74,      // ſ
  kAcute = 0x88,
  kGrave = 0x8A,
  kBreve = 0x8C,
  kCircumflex = 0x8E,
  kCaron = 0x90,
  kRing = 0x92,
  kDiaeresis = 0x96,
  kDoubleAcute = 0x98,
  kTilde = 0x9A,
  kDotAbove = 0x9C,
  kSlash = 0x9E,      // ø
  kCedilla = 0xA0,
  kOgonek = 0xA2,
  kMacron = 0xA4,
  kStroke = 0xB2,     // ł, đ, ħ
  kOtherMark = 0xC0,  // any other combining mark
  kMiddleDot = 0xFB,  // ŀ
};

// Primary weights: controls, then punctuation and symbols, digits, letters (with
// room after each for a letter of its own such as ı or ŋ), and every other
// character by its code point after all of them.
constexpr Weight kSymbolBase = 0x40;
constexpr Weight kDigitBase = 0x100;
constexpr Weight kLetterBase = 0x200;
constexpr Weight kLetterStep = 0x10;
constexpr Weight kOtherBase = 0x1000;

constexpr Weight Letter(char lower) { return kLetterBase + kLetterStep * static_cast<Weight>(lower - 'a'); }
constexpr Weight LetterAfter(char lower) { return Letter(lower) + kLetterStep / 2; }

// Punctuation and symbols in ICU's order; the no-break space sorts as a space.
constexpr std::u32string_view kSymbolOrder =
    U" _-\u2010\u2011\u2012\u2013\u2014,;:!¡?¿.\u2026·'\u2018\u2019\u201A\u2039\u203A\"\u201C\u201D\u201E«»()[]{}§¶@*/"
    U"\\&#%\u2030\u2022\u2032`´^¯¨¸°©®+±÷×<=>¬|¦~\u2044¤¢$£¥€";

struct Element {
  Weight primary;        // 0: none (an accent element)
  std::uint8_t secondary;
};

// What one character stands for: up to three elements.
struct Expansion {
  std::array<Element, 3> elements{};
  std::uint8_t count = 0;

  Expansion& Add(Weight primary, std::uint8_t secondary = kCommon) {
    elements[count++] = {primary, secondary};
    return *this;
  }
};

Expansion Single(Weight primary) { return Expansion().Add(primary); }

// A letter of Latin-1 or Latin Extended-A: the letters it stands for and its mark.
struct LetterSpec {
  char32_t upper;
  char32_t lower;
  const char* base;  // one or two of a..z
  Mark mark;
};

constexpr LetterSpec kLetters[] = {
    {U'À', U'à', "a", kGrave},       {U'Á', U'á', "a", kAcute},       {U'Â', U'â', "a", kCircumflex},
    {U'Ã', U'ã', "a", kTilde},       {U'Ä', U'ä', "a", kDiaeresis},   {U'Å', U'å', "a", kRing},
    {U'Æ', U'æ', "ae", kVariant},    {U'Ç', U'ç', "c", kCedilla},     {U'È', U'è', "e", kGrave},
    {U'É', U'é', "e", kAcute},       {U'Ê', U'ê', "e", kCircumflex},  {U'Ë', U'ë', "e", kDiaeresis},
    {U'Ì', U'ì', "i", kGrave},       {U'Í', U'í', "i", kAcute},       {U'Î', U'î', "i", kCircumflex},
    {U'Ï', U'ï', "i", kDiaeresis},   {U'Ð', U'ð', "d", kVariant},     {U'Ñ', U'ñ', "n", kTilde},
    {U'Ò', U'ò', "o", kGrave},       {U'Ó', U'ó', "o", kAcute},       {U'Ô', U'ô', "o", kCircumflex},
    {U'Õ', U'õ', "o", kTilde},       {U'Ö', U'ö', "o", kDiaeresis},   {U'Ø', U'ø', "o", kSlash},
    {U'Ù', U'ù', "u", kGrave},       {U'Ú', U'ú', "u", kAcute},       {U'Û', U'û', "u", kCircumflex},
    {U'Ü', U'ü', "u", kDiaeresis},   {U'Ý', U'ý', "y", kAcute},       {U'Ÿ', U'ÿ', "y", kDiaeresis},
    {U'ẞ', U'ß', "ss", kVariant},    {U'Ā', U'ā', "a", kMacron},      {U'Ă', U'ă', "a", kBreve},
    {U'Ą', U'ą', "a", kOgonek},      {U'Ć', U'ć', "c", kAcute},       {U'Ĉ', U'ĉ', "c", kCircumflex},
    {U'Ċ', U'ċ', "c", kDotAbove},    {U'Č', U'č', "c", kCaron},       {U'Ď', U'ď', "d", kCaron},
    {U'Đ', U'đ', "d", kStroke},      {U'Ē', U'ē', "e", kMacron},      {U'Ĕ', U'ĕ', "e", kBreve},
    {U'Ė', U'ė', "e", kDotAbove},    {U'Ę', U'ę', "e", kOgonek},      {U'Ě', U'ě', "e", kCaron},
    {U'Ĝ', U'ĝ', "g", kCircumflex},  {U'Ğ', U'ğ', "g", kBreve},       {U'Ġ', U'ġ', "g", kDotAbove},
    {U'Ģ', U'ģ', "g", kCedilla},     {U'Ĥ', U'ĥ', "h", kCircumflex},  {U'Ħ', U'ħ', "h", kStroke},
    {U'Ĩ', U'ĩ', "i", kTilde},       {U'Ī', U'ī', "i", kMacron},      {U'Ĭ', U'ĭ', "i", kBreve},
    {U'Į', U'į', "i", kOgonek},      {U'İ', U'İ', "i", kDotAbove},    {U'Ĳ', U'ĳ', "ij", kNone},
    {U'Ĵ', U'ĵ', "j", kCircumflex},  {U'Ķ', U'ķ', "k", kCedilla},     {U'Ĺ', U'ĺ', "l", kAcute},
    {U'Ļ', U'ļ', "l", kCedilla},     {U'Ľ', U'ľ', "l", kCaron},       {U'Ŀ', U'ŀ', "l", kMiddleDot},
    {U'Ł', U'ł', "l", kStroke},      {U'Ń', U'ń', "n", kAcute},       {U'Ņ', U'ņ', "n", kCedilla},
    {U'Ň', U'ň', "n", kCaron},       {U'Ō', U'ō', "o", kMacron},      {U'Ŏ', U'ŏ', "o", kBreve},
    {U'Ő', U'ő', "o", kDoubleAcute}, {U'Œ', U'œ', "oe", kVariant},    {U'Ŕ', U'ŕ', "r", kAcute},
    {U'Ŗ', U'ŗ', "r", kCedilla},     {U'Ř', U'ř', "r", kCaron},       {U'Ś', U'ś', "s", kAcute},
    {U'Ŝ', U'ŝ', "s", kCircumflex},  {U'Ş', U'ş', "s", kCedilla},     {U'Š', U'š', "s", kCaron},
    {U'Ţ', U'ţ', "t", kCedilla},     {U'Ť', U'ť', "t", kCaron},       {U'Ũ', U'ũ', "u", kTilde},
    {U'Ū', U'ū', "u", kMacron},      {U'Ŭ', U'ŭ', "u", kBreve},       {U'Ů', U'ů', "u", kRing},
    {U'Ű', U'ű', "u", kDoubleAcute}, {U'Ų', U'ų', "u", kOgonek},      {U'Ŵ', U'ŵ', "w", kCircumflex},
    {U'Ŷ', U'ŷ', "y", kCircumflex},  {U'Ź', U'ź', "z", kAcute},       {U'Ż', U'ż', "z", kDotAbove},
    {U'Ž', U'ž', "z", kCaron},       {U'ſ', U'ſ', "s", kLongS},
};

// Combining marks of decomposed text, as the accents of the precomposed letters.
Mark CombiningMark(char32_t c) {
  switch (c) {
    case 0x0300: return kGrave;
    case 0x0301: return kAcute;
    case 0x0302: return kCircumflex;
    case 0x0303: return kTilde;
    case 0x0304: return kMacron;
    case 0x0306: return kBreve;
    case 0x0307: return kDotAbove;
    case 0x0308: return kDiaeresis;
    case 0x030A: return kRing;
    case 0x030B: return kDoubleAcute;
    case 0x030C: return kCaron;
    case 0x0327: return kCedilla;
    case 0x0328: return kOgonek;
    default: return kOtherMark;
  }
}

Expansion OfLetterSpec(const LetterSpec& spec) {
  Expansion e;
  // The variant mark lies on the first letter (ß is s with a mark, then s); an
  // accent is an element of its own after the letter.
  bool variant = spec.mark == kVariant || spec.mark == kLongS;
  for (const char* c = spec.base; *c; ++c)
    e.Add(Letter(*c), static_cast<std::uint8_t>(variant && c == spec.base ? spec.mark : kCommon));
  if (!variant && spec.mark != kNone) e.Add(0, spec.mark);
  return e;
}

// The elements of every character below U+0180, made once.
class Table {
 public:
  static constexpr char32_t kSize = 0x180;

  Table() {
    for (char32_t c = 0; c < kSize; ++c) table_[c] = Single(kOtherBase + c);
    for (char32_t c = 0; c < 0x20; ++c) table_[c] = Single(1 + c);
    table_[0x7F] = Single(0x21);
    for (std::size_t i = 0; i < kSymbolOrder.size(); ++i) Set(kSymbolOrder[i], Single(kSymbolBase + static_cast<Weight>(i)));
    table_[0xA0] = table_[U' '];
    table_[0xAD] = Expansion();  // the soft hyphen is no character of the order
    for (char c = '0'; c <= '9'; ++c) table_[static_cast<char32_t>(c)] = Single(kDigitBase + static_cast<Weight>(c - '0'));
    table_[U'¹'] = table_[U'1'];
    table_[U'²'] = table_[U'2'];
    table_[U'³'] = table_[U'3'];
    Weight fraction = Primary(U'\u2044');
    table_[U'¼'] = Expansion().Add(kDigitBase + 1).Add(fraction).Add(kDigitBase + 4);
    table_[U'½'] = Expansion().Add(kDigitBase + 1).Add(fraction).Add(kDigitBase + 2);
    table_[U'¾'] = Expansion().Add(kDigitBase + 3).Add(fraction).Add(kDigitBase + 4);
    for (char c = 'a'; c <= 'z'; ++c) {
      table_[static_cast<char32_t>(c)] = Single(Letter(c));
      table_[static_cast<char32_t>(c - 32)] = Single(Letter(c));
    }
    table_[U'ª'] = table_[U'a'];
    table_[U'º'] = table_[U'o'];
    table_[U'µ'] = Single(kOtherBase + 0x3BC);  // the Greek small mu
    for (const LetterSpec& spec : kLetters) {
      Set(spec.upper, OfLetterSpec(spec));
      Set(spec.lower, OfLetterSpec(spec));
    }
    // Letters of their own, each sorting after its neighbour.
    table_[U'ı'] = Single(LetterAfter('i'));
    table_[U'ĸ'] = Single(LetterAfter('q'));
    table_[U'Ŋ'] = table_[U'ŋ'] = Single(LetterAfter('n'));
    table_[U'Ŧ'] = table_[U'ŧ'] = Single(LetterAfter('t'));
    table_[U'Þ'] = table_[U'þ'] = Single(Letter('z') + kLetterStep);
    table_[U'ŉ'] = Expansion().Add(Letter('z') + 2 * kLetterStep).Add(Letter('n'));
    for (Weight& w : ascii_) w = 0;
    for (char32_t c = 0; c < 0x80; ++c) ascii_[c] = table_[c].elements[0].primary;
    ascii_of_.fill(-1);
    for (char32_t c = 0; c < 0x80; ++c) ascii_of_[ascii_[c]] = static_cast<std::int16_t>(c >= 'A' && c <= 'Z' ? c + 32 : c);
  }

  const Expansion& Of(char32_t c) const { return table_[c]; }
  // The ASCII character (in small letters) of a primary weight, -1 for none.
  int AsciiOf(Weight w) const { return w < ascii_of_.size() ? ascii_of_[w] : -1; }
  const std::array<Weight, 128>& Ascii() const { return ascii_; }

  // The primary weight of a character beyond the table.
  static Weight Beyond(char32_t c) {
    std::size_t at = kSymbolOrder.find(c);
    if (at != std::u32string_view::npos) return kSymbolBase + static_cast<Weight>(at);
    return kOtherBase + c;
  }

 private:
  void Set(char32_t c, const Expansion& e) {
    if (c < kSize) table_[c] = e;
  }
  Weight Primary(char32_t c) const { return c < kSize ? table_[c].elements[0].primary : Beyond(c); }

  std::array<Expansion, kSize> table_;
  std::array<Weight, 128> ascii_;
  std::array<std::int16_t, kLetterBase + 26 * kLetterStep> ascii_of_;
};

const Table& TheTable() {
  static const Table table;
  return table;
}

// The weights of the ASCII characters, by byte.
const std::array<Weight, 128>& AsciiWeights() {
  static const std::array<Weight, 128>& weights = TheTable().Ascii();
  return weights;
}

// A code point of UTF-8 text; a byte that starts no well-formed sequence stands
// for itself, above every code point.
char32_t Decode(std::string_view text, std::size_t& pos) {
  constexpr char32_t kStrayByte = 0x110000;
  auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  unsigned char lead = byte(pos);
  if (lead < 0x80) {
    ++pos;
    return lead;
  }
  std::size_t length = lead >= 0xC0 && lead < 0xE0 ? 2 : lead >= 0xE0 && lead < 0xF0 ? 3 : lead >= 0xF0 && lead < 0xF8 ? 4 : 0;
  char32_t c = lead & (0x7F >> length);
  for (std::size_t i = 1; i < length && length; ++i) {
    if (pos + i >= text.size() || (byte(pos + i) & 0xC0) != 0x80) length = 0;
    else c = (c << 6) | (byte(pos + i) & 0x3F);
  }
  if (length == 0) {
    ++pos;
    return kStrayByte + lead;
  }
  pos += length;
  return c;
}

// The collation elements of a text, one after another.
class Elements {
 public:
  Elements(std::string_view text, std::size_t from) : table_(TheTable()), text_(text), pos_(from) {}

  // The next element, false at the end.
  bool Next(Element& out) {
    while (index_ == current_->count) {
      if (pos_ >= text_.size()) return false;
      Load(Decode(text_, pos_));
    }
    out = current_->elements[index_++];
    return true;
  }

  // The next primary weight, skipping accent elements; 0 at the end.
  Weight NextPrimary() {
    Element e;
    while (Next(e))
      if (e.primary) return e.primary;
    return 0;
  }

  // The next secondary weight; 0 at the end.
  std::uint8_t NextSecondary() {
    Element e;
    return Next(e) ? e.secondary : 0;
  }

 private:
  void Load(char32_t c) {
    index_ = 0;
    if (c < Table::kSize) {
      current_ = &table_.Of(c);
      return;
    }
    if (c == U'ẞ') {
      current_ = &table_.Of(U'ß');
      return;
    }
    own_ = c >= 0x0300 && c <= 0x036F ? Expansion().Add(0, CombiningMark(c)) : Single(Table::Beyond(c));
    current_ = &own_;
  }

  static constexpr Expansion kNothing{};
  const Table& table_;
  std::string_view text_;
  std::size_t pos_;
  const Expansion* current_ = &kNothing;
  Expansion own_;
  std::uint8_t index_ = 0;
};

// The general comparison from a position where both texts stand at the start of
// a character and all before it was equal, with common secondary weights only.
int CompareFrom(std::string_view a, std::string_view b, std::size_t from) {
  Elements pa(a, from), pb(b, from);
  for (;;) {
    Weight x = pa.NextPrimary(), y = pb.NextPrimary();
    if (x != y) return x < y ? -1 : 1;
    if (x == 0) break;
  }
  Elements sa(a, from), sb(b, from);
  for (;;) {
    std::uint8_t x = sa.NextSecondary(), y = sb.NextSecondary();
    if (x != y) return x < y ? -1 : 1;
    if (x == 0) return 0;
  }
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0x80) == 0; });
}

// Where two texts first differ, byte for byte.
std::size_t Mismatch(std::string_view a, std::string_view b) {
  const std::size_t n = std::min(a.size(), b.size());
  std::size_t i = 0;
  for (; i + 8 <= n; i += 8) {
    std::uint64_t x, y;
    std::memcpy(&x, a.data() + i, 8);
    std::memcpy(&y, b.data() + i, 8);
    if (x != y) break;
  }
  while (i < n && a[i] == b[i]) ++i;
  return i;
}

// The hash goes over the primary weights written as bytes: a weight of an ASCII
// character as that character in small letters, any other as 0x80 and three bytes.
// An ASCII text so hashes as its folded self, with no table walk.
class HashBuffer {
 public:
  void Put(char c) {
    if (used_ == sizeof bytes_) Flush();
    bytes_[used_++] = c;
  }
  void Put8(std::uint64_t eight) {
    if (used_ + 8 > sizeof bytes_) Flush();
    std::memcpy(bytes_ + used_, &eight, 8);
    used_ += 8;
  }
  void PutWeight(Weight w, const Table& table) {
    int ascii = table.AsciiOf(w);
    if (ascii >= 0) return Put(static_cast<char>(ascii));
    Put(static_cast<char>(0x80));
    Put(static_cast<char>(w >> 16));
    Put(static_cast<char>(w >> 8));
    Put(static_cast<char>(w));
  }
  std::size_t Finish() {
    Flush();
    return hash_;
  }

 private:
  void Flush() {
    hash_ = hash_ * 1099511628211ull + std::hash<std::string_view>{}(std::string_view(bytes_, used_));
    used_ = 0;
  }
  char bytes_[256];
  std::size_t used_ = 0;
  std::size_t hash_ = 0;
};

}  // namespace

int CompareText(std::string_view a, std::string_view b) {
  std::size_t i = Mismatch(a, b);
  const std::size_t n = std::min(a.size(), b.size());
  if (i == n && a.size() == b.size()) return 0;
  // Back to the end of the last ASCII character of the equal part: the start of
  // a character in both texts.
  while (i > 0 && (static_cast<unsigned char>(a[i - 1]) & 0x80)) --i;
  const std::array<Weight, 128>& weights = AsciiWeights();
  for (; i < n; ++i) {
    auto x = static_cast<unsigned char>(a[i]);
    auto y = static_cast<unsigned char>(b[i]);
    if ((x | y) & 0x80) break;
    if (x != y && weights[x] != weights[y]) return weights[x] < weights[y] ? -1 : 1;
  }
  if (i == n) {
    if (a.size() == b.size()) return 0;
    std::string_view rest = a.size() > b.size() ? a.substr(n) : b.substr(n);
    if (IsAscii(rest)) return a.size() < b.size() ? -1 : 1;
  }
  return CompareFrom(a, b, i);
}

bool EqualText(std::string_view a, std::string_view b) { return a == b || CompareText(a, b) == 0; }

std::size_t HashText(std::string_view text) {
  const Table& table = TheTable();
  HashBuffer buffer;
  std::size_t i = 0;
  // Eight ASCII bytes at a time: the capitals among them get 0x20.
  constexpr std::uint64_t kOnes = 0x0101010101010101ull, kHigh = 0x8080808080808080ull;
  for (; i + 8 <= text.size(); i += 8) {
    std::uint64_t x;
    std::memcpy(&x, text.data() + i, 8);
    if (x & kHigh) break;
    std::uint64_t from_a = x + (0x80 - 'A') * kOnes;  // high bit where the byte is 'A' or above
    std::uint64_t past_z = x + (0x7F - 'Z') * kOnes;  // high bit where the byte is above 'Z'
    x |= ((from_a & ~past_z) & kHigh) >> 2;
    buffer.Put8(x);
  }
  for (; i < text.size(); ++i) {
    auto c = static_cast<unsigned char>(text[i]);
    if (c & 0x80) break;
    buffer.Put(static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c));
  }
  if (i < text.size()) {
    Elements elements(text, i);
    while (Weight w = elements.NextPrimary()) buffer.PutWeight(w, table);
  }
  return buffer.Finish();
}

}  // namespace ormelix
