// The control: one graph with everything that a host can do with it.
//
//   kurv::Picture picture(1000, 700);
//   kurv::Control control(container, shell, picture);
//   control.first_placement();
//   control.show();
//   control.scatter_graph(y, x, points, curves, "Title", "x", names, 0, {}, true, false);
//
// Every member works on the calling thread. A Fault reaches the caller; what was written until then
// stays written. No property redraws: call build_the_graph() after changing what the picture shows.
#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include <KurvGraph/arrays.h>
#include <KurvGraph/container.h>
#include <KurvGraph/plot_surface.h>
#include <KurvGraph/services.h>
#include <KurvGraph/shell.h>
#include <KurvGraph/values.h>

namespace kurv {

struct ControlState;

class Control {
 public:
  // All four must outlive the control. The surface already has its size.
  Control(Container& container, Shell& shell, PlotSurface& surface,
          const Services& services = library_services());
  ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  // -- Life -----------------------------------------------------------------------------------
  // Once, when a host places a new control for which it has no saved properties.
  void first_placement();
  // Each time the host shows the control.
  void show();
  // Each time the surface's size has changed.
  void resize();

  // -- Methods --------------------------------------------------------------------------------
  // Does nothing; kept for hosts that call it.
  void init() {}
  // Clears and redraws the whole graph; nothing until a data intake has succeeded.
  void build_the_graph();
  // Loads a data set: yarr_(curve, point) and xarr(point), all counted from 1. Shows a message box
  // when the data cannot be plotted; throws kSubscriptOutOfRange when an array is shorter than its
  // count claims, or pNumY_ is above 149.
  void scatter_graph(const Matrix<Double>& yarr_, const List<Double>& xarr, Integer pNumData_,
                     Integer pNumY_, const Variant& pTitle_, const String& xVarName_,
                     const List<String>& yVarName_, Integer pNumYFunc_, const List<String>& y_func_,
                     std::optional<Boolean> pConnected_ = {},
                     std::optional<Boolean> draw_scatter_points_ = {});
  // The same from one matrix xyArr_(column, point) whose column 1 is x, names likewise, and a flag
  // per curve. More than 149 curves are cut to 149.
  void scatter_graph2(const String& pTitle_, const Matrix<Double>& xyArr_,
                      const List<String>& xyVarNames_, Integer pNumData_, Integer pNumY_,
                      const List<Boolean>& y_visible_, Integer pNumYFunc_,
                      const List<String>& y_func_, std::optional<Boolean> pConnected_ = {},
                      std::optional<Boolean> draw_scatter_points_ = {});
  // Sorts the plotted data by ascending x, points moving whole. Does not redraw.
  void Sort_xy();
  // Runs one command by its word: "refresh" puts title, subtitle and legend back in their home
  // places and redraws. Other words do nothing.
  void ChartOptions(std::string_view command);
  // Default marker size and margins, limits from the data, and a redraw.
  void Restore_Grf();

  // -- Properties -----------------------------------------------------------------------------
  // Stored as they come, unchecked and without a redraw. Margins are in twips, widths in pixels.
  Double ymin() const;
  void set_ymin(Double value);
  Double ymax() const;
  void set_ymax(Double value);
  Double xmax() const;
  void set_xmax(Double value);
  Double xmin() const;
  void set_xmin(Double value);
  Integer NumTicks() const;
  void set_NumTicks(Integer value);
  Boolean Autoscale() const;
  void set_Autoscale(Boolean value);
  Boolean Connected() const;
  void set_Connected(Boolean value);
  Boolean DrawMarkers() const;
  void set_DrawMarkers(Boolean value);
  Boolean QueryForSave() const;
  void set_QueryForSave(Boolean value);
  Boolean SortXY() const;
  void set_SortXY(Boolean value);
  // Vertical lines at the x ticks.
  Boolean Y_grid() const;
  void set_Y_grid(Boolean value);
  // Horizontal lines at the y ticks.
  Boolean X_grid() const;
  void set_X_grid(Boolean value);
  Integer CurvesWidth() const;
  void set_CurvesWidth(Integer value);
  Integer BorderWidth() const;
  void set_BorderWidth(Integer value);
  String AxisLabelFormatX() const;
  void set_AxisLabelFormatX(const String& value);
  String FontName() const;
  void set_FontName(const String& value);
  Single FontSize() const;
  void set_FontSize(Single value);
  Boolean FontBold() const;
  void set_FontBold(Boolean value);
  Boolean FontItalic() const;
  void set_FontItalic(Boolean value);
  String TitleFontName() const;
  void set_TitleFontName(const String& value);
  Single TitleFontSize() const;
  void set_TitleFontSize(Single value);
  Boolean TitleFontBold() const;
  void set_TitleFontBold(Boolean value);
  Boolean TitleFontItalic() const;
  void set_TitleFontItalic(Boolean value);
  String SubTitleFontName() const;
  void set_SubTitleFontName(const String& value);
  Single SubTitleFontSize() const;
  void set_SubTitleFontSize(Single value);
  Boolean SubTitleFontBold() const;
  void set_SubTitleFontBold(Boolean value);
  Boolean SubTitleFontItalic() const;
  void set_SubTitleFontItalic(Boolean value);
  String AxisLabelFormatY() const;
  void set_AxisLabelFormatY(const String& value);
  Integer Right_margine() const;
  void set_Right_margine(Integer value);
  Integer Left_margine() const;
  void set_Left_margine(Integer value);
  Integer Top_margine() const;
  void set_Top_margine(Integer value);
  Integer Bottom_margine() const;
  void set_Bottom_margine(Integer value);
  // Radius of the circular markers in twips; get rounds to nearest, ties to even. A value below 2
  // or above 500 is ignored.
  Integer MarkerSize() const;
  void set_MarkerSize(Integer value);
  String Title() const;
  void set_Title(const String& value);
  String SubTitle() const;
  void set_SubTitle(const String& value);

  // For the library's own rooms; a host sees only the declaration.
  ControlState& state() { return *m_state; }

 private:
  std::unique_ptr<ControlState> m_state;
};

}  // namespace kurv
