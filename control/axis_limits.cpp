#include "control/axis_limits.h"

#include "control/control_state.h"
#include "control/redraw.h"
#include "control/undo.h"
#include "model/axis_range.h"

namespace kurv::basKurvGraph01 {

void Restore_Grf(ControlState& state) {
  const StepRecorder step(state, {"Restore Limits and Margins"});
  GraphDocument& document = state.document;
  set_marker_size(document, kDefaultMarkerSize);
  document.Top_margine = kDefaultTopMargine;
  document.Left_margine = kDefaultLeftMargine;
  document.Right_margine = kDefaultRightMargine;
  document.Bottom_margine = kDefaultBottomMargine;
  compute_axis_range(document, *state.services.numeric);
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

}  // namespace kurv::basKurvGraph01
