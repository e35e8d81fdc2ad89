#include "raster/coverage.h"

#include <cmath>

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
