#include "raster/coverage.h"

#include "raster/blend.h"
#include "raster/coverage_lanes.h"

namespace kurv::raster {
namespace {

void blend_lanes(std::uint32_t* pixels, const std::uint8_t* values, std::uint32_t colour) {
  if (all_full(values)) {
    std::fill_n(pixels, kLanes, colour);
  } else {
    for (int i = 0; i < kLanes; ++i) pixels[i] = blend(pixels[i], colour, values[i]);
  }
}

void blend_row(std::uint32_t* pixels, const std::uint8_t* values, int count, std::uint32_t colour) {
  int i = 0;
  for (; i + kLanes <= count; i += kLanes) {
    if (!all_zero(values + i)) blend_lanes(pixels + i, values + i, colour);
  }
  for (; i < count; ++i) pixels[i] = blend(pixels[i], colour, values[i]);
}

// An odd multiple of eight: with a stride that is a large power of two, vertically adjacent pixels
// would map to the same few cache sets.
std::ptrdiff_t stride_of(int width) {
  return (std::ptrdiff_t{width} + Coverage::kMargin) | 8;
}

}  // namespace

Coverage::Coverage(int width, int height)
    : m_width(width),
      m_height(height),
      m_stride(stride_of(width)),
      m_touched((static_cast<std::size_t>(height) + kBand - 1) / kBand, TouchedColumns{width, 0}),
      m_values(m_touched.size() * kBand * static_cast<std::size_t>(m_stride) + 2 * kMargin) {}

void Coverage::flush(const Canvas& canvas, std::uint32_t colour) {
  for_each_touched([&](int top, int first, int end) {
    for (int y = top; y < std::min(top + kBand, m_height); ++y) {
      blend_row(canvas.row(y) + first, row(y) + first, end - first, colour);
    }
  });
  clear();
}

void Coverage::clear() {
  for_each_touched([this](int top, int first, int end) {
    for (int y = top; y < std::min(top + kBand, m_height); ++y) {
      std::fill(row(y) + first, row(y) + end, std::uint8_t{0});
    }
  });
  std::fill(m_touched.begin(), m_touched.end(), TouchedColumns{m_width, 0});
}

}  // namespace kurv::raster
