#include "app/render_command.h"

#include <KurvGraph/control.h>
#include <KurvGraph/fault.h>
#include <KurvGraph/picture.h>

#include <QGuiApplication>
#include <filesystem>
#include <iostream>

#include "app/csv_separator.h"
#include "app/csv_table.h"
#include "app/data_columns.h"
#include "app/picture_file.h"
#include "app/text.h"
#include "app/text_file.h"
#include "app/user_error.h"
#include "app/windowless.h"

namespace kurv::app {

namespace {

constexpr int kMostRounds = 8;

DataSet load(const RenderRequest& request) {
  const std::string bytes = read_text_file(request.data_file);
  const CsvTable table = parse_csv(bytes, find_separator(bytes), request.data_file);
  return make_data_set(table, request.selection, request.data_file);
}

void draw_data(const RenderRequest& request, const DataSet& data, Control& control) {
  const int curves = data.values.upper_column() - 1;
  List<Boolean> visible(1, curves);
  for (int curve = 1; curve <= curves; ++curve) visible(curve) = true;
  const std::string title =
      request.title.value_or(std::filesystem::path(request.data_file).stem().string());
  control.set_SortXY(request.sort);
  control.set_SubTitle(request.subtitle);
  control.scatter_graph2(title, data.values, data.names,
                         static_cast<Integer>(data.values.upper_point()),
                         static_cast<Integer>(curves), visible, 0, {}, Boolean(request.lines),
                         Boolean(request.markers));
}

// Some of a picture depends on the picture before, such as the length of the grid lines: it is
// drawn until it stays the same.
QImage settled_picture(Control& control, const Picture& picture) {
  control.ChartOptions("refresh");
  QImage before = picture.image();
  for (int round = 1; round < kMostRounds; ++round) {
    control.ChartOptions("refresh");
    const QImage after = picture.image();
    if (after == before) break;
    before = after;
  }
  return picture.image();
}

QImage draw(const RenderRequest& request, const DataSet& data) {
  Picture picture(request.size, request.scale);
  RunningHost host(picture.ScaleWidth(), picture.ScaleHeight());
  MessageKeeper shell;
  Control control(host, shell, picture);
  // As in a window, the graph is there first and gets its data then.
  control.first_placement();
  control.show();
  draw_data(request, data, control);
  if (!shell.empty()) throw UserError(request.data_file + " cannot be drawn: " + shell.sentence());
  control.ChartOptions("refresh");
  for (const Setting& setting : request.settings) {
    setting.property->let(control, Variant(setting.value));
  }
  return settled_picture(control, picture);
}

QImage draw_or_explain(const RenderRequest& request, const DataSet& data) {
  try {
    return draw(request, data);
  } catch (const Fault& fault) {
    throw UserError(request.data_file + " cannot be drawn: " + fault.what() +
                    (request.settings.empty() ? "." : "; check the values given with --set."));
  }
}

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
  const DataSet data = load(request);
  for (const std::string& warning : data.warnings) warn(warning);
  forget_the_desktop();
  qInstallMessageHandler(keep_quiet);
  char name[] = "kurv";
  char* arguments[] = {name, nullptr};
  int count = 1;
  const QGuiApplication application(count, arguments);
  write_picture(draw_or_explain(request, data), request.picture_file);
}

}  // namespace kurv::app
