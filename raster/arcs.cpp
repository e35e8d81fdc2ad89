#include <cmath>
#include <numbers>

#include "raster/geometry.h"
#include "raster/stroke_math.h"
#include "raster/strokes.h"

namespace kurv::raster {
namespace {

// Whether a pixel is in the sector of an arc. Each bound is a line through the centre, whose value
// is positive on the side of larger angles.
class Sector {
 public:
  // Every direction.
  Sector() = default;

  // From `start` on, anticlockwise, by a sweep of less than a full turn; the centre is in pixels.
  Sector(double centre_x, double centre_y, double start, double sweep)
      : m_start(through(centre_x, centre_y, start)),
        m_end(through(centre_x, centre_y, start + sweep)),
        m_kind(sweep <= std::numbers::pi ? Kind::kBothSides : Kind::kEitherSide) {}

  bool contains(double x, double y) const {
    if (m_kind == Kind::kWhole) return true;
    const bool after_start = m_start.value_at(x, y) >= 0;
    const bool before_end = m_end.value_at(x, y) <= 0;
    return m_kind == Kind::kBothSides ? after_start && before_end : after_start || before_end;
  }

 private:
  enum class Kind { kWhole, kBothSides, kEitherSide };

  struct HalfPlane {
    double a = 0, b = 0, c = 0;
    double value_at(double x, double y) const { return a * x + b * y + c; }
  };

  // The surface's y axis points down.
  static HalfPlane through(double x, double y, double angle) {
    const double a = -std::sin(angle);
    const double b = -std::cos(angle);
    return {a, b, -(a * x + b * y)};
  }

  HalfPlane m_start;
  HalfPlane m_end;
  Kind m_kind = Kind::kWhole;
};

// The chord of a circle along a row; empty if left > right.
struct Chord {
  double left = 1;
  double right = 0;
};

// Adds a circle's outline or a part of it. It computes with the power of a point, d^2 - r^2 for a
// point at distance d from the centre: unlike the distance, that does not lose its precision where
// the circle is very large.
class RingFiller {
 public:
  RingFiller(Coverage& mask, const Pen& pen, Point centre, float radius, const Sector& sector)
      : m_mask(mask),
        m_sector(sector),
        m_reach(pen.half_width + 0.5),
        m_x(centre.x * pen.pixels_per_unit),
        m_y(centre.y * pen.pixels_per_unit),
        m_radius(radius * pen.pixels_per_unit),
        m_power(power_of_origin(centre, radius) * pen.pixels_per_unit * pen.pixels_per_unit),
        m_top((static_cast<double>(centre.y) - radius) * pen.pixels_per_unit - m_reach),
        m_bottom((static_cast<double>(centre.y) + radius) * pen.pixels_per_unit + m_reach) {}

  void fill() const {
    const int end = first_pixel_from(m_bottom, m_mask.height());
    for (int y = first_pixel_from(m_top, m_mask.height()); y < end; ++y) fill_row(y);
  }

 private:
  void fill_row(int y) const {
    const double row_power = (y + 0.5) * (y + 0.5 - 2 * m_y) + m_power;
    const Chord outer = chord(row_power, m_reach);
    if (outer.left > outer.right) return;
    const Chord hole = m_radius > m_reach ? chord(row_power, -m_reach) : Chord{};
    if (hole.left > hole.right) {
      fill_span(y, row_power, outer.left, outer.right);
    } else {
      fill_span(y, row_power, outer.left, hole.left);
      fill_span(y, row_power, hole.right, outer.right);
    }
  }

  // The chord of the circle with `widening` added to its radius. The root of larger magnitude is
  // computed first and the other one from their product, which avoids cancellation.
  Chord chord(double row_power, double widening) const {
    const double product = row_power - widening * (2 * m_radius + widening);
    const double under_root = m_x * m_x - product;
    if (under_root < 0) return {};
    const double far = m_x + std::copysign(std::sqrt(under_root), m_x);
    const double near = far == 0 ? 0 : product / far;
    return {std::min(near, far), std::max(near, far)};
  }

  void fill_span(int y, double row_power, double left, double right) const {
    const int first = first_pixel_from(left, m_mask.width());
    const int end = first_pixel_from(right, m_mask.width());
    if (first >= end) return;
    std::uint8_t* values = m_mask.row(y);
    const double radius_squared = m_radius * m_radius;
    for (int i = first; i < end; ++i) {
      const double x = i + 0.5;
      const double power = x * (x - 2 * m_x) + row_power;
      const double from_centre = std::sqrt(std::max(0.0, power + radius_squared));
      const double divisor = from_centre + m_radius;
      const double distance = divisor > 0 ? std::abs(power / divisor) : 0;
      if (m_sector.contains(x, y + 0.5)) {
        values[i] = std::max(values[i], coverage_at(distance, m_reach));
      }
    }
    m_mask.touch(y, first, end);
  }

  Coverage& m_mask;
  const Sector& m_sector;
  double m_reach;
  double m_x;
  double m_y;
  double m_radius;
  double m_power;  // of the top-left corner of the mask
  double m_top;
  double m_bottom;
};

constexpr double kFullTurn = 2 * std::numbers::pi;

// A circle of radius zero: its coverage is computed as that of the arc, so the two join without an
// edge.
void add_dot(Coverage& mask, const Pen& pen, double x, double y) {
  constexpr double kMaxFloat = FLT_MAX;
  const Point at{static_cast<float>(std::clamp(x, -kMaxFloat, kMaxFloat)),
                 static_cast<float>(std::clamp(y, -kMaxFloat, kMaxFloat))};
  RingFiller(mask, pen, at, 0, Sector()).fill();
}

}  // namespace

void add_circle(Coverage& mask, const Pen& pen, Point centre, float radius) {
  if (has_nan(centre) || !(radius >= 0)) return;
  centre = finite(centre);
  if (radius == 0) return add_segment(mask, pen, centre, centre);
  RingFiller(mask, pen, centre, finite(radius), Sector()).fill();
}

void add_arc(Coverage& mask, const Pen& pen, Point centre, float radius, float start, float end) {
  if (std::isnan(start) || std::isnan(end)) return;
  const double sweep = sweep_of(finite(start), finite(end));
  if (!(radius > 0) || sweep >= kFullTurn) return add_circle(mask, pen, centre, radius);
  if (has_nan(centre)) return;
  centre = finite(centre);
  radius = finite(radius);

  // Reduced to less than a full turn: added to a large angle, a small sweep would be rounded away.
  const double from = std::fmod(finite(start), kFullTurn);
  // A sector of width zero would also contain the opposite direction.
  if (sweep > 1e-12) {
    const double scale = pen.pixels_per_unit;
    const Sector sector(centre.x * scale, centre.y * scale, from, sweep);
    RingFiller(mask, pen, centre, radius, sector).fill();
  }
  // The round caps. One half of each dot is inside the ring.
  for (const double angle : {from, from + sweep}) {
    add_dot(mask, pen, centre.x + radius * std::cos(angle), centre.y - radius * std::sin(angle));
  }
}

}  // namespace kurv::raster
