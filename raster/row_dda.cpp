#include "raster/row_dda.h"

#include <algorithm>
#include <cmath>

#include "raster/lanes.h"
#include "raster/stroke_math.h"

namespace kurv::raster {
namespace {

constexpr double kUnit = 4294967296.0;
// A strip that begins further aside than that is nowhere near a picture.
constexpr double kFar = 1 << 20;

std::int64_t fixed(double value) {
  return static_cast<std::int64_t>(value * kUnit);
}

bool is_inside(const Coverage& mask, std::int64_t at) {
  const int left = Course::left_of(at);
  return left >= -Coverage::kMargin && left <= mask.width();
}

Course clipped(const Course& course, const Coverage& mask) {
  const int rows = course.end - course.first;
  if (rows <= 0) return {};
  if (is_inside(mask, course.at) && is_inside(mask, course.at_row(course.end - 1))) return course;
  if (course.step == 0) return {};
  const auto rows_to = [&](int left) {
    const double way = left * kUnit - static_cast<double>(course.at);
    return std::clamp(way / static_cast<double>(course.step), 0.0, static_cast<double>(rows));
  };
  const double enters = rows_to(-Coverage::kMargin), leaves = rows_to(mask.width() + 1);
  int first = course.first + static_cast<int>(std::min(enters, leaves));
  int end = course.first + static_cast<int>(std::ceil(std::max(enters, leaves)));
  while (first < end && !is_inside(mask, course.at_row(first))) ++first;
  while (first < end && !is_inside(mask, course.at_row(end - 1))) --end;
  return {first, end, course.at_row(first), course.step};
}

}  // namespace

Course course_of(double top, double bottom, Vector through, double slope, const Coverage& mask) {
  const int first = first_pixel_from(top, mask.height());
  const int end = first_pixel_from(bottom, mask.height());
  const double pixel = through.x + (first + 0.5 - through.y) * slope;
  if (!(std::abs(pixel) < kFar)) return {};
  // Half a phase more makes cutting off the nearest.
  return clipped({first, end, fixed(pixel + 0.5 / Course::kPhases), fixed(slope)}, mask);
}

void touch(Coverage& mask, const Course& course) {
  for (int row = course.first; row < course.end;) {
    const int last = std::min(row | (Coverage::kBand - 1), course.end - 1);
    const auto [low, high] = std::minmax({course.at_row(row), course.at_row(last)});
    const int first = std::max(Course::left_of(low), 0);
    const int end = std::min(Course::left_of(high) + kLanes, mask.width());
    if (first < end) mask.touch(row, first, end);
    row = last + 1;
  }
}

}  // namespace kurv::raster
