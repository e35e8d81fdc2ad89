#include "io/platform_file.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace kurv {

namespace fs = std::filesystem;

// No stream buffer: the blocks that are transferred are large, and an error has to be reported by
// the call that causes it.
File open_file(const String& path, const char* mode) {
  // The platform would cut the name off there and open another file.
  if (path.find('\0') != path.npos) throw Fault(FaultKind::kPathFileAccessError);
  // Opening a pipe blocks until its other end is opened, which may never happen.
  std::error_code ignored;
  if (fs::is_fifo(path, ignored)) throw Fault(FaultKind::kPathFileAccessError);
  File file(std::fopen(path.c_str(), mode));
  if (file) std::setvbuf(file.get(), nullptr, _IONBF, 0);
  return file;
}

Fault fault_of_error(int error, FaultKind otherwise) {
  switch (error) {
    case ENOENT:
      return Fault(FaultKind::kFileNotFound);
    case ENOTDIR:
      return Fault(FaultKind::kPathNotFound);
    case EACCES:
    case EPERM:
    case EROFS:
      return Fault(FaultKind::kPermissionDenied);
    case EISDIR:
      return Fault(FaultKind::kPathFileAccessError);
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return Fault(FaultKind::kDiskFull);
    case ENOMEM:
      return Fault(FaultKind::kOutOfMemory);
    default:
      return Fault(otherwise);
  }
}

// Where a file does not exist, its folder may not exist either, which is another fault.
Fault open_fault(const String& path) {
  const int error = errno;
  const fs::path folder = fs::path(path).parent_path();
  std::error_code ignored;
  if (error == ENOENT && !folder.empty() && !fs::exists(folder, ignored)) {
    return Fault(FaultKind::kPathNotFound);
  }
  return fault_of_error(error, FaultKind::kPathFileAccessError);
}

Fault transfer_fault() {
  return fault_of_error(errno, FaultKind::kDeviceIoError);
}

}  // namespace kurv
