#include "model/data_set.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "model/round_axis_range.h"
#include "model/selection_order.h"
#include "model/vzeroupper.h"

namespace kurv {

namespace {

constexpr const char* kAllXTheSame = "Graph cannot be plotted when all x values are the same.";
constexpr const char* kTooFewPoints = "Graph cannot be plotted with 1 or less x axis values.";

void choose_format(Double lo, Double hi, const NumericService& numeric, String& format) {
  const Double span = std::abs(hi - lo);
  const Double magnitude = std::abs(lo) + std::abs(hi);
  // The logarithm comes last, because it is not defined for a span of zero.
  if (magnitude < 0.005 || magnitude > 10000 || span <= 0.01 ||
      numeric.decimal_logarithm(span) > 4) {
    format = "0.00E+0";
  } else if (span < 1) {
    format = "0.0000";
  } else if (span > 100) {
    format = "0";
  }
}

// Sorts xyArr and returns the exchanges that were made.
std::vector<Exchange> sort_points(GraphDocument& document, const SwapService& swap) {
  if (document.NumData < 2) return {};
  issue_vzeroupper();
  std::vector<Exchange> exchanges =
      selection_sort_exchanges(std::as_const(document.xyArr).column(1), document.NumData);
  if (exchanges.empty()) return exchanges;
  swap.exchange_points(document.xyArr, document.NumY + 1, exchanges);
  return exchanges;
}

List<int> permutation_of(const std::vector<Exchange>& exchanges, int count) {
  List<int> places(1, std::max(count, 0));
  for (int i = 1; i <= count; ++i) places(i) = i;
  for (const auto& [place, taken] : exchanges) std::swap(places(place), places(taken));
  return places;
}

std::optional<String> validation_message(bool x_varies, int points) {
  std::optional<String> message;
  if (!x_varies) message = kAllXTheSame;
  if (points < 2) message = kTooFewPoints + String("\r\n") + message.value_or("");
  return message;
}

}  // namespace

int points_in(const GraphDocument& document, const Matrix<Double>& data) {
  return std::max(0, std::min<int>(document.NumData, data.upper_point()));
}

int curves_in(const GraphDocument& document, const Matrix<Double>& data) {
  return std::max(
      0, std::min({int{document.NumY}, data.upper_column() - 1, document.y_visible.upper()}));
}

void Sort_xy(GraphDocument& document, const SwapService& swap) {
  sort_points(document, swap);
}

void store_both_orders(GraphDocument& document, const SwapService& swap) {
  document.xyArrUnsorted = document.xyArr;
  document.sorted_places = permutation_of(sort_points(document, swap), document.NumData);
  document.xyArrSorted = document.xyArr;
  ++document.data_revision;
}

void refresh_sorted_data(GraphDocument& document, const SwapService& swap) {
  store_both_orders(document, swap);
  if (!document.SortXY) document.xyArr = document.xyArrUnsorted;
}

std::optional<String> Validate(const GraphDocument& document) {
  return validation_message(document.xmax != document.xmin, document.NumData);
}

std::optional<String> validate_points(const GraphDocument& document) {
  std::optional<Double> first;
  const auto x = document.xyArrUnsorted.column(1);
  for (int i = 1; i <= document.NumData; ++i) {
    if (!std::isfinite(x(i))) continue;
    if (first && *first != x(i)) return validation_message(true, document.NumData);
    first = x(i);
  }
  return validation_message(false, document.NumData);
}

void choose_label_formats(GraphDocument& document, const NumericService& numeric) {
  if (document.round_limits.is_on) return choose_exact_label_formats(document);
  choose_format(document.ymin, document.ymax, numeric, document.AxisLabelFormatY);
  choose_format(document.xmin, document.xmax, numeric, document.AxisLabelFormatX);
}

}  // namespace kurv
