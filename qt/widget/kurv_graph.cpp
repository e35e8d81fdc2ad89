#include <KurvGraph/KurvGraph.h>
#include <KurvGraph/file_fault.h>

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QKeyEvent>
#include <QMetaMethod>
#include <new>
#include <utility>

#include "control/control_state.h"
#include "control/data_intake.h"
#include "control/graph_file_commands.h"
#include "control/zoom.h"
#include "qt/widget/kurv_graph_state.h"
#include "qt/widget/picture_printer.h"
#include "qt/widget/plot_menu.h"
#include "qt/widget/shortcuts.h"
#include "render/mapping.h"

namespace kurv {

namespace {

constexpr const char* kBoxTitle = "KURV Guide";

std::optional<QString> shown(const std::optional<String>& sentence) {
  if (!sentence) return std::nullopt;
  return shown_text(*sentence);
}

struct Failure {
  Fault fault;
  String file = {};  // that it is about; empty where it is about none
};

// The run-time error that ends the work early, if one does. It is about the file that it names, or
// else the one that the graph was loading or saving, or else the one that the user chose meanwhile.
template <class Work>
std::optional<Failure> failure_of(QtShell& shell, Control& graph, Work work) {
  String used_before = std::exchange(graph.state().used_file, {});
  String chosen_before = shell.exchange_chosen_file({});
  std::optional<Failure> failure;
  try {
    work();
  } catch (const FileFault& fault) {
    failure.emplace(Failure{fault, fault.path()});
  } catch (const Fault& fault) {
    failure.emplace(Failure{fault});
  } catch (const std::bad_alloc&) {
    failure.emplace(Failure{Fault(FaultKind::kOutOfMemory)});
  }
  String used = std::exchange(graph.state().used_file, std::move(used_before));
  String chosen = shell.exchange_chosen_file(std::move(chosen_before));
  if (failure && failure->file.empty()) failure->file = std::move(used);
  if (failure && failure->file.empty()) failure->file = std::move(chosen);
  return failure;
}

[[noreturn]] void throw_again(const Failure& failure) {
  if (failure.file.empty()) throw failure.fault;
  throw FileFault(failure.fault.kind(), failure.file);
}

QString text_of(const Failure& failure) {
  const QString text = QString::fromUtf8(failure.fault.what());
  if (failure.file.empty()) return text;
  return QFile::decodeName(failure.file.c_str()) + QStringLiteral(": ") + text;
}

}  // namespace

// -- Life -----------------------------------------------------------------------------------------

KurvGraph::KurvGraph(QWidget* parent) : KurvGraph(nullptr, parent) {}
KurvGraph::KurvGraph(PlotSurface& lent, QWidget* parent) : KurvGraph(&lent, parent) {}

KurvGraph::KurvGraph(PlotSurface* lent, QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMinimumSize(1, 1);
  m_state.reset(new State(*this, lent));
  connect(m_state->view, &PlotView::menu_wanted, this, [this](QPoint at) { open_menu(at, false); });
  // After the event, because a slot may delete the widget.
  connect(m_state->view, &PlotView::pointed, this, &KurvGraph::pointed, Qt::QueuedConnection);
  // Here and not at the first show, so that what the host sets in between stays.
  m_state->graph.first_placement();
  m_state->finish();
}

KurvGraph::~KurvGraph() {
  const QExplicitlySharedDataPointer<State> state = m_state;
  if (state->steps) state->steps->leave_graph();
  // The control may ask whether to save. That box gets no parent: the window around may already be
  // half destroyed.
  state->widget.clear();
  state->shell.leave_window();
  const std::optional<Failure> failure =
      failure_of(state->shell, state->graph, [&] { state->graph.terminate(); });
  if (failure) {
    state->shell.message_box(text_of(*failure).toStdString(), kCriticalStop, kBoxTitle);
  }
  // To destroy a visible widget Qt consults the application object, even after that has ended.
  if (!QCoreApplication::instance()) {
    setAttribute(Qt::WA_WState_Visible, false);
    for (QWidget* child : findChildren<QWidget*>())
      child->setAttribute(Qt::WA_WState_Visible, false);
  }
  // Hiding it is no event to be followed any more.
  state->view->removeEventFilter(state->zoom);
  // It paints the picture and reads the control of the state, so it has to go before them.
  delete state->view;
}

QSize KurvGraph::sizeHint() const {
  return m_state->default_size();
}

QSize KurvGraph::minimumSizeHint() const {
  return {1, 1};
}

bool KurvGraph::toolbar_visible() const {
  return !m_state->toolbar->isHidden();
}

void KurvGraph::set_toolbar_visible(bool on) {
  m_state->toolbar->setVisible(on);
  call([](Control&) {});
}

// -- Calls of the host and of the toolkit ---------------------------------------------------------

// A call of the host. The state is held until it ends: a message box in it runs the event loop,
// and the widget may be destroyed when that returns.
template <class Work>
void KurvGraph::call(Work work) {
  struct Held {
    ~Held() { state->finish(); }
    QExplicitlySharedDataPointer<State> state;
  };
  const Held held{m_state};
  State& state = *held.state;
  // A hidden widget gets no resize events.
  state.fit();
  state.apply_locale();
  const PrintingFor printing(this);
  const std::optional<Failure> failure =
      failure_of(state.shell, state.graph, [&] { work(state.graph); });
  state.changed_from_outside();
  for (int redraws = state.finish(); redraws > 0 && state.widget; --redraws) {
    Q_EMIT state.widget->redrawn();
  }
  if (failure) throw_again(*failure);
}

// A call of the toolkit. No exception may cross its event loop, and no slot may delete the widget
// during its event: so signals and errors are queued until that is over.
template <class Work>
void KurvGraph::handle(Work work) {
  const QExplicitlySharedDataPointer<State> state = m_state;
  state->apply_locale();
  const PrintingFor printing(this);
  const std::optional<Failure> failure =
      failure_of(state->shell, state->graph, [&] { work(*state); });
  const int redraws = state->finish(failure.has_value());
  if (!state->widget) return;
  KurvGraph* const widget = state->widget;
  for (int i = 0; i < redraws; ++i) {
    QMetaObject::invokeMethod(widget, &KurvGraph::redrawn, Qt::QueuedConnection);
  }
  if (!failure) return;
  const int number = failure->fault.number();
  const QString text = text_of(*failure);
  QMetaObject::invokeMethod(
      widget, [widget, number, text] { widget->tell(number, text); }, Qt::QueuedConnection);
}

void KurvGraph::State::handle(const std::function<void(Control&)>& work) {
  if (!widget) return;
  const QExplicitlySharedDataPointer<State> held = widget->m_state;
  widget->handle([&](State& state) { work(state.graph); });
  note_change();
}

void KurvGraph::State::run_command(const char* word) {
  if (widget) widget->run_command(QLatin1String(word));
}

void KurvGraph::run_command(const QString& word) {
  const auto command = [word](State& state) { state.graph.ChartOptions(word.toStdString()); };
  QMetaObject::invokeMethod(
      this, [this, command] { handle(command); }, Qt::QueuedConnection);
}

void KurvGraph::tell(int number, const QString& text) {
  if (isSignalConnected(QMetaMethod::fromSignal(&KurvGraph::runTimeError))) {
    Q_EMIT runTimeError(number, text);
    return;
  }
  // One box at a time: dragging a window's edge would open one for every size in between.
  const QExplicitlySharedDataPointer<State> state = m_state;
  if (state->showing_error) return;
  state->showing_error = true;
  state->shell.message_box(text.toStdString(), kCriticalStop, kBoxTitle);
  state->showing_error = false;
}

// -- Data -----------------------------------------------------------------------------------------

std::optional<QString> KurvGraph::add_function(const QString& expression) {
  std::optional<String> error;
  call([&](Control& control) { error = control.add_function(expression.toStdString()); });
  return shown(error);
}

std::optional<QString> KurvGraph::derive(const QString& name, const QString& expression) {
  std::optional<String> error;
  call([&](Control& control) {
    error = control.derive(name.toStdString(), expression.toStdString());
  });
  return shown(error);
}

// -- Methods --------------------------------------------------------------------------------------

void KurvGraph::scatter_graph(const Matrix<Double>& yarr_, const List<Double>& xarr, int pNumData_,
                              int pNumY_, const Variant& pTitle_, const String& xVarName_,
                              const List<String>& yVarName_, int pNumYFunc_,
                              const List<String>& y_func_, std::optional<bool> pConnected_,
                              std::optional<bool> draw_scatter_points_) {
  call([&](Control& control) {
    control.scatter_graph(yarr_, xarr, to_integer(Double(pNumData_)), to_integer(Double(pNumY_)),
                          pTitle_, xVarName_, yVarName_, to_integer(Double(pNumYFunc_)), y_func_,
                          pConnected_, draw_scatter_points_);
  });
}

void KurvGraph::scatter_graph2(const String& pTitle_, const Matrix<Double>& xyArr_,
                               const List<String>& xyVarNames_, int pNumData_, int pNumY_,
                               const List<Boolean>& y_visible_, int pNumYFunc_,
                               const List<String>& y_func_, std::optional<bool> pConnected_,
                               std::optional<bool> draw_scatter_points_) {
  call([&](Control& control) {
    control.scatter_graph2(pTitle_, xyArr_, xyVarNames_, to_integer(Double(pNumData_)),
                           to_integer(Double(pNumY_)), y_visible_, to_integer(Double(pNumYFunc_)),
                           y_func_, pConnected_, draw_scatter_points_);
  });
}

void KurvGraph::append_points(const Matrix<Double>& points) {
  call([&](Control& control) { control.append_points(points); });
}

void KurvGraph::replace_points(const Matrix<Double>& points, const List<String>& names) {
  call([&](Control& control) { control.replace_points(points, names); });
}

void KurvGraph::update_limits() {
  call([](Control& control) { control.update_limits(); });
}

QUndoStack* KurvGraph::undo_stack() {
  return m_state->undo_stack();
}

void KurvGraph::make_step(const QString& name, const std::function<void()>& work) {
  call([&](Control& control) { control.make_step(name.toStdString(), work); });
}

void KurvGraph::show_all() {
  call([](Control& control) { kurv::show_all(control.state()); });
}

void KurvGraph::init() {
  m_state->graph.init();
}

void KurvGraph::build_the_graph() {
  call([](Control& control) { control.build_the_graph(); });
}

void KurvGraph::file_load(const QString& filename) {
  load_path(filename.toStdString());
}

void KurvGraph::load_path(const String& path) {
  call([&](Control& control) { control.file_load(path); });
}

void KurvGraph::save_to(const String& path) {
  call([&](Control& control) { save_graph_file(control.state(), path); });
}

void KurvGraph::show_mended_data() {
  if (!has_repaired_data(m_state->graph.state().document)) return;
  call([](Control& control) { kurv::show_repaired_data(control.state()); });
}

void KurvGraph::Save_graph() {
  call([](Control& control) { control.Save_graph(); });
}

void KurvGraph::Sort_xy() {
  call([](Control& control) { control.Sort_xy(); });
}

void KurvGraph::ChartOptions(const QString& command) {
  call([&](Control& control) { control.ChartOptions(command.toStdString()); });
}

void KurvGraph::Restore_Grf() {
  call([](Control& control) { control.Restore_Grf(); });
}

void KurvGraph::CloseMe() {
  call([](Control& control) { control.CloseMe(); });
}

// -- Late binding ---------------------------------------------------------------------------------

void call_method(KurvGraph& graph, const MemberKey& key, std::span<Variant> arguments) {
  graph.call([&](Control& control) { call_method(control, key, arguments); });
}

// -- Events ---------------------------------------------------------------------------------------

bool KurvGraph::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::MetaCall:
      // A queued call, such as a slot. What it throws is caught here, before the event loop.
      handle([&](State&) { QObject::event(event); });
      return true;
    case QEvent::LayoutRequest:  // The toolbar may want another height.
    case QEvent::ScreenChangeInternal:
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
    case QEvent::DevicePixelRatioChange:
#endif
      handle([](State& state) { state.fit(); });
      break;
    default:
      break;
  }
  return QWidget::event(event);
}

void KurvGraph::resizeEvent(QResizeEvent*) {
  handle([](State& state) { state.fit(); });
}

void KurvGraph::showEvent(QShowEvent* event) {
  // A show by the window system, such as the restoring of a minimised window, changes nothing.
  if (event->spontaneous()) return;
  handle([](State& state) {
    state.fit();
    state.graph.show();
  });
}

// No focus proxy: with one, Tab would go to the plot first and never to the toolbar.
void KurvGraph::focusInEvent(QFocusEvent* event) {
  m_state->view->setFocus(event->reason());
}

// Key events instead of QShortcut, so that a host's actions with the same keys take precedence.
void KurvGraph::keyPressEvent(QKeyEvent* event) {
  if (m_state->design_mode) return QWidget::keyPressEvent(event);
  if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
    open_menu(m_state->view->menu_point(), true);
    return;
  }
  const char* const word =
      m_state->shortcuts_enabled ? shortcut_word(*event, m_state->graph.undo_enabled()) : nullptr;
  if (!word) return QWidget::keyPressEvent(event);
  // A key that is held down is one command.
  if (!event->isAutoRepeat()) run_command(QLatin1String(word));
}

// Whether Qt sends this at a press or at a release depends on the platform. Here a right click
// opens the menu when it is released, see PlotView::menu_wanted; only the menu key is handled here.
void KurvGraph::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (event->reason() == QContextMenuEvent::Keyboard) open_menu(m_state->view->menu_point(), true);
}

void KurvGraph::open_menu(QPoint at, bool is_by_keyboard) {
  if (contextMenuPolicy() != Qt::DefaultContextMenu || m_state->design_mode) return;
  const RunPlotCommand run = [this](const PlotCommand& command) {
    handle([&command](State& state) { command(state.graph); });
  };
  Control& graph = m_state->graph;
  if (!m_state->extended_menu) return new_plot_menu(*this, graph, zoom_enabled(), run)->popup(at);
  const PlotView& view = *m_state->view;
  const Clicked clicked = is_by_keyboard ? view.clicked_by_key() : view.clicked_at(at);
  new_extended_menu(*this, graph, zoom_enabled(), clicked, run)->popup(at);
}

}  // namespace kurv
