#include "control/data_intake.h"

#include <chrono>
#include <cmath>
#include <random>
#include <utility>

#include "control/control_state.h"
#include "control/growing_data.h"
#include "control/redraw.h"
#include "control/undo.h"
#include "control/zoom.h"
#include "model/axis_range.h"
#include "model/data_set.h"

namespace kurv {

namespace {

constexpr int kUpperColumn = kMaxCurves + 1;
// The demonstration graph's matrix is wider than a host's can be, so a program can add more
// derived curves to it than a host's data can have.
constexpr int kDemonstrationUpperColumn = 250;

void store_settings(GraphDocument& document, const IntakeSettings& settings,
                    const List<String>& functions) {
  document.NumData = settings.num_data;
  document.Title = settings.title;
  document.NumY = settings.num_y;
  document.Connected = settings.connected;
  document.DrawMarkers = settings.draw_markers;
  document.NumYFunc = settings.num_functions;
  document.round_limits.x_unit_column = 1;
  for (int k = 1; k <= kMaxFunctions; ++k) {
    FunctionCurve& slot = document.y_func(k);
    const bool used = k <= document.NumYFunc;
    slot.expression = used ? functions(k) : String();
    slot.label = slot.expression;
    slot.visible = used;
  }
}

// Columns first..last of a host's matrix into the document's from column `target` on. Without
// points the host's matrix may be empty, so its columns are not asked for.
void copy_columns(GraphDocument& document, const Matrix<Double>& source, int first, int last,
                  int target) {
  if (document.NumData < 1) return;
  for (int c = first; c <= last; ++c) {
    document.xyArr.copy_column(target + c - first, source, c);
  }
}

// The same for the first columns of a matrix that nobody else can write: nothing is copied.
void share_columns(GraphDocument& document, const Matrix<Double>& source, int last) {
  if (document.NumData < 1) return;
  for (int c = 1; c <= last; ++c) document.xyArr.share_column(c, source, c);
}

// Dimensions, data and names from separate arrays.
void store_separate(ControlState& state, int upper_column, const Matrix<Double>& yarr,
                    const List<Double>& xarr, const String& x_name, const List<String>& y_names) {
  GraphDocument& document = state.document;
  document.xyArr = Matrix<Double>(0, upper_column, 0, document.NumData);
  document.yVarName = List<String>(0, to_integer(Double(document.NumY) + 1));
  document.y_visible.resize_keeping(document.NumY);

  const auto x = document.xyArr.column(1);
  for (int i = 1; i <= document.NumData; ++i) x(i) = xarr(i);
  copy_columns(document, yarr, 1, document.NumY, 2);
  refresh_sorted_data(document, *state.services.swap);

  document.yVarName(1) = x_name;
  for (int k = 1; k <= document.NumY; ++k) {
    document.yVarName(k + 1) = y_names(k);
    document.y_visible(k) = true;
  }
  reset_column_sources(state);
}

void compute_limits(ControlState& state) {
  if (state.document.NumTicks == 0) state.document.NumTicks = kDefaultNumTicks;
  basKurvGraph01::compute_axis_range(state.document, *state.services.numeric);
}

void draw_first_time(ControlState& state) {
  choose_first_formats(state);
  state.document.DataFromHost = true;
  build_the_graph(state);
}

// The last step of a public intake: draws the graph, or shows why it cannot be plotted.
void validate_and_draw(ControlState& state) {
  GraphDocument& document = state.document;
  compute_limits(state);
  const std::optional<String> problem = Validate(document);
  document.GraphValid = !problem.has_value();
  if (problem) {
    state.shell.message_box(*problem, kCriticalStop, "KURV Guide");
    return;
  }
  draw_first_time(state);
}

// Dimensions and names from one matrix; the data come next, and then the rest.
void begin_combined(GraphDocument& document, const IntakeSettings& settings,
                    const List<String>& names, const List<String>& functions) {
  document.DataFromHost = true;
  store_settings(document, settings, functions);
  document.yVarName = names;
  document.xyArr = Matrix<Double>(0, kUpperColumn, 0, document.NumData);
  if (document.NumY > kMaxCurves) document.NumY = kMaxCurves;
  document.y_visible.resize_keeping(document.NumY);
}

void finish_combined(ControlState& state, const List<Boolean>& visible) {
  GraphDocument& document = state.document;
  refresh_sorted_data(document, *state.services.swap);
  for (int k = 1; k <= document.NumY; ++k) document.y_visible(k) = visible(k);
  reset_column_sources(state);
}

}  // namespace

void scatter_graph(ControlState& state, const IntakeSettings& settings, const Matrix<Double>& yarr,
                   const List<Double>& xarr, const String& x_name, const List<String>& y_names,
                   const List<String>& functions) {
  const NewHistory history(state.history);
  store_settings(state.document, settings, functions);
  store_separate(state, kUpperColumn, yarr, xarr, x_name, y_names);
  end_zoom(state);
  validate_and_draw(state);
}

void scatter_graph2(ControlState& state, const IntakeSettings& settings,
                    const Matrix<Double>& xyarr, const List<String>& names,
                    const List<Boolean>& visible, const List<String>& functions) {
  const NewHistory history(state.history);
  begin_combined(state.document, settings, names, functions);
  copy_columns(state.document, xyarr, 1, state.document.NumY + 1, 1);
  finish_combined(state, visible);
  end_zoom(state);
  validate_and_draw(state);
}

void load_data(ControlState& state, const IntakeSettings& settings, Matrix<Double> xyarr,
               const List<String>& names, const List<Boolean>& visible,
               const List<String>& functions) {
  const NewHistory history(state.history);
  begin_combined(state.document, settings, names, functions);
  share_columns(state.document, xyarr, state.document.NumY + 1);
  xyarr = {};  // from here on the document alone has them
  finish_combined(state, visible);
  forget_zoom(state);  // the formats are already those of the file
  validate_and_draw(state);
}

bool has_repaired_data(const GraphDocument& document) {
  return !document.GraphValid && document.DataFromHost && !validate_points(document) &&
         basKurvGraph01::count_visible_curves(document) > 0;
}

// GraphValid is set before anything can throw, so that a fault is reported once, like that of any
// redraw.
void draw_repaired_data(ControlState& state) {
  state.document.GraphValid = true;
  compute_limits(state);
  draw_first_time(state);
}

void show_repaired_data(ControlState& state) {
  const StepRecorder step(state, {.name = "Edit Cells", .is_part_of_last = true});
  draw_repaired_data(state);
}

void load_demonstration_graph(ControlState& state) {
  constexpr Integer kCurves = 3;
  constexpr Integer kPoints = 10;
  const auto ticks = std::chrono::system_clock::now().time_since_epoch().count();
  std::mt19937 generator(static_cast<std::mt19937::result_type>(ticks));
  std::uniform_real_distribution<Double> random(0.0, 1.0);

  List<Double> x(1, kPoints);
  Matrix<Double> y(1, kCurves, 1, kPoints);
  List<String> names(1, kCurves);
  for (int k = 1; k <= kCurves; ++k) {
    names(k) = std::to_string(k) + "y";
    for (int i = 1; i <= kPoints; ++i) y(k, i) = std::sin(k) * random(generator) * 10 * i;
  }
  for (int i = 1; i <= kPoints; ++i) x(i) = i;

  store_settings(state.document, {"Scatter Points Graph", kPoints, kCurves, 0, true, true}, {});
  store_separate(state, kDemonstrationUpperColumn, y, x, "x", names);
  compute_limits(state);
  choose_label_formats(state.document, *state.services.numeric);
}

}  // namespace kurv
