#include "app/base/standard_error_reader.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace kurv::app {

namespace {

bool is_set(const char* value) {
  return value != nullptr && *value != '\0';
}

bool is_null_device(const struct stat& file) {
  struct stat null {};
  return S_ISCHR(file.st_mode) && stat("/dev/null", &null) == 0 && file.st_rdev == null.st_rdev;
}

ErrorTarget error_target() {
  struct stat file {};
  if (fstat(STDERR_FILENO, &file) != 0 || is_null_device(file)) return ErrorTarget::kNull;
  if (S_ISSOCK(file.st_mode)) return ErrorTarget::kSocket;
  return S_ISFIFO(file.st_mode) ? ErrorTarget::kPipe : ErrorTarget::kOther;
}

}  // namespace

ProgramStart program_start() {
  return {isatty(STDIN_FILENO) != 0 || isatty(STDOUT_FILENO) != 0 || isatty(STDERR_FILENO) != 0,
          error_target(),
          is_started_by_desktop(std::getenv("GIO_LAUNCHED_DESKTOP_FILE_PID"),
                                std::getenv("DESKTOP_STARTUP_ID"),
                                std::getenv("XDG_ACTIVATION_TOKEN"), static_cast<long>(getpid()))};
}

bool has_error_reader(const ProgramStart& start) {
  if (start.has_terminal || start.error == ErrorTarget::kPipe) return true;
  return start.error == ErrorTarget::kOther && !start.by_desktop;
}

// The number tells a process that was started from those that it starts itself: they inherit it.
bool is_started_by_desktop(const char* launched, const char* startup_id,
                           const char* activation_token, long process) {
  if (is_set(launched) && launched == std::to_string(process)) return true;
  return is_set(startup_id) || is_set(activation_token);
}

}  // namespace kurv::app
