#include "bindings/widget/event_loop.h"

#include <QApplication>
#include <QTimer>

namespace kurv::c {

void make_application() {
  if (QCoreApplication::instance() != nullptr) return;
  static int argument_count = 1;
  static char name[] = "kurvgraph";
  static char* arguments[] = {name, nullptr};
  new QApplication(argument_count, arguments);
}

void process_events(int milliseconds) {
  if (milliseconds > 0) {
    QTimer timer;
    timer.setSingleShot(true);
    timer.start(milliseconds);
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  } else {
    QCoreApplication::processEvents();
  }
  // Outside of an event loop these wait until somebody asks for them.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace kurv::c
