#include "app/host/host_fault.h"

#include <KurvGraph/number_text.h>

#include "app/base/edit_distance.h"
#include "app/base/message_text.h"

namespace kurv::app {

void refuse(const std::string& detail) {
  throw HostFault(FaultKind::kInvalidProcedureCall, detail);
}

// Single quotes, because JSON writes a backslash before double ones.
std::string quote(std::string_view text) {
  std::string result = in_quotes(text);
  result.front() = '\'';
  result.back() = '\'';
  return result;
}

std::string quote(const QString& text) {
  return quote(text.toStdString());
}

std::string quoted_path(std::string_view path) {
  return '\'' + on_one_line(path) + '\'';
}

std::string shown(const QJsonValue& value) {
  switch (value.type()) {
    case QJsonValue::Bool:
      return value.toBool() ? "true" : "false";
    case QJsonValue::Double:
      return number_to_text(value.toDouble());
    case QJsonValue::String:
      return quote(value.toString());
    case QJsonValue::Array:
      return "an array";
    case QJsonValue::Object:
      return "an object";
    case QJsonValue::Null:
      return "null";
    case QJsonValue::Undefined:
      break;
  }
  return "nothing";
}

std::string listed(std::span<const std::string_view> names) {
  std::string result;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) result += i + 1 == names.size() ? " and " : ", ";
    result += quote(names[i]);
  }
  return result;
}

std::string suggestion(const QString& misspelt, std::span<const std::string_view> names) {
  const std::string text = misspelt.toStdString();
  const std::string_view nearest = nearest_name(text, names);
  return nearest.empty() ? std::string() : "; did you mean " + quote(nearest) + '?';
}

}  // namespace kurv::app
