#include "control/growing_data.h"

#include <algorithm>

#include <KurvGraph/limits.h>

#include "control/control_state.h"
#include "control/data_intake.h"
#include "control/redraw.h"
#include "control/undo.h"
#include "model/axis_range.h"
#include "model/data_set.h"
#include "model/vzeroupper.h"

namespace kurv {

namespace {

// Empty where an intake that has failed midway has left fewer names than columns.
String column_name(const GraphDocument& document, int column) {
  const List<String>& names = document.yVarName;
  return column >= names.lower() && column <= names.upper() ? names(column) : String();
}

// After an intake that has failed midway, the counts do not agree either.
void check_columns(const ControlState& state, const Matrix<Double>& points) {
  const ColumnSources& columns = state.columns;
  const bool agrees = columns.numbers.size() == static_cast<std::size_t>(state.document.NumY) + 1;
  if (agrees && points.lower_column() <= 1 && points.upper_column() == columns.host_columns) return;
  throw Fault(FaultKind::kSubscriptOutOfRange);
}

// The points of the host from `first` on, with the derived curves computed for them; columns by
// their numbers.
Matrix<Double> with_derived(ControlState& state, const Matrix<Double>& points, int first) {
  const ColumnSources& columns = state.columns;
  const int count = points.upper_point() - first + 1;
  const int derived = static_cast<int>(columns.derivations.size());
  Matrix<Double> all(1, columns.host_columns + derived, 1, count);
  for (int c = 1; c <= columns.host_columns; ++c) {
    const Column<const Double> values = points.column(c);
    const Column<Double> own = all.column(c);
    for (int i = 1; i <= count; ++i) own(i) = values(first + i - 1);
  }
  for (const ColumnSources::Derivation& derivation : columns.derivations) {
    issue_vzeroupper();
    ExprEvaluator& evaluator = state.derived_evaluator.get();
    for (int i = 1; i <= count; ++i) {
      for (const auto& [name, number] : derivation.variables) {
        evaluator.SetVariable(name, all(number, i));
      }
      evaluator.SetExpression(derivation.expression);
      const Double value = evaluator.Evaluate();
      all(derivation.number, i) = value;
    }
  }
  return all;
}

// `kept` of the points that are there, followed by the new ones.
void store_points(ControlState& state, int kept, const Matrix<Double>& added) {
  GraphDocument& document = state.document;
  const int count = kept + added.upper_point();
  const int dropped = document.NumData - kept;
  Matrix<Double> data(0, document.xyArrUnsorted.upper_column(), 0, count);
  for (int c = 1; c <= document.NumY + 1; ++c) {
    const Column<Double> values = data.column(c);
    if (kept > 0) {
      const Column<const Double> old = std::as_const(document.xyArrUnsorted).column(c);
      for (int i = 1; i <= kept; ++i) values(i) = old(dropped + i);
    }
    const Column<const Double> fresh =
        added.column(state.columns.numbers[static_cast<std::size_t>(c) - 1]);
    for (int i = kept + 1; i <= count; ++i) values(i) = fresh(i - kept);
  }
  document.NumData = to_integer(Double(count));
  document.xyArr = std::move(data);
  refresh_sorted_data(document, *state.services.swap);
}

void draw(ControlState& state) {
  state.history.notify();
  GraphDocument& document = state.document;
  if (has_repaired_data(document)) return draw_repaired_data(state);
  // Limits that no picture has are worse than those of the points before.
  if (document.Autoscale && !validate_points(document)) {
    basKurvGraph01::compute_axis_range(document, *state.services.numeric);
  }
  choose_formats_again(state);
  build_the_graph(state);
}

}  // namespace

void reset_column_sources(ControlState& state) {
  const GraphDocument& document = state.document;
  ColumnSources columns;
  columns.host_columns = document.NumY + 1;
  for (int c = 1; c <= columns.host_columns; ++c) {
    columns.host_names.push_back(column_name(document, c));
    columns.numbers.push_back(c);
  }
  state.columns = std::move(columns);
  state.cell_edits = 0;
}

void add_derivation(ControlState& state, const String& expression) {
  ColumnSources& columns = state.columns;
  ColumnSources::Derivation derivation{
      static_cast<int>(columns.numbers.size()) + 1, expression, {}};
  for (std::size_t c = 0; c < columns.numbers.size(); ++c) {
    derivation.variables.emplace_back(column_name(state.document, static_cast<int>(c) + 1),
                                      columns.numbers[c]);
  }
  columns.numbers.push_back(derivation.number);
  columns.derivations.push_back(std::move(derivation));
}

void exchange_sources_with_x(ControlState& state, int column) {
  std::vector<int>& numbers = state.columns.numbers;
  const auto index = static_cast<std::size_t>(column) - 1;
  if (index < numbers.size()) std::swap(numbers.front(), numbers[index]);
}

void append_points(ControlState& state, const Matrix<Double>& points) {
  check_columns(state, points);
  if (points.upper_point() < 1) return;
  const int first = std::max(1, points.upper_point() - kMaxPoints + 1);
  const Matrix<Double> added = with_derived(state, points, first);
  const UndoNotification notification(state.history);
  state.history.forget_data();
  store_points(state, std::min<int>(state.document.NumData, kMaxPoints - added.upper_point()),
               added);
  draw(state);
}

void replace_points(ControlState& state, const Matrix<Double>& points, const List<String>& names) {
  check_columns(state, points);
  const int first = std::max(1, points.upper_point() - kMaxPoints + 1);
  const Matrix<Double> added = with_derived(state, points, first);
  const UndoNotification notification(state.history);
  state.history.forget_data();
  store_points(state, 0, added);
  ColumnSources& columns = state.columns;
  for (int c = 1; c <= static_cast<int>(columns.numbers.size()); ++c) {
    const int number = columns.numbers[static_cast<std::size_t>(c) - 1];
    if (number > columns.host_columns) continue;
    String& name = state.document.yVarName(c);
    if (name == columns.host_names[static_cast<std::size_t>(number) - 1]) name = names(number);
  }
  for (int n = 1; n <= columns.host_columns; ++n) {
    String& known = columns.host_names[static_cast<std::size_t>(n) - 1];
    // A step that has changed a name would bring back the others of before.
    if (known != names(n)) state.history.clear();
    known = names(n);
  }
  draw(state);
}

void choose_first_formats(ControlState& state) {
  GraphDocument& document = state.document;
  state.x_format.before = document.AxisLabelFormatX;
  state.y_format.before = document.AxisLabelFormatY;
  choose_label_formats(document, *state.services.numeric);
  state.x_format.fitted = document.AxisLabelFormatX;
  state.y_format.fitted = document.AxisLabelFormatY;
}

void choose_formats_again(ControlState& state) {
  GraphDocument& document = state.document;
  const String x = document.AxisLabelFormatX;
  const String y = document.AxisLabelFormatY;
  const bool was_x_chosen = x == state.x_format.fitted;
  const bool was_y_chosen = y == state.y_format.fitted;
  if (was_x_chosen) document.AxisLabelFormatX = state.x_format.before;
  if (was_y_chosen) document.AxisLabelFormatY = state.y_format.before;
  choose_label_formats(document, *state.services.numeric);
  if (was_x_chosen) state.x_format.fitted = document.AxisLabelFormatX;
  if (was_y_chosen) state.y_format.fitted = document.AxisLabelFormatY;
  if (!was_x_chosen) document.AxisLabelFormatX = x;
  if (!was_y_chosen) document.AxisLabelFormatY = y;
}

void keep_formats_as_chosen(ControlState& state) {
  const GraphDocument& document = state.document;
  state.x_format = {document.AxisLabelFormatX, document.AxisLabelFormatX};
  state.y_format = {document.AxisLabelFormatY, document.AxisLabelFormatY};
}

}  // namespace kurv
