// The pixels of a picture, seen from outside. A view does not own them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kurv {

// Pixels are 0xFFRRGGBB, row 0 is the top one, and `stride` counts pixels.
struct PixelView {
  const std::uint32_t* pixels = nullptr;
  int width = 0;
  int height = 0;
  std::ptrdiff_t stride = 0;
  int pixels_per_metre = 0;  // zero where it is not known

  const std::uint32_t* row(int y) const { return pixels + y * stride; }
};

}  // namespace kurv
