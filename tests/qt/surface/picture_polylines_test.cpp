#include <KurvGraph/picture.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <stdexcept>
#include <vector>

#include "tests/qt/surface/picture_pixels.h"

namespace kurv {
namespace {

struct Curves {
  std::vector<Single> x;
  std::vector<std::vector<Single>> y;
  std::vector<std::uint8_t> drawn;

  int count() const { return static_cast<int>(y.size()); }
  PolylineOver line(int i) const { return {y[static_cast<std::size_t>(i)], drawn, i % 14}; }
  void draw(PlotSurface& surface, Integer pen) const {
    surface.DrawWidth(pen);
    surface.Polylines(x, count(), pen, [this](int i) { return line(i); });
  }
  void draw_one_by_one(Picture& picture, Integer pen) const {
    for (int i = 0; i < count(); ++i) {
      const PolylineOver over = line(i);
      picture.DrawWidth(pen);
      picture.Polyline({x, over.y, over.drawn}, over.colour);
      picture.DrawWidth(1);
    }
  }
};

// In twips, over 60 pixels and a little more.
Curves noisy(int count, int points) {
  std::mt19937 generator(9);
  std::uniform_real_distribution<Single> aside(-200, 200);
  Curves curves;
  for (int i = 0; i < points; ++i) {
    curves.x.push_back(1000 * static_cast<Single>(i) / static_cast<Single>(points) - 20);
  }
  curves.drawn.assign(curves.x.size(), 1);
  for (int k = 0; k < count; ++k) {
    curves.y.emplace_back();
    for (int i = 0; i < points; ++i) {
      curves.y.back().push_back(static_cast<Single>(100 + 97 * k % 700) + aside(generator));
    }
  }
  return curves;
}

void expect_as_one_by_one(const Curves& curves, QSize size, double ratio, Integer pen) {
  Picture together(size, ratio), one_by_one(size, ratio);
  for (Picture* picture : {&together, &one_by_one}) {
    picture->Line({0, 0}, {900, 900}, 12, LineKind::kSegment);  // still to be painted
  }
  curves.draw(together, pen);
  curves.draw_one_by_one(one_by_one, pen);
  for (Picture* picture : {&together, &one_by_one}) {
    picture->Line({900, 0}, {0, 900}, 9, LineKind::kSegment);  // with the pen that was left
  }
  EXPECT_FALSE(ink_of(together.image()).isNull());
  EXPECT_LE(largest_difference(together.image(), one_by_one.image()), 4)
      << curves.count() << ' ' << curves.x.size() << ' ' << ratio << ' ' << pen;
}

TEST(PicturePolylines, LookLikeOneByOne) {
  for (const int count : {1, 47, 48, 60}) {
    for (const int points : {50, 4000}) {
      expect_as_one_by_one(noisy(count, points), {60, 60}, 1, 1);
    }
  }
}

TEST(PicturePolylines, LookLikeOneByOneWithAnyPenAndSize) {
  const Curves curves = noisy(50, 3000);
  for (const Integer pen : {Integer{1}, Integer{3}}) {
    expect_as_one_by_one(curves, {17, 60}, 1, pen);
    expect_as_one_by_one(curves, {1, 1}, 1, pen);
    expect_as_one_by_one(curves, {60, 41}, 1.5, pen);
  }
  // Too wide for the rasteriser of monotone polylines.
  expect_as_one_by_one(noisy(50, 30), {17, 60}, 1, 200);
}

TEST(PicturePolylines, LookLikeOneByOneBackwardsWithGapsAndUnsorted) {
  Curves curves = noisy(50, 3000);
  for (std::size_t i = 0; i < curves.drawn.size(); i += 5) curves.drawn[i] = 0;
  expect_as_one_by_one(curves, {60, 60}, 1, 1);
  std::ranges::reverse(curves.x);
  expect_as_one_by_one(curves, {60, 60}, 1, 1);
  std::rotate(curves.x.begin(), curves.x.begin() + 1000, curves.x.end());
  for (auto& y : curves.y) y.resize(300);
  curves.x.resize(300);
  curves.drawn.resize(300);
  expect_as_one_by_one(curves, {60, 60}, 1, 1);
}

TEST(PicturePolylines, FollowTheSizeOfThePicture) {
  const Curves curves = noisy(50, 3000);
  Picture used({30, 90}), fresh({60, 60});
  curves.draw(used, 1);
  used.resize({60, 60}, 1);
  curves.draw(used, 1);
  curves.draw(fresh, 1);
  EXPECT_EQ(used.image(), fresh.image());
}

// After a fault the next picture is not affected, and the pen is unchanged.
TEST(PicturePolylines, AFaultInTheMiddleLeavesNothingBehind) {
  const Curves curves = noisy(50, 3000);
  Picture used({60, 60}), fresh({60, 60});
  used.DrawWidth(2);
  const auto failing = [&](int i) {
    if (i == 20) throw std::runtime_error("no such curve");
    return curves.line(i);
  };
  EXPECT_THROW(used.Polylines(curves.x, curves.count(), 2, failing), std::runtime_error);
  used.Cls();
  curves.draw(used, 1);
  curves.draw(fresh, 1);
  EXPECT_EQ(used.image(), fresh.image());
}

}  // namespace
}  // namespace kurv
