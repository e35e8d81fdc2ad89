// Reads and checks the parts of a request. Each function throws Fault with kInvalidProcedureCall
// for a part of the wrong shape, unless it says otherwise.
#pragma once

#include <KurvGraph/automation.h>
#include <KurvGraph/control.h>
#include <KurvGraph/item.h>
#include <KurvGraph/plot_surface.h>

#include <QJsonValue>
#include <QString>
#include <optional>
#include <vector>

#include "app/host/hosted_control.h"

namespace kurv::app {

// For a line that is not a request.
[[noreturn]] void refuse();

double number_between(double least, const QJsonValue& value, double most);
void require_true(const QJsonValue& value);
QString text_from(const QJsonValue& json);
// `otherwise` where it is left out. Throws kOverflow beyond 16 bits.
Integer integer_from(const QJsonValue& json, Integer otherwise);
// [x, y]. Throws kOverflow for what no Single holds.
SurfacePoint point_from(const QJsonValue& json);

Placement placement_from(const QJsonValue& json);
// A member by its name in any letter case or by its dispatch identifier. Throws kNoSuchMember.
const Member& member_of(const QJsonValue& json);
// "legend", "Title" or "SubTitle"; nothing for any other text.
std::optional<Item> item_of(const QString& tag);
// A setting that can be prompted for, such as "marker size".
PromptedSetting setting_of(const QString& name);
// Throws kArgumentMissing, kTooManyArguments, and what from_json() throws.
std::vector<Variant> arguments_of(const Member& method, const QJsonValue& json);

}  // namespace kurv::app
