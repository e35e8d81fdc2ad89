#include "app/host/host_values.h"

#include <KurvGraph/fault.h>
#include <KurvGraph/number_text.h>

#include <QJsonArray>
#include <cmath>
#include <limits>

namespace kurv::app {

namespace {

[[noreturn]] void mismatch() {
  throw Fault(FaultKind::kTypeMismatch);
}

QJsonArray list_of(const QJsonValue& json) {
  if (!json.isArray()) mismatch();
  return json.toArray();
}

// A value as it is written, before it is converted to the type of the member.
Variant plain(const QJsonValue& json) {
  if (json.isBool()) return Boolean(json.toBool());
  if (json.isDouble()) return json.toDouble();
  if (json.isString()) return json.toString().toStdString();
  mismatch();
}

// A number given for a Boolean is its bits: a flag of 1 is not a flag of -1.
Boolean flag(const QJsonValue& json) {
  if (json.isDouble()) return Boolean::from_bits(to_integer(json.toDouble()));
  return to_boolean(plain(json));
}

Double element(const QJsonValue& json) {
  return json.isNull() ? std::numeric_limits<Double>::quiet_NaN() : to_double(plain(json));
}

template <class T, class Read>
List<T> list(const QJsonValue& json, Read read) {
  const QJsonArray values = list_of(json);
  List<T> result(1, static_cast<int>(values.size()));
  int index = 0;
  for (const QJsonValue& value : values) result(++index) = read(value);
  return result;
}

Matrix<Double> matrix(const QJsonValue& json) {
  const QJsonArray lists = list_of(json);
  const auto length = lists.isEmpty() ? 0 : list_of(lists.first()).size();
  Matrix<Double> result(1, static_cast<int>(lists.size()), 1, static_cast<int>(length));
  int column = 0;
  for (const QJsonValue& value : lists) {
    const QJsonArray points = list_of(value);
    if (points.size() != length) mismatch();
    const auto target = result.column(++column);
    int point = 0;
    for (const QJsonValue& number : points) target(++point) = element(number);
  }
  return result;
}

String text(const QJsonValue& json) {
  return to_string(plain(json));
}

// A Single is written with its own shortest digits, not with those of the nearest Double.
Double shortest(Single number) {
  return text_to_number(number_to_text(number)).value_or(number);
}

struct Write {
  QJsonValue operator()(std::monostate) const { return QJsonValue::Null; }
  QJsonValue operator()(Boolean value) const {
    if (value.is_exactly_true()) return true;
    if (!value) return false;
    return value.bits();
  }
  QJsonValue operator()(Integer value) const { return value; }
  QJsonValue operator()(Single value) const { return to_json(shortest(value)); }
  QJsonValue operator()(Double value) const { return to_json(value); }
  QJsonValue operator()(const String& value) const { return QString::fromStdString(value); }
  template <class Array>
  QJsonValue operator()(const Array&) const {
    mismatch();
  }
};

}  // namespace

Variant from_json(const QJsonValue& json, ValueType wanted) {
  switch (wanted) {
    case ValueType::kBoolean:
      return flag(json);
    case ValueType::kDoubleList:
      return list<Double>(json, element);
    case ValueType::kDoubleMatrix:
      return matrix(json);
    case ValueType::kStringList:
      return list<String>(json, text);
    case ValueType::kBooleanList:
      return list<Boolean>(json, flag);
    case ValueType::kInteger:
    case ValueType::kSingle:
    case ValueType::kDouble:
    case ValueType::kString:
    case ValueType::kVariant:
      break;
  }
  return plain(json);
}

Single font_size_from(const Variant& value) {
  const Single size = to_single(value);
  // Written so that NaN is refused.
  if (!(size > 0)) throw Fault(FaultKind::kInvalidProcedureCall);
  if (size > std::numeric_limits<Integer>::max()) throw Fault(FaultKind::kOverflow);
  return size;
}

QJsonValue to_json(Double number) {
  if (std::isnan(number)) return QJsonValue::Null;
  if (std::isinf(number)) return number > 0 ? "Inf" : "-Inf";
  return number;
}

QJsonValue to_json(const Variant& value) {
  return std::visit(Write{}, value);
}

}  // namespace kurv::app
