#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "raster/strokes.h"
#include "tests/raster/exact_coverage.h"
#include "tests/raster/guarded_canvas.h"

namespace kurv::raster {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

Coverage mask_with(int width, int height, const Pen& pen, const std::vector<Point>& points) {
  Coverage mask(width, height);
  for (std::size_t i = 1; i < points.size(); ++i) add_segment(mask, pen, points[i - 1], points[i]);
  return mask;
}

Difference error_of(Coverage& mask, const Pen& pen, const std::vector<Point>& points) {
  const int width = mask.width(), height = mask.height();
  std::vector<Stroke> strokes;
  for (std::size_t i = 1; i < points.size(); ++i) {
    strokes.push_back(near_stroke(pen, points[i - 1], points[i], width, height));
  }
  const ExactCoverage exact(width, height, pen.half_width, strokes);
  return difference_of(
      width, height, [&](int x, int y) { return mask.row(y)[x]; },
      [&](int x, int y) { return exact.at(x, y); });
}

// A segment is exact except at its caps. A pixel whose centre is not past an end is covered as if
// the segment went on, so that joints do not show as notches: at a cap that is 255 * (1/2 - pi/8)
// too much at worst.
constexpr double kCapError = 28;
constexpr double kBodyError = 1;

TEST(Segment, OnPixelCentresIsFullAndOnePixelWide) {
  Coverage mask = mask_with(20, 9, {1, 0.5}, {{3.5F, 4.5F}, {15.5F, 4.5F}});
  for (int x = 3; x <= 15; ++x) EXPECT_EQ(mask.row(4)[x], 255);
  EXPECT_EQ(total_of(mask), 13 * 255);
}

TEST(Segment, VerticalOnPixelCentresIsFullAndOnePixelWide) {
  Coverage mask = mask_with(9, 20, {1, 0.5}, {{4.5F, 15.5F}, {4.5F, 3.5F}});
  for (int y = 3; y <= 15; ++y) EXPECT_EQ(mask.row(y)[4], 255);
  EXPECT_EQ(total_of(mask), 13 * 255);
}

TEST(Segment, BetweenTwoRowsCoversHalfOfEach) {
  Coverage mask = mask_with(20, 9, {1, 0.5}, {{-9, 4}, {29, 4}});
  EXPECT_EQ(mask.row(3)[10], 128);
  EXPECT_EQ(mask.row(4)[10], 128);
  EXPECT_EQ(total_of(mask), 2 * 20 * 128);
}

TEST(Segment, CoversItsAreaAtEveryAngleAndWidth) {
  for (const double half_width : {0.5, 0.625, 0.75, 1.0, 2.0, 3.2}) {
    for (int step = 0; step < 72; ++step) {
      const double angle = step * std::numbers::pi / 36 + 0.001 * (step % 3);
      const Point from{20.3F, 19.9F};
      const Point to{static_cast<float>(20.3 + 17 * std::cos(angle)),
                     static_cast<float>(19.9 + 17 * std::sin(angle))};
      const Pen pen{1, half_width};
      Coverage mask = mask_with(40, 40, pen, {from, to});
      const Difference error = error_of(mask, pen, {from, to});
      ASSERT_LE(error.largest, kCapError) << half_width << ' ' << step;
      ASSERT_LE(error.mean, 2) << half_width << ' ' << step;
    }
  }
}

TEST(Segment, WithoutItsCapsIsExact) {
  for (const double half_width : {0.5, 0.625, 1.0, 2.0, 3.2}) {
    for (int step = 0; step < 72; ++step) {
      const double angle = step * std::numbers::pi / 36 + 0.001 * (step % 3);
      const auto x = static_cast<float>(60 * std::cos(angle));
      const auto y = static_cast<float>(60 * std::sin(angle));
      const std::vector<Point> line = {{20.3F - x, 19.9F - y}, {20.3F + x, 19.9F + y}};
      Coverage mask = mask_with(40, 40, {1, half_width}, line);
      ASSERT_LE(error_of(mask, {1, half_width}, line).largest, kBodyError)
          << half_width << ' ' << step;
    }
  }
}

TEST(Segment, OfLengthZeroIsADotOfThePen) {
  for (const double half_width : {0.5, 1.0, 2.5}) {
    const Pen pen{1, half_width};
    for (const Point at : {Point{5.5F, 5.5F}, Point{5, 6}, Point{5.8F, 6.1F}}) {
      Coverage mask = mask_with(12, 12, pen, {at, at});
      EXPECT_LE(error_of(mask, pen, {at, at}).largest, 12) << half_width << ' ' << at.x;
      EXPECT_NEAR(total_of(mask), 255 * std::numbers::pi * half_width * half_width, 25);
    }
  }
}

TEST(Segment, VisiblePartIsExactHoweverFarTheEndsAre) {
  const float far_ends[] = {1e6F, 1e12F, 1e30F, 3e38F};
  const double scales[] = {1, 1 / 15.0, 2 / 15.0};
  int compared = 0;
  for (const float far : far_ends) {
    for (const double scale : scales) {
      for (int step = 0; step < 24; ++step) {
        // One end is visible, or both are far away on opposite sides at slightly different heights.
        const Pen pen{scale, 0.5 + step % 3};
        const auto slope = static_cast<float>(std::tan((step - 12) * 0.065));
        const auto middle = static_cast<float>(10.3 / scale);
        const bool has_end = step % 2 == 0;
        const Point from = has_end ? Point{middle, middle} : Point{-far, -far * slope};
        const Point ends[] = {{far, far * slope}, {far * slope, far}, {far, far * slope + 17}};
        const double tolerance = has_end ? kCapError : kBodyError;
        for (const Point& end : ends) {
          Coverage mask = mask_with(32, 24, pen, {from, end});
          ASSERT_LE(error_of(mask, pen, {from, end}).largest, tolerance)
              << far << ' ' << scale << ' ' << step;
          if (total_of(mask) > 0) ++compared;
          mask.clear();
          add_segment(mask, pen, end, from);
          ASSERT_LE(error_of(mask, pen, {end, from}).largest, tolerance)
              << far << ' ' << scale << ' ' << step;
        }
      }
    }
  }
  EXPECT_GT(compared, 500);
}

TEST(Segment, InfinityIsTheLargestFiniteNumber) {
  constexpr float kLargest = std::numeric_limits<float>::max();
  Coverage level = mask_with(20, 20, {1, 0.5}, {{-kInfinity, 4.5F}, {kInfinity, 4.5F}});
  EXPECT_EQ(total_of(level), 20 * 255);
  Coverage diagonal = mask_with(20, 20, {1, 0.5}, {{0, 0}, {kInfinity, kInfinity}});
  Coverage expected = mask_with(20, 20, {1, 0.5}, {{0, 0}, {kLargest, kLargest}});
  EXPECT_GT(total_of(diagonal), 20 * 255);
  EXPECT_EQ(values_of(diagonal), values_of(expected));
}

TEST(Segment, WithNaNAnywhereDrawsNothing) {
  Coverage mask(20, 20);
  add_segment(mask, {1, 5}, {kNaN, 5}, {5, 5});
  add_segment(mask, {1, 5}, {5, kNaN}, {5, 5});
  add_segment(mask, {1, 5}, {5, 5}, {kNaN, 5});
  add_segment(mask, {1, 5}, {5, 5}, {kInfinity, kNaN});
  EXPECT_EQ(total_of(mask), 0);
}

TEST(Segment, IsTheSameAloneAndInARun) {
  const std::vector<Point> run = {{2, 3}, {9.2F, 14.7F}, {17, 5}, {17.3F, 5.4F}, {30, 28}};
  Coverage whole = mask_with(32, 32, {1, 0.9}, run);
  std::vector<int> joined(32 * 32);
  for (std::size_t i = 1; i < run.size(); ++i) {
    Coverage part = mask_with(32, 32, {1, 0.9}, {run[i - 1], run[i]});
    const std::vector<int> values = values_of(part);
    for (std::size_t k = 0; k < values.size(); ++k) joined[k] = std::max(joined[k], values[k]);
  }
  EXPECT_EQ(values_of(whole), joined);
}

TEST(Segment, SplitIntoCollinearPiecesLooksLikeOne) {
  Coverage whole = mask_with(40, 40, {1, 0.5}, {{2.5F, 3}, {34.5F, 27}});
  Coverage pieces = mask_with(40, 40, {1, 0.5}, {{2.5F, 3}, {10.5F, 9}, {18.5F, 15}, {34.5F, 27}});
  const std::vector<int> one = values_of(whole), many = values_of(pieces);
  for (std::size_t i = 0; i < one.size(); ++i) EXPECT_NEAR(one[i], many[i], 1);
}

TEST(Segment, TwiceThePenIsTwiceAsWide) {
  Coverage thin = mask_with(1, 40, {1, 0.5}, {{-50, 20}, {50, 20}});
  Coverage thick = mask_with(1, 40, {1, 1}, {{-50, 20}, {50, 20}});
  EXPECT_NEAR(total_of(thick), 2 * total_of(thin), 2);
}

TEST(Segment, OutsideTheMaskLeavesItUntouched) {
  Coverage mask(10, 10);
  add_segment(mask, {1, 1}, {-5, -5}, {-5, 50});
  add_segment(mask, {1, 1}, {3, 11.6F}, {9, 11.6F});
  add_segment(mask, {1, 1}, {-10, 5}, {5, -10});
  add_segment(mask, {1, 1}, {1e30F, 1e30F}, {2e30F, 3e30F});
  EXPECT_EQ(total_of(mask), 0);
}

TEST(Segment, NeverWritesBesideTheCanvas) {
  GuardedCanvas picture(13, 11);
  Coverage mask(13, 11);
  for (int i = 0; i < 200; ++i) {
    const auto a = static_cast<float>(i * 37 % 61 - 24), b = static_cast<float>(i * 53 % 59 - 24);
    add_segment(mask, {1, 0.5 + i % 7}, {a, b}, {b, -a});
    mask.flush(picture.canvas(), kNavyPixel);
  }
  EXPECT_FALSE(picture.is_white());
}

TEST(Segment, AVeryWidePenFillsTheMask) {
  Coverage mask = mask_with(30, 20, {1, 1e9}, {{-1e8F, 3}, {-1e8F, 4}});
  EXPECT_EQ(total_of(mask), 30 * 20 * 255);
}

TEST(Segment, SineCurveIsCloseToTrueAreaCoverage) {
  std::vector<Point> curve;
  for (int i = 0; i <= 240; ++i) {
    curve.push_back(
        {static_cast<float>(i * 0.5 + 4.2), static_cast<float>(30 + 24 * std::sin(i * 0.07))});
  }
  Coverage mask = mask_with(130, 60, {1, 0.5}, curve);
  const Difference error = error_of(mask, {1, 0.5}, curve);
  ASSERT_GT(error.pixels, 300);
  EXPECT_LE(error.mean, 1.5);
  EXPECT_LE(error.largest, 24);
}

// So nearly level that the slope is a subnormal number.
TEST(Segments, AlmostHorizontalOnesFromFarAwayShow) {
  for (const double half_width : {0.5, 2.5}) {
    for (const int width : {1, 16, 300}) {
      Coverage mask(width, 40);
      add_segment(mask, {1.0 / 15, half_width}, {-1e38F, 300}, {1e38F, 300.1F});
      int sum = 0;
      for (int y = 0; y < 40; ++y) sum += mask.row(y)[0];
      EXPECT_NEAR(sum, 2 * half_width * 255, 3) << half_width << ' ' << width;
    }
  }
}

}  // namespace
}  // namespace kurv::raster
