// Segments of a narrow pen, eight pixels at a time: from one row to the next where they are steep,
// else from one column to the next in a mask of columns. The middles of long ones come from a
// table: where a segment goes on for hundreds of pixels, all that differs from one row to the next
// is how far the line has come within its pixel.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "raster/coverage.h"
#include "raster/coverage_lanes.h"
#include "raster/geometry.h"
#include "raster/row_dda.h"
#include "raster/strokes.h"

namespace kurv::raster {

class NarrowSegments {
 public:
  NarrowSegments(int width, int height) : m_transposed(height, width) {}

  // Whether the table is wide enough for the pen, at any angle.
  static bool supports(double half_width) { return half_width <= 2; }

  // Adds the strip between two points in pixels and its round ends, to the mask or to what this
  // keeps. The direction has the length one. All segments until the next merge have the same half
  // width, in pixels.
  void add(Coverage& mask, double half_width, Vector from, Vector to, Vector direction);
  // Moves what this keeps to the mask, by maximum.
  void merge_into(Coverage& mask);
  void clear() { m_transposed.clear(); }

 private:
  static constexpr int kSlopes = 128;
  static constexpr double kTableLength = 24;  // pixels from which on the table is worth while
  using ProfileTable = std::array<CoverageLanes, RowDda::kPhases>;

  // One that goes down the rows of its mask, from each to the next.
  struct Segment {
    Vector from;
    Vector to;
    Vector direction;
    double half_width;
  };
  template <class PenKind>
  void add_steep(Coverage& mask, const Segment& segment);
  const ProfileTable& profile_table(double slope, double half_width);
  void merge_block(Coverage& mask, int x, int y);

  // A mask of columns: its rows are the columns of the picture, so that the pixels that a step
  // looks at lie side by side.
  Coverage m_transposed;
  double m_half_width = 0;
  std::vector<ProfileTable> m_tables = std::vector<ProfileTable>(kSlopes + 1);
  std::vector<bool> m_has_table = std::vector<bool>(kSlopes + 1);
};

}  // namespace kurv::raster
