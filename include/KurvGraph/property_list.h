// The properties of a graph, each written down once. From this list come the getters and setters of
// Control and of the widget, the widget's Qt properties, the member table of automation.h and, from
// that, the reference page docs/automation.md.
//
//   X(name, dispatch identifier, type, rule, summary)
//
// name        of the property, and of its field in the GraphDocument
// identifier  by which hosts reach it late-bound; never changes and never serves another property
// type        of values.h; the widget has int, double, bool and QString instead
// rule        what its setter does with a value, a PropertyRule
// summary     one sentence for the reference page, with the unit where there is one
//
// The order of the rows is that of members() and of the widget's Qt properties. No setter redraws:
// a host calls build_the_graph() after changing what the picture shows.
//
// A new property is a field in model/graph_document.h and a row here; one that is saved in the
// graph file has a row in the table of its fields as well, in io/.
//
// It is a macro because nothing else can declare a member function or a Qt property for each row.
#pragma once

#include <type_traits>

#include <KurvGraph/values.h>

namespace kurv {

enum class PropertyRule {
  kStored,       // any value, stored as it is; an infinite Single throws kOverflow
  kMarkerRange,  // ignored outside kMinMarkerSize..kMaxMarkerSize; the getter rounds what is stored
                 // to the nearest integer, ties to even
};

// How a setter takes a value: texts by reference.
template <class Value>
using PropertyArgument =
    std::conditional_t<std::is_trivially_copyable_v<Value>, Value, const Value&>;

}  // namespace kurv

#define KURV_PROPERTIES(X)                                                                      \
  X(ymin, 0x680300CD, Double, kStored, "Lower limit of y.")                                     \
  X(ymax, 0x680300CC, Double, kStored, "Upper limit of y.")                                     \
  X(xmax, 0x680300CB, Double, kStored, "Upper limit of x.")                                     \
  X(xmin, 0x680300CA, Double, kStored, "Lower limit of x.")                                     \
  X(NumTicks, 0x680300C7, Integer, kStored, "Tick intervals on each axis.")                     \
  X(Autoscale, 0x680300C4, Boolean, kStored,                                                    \
    "Limits follow the data when curves are shown and hidden.")                                 \
  X(Connected, 0x680300C3, Boolean, kStored, "Lines between the points.")                       \
  X(DrawMarkers, 0x680300C2, Boolean, kStored, "A marker at each point; only True draws them.") \
  X(QueryForSave, 0x680300C1, Boolean, kStored,                                                 \
    "Ask the user to save an unsaved graph before the control ends.")                           \
  X(SortXY, 0x680300C0, Boolean, kStored, "Plot the points sorted by x.")                       \
  X(Y_grid, 0x680300BF, Boolean, kStored, "Vertical lines at the x ticks.")                     \
  X(X_grid, 0x680300BE, Boolean, kStored, "Horizontal lines at the y ticks.")                   \
  X(CurvesWidth, 0x680300BD, Integer, kStored, "Width of curves, pixels.")                      \
  X(BorderWidth, 0x680300BC, Integer, kStored, "Width of the frame, pixels.")                   \
  X(AxisLabelFormatX, 0x680300BB, String, kStored,                                              \
    "Number format of the x labels, such as `0.00`.")                                           \
  X(FontName, 0x680300BA, String, kStored, "Font of axis labels and legend.")                   \
  X(FontSize, 0x680300B9, Single, kStored, "Its size, points.")                                 \
  X(FontBold, 0x680300B8, Boolean, kStored, "Whether it is bold.")                              \
  X(FontItalic, 0x680300B7, Boolean, kStored, "Whether it is italic.")                          \
  X(TitleFontName, 0x680300B6, String, kStored, "Font of the title.")                           \
  X(TitleFontSize, 0x680300B5, Single, kStored, "Its size, points.")                            \
  X(TitleFontBold, 0x680300B4, Boolean, kStored, "Whether it is bold.")                         \
  X(TitleFontItalic, 0x680300B3, Boolean, kStored, "Whether it is italic.")                     \
  X(SubTitleFontName, 0x680300B2, String, kStored, "Font of the subtitle.")                     \
  X(SubTitleFontSize, 0x680300B1, Single, kStored, "Its size, points.")                         \
  X(SubTitleFontBold, 0x680300B0, Boolean, kStored, "Whether it is bold.")                      \
  X(SubTitleFontItalic, 0x680300AF, Boolean, kStored, "Whether it is italic.")                  \
  X(AxisLabelFormatY, 0x680300AE, String, kStored, "Number format of the y labels.")            \
  X(Right_margine, 0x680300AD, Integer, kStored, "Space right of the plot, twips.")             \
  X(Left_margine, 0x680300AC, Integer, kStored, "Space left of the plot, twips.")               \
  X(Top_margine, 0x680300AB, Integer, kStored, "Space above the plot, twips.")                  \
  X(Bottom_margine, 0x680300AA, Integer, kStored, "Space below the plot, twips.")               \
  X(MarkerSize, 0x680300A8, Integer, kMarkerRange,                                              \
    "Radius of the circular markers, twips; values below 2 or above 500 are ignored.")          \
  X(Title, 0x680300A7, String, kStored, "The title.")                                           \
  X(SubTitle, 0x680300A6, String, kStored, "The subtitle, beside the title.")
