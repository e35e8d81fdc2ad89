#include "app/base/text.h"

#include <QString>
#include <algorithm>

namespace kurv::app {

namespace {

constexpr std::size_t kLongestQuotation = 60;

char lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool continues_a_character(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u;
}

}  // namespace

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string lower_case(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), lower);
  return result;
}

std::string on_one_line(std::string_view text) {
  std::string result(text);
  std::replace_if(
      result.begin(), result.end(),
      [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
  return result;
}

std::string in_quotes(std::string_view text) {
  if (text.size() <= kLongestQuotation) return '"' + on_one_line(text) + '"';
  std::size_t end = kLongestQuotation;
  // A character of several bytes is cut off as a whole.
  while (end > 0 && continues_a_character(text[end])) --end;
  return '"' + on_one_line(text.substr(0, end)) + "...\"";
}

std::string enumeration(const std::vector<std::string>& names, std::size_t at_most) {
  // "and 1 more" is no shorter than the name that it hides.
  const std::size_t shown = names.size() <= at_most + 1 ? names.size() : at_most;
  const std::size_t hidden = names.size() - shown;
  std::string result;
  for (std::size_t i = 0; i < shown; ++i) {
    const bool last = hidden == 0 && i + 1 == shown;
    if (i > 0) result += last ? " and " : ", ";
    result += in_quotes(names[i]);
  }
  if (hidden > 0) result += " and " + std::to_string(hidden) + " more";
  return result;
}

bool is_utf8(std::string_view bytes) {
  return QUtf8StringView(bytes.data(), static_cast<qsizetype>(bytes.size())).isValidUtf8();
}

std::string as_utf8(std::string_view bytes) {
  if (is_utf8(bytes)) return std::string(bytes);
  return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size())).toStdString();
}

}  // namespace kurv::app
