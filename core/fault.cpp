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
    case FaultKind::kNoSuchMember:
      return "Object doesn't support this property or method";
  }
  // A service that a host registered may raise a number of its own.
  return "Unknown error";
}

}  // namespace kurv
