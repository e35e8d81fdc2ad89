#include <gtest/gtest.h>

#include <KurvGraph/picture.h>

#include <limits>
#include <numbers>
#include <set>
#include <utility>

#include "tests/qt/surface/picture_pixels.h"

namespace kurv {
namespace {

constexpr Single kInfinity = std::numeric_limits<Single>::infinity();
constexpr Single kNaN = std::numeric_limits<Single>::quiet_NaN();
constexpr int kMaroon = 4;
constexpr int kNavy = 1;

TEST(PictureBoxes, FilledBoxCoversRoundedCornersInAnyOrder) {
  Picture picture({40, 40});
  picture.Line({507, 430}, {148, 89}, kMaroon, LineKind::kFilledBox);
  const QImage image = picture.image();
  const QRect expected(QPoint(10, 6), QPoint(33, 28));  // 9.87..33.8 and 5.93..28.67 pixels
  EXPECT_EQ(ink_of(image), expected);
  EXPECT_TRUE(is_filled(image, expected, kMaroon));
}

TEST(PictureBoxes, SmallBoxKeepsItsSizeWhereverItStands) {
  for (const LineKind kind : {LineKind::kBox, LineKind::kFilledBox}) {
    std::set<std::pair<int, int>> sizes;
    for (int step = 0; step < 30; ++step) {
      Picture picture({40, 40});
      const auto at = static_cast<Single>(200 + step * 0.7);
      picture.Line({at, at + 3}, {at + 66.7F, at + 69.7F}, kMaroon, kind);
      const QRect ink = ink_of(picture.image());
      sizes.insert({ink.width(), ink.height()});
    }
    EXPECT_EQ(sizes.size(), 1U);
    EXPECT_EQ(sizes.begin()->first, sizes.begin()->second) << "and a square is a square";
  }
}

TEST(PictureBoxes, FilledBoxOfNoSizePaintsNothing) {
  Picture picture({40, 40});
  picture.Line({150, 150}, {150, 300}, kMaroon, LineKind::kFilledBox);
  picture.Line({150, 150}, {150, 150}, kMaroon, LineKind::kFilledBox);
  EXPECT_TRUE(ink_of(picture.image()).isNull());
}

TEST(PictureBoxes, FrameIsCentredOnItsCoordinatesAndAsWideAsThePen) {
  Picture picture({40, 40});
  picture.DrawWidth(3);
  picture.Line({150, 150}, {450, 300}, kMaroon, LineKind::kBox);
  const QImage image = picture.image();
  // Edges at 10, 30 and 10, 20 pixels; each covers from floor(c - 3/2 + 1/2) on three pixels.
  EXPECT_EQ(ink_of(image), QRect(QPoint(9, 9), QPoint(31, 21)));
  EXPECT_TRUE(is_filled(image, QRect(QPoint(9, 9), QPoint(31, 11)), kMaroon));
  EXPECT_TRUE(is_filled(image, QRect(QPoint(29, 9), QPoint(31, 21)), kMaroon));
  EXPECT_TRUE(is_filled(image, QRect(QPoint(12, 12), QPoint(28, 18)), kWhite));
}

TEST(PictureBoxes, RulesEndWhereTheFrameWithTheSameCoordinatesDoes) {
  for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
    for (const Integer pen : {Integer{1}, Integer{2}, Integer{5}}) {
      Picture frame({60, 60}, ratio), rules({60, 60}, ratio);
      const SurfacePoint a{101, 203}, b{703, 555};
      frame.DrawWidth(pen);
      rules.DrawWidth(pen);
      frame.Line(a, b, kMaroon, LineKind::kBox);
      rules.Line(a, {b.x, a.y}, kMaroon, LineKind::kRule);
      rules.Line({b.x, b.y}, {b.x, a.y}, kMaroon, LineKind::kRule);
      rules.Line({a.x, b.y}, b, kMaroon, LineKind::kRule);
      rules.Line(a, {a.x, b.y}, kMaroon, LineKind::kRule);
      EXPECT_EQ(frame.image(), rules.image()) << ratio << ' ' << pen;
    }
  }
}

TEST(PictureBoxes, ThinRuleInAThickFrameLeavesNoGapAndDoesNotStickOut) {
  Picture picture({60, 60});
  picture.DrawWidth(5);
  picture.Line({150, 150}, {600, 600}, 0, LineKind::kBox);
  const QRect frame = ink_of(picture.image());
  picture.DrawWidth(1);
  picture.Line({150, 300}, {600, 300}, kMaroon, LineKind::kRule);
  const QImage image = picture.image();
  EXPECT_EQ(ink_of(image), frame);
  for (int x = frame.left(); x <= frame.right(); ++x)
    EXPECT_FALSE(is_palette(image, x, 19, kWhite) && is_palette(image, x, 20, kWhite));
}

TEST(PictureBoxes, SlantedRuleIsAnOrdinarySegment) {
  Picture rule({40, 40}), segment({40, 40});
  rule.Line({100, 100}, {400, 300}, kMaroon, LineKind::kRule);
  segment.Line({100, 100}, {400, 300}, kMaroon, LineKind::kSegment);
  EXPECT_EQ(rule.image(), segment.image());
  EXPECT_FALSE(ink_of(rule.image()).isNull());
}

TEST(PictureBoxes, InfiniteCornersFillTheVisiblePartAndNaNNothing) {
  Picture picture({40, 40});
  picture.Line({kNaN, 0}, {300, 300}, kMaroon, LineKind::kFilledBox);
  picture.Line({0, 0}, {300, kNaN}, kMaroon, LineKind::kBox);
  picture.Line({0, kNaN}, {300, kNaN}, kMaroon, LineKind::kRule);
  picture.Line({-kInfinity, -1e30F}, {kInfinity, 1e30F}, kMaroon, LineKind::kBox);
  EXPECT_TRUE(ink_of(picture.image()).isNull());
  picture.Line({-kInfinity, 300}, {300, 1e30F}, kMaroon, LineKind::kFilledBox);
  EXPECT_EQ(ink_of(picture.image()), QRect(0, 20, 20, 20));
  picture.Cls();
  picture.Line({-1e30F, 307}, {kInfinity, 307}, kMaroon, LineKind::kRule);
  EXPECT_EQ(ink_of(picture.image()), QRect(0, 20, 40, 1));
}

TEST(PictureStrokes, OnPixelCentresAreExactlyThePaletteColour) {
  for (int colour = 0; colour < 15; ++colour) {
    Picture picture({40, 40});
    picture.Line({-100, 157.5F}, {1000, 157.5F}, colour, LineKind::kSegment);
    EXPECT_EQ(ink_of(picture.image()), QRect(0, 10, 40, 1));
    EXPECT_TRUE(is_filled(picture.image(), QRect(0, 10, 40, 1), colour)) << colour;
  }
}

TEST(PictureStrokes, JointsAreNoDarkerThanTheLine) {
  Picture whole({60, 60}), pieces({60, 60});
  whole.Line({60, 75}, {780, 615}, 0, LineKind::kSegment);
  for (int i = 0; i < 24; ++i) {
    const auto a = static_cast<Single>(i), b = static_cast<Single>(i + 1);
    pieces.Line({60 + 30 * a, 75 + 22.5F * a}, {60 + 30 * b, 75 + 22.5F * b}, 0,
                LineKind::kSegment);
  }
  const QImage one = whole.image(), many = pieces.image();
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 60; ++x) {
      EXPECT_NEAR(qGray(one.pixel(x, y)), qGray(many.pixel(x, y)), 1);
    }
  }
}

TEST(PictureStrokes, HigherRatioDrawsThemWider) {
  for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
    Picture picture({40, 40}, ratio);
    picture.DrawWidth(2);
    picture.Line({-100, 300}, {1000, 300}, 0, LineKind::kSegment);
    EXPECT_NEAR(ink_in_column(picture.image(), 20), 2 * ratio, 0.02);
  }
}

TEST(PictureStrokes, AreNeverThinnerThanADevicePixel) {
  for (const Integer pen : {Integer{0}, Integer{-32768}, Integer{1}}) {
    Picture picture({40, 40}, 0.5);
    picture.DrawWidth(pen);
    picture.Line({-100, 300}, {1000, 300}, 0, LineKind::kSegment);
    EXPECT_NEAR(ink_in_column(picture.image(), 10), 1, 0.02);
  }
}

TEST(PictureStrokes, LaterColoursCoverEarlierOnes) {
  Picture picture({40, 40});
  picture.Line({-100, 157.5F}, {1000, 157.5F}, kMaroon, LineKind::kSegment);
  picture.Line({157.5F, -100}, {157.5F, 1000}, kNavy, LineKind::kSegment);
  picture.Line({307.5F, -100}, {307.5F, 1000}, kMaroon, LineKind::kSegment);
  picture.Line({-100, 307.5F}, {1000, 307.5F}, kNavy, LineKind::kSegment);
  const QImage image = picture.image();
  EXPECT_TRUE(is_palette(image, 10, 10, kNavy));
  EXPECT_TRUE(is_palette(image, 20, 10, kMaroon));
  EXPECT_TRUE(is_palette(image, 10, 20, kNavy));
  EXPECT_TRUE(is_palette(image, 20, 20, kNavy));
}

TEST(PictureStrokes, KeepTheirOrderAmongBoxesAndText) {
  Picture picture({40, 40});
  picture.Line({-100, 157.5F}, {1000, 157.5F}, kMaroon, LineKind::kSegment);
  picture.Line({150, 0}, {300, 600}, kNavy, LineKind::kFilledBox);
  picture.Line({-100, 307.5F}, {1000, 307.5F}, kMaroon, LineKind::kSegment);
  const QImage image = picture.image();
  EXPECT_TRUE(is_palette(image, 15, 10, kNavy));
  EXPECT_TRUE(is_palette(image, 15, 20, kMaroon));
}

TEST(PictureStrokes, PendingOnesKeepTheirPenWidth) {
  Picture picture({40, 40});
  picture.Line({-100, 157.5F}, {1000, 157.5F}, 0, LineKind::kSegment);
  picture.DrawWidth(9);
  EXPECT_EQ(ink_of(picture.image()).height(), 1);
}

TEST(PictureStrokes, ClsDropsThemAll) {
  Picture picture({40, 40});
  picture.DrawWidth(5);
  picture.Line({0, 0}, {600, 600}, kMaroon, LineKind::kSegment);
  picture.Cls();
  EXPECT_TRUE(ink_of(picture.image()).isNull());
  picture.Line({0, 300}, {600, 300}, kMaroon, LineKind::kRule);
  EXPECT_EQ(ink_of(picture.image()).height(), 5);
}

TEST(PictureStrokes, CircleIsARingOfItsRadius) {
  Picture picture({40, 40}, 2);
  picture.Circle({300, 300}, 150, kMaroon);
  const QImage image = picture.image();
  EXPECT_EQ(ink_of(image), QRect(QPoint(19, 19), QPoint(60, 60)));
  EXPECT_TRUE(is_palette(image, 40, 40, kWhite));
}

TEST(PictureStrokes, ArcRunsAnticlockwise) {
  Picture picture({40, 40});
  picture.Arc({307.5F, 307.5F}, 150, kMaroon, 0, std::numbers::pi_v<Single>);
  const QImage image = picture.image();
  EXPECT_TRUE(is_palette(image, 20, 10, kMaroon));
  EXPECT_TRUE(is_palette(image, 20, 30, kWhite));
}

TEST(PictureStrokes, PointIsADotOfThePen) {
  Picture picture({40, 40});
  picture.DrawWidth(4);
  picture.PSet({300, 300}, kMaroon);
  EXPECT_EQ(ink_of(picture.image()), QRect(18, 18, 4, 4));
}

TEST(PictureStrokes, AbsurdNumbersNeverFail) {
  Picture picture({33, 21}, 1.25);
  const Single values[] = {kNaN, -kInfinity, -3e38F, -1, 0, 1e-42F, 200, 1e9F, kInfinity};
  for (const Integer pen : {Integer{1}, Integer{32767}, Integer{-32768}}) {
    picture.DrawWidth(pen);
    for (const Single a : values) {
      for (const Single b : values) {
        for (const Single c : values) {
          for (const LineKind kind :
               {LineKind::kSegment, LineKind::kRule, LineKind::kBox, LineKind::kFilledBox}) {
            picture.Line({a, b}, {c, a}, -3, kind);
          }
          picture.Arc({a, b}, c, 1 << 30, a, c);
          picture.Circle({b, c}, a, 3);
          picture.PSet({a, c}, 5);
        }
      }
    }
  }
  EXPECT_FALSE(ink_of(picture.image()).isNull());
}

}  // namespace
}  // namespace kurv
