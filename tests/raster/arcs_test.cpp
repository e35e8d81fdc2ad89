#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "raster/strokes.h"
#include "tests/raster/guarded_canvas.h"

namespace kurv::raster {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kPi = std::numbers::pi_v<float>;

int expected_value(double distance, double half_width) {
  return static_cast<int>(std::clamp(half_width + 0.5 - distance, 0.0, 1.0) * 255 + 0.5);
}

int largest_ring_error(Coverage& mask, double half_width, Point centre, float radius) {
  int largest = 0;
  for (int y = 0; y < mask.height(); ++y) {
    for (int x = 0; x < mask.width(); ++x) {
      const double from_centre = std::hypot(x + 0.5 - centre.x, y + 0.5 - centre.y);
      const int expected = expected_value(std::abs(from_centre - radius), half_width);
      largest = std::max(largest, std::abs(mask.row(y)[x] - expected));
    }
  }
  return largest;
}

TEST(Circle, AgreesWithTheDefinitionAtEverySize) {
  for (const float radius : {0.2F, 0.5F, 1.0F, 2.0F, 5.5F, 9.9F, 14.0F, 40.0F, 3000.0F}) {
    for (const double half_width : {0.5, 1.0, 2.6}) {
      for (const Point centre : {Point{16, 16}, Point{15.5F, 15.5F}, Point{-1.3F, 20.7F}}) {
        Coverage mask(32, 32);
        add_circle(mask, {1, half_width}, centre, radius);
        ASSERT_LE(largest_ring_error(mask, half_width, centre, radius), 1)
            << radius << ' ' << half_width << ' ' << centre.x;
      }
    }
  }
}

TEST(Circle, OfRadiusZeroIsADot) {
  Coverage circle(9, 9), dot(9, 9);
  add_circle(circle, {1, 1.5}, {4.5F, 4.5F}, 0);
  add_segment(dot, {1, 1.5}, {4.5F, 4.5F}, {4.5F, 4.5F});
  EXPECT_EQ(values_of(circle), values_of(dot));
  EXPECT_GT(total_of(dot), 0);
}

TEST(Circle, WithoutAUsableRadiusOrCentreDrawsNothing) {
  Coverage mask(20, 20);
  add_circle(mask, {1, 3}, {10, 10}, -1);
  add_circle(mask, {1, 3}, {10, 10}, -kInfinity);
  add_circle(mask, {1, 3}, {10, 10}, kNaN);
  add_circle(mask, {1, 3}, {kNaN, 10}, 5);
  add_circle(mask, {1, 3}, {10, kNaN}, 5);
  add_arc(mask, {1, 3}, {10, 10}, 5, kNaN, 1);
  add_arc(mask, {1, 3}, {10, 10}, 5, 0, kNaN);
  add_arc(mask, {1, 3}, {kNaN, 10}, 5, 0, 1);
  add_arc(mask, {1, 3}, {10, 10}, -5, 0, 1);
  add_arc(mask, {1, 3}, {10, 10}, kNaN, 0, 1);
  EXPECT_EQ(total_of(mask), 0);
}

// Circles that touch an axis at the origin: the visible part looks like a straight line.
TEST(Circle, OfAnySizeShowsItsStraightLookingPieceExactly) {
  for (const float radius : {1e8F, 1e12F, 1e30F, 3e38F, kInfinity}) {
    Coverage upright(16, 12);
    add_circle(upright, {0.5, 1.5}, {-radius, 0}, radius);
    Coverage level(16, 12);
    add_circle(level, {0.5, 1.5}, {0, radius}, radius);
    for (int y = 0; y < 12; ++y) {
      for (int x = 0; x < 16; ++x) {
        ASSERT_NEAR(upright.row(y)[x], expected_value(x + 0.5, 1.5), 1)
            << radius << ' ' << x << ' ' << y;
        ASSERT_NEAR(level.row(y)[x], expected_value(y + 0.5, 1.5), 1)
            << radius << ' ' << x << ' ' << y;
      }
    }
  }
}

// 3, 4 and 5 times a power of two are exact in single precision, so the circle goes through the
// origin.
TEST(Circle, OfAnySizeIsExactInAnyDirection) {
  for (const int power : {20, 60, 100}) {
    const auto unit = std::ldexp(1.0F, power);
    Coverage mask(24, 24);
    add_circle(mask, {1, 1}, {3 * unit, 4 * unit}, 5 * unit);
    int covered = 0;
    for (int y = 0; y < 24; ++y) {
      for (int x = 0; x < 24; ++x) {
        const double distance = std::abs(0.6 * (x + 0.5) + 0.8 * (y + 0.5));
        ASSERT_NEAR(mask.row(y)[x], expected_value(distance, 1), 1)
            << power << ' ' << x << ' ' << y;
        if (mask.row(y)[x] > 0) ++covered;
      }
    }
    EXPECT_GT(covered, 0);
  }
}

TEST(Circle, AroundOrFarFromTheMaskLeavesItUntouched) {
  Coverage mask(20, 20);
  add_circle(mask, {1, 1}, {10, 10}, 1000);
  add_circle(mask, {1, 1}, {1e30F, -1e30F}, 5);
  add_circle(mask, {1, 1}, {kInfinity, kInfinity}, kInfinity);
  EXPECT_EQ(total_of(mask), 0);
}

double arc_distance(double x, double y, double radius, double start, double sweep) {
  double turn = std::atan2(-y, x) - start;
  turn -= 2 * std::numbers::pi * std::floor(turn / (2 * std::numbers::pi));
  if (turn <= sweep) return std::abs(std::hypot(x, y) - radius);
  const double end = start + sweep;
  return std::min(std::hypot(x - radius * std::cos(start), y + radius * std::sin(start)),
                  std::hypot(x - radius * std::cos(end), y + radius * std::sin(end)));
}

TEST(Arc, AgreesWithTheDefinitionForEverySweep) {
  for (const double half_width : {0.5, 1.7}) {
    for (int step = 0; step < 60; ++step) {
      const auto start = static_cast<float>(step * 0.37 - 9);
      const auto sweep = static_cast<float>(step % 20 * 0.31 + 0.05);
      Coverage mask(32, 32);
      add_arc(mask, {1, half_width}, {16.2F, 15.9F}, 11, start, start + sweep);
      const double actual_sweep = static_cast<double>(start + sweep) - start;
      for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x) {
          const double distance =
              arc_distance(x + 0.5 - 16.2F, y + 0.5 - 15.9F, 11, start, actual_sweep);
          ASSERT_NEAR(mask.row(y)[x], expected_value(distance, half_width), 1)
              << step << ' ' << x << ' ' << y;
        }
      }
    }
  }
}

TEST(Arc, RunsAnticlockwiseFromTheRightUpwards) {
  Coverage mask(21, 21);
  add_arc(mask, {1, 0.5}, {10.5F, 10.5F}, 8, 0, kPi / 2);
  EXPECT_EQ(mask.row(10)[18], 255);
  EXPECT_EQ(mask.row(2)[10], 255);
  EXPECT_EQ(mask.row(10)[2], 0);
  EXPECT_EQ(mask.row(18)[10], 0);
}

TEST(Arc, WrapsRoundWhenItsEndIsBelowItsStart) {
  Coverage wrapped(21, 21), plain(21, 21);
  add_arc(wrapped, {1, 0.5}, {10.5F, 10.5F}, 8, 3 * kPi / 2, kPi / 2);
  add_arc(plain, {1, 0.5}, {10.5F, 10.5F}, 8, -kPi / 2, kPi / 2);
  EXPECT_EQ(wrapped.row(10)[18], 255);
  EXPECT_EQ(wrapped.row(10)[2], 0);
  const std::vector<int> one = values_of(wrapped), other = values_of(plain);
  for (std::size_t i = 0; i < one.size(); ++i) EXPECT_NEAR(one[i], other[i], 1);
}

TEST(Arc, OfAFullTurnOrMoreIsTheCircle) {
  Coverage circle(21, 21);
  add_circle(circle, {1, 0.5}, {10.5F, 10.5F}, 8);
  const float ends[] = {2 * kPi, 100, kInfinity};
  for (const float end : ends) {
    Coverage arc(21, 21);
    add_arc(arc, {1, 0.5}, {10.5F, 10.5F}, 8, 0, end);
    EXPECT_EQ(values_of(arc), values_of(circle)) << end;
  }
}

TEST(Arc, OfNoSweepIsOneDot) {
  for (const double half_width : {0.5, 0.8, 3.0}) {
    Coverage arc(21, 21);
    add_arc(arc, {1, half_width}, {10.5F, 10.5F}, 8, 0, 0);
    EXPECT_LE(largest_ring_error(arc, half_width, {18.5F, 10.5F}, 0), 1) << half_width;
  }
}

TEST(Arc, SurvivesAbsurdNumbers) {
  GuardedCanvas picture(21, 21);
  Coverage mask(21, 21);
  const float values[] = {-kInfinity, -1e30F, -7, 0, 1e-40F, 10, 1e30F, kInfinity};
  for (const float a : values) {
    for (const float b : values) {
      for (const float c : values) {
        add_arc(mask, {1, 0.5}, {a, b}, c, b, a);
        add_circle(mask, {1, 2}, {c, a}, b);
      }
    }
  }
  mask.flush(picture.canvas(), kNavyPixel);
  EXPECT_FALSE(picture.is_white());
}

}  // namespace
}  // namespace kurv::raster
