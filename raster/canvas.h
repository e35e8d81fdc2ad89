// A rectangle of 32-bit pixels that somebody else owns.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kurv::raster {

// 0xFFRRGGBB, rows from the top. `stride` counts pixels.
struct Canvas {
  std::uint32_t* pixels = nullptr;
  int width = 0;
  int height = 0;
  std::ptrdiff_t stride = 0;

  std::uint32_t* row(int y) const { return pixels + y * stride; }
};

}  // namespace kurv::raster
