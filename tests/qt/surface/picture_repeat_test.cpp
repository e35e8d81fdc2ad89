#include <KurvGraph/picture.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <vector>

#include "tests/qt/surface/picture_pixels.h"

namespace kurv {
namespace {

constexpr int kMaroon = 4;
constexpr Double kReach = 70;

SurfacePoint at(FigureCentre centre, Double dx, Double dy) {
  return {static_cast<Single>(centre.x + dx), static_cast<Single>(centre.y + dy)};
}

// White below, strokes above.
void draw_figure(PlotSurface& surface, FigureCentre centre) {
  surface.Line(at(centre, -55, -55), at(centre, 55, 55), kWhite, LineKind::kFilledBox);
  surface.Line(at(centre, -50, 50), at(centre, 50, -50), kMaroon, LineKind::kSegment);
  surface.Circle(at(centre, 0, 0), 45, kMaroon);
}

void draw_strokes(PlotSurface& surface, FigureCentre centre) {
  surface.Line(at(centre, -50, 50), at(centre, 50, -50), kMaroon, LineKind::kSegment);
  surface.Circle(at(centre, 0, 0), 45, kMaroon);
}

// Centres in the layout of PlotSurface.
struct Centres {
  std::vector<Double> x;
  std::vector<Double> y;

  explicit Centres(const std::vector<FigureCentre>& centres) {
    for (const FigureCentre& centre : centres) {
      x.push_back(centre.x);
      y.push_back(centre.y);
    }
  }
};

void repeat(Picture& picture, const std::vector<FigureCentre>& centres, Double reach,
            const PlotSurface::Figure& figure) {
  const Centres columns(centres);
  picture.Repeat({columns.x, columns.y}, reach, figure);
}

std::vector<FigureCentre> random_centres(int count, Double low, Double high) {
  std::mt19937 generator(11);
  std::uniform_real_distribution<Double> anywhere(low, high);
  std::vector<FigureCentre> centres;
  for (int i = 0; i < count; ++i) centres.push_back({anywhere(generator), anywhere(generator)});
  return centres;
}

FigureCentre at_a_quarter_pixel(FigureCentre centre, Double twips_per_pixel) {
  const Double quarter = twips_per_pixel / 4;
  return {std::floor(centre.x / quarter + 0.5) * quarter,
          std::floor(centre.y / quarter + 0.5) * quarter};
}

// Each figure alone on a backdrop that shows its transparency, everywhere and across each edge.
TEST(PictureRepeat, DrawsFiguresAtTheNearestQuarterOfAPixel) {
  for (const double ratio : {1.0, 1.25, 2.0}) {
    for (const FigureCentre& centre : random_centres(60, -90, 690)) {
      Picture with_sprites({40, 40}, ratio), drawn({40, 40}, ratio);
      for (Picture* picture : {&with_sprites, &drawn}) {
        picture->Line({0, 0}, {600, 300}, 3, LineKind::kFilledBox);
      }
      repeat(with_sprites, std::vector<FigureCentre>(100, centre), kReach, draw_strokes);
      draw_strokes(drawn, at_a_quarter_pixel(centre, drawn.twips_per_device_pixel()));
      ASSERT_LE(largest_difference(with_sprites.image(), drawn.image()), 1)
          << centre.x << ' ' << centre.y << ' ' << ratio;
    }
  }
}

// The later figure hides the earlier one.
TEST(PictureRepeat, KeepsTheOrderOfFigures) {
  Picture picture({60, 60});
  std::vector<FigureCentre> centres = random_centres(200, 100, 800);
  repeat(picture, centres, kReach, draw_figure);
  // Whatever is below, the last one looks as if it were alone.
  Picture alone({60, 60});
  const FigureCentre last = centres.back();
  draw_strokes(alone, at_a_quarter_pixel(last, 15));
  const QRect inner(static_cast<int>(last.x / 15) - 2, static_cast<int>(last.y / 15) - 2, 5, 5);
  EXPECT_LE(largest_difference(picture.image().copy(inner), alone.image().copy(inner)), 1);
  EXPECT_FALSE(ink_of(alone.image().copy(inner)).isNull());
}

TEST(PictureRepeat, DrawsFewFiguresAsTheyAre) {
  Picture repeated({60, 60}), drawn({60, 60});
  const std::vector<FigureCentre> centres = random_centres(20, 0, 900);
  repeat(repeated, centres, kReach, draw_figure);
  const Centres columns(centres);
  drawn.PlotSurface::Repeat({columns.x, columns.y}, kReach, draw_figure);
  EXPECT_EQ(repeated.image(), drawn.image());
}

TEST(PictureRepeat, DrawsLargeFiguresAsTheyAre) {
  for (const Double reach : {1e3, 1e30, std::numeric_limits<Double>::infinity(),
                             std::numeric_limits<Double>::quiet_NaN()}) {
    Picture repeated({60, 60}), drawn({60, 60});
    const std::vector<FigureCentre> centres = random_centres(100, 0, 900);
    repeat(repeated, centres, reach, draw_figure);
    const Centres columns(centres);
    drawn.PlotSurface::Repeat({columns.x, columns.y}, reach, draw_figure);
    EXPECT_EQ(repeated.image(), drawn.image()) << reach;
  }
}

TEST(PictureRepeat, DrawsEachFigureAtMostOnceForEveryQuarterAndGround) {
  Picture picture({60, 60});
  int calls = 0;
  repeat(picture, random_centres(5000, 0, 900), kReach,
         [&calls](PlotSurface& surface, FigureCentre centre) {
           ++calls;
           draw_figure(surface, centre);
         });
  EXPECT_EQ(calls, 2 * 16);
}

TEST(PictureRepeat, UsesThePenOfThePicture) {
  for (const Integer pen : {Integer{1}, Integer{3}}) {
    Picture repeated({40, 40}), drawn({40, 40});
    repeated.DrawWidth(pen);
    drawn.DrawWidth(pen);
    const FigureCentre centre{300, 300};
    repeat(repeated, std::vector<FigureCentre>(100, centre), kReach, draw_strokes);
    draw_strokes(drawn, centre);
    EXPECT_LE(largest_difference(repeated.image(), drawn.image()), 1) << pen;
  }
}

TEST(PictureRepeat, StandsAboveWhatWasDrawnBefore) {
  Picture picture({40, 40});
  picture.Line({-100, 300}, {1000, 300}, 1, LineKind::kSegment);
  repeat(picture, std::vector<FigureCentre>(100, FigureCentre{300, 300}), kReach,
         [](PlotSurface& surface, FigureCentre centre) {
           surface.Line(at(centre, -50, -50), at(centre, 50, 50), kWhite, LineKind::kFilledBox);
         });
  EXPECT_TRUE(is_palette(picture.image(), 20, 20, kWhite));
  EXPECT_FALSE(is_palette(picture.image(), 5, 20, kWhite));
}

TEST(PictureRepeat, LeavesOutCentresThatAreNotFinite) {
  constexpr Double kInfinity = std::numeric_limits<Double>::infinity();
  constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
  Picture picture({40, 40});
  std::vector<FigureCentre> centres;
  for (const Double unusable : {kNaN, kInfinity, -kInfinity, 1e300, -1e300, 1e10}) {
    for (int i = 0; i < 30; ++i) {
      centres.push_back({unusable, 300});
      centres.push_back({300, unusable});
      centres.push_back({unusable, unusable});
    }
  }
  repeat(picture, centres, kReach, draw_figure);
  EXPECT_TRUE(ink_of(picture.image()).isNull());
}

// Figures are painted later than they are drawn, but before anything that is drawn after them.
TEST(PictureRepeat, LiesBelowWhatIsDrawnAfterwards) {
  Picture picture({40, 40});
  const std::vector<FigureCentre> centres(100, FigureCentre{300, 300});
  const auto square = [](PlotSurface& surface, FigureCentre centre) {
    surface.Line(at(centre, -60, -60), at(centre, 60, 60), kMaroon, LineKind::kFilledBox);
  };
  repeat(picture, centres, kReach, square);
  picture.Line({0, 300}, {600, 300}, 1, LineKind::kRule);
  EXPECT_TRUE(is_palette(picture.image(), 20, 20, 1));
  EXPECT_TRUE(is_palette(picture.image(), 20, 18, kMaroon));
  repeat(picture, centres, kReach, square);
  EXPECT_TRUE(is_palette(picture.image(), 20, 20, kMaroon));
  picture.DrawWidth(3);
  picture.Line({0, 300}, {600, 300}, kMaroon, LineKind::kSegment);
  repeat(picture, centres, kReach, square);
  picture.Line({0, 307}, {600, 307}, 1, LineKind::kSegment);
  EXPECT_TRUE(is_palette(picture.image(), 20, 20, 1));
  EXPECT_TRUE(is_palette(picture.image(), 20, 17, kMaroon));
}

TEST(PictureRepeat, LaterFiguresLieAboveEarlierOnes) {
  Picture picture({40, 40});
  const auto square_of = [](int colour) {
    return [colour](PlotSurface& surface, FigureCentre centre) {
      surface.Line(at(centre, -60, -60), at(centre, 60, 60), colour, LineKind::kFilledBox);
    };
  };
  repeat(picture, std::vector<FigureCentre>(100, FigureCentre{300, 300}), kReach, square_of(1));
  repeat(picture, std::vector<FigureCentre>(100, FigureCentre{330, 300}), kReach, square_of(2));
  EXPECT_TRUE(is_palette(picture.image(), 17, 20, 1));
  EXPECT_TRUE(is_palette(picture.image(), 20, 20, 2));
  EXPECT_TRUE(is_palette(picture.image(), 25, 20, 2));
}

TEST(PictureRepeat, IsGoneWhenThePictureIsClearedOrResized) {
  Picture picture({40, 40});
  repeat(picture, random_centres(100, 0, 600), kReach, draw_figure);
  picture.Cls();
  EXPECT_TRUE(ink_of(picture.image()).isNull());
  repeat(picture, random_centres(100, 0, 600), kReach, draw_figure);
  picture.resize({30, 30}, 1);
  EXPECT_TRUE(ink_of(picture.image()).isNull());
}

TEST(PictureRepeat, MissingCentresDoNotCount) {
  Picture repeated({60, 60}), drawn({60, 60});
  std::vector<FigureCentre> centres = random_centres(20, 0, 900);
  for (const FigureCentre& centre : centres) draw_figure(drawn, centre);
  centres.resize(200, {std::numeric_limits<Double>::quiet_NaN(), 300});
  repeat(repeated, centres, kReach, draw_figure);
  EXPECT_EQ(repeated.image(), drawn.image());
}

TEST(PictureRepeat, LeavesAPictureThatWasHandedOutAlone) {
  Picture picture({40, 40});
  const QImage before = picture.image();
  repeat(picture, random_centres(100, 0, 600), kReach, draw_figure);
  EXPECT_TRUE(ink_of(before).isNull());
  EXPECT_FALSE(ink_of(picture.image()).isNull());
}

}  // namespace
}  // namespace kurv
