/// @file
/// The run-time errors of the control.
///
/// A fault is an error of a program or a platform, not of the user: an index outside an array, a
/// number that does not fit, a service that failed. It is thrown only by checked helpers and caught
/// only at the outer edges; what was written before it was thrown is not undone.
#pragma once

#include <KurvGraph/export.h>

#include <stdexcept>
#include <string>

namespace kurv {

/// The kinds of faults. The values are part of the interface: hosts receive a fault as its number.
enum class FaultKind : int {
  kInvalidProcedureCall = 5,  ///< an argument that is not accepted
  kOverflow = 6,              ///< a number that does not fit its type
  kOutOfMemory = 7,           ///< there is no memory for what was asked
  kSubscriptOutOfRange = 9,   ///< an index outside of an array
  kDivisionByZero = 11,       ///< the limits of an axis are equal, or NumTicks is 0
  kTypeMismatch = 13,         ///< a value that cannot be converted to its type
  kFileNotFound = 53,         ///< there is no such file
  kDeviceIoError = 57,        ///< reading or writing failed
  kDiskFull = 61,             ///< the device has no space left
  kInputPastEnd = 62,         ///< the file ends too early
  kPermissionDenied = 70,     ///< the file may not be read or written
  kPathFileAccessError = 75,  ///< the path names no regular file, or cannot be opened
  kPathNotFound = 76,         ///< there is no such folder
  kCannotCreateObject = 429,  ///< a service, a printer or a window cannot be made
  kNoSuchMember = 438,        ///< there is no such method or property
  kArgumentMissing = 449,     ///< an argument that is not optional was omitted
  kTooManyArguments = 450,    ///< there are more arguments than parameters
};

/// The English text of a kind, such as "Subscript out of range", which hosts and users are shown.
KURV_EXPORT const char* fault_text(FaultKind kind);

/// The exception that is thrown for a run-time error.
class KURV_EXPORT Fault : public std::runtime_error {
 public:
  /// A fault whose what() is fault_text(kind).
  explicit Fault(FaultKind kind) : std::runtime_error(fault_text(kind)), m_kind(kind) {}

  /// What has failed.
  FaultKind kind() const { return m_kind; }
  /// The kind as a number.
  int number() const { return static_cast<int>(m_kind); }

 private:
  FaultKind m_kind;
};

}  // namespace kurv
