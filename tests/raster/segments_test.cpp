#include <cmath>
#include <cstdio>
#include <limits>
#include <numbers>
#include <utility>
#include <vector>

#include "raster/strokes.h"
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

// The same by the definition, in quadruple precision.
using Wide = __float128;

double wide_sqrt(Wide value) {
  // One Newton step on the double root.
  Wide root = std::sqrt(static_cast<double>(value));
  if (root > 0) root = (root + value / root) / 2;
  return static_cast<double>(root);
}

double exact_distance(Point from, Point to, double scale, double x, double y) {
  // Seen from the nearer end; from one 1e38 away even these numbers would lose the pixel.
  if (std::hypot(from.x, from.y) > std::hypot(to.x, to.y)) std::swap(from, to);
  const Wide dx = Wide(to.x) - from.x, dy = Wide(to.y) - from.y;
  const Wide px = Wide(x) / scale, py = Wide(y) / scale;
  const Wide from_x = px - from.x, from_y = py - from.y;
  const Wide length_squared = dx * dx + dy * dy;
  const Wide along = from_x * dx + from_y * dy;
  if (length_squared == 0 || along <= 0) {
    return wide_sqrt(from_x * from_x + from_y * from_y) * scale;
  }
  if (along >= length_squared) {
    return wide_sqrt((px - to.x) * (px - to.x) + (py - to.y) * (py - to.y)) * scale;
  }
  const Wide across = px * dy - py * dx - (Wide(from.x) * to.y - Wide(from.y) * to.x);
  return wide_sqrt(across * across / length_squared) * scale;
}

int largest_error(Coverage& mask, const Pen& pen, Point from, Point to) {
  int largest = 0;
  for (int y = 0; y < mask.height(); ++y) {
    for (int x = 0; x < mask.width(); ++x) {
      const double distance = exact_distance(from, to, pen.pixels_per_unit, x + 0.5, y + 0.5);
      const double covered = std::clamp(pen.half_width + 0.5 - distance, 0.0, 1.0);
      largest = std::max(largest, std::abs(mask.row(y)[x] - static_cast<int>(covered * 255 + 0.5)));
    }
  }
  return largest;
}

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

TEST(Segment, AgreesWithTheDefinitionAtEveryAngleAndWidth) {
  for (const double half_width : {0.5, 0.75, 1.0, 3.2}) {
    for (int step = 0; step < 72; ++step) {
      const double angle = step * std::numbers::pi / 36 + 0.001 * (step % 3);
      const Point from{20.3F, 19.9F};
      const Point to{static_cast<float>(20.3 + 17 * std::cos(angle)),
                     static_cast<float>(19.9 + 17 * std::sin(angle))};
      const Pen pen{1, half_width};
      Coverage mask = mask_with(40, 40, pen, {from, to});
      ASSERT_LE(largest_error(mask, pen, from, to), 1) << half_width << ' ' << step;
    }
  }
}

TEST(Segment, OfNoLengthIsADotOfThePen) {
  const Pen pen{1, 2.5};
  Coverage mask = mask_with(12, 12, pen, {{5.5F, 5.5F}, {5.5F, 5.5F}});
  EXPECT_EQ(mask.row(5)[5], 255);
  EXPECT_EQ(mask.row(5)[7], 255);
  EXPECT_EQ(mask.row(5)[8], 0);
  EXPECT_LE(largest_error(mask, pen, {5.5F, 5.5F}, {5.5F, 5.5F}), 1);
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
        const Point from = step % 2 == 0 ? Point{middle, middle} : Point{-far, -far * slope};
        const Point ends[] = {{far, far * slope}, {far * slope, far}, {far, far * slope + 17}};
        for (const Point& end : ends) {
          Coverage mask = mask_with(32, 24, pen, {from, end});
          ASSERT_LE(largest_error(mask, pen, from, end), 1) << far << ' ' << scale << ' ' << step;
          if (total_of(mask) > 0) ++compared;
          mask.clear();
          add_segment(mask, pen, end, from);
          ASSERT_LE(largest_error(mask, pen, end, from), 1) << far << ' ' << scale << ' ' << step;
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

TEST(Segment, CutIntoCollinearPiecesLooksLikeOne) {
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

// What is covered of a pixel by the strip of half width 1/2 round the polyline, by 16 x 16 samples.
double sampled_coverage(const std::vector<Point>& line, int x, int y) {
  int inside = 0;
  for (int sample = 0; sample < 256; ++sample) {
    const double sx = x + (sample % 16 + 0.5) / 16, sy = y + (sample / 16 + 0.5) / 16;
    double nearest = 1e9;
    for (std::size_t i = 1; i < line.size(); ++i) {
      if (line[i - 1].x > sx + 2 || line[i].x < sx - 2) continue;
      const double dx = line[i].x - line[i - 1].x, dy = line[i].y - line[i - 1].y;
      const double px = sx - line[i - 1].x, py = sy - line[i - 1].y;
      const double t = std::clamp((px * dx + py * dy) / (dx * dx + dy * dy), 0.0, 1.0);
      nearest = std::min(nearest, std::hypot(px - t * dx, py - t * dy));
    }
    if (nearest <= 0.5) ++inside;
  }
  return inside / 256.0;
}

TEST(Segment, SineCurveIsCloseToTrueAreaCoverage) {
  std::vector<Point> curve;
  for (int i = 0; i <= 240; ++i) {
    curve.push_back(
        {static_cast<float>(i * 0.5 + 4.2), static_cast<float>(30 + 24 * std::sin(i * 0.07))});
  }
  Coverage mask = mask_with(130, 60, {1, 0.5}, curve);
  double error = 0;
  int pixels = 0;
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 130; ++x) {
      const double exact = 255 * sampled_coverage(curve, x, y);
      if (exact == 0 && mask.row(y)[x] == 0) continue;
      error += std::abs(exact - mask.row(y)[x]);
      ++pixels;
    }
  }
  ASSERT_GT(pixels, 300);
  std::printf("mean error %d/1000 of 255 over %d pixels\n", static_cast<int>(1000 * error / pixels),
              pixels);
  EXPECT_LE(error / pixels, 4);
}

}  // namespace
}  // namespace kurv::raster
