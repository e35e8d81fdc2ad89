#include "core/data_set.h"

#include <cmath>
#include <utility>

#include "core/selection_order.h"

namespace kurv {

namespace {

constexpr const char* kAllXTheSame = "Graph cannot be plotted when all x values are the same.";
constexpr const char* kTooFewPoints = "Graph cannot be plotted with 1 or less x axis values.";

void choose_format(Double lo, Double hi, const NumericService& numeric, String& format) {
  const Double span = std::abs(hi - lo);
  const Double magnitude = std::abs(lo) + std::abs(hi);
  // The logarithm comes last, because a span of zero has none.
  if (magnitude < 0.005 || magnitude > 10000 || span <= 0.01 ||
      numeric.decimal_logarithm(span) > 4) {
    format = "0.00E+0";
  } else if (span < 1) {
    format = "0.0000";
  } else if (span > 100) {
    format = "0";
  }
}

}  // namespace

void Sort_xy(GraphDocument& document, const SwapService& swap) {
  if (document.NumData < 2) return;
  const std::vector<Exchange> exchanges =
      selection_sort_exchanges(std::as_const(document.xyArr).column(1), document.NumData);
  if (exchanges.empty()) return;
  for (int c = 1; c <= document.NumY + 1; ++c) {
    const auto column = document.xyArr.column(c);
    for (const auto& [place, taken] : exchanges) swap.exchange(column(place), column(taken));
  }
}

void refresh_sorted_data(GraphDocument& document, const SwapService& swap) {
  document.xyArrUnsorted = document.xyArr;
  Sort_xy(document, swap);
  document.xyArrSorted = document.xyArr;
  if (!document.SortXY) document.xyArr = document.xyArrUnsorted;
}

std::optional<String> Validate(const GraphDocument& document) {
  std::optional<String> message;
  if (document.xmax == document.xmin) message = kAllXTheSame;
  if (document.NumData < 2) message = kTooFewPoints + String("\r\n") + message.value_or("");
  return message;
}

void choose_label_formats(GraphDocument& document, const NumericService& numeric) {
  choose_format(document.ymin, document.ymax, numeric, document.AxisLabelFormatY);
  choose_format(document.xmin, document.xmax, numeric, document.AxisLabelFormatX);
}

}  // namespace kurv
