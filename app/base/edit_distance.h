// How much two texts differ, for the suggestion of a name that was probably meant.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace kurv::app {

// The Levenshtein distance: how many characters to change, remove or add to get the other text.
std::size_t levenshtein_distance(std::string_view one, std::string_view other);

// The name that is nearest to a misspelt one in any letter case, where one is near enough to have
// been meant; otherwise empty. Of several that are equally near, the first.
std::string_view nearest_name(std::string_view misspelt, std::span<const std::string_view> names);

}  // namespace kurv::app
