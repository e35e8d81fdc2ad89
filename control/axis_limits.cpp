#include "control/axis_limits.h"

#include <utility>

#include "control/control_state.h"
#include "control/fitted_items.h"
#include "control/growing_data.h"
#include "control/redraw.h"
#include "control/undo.h"
#include "model/axis_range.h"
#include "model/round_axis_range.h"

namespace kurv::basKurvGraph01 {

void Restore_Grf(ControlState& state) {
  const StepRecorder step(state, {"Restore Limits and Margins"});
  GraphDocument& document = state.document;
  const bool is_fitted = has_items_in_fitted_places(state);
  set_marker_size(document, kDefaultMarkerSize);
  document.Top_margine = kDefaultTopMargine;
  document.Left_margine = kDefaultLeftMargine;
  document.Right_margine = kDefaultRightMargine;
  document.Bottom_margine = kDefaultBottomMargine;
  compute_axis_range(document, *state.services.numeric);
  if (is_fitted) fit_items(state);
  build_the_graph(state);
}

void set_XLimitsExact(ControlState& state, Boolean exact) {
  const StepRecorder step(state, {"Change X Limits"});
  state.document.XLimitsExact = exact;
  compute_axis_range(state.document, *state.services.numeric);
  build_the_graph(state);
}

void set_YLimitsExact(ControlState& state, Boolean exact) {
  const StepRecorder step(state, {"Change Y Limits"});
  state.document.YLimitsExact = exact;
  compute_axis_range(state.document, *state.services.numeric);
  build_the_graph(state);
}

void set_round_limits(ControlState& state, bool on) {
  state.round_limits_after_load = on;
  if (std::exchange(state.document.round_limits.is_on, on) == on) return;
  if (on) {
    begin_round_limits(state.document);
  } else {
    end_round_limits(state.document);
    keep_formats_as_chosen(state);
  }
}

void update_limits(ControlState& state) {
  compute_axis_range(state.document, *state.services.numeric);
  if (!state.document.round_limits.is_on) choose_formats_again(state);
  build_the_graph(state);
}

void round_limits_once(ControlState& state) {
  GraphDocument& document = state.document;
  document.XLimitsExact = false;
  document.YLimitsExact = false;
  document.round_limits.ticks = document.NumTicks;
  round_axis_range(document);
  choose_exact_label_formats(document);
  keep_formats_as_chosen(state);
  build_the_graph(state);
}

}  // namespace kurv::basKurvGraph01
