// Which columns of a table become x and the curves.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/csv/table_columns.h"

namespace kurv::app {

// The columns and rows that the user asks for; all optional.
struct Selection {
  std::optional<std::string> x;
  // x is the row number, whatever columns there are.
  bool row_numbers = false;
  std::vector<std::string> y;
  // Each n-th row is drawn, beginning with the first one.
  std::size_t every = 1;
};

struct Choice {
  // Without an x column the row number takes its place.
  std::optional<std::size_t> x;
  std::vector<std::size_t> y;
  // Whole sentences.
  std::vector<std::string> warnings;
};

// Unless the selection says otherwise, the first column is x and all other columns of numbers are
// curves; rows are numbered where the first column holds neither numbers nor dates, or is the only
// one with numbers. Reads no more columns than it needs to decide. Throws UserError, which begins
// with `path`, when nothing can be drawn that way.
Choice choose_columns(TableColumns& columns, const Selection& selection, const std::string& path);

}  // namespace kurv::app
