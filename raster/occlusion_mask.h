// An occlusion mask: a bit for each pixel of a picture that an opaque pixel hides already.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace kurv::raster {

// The bits are kept in tiles of 8 x 8 pixels. Queries are about blocks of the same size at any
// position, which overlap two by two tiles. The pixel in column x of row y of a block or a tile is
// bit 8 y + x. All pixels outside the picture count as hidden.
class OcclusionMask {
 public:
  static constexpr int kSide = 8;

  // Nothing in a picture of this size is hidden yet. The tiles are stored in the caller's vector,
  // which keeps its memory from one mask to the next.
  OcclusionMask(int width, int height, std::vector<std::uint64_t>& tiles);

  // The pixels of a block, split at the border between the left and the right tiles.
  using TilePair [[gnu::vector_size(16)]] = std::uint64_t;
  static TilePair split(std::uint64_t pixels, int across) {
    const std::uint64_t left = kFirstColumn * (0xFFU >> across);
    return TilePair{(pixels & left) << across, (pixels & ~left) >> 1 >> (kSide - 1 - across)};
  }
  static std::uint64_t join(TilePair halves, int across) {
    return halves[0] >> across | halves[1] << (kSide - across);
  }

  // The position of a block among the tiles. The block has to intersect the picture.
  struct BlockPosition {
    std::size_t tile;
    int across;  // columns from the left edge of the tile
    int down;    // rows from the top of the tile, times eight
  };
  bool intersects(int x, int y) const {
    return static_cast<unsigned>(x + kSide - 1) < m_end_x &&
           static_cast<unsigned>(y + kSide - 1) < m_end_y;
  }
  BlockPosition locate(int x, int y) const {
    const auto from_left = static_cast<unsigned>(x + kSide);
    const auto from_top = static_cast<unsigned>(y + kSide);
    return {std::size_t{from_top / kSide} * m_tiles_across + from_left / kSide,
            static_cast<int>(from_left % kSide), static_cast<int>(from_top % kSide * kSide)};
  }

  // Returns those of `pixels` that are not hidden yet, and then hides `occluders`.
  TilePair take_visible(BlockPosition at, TilePair pixels, TilePair occluders) const {
    std::uint64_t* const upper = m_tiles + at.tile;
    std::uint64_t* const lower = upper + m_tiles_across;
    const TilePair above = load(upper), below = load(lower);
    store(upper, above | occluders << at.down);
    store(lower, below | occluders >> 1 >> (63 - at.down));
    return pixels & ~(above >> at.down | below << 1 << (63 - at.down));
  }

 private:
  static constexpr std::uint64_t kFirstColumn = 0x0101010101010101;

  static TilePair load(const std::uint64_t* tiles) {
    TilePair both;
    std::memcpy(&both, tiles, sizeof both);
    return both;
  }
  static void store(std::uint64_t* tiles, TilePair both) { std::memcpy(tiles, &both, sizeof both); }

  // Row by row, with a border of one tile around the picture for blocks that extend past its edges.
  std::uint64_t* m_tiles;
  std::size_t m_tiles_across;
  unsigned m_end_x;
  unsigned m_end_y;
};

}  // namespace kurv::raster
