#include "raster/row_dda.h"

#include <algorithm>
#include <cmath>

#include "raster/coverage_lanes.h"
#include "raster/stroke_math.h"

namespace kurv::raster {
namespace {

constexpr double kUnit = 4294967296.0;
// A line that starts further to the side than this never reaches a picture.
constexpr double kMaxPixel = 1 << 20;

std::int64_t fixed(double value) {
  return static_cast<std::int64_t>(value * kUnit);
}

bool is_inside(const Coverage& mask, std::int64_t at) {
  const int left = RowDda::left_of(at);
  return left >= -Coverage::kMargin && left <= mask.width();
}

RowDda clipped(const RowDda& dda, const Coverage& mask) {
  const int rows = dda.end - dda.first;
  if (rows <= 0) return {};
  if (is_inside(mask, dda.at) && is_inside(mask, dda.at_row(dda.end - 1))) return dda;
  if (dda.step == 0) return {};
  const auto rows_to = [&](int left) {
    const double way = left * kUnit - static_cast<double>(dda.at);
    return std::clamp(way / static_cast<double>(dda.step), 0.0, static_cast<double>(rows));
  };
  const double enters = rows_to(-Coverage::kMargin), leaves = rows_to(mask.width() + 1);
  int first = dda.first + static_cast<int>(std::min(enters, leaves));
  int end = dda.first + static_cast<int>(std::ceil(std::max(enters, leaves)));
  while (first < end && !is_inside(mask, dda.at_row(first))) ++first;
  while (first < end && !is_inside(mask, dda.at_row(end - 1))) --end;
  return {first, end, dda.at_row(first), dda.step};
}

}  // namespace

RowDda make_row_dda(double top, double bottom, Vector through, double slope, const Coverage& mask) {
  const int first = first_pixel_from(top, mask.height());
  const int end = first_pixel_from(bottom, mask.height());
  const double pixel = through.x + (first + 0.5 - through.y) * slope;
  if (!(std::abs(pixel) < kMaxPixel)) return {};
  // Half a phase is added, so that truncation rounds to the nearest phase.
  return clipped({first, end, fixed(pixel + 0.5 / RowDda::kPhases), fixed(slope)}, mask);
}

void touch(Coverage& mask, const RowDda& dda) {
  for (int row = dda.first; row < dda.end;) {
    const int last = std::min(row | (Coverage::kBand - 1), dda.end - 1);
    const auto [low, high] = std::minmax({dda.at_row(row), dda.at_row(last)});
    const int first = std::max(RowDda::left_of(low), 0);
    const int end = std::min(RowDda::left_of(high) + kLanes, mask.width());
    if (first < end) mask.touch(row, first, end);
    row = last + 1;
  }
}

}  // namespace kurv::raster
