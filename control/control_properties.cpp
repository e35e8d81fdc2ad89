// The properties: each is a field of the document, stored as it comes.
#include <KurvGraph/control.h>
#include <KurvGraph/limits.h>

#include "control/control_state.h"

namespace kurv {

Integer Control::MarkerSize() const {
  return to_integer(m_state->document.MarkerSize);
}
void Control::set_MarkerSize(Integer value) {
  if (value < kMinMarkerSize || value > kMaxMarkerSize) return;
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
