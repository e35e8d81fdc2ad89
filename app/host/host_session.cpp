#include "app/host/host_session.h"

#include <KurvGraph/automation.h>
#include <KurvGraph/fault.h>

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStorageInfo>
#include <array>
#include <iostream>
#include <iterator>
#include <new>
#include <utility>
#include <vector>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/graph/graph_intake.h"
#include "app/graph/picture_file.h"
#include "app/host/file_detail.h"
#include "app/host/host_fault.h"
#include "app/host/host_shapes.h"
#include "app/host/host_values.h"
#include "app/host/json_error.h"
#include "app/host/value_detail.h"

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

QJsonObject failure(int number, const char* text, const std::string& detail) {
  QJsonObject error{{"number", number}, {"text", text}};
  if (!detail.empty()) error["detail"] = QString::fromStdString(detail);
  return {{"ok", false}, {"error", error}};
}

// Throws HostFault for a line that is no object.
QJsonObject object_in(const QByteArray& line) {
  QJsonParseError error;
  const QJsonDocument document = QJsonDocument::fromJson(line, &error);
  if (error.error != QJsonParseError::NoError) refuse(json_error(line));
  if (document.isObject()) return document.object();
  refuse(R"(a request is an object such as {"get":"Title"}, not an array)");
}

[[noreturn]] void refuse_prompt(const QString& name) {
  const std::string meant = suggestion(name, prompt_names());
  refuse(quote(name) + " is no prompt" +
         (meant.empty() ? "; prompts are " + listed(prompt_names()) : meant));
}

// Why a redraw has divided by zero.
std::string division_detail(const Control& control) {
  if (control.NumTicks() == 0) return "'NumTicks' is 0";
  if (control.xmin() == control.xmax()) return "'xmin' and 'xmax' are equal";
  if (control.ymin() == control.ymax()) return "'ymin' and 'ymax' are equal";
  return {};
}

}  // namespace

HostedControl& HostSession::hosted() {
  if (m_closed) refuse("the control is closed; 'place' makes a new one");
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

// As end(), with a detail that names the file.
void HostSession::end_by_request() {
  const std::string own_file = m_hosted ? m_hosted->control().FileName() : String();
  static_cast<void>(m_shell.take_chosen_file());
  with_detail([&] { end(); },
              [&](const Fault& fault) { return unwritable_detail(written_file(own_file), fault); });
}

// The file that was written to since the choice was forgotten.
std::string HostSession::written_file(const std::string& own_file) {
  return own_file.empty() ? m_shell.take_chosen_file() : own_file;
}

HostSession::Result HostSession::place(const QJsonObject& request) {
  const Placement wanted = placement_from(request["place"]);
  end_by_request();
  m_hosted = std::make_unique<HostedControl>(m_shell, wanted);
  m_closed = false;
  return {};
}

HostSession::Result HostSession::get(const QJsonObject& request) {
  const Control& control = hosted().control();
  const Member& property = member_of(request, "get", MemberKind::kProperty);
  return to_json(get_property(control, property.dispatch_id));
}

HostSession::Result HostSession::set(const QJsonObject& request) {
  Control& control = hosted().control();
  const Member& property = member_of(request, "set", MemberKind::kProperty);
  if (!request.contains("to")) throw HostFault(FaultKind::kArgumentMissing, "'to' is missing");
  const QJsonValue json = request["to"];
  const auto store = [&] {
    const Variant value = from_json(json, property.type);
    if (property.name.ends_with("FontSize")) static_cast<void>(font_size_from(value));
    set_property(control, property.dispatch_id, value);
  };
  with_detail(store, [&](const Fault&) { return property_detail(property, json); });
  return {};
}

HostSession::Result HostSession::call(const QJsonObject& request) {
  Control& control = hosted().control();
  const Member& method = member_of(request, "call", MemberKind::kMethod);
  std::vector<Variant> arguments = arguments_of(method, request["args"]);
  const std::string own_file = control.FileName();
  static_cast<void>(m_shell.take_chosen_file());
  with_detail([&] { call_method(control, method.dispatch_id, arguments); },
              [&](const Fault& fault) {
                return call_detail(method, request["args"].toArray(), own_file, fault);
              });
  return {};
}

// Why a method has failed. Its body has not run where an argument is not taken.
std::string HostSession::call_detail(const Member& method, const QJsonArray& arguments,
                                     const std::string& own_file, const Fault& fault) {
  const std::string detail = argument_detail(method, arguments);
  if (!detail.empty()) return detail;
  const std::string text = arguments.first().toString().toStdString();
  if (method.name == "file_load") return unloadable_detail(text, fault);
  if (method.name == "ChartOptions" && text == "open") {
    return unloadable_detail(m_shell.take_chosen_file(), fault);
  }
  if (method.name == "ChartOptions" && text == "saveas") {
    return unwritable_detail(m_shell.take_chosen_file(), fault);
  }
  if (fault.kind() == FaultKind::kCannotCreateObject) {
    return "there is no printer on a pipe; use 'picture'";
  }
  if (fault.kind() == FaultKind::kSubscriptOutOfRange) return array_size_detail(method, arguments);
  return unwritable_detail(written_file(own_file), fault);
}

HostSession::Result HostSession::answers(const QJsonObject& request) {
  hosted();
  const QJsonValue queued = request["answers"];
  if (!queued.isArray()) refuse("'answers' takes an array, not " + shown(queued));
  m_shell.queue(queued.toArray());
  return {};
}

HostSession::Result HostSession::show(const QJsonObject& request) {
  require_true(request, "show");
  hosted().control().show();
  return {};
}

HostSession::Result HostSession::resize(const QJsonObject& request) {
  const HostSize size = size_from(request["resize"]);
  hosted().resize(size.width, size.height);
  return {};
}

HostSession::Result HostSession::pointer(const QJsonObject& request) {
  require_true(request, "pointer");
  return QJsonValue(hosted().container().pointer());
}

HostSession::Result HostSession::picture(const QJsonObject& request) {
  const QJsonValue json = request["picture"];
  if (!json.isString()) refuse("'picture' takes the path of a file, not " + shown(json));
  const std::string path = json.toString().toStdString();
  const std::optional<PictureFormat> format = picture_format(path);
  if (!format) refuse(quote(path) + " does not end in " + picture_extensions());
  const QByteArray bytes = hosted().picture(*format);
  try {
    write_picture(bytes, path);
  } catch (const UserError&) {
    const Fault fault = unwritable(QFileInfo(QString::fromStdString(path)));
    throw HostFault(fault.kind(), unwritable_detail(path, fault));
  }
  return {};
}

HostSession::Result HostSession::drawn(const QJsonObject& request) {
  require_true(request, "drawn");
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
  const QString name = text_from(request, "prompt");
  const bool is_edit = name == "edit function";
  // Without it nothing is selected.
  const bool is_selected = request.contains("select");
  if (is_selected && !is_edit) refuse("'select' belongs to 'edit function' alone");
  const QString selected = is_selected ? text_from(request, "select") : QString();
  const std::optional<PromptedSetting> setting = setting_of(name);
  Control& control = hosted().control();
  if (is_edit) {
    control.edit_function(selected.toStdString());
  } else if (name == "add function") {
    control.add_function();
  } else if (name == "derive") {
    control.add_derived_curve();
  } else if (setting) {
    control.prompt(*setting);
  } else {
    refuse_prompt(name);
  }
  return {};
}

HostSession::Result HostSession::undo(const QJsonObject& request) {
  require_true(request, "undo");
  Control& control = hosted().control();
  const std::optional<String> step = control.undo_text();
  control.undo();
  return step ? QJsonValue(QString::fromStdString(*step)) : QJsonValue();
}

HostSession::Result HostSession::redo(const QJsonObject& request) {
  require_true(request, "redo");
  Control& control = hosted().control();
  const std::optional<String> step = control.redo_text();
  control.redo();
  return step ? QJsonValue(QString::fromStdString(*step)) : QJsonValue();
}

HostSession::Result HostSession::mouse(const QJsonObject& request) {
  const QString what = text_from(request, "mouse");
  const Integer button = integer_from(request, "button", 1);
  const Integer shift = integer_from(request, "shift", 0);
  const SurfacePoint at = point_from(request, "at");
  Control& control = hosted().control();
  if (what == "down") {
    control.press_mouse(button, shift, at.x, at.y);
  } else if (what == "up") {
    control.release_mouse(button, shift, at.x, at.y);
  } else if (what == "double") {
    control.double_click(at.x, at.y);
  } else {
    refuse("'mouse' takes 'down', 'up' or 'double', not " + quote(what));
  }
  return {};
}

HostSession::Result HostSession::drag(const QJsonObject& request) {
  const std::optional<Item> item = item_of(text_from(request, "drag"));
  const SurfacePoint grab = point_from(request, "grab");
  const SurfacePoint drop = point_from(request, "drop");
  const QString on = request.contains("on") ? text_from(request, "on") : QString();
  Control& control = hosted().control();
  const std::optional<Item> target = item_of(on);
  // An unknown item is ignored, but an unknown target is an error even then.
  if (!target && !on.isEmpty()) {
    refuse("'on' takes 'legend', 'Title' or 'SubTitle', not " + quote(on));
  }
  if (item) control.drag(*item, grab, drop, target);
  return {};
}

HostSession::Result HostSession::close(const QJsonObject& request) {
  require_true(request, "close");
  hosted();
  end_by_request();
  return {};
}

const HostSession::Request& HostSession::request_of(const QJsonObject& object) {
  static constexpr Request kRequests[] = {
      {{"answers", {}}, &HostSession::answers},
      {{"call", {"args"}}, &HostSession::call},
      {{"close", {}}, &HostSession::close},
      {{"drag", {"grab", "drop", "on"}}, &HostSession::drag},
      {{"drawn", {}}, &HostSession::drawn},
      {{"get", {}}, &HostSession::get},
      {{"mouse", {"at", "button", "shift"}}, &HostSession::mouse},
      {{"picture", {}}, &HostSession::picture},
      {{"place", {}}, &HostSession::place},
      {{"pointer", {}}, &HostSession::pointer},
      {{"prompt", {"select"}}, &HostSession::prompt},
      {{"redo", {}}, &HostSession::redo},
      {{"resize", {}}, &HostSession::resize},
      {{"set", {"to"}}, &HostSession::set},
      {{"show", {}}, &HostSession::show},
      {{"undo", {}}, &HostSession::undo},
  };
  static constexpr auto kKeys = [] {
    std::array<RequestKeys, std::size(kRequests)> keys{};
    for (std::size_t i = 0; i < keys.size(); ++i) keys[i] = kRequests[i].keys;
    return keys;
  }();
  return kRequests[request_in(object, kKeys)];
}

// Runs the request in the line and returns the answer to it; `object` becomes the parsed line.
QJsonObject HostSession::outcome(const QByteArray& line, QJsonObject& object) {
  try {
    object = object_in(line);
    const Request& request = request_of(object);
    QJsonObject answer{{"ok", true}};
    if (const Result result = (this->*request.run)(object)) answer["result"] = *result;
    return answer;
  } catch (const HostFault& fault) {
    return failure(fault.number(), fault.what(), fault.detail());
  } catch (const Fault& fault) {
    const bool is_redraw = m_hosted && fault.kind() == FaultKind::kDivisionByZero;
    const std::string detail = is_redraw ? division_detail(m_hosted->control()) : std::string();
    return failure(fault.number(), fault.what(), detail);
  } catch (const std::bad_alloc&) {
    constexpr FaultKind kKind = FaultKind::kOutOfMemory;
    return failure(static_cast<int>(kKind), fault_text(kKind), {});
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
