#include "qt/widget/kurv_graph_state.h"

#include <KurvGraph/limits.h>

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <utility>

#include "control/control_state.h"
#include "dialogs/shared_windows.h"
#include "qt/widget/picture_printer.h"

namespace kurv {

namespace {

// Sides are reported up to this, in twips; the widget's own may be longer.
constexpr Single kMaxReportedSide = kMaxSide;
constexpr double kMaxWidgetSide = QWIDGETSIZE_MAX;

int pixels_of(Single twips, double twips_per_pixel) {
  return static_cast<int>(std::lround(std::clamp(twips / twips_per_pixel, 1.0, kMaxWidgetSide)));
}

}  // namespace

KurvGraph::State::State(KurvGraph& owner, PlotSurface* lent)
    : widget(&owner),
      toolbar(new Toolbar([&owner](const QString& key) { owner.run_command(key); }, &owner)),
      view(new PlotView(*this, picture, &owner)),
      zoom(new PlotZoom(*this, *view)),
      inner(kDefaultPlotSize),
      ratio(owner.devicePixelRatioF()),
      picture(inner, ratio),
      surface(lent ? *lent : static_cast<PlotSurface&>(picture)),
      shell(owner, this),
      graph(*this, shell, surface) {
  provide_desktop_printer();
  owner.resize(default_size());
  outer = owner.size();
  arrange();
}

int KurvGraph::State::toolbar_height() const {
  return toolbar->isHidden() ? 0 : toolbar->preferred_height();
}

QSize KurvGraph::State::default_size() const {
  return kDefaultPlotSize + QSize(0, toolbar_height());
}

QRect KurvGraph::State::plot_rect() const {
  const int top = toolbar_height();
  return {0, top, widget->width(), std::max(widget->height() - top, 0)};
}

const QWidget* KurvGraph::State::plot() const {
  return widget ? view : nullptr;
}

void KurvGraph::State::arrange() {
  const QRect plot = plot_rect();
  toolbar->setGeometry(0, 0, plot.width(), plot.top());
  view->setGeometry(plot);
}

void KurvGraph::State::fit() {
  if (!widget) return;
  arrange();
  const QSize new_outer = widget->size();
  const QSize new_inner = view->size();
  const double new_ratio = widget->devicePixelRatioF();
  const bool resized = new_outer != outer || new_inner != inner;
  if (!resized && new_ratio == ratio) return;
  picture.resize(new_inner, new_ratio);
  graph.state().last_picture.reset();
  outer = new_outer;
  inner = new_inner;
  ratio = new_ratio;
  view->picture_changed();
  // Another resolution does not change the size: the graph keeps its twips and gets other pixels.
  if (resized) {
    graph.resize();
  } else {
    graph.build_the_graph();
  }
}

void KurvGraph::State::apply_locale() {
  if (!widget) return;
  const bool has_comma =
      widget->testAttribute(Qt::WA_SetLocale) && widget->locale().decimalPoint() == ",";
  graph.set_decimal_separator(has_comma ? ',' : '.');
}

// The picture also changes in a redraw that fails, and where a bitmap is made, for which the curves
// are drawn once more. Refused data do not change the picture, but what the windows show.
int KurvGraph::State::finish(bool has_failed) {
  const bool redrawn = surface.take_redraws() > 0;
  const qint64 drawn = picture.image().cacheKey();
  if (std::exchange(last_image_key, drawn) != drawn && widget) view->picture_changed();
  const unsigned revision = graph.state().document.data_revision;
  const bool has_new_steps = steps && steps->follow();
  const bool has_new_data = std::exchange(last_data_revision, revision) != revision;
  if (has_new_data || has_new_steps || redrawn || has_failed) {
    refill_windows(*this);
  }
  if (widget) view->describe();
  if (redrawn) note_change();
  return std::exchange(whole_redraws, 0);
}

void KurvGraph::State::changed_from_outside() {
  refill_windows(*this);
  note_change();
}

GraphUndoStack* KurvGraph::State::undo_stack() {
  if (!steps && widget) {
    graph.set_undo_enabled(true);
    steps = new GraphUndoStack(*this, widget);
  }
  return steps;
}

void KurvGraph::State::note_change() {
  if (!widget || std::exchange(change_queued, true)) return;
  QMetaObject::invokeMethod(
      widget,
      [this] {
        change_queued = false;
        if (widget) Q_EMIT widget->changed();
      },
      Qt::QueuedConnection);
}

double KurvGraph::State::twips_per_logical_pixel() const {
  return picture.twips_per_device_pixel() * picture.image().devicePixelRatio();
}

// A form editor handles the mouse itself, and has its own tab order.
void KurvGraph::State::set_design_mode(bool on) {
  design_mode = on;
  for (QWidget* child : {static_cast<QWidget*>(toolbar), static_cast<QWidget*>(view)})
    child->setAttribute(Qt::WA_TransparentForMouseEvents, on);
  toolbar->set_tab_stops(!on);
  view->setFocusPolicy(on ? Qt::NoFocus : Qt::StrongFocus);
}

void KurvGraph::State::set_MousePointer(Integer pointer) {
  if (!widget) return;
  if (pointer == kHourglassPointer) {
    widget->setCursor(Qt::WaitCursor);
  } else {
    widget->unsetCursor();
  }
  view->set_busy(pointer == kHourglassPointer);
}

Single KurvGraph::State::Height() const {
  return std::min(kMaxReportedSide, to_single(outer.height() * twips_per_logical_pixel()));
}

Single KurvGraph::State::Width() const {
  return std::min(kMaxReportedSide, to_single(outer.width() * twips_per_logical_pixel()));
}

// Setting the size that is reported changes nothing: the real one may be beyond the largest that is
// reported, and would shrink to it.
void KurvGraph::State::set_Height(Single twips) {
  if (!widget || std::isnan(twips) || std::min(twips, kMaxReportedSide) == Height()) return;
  widget->resize(widget->width(), pixels_of(twips, twips_per_logical_pixel()));
  fit();
}

void KurvGraph::State::set_Width(Single twips) {
  if (!widget || std::isnan(twips) || std::min(twips, kMaxReportedSide) == Width()) return;
  widget->resize(pixels_of(twips, twips_per_logical_pixel()), widget->height());
  fit();
}

void KurvGraph::State::MouseUp(Integer Button, Integer Shift, Single x, Single Y) {
  if (widget) Q_EMIT widget->MouseUp(Button, Shift, x, Y);
}

}  // namespace kurv
