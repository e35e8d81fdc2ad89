// The properties: each is the control's own, in the toolkit's types.
#include "qt/kurv_graph_state.h"

namespace kurv {

namespace {

QString shown(const String& text) {
  return QString::fromStdString(text);
}

}  // namespace

double KurvGraph::ymin() const {
  return m_state->control.ymin();
}
void KurvGraph::set_ymin(double value) {
  m_state->control.set_ymin(value);
}

double KurvGraph::ymax() const {
  return m_state->control.ymax();
}
void KurvGraph::set_ymax(double value) {
  m_state->control.set_ymax(value);
}

double KurvGraph::xmax() const {
  return m_state->control.xmax();
}
void KurvGraph::set_xmax(double value) {
  m_state->control.set_xmax(value);
}

double KurvGraph::xmin() const {
  return m_state->control.xmin();
}
void KurvGraph::set_xmin(double value) {
  m_state->control.set_xmin(value);
}

int KurvGraph::NumTicks() const {
  return m_state->control.NumTicks();
}
void KurvGraph::set_NumTicks(int value) {
  m_state->control.set_NumTicks(to_integer(Double(value)));
}

bool KurvGraph::Autoscale() const {
  return bool(m_state->control.Autoscale());
}
void KurvGraph::set_Autoscale(bool value) {
  m_state->control.set_Autoscale(value);
}

bool KurvGraph::Connected() const {
  return bool(m_state->control.Connected());
}
void KurvGraph::set_Connected(bool value) {
  m_state->control.set_Connected(value);
}

bool KurvGraph::DrawMarkers() const {
  return bool(m_state->control.DrawMarkers());
}
void KurvGraph::set_DrawMarkers(bool value) {
  m_state->control.set_DrawMarkers(value);
}

bool KurvGraph::QueryForSave() const {
  return bool(m_state->control.QueryForSave());
}
void KurvGraph::set_QueryForSave(bool value) {
  m_state->control.set_QueryForSave(value);
}

bool KurvGraph::SortXY() const {
  return bool(m_state->control.SortXY());
}
void KurvGraph::set_SortXY(bool value) {
  m_state->control.set_SortXY(value);
}

bool KurvGraph::Y_grid() const {
  return bool(m_state->control.Y_grid());
}
void KurvGraph::set_Y_grid(bool value) {
  m_state->control.set_Y_grid(value);
}

bool KurvGraph::X_grid() const {
  return bool(m_state->control.X_grid());
}
void KurvGraph::set_X_grid(bool value) {
  m_state->control.set_X_grid(value);
}

int KurvGraph::CurvesWidth() const {
  return m_state->control.CurvesWidth();
}
void KurvGraph::set_CurvesWidth(int value) {
  m_state->control.set_CurvesWidth(to_integer(Double(value)));
}

int KurvGraph::BorderWidth() const {
  return m_state->control.BorderWidth();
}
void KurvGraph::set_BorderWidth(int value) {
  m_state->control.set_BorderWidth(to_integer(Double(value)));
}

QString KurvGraph::AxisLabelFormatX() const {
  return shown(m_state->control.AxisLabelFormatX());
}
void KurvGraph::set_AxisLabelFormatX(const QString& value) {
  m_state->control.set_AxisLabelFormatX(value.toStdString());
}

QString KurvGraph::FontName() const {
  return shown(m_state->control.FontName());
}
void KurvGraph::set_FontName(const QString& value) {
  m_state->control.set_FontName(value.toStdString());
}

double KurvGraph::FontSize() const {
  return m_state->control.FontSize();
}
void KurvGraph::set_FontSize(double value) {
  m_state->control.set_FontSize(to_single(value));
}

bool KurvGraph::FontBold() const {
  return bool(m_state->control.FontBold());
}
void KurvGraph::set_FontBold(bool value) {
  m_state->control.set_FontBold(value);
}

bool KurvGraph::FontItalic() const {
  return bool(m_state->control.FontItalic());
}
void KurvGraph::set_FontItalic(bool value) {
  m_state->control.set_FontItalic(value);
}

QString KurvGraph::TitleFontName() const {
  return shown(m_state->control.TitleFontName());
}
void KurvGraph::set_TitleFontName(const QString& value) {
  m_state->control.set_TitleFontName(value.toStdString());
}

double KurvGraph::TitleFontSize() const {
  return m_state->control.TitleFontSize();
}
void KurvGraph::set_TitleFontSize(double value) {
  m_state->control.set_TitleFontSize(to_single(value));
}

bool KurvGraph::TitleFontBold() const {
  return bool(m_state->control.TitleFontBold());
}
void KurvGraph::set_TitleFontBold(bool value) {
  m_state->control.set_TitleFontBold(value);
}

bool KurvGraph::TitleFontItalic() const {
  return bool(m_state->control.TitleFontItalic());
}
void KurvGraph::set_TitleFontItalic(bool value) {
  m_state->control.set_TitleFontItalic(value);
}

QString KurvGraph::SubTitleFontName() const {
  return shown(m_state->control.SubTitleFontName());
}
void KurvGraph::set_SubTitleFontName(const QString& value) {
  m_state->control.set_SubTitleFontName(value.toStdString());
}

double KurvGraph::SubTitleFontSize() const {
  return m_state->control.SubTitleFontSize();
}
void KurvGraph::set_SubTitleFontSize(double value) {
  m_state->control.set_SubTitleFontSize(to_single(value));
}

bool KurvGraph::SubTitleFontBold() const {
  return bool(m_state->control.SubTitleFontBold());
}
void KurvGraph::set_SubTitleFontBold(bool value) {
  m_state->control.set_SubTitleFontBold(value);
}

bool KurvGraph::SubTitleFontItalic() const {
  return bool(m_state->control.SubTitleFontItalic());
}
void KurvGraph::set_SubTitleFontItalic(bool value) {
  m_state->control.set_SubTitleFontItalic(value);
}

QString KurvGraph::AxisLabelFormatY() const {
  return shown(m_state->control.AxisLabelFormatY());
}
void KurvGraph::set_AxisLabelFormatY(const QString& value) {
  m_state->control.set_AxisLabelFormatY(value.toStdString());
}

int KurvGraph::Right_margine() const {
  return m_state->control.Right_margine();
}
void KurvGraph::set_Right_margine(int value) {
  m_state->control.set_Right_margine(to_integer(Double(value)));
}

int KurvGraph::Left_margine() const {
  return m_state->control.Left_margine();
}
void KurvGraph::set_Left_margine(int value) {
  m_state->control.set_Left_margine(to_integer(Double(value)));
}

int KurvGraph::Top_margine() const {
  return m_state->control.Top_margine();
}
void KurvGraph::set_Top_margine(int value) {
  m_state->control.set_Top_margine(to_integer(Double(value)));
}

int KurvGraph::Bottom_margine() const {
  return m_state->control.Bottom_margine();
}
void KurvGraph::set_Bottom_margine(int value) {
  m_state->control.set_Bottom_margine(to_integer(Double(value)));
}

int KurvGraph::MarkerSize() const {
  return m_state->control.MarkerSize();
}
void KurvGraph::set_MarkerSize(int value) {
  m_state->control.set_MarkerSize(to_integer(Double(value)));
}

QString KurvGraph::Title() const {
  return shown(m_state->control.Title());
}
void KurvGraph::set_Title(const QString& value) {
  m_state->control.set_Title(value.toStdString());
}

QString KurvGraph::SubTitle() const {
  return shown(m_state->control.SubTitle());
}
void KurvGraph::set_SubTitle(const QString& value) {
  m_state->control.set_SubTitle(value.toStdString());
}

}  // namespace kurv
