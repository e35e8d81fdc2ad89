#include <KurvGraph/text.h>

#include <algorithm>
#include <array>

namespace kurv {

namespace {

std::string_view trim(std::string_view text, std::string_view characters) {
  const std::size_t first = text.find_first_not_of(characters);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

unsigned byte_at(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]);
}

// The characters of the bytes 0x80 to 0x9F in code page 1252; all other bytes have the number of
// their Unicode character.
constexpr std::array<unsigned, 32> kCp1252Specials = {
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

std::string_view trim_blanks(std::string_view text) {
  return trim(text, " \t");
}

std::string_view trim_whitespace(std::string_view text) {
  return trim(text, " \t\r\n");
}

String to_lower(std::string_view text) {
  String lower(text);
  for (char& c : lower) c = to_lower(c);
  return lower;
}

bool equals_ignoring_case(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char one, char other) { return to_lower(one) == to_lower(other); });
}

const char* boolean_to_text(Boolean value) {
  return value ? "True" : "False";
}

std::optional<Boolean> word_to_boolean(std::string_view text) {
  const std::string_view word = trim_blanks(text);
  if (equals_ignoring_case(word, "true")) return Boolean(true);
  if (equals_ignoring_case(word, "false")) return Boolean(false);
  return std::nullopt;
}

// The second byte alone decides about overlong forms, surrogates, and code points that are too
// large.
std::size_t utf8_length(std::string_view text) {
  if (text.empty()) return 0;
  const unsigned lead = byte_at(text, 0);
  if (lead < 0x80) return 1;
  if (lead < 0xC2 || lead > 0xF4) return 0;
  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (text.size() < length) return 0;

  const unsigned second = byte_at(text, 1);
  const unsigned least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const unsigned most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  if (second < least || second > most) return 0;
  const std::string_view others = text.substr(2, length - 2);
  return std::all_of(others.begin(), others.end(), is_utf8_continuation) ? length : 0;
}

bool is_valid_utf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = utf8_length(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

String cp1252_to_utf8(std::string_view bytes) {
  String text;
  text.reserve(bytes.size() + bytes.size() / 4);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const unsigned byte = byte_at(bytes, i);
    const bool special = byte >= 0x80 && byte < 0x80 + kCp1252Specials.size();
    append_utf8(text, special ? kCp1252Specials[byte - 0x80] : byte);
  }
  return text;
}

String to_utf8(std::string_view bytes) {
  return is_valid_utf8(bytes) ? String(bytes) : cp1252_to_utf8(bytes);
}

}  // namespace kurv
