// Coverage by sampling: 8 or 16 vertical sample lines in each pixel column, and on each of them the
// covered intervals of y.
//
// Intervals are united, and their union is converted to coverages once. So it does not matter how
// often anything was covered.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "raster/strip_accumulator.h"

namespace kurv::raster {

// Each sample line represents its subcolumn: the part of the picture nearest to it.
class Subcolumns {
 public:
  Subcolumns(int width, int height);

  int width() const { return m_width; }
  int height() const { return m_accumulator.height(); }
  int per_pixel() const { return 1 << m_per_pixel_log2; }
  int count() const { return width() << m_per_pixel_log2; }
  int per_strip() const { return StripAccumulator::kWidth << m_per_pixel_log2; }
  bool is_empty() const { return m_first >= m_end; }

  // To be called before the first cover(), and only while nothing is covered.
  void set_per_pixel_log2(int value);
  // Covers subcolumn `first` + i from top[i] to bottom[i], in pixels; nothing where top[i] >=
  // bottom[i].
  void cover(int first, std::span<const float> top, std::span<const float> bottom);
  // Calls put(strip, row, RowCoverage) for all that is covered, in ascending order of strips and of
  // rows, and clears it.
  template <class Put>
  void flush(const Put& put) {
    if (is_empty()) return;
    const int first_strip = m_first / per_strip(), end_strip = (m_end - 1) / per_strip() + 1;
    prepare(first_strip, end_strip);
    for (int strip = first_strip; strip < end_strip; ++strip) {
      fill(strip);
      m_accumulator.take_rows(m_per_pixel_log2,
                              [&](int y, const RowCoverage& coverage) { put(strip, y, coverage); });
    }
    clear();
  }
  void clear();

 private:
  // An interval that does not touch the first one of its subcolumn, m_top to m_bottom. It may touch
  // others.
  struct ExtraInterval {
    int subcolumn;
    Interval interval;
  };

  std::size_t capacity() const;
  void extend(int first, int end);
  void assign(int first, std::span<const float> top, std::span<const float> bottom);
  void insert(int subcolumn, Interval interval);
  void prepare(int first_strip, int end_strip);
  void fill(int strip);
  void merge_extra();
  void merge_subcolumn(std::span<const ExtraInterval> extra, std::vector<ExtraInterval>& kept);

  int m_width;
  StripAccumulator m_accumulator;
  int m_per_pixel_log2 = 0;
  // The first interval of each subcolumn; none where top >= bottom. Elements outside
  // m_first..m_end-1 have no meaning.
  std::vector<float> m_top;
  std::vector<float> m_bottom;
  std::vector<ExtraInterval> m_extra;
  std::size_t m_next_extra = 0;   // the first that is not accumulated yet, during a flush
  std::size_t m_extra_limit = 0;  // how many there may be before they are merged
  int m_first = 0;
  int m_end = 0;
};

}  // namespace kurv::raster
