#include "raster/occlusion_mask.h"

#include <algorithm>
#include <span>

namespace kurv::raster {
namespace {

std::size_t tiles_for(int pixels) {
  return static_cast<std::size_t>((pixels + OcclusionMask::kSide - 1) / OcclusionMask::kSide) + 2;
}

}  // namespace

OcclusionMask::OcclusionMask(int width, int height, std::vector<std::uint64_t>& tiles)
    : m_tiles_across(tiles_for(width)),
      m_end_x(static_cast<unsigned>(width + kSide - 1)),
      m_end_y(static_cast<unsigned>(height + kSide - 1)) {
  constexpr std::uint64_t kAll = ~std::uint64_t{0};
  const std::size_t tiles_down = tiles_for(height);
  tiles.assign(m_tiles_across * tiles_down, 0);
  m_tiles = tiles.data();
  // The parts of the last tiles that are outside the picture.
  const int columns = width % kSide, rows = height % kSide;
  const std::uint64_t beyond_x = columns == 0 ? 0 : kFirstColumn * (0xFFU << columns & 0xFFU);
  const std::uint64_t beyond_y = rows == 0 ? 0 : kAll << rows * kSide;
  for (std::size_t y = 0; y < tiles_down; ++y) {
    const std::span<std::uint64_t> row(m_tiles + y * m_tiles_across, m_tiles_across);
    if (y == tiles_down - 2) std::ranges::fill(row, beyond_y);
    row[m_tiles_across - 2] |= beyond_x;
    row.front() = row.back() = kAll;
    if (y == 0 || y == tiles_down - 1) std::ranges::fill(row, kAll);
  }
}

}  // namespace kurv::raster
