#include "app/csv/x_order.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <utility>
#include <vector>

#include "app/csv/cell_value.h"

namespace kurv::app {

XOrder x_order(const Column<const Double>& x) {
  bool rises = false;
  bool falls = false;
  double last = kNoValue;
  for (int row = x.lower(); row <= x.upper(); ++row) {
    if (std::isnan(x(row))) continue;
    rises = rises || x(row) > last;
    falls = falls || x(row) < last;
    last = x(row);
  }
  if (rises) return falls ? XOrder::kUnsorted : XOrder::kAscending;
  return falls ? XOrder::kDescending : XOrder::kConstant;
}

void sort_by_x(Matrix<Double>& values) {
  const Matrix<Double>& source = values;
  std::vector<int> rows(static_cast<std::size_t>(values.upper_point()));
  std::iota(rows.begin(), rows.end(), 1);
  const auto known = std::stable_partition(rows.begin(), rows.end(),
                                           [&](int row) { return !std::isnan(source(1, row)); });
  std::stable_sort(rows.begin(), known, [&](int a, int b) { return source(1, a) < source(1, b); });
  for (int column = 1; column <= values.upper_column(); ++column) {
    std::vector<Double> sorted;
    sorted.reserve(rows.size());
    for (const int row : rows) sorted.push_back(source(column, row));
    values.set_column(column, std::move(sorted));
  }
}

}  // namespace kurv::app
