// Why a value or a list of arguments is not taken, found out after the fault.
#pragma once

#include <KurvGraph/automation.h>

#include <QJsonArray>
#include <QJsonValue>
#include <string>
#include <string_view>

namespace kurv::app {

// What a value of the type is, such as "a number".
std::string_view wanted_value(ValueType type);
// "takes a number, not 'many'", or nothing where the value is taken.
std::string value_detail(const QJsonValue& json, ValueType wanted);
// The same for the value of a property, with its name.
std::string property_detail(const Member& property, const QJsonValue& json);
// Of a font.
std::string font_size_detail(const QJsonValue& json);

// About the number of arguments.
std::string count_detail(const Member& method, std::size_t count);
// About the first argument that is not taken; nothing where all of them are.
std::string argument_detail(const Member& method, const QJsonArray& values);
// About the first of the counts among the arguments that is larger than its array; nothing where
// there is none. For arguments that are taken.
std::string array_size_detail(const Member& method, const QJsonArray& values);

}  // namespace kurv::app
