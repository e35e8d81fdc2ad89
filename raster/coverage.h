// How much of each pixel the strokes drawn since the last flush cover.
//
// Strokes are collected here by maximum and reach the canvas once, in one colour: the joints of a
// polyline come out no darker than the line itself, and a segment looks the same alone and in a
// run.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "raster/canvas.h"

namespace kurv::raster {

class Coverage {
 public:
  Coverage(int width, int height);

  int width() const { return m_width; }
  int height() const { return m_height; }

  // The row's coverages, 0..255. Whoever raises any of them calls touch() for them, too.
  std::uint8_t* row(int y) { return m_values.data() + offset(y); }
  // Columns first..end-1 of row y, inside the mask and at least one, may no longer be zero.
  void touch(int y, int first, int end) {
    m_top = std::min(m_top, y);
    m_bottom = std::max(m_bottom, y + 1);
    Span& span = m_spans[static_cast<std::size_t>(y)];
    span.first = std::min(span.first, first);
    span.end = std::max(span.end, end);
  }

  // Calls visit(row, first column, values, count) for the touched part of each row.
  template <class Visit>
  void for_each_touched(const Visit& visit) {
    for (int y = m_top; y < m_bottom; ++y) {
      const Span span = m_spans[static_cast<std::size_t>(y)];
      if (span.first < span.end) visit(y, span.first, row(y) + span.first, span.end - span.first);
    }
  }

  // Blends the colour onto the canvas, which has the mask's size, and clears the mask. Touched
  // pixels alone are looked at.
  void flush(const Canvas& canvas, std::uint32_t colour);
  void clear();

 private:
  // The touched columns of a row; empty when `end` is not above `first`.
  struct Span {
    int first;
    int end;
  };

  std::size_t offset(int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width);
  }
  void clear_row(int y);
  void forget_rows();

  int m_width;
  int m_height;
  // The touched rows are m_top..m_bottom-1.
  int m_top = 0;
  int m_bottom = 0;
  std::vector<std::uint8_t> m_values;
  std::vector<Span> m_spans;
};

}  // namespace kurv::raster
