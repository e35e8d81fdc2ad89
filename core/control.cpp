#include <KurvGraph/control.h>

#include <algorithm>
#include <exception>
#include <utility>

#include "core/axis_range.h"
#include "core/control_state.h"
#include "core/data_intake.h"
#include "core/data_set.h"
#include "core/events.h"
#include "core/lifecycle.h"
#include "core/redraw.h"
#include "expr/derived_curve_wizard.h"
#include "expr/function_curve_commands.h"
#include "ui/commands.h"
#include "ui/graph_file_commands.h"
#include "ui/prompted_settings.h"

namespace kurv {

namespace {

// What the integer property takes; anything else is ignored without a word.
constexpr Integer kSmallestMarker = 2;
constexpr Integer kLargestMarker = 500;

constexpr const char* kNotSaved = "The graph could not be saved.";

}  // namespace

Control::Control(Container& container, Shell& shell, PlotSurface& surface, const Services& services)
    : m_state(new ControlState{container, shell, surface, services}) {
  initialise(*m_state);
}

// An outer edge: a destructor has nobody to throw to. The user is told instead, as the only one who
// can still rescue something.
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

std::vector<String> Control::functions() const {
  std::vector<String> expressions;
  for (int k = 1; k <= std::min<int>(m_state->document.NumYFunc, kMaxFunctions); ++k) {
    expressions.push_back(m_state->document.y_func(k).expression);
  }
  return expressions;
}
void Control::release_mouse(Integer Button, Integer Shift, Single x, Single Y) {
  raise_MouseUp(*m_state, Button, Shift, x, Y);
}
void Control::add_listener(EventListener listener) {
  m_state->listeners.push_back(std::move(listener));
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

Integer Control::MarkerSize() const {
  return to_integer(m_state->document.MarkerSize);
}
void Control::set_MarkerSize(Integer value) {
  if (value < kSmallestMarker || value > kLargestMarker) return;
  set_marker_size(m_state->document, value);
}

Double Control::ymin() const {
  return m_state->document.ymin;
}
void Control::set_ymin(Double value) {
  m_state->document.ymin = value;
}

Double Control::ymax() const {
  return m_state->document.ymax;
}
void Control::set_ymax(Double value) {
  m_state->document.ymax = value;
}

Double Control::xmax() const {
  return m_state->document.xmax;
}
void Control::set_xmax(Double value) {
  m_state->document.xmax = value;
}

Double Control::xmin() const {
  return m_state->document.xmin;
}
void Control::set_xmin(Double value) {
  m_state->document.xmin = value;
}

Integer Control::NumTicks() const {
  return m_state->document.NumTicks;
}
void Control::set_NumTicks(Integer value) {
  m_state->document.NumTicks = value;
}

Boolean Control::Autoscale() const {
  return m_state->document.Autoscale;
}
void Control::set_Autoscale(Boolean value) {
  m_state->document.Autoscale = value;
}

Boolean Control::Connected() const {
  return m_state->document.Connected;
}
void Control::set_Connected(Boolean value) {
  m_state->document.Connected = value;
}

Boolean Control::DrawMarkers() const {
  return m_state->document.DrawMarkers;
}
void Control::set_DrawMarkers(Boolean value) {
  m_state->document.DrawMarkers = value;
}

Boolean Control::QueryForSave() const {
  return m_state->document.QueryForSave;
}
void Control::set_QueryForSave(Boolean value) {
  m_state->document.QueryForSave = value;
}

Boolean Control::SortXY() const {
  return m_state->document.SortXY;
}
void Control::set_SortXY(Boolean value) {
  m_state->document.SortXY = value;
}

Boolean Control::Y_grid() const {
  return m_state->document.Y_grid;
}
void Control::set_Y_grid(Boolean value) {
  m_state->document.Y_grid = value;
}

Boolean Control::X_grid() const {
  return m_state->document.X_grid;
}
void Control::set_X_grid(Boolean value) {
  m_state->document.X_grid = value;
}

Integer Control::CurvesWidth() const {
  return m_state->document.CurvesWidth;
}
void Control::set_CurvesWidth(Integer value) {
  m_state->document.CurvesWidth = value;
}

Integer Control::BorderWidth() const {
  return m_state->document.BorderWidth;
}
void Control::set_BorderWidth(Integer value) {
  m_state->document.BorderWidth = value;
}

String Control::AxisLabelFormatX() const {
  return m_state->document.AxisLabelFormatX;
}
void Control::set_AxisLabelFormatX(const String& value) {
  m_state->document.AxisLabelFormatX = value;
}

String Control::FontName() const {
  return m_state->document.FontName;
}
void Control::set_FontName(const String& value) {
  m_state->document.FontName = value;
}

Single Control::FontSize() const {
  return m_state->document.FontSize;
}
void Control::set_FontSize(Single value) {
  m_state->document.FontSize = value;
}

Boolean Control::FontBold() const {
  return m_state->document.FontBold;
}
void Control::set_FontBold(Boolean value) {
  m_state->document.FontBold = value;
}

Boolean Control::FontItalic() const {
  return m_state->document.FontItalic;
}
void Control::set_FontItalic(Boolean value) {
  m_state->document.FontItalic = value;
}

String Control::TitleFontName() const {
  return m_state->document.TitleFontName;
}
void Control::set_TitleFontName(const String& value) {
  m_state->document.TitleFontName = value;
}

Single Control::TitleFontSize() const {
  return m_state->document.TitleFontSize;
}
void Control::set_TitleFontSize(Single value) {
  m_state->document.TitleFontSize = value;
}

Boolean Control::TitleFontBold() const {
  return m_state->document.TitleFontBold;
}
void Control::set_TitleFontBold(Boolean value) {
  m_state->document.TitleFontBold = value;
}

Boolean Control::TitleFontItalic() const {
  return m_state->document.TitleFontItalic;
}
void Control::set_TitleFontItalic(Boolean value) {
  m_state->document.TitleFontItalic = value;
}

String Control::SubTitleFontName() const {
  return m_state->document.SubTitleFontName;
}
void Control::set_SubTitleFontName(const String& value) {
  m_state->document.SubTitleFontName = value;
}

Single Control::SubTitleFontSize() const {
  return m_state->document.SubTitleFontSize;
}
void Control::set_SubTitleFontSize(Single value) {
  m_state->document.SubTitleFontSize = value;
}

Boolean Control::SubTitleFontBold() const {
  return m_state->document.SubTitleFontBold;
}
void Control::set_SubTitleFontBold(Boolean value) {
  m_state->document.SubTitleFontBold = value;
}

Boolean Control::SubTitleFontItalic() const {
  return m_state->document.SubTitleFontItalic;
}
void Control::set_SubTitleFontItalic(Boolean value) {
  m_state->document.SubTitleFontItalic = value;
}

String Control::AxisLabelFormatY() const {
  return m_state->document.AxisLabelFormatY;
}
void Control::set_AxisLabelFormatY(const String& value) {
  m_state->document.AxisLabelFormatY = value;
}

Integer Control::Right_margine() const {
  return m_state->document.Right_margine;
}
void Control::set_Right_margine(Integer value) {
  m_state->document.Right_margine = value;
}

Integer Control::Left_margine() const {
  return m_state->document.Left_margine;
}
void Control::set_Left_margine(Integer value) {
  m_state->document.Left_margine = value;
}

Integer Control::Top_margine() const {
  return m_state->document.Top_margine;
}
void Control::set_Top_margine(Integer value) {
  m_state->document.Top_margine = value;
}

Integer Control::Bottom_margine() const {
  return m_state->document.Bottom_margine;
}
void Control::set_Bottom_margine(Integer value) {
  m_state->document.Bottom_margine = value;
}

String Control::Title() const {
  return m_state->document.Title;
}
void Control::set_Title(const String& value) {
  m_state->document.Title = value;
}

String Control::SubTitle() const {
  return m_state->document.SubTitle;
}
void Control::set_SubTitle(const String& value) {
  m_state->document.SubTitle = value;
}

}  // namespace kurv
