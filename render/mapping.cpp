#include "render/mapping.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <numeric>

namespace kurv {

namespace {

// How many values are mapped before it is tested whether all of them were inside.
constexpr std::size_t kBatch = 64;

// How far ahead values are prefetched. The hardware prefetcher stops at the end of a memory page.
constexpr std::size_t kPrefetchDistance = 1024;
void prefetch(std::span<const Double> values, std::size_t begin) {
  constexpr std::size_t kValuesPerCacheLine = 8;
  const std::size_t end = std::min(begin + kBatch, values.size());
  for (std::size_t i = begin; i < end; i += kValuesPerCacheLine) __builtin_prefetch(&values[i]);
}

// Maps a batch of values. Returns whether all of them are inside; if not, `at` is unspecified.
// There are no branches and no calls, so that the compiler vectorises the loops.
template <class ToPosition>
bool map_batch(const Double* values, std::size_t count, Double min, Double range, Single* at,
               const ToPosition& to_position) {
  // Counted in Doubles, so that the lanes are as wide as those of the values, and in several
  // counters, so that the additions do not depend on each other.
  std::array<Double, kBatch> is_inside{}, positions;
  for (std::size_t i = 0; i < count; ++i) {
    const Double normal = (values[i] - min) / range;
    const Double from_low = 0 <= normal ? 1 : 0, to_high = normal <= 1 ? 1 : 0;
    is_inside[i] = from_low * to_high;
    positions[i] = to_position(normal);
  }
  std::array<Double, 8> inside{};
  for (std::size_t i = 0; i < kBatch; i += inside.size()) {
    for (std::size_t k = 0; k < inside.size(); ++k) inside[k] += is_inside[i + k];
  }
  if (std::accumulate(inside.begin(), inside.end(), Double{0}) != static_cast<Double>(count)) {
    return false;
  }
  for (std::size_t i = 0; i < count; ++i) at[i] = static_cast<Single>(positions[i]);
  return true;
}

template <class ToPosition>
void map_column(std::span<const Double> values, Double min, Double range, std::span<Single> at,
                std::span<std::uint8_t> inside, const ToPosition& to_position) {
  // Checked once for the whole column; throws what the first value would have thrown.
  static_cast<void>(divide(0, range));
  for (std::size_t begin = 0; begin < values.size(); begin += kBatch) {
    const std::size_t count = std::min(kBatch, values.size() - begin);
    prefetch(values, begin + kPrefetchDistance);
    if (map_batch(values.data() + begin, count, min, range, at.data() + begin, to_position)) {
      std::fill_n(inside.begin() + static_cast<std::ptrdiff_t>(begin), count, std::uint8_t{1});
      continue;
    }
    for (std::size_t i = begin; i < begin + count; ++i) {
      const Double normal = (values[i] - min) / range;
      at[i] = to_single(to_position(normal));
      inside[i] = static_cast<std::uint8_t>(0 <= normal && normal <= 1);
    }
  }
}

// The same without narrowing to Single: NaN where the value is outside.
template <class ToPosition>
void map_or_nan(std::span<const Double> values, Double min, Double range, Double* at,
                const ToPosition& to_position) {
  constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
  static_cast<void>(divide(0, range));
  for (std::size_t begin = 0; begin < values.size(); begin += kBatch) {
    const std::size_t end = std::min(begin + kBatch, values.size());
    prefetch(values, begin + kPrefetchDistance);
    for (std::size_t i = begin; i < end; ++i) {
      const Double normal = (values[i] - min) / range;
      const bool is_inside = (0 <= normal) & (normal <= 1);
      at[i] = to_position(is_inside ? normal : kNaN);
    }
  }
}

}  // namespace

void Mapping::map_x(std::span<const Double> values, std::span<Single> at,
                    std::span<std::uint8_t> inside) const {
  const Double left = m_plot.PlotLeft, width = m_plot.PlotWidth;
  map_column(values, m_xmin, m_x_range, at, inside,
             [left, width](Double normal) { return left + width * normal; });
}

void Mapping::map_y(std::span<const Double> values, std::span<Single> at,
                    std::span<std::uint8_t> inside) const {
  const Double bottom = m_plot.PlotTop + m_plot.PlotHeight, height = m_plot.PlotHeight;
  map_column(values, m_ymin, m_y_range, at, inside,
             [bottom, height](Double normal) { return bottom - height * normal; });
}

void Mapping::map_x_inside(std::span<const Double> values, std::span<Double> at) const {
  const Double left = m_plot.PlotLeft, width = m_plot.PlotWidth;
  map_or_nan(values, m_xmin, m_x_range, at.data(),
             [left, width](Double normal) { return left + width * normal; });
}

void Mapping::map_y_inside(std::span<const Double> values, std::span<Double> at) const {
  const Double bottom = m_plot.PlotTop + m_plot.PlotHeight, height = m_plot.PlotHeight;
  map_or_nan(values, m_ymin, m_y_range, at.data(),
             [bottom, height](Double normal) { return bottom - height * normal; });
}

void update_plot_rect(PlotRect& plot, const GraphDocument& document, Double scale_width,
                      Double scale_height) {
  plot.PlotTop = document.Top_margine;
  plot.PlotLeft = document.Left_margine;
  plot.PlotWidth = to_integer(scale_width - document.Right_margine - plot.PlotLeft);
  plot.PlotHeight = to_integer(scale_height - document.Bottom_margine - plot.PlotTop);
}

}  // namespace kurv
