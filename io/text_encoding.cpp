#include "io/text_encoding.h"

#include <array>

namespace kurv {

namespace {

unsigned byte_at(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]);
}

// The length of the valid UTF-8 character at the front of `bytes`, which is not empty; 0 where none
// stands there. The second byte alone decides about forms that are too long, surrogates, and
// numbers beyond the last.
std::size_t character_length(std::string_view bytes) {
  const unsigned lead = byte_at(bytes, 0);
  if (lead < 0x80) return 1;
  if (lead < 0xC2 || lead > 0xF4) return 0;
  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (bytes.size() < length) return 0;

  const unsigned second = byte_at(bytes, 1);
  const unsigned least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const unsigned most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  if (second < least || second > most) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if ((byte_at(bytes, i) & 0xC0U) != 0x80U) return 0;
  }
  return length;
}

bool is_valid_utf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = character_length(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

// Code page 1252 differs from Unicode's first 256 characters only here, from 0x80 on.
constexpr std::array<unsigned, 32> kWesternSpecials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// Every character of the code page has at most sixteen bits.
void append_utf8(String& text, unsigned character) {
  if (character < 0x80) {
    text += static_cast<char>(character);
    return;
  }
  if (character < 0x800) {
    text += static_cast<char>(0xC0U | (character >> 6U));
  } else {
    text += static_cast<char>(0xE0U | (character >> 12U));
    text += static_cast<char>(0x80U | ((character >> 6U) & 0x3FU));
  }
  text += static_cast<char>(0x80U | (character & 0x3FU));
}

}  // namespace

String to_utf8(std::string_view bytes) {
  if (is_valid_utf8(bytes)) return String(bytes);
  String text;
  text.reserve(bytes.size() + bytes.size() / 4);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const unsigned byte = byte_at(bytes, i);
    const bool special = byte >= 0x80 && byte < 0x80 + kWesternSpecials.size();
    append_utf8(text, special ? kWesternSpecials[byte - 0x80] : byte);
  }
  return text;
}

}  // namespace kurv
