// The getters and setters of property_list.h: the control's own, in the toolkit's types; and those
// of the widget alone that need no redraw.
#include <utility>

#include "control/zoom.h"
#include "qt/widget/kurv_graph_state.h"

namespace kurv {

namespace {

bool to_toolkit(Boolean value) {
  return bool(value);
}
int to_toolkit(Integer value) {
  return value;
}
double to_toolkit(Single value) {
  return value;
}
double to_toolkit(Double value) {
  return value;
}
QString to_toolkit(const String& value) {
  return QString::fromStdString(value);
}

// Throws kOverflow for a number that does not fit.
template <class Value, class Given>
Value from_toolkit(const Given& value) {
  if constexpr (std::is_same_v<Value, Integer>) {
    return to_integer(Double(value));
  } else if constexpr (std::is_same_v<Value, Single>) {
    return to_single(Variant(value));
  } else if constexpr (std::is_same_v<Value, String>) {
    return value.toStdString();
  } else {
    return value;
  }
}

}  // namespace

#define KURV_QT_DEFINE(name, dispatch_id, Type, ...)                   \
  KURV_QT_##Type KurvGraph::name() const {                             \
    return to_toolkit(m_state->graph.name());                          \
  }                                                                    \
  void KurvGraph::set_##name(PropertyArgument<KURV_QT_##Type> value) { \
    m_state->graph.set_##name(from_toolkit<Type>(value));              \
    m_state->changed_from_outside();                                   \
  }
KURV_PROPERTIES(KURV_QT_DEFINE)
#undef KURV_QT_DEFINE

bool KurvGraph::design_mode() const {
  return m_state->design_mode;
}

void KurvGraph::set_design_mode(bool on) {
  m_state->set_design_mode(on);
}

bool KurvGraph::shortcuts_enabled() const {
  return m_state->shortcuts_enabled;
}

void KurvGraph::set_shortcuts_enabled(bool on) {
  m_state->shortcuts_enabled = on;
}

bool KurvGraph::extended_menu() const {
  return m_state->extended_menu;
}

void KurvGraph::set_extended_menu(bool on) {
  m_state->extended_menu = on;
}

void KurvGraph::set_proposed_file(const String& path) {
  m_state->shell.set_proposed_file(path);
}

bool KurvGraph::readout_enabled() const {
  return m_state->view->readout_enabled();
}

void KurvGraph::set_readout_enabled(bool on) {
  m_state->view->set_readout_enabled(on);
}

void KurvGraph::set_x_text(AxisText text) {
  m_state->view->set_x_text(std::move(text));
}

bool KurvGraph::zoom_enabled() const {
  return m_state->zoom->is_on();
}

void KurvGraph::set_zoom_enabled(bool on) {
  m_state->zoom->turn(on);
}

bool KurvGraph::is_zoomed() const {
  return kurv::is_zoomed(m_state->graph.state());
}

bool KurvGraph::round_limits() const {
  return m_state->graph.round_limits();
}

void KurvGraph::set_round_limits(bool on) {
  m_state->graph.set_round_limits(on);
}

bool KurvGraph::fitted_items() const {
  return m_state->graph.fitted_items();
}

void KurvGraph::set_fitted_items(bool on) {
  m_state->graph.set_fitted_items(on);
}

bool KurvGraph::has_items_in_fitted_places() const {
  return m_state->graph.has_items_in_fitted_places();
}

int KurvGraph::unlisted_curves() const {
  return m_state->graph.unlisted_curves();
}

void KurvGraph::set_x_unit(AxisUnit unit) {
  m_state->graph.set_x_unit(unit);
}

}  // namespace kurv
