// What is covered of a few vertical lines per pixel, as intervals of y.
//
// It becomes pixels once, in one colour, so that it does not matter how often anything was covered.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "raster/strip_accumulator.h"

namespace kurv::raster {

// Each line stands for the cell of the picture round it, which is as wide as the lines are apart.
class Subcolumns {
 public:
  Subcolumns(int width, int height);

  int width() const { return m_width; }
  int height() const { return m_accumulator.height(); }
  int per_pixel() const { return 1 << m_per_pixel_log2; }
  int count() const { return width() << m_per_pixel_log2; }
  int per_strip() const { return StripAccumulator::kWidth << m_per_pixel_log2; }
  bool is_empty() const { return m_first >= m_end; }

  // Only while it is empty, and once before anything is added.
  void set_per_pixel_log2(int value);
  // Covers cell `first` + i from top[i] to bottom[i], in pixels; nothing where the one is not above
  // the other.
  void cover(int first, std::span<const float> top, std::span<const float> bottom);
  // Calls put(tile, row, RowCoverage) for what is covered, tiles and rows from the first to the
  // last, and forgets it.
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
  // One that the first of its cell, m_top to m_bottom, does not touch; another one it may.
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
  // The first interval of each cell; none where top is not above bottom. What lies outside of
  // m_first..m_end-1 holds nothing, whatever stands there.
  std::vector<float> m_top;
  std::vector<float> m_bottom;
  std::vector<ExtraInterval> m_extra;
  std::size_t m_next_extra = 0;   // of those that are in no tile yet, while flushing
  std::size_t m_extra_limit = 0;  // until they are joined
  int m_first = 0;
  int m_end = 0;
};

}  // namespace kurv::raster
