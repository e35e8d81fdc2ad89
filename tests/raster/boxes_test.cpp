#include "raster/boxes.h"

#include <climits>

#include "tests/raster/guarded_canvas.h"

namespace kurv::raster {
namespace {

TEST(FillRect, FillsItsPixelsAndNoOthers) {
  GuardedCanvas picture(10, 8);
  fill_rect(picture.canvas(), {2, 3, 5, 7}, kMaroonPixel);
  for (int y = 3; y < 7; ++y) {
    for (int x = 2; x < 5; ++x) EXPECT_EQ(picture.at(x, y), kMaroonPixel);
  }
  EXPECT_TRUE(picture.is_white_outside({2, 3, 5, 7}));
}

TEST(FillRect, StopsAtTheCanvas) {
  GuardedCanvas picture(4, 4);
  fill_rect(picture.canvas(), {INT_MIN, INT_MIN, INT_MAX, INT_MAX}, kNavyPixel);
  EXPECT_EQ(picture.at(0, 0), kNavyPixel);
  EXPECT_EQ(picture.at(3, 3), kNavyPixel);
}

TEST(FillRect, PaintsNothingWhenEmptyOrReversedOrElsewhere) {
  GuardedCanvas picture(4, 4);
  for (const PixelRect& rect : {PixelRect{2, 2, 2, 3}, PixelRect{3, 0, 1, 4}, PixelRect{0, 3, 4, 1},
                                PixelRect{4, 0, 9, 4}, PixelRect{-5, -5, 0, 4}}) {
    fill_rect(picture.canvas(), rect, kNavyPixel);
  }
  EXPECT_TRUE(picture.is_white());
}

TEST(FrameRect, PaintsThePenInsideTheOuterRectangle) {
  GuardedCanvas picture(12, 12);
  frame_rect(picture.canvas(), {1, 2, 10, 11}, 2, kMaroonPixel);
  EXPECT_TRUE(picture.is_white_outside({1, 2, 10, 11}));
  for (int y = 2; y < 11; ++y) {
    for (int x = 1; x < 10; ++x) {
      const bool hole = x >= 3 && x < 8 && y >= 4 && y < 9;
      EXPECT_EQ(picture.at(x, y), hole ? kWhitePixel : kMaroonPixel) << x << ' ' << y;
    }
  }
}

TEST(FrameRect, ThinnerThanTwoPensIsFilledAndStaysInside) {
  GuardedCanvas picture(12, 12);
  frame_rect(picture.canvas(), {4, 4, 7, 10}, 5, kMaroonPixel);
  EXPECT_TRUE(picture.is_white_outside({4, 4, 7, 10}));
  for (int y = 4; y < 10; ++y) {
    for (int x = 4; x < 7; ++x) EXPECT_EQ(picture.at(x, y), kMaroonPixel);
  }
}

TEST(FrameRect, AroundTheCanvasShowsNothing) {
  GuardedCanvas picture(6, 6);
  frame_rect(picture.canvas(), {-1'000'000'000, -1'000'000'000, 1'000'000'000, 1'000'000'000}, 3,
             kMaroonPixel);
  EXPECT_TRUE(picture.is_white());
}

}  // namespace
}  // namespace kurv::raster
