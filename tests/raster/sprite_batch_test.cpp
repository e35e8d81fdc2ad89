// Many sprites drawn at once give exactly the same picture as one after the other.
#include "raster/sprite_batch.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "tests/raster/guarded_canvas.h"

namespace kurv::raster {
namespace {

constexpr std::uint32_t kBlackPixel = 0xFF000000;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class Dice {
 public:
  explicit Dice(unsigned seed) : m_generator(seed) {}
  int up_to(int largest) {
    return static_cast<int>(m_generator() % (static_cast<unsigned>(largest) + 1));
  }
  double between(double low, double high) {
    return low + (high - low) * static_cast<double>(m_generator()) / 0x1p32;
  }

 private:
  std::mt19937 m_generator;
};

// A pixel of a figure: its premultiplied colour, and its transmittance, of 255.
struct Texel {
  std::uint32_t colour = 0;
  std::uint32_t kept = 255;
};

std::uint32_t over(std::uint32_t backdrop, const Texel& texel) {
  std::uint32_t pixel = kBlackPixel;
  for (const int shift : {16, 8, 0}) {
    const std::uint32_t stays = ((backdrop >> shift & 255) * texel.kept + 127) / 255;
    pixel |= ((texel.colour >> shift & 255) + stays) << shift;
  }
  return pixel;
}

struct Figure {
  int width = 0;
  int height = 0;
  std::vector<Texel> texels;

  int middle_x() const { return width / 2; }
  int middle_y() const { return height / 2; }
  const Texel& at(int x, int y) const { return texels[static_cast<std::size_t>(y * width + x)]; }
  void draw(const Canvas& canvas, int x, int y) const {
    for (int row = 0; row < height; ++row) {
      for (int column = 0; column < width; ++column) {
        const int to_x = x - middle_x() + column, to_y = y - middle_y() + row;
        if (to_x < 0 || to_x >= canvas.width || to_y < 0 || to_y >= canvas.height) continue;
        std::uint32_t& pixel = canvas.row(to_y)[to_x];
        pixel = over(pixel, at(column, row));
      }
    }
  }
  Sprite sprite() const {
    GuardedCanvas white(width, height), black(width, height);
    fill_rect(black.canvas(), {0, 0, width, height}, kBlackPixel);
    draw(white.canvas(), middle_x(), middle_y());
    draw(black.canvas(), middle_x(), middle_y());
    return {white.canvas(), black.canvas(), middle_x(), middle_y()};
  }
};

// Of a hundred pixels about `solid` are opaque, and `touched` - `solid` translucent.
Figure random_figure(Dice& dice, int width, int height, int solid, int touched) {
  Figure figure{width, height, {}};
  for (int i = 0; i < width * height; ++i) {
    const int kind = dice.up_to(99);
    const int kept = kind < solid ? 0 : kind < touched ? 1 + dice.up_to(253) : 255;
    Texel texel{0, static_cast<std::uint32_t>(kept)};
    for (const int shift : {16, 8, 0}) {
      texel.colour |= static_cast<std::uint32_t>(dice.up_to(255 - kept)) << shift;
    }
    figure.texels.push_back(texel);
  }
  return figure;
}

// One figure for each phase, row by row.
using Phases = std::vector<Figure>;

Phases random_phases(Dice& dice, int width, int height, int solid, int touched) {
  Phases phases;
  for (int i = 0; i < 16; ++i) {
    phases.push_back(random_figure(dice, width, height, solid, touched));
  }
  return phases;
}

struct Positions {
  std::vector<double> x;
  std::vector<double> y;
};

struct PhasedPixel {
  std::int64_t pixel;
  int phase;

  friend bool operator==(const PhasedPixel&, const PhasedPixel&) = default;
};

// The nearest quarter of a pixel.
PhasedPixel phased_pixel(double pixels) {
  const auto quarters =
      static_cast<std::int64_t>(std::floor(std::clamp(pixels, -1e8, 1e8) * 4 + 0.5));
  return {quarters >> 2, static_cast<int>(quarters & 3)};
}

void draw_one_by_one(const Canvas& canvas, const Phases& phases, const Positions& positions,
                     double unit) {
  PhasedPixel last_x{0, -1}, last_y{0, -1};
  for (std::size_t i = 0; i < positions.x.size(); ++i) {
    if (std::isnan(positions.x[i]) || std::isnan(positions.y[i])) continue;
    const PhasedPixel x = phased_pixel(positions.x[i] / unit),
                      y = phased_pixel(positions.y[i] / unit);
    if (x == last_x && y == last_y) continue;
    last_x = x;
    last_y = y;
    phases[static_cast<std::size_t>(y.phase * 4 + x.phase)].draw(canvas, static_cast<int>(x.pixel),
                                                                 static_cast<int>(y.pixel));
  }
}

void add(SpriteBatch& sprites, const Phases& phases, const Positions& positions, double unit) {
  sprites.add(positions.x, positions.y, unit, [&phases](int phase_x, int phase_y) {
    return phases[static_cast<std::size_t>(phase_y * 4 + phase_x)].sprite();
  });
}

constexpr double kUnit = 15;

// Everywhere on a canvas and beyond its edges.
Positions random_positions(Dice& dice, int count, int width, int height) {
  Positions positions;
  for (int i = 0; i < count; ++i) {
    positions.x.push_back(dice.between(-12, width + 12) * kUnit);
    positions.y.push_back(dice.between(-12, height + 12) * kUnit);
  }
  return positions;
}

void fill_with_noise(const Canvas& canvas, unsigned seed) {
  std::mt19937 generator(seed);
  for (int y = 0; y < canvas.height; ++y) {
    for (int x = 0; x < canvas.width; ++x) {
      canvas.row(y)[x] = kBlackPixel | static_cast<std::uint32_t>(generator());
    }
  }
}

struct Series {
  Phases phases;
  Positions positions;
};

void expect_one_by_one(const std::vector<Series>& all_series, int width, int height) {
  GuardedCanvas together(width, height), one_by_one(width, height);
  fill_with_noise(together.canvas(), 3);
  fill_with_noise(one_by_one.canvas(), 3);
  SpriteBatch sprites;
  for (const Series& series : all_series) {
    add(sprites, series.phases, series.positions, kUnit);
    draw_one_by_one(one_by_one.canvas(), series.phases, series.positions, kUnit);
  }
  sprites.flush(together.canvas());
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      ASSERT_EQ(together.at(x, y), one_by_one.at(x, y)) << x << ' ' << y;
    }
  }
}

TEST(SpriteBatch, EqualsDrawingOneAfterTheOther) {
  Dice dice(1);
  for (const auto& [width, height] :
       {std::pair{1, 1}, {3, 7}, {7, 7}, {8, 8}, {9, 8}, {8, 9}, {16, 3}, {21, 33}, {64, 64}}) {
    for (const auto& [solid, touched] : {std::pair{100, 100}, {70, 90}, {30, 60}, {0, 50}}) {
      const Phases phases = random_phases(dice, width, height, solid, touched);
      for (const auto& [canvas_width, canvas_height] : {std::pair{53, 41}, {64, 40}, {5, 3}}) {
        expect_one_by_one({{phases, random_positions(dice, 150, canvas_width, canvas_height)}},
                          canvas_width, canvas_height);
      }
    }
  }
}

TEST(SpriteBatch, EqualsDrawingOneAfterTheOtherWhereXIsSorted) {
  Dice dice(2);
  const Phases phases = random_phases(dice, 8, 7, 60, 85);
  for (const bool ascends : {true, false}) {
    Positions positions = random_positions(dice, 5000, 60, 30);
    std::ranges::sort(positions.x);
    if (!ascends) std::ranges::reverse(positions.x);
    expect_one_by_one({{phases, positions}}, 60, 30);
  }
}

TEST(SpriteBatch, DrawsLaterFiguresOverEarlierOnes) {
  Dice dice(3);
  const Positions shared = random_positions(dice, 300, 50, 37);
  std::vector<Series> all_series;
  for (int i = 0; i < 6; ++i) {
    Positions positions = random_positions(dice, 300, 50, 37);
    if (i % 3 != 2) positions.x = shared.x;
    all_series.push_back({random_phases(dice, 7 + i, 6, 40, 80), positions});
  }
  expect_one_by_one(all_series, 50, 37);
}

// A figure at the same position as the one before it is not drawn again. A missing one is skipped:
// it does not come between two others.
TEST(SpriteBatch, DrawsRepeatedPositionsOnce) {
  Dice dice(4);
  Positions positions;
  for (int i = 0; i < 3000; ++i) {
    positions.x.push_back(300 + dice.up_to(1) * 4.0);
    positions.y.push_back(dice.up_to(9) == 0 ? kNaN : 200 + dice.up_to(1) * 4.0);
  }
  expect_one_by_one({{random_phases(dice, 7, 7, 0, 90), positions}}, 40, 30);
}

// The same across the borders of the batches in which figures are processed.
TEST(SpriteBatch, DrawsRepeatedPositionsOnceAcrossAMissingOne) {
  Dice dice(6);
  const Phases phases = random_phases(dice, 7, 7, 0, 90);
  for (const int missing : {1, 1022, 1023, 1024, 1025, 2046}) {
    Positions positions;
    for (int i = 0; i < 2048; ++i) {
      positions.x.push_back(100 + i * 0.25);
      positions.y.push_back(200);
    }
    const auto at = static_cast<std::size_t>(missing);
    positions.x[at - 1] = positions.x[at + 1];
    positions.y[at] = kNaN;
    expect_one_by_one({{phases, positions}}, 60, 30);
  }
}

TEST(SpriteBatch, DrawsEveryPhaseOnceWhereNothingIsHidden) {
  Dice dice(5);
  Positions positions;
  for (int i = 0; i < 16; ++i) {
    positions.x.push_back((10 + i % 4 * 20 + i / 4 * 0.25) * kUnit);
    positions.y.push_back((10 + i / 4 * 20 + i % 4 * 0.25) * kUnit);
  }
  expect_one_by_one({{random_phases(dice, 9, 9, 50, 90), positions}}, 90, 90);
}

TEST(SpriteBatch, LeavesOutPositionsThatAreNotFiniteOrFarAway) {
  Dice dice(6);
  const Phases phases = random_phases(dice, 7, 7, 50, 90);
  Positions positions;
  for (const double unusable :
       {kNaN, kInfinity, -kInfinity, 1e300, -1e300, 1e10, -1e10, 4e9, -4e9}) {
    for (const auto& [x, y] :
         {std::pair{unusable, 200.0}, {200.0, unusable}, {unusable, unusable}}) {
      positions.x.push_back(x);
      positions.y.push_back(y);
    }
  }
  GuardedCanvas picture(30, 30);
  SpriteBatch sprites;
  add(sprites, phases, positions, kUnit);
  sprites.flush(picture.canvas());
  EXPECT_TRUE(picture.is_white());
}

TEST(SpriteBatch, BlendsOverEachBackdropAsDefined) {
  GuardedCanvas greys(256, 1);
  Positions everywhere;
  for (int x = 0; x < 256; ++x) {
    everywhere.x.push_back(x);
    everywhere.y.push_back(0);
  }
  SpriteBatch sprites;
  for (std::uint32_t kept = 1; kept < 255; ++kept) {
    for (std::uint32_t x = 0; x < 256; ++x) greys.canvas().row(0)[x] = kBlackPixel | x * 0x010101;
    const Texel texel{(255 - kept) << 16 | (255 - kept) / 2 << 8, kept};
    add(sprites, Phases(16, Figure{1, 1, {texel}}), everywhere, 1);
    sprites.flush(greys.canvas());
    for (std::uint32_t x = 0; x < 256; ++x) {
      ASSERT_EQ(greys.at(static_cast<int>(x), 0), over(x * 0x010101, texel)) << kept;
    }
  }
}

TEST(SpriteBatch, AsksForEachNeededSpriteOnce) {
  Dice dice(7);
  const Positions positions{{10, 10.25, 20, 20.25, kNaN}, {10.5, 10.5, 10.5, 10.5, 10}};
  std::vector<std::pair<int, int>> asked;
  SpriteBatch sprites;
  sprites.add(positions.x, positions.y, 1, [&](int phase_x, int phase_y) {
    asked.emplace_back(phase_x, phase_y);
    return Sprite();
  });
  EXPECT_EQ(asked, (std::vector<std::pair<int, int>>{{0, 2}, {1, 2}}));
}

TEST(SpriteBatch, IsEmptyAfterAFlushAndAfterClear) {
  Dice dice(8);
  const Phases phases = random_phases(dice, 7, 7, 50, 100);
  const Positions positions = random_positions(dice, 50, 30, 30);
  GuardedCanvas picture(30, 30);
  SpriteBatch sprites;
  EXPECT_TRUE(sprites.is_empty());
  add(sprites, phases, positions, kUnit);
  EXPECT_FALSE(sprites.is_empty());
  sprites.clear();
  EXPECT_TRUE(sprites.is_empty());
  sprites.flush(picture.canvas());
  EXPECT_TRUE(picture.is_white());
  add(sprites, phases, positions, kUnit);
  sprites.flush(picture.canvas());
  EXPECT_TRUE(sprites.is_empty());
  EXPECT_FALSE(picture.is_white());
  fill_rect(picture.canvas(), {0, 0, 30, 30}, kWhitePixel);
  sprites.flush(picture.canvas());
  EXPECT_TRUE(picture.is_white());
}

TEST(SpriteBatch, BecomesFull) {
  const Positions positions{std::vector<double>(100'000, 1), std::vector<double>(100'000, 1)};
  SpriteBatch sprites;
  int added = 0;
  for (; !sprites.is_full() && added < 100; ++added) {
    sprites.add(positions.x, positions.y, 1, [](int, int) { return Sprite(); });
  }
  EXPECT_LT(added, 100);
  sprites.clear();
  EXPECT_FALSE(sprites.is_full());
}

}  // namespace
}  // namespace kurv::raster
