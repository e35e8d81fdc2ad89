#include <KurvGraph/KurvGraph.h>

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QPainter>
#include <new>

#include "core/control_state.h"
#include "qt/kurv_graph_state.h"
#include "qt/plot_menu.h"
#include "render/mapping.h"

namespace kurv {

namespace {

constexpr QSize kUsualSize(720, 480);
constexpr const char* kBoxTitle = "KURV Guide";

Integer button_bit(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return 1;
    case Qt::RightButton:
      return 2;
    case Qt::MiddleButton:
      return 4;
    default:
      return 0;
  }
}

Integer shift_bits(Qt::KeyboardModifiers modifiers) {
  const int shift = modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0;
  const int control = modifiers.testFlag(Qt::ControlModifier) ? 2 : 0;
  const int alt = modifiers.testFlag(Qt::AltModifier) ? 4 : 0;
  return static_cast<Integer>(shift + control + alt);
}

std::optional<QString> shown(const std::optional<String>& sentence) {
  if (!sentence) return std::nullopt;
  return shown_text(*sentence);
}

// The run-time error that ends the work early, if one does.
template <class Work>
std::optional<Fault> failure_of(Work work) {
  try {
    work();
  } catch (const Fault& fault) {
    return fault;
  } catch (const std::bad_alloc&) {
    return Fault(FaultKind::kOutOfMemory);
  }
  return std::nullopt;
}

}  // namespace

// -- Life -----------------------------------------------------------------------------------------

KurvGraph::KurvGraph(QWidget* parent) : KurvGraph(nullptr, parent) {}
KurvGraph::KurvGraph(PlotSurface& lent, QWidget* parent) : KurvGraph(&lent, parent) {}

KurvGraph::KurvGraph(PlotSurface* lent, QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMinimumSize(1, 1);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  resize(kUsualSize);
  m_state = std::make_shared<State>(*this, lent);
  // Here and not at the first show, so that what the host sets in between stays.
  m_state->graph.first_placement();
  m_state->finish();
}

KurvGraph::~KurvGraph() {
  const std::shared_ptr<State> state = m_state;
  // The control may have a last question. It stands alone: the window around may be half gone.
  state->widget.clear();
  state->shell.leave_window();
  const std::optional<Fault> failure = failure_of([&] { state->graph.terminate(); });
  if (failure) state->shell.message_box(failure->what(), kCriticalStop, kBoxTitle);
  // About a visible widget the toolkit asks the application, even when there is none any more.
  if (!QCoreApplication::instance()) setAttribute(Qt::WA_WState_Visible, false);
}

QSize KurvGraph::sizeHint() const {
  return kUsualSize;
}

QSize KurvGraph::minimumSizeHint() const {
  return {1, 1};
}

bool KurvGraph::design_mode() const {
  return m_state->design_mode;
}

void KurvGraph::set_design_mode(bool on) {
  m_state->design_mode = on;
}

// -- The two ways in ------------------------------------------------------------------------------

// A call of the host. The state is held until it ends: a message box in it runs the event loop,
// and the widget may be gone when that returns.
template <class Work>
void KurvGraph::call(Work work) {
  struct Held {
    ~Held() { state->finish(); }
    std::shared_ptr<State> state;
  };
  const Held held{m_state};
  State& state = *held.state;
  // While the widget is hidden the toolkit keeps its new sizes to itself.
  state.fit();
  state.take_locale();
  const std::optional<Fault> failure = failure_of([&] { work(state.graph); });
  for (int redraws = state.finish(); redraws > 0 && state.widget; --redraws) {
    Q_EMIT state.widget->redrawn();
  }
  if (failure) throw *failure;
}

// A call of the toolkit. What it has to say is said when the toolkit is done with its event: it
// still holds the widget, and no slot may delete it now.
template <class Work>
void KurvGraph::handle(Work work) {
  const std::shared_ptr<State> state = m_state;
  state->take_locale();
  const std::optional<Fault> failure = failure_of([&] { work(*state); });
  const int redraws = state->finish();
  if (!state->widget) return;
  KurvGraph* const widget = state->widget;
  for (int i = 0; i < redraws; ++i) {
    QMetaObject::invokeMethod(widget, &KurvGraph::redrawn, Qt::QueuedConnection);
  }
  if (!failure) return;
  const int number = failure->number();
  const QString text = QString::fromUtf8(failure->what());
  QMetaObject::invokeMethod(
      widget, [widget, number, text] { widget->tell(number, text); }, Qt::QueuedConnection);
}

void KurvGraph::State::handle(const std::function<void(Control&)>& work) {
  if (widget) widget->handle([&](State& state) { work(state.graph); });
}

void KurvGraph::tell(int number, const QString& text) {
  if (isSignalConnected(QMetaMethod::fromSignal(&KurvGraph::runTimeError))) {
    Q_EMIT runTimeError(number, text);
    return;
  }
  // One box at a time: dragging a window's edge would open one for every size on the way.
  const std::shared_ptr<State> state = m_state;
  if (state->telling) return;
  state->telling = true;
  state->shell.message_box(text.toStdString(), kCriticalStop, kBoxTitle);
  state->telling = false;
}

// -- Data -----------------------------------------------------------------------------------------

std::optional<QString> KurvGraph::add_function(const QString& expression) {
  std::optional<String> refusal;
  call([&](Control& control) { refusal = control.add_function(expression.toStdString()); });
  return shown(refusal);
}

std::optional<QString> KurvGraph::derive(const QString& name, const QString& expression) {
  std::optional<String> refusal;
  call([&](Control& control) {
    refusal = control.derive(name.toStdString(), expression.toStdString());
  });
  return shown(refusal);
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

// -- Events ---------------------------------------------------------------------------------------

bool KurvGraph::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::MetaCall:
      // A queued call. It goes past the parts of the toolkit that no exception may pass through.
      handle([&](State&) { QObject::event(event); });
      return true;
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

void KurvGraph::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  // At some ratios the last device pixel belongs to the widget only in part.
  painter.fillRect(rect(), Qt::white);
  painter.drawImage(QPointF(0, 0), m_state->picture.image());
}

void KurvGraph::resizeEvent(QResizeEvent*) {
  handle([](State& state) { state.fit(); });
}

void KurvGraph::showEvent(QShowEvent* event) {
  // The window system's own shows, such as a restore from an icon, change nothing.
  if (event->spontaneous()) return;
  handle([](State& state) {
    state.fit();
    state.graph.show();
  });
}

void KurvGraph::mousePressEvent(QMouseEvent* event) {
  event->accept();
}

void KurvGraph::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  const Integer button = button_bit(event->button());
  if (button == 0) return;
  const Integer shift = shift_bits(event->modifiers());
  const QPoint at = event->globalPosition().toPoint();
  const bool is_right = event->button() == Qt::RightButton;
  const std::shared_ptr<State> held = m_state;
  handle([&](State& state) {
    const QPointF twips = event->position() * state.twips_per_logical_pixel();
    state.graph.release_mouse(button, shift, to_single(twips.x()), to_single(twips.y()));
  });
  // The host has heard of the click first, and may have deleted the widget.
  if (is_right && held->widget) open_menu(at);
}

void KurvGraph::keyPressEvent(QKeyEvent* event) {
  const bool is_menu_key = event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier;
  if (!is_menu_key) return QWidget::keyPressEvent(event);
  open_menu(mapToGlobal(rect().center()));
}

// The toolkit has its own idea of when a mouse asks for a menu; here it is the release alone.
void KurvGraph::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (event->reason() == QContextMenuEvent::Keyboard) open_menu(mapToGlobal(rect().center()));
}

void KurvGraph::open_menu(QPoint at) {
  if (contextMenuPolicy() != Qt::DefaultContextMenu || m_state->design_mode) return;
  const bool can_derive = m_state->graph.state().document.NumY < kMaxCurves;
  QMenu* const menu = new_plot_menu(*this, can_derive, [this](PlotCommand command) {
    handle([command](State& state) { command(state.graph); });
  });
  menu->popup(at);
}

}  // namespace kurv
