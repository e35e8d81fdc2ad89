#include <KurvGraph/fault.h>

namespace kurv {

const char* fault_text(FaultKind kind) {
  switch (kind) {
    case FaultKind::kInvalidProcedureCall:
      return "Invalid procedure call or argument";
    case FaultKind::kOverflow:
      return "Overflow";
    case FaultKind::kOutOfMemory:
      return "Out of memory";
    case FaultKind::kSubscriptOutOfRange:
      return "Subscript out of range";
    case FaultKind::kDivisionByZero:
      return "Division by zero";
    case FaultKind::kTypeMismatch:
      return "Type mismatch";
    case FaultKind::kFileNotFound:
      return "File not found";
    case FaultKind::kDeviceIoError:
      return "Device I/O error";
    case FaultKind::kDiskFull:
      return "Disk full";
    case FaultKind::kInputPastEnd:
      return "Input past end of file";
    case FaultKind::kPermissionDenied:
      return "Permission denied";
    case FaultKind::kPathFileAccessError:
      return "Path/File access error";
    case FaultKind::kPathNotFound:
      return "Path not found";
    case FaultKind::kCannotCreateObject:
      return "Component can't create object";
    case FaultKind::kNoSuchMember:
      return "Object doesn't support this property or method";
    case FaultKind::kArgumentMissing:
      return "Argument not optional";
    case FaultKind::kTooManyArguments:
      return "Wrong number of arguments or invalid property assignment";
  }
  // A service that a host registered may raise a number of its own.
  return "Unknown error";
}

}  // namespace kurv
