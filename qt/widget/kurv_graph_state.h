// The private state of a widget: picture and control, and what the control and the shared windows
// need of the widget.
#pragma once

#include <KurvGraph/KurvGraph.h>
#include <KurvGraph/container.h>
#include <KurvGraph/control.h>
#include <KurvGraph/picture.h>
#include <KurvGraph/vector_picture.h>

#include <QPointer>
#include <QRect>
#include <QSharedData>
#include <QSize>

#include "dialogs/client.h"
#include "qt/widget/graph_undo_stack.h"
#include "qt/widget/plot_view.h"
#include "qt/widget/plot_zoom.h"
#include "qt/widget/qt_shell.h"
#include "qt/widget/redraw_counter.h"
#include "qt/widget/toolbar.h"

namespace kurv {

inline constexpr QSize kDefaultPlotSize(720, 480);

// It outlives the widget while a call is in progress, so `widget` is checked before each use.
struct KurvGraph::State final : QSharedData, Container, Client {
  State(KurvGraph& owner, PlotSurface* lent);

  // -- For the widget -------------------------------------------------------------------------
  // The widget's size with a plot of the default size.
  QSize default_size() const;
  // The rectangle of the plot in the widget, below the toolbar.
  QRect plot_rect() const;
  // Lays out toolbar and plot, and brings the picture to the plot's size and resolution where they
  // have changed.
  void fit();
  // Brings the control's decimal separator to the widget's locale. Only one that the host has set
  // on this widget counts: files must not depend on the desktop that the program runs on. Qt sends
  // no event when a host sets the locale that the system has, so this is called before each use.
  void apply_locale();
  // Ends a call, whether or not it failed: the last strokes become pixels, and a picture that has
  // changed is shown. Returns how many whole redraws there were.
  int finish(bool has_failed = false);
  // The host has changed the graph: updates its windows, whether or not the picture has changed.
  void changed_from_outside();
  double twips_per_logical_pixel() const;
  // The first call turns the history on.
  GraphUndoStack* undo_stack();
  // The graph as a vector document. Changes nothing.
  QByteArray document_in(VectorFormat format) const;

  void set_design_mode(bool on);

  // -- For the windows ------------------------------------------------------------------------
  Control& control() override { return graph; }
  QWidget* window() const override { return widget ? widget->window() : nullptr; }
  const QWidget* plot() const override;
  void handle(const std::function<void(Control&)>& work) override;
  void run_command(const char* word) override;

  // -- For the control ------------------------------------------------------------------------
  bool run_mode() const override { return !design_mode; }
  void set_MousePointer(Integer pointer) override;
  Single Height() const override;
  Single Width() const override;
  void set_Height(Single twips) override;
  void set_Width(Single twips) override;
  void redrawn() override { ++whole_redraws; }
  void filed() override;
  void MouseUp(Integer Button, Integer Shift, Single x, Single Y) override;

  QPointer<KurvGraph> widget;
  Toolbar* toolbar;  // all three live as long as the widget does
  PlotView* view;
  PlotZoom* zoom;
  QSize outer;       // the widget's size when the picture was made, in logical pixels
  QSize inner;       // what the picture was made for
  double ratio = 1;  // and its device pixels per logical pixel
  bool design_mode = false;
  bool shortcuts_enabled = true;
  bool extended_menu = false;
  qint64 last_image_key = 0;        // the picture's cache key at the last finish()
  unsigned last_data_revision = 0;  // and the revision of the data
  bool change_queued = false;       // the signal is queued
  int whole_redraws = 0;            // since the last finish()
  bool showing_error = false;       // a message box about a run-time error is open
  QPointer<GraphUndoStack> steps;   // null until it is asked for, and after the widget is gone
  Picture picture;
  RedrawCounter surface;
  QtShell shell;
  Control graph;

 private:
  // Announces that something may have changed, once the current event is over.
  void note_change();
  int toolbar_height() const;
  void arrange();
};

}  // namespace kurv
