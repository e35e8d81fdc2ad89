#include "app/csv/row_positions.h"

#include <algorithm>

#include "app/csv/cell_value.h"

namespace kurv::app {

RowPositions::RowPositions(const Matrix<Double>& values)
    : m_x(&values(1, 1)), m_rows(values.upper_point()) {
  bool rises = false;
  bool falls = false;
  double first = kNoValue;
  double last = kNoValue;
  for (int row = 0; row < m_rows; ++row) {
    const double x = m_x[row];
    if (std::isnan(x)) {
      m_is_complete = false;
      continue;
    }
    if (std::isnan(first)) first = x;
    rises = rises || x > last;
    falls = falls || x < last;
    last = x;
  }
  const double extent = std::abs(last - first);
  if (rises != falls && std::isfinite(extent)) {
    m_sign = rises ? 1 : -1;
    m_first = m_sign * first;
    m_extent = extent;
  } else {
    m_extent = std::max(1, m_rows - 1);
  }
}

}  // namespace kurv::app
