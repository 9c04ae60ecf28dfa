/// \file
/// The order and equality of text in the store: without regard to case, umlauts
/// included. 'ÄRZTE' equals 'ärzte'; Ä sorts with A (Arzt < Ärzte < Asche), just
/// after a plain A where the names are otherwise equal (Mann < Männer is decided
/// by the letters after it, Hanel < Hänel by the umlaut). Accents count: 'é' is not
/// 'e', and ß sorts as ss but is not equal to it ('Strasse' < 'Straße' < 'Strassen').
/// Spaces and punctuation come before digits, digits before letters.
///
/// The store's text columns (SQLite and PostgreSQL), Filter and Find of a recordset
/// and its hash index all compare this way, so that a folder or an employee sorts
/// the same in the store, in memory and on either backend (PostgreSQL compares
/// with the ICU collation und-u-ks-level2, which this order follows for Latin
/// letters; other scripts sort by code point there and keep their case here).
#pragma once

#include <cstddef>
#include <string_view>

namespace ormelix {

/// The name under which the order is declared on the text columns of the schema.
inline constexpr const char* kTextCollation = "ormelix_text";

/// Negative, zero or positive as a sorts before, with or after b (UTF-8 text).
int CompareText(std::string_view a, std::string_view b);
/// True when CompareText gives 0.
bool EqualText(std::string_view a, std::string_view b);
/// Equal for every two texts that compare equal.
std::size_t HashText(std::string_view text);

/// Function objects for containers keyed by text in the store's order.
struct TextLess {
  using is_transparent = void;  ///< lookups by std::string_view need no string
  /// a sorts before b.
  bool operator()(std::string_view a, std::string_view b) const { return CompareText(a, b) < 0; }
};
/// Equality in the store's order, for unordered containers keyed by text.
struct TextEqual {
  using is_transparent = void;  ///< lookups by std::string_view need no string
  /// a equals b (EqualText).
  bool operator()(std::string_view a, std::string_view b) const { return EqualText(a, b); }
};
/// A hash equal for texts that compare equal, for unordered containers keyed by text.
struct TextHash {
  using is_transparent = void;  ///< lookups by std::string_view need no string
  /// HashText of the text.
  std::size_t operator()(std::string_view text) const { return HashText(text); }
};

}  // namespace ormelix
