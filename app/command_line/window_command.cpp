#include "app/command_line/window_command.h"

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <utility>
#include <vector>

#include "app/base/user_error.h"
#include "app/csv/csv_text.h"
#include "app/graph/comma_warnings.h"
#include "app/graph/graph_intake.h"
#include "app/window/folder_options.h"
#include "app/window/kept_places.h"
#include "app/window/main_window.h"
#include "app/window/table_option_texts.h"

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

// Who opens files in a file manager cannot give options, so that those of the import window for the
// last table of the folder hold, unless they do not fit this one.
GraphSource load_as_before(const std::string& path, const WindowRequest& request) {
  if (is_graph_file(path)) return load(path, request);
  WindowRequest before = request;
  const Selection selection = request.table.selection;
  before.table = FolderOptions().options_for(path);
  before.table.selection = selection;
  const std::string words = described(before.table).toStdString();
  if (words.empty()) return load(path, request);
  try {
    GraphSource source = load(path, before);
    source.data->warnings.insert(source.data->warnings.begin(),
                                 "as for the last table of this folder: " + words + '.');
    return source;
  } catch (const UserError&) {
    return load(path, request);
  }
}

// A table that cannot be drawn as it is read may be corrected in the import window, where there is
// a screen for that.
bool can_be_imported(const std::string& path) {
  const QString platform = qEnvironmentVariable("QT_QPA_PLATFORM");
  if (platform.startsWith("offscreen") || platform.startsWith("minimal")) return false;
  try {
    if (is_graph_file(path)) return false;
    read_table_bytes(path);
    return true;
  } catch (const UserError&) {
    return false;
  }
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

// The files of a request on their way into windows.
class Opening {
 public:
  Opening(const WindowRequest& request, const Report& say, ErrorBox& box)
      : m_request(request), m_say(say), m_box(box) {
    for (const std::string& path : request.data_files) m_files.push_back({path, std::nullopt});
  }

  void load_files() {
    keep([this](GraphSource& file) {
      file = m_box.is_needed() ? load_as_before(file.path, m_request) : load(file.path, m_request);
      if (!file.data) return;
      for (const std::string& warning : file.data->warnings) m_say("warning: " + warning);
    });
  }

  // Draws each graph off-screen first, so that errors are reported on the terminal, as for a
  // picture, and not by message boxes over empty windows.
  void check_files() {
    const bool are_several = m_request.data_files.size() > 1;
    keep([this, are_several](const GraphSource& file) {
      try {
        check_picture(m_request, file);
      } catch (const UserError& error) {
        if (!are_several) throw;
        throw naming(error, file.path);
      }
    });
  }

  void show_windows() {
    QPointer<MainWindow> last;
    for (const GraphSource& file : m_files) {
      last = new MainWindow(m_request.locale, m_say);
      last->show_graph(m_request, file);
    }
    if (m_request.data_files.empty()) (new MainWindow(m_request.locale, m_say))->show();
    m_box.show(last);
    if (m_imports.empty()) return;
    auto* const importing = new MainWindow(m_request.locale, m_say);
    importing->show();
    QTimer::singleShot(0, importing, [this, importing] { importing->open_all(m_imports); });
  }

  bool has_all() const { return m_files.size() == m_request.data_files.size(); }

 private:
  // Keeps the files for which `work` succeeds, and those that the user can correct for the import.
  template <class Work>
  void keep(const Work& work) {
    m_files = accepted(
        std::move(m_files),
        [&](GraphSource& file) {
          try {
            work(file);
          } catch (const UserError& error) {
            const bool is_choice = error.exit_status() == kUsageFailure;
            if (is_choice || !m_box.is_needed() || !can_be_imported(file.path)) throw;
            m_say(error.what());
            m_imports.push_back(std::exchange(file.path, {}));
          }
        },
        [this](const std::string& sentence) {
          m_say(sentence);
          m_box.add(sentence);
        });
    std::erase_if(m_files, [](const GraphSource& file) { return file.path.empty(); });
  }

  const WindowRequest& m_request;
  const Report& m_say;
  ErrorBox& m_box;
  std::vector<GraphSource> m_files;
  std::vector<std::string> m_imports;
};

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
  Opening opening(request, say, box);
  opening.load_files();
  warn_of_commas(request.functions,
                 [&](const std::string& warning) { say("warning: " + warning); });
  const std::unique_ptr<QApplication> application = new_window_application();
  opening.check_files();
  const KeptPlaces places;
  opening.show_windows();
  const int status = QApplication::exec();
  return status == 0 && !opening.has_all() ? kFailure : status;
}

}  // namespace kurv::app
