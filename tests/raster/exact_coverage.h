// A slow reference rasteriser of strokes with round caps.
//
// The union of the strokes is sampled on 64 vertical lines in each pixel, on each of which it is a
// few intervals that are known exactly. Differences are in 1/255.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <ostream>
#include <utility>
#include <vector>

#include "raster/strokes.h"

namespace kurv::raster {

// In pixels.
struct Stroke {
  double from_x;
  double from_y;
  double to_x;
  double to_y;
};

namespace exact {

// Holds the difference of two products of floats exactly.
using Wide = __float128;

struct WidePoint {
  Wide x;
  Wide y;
};

// The point on the line through p and q whose major coordinate, x if `by_x`, is `at`.
inline WidePoint on_line(WidePoint p, WidePoint q, bool by_x, double at) {
  const Wide a = p.y - q.y, b = q.x - p.x, c = p.x * q.y - q.x * p.y;
  if (by_x) return {at, -(a * at + c) / b};
  return {-(b * at + c) / a, at};
}

struct Interval {
  double low = std::numeric_limits<double>::infinity();
  double high = -std::numeric_limits<double>::infinity();

  void include(double value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
};

inline void include_disc(Interval& interval, double x, double y, double radius, double at) {
  const double away = std::abs(at - x);
  if (away > radius) return;
  const double half = std::sqrt(radius * radius - away * away);
  interval.include(y - half);
  interval.include(y + half);
}

inline void include_edge(Interval& interval, double ax, double ay, double bx, double by,
                         double at) {
  if (std::min(ax, bx) > at || std::max(ax, bx) < at) return;
  if (ax == bx) {
    interval.include(ay);
    interval.include(by);
    return;
  }
  interval.include(ay + (at - ax) / (bx - ax) * (by - ay));
}

// The intersection of the stroke with the vertical line at x = `at`: the stroke is convex, so it is
// one interval.
inline Interval interval_of(const Stroke& stroke, double half_width, double at) {
  Interval interval;
  const auto [ax, ay, bx, by] = stroke;
  if (std::min(ax, bx) - half_width > at || std::max(ax, bx) + half_width < at) return interval;
  include_disc(interval, ax, ay, half_width, at);
  include_disc(interval, bx, by, half_width, at);
  const double length = std::hypot(bx - ax, by - ay);
  if (length == 0) return interval;
  const double nx = -(by - ay) / length * half_width, ny = (bx - ax) / length * half_width;
  include_edge(interval, ax + nx, ay + ny, bx + nx, by + ny, at);
  include_edge(interval, ax - nx, ay - ny, bx - nx, by - ny, at);
  include_edge(interval, ax - nx, ay - ny, ax + nx, ay + ny, at);
  include_edge(interval, bx - nx, by - ny, bx + nx, by + ny, at);
  return interval;
}

}  // namespace exact

// The part of a segment near a picture, in pixels, exact to the precision of a double. The ends may
// be 1e38 away.
inline Stroke near_stroke(const Pen& pen, Point from, Point to, int width, int height) {
  const exact::Wide scale = pen.pixels_per_unit;
  const exact::WidePoint p{from.x * scale, from.y * scale}, q{to.x * scale, to.y * scale};
  const double dx = std::abs(static_cast<double>(q.x - p.x));
  const double dy = std::abs(static_cast<double>(q.y - p.y));
  const bool by_x = dx >= dy;
  const double margin = 2 * pen.half_width + 200;
  const double high = (by_x ? width : height) + margin;
  const auto clipped = [&](exact::WidePoint end) {
    const exact::Wide along = by_x ? end.x : end.y;
    if (dx == 0 && dy == 0) return end;
    if (along < -margin) return exact::on_line(p, q, by_x, -margin);
    if (along > high) return exact::on_line(p, q, by_x, high);
    return end;
  };
  const exact::WidePoint a = clipped(p), b = clipped(q);
  return {static_cast<double>(a.x), static_cast<double>(a.y), static_cast<double>(b.x),
          static_cast<double>(b.y)};
}

class ExactCoverage {
 public:
  ExactCoverage(int width, int height, double half_width, std::vector<Stroke> strokes)
      : m_width(width),
        m_height(height),
        m_half_width(half_width),
        m_covered(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
    // Steep strokes are transposed: their edges would fall between the sample lines.
    m_is_transposed = std::all_of(strokes.begin(), strokes.end(), [](const Stroke& stroke) {
      return std::abs(stroke.to_y - stroke.from_y) > std::abs(stroke.to_x - stroke.from_x);
    });
    if (m_is_transposed) {
      for (Stroke& stroke : strokes) {
        std::swap(stroke.from_x, stroke.from_y);
        std::swap(stroke.to_x, stroke.to_y);
      }
    }
    for (int column = 0; column < columns(); ++column) cover_column(strokes, column);
  }

  // 0..255.
  double at(int x, int y) const { return 255 * m_covered[place(x, y)]; }

 private:
  static constexpr int kLines = 64;  // per pixel

  int columns() const { return m_is_transposed ? m_height : m_width; }
  int rows() const { return m_is_transposed ? m_width : m_height; }
  std::size_t place(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) +
           static_cast<std::size_t>(x);
  }

  void cover_column(const std::vector<Stroke>& strokes, int column) {
    std::vector<Stroke> close;
    for (const Stroke& stroke : strokes) {
      if (std::min(stroke.from_x, stroke.to_x) - m_half_width > column + 1) continue;
      if (std::max(stroke.from_x, stroke.to_x) + m_half_width < column) continue;
      close.push_back(stroke);
    }
    for (int line = 0; line < kLines; ++line) cover_line(close, column, (line + 0.5) / kLines);
  }

  void cover_line(const std::vector<Stroke>& strokes, int column, double within) {
    std::vector<exact::Interval> intervals;
    for (const Stroke& stroke : strokes) {
      const exact::Interval interval = exact::interval_of(stroke, m_half_width, column + within);
      if (interval.low < interval.high) intervals.push_back(interval);
    }
    std::sort(intervals.begin(), intervals.end(),
              [](const auto& a, const auto& b) { return a.low < b.low; });
    double done = 0;
    for (const exact::Interval& interval : intervals) {
      const double low = std::max(interval.low, done);
      const double high = std::min<double>(interval.high, rows());
      if (low >= high) continue;
      cover_rows(column, low, high);
      done = high;
    }
  }

  void cover_rows(int column, double low, double high) {
    for (int row = static_cast<int>(low); row < std::min(rows(), static_cast<int>(high) + 1);
         ++row) {
      const double part = std::min<double>(high, row + 1) - std::max<double>(low, row);
      m_covered[m_is_transposed ? place(row, column) : place(column, row)] += part / kLines;
    }
  }

  int m_width;
  int m_height;
  double m_half_width;
  bool m_is_transposed = false;
  std::vector<double> m_covered;
};

// The error of what was drawn, in 1/255, over the pixels that are touched in either picture.
struct Difference {
  double mean = 0;
  double largest = 0;
  int pixels = 0;

  friend std::ostream& operator<<(std::ostream& out, const Difference& difference) {
    return out << "mean " << difference.mean << ", largest " << difference.largest << " on "
               << difference.pixels << " pixels";
  }
};

// `drawn(x, y)` and `expected(x, y)` give the coverage of a pixel, 0..255.
template <class Drawn, class Expected>
Difference difference_of(int width, int height, const Drawn& drawn, const Expected& expected) {
  Difference difference;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const double is = drawn(x, y), should_be = expected(x, y);
      if (is == 0 && should_be == 0) continue;
      ++difference.pixels;
      difference.mean += std::abs(is - should_be);
      difference.largest = std::max(difference.largest, std::abs(is - should_be));
    }
  }
  if (difference.pixels > 0) difference.mean /= difference.pixels;
  return difference;
}

}  // namespace kurv::raster
