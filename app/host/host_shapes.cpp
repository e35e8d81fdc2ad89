#include "app/host/host_shapes.h"

#include <KurvGraph/fault.h>
#include <KurvGraph/limits.h>

#include <QJsonArray>
#include <QJsonObject>
#include <array>
#include <cmath>
#include <iterator>

#include "app/host/host_fault.h"
#include "app/host/host_values.h"
#include "app/host/value_detail.h"

namespace kurv::app {

namespace {

constexpr double kLeastScale = 0.1;
constexpr double kLargestScale = 8;
constexpr double kLargestDispatchId = 4294967295.0;

struct PromptedCommand {
  std::string_view name;
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
constexpr std::string_view kPromptedCommands[] = {"add function", "edit function", "derive"};
constexpr std::string_view kPlacementKeys[] = {"width", "height", "scale", "design"};

constexpr auto kPromptNames = [] {
  std::array<std::string_view, std::size(kPromptedSettings) + std::size(kPromptedCommands)> names;
  auto name = names.begin();
  for (const PromptedCommand& command : kPromptedSettings) *name++ = command.name;
  for (const std::string_view command : kPromptedCommands) *name++ = command;
  return names;
}();

[[noreturn]] void refuse_value(const std::string& name, const char* wanted,
                               const QJsonValue& json) {
  refuse(name + " takes " + wanted + ", not " + shown(json));
}

[[noreturn]] void no_such_member(const std::string& detail) {
  throw HostFault(FaultKind::kNoSuchMember, detail);
}

// An array is shown with its length.
[[noreturn]] void refuse_pair(const std::string& takes, const QJsonValue& json) {
  const std::string length =
      json.isArray() ? " of " + std::to_string(json.toArray().size()) : std::string();
  refuse(takes + ", not " + shown(json) + length);
}

std::vector<std::string_view> names_of(MemberKind kind) {
  std::vector<std::string_view> names;
  for (const Member& member : members()) {
    if (member.kind == kind) names.push_back(member.name);
  }
  return names;
}

Single coordinate(const std::string& name, double value) {
  return with_detail([&] { return to_single(Variant(value)); },
                     [&](const Fault&) { return name + " is too large: " + shown(value); });
}

}  // namespace

double number_between(const std::string& name, double least, const QJsonValue& value, double most) {
  if (!value.isDouble() || !(value.toDouble() >= least && value.toDouble() <= most)) {
    refuse(name + " takes a number from " + shown(least) + " to " + shown(most) + ", not " +
           shown(value));
  }
  return value.toDouble();
}

void require_true(const QJsonObject& request, const char* key) {
  const QJsonValue value = request[QLatin1String(key)];
  if (!value.isBool() || !value.toBool()) refuse_value(quote(key), "true", value);
}

HostSize size_from(const QJsonValue& json) {
  const QJsonArray size = json.toArray();
  if (size.size() != 2) {
    refuse_pair("'resize' takes [width, height], two numbers from 1 to " + shown(kMaxSide), json);
  }
  return {number_between("the width of 'resize'", 1, size[0], kMaxSide),
          number_between("the height of 'resize'", 1, size[1], kMaxSide)};
}

Placement placement_from(const QJsonValue& json) {
  if (!json.isObject()) refuse_value("'place'", "an object", json);
  const QJsonObject entries = json.toObject();
  Placement placement;
  for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
    const std::string name = quote(entry.key());
    if (entry.key() == "width") {
      placement.width = number_between(name, 1, entry.value(), kMaxSide);
    } else if (entry.key() == "height") {
      placement.height = number_between(name, 1, entry.value(), kMaxSide);
    } else if (entry.key() == "scale") {
      placement.scale = number_between(name, kLeastScale, entry.value(), kLargestScale);
    } else if (entry.key() == "design") {
      if (!entry.value().isBool()) refuse_value(name, "true or false", entry.value());
      placement.design = entry.value().toBool();
    } else {
      refuse(name + " does not belong to 'place'" + suggestion(entry.key(), kPlacementKeys));
    }
  }
  return placement;
}

const Member& member_of(const QJsonObject& request, const char* key, MemberKind kind) {
  const QJsonValue json = request[QLatin1String(key)];
  const bool is_method = kind == MemberKind::kMethod;
  const Member* found = nullptr;
  if (json.isString()) {
    const std::string name = json.toString().toStdString();
    found = find_member(std::string_view(name));
    if (found == nullptr) {
      no_such_member(quote(name) + (is_method ? " is no method" : " is no property") +
                     suggestion(json.toString(), names_of(kind)));
    }
  } else {
    const double id = json.toDouble(-1);
    if (!(id >= 0 && id <= kLargestDispatchId)) {
      refuse_value(quote(key), "a name or a dispatch identifier", json);
    }
    if (id == std::floor(id)) found = find_member(static_cast<std::uint32_t>(id));
    if (found == nullptr) no_such_member(shown(json) + " is no dispatch identifier");
  }
  if (found->kind != kind) {
    no_such_member(quote(found->name) +
                   (is_method ? " is a property; use 'get' or 'set'" : " is a method; use 'call'"));
  }
  return *found;
}

std::span<const std::string_view> prompt_names() {
  return kPromptNames;
}

std::optional<PromptedSetting> setting_of(const QString& name) {
  const std::string wanted = name.toStdString();
  for (const PromptedCommand& command : kPromptedSettings) {
    if (wanted == command.name) return command.setting;
  }
  return std::nullopt;
}

std::optional<Item> item_of(const QString& tag) {
  if (tag == "legend") return Item::kLegend;
  if (tag == "Title") return Item::kTitle;
  if (tag == "SubTitle") return Item::kSubTitle;
  return std::nullopt;
}

std::vector<Variant> arguments_of(const Member& method, const QJsonValue& json) {
  if (!json.isArray() && !json.isUndefined()) refuse_value("'args'", "an array", json);
  const QJsonArray values = json.toArray();
  const auto count = static_cast<std::size_t>(values.size());
  with_detail([&] { check_count(method, count); },
              [&](const Fault&) { return count_detail(method, count); });
  std::vector<Variant> arguments;
  const auto read_all = [&] {
    for (const QJsonValue& value : values) {
      const Parameter& parameter = method.parameters[arguments.size()];
      arguments.push_back(value.isNull() && parameter.optional ? Variant()
                                                               : from_json(value, parameter.type));
    }
  };
  with_detail(read_all, [&](const Fault&) { return argument_detail(method, values); });
  return arguments;
}

QString text_from(const QJsonObject& request, const char* key) {
  const QJsonValue json = request[QLatin1String(key)];
  if (!json.isString()) refuse_value(quote(key), "a text", json);
  return json.toString();
}

Integer integer_from(const QJsonObject& request, const char* key, Integer otherwise) {
  const QJsonValue json = request[QLatin1String(key)];
  if (json.isUndefined()) return otherwise;
  const std::string wanted(wanted_value(ValueType::kInteger));
  if (!json.isDouble()) refuse_value(quote(key), wanted.c_str(), json);
  return with_detail(
      [&] { return to_integer(json.toDouble()); },
      [&](const Fault&) { return quote(key) + " takes " + wanted + ", not " + shown(json); });
}

SurfacePoint point_from(const QJsonObject& request, const char* key) {
  const QJsonValue json = request[QLatin1String(key)];
  if (json.isUndefined()) refuse(quote(key) + " is missing; it takes [x, y], two numbers");
  const std::string takes = quote(key) + " takes [x, y], two numbers";
  const QJsonArray numbers = json.toArray();
  if (numbers.size() != 2) refuse_pair(takes, json);
  if (!numbers[0].isDouble()) refuse(takes + ", and x is " + shown(numbers[0]));
  if (!numbers[1].isDouble()) refuse(takes + ", and y is " + shown(numbers[1]));
  const std::string of = " of " + quote(key);
  return {coordinate("x" + of, numbers[0].toDouble()), coordinate("y" + of, numbers[1].toDouble())};
}

}  // namespace kurv::app
