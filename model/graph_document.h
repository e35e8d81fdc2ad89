// The whole state of one control: its data, names, visibility, limits and every display setting.
//
// A plain record; code that changes it keeps the invariants that are stated here. The layout of the
// picture (plot rectangle, handles, hit areas) is not part of it, see model/layout.h.
#pragma once

#include <KurvGraph/arrays.h>
#include <KurvGraph/axis_unit.h>
#include <KurvGraph/limits.h>
#include <KurvGraph/plot_surface.h>
#include <KurvGraph/values.h>

namespace kurv {

inline constexpr Integer kDefaultNumTicks = 10;
inline constexpr Double kDefaultMarkerSize = 40;
inline constexpr Integer kDefaultTopMargine = 480;
inline constexpr Integer kDefaultLeftMargine = 800;
inline constexpr Integer kDefaultRightMargine = 800;
inline constexpr Integer kDefaultBottomMargine = 520;

// A curve given by an expression of x. An empty expression is a free slot and invisible.
struct FunctionCurve {
  String expression;
  String label;  // intake sets it to the expression
  Integer colour = 0;
  Boolean visible;

  friend bool operator==(const FunctionCurve&, const FunctionCurve&) = default;
};

// What decides where the ticks of both axes are.
struct TickPlaces {
  Double xmin = 0;
  Double xmax = 0;
  Double ymin = 0;
  Double ymax = 0;
  Integer NumTicks = 0;

  friend bool operator==(const TickPlaces&, const TickPlaces&) = default;
};

// What round limits replace.
struct LimitSettings {
  Boolean XLimitsExact;
  Boolean YLimitsExact;
  Integer NumTicks = kDefaultNumTicks;
  String AxisLabelFormatX;
  String AxisLabelFormatY;

  friend bool operator==(const LimitSettings&, const LimitSettings&) = default;
};

// Whether limits that are computed from the data are round, together with NumTicks and the label
// formats.
struct RoundLimitsSwitch {
  bool is_on = false;
  // Of the column that was loaded as x, and which column that is after another one was made x.
  AxisUnit x_unit = AxisUnit::kNumbers;
  int x_unit_column = 1;
  // What was chosen last. Another number of ticks was set by the user and stays; another format
  // stays until other data are loaded.
  Integer ticks = kDefaultNumTicks;
  String x_format;
  String y_format;
  TickPlaces labelled;   // the ticks for which these formats are
  LimitSettings before;  // settings that return when it is turned off

  friend bool operator==(const RoundLimitsSwitch&, const RoundLimitsSwitch&) = default;
};

// A setting that is changed to fit something, and what it was before. A value that is neither was
// set by the user.
template <class Value>
struct FittedSetting {
  Value before{};
  Value fitted{};

  friend bool operator==(const FittedSetting&, const FittedSetting&) = default;
};

// Whether "refresh" moves title, subtitle and legend to where they fit, and what it has changed for
// that.
struct FittedItems {
  bool is_on = false;
  // The legend has at most so many rows, and its names so many letters; 0 is no limit.
  int legend_rows = 0;
  int legend_letters = 0;
  FittedSetting<Integer> left_margin;
  FittedSetting<Integer> right_margin;
  FittedSetting<Integer> top_margin;
  FittedSetting<Single> title_size;

  friend bool operator==(const FittedItems&, const FittedItems&) = default;
};

struct GraphDocument {
  // True once the last public data intake could be plotted; nothing is drawn while it is False.
  Boolean GraphValid;

  Integer NumData = 0;   // points per curve
  Integer NumY = 0;      // scatter curves
  Integer NumYFunc = 0;  // function curves

  Boolean Connected;
  Boolean Autoscale = true;

  // Independent of each other: nothing forces a minimum below its maximum.
  Double ymin = 0;
  Double ymax = 0;
  Double xmin = 0;
  Double xmax = 0;

  // Space around the plot, twips.
  Integer Top_margine = kDefaultTopMargine;
  Integer Left_margine = kDefaultLeftMargine;
  Integer Right_margine = kDefaultRightMargine;
  Integer Bottom_margine = kDefaultBottomMargine;

  String Title = "Graph Title";
  String SubTitle;
  Integer NumTicks = kDefaultNumTicks;  // intervals per axis
  String AxisLabelFormatX = "0.00";
  String AxisLabelFormatY = "0.0";
  Boolean DrawMarkers;
  // False: the computed limits are widened outward to round values.
  Boolean XLimitsExact = true;
  Boolean YLimitsExact;
  RoundLimitsSwitch round_limits;
  FittedItems fitted_items;
  Boolean SortXY;  // plot the copy sorted by x

  // Twips. MarkerDrawSize is MarkerSize x 5 / 6 always; set_marker_size() keeps it so.
  Double MarkerSize = kDefaultMarkerSize;
  Double MarkerDrawSize = kDefaultMarkerSize * 5 / 6;

  Integer BorderWidth = 2;  // pixels
  Integer CurvesWidth = 1;  // pixels
  Boolean Y_grid;           // vertical lines at the x ticks
  Boolean X_grid;           // horizontal lines at the y ticks

  // Font of the axis labels and the legend.
  String FontName;
  Boolean FontBold;
  Boolean FontItalic;
  Single FontSize = 0;

  String TitleFontName;
  Boolean TitleFontBold = true;
  Boolean TitleFontItalic;
  Single TitleFontSize = 0;

  String SubTitleFontName;
  Boolean SubTitleFontBold;
  Boolean SubTitleFontItalic;
  Single SubTitleFontSize = 0;

  Boolean QueryForSave;
  // The graph file last written or loaded, and the Title at that moment; cleared together.
  String FileName;
  String SavedTitle;
  Boolean GraphSaved;    // every redraw and every resize sets it back
  Boolean DataFromHost;  // False for the demonstration graph

  // Columns 0..150 (0..250 for the demonstration graph), points 0..NumData; index 0 of both is
  // never used. Column 1 is x, column k + 1 scatter curve k. Always a copy of one of the two below,
  // the one that SortXY selects, renewed at every redraw.
  Matrix<Double> xyArr;
  Matrix<Double> xyArrSorted;
  Matrix<Double> xyArrUnsorted;
  // The sort permutation: point i of xyArrSorted is point sorted_places(i) of xyArrUnsorted, so
  // that an edit of a row in one order reaches its point in the other.
  List<int> sorted_places{1, 0};
  // Incremented whenever the two copies are made anew, so that what is cached about single points
  // can be dropped.
  unsigned data_revision = 0;
  List<String> yVarName;    // element 1 is the name of x, element k + 1 that of curve k
  List<Boolean> y_visible;  // element k is curve k's
  List<FunctionCurve> y_func{0, kMaxFunctions};  // 1.. are used, 0 never
};

// Sets the size and the draw size that follows from it.
void set_marker_size(GraphDocument& document, Double size);
// Forgets the file that the graph belongs to.
void reset_file(GraphDocument& document);

Font axis_font(const GraphDocument& document);
Font title_font(const GraphDocument& document);
Font subtitle_font(const GraphDocument& document);

}  // namespace kurv
