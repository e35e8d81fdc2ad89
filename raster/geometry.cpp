#include "raster/geometry.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <numbers>

#include "raster/stroke_math.h"

namespace kurv::raster {
namespace {

// A straight line in the caller's units: a x + b y + c = 0.
//
// The product of two floats is exact in a double. So c, the only term in which large numbers
// cancel, is rounded once, and points on the line are accurate also where the ends are 1e38 away.
struct LineEquation {
  double a, b, c;

  double y_at(double x) const { return -(a * x + c) / b; }
  double x_at(double y) const { return -(b * y + c) / a; }
};

LineEquation line_through(Point p, Point q) {
  const double px = p.x, py = p.y, qx = q.x, qy = q.y;
  return {py - qy, qx - px, px * qy - qx * py};
}

// Clips an end along the major axis of the line: the point of the segment nearest to `end` whose
// coordinate on that axis is in low..high.
Vector clipped_end(const LineEquation& line, Point end, Vector low, Vector high) {
  if (std::abs(line.b) >= std::abs(line.a)) {
    if (end.x < low.x) return {low.x, line.y_at(low.x)};
    if (end.x > high.x) return {high.x, line.y_at(high.x)};
  } else {
    if (end.y < low.y) return {line.x_at(low.y), low.y};
    if (end.y > high.y) return {line.x_at(high.y), high.y};
  }
  return {end.x, end.y};
}

bool outside(double first, double second, double low, double high) {
  return std::max(first, second) < low || std::min(first, second) > high;
}

template <class Ends>
bool misses(const Ends& from, const Ends& to, const Box& box) {
  return outside(from.x, to.x, box.low.x, box.high.x) ||
         outside(from.y, to.y, box.low.y, box.high.y);
}

struct TwoParts {
  double sum, error;
};

// The error-free transformation of a sum (Knuth's TwoSum): sum + error is exactly a + b.
TwoParts exact_sum(double a, double b) {
  const double sum = a + b;
  const double b_part = sum - a;
  return {sum, (a - (sum - b_part)) + (b - b_part)};
}

}  // namespace

Point finite(Point point) {
  return {finite(point.x), finite(point.y)};
}

bool has_nan(Point point) {
  return std::isnan(point.x) || std::isnan(point.y);
}

std::optional<ClippedSegment> clip_segment(Point from, Point to, const Box& box) {
  if (misses(from, to, box)) return std::nullopt;
  const LineEquation line = line_through(from, to);
  const double length = std::sqrt(line.a * line.a + line.b * line.b);
  const ClippedSegment part{clipped_end(line, from, box.low, box.high),
                            clipped_end(line, to, box.low, box.high),
                            length > 0 ? Vector{line.b / length, -line.a / length} : Vector{1, 0}};
  // A line may pass a corner at a distance although its bounds meet the box.
  if (misses(part.from, part.to, box)) return std::nullopt;
  return part;
}

// The squares of floats are exact in a double, and the rounding errors of the sums are added back:
// the visible part of a circle of 1e30 units is accurate to a pixel.
double power_of_origin(Point centre, float radius) {
  const double x = centre.x, y = centre.y, r = radius;
  const TwoParts first = exact_sum(x * x, -(r * r));
  const TwoParts second = exact_sum(first.sum, y * y);
  return second.sum + (first.error + second.error);
}

double sweep_of(float start, float end) {
  constexpr double kFullTurn = 2 * std::numbers::pi;
  const double from = start, to = end;
  return to >= from ? to - from : kFullTurn - std::fmod(from - to, kFullTurn);
}

}  // namespace kurv::raster
