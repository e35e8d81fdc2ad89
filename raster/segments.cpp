#include <cmath>
#include <numbers>

#include "raster/geometry.h"
#include "raster/long_segments.h"
#include "raster/strip.h"
#include "raster/stroke_parts.h"
#include "raster/strokes.h"

namespace kurv::raster {
namespace {

// A segment in pixels: where it is near or inside the mask, and its direction of length one.
struct Segment {
  Vector from;
  Vector to;
  Vector direction;
};

// Adds the visible part of the segment. Everything within reach of it is at the same distance from
// the whole one: the part ends no nearer to the mask than the pen reaches.
class CapsuleFiller {
 public:
  // A segment that goes on has no round end, because something else is added there.
  CapsuleFiller(Coverage& mask, const Segment& segment, double half_width, bool goes_on = false)
      : m_mask(mask),
        m_segment(segment),
        m_strip(half_width, segment.direction),
        m_half_width(static_cast<float>(half_width)),
        m_quarter{static_cast<float>(segment.direction.x / 4),
                  static_cast<float>(segment.direction.y / 4)},
        m_reach(half_width + std::numbers::sqrt2 / 2),
        m_end_reach(static_cast<float>(m_reach)),
        m_goes_on(goes_on),
        m_length((segment.to.x - segment.from.x) * segment.direction.x +
                 (segment.to.y - segment.from.y) * segment.direction.y),
        m_left(std::min(segment.from.x, segment.to.x) - m_reach),
        m_right(std::max(segment.from.x, segment.to.x) + m_reach) {
    // A level line is in reach from end to end of the few rows that it touches at all.
    if (std::abs(segment.direction.y) > 1e-9) {
      m_slope = segment.direction.x / segment.direction.y;
      m_row_reach = m_strip.reach() / std::abs(segment.direction.y) + 1e-3;
    } else {
      m_row_reach = m_right - m_left;
    }
  }

  void fill() const {
    const double top = std::min(m_segment.from.y, m_segment.to.y) - m_reach;
    const double bottom = std::max(m_segment.from.y, m_segment.to.y) + m_reach;
    const int end = pixel_from(bottom, m_mask.height());
    for (int y = pixel_from(top, m_mask.height()); y < end; ++y) fill_row(y);
  }

 private:
  struct Span {
    int first;
    int end;
  };

  Span span(int y) const {
    const double middle = m_segment.from.x + (y + 0.5 - m_segment.from.y) * m_slope;
    return {pixel_from(std::max(m_left, middle - m_row_reach), m_mask.width()),
            pixel_from(std::min(m_right, middle + m_row_reach), m_mask.width())};
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
    const auto step_across = static_cast<float>(-m_segment.direction.y);
    const auto step_along = static_cast<float>(m_segment.direction.x);

    std::uint8_t* values = m_mask.row(y) + first;
    for (int i = 0; i < end - first; ++i) {
      const auto step = static_cast<float>(i);
      const Place place{across + step * step_across, before - step * step_along,
                        beyond + step * step_along};
      values[i] = std::max(values[i], to_byte(coverage(place)));
    }
    m_mask.touch(y, first, end);
  }

  // Where the middle of a pixel is, seen from the segment: how far off the line, before its start
  // and beyond its end.
  struct Place {
    float across;
    float before;
    float beyond;
  };

  // Beyond its ends the strip goes on as far as the pen is round. Not before them, where the round
  // ends begin to show already: at the joint with a segment that goes straight on they must not.
  float coverage(Place place) const {
    const float strip = m_strip.coverage(std::abs(place.across));
    const float past = std::max(place.before, place.beyond);
    if (past <= 0 && m_length > 0) return strip;
    if (strip <= 0 || past >= m_end_reach || (m_goes_on && place.beyond > 0)) return 0;
    const float sum = quarter(place, m_quarter.x + m_quarter.y, m_quarter.x - m_quarter.y) +
                      quarter(place, m_quarter.x - m_quarter.y, -m_quarter.x - m_quarter.y) +
                      quarter(place, -m_quarter.x + m_quarter.y, m_quarter.x + m_quarter.y) +
                      quarter(place, -m_quarter.x - m_quarter.y, -m_quarter.x + m_quarter.y);
    return std::min(strip, sum / 4);
  }

  // A quarter of the pixel, by the distance of its middle, which is that much further along the
  // segment and across it.
  float quarter(Place place, float along, float across) const {
    const float past = std::max({place.before - along, place.beyond + along, 0.0F});
    const float aside = place.across + across;
    const float distance = std::sqrt(past * past + aside * aside);
    return std::clamp((m_half_width - distance) * 2 + 0.5F, 0.0F, 1.0F);
  }

  struct Quarter {
    float x;
    float y;
  };

  Coverage& m_mask;
  const Segment& m_segment;
  Strip m_strip;
  float m_half_width;
  Quarter m_quarter;  // of a pixel, along the segment
  double m_reach;
  float m_end_reach;
  bool m_goes_on;
  double m_length;
  double m_left;
  double m_right;
  double m_slope = 0;      // columns per row
  double m_row_reach = 0;  // how far from the line's crossing a row's pixels are in reach
};

std::optional<Segment> visible_segment(const Coverage& mask, const Pen& pen, Point from, Point to) {
  if (has_nan(from) || has_nan(to)) return std::nullopt;
  const double scale = pen.pixels_per_unit;
  const double margin = (pen.half_width + 2) / scale;
  const Box box{{-margin, -margin},
                {mask.width() / scale + margin, mask.height() / scale + margin}};
  const std::optional<VisiblePart> part = visible_part(finite(from), finite(to), box);
  if (!part) return std::nullopt;
  return Segment{{part->from.x * scale, part->from.y * scale},
                 {part->to.x * scale, part->to.y * scale},
                 part->direction};
}

Vector moved(Vector point, Vector direction, double length) {
  return {point.x + direction.x * length, point.y + direction.y * length};
}

}  // namespace

void add_segment(Coverage& mask, const Pen& pen, Point from, Point to) {
  const std::optional<Segment> segment = visible_segment(mask, pen, from, to);
  if (segment) CapsuleFiller(mask, *segment, pen.half_width).fill();
}

// The ends are short segments of their own, and the middle covers what is round of them inside.
void add_segment(Coverage& mask, LongSegments& middles, const Pen& pen, Point from, Point to) {
  const std::optional<Segment> segment = visible_segment(mask, pen, from, to);
  if (!segment) return;
  constexpr double kLong = 24;
  const double length =
      std::hypot(segment->to.x - segment->from.x, segment->to.y - segment->from.y);
  if (!LongSegments::is_narrow(pen.half_width) || length < kLong) {
    return CapsuleFiller(mask, *segment, pen.half_width).fill();
  }
  const Vector direction = segment->direction;
  const double end = 2 * pen.half_width + 2;
  const Vector begin_middle = moved(segment->from, direction, end);
  const Vector end_middle = moved(segment->to, direction, -end);
  const Vector back{-direction.x, -direction.y};
  CapsuleFiller(mask, {segment->from, begin_middle, direction}, pen.half_width, true).fill();
  CapsuleFiller(mask, {segment->to, end_middle, back}, pen.half_width, true).fill();
  // It begins where the round part of each end does, or the gap between the two would show.
  middles.add(mask, pen.half_width, moved(begin_middle, direction, -pen.half_width - 1),
              moved(end_middle, direction, pen.half_width + 1), direction);
}

}  // namespace kurv::raster
