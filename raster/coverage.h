// How much of each pixel the strokes drawn since the last flush cover.
//
// Strokes are collected here by maximum and reach the canvas once, in one colour: the joints of a
// polyline come out no darker than the line itself, and a segment looks the same alone and in a
// run.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "raster/canvas.h"

namespace kurv::raster {

class Coverage {
 public:
  // So many columns before and after a row may be written to as well: they never show, and whoever
  // raises pixels by the lane need not ask where a row ends. Two rows share those between them.
  static constexpr int kMargin = 8;
  // What is touched is noted by bands of so many rows, the first of which begins with row 0: a long
  // stroke takes no more time to note than to draw.
  static constexpr int kBand = 32;

  Coverage(int width, int height);

  int width() const { return m_width; }
  int height() const { return m_height; }
  std::ptrdiff_t stride() const { return m_stride; }  // from row to row

  // The row's coverages, 0..255. Whoever raises any of them calls touch() for them, too. There are
  // rows up to the end of the last band; those below the mask are not to be raised.
  std::uint8_t* row(int y) { return m_values.data() + kMargin + y * m_stride; }
  // Columns first..end-1, inside the mask and at least one, of row y and the others of its band may
  // no longer be zero.
  void touch(int y, int first, int end) {
    Span& span = m_spans[static_cast<std::size_t>(y) / kBand];
    span.first = std::min(span.first, first);
    span.end = std::max(span.end, end);
  }

  // Calls visit(first row, first column, end of the columns) for each band that was touched.
  template <class Visit>
  void for_each_touched(const Visit& visit) const {
    for (std::size_t band = 0; band < m_spans.size(); ++band) {
      const Span& span = m_spans[band];
      if (span.first < span.end) visit(static_cast<int>(band) * kBand, span.first, span.end);
    }
  }

  // Blends the colour onto the canvas, which has the mask's size, and clears the mask. Touched
  // bands alone are looked at.
  void flush(const Canvas& canvas, std::uint32_t colour);
  void clear();

 private:
  // The touched columns of a band; none when `end` is not above `first`.
  struct Span {
    int first;
    int end;
  };

  int m_width;
  int m_height;
  std::ptrdiff_t m_stride;
  std::vector<Span> m_spans;
  std::vector<std::uint8_t> m_values;
};

}  // namespace kurv::raster
