// What stands behind one widget: its pixels, its control, and what the two ask of each other.
#pragma once

#include <KurvGraph/KurvGraph.h>
#include <KurvGraph/container.h>
#include <KurvGraph/control.h>
#include <KurvGraph/picture.h>
#include <KurvGraph/vector_picture.h>

#include <QPointer>
#include <QSize>

#include "dialogs/client.h"
#include "qt/qt_shell.h"
#include "qt/watched_surface.h"

namespace kurv {

// It outlives the widget while a call is in progress, so everything about the widget is asked only
// as long as there is one.
struct KurvGraph::State final : Container, Client {
  State(KurvGraph& owner, PlotSurface* lent);

  // -- For the widget -------------------------------------------------------------------------
  // Brings the picture to the widget's size and resolution, if they have changed.
  void fit();
  // Brings the control's decimal separator to the widget's locale. Only one that the host has set
  // on this widget counts: files must not depend on the desktop that the program runs on. The
  // toolkit tells nobody when a host sets the very locale that the system has, so it is asked.
  void take_locale();
  // Ends a call, whether or not it failed: the last strokes become pixels, and a picture that has
  // changed is shown. Returns how many whole redraws there were.
  int finish();
  double twips_per_logical_pixel() const;
  // The graph as a document of lines and text, for which nothing of it changes.
  QByteArray document_in(VectorFormat format) const;

  // -- For the windows ------------------------------------------------------------------------
  Control& control() override { return graph; }
  QWidget* window() const override { return widget ? widget->window() : nullptr; }
  void handle(const std::function<void(Control&)>& work) override;

  // -- For the control ------------------------------------------------------------------------
  bool run_mode() const override { return !design_mode; }
  void set_MousePointer(Integer pointer) override;
  Single Height() const override;
  Single Width() const override;
  void set_Height(Single twips) override;
  void set_Width(Single twips) override;
  void redrawn() override { ++whole_redraws; }
  void MouseUp(Integer Button, Integer Shift, Single x, Single Y) override;

  QPointer<KurvGraph> widget;
  QSize size;        // what the picture was made for, in logical pixels
  double ratio = 1;  // and its device pixels per logical pixel
  bool design_mode = false;
  int whole_redraws = 0;  // since the last finish()
  bool telling = false;   // a message box about a run-time error is open
  Picture picture;
  WatchedSurface surface;
  QtShell shell;
  Control graph;
};

}  // namespace kurv
