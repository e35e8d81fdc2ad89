// The control on a pipe: one JSON object a line in, one a line out.
#pragma once

#include <KurvGraph/automation.h>
#include <KurvGraph/fault.h>

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <memory>
#include <optional>
#include <string>

#include "app/host/host_desktop.h"
#include "app/host/host_requests.h"
#include "app/host/hosted_control.h"

namespace kurv::app {

// Answers requests in the order in which they come. One that fails is answered with its error, and
// the session goes on. Needs a QGuiApplication.
class HostSession {
 public:
  // One line without its end; so is the answer.
  QByteArray answer(const QByteArray& line);
  // The end of the input: the control is terminated as a host would do it. Throws UserError when
  // the graph was to be saved then and could not be.
  void finish();

 private:
  using Result = std::optional<QJsonValue>;
  struct Request {
    RequestKeys keys;
    Result (HostSession::*run)(const QJsonObject&);
  };

  static const Request& request_of(const QJsonObject& object);
  QJsonObject outcome(const QByteArray& line, QJsonObject& object);

  // One handler for each request. Returns the result where it has one; throws Fault.
  Result answers(const QJsonObject& request);
  Result call(const QJsonObject& request);
  Result close(const QJsonObject& request);
  Result drag(const QJsonObject& request);
  Result drawn(const QJsonObject& request);
  Result get(const QJsonObject& request);
  Result mouse(const QJsonObject& request);
  Result picture(const QJsonObject& request);
  Result place(const QJsonObject& request);
  Result pointer(const QJsonObject& request);
  Result prompt(const QJsonObject& request);
  Result redo(const QJsonObject& request);
  Result resize(const QJsonObject& request);
  Result set(const QJsonObject& request);
  Result show(const QJsonObject& request);
  Result undo(const QJsonObject& request);

  // The control, which the first request places with default values. Refuses after its end.
  HostedControl& hosted();
  void end();
  void end_by_request();
  std::string call_detail(const Member& method, const QJsonArray& arguments,
                          const std::string& own_file, const Fault& fault);
  std::string written_file(const std::string& own_file);
  void take_warnings(HostedControl& hosted);

  HostShell m_shell;
  std::unique_ptr<HostedControl> m_hosted;
  bool m_closed = false;
  QJsonArray m_warnings;  // for the next answer
};

}  // namespace kurv::app
