#include "app/csv/row_positions.h"

#include <algorithm>

#include "app/csv/x_order.h"

namespace kurv::app {

RowPositions::RowPositions(const Matrix<Double>& values)
    : m_x(&values(1, 1)), m_rows(values.upper_point()), m_extent(std::max(1, m_rows - 1)) {
  const auto is_missing = [this](int row) { return std::isnan(m_x[row]); };
  int first = 0;
  int last = m_rows - 1;
  while (first < last && is_missing(first)) ++first;
  while (first < last && is_missing(last)) --last;
  m_is_complete = std::none_of(m_x, m_x + m_rows, [](double x) { return std::isnan(x); });
  const XOrder order = x_order(values.column(1));
  const double extent = std::abs(m_x[last] - m_x[first]);
  if (order != XOrder::kAscending && order != XOrder::kDescending) return;
  if (!std::isfinite(extent)) return;
  m_sign = order == XOrder::kAscending ? 1 : -1;
  m_first = m_sign * m_x[first];
  m_extent = extent;
}

}  // namespace kurv::app
