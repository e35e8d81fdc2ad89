// A host outside of the tree, with hidden visibility: exceptions, interfaces and signals pass
// between it and the library. Returns the number of failed checks.
#include <KurvGraph/KurvGraph.h>
#include <KurvGraph/class_registry.h>
#include <KurvGraph/control.h>
#include <KurvGraph/file_fault.h>
#include <KurvGraph/headless.h>
#include <KurvGraph/picture.h>
#include <KurvGraph/recording_surface.h>

#include <QApplication>
#include <QMouseEvent>
#include <iostream>

static_assert(sizeof(kurv::KurvGraph) == sizeof(QWidget) + sizeof(void*));
static_assert(sizeof(kurv::Control) == sizeof(void*));

namespace {

int failures = 0;

void check(bool ok, const char* what) {
  if (ok) return;
  std::cerr << "FAILED: " << what << '\n';
  ++failures;
}

class OwnPrinter final : public kurv::PicturePrinter {
 public:
  void PrintPicture(std::string_view, std::string_view, std::string_view, kurv::Single) override {}
};

// A shell that cannot show anything.
class FailingShell final : public kurv::HeadlessShell {
 public:
  kurv::Answer message_box(std::string_view, int, std::string_view) override {
    throw kurv::Fault(kurv::FaultKind::kOutOfMemory);
  }
};

void faults_of_the_library_are_caught() {
  kurv::RecordingSurface surface(12000, 9000);
  kurv::HeadlessContainer container(surface);
  FailingShell shell;
  kurv::Control control(container, shell, surface);
  kurv::FaultKind kind{};
  try {
    control.set_decimal_separator('x');
  } catch (const kurv::Fault& fault) {
    kind = fault.kind();
  }
  check(kind == kurv::FaultKind::kInvalidProcedureCall, "a fault of the control");
  try {
    control.scatter_graph({}, {}, 0, 0, kurv::Variant(), "x", {}, 0, {});
  } catch (const kurv::Fault& fault) {
    kind = fault.kind();
  }
  check(kind == kurv::FaultKind::kOutOfMemory, "a fault of the host's shell, through the control");

  kurv::KurvGraph graph;
  std::string path;
  try {
    graph.load_path("/no/such/file");
  } catch (const kurv::FileFault& fault) {
    path = fault.path();
  }
  check(path == "/no/such/file", "a fault about a file");
}

void interfaces_are_cast_on_both_sides() {
  kurv::Picture picture(QSize(100, 100));
  kurv::PlotSurface* const surface = &picture;
  check(dynamic_cast<kurv::Picture*>(surface) != nullptr, "a surface of the library");

  kurv::register_class(kurv::kPicturePrinterClass, [] { return std::make_unique<OwnPrinter>(); });
  const auto printer = kurv::create<kurv::PicturePrinter>(kurv::kPicturePrinterClass);
  check(dynamic_cast<OwnPrinter*>(printer.get()) != nullptr, "a service of the host");

  kurv::register_class(kurv::kNumericServiceClass, [] { return std::make_unique<OwnPrinter>(); });
  kurv::FaultKind kind{};
  try {
    kurv::make_services();
  } catch (const kurv::Fault& fault) {
    kind = fault.kind();
  }
  check(kind == kurv::FaultKind::kTypeMismatch, "a service of another interface");
  kurv::register_class(kurv::kNumericServiceClass, {});
}

void signals_are_connected_by_their_addresses() {
  kurv::KurvGraph graph;
  int redraws = 0;
  QObject::connect(&graph, &kurv::KurvGraph::redrawn, [&] { ++redraws; });
  graph.plot({.title = "Squares", .x = {0, 1, 2}, .y = {{"y", {0, 1, 4}}}});
  check(redraws > 0, "a signal");
}

void faults_of_listeners_are_reported() {
  kurv::KurvGraph graph;
  graph.plot({.x = {0, 1, 2}, .y = {{"y", {0, 1, 4}}}});
  graph.add_listener([](const kurv::Event&, std::span<const kurv::Variant>) {
    throw kurv::Fault(kurv::FaultKind::kDivisionByZero);
  });
  int reported = 0;
  QObject::connect(&graph, &kurv::KurvGraph::runTimeError,
                   [&](int number, const QString&) { reported = number; });
  auto* const plot = graph.findChild<QWidget*>("PicGraph");
  const QPointF at = plot->rect().center();
  for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, at, at, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(plot, &event);
  }
  QApplication::processEvents();
  check(reported == 11, "a fault of a listener");
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  faults_of_the_library_are_caught();
  interfaces_are_cast_on_both_sides();
  signals_are_connected_by_their_addresses();
  faults_of_listeners_are_reported();
  return failures;
}
