/// @file
/// The pixels of a picture, seen from outside. A view does not own them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kurv {

/// A view of pixels. They are 0xFFRRGGBB, and row 0 is the top one.
struct PixelView {
  const std::uint32_t* pixels = nullptr;  ///< the top left pixel; null where there is none
  int width = 0;                          ///< in pixels
  int height = 0;                         ///< in pixels
  std::ptrdiff_t stride = 0;              ///< from a row to the one below it, in pixels
  int pixels_per_metre = 0;               ///< zero where it is not known

  /// The first pixel of row y, which is 0..height-1.
  const std::uint32_t* row(int y) const { return pixels + y * stride; }
};

}  // namespace kurv
