// A small picture that is put down many times, such as a marker.
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
  // What a figure looks like in a square of 8 x 8 pixels. The pixel in column x of row y is bit
  // 8 y + x of a set, and that element of an array.
  struct Block {
    int x = 0;  // of the first column, from the pixel where the stamp is put
    int y = 0;
    std::uint64_t solid = 0;        // pixels that hide what lies below
    std::uint64_t translucent = 0;  // pixels through which it shows
    // All of them, and the solid ones, by how many columns the square stands off a tile.
    std::array<OcclusionMask::TilePair, OcclusionMask::kSide> touched_split{};
    std::array<OcclusionMask::TilePair, OcclusionMask::kSide> solid_split{};
    // In the lower half what a pixel adds to the part of each channel that stays, and in the upper
    // one how much stays: of 255, twice.
    std::array<std::uint64_t, 64> texels{};
  };

  // Of nothing.
  Sprite() = default;
  // What a figure looks like on a white and on a black canvas of the same size; where the two
  // differ the ground shows through. The middle is the pixel that later lies where the stamp is
  // put.
  Sprite(const Canvas& on_white, const Canvas& on_black, int middle_x, int middle_y);

  // They have no pixel in common. A stamp of up to eight pixels a side is one.
  std::span<const Block> blocks() const { return m_blocks; }

 private:
  std::vector<Block> m_blocks;
};

}  // namespace kurv::raster
