#include "app/base/message_text.h"

#include <KurvGraph/text.h>

#include <algorithm>

namespace kurv::app {

namespace {

constexpr std::size_t kMaxQuotation = 60;

}  // namespace

std::string on_one_line(std::string_view text) {
  std::string result(text);
  std::replace_if(
      result.begin(), result.end(),
      [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
  return result;
}

std::string in_quotes(std::string_view text) {
  if (text.size() <= kMaxQuotation) return '"' + on_one_line(text) + '"';
  std::size_t end = kMaxQuotation;
  // A character of several bytes is cut off as a whole.
  while (end > 0 && is_utf8_continuation(text[end])) --end;
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

}  // namespace kurv::app
