// x-monotone polylines as drawn, and their exact coverage.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <functional>
#include <random>
#include <vector>

#include "raster/monotone_polylines.h"
#include "tests/raster/exact_coverage.h"
#include "tests/raster/guarded_canvas.h"

namespace kurv::raster {

struct Curve {
  std::vector<float> x;
  std::vector<float> y;
  std::vector<std::uint8_t> drawn;

  void add(double at_x, double at_y, bool is_drawn = true) {
    x.push_back(static_cast<float>(at_x));
    y.push_back(static_cast<float>(at_y));
    drawn.push_back(is_drawn ? 1 : 0);
  }
  Polyline line() const { return {x, y, drawn}; }

  Curve reversed() const {
    Curve other = *this;
    std::ranges::reverse(other.x);
    std::ranges::reverse(other.y);
    // Segment i ends at point i; in the reversed curve it begins there.
    for (std::size_t i = 1; i < drawn.size(); ++i) other.drawn[drawn.size() - i] = drawn[i];
    return other;
  }
};

// Points evenly spaced in x; `height_at` gives their y, by x and index.
inline Curve curve_of(int count, double from, double to,
                      const std::function<double(double, int)>& height_at) {
  Curve curve;
  for (int i = 0; i < count; ++i) {
    const double x = from + (to - from) * i / std::max(count - 1, 1);
    curve.add(x, height_at(x, i));
  }
  return curve;
}

inline Curve noise(int count, double from, double to, double low, double high) {
  std::mt19937 generator(7);
  std::uniform_real_distribution<double> height(low, high);
  return curve_of(count, from, to, [&](double, int) { return height(generator); });
}

// Draws black on white, and gives the coverage of each pixel.
class CurvePixels {
 public:
  CurvePixels(int width, int height) : m_width(width), m_height(height), m_picture(width, height) {}

  CurvePixels(int width, int height, const Pen& pen, const Curve& curve)
      : CurvePixels(width, height) {
    draw(pen, curve);
  }

  Canvas canvas() { return m_picture.canvas(); }
  void draw(const Pen& pen, const Curve& curve) {
    MonotonePolylines polylines(m_width, m_height);
    EXPECT_TRUE(polylines.add(pen, curve.line()));
    polylines.flush(canvas(), 0xFF000000);
  }
  int at(int x, int y) const { return 255 - static_cast<int>(m_picture.at(x, y) & 255); }
  int total() const {
    int sum = 0;
    for (int y = 0; y < m_height; ++y) {
      for (int x = 0; x < m_width; ++x) sum += at(x, y);
    }
    return sum;
  }
  Difference from(const CurvePixels& other) const {
    return difference_of(
        m_width, m_height, [&](int x, int y) { return at(x, y); },
        [&](int x, int y) { return other.at(x, y); });
  }
  Difference from(const ExactCoverage& exact) const {
    return difference_of(
        m_width, m_height, [&](int x, int y) { return at(x, y); },
        [&](int x, int y) { return exact.at(x, y); });
  }

 private:
  int m_width;
  int m_height;
  GuardedCanvas m_picture;
};

inline ExactCoverage exact_of(int width, int height, const Pen& pen, const Curve& curve) {
  std::vector<Stroke> strokes;
  const auto point = [&](std::size_t i) {
    return Point{curve.x[i], std::clamp(curve.y[i], -FLT_MAX, FLT_MAX)};
  };
  for (std::size_t i = 1; i < curve.x.size(); ++i) {
    if (curve.drawn[i] == 0 || std::isnan(curve.y[i - 1]) || std::isnan(curve.y[i])) continue;
    strokes.push_back(near_stroke(pen, point(i - 1), point(i), width, height));
  }
  return {width, height, pen.half_width, strokes};
}

inline Difference error_of(int width, int height, const Pen& pen, const Curve& curve) {
  return CurvePixels(width, height, pen, curve).from(exact_of(width, height, pen, curve));
}

}  // namespace kurv::raster
