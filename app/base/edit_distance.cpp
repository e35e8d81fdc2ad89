#include "app/base/edit_distance.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <string>
#include <vector>

namespace kurv::app {

namespace {

constexpr std::size_t kMaxNameLength = 40;

// Two slips, or one in a short word, where two would turn it into quite another.
std::size_t allowed_distance(std::size_t length) {
  return length < 4 ? 1 : 2;
}

}  // namespace

std::size_t levenshtein_distance(std::string_view one, std::string_view other) {
  std::vector<std::size_t> row(other.size() + 1);
  for (std::size_t j = 0; j < row.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= one.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j < row.size(); ++j) {
      const std::size_t changed = diagonal + (one[i - 1] == other[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({changed, row[j] + 1, row[j - 1] + 1});
    }
  }
  return row.back();
}

std::string_view nearest_name(std::string_view misspelt, std::span<const std::string_view> names) {
  std::string_view nearest;
  if (misspelt.size() < 2 || misspelt.size() > kMaxNameLength) return nearest;
  const std::string wanted = to_lower(misspelt);
  std::size_t least = allowed_distance(wanted.size()) + 1;
  for (const std::string_view name : names) {
    const std::size_t distance = levenshtein_distance(wanted, to_lower(name));
    if (distance >= least) continue;
    least = distance;
    nearest = name;
  }
  return nearest;
}

}  // namespace kurv::app
