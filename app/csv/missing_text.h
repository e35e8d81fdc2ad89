// The texts that stand for a missing value.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kurv::app {

// An empty text, a dash, "?", ".", "…", "NA", "n/a", "NaN", "null", "None", "#N/A" and the like, in
// any letter case.
bool is_usual_missing_text(std::string_view text);

// The same, or these texts and the empty one where there are some.
bool is_missing_text(std::string_view text, const std::optional<std::vector<std::string>>& chosen);

}  // namespace kurv::app
