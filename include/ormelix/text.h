/// \file
/// Text helpers shared by the store and the collections.
#pragma once

#include <string>
#include <string_view>

namespace ormelix {

/// Lower case for comparisons without regard to case: ASCII letters and the
/// letters of Latin-1 and Latin Extended-A in UTF-8 text (Ä Ö Ü, É, Č Ł Ő and
/// the like) fold; everything else stays as it is.
std::string FoldCase(std::string_view text);
/// The same towards upper case (ä to Ä, ß stays).
std::string UpperCase(std::string_view text);

/// True when the two texts are equal after FoldCase.
bool EqualsFolded(std::string_view a, std::string_view b);

/// The text without leading and trailing spaces and tabs.
std::string_view TrimBlanks(std::string_view text);

/// The length of the well-formed UTF-8 sequence at text[i], 0 for a byte that
/// starts none (a stray continuation byte, an overlong form, a surrogate, a code
/// point past U+10FFFF, a sequence cut short).
std::size_t Utf8Length(std::string_view text, std::size_t i);
/// Appends a code point (up to U+10FFFF) in UTF-8.
void AppendUtf8(std::string& out, char32_t code);
/// True when the whole text is well-formed UTF-8.
bool IsUtf8(std::string_view text);

/// Appends the text as a JSON string. Bytes that are no UTF-8 (a stored name
/// written in another encoding) each become U+FFFD, so that the document stays valid.
void AppendJsonString(std::string& out, std::string_view text);

}  // namespace ormelix
