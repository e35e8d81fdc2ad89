// Errors of a request with the detail that names their cause, and the words that details are made
// of. Texts of the request are quoted, cut where they are long, and stay on one line.
#pragma once

#include <KurvGraph/fault.h>

#include <QJsonValue>
#include <QString>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace kurv::app {

// A fault that says more than its text does: one phrase without a full stop.
class HostFault final : public Fault {
 public:
  HostFault(FaultKind kind, const std::string& detail)
      : Fault(kind), m_detail(std::make_shared<const std::string>(detail)) {}

  const std::string& detail() const { return *m_detail; }

 private:
  std::shared_ptr<const std::string> m_detail;  // shared, so that copying does not throw
};

// For what is not a request: throws kInvalidProcedureCall.
[[noreturn]] void refuse(const std::string& detail);

std::string quote(std::string_view text);
std::string quote(const QString& text);
inline std::string quote(const char* text) {
  return quote(std::string_view(text));
}
// The path as a whole.
std::string quoted_path(std::string_view path);
// A value in a few words: 'text', 12, true, null, an array, an object.
std::string shown(const QJsonValue& value);
// 'a', 'b' and 'c'.
std::string listed(std::span<const std::string_view> names);
// "; did you mean 'Title'?", or nothing where no name is near.
std::string suggestion(const QString& misspelt, std::span<const std::string_view> names);

// Runs `work`. A fault without a detail gets the one that detail_of(fault) returns, unless that is
// empty.
template <class Work, class DetailOf>
auto with_detail(const Work& work, const DetailOf& detail_of) {
  try {
    return work();
  } catch (const HostFault&) {
    throw;
  } catch (const Fault& fault) {
    const std::string detail = detail_of(fault);
    if (detail.empty()) throw;
    throw HostFault(fault.kind(), detail);
  }
}

}  // namespace kurv::app
