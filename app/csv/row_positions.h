// Where the rows of a table are along its curves.
#pragma once

#include <KurvGraph/arrays.h>
#include <KurvGraph/values.h>

#include <cmath>

namespace kurv::app {

// x where it ascends or descends, so that the picture of neighbouring rows is a narrow part of the
// plot; otherwise the number of the row. Rows count from 0. The matrix must outlive it unchanged.
class RowPositions {
 public:
  // x is column 1.
  explicit RowPositions(const Matrix<Double>& values);

  int rows() const { return m_rows; }
  bool are_complete() const { return m_is_complete; }
  bool are_x() const { return m_sign != 0; }
  // NaN for a row without x; otherwise no less than that of any row before.
  double operator()(int row) const {
    const double x = m_x[row];
    return are_x() || std::isnan(x) ? m_sign * x : row;
  }
  double first() const { return m_first; }
  // From the first to the last one; above zero.
  double extent() const { return m_extent; }

 private:
  const Double* m_x;
  int m_rows;
  bool m_is_complete;
  // What x is multiplied by to ascend; zero where it goes back and forth.
  double m_sign = 0;
  double m_first = 0;
  double m_extent;
};

}  // namespace kurv::app
