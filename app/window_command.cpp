#include "app/window_command.h"

#include <KurvGraph/KurvGraph.h>

#include <QApplication>
#include <QFileInfo>
#include <QMainWindow>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <vector>

#include "app/graph_intake.h"
#include "app/user_error.h"

namespace kurv::app {

namespace {

struct GraphFile {
  std::string path;
  DataSet data;
};

// Keeps the files for which `work` does not throw. The last of several refusals is thrown only if
// no file is left; the others are said.
template <class Work>
std::vector<GraphFile> accepted(std::vector<GraphFile> files, const Work& work,
                                const std::function<void(const std::string&)>& say) {
  std::vector<GraphFile> kept;
  std::optional<UserError> refusal;
  for (GraphFile& file : files) {
    try {
      work(file);
      kept.push_back(std::move(file));
    } catch (const UserError& error) {
      if (refusal) say(refusal->what());
      refusal = error;
    }
  }
  if (refusal && kept.empty()) throw *refusal;
  if (refusal) say(refusal->what());
  return kept;
}

// Where there is no display the toolkit would end the program with a core dump; its own remarks on
// the way there are no help to the user either.
[[noreturn]] void end_without_display() {
  std::cerr << "kurv: there is no display to open a window on; \"kurv render\" draws a picture "
               "without one."
            << std::endl;
  std::_Exit(kFailure);
}

void wait_for_the_worst(QtMsgType type, const QMessageLogContext&, const QString&) {
  if (type == QtFatalMsg) end_without_display();
}

QString window_title(const std::string& path) {
  QString name = QFileInfo(QFile::decodeName(path.c_str())).fileName();
  // These three characters are a place holder of the toolkit; twice, they are themselves.
  return name.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
}

std::unique_ptr<QMainWindow> make_window(const GraphChoice& choice, const GraphFile& file) {
  auto window = std::make_unique<QMainWindow>();
  window->setWindowTitle(window_title(file.path));
  auto* const graph = new KurvGraph;
  graph->resize(choice.size);
  window->setCentralWidget(graph);
  window->resize(choice.size);
  hand_over(choice, file.path, file.data, *graph);
  finish_looks(choice, *graph, *graph);
  return window;
}

}  // namespace

int open_windows(const WindowRequest& request, const std::function<void(const std::string&)>& say) {
  std::vector<GraphFile> files;
  for (const std::string& path : request.data_files) files.push_back({path, {}});
  files = accepted(
      std::move(files),
      [&](GraphFile& file) {
        file.data = load(file.path, request.selection);
        for (const std::string& warning : file.data.warnings) say("warning: " + warning);
      },
      say);

  char name[] = "kurv";
  char* arguments[] = {name, nullptr};
  int count = 1;
  qInstallMessageHandler(wait_for_the_worst);
  QApplication application(count, arguments);
  qInstallMessageHandler(nullptr);

  // A first drawing that nobody sees: what a graph refuses is said here, as it is for a picture,
  // and opens neither a message box nor an empty window.
  files = accepted(
      std::move(files),
      [&](const GraphFile& file) { picture_of(request, file.path, file.data, 1); }, say);
  std::vector<std::unique_ptr<QMainWindow>> windows;
  for (const GraphFile& file : files) windows.push_back(make_window(request, file));
  for (const auto& window : windows) window->show();
  const int status = QApplication::exec();
  return status == 0 && files.size() < request.data_files.size() ? kFailure : status;
}

}  // namespace kurv::app
