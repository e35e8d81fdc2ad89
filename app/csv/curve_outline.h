// The rows that the picture of one curve needs.
#pragma once

#include <vector>

#include "app/csv/row_scores.h"

namespace kurv::app {

// A row in which the curve has a value.
struct Vertex {
  int row;
  double position;
  double value;
};

// The scores of the rows for windows of this width.
struct WindowScores {
  double window;
  RowScores scores;
};

// Raises the scores of the rows so that the line through them has, in every stretch that is at
// least as wide as the window, wherever it begins, the extremes of the line through all vertices,
// but for a 4000th of the curve's range. The positions of the vertices do not decrease. Rows that
// are needed before, for all windows alike, are kept.
//
// First, rows are left out where the line runs straight. Of the rest, a row is an extreme where
// some window has no larger, or no smaller, value: its score is the share of the windows around it
// for which that is so. The rows beside it keep the line to it as steep as it was.
void score_outline(std::vector<Vertex>& vertices, std::vector<WindowScores>& windows);

}  // namespace kurv::app
