// The program kurv: parses the command line, runs the command and returns the exit status.
//
// Messages go to standard error, one line each. The exit status is 0 when everything was done, 1
// when it was not, and 2 when the command line is wrong. Where nobody reads standard error, errors
// of a program that is to open windows are in a message box as well.

#include <KurvGraph/fault.h>

#include <cstdlib>
#include <iostream>
#include <new>
#include <string>
#include <variant>
#include <vector>

#include "app/base/message_text.h"
#include "app/base/standard_error_reader.h"
#include "app/base/user_error.h"
#include "app/command_line/command_line.h"
#include "app/command_line/eval_command.h"
#include "app/command_line/follow_command.h"
#include "app/command_line/info_command.h"
#include "app/command_line/render_command.h"
#include "app/command_line/window_command.h"
#include "app/host/host_command.h"

namespace {

using namespace kurv::app;

void say(const std::string& sentence) {
  std::cerr << "kurv: " << on_one_line(sentence) << '\n';
}

// Without arguments, the program opens a window on a desktop and prints its help elsewhere.
bool has_display() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    const char* const value = std::getenv(name);
    if (value != nullptr && *value != '\0') return true;
  }
  return false;
}

int run(int argc, char** argv, ErrorBox& box) {
  if (argc < 2 && !has_display()) {
    std::cerr << program_help();
    return kUsageFailure;
  }
  if (argc < 2) return open_windows({}, say, box);
  const Command command = parse_command_line(argc, argv);
  if (const Notice* notice = std::get_if<Notice>(&command)) {
    std::cout << notice->text;
    return 0;
  }
  const Warn warn = [](const std::string& warning) { say("warning: " + warning); };
  if (const InfoRequest* info = std::get_if<InfoRequest>(&command)) {
    return print_info(*info, std::cout);
  }
  if (std::holds_alternative<HostRequest>(command)) return run_host();
  if (const EvalRequest* eval = std::get_if<EvalRequest>(&command)) {
    if (eval->expression) {
      std::cout << evaluate(*eval->expression, eval->values) << '\n';
    } else {
      evaluate_lines(std::cin, std::cout);
    }
    return 0;
  }
  if (const FollowRequest* following = std::get_if<FollowRequest>(&command)) {
    return follow(*following, say);
  }
  if (const WindowRequest* windows = std::get_if<WindowRequest>(&command)) {
    return open_windows(*windows, say, box);
  }
  if (const ConvertRequest* conversion = std::get_if<ConvertRequest>(&command)) {
    convert(*conversion, warn);
    return 0;
  }
  render(std::get<RenderRequest>(command), warn);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const bool wants_box = !has_error_reader(program_start()) && !names_command(argc, argv);
  ErrorBox box(wants_box && has_display(),
               std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
  const auto end = [&box](const std::string& sentence, int status) {
    say(sentence);
    box.add(sentence);
    box.show_before_end(status);
    return status;
  };
  try {
    return run(argc, argv, box);
  } catch (const UserError& error) {
    return end(error.what(), error.exit_status());
  } catch (const std::bad_alloc&) {
    return end("there is not enough memory for this picture; make it smaller or the data fewer.",
               kFailure);
  }
}
