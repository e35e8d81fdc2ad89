#include "app/csv/missing_text.h"

#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include <algorithm>
#include <array>

#include "app/csv/characters.h"

namespace kurv::app {

bool is_usual_missing_text(std::string_view text) {
  constexpr std::size_t kLongest = 7;
  constexpr std::array<std::string_view, 28> kTexts{
      "-",      "--",  "---", "\u2013", "\u2014", "\u2212",  "?",       ".",    "..",  "...",
      "\u2026", "na",  "n/a", "n.a.",   "n.a",    "nan",     "null",    "none", "nil", "nul",
      "#n/a",   "#na", "#nv", "<na>",   "(null)", "missing", "1.#qnan", "#nan"};
  if (text.empty()) return true;
  if (text.size() > kLongest) return false;
  return std::any_of(kTexts.begin(), kTexts.end(),
                     [&](std::string_view known) { return equals_ignoring_case(text, known); });
}

bool is_missing_text(std::string_view text, const std::optional<std::vector<std::string>>& chosen) {
  if (!chosen) return is_usual_missing_text(text);
  if (text.empty() || std::find(chosen->begin(), chosen->end(), text) != chosen->end()) return true;
  // "-9999.0" is also written "-9999" and "-9999.00".
  if (!begins_as_number(text)) return false;
  const std::optional<double> value = text_to_number(text);
  return value && std::any_of(chosen->begin(), chosen->end(), [&](const std::string& missing) {
           return begins_as_number(missing) && text_to_number(missing) == value;
         });
}

}  // namespace kurv::app
