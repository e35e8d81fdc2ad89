#include "raster/coverage.h"

#include <algorithm>
#include <cmath>

#include "raster/blend.h"
#include "tests/raster/guarded_canvas.h"

namespace kurv::raster {
namespace {

void set(Coverage& mask, int x, int y, int value) {
  mask.row(y)[x] = static_cast<std::uint8_t>(value);
  mask.touch(y, x, x + 1);
}

TEST(Coverage, FullCoverageGivesExactlyTheColour) {
  GuardedCanvas picture(3, 3);
  Coverage mask(3, 3);
  set(mask, 1, 2, 255);
  mask.flush(picture.canvas(), 0xFF123456);
  EXPECT_EQ(picture.at(1, 2), 0xFF123456);
  EXPECT_TRUE(picture.is_white_outside({1, 2, 2, 3}));
}

TEST(Coverage, BlendsEveryCombinationRoundedToNearest) {
  GuardedCanvas picture(1, 1);
  Coverage mask(1, 1);
  for (std::uint32_t from = 0; from < 256; from += 5) {
    for (std::uint32_t to = 0; to < 256; to += 3) {
      for (int value = 0; value < 256; ++value) {
        fill_rect(picture.canvas(), {0, 0, 1, 1}, 0xFF000000 | from << 16 | to << 8 | from);
        set(mask, 0, 0, value);
        mask.flush(picture.canvas(), 0xFF000000 | to << 16 | from << 8 | from);
        const double share = value / 255.0;
        const auto up = static_cast<std::uint32_t>(std::lround(to * share + from * (1 - share)));
        const auto down = static_cast<std::uint32_t>(std::lround(from * share + to * (1 - share)));
        ASSERT_EQ(picture.at(0, 0), 0xFF000000 | up << 16 | down << 8 | from)
            << from << ' ' << to << ' ' << value;
      }
    }
  }
}

TEST(Coverage, IsEmptyAfterAFlush) {
  GuardedCanvas picture(4, 4);
  Coverage mask(4, 4);
  set(mask, 0, 0, 200);
  set(mask, 3, 3, 100);
  mask.flush(picture.canvas(), kMaroonPixel);
  EXPECT_EQ(total_of(mask), 0);
  const std::uint32_t once = picture.at(0, 0);
  mask.flush(picture.canvas(), kNavyPixel);
  EXPECT_EQ(picture.at(0, 0), once);
}

TEST(Coverage, BlendsRowsOfEveryLengthPixelByPixel) {
  for (int width = 1; width <= 40; ++width) {
    GuardedCanvas picture(width, 3);
    Coverage mask(width, 3);
    for (int x = 0; x < width; ++x) {
      set(mask, x, 0, x * 37 % 256);
      set(mask, x, 1, 255);
      if (x % 11 == 0) set(mask, x, 2, 90);
    }
    mask.flush(picture.canvas(), kMaroonPixel);
    const auto expected = [](int value) {
      return blend(kWhitePixel, kMaroonPixel, static_cast<std::uint32_t>(value));
    };
    for (int x = 0; x < width; ++x) {
      ASSERT_EQ(picture.at(x, 0), expected(x * 37 % 256)) << width << ' ' << x;
      ASSERT_EQ(picture.at(x, 1), kMaroonPixel);
      ASSERT_EQ(picture.at(x, 2), expected(x % 11 == 0 ? 90 : 0));
    }
    EXPECT_EQ(total_of(mask), 0);
  }
}

TEST(Coverage, WhatIsRaisedInTheMarginsNeverShows) {
  for (const int width : {1, 7, 8, 24, 56, 57}) {
    GuardedCanvas picture(width, 3);
    Coverage mask(width, 3);
    for (int y = 0; y < 3; ++y) {
      std::fill_n(mask.row(y) - Coverage::kMargin, Coverage::kMargin, std::uint8_t{255});
      std::fill_n(mask.row(y) + width, Coverage::kMargin, std::uint8_t{255});
      mask.touch(y, 0, width);
    }
    mask.flush(picture.canvas(), kMaroonPixel);
    EXPECT_TRUE(picture.is_white()) << width;
  }
}

TEST(Coverage, EveryRowIsFlushedAndCleared) {
  for (const int height : {1, 15, 16, 31, 32, 33, 64, 100}) {
    GuardedCanvas picture(3, height);
    Coverage mask(3, height);
    for (int y = 0; y < height; ++y) {
      set(mask, 1, y, 255);
      mask.flush(picture.canvas(), kNavyPixel);
      ASSERT_EQ(picture.at(1, y), kNavyPixel) << height;
      ASSERT_EQ(total_of(mask), 0);
    }
    EXPECT_TRUE(picture.is_white_outside({1, 0, 2, height}));
  }
}

TEST(Coverage, ClearedCoverageNeverShows) {
  GuardedCanvas picture(4, 4);
  Coverage mask(4, 4);
  set(mask, 2, 1, 255);
  mask.clear();
  mask.flush(picture.canvas(), kMaroonPixel);
  EXPECT_TRUE(picture.is_white());
}

}  // namespace
}  // namespace kurv::raster
