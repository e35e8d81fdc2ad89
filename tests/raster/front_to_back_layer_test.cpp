#include "raster/front_to_back_layer.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/raster/curve.h"

namespace kurv::raster {
namespace {

constexpr std::uint32_t kColours[] = {0xFF000080, 0xFFC0C0C0, 0xFFFF0000, 0xFF00FF00, 0xFF123456};

int largest_difference(const GuardedCanvas& a, const GuardedCanvas& b, int width, int height) {
  int largest = 0;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      for (const int shift : {0, 8, 16, 24}) {
        const auto channel = [shift](std::uint32_t pixel) {
          return static_cast<int>((pixel >> shift) & 255);
        };
        largest = std::max(largest, std::abs(channel(a.at(x, y)) - channel(b.at(x, y))));
      }
    }
  }
  return largest;
}

struct ColouredCurve {
  Curve curve;
  std::uint32_t colour;
};

void draw_back_to_front(GuardedCanvas& picture, int width, int height, const Pen& pen,
                        const std::vector<ColouredCurve>& curves) {
  MonotonePolylines polylines(width, height);
  for (const auto& [curve, colour] : curves) {
    ASSERT_TRUE(polylines.add(pen, curve.line()));
    polylines.flush(picture.canvas(), colour);
  }
}

void draw_front_to_back(GuardedCanvas& picture, FrontToBackLayer& layer, int width, int height,
                        const Pen& pen, const std::vector<ColouredCurve>& curves) {
  MonotonePolylines polylines(width, height);
  for (auto i = curves.rbegin(); i != curves.rend(); ++i) {
    ASSERT_TRUE(polylines.accepts(pen, i->curve.line().x));
    polylines.add_accepted(pen, i->curve.line(), &layer);
    polylines.flush(layer, i->colour);
  }
  layer.flush(picture.canvas());
}

std::vector<ColouredCurve> noisy_curves(int count, int points, double width, double height) {
  std::vector<ColouredCurve> curves;
  for (int i = 0; i < count; ++i) {
    const double middle = height * (0.2 + 0.6 * ((i * 7) % 10) / 9.0);
    curves.push_back({noise(points + i, -3, width + 4, middle - height / 6, middle + height / 6),
                      kColours[static_cast<std::size_t>(i) % 5]});
  }
  return curves;
}

// Drawn back to front, each blend rounds to a whole colour step, so each may be half a step off.
TEST(FrontToBackLayer, GivesThePictureThatIsDrawnBackToFront) {
  for (const auto& [width, height] : {std::pair{100, 90}, {16, 64}, {7, 130}, {33, 1}}) {
    for (const double half_width : {0.5, 1.3, 4.0}) {
      for (const int points : {60, 5000}) {
        const auto curves = noisy_curves(24, points, width, height);
        GuardedCanvas back_to_front(width, height), front_to_back(width, height);
        FrontToBackLayer layer(width, height);
        draw_back_to_front(back_to_front, width, height, {1, half_width}, curves);
        draw_front_to_back(front_to_back, layer, width, height, {1, half_width}, curves);
        EXPECT_FALSE(back_to_front.is_white());
        EXPECT_LE(largest_difference(back_to_front, front_to_back, width, height), 3)
            << width << ' ' << half_width << ' ' << points;
      }
    }
  }
}

TEST(FrontToBackLayer, IsEmptyAgainAfterAFlush) {
  const auto curves = noisy_curves(3, 900, 40, 50);
  FrontToBackLayer layer(40, 50);
  GuardedCanvas first(40, 50), nothing(40, 50), again(40, 50);
  draw_front_to_back(first, layer, 40, 50, {1, 0.5}, curves);
  layer.flush(nothing.canvas());
  EXPECT_TRUE(nothing.is_white());
  draw_front_to_back(again, layer, 40, 50, {1, 0.5}, curves);
  EXPECT_EQ(largest_difference(first, again, 40, 50), 0);
}

RowCoverage covered(int left, int right) {
  return {U16x8{} + static_cast<std::uint16_t>(left), U16x8{} + static_cast<std::uint16_t>(right)};
}

TEST(FrontToBackLayer, OccludesWhereEveryPixelOfEveryRowIsOpaque) {
  FrontToBackLayer layer(32, 200);
  for (int y = 40; y < 150; ++y) layer.blend_under(1, y, covered(255, 255), kColours[0]);
  EXPECT_TRUE(layer.occludes(1, 40, 150));
  EXPECT_TRUE(layer.occludes(1, 63, 64));
  EXPECT_FALSE(layer.occludes(1, 39, 150));
  EXPECT_FALSE(layer.occludes(1, 40, 151));
  EXPECT_FALSE(layer.occludes(0, 60, 70)) << "the tile beside it";
  EXPECT_FALSE(layer.occludes(1, 0, 200));
  EXPECT_FALSE(layer.occludes(1, -10, 60));

  layer.blend_under(1, 150, covered(255, 254), kColours[1]);
  EXPECT_FALSE(layer.occludes(1, 150, 151));
  layer.blend_under(1, 150, covered(0, 255), kColours[2]);
  EXPECT_TRUE(layer.occludes(1, 40, 151)) << "by two together";
}

TEST(FrontToBackLayer, NeitherOccludesNorShowsOnceCleared) {
  FrontToBackLayer layer(32, 20);
  layer.blend_under(0, 7, covered(255, 255), kColours[0]);
  layer.clear();
  EXPECT_FALSE(layer.occludes(0, 7, 8));
  GuardedCanvas picture(32, 20);
  layer.flush(picture.canvas());
  EXPECT_TRUE(picture.is_white());
}

TEST(FrontToBackLayer, OccludesEmptyRangesOfRows) {
  const FrontToBackLayer layer(32, 200);
  EXPECT_TRUE(layer.occludes(0, 5, 5));
  EXPECT_TRUE(layer.occludes(0, 9, 2));
  EXPECT_TRUE(layer.occludes(0, -7, 0));
  EXPECT_TRUE(layer.occludes(1, 200, 300));
  EXPECT_FALSE(layer.occludes(0, 199, 300));
}

TEST(FrontToBackLayer, OpaquePixelsHideAndOthersShowTheBackdrop) {
  GuardedCanvas picture(16, 2);
  FrontToBackLayer layer(16, 2);
  layer.blend_under(0, 0, covered(255, 51), 0xFFFF0000);
  layer.blend_under(0, 0, covered(255, 255), 0xFF0000FF);
  layer.blend_under(0, 0, covered(255, 255), 0xFF00FF00);
  layer.flush(picture.canvas());
  EXPECT_EQ(picture.at(0, 0), 0xFFFF0000);
  EXPECT_EQ(picture.at(15, 0), 0xFF3300CC);
  EXPECT_EQ(picture.at(3, 1), kWhitePixel);
}

TEST(FrontToBackLayer, KeepsASparseLineBelowDenseOnes) {
  auto curves = noisy_curves(9, 4000, 80, 60);
  curves.insert(curves.begin(), {noise(9, 0, 80, 0, 60), 0xFF654321});
  curves.insert(curves.begin() + 4, {noise(15, 80, 0, 0, 60), 0xFF123456});
  GuardedCanvas back_to_front(80, 60), front_to_back(80, 60);
  FrontToBackLayer layer(80, 60);
  draw_back_to_front(back_to_front, 80, 60, {1, 0.5}, curves);
  draw_front_to_back(front_to_back, layer, 80, 60, {1, 0.5}, curves);
  EXPECT_LE(largest_difference(back_to_front, front_to_back, 80, 60), 3);
}

}  // namespace
}  // namespace kurv::raster
