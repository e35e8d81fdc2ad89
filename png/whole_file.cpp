#include "png/whole_file.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>

#include <KurvGraph/file_fault.h>

#include "io/platform_file.h"

namespace kurv {
namespace {

namespace fs = std::filesystem;

struct NewFile {
  fs::path path;
  File file;
};

// A new file in that folder, which nobody else has. It has no file where that fails, with errno
// set.
NewFile new_file_in(const fs::path& folder) {
  for (int number = 1;; ++number) {
    const fs::path path = folder / (".kurv~" + std::to_string(number));
    File file = open_file(path.string(), "wbx");
    if (file || errno != EEXIST) return {path, std::move(file)};
  }
}

bool write_bytes(NewFile& target, std::string_view bytes) {
  const bool is_written =
      std::fwrite(bytes.data(), 1, bytes.size(), target.file.get()) == bytes.size();
  const int error = errno;
  const bool is_closed = std::fclose(target.file.release()) == 0;
  if (!is_written) errno = error;
  return is_written && is_closed;
}

// The file that is written, which a link may name.
fs::path target_of(const String& path) {
  if (path.find('\0') != path.npos) throw FileFault(FaultKind::kPathFileAccessError, path);
  std::error_code error;
  const fs::path target = fs::weakly_canonical(path, error);
  if (error)
    throw FileFault(fault_of_error(error.value(), FaultKind::kPathFileAccessError).kind(), path);
  // A device would be replaced by a file.
  if (fs::exists(target, error) && !fs::is_regular_file(target, error)) {
    throw FileFault(FaultKind::kPathFileAccessError, path);
  }
  return target;
}

}  // namespace

void write_whole_file(const String& path, std::string_view bytes) {
  const fs::path target = target_of(path);
  NewFile made = new_file_in(target.parent_path());
  if (!made.file) throw FileFault(open_fault(target.string()).kind(), path);
  std::error_code error;
  if (!write_bytes(made, bytes)) {
    const FaultKind kind = transfer_fault().kind();
    fs::remove(made.path, error);
    throw FileFault(kind, path);
  }
  if (fs::exists(target, error)) {
    fs::permissions(made.path, fs::status(target, error).permissions(), error);
  }
  fs::rename(made.path, target, error);
  if (!error) return;
  const FaultKind kind = fault_of_error(error.value(), FaultKind::kPathFileAccessError).kind();
  fs::remove(made.path, error);
  throw FileFault(kind, path);
}

}  // namespace kurv
