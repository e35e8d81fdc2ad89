// The middles of long segments, by a table: where a segment goes on for hundreds of pixels, all
// that differs from one column to the next is how far the line has come within its pixel.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "raster/coverage.h"
#include "raster/geometry.h"
#include "raster/strokes.h"

namespace kurv::raster {

class LongSegments {
 public:
  LongSegments(int width, int height) : m_columns(height, width) {}

  // Whether the table is wide enough for the pen, at any angle.
  static bool is_narrow(double half_width) { return half_width <= 2; }

  // Adds what lies between two points in pixels, without any ends, to the mask or to what this
  // keeps: of pixel columns, or of rows where the segment is steep, those that have their middles
  // between the points. The direction has the length one. All segments until the next merge have
  // the same half width, in pixels.
  void add(Coverage& mask, double half_width, Vector from, Vector to, Vector direction);
  // Moves what this keeps to the mask, by maximum.
  void merge_into(Coverage& mask);
  void clear() { m_columns.clear(); }

 private:
  static constexpr int kSlopes = 128;
  static constexpr int kPhaseBits = 6;
  static constexpr int kPhases = 1 << kPhaseBits;
  static constexpr int kReach = 8;  // pixels that a step looks at
  using Profile = std::array<std::array<std::uint8_t, kReach>, kPhases>;

  const Profile& profile_of(double slope, double half_width);

  // A mask of columns: its rows are the columns of the picture, so that the pixels that a step
  // looks at lie side by side.
  Coverage m_columns;
  double m_half_width = 0;
  std::vector<Profile> m_profiles = std::vector<Profile>(kSlopes + 1);
  std::vector<bool> m_known = std::vector<bool>(kSlopes + 1);
};

}  // namespace kurv::raster
