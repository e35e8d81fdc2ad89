#include "app/host/host_shapes.h"

#include <KurvGraph/fault.h>
#include <KurvGraph/limits.h>

#include <QJsonArray>
#include <QJsonObject>
#include <cmath>

#include "app/host/host_values.h"

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

}  // namespace

void refuse() {
  throw Fault(FaultKind::kInvalidProcedureCall);
}

double number_between(double least, const QJsonValue& value, double most) {
  if (!value.isDouble() || !(value.toDouble() >= least && value.toDouble() <= most)) refuse();
  return value.toDouble();
}

void require_true(const QJsonValue& value) {
  if (!value.isBool() || !value.toBool()) refuse();
}

Placement placement_from(const QJsonValue& json) {
  if (!json.isObject()) refuse();
  const QJsonObject entries = json.toObject();
  Placement placement;
  for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
    if (entry.key() == "width") {
      placement.width = number_between(1, entry.value(), kMaxSide);
    } else if (entry.key() == "height") {
      placement.height = number_between(1, entry.value(), kMaxSide);
    } else if (entry.key() == "scale") {
      placement.scale = number_between(kLeastScale, entry.value(), kLargestScale);
    } else if (entry.key() == "design" && entry.value().isBool()) {
      placement.design = entry.value().toBool();
    } else {
      refuse();
    }
  }
  return placement;
}

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

std::optional<Item> item_of(const QString& tag) {
  if (tag == "legend") return Item::kLegend;
  if (tag == "Title") return Item::kTitle;
  if (tag == "SubTitle") return Item::kSubTitle;
  return std::nullopt;
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

QString text_from(const QJsonValue& json) {
  if (!json.isString()) refuse();
  return json.toString();
}

Integer integer_from(const QJsonValue& json, Integer otherwise) {
  if (json.isUndefined()) return otherwise;
  if (!json.isDouble()) refuse();
  return to_integer(json.toDouble());
}

SurfacePoint point_from(const QJsonValue& json) {
  const QJsonArray numbers = json.toArray();
  if (numbers.size() != 2 || !numbers[0].isDouble() || !numbers[1].isDouble()) refuse();
  return {to_single(Variant(numbers[0].toDouble())), to_single(Variant(numbers[1].toDouble()))};
}

}  // namespace kurv::app
