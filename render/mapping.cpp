#include "render/mapping.h"

#include <cmath>
#include <limits>

namespace kurv {

namespace {

// The loop has no branches and no calls, so that the compiler can take several values at a time. It
// leaves what no Single can hold to the one below.
template <class Place>
bool map_ordinary(std::span<const Double> values, Double min, Double range, std::span<Single> at,
                  std::span<std::uint8_t> inside, const Place& place) {
  constexpr Double kLargest = std::numeric_limits<Single>::max();
  int odd = 0;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Double normal = (values[i] - min) / range;
    const Double placed = place(normal);
    const bool is_ordinary = std::abs(placed) <= kLargest;
    at[i] = static_cast<Single>(is_ordinary ? placed : 0);
    inside[i] = static_cast<std::uint8_t>(0 <= normal && normal <= 1);
    odd += is_ordinary ? 0 : 1;
  }
  return odd == 0;
}

template <class Place>
void map_column(std::span<const Double> values, Double min, Double range, std::span<Single> at,
                std::span<std::uint8_t> inside, const Place& place) {
  // Asked once for the whole column, with the fault that the first value would have met.
  static_cast<void>(divide(0, range));
  if (map_ordinary(values, min, range, at, inside, place)) return;
  for (std::size_t i = 0; i < values.size(); ++i) {
    at[i] = to_single(place((values[i] - min) / range));
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

PlotRect plot_rect(const GraphDocument& document, Double scale_width, Double scale_height) {
  PlotRect plot;
  plot.PlotTop = document.Top_margine;
  plot.PlotLeft = document.Left_margine;
  plot.PlotWidth = to_integer(scale_width - document.Right_margine - plot.PlotLeft);
  plot.PlotHeight = to_integer(scale_height - document.Bottom_margine - plot.PlotTop);
  return plot;
}

}  // namespace kurv
