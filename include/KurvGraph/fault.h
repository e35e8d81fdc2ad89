// The run-time errors of the control.
//
// A fault is an error of a program or a platform, not of the user: an index outside an array, a
// number that does not fit, a service that failed. It is thrown only by checked helpers and caught
// only at the outer edges; what was written before it was thrown is not undone.
#pragma once

#include <KurvGraph/export.h>

#include <stdexcept>
#include <string>

namespace kurv {

// The values are part of the interface: hosts receive a fault as its number.
enum class FaultKind : int {
  kInvalidProcedureCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kSubscriptOutOfRange = 9,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kFileNotFound = 53,
  kDeviceIoError = 57,
  kDiskFull = 61,
  kInputPastEnd = 62,
  kPermissionDenied = 70,
  kPathFileAccessError = 75,
  kPathNotFound = 76,
  kCannotCreateObject = 429,
  kNoSuchMember = 438,
  kArgumentMissing = 449,
  kTooManyArguments = 450,
};

// The English text of a kind, such as "Subscript out of range", which hosts and users are shown.
KURV_EXPORT const char* fault_text(FaultKind kind);

class KURV_EXPORT Fault : public std::runtime_error {
 public:
  explicit Fault(FaultKind kind) : std::runtime_error(fault_text(kind)), m_kind(kind) {}

  FaultKind kind() const { return m_kind; }
  int number() const { return static_cast<int>(m_kind); }

 private:
  FaultKind m_kind;
};

}  // namespace kurv
