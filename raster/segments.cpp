#include <cmath>

#include "raster/geometry.h"
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
  CapsuleFiller(Coverage& mask, const Segment& segment, double reach)
      : m_mask(mask),
        m_segment(segment),
        m_reach(reach),
        m_length((segment.to.x - segment.from.x) * segment.direction.x +
                 (segment.to.y - segment.from.y) * segment.direction.y),
        m_left(std::min(segment.from.x, segment.to.x) - reach),
        m_right(std::max(segment.from.x, segment.to.x) + reach) {
    // A level line is in reach from end to end of the few rows that it touches at all.
    if (std::abs(segment.direction.y) > 1e-9) {
      m_slope = segment.direction.x / segment.direction.y;
      m_row_reach = reach / std::abs(segment.direction.y);
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
  void fill_row(int y) const {
    const double down = y + 0.5 - m_segment.from.y;
    const double middle = m_segment.from.x + down * m_slope;
    const int first = pixel_from(std::max(m_left, middle - m_row_reach), m_mask.width());
    const int end = pixel_from(std::min(m_right, middle + m_row_reach), m_mask.width());
    if (first >= end) return;

    // Across and along the line from its start, at the first pixel; steps from there are small
    // enough for single precision.
    const double right = first + 0.5 - m_segment.from.x;
    const auto across =
        static_cast<float>(down * m_segment.direction.x - right * m_segment.direction.y);
    const double along = right * m_segment.direction.x + down * m_segment.direction.y;
    const auto before = static_cast<float>(-along);
    const auto beyond = static_cast<float>(along - m_length);
    const auto step_across = static_cast<float>(-m_segment.direction.y);
    const auto step_along = static_cast<float>(m_segment.direction.x);
    const auto reach = static_cast<float>(m_reach);

    std::uint8_t* values = m_mask.row(y) + first;
    for (int i = 0; i < end - first; ++i) {
      const auto step = static_cast<float>(i);
      const float sideways = across + step * step_across;
      const float past_end =
          std::max(0.0F, std::max(before - step * step_along, beyond + step * step_along));
      const float distance = std::sqrt(sideways * sideways + past_end * past_end);
      values[i] = std::max(values[i], coverage_at(distance, reach));
    }
    m_mask.touch(y, first, end);
  }

  Coverage& m_mask;
  const Segment& m_segment;
  double m_reach;
  double m_length;
  double m_left;
  double m_right;
  double m_slope = 0;      // columns per row
  double m_row_reach = 0;  // how far from the line's crossing a row's pixels are in reach
};

}  // namespace

void add_segment(Coverage& mask, const Pen& pen, Point from, Point to) {
  if (has_nan(from) || has_nan(to)) return;
  const double scale = pen.pixels_per_unit;
  const double reach = pen.half_width + 0.5;
  const double margin = (reach + 1) / scale;
  const Box box{{-margin, -margin},
                {mask.width() / scale + margin, mask.height() / scale + margin}};
  const std::optional<VisiblePart> part = visible_part(finite(from), finite(to), box);
  if (!part) return;
  const Segment visible{{part->from.x * scale, part->from.y * scale},
                        {part->to.x * scale, part->to.y * scale},
                        part->direction};
  CapsuleFiller(mask, visible, reach).fill();
}

}  // namespace kurv::raster
