// x-monotone polylines compared with their exact coverage.
#include <numbers>

#include "raster/narrow_segments.h"
#include "tests/raster/curve.h"

namespace kurv::raster {
namespace {

constexpr int kWidth = 120, kHeight = 80;
constexpr double kMean = 3, kLargest = 24;

struct Case {
  const char* name;
  Curve curve;
  double mean = kMean;
  double largest = kLargest;
};

void PrintTo(const Case& shown, std::ostream* out) {
  *out << shown.name;
}

Curve steps() {
  Curve curve;
  for (int i = 0; i < 40; ++i) {
    curve.add(3.03 * i, 20 + i % 5 * 9);
    curve.add(3.03 * (i + 1), 20 + i % 5 * 9);
  }
  return curve;
}

Curve with_breaks(Curve curve, int every) {
  for (std::size_t i = 0; i < curve.drawn.size(); i += static_cast<std::size_t>(every)) {
    curve.drawn[i] = 0;
  }
  return curve;
}

// Many short strokes above each other, each a run of its own.
Curve dashes() {
  Curve curve;
  for (int i = 0; i < 40; ++i) {
    const double x = 50 + i * 0.02;
    curve.add(x, 3 + i * 37 % 40 * 1.9, false);
    curve.add(x + 0.01, 3 + i * 37 % 40 * 1.9);
  }
  return curve;
}

double sine(double x, int) {
  return 40 + 30 * std::sin(x * 0.12);
}

class MonotonePolylinesAgainstExactCoverage : public testing::TestWithParam<Case> {};

TEST_P(MonotonePolylinesAgainstExactCoverage, AreCloseAtEveryWidth) {
  const Case& line = GetParam();
  for (const double width : {1.0, 1.25, 1.5, 2.0, 4.0, 5.0, 7.5}) {
    const Pen pen{1, width / 2};
    const Difference error = error_of(kWidth, kHeight, pen, line.curve);
    ASSERT_GT(error.pixels, 0) << width;
    EXPECT_LE(error.mean, line.mean) << width;
    EXPECT_LE(error.largest, line.largest) << width;
  }
}

TEST_P(MonotonePolylinesAgainstExactCoverage, AreTheSameFromRightToLeft) {
  const Curve& curve = GetParam().curve;
  CurvePixels forth(kWidth, kHeight), back(kWidth, kHeight);
  forth.draw({1, 0.5}, curve);
  back.draw({1, 0.5}, curve.reversed());
  EXPECT_LE(forth.from(back).largest, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, MonotonePolylinesAgainstExactCoverage,
    testing::Values(
        Case{"DenseSmooth", curve_of(2500, -5, 125, sine)},
        Case{"SparseSmooth", curve_of(30, -5.3, 125.1, sine)},
        Case{"SparseNoise", noise(12, -5, 125, 0, 80)},
        Case{"APointInEveryPixel", noise(130, -5, 125, 0, 80), 3, 30},
        Case{"Noise", noise(600, -5, 125, 0, 80)}, Case{"DenseNoise", noise(2500, -5, 125, 20, 60)},
        Case{"LowNoise", noise(600, -5, 125, 38, 42)},
        Case{"DenseSteep", curve_of(1200, 50, 60, [](double x, int) { return (x - 50) * 8; })},
        // The x of an extremum or a jump is known to 1/16 of a pixel, so upright strokes may be off
        // by as much.
        Case{"Steep", curve_of(2, 50.03, 52.06, [](double, int i) { return i * 80; }), 7},
        Case{"Vertical", curve_of(2, 50.03, 50.03, [](double, int i) { return 10 + i * 60; }), 8},
        Case{"Flat", curve_of(2, -5, 125, [](double x, int) { return 40.2 + x * 0.01; }), 1, 3},
        Case{"DenseFlat", curve_of(2000, -5, 125, [](double x, int) { return 40.2 + x * 0.01; }), 1,
             3},
        Case{"Spikes", curve_of(600, 5, 115, [](double, int i) { return i % 30 ? 40 : 10; }), 4,
             40},
        Case{"Steps", steps(), 8, 32}, Case{"Breaks", with_breaks(noise(600, -5, 125, 0, 80), 3)},
        Case{"RareBreaks", with_breaks(noise(900, -5, 125, 0, 80), 17)},
        Case{"BreaksInASmoothLine", with_breaks(curve_of(300, -5, 125, sine), 10)},
        Case{"Dashes", dashes(), 4}),
    [](const auto& instance) { return instance.param.name; });

TEST(MonotonePolylines, VisiblePartIsExactHoweverFarTheEndsAre) {
  int compared = 0;
  for (const double far : {1e3, 1e5, 1.5e5, 1e6, 1e12, 1e30, 3e37}) {
    for (int step = -12; step <= 12; ++step) {
      const double slope = std::tan(step * 0.12);
      for (const bool has_end : {false, true}) {
        Curve curve;
        curve.add(has_end ? 20.3 : -far, has_end ? 20.6 : 11 - far * slope);
        curve.add(far, 17 + far * slope);
        const Difference error = error_of(40, 32, {1, 1}, curve);
        ASSERT_LE(error.largest, kLargest) << far << ' ' << step << ' ' << has_end;
        if (error.pixels > 0) ++compared;
      }
    }
  }
  EXPECT_GT(compared, 200);
}

TEST(MonotonePolylines, InfiniteHeightIsTheLargestFiniteNumber) {
  Curve curve;
  curve.add(10.5, 20);
  curve.add(20.5, std::numeric_limits<float>::infinity());
  curve.add(30.5, 25);
  curve.add(33.5, -std::numeric_limits<float>::infinity());
  curve.add(36.5, std::numeric_limits<float>::infinity());
  const Difference error = error_of(50, 40, {1, 1}, curve);
  EXPECT_GT(error.pixels, 100);
  EXPECT_LE(error.largest, kLargest);
}

TEST(MonotonePolylines, LineFarToEitherSideShowsNothing) {
  for (const double aside : {-1e30, -1e6, -200.0, -2.0, 42.0, 300.0, 1e6, 1e30}) {
    Curve curve;
    for (int i = 0; i < 20; ++i) curve.add(aside + (aside > 0 ? i : i - 20), i % 7 * 5);
    CurvePixels pixels(40, 32);
    pixels.draw({1, 1}, curve);
    EXPECT_EQ(pixels.total(), 0) << aside;
  }
}

TEST(MonotonePolylines, LineInPiecesIsTheWholeLine) {
  const Curve whole = curve_of(200, -5, 125, sine);
  CurvePixels one(kWidth, kHeight), many(kWidth, kHeight);
  one.draw({1, 0.5}, whole);
  MonotonePolylines polylines(kWidth, kHeight);
  for (std::size_t first = 0; first + 1 < whole.x.size(); first += 7) {
    Curve piece;
    for (std::size_t i = first; i < std::min(first + 8, whole.x.size()); ++i) {
      piece.add(whole.x[i], whole.y[i]);
    }
    ASSERT_TRUE(polylines.add({1, 0.5}, piece.line()));
  }
  polylines.flush(many.canvas(), 0xFF000000);
  const Difference difference = many.from(one);
  EXPECT_LE(difference.mean, 2);
  EXPECT_LE(difference.largest, 20);
}

TEST(MonotonePolylines, JointsAreNoDarkerThanTheLine) {
  for (const double slope : {0.0, 0.3, 1.0, 4.0}) {
    const auto height = [slope](double x, int) { return 40 + (x - 60) * slope; };
    CurvePixels two(kWidth, kHeight), many(kWidth, kHeight);
    two.draw({1, 0.5}, curve_of(2, -65, 185, height));
    many.draw({1, 0.5}, curve_of(1000, -65, 185, height));
    EXPECT_LE(two.from(many).largest, slope > 1 ? 8 : 2) << slope;
  }
}

// A single segment is collected in the coverage mask, a polyline in subcolumns.
TEST(MonotonePolylines, SegmentLooksTheSameAlone) {
  for (const double half_width : {0.5, 1.0, 2.0}) {
    for (int step = -8; step <= 8; ++step) {
      const double slope = std::tan(step * 0.18);
      const double run = 50 / std::hypot(1, slope);
      const Point from{static_cast<float>(60 - run / 2), static_cast<float>(40 - run / 2 * slope)};
      const Point to{static_cast<float>(60 + run / 2), static_cast<float>(40 + run / 2 * slope)};
      Curve curve;
      curve.add(from.x, from.y);
      curve.add(to.x, to.y);
      CurvePixels pixels(kWidth, kHeight);
      pixels.draw({1, half_width}, curve);
      Coverage mask(kWidth, kHeight);
      NarrowSegments narrow_segments(kWidth, kHeight);
      add_segment(mask, narrow_segments, {1, half_width}, from, to);
      narrow_segments.merge_into(mask);
      const Difference difference = difference_of(
          kWidth, kHeight, [&](int x, int y) { return pixels.at(x, y); },
          [&](int x, int y) { return mask.row(y)[x]; });
      EXPECT_LE(difference.mean, 4) << half_width << ' ' << step;
      EXPECT_LE(difference.largest, 24) << half_width << ' ' << step;
    }
  }
}

}  // namespace
}  // namespace kurv::raster
