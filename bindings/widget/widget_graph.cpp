#include "bindings/widget/widget_graph.h"

#include <QApplication>
#include <QThread>

#include "bindings/c/call_error.h"
#include "bindings/c/graph_table.h"

namespace kurv::c {

namespace {

std::optional<String> utf8(const std::optional<QString>& sentence) {
  if (!sentence) return {};
  return sentence->toStdString();
}

}  // namespace

WidgetGraph::WidgetGraph(QWidget* parent) : m_widget(new KurvGraph(parent)) {}

// After end() there is no widget any more, only after a failure while the graph is made.
WidgetGraph::~WidgetGraph() {
  delete m_widget.data();
}

// The connections hold no reference: the graph would never end. They find it by its handle, which
// is invalid when the graph is about to go.
void WidgetGraph::watch() {
  const kurv_graph own = handle();
  m_widget->add_listener([own](const Event& event, std::span<const Variant> arguments) {
    const auto graph = std::static_pointer_cast<WidgetGraph>(graph_or_null(own));
    if (graph) graph->notify_event(event, arguments);
  });
  QObject::connect(m_widget, &KurvGraph::redrawn, m_widget, [own] {
    const auto graph = std::static_pointer_cast<WidgetGraph>(graph_or_null(own));
    if (graph) graph->notify("redrawn", KURV_REDRAWN);
  });
  QObject::connect(m_widget, &QObject::destroyed, [own] {
    const auto graph = std::static_pointer_cast<WidgetGraph>(take_graph(own));
    if (!graph) return;
    graph->m_widget.clear();
    graph->notify("destroyed", KURV_DESTROYED);
  });
}

KurvGraph& WidgetGraph::graph() const {
  if (!m_widget) throw CallError(KURV_INVALID_HANDLE);
  return *m_widget;
}

Variant WidgetGraph::get(const MemberKey& key) {
  return get_property(graph(), key);
}

void WidgetGraph::let(const MemberKey& key, const Variant& value) {
  set_property(graph(), key, value);
}

void WidgetGraph::call(const MemberKey& key, std::span<Variant> arguments) {
  call_method(graph(), key, arguments);
}

std::optional<String> WidgetGraph::add_function(const String& expression) {
  return utf8(graph().add_function(QString::fromStdString(expression)));
}

std::optional<String> WidgetGraph::derive(const String& name, const String& expression) {
  return utf8(graph().derive(QString::fromStdString(name), QString::fromStdString(expression)));
}

void WidgetGraph::append_points(const Matrix<Double>& points) {
  graph().append_points(points);
}

void WidgetGraph::replace_points(const Matrix<Double>& points, const List<String>& names) {
  graph().replace_points(points, names);
}

PixelView WidgetGraph::pixels() {
  m_image = graph().image().convertToFormat(QImage::Format_RGB32);
  const auto stride = m_image.bytesPerLine() / qsizetype{sizeof(std::uint32_t)};
  return {reinterpret_cast<const std::uint32_t*>(m_image.constBits()), m_image.width(),
          m_image.height(), stride, m_image.dotsPerMeterX()};
}

// The size of the plot: what the toolbar takes comes on top.
void WidgetGraph::resize(int width, int height, double) {
  const QSize around = graph().size() - graph().plot_rect().size();
  graph().resize(QSize(width, height) + around);
}

void WidgetGraph::save_graph(const String& path) {
  graph().save_to(path);
}

void WidgetGraph::press_mouse(Integer, Integer, Single, Single) {
  throw CallError(KURV_INVALID_CALL, "a widget has the mouse of its window");
}

void WidgetGraph::release_mouse(Integer button, Integer shift, Single x, Single y) {
  press_mouse(button, shift, x, y);
}

// The work is passed to the toolkit's thread with a reference that keeps the graph until then.
void WidgetGraph::end(bool with_widget) {
  const auto self = std::static_pointer_cast<WidgetGraph>(shared_from_this());
  const auto work = [self, with_widget] {
    if (self->m_widget && (with_widget || !self->m_widget->parent())) delete self->m_widget.data();
    self->m_widget.clear();
  };
  // Without its application the toolkit has no widgets.
  if (QCoreApplication::instance() == nullptr) return self->m_widget.clear();
  if (QThread::currentThread() == QCoreApplication::instance()->thread()) {
    work();
  } else {
    QMetaObject::invokeMethod(QCoreApplication::instance(), work, Qt::QueuedConnection);
  }
}

}  // namespace kurv::c
