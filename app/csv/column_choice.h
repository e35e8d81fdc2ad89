// Which columns of a table become x and the curves.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/csv/column_survey.h"

namespace kurv::app {

// What the user asks for; column names, all optional.
struct Selection {
  std::optional<std::string> x;
  // Takes the row number for x, whatever columns there are.
  bool row_numbers = false;
  std::vector<std::string> y;
  // Each n-th row is taken, the first one always.
  std::size_t every = 1;
};

struct Choice {
  // Without an x column the row number takes its place.
  std::optional<std::size_t> x;
  std::vector<std::size_t> y;
  // Whole sentences.
  std::vector<std::string> warnings;
};

// Without a wish, the first column is x and all other columns of numbers are curves. Where the
// first one has neither numbers nor dates, or no other one has numbers, the rows are numbered
// instead. Throws UserError, which begins with `path`, when nothing can be drawn that way.
Choice choose_columns(const std::vector<std::string>& names,
                      const std::vector<ColumnSurvey>& surveys, const Selection& selection,
                      const std::string& path);

}  // namespace kurv::app
