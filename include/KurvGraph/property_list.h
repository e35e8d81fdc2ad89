/// @file
/// The properties of a graph, each written down once. From this list come the getters and setters
/// of Control and of the widget, the widget's Qt properties and the member table of automation.h;
/// from that, the reference page docs/automation.md and the tables of properties in control.h and
/// kurv_graph_properties.h.
///
///     X(name, identifier, type, rule, initially, unit, summary)
///
/// - name: of the property, and of its field in the GraphDocument
/// - identifier: by which hosts reach it late-bound; never changes and never serves another
/// property
/// - type: of values.h; the widget has int, double, bool and QString instead
/// - rule: what its setter does with a value, a PropertyRule
/// - initially: the value that a new control has: a number, True, False, a text in backticks,
///   `empty` for the empty text, `random` for that of random data, which are never drawn,
///   `the surface's` for that of the font that the surface has when the control is made, or
///   `the surface's + 3` for three points more
/// - unit: of a number, in the plural; empty for a limit, which has that of the data, and for a
///   count
/// - summary: one short sentence for the reference page and the tables
///
/// The order of the rows is that of members() and of the widget's Qt properties. No setter redraws:
/// a host calls build_the_graph() after changing what the picture shows.
///
/// A new property is a field in model/graph_document.h and a row here; one that is saved in the
/// graph file has a row in the table of its fields as well, in io/. UPDATE_GOLDENS=1 then rewrites
/// what is made from the table.
///
/// It is a macro because nothing else can declare a member function or a Qt property for each row.
#pragma once

#include <type_traits>

#include <KurvGraph/values.h>

namespace kurv {

/// What the setter of a property does with a value.
enum class PropertyRule {
  /// Any value of the type, NaN too, is stored; an infinite Single throws kOverflow.
  kStored,
  /// An Integer outside kMinMarkerSize..kMaxMarkerSize is ignored; the getter rounds what is stored
  /// to the nearest integer, ties to even.
  kMarkerRange,
};

/// How a setter takes a value: texts by reference.
template <class Value>
using PropertyArgument =
    std::conditional_t<std::is_trivially_copyable_v<Value>, Value, const Value&>;

}  // namespace kurv

/// Calls X for each property, with the seven arguments that are described above.
#define KURV_PROPERTIES(X)                                                                         \
  X(ymin, 0x680300CD, Double, kStored, "random", "", "Lower limit of y.")                          \
  X(ymax, 0x680300CC, Double, kStored, "random", "", "Upper limit of y.")                          \
  X(xmax, 0x680300CB, Double, kStored, "10", "", "Upper limit of x.")                              \
  X(xmin, 0x680300CA, Double, kStored, "1", "", "Lower limit of x.")                               \
  X(NumTicks, 0x680300C7, Integer, kStored, "10", "", "Tick intervals on each axis.")              \
  X(Autoscale, 0x680300C4, Boolean, kStored, "True", "",                                           \
    "Limits follow the data of shown curves.")                                                     \
  X(Connected, 0x680300C3, Boolean, kStored, "True", "", "Lines between the points.")              \
  X(DrawMarkers, 0x680300C2, Boolean, kStored, "True", "",                                         \
    "A marker at each point; only True draws them.")                                               \
  X(QueryForSave, 0x680300C1, Boolean, kStored, "False", "",                                       \
    "Ask the user to save before the control ends.")                                               \
  X(SortXY, 0x680300C0, Boolean, kStored, "False", "", "Plot the points sorted by x.")             \
  X(Y_grid, 0x680300BF, Boolean, kStored, "False", "", "Vertical lines at the x ticks.")           \
  X(X_grid, 0x680300BE, Boolean, kStored, "False", "", "Horizontal lines at the y ticks.")         \
  X(CurvesWidth, 0x680300BD, Integer, kStored, "1", "pixels", "Width of curves.")                  \
  X(BorderWidth, 0x680300BC, Integer, kStored, "2", "pixels", "Width of the frame.")               \
  X(AxisLabelFormatX, 0x680300BB, String, kStored, "`0.00`", "", "Number format of the x labels.") \
  X(FontName, 0x680300BA, String, kStored, "the surface's", "", "Font of axis labels and legend.") \
  X(FontSize, 0x680300B9, Single, kStored, "the surface's", "points",                              \
    "Font size of axis labels and legend.")                                                        \
  X(FontBold, 0x680300B8, Boolean, kStored, "the surface's", "",                                   \
    "Axis labels and legend in bold.")                                                             \
  X(FontItalic, 0x680300B7, Boolean, kStored, "the surface's", "",                                 \
    "Axis labels and legend in italics.")                                                          \
  X(TitleFontName, 0x680300B6, String, kStored, "the surface's", "", "Font of the title.")         \
  X(TitleFontSize, 0x680300B5, Single, kStored, "the surface's + 3", "points",                     \
    "Font size of the title.")                                                                     \
  X(TitleFontBold, 0x680300B4, Boolean, kStored, "True", "", "The title in bold.")                 \
  X(TitleFontItalic, 0x680300B3, Boolean, kStored, "the surface's", "", "The title in italics.")   \
  X(SubTitleFontName, 0x680300B2, String, kStored, "the surface's", "", "Font of the subtitle.")   \
  X(SubTitleFontSize, 0x680300B1, Single, kStored, "the surface's", "points",                      \
    "Font size of the subtitle.")                                                                  \
  X(SubTitleFontBold, 0x680300B0, Boolean, kStored, "the surface's", "", "The subtitle in bold.")  \
  X(SubTitleFontItalic, 0x680300AF, Boolean, kStored, "the surface's", "",                         \
    "The subtitle in italics.")                                                                    \
  X(AxisLabelFormatY, 0x680300AE, String, kStored, "`0.0`", "", "Number format of the y labels.")  \
  X(Right_margine, 0x680300AD, Integer, kStored, "800", "twips", "Space right of the plot.")       \
  X(Left_margine, 0x680300AC, Integer, kStored, "800", "twips", "Space left of the plot.")         \
  X(Top_margine, 0x680300AB, Integer, kStored, "480", "twips", "Space above the plot.")            \
  X(Bottom_margine, 0x680300AA, Integer, kStored, "520", "twips", "Space below the plot.")         \
  X(MarkerSize, 0x680300A8, Integer, kMarkerRange, "40", "twips",                                  \
    "Radius of the circular markers.")                                                             \
  X(Title, 0x680300A7, String, kStored, "`Scatter Points Graph`", "", "The title.")                \
  X(SubTitle, 0x680300A6, String, kStored, "empty", "", "The subtitle, beside the title.")
