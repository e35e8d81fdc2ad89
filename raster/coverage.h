// A coverage mask: how much of each pixel is covered by the strokes drawn since the last flush.
//
// A pixel keeps the maximum of the coverages, and the mask is blended once, in one colour. So the
// joints of a polyline are no darker than its segments.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "raster/canvas.h"

namespace kurv::raster {

class Coverage {
 public:
  // This many columns before and after a row may be written to as well. They never show, so a
  // caller that raises eight pixels at once need not check where a row ends. Adjacent rows share
  // them.
  static constexpr int kMargin = 8;
  // The touched columns are recorded for bands of this many rows, the first of which begins with
  // row 0, not for each row: that would cost a long stroke as much as its pixels do.
  static constexpr int kBand = 32;

  Coverage(int width, int height);

  int width() const { return m_width; }
  int height() const { return m_height; }
  std::ptrdiff_t stride() const { return m_stride; }  // from row to row

  // The row's coverages, 0..255. A caller that raises any of them also calls touch() for them.
  // There are rows up to the end of the last band; those below the mask must not be raised.
  std::uint8_t* row(int y) { return m_values.data() + kMargin + y * m_stride; }
  // Records that columns first..end-1, at least one and all inside the mask, may be non-zero in row
  // y and in the other rows of its band.
  void touch(int y, int first, int end) {
    TouchedColumns& touched = m_touched[static_cast<std::size_t>(y) / kBand];
    touched.first = std::min(touched.first, first);
    touched.end = std::max(touched.end, end);
  }

  // Calls visit(first row, first column, end column) for each band that was touched.
  template <class Visit>
  void for_each_touched(const Visit& visit) const {
    for (std::size_t band = 0; band < m_touched.size(); ++band) {
      const TouchedColumns& touched = m_touched[band];
      if (touched.first >= touched.end) continue;
      visit(static_cast<int>(band) * kBand, touched.first, touched.end);
    }
  }

  // Blends the colour onto the canvas, which has the mask's size, and clears the mask. Reads and
  // writes touched bands only.
  void flush(const Canvas& canvas, std::uint32_t colour);
  void clear();

 private:
  // The touched columns of a band; none where `end` <= `first`.
  struct TouchedColumns {
    int first;
    int end;
  };

  int m_width;
  int m_height;
  std::ptrdiff_t m_stride;
  std::vector<TouchedColumns> m_touched;
  std::vector<std::uint8_t> m_values;
};

}  // namespace kurv::raster
