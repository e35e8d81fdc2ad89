// The properties: each is the control's own, in the toolkit's types.
#include "qt/widget/kurv_graph_state.h"

namespace kurv {

namespace {

QString shown(const String& text) {
  return QString::fromStdString(text);
}

}  // namespace

double KurvGraph::ymin() const {
  return m_state->graph.ymin();
}
void KurvGraph::set_ymin(double value) {
  m_state->graph.set_ymin(value);
  m_state->changed_from_outside();
}

double KurvGraph::ymax() const {
  return m_state->graph.ymax();
}
void KurvGraph::set_ymax(double value) {
  m_state->graph.set_ymax(value);
  m_state->changed_from_outside();
}

double KurvGraph::xmax() const {
  return m_state->graph.xmax();
}
void KurvGraph::set_xmax(double value) {
  m_state->graph.set_xmax(value);
  m_state->changed_from_outside();
}

double KurvGraph::xmin() const {
  return m_state->graph.xmin();
}
void KurvGraph::set_xmin(double value) {
  m_state->graph.set_xmin(value);
  m_state->changed_from_outside();
}

int KurvGraph::NumTicks() const {
  return m_state->graph.NumTicks();
}
void KurvGraph::set_NumTicks(int value) {
  m_state->graph.set_NumTicks(to_integer(Double(value)));
  m_state->changed_from_outside();
}

bool KurvGraph::Autoscale() const {
  return bool(m_state->graph.Autoscale());
}
void KurvGraph::set_Autoscale(bool value) {
  m_state->graph.set_Autoscale(value);
  m_state->changed_from_outside();
}

bool KurvGraph::Connected() const {
  return bool(m_state->graph.Connected());
}
void KurvGraph::set_Connected(bool value) {
  m_state->graph.set_Connected(value);
  m_state->changed_from_outside();
}

bool KurvGraph::DrawMarkers() const {
  return bool(m_state->graph.DrawMarkers());
}
void KurvGraph::set_DrawMarkers(bool value) {
  m_state->graph.set_DrawMarkers(value);
  m_state->changed_from_outside();
}

bool KurvGraph::QueryForSave() const {
  return bool(m_state->graph.QueryForSave());
}
void KurvGraph::set_QueryForSave(bool value) {
  m_state->graph.set_QueryForSave(value);
  m_state->changed_from_outside();
}

bool KurvGraph::SortXY() const {
  return bool(m_state->graph.SortXY());
}
void KurvGraph::set_SortXY(bool value) {
  m_state->graph.set_SortXY(value);
  m_state->changed_from_outside();
}

bool KurvGraph::Y_grid() const {
  return bool(m_state->graph.Y_grid());
}
void KurvGraph::set_Y_grid(bool value) {
  m_state->graph.set_Y_grid(value);
  m_state->changed_from_outside();
}

bool KurvGraph::X_grid() const {
  return bool(m_state->graph.X_grid());
}
void KurvGraph::set_X_grid(bool value) {
  m_state->graph.set_X_grid(value);
  m_state->changed_from_outside();
}

int KurvGraph::CurvesWidth() const {
  return m_state->graph.CurvesWidth();
}
void KurvGraph::set_CurvesWidth(int value) {
  m_state->graph.set_CurvesWidth(to_integer(Double(value)));
  m_state->changed_from_outside();
}

int KurvGraph::BorderWidth() const {
  return m_state->graph.BorderWidth();
}
void KurvGraph::set_BorderWidth(int value) {
  m_state->graph.set_BorderWidth(to_integer(Double(value)));
  m_state->changed_from_outside();
}

QString KurvGraph::AxisLabelFormatX() const {
  return shown(m_state->graph.AxisLabelFormatX());
}
void KurvGraph::set_AxisLabelFormatX(const QString& value) {
  m_state->graph.set_AxisLabelFormatX(value.toStdString());
  m_state->changed_from_outside();
}

QString KurvGraph::FontName() const {
  return shown(m_state->graph.FontName());
}
void KurvGraph::set_FontName(const QString& value) {
  m_state->graph.set_FontName(value.toStdString());
  m_state->changed_from_outside();
}

double KurvGraph::FontSize() const {
  return m_state->graph.FontSize();
}
void KurvGraph::set_FontSize(double value) {
  m_state->graph.set_FontSize(to_single(value));
  m_state->changed_from_outside();
}

bool KurvGraph::FontBold() const {
  return bool(m_state->graph.FontBold());
}
void KurvGraph::set_FontBold(bool value) {
  m_state->graph.set_FontBold(value);
  m_state->changed_from_outside();
}

bool KurvGraph::FontItalic() const {
  return bool(m_state->graph.FontItalic());
}
void KurvGraph::set_FontItalic(bool value) {
  m_state->graph.set_FontItalic(value);
  m_state->changed_from_outside();
}

QString KurvGraph::TitleFontName() const {
  return shown(m_state->graph.TitleFontName());
}
void KurvGraph::set_TitleFontName(const QString& value) {
  m_state->graph.set_TitleFontName(value.toStdString());
  m_state->changed_from_outside();
}

double KurvGraph::TitleFontSize() const {
  return m_state->graph.TitleFontSize();
}
void KurvGraph::set_TitleFontSize(double value) {
  m_state->graph.set_TitleFontSize(to_single(value));
  m_state->changed_from_outside();
}

bool KurvGraph::TitleFontBold() const {
  return bool(m_state->graph.TitleFontBold());
}
void KurvGraph::set_TitleFontBold(bool value) {
  m_state->graph.set_TitleFontBold(value);
  m_state->changed_from_outside();
}

bool KurvGraph::TitleFontItalic() const {
  return bool(m_state->graph.TitleFontItalic());
}
void KurvGraph::set_TitleFontItalic(bool value) {
  m_state->graph.set_TitleFontItalic(value);
  m_state->changed_from_outside();
}

QString KurvGraph::SubTitleFontName() const {
  return shown(m_state->graph.SubTitleFontName());
}
void KurvGraph::set_SubTitleFontName(const QString& value) {
  m_state->graph.set_SubTitleFontName(value.toStdString());
  m_state->changed_from_outside();
}

double KurvGraph::SubTitleFontSize() const {
  return m_state->graph.SubTitleFontSize();
}
void KurvGraph::set_SubTitleFontSize(double value) {
  m_state->graph.set_SubTitleFontSize(to_single(value));
  m_state->changed_from_outside();
}

bool KurvGraph::SubTitleFontBold() const {
  return bool(m_state->graph.SubTitleFontBold());
}
void KurvGraph::set_SubTitleFontBold(bool value) {
  m_state->graph.set_SubTitleFontBold(value);
  m_state->changed_from_outside();
}

bool KurvGraph::SubTitleFontItalic() const {
  return bool(m_state->graph.SubTitleFontItalic());
}
void KurvGraph::set_SubTitleFontItalic(bool value) {
  m_state->graph.set_SubTitleFontItalic(value);
  m_state->changed_from_outside();
}

QString KurvGraph::AxisLabelFormatY() const {
  return shown(m_state->graph.AxisLabelFormatY());
}
void KurvGraph::set_AxisLabelFormatY(const QString& value) {
  m_state->graph.set_AxisLabelFormatY(value.toStdString());
  m_state->changed_from_outside();
}

int KurvGraph::Right_margine() const {
  return m_state->graph.Right_margine();
}
void KurvGraph::set_Right_margine(int value) {
  m_state->graph.set_Right_margine(to_integer(Double(value)));
  m_state->changed_from_outside();
}

int KurvGraph::Left_margine() const {
  return m_state->graph.Left_margine();
}
void KurvGraph::set_Left_margine(int value) {
  m_state->graph.set_Left_margine(to_integer(Double(value)));
  m_state->changed_from_outside();
}

int KurvGraph::Top_margine() const {
  return m_state->graph.Top_margine();
}
void KurvGraph::set_Top_margine(int value) {
  m_state->graph.set_Top_margine(to_integer(Double(value)));
  m_state->changed_from_outside();
}

int KurvGraph::Bottom_margine() const {
  return m_state->graph.Bottom_margine();
}
void KurvGraph::set_Bottom_margine(int value) {
  m_state->graph.set_Bottom_margine(to_integer(Double(value)));
  m_state->changed_from_outside();
}

int KurvGraph::MarkerSize() const {
  return m_state->graph.MarkerSize();
}
void KurvGraph::set_MarkerSize(int value) {
  m_state->graph.set_MarkerSize(to_integer(Double(value)));
  m_state->changed_from_outside();
}

QString KurvGraph::Title() const {
  return shown(m_state->graph.Title());
}
void KurvGraph::set_Title(const QString& value) {
  m_state->graph.set_Title(value.toStdString());
  m_state->changed_from_outside();
}

QString KurvGraph::SubTitle() const {
  return shown(m_state->graph.SubTitle());
}
void KurvGraph::set_SubTitle(const QString& value) {
  m_state->graph.set_SubTitle(value.toStdString());
  m_state->changed_from_outside();
}

}  // namespace kurv
