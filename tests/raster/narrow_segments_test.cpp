#include "raster/narrow_segments.h"

#include <cmath>
#include <numbers>

#include "tests/raster/exact_coverage.h"
#include "tests/raster/guarded_canvas.h"

namespace kurv::raster {
namespace {

class Masks {
 public:
  Masks(int width, int height)
      : m_width(width),
        m_height(height),
        m_plain(width, height),
        m_fast(width, height),
        m_narrow_segments(width, height) {}

  void add(const Pen& pen, Point from, Point to) {
    add_segment(m_plain, pen, from, to);
    add_segment(m_fast, m_narrow_segments, pen, from, to);
  }
  Difference difference() {
    m_narrow_segments.merge_into(m_fast);
    return difference_of(
        m_width, m_height, [this](int x, int y) { return m_fast.row(y)[x]; },
        [this](int x, int y) { return m_plain.row(y)[x]; });
  }
  Coverage& fast() { return m_fast; }
  NarrowSegments& narrow_segments() { return m_narrow_segments; }

 private:
  int m_width;
  int m_height;
  Coverage m_plain;
  Coverage m_fast;
  NarrowSegments m_narrow_segments;
};

Point away(Point from, double length, double angle) {
  return {static_cast<float>(from.x + length * std::cos(angle)),
          static_cast<float>(from.y + length * std::sin(angle))};
}

TEST(NarrowSegments, LookLikePlainOnesAtEveryAngleLengthAndWidth) {
  for (const double half_width : {0.5, 0.625, 0.75, 1.0, 1.5, 1.9, 2.0, 2.4, 3.0}) {
    for (int step = 0; step < 144; ++step) {
      const double angle = step * std::numbers::pi / 72 + 0.002 * (step % 3);
      for (const double length : {20.0, 24.1, 31.0, 60.0}) {
        Masks masks(130, 130);
        const Point from{static_cast<float>(65 + step % 7 * 0.3), 65.4F};
        masks.add({1, half_width}, from, away(from, length, angle));
        const Difference difference = masks.difference();
        ASSERT_GT(difference.pixels, 20);
        ASSERT_LE(difference.largest, 4) << half_width << ' ' << step << ' ' << length;
      }
    }
  }
}

TEST(NarrowSegments, ShortOnesLookExactlyLikePlainOnes) {
  for (const double half_width : {0.5, 0.6, 0.61, 0.75, 1.0, 1.5, 2.0, 2.1}) {
    for (int step = 0; step < 144; ++step) {
      const double angle = step * std::numbers::pi / 72 + 0.002 * (step % 3);
      for (const double length : {0.0, 0.01, 0.6, 1.3, 2.0, 3.7, 6.0, 9.5, 14.0, 23.9}) {
        Masks masks(70, 70);
        const Point from{static_cast<float>(35 + step % 7 * 0.3), 35.4F};
        masks.add({1, half_width}, from, away(from, length, angle));
        // They may round differently, where one is stepped along columns and the other along rows.
        ASSERT_LE(masks.difference().largest, 1) << half_width << ' ' << step << ' ' << length;
      }
    }
  }
}

TEST(NarrowSegments, LookLikePlainOnesInPicturesOfAnySize) {
  for (int width = 1; width <= 40; width += width < 10 ? 1 : 7) {
    for (int height = 1; height <= 40; height += height < 10 ? 1 : 7) {
      for (const double half_width : {0.5, 1.0, 2.0}) {
        Masks masks(width, height);
        for (int i = 0; i < 12; ++i) {
          const Point at{static_cast<float>(i * 7 % 43 - 2), static_cast<float>(i * 29 % 43 - 2)};
          masks.add({1, half_width}, at, away(at, i % 3 * 20 + 4, i));
        }
        ASSERT_LE(masks.difference().largest, 4) << width << ' ' << height << ' ' << half_width;
      }
    }
  }
}

// Lines along two opposite edges at once, visible in the outermost rows or columns only.
TEST(NarrowSegments, AlongTheEdgesLookLikePlainOnes) {
  for (const double half_width : {0.5, 1.0, 2.0}) {
    for (int step = -24; step <= 24; ++step) {
      Masks masks(40, 33);
      const auto by = static_cast<float>(step * 0.17);
      masks.add({1, half_width}, {by, -9}, {-by, 50});
      masks.add({1, half_width}, {40 + by, -9}, {40 - by, 50});
      masks.add({1, half_width}, {-9, by}, {60, -by});
      masks.add({1, half_width}, {-9, 33 + by}, {60, 33 - by});
      ASSERT_LE(masks.difference().largest, 4) << half_width << ' ' << step;
    }
  }
}

TEST(NarrowSegments, SplitIntoPiecesLookLikeOne) {
  for (const double half_width : {0.5, 1.0, 2.0}) {
    for (int step = 0; step < 72; ++step) {
      const double angle = step * std::numbers::pi / 36 + 0.003;
      const Point from = away({60, 60}, -50, angle);
      Masks whole(120, 120), pieces(120, 120);
      whole.add({1, half_width}, from, away(from, 100, angle));
      float last = 0;
      for (const float next : {30.0F, 39.0F, 43.0F, 44.5F, 45.0F, 70.0F, 100.0F}) {
        pieces.add({1, half_width}, away(from, last, angle), away(from, next, angle));
        last = next;
      }
      whole.narrow_segments().merge_into(whole.fast());
      pieces.narrow_segments().merge_into(pieces.fast());
      const std::vector<int> one = values_of(whole.fast()), many = values_of(pieces.fast());
      for (std::size_t i = 0; i < one.size(); ++i) ASSERT_NEAR(one[i], many[i], 4) << step;
    }
  }
}

TEST(NarrowSegments, AreClippedAtEveryEdge) {
  for (const double half_width : {0.5, 2.0}) {
    for (int step = 0; step < 90; ++step) {
      Masks masks(40, 30);
      const double angle = step * std::numbers::pi / 45 + 0.01;
      for (const Point at : {Point{0, 0}, Point{39.9F, 3}, Point{20, 30}, Point{-0.3F, 17},
                             Point{20, 15}, Point{-1, 31}}) {
        masks.add({1, half_width}, away(at, 70, angle), away(at, -70, angle));
        masks.add({1, half_width}, at, away(at, 33, angle));
      }
      const Difference difference = masks.difference();
      ASSERT_GT(difference.pixels, 50);
      ASSERT_LE(difference.largest, 4) << half_width << ' ' << step;
    }
  }
}

TEST(NarrowSegments, OnPixelCentresAreExactlyFull) {
  Masks masks(60, 60);
  masks.add({1, 0.5}, {-10, 20.5F}, {90, 20.5F});
  masks.add({1, 0.5}, {40.5F, -10}, {40.5F, 90});
  masks.narrow_segments().merge_into(masks.fast());
  EXPECT_EQ(total_of(masks.fast()), (60 + 60 - 1) * 255);
}

TEST(NarrowSegments, AreExactHoweverFarTheEndsAre) {
  for (const float far : {1e4F, 1e9F, 1e30F, 3e38F}) {
    for (int step = -11; step <= 11; ++step) {
      const auto slope = static_cast<float>(std::tan(step * 0.13));
      Masks masks(40, 30);
      masks.add({1, 0.5}, {-far, 3 - far * slope}, {far, 17 + far * slope});
      masks.add({1, 1.5}, {20, 11}, {far * slope, far});
      ASSERT_LE(masks.difference().largest, 4) << far << ' ' << step;
    }
  }
}

// The bounds of these segments intersect the mask, but the lines pass it far away.
TEST(NarrowSegments, PassTheMaskAtAnyDistance) {
  for (const float far : {1e5F, 1e12F, 3e38F}) {
    Masks masks(40, 30);
    masks.add({1, 0.5}, {-far, 0}, {far / 4, far});
    masks.add({1, 0.5}, {0, -far}, {far, far / 4});
    masks.add({1, 0.5}, {-far, far}, {far, -far / 3});
    masks.narrow_segments().merge_into(masks.fast());
    EXPECT_EQ(total_of(masks.fast()), 0) << far;
  }
}

TEST(NarrowSegments, AreNotKeptAfterAMerge) {
  Masks masks(60, 60);
  masks.add({1, 0.5}, {3, 4}, {55, 30});
  masks.narrow_segments().merge_into(masks.fast());
  EXPECT_GT(total_of(masks.fast()), 0);
  masks.fast().clear();
  masks.narrow_segments().merge_into(masks.fast());
  EXPECT_EQ(total_of(masks.fast()), 0);
}

TEST(NarrowSegments, NeverShowOnceCleared) {
  Masks masks(60, 60);
  masks.add({1, 0.5}, {3, 4}, {55, 30});
  masks.fast().clear();
  masks.narrow_segments().clear();
  masks.narrow_segments().merge_into(masks.fast());
  EXPECT_EQ(total_of(masks.fast()), 0);
}

TEST(NarrowSegments, ReachTheCanvasCompletely) {
  GuardedCanvas picture(60, 45);
  Masks masks(60, 45);
  for (int i = 0; i < 60; ++i) {
    const auto a = static_cast<float>(i * 37 % 97 - 20), b = static_cast<float>(i * 53 % 89 - 20);
    masks.add({1, 1}, {a, b}, {b, 70 - a});
  }
  masks.narrow_segments().merge_into(masks.fast());
  const std::vector<int> covered = values_of(masks.fast());
  masks.fast().flush(picture.canvas(), 0xFF000000);
  for (int y = 0; y < 45; ++y) {
    for (int x = 0; x < 60; ++x) {
      ASSERT_EQ(255 - static_cast<int>(picture.at(x, y) & 255),
                covered[static_cast<std::size_t>(y * 60 + x)]);
    }
  }
}

TEST(NarrowSegments, ANewPenHasItsOwnWidth) {
  Masks masks(60, 60);
  for (const double half_width : {0.5, 2.0, 0.5}) {
    masks.add({1, half_width}, {-10, 30.5F}, {90, 30.5F});
    masks.narrow_segments().merge_into(masks.fast());
    EXPECT_NEAR(total_of(masks.fast()), 60 * 2 * half_width * 255, 60);
    masks.fast().clear();
  }
}

}  // namespace
}  // namespace kurv::raster
