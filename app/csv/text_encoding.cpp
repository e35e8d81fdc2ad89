#include "app/csv/text_encoding.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <utility>

namespace kurv::app {

namespace {

// NUL bytes are looked for in the beginning alone, which is enough to tell the encodings apart.
constexpr std::size_t kEncodingSample = 4096;

struct Mark {
  std::string_view bytes;
  Encoding encoding;
};

using namespace std::string_view_literals;

// The longer mark first, because it begins with the shorter one.
constexpr std::array kMarks{
    Mark{"\xFF\xFE\0\0"sv, Encoding::kUtf32Le}, Mark{"\0\0\xFE\xFF"sv, Encoding::kUtf32Be},
    Mark{"\xFF\xFE"sv, Encoding::kUtf16Le}, Mark{"\xFE\xFF"sv, Encoding::kUtf16Be},
    Mark{"\xEF\xBB\xBF"sv, Encoding::kUtf8}};

std::string_view mark_of(std::string_view bytes, Encoding encoding) {
  for (const Mark& mark : kMarks) {
    if (mark.encoding == encoding && bytes.starts_with(mark.bytes)) return mark.bytes;
  }
  return {};
}

// The length of the beginning that is ASCII.
std::size_t ascii_length(std::string_view text) {
  std::size_t at = 0;
  for (; at + sizeof(std::uint64_t) <= text.size(); at += sizeof(std::uint64_t)) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data() + at, sizeof word);
    if ((word & 0x8080808080808080U) != 0) break;
  }
  while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80) ++at;
  return at;
}

void append_utf8(std::string& text, std::uint32_t code_point) {
  const auto append = [&](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (code_point < 0x80) return append(code_point);
  if (code_point < 0x800) {
    append(0xC0U | code_point >> 6U);
  } else if (code_point < 0x10000) {
    append(0xE0U | code_point >> 12U);
    append(0x80U | (code_point >> 6U & 0x3FU));
  } else {
    append(0xF0U | code_point >> 18U);
    append(0x80U | (code_point >> 12U & 0x3FU));
    append(0x80U | (code_point >> 6U & 0x3FU));
  }
  append(0x80U | (code_point & 0x3FU));
}

constexpr std::uint32_t kReplacement = 0xFFFD;

std::uint32_t unit_at(std::string_view bytes, std::size_t at, std::size_t size, bool big_endian) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < size; ++i) {
    const std::size_t place = big_endian ? i : size - 1 - i;
    value = value << 8U | static_cast<unsigned char>(bytes[at + place]);
  }
  return value;
}

std::string from_utf16(std::string_view bytes, bool big_endian) {
  std::string text;
  text.reserve(bytes.size() / 2);
  for (std::size_t at = 0; at + 2 <= bytes.size(); at += 2) {
    std::uint32_t unit = unit_at(bytes, at, 2, big_endian);
    if (unit >= 0xD800 && unit < 0xDC00 && at + 4 <= bytes.size()) {
      const std::uint32_t low = unit_at(bytes, at + 2, 2, big_endian);
      if (low >= 0xDC00 && low < 0xE000) {
        unit = 0x10000 + ((unit - 0xD800) << 10U) + (low - 0xDC00);
        at += 2;
      }
    }
    append_utf8(text, unit >= 0xD800 && unit < 0xE000 ? kReplacement : unit);
  }
  return text;
}

std::string from_utf32(std::string_view bytes, bool big_endian) {
  std::string text;
  text.reserve(bytes.size() / 4);
  for (std::size_t at = 0; at + 4 <= bytes.size(); at += 4) {
    const std::uint32_t unit = unit_at(bytes, at, 4, big_endian);
    const bool valid = unit < 0x110000 && (unit < 0xD800 || unit >= 0xE000);
    append_utf8(text, valid ? unit : kReplacement);
  }
  return text;
}

std::string from_latin1(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) append_utf8(text, static_cast<unsigned char>(c));
  return text;
}

// Text that is not UTF-8 as a whole. Line by line, because files that were put together from
// several have both.
DecodedText from_lines(std::string_view bytes) {
  DecodedText result{{}, Encoding::kCp1252, 0};
  result.text.reserve(bytes.size() + bytes.size() / 8);
  bool any_utf8 = false;
  std::size_t first_other = 0;
  for (std::size_t line = 1; !bytes.empty(); ++line) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
    const std::string_view text = bytes.substr(0, end);
    bytes.remove_prefix(end);
    const bool ascii = ascii_length(text) == text.size();
    if (ascii || is_valid_utf8(text)) {
      any_utf8 = any_utf8 || !ascii;
      result.text += text;
    } else {
      if (first_other == 0) first_other = line;
      result.text += cp1252_to_utf8(text);
    }
  }
  if (any_utf8) {
    result.encoding = Encoding::kUtf8;
    result.first_foreign_line = first_other;
  }
  return result;
}

}  // namespace

std::string_view encoding_name(Encoding encoding) {
  switch (encoding) {
    case Encoding::kUtf8:
      return "UTF-8";
    case Encoding::kUtf16Le:
      return "UTF-16LE";
    case Encoding::kUtf16Be:
      return "UTF-16BE";
    case Encoding::kUtf32Le:
      return "UTF-32LE";
    case Encoding::kUtf32Be:
      return "UTF-32BE";
    case Encoding::kCp1252:
      return "code page 1252";
    case Encoding::kLatin1:
      break;
  }
  return "Latin-1";
}

std::optional<Encoding> encoding_named(std::string_view name) {
  std::string plain;
  for (const char c : to_lower(name)) {
    if (c != '-' && c != '_' && c != ' ') plain.push_back(c);
  }
  constexpr std::array<std::pair<std::string_view, Encoding>, 14> kNames{
      {{"utf8", Encoding::kUtf8},
       {"utf16", Encoding::kUtf16Le},
       {"utf16le", Encoding::kUtf16Le},
       {"utf16be", Encoding::kUtf16Be},
       {"utf32", Encoding::kUtf32Le},
       {"utf32le", Encoding::kUtf32Le},
       {"utf32be", Encoding::kUtf32Be},
       {"cp1252", Encoding::kCp1252},
       {"windows1252", Encoding::kCp1252},
       {"codepage1252", Encoding::kCp1252},
       {"1252", Encoding::kCp1252},
       {"latin1", Encoding::kLatin1},
       {"iso88591", Encoding::kLatin1},
       {"ascii", Encoding::kUtf8}}};
  for (const auto& [known, encoding] : kNames) {
    if (known == plain) return encoding;
  }
  return std::nullopt;
}

std::optional<Encoding> encoding_of_beginning(std::string_view bytes) {
  for (const Mark& mark : kMarks) {
    if (bytes.starts_with(mark.bytes)) return mark.encoding;
  }
  if (bytes.find('\0') == std::string_view::npos) return Encoding::kUtf8;
  const std::string_view sample = bytes.substr(0, kEncodingSample);
  // NUL bytes by their position among four.
  std::array<std::size_t, 4> nuls{};
  for (std::size_t i = 0; i < sample.size(); ++i) {
    if (sample[i] == '\0') ++nuls[i % 4];
  }
  // The letters of a table are mostly ASCII, so most of the upper bytes are NUL, and no lower one.
  const std::size_t most = std::max<std::size_t>(1, sample.size() / 4 * 3 / 4);
  const auto are = [&](std::array<bool, 4> full) {
    for (std::size_t i = 0; i < 4; ++i) {
      if (full[i] ? nuls[i] < most : nuls[i] != 0) return false;
    }
    return true;
  };
  if (are({false, true, true, true})) return Encoding::kUtf32Le;
  if (are({true, true, true, false})) return Encoding::kUtf32Be;
  if (are({false, true, false, true})) return Encoding::kUtf16Le;
  if (are({true, false, true, false})) return Encoding::kUtf16Be;
  return std::nullopt;
}

DecodedText decode(std::string bytes, Encoding encoding) {
  bytes.erase(0, mark_of(bytes, encoding).size());
  switch (encoding) {
    case Encoding::kUtf16Le:
    case Encoding::kUtf16Be:
      return {from_utf16(bytes, encoding == Encoding::kUtf16Be), encoding, 0};
    case Encoding::kUtf32Le:
    case Encoding::kUtf32Be:
      return {from_utf32(bytes, encoding == Encoding::kUtf32Be), encoding, 0};
    case Encoding::kCp1252:
      return {cp1252_to_utf8(bytes), encoding, 0};
    case Encoding::kLatin1:
      return {from_latin1(bytes), encoding, 0};
    case Encoding::kUtf8:
      break;
  }
  const std::size_t plain = ascii_length(bytes);
  if (plain == bytes.size() || is_valid_utf8(std::string_view(bytes).substr(plain))) {
    return {std::move(bytes), Encoding::kUtf8, 0};
  }
  return from_lines(bytes);
}

}  // namespace kurv::app
