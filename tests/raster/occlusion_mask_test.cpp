#include "raster/occlusion_mask.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace kurv::raster {
namespace {

// The reference, pixel by pixel. Pixels outside the picture are hidden.
class PlainMask {
 public:
  PlainMask(int width, int height)
      : m_width(width), m_height(height), m_hidden(static_cast<std::size_t>(width * height)) {}

  std::uint64_t visible(int x, int y, std::uint64_t pixels, std::uint64_t occluders) {
    std::uint64_t visible = 0;
    for (int i = 0; i < 64; ++i) {
      const int column = x + i % 8, row = y + i / 8;
      if (column < 0 || column >= m_width || row < 0 || row >= m_height) continue;
      const auto index = static_cast<std::size_t>(row * m_width + column);
      if (!m_hidden[index]) visible |= pixels & std::uint64_t{1} << i;
      if ((occluders >> i & 1) != 0) m_hidden[index] = true;
    }
    return visible;
  }

 private:
  int m_width;
  int m_height;
  std::vector<bool> m_hidden;
};

std::uint64_t visible(const OcclusionMask& hidden, int x, int y, std::uint64_t pixels,
                      std::uint64_t occluders) {
  const OcclusionMask::BlockPosition at = hidden.locate(x, y);
  const auto split = [&](std::uint64_t set) { return OcclusionMask::split(set, at.across); };
  return OcclusionMask::join(hidden.take_visible(at, split(pixels), split(occluders)), at.across);
}

TEST(OcclusionMask, HidesWhatWasHiddenAndAllOutside) {
  std::mt19937_64 random(1);
  std::vector<std::uint64_t> tiles;
  for (const auto& [width, height] : {std::pair{1, 1}, {8, 8}, {16, 24}, {29, 19}, {7, 33}}) {
    const OcclusionMask hidden(width, height, tiles);
    PlainMask plain(width, height);
    for (int i = 0; i < 500; ++i) {
      const int x = static_cast<int>(random() % static_cast<unsigned>(width + 7)) - 7;
      const int y = static_cast<int>(random() % static_cast<unsigned>(height + 7)) - 7;
      ASSERT_TRUE(hidden.intersects(x, y));
      const std::uint64_t pixels = random(), now = random() & random() & random() & random();
      ASSERT_EQ(visible(hidden, x, y, pixels, now), plain.visible(x, y, pixels, now))
          << x << ' ' << y << ' ' << width << ' ' << height;
    }
  }
}

TEST(OcclusionMask, IntersectsBlocksThatExtendIntoThePicture) {
  std::vector<std::uint64_t> tiles;
  const OcclusionMask hidden(20, 10, tiles);
  EXPECT_TRUE(hidden.intersects(-7, -7));
  EXPECT_TRUE(hidden.intersects(19, 9));
  for (const int far : {-8, 20, -(1 << 28), 1 << 28}) {
    EXPECT_FALSE(hidden.intersects(far, 5)) << far;
    EXPECT_FALSE(hidden.intersects(5, far)) << far;
  }
}

TEST(OcclusionMask, StartsWithNothingHidden) {
  std::vector<std::uint64_t> tiles;
  constexpr std::uint64_t kAll = ~std::uint64_t{0};
  EXPECT_EQ(visible(OcclusionMask(20, 10, tiles), 4, 1, kAll, kAll), kAll);
  EXPECT_EQ(visible(OcclusionMask(20, 10, tiles), 4, 1, kAll, kAll), kAll);
}

}  // namespace
}  // namespace kurv::raster
