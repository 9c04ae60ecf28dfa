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

}  // namespace ormelix
