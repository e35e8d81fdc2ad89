#include "app/host/file_detail.h"

#include <KurvGraph/file_fault.h>

#include "app/host/host_fault.h"

namespace kurv::app {

namespace {

bool is_of_the_file_system(FaultKind kind) {
  return kind == FaultKind::kFileNotFound || kind == FaultKind::kDeviceIoError ||
         kind == FaultKind::kDiskFull || kind == FaultKind::kPermissionDenied ||
         kind == FaultKind::kPathFileAccessError || kind == FaultKind::kPathNotFound;
}

// What a text that is no graph causes.
bool is_of_the_contents(FaultKind kind) {
  return kind == FaultKind::kInputPastEnd || kind == FaultKind::kTypeMismatch ||
         kind == FaultKind::kOverflow || kind == FaultKind::kSubscriptOutOfRange;
}

}  // namespace

std::string unloadable_detail(const std::string& path, const Fault& fault) {
  if (path.empty()) return {};
  const std::string detail = quoted_path(path) + " cannot be loaded";
  if (is_of_the_file_system(fault.kind())) return detail;
  if (!is_of_the_contents(fault.kind())) return {};
  return detail + "; 'kurv info --check' lists its faults";
}

std::string unwritable_detail(const std::string& path, const Fault& fault) {
  if (path.empty() || !is_of_the_file_system(fault.kind())) return {};
  const std::string detail = quoted_path(path) + " cannot be written";
  const auto* const of_file = dynamic_cast<const FileFault*>(&fault);
  if (of_file == nullptr || of_file->path() == path) return detail;
  return detail + ", because " + quoted_path(of_file->path()) +
         " cannot be written; set TMPDIR to another folder for temporary files";
}

}  // namespace kurv::app
