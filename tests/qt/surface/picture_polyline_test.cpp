#include <KurvGraph/picture.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "tests/qt/surface/picture_pixels.h"

namespace kurv {
namespace {

constexpr int kMaroon = 4;
constexpr int kNavy = 1;

struct Points {
  std::vector<Single> x;
  std::vector<Single> y;
  std::vector<std::uint8_t> drawn;

  void add(Single at_x, Single at_y, bool is_drawn = true) {
    x.push_back(at_x);
    y.push_back(at_y);
    drawn.push_back(is_drawn ? 1 : 0);
  }
  PolylinePoints points() const { return {x, y, drawn}; }
};

Points wave(int count, Single width) {
  Points line;
  for (int i = 0; i < count; ++i) {
    const Single x = width * static_cast<Single>(i) / static_cast<Single>(count - 1);
    line.add(x, 450 + 300 * std::sin(x / 170));
  }
  return line;
}

Points noise(int count, bool is_sorted) {
  std::mt19937 generator(3);
  std::uniform_real_distribution<Single> anywhere(0, 900);
  Points line;
  for (int i = 0; i < count; ++i) line.add(anywhere(generator), anywhere(generator));
  if (is_sorted) std::ranges::sort(line.x);
  return line;
}

struct GreyDifference {
  double mean = 0;
  int largest = 0;
};

GreyDifference difference_of(const QImage& a, const QImage& b) {
  GreyDifference difference;
  int touched = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const int one = qGray(a.pixel(x, y)), other = qGray(b.pixel(x, y));
      if (one == 255 && other == 255) continue;
      ++touched;
      difference.mean += std::abs(one - other);
      difference.largest = std::max(difference.largest, std::abs(one - other));
    }
  }
  if (touched > 0) difference.mean /= touched;
  return difference;
}

TEST(PicturePolyline, LooksLikeItsSegmentsOneByOne) {
  for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
    for (const Integer pen : {Integer{1}, Integer{2}, Integer{4}}) {
      Picture whole({60, 60}, ratio), single({60, 60}, ratio);
      const Points line = wave(40, 900);
      whole.DrawWidth(pen);
      single.DrawWidth(pen);
      whole.Polyline(line.points(), 0);
      single.PlotSurface::Polyline(line.points(), 0);
      const GreyDifference difference = difference_of(whole.image(), single.image());
      EXPECT_LE(difference.mean, 4) << ratio << ' ' << pen;
      EXPECT_LE(difference.largest, 28) << ratio << ' ' << pen;
    }
  }
}

TEST(PicturePolyline, OfUnsortedPointsIsItsSegments) {
  Picture whole({60, 60}), single({60, 60});
  const Points line = noise(60, false);
  whole.Polyline(line.points(), kMaroon);
  single.PlotSurface::Polyline(line.points(), kMaroon);
  EXPECT_FALSE(ink_of(whole.image()).isNull());
  EXPECT_EQ(whole.image(), single.image());
}

TEST(PicturePolyline, OfAVeryWidePenIsItsSegments) {
  Picture whole({60, 60}), single({60, 60});
  const Points line = wave(10, 900);
  whole.DrawWidth(200);
  single.DrawWidth(200);
  whole.Polyline(line.points(), kMaroon);
  single.PlotSurface::Polyline(line.points(), kMaroon);
  EXPECT_EQ(whole.image(), single.image());
}

TEST(PicturePolyline, LeavesOutWhatIsNotDrawn) {
  Picture picture({60, 60});
  Points line;
  line.add(0, 457.5F);
  line.add(300, 457.5F);
  line.add(600, 457.5F, false);
  line.add(900, 457.5F);
  picture.Polyline(line.points(), kMaroon);
  const QImage image = picture.image();
  EXPECT_TRUE(is_palette(image, 10, 30, kMaroon));
  EXPECT_TRUE(is_palette(image, 30, 30, kWhite));
  EXPECT_TRUE(is_palette(image, 50, 30, kMaroon));
}

TEST(PicturePolyline, CoversWhatWasDrawnBeforeAndIsCoveredByWhatComesAfter) {
  Picture picture({60, 60});
  Points level;
  level.add(-30, 307.5F);
  level.add(930, 307.5F);
  picture.Line({157.5F, -100}, {157.5F, 1000}, kNavy, LineKind::kSegment);
  picture.Polyline(level.points(), kMaroon);
  picture.Line({307.5F, -100}, {307.5F, 1000}, kNavy, LineKind::kSegment);
  Points rising;
  rising.add(607.5F, 1000);
  rising.add(607.5F, -1000);
  picture.Polyline(rising.points(), 0);
  const QImage image = picture.image();
  EXPECT_TRUE(is_palette(image, 10, 20, kMaroon));
  EXPECT_TRUE(is_palette(image, 20, 20, kNavy));
  EXPECT_TRUE(is_palette(image, 40, 20, 0));
}

TEST(PicturePolyline, IsExactlyThePaletteColour) {
  for (int colour = 0; colour < 15; ++colour) {
    Picture picture({60, 60});
    Points level;
    for (int i = -1; i <= 61; ++i) level.add(static_cast<Single>(15 * i), 157.5F);
    picture.Polyline(level.points(), colour);
    EXPECT_EQ(ink_of(picture.image()), QRect(0, 10, 60, 1));
    EXPECT_TRUE(is_filled(picture.image(), QRect(0, 10, 60, 1), colour)) << colour;
  }
}

TEST(PicturePolyline, GoesWithCls) {
  Picture picture({60, 60});
  picture.Polyline(noise(300, true).points(), kMaroon);
  picture.Cls();
  EXPECT_TRUE(ink_of(picture.image()).isNull());
}

TEST(PicturePolyline, FollowsTheSizeOfThePicture) {
  Picture used({20, 90}), fresh({60, 60}, 1.5);
  used.Polyline(wave(100, 900).points(), kMaroon);
  used.resize({60, 60}, 1.5);
  used.Polyline(wave(100, 900).points(), kMaroon);
  fresh.Polyline(wave(100, 900).points(), kMaroon);
  EXPECT_EQ(used.image(), fresh.image());
}

TEST(PicturePolyline, AbsurdNumbersNeverFail) {
  constexpr Single kInfinity = std::numeric_limits<Single>::infinity();
  const Single values[] = {
      std::numeric_limits<Single>::quiet_NaN(), -kInfinity, -3e38F, 0, 200, 1e9F, kInfinity};
  Picture picture({33, 21}, 1.25);
  for (const Integer pen : {Integer{1}, Integer{30}, Integer{32767}}) {
    picture.DrawWidth(pen);
    for (const Single a : values) {
      for (const Single b : values) {
        Points line;
        for (const Single y : values) line.add(a, y);
        for (const Single y : values) line.add(b, y);
        picture.Polyline(line.points(), 5);
        picture.Polyline({}, 5);
      }
    }
  }
  EXPECT_FALSE(ink_of(picture.image()).isNull());
}

}  // namespace
}  // namespace kurv
