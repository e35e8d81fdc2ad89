// A view of 32-bit pixels. It does not own them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kurv::raster {

// Pixels are 0xFFRRGGBB, row 0 is the top one, and `stride` counts pixels.
struct Canvas {
  std::uint32_t* pixels = nullptr;
  int width = 0;
  int height = 0;
  std::ptrdiff_t stride = 0;

  std::uint32_t* row(int y) const { return pixels + y * stride; }
};

}  // namespace kurv::raster
