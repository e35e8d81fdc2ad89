// Whether somebody reads what the program writes to standard error.
#pragma once

namespace kurv::app {

// What standard error is written to.
enum class ErrorTarget {
  kNull,    // /dev/null, or nothing because it is closed
  kSocket,  // such as the journal of the desktop
  kPipe,
  kOther,  // such as a file
};

struct ProgramStart {
  // One of standard input, output and error is a terminal.
  bool has_terminal = false;
  ErrorTarget error = ErrorTarget::kOther;
  // The environment says that a desktop has started this very process, such as a file manager.
  bool by_desktop = false;
};

// As it is for this process.
ProgramStart program_start();

// False where errors belong into a window. A script or a test that reads a pipe never sees one.
bool has_error_reader(const ProgramStart& start);

// What of the environment says that a desktop has started the process with this number; the texts
// are nullptr where they are not set. `launched` is the number of the process that was started.
bool is_started_by_desktop(const char* launched, const char* startup_id,
                           const char* activation_token, long process);

}  // namespace kurv::app
