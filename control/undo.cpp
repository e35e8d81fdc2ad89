#include "control/undo.h"

#include <new>
#include <utility>

#include "control/control_state.h"
#include "control/redraw.h"
#include "model/axis_range.h"
#include "model/data_set.h"
#include "render/mapping.h"
#include "render/pen.h"

namespace kurv {

namespace {

void compute_followed_limits(ControlState& state) {
  const GraphDocument& document = state.document;
  if (!document.Autoscale || validate_points(document)) return;
  basKurvGraph01::compute_axis_range(state.document, *state.services.numeric);
}

// Draws as a redraw before the step would have done it: with a grid and ticks that fit.
void draw_exchanged(ControlState& state) {
  GraphDocument& document = state.document;
  PlotSurface& surface = state.surface;
  document.GraphSaved = false;
  if (!document.GraphValid) {
    // The picture shows data that are not there any more.
    surface.Cls();
    state.last_picture.reset();
    return;
  }
  update_plot_rect(state.layout.plot, document, surface.ScaleWidth(), surface.ScaleHeight());
  set_pen_width(state.layout, surface, state.layout.pen_width);
  build_the_graph(state);
}

bool exchange_step(ControlState& state, Step* step) {
  if (!step) return false;
  const UndoNotification notification(state.history);
  step->changes.exchange_with(state);
  if (step->has_old_limits) compute_followed_limits(state);
  draw_exchanged(state);
  if (state.history.is_saved(state)) state.document.GraphSaved = true;
  return true;
}

}  // namespace

StepRecorder::StepRecorder(ControlState& state, const StepLabel& label)
    : m_state(state), m_label(label) {
  if (!state.history.can_begin()) return;
  m_before.emplace(state);
  state.history.begin();
}

// A step that there is no memory for cannot be undone, nor can those before it.
StepRecorder::~StepRecorder() {
  if (!m_before) return;
  History& history = m_state.history;
  try {
    history.end(m_state, m_label, std::move(*m_before));
  } catch (const std::bad_alloc&) {
    history.clear();
  }
  history.notify();
}

void set_undo_enabled(ControlState& state, bool on) {
  History& history = state.history;
  if (history.is_on() == on) return;
  history.turn(on);
  if (state.document.GraphSaved) history.note_saved(state);
  history.notify();
}

bool undo(ControlState& state) {
  return exchange_step(state, state.history.take_back());
}

bool redo(ControlState& state) {
  return exchange_step(state, state.history.take_again());
}

}  // namespace kurv
