// The graph as a widget: a control in a window of the host.
//
//   auto* graph = new kurv::KurvGraph(&window);
//   graph->plot({.title = "Growth", .x = days, .y = {{"height", heights}, {"width", widths}}});
//
// Properties are stored as they come and do not redraw: call build_the_graph() after changing what
// the picture shows. They and the methods below are also reached by name, through property(),
// setProperty() and QMetaObject::invokeMethod().
//
// A run-time error of the control (a Fault, such as too large a number or a division by zero)
// reaches whoever called: every member below throws it, also when it was called by name. What the
// event loop calls, it never crosses: after a resize, a mouse click or a queued call that failed,
// the signal runTimeError() comes. So a signal that may not throw is connected to a method with
// Qt::QueuedConnection.
//
// A locale that the host sets on the widget itself decides about the decimal separator in graph
// files and prompts, a comma or else a point; the system's does not.
//
// At the top stands a toolbar, the child "tbrGraph", and below it the plot, the child "PicGraph",
// which gets the keyboard's focus when it is given to the widget. While one of them has it, Ctrl+S,
// Ctrl+O, Ctrl+P, Ctrl+C and F5 are the commands "save", "open", "print", "copy" and "refresh",
// unless the host has an action of its own with that key.
//
// A right click, once MouseUp() has come, and the menu key open a menu of windows and settings. A
// host with a menu of its own sets another contextMenuPolicy(). In design mode neither the mouse
// nor the keyboard has an effect.
//
// The widget may be deleted at any time, also in a slot of its own signals or while one of its
// message boxes is open.
#pragma once

#include <KurvGraph/arrays.h>
#include <KurvGraph/fault.h>
#include <KurvGraph/property_list.h>
#include <KurvGraph/values.h>

#include <QByteArray>
#include <QImage>
#include <QPointF>
#include <QRect>
#include <QString>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace kurv {

class PlotSurface;

// The values of one curve, one for each x. NaN is a missing value.
struct Series {
  QString name = {};
  std::vector<double> values = {};
};

// A whole graph, for plot().
struct Graph {
  QString title = {};
  QString x_name = QStringLiteral("x");
  std::vector<double> x = {};
  std::vector<Series> y = {};
  std::vector<QString> expressions = {};  // functions of x, such as "x^2"
  bool connected = true;
  bool markers = false;
};

// The toolkit's type for each type of property_list.h, and what a row becomes in the class. moc
// expands macros, so it sees a Q_PROPERTY for each row.
#define KURV_QT_Boolean bool
#define KURV_QT_Integer int
#define KURV_QT_Single double
#define KURV_QT_Double double
#define KURV_QT_String QString
#define KURV_QT_PROPERTY(name, dispatch_id, Type, rule, summary) \
  Q_PROPERTY(KURV_QT_##Type name READ name WRITE set_##name)
#define KURV_QT_DECLARE(name, dispatch_id, Type, rule, summary) \
  KURV_QT_##Type name() const;                                  \
  void set_##name(PropertyArgument<KURV_QT_##Type> value);

class KurvGraph : public QWidget {
  Q_OBJECT
  KURV_PROPERTIES(KURV_QT_PROPERTY)
  Q_PROPERTY(bool toolbar_visible READ toolbar_visible WRITE set_toolbar_visible)
  Q_PROPERTY(bool shortcuts_enabled READ shortcuts_enabled WRITE set_shortcuts_enabled)

 public:
  explicit KurvGraph(QWidget* parent = nullptr);
  // Where QueryForSave is set and the graph is not saved, asks the user whether to save it.
  ~KurvGraph() override;

  // -- Data -----------------------------------------------------------------------------------
  // Draws the graph with title and legend in their home places. Throws std::invalid_argument with
  // a sentence about what is wrong with it, and then nothing has changed.
  void plot(const Graph& graph);

  // Loads a data set: yarr_(curve, point) and xarr(point), all counted from 1; texts are UTF-8.
  // Shows a message box when the data cannot be plotted; throws kSubscriptOutOfRange when an array
  // is shorter than its count claims, or pNumY_ is above 149.
  Q_INVOKABLE void scatter_graph(const kurv::Matrix<kurv::Double>& yarr_,
                                 const kurv::List<kurv::Double>& xarr, int pNumData_, int pNumY_,
                                 const kurv::Variant& pTitle_, const kurv::String& xVarName_,
                                 const kurv::List<kurv::String>& yVarName_, int pNumYFunc_,
                                 const kurv::List<kurv::String>& y_func_,
                                 std::optional<bool> pConnected_ = {},
                                 std::optional<bool> draw_scatter_points_ = {});
  // The same from one matrix xyArr_(column, point) whose column 1 is x, names likewise, and a flag
  // per curve. More than 149 curves are cut to 149.
  Q_INVOKABLE void scatter_graph2(const kurv::String& pTitle_,
                                  const kurv::Matrix<kurv::Double>& xyArr_,
                                  const kurv::List<kurv::String>& xyVarNames_, int pNumData_,
                                  int pNumY_, const kurv::List<kurv::Boolean>& y_visible_,
                                  int pNumYFunc_, const kurv::List<kurv::String>& y_func_,
                                  std::optional<bool> pConnected_ = {},
                                  std::optional<bool> draw_scatter_points_ = {});

  // Adds a visible function curve, an expression of x, and redraws. Returns nothing when that is
  // done, otherwise one sentence that says why not; then nothing has changed.
  std::optional<QString> add_function(const QString& expression);
  // Appends a visible series whose values are computed from x and the other series by their names,
  // sets the limits from the data and redraws. Returns as add_function() does. Throws
  // kSubscriptOutOfRange at 149 series, and redraws fail then until other data are loaded.
  std::optional<QString> derive(const QString& name, const QString& expression);

  // -- Methods --------------------------------------------------------------------------------
  // Does nothing; kept for hosts that call it.
  Q_INVOKABLE void init();
  // Clears and redraws the whole graph; nothing until data have come.
  Q_INVOKABLE void build_the_graph();
  // Loads a graph file and redraws. Throws what the file runs into, see Fault.
  Q_INVOKABLE void file_load(const QString& filename);
  // Writes a graph that is not saved to its file, or asks the user for one where it has none.
  Q_INVOKABLE void Save_graph();
  // Sorts the plotted data by ascending x, points moving whole. Does not redraw.
  Q_INVOKABLE void Sort_xy();
  // Runs one command by its word: "refresh" puts title, subtitle and legend back in their home
  // places and redraws; "save", "saveas" and "open" work with graph files; "print" and "copy" take
  // the picture; "setup" and "titles", "curves" and "table" open the windows. Other words do
  // nothing. A command that fails leaves the hourglass on.
  Q_INVOKABLE void ChartOptions(const QString& command);
  // Default marker size and margins, limits from the data, and a redraw.
  Q_INVOKABLE void Restore_Grf();
  // Releases the control's dialogs.
  Q_INVOKABLE void CloseMe();

  // -- Properties -----------------------------------------------------------------------------
  // A getter and a setter for each row of property_list.h, in the toolkit's types. For the row
  // NumTicks they are
  //
  //   int NumTicks() const;
  //   void set_NumTicks(int value);
  //
  // A whole number outside -32768..32767 throws kOverflow.
  KURV_PROPERTIES(KURV_QT_DECLARE)

  // -- The graph's file -----------------------------------------------------------------------
  // The path last loaded or written, empty before the first; the bytes by which the platform knows
  // the file, which need not be UTF-8. So are those of load_path(), which is file_load() otherwise.
  String FileName() const;
  void load_path(const String& path);
  // Writes the graph to the path, to which it belongs from then on, also where it counts as saved:
  // a property that was set and not drawn does not change that. Throws as Save_graph() does.
  void save_to(const String& path);
  // False again after every redraw and every resize.
  bool GraphSaved() const;
  // Forgets the path, so that other data are never saved over an older graph.
  void reset_file();
  // Whether data have come that can be plotted. Without them nothing is drawn.
  bool has_graph() const;
  // Data of a graph file or of scatter_graph2() that were refused stay, and the table can edit
  // them. Draws them where they can be plotted by now, with limits from the data; otherwise
  // nothing.
  void show_mended_data();
  // The expressions of the function curves, in their order.
  std::vector<QString> functions() const;
  // Hands over, piece by piece, what the graph file would say now but for the control's size. Two
  // graphs with the same text are the same graph, whatever the size of their windows. Throws
  // kSubscriptOutOfRange for more than 30 function curves.
  void graph_text(const std::function<void(std::string_view)>& sink) const;

  // -- Picture --------------------------------------------------------------------------------
  // What has been drawn in the plot, in device pixels. A hidden widget takes up a new size with the
  // next call that may draw.
  QImage image() const;
  // Where the plot stands in the widget: all that the toolbar leaves.
  QRect plot_rect() const;
  // The graph as the next redraw would show it, as a document of lines and text, made from copies:
  // nothing of the graph changes. Blank while there is no graph.
  QByteArray svg() const;
  QByteArray pdf() const;
  // The data coordinates at a point of the widget, and back, by the limits and the plot rectangle
  // as they are; both also outside the plot. Nothing while there is no graph, or the limits of an
  // axis are equal.
  std::optional<QPointF> data_at(QPointF pixel) const;
  std::optional<QPointF> pixel_of(double x, double y) const;

  // -- Around the plot ------------------------------------------------------------------------
  // On by default. The plot gets or gives the room, which is a resize. The widget's usual size is
  // that of a plot of 720 x 480 pixels with a toolbar, where there is one.
  bool toolbar_visible() const;
  void set_toolbar_visible(bool on);
  // Whether the keys above are commands. On by default.
  bool shortcuts_enabled() const;
  void set_shortcuts_enabled(bool on);

  // In design mode a form editor shows the control: it redraws at every resize, and a Show does
  // nothing. Off by default.
  bool design_mode() const;
  void set_design_mode(bool on);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  // A mouse button that went down on the plot, but not on the title, the subtitle or the legend,
  // came up. Button is 1 left, 2 right, 4 middle; Shift adds up 1 shift, 2 control, 4 alt; the
  // point is in twips of the plot, not of the widget, and may be outside of it.
  void MouseUp(int Button, int Shift, float x, float Y);
  // After each redraw that was complete: before the host's call returns, or, where an event of the
  // toolkit caused it, once that event is over.
  void redrawn();
  // The graph has just been loaded from its file or written to it. It comes in the midst of that: a
  // slot may look at the graph and must leave it as it is, or be connected with
  // Qt::QueuedConnection.
  void filed();
  // Once after each event in which something about the graph may have changed, drawn or not.
  void changed();
  // Something that the user or the toolkit did has failed; the graph is as the error left it. When
  // nobody listens, a message box says so.
  void runTimeError(int number, const QString& text);

 protected:
  // Draws on a surface that a derived class lends, such as one that keeps a log. Nothing of it is
  // shown, and whoever lends it gives it its size. It must outlive the widget.
  KurvGraph(PlotSurface& lent, QWidget* parent);

  // What a button of the toolbar or a key has asked for, by the word that ChartOptions() knows. It
  // is run once the current event is over, because a command may show a dialog and the widget may
  // be gone after it. A derived class may do something of its own instead.
  virtual void run_command(const QString& word);

  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

  // What stands behind the widget; a host cannot see into it. Calls in progress share it.
  struct State;
  std::shared_ptr<State> m_state;

 private:
  KurvGraph(PlotSurface* lent, QWidget* parent);
  template <class Work>
  void call(Work work);
  template <class Work>
  void handle(Work work);
  void tell(int number, const QString& text);
  void open_menu(QPoint at);
};

#undef KURV_QT_PROPERTY
#undef KURV_QT_DECLARE

}  // namespace kurv
