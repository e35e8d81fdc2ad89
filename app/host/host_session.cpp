#include "app/host/host_session.h"

#include <KurvGraph/automation.h>
#include <KurvGraph/fault.h>
#include <KurvGraph/limits.h>

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStorageInfo>
#include <algorithm>
#include <iostream>
#include <new>
#include <utility>
#include <vector>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/graph/graph_intake.h"
#include "app/graph/picture_file.h"
#include "app/host/host_shapes.h"
#include "app/host/host_values.h"

namespace kurv::app {

namespace {

// Why a picture could not be written, found out from the file system afterwards.
Fault unwritable(const QFileInfo& file) {
  const QFileInfo folder(file.absolutePath());
  if (!folder.exists()) return Fault(FaultKind::kPathNotFound);
  if (file.isDir() || !folder.isDir()) return Fault(FaultKind::kPathFileAccessError);
  if (!folder.isWritable()) return Fault(FaultKind::kPermissionDenied);
  const QStorageInfo disk(folder.absoluteFilePath());
  return Fault(disk.bytesAvailable() == 0 ? FaultKind::kDiskFull : FaultKind::kDeviceIoError);
}

QJsonObject failure(int number, const char* text) {
  return {{"ok", false}, {"error", QJsonObject{{"number", number}, {"text", text}}}};
}

}  // namespace

HostedControl& HostSession::hosted() {
  if (m_closed) refuse();
  if (!m_hosted) m_hosted = std::make_unique<HostedControl>(m_shell, Placement());
  return *m_hosted;
}

// The control is destroyed even where its last save fails.
void HostSession::end() {
  m_closed = true;
  const std::unique_ptr<HostedControl> ending = std::move(m_hosted);
  if (!ending) return;
  ending->control().terminate();
  take_warnings(*ending);
}

// What a graph file that was just written does not keep is for the answer and for a terminal.
void HostSession::take_warnings(HostedControl& hosted) {
  for (const std::string& warning : hosted.take_warnings()) {
    std::cerr << "kurv: warning: " << on_one_line(warning) << '\n';
    m_warnings.append(QString::fromStdString(warning));
  }
}

HostSession::Result HostSession::place(const QJsonObject& request) {
  const Placement wanted = placement_from(request["place"]);
  end();
  m_hosted = std::make_unique<HostedControl>(m_shell, wanted);
  m_closed = false;
  return {};
}

HostSession::Result HostSession::get(const QJsonObject& request) {
  const Control& control = hosted().control();
  return to_json(get_property(control, member_of(request["get"]).dispatch_id));
}

HostSession::Result HostSession::set(const QJsonObject& request) {
  Control& control = hosted().control();
  const Member& member = member_of(request["set"]);
  if (member.kind != MemberKind::kProperty) throw Fault(FaultKind::kNoSuchMember);
  if (!request.contains("to")) throw Fault(FaultKind::kArgumentMissing);
  const Variant value = from_json(request["to"], member.type);
  if (member.name.ends_with("FontSize")) static_cast<void>(font_size_from(value));
  set_property(control, member.dispatch_id, value);
  return {};
}

HostSession::Result HostSession::call(const QJsonObject& request) {
  Control& control = hosted().control();
  const Member& method = member_of(request["call"]);
  if (method.kind != MemberKind::kMethod) throw Fault(FaultKind::kNoSuchMember);
  std::vector<Variant> arguments = arguments_of(method, request["args"]);
  call_method(control, method.dispatch_id, arguments);
  return {};
}

HostSession::Result HostSession::answers(const QJsonObject& request) {
  hosted();
  if (!request["answers"].isArray()) refuse();
  m_shell.queue(request["answers"].toArray());
  return {};
}

HostSession::Result HostSession::show(const QJsonObject& request) {
  require_true(request["show"]);
  hosted().control().show();
  return {};
}

HostSession::Result HostSession::resize(const QJsonObject& request) {
  const QJsonArray size = request["resize"].toArray();
  if (size.size() != 2) refuse();
  hosted().resize(number_between(1, size[0], kMaxSide), number_between(1, size[1], kMaxSide));
  return {};
}

HostSession::Result HostSession::pointer(const QJsonObject& request) {
  require_true(request["pointer"]);
  return QJsonValue(hosted().container().pointer());
}

HostSession::Result HostSession::picture(const QJsonObject& request) {
  const std::string path = request["picture"].toString().toStdString();
  const std::optional<PictureFormat> format = picture_format(path);
  if (!format) refuse();
  const QByteArray bytes = hosted().picture(*format);
  try {
    write_picture(bytes, path);
  } catch (const UserError&) {
    throw unwritable(QFileInfo(QString::fromStdString(path)));
  }
  return {};
}

HostSession::Result HostSession::drawn(const QJsonObject& request) {
  require_true(request["drawn"]);
  QJsonArray lines;
  const std::string_view log = hosted().drawn();
  for (std::size_t start = 0; start < log.size();) {
    const std::size_t end = log.find('\n', start);
    lines.append(QString::fromUtf8(log.data() + start, static_cast<qsizetype>(end - start)));
    start = end + 1;
  }
  return QJsonValue(lines);
}

HostSession::Result HostSession::prompt(const QJsonObject& request) {
  const QString name = request["prompt"].toString();
  const bool is_edit = name == "edit function";
  const QJsonValue selected = request["select"];
  // Without it nothing is selected.
  if (!selected.isUndefined() && !(is_edit && selected.isString())) refuse();
  Control& control = hosted().control();
  if (is_edit) {
    control.edit_function(selected.toString().toStdString());
  } else if (name == "add function") {
    control.add_function();
  } else if (name == "derive") {
    control.add_derived_curve();
  } else {
    control.prompt(setting_of(name));
  }
  return {};
}

HostSession::Result HostSession::mouse(const QJsonObject& request) {
  const QString what = text_from(request["mouse"]);
  const Integer button = integer_from(request["button"], 1);
  const Integer shift = integer_from(request["shift"], 0);
  const SurfacePoint at = point_from(request["at"]);
  Control& control = hosted().control();
  if (what == "down") {
    control.press_mouse(button, shift, at.x, at.y);
  } else if (what == "up") {
    control.release_mouse(button, shift, at.x, at.y);
  } else if (what == "double") {
    control.double_click(at.x, at.y);
  } else {
    refuse();
  }
  return {};
}

HostSession::Result HostSession::drag(const QJsonObject& request) {
  const std::optional<Item> item = item_of(text_from(request["drag"]));
  const SurfacePoint grab = point_from(request["grab"]);
  const SurfacePoint drop = point_from(request["drop"]);
  const QString on = request.contains("on") ? text_from(request["on"]) : QString();
  Control& control = hosted().control();
  const std::optional<Item> target = item_of(on);
  // An unknown item is ignored, but an unknown target is an error even then.
  if (!target && !on.isEmpty()) refuse();
  if (item) control.drag(*item, grab, drop, target);
  return {};
}

HostSession::Result HostSession::close(const QJsonObject& request) {
  require_true(request["close"]);
  hosted();
  end();
  return {};
}

bool HostSession::Request::has_companion(const QString& key) const {
  return std::any_of(companions.begin(), companions.end(), [&key](const char* companion) {
    return companion && key == QLatin1String(companion);
  });
}

// The request that the object holds: exactly one of the words, and no key that it does not have.
const HostSession::Request* HostSession::request_in(const QJsonObject& object) {
  static constexpr Request kRequests[] = {
      {"answers", {}, &HostSession::answers},
      {"call", {"args"}, &HostSession::call},
      {"close", {}, &HostSession::close},
      {"drag", {"grab", "drop", "on"}, &HostSession::drag},
      {"drawn", {}, &HostSession::drawn},
      {"get", {}, &HostSession::get},
      {"mouse", {"at", "button", "shift"}, &HostSession::mouse},
      {"picture", {}, &HostSession::picture},
      {"place", {}, &HostSession::place},
      {"pointer", {}, &HostSession::pointer},
      {"prompt", {"select"}, &HostSession::prompt},
      {"resize", {}, &HostSession::resize},
      {"set", {"to"}, &HostSession::set},
      {"show", {}, &HostSession::show},
  };
  for (const Request& request : kRequests) {
    if (!object.contains(QLatin1String(request.word))) continue;
    const QStringList keys = object.keys();
    const auto is_known = [&request](const QString& key) {
      return key == QLatin1String(request.word) || key == "id" || request.has_companion(key);
    };
    return std::all_of(keys.begin(), keys.end(), is_known) ? &request : nullptr;
  }
  return nullptr;
}

// Runs the request in the line and returns the answer to it; `object` becomes the parsed line.
QJsonObject HostSession::outcome(const QByteArray& line, QJsonObject& object) {
  try {
    const QJsonDocument document = QJsonDocument::fromJson(line);
    if (!document.isObject()) refuse();
    object = document.object();
    const Request* request = request_in(object);
    if (request == nullptr) refuse();
    QJsonObject answer{{"ok", true}};
    if (const Result result = (this->*request->run)(object)) answer["result"] = *result;
    return answer;
  } catch (const Fault& fault) {
    return failure(fault.number(), fault.what());
  } catch (const std::bad_alloc&) {
    return failure(static_cast<int>(FaultKind::kOutOfMemory), fault_text(FaultKind::kOutOfMemory));
  }
}

QByteArray HostSession::answer(const QByteArray& line) {
  QJsonObject object;
  QJsonObject answer = outcome(line, object);
  if (object.contains("id")) answer["id"] = object["id"];
  if (m_hosted) take_warnings(*m_hosted);
  const QJsonArray warnings = std::exchange(m_warnings, {});
  if (!warnings.isEmpty()) answer["warnings"] = warnings;
  const QJsonArray shown = m_shell.take_shown();
  if (!shown.isEmpty()) answer["shown"] = shown;
  const QJsonArray events = m_hosted ? m_hosted->container().take_events() : QJsonArray();
  if (!events.isEmpty()) answer["events"] = events;
  return QJsonDocument(answer).toJson(QJsonDocument::Compact);
}

// The graph is saved to the file that it has, or else to one that is chosen in a dialog.
void HostSession::finish() {
  if (!m_hosted) return;
  const std::string own_file = m_hosted->control().FileName();
  static_cast<void>(m_shell.take_chosen_file());
  try {
    end();
  } catch (const Fault& fault) {
    throw unwritable_graph_file(own_file.empty() ? m_shell.take_chosen_file() : own_file, fault);
  }
}

}  // namespace kurv::app
