// A small picture that is drawn many times, such as a marker.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "raster/canvas.h"
#include "raster/occlusion_mask.h"

namespace kurv::raster {

class Sprite {
 public:
  // A block of 8 x 8 pixels of the sprite. The pixel in column x of row y is bit 8 y + x of a bit
  // set, and element 8 y + x of an array.
  struct Block {
    int x = 0;  // of the first column, relative to the pixel where the sprite is drawn
    int y = 0;
    std::uint64_t solid = 0;        // opaque pixels
    std::uint64_t translucent = 0;  // pixels with an alpha between 0 and 1
    // All touched pixels, and the solid ones, split at the tile border, for each column offset of
    // the block from a tile.
    std::array<OcclusionMask::TilePair, OcclusionMask::kSide> touched_split{};
    std::array<OcclusionMask::TilePair, OcclusionMask::kSide> solid_split{};
    // The premultiplied colour of a pixel in the lower half; in the upper half its transmittance
    // (1 - alpha), of 255, twice.
    std::array<std::uint64_t, 64> texels{};
  };

  // An empty sprite.
  Sprite() = default;
  // Takes a figure that was drawn on a white and on a black canvas of the same size, and computes
  // its alpha from the difference of the two. The middle is the pixel that is placed where the
  // sprite is drawn.
  Sprite(const Canvas& on_white, const Canvas& on_black, int middle_x, int middle_y);

  // They do not overlap. A sprite of up to eight pixels a side has one.
  std::span<const Block> blocks() const { return m_blocks; }

 private:
  std::vector<Block> m_blocks;
};

}  // namespace kurv::raster
