// The run-time errors of the control.
//
// A fault is a programmer's or a platform's mistake, not something to tell a user: an index outside
// an array, a number that does not fit, a service that failed. It is thrown only by checked helpers
// and caught only at the outer edges; in between, whatever was written stays written.
#pragma once

#include <stdexcept>
#include <string>

namespace kurv {

// The values are the classic run-time error numbers, which hosts in other languages know.
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

// The classic text of a kind, such as "Subscript out of range".
const char* fault_text(FaultKind kind);

class Fault : public std::runtime_error {
 public:
  explicit Fault(FaultKind kind) : std::runtime_error(fault_text(kind)), m_kind(kind) {}

  FaultKind kind() const { return m_kind; }
  int number() const { return static_cast<int>(m_kind); }

 private:
  FaultKind m_kind;
};

}  // namespace kurv
