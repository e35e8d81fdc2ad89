// What is visible of a segment, exact however far away its ends are.
#pragma once

#include <algorithm>
#include <cmath>
#include <optional>

#include "raster/strokes.h"

namespace kurv::raster {

struct Vector {
  double x = 0;
  double y = 0;
};

// A straight line in the caller's units: a x + b y + c = 0.
//
// A product of two singles is exact in a double. So c, the one term in which large numbers cancel,
// is rounded once, and a point on the line comes out right when the ends are 1e38 away.
struct LineEquation {
  double a, b, c;

  double y_at(double x) const { return -(a * x + c) / b; }
  double x_at(double y) const { return -(b * y + c) / a; }
};

inline LineEquation line_through(Point p, Point q) {
  const double px = p.x, py = p.y, qx = q.x, qy = q.y;
  return {py - qy, qx - px, px * qy - qx * py};
}

// The point of the segment that is nearest to `end` and, along the direction in which the line runs
// most, not outside low..high.
inline Vector clipped_end(const LineEquation& line, Point end, Vector low, Vector high) {
  if (std::abs(line.b) >= std::abs(line.a)) {
    if (end.x < low.x) return {low.x, line.y_at(low.x)};
    if (end.x > high.x) return {high.x, line.y_at(high.x)};
  } else {
    if (end.y < low.y) return {line.x_at(low.y), low.y};
    if (end.y > high.y) return {line.x_at(high.y), high.y};
  }
  return {end.x, end.y};
}

inline bool outside(float first, float second, double low, double high) {
  return std::max(first, second) < low || std::min(first, second) > high;
}

// A rectangle in the caller's units.
struct Window {
  Vector low;
  Vector high;
};

struct VisiblePart {
  Vector from;
  Vector to;
  Vector direction;  // of length one; to the right where the segment has no length
};

// The part of a segment between finite points that may be visible through the window: it ends,
// along the direction in which the line runs most, at its edges at the latest. Nothing where none
// is.
inline std::optional<VisiblePart> visible_part(Point from, Point to, const Window& window) {
  const auto [low, high] = window;
  if (outside(from.x, to.x, low.x, high.x) || outside(from.y, to.y, low.y, high.y)) {
    return std::nullopt;
  }
  const LineEquation line = line_through(from, to);
  const double length = std::sqrt(line.a * line.a + line.b * line.b);
  const Vector direction = length > 0 ? Vector{line.b / length, -line.a / length} : Vector{1, 0};
  return VisiblePart{clipped_end(line, from, low, high), clipped_end(line, to, low, high),
                     direction};
}

}  // namespace kurv::raster
