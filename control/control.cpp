#include <KurvGraph/control.h>

#include <algorithm>
#include <exception>
#include <utility>

#include "control/axis_limits.h"
#include "control/commands.h"
#include "control/control_state.h"
#include "control/data_intake.h"
#include "control/derived_curve_wizard.h"
#include "control/fitted_items.h"
#include "control/function_curve_commands.h"
#include "control/graph_file_commands.h"
#include "control/lifecycle.h"
#include "control/mouse.h"
#include "control/prompted_settings.h"
#include "control/redraw.h"
#include "control/undo.h"
#include "io/comma_changes.h"
#include "model/data_set.h"
#include "render/legend_titles.h"

namespace kurv {

namespace {

constexpr const char* kNotSaved = "The graph could not be saved.";

std::optional<String> name_of(const Step* step) {
  return step ? std::optional(step->name) : std::nullopt;
}

}  // namespace

Control::Control(Container& container, Shell& shell, PlotSurface& surface, const Services& services)
    : m_state(new ControlState{container, shell, surface, services}) {
  initialise(*m_state);
}

// A destructor cannot throw, so a message box reports the failure to the user instead.
Control::~Control() {
  try {
    terminate();
  } catch (const std::exception&) {
    m_state->shell.message_box(kNotSaved, kCriticalStop, "KURV Guide");
  }
}

void Control::first_placement() {
  kurv::first_placement(*m_state);
}
void Control::show() {
  kurv::show(*m_state);
}
void Control::resize() {
  kurv::resize(*m_state);
}
void Control::terminate() {
  kurv::terminate(*m_state);
}

void Control::CloseMe() {
  m_state->shell.unload_windows();
}

void Control::build_the_graph() {
  kurv::build_the_graph(*m_state);
}

void Control::scatter_graph(const Matrix<Double>& yarr_, const List<Double>& xarr,
                            Integer pNumData_, Integer pNumY_, const Variant& pTitle_,
                            const String& xVarName_, const List<String>& yVarName_,
                            Integer pNumYFunc_, const List<String>& y_func_,
                            std::optional<Boolean> pConnected_,
                            std::optional<Boolean> draw_scatter_points_) {
  kurv::scatter_graph(*m_state,
                      {to_string(pTitle_), pNumData_, pNumY_, pNumYFunc_,
                       pConnected_.value_or(false), draw_scatter_points_.value_or(false)},
                      yarr_, xarr, xVarName_, yVarName_, y_func_);
}

void Control::scatter_graph2(const String& pTitle_, const Matrix<Double>& xyArr_,
                             const List<String>& xyVarNames_, Integer pNumData_, Integer pNumY_,
                             const List<Boolean>& y_visible_, Integer pNumYFunc_,
                             const List<String>& y_func_, std::optional<Boolean> pConnected_,
                             std::optional<Boolean> draw_scatter_points_) {
  kurv::scatter_graph2(*m_state,
                       {pTitle_, pNumData_, pNumY_, pNumYFunc_, pConnected_.value_or(false),
                        draw_scatter_points_.value_or(false)},
                       xyArr_, xyVarNames_, y_visible_, y_func_);
}

void Control::append_points(const Matrix<Double>& points) {
  kurv::append_points(*m_state, points);
}
void Control::replace_points(const Matrix<Double>& points, const List<String>& names) {
  kurv::replace_points(*m_state, points, names);
}
unsigned Control::cell_edits() const {
  return m_state->cell_edits;
}

bool Control::round_limits() const {
  return m_state->document.round_limits.is_on;
}
void Control::set_round_limits(bool on) {
  basKurvGraph01::set_round_limits(*m_state, on);
}
void Control::set_x_unit(AxisUnit unit) {
  m_state->document.round_limits.x_unit = unit;
}
void Control::update_limits() {
  basKurvGraph01::update_limits(*m_state);
}

bool Control::fitted_items() const {
  return m_state->document.fitted_items.is_on;
}
void Control::set_fitted_items(bool on) {
  kurv::set_fitted_items(*m_state, on);
}
bool Control::has_items_in_fitted_places() const {
  return kurv::has_items_in_fitted_places(*m_state);
}
int Control::unlisted_curves() const {
  return kurv::unlisted_curves(m_state->document);
}

void Control::file_load(const String& filename) {
  kurv::file_load(*m_state, filename);
}
void Control::Save_graph() {
  kurv::Save_graph(*m_state);
}
void Control::Sort_xy() {
  kurv::Sort_xy(m_state->document, *m_state->services.swap);
}
void Control::ChartOptions(std::string_view command) {
  kurv::ChartOptions(*m_state, command);
}
void Control::Restore_Grf() {
  basKurvGraph01::Restore_Grf(*m_state);
}

void Control::prompt(PromptedSetting setting) {
  kurv::prompt(*m_state, setting);
}
void Control::add_function() {
  kurv::add_function(*m_state);
}
void Control::edit_function(const String& selected) {
  kurv::edit_function(*m_state, selected);
}
void Control::add_derived_curve() {
  kurv::add_derived_curve(*m_state);
}
std::optional<String> Control::add_function(const String& expression) {
  return kurv::add_function(*m_state, expression);
}
std::optional<String> Control::derive(const String& name, const String& expression) {
  return kurv::derive(*m_state, name, expression);
}

void Control::draw_on(PlotSurface& surface) const {
  kurv::draw_on(*m_state, surface);
}

std::vector<String> Control::functions() const {
  std::vector<String> expressions;
  for (int k = 1; k <= std::min<int>(m_state->document.NumYFunc, kMaxFunctions); ++k) {
    expressions.push_back(m_state->document.y_func(k).expression);
  }
  return expressions;
}

std::vector<CommaChange> Control::comma_changes() const {
  return kurv::comma_changes(m_state->document, m_state->decimal_separator);
}

void Control::press_mouse(Integer, Integer, Single x, Single Y) {
  kurv::press_mouse(*m_state, {x, Y});
}
void Control::release_mouse(Integer Button, Integer Shift, Single x, Single Y) {
  kurv::release_mouse(*m_state, Button, Shift, {x, Y});
}
void Control::double_click(Single x, Single Y) {
  kurv::double_click(*m_state, {x, Y});
}
void Control::drag(Item item, SurfacePoint grab, SurfacePoint drop, std::optional<Item> on) {
  kurv::drag(*m_state, item, grab, drop, on);
}
void Control::add_listener(EventListener listener) {
  m_state->listeners.push_back(std::move(listener));
}

bool Control::undo_enabled() const {
  return m_state->history.is_on();
}
void Control::set_undo_enabled(bool on) {
  kurv::set_undo_enabled(*m_state, on);
}
bool Control::undo() {
  return kurv::undo(*m_state);
}
bool Control::redo() {
  return kurv::redo(*m_state);
}
std::optional<String> Control::undo_text() const {
  return name_of(m_state->history.last_done());
}
std::optional<String> Control::redo_text() const {
  return name_of(m_state->history.first_undone());
}
void Control::clear_undo() {
  m_state->history.forget_steps();
  m_state->history.notify();
}
void Control::make_step(const String& name, const std::function<void()>& work) {
  const StepRecorder step(*m_state, {name});
  work();
}
void Control::add_undo_listener(std::function<void()> listener) {
  m_state->history.add_listener(std::move(listener));
}

String Control::FileName() const {
  return m_state->document.FileName;
}
Boolean Control::GraphSaved() const {
  return m_state->document.GraphSaved;
}
void Control::reset_file() {
  kurv::reset_file(m_state->document);
}

char Control::decimal_separator() const {
  return m_state->decimal_separator;
}
void Control::set_decimal_separator(char separator) {
  if (separator != '.' && separator != ',') throw Fault(FaultKind::kInvalidProcedureCall);
  m_state->decimal_separator = separator;
}

}  // namespace kurv
