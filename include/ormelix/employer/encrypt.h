/// \file
/// The transformation of stored document passwords.
///
/// A password does not lie in the store as plain text. On the way in and on the way
/// out it passes through Encrypt with the fixed key "kern84"; the same call serves
/// both directions, because Encrypt is its own inverse.
///
/// Encrypt works on one byte per character: the password is first brought to its
/// Windows-1252 form, transformed, and the bytes are read back as Windows-1252 text.
/// So:
/// - A character that Windows-1252 lacks (say 'Ω'; 'ä' and '€' are in it) does not
///   survive: it becomes '?' before the transformation and comes back as '?'.
/// - The five byte values that Windows-1252 leaves undefined (0x81, 0x8D, 0x8F,
///   0x90, 0x9D) stand for the control characters U+0081 and so on, both ways, so
///   that every byte the transformation gives can be stored as text and read back.
///
/// The transformation keeps the length and changes each byte on its own: byte i is
/// paired with key byte k = key[i mod key length], and b becomes b XOR k. A plain XOR
/// would turn a byte equal to k into NUL, and a text with a NUL in it does not come
/// back whole from every store or string routine. So the pair (0, k) is left out:
/// NUL and the byte equal to k stay as they are, and every other byte b is swapped
/// with b XOR k (which is then neither 0 nor k). Each position is thus a swap of
/// byte pairs, applying it twice gives back every byte string, and no byte other
/// than NUL ever becomes NUL. Rows written with another transformation can't be read
/// with this one.
#pragma once

#include <string>
#include <string_view>

namespace ormelix {

/// The fixed key of every stored password, of employers and employees alike.
inline constexpr std::string_view kEncryptKey = "kern84";

/// Changes pText (one byte per character) in place, keeping its length. Its own
/// inverse for the same key; an empty key leaves the text as it is.
void Encrypt(std::string& pText, std::string_view pKey);

/// A password as the library stores and reads it: the text (UTF-8) to Windows-1252,
/// Encrypt with kEncryptKey, back to UTF-8. EncryptPassword(EncryptPassword(t)) is t
/// for every text that Windows-1252 can hold.
std::string EncryptPassword(std::string_view pText);

/// Windows-1252 and UTF-8. A character outside Windows-1252 (and a byte that is no
/// valid UTF-8) becomes '?'; the undefined bytes map to U+0081 etc. and back.
std::string ToWindows1252(std::string_view utf8);
/// Windows-1252 bytes back to UTF-8 (the undefined bytes to U+0081 and so on).
std::string FromWindows1252(std::string_view bytes);

}  // namespace ormelix
