#include "raster/long_segments.h"

#include <algorithm>
#include <cmath>

#include "raster/strip.h"
#include "raster/stroke_parts.h"

namespace kurv::raster {
namespace {

// A strip that goes along the rows of its mask from one row to the next: `at` is its middle in row
// `first`, in pixels, and moves on by `slope`.
struct Course {
  int first;
  int end;
  double at;
  double slope;
};

constexpr int kFractionBits = 32;
constexpr double kUnit = 4294967296.0;
// A strip that begins further aside than that is nowhere near a picture.
constexpr double kFar = 1 << 20;

Course course_of(double from, double to, double across_from, double slope, int rows) {
  const int first = pixel_from(std::min(from, to), rows);
  const int end = pixel_from(std::max(from, to), rows);
  return {first, end, across_from + (first + 0.5 - from) * slope, slope};
}

}  // namespace

// By how far the middle of the strip has come within its pixel.
const LongSegments::Profile& LongSegments::profile_of(double slope, double half_width) {
  if (half_width != m_half_width) {
    m_half_width = half_width;
    m_known.assign(m_known.size(), false);
  }
  const auto place = static_cast<std::size_t>(std::lround(std::abs(slope) * kSlopes));
  Profile& profile = m_profiles[place];
  if (m_known[place]) return profile;
  m_known[place] = true;
  const double rounded = static_cast<double>(place) / kSlopes;
  const double shortening = 1 / std::sqrt(1 + rounded * rounded);
  const Strip strip(half_width, {shortening, rounded * shortening});
  for (int phase = 0; phase < kPhases; ++phase) {
    const double middle = (kReach - 1) / 2.0 + static_cast<double>(phase) / kPhases;
    for (int k = 0; k < kReach; ++k) {
      const double distance = std::abs(k + 0.5 - middle) * shortening;
      profile[static_cast<std::size_t>(phase)][static_cast<std::size_t>(k)] =
          to_byte(strip.coverage(static_cast<float>(distance)));
    }
  }
  return profile;
}

void LongSegments::add(Coverage& mask, double half_width, Vector from, Vector to,
                       Vector direction) {
  const bool is_steep = std::abs(direction.y) > std::abs(direction.x);
  Coverage& rows = is_steep ? mask : m_columns;
  const double slope = is_steep ? direction.x / direction.y : direction.y / direction.x;
  const Course course = is_steep ? course_of(from.y, to.y, from.x, slope, rows.height())
                                 : course_of(from.x, to.x, from.y, slope, rows.height());
  if (!(std::abs(course.at) < kFar)) return;
  const Profile& profile = profile_of(slope, half_width);
  // Fixed point, because a step has to find its pixel without asking the library to round. It is
  // that of the first pixel that the step looks at, at the nearest phase.
  constexpr double kToFirst = (kReach - 1) / 2.0 - 0.5 / kPhases;
  std::int64_t at = std::llround((course.at - kToFirst) * kUnit);
  const std::int64_t step = std::llround(course.slope * kUnit);
  for (int row = course.first; row < course.end; ++row, at += step) {
    const int left = static_cast<int>(at >> kFractionBits);
    const auto& covered =
        profile[static_cast<std::size_t>(at >> (kFractionBits - kPhaseBits)) % kPhases];
    std::uint8_t* const values = rows.row(row);
    if (left >= 0 && left + kReach <= rows.width()) {
      for (int k = 0; k < kReach; ++k) {
        values[left + k] = std::max(values[left + k], covered[static_cast<std::size_t>(k)]);
      }
      rows.touch(row, left, left + kReach);
      continue;
    }
    const int first = std::max(left, 0), end = std::min(left + kReach, rows.width());
    if (first >= end) continue;
    for (int x = first; x < end; ++x) {
      values[x] = std::max(values[x], covered[static_cast<std::size_t>(x - left)]);
    }
    rows.touch(row, first, end);
  }
}

void LongSegments::merge_into(Coverage& mask) {
  m_columns.for_each_touched([&mask](int column, int first, const std::uint8_t* values, int count) {
    for (int i = 0; i < count; ++i) {
      if (values[i] == 0) continue;
      std::uint8_t& value = mask.row(first + i)[column];
      value = std::max(value, values[i]);
      mask.touch(first + i, column, column + 1);
    }
  });
  m_columns.clear();
}

}  // namespace kurv::raster
