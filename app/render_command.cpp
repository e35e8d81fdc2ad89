#include "app/render_command.h"

#include <QGuiApplication>
#include <iostream>

#include "app/graph_intake.h"
#include "app/picture_file.h"
#include "app/text.h"

namespace kurv::app {

namespace {

// The desktop of whoever runs the program must not show in the picture, nor be needed for it.
void forget_the_desktop() {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  for (const char* name : {"QT_SCALE_FACTOR", "QT_FONT_DPI", "QT_QPA_PLATFORMTHEME"}) {
    qunsetenv(name);
  }
}

// The toolkit remarks on folders of the desktop that a picture does not need. Only what ends the
// program is worth a line.
void keep_quiet(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg) std::cerr << "kurv: " << on_one_line(text.toStdString()) << '\n';
}

}  // namespace

void render(const RenderRequest& request, const std::function<void(const std::string&)>& warn) {
  const DataSet data = load(request.data_file, request.selection);
  for (const std::string& warning : data.warnings) warn(warning);
  forget_the_desktop();
  qInstallMessageHandler(keep_quiet);
  char name[] = "kurv";
  char* arguments[] = {name, nullptr};
  int count = 1;
  const QGuiApplication application(count, arguments);
  write_picture(picture_of(request, request.data_file, data, request.scale), request.picture_file);
}

}  // namespace kurv::app
