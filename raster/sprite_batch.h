// Figures at many places: the same as one stamp after the other, but what later ones hide of
// earlier ones is never painted, which among many points is most of it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "raster/canvas.h"
#include "raster/occlusion_mask.h"
#include "raster/sprite.h"

namespace kurv::raster {

class SpriteBatch {
 public:
  // Where figures are told apart within a pixel, in either direction.
  static constexpr int kPhases = 4;
  // How a figure looks with its centre at that part of a pixel.
  using MakeSprite = std::function<Sprite(int phase_x, int phase_y)>;

  // Collects a figure at places in this many units a pixel from the corner of a canvas: each time
  // at the nearest phase, and only once where it stands as it did before. It is nowhere where a
  // coordinate is NaN. Asks for each stamp that is needed, once.
  void add(std::span<const double> x, std::span<const double> y, double units_per_pixel,
           const MakeSprite& make_sprite);
  bool is_empty() const { return m_series_used == 0; }
  // Whether it is time to paint, because more would take much memory.
  bool is_full() const;
  void clear();

  // Paints all figures in turn and forgets them.
  void flush(const Canvas& canvas);

 private:
  // A figure and its places, in phases. The figures of a graph often share their x.
  struct Series {
    std::shared_ptr<const std::vector<int>> x;
    std::vector<int> y;
    std::array<Sprite, std::size_t{kPhases} * kPhases> sprites;  // row by row
    std::size_t max_blocks = 0;                                  // of a stamp
    bool has_translucent = false;

    bool is_missing(std::size_t i) const;
    void make_sprites(const MakeSprite& make_sprite);
  };
  // What can be seen of a block that was put down.
  struct VisibleBlock {
    std::uint64_t pixels;
    const Sprite::Block* block;
    std::ptrdiff_t first_pixel;  // of the block's first pixel, which may lie outside
  };
  // From the last to the first.
  struct VisibleBlocks {
    std::vector<VisibleBlock> items;
    std::size_t count = 0;

    // Where the next ones go, and that they are there.
    VisibleBlock* reserve(std::size_t more);
    void end_at(const VisibleBlock* end);
  };

  static std::size_t phase_of(int x, int y) {
    return static_cast<std::size_t>((y & (kPhases - 1)) * kPhases + (x & (kPhases - 1)));
  }
  void find_x(std::span<const double> x, double units_per_pixel);
  void find_visible(const Series& series, std::size_t first, std::size_t end,
                    const OcclusionMask& occlusion, std::ptrdiff_t stride);
  template <class Visit>
  void for_each_position(const Series& series, std::size_t first, std::size_t end,
                         const Visit& visit);
  void paint_solid(const Canvas& canvas);
  void paint_translucent(const Canvas& canvas);

  std::vector<Series> m_series;  // those not in use keep their memory
  std::size_t m_series_used = 0;
  // The last x as they were given.
  std::vector<double> m_given_x;
  double m_units_per_pixel = 0;
  std::shared_ptr<const std::vector<int>> m_x;

  std::vector<std::uint64_t> m_tiles;
  // Where the figure stands that was looked at last, of the places behind it.
  int m_last_x = 0;
  int m_last_y = 0;
  VisibleBlocks m_solid;
  VisibleBlocks m_translucent;
  std::array<std::ptrdiff_t, 64> m_offsets{};  // of the pixels of a block, from its first
};

}  // namespace kurv::raster
