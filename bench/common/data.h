// The data that all subjects work on. Each subject generates them by this code, from fixed seeds,
// so that all have the same load.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace bench {

// The peers are compiled as C++17, which has no <numbers>.
inline constexpr double kPi = 3.14159265358979323846;

// The size of the picture, and in it the rectangle inside the axes of the control.
inline constexpr int kWidth = 1000;
inline constexpr int kHeight = 700;

struct Rectangle {
  double left;
  double top;
  double width;
  double height;
};
inline constexpr Rectangle kPlot{53.3, 32, 893.4, 633.3};

struct Table {
  std::vector<double> x;
  std::vector<std::vector<double>> y;  // by curve
};

// Gives the same numbers on every platform, unlike the standard library's distributions.
class Random {
 public:
  explicit Random(std::uint32_t seed) : m_generator(seed) {}
  double between(double low, double high) {
    return low + (high - low) * (static_cast<double>(m_generator()) / 4294967296.0);
  }

 private:
  std::mt19937 m_generator;
};

// Smooth curves of a few periods, each with its own frequency, phase and amplitude.
inline double wave(int curve, double t) {
  return (1 + curve % 10) * std::sin(2 * kPi * (3 + curve % 7) * t + curve);
}

// "waves": smooth over ascending x. "noise": a wave with noise added. "scattered": both coordinates
// random. "shuffled": waves, but the points in random order, and many with the same x.
inline Table table(std::string_view kind, int curves, int points) {
  const bool known =
      kind == "waves" || kind == "noise" || kind == "scattered" || kind == "shuffled";
  if (!known) throw std::invalid_argument("no such data");
  const auto count = static_cast<std::size_t>(points);
  Table result{std::vector<double>(count),
               std::vector<std::vector<double>>(static_cast<std::size_t>(curves),
                                                std::vector<double>(count))};
  Random random(1);
  for (std::size_t i = 0; i < count; ++i) {
    const auto t = static_cast<double>(i) / points;
    if (kind == "scattered") {
      result.x[i] = random.between(0, points);
    } else if (kind == "shuffled") {
      result.x[i] = std::floor(random.between(0, points * 0.6));
    } else {
      result.x[i] = static_cast<double>(i + 1);
    }
    for (int k = 1; k <= curves; ++k) {
      double& y = result.y[static_cast<std::size_t>(k - 1)][i];
      if (kind == "scattered") {
        y = random.between(-10, 10);
      } else {
        y = wave(k, t) + (kind == "noise" ? random.between(-1.25, 1.25) : 0);
      }
    }
  }
  return result;
}

// The minimum and maximum of all values.
struct Range {
  double low;
  double high;
};

inline Range range_of(const std::vector<double>& values, Range range) {
  for (const double value : values) {
    if (value < range.low) range.low = value;
    if (value > range.high) range.high = value;
  }
  return range;
}

// Maps values to the pixels of the plot.
class Scale {
 public:
  explicit Scale(const Table& data)
      : m_x(range_of(data.x, {data.x.front(), data.x.front()})),
        m_y{data.y.front().front(), data.y.front().front()} {
    for (const auto& curve : data.y) m_y = range_of(curve, m_y);
  }

  const Range& x_range() const { return m_x; }
  const Range& y_range() const { return m_y; }
  double x(double value) const {
    return kPlot.left + (value - m_x.low) * (kPlot.width / (m_x.high - m_x.low));
  }
  double y(double value) const {
    return kPlot.top + (m_y.high - value) * (kPlot.height / (m_y.high - m_y.low));
  }

 private:
  Range m_x;
  Range m_y;
};

// The colour of a curve, 0xRRGGBB; the same palette as the control's.
inline std::uint32_t colour_of(int curve) {
  constexpr std::uint32_t kColours[] = {0x000000, 0x000080, 0x008000, 0x008080, 0x800000,
                                        0x800080, 0x808000, 0xC0C0C0, 0x808080, 0x0000FF,
                                        0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF};
  return kColours[curve % 14];
}

// Markers are squares and circles of this many pixels across.
inline constexpr double kMarkerSize = 4.5;

}  // namespace bench
