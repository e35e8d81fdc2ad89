// Segments of narrow pens, eight pixels at a time. Steep (y-major) segments are stepped from row to
// row in the mask, the others (x-major) from column to column in a transposed mask. The body of a
// long segment is taken from a table of line profiles by slope and subpixel phase: the phase is all
// that differs from one row to the next.
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

  // Whether eight pixels are enough for the pen at any angle.
  static bool supports(double half_width) { return half_width <= 2; }

  // Adds the stroke between two points, in pixels, to the mask or to the transposed one that is
  // kept here. The direction has length one. All segments until the next merge have the same half
  // width, in pixels.
  void add(Coverage& mask, double half_width, Vector from, Vector to, Vector direction);
  // Moves what is kept here into the mask, by maximum.
  void merge_into(Coverage& mask);
  void clear() { m_transposed.clear(); }

 private:
  static constexpr int kSlopes = 128;
  static constexpr double kTableLength = 24;  // pixels; for shorter ones the table does not pay
  using ProfileTable = std::array<CoverageLanes, RowDda::kPhases>;

  // A segment that runs downwards and is steep, in the mask or the transposed one.
  struct SteepSegment {
    Vector from;
    Vector to;
    Vector direction;
    double half_width;
  };
  template <class PenKind>
  void add_steep(Coverage& mask, const SteepSegment& segment);
  const ProfileTable& profile_table(double slope, double half_width);
  void merge_block(Coverage& mask, int x, int y);

  // Its rows are the columns of the picture, so that the eight pixels of a step are adjacent in
  // memory for x-major segments, too.
  Coverage m_transposed;
  double m_half_width = 0;
  std::vector<ProfileTable> m_tables = std::vector<ProfileTable>(kSlopes + 1);
  std::vector<bool> m_has_table = std::vector<bool>(kSlopes + 1);
};

}  // namespace kurv::raster
