// Which columns of a table become x and the curves.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/csv/table_columns.h"

namespace kurv::app {

struct Choice {
  // Without an x column the row number takes its place.
  std::optional<std::size_t> x;
  // The times of day that belong to the dates of x.
  std::optional<std::size_t> time;
  std::vector<std::size_t> y;
  // Whole sentences.
  std::vector<std::string> warnings;
};

// What errors advise about a table whose columns hold no numbers.
inline constexpr std::string_view kInfoAdvice = "\"kurv info\" says what its columns hold";

// Unless the selection says otherwise, the first column is x and all other columns of numbers are
// curves. Where the first column holds neither numbers nor dates, x is the row number, as it is in
// a table of a single column. Times of day beside the dates of x belong to x. Reads no more columns
// than it needs to decide. Throws UserError, which begins with `path`, when nothing can be drawn
// that way.
Choice choose_columns(TableColumns& columns, const Selection& selection, const std::string& path);

}  // namespace kurv::app
