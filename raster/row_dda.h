// A digital differential analyser (DDA): steps along a line from row to row of a mask.
#pragma once

#include <cstdint>

#include "raster/coverage.h"
#include "raster/geometry.h"

namespace kurv::raster {

// Eight pixels in each of the rows first..end-1. They begin at `at` in the first row and move by
// `step` from each row to the next. Both are fixed-point numbers, so that a step needs a shift to
// find its pixel and no rounding function.
struct RowDda {
  static constexpr int kFractionBits = 32;
  // How many subpixel positions of a line are distinguished.
  static constexpr int kPhaseBits = 6;
  static constexpr int kPhases = 1 << kPhaseBits;

  int first = 0;
  int end = 0;
  std::int64_t at = 0;
  std::int64_t step = 0;

  static int left_of(std::int64_t at) { return static_cast<int>(at >> kFractionBits); }
  static unsigned phase_of(std::int64_t at) {
    return static_cast<unsigned>(at >> (kFractionBits - kPhaseBits)) % kPhases;
  }
  std::int64_t at_row(int row) const { return at + (row - first) * step; }
};

// Covers the rows whose centres are in top..bottom, except those where the eight pixels are outside
// the mask and its margins. The line passes `through` and moves by `slope` from row to row.
RowDda make_row_dda(double top, double bottom, Vector through, double slope, const Coverage& mask);

// Calls mask.touch() for all pixels of the DDA.
void touch(Coverage& mask, const RowDda& dda);

}  // namespace kurv::raster
