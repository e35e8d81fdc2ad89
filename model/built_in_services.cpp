#include "model/built_in_services.h"

#include <KurvGraph/services.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <utility>
#include <vector>

#include <KurvGraph/fault.h>

namespace kurv {

namespace {

class BuiltInNumericService final : public NumericService {
 public:
  Double decimal_logarithm(Double value) const override {
    if (value <= 0) throw Fault(FaultKind::kInvalidProcedureCall);
    return std::log10(value);
  }
  Double round_down(Double value) const override { return std::floor(value); }
  Double round_up(Double value) const override { return std::ceil(value); }
  Double larger_of(Double value, Double other) const override {
    return value > other ? value : other;
  }
};

class BuiltInSwapService final : public SwapService {
 public:
  void exchange(Double& first, Double& second) const override { std::swap(first, second); }
  // The bounds are checked once a column: sorting the largest graph makes millions of exchanges.
  void exchange_all(const Column<Double>& values, std::span<const Exchange> pairs) const override {
    if (pairs.empty()) return;
    Double* const first = &values(values.lower()) - values.lower();
    for (const auto& [place, taken] : pairs) std::swap(first[place], first[taken]);
  }
  // Where a quarter of the points or more move, each column is permuted in one sequential pass from
  // a copy, which is faster than exchanges at random places.
  void exchange_points(Matrix<Double>& values, int columns,
                       std::span<const Exchange> pairs) const override {
    if (pairs.empty()) return;
    const std::size_t points = detail::extent(values.lower_point(), values.upper_point());
    if (pairs.size() < points / 4) return SwapService::exchange_points(values, columns, pairs);
    std::vector<std::uint32_t> sources(points);
    std::iota(sources.begin(), sources.end(), 0U);
    std::uint32_t* const first = sources.data() - values.lower_point();
    for (const auto& [place, taken] : pairs) std::swap(first[place], first[taken]);
    std::vector<Double> copy(points);
    for (int c = 1; c <= columns; ++c) {
      Double* const column = &values.column(c)(values.lower_point());
      std::copy_n(column, points, copy.begin());
      std::transform(sources.begin(), sources.end(), column,
                     [&](std::uint32_t source) { return copy[source]; });
    }
  }
};

class BuiltInTextFieldTool final : public TextFieldTool {
 public:
  String GetField(std::string_view text, int field, std::string_view delimiter) const override {
    if (field < 1) return {};
    for (int i = 1; i < field; ++i) {
      const std::size_t end = delimiter.empty() ? text.npos : text.find(delimiter);
      if (end == text.npos) return {};
      text.remove_prefix(end + delimiter.size());
    }
    return String(delimiter.empty() ? text : text.substr(0, text.find(delimiter)));
  }
};

}  // namespace

std::unique_ptr<Service> make_numeric_service() {
  return std::make_unique<BuiltInNumericService>();
}
std::unique_ptr<Service> make_swap_service() {
  return std::make_unique<BuiltInSwapService>();
}
std::unique_ptr<Service> make_text_field_tool() {
  return std::make_unique<BuiltInTextFieldTool>();
}

}  // namespace kurv
