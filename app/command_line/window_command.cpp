#include "app/command_line/window_command.h"

#include <QApplication>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <vector>

#include "app/base/user_error.h"
#include "app/graph/graph_intake.h"
#include "app/window/main_window.h"

namespace kurv::app {

namespace {

// Keeps the files for which `work` does not throw. The last of several refusals is thrown only if
// no file is left; the others are said. What is wrong with the command line ends everything.
template <class Work>
std::vector<GraphSource> accepted(std::vector<GraphSource> files, const Work& work,
                                  const std::function<void(const std::string&)>& say) {
  std::vector<GraphSource> kept;
  std::optional<UserError> refusal;
  for (GraphSource& file : files) {
    try {
      work(file);
      kept.push_back(std::move(file));
    } catch (const UserError& error) {
      if (error.exit_status() == kUsageFailure) throw;
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

}  // namespace

int open_windows(const WindowRequest& request, const std::function<void(const std::string&)>& say) {
  std::vector<GraphSource> files;
  for (const std::string& path : request.data_files) files.push_back({path, std::nullopt});
  files = accepted(
      std::move(files),
      [&](GraphSource& file) {
        file = load(file.path, request);
        if (!file.data) return;
        for (const std::string& warning : file.data->warnings) say("warning: " + warning);
      },
      say);

  warn_of_commas(request.functions,
                 [&](const std::string& warning) { say("warning: " + warning); });

  char name[] = "kurv";
  char* arguments[] = {name, nullptr};
  int count = 1;
  qInstallMessageHandler(wait_for_the_worst);
  QApplication application(count, arguments);
  qInstallMessageHandler(nullptr);

  // A first drawing that nobody sees: what a graph refuses is said here, as it is for a picture,
  // and opens neither a message box nor an empty window.
  files = accepted(
      std::move(files), [&](const GraphSource& file) { check_picture(request, file); }, say);
  for (const GraphSource& file : files) {
    (new MainWindow(request.locale, say))->put(request, file);
  }
  if (request.data_files.empty()) (new MainWindow(request.locale, say))->show();
  const int status = QApplication::exec();
  return status == 0 && files.size() < request.data_files.size() ? kFailure : status;
}

}  // namespace kurv::app
