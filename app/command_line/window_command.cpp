#include "app/command_line/window_command.h"

#include <QApplication>
#include <QPointer>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <vector>

#include "app/base/user_error.h"
#include "app/graph/comma_warnings.h"
#include "app/graph/graph_intake.h"
#include "app/window/main_window.h"

namespace kurv::app {

namespace {

// Returns the files for which `work` does not throw UserError. Each error is reported, but the last
// one is thrown where no file is left, and one of the command line is always thrown.
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

// The error with the file in its sentence: of several files, only some may lack a column.
UserError naming(const UserError& error, const std::string& path) {
  const std::string sentence = error.what();
  if (sentence.find(path) != std::string::npos) return error;
  return UserError(path + ": " + sentence, error.exit_status());
}

// Without a display, Qt would abort with a core dump, after messages that do not help the user.
[[noreturn]] void end_without_display() {
  std::cerr << "kurv: there is no display to open a window on; \"kurv render\" draws a picture "
               "without one."
            << std::endl;
  std::_Exit(kFailure);
}

void exit_on_fatal_message(QtMsgType type, const QMessageLogContext&, const QString&) {
  if (type == QtFatalMsg) end_without_display();
}

}  // namespace

std::unique_ptr<QApplication> new_window_application() {
  static char name[] = "kurv";
  static char* arguments[] = {name, nullptr};
  static int count = 1;
  qInstallMessageHandler(exit_on_fatal_message);
  auto application = std::make_unique<QApplication>(count, arguments);
  qInstallMessageHandler(nullptr);
  return application;
}

int open_windows(const WindowRequest& request, const std::function<void(const std::string&)>& say,
                 ErrorBox& box) {
  const auto say_failure = [&](const std::string& sentence) {
    say(sentence);
    box.add(sentence);
  };
  std::vector<GraphSource> files;
  for (const std::string& path : request.data_files) files.push_back({path, std::nullopt});
  files = accepted(
      std::move(files),
      [&](GraphSource& file) {
        file = load(file.path, request);
        if (!file.data) return;
        for (const std::string& warning : file.data->warnings) say("warning: " + warning);
      },
      say_failure);

  warn_of_commas(request.functions,
                 [&](const std::string& warning) { say("warning: " + warning); });

  const std::unique_ptr<QApplication> application = new_window_application();

  // Draws each graph off-screen first, so that errors are reported on the terminal, as for a
  // picture, and not by message boxes over empty windows.
  const bool are_several = request.data_files.size() > 1;
  const auto check = [&](const GraphSource& file) {
    try {
      check_picture(request, file);
    } catch (const UserError& error) {
      if (!are_several) throw;
      throw naming(error, file.path);
    }
  };
  files = accepted(std::move(files), check, say_failure);
  QPointer<MainWindow> last;
  for (const GraphSource& file : files) {
    last = new MainWindow(request.locale, say);
    last->show_graph(request, file);
  }
  if (request.data_files.empty()) (new MainWindow(request.locale, say))->show();
  box.show(last);
  const int status = QApplication::exec();
  return status == 0 && files.size() < request.data_files.size() ? kFailure : status;
}

}  // namespace kurv::app
