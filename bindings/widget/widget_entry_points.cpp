// The entry points of the C interface for graphs that are widgets.
#include <KurvGraph/kurvgraph_c.h>

#include <QApplication>
#include <QPixmap>
#include <QScreen>
#include <QThread>
#include <QWindow>

#include <memory>

#include "bindings/c/call_error.h"
#include "bindings/c/graph_table.h"
#include "bindings/widget/event_loop.h"
#include "bindings/widget/widget_graph.h"

namespace {

using kurv::c::CallError;
using kurv::c::guarded;
using kurv::c::required;
using kurv::c::WidgetGraph;

constexpr int kLongestSide = 16777215;  // of a QWidget

void require_application() {
  const auto* const application = qobject_cast<QApplication*>(QCoreApplication::instance());
  if (application == nullptr) throw CallError(KURV_NO_APPLICATION);
  if (application->thread() != QThread::currentThread()) throw CallError(KURV_WRONG_THREAD);
}

std::shared_ptr<WidgetGraph> create(QWidget* parent, kurv_graph* graph, void** widget) {
  auto bound = std::make_shared<WidgetGraph>(parent);
  *graph = kurv::c::enter_graph(bound);
  bound->watch();
  if (widget != nullptr) *widget = bound->widget();
  return bound;
}

// Null where there is no such window, or where the platform has none. The toolkit takes any number
// for a window, but it takes a picture only of one that exists.
std::unique_ptr<QWindow> native_window(std::uintptr_t window) {
  const auto id = static_cast<WId>(window);
  std::unique_ptr<QWindow> found(QWindow::fromWinId(id));
  if (found && QGuiApplication::primaryScreen()->grabWindow(id, 0, 0, 1, 1).isNull()) found.reset();
  return found;
}

}  // namespace

std::int32_t kurv_create_widget(void* parent, kurv_graph* graph, void** widget) {
  return guarded([&] {
    required(graph);
    require_application();
    create(static_cast<QWidget*>(parent), graph, widget);
  });
}

std::int32_t kurv_create_in_window(std::uintptr_t window, std::int32_t width, std::int32_t height,
                                   kurv_graph* graph, void** widget) {
  return guarded([&] {
    required(graph);
    if (width < 1 || height < 1 || width > kLongestSide || height > kLongestSide) {
      throw CallError(KURV_INVALID_CALL, "width and height take numbers from 1 to 16777215");
    }
    kurv::c::make_application();
    require_application();
    std::unique_ptr<QWindow> parent = native_window(window);
    if (!parent) throw CallError(KURV_CANNOT_CREATE, "no such window");
    QWidget& shown = create(nullptr, graph, widget)->graph();
    shown.setWindowFlag(Qt::FramelessWindowHint);
    shown.setGeometry(0, 0, width, height);
    shown.winId();  // makes the window
    shown.windowHandle()->setParent(parent.get());
    // The parent only represents the host's window, and goes with the widget.
    QObject::connect(&shown, &QObject::destroyed, [window = parent.release()] { delete window; });
    shown.show();
  });
}

std::int32_t kurv_process_events(std::int32_t milliseconds) {
  return guarded([&] {
    require_application();
    kurv::c::process_events(milliseconds);
  });
}
