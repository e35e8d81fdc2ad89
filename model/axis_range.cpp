#include "model/axis_range.h"

#include <cmath>

#include "model/round_axis_range.h"

namespace kurv::basKurvGraph01 {

namespace {

constexpr Double kBeyondAllData = 1E+299;

// References to the two limits of an axis in the document, so that what was computed before a
// service failed stays there.
struct Limits {
  Double& min;
  Double& max;

  void begin() {
    min = kBeyondAllData;
    max = -kBeyondAllData;
  }
  // Both tests are made for every value, and both are false for NaN.
  void include(Double value) {
    if (value > max) max = value;
    if (value < min) min = value;
  }
};

// The order of these operations decides the last digit of a limit, so do not reorder them.
void round_outward(Limits limits, const NumericService& numeric) {
  const Double d = std::abs(limits.max - limits.min) / 10;
  const Double e = numeric.round_down(numeric.decimal_logarithm(d));
  const Double p = std::pow(10.0, e);
  limits.min = p * (10 * numeric.round_down(limits.min / p / 10));
  limits.max = p * (10 * numeric.round_up(limits.max / p / 10));
}

// NumData values of one column. Without points no column is asked for: there may be more curves
// than columns then.
void include_column(const GraphDocument& document, int column, Limits limits) {
  if (document.NumData < 1) return;
  const auto values = document.xyArr.column(column);
  for (int i = 1; i <= document.NumData; ++i) limits.include(values(i));
}

}  // namespace

int count_visible_curves(const GraphDocument& document) {
  int count = 0;
  for (int k = 1; k <= document.NumY; ++k) {
    if (document.y_visible(k)) ++count;
  }
  return count;
}

void compute_axis_range(GraphDocument& document, const NumericService& numeric) {
  if (document.round_limits.is_on) return round_axis_range(document);
  if (count_visible_curves(document) == 0) return;

  Limits x{document.xmin, document.xmax};
  Limits y{document.ymin, document.ymax};
  x.begin();
  y.begin();

  // Every x counts, whether or not a curve is visible there.
  include_column(document, 1, x);
  if (!document.XLimitsExact) round_outward(x, numeric);

  for (int k = 1; k <= document.NumY; ++k) {
    if (document.y_visible(k)) include_column(document, k + 1, y);
  }
  if (y.max == y.min) {
    y.min -= 1;
    y.max += 1;
  }
  if (!document.YLimitsExact) round_outward(y, numeric);
}

}  // namespace kurv::basKurvGraph01
