#include "expr/bracketed_name.h"

#include <algorithm>

#include <KurvGraph/text.h>

namespace kurv::expr {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

// The end of the bracket at `at` if "]]" stands for "]". Of an odd number of "]" in a row, the last
// one closes it.
std::size_t end_after_doubled(std::string_view text, std::size_t at) {
  for (std::size_t first = text.find(']', at); first != kNone;) {
    const std::size_t after = std::min(text.find_first_not_of(']', first), text.size());
    if ((after - first) % 2 == 1) return after;
    first = text.find(']', after);
  }
  return kNone;
}

// The end of the bracket at `at` if each "]" closes the last "[". An end before another "]" is
// none, because an expression cannot go on with that.
std::size_t matching_end(std::string_view text, std::size_t at) {
  int depth = 0;
  for (; at < text.size(); ++at) {
    if (text[at] == '[') ++depth;
    if (text[at] != ']' || --depth > 0) continue;
    return text.substr(at + 1).starts_with(']') ? kNone : at + 1;
  }
  return kNone;
}

bool brackets_match(std::string_view name) {
  int depth = 0;
  for (const char c : name) {
    if (c == '[') ++depth;
    if (c == ']' && --depth < 0) return false;
  }
  return depth == 0;
}

}  // namespace

BracketedName bracketed_name_at(std::string_view text, std::size_t at,
                                const IsDefined& is_defined) {
  const std::size_t first = end_after_doubled(text, at);
  const std::size_t matching = matching_end(text, at);
  const auto size_to = [at](std::size_t end) { return end == kNone ? 0 : end - at; };
  const auto inside = [&](std::size_t end) { return text.substr(at + 1, end - at - 2); };
  if (matching == kNone) return {size_to(first), true, false};
  if (first == kNone) return {size_to(matching), false, false};
  const bool same = first == matching && inside(first).find("]]") == kNone;
  if (same) return {size_to(first), true, false};

  const String name = without_doubled_brackets(inside(first));
  if (is_defined && is_defined(trim_blanks(name))) return {size_to(first), true, true};
  const bool matches = is_defined && is_defined(trim_blanks(inside(matching)));
  if (!matches && brackets_match(name)) return {size_to(first), true, true};
  return {size_to(matching), false, true};
}

String without_doubled_brackets(std::string_view text) {
  String result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    result += text[at];
    if (text.substr(at).starts_with("]]")) ++at;
  }
  return result;
}

}  // namespace kurv::expr
