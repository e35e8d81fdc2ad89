#include "raster/subcolumns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <random>

#include "raster/row_blender.h"
#include "tests/raster/guarded_canvas.h"

namespace kurv::raster {
namespace {

constexpr std::uint32_t kBlackPixel = 0xFF000000;
constexpr float kInfinity = std::numeric_limits<float>::infinity();

// The reference: a bit for each 1/256 of a row.
class PlainSubcolumns {
 public:
  static constexpr int kUnits = 256;

  PlainSubcolumns(int subcolumns, int height)
      : m_height(height),
        m_covered(static_cast<std::size_t>(subcolumns),
                  std::vector<bool>(static_cast<std::size_t>(height * kUnits))) {}

  void cover(int index, float top, float bottom) {
    auto& column = m_covered[static_cast<std::size_t>(index)];
    const auto part = [this](float y) {
      return static_cast<std::size_t>(
          std::clamp(std::floor(y * kUnits), 0.0F, static_cast<float>(m_height * kUnits)));
    };
    for (std::size_t i = part(top); i < part(bottom); ++i) column[i] = true;
  }

  double coverage(int x, int y, int per_pixel) const {
    int count = 0;
    for (int index = x * per_pixel; index < (x + 1) * per_pixel; ++index) {
      for (int part = y * kUnits; part < (y + 1) * kUnits; ++part) {
        count += m_covered[static_cast<std::size_t>(index)][static_cast<std::size_t>(part)] ? 1 : 0;
      }
    }
    return 255.0 * count / (per_pixel * kUnits);
  }

 private:
  int m_height;
  std::vector<std::vector<bool>> m_covered;
};

void flush(Subcolumns& subcolumns, GuardedCanvas& picture) {
  const Canvas canvas = picture.canvas();
  const RowBlender blender(canvas, kBlackPixel);
  subcolumns.flush(
      [&](int strip, int y, const RowCoverage& coverage) { blender.blend(strip, y, coverage); });
}

struct Piece {
  int first;
  std::vector<float> top;
  std::vector<float> bottom;
};

class Pieces {
 public:
  Pieces(int subcolumns, float height) : m_subcolumns(subcolumns), m_height(height) {}

  // Its intervals are mostly short, so that many do not touch; some are empty.
  Piece next() {
    const int first = between(0, m_subcolumns - 1);
    const int count = between(1, std::min(m_subcolumns - first, 40));
    Piece piece{first, {}, {}};
    for (int i = 0; i < count; ++i) {
      const float top = real(-3, m_height + 1);
      piece.top.push_back(top);
      piece.bottom.push_back(between(0, 9) == 0 ? top : top + real(0, 2));
      if (between(0, 30) == 0) piece.bottom.back() = kInfinity;
      if (between(0, 30) == 0) piece.top.back() = -kInfinity;
      if (between(0, 30) == 0) std::swap(piece.top.back(), piece.bottom.back());
    }
    return piece;
  }

 private:
  int between(int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(m_generator);
  }
  float real(float low, float high) {
    return std::uniform_real_distribution<float>(low, high)(m_generator);
  }

  int m_subcolumns;
  float m_height;
  std::mt19937 m_generator{5};
};

void expect_same(const GuardedCanvas& drawn, const PlainSubcolumns& plain, int width, int height,
                 int per_pixel) {
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      ASSERT_NEAR(255 - static_cast<int>(drawn.at(x, y) & 255), plain.coverage(x, y, per_pixel),
                  0.63)
          << x << ' ' << y;
    }
  }
}

TEST(Subcolumns, HoldTheUnionOfTheirIntervals) {
  for (const int per_pixel_log2 : {3, 4}) {
    for (const int pieces : {1, 2, 8, 300, 5000}) {
      constexpr int kWidth = 37, kHeight = 23;
      Subcolumns subcolumns(kWidth, kHeight);
      subcolumns.set_per_pixel_log2(per_pixel_log2);
      PlainSubcolumns plain(subcolumns.count(), kHeight);
      Pieces random(subcolumns.count(), pieces > 1000 ? 7.0F : static_cast<float>(kHeight));
      for (int i = 0; i < pieces; ++i) {
        const Piece piece = random.next();
        subcolumns.cover(piece.first, piece.top, piece.bottom);
        for (std::size_t k = 0; k < piece.top.size(); ++k) {
          plain.cover(piece.first + static_cast<int>(k), piece.top[k], piece.bottom[k]);
        }
      }
      GuardedCanvas drawn(kWidth, kHeight);
      flush(subcolumns, drawn);
      expect_same(drawn, plain, kWidth, kHeight, subcolumns.per_pixel());
    }
  }
}

TEST(Subcolumns, AreEmptyWhenClearedAfterAnInterruptedFlush) {
  Subcolumns subcolumns(16, 40);
  subcolumns.set_per_pixel_log2(3);
  const auto cover_rows = [&](float top, float bottom) {
    const std::vector<float> tops(128, top), bottoms(128, bottom);
    subcolumns.cover(0, tops, bottoms);
  };
  cover_rows(5, 30);
  const auto fail = [](int, int y, const RowCoverage&) {
    if (y == 10) throw std::bad_alloc();
  };
  EXPECT_THROW(subcolumns.flush(fail), std::bad_alloc);
  subcolumns.clear();
  cover_rows(20, 21);
  GuardedCanvas drawn(16, 40);
  flush(subcolumns, drawn);
  EXPECT_TRUE(drawn.is_white_outside({0, 20, 16, 21}));
}

// Some intervals close the gap between two others, in whatever order they come.
TEST(Subcolumns, MergeIntervalsThatTouch) {
  std::vector<std::pair<float, float>> intervals = {{8, 9}, {1, 2},       {3, 4},    {5, 6},
                                                    {2, 3}, {6.5F, 7.5F}, {4, 4.25F}};
  std::ranges::sort(intervals);
  do {
    Subcolumns subcolumns(1, 12);
    subcolumns.set_per_pixel_log2(3);
    for (const auto& [top, bottom] : intervals) {
      const std::vector<float> tops(8, top), bottoms(8, bottom);
      subcolumns.cover(0, tops, bottoms);
    }
    GuardedCanvas drawn(1, 12);
    flush(subcolumns, drawn);
    int total = 0;
    for (int y = 0; y < 12; ++y) total += 255 - static_cast<int>(drawn.at(0, y) & 255);
    // From 1 to 4.25, and then three intervals of one pixel each, one of them across two rows.
    ASSERT_NEAR(total, (3.25 + 3) * 255, 2);
  } while (std::ranges::next_permutation(intervals).found);
}

}  // namespace
}  // namespace kurv::raster
