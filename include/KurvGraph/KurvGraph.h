/// @file
/// The graph as a widget: a control in a window of the host.
///
///     auto* graph = new kurv::KurvGraph(&window);
///     graph->plot({.title = "Growth", .x = days, .y = {{"height", heights}, {"width", widths}}});
///
/// Properties are stored as they come and do not redraw: call build_the_graph() after changing what
/// the picture shows. They and the methods below are also reached by name, through property(),
/// setProperty() and QMetaObject::invokeMethod(), or through the late-bound calls of automation.h.
///
/// A run-time error of the control (a Fault, such as too large a number or a division by zero)
/// reaches the caller: every member below throws it, also when it was called by name. It never
/// reaches the event loop: when a resize, a mouse click or a queued call fails, the widget emits
/// runTimeError(). So connect signals to these methods with Qt::QueuedConnection.
///
/// The decimal separator in graph files and prompts is a point, or a comma where the host has set a
/// locale with a comma on this widget. The system's locale does not count.
///
/// At the top is a toolbar, the child "tbrGraph", and below it the plot, the child "PicGraph", to
/// which the widget passes the keyboard focus. While one of them has it, Ctrl+S, Ctrl+O, Ctrl+P,
/// Ctrl+C and F5 are the commands "save", "open", "print", "copy" and "refresh", unless the host
/// has an action of its own with that shortcut.
///
/// A right click, after MouseUp(), and the menu key open a context menu of windows and settings. A
/// host with a menu of its own sets another contextMenuPolicy(). In design mode the mouse and the
/// keyboard have no effect.
///
/// The widget may be deleted at any time, also in a slot of its own signals or while one of its
/// message boxes is open.
#pragma once

#include <KurvGraph/arrays.h>
#include <KurvGraph/automation.h>
#include <KurvGraph/axis_unit.h>
#include <KurvGraph/comma_change.h>
#include <KurvGraph/fault.h>
#include <KurvGraph/kurv_graph_plot.h>
#include <KurvGraph/kurv_graph_properties.h>
#include <KurvGraph/limits.h>
#include <KurvGraph/read_out.h>
#include <KurvGraph/values.h>

#include <QByteArray>
#include <QExplicitlySharedDataPointer>
#include <QImage>
#include <QPointF>
#include <QRect>
#include <QString>
#include <QWidget>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

class QUndoStack;

namespace kurv {

class PlotSurface;
enum class VectorFormat;

/// A graph in a window of the host, with its toolbar, menu and dialogs.
///
/// @copydetails KurvGraph.h
class KURV_EXPORT KurvGraph : public QWidget {
  Q_OBJECT
  KURV_PROPERTIES(KURV_QT_PROPERTY)
  Q_PROPERTY(bool toolbar_visible READ toolbar_visible WRITE set_toolbar_visible)
  Q_PROPERTY(bool shortcuts_enabled READ shortcuts_enabled WRITE set_shortcuts_enabled)
  Q_PROPERTY(bool zoom_enabled READ zoom_enabled WRITE set_zoom_enabled)

 public:
  /// A graph that draws nothing until data are loaded.
  explicit KurvGraph(QWidget* parent = nullptr);
  /// Where QueryForSave is set and the graph is not saved, asks the user whether to save it.
  ~KurvGraph() override;

  /// @name Data
  /// @{

  /// Draws the graph with title and legend in their home positions. Throws std::invalid_argument
  /// with a sentence that says what is wrong with it, for an expression the expression and the
  /// sentence of add_function(); then nothing has changed.
  void plot(const Graph& graph);

  /// Loads a data set: yarr_(curve, point) and xarr(point), all counted from 1; texts are UTF-8.
  /// Shows a message box when the data cannot be plotted; throws kSubscriptOutOfRange when an array
  /// is shorter than its count claims, or pNumY_ is above kMaxCurves and there are points.
  Q_INVOKABLE void scatter_graph(const kurv::Matrix<kurv::Double>& yarr_,
                                 const kurv::List<kurv::Double>& xarr, int pNumData_, int pNumY_,
                                 const kurv::Variant& pTitle_, const kurv::String& xVarName_,
                                 const kurv::List<kurv::String>& yVarName_, int pNumYFunc_,
                                 const kurv::List<kurv::String>& y_func_,
                                 std::optional<bool> pConnected_ = {},
                                 std::optional<bool> draw_scatter_points_ = {});
  /// The same from one matrix xyArr_(column, point) whose column 1 is x, names likewise, and a flag
  /// per curve. More than kMaxCurves curves are cut to kMaxCurves.
  Q_INVOKABLE void scatter_graph2(const kurv::String& pTitle_,
                                  const kurv::Matrix<kurv::Double>& xyArr_,
                                  const kurv::List<kurv::String>& xyVarNames_, int pNumData_,
                                  int pNumY_, const kurv::List<kurv::Boolean>& y_visible_,
                                  int pNumYFunc_, const kurv::List<kurv::String>& y_func_,
                                  std::optional<bool> pConnected_ = {},
                                  std::optional<bool> draw_scatter_points_ = {});

  /// For data that grow while they are shown: adds points(column, point) to the columns that were
  /// loaded. What the user has set stays; see Control::append_points().
  void append_points(const Matrix<Double>& points);
  /// Puts these points in place of all points; see Control::replace_points().
  void replace_points(const Matrix<Double>& points, const List<String>& names);
  /// How many times the table window has changed cells since data were loaded.
  unsigned cell_edits() const;

  /// Limits that are computed from data at round numbers, with labels that show them exactly; see
  /// Control::set_round_limits(). Off by default.
  bool round_limits() const;
  /// Turns round limits on or off. Does not redraw.
  void set_round_limits(bool on);
  /// What the x values count that are loaded next.
  void set_x_unit(AxisUnit unit);
  /// Limits from the data, and a redraw.
  void update_limits();
  /// "refresh" puts title, subtitle and legend where they fit; see Control::set_fitted_items(). Off
  /// by default.
  bool fitted_items() const;
  /// Turns it on or off.
  void set_fitted_items(bool on);
  /// See Control::has_items_in_fitted_places().
  bool has_items_in_fitted_places() const;
  /// How many visible curves have no row in the legend.
  int unlisted_curves() const;

  /// Adds a visible function curve, an expression of x, and redraws. Returns nothing on success,
  /// otherwise one sentence that says what is wrong; then nothing has changed.
  std::optional<QString> add_function(const QString& expression);
  /// Appends a visible series whose values are computed from x and the other series by their names,
  /// sets the limits from the data and redraws. Returns as add_function() does. Throws
  /// kSubscriptOutOfRange at kMaxCurves series; redraws then fail until other data are loaded.
  std::optional<QString> derive(const QString& name, const QString& expression);

  /// @}
  /// @name Methods
  /// @{

  /// Does nothing.
  Q_INVOKABLE void init();
  /// Clears and redraws the whole graph. Does nothing until data have been loaded.
  Q_INVOKABLE void build_the_graph();
  /// Loads a graph file and redraws. Throws as Control::file_load() does, see control.h.
  Q_INVOKABLE void file_load(const QString& filename);
  /// Writes a graph that is not saved to its file, or asks the user for one where it has none.
  Q_INVOKABLE void Save_graph();
  /// Sorts the plotted data by ascending x, points moving whole. Does not redraw.
  Q_INVOKABLE void Sort_xy();
  /// Runs one command by its word: "refresh" puts title, subtitle and legend back in their home
  /// positions and redraws; "save", "saveas" and "open" work with graph files; "print" and "copy"
  /// take the picture; "setup" and "titles", "curves" and "table" open the windows; "undo" and
  /// "redo" work once undo_stack() has been called. Other words do nothing. The pointer stays an
  /// hourglass after a command that fails.
  Q_INVOKABLE void ChartOptions(const QString& command);
  /// Restores the default marker size and margins and the limits from the data, and redraws.
  Q_INVOKABLE void Restore_Grf();
  /// Unloads the three windows, see Control::CloseMe().
  Q_INVOKABLE void CloseMe();

  /// @}
  /// @name Properties
  /// A getter and a setter for each row of the table in kurv_graph_properties.h. For the row
  /// NumTicks they are
  ///
  ///     int NumTicks() const;
  ///     void set_NumTicks(int value);
  ///
  /// A whole number outside -32768..32767 throws kOverflow, and so does the size of a font that no
  /// Single holds; where the table gives a range, other numbers are ignored. A redraw throws
  /// kDivisionByZero where NumTicks is 0 or the two limits of an axis are equal.
  ///
  /// A new graph has demonstration data, which are never drawn. The data that a host loads replace
  /// them and set the limits, Title, Connected and DrawMarkers, a label format that does not suit
  /// them, and NumTicks where it is 0. The surface is the plot; its font is Liberation Sans, 8
  /// points.
  /// @{

  KURV_PROPERTIES(KURV_QT_DECLARE)

  /// @}
  /// @name The graph's file
  /// @{

  /// The path last loaded or written, empty before the first, as the bytes of the file system,
  /// which need not be UTF-8.
  String FileName() const;
  /// The same as file_load(), for a path as FileName() returns it.
  void load_path(const String& path);
  /// Writes the graph to the path, which becomes FileName(). Writes also where GraphSaved() is
  /// True, because a property that was set and not drawn does not change that. Throws as
  /// Save_graph() does.
  void save_to(const String& path);
  /// Whether the graph counts as saved. False again after every redraw and every resize.
  bool GraphSaved() const;
  /// Forgets the path, so that the next save asks for one instead of overwriting that file.
  void reset_file();
  /// Whether data have been loaded that can be plotted. Without them nothing is drawn.
  bool has_graph() const;
  /// Refused data of a graph file or of scatter_graph2() are kept, for the table window to repair.
  /// Draws them if they can be plotted by now, with limits from the data; else does nothing.
  void show_mended_data();
  /// The expressions of the function curves, in the order of their slots.
  std::vector<QString> functions() const;
  /// The names, expressions and numbers that Save_graph() would write in such a way that they do
  /// not come back, because a graph file separates the entries of its lists by commas.
  std::vector<CommaChange> comma_changes() const;
  /// Passes to `sink`, piece by piece, the text of the graph file as it would be written now,
  /// without the control's size: two graphs with the same text are the same graph, whatever the
  /// size of their windows. Throws kSubscriptOutOfRange for more than kMaxFunctions function
  /// curves.
  void graph_text(const std::function<void(std::string_view)>& sink) const;

  /// @}
  /// @name Picture
  /// @{

  /// What has been drawn in the plot, in device pixels. A hidden widget that was resized gets its
  /// new size with the next call that may draw.
  QImage image() const;
  /// The plot's rectangle in the widget: all but the toolbar.
  QRect plot_rect() const;
  /// The graph as the next redraw would show it, with ticks and grid as wide as in image(), as a
  /// SVG document of lines and text, made from copies: nothing of the graph changes. Blank while
  /// there is no graph.
  QByteArray svg() const;
  /// The same as a PDF document of one page.
  QByteArray pdf() const;
  /// The graph in a picture of another size: as image() would be in a window with a plot of this
  /// size, on a screen of this resolution. At 96 dots per inch there is one pixel for each logical
  /// pixel of the window. Made from copies, like svg(). Title, subtitle and legend that the user or
  /// a file has placed keep their places in proportion. A null image where there is not enough
  /// memory, for more pixels than a PixelPicture has, for none, and for a resolution that is not a
  /// finite number above 0, or so low that the window would be too large.
  QImage picture(QSize pixels, double dots_per_inch) const;
  /// The same as a document of lines and text, of this size in logical pixels.
  QByteArray document(VectorFormat format, QSize logical_size) const;
  /// The data coordinates at a point of the widget, in logical pixels, by the limits and the plot
  /// rectangle as they are; also outside the plot. Nothing while there is no graph, or the limits
  /// of an axis are equal.
  std::optional<QPointF> data_at(QPointF pixel) const;
  /// The point of the widget at these data coordinates, the inverse of data_at().
  std::optional<QPointF> pixel_of(double x, double y) const;

  /// @}
  /// @name Around the plot
  /// @{

  /// Whether the toolbar is shown. On by default.
  bool toolbar_visible() const;
  /// Shows or hides the toolbar, which resizes the plot.
  void set_toolbar_visible(bool on);
  /// Whether the shortcuts named at the top of this header are commands. On by default.
  bool shortcuts_enabled() const;
  /// Switches these shortcuts on or off.
  void set_shortcuts_enabled(bool on);
  /// Whether the widget says what is under the pointer: by pointed(), a ring around the nearest
  /// point within 8 logical pixels, and a tool tip. The curves are then a tab stop after the parts
  /// of the plot, where the arrow keys, Home, End, Page Up and Page Down go from point to point and
  /// from curve to curve. Off by default.
  bool readout_enabled() const;
  /// Switches the read-out on or off.
  void set_readout_enabled(bool on);
  /// How the read-out writes values of x where set_x_unit() has set another unit than kNumbers.
  /// They stay plain numbers without it.
  void set_x_text(AxisText text);

  /// Whether the user can zoom and pan. Off by default.
  bool zoom_enabled() const;
  /// Lets the user zoom and pan. The wheel and a pinch zoom at the pointer, with Shift the x axis
  /// alone, with Ctrl the y axis alone, and so they do below and to the left of the plot. The
  /// middle button, and the left one with Space, pan; the left one with Ctrl draws a rectangle to
  /// zoom to. On the plot, the keys plus and minus zoom, Ctrl with an arrow pans, and Ctrl+0 is
  /// show_all(), unless the host has an action with that shortcut. A drag of these raises no
  /// MouseUp(). They set the limits, turn Autoscale off, replace a label format that cannot show
  /// the ticks apart, and each gesture is a step that can be undone. Other data end the zoom.
  void set_zoom_enabled(bool on);
  /// Whether show_all() does something: since a zoom, until Autoscale is on again.
  bool is_zoomed() const;
  /// Returns to the limits of before the first zoom, Autoscale included, and redraws.
  Q_INVOKABLE void show_all();

  /// The changes by the user, to be undone and done again: for the Edit menu or a QUndoGroup of the
  /// host. The first call turns them on, see Control::set_undo_enabled(). While they are on, the
  /// context menu has them too, and so do Ctrl+Z, Ctrl+Y and Ctrl+Shift+Z. The stack belongs to the
  /// widget. It is clean where its steps lead to the graph as it was last loaded or saved; points
  /// and properties that the host sets do not count. Clearing it forgets all steps. A host must not
  /// push commands of its own. The stack's signals come while the graph changes or ends: a slot of
  /// them must not delete the widget, unless it is queued.
  QUndoStack* undo_stack();
  /// Runs a change of the host's own as one step of this name. Does the same without undo, too.
  void make_step(const QString& name, const std::function<void()>& work);

  /// For hosts that bind late. A listener is called after the signal of the same name while the
  /// widget exists, and may delete it; a Fault that it throws is reported by runTimeError().
  void add_listener(EventListener listener);

  /// Whether the context menu begins with what was clicked. Off by default.
  bool extended_menu() const;
  /// With this on, the context menu has at its top what can be done to the curve, the axis, the
  /// title or the legend that was clicked: a curve is renamed and hidden. Copying, saving and
  /// printing follow, or the host's own actions, see QWidget::addAction(); then the windows, with
  /// fonts and margins in menus of their own.
  void set_extended_menu(bool on);

  /// The file that the save dialog proposes for a graph without one, as the file system's bytes.
  void set_proposed_file(const String& path);

  /// For a form editor: redraws at every resize, and not when it is shown. Off by default.
  bool design_mode() const;
  /// Switches the design mode on or off.
  void set_design_mode(bool on);

  /// The size of a plot of 720 x 480 pixels, plus the toolbar where it is shown.
  QSize sizeHint() const override;
  /// One pixel by one: a graph draws itself at any size.
  QSize minimumSizeHint() const override;

  /// @}

 Q_SIGNALS:
  /// A mouse button was released that had been pressed on the plot, but not on the title, the
  /// subtitle or the legend. Button is 1 left, 2 right, 4 middle; Shift adds up 1 shift, 2 control,
  /// 4 alt; the point is in twips of the plot, not of the widget, and may be outside of it.
  void MouseUp(int Button, int Shift, float x, float Y);
  /// Emitted after each complete redraw: before the host's call returns or, where an event of the
  /// toolkit caused it, after that event.
  void redrawn();
  /// The graph has just been loaded from its file or written to it. The command is still running: a
  /// slot may read the graph but must not change it, unless it is connected with
  /// Qt::QueuedConnection.
  void filed();
  /// The picture is printed: into this PDF file, or by a printer, without a file. Emitted after the
  /// event in which that has happened, and not where the user cancels the print.
  void printed(const QString& file);
  /// Emitted once after each event in which the graph may have changed, drawn or not.
  void changed();
  /// While the read-out is on: something else is under the pointer, or the keyboard has reached
  /// another point. Emitted after the event; without a place when the pointer leaves the plot.
  void pointed(const kurv::ReadOut& read_out);
  /// Something that the user or the toolkit did has failed; the graph is as the error left it. The
  /// text begins with the path where it is about a file. When nothing is connected, a message box
  /// shows the text.
  void runTimeError(int number, const QString& text);

 protected:
  /// Draws on a surface of the derived class, such as one that keeps a log, instead of the widget's
  /// own. Nothing of it is shown; the derived class sets its size. It must outlive the widget.
  KurvGraph(PlotSurface& lent, QWidget* parent);

  /// Runs the command of a toolbar button or a shortcut, by its word for ChartOptions(). Called
  /// after the current event, because a command may show a dialog and the widget may be deleted
  /// meanwhile. A derived class may override it.
  virtual void run_command(const QString& word);

  /// Fits the plot where the toolbar or the screen has changed, and catches what a queued call
  /// throws.
  bool event(QEvent* event) override;
  /// Gives the plot its new size.
  void resizeEvent(QResizeEvent* event) override;
  /// Calls Control::show(), but not when the window system restores a minimised window.
  void showEvent(QShowEvent* event) override;
  /// Passes the focus to the plot.
  void focusInEvent(QFocusEvent* event) override;
  /// Runs the command of a shortcut, and opens the context menu by Shift+F10.
  void keyPressEvent(QKeyEvent* event) override;
  /// Opens the context menu by the menu key. A right click opens it when the button is released.
  void contextMenuEvent(QContextMenuEvent* event) override;

  /// The widget's implementation, opaque to hosts. Calls in progress share it, so that it exists
  /// until they return even if the widget is deleted meanwhile.
  struct KURV_HIDDEN State;
  QExplicitlySharedDataPointer<State> m_state;  ///< never null

 private:
  KurvGraph(PlotSurface* lent, QWidget* parent);
  template <class Work>
  void call(Work work);
  template <class Work>
  void handle(Work work);
  void tell(int number, const QString& text);
  void open_menu(QPoint at, bool is_by_keyboard);

  friend Variant get_property(const KurvGraph& graph, const MemberKey& key);
  friend void set_property(KurvGraph& graph, const MemberKey& key, const Variant& value);
  friend void call_method(KurvGraph& graph, const MemberKey& key, std::span<Variant> arguments);
};

#undef KURV_QT_PROPERTY
#undef KURV_QT_DECLARE

}  // namespace kurv
