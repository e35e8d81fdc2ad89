#include "app/host_session.h"

#include <KurvGraph/automation.h>
#include <KurvGraph/fault.h>

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStorageInfo>
#include <cmath>
#include <iostream>
#include <new>
#include <utility>
#include <vector>

#include "app/graph_intake.h"
#include "app/host_values.h"
#include "app/picture_file.h"
#include "app/user_error.h"

namespace kurv::app {

namespace {

constexpr double kLeastScale = 0.1;
constexpr double kLargestScale = 8;
constexpr double kLargestDispatchId = 4294967295.0;

struct PromptedCommand {
  const char* name;
  PromptedSetting setting;
};

constexpr PromptedCommand kPromptedSettings[] = {
    {"marker size", PromptedSetting::kMarkerSize},
    {"left margin", PromptedSetting::kLeftMargin},
    {"right margin", PromptedSetting::kRightMargin},
    {"top margin", PromptedSetting::kTopMargin},
    {"bottom margin", PromptedSetting::kBottomMargin},
    {"x title", PromptedSetting::kXAxisTitle},
    {"axis font", PromptedSetting::kAxisFont},
    {"title font", PromptedSetting::kTitleFont},
    {"subtitle font", PromptedSetting::kSubtitleFont},
};

// A line that is not a request.
[[noreturn]] void refuse() {
  throw Fault(FaultKind::kInvalidProcedureCall);
}

double number_between(double least, const QJsonValue& value, double most) {
  if (!value.isDouble() || !(value.toDouble() >= least && value.toDouble() <= most)) refuse();
  return value.toDouble();
}

void need_true(const QJsonValue& value) {
  if (!value.isBool() || !value.toBool()) refuse();
}

Place place_from(const QJsonValue& json) {
  if (!json.isObject()) refuse();
  const QJsonObject entries = json.toObject();
  Place place;
  for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
    if (entry.key() == "width") {
      place.width = number_between(1, entry.value(), kLargestSide);
    } else if (entry.key() == "height") {
      place.height = number_between(1, entry.value(), kLargestSide);
    } else if (entry.key() == "scale") {
      place.scale = number_between(kLeastScale, entry.value(), kLargestScale);
    } else if (entry.key() == "design" && entry.value().isBool()) {
      place.design = entry.value().toBool();
    } else {
      refuse();
    }
  }
  return place;
}

// A member by its name in any letter case or by its dispatch identifier.
const Member& member_of(const QJsonValue& json) {
  const Member* found = nullptr;
  if (json.isString()) {
    const std::string name = json.toString().toStdString();
    found = find_member(std::string_view(name));
  } else {
    const double id = number_between(0, json, kLargestDispatchId);
    if (id == std::floor(id)) found = find_member(static_cast<std::uint32_t>(id));
  }
  if (found == nullptr) throw Fault(FaultKind::kNoSuchMember);
  return *found;
}

PromptedSetting setting_of(const QString& name) {
  for (const PromptedCommand& command : kPromptedSettings) {
    if (name == QLatin1String(command.name)) return command.setting;
  }
  refuse();
}

std::vector<Variant> arguments_of(const Member& method, const QJsonValue& json) {
  if (!json.isArray() && !json.isUndefined()) refuse();
  const QJsonArray values = json.toArray();
  check_count(method, static_cast<std::size_t>(values.size()));
  std::vector<Variant> arguments;
  for (const QJsonValue& value : values) {
    const std::size_t index = arguments.size();
    const Parameter& parameter = method.parameters[index];
    arguments.push_back(value.isNull() && parameter.optional ? Variant()
                                                             : from_json(value, parameter.type));
  }
  return arguments;
}

// Why a picture could not be written, as the platform tells it afterwards.
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
  if (!m_hosted) m_hosted = std::make_unique<HostedControl>(m_shell, Place());
  return *m_hosted;
}

// Whatever becomes of the question before the end, the control is gone afterwards.
void HostSession::end() {
  m_closed = true;
  const std::unique_ptr<HostedControl> ending = std::move(m_hosted);
  if (ending) ending->control().terminate();
}

HostSession::Result HostSession::place(const QJsonObject& request) {
  const Place wanted = place_from(request["place"]);
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
  let_property(control, member.dispatch_id, from_json(request["to"], member.type));
  return {};
}

HostSession::Result HostSession::call(const QJsonObject& request) {
  Control& control = hosted().control();
  const Member& method = member_of(request["call"]);
  if (method.kind != MemberKind::kMethod) throw Fault(FaultKind::kNoSuchMember);
  std::vector<Variant> arguments = arguments_of(method, request["args"]);
  const bool was_saved = bool(control.GraphSaved());
  call_method(control, method.dispatch_id, arguments);
  if (!was_saved && control.GraphSaved()) {
    warn_of_commas(control.functions(), [](const std::string& warning) {
      std::cerr << "kurv: warning: " << warning << '\n';
    });
  }
  return {};
}

HostSession::Result HostSession::answers(const QJsonObject& request) {
  hosted();
  if (!request["answers"].isArray()) refuse();
  m_shell.queue(request["answers"].toArray());
  return {};
}

HostSession::Result HostSession::show(const QJsonObject& request) {
  need_true(request["show"]);
  hosted().control().show();
  return {};
}

HostSession::Result HostSession::resize(const QJsonObject& request) {
  const QJsonArray size = request["resize"].toArray();
  if (size.size() != 2) refuse();
  hosted().resize(number_between(1, size[0], kLargestSide),
                  number_between(1, size[1], kLargestSide));
  return {};
}

HostSession::Result HostSession::pointer(const QJsonObject& request) {
  need_true(request["pointer"]);
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
  need_true(request["drawn"]);
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

HostSession::Result HostSession::close(const QJsonObject& request) {
  need_true(request["close"]);
  hosted();
  end();
  return {};
}

// The request that the object is: exactly one of the words, and nothing that does not belong to it.
const HostSession::Request* HostSession::request_in(const QJsonObject& object) {
  static constexpr Request kRequests[] = {
      {"answers", nullptr, &HostSession::answers},
      {"call", "args", &HostSession::call},
      {"close", nullptr, &HostSession::close},
      {"drawn", nullptr, &HostSession::drawn},
      {"get", nullptr, &HostSession::get},
      {"picture", nullptr, &HostSession::picture},
      {"place", nullptr, &HostSession::place},
      {"pointer", nullptr, &HostSession::pointer},
      {"prompt", "select", &HostSession::prompt},
      {"resize", nullptr, &HostSession::resize},
      {"set", "to", &HostSession::set},
      {"show", nullptr, &HostSession::show},
  };
  for (const Request& request : kRequests) {
    if (!object.contains(QLatin1String(request.word))) continue;
    for (const QString& key : object.keys()) {
      const bool known = key == QLatin1String(request.word) || key == "id" ||
                         (request.companion && key == QLatin1String(request.companion));
      if (!known) return nullptr;
    }
    return &request;
  }
  return nullptr;
}

// What the request came to; `object` is what the line held.
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
  const QJsonArray shown = m_shell.take_shown();
  if (!shown.isEmpty()) answer["shown"] = shown;
  const QJsonArray events = m_hosted ? m_hosted->container().take_events() : QJsonArray();
  if (!events.isEmpty()) answer["events"] = events;
  return QJsonDocument(answer).toJson(QJsonDocument::Compact);
}

void HostSession::finish() {
  end();
}

}  // namespace kurv::app
