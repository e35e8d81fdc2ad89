// The polylines by which errors are measured, and the file in which each subject returns its
// result: the coverage of each pixel, one byte each, by rows.
#pragma once

#include <cmath>
#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/common/data.h"

namespace bench {

struct ShapePoint {
  float x;  // pixels
  float y;
};

struct Shape {
  int width;
  int height;
  std::vector<ShapePoint> points;
};

inline constexpr int kLargePoints = 32767;  // kMaxPoints of KurvGraph; bench/ours checks it

namespace detail {

inline constexpr int kSmallWidth = 72;
inline constexpr int kSmallHeight = 48;

template <class HeightAt>
Shape shape(int width, int height, int points, const HeightAt& height_at) {
  Shape result{width, height, {}};
  for (int i = 0; i < points; ++i) {
    const double t = i / (points - 1.0);
    result.points.push_back(
        {static_cast<float>(t * (width - 8) + 4), static_cast<float>(height_at(t, i))});
  }
  return result;
}

inline Shape large(std::string_view name) {
  Random random(7);
  if (name == "dense smooth") {
    return shape(kWidth, kHeight, kLargePoints,
                 [](double t, int) { return 350 + 300 * std::sin(t * 8 * kPi); });
  }
  if (name == "sparse") {
    return shape(kWidth, kHeight, 120, [&](double, int) { return random.between(40, 660); });
  }
  if (name == "dense noise") {
    return shape(kWidth, kHeight, kLargePoints, [&](double t, int) {
      return 350 + 200 * std::sin(t * 6 * kPi) + random.between(-60, 60);
    });
  }
  throw std::invalid_argument("no such shape");
}

}  // namespace detail

inline Shape shape_of(std::string_view name) {
  constexpr int kWide = detail::kSmallWidth, kHigh = detail::kSmallHeight;
  const auto small = [](int points, const auto& height_at) {
    return detail::shape(kWide, kHigh, points, height_at);
  };
  Random random(3);
  if (name == "noise") {
    return small(2000, [&](double t, int) {
      return kHigh / 2.0 + 8 * std::sin(t * 6) + random.between(-9, 9);
    });
  }
  if (name == "sine") {
    return small(2000, [](double t, int) { return kHigh / 2.0 + 17 * std::sin(t * 9); });
  }
  if (name == "spikes") {
    return small(13, [](double, int i) { return i % 2 == 0 ? kHigh - 8.0 : 6.0 + i; });
  }
  if (name == "flat") {
    return small(3, [](double t, int) { return kHigh / 2.0 - 2 + 4 * t; });
  }
  if (name == "steep") {
    Shape result{kWide, kHigh, {}};
    for (int i = 0; i < 6; ++i) {
      const float x = static_cast<float>(8 + 11 * i);
      result.points.push_back({x, i % 2 == 0 ? 42.3F : 5.7F});
      result.points.push_back({x + 1.5F, i % 2 == 0 ? 5.7F : 42.3F});
    }
    return result;
  }
  return detail::large(name);
}

using CoverageBytes = std::vector<std::uint8_t>;

inline void write_coverage(const std::string& path, const CoverageBytes& coverage) {
  std::ofstream file(path, std::ios::binary);
  for (const std::uint8_t value : coverage) file.put(static_cast<char>(value));
  if (!file.flush()) throw std::runtime_error("cannot write " + path);
}

// The coverages of a picture that is drawn black on white, 32 bits a pixel, from the green channel.
inline CoverageBytes coverage_of(const unsigned char* bytes, std::size_t bytes_per_row, int width,
                                 int height) {
  CoverageBytes result;
  for (int y = 0; y < height; ++y) {
    const unsigned char* row = bytes + static_cast<std::size_t>(y) * bytes_per_row;
    for (int x = 0; x < width; ++x)
      result.push_back(static_cast<std::uint8_t>(255 - row[4 * x + 1]));
  }
  return result;
}

}  // namespace bench
