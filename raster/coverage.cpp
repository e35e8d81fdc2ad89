#include "raster/coverage.h"

#include <algorithm>

#include "raster/blend.h"

namespace kurv::raster {
Coverage::Coverage(int width, int height)
    : m_width(width),
      m_height(height),
      m_values(offset(height)),
      m_spans(static_cast<std::size_t>(height), Span{width, 0}) {
  forget_rows();
}

void Coverage::flush(const Canvas& canvas, std::uint32_t colour) {
  for (int y = m_top; y < m_bottom; ++y) {
    const Span span = m_spans[static_cast<std::size_t>(y)];
    const std::uint8_t* values = row(y);
    std::uint32_t* pixels = canvas.row(y);
    for (int x = span.first; x < span.end; ++x) {
      if (values[x] == 0) continue;
      pixels[x] = values[x] == 255 ? colour : blend(pixels[x], colour, values[x]);
    }
    clear_row(y);
  }
  forget_rows();
}

void Coverage::clear() {
  for (int y = m_top; y < m_bottom; ++y) clear_row(y);
  forget_rows();
}

void Coverage::clear_row(int y) {
  Span& span = m_spans[static_cast<std::size_t>(y)];
  if (span.first < span.end) std::fill(row(y) + span.first, row(y) + span.end, std::uint8_t{0});
  span = {m_width, 0};
}

void Coverage::forget_rows() {
  m_top = m_height;
  m_bottom = 0;
}

}  // namespace kurv::raster
