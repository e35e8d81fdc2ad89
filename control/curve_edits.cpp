#include "control/curve_edits.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <KurvGraph/text.h>

#include "control/control_state.h"
#include "control/growing_data.h"
#include "control/redraw.h"
#include "control/undo.h"
#include "model/axis_range.h"
#include "model/data_set.h"

namespace kurv {

namespace {

// The last column that has data and a name; 0 where there is not even an x. After an intake that
// has failed midway the counts are larger than the arrays.
int last_column(const GraphDocument& document) {
  const List<String>& names = document.yVarName;
  if (names.lower() > 1) return 0;
  return std::min({document.NumY + 1, document.xyArr.upper_column(), names.upper(),
                   document.y_visible.upper() + 1});
}

bool varies(const GraphDocument& document, int column) {
  const auto values = document.xyArr.column(column);
  const int last = std::min<int>(document.NumData, values.upper());
  int first = 1;
  while (first <= last && std::isnan(values(first))) ++first;
  for (int i = first + 1; i <= last; ++i) {
    if (!std::isnan(values(i)) && values(i) != values(first)) return true;
  }
  return false;
}

// The first column of this name that can be x; 0 where there is none. Of several columns with one
// name only the first can be chosen, because the user chooses by name.
int column_to_choose(const GraphDocument& document, const String& name) {
  for (int c = 1; c <= last_column(document); ++c) {
    if (document.yVarName(c) == name && varies(document, c)) return c;
  }
  return 0;
}

void exchange_with_x(GraphDocument& document, int column) {
  const auto x = document.xyArr.column(1);
  const auto y = document.xyArr.column(column);
  for (int i = 1; i <= document.NumData; ++i) std::swap(x(i), y(i));
  std::swap(document.yVarName(1), document.yVarName(column));
  int& unit_column = document.round_limits.x_unit_column;
  if (unit_column == 1) {
    unit_column = column;
  } else if (unit_column == column) {
    unit_column = 1;
  }
}

// Unlike choose_label_formats(), changes the format only where a fixed one would be unreadable,
// because the user may have set it. The exponent has no plus sign; graph files store the format, so
// another one would change what is saved.
void choose_format(Double lo, Double hi, String& format) {
  const Double magnitude = std::abs(lo) + std::abs(hi);
  const bool needs_exponent = magnitude < 0.001 || magnitude > 10000 || std::abs(hi - lo) <= 0.01;
  if (needs_exponent) format = "0.00E-0";
}

void choose_readable_formats(GraphDocument& document) {
  choose_format(document.ymin, document.ymax, document.AxisLabelFormatY);
  choose_format(document.xmin, document.xmax, document.AxisLabelFormatX);
}

void compute_range(ControlState& state) {
  basKurvGraph01::compute_axis_range(state.document, *state.services.numeric);
}

void set_visible(ControlState& state, Boolean& flag, bool visible, const char* name) {
  if (static_cast<bool>(flag) == visible) return;
  const StepRecorder step(state, {name});
  flag = visible;
  if (state.document.Autoscale) compute_range(state);
  build_the_graph(state);
}

}  // namespace

std::vector<String> x_choices(const GraphDocument& document) {
  std::vector<String> names;
  for (int c = 1; c <= last_column(document); ++c) {
    if (varies(document, c)) names.push_back(document.yVarName(c));
  }
  return names;
}

std::vector<ListedCurve> listed_curves(const GraphDocument& document) {
  std::vector<ListedCurve> curves;
  const int last = std::min(last_column(document) - 1, kMaxCurves);
  for (int k = 1; k <= last; ++k) {
    const String& name = document.yVarName(k + 1);
    if (!name.empty()) curves.push_back({k, name, static_cast<bool>(document.y_visible(k))});
  }
  return curves;
}

std::vector<ListedCurve> listed_functions(const GraphDocument& document) {
  std::vector<ListedCurve> functions;
  for (int k = 1; k <= kMaxFunctions; ++k) {
    const FunctionCurve& slot = document.y_func(k);
    if (slot.expression.empty()) continue;
    functions.push_back({k, slot.expression, static_cast<bool>(slot.visible)});
  }
  return functions;
}

String curve_name(const GraphDocument& document, int curve) {
  const bool exists = curve >= 1 && curve < last_column(document);
  return exists ? document.yVarName(curve + 1) : String();
}

void choose_x(ControlState& state, const String& name) {
  GraphDocument& document = state.document;
  const int column = column_to_choose(document, name);
  if (column <= 1) return;
  const StepRecorder step(state, {"Choose X"});
  document.xyArr = document.xyArrUnsorted;
  exchange_with_x(document, column);
  exchange_sources_with_x(state, column);
  refresh_sorted_data(document, *state.services.swap);
  compute_range(state);
  if (!document.round_limits.is_on) choose_readable_formats(document);
  build_the_graph(state);
}

void set_curve_visible(ControlState& state, int curve, bool visible) {
  set_visible(state, state.document.y_visible(curve), visible,
              visible ? "Show Curve" : "Hide Curve");
}

void set_function_visible(ControlState& state, int slot, bool visible) {
  set_visible(state, state.document.y_func(slot).visible, visible,
              visible ? "Show Function" : "Hide Function");
}

void set_all_curves_visible(ControlState& state, bool visible) {
  const StepRecorder step(state, {visible ? "Show All Curves" : "Hide All Curves"});
  GraphDocument& document = state.document;
  for (int k = 1; k <= document.NumY; ++k) document.y_visible(k) = visible;
  build_the_graph(state);
}

void rename_curve(ControlState& state, int curve) {
  const String name = curve_name(state.document, curve);
  const String answer = state.shell.input_prompt("Enter new title.", "KURV Guide", name);
  if (trim_blanks(answer).empty()) return;
  // The host may have loaded another graph while the prompt was open.
  if (curve_name(state.document, curve) != name) return;
  const StepRecorder step(state, {"Rename Curve"});
  state.document.yVarName(curve + 1) = answer;
  build_the_graph(state);
}

}  // namespace kurv
