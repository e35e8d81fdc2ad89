// Opening files, and the faults for what the platform refuses: file or path not found, permission
// denied, path/file access error, disk full, device I/O error.
#pragma once

#include <cstdio>
#include <memory>

#include <KurvGraph/fault.h>
#include <KurvGraph/values.h>

namespace kurv {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// As std::fopen() does it, unbuffered; nothing where that fails, with errno set. Throws for a name
// with a NUL and for a pipe.
File open_file(const String& path, const char* mode);

// The fault for a value of errno; `otherwise` for the values that have none of their own.
Fault fault_of_error(int error, FaultKind otherwise);
// The fault for errno, after opening the file or after a transfer has failed.
Fault open_fault(const String& path);
Fault transfer_fault();

}  // namespace kurv
