/// @file
/// Text as bytes: blanks, letter case, "True" and "False", UTF-8. No rule depends on a locale, so a
/// file means the same everywhere; only the letters A to Z have two cases.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include <KurvGraph/values.h>

namespace kurv {

/// Without the spaces and tabs at both ends.
KURV_EXPORT std::string_view trim_blanks(std::string_view text);
/// Without the spaces, tabs, carriage returns and line feeds at both ends.
KURV_EXPORT std::string_view trim_whitespace(std::string_view text);

/// The small letter of A to Z; any other character itself.
constexpr char to_lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
/// The text with small letters for A to Z.
KURV_EXPORT String to_lower(std::string_view text);
/// Whether two texts are equal but for the case of A to Z.
KURV_EXPORT bool equals_ignoring_case(std::string_view left, std::string_view right);

/// "True" or "False".
KURV_EXPORT const char* boolean_to_text(Boolean value);
/// The value of the word "True" or "False" in any letter case, blanks around it allowed; nothing
/// for any other text. text_to_boolean() of number_text.h reads numbers as well.
KURV_EXPORT std::optional<Boolean> word_to_boolean(std::string_view text);

/// Whether a byte continues a UTF-8 character that began before it.
constexpr bool is_utf8_continuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}
/// The length in bytes of the UTF-8 character that a text begins with; 0 where it is empty or
/// begins with none. Overlong forms, surrogates and code points above U+10FFFF are no characters.
KURV_EXPORT std::size_t utf8_length(std::string_view text);
/// Whether all of the bytes are UTF-8 characters.
KURV_EXPORT bool is_valid_utf8(std::string_view bytes);

/// Bytes of code page 1252 as UTF-8. A byte that has no character there becomes the control
/// character of the same number.
KURV_EXPORT String cp1252_to_utf8(std::string_view bytes);
/// The bytes themselves where they are valid UTF-8, otherwise read as code page 1252.
KURV_EXPORT String to_utf8(std::string_view bytes);

}  // namespace kurv
