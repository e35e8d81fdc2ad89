#include "app/command_line/follow_command.h"

#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QPointer>
#include <QSocketNotifier>
#include <array>
#include <csignal>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/command_line/window_command.h"
#include "app/graph/comma_warnings.h"
#include "app/graph/graph_file.h"
#include "app/graph/graph_intake.h"
#include "app/window/follower.h"
#include "app/window/kept_places.h"
#include "app/window/main_window.h"

namespace kurv::app {

namespace {

// A handler of signals may do next to nothing, so it writes into a pipe that the event loop reads.
std::array<int, 2> g_signal_pipe{-1, -1};

extern "C" void note_signal(int) {
  const char byte = 0;
  const ssize_t ignored = ::write(g_signal_pipe[1], &byte, 1);
  static_cast<void>(ignored);
}

bool catch_signals() {
  if (::pipe2(g_signal_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) return false;
  struct sigaction action {};
  action.sa_handler = note_signal;
  action.sa_flags = SA_RESTART;
  ::sigaction(SIGINT, &action, nullptr);
  ::sigaction(SIGTERM, &action, nullptr);
  return true;
}

// Ends the event loops of open dialogs, too.
void quit_without_questions() {
  for (const QPointer<MainWindow>& window : MainWindow::all()) {
    window->graph().set_QueryForSave(false);
  }
  QApplication::exit(0);
}

}  // namespace

int follow(const FollowRequest& request, const std::function<void(const std::string&)>& say) {
  if (is_graph_file(request.data_file)) {
    throw UserError("--follow reads tables, and " + in_quotes(request.data_file) +
                        " is a graph file, which does not grow; leave out --follow.",
                    kUsageFailure);
  }
  warn_of_commas(request.functions,
                 [&](const std::string& warning) { say("warning: " + warning); });
  const bool catches = catch_signals();
  const std::unique_ptr<QApplication> application = new_window_application();
  std::optional<QSocketNotifier> signalled;
  if (catches) {
    signalled.emplace(g_signal_pipe[0], QSocketNotifier::Read);
    QObject::connect(&*signalled, &QSocketNotifier::activated, quit_without_questions);
  }
  bool has_failed = false;
  auto* const window = new MainWindow(request.locale, say);
  try {
    auto* const follower = new Follower(*window, request, request.data_file, say);
    follower->failed = [&has_failed] { has_failed = true; };
    follower->start();
  } catch (...) {
    delete window;
    throw;
  }
  const KeptPlaces places;
  const int status = QApplication::exec();
  for (const QPointer<MainWindow>& left : MainWindow::all()) delete left.data();
  return status == 0 && has_failed ? kFailure : status;
}

}  // namespace kurv::app
