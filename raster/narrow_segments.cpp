#include "raster/narrow_segments.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "raster/coverage_lanes.h"
#include "raster/line_profile.h"
#include "raster/round_caps.h"
#include "raster/row_dda.h"
#include "raster/stroke_math.h"

namespace kurv::raster {
namespace {

// How many of the eight pixels a line of the pen can touch, counted from the first.
struct ThinPen {
  static constexpr double kWidest = 0.6;  // half of it
  static constexpr int kPixels = 4;
};
struct AnyPen {
  static constexpr int kPixels = kLanes;
};

// The distance from the left edge of the first of the eight pixels to the middle of the line, at
// phase 0.
double middle_offset(double half_width) {
  return ((half_width <= ThinPen::kWidest ? ThinPen::kPixels : AnyPen::kPixels) - 1) / 2.0;
}

// The centre of a pixel in the frame of a segment: across the line and along it. From there on
// steps are small enough for single precision.
struct LineCoords {
  float across;
  double along;
};

LineCoords line_coords(Vector from, Vector direction, int left, int row) {
  const double right = left + 0.5 - from.x, down = row + 0.5 - from.y;
  return {static_cast<float>(down * direction.x - right * direction.y),
          right * direction.x + down * direction.y};
}

// The coverages of eight pixels of a row by an infinitely long line.
template <class PenKind>
class InfiniteLine {
 public:
  InfiniteLine(double half_width, Vector through, Vector direction)
      : m_through(through),
        m_direction(direction),
        m_step(static_cast<float>(-direction.y)),
        m_profile(half_width, direction) {}

  CoverageLanes lanes(int left, int row) const {
    const LineCoords at = line_coords(m_through, m_direction, left, row);
    std::array<float, kLanes> covered{};
#pragma GCC unroll 1  // else g++ unrolls it into scalar code instead of vectorising it
    for (int k = 0; k < PenKind::kPixels; ++k) {
      const float across = at.across + static_cast<float>(k) * m_step;
      covered[static_cast<std::size_t>(k)] = m_profile.coverage(std::abs(across));
    }
    return to_bytes(covered);
  }

 private:
  Vector m_through;
  Vector m_direction;
  float m_step;
  LineProfile m_profile;
};

// Limits the coverages of eight pixels of a row to a stroke with round caps. A pixel whose centre
// is not past an end keeps its coverage: the cap would cover less there, which would show as a
// notch where the next segment goes straight on.
template <class PenKind>
class CapClipper {
 public:
  CapClipper(double half_width, Vector from, Vector direction, double length)
      : m_from(from),
        m_direction(direction),
        m_length(length),
        m_x(static_cast<float>(direction.x)),
        m_y(static_cast<float>(direction.y)),
        m_body_limit(length > 0 ? 0.0F : -1.0F),
        m_round(half_width, direction) {}

  CoverageLanes clip(const CoverageLanes& body, int left, int row) const {
    const LineCoords at = line_coords(m_from, m_direction, left, row);
    const auto first_before = static_cast<float>(-at.along);
    const auto first_beyond = static_cast<float>(at.along - m_length);
    std::array<float, kLanes> kept{};
#pragma GCC unroll 1  // else g++ unrolls it into scalar code instead of vectorising it
    for (int k = 0; k < PenKind::kPixels; ++k) {
      const auto step = static_cast<float>(k);
      const float before = first_before - step * m_x, beyond = first_beyond + step * m_x;
      const float round = m_round.coverage(before, beyond, at.across - step * m_y);
      kept[static_cast<std::size_t>(k)] = std::max(before, beyond) <= m_body_limit ? 1 : round;
    }
    CoverageLanes covered = to_bytes(kept);
    for (std::size_t k = 0; k < kLanes; ++k) covered[k] = std::min(body[k], covered[k]);
    return covered;
  }

 private:
  Vector m_from;
  Vector m_direction;
  double m_length;
  float m_x;
  float m_y;
  float m_body_limit;  // pixels no further past the ends than this keep their coverage
  RoundCaps m_round;
};

// Walks a DDA from row to row.
class RowStepper {
 public:
  RowStepper(Coverage& mask, const RowDda& dda)
      : m_values(mask.row(dda.first)),
        m_stride(mask.stride()),
        m_row(dda.first),
        m_at(dda.at),
        m_step(dda.step) {}

  // Raises the pixels of the rows before `end` to lanes_at(fixed-point position, first pixel, row).
  // `lanes_at` is passed by value, so that the compiler knows that no write to a pixel changes it.
  template <class LanesAt>
  void raise_until(int end, LanesAt lanes_at) {
    for (; m_row < end; ++m_row, m_at += m_step, m_values += m_stride) {
      const int left = RowDda::left_of(m_at);
      raise(m_values + left, lanes_at(m_at, left, m_row));
    }
  }

 private:
  std::uint8_t* m_values;
  std::ptrdiff_t m_stride;
  int m_row;
  std::int64_t m_at;
  std::int64_t m_step;
};

Vector transposed(Vector vector) {
  return {vector.y, vector.x};
}

}  // namespace

// The profile for a slope, by the phase of the line within its pixel.
const NarrowSegments::ProfileTable& NarrowSegments::profile_table(double slope, double half_width) {
  if (half_width != m_half_width) {
    m_half_width = half_width;
    m_has_table.assign(m_has_table.size(), false);
  }
  const auto index = static_cast<std::size_t>(std::abs(slope) * kSlopes + 0.5);
  ProfileTable& table = m_tables[index];
  if (m_has_table[index]) return table;
  m_has_table[index] = true;
  const double rounded = static_cast<double>(index) / kSlopes;
  const double shortening = 1 / std::sqrt(1 + rounded * rounded);
  const LineProfile profile(half_width, {shortening, rounded * shortening});
  for (int phase = 0; phase < RowDda::kPhases; ++phase) {
    const double middle = middle_offset(half_width) + static_cast<double>(phase) / RowDda::kPhases;
    for (int k = 0; k < kLanes; ++k) {
      const double distance = std::abs(k + 0.5 - middle) * shortening;
      table[static_cast<std::size_t>(phase)][static_cast<std::size_t>(k)] =
          to_byte(profile.coverage(static_cast<float>(distance)));
    }
  }
  return table;
}

void NarrowSegments::add(Coverage& mask, double half_width, Vector from, Vector to,
                         Vector direction) {
  const bool is_steep = std::abs(direction.y) > std::abs(direction.x);
  SteepSegment segment =
      is_steep ? SteepSegment{from, to, direction, half_width}
               : SteepSegment{transposed(from), transposed(to), transposed(direction), half_width};
  if (segment.direction.y < 0) {
    std::swap(segment.from, segment.to);
    segment.direction = {-segment.direction.x, -segment.direction.y};
  }
  Coverage& rows = is_steep ? mask : m_transposed;
  if (half_width <= ThinPen::kWidest) {
    add_steep<ThinPen>(rows, segment);
  } else {
    add_steep<AnyPen>(rows, segment);
  }
}

template <class PenKind>
void NarrowSegments::add_steep(Coverage& mask, const SteepSegment& segment) {
  const auto& [from, to, direction, half_width] = segment;
  const double reach = half_width + std::numbers::sqrt2 / 2;
  const double slope = direction.x / direction.y;
  const RowDda dda = make_row_dda(from.y - reach, to.y + reach,
                                  {from.x - middle_offset(half_width), from.y}, slope, mask);
  if (dda.first >= dda.end) return;
  touch(mask, dda);
  // Within this many rows of an end, a row has pixels before the end and past it.
  const double mixed = reach * std::abs(direction.x);
  const auto row_from = [&](double y) {
    return std::clamp(first_pixel_from(y, mask.height()), dda.first, dda.end);
  };
  const int begun = row_from(from.y + mixed), ending = row_from(to.y - mixed);
  const double length = (to.y - from.y) / direction.y;
  const CapClipper<PenKind> caps(half_width, from, direction, length);
  RowStepper stepper(mask, dda);
  const auto draw = [&](const auto& body) {
    const auto clipped = [caps, body](std::int64_t at, int left, int row) {
      return caps.clip(body(at, left, row), left, row);
    };
    stepper.raise_until(begun, clipped);
    stepper.raise_until(ending, body);
    stepper.raise_until(dda.end, clipped);
  };
  if (length < kTableLength) {
    const InfiniteLine<PenKind> line(half_width, from, direction);
    return draw([line](std::int64_t, int left, int row) { return line.lanes(left, row); });
  }
  const CoverageLanes* const table = profile_table(slope, half_width).data();
  draw([table](std::int64_t at, int, int) { return table[RowDda::phase_of(at)]; });
}

void NarrowSegments::merge_into(Coverage& mask) {
  m_transposed.for_each_touched([this, &mask](int left, int top, int bottom) {
    const int right = std::min(left + Coverage::kBand, m_transposed.height());
    for (int x = left; x < right; x += kLanes) {
      // From a multiple of eight on, so that no block is in two bands of the mask.
      for (int y = top & -kLanes; y < bottom; y += kLanes) merge_block(mask, x, y);
    }
  });
  m_transposed.clear();
}

// Transposes a block of eight by eight pixels into the mask.
void NarrowSegments::merge_block(Coverage& mask, int x, int y) {
  bool is_empty = true;
  for (int i = 0; i < kLanes; ++i) is_empty = all_zero(m_transposed.row(x + i) + y) && is_empty;
  if (is_empty) return;
  std::array<CoverageLanes, kLanes> block;
  for (int i = 0; i < kLanes; ++i) {
    const std::uint8_t* const column = m_transposed.row(x + i) + y;
    for (std::size_t k = 0; k < kLanes; ++k) block[k][static_cast<std::size_t>(i)] = column[k];
  }
  const int rows = std::min(kLanes, mask.height() - y);
  for (int k = 0; k < rows; ++k) raise(mask.row(y + k) + x, block[static_cast<std::size_t>(k)]);
  mask.touch(y, x, std::min(x + kLanes, mask.width()));
}

}  // namespace kurv::raster
