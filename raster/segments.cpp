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

// A segment in pixels: where it is near or inside the mask, and its direction of length one.
struct Segment {
  Vector from;
  Vector to;
  Vector direction;
};

double length_of(const Segment& segment) {
  return (segment.to.x - segment.from.x) * segment.direction.x +
         (segment.to.y - segment.from.y) * segment.direction.y;
}

// Adds the visible part of the segment. Everything within reach of it is at the same distance from
// the whole one: the part ends no nearer to the mask than the pen reaches.
class CapsuleFiller {
 public:
  CapsuleFiller(Coverage& mask, const Segment& segment, double half_width)
      : m_mask(mask),
        m_segment(segment),
        m_profile(half_width, segment.direction),
        m_round(half_width, segment.direction),
        m_reach(half_width + std::numbers::sqrt2 / 2),
        m_step{static_cast<float>(-segment.direction.y), static_cast<float>(-segment.direction.x),
               static_cast<float>(segment.direction.x)},
        m_length(length_of(segment)),
        m_body(m_length > 0 ? 0.0F : -1.0F),
        m_left(std::min(segment.from.x, segment.to.x) - m_reach),
        m_right(std::max(segment.from.x, segment.to.x) + m_reach) {
    // A level line is in reach from end to end of the few rows that it touches at all.
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

    // Across and along the line from its start, at the first pixel; steps from there are small
    // enough for single precision.
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
    // Whole lanes are raised, by as little as rounding leaves of what is out of reach.
    m_mask.touch(y, first, std::min(end + kLanes - 1, m_mask.width()));
  }

  // Where the middle of a pixel is, seen from the segment: how far off the line, before its start
  // and beyond its end.
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

  // The coverages of the pixels that begin `right` of a place.
  CoverageLanes lanes(CapsuleCoords at, int right) const {
    const CapsuleCoords first = moved(at, right), last = moved(at, right + kLanes - 1);
    const float past = std::max({first.before, first.beyond, last.before, last.beyond});
    std::array<float, kLanes> covered;
    if (past <= m_body) {
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

  // Beyond its ends the strip goes on as far as the pen is round. Not before them, where the round
  // ends begin to show already: at the joint with a segment that goes straight on they must not.
  float end_coverage(CapsuleCoords at) const {
    const float body = m_profile.coverage(std::abs(at.across));
    const float past = std::max(at.before, at.beyond);
    const float round = std::min(body, m_round.coverage(at.before, at.beyond, at.across));
    return past <= m_body ? body : round;
  }

  Coverage& m_mask;
  const Segment& m_segment;
  LineProfile m_profile;
  RoundCaps m_round;
  double m_reach;
  CapsuleCoords m_step;  // to the next pixel of a row
  double m_length;
  float m_body;  // what is no further past the ends is all strip
  double m_left;
  double m_right;
  double m_slope = 0;      // columns per row
  double m_row_reach = 0;  // how far from the line's crossing a row's pixels are in reach
};

std::optional<Segment> clipped_segment(const Coverage& mask, const Pen& pen, Point from, Point to) {
  if (has_nan(from) || has_nan(to)) return std::nullopt;
  const double scale = pen.pixels_per_unit;
  const double margin = (pen.half_width + 2) / scale;
  const Box box{{-margin, -margin},
                {mask.width() / scale + margin, mask.height() / scale + margin}};
  const std::optional<ClippedSegment> part = clip_segment(finite(from), finite(to), box);
  if (!part) return std::nullopt;
  return Segment{{part->from.x * scale, part->from.y * scale},
                 {part->to.x * scale, part->to.y * scale},
                 part->direction};
}

}  // namespace

void add_segment(Coverage& mask, const Pen& pen, Point from, Point to) {
  const std::optional<Segment> segment = clipped_segment(mask, pen, from, to);
  if (segment) CapsuleFiller(mask, *segment, pen.half_width).fill();
}

void add_segment(Coverage& mask, NarrowSegments& others, const Pen& pen, Point from, Point to) {
  const std::optional<Segment> segment = clipped_segment(mask, pen, from, to);
  if (!segment) return;
  if (NarrowSegments::supports(pen.half_width)) {
    others.add(mask, pen.half_width, segment->from, segment->to, segment->direction);
  } else {
    CapsuleFiller(mask, *segment, pen.half_width).fill();
  }
}

}  // namespace kurv::raster
