#include <algorithm>
#include <cmath>
#include <numbers>

#include "raster/coverage_lanes.h"
#include "raster/geometry.h"
#include "raster/line_profile.h"
#include "raster/narrow_segments.h"
#include "raster/round_caps.h"
#include "raster/stroke_math.h"
#include "raster/strokes.h"

namespace kurv::raster {
namespace {

// A clipped segment, in pixels, and its unit direction.
struct PixelSegment {
  Vector from;
  Vector to;
  Vector direction;
};

double length_of(const PixelSegment& segment) {
  return (segment.to.x - segment.from.x) * segment.direction.x +
         (segment.to.y - segment.from.y) * segment.direction.y;
}

// Adds a capsule: a segment with round caps. The segment may be clipped, because it was clipped
// further from the mask than the pen reaches, so the cap at such an end never shows.
class CapsuleFiller {
 public:
  CapsuleFiller(Coverage& mask, const PixelSegment& segment, double half_width)
      : m_mask(mask),
        m_segment(segment),
        m_profile(half_width, segment.direction),
        m_round(half_width, segment.direction),
        m_reach(half_width + std::numbers::sqrt2 / 2),
        m_step{static_cast<float>(-segment.direction.y), static_cast<float>(-segment.direction.x),
               static_cast<float>(segment.direction.x)},
        m_length(length_of(segment)),
        m_body_limit(m_length > 0 ? 0.0F : -1.0F),
        m_left(std::min(segment.from.x, segment.to.x) - m_reach),
        m_right(std::max(segment.from.x, segment.to.x) + m_reach) {
    // A horizontal segment is in reach along its whole length in the few rows that it touches.
    if (std::abs(segment.direction.y) > 1e-9) {
      m_slope = segment.direction.x / segment.direction.y;
      m_row_reach = m_profile.reach() / std::abs(segment.direction.y) + 1e-3;
    } else {
      m_row_reach = m_right - m_left;
    }
  }

  void fill() const {
    const double top = std::min(m_segment.from.y, m_segment.to.y) - m_reach;
    const double bottom = std::max(m_segment.from.y, m_segment.to.y) + m_reach;
    const int end = first_pixel_from(bottom, m_mask.height());
    for (int y = first_pixel_from(top, m_mask.height()); y < end; ++y) fill_row(y);
  }

 private:
  struct Span {
    int first;
    int end;
  };

  Span span(int y) const {
    const double middle = m_segment.from.x + (y + 0.5 - m_segment.from.y) * m_slope;
    return {first_pixel_from(std::max(m_left, middle - m_row_reach), m_mask.width()),
            first_pixel_from(std::min(m_right, middle + m_row_reach), m_mask.width())};
  }

  void fill_row(int y) const {
    const auto [first, end] = span(y);
    if (first >= end) return;

    // The first pixel relative to the start of the segment. From there on steps are small enough
    // for single precision.
    const double down = y + 0.5 - m_segment.from.y;
    const double right = first + 0.5 - m_segment.from.x;
    const auto across =
        static_cast<float>(down * m_segment.direction.x - right * m_segment.direction.y);
    const double along = right * m_segment.direction.x + down * m_segment.direction.y;
    const auto before = static_cast<float>(-along);
    const auto beyond = static_cast<float>(along - m_length);
    const CapsuleCoords start{across, before, beyond};

    std::uint8_t* const values = m_mask.row(y) + first;
    for (int i = 0; i < end - first; i += kLanes) raise(values + i, lanes(start, i));
    // All eight lanes are written; beyond the reach the values are at most rounding errors.
    m_mask.touch(y, first, std::min(end + kLanes - 1, m_mask.width()));
  }

  // The centre of a pixel in the frame of the segment: its distance from the line, before the start
  // and beyond the end.
  struct CapsuleCoords {
    float across;
    float before;
    float beyond;
  };
  CapsuleCoords moved(CapsuleCoords at, int right) const {
    const auto step = static_cast<float>(right);
    return {at.across + step * m_step.across, at.before + step * m_step.before,
            at.beyond + step * m_step.beyond};
  }

  // The coverages of eight pixels, the first of which is `right` pixels to the right of `at`.
  CoverageLanes lanes(CapsuleCoords at, int right) const {
    const CapsuleCoords first = moved(at, right), last = moved(at, right + kLanes - 1);
    const float past = std::max({first.before, first.beyond, last.before, last.beyond});
    std::array<float, kLanes> covered;
    if (past <= m_body_limit) {
      for (int k = 0; k < kLanes; ++k) {
        const CapsuleCoords pixel = moved(at, right + k);
        covered[static_cast<std::size_t>(k)] = m_profile.coverage(std::abs(pixel.across));
      }
    } else {
      for (int k = 0; k < kLanes; ++k) {
        covered[static_cast<std::size_t>(k)] = end_coverage(moved(at, right + k));
      }
    }
    return to_bytes(covered);
  }

  // A pixel whose centre is past an end gets the coverage of the cap; one before it that of an
  // infinite line. The cap would cover less there, which would show as a notch where the next
  // segment goes straight on.
  float end_coverage(CapsuleCoords at) const {
    const float body = m_profile.coverage(std::abs(at.across));
    const float past = std::max(at.before, at.beyond);
    const float round = std::min(body, m_round.coverage(at.before, at.beyond, at.across));
    return past <= m_body_limit ? body : round;
  }

  Coverage& m_mask;
  const PixelSegment& m_segment;
  LineProfile m_profile;
  RoundCaps m_round;
  double m_reach;
  CapsuleCoords m_step;  // to the next pixel of a row
  double m_length;
  // Pixels no further past the ends than this are covered as by an infinite line.
  float m_body_limit;
  double m_left;
  double m_right;
  double m_slope = 0;      // columns per row
  double m_row_reach = 0;  // the half width of the stroke along a row
};

std::optional<PixelSegment> clipped_segment(const Coverage& mask, const Pen& pen, Point from,
                                            Point to) {
  if (has_nan(from) || has_nan(to)) return std::nullopt;
  const double scale = pen.pixels_per_unit;
  const double margin = (pen.half_width + 2) / scale;
  const Box box{{-margin, -margin},
                {mask.width() / scale + margin, mask.height() / scale + margin}};
  const std::optional<ClippedSegment> part = clip_segment(finite(from), finite(to), box);
  if (!part) return std::nullopt;
  return PixelSegment{{part->from.x * scale, part->from.y * scale},
                      {part->to.x * scale, part->to.y * scale},
                      part->direction};
}

}  // namespace

void add_segment(Coverage& mask, const Pen& pen, Point from, Point to) {
  const std::optional<PixelSegment> segment = clipped_segment(mask, pen, from, to);
  if (segment) CapsuleFiller(mask, *segment, pen.half_width).fill();
}

void add_segment(Coverage& mask, NarrowSegments& narrow, const Pen& pen, Point from, Point to) {
  const std::optional<PixelSegment> segment = clipped_segment(mask, pen, from, to);
  if (!segment) return;
  if (NarrowSegments::supports(pen.half_width)) {
    narrow.add(mask, pen.half_width, segment->from, segment->to, segment->direction);
  } else {
    CapsuleFiller(mask, *segment, pen.half_width).fill();
  }
}

}  // namespace kurv::raster
