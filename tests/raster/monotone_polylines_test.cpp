#include "raster/monotone_polylines.h"

#include <limits>
#include <numbers>

#include "raster/blend.h"
#include "tests/raster/curve.h"

namespace kurv::raster {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr std::uint32_t kBlackPixel = 0xFF000000;

CurvePixels pixels_of(int width, int height, const Pen& pen, const Curve& curve) {
  return {width, height, pen, curve};
}

bool accepts(const std::vector<float>& x) {
  MonotonePolylines polylines(10, 10);
  const std::vector<float> y(x.size(), 5.0F);
  const std::vector<std::uint8_t> drawn(x.size(), 1);
  return polylines.add({1, 0.5}, {x, y, drawn});
}

TEST(MonotonePolylines, AcceptMonotonicX) {
  EXPECT_TRUE(accepts({}));
  EXPECT_TRUE(accepts({4}));
  EXPECT_TRUE(accepts({1, 2, 2, 9}));
  EXPECT_TRUE(accepts({9, 2, 2, 1}));
  EXPECT_TRUE(accepts({3, 3, 3}));
  EXPECT_TRUE(accepts({-3e38F, 0, 3e38F}));
  EXPECT_FALSE(accepts({1, 2, 1.9F}));
  EXPECT_FALSE(accepts({2, 1, 1.1F}));
  EXPECT_FALSE(accepts({1, 2, kInfinity}));
  EXPECT_FALSE(accepts({-kInfinity, 2, 3}));
  EXPECT_FALSE(accepts({kInfinity, 2, 1}));
  EXPECT_FALSE(accepts({1, kNaN, 3}));
  EXPECT_FALSE(accepts({kNaN}));
}

TEST(MonotonePolylines, DrawNothingOfWhatTheyDoNotAccept) {
  MonotonePolylines polylines(20, 20);
  const Curve back_and_forth = [] {
    Curve curve;
    for (const double x : {2, 12, 7, 18}) curve.add(x, 10);
    return curve;
  }();
  ASSERT_FALSE(polylines.add({1, 0.5}, back_and_forth.line()));
  const Curve level = curve_of(2, -5, 25, [](double, int) { return 10.5; });
  ASSERT_FALSE(polylines.add({1, 1000}, level.line())) << "the pen is too wide";
  CurvePixels pixels(20, 20);
  polylines.flush(pixels.canvas(), kBlackPixel);
  EXPECT_EQ(pixels.total(), 0);
  ASSERT_TRUE(polylines.add({1, 0.5}, level.line())) << "and go on as if nothing had been";
  polylines.flush(pixels.canvas(), kBlackPixel);
  EXPECT_EQ(pixels.total(), 20 * 255);
}

TEST(MonotonePolylines, LevelLineOnPixelCentresIsFullAndOnePixelWide) {
  for (const int count : {2, 21, 5000}) {
    const Curve curve = curve_of(count, -9, 29, [](double, int) { return 4.5; });
    const CurvePixels pixels = pixels_of(20, 9, {1, 0.5}, curve);
    for (int x = 0; x < 20; ++x) EXPECT_EQ(pixels.at(x, 4), 255) << count;
    EXPECT_EQ(pixels.total(), 20 * 255) << count;
  }
}

TEST(MonotonePolylines, BetweenTwoRowsCoverHalfOfEach) {
  const CurvePixels pixels =
      pixels_of(20, 9, {1, 0.5}, curve_of(300, -9, 29, [](double, int) { return 4; }));
  EXPECT_NEAR(pixels.at(10, 3), 128, 1);
  EXPECT_NEAR(pixels.at(10, 4), 128, 1);
}

TEST(MonotonePolylines, EveryPenIsAsWideAsItSays) {
  for (const double half_width : {0.5, 0.55, 0.625, 0.75, 1.0, 2.0, 2.5, 3.75, 20.0}) {
    const Curve level = curve_of(2, -50, 150, [](double, int) { return 40.3; });
    EXPECT_NEAR(pixels_of(1, 80, {1, half_width}, level).total(), 2 * half_width * 255, 3)
        << half_width;
    Curve upright;
    upright.add(40.3, -300);
    upright.add(40.3, 300);
    EXPECT_NEAR(pixels_of(80, 1, {1, half_width}, upright).total(), 2 * half_width * 255, 18)
        << half_width;
  }
}

TEST(MonotonePolylines, UnitsAreThoseOfThePen) {
  const Curve pixels = curve_of(40, -5, 45, [](double x, int) { return 15 + 10 * std::sin(x); });
  Curve twips = pixels;
  for (float& x : twips.x) x *= 16;
  for (float& y : twips.y) y *= 16;
  EXPECT_LE(pixels_of(40, 30, {1.0 / 16, 1}, twips).from(pixels_of(40, 30, {1, 1}, pixels)).largest,
            1);
}

TEST(MonotonePolylines, IsolatedPointsAndSinglePointsDrawNothing) {
  Curve curve;
  curve.add(5, 5);
  EXPECT_EQ(pixels_of(10, 10, {1, 1}, curve).total(), 0);
  curve.add(7, 5, false);
  curve.add(9, 5, false);
  EXPECT_EQ(pixels_of(10, 10, {1, 1}, curve).total(), 0);
  EXPECT_EQ(pixels_of(10, 10, {1, 1}, Curve()).total(), 0);
}

TEST(MonotonePolylines, TwoEqualPointsAreADotOfThePen) {
  Curve curve;
  curve.add(5, 5);
  curve.add(5, 5);
  for (const double half_width : {0.5, 1.0, 2.5}) {
    EXPECT_NEAR(pixels_of(10, 10, {1, half_width}, curve).total(),
                255 * std::numbers::pi * half_width * half_width, 14)
        << half_width;
  }
}

TEST(MonotonePolylines, NaNEndsALineAndBeginsAnother) {
  Curve curve;
  curve.add(2.5, 4.5);
  curve.add(6.5, 4.5);
  curve.add(8, kNaN);
  curve.add(12.5, 4.5);
  curve.add(16.5, 4.5);
  const CurvePixels pixels = pixels_of(20, 9, {1, 0.5}, curve);
  EXPECT_EQ(pixels.at(4, 4), 255);
  EXPECT_EQ(pixels.at(9, 4), 0);
  EXPECT_EQ(pixels.at(14, 4), 255);
}

TEST(MonotonePolylines, AreTheSameHoweverWideThePictureIs) {
  const Curve curve = noise(300, -3, 70, 2, 35);
  const CurvePixels wide = pixels_of(67, 37, {1, 0.8}, curve);
  for (int width = 1; width < 67; ++width) {
    const CurvePixels narrow = pixels_of(width, 37, {1, 0.8}, curve);
    for (int y = 0; y < 37; ++y) {
      for (int x = 0; x < width; ++x) ASSERT_EQ(narrow.at(x, y), wide.at(x, y)) << width;
    }
  }
}

int ink_of(const Curve& curve) {
  return pixels_of(30, 80, {1, 0.5}, curve).total();
}

// A point at the edge of a subcolumn, where one run ends and another begins.
TEST(MonotonePolylines, ARunBeginsWithItsOwnSegments) {
  Curve gap;
  gap.add(0, 30.5);
  gap.add(10, 30.5);
  gap.add(10, 60.5, false);
  gap.add(20, 60.5);
  const int dots = 2 * 255;
  EXPECT_NEAR(ink_of(gap), 20 * 255 + dots, dots);
  Curve far;
  far.add(0, 30.5, false);
  far.add(10, 1e10, false);
  far.add(20, 60.5, false);
  far.add(30, 60.5);
  EXPECT_NEAR(ink_of(far), 10 * 255, dots);
}

// A plateau before a spike does not widen the foot of the spike.
TEST(MonotonePolylines, PlateausAreNoExtremaWhereTheLineGoesOn) {
  Curve level, none;
  for (int i = 0; i <= 20; ++i) level.add(i * 0.5, 8.9);
  level.add(10.7, 75);
  none.add(0, 8.9);
  none.add(10, 8.9);
  none.add(10.7, 75);
  const CurvePixels with = pixels_of(30, 80, {1, 0.5}, level);
  EXPECT_LE(with.from(pixels_of(30, 80, {1, 0.5}, none)).largest, 2);
}

TEST(MonotonePolylines, AreEmptyAfterAFlush) {
  MonotonePolylines polylines(30, 20);
  ASSERT_TRUE(polylines.add({1, 0.5}, noise(90, 0, 30, 0, 20).line()));
  CurvePixels once(30, 20), twice(30, 20);
  polylines.flush(once.canvas(), kBlackPixel);
  EXPECT_GT(once.total(), 0);
  polylines.flush(twice.canvas(), kBlackPixel);
  EXPECT_EQ(twice.total(), 0);
}

TEST(MonotonePolylines, NeverShowOnceCleared) {
  MonotonePolylines polylines(30, 20);
  ASSERT_TRUE(polylines.add({1, 0.5}, noise(90, 0, 30, 0, 20).line()));
  polylines.clear();
  CurvePixels pixels(30, 20);
  polylines.flush(pixels.canvas(), kBlackPixel);
  EXPECT_EQ(pixels.total(), 0);
}

// Nothing that was drawn before, with any pen, affects the next line.
TEST(MonotonePolylines, DrawTheSameAfterAnyOtherLine) {
  const std::vector<Curve> curves = {
      noise(900, -3, 44, 0, 37),    noise(20, -3, 44, 0, 37), noise(900, -3, 20, 0, 37),
      noise(900, 20.3, 70, 0, 37),  noise(7, 5, 6, 0, 37),    noise(900, -3, 44, 0, 37).reversed(),
      noise(300, 11, 12, -90, -50),
  };
  MonotonePolylines polylines(40, 37);
  for (const double half_width : {0.5, 2.0, 0.75, 3.0}) {
    for (std::size_t i = 0; i < 2 * curves.size(); ++i) {
      const Curve& curve = curves[i * 3 % curves.size()];
      CurvePixels used(40, 37);
      ASSERT_TRUE(polylines.add({1, half_width}, curve.line()));
      polylines.flush(used.canvas(), kBlackPixel);
      const CurvePixels fresh = pixels_of(40, 37, {1, half_width}, curve);
      ASSERT_EQ(used.from(fresh).largest, 0) << half_width << ' ' << i;
    }
  }
}

TEST(MonotonePolylines, BlendTheColourByCoverage) {
  const Curve curve = noise(60, 0, 20, 0, 20);
  const CurvePixels coverage = pixels_of(20, 20, {1, 0.5}, curve);
  GuardedCanvas picture(20, 20);
  MonotonePolylines polylines(20, 20);
  ASSERT_TRUE(polylines.add({1, 0.5}, curve.line()));
  polylines.flush(picture.canvas(), kMaroonPixel);
  for (int y = 0; y < 20; ++y) {
    for (int x = 0; x < 20; ++x) {
      const auto covered = static_cast<std::uint32_t>(coverage.at(x, y));
      ASSERT_EQ(picture.at(x, y), blend(kWhitePixel, kMaroonPixel, covered));
    }
  }
}

TEST(MonotonePolylines, NeverWriteBesideTheCanvas) {
  for (const auto& [width, height] : {std::pair{1, 1}, {1, 30}, {30, 1}, {13, 11}}) {
    for (const double half_width : {0.5, 2.0, 40.0}) {
      CurvePixels pixels(width, height);
      pixels.draw({1, half_width}, noise(200, -90, 130, -90, 130));
      pixels.draw({1, half_width}, noise(9, -1e30, 1e30, -3e38, 3e38));
      EXPECT_GT(pixels.total(), 0);
    }
  }
}

TEST(MonotonePolylines, SurviveAbsurdNumbers) {
  const float values[] = {-kInfinity, -3e38F, -1e9F, -1,        -1e-42F, 0,
                          3,          1e9F,   3e38F, kInfinity, kNaN};
  for (const double scale : {1e-9, 1 / 15.0, 16.0}) {
    MonotonePolylines polylines(13, 11);
    CurvePixels pixels(13, 11);
    Curve curve;
    for (const float x : {-3e38F, -3e38F, -1e9F, -1.0F, 0.0F, 3.0F, 3.0F, 1e9F, 3e38F}) {
      for (const float y : values) curve.add(x, y);
    }
    ASSERT_TRUE(polylines.add({scale, 0.5}, curve.line()));
    ASSERT_TRUE(polylines.add({scale, 0.5}, curve.reversed().line()));
    polylines.flush(pixels.canvas(), kBlackPixel);
    EXPECT_GT(pixels.total(), 0);
  }
}

}  // namespace
}  // namespace kurv::raster
