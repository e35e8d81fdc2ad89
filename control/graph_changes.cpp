#include "control/graph_changes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>

#include "control/control_state.h"
#include "model/data_set.h"

namespace kurv {

namespace {

using D = GraphDocument;

// A coordinate of what the user can drag.
struct Place {
  Rect Layout::*item;
  Single Rect::*coordinate;
};

// All that an edit can change. Not among them are the file and what belongs to it, QueryForSave,
// which is the host's, and what is made anew from xyArrUnsorted.
constexpr auto kFields = std::make_tuple(
    &D::GraphValid, &D::NumData, &D::NumY, &D::NumYFunc, &D::Connected, &D::Autoscale, &D::ymin,
    &D::ymax, &D::xmin, &D::xmax, &D::Top_margine, &D::Left_margine, &D::Right_margine,
    &D::Bottom_margine, &D::Title, &D::SubTitle, &D::NumTicks, &D::AxisLabelFormatX,
    &D::AxisLabelFormatY, &D::DrawMarkers, &D::XLimitsExact, &D::YLimitsExact, &D::round_limits,
    &D::fitted_items, &D::SortXY, &D::MarkerSize, &D::MarkerDrawSize, &D::BorderWidth,
    &D::CurvesWidth, &D::Y_grid, &D::X_grid, &D::FontName, &D::FontBold, &D::FontItalic,
    &D::FontSize, &D::TitleFontName, &D::TitleFontBold, &D::TitleFontItalic, &D::TitleFontSize,
    &D::SubTitleFontName, &D::SubTitleFontBold, &D::SubTitleFontItalic, &D::SubTitleFontSize,
    &D::DataFromHost, &D::xyArrUnsorted, &D::yVarName, &D::y_visible, &D::y_func,
    Place{&Layout::imgTitle, &Rect::left}, Place{&Layout::imgTitle, &Rect::top},
    Place{&Layout::imgSubTitle, &Rect::left}, Place{&Layout::imgSubTitle, &Rect::top},
    Place{&Layout::picLegend, &Rect::left}, Place{&Layout::picLegend, &Rect::top},
    &Layout::fitted_places, &ControlState::columns, &ControlState::cell_edits, &ControlState::zoom,
    &ControlState::x_format, &ControlState::y_format);

// Which formats count as chosen is not seen, so it is no change by itself.
using FormatField = decltype(&ControlState::x_format);
template <class Field>
constexpr bool kIsSeen = !std::is_same_v<std::decay_t<Field>, FormatField>;

struct AnyValue {
  template <class T>
  operator T() const;
};
template <class T, class... Value>
constexpr std::size_t field_count() {
  if constexpr (requires { T{Value()..., AnyValue()}; }) {
    return field_count<T, Value..., AnyValue>();
  } else {
    return sizeof...(Value);
  }
}
template <class Field>
constexpr bool kIsOfDocument = requires(D& document, Field field) {
  document.*field;
};
template <class... Field>
constexpr std::size_t document_fields(const std::tuple<Field...>&) {
  return (std::size_t{kIsOfDocument<Field>} + ...);
}
// QueryForSave, FileName, SavedTitle, GraphSaved, xyArr, xyArrSorted, sorted_places, data_revision.
constexpr std::size_t kFieldsLeftOut = 8;
static_assert(document_fields(kFields) + kFieldsLeftOut == field_count<D>(),
              "a new field of the document belongs into kFields where an edit can change it");

template <class State, class T>
auto& value_of(State& state, T D::*field) {
  return state.document.*field;
}
template <class State, class T>
auto& value_of(State& state, T Layout::*field) {
  return state.layout.*field;
}
template <class State>
auto& value_of(State& state, const Place& place) {
  return state.layout.*place.item.*place.coordinate;
}
template <class State, class T>
auto& value_of(State& state, T ControlState::*field) {
  return state.*field;
}

template <class Field>
using ValueOf =
    std::remove_cvref_t<decltype(value_of(std::declval<ControlState&>(), std::declval<Field>()))>;

template <class Fields>
struct OptionalValues;
template <class... Field>
struct OptionalValues<const std::tuple<Field...>> {
  using type = std::tuple<std::optional<ValueOf<Field>>...>;
};

// Where the values of a column begin; those of matrices that share it begin at the same place.
const Double* address_of(const Matrix<Double>& data, int column) {
  return &data.column(column)(data.lower_point());
}

template <class T>
bool is_equal(const T& left, const T& right) {
  if constexpr (std::is_floating_point_v<T>) {
    return left == right || (std::isnan(left) && std::isnan(right));
  } else {
    return left == right;
  }
}

// Of x and the curves alone, because the memory of the other columns is allocated by looking at
// them.
bool has_equal_columns(const Matrix<Double>& left, const Matrix<Double>& right, int curves) {
  if (left.upper_point() != right.upper_point() || left.upper_column() != right.upper_column()) {
    return false;
  }
  for (int c = 1; c <= std::min(curves + 1, left.upper_column()); ++c) {
    if (address_of(left, c) == address_of(right, c)) continue;
    const Column<const Double> values = left.column(c);
    const Column<const Double> others = right.column(c);
    for (int i = 1; i <= left.upper_point(); ++i) {
      if (!is_equal(values(i), others(i))) return false;
    }
  }
  return true;
}

// The sorted copy differs from the one before only in the columns that have been exchanged, unless
// x is one of them.
bool has_same_order(const GraphDocument& document, const Matrix<Double>& before) {
  const Matrix<Double>& data = document.xyArrUnsorted;
  const auto has_bounds = [&](const Matrix<Double>& other) {
    return other.lower_point() == data.lower_point() && other.upper_point() == data.upper_point() &&
           other.upper_column() == data.upper_column();
  };
  return has_bounds(before) && has_bounds(document.xyArrSorted) &&
         document.sorted_places.upper() == document.NumData && document.NumData >= 1 &&
         address_of(data, 1) == address_of(before, 1);
}

bool is_sorted(const List<int>& places) {
  for (int i = 1; i <= places.upper(); ++i) {
    if (places(i) != i) return false;
  }
  return true;
}

// As a sort would do it, but only for columns that differ from those before.
void sort_exchanged_columns(GraphDocument& document, const Matrix<Double>& before) {
  const bool sorted = is_sorted(document.sorted_places);
  const int last = std::min<int>(document.NumY + 1, document.xyArrUnsorted.upper_column());
  for (int c = 2; c <= last; ++c) {
    if (address_of(document.xyArrUnsorted, c) == address_of(before, c)) continue;
    if (sorted) {
      document.xyArrSorted.share_column(c, document.xyArrUnsorted, c);
      continue;
    }
    const Column<const Double> values = std::as_const(document.xyArrUnsorted).column(c);
    const Column<Double> own = document.xyArrSorted.column(c);
    for (int i = 1; i <= document.NumData; ++i) own(i) = values(document.sorted_places(i));
  }
  ++document.data_revision;
}

}  // namespace

struct GraphChanges::Fields {
  OptionalValues<decltype(kFields)>::type values;
  // Decides how wide the ticks of the next redraw are, and is no change by itself.
  Integer pen_width = 0;
  // The curves that data among the values have.
  Integer curves = 0;

  // Calls work(value, field) for each of them.
  template <class Work>
  void for_each(const Work& work) {
    for_each_of(values, work);
  }
  template <class Work>
  void for_each(const Work& work) const {
    for_each_of(values, work);
  }

  // Whether the graph has this value.
  template <class Field>
  bool agrees(const ValueOf<Field>& value, const ControlState& state, const Field& field) const {
    const auto& current = value_of(state, field);
    if constexpr (std::is_same_v<ValueOf<Field>, Matrix<Double>>) {
      return curves == state.document.NumY && has_equal_columns(value, current, curves);
    } else {
      return is_equal(value, current);
    }
  }

  std::optional<Matrix<Double>>& data() { return std::get<std::optional<Matrix<Double>>>(values); }

 private:
  template <class Values, class Work>
  static void for_each_of(Values& values, const Work& work) {
    const auto visit = [&](auto&... value) {
      std::apply([&](const auto&... field) { (work(value, field), ...); }, kFields);
    };
    std::apply(visit, values);
  }
};

GraphChanges::GraphChanges(const ControlState& state) : m_fields(std::make_unique<Fields>()) {
  m_fields->pen_width = state.layout.pen_width;
  m_fields->curves = state.document.NumY;
  m_fields->for_each([&](auto& value, const auto& field) { value = value_of(state, field); });
}

GraphChanges::~GraphChanges() = default;
GraphChanges::GraphChanges(GraphChanges&&) noexcept = default;
GraphChanges& GraphChanges::operator=(GraphChanges&&) noexcept = default;

void GraphChanges::keep_differences(const ControlState& state) {
  m_fields->for_each([&](auto& value, const auto& field) {
    if (value && m_fields->agrees(*value, state, field)) value.reset();
  });
}

void GraphChanges::merge_into(GraphChanges& earlier) {
  const auto add = [](auto& kept, auto& added) {
    if (!kept) kept = std::move(added);
  };
  const auto merge = [&](auto&... kept) {
    std::apply([&](auto&... added) { (add(kept, added), ...); }, m_fields->values);
  };
  std::apply(merge, earlier.m_fields->values);
}

bool GraphChanges::is_empty() const {
  bool found = false;
  m_fields->for_each([&](const auto& value, const auto& field) {
    found = found || (kIsSeen<decltype(field)> && value);
  });
  return !found;
}

bool GraphChanges::has_data() const {
  return m_fields->data().has_value();
}

bool GraphChanges::agrees_with(const ControlState& state) const {
  bool agrees = true;
  m_fields->for_each([&](const auto& value, const auto& field) {
    if (!kIsSeen<decltype(field)>) return;
    agrees = agrees && (!value || m_fields->agrees(*value, state, field));
  });
  return agrees;
}

void GraphChanges::exchange_with(ControlState& state) {
  const Integer curves = state.document.NumY;
  m_fields->for_each([&](auto& value, const auto& field) {
    if (value) std::swap(*value, value_of(state, field));
  });
  std::swap(m_fields->pen_width, state.layout.pen_width);
  m_fields->curves = curves;
  GraphDocument& document = state.document;
  if (const std::optional<Matrix<Double>>& before = m_fields->data()) {
    if (has_same_order(document, *before)) {
      sort_exchanged_columns(document, *before);
    } else {
      document.xyArr = document.xyArrUnsorted;
      store_both_orders(document, *state.services.swap);
    }
  }
  document.xyArr = document.SortXY ? document.xyArrSorted : document.xyArrUnsorted;
}

}  // namespace kurv
