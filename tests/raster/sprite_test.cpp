#include "raster/sprite.h"

#include <functional>
#include <vector>

#include "raster/blend.h"
#include "raster/boxes.h"
#include "raster/sprite_batch.h"
#include "tests/raster/guarded_canvas.h"

namespace kurv::raster {
namespace {

constexpr std::uint32_t kBlackPixel = 0xFF000000;

// Two boxes, one over the other, and pixels of different alpha.
void draw_figure(const Canvas& canvas, int x, int y) {
  fill_rect(canvas, {x - 4, y - 3, x + 5, y + 3}, kWhitePixel);
  fill_rect(canvas, {x - 2, y - 1, x + 3, y + 2}, kMaroonPixel);
  for (int i = -6; i <= 6; ++i) {
    if (x + i < 0 || x + i >= canvas.width || y + 4 < 0 || y + 4 >= canvas.height) continue;
    std::uint32_t& pixel = canvas.row(y + 4)[x + i];
    pixel = blend(pixel, 0xFF4080C0, static_cast<std::uint32_t>(i + 6) * 20);
  }
}

Sprite make_sprite(const std::function<void(const Canvas&, int, int)>& draw, int side, int middle_x,
                   int middle_y) {
  GuardedCanvas white(side, side), black(side, side);
  fill_rect(black.canvas(), {0, 0, side, side}, kBlackPixel);
  draw(white.canvas(), middle_x, middle_y);
  draw(black.canvas(), middle_x, middle_y);
  return {white.canvas(), black.canvas(), middle_x, middle_y};
}

void draw_sprite(const Sprite& sprite, const Canvas& canvas, int x, int y) {
  const std::vector<double> at_x{static_cast<double>(x)}, at_y{static_cast<double>(y)};
  SpriteBatch sprites;
  sprites.add(at_x, at_y, 1, [&sprite](int, int) { return sprite; });
  sprites.flush(canvas);
}

void fill_with_pattern(GuardedCanvas& picture, int width, int height) {
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const auto shade = static_cast<std::uint32_t>(x * 37 + y * 101);
      fill_rect(picture.canvas(), {x, y, x + 1, y + 1},
                kBlackPixel | (shade * 2654435761U & 0x00FFFFFF));
    }
  }
}

int largest_difference(const GuardedCanvas& a, const GuardedCanvas& b, int width, int height) {
  int largest = 0;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      for (const int shift : {16, 8, 0}) {
        const int one = static_cast<int>(a.at(x, y) >> shift & 255);
        const int other = static_cast<int>(b.at(x, y) >> shift & 255);
        largest = std::max(largest, std::abs(one - other));
      }
    }
  }
  return largest;
}

// Everywhere, also clipped at each edge and corner.
TEST(Sprite, LooksLikeTheFigureDrawnThere) {
  const Sprite sprite = make_sprite(draw_figure, 15, 7, 7);
  constexpr int kWidth = 23, kHeight = 19;
  for (int y = -9; y < kHeight + 9; ++y) {
    for (int x = -9; x < kWidth + 9; ++x) {
      GuardedCanvas with_sprite(kWidth, kHeight), drawn(kWidth, kHeight);
      fill_with_pattern(with_sprite, kWidth, kHeight);
      fill_with_pattern(drawn, kWidth, kHeight);
      draw_sprite(sprite, with_sprite.canvas(), x, y);
      draw_figure(drawn.canvas(), x, y);
      ASSERT_LE(largest_difference(with_sprite, drawn, kWidth, kHeight), 1) << x << ' ' << y;
    }
  }
}

TEST(Sprite, HidesWhatTheFigureHidesExactly) {
  const auto boxes = [](const Canvas& canvas, int x, int y) {
    fill_rect(canvas, {x - 4, y - 3, x + 5, y + 3}, kWhitePixel);
    frame_rect(canvas, {x - 3, y - 2, x + 3, y + 2}, 1, kNavyPixel);
  };
  const Sprite sprite = make_sprite(boxes, 15, 7, 7);
  GuardedCanvas with_sprite(23, 19), drawn(23, 19);
  fill_with_pattern(with_sprite, 23, 19);
  fill_with_pattern(drawn, 23, 19);
  for (const auto& [x, y] : {std::pair{7, 7}, {9, 8}, {0, 0}, {22, 18}, {-2, 9}}) {
    draw_sprite(sprite, with_sprite.canvas(), x, y);
    boxes(drawn.canvas(), x, y);
  }
  EXPECT_EQ(largest_difference(with_sprite, drawn, 23, 19), 0);
}

TEST(Sprite, OfNothingChangesNothing) {
  const Sprite sprite = make_sprite([](const Canvas&, int, int) {}, 9, 4, 4);
  GuardedCanvas picture(20, 20);
  for (int x = -5; x < 25; x += 5) draw_sprite(sprite, picture.canvas(), x, x);
  EXPECT_TRUE(picture.is_white());
}

TEST(Sprite, FarFromTheCanvasLeavesItUntouched) {
  const Sprite sprite = make_sprite(draw_figure, 15, 7, 7);
  GuardedCanvas picture(20, 20);
  for (const int far : {-(1 << 28), -1000, 1000, 1 << 28}) {
    draw_sprite(sprite, picture.canvas(), far, 10);
    draw_sprite(sprite, picture.canvas(), 10, far);
    draw_sprite(sprite, picture.canvas(), far, far);
  }
  EXPECT_TRUE(picture.is_white());
}

TEST(Sprite, LargerThanTheCanvasIsCutAllRound) {
  const auto box = [](const Canvas& canvas, int x, int y) {
    fill_rect(canvas, {x - 10, y - 10, x + 11, y + 11}, kMaroonPixel);
  };
  const Sprite sprite = make_sprite(box, 25, 12, 12);
  GuardedCanvas picture(5, 4);
  draw_sprite(sprite, picture.canvas(), 2, 2);
  for (int y = 0; y < 4; ++y) {
    for (int x = 0; x < 5; ++x) EXPECT_EQ(picture.at(x, y), kMaroonPixel);
  }
}

}  // namespace
}  // namespace kurv::raster
