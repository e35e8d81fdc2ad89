// Draws sprites at many positions. The result is the same as drawing one after the other, but what
// later sprites hide of earlier ones is never painted: among many points that is most of it.
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
  // How many subpixel positions of a sprite are distinguished, in either direction.
  static constexpr int kPhases = 4;
  // Draws the figure with its centre at that subpixel position.
  using MakeSprite = std::function<Sprite(int phase_x, int phase_y)>;

  // Adds a figure at positions that are measured from the corner of a canvas, in units of which a
  // pixel has `units_per_pixel`. Each is drawn at the nearest phase, and once only where it is at
  // the same phase as the one before it. A position with a NaN is left out. Calls `make_sprite`
  // once for each phase that is needed.
  void add(std::span<const double> x, std::span<const double> y, double units_per_pixel,
           const MakeSprite& make_sprite);
  bool is_empty() const { return m_series_used == 0; }
  // Whether it should be flushed before more is added, to bound the memory.
  bool is_full() const;
  void clear();

  // Paints all figures in the order in which they were added, and clears the batch.
  void flush(const Canvas& canvas);

 private:
  // A figure and its positions, in phases. The figures of a graph often share their x.
  struct FigureSeries {
    std::shared_ptr<const std::vector<int>> x;
    std::vector<int> y;
    std::array<Sprite, std::size_t{kPhases} * kPhases> sprites;  // by phase, row by row
    std::size_t max_blocks = 0;                                  // of any of the sprites
    bool has_translucent = false;

    bool is_missing(std::size_t i) const;
    void make_sprites(const MakeSprite& make_sprite);
  };
  // The visible pixels of a block at one position.
  struct VisibleBlock {
    std::uint64_t pixels;
    const Sprite::Block* block;
    std::ptrdiff_t first_pixel;  // index of the block's first pixel, which may be outside
  };
  // Front to back: the last figure first.
  struct VisibleBlocks {
    std::vector<VisibleBlock> items;
    std::size_t count = 0;

    // Makes room for `more` items after the last one, and returns a pointer to them.
    VisibleBlock* reserve(std::size_t more);
    void end_at(const VisibleBlock* end);
  };

  static std::size_t phase_of(int x, int y) {
    return static_cast<std::size_t>((y & (kPhases - 1)) * kPhases + (x & (kPhases - 1)));
  }
  void find_x(std::span<const double> x, double units_per_pixel);
  void find_visible(const FigureSeries& series, std::size_t first, std::size_t end,
                    const OcclusionMask& occlusion, std::ptrdiff_t stride);
  template <class Visit>
  void for_each_position(const FigureSeries& series, std::size_t first, std::size_t end,
                         const Visit& visit);
  void paint_solid(const Canvas& canvas);
  void paint_translucent(const Canvas& canvas);

  std::vector<FigureSeries> m_series;  // unused ones keep their memory
  std::size_t m_series_used = 0;
  // The x of the last add(), and their phases. The next add() often has the same x.
  std::vector<double> m_shared_x;
  double m_units_per_pixel = 0;
  std::shared_ptr<const std::vector<int>> m_shared_x_phases;

  std::vector<std::uint64_t> m_tiles;
  // The position, in phases, of the figure that was visited last.
  int m_last_x = 0;
  int m_last_y = 0;
  VisibleBlocks m_solid;
  VisibleBlocks m_translucent;
  std::array<std::ptrdiff_t, 64> m_offsets{};  // of a block's pixels from its first one
};

}  // namespace kurv::raster
