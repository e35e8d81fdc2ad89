#include "bench/quality/exact.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>

namespace bench {
namespace {

constexpr int kSamples = 16;  // per pixel, in either direction

// An interval of a row of samples; empty where low > high.
struct Interval {
  double low = HUGE_VAL;
  double high = -HUGE_VAL;

  void include(double x) {
    low = std::min(low, x);
    high = std::max(high, x);
  }
};

// The covered samples, a bit each. All lengths are in samples.
class SampleGrid {
 public:
  SampleGrid(int width, int height)
      : m_width(width * kSamples),
        m_height(height * kSamples),
        m_words((static_cast<std::size_t>(m_width) + 63) / 64),
        m_bits(m_words * static_cast<std::size_t>(m_height)) {}

  // A disc at each end and the rectangle between them. Their union is convex, so each row of
  // samples intersects it in one interval.
  void add_capsule(ShapePoint from, ShapePoint to, double radius) {
    const double top = std::min(from.y, to.y) - radius, bottom = std::max(from.y, to.y) + radius;
    const int first = std::max(0, static_cast<int>(std::floor(top)));
    const int end = std::min(m_height, static_cast<int>(std::ceil(bottom)) + 1);
    for (int row = first; row < end; ++row) {
      const double y = row + 0.5;
      Interval covered;
      include_disc(covered, from, radius, y);
      include_disc(covered, to, radius, y);
      include_rectangle(covered, from, to, radius, y);
      fill(row, covered);
    }
  }

  std::uint8_t coverage(int x, int y) const {
    int count = 0;
    for (int row = y * kSamples; row < (y + 1) * kSamples; ++row) {
      const std::uint64_t word = word_at(row, static_cast<std::size_t>(x) * kSamples / 64);
      count += std::popcount((word >> (x * kSamples % 64)) & 0xFFFFU);
    }
    return static_cast<std::uint8_t>(std::lround(count * 255.0 / (kSamples * kSamples)));
  }

 private:
  static void include_disc(Interval& covered, ShapePoint centre, double radius, double y) {
    const double below = y - centre.y;
    if (std::abs(below) > radius) return;
    const double half = std::sqrt(radius * radius - below * below);
    covered.include(centre.x - half);
    covered.include(centre.x + half);
  }

  // The intersection of the row at y with the four sides.
  static void include_rectangle(Interval& covered, ShapePoint from, ShapePoint to, double radius,
                                double y) {
    const double dx = double{to.x} - from.x, dy = double{to.y} - from.y;
    const double length = std::hypot(dx, dy);
    if (length == 0) return;
    const double across_x = -dy / length * radius, across_y = dx / length * radius;
    const double x[] = {from.x + across_x, to.x + across_x, to.x - across_x, from.x - across_x};
    const double heights[] = {from.y + across_y, to.y + across_y, to.y - across_y,
                              from.y - across_y};
    for (int i = 0; i < 4; ++i) {
      const int j = (i + 1) % 4;
      if ((heights[i] <= y) == (heights[j] <= y)) continue;
      covered.include(x[i] + (y - heights[i]) * (x[j] - x[i]) / (heights[j] - heights[i]));
    }
  }

  // A sample is covered where its centre is.
  void fill(int row, const Interval& covered) {
    if (!(covered.low <= covered.high)) return;
    const int first = std::max(0, static_cast<int>(std::ceil(covered.low - 0.5)));
    const int end = std::min(m_width, static_cast<int>(std::floor(covered.high - 0.5)) + 1);
    for (int sample = first; sample < end;) {
      const int in_word = sample % 64, count = std::min(64 - in_word, end - sample);
      const std::uint64_t ones = count == 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << count) - 1;
      word_at(row, static_cast<std::size_t>(sample) / 64) |= ones << in_word;
      sample += count;
    }
  }

  std::uint64_t& word_at(int row, std::size_t word) {
    return m_bits[static_cast<std::size_t>(row) * m_words + word];
  }
  std::uint64_t word_at(int row, std::size_t word) const {
    return m_bits[static_cast<std::size_t>(row) * m_words + word];
  }

  int m_width;
  int m_height;
  std::size_t m_words;  // per row
  std::vector<std::uint64_t> m_bits;
};

ShapePoint in_samples(ShapePoint point) {
  return {point.x * kSamples, point.y * kSamples};
}

}  // namespace

CoverageBytes exact_coverage(const Shape& shape, double width) {
  SampleGrid samples(shape.width, shape.height);
  for (std::size_t i = 1; i < shape.points.size(); ++i) {
    samples.add_capsule(in_samples(shape.points[i - 1]), in_samples(shape.points[i]),
                        width / 2 * kSamples);
  }
  CoverageBytes result;
  for (int y = 0; y < shape.height; ++y) {
    for (int x = 0; x < shape.width; ++x) result.push_back(samples.coverage(x, y));
  }
  return result;
}

}  // namespace bench
