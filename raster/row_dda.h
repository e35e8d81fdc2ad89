// Where a strip passes the rows of a mask.
#pragma once

#include <cstdint>

#include "raster/coverage.h"
#include "raster/geometry.h"

namespace kurv::raster {

// Eight pixels of each of the rows first..end-1: from `at` on in the
// first of them, moving on by `step`. Fixed point, because a step has to find its pixel without
// asking the library to round.
struct RowDda {
  static constexpr int kFractionBits = 32;
  // Where within a pixel a strip is told apart.
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

// Of the rows with their middles in top..bottom, without those in which the eight pixels are
// outside the mask and its margins. The strip passes `through` and moves by `slope` from row to
// row.
RowDda make_row_dda(double top, double bottom, Vector through, double slope, const Coverage& mask);

// Touches the pixels of the course.
void touch(Coverage& mask, const RowDda& dda);

}  // namespace kurv::raster
