// Tables that are too long for a graph, and the comparison of the pictures before and after.
#pragma once

#include <KurvGraph/arrays.h>
#include <KurvGraph/limits.h>
#include <KurvGraph/values.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "app/csv/row_thinning.h"
#include "raster/monotone_polylines.h"

namespace kurv::app {

inline constexpr double kMissing = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kPi = 3.14159265358979;

using Values = std::vector<double>;
using Curve = std::function<double(int row)>;

// x is the row number.
inline Matrix<Double> table_of(int rows, const std::vector<Curve>& curves) {
  Matrix<Double> table(1, static_cast<int>(curves.size()) + 1, 1, rows);
  for (int row = 1; row <= rows; ++row) table(1, row) = row;
  for (std::size_t c = 0; c < curves.size(); ++c) {
    const Column<Double> column = table.column(static_cast<int>(c) + 2);
    for (int row = 1; row <= rows; ++row) column(row) = curves[c](row);
  }
  return table;
}

// std::mt19937 gives the same numbers everywhere; the distributions of the library need not.
class Noise {
 public:
  explicit Noise(unsigned seed) : m_bits(seed) {}
  double uniform() { return (static_cast<double>(m_bits()) + 0.5) / 4294967296.0; }
  // With rare large values.
  double normal() { return std::sqrt(-2 * std::log(uniform())) * std::cos(2 * kPi * uniform()); }

 private:
  std::mt19937 m_bits;
};

inline Curve noise(unsigned seed) {
  return [source = Noise(seed)](int) mutable { return source.normal(); };
}

// A plot without margins, for the table of all points.
class Plot {
 public:
  Plot(int width, int height, double pen, const Matrix<Double>& table)
      : m_width(width), m_height(height), m_pen{1, pen / 2} {
    for (int column = 1; column <= table.upper_column(); ++column) {
      double least = std::numeric_limits<double>::infinity();
      double largest = -least;
      for (int i = 1; i <= table.upper_point(); ++i) {
        if (std::isnan(table(column, i))) continue;
        least = std::min(least, table(column, i));
        largest = std::max(largest, table(column, i));
      }
      m_least.push_back(least);
      m_range.push_back(largest > least ? largest - least : 1);
    }
  }

  // Of each pixel column, the first and the last row with a pixel of which the curve covers so
  // much.
  struct Ink {
    std::vector<int> top;
    std::vector<int> bottom;
  };
  struct Picture {
    Ink dark;
    Ink light;
  };
  // At more and at less than the half: a pixel may have slightly another coverage.
  Picture picture(const Matrix<Double>& table, int curve) const {
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(m_width * m_height), 0xFFFFFFFF);
    const raster::Canvas canvas{pixels.data(), m_width, m_height, m_width};
    std::vector<float> x;
    std::vector<float> y;
    for (int i = 1; i <= table.upper_point(); ++i) {
      x.push_back(scaled(table, 1, i, m_width));
      y.push_back(scaled(table, curve, i, m_height - 10) + 5);
    }
    const std::vector<std::uint8_t> drawn(x.size(), 1);
    raster::MonotonePolylines lines(m_width, m_height);
    EXPECT_TRUE(lines.add(m_pen, {x, y, drawn}));
    lines.flush(canvas, 0xFF000000);
    return {ink(canvas, 0x60), ink(canvas, 0xA0)};
  }

 private:
  static Ink ink(const raster::Canvas& canvas, std::uint32_t lightest) {
    Ink result;
    for (int column = 0; column < canvas.width; ++column) {
      result.top.push_back(-1);
      result.bottom.push_back(-1);
      for (int row = 0; row < canvas.height; ++row) {
        if ((canvas.row(row)[column] & 0xFF) > lightest) continue;
        if (result.top.back() < 0) result.top.back() = row;
        result.bottom.back() = row;
      }
    }
    return result;
  }

  float scaled(const Matrix<Double>& table, int column, int point, int size) const {
    const std::size_t c = static_cast<std::size_t>(column) - 1;
    return static_cast<float>((table(column, point) - m_least[c]) / m_range[c] * size);
  }

  int m_width;
  int m_height;
  raster::Pen m_pen;
  Values m_least;
  Values m_range;
};

// The pixel columns in which one picture has ink more than a pixel beyond that of the other.
inline int wrong_columns(const Plot& plot, const Matrix<Double>& all, const Matrix<Double>& kept,
                         int curve) {
  const Plot::Picture expected = plot.picture(all, curve);
  const Plot::Picture actual = plot.picture(kept, curve);
  const auto is_inside = [](const Plot::Ink& dark, const Plot::Ink& light, std::size_t column) {
    if (dark.top[column] < 0) return true;
    return light.top[column] >= 0 && dark.top[column] >= light.top[column] - 1 &&
           dark.bottom[column] <= light.bottom[column] + 1;
  };
  int wrong = 0;
  for (std::size_t i = 0; i < expected.dark.top.size(); ++i) {
    wrong +=
        !is_inside(expected.dark, actual.light, i) || !is_inside(actual.dark, expected.light, i);
  }
  return wrong;
}

// At the default size, and at twice as many pixels.
inline void expect_same_picture(const Matrix<Double>& table, const std::string& what) {
  const ThinnedRows kept = thinned(table);
  EXPECT_LE(kept.values.upper_point(), kMaxPoints) << what;
  for (const int scale : {1, 2}) {
    const Plot plot(1000 * scale, 700 * scale, scale, table);
    for (int curve = 2; curve <= table.upper_column(); ++curve) {
      EXPECT_EQ(wrong_columns(plot, table, kept.values, curve), 0)
          << what << ", curve " << curve << " at " << scale << (kept.are_mixed ? " mixed" : "");
    }
  }
}

inline double sine(int row, double cycles, int rows) {
  return std::sin(2 * kPi * cycles * row / rows);
}

inline std::vector<Curve> curves_of_noise(unsigned count) {
  std::vector<Curve> curves;
  for (unsigned seed = 1; seed <= count; ++seed) curves.push_back(noise(seed));
  return curves;
}

inline Curve random_walk(unsigned seed) {
  return [source = Noise(seed), sum = 0.0](int) mutable { return sum += source.normal(); };
}

}  // namespace kurv::app
