// Reads and checks the parts of a request. Each function throws a HostFault with
// kInvalidProcedureCall for a part of the wrong shape, unless it says otherwise. `name` is what its
// detail calls the part.
#pragma once

#include <KurvGraph/automation.h>
#include <KurvGraph/control.h>
#include <KurvGraph/item.h>
#include <KurvGraph/plot_surface.h>

#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/host/hosted_control.h"

namespace kurv::app {

double number_between(const std::string& name, double least, const QJsonValue& value, double most);
void require_true(const QJsonObject& request, const char* key);
QString text_from(const QJsonObject& request, const char* key);
// `otherwise` where it is left out. Throws kOverflow beyond 16 bits.
Integer integer_from(const QJsonObject& request, const char* key, Integer otherwise);
// [x, y]. Throws kOverflow for what no Single holds.
SurfacePoint point_from(const QJsonObject& request, const char* key);

struct HostSize {
  double width;
  double height;
};
HostSize size_from(const QJsonValue& json);
Placement placement_from(const QJsonValue& json);
// The member that the request names under this key, by its name in any letter case or by its
// dispatch identifier. Throws kNoSuchMember, also for one of the other kind.
const Member& member_of(const QJsonObject& request, const char* key, MemberKind kind);
// "legend", "Title" or "SubTitle"; nothing for any other text.
std::optional<Item> item_of(const QString& tag);
// The names of the settings that can be prompted for, such as "marker size", and then of the
// commands.
std::span<const std::string_view> prompt_names();
// Nothing for any other name.
std::optional<PromptedSetting> setting_of(const QString& name);
// Throws kArgumentMissing, kTooManyArguments, and what from_json() throws.
std::vector<Variant> arguments_of(const Member& method, const QJsonValue& json);

}  // namespace kurv::app
