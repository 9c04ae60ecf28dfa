// Text helpers shared by the store and the collections.
#pragma once

#include <string>
#include <string_view>

namespace ormelix {

// Lower case for comparisons without regard to case: ASCII letters and the
// Latin-1 letters of UTF-8 text (Ä Ö Ü and the other accented capitals) fold;
// everything else stays as it is.
std::string FoldCase(std::string_view text);
// The same towards upper case (ä to Ä, ß stays).
std::string UpperCase(std::string_view text);

bool EqualsFolded(std::string_view a, std::string_view b);

std::string_view TrimBlanks(std::string_view text);

}  // namespace ormelix
