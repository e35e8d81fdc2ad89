#include "raster/sprite.h"

#include <algorithm>

#include "raster/boxes.h"
#include "raster/occlusion_mask.h"

namespace kurv::raster {
namespace {

constexpr int kSide = OcclusionMask::kSide;
constexpr std::uint32_t kOneChannel = 255;

// The figure on its two backdrops.
struct BackdropPair {
  const Canvas& white;
  const Canvas& black;

  // The transmittance of a pixel, of 255: white and black differ by it.
  std::uint32_t kept(int x, int y) const {
    return (white.row(y)[x] & kOneChannel) - (black.row(y)[x] & kOneChannel);
  }
};

// The bounds of the pixels that are not fully transparent.
PixelRect extent_of(const BackdropPair& backdrops) {
  PixelRect extent{backdrops.white.width, backdrops.white.height, 0, 0};
  for (int y = 0; y < backdrops.white.height; ++y) {
    for (int x = 0; x < backdrops.white.width; ++x) {
      if (backdrops.kept(x, y) == kOneChannel) continue;
      extent.left = std::min(extent.left, x);
      extent.right = std::max(extent.right, x + 1);
      extent.top = std::min(extent.top, y);
      extent.bottom = std::max(extent.bottom, y + 1);
    }
  }
  return extent;
}

void take_pixel(const BackdropPair& backdrops, int x, int y, std::size_t index,
                Sprite::Block& block) {
  const std::uint32_t kept = backdrops.kept(x, y);
  if (kept == kOneChannel) return;
  (kept == 0 ? block.solid : block.translucent) |= std::uint64_t{1} << index;
  const std::uint32_t added = (backdrops.black.row(y)[x] & 0x00FFFFFF) | (kOneChannel - kept) << 24;
  block.texels[index] = added | std::uint64_t{kept | kept << 16} << 32;
}

void split(Sprite::Block& block) {
  for (int across = 0; across < kSide; ++across) {
    const auto index = static_cast<std::size_t>(across);
    block.touched_split[index] = OcclusionMask::split(block.solid | block.translucent, across);
    block.solid_split[index] = OcclusionMask::split(block.solid, across);
  }
}

}  // namespace

Sprite::Sprite(const Canvas& on_white, const Canvas& on_black, int middle_x, int middle_y) {
  const BackdropPair backdrops{on_white, on_black};
  const PixelRect extent = extent_of(backdrops);
  for (int top = extent.top; top < extent.bottom; top += kSide) {
    for (int left = extent.left; left < extent.right; left += kSide) {
      Block block;
      block.x = left - middle_x;
      block.y = top - middle_y;
      for (int y = top; y < std::min(top + kSide, extent.bottom); ++y) {
        for (int x = left; x < std::min(left + kSide, extent.right); ++x) {
          take_pixel(backdrops, x, y, static_cast<std::size_t>((y - top) * kSide + x - left),
                     block);
        }
      }
      if ((block.solid | block.translucent) == 0) continue;
      split(block);
      m_blocks.push_back(block);
    }
  }
}

}  // namespace kurv::raster
