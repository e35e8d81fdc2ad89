// A white canvas in the middle of a larger buffer, whose other pixels must never change.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "raster/boxes.h"
#include "raster/canvas.h"
#include "raster/coverage.h"

namespace kurv::raster {

inline constexpr std::uint32_t kWhitePixel = 0xFFFFFFFF;
inline constexpr std::uint32_t kMaroonPixel = 0xFF800000;
inline constexpr std::uint32_t kNavyPixel = 0xFF000080;

class GuardedCanvas {
 public:
  GuardedCanvas(int width, int height)
      : m_width(width),
        m_height(height),
        m_buffer(static_cast<std::size_t>(stride() * (height + 2 * kGuard)), kSentinel) {
    fill_rect(canvas(), {0, 0, width, height}, kWhitePixel);
  }
  ~GuardedCanvas() { EXPECT_TRUE(guard_is_untouched()); }
  GuardedCanvas(const GuardedCanvas&) = delete;
  GuardedCanvas& operator=(const GuardedCanvas&) = delete;

  Canvas canvas() {
    return {m_buffer.data() + kGuard * stride() + kGuard, m_width, m_height, stride()};
  }
  std::uint32_t at(int x, int y) const {
    return m_buffer[static_cast<std::size_t>((y + kGuard) * stride() + x + kGuard)];
  }
  bool is_white_outside(const PixelRect& rect) const {
    for (int y = 0; y < m_height; ++y) {
      for (int x = 0; x < m_width; ++x) {
        const bool inside = x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
        if (!inside && at(x, y) != kWhitePixel) return false;
      }
    }
    return true;
  }
  bool is_white() const { return is_white_outside({}); }

 private:
  static constexpr int kGuard = 3;
  static constexpr std::uint32_t kSentinel = 0x12345678;

  std::ptrdiff_t stride() const { return m_width + 2 * kGuard; }
  bool guard_is_untouched() const {
    const auto inside = static_cast<std::ptrdiff_t>(m_width) * m_height;
    const auto guard = std::count(m_buffer.begin(), m_buffer.end(), kSentinel);
    return guard == static_cast<std::ptrdiff_t>(m_buffer.size()) - inside;
  }

  int m_width;
  int m_height;
  std::vector<std::uint32_t> m_buffer;
};

// The mask's values, row by row.
inline std::vector<int> values_of(Coverage& mask) {
  std::vector<int> values;
  for (int y = 0; y < mask.height(); ++y) {
    values.insert(values.end(), mask.row(y), mask.row(y) + mask.width());
  }
  return values;
}

inline int total_of(Coverage& mask) {
  int total = 0;
  for (const int value : values_of(mask)) total += value;
  return total;
}

}  // namespace kurv::raster
