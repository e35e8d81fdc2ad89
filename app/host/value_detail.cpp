#include "app/host/value_detail.h"

#include <KurvGraph/fault.h>
#include <KurvGraph/limits.h>

#include <algorithm>
#include <optional>

#include "app/host/host_fault.h"
#include "app/host/host_values.h"

namespace kurv::app {

namespace {

// Whether the control converts the value without a fault.
bool is_taken(const QJsonValue& json, ValueType wanted) {
  try {
    const Variant value = from_json(json, wanted);
    if (wanted == ValueType::kInteger) static_cast<void>(to_integer(value));
    if (wanted == ValueType::kSingle) static_cast<void>(to_single(value));
    if (wanted == ValueType::kDouble) static_cast<void>(to_double(value));
    return true;
  } catch (const Fault&) {
    return false;
  }
}

// The type of the elements; nothing for a single value.
std::optional<ValueType> element_type(ValueType type) {
  if (type == ValueType::kDoubleList) return ValueType::kDouble;
  if (type == ValueType::kDoubleMatrix) return ValueType::kDoubleList;
  if (type == ValueType::kStringList) return ValueType::kString;
  if (type == ValueType::kBooleanList) return ValueType::kBoolean;
  return std::nullopt;
}

// The number of the first element that is not taken, counted from 1; 0 where all are.
int wrong_element(const QJsonArray& values, ValueType type) {
  for (int i = 0; i < values.size(); ++i) {
    const bool is_missing = type == ValueType::kDouble && values[i].isNull();
    if (!is_missing && !is_taken(values[i], type)) return i + 1;
  }
  return 0;
}

std::string wrong_value(std::string_view wanted, const QJsonValue& json) {
  return "takes " + std::string(wanted) + ", not " + shown(json);
}

std::string number_of_elements(qsizetype count) {
  return std::to_string(count) + (count == 1 ? " element" : " elements");
}

std::string unequal_lengths(const QJsonArray& lists) {
  const auto length = lists[0].toArray().size();
  for (int i = 1; i < lists.size(); ++i) {
    const auto other = lists[i].toArray().size();
    if (other == length) continue;
    return "takes arrays of the same length, and 1 has " + number_of_elements(length) + " and " +
           std::to_string(i + 1) + " has " + std::to_string(other);
  }
  return {};
}

// A count among the arguments of a method, the array that it is about, and how many elements that
// has beyond the count.
struct CountedArray {
  std::string_view method;
  std::string_view count;
  std::string_view array;
  int beyond;
  bool counts_points;  // the elements of each array in it
};

constexpr CountedArray kCountedArrays[] = {
    {"scatter_graph", "pNumData_", "xarr", 0, false},
    {"scatter_graph", "pNumData_", "yarr_", 0, true},
    {"scatter_graph", "pNumY_", "yarr_", 0, false},
    {"scatter_graph", "pNumY_", "yVarName_", 0, false},
    {"scatter_graph", "pNumYFunc_", "y_func_", 0, false},
    {"scatter_graph2", "pNumData_", "xyArr_", 0, true},
    {"scatter_graph2", "pNumY_", "xyArr_", 1, false},
    {"scatter_graph2", "pNumY_", "xyVarNames_", 1, false},
    {"scatter_graph2", "pNumY_", "y_visible_", 0, false},
    {"scatter_graph2", "pNumYFunc_", "y_func_", 0, false},
};

QJsonValue argument(const Member& method, std::string_view name, const QJsonArray& values) {
  const auto found = std::find_if(method.parameters.begin(), method.parameters.end(),
                                  [&](const Parameter& row) { return row.name == name; });
  return values[static_cast<int>(found - method.parameters.begin())];
}

std::string array_size_detail_of(const CountedArray& row, int count, const QJsonArray& array) {
  const std::string claim = quote(row.count) + " is " + std::to_string(count);
  if (count < 0) return claim;
  if (row.count == "pNumY_" && count > kMaxCurves && row.method == "scatter_graph") {
    return claim + ", and there are at most " + std::to_string(kMaxCurves) + " curves";
  }
  const auto size = row.counts_points ? array.first().toArray().size() : array.size();
  if (count + row.beyond <= size) return {};
  if (row.beyond > 0) {
    return claim + ", so " + quote(row.array) + " needs " + number_of_elements(count + row.beyond) +
           ", and has " + std::to_string(size);
  }
  return claim + ", but " + (row.counts_points ? "each array of " : "") + quote(row.array) +
         " has " + number_of_elements(size);
}

}  // namespace

std::string_view wanted_value(ValueType type) {
  switch (type) {
    case ValueType::kInteger:
      return "a whole number from -32768 to 32767";
    case ValueType::kBoolean:
      return "true, false or a whole number from -32768 to 32767";
    case ValueType::kSingle:
    case ValueType::kDouble:
      return "a number";
    case ValueType::kString:
    case ValueType::kVariant:
      return "a text";
    case ValueType::kDoubleList:
      return "an array of numbers";
    case ValueType::kDoubleMatrix:
      return "an array of arrays of numbers";
    case ValueType::kStringList:
      return "an array of texts";
    case ValueType::kBooleanList:
      return "an array of true and false";
  }
  return {};
}

std::string value_detail(const QJsonValue& json, ValueType wanted) {
  if (is_taken(json, wanted)) return {};
  const std::optional<ValueType> type = element_type(wanted);
  if (!type || !json.isArray()) return wrong_value(wanted_value(wanted), json);
  const QJsonArray values = json.toArray();
  const std::string taken = "takes " + std::string(wanted_value(wanted)) + ", and ";
  const int wrong = wrong_element(values, *type);
  if (wrong == 0) return unequal_lengths(values);
  const QJsonValue value = values[wrong - 1];
  const std::string element = std::to_string(wrong);
  if (*type == ValueType::kDoubleList && value.isArray()) {
    const int inner = wrong_element(value.toArray(), ValueType::kDouble);
    return taken + "element " + std::to_string(inner) + " of its array " + element + " is " +
           shown(value.toArray()[inner - 1]);
  }
  return taken + "its element " + element + " is " + shown(value);
}

std::string property_detail(const Member& property, const QJsonValue& json) {
  const bool is_size = property.name.ends_with("FontSize");
  const std::string detail = is_size ? font_size_detail(json) : value_detail(json, property.type);
  return detail.empty() ? detail : quote(property.name) + ' ' + detail;
}

std::string font_size_detail(const QJsonValue& json) {
  try {
    static_cast<void>(font_size_from(from_json(json, ValueType::kSingle)));
    return {};
  } catch (const Fault&) {
    return wrong_value("a number above 0 and up to 32767", json);
  }
}

std::string count_detail(const Member& method, std::size_t count) {
  const auto parameters = method.parameters;
  const auto required = static_cast<std::size_t>(std::count_if(
      parameters.begin(), parameters.end(), [](const Parameter& row) { return !row.optional; }));
  const std::size_t most = parameters.size();
  std::string taken = most == 0 ? "no" : std::to_string(required);
  if (required < most) taken += " to " + std::to_string(most);
  const std::string detail = quote(method.name) + " takes " + taken +
                             (most == 1 ? " argument" : " arguments") + " and got " +
                             std::to_string(count);
  if (count >= required) return detail;
  return detail + "; " + quote(parameters[count].name) + " is missing";
}

std::string argument_detail(const Member& method, const QJsonArray& values) {
  for (int i = 0; i < values.size(); ++i) {
    const Parameter& parameter = method.parameters[static_cast<std::size_t>(i)];
    if (values[i].isNull() && parameter.optional) continue;
    const std::string detail = value_detail(values[i], parameter.type);
    if (detail.empty()) continue;
    return "argument " + std::to_string(i + 1) + ", " + quote(parameter.name) + ", " + detail;
  }
  return {};
}

std::string array_size_detail(const Member& method, const QJsonArray& values) {
  for (const CountedArray& row : kCountedArrays) {
    if (row.method != method.name) continue;
    const int count =
        to_integer(from_json(argument(method, row.count, values), ValueType::kInteger));
    const QJsonArray array = argument(method, row.array, values).toArray();
    const std::string detail = array_size_detail_of(row, count, array);
    if (!detail.empty()) return detail;
  }
  return {};
}

}  // namespace kurv::app
