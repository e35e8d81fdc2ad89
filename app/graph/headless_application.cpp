#include "app/graph/headless_application.h"

#include <iostream>

#include "app/base/message_text.h"

namespace kurv::app {

namespace {

// Qt warns of missing folders of the desktop that a picture does not need.
void keep_quiet(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg) std::cerr << "kurv: " << on_one_line(text.toStdString()) << '\n';
}

}  // namespace

std::unique_ptr<QGuiApplication> headless_application() {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  for (const char* name : {"QT_SCALE_FACTOR", "QT_FONT_DPI", "QT_QPA_PLATFORMTHEME"}) {
    qunsetenv(name);
  }
  qInstallMessageHandler(keep_quiet);
  // The application keeps references to both.
  static char name[] = "kurv";
  static char* arguments[] = {name, nullptr};
  static int count = 1;
  return std::make_unique<QGuiApplication>(count, arguments);
}

}  // namespace kurv::app
