/// @file
/// The control: one graph with everything that a host can do with it.
///
///     kurv::RecordingSurface surface(12000, 9000);
///     kurv::HeadlessContainer container(surface);
///     kurv::HeadlessShell shell;
///     kurv::Control control(container, shell, surface);
///     control.first_placement();
///     control.show();
///     control.scatter_graph(y, x, points, curves, "Title", "x", names, 0, {}, true, false);
///
/// A surface is what it paints on, such as a Picture of pixels; its container is the host, and its
/// shell the desktop. Those of headless.h are for a program that shows nothing.
///
/// Every member works on the calling thread. A Fault reaches the caller; what was written until
/// then stays written. No property redraws: call build_the_graph() after changing what the picture
/// shows.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include <KurvGraph/arrays.h>
#include <KurvGraph/automation.h>
#include <KurvGraph/axis_unit.h>
#include <KurvGraph/class_registry.h>
#include <KurvGraph/comma_change.h>
#include <KurvGraph/container.h>
#include <KurvGraph/item.h>
#include <KurvGraph/limits.h>
#include <KurvGraph/plot_surface.h>
#include <KurvGraph/property_list.h>
#include <KurvGraph/services.h>
#include <KurvGraph/shell.h>
#include <KurvGraph/values.h>

namespace kurv {

struct ControlState;

/// What a prompt can ask the user for.
enum class PromptedSetting {
  kMarkerSize = 0,    ///< the property MarkerSize
  kLeftMargin = 1,    ///< the property Left_margine
  kRightMargin = 2,   ///< the property Right_margine
  kTopMargin = 3,     ///< the property Top_margine
  kBottomMargin = 4,  ///< the property Bottom_margine
  kAxisFont = 5,      ///< the font of axis labels and legend
  kTitleFont = 6,     ///< the font of the title
  kSubtitleFont = 7,  ///< the font of the subtitle
  kXAxisTitle = 8,    ///< the title of the x axis
};

/// How many changes can be undone; the oldest are forgotten.
inline constexpr int kMaxUndoSteps = 100;

/// One graph, with everything that a host can do with it.
///
/// @copydetails control.h
class KURV_EXPORT Control {
 public:
  /// All four must outlive the control. The surface already has its size. Throws kOverflow for the
  /// 32768th control of a process.
  Control(Container& container, Shell& shell, PlotSurface& surface,
          const Services& services = library_services());
  /// Calls terminate() where the host has not. A save that fails then shows a message box, because
  /// a destructor cannot throw.
  ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  /// @name Life
  /// @{

  /// To be called once, when a host places a new control for which it has no saved properties.
  void first_placement();
  /// To be called each time the host shows the control.
  void show();
  /// To be called each time the surface's size has changed.
  void resize();
  /// Unloads the three windows. A process has one of each, so they are unloaded also where they
  /// serve another control by now. The next command that shows one loads it again.
  void CloseMe();
  /// To be called before the host destroys the control: releases the windows that serve it; then,
  /// where QueryForSave is True and the graph is not saved, asks the user whether to save it, and
  /// does so. A save that fails throws as Save_graph() does. Asks once; later calls do nothing.
  void terminate();

  /// @}
  /// @name Methods
  /// @{

  /// Does nothing.
  void init() {}
  /// Clears and redraws the whole graph. Does nothing until a data intake has succeeded.
  void build_the_graph();
  /// Loads a data set: yarr_(curve, point) and xarr(point), all counted from 1. Shows a message box
  /// when the data cannot be plotted; throws kSubscriptOutOfRange when an array is shorter than its
  /// count claims, or pNumY_ is above kMaxCurves and there are points.
  void scatter_graph(const Matrix<Double>& yarr_, const List<Double>& xarr, Integer pNumData_,
                     Integer pNumY_, const Variant& pTitle_, const String& xVarName_,
                     const List<String>& yVarName_, Integer pNumYFunc_, const List<String>& y_func_,
                     std::optional<Boolean> pConnected_ = {},
                     std::optional<Boolean> draw_scatter_points_ = {});
  /// The same from one matrix xyArr_(column, point) whose column 1 is x, names likewise, and a flag
  /// per curve. More than kMaxCurves curves are cut to kMaxCurves.
  void scatter_graph2(const String& pTitle_, const Matrix<Double>& xyArr_,
                      const List<String>& xyVarNames_, Integer pNumData_, Integer pNumY_,
                      const List<Boolean>& y_visible_, Integer pNumYFunc_,
                      const List<String>& y_func_, std::optional<Boolean> pConnected_ = {},
                      std::optional<Boolean> draw_scatter_points_ = {});
  /// For a host whose data grow while they are shown: adds points at the end, and drops the first
  /// ones beyond kMaxPoints. points(column, point) has the columns that scatter_graph() or
  /// scatter_graph2() got, counted from 1 and in that order, x first; it belongs to them also where
  /// the user has made another one x. Derived curves are computed for the new points. Names,
  /// visibility, functions, titles, fonts and all other settings stay; so do the limits, unless
  /// Autoscale is on, and the formats of the labels, unless the control has chosen them. Redraws.
  /// Throws kSubscriptOutOfRange for another number of columns, and what the evaluator and a redraw
  /// throw.
  void append_points(const Matrix<Double>& points);
  /// Puts these points in place of all points, and names() in place of the names that nobody has
  /// changed. Does otherwise what append_points() does.
  void replace_points(const Matrix<Double>& points, const List<String>& names);
  /// How many times the table window has changed cells since data were loaded.
  unsigned cell_edits() const;
  /// Loads a graph file and redraws. Text is UTF-8, or code page 1252 where its bytes are not
  /// UTF-8; lines end in CR LF or LF. Handle positions, font sizes and the control's size are read
  /// as whole numbers, a flag as True or False. The label formats are chosen anew where the data
  /// need it. Data that cannot be plotted are refused as by scatter_graph2(); everything else of
  /// the file is still loaded. Throws kFileNotFound, kPathNotFound, kPermissionDenied,
  /// kPathFileAccessError and kDeviceIoError, and for a file that is no graph kInputPastEnd,
  /// kTypeMismatch, kOverflow or kSubscriptOutOfRange. After a fault, the titles, widths, margins,
  /// ticks, formats, fonts, SortXY and the two exact-limit switches that had been read are kept;
  /// curves, positions, sizes, grids, limits and the file's name are as before.
  void file_load(const String& filename);
  /// Writes a graph that is not saved to its file, or asks the user for one where it has none. Does
  /// nothing where the graph is saved. MarkerSize, Autoscale and the visibility of function curves
  /// are not in the file. Throws kDiskFull, kPathNotFound, kPermissionDenied, kPathFileAccessError,
  /// kDeviceIoError, and kSubscriptOutOfRange for more than kMaxFunctions function curves; the file
  /// is then incomplete, and a file that it would have replaced is kept as NAME~ or under another
  /// free name.
  void Save_graph();
  /// Sorts the plotted data by ascending x, points moving whole. Does not redraw.
  void Sort_xy();
  /// Runs one command by its word, compared exactly: "refresh" puts title, subtitle and legend back
  /// in their home places and redraws; "save" is Save_graph(); "saveas" asks for a file and writes
  /// the graph or its picture; "open" asks for a graph file, loads it and redraws once more, so
  /// that the graph counts as not saved; "print" sends the picture to the control's printer and
  /// throws kCannotCreateObject where there is none; "copy" copies it to the clipboard; "setup" and
  /// "titles" show the properties, "curves" the curves and functions, "table" the numbers; "undo"
  /// and "redo" are the members of these names. Other words do nothing, "help" among them. The
  /// pointer is an hourglass meanwhile, and stays one when a command throws.
  void ChartOptions(std::string_view command);
  /// Restores the default marker size and margins and the limits from the data, and redraws.
  void Restore_Grf();

  /// @}
  /// @name Round limits
  /// @{

  /// Whether limits that are computed from data are chosen together with NumTicks and the label
  /// formats such that every tick of both axes is a round number and its label shows it exactly.
  /// Off by default. It acts the next time that limits are computed: by an intake, by
  /// update_limits(), and wherever Autoscale makes them follow the data. An axis whose limits are
  /// made exact in the properties window stays exact; so does a number of ticks that is set after
  /// turning it on, to which the limits are fitted, and until the next intake a format that is set.
  /// A graph file keeps its own limits and ticks; one that was saved with round limits keeps its
  /// formats too, and any other turns the switch off. Turning it off otherwise restores the exact
  /// limits, NumTicks and formats from before. Does not redraw.
  bool round_limits() const;
  /// Turns round limits on or off.
  void set_round_limits(bool on);
  /// What the x values count that are loaded next, for the ticks of round limits. kNumbers by
  /// default, and after a graph file was loaded.
  void set_x_unit(AxisUnit unit);
  /// Limits from the data, whatever Autoscale says, and a redraw.
  void update_limits();

  /// @}
  /// @name Places that fit
  /// @{

  /// Whether "refresh" puts title, subtitle and legend where they fit, instead of in their home
  /// places. Off by default. The legend goes where it hides the fewest points and lines, or to the
  /// right of the plot where it would hide more than a tenth of the points; then the right margin
  /// grows, and names that would take half of the width are cut. Names that have no room are
  /// counted in its last row. A subtitle that has no room beside the title goes below it, and the
  /// top margin grows; a title that is too long has a smaller font, but not below 9 points. Tick
  /// labels that are wider than the left margin make it grow, to a third of the width at most. What
  /// was changed returns with the next "refresh" that does not need it, and when this is turned
  /// off. Does not redraw.
  bool fitted_items() const;
  /// Turns them on or off.
  void set_fitted_items(bool on);
  /// Whether all of them are where they were put so, and nothing of it has been set since. A resize
  /// then puts them where they fit the new size.
  bool has_items_in_fitted_places() const;
  /// How many visible curves have no row in the legend.
  int unlisted_curves() const;

  /// @}
  /// @name Properties
  /// A getter and a setter for each row of property_list.h. For the row NumTicks they are
  ///
  ///     Integer NumTicks() const;
  ///     void set_NumTicks(Integer value);
  ///
  /// A setter takes every value of its type, for an Integer -32768..32767, but an infinite Single
  /// throws kOverflow, and where the table gives a range, other numbers are ignored. A redraw
  /// throws kDivisionByZero where NumTicks is 0 or the two limits of an axis are equal.
  ///
  /// A new control has demonstration data, which are never drawn. The data that a host loads
  /// replace them and set the limits, Title, Connected and DrawMarkers, a label format that does
  /// not suit them, and NumTicks where it is 0. Fonts are those of the surface when the control is
  /// made.
  /// @{

  //
  //   Property            Type     Initially          Meaning
  //   ymin                Double   random             Lower limit of y
  //   ymax                Double   random             Upper limit of y
  //   xmax                Double   10                 Upper limit of x
  //   xmin                Double   1                  Lower limit of x
  //   NumTicks            Integer  10                 Tick intervals on each axis
  //   Autoscale           Boolean  True               Limits follow the data of shown curves
  //   Connected           Boolean  True               Lines between the points
  //   DrawMarkers         Boolean  True               A marker at each point; only True draws them
  //   QueryForSave        Boolean  False              Ask the user to save before the control ends
  //   SortXY              Boolean  False              Plot the points sorted by x
  //   Y_grid              Boolean  False              Vertical lines at the x ticks
  //   X_grid              Boolean  False              Horizontal lines at the y ticks
  //   CurvesWidth         Integer  1                  Width of curves, pixels
  //   BorderWidth         Integer  2                  Width of the frame, pixels
  //   AxisLabelFormatX    String   `0.00`             Number format of the x labels
  //   FontName            String   the surface's      Font of axis labels and legend
  //   FontSize            Single   the surface's      Font size of axis labels and legend, points
  //   FontBold            Boolean  the surface's      Axis labels and legend in bold
  //   FontItalic          Boolean  the surface's      Axis labels and legend in italics
  //   TitleFontName       String   the surface's      Font of the title
  //   TitleFontSize       Single   the surface's + 3  Font size of the title, points
  //   TitleFontBold       Boolean  True               The title in bold
  //   TitleFontItalic     Boolean  the surface's      The title in italics
  //   SubTitleFontName    String   the surface's      Font of the subtitle
  //   SubTitleFontSize    Single   the surface's      Font size of the subtitle, points
  //   SubTitleFontBold    Boolean  the surface's      The subtitle in bold
  //   SubTitleFontItalic  Boolean  the surface's      The subtitle in italics
  //   AxisLabelFormatY    String   `0.0`              Number format of the y labels
  //   Right_margine       Integer  800                Space right of the plot, twips
  //   Left_margine        Integer  800                Space left of the plot, twips
  //   Top_margine         Integer  480                Space above the plot, twips
  //   Bottom_margine      Integer  520                Space below the plot, twips
  //   MarkerSize          Integer  40                 Radius of the circular markers, twips; 2..500
  //   Title               String   `Scatter Points Graph` The title
  //   SubTitle            String   empty              The subtitle, beside the title
  //
  /// @cond
#define KURV_DECLARE(name, dispatch_id, Type, ...) \
  Type name() const;                               \
  void set_##name(PropertyArgument<Type> value);
  /// @endcond
  KURV_PROPERTIES(KURV_DECLARE)
#undef KURV_DECLARE

  /// @}
  /// @name Prompts
  /// Each asks the user through the shell, and redraws where something has been changed.
  /// @{

  /// Asks for one setting. Nothing changes when the user cancels; a value that is not accepted
  /// shows a message and changes nothing.
  void prompt(PromptedSetting setting);
  /// Asks for a new function curve. A message says why an expression is not accepted.
  void add_function();
  /// Asks for another expression for the function curve whose expression is exactly `selected`;
  /// does nothing where there is none.
  void edit_function(const String& selected);
  /// Asks for a name and an expression of a new scatter curve that is computed from the others,
  /// each until it is accepted or cancelled. Offer it below kMaxCurves only, see derive().
  void add_derived_curve();

  /// @}
  /// @name Curves from expressions, without a prompt
  /// @{

  /// Adds a visible function curve, an expression of x, and redraws. Returns nothing on success,
  /// otherwise one sentence that says what is wrong; then nothing has changed.
  std::optional<String> add_function(const String& expression);
  /// Appends a visible scatter curve whose values are computed from x and the other curves by their
  /// names, sets the limits from the data and redraws. Returns as add_function() does. Throws
  /// kSubscriptOutOfRange at kMaxCurves curves: one more has no column, but it has been counted by
  /// then, so that redraws fail until other data are loaded.
  std::optional<String> derive(const String& name, const String& expression);

  /// @}
  /// @name Events
  /// What a mouse does on the plot; points in twips of the surface. A point on the title, the
  /// subtitle or the legend goes to that item, any other to the surface. What is not shown gets
  /// nothing: an empty title, a legend without an entry, all three before there is a graph.
  /// @{

  /// A button went down. Button is 1 left, 2 right, 4 middle; Shift adds up 1 shift, 2 control,
  /// 4 alt. On the surface this outlines the part of the axes at that point.
  void press_mouse(Integer Button, Integer Shift, Single x, Single Y);
  /// A button came up. It belongs to where the press before it was, wherever the pointer is by now;
  /// without a press, to what is there. On the surface this hides the outlines and raises the event
  /// MouseUp: notifies the container, then every listener. On an item it does nothing.
  void release_mouse(Integer Button, Integer Shift, Single x, Single Y);
  /// A double click, after the press that it began with. Opens the window in which what was pressed
  /// is edited: an item sends its command, "titles" or "curves"; the labels show the properties of
  /// the axes, the frame those of the lines; all else, also an empty plot, the curves.
  void double_click(Single x, Single Y);
  /// Drags the item by `grab`, a point of its own, to `drop`, a point of the surface or, where `on`
  /// names an item, of that one, and redraws. Nothing happens for an item that is not shown. The
  /// item may end up anywhere, but a redraw brings one back that is beyond the right or bottom
  /// edge, and a graph file with a position beyond -32768 cannot be loaded. Throws kOverflow for a
  /// position that no Single holds.
  void drag(Item item, SurfacePoint grab, SurfacePoint drop, std::optional<Item> on = {});
  /// Adds a listener to the events, for hosts that bind late. Listeners stay as long as the control
  /// does, and none may destroy it.
  void add_listener(EventListener listener);

  /// @}
  /// @name What it shows
  /// @{

  /// The expressions of the function curves, in the order of their slots.
  std::vector<String> functions() const;
  /// The names, expressions and numbers that Save_graph() would write in such a way that they do
  /// not come back, because a graph file separates the entries of its lists by commas.
  std::vector<CommaChange> comma_changes() const;

  /// Paints the graph on another surface as the next redraw would show it, with ticks and grid as
  /// wide as the last one has drawn them; blank while there is no graph. The surface should have
  /// the size of the control's own. Works on copies: nothing of the control changes, GraphSaved
  /// included, and no event is raised. Throws what a redraw throws.
  void draw_on(PlotSurface& surface) const;

  /// @}
  /// @name Undo
  /// @{

  /// Whether changes can be undone.
  bool undo_enabled() const;
  /// Off until a host turns it on, and then the last kMaxUndoSteps changes by the user are kept,
  /// each as a step with a name such as "Rename Curve": drags, prompts, the windows, and the
  /// members drag(), add_function(), derive(), Restore_Grf() and the command "refresh". What a host
  /// sets is no step of its own; it stays when a step is undone, unless the step has changed the
  /// same. Loading data or a graph file forgets all steps; append_points() and replace_points()
  /// forget those that have changed data, with the steps before them. Turned off, it forgets all.
  void set_undo_enabled(bool on);
  /// Takes back the last step and redraws. Where that leads to the graph as it was last saved,
  /// GraphSaved() is True again. Returns false where there is no such step, and during another.
  /// Throws what a redraw throws; the step is undone all the same.
  bool undo();
  /// Does again what was taken back last, as undo() does.
  bool redo();
  /// The name of the step that undo() would take back; nothing where there is none.
  std::optional<String> undo_text() const;
  /// The name of the step that redo() would do again; nothing where there is none.
  std::optional<String> redo_text() const;
  /// Forgets all steps.
  void clear_undo();
  /// Runs a change of the host's own as one step of this name. Does the same without undo, too.
  void make_step(const String& name, const std::function<void()>& work);
  /// The listener is called whenever a step has been added, undone, done again or forgotten. It
  /// stays as long as the control does, and must not throw.
  void add_undo_listener(std::function<void()> listener);

  /// @}
  /// @name The graph's file
  /// @{

  /// The path last loaded or written, empty before the first.
  String FileName() const;
  /// Whether the graph counts as saved. False again after every redraw and every resize.
  Boolean GraphSaved() const;
  /// Forgets the path, so that the next save asks for one instead of overwriting that file.
  void reset_file();
  /// The decimal separator in graph files and prompts: a point, or a comma where the host's locale
  /// has one. With a comma, every number of a data line that has a fraction reads back as two.
  char decimal_separator() const;
  /// Sets the decimal separator. Throws kInvalidProcedureCall for anything but a point or a comma.
  void set_decimal_separator(char separator);

  /// For the library's own modules; a host sees only the declaration.
  ControlState& state() {
    return *m_state;
  }

  /// @}

 private:
  std::unique_ptr<ControlState> m_state;
};

}  // namespace kurv
