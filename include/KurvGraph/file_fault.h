/// @file
/// A run-time error that is about a file, with the file.
#pragma once

#include <memory>
#include <string>

#include <KurvGraph/fault.h>

namespace kurv {

/// Thrown by a widget's member where the graph's file, or one that the user has chosen in a dialog,
/// cannot be read or written. A host that does not need the name catches Fault.
class KURV_EXPORT FileFault final : public Fault {
 public:
  /// A fault of that kind about the file.
  FileFault(FaultKind kind, const std::string& path)
      : Fault(kind), m_path(std::make_shared<const std::string>(path)) {}

  /// The path of the file, as it was named.
  const std::string& path() const { return *m_path; }

 private:
  std::shared_ptr<const std::string> m_path;  // shared, so that copying does not throw
};

}  // namespace kurv
