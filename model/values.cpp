#include <KurvGraph/values.h>

#include <cmath>
#include <limits>
#include <optional>

#include <KurvGraph/fault.h>
#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

namespace kurv {

namespace {

struct ReadNumber {
  Double operator()(std::monostate) const { return 0; }
  Double operator()(Boolean value) const { return value.bits(); }
  Double operator()(Integer value) const { return value; }
  Double operator()(Single value) const { return value; }
  Double operator()(Double value) const { return value; }
  Double operator()(const String& value) const {
    const std::optional<Double> number = text_to_number(value);
    if (!number) throw Fault(FaultKind::kTypeMismatch);
    return *number;
  }
  template <class Array>
  Double operator()(const Array&) const {
    throw Fault(FaultKind::kTypeMismatch);
  }
};

struct WriteText {
  String operator()(std::monostate) const { return {}; }
  String operator()(Boolean value) const { return boolean_to_text(value); }
  String operator()(Integer value) const { return number_to_text(static_cast<Double>(value)); }
  String operator()(Single value) const { return number_to_text(value); }
  String operator()(Double value) const { return number_to_text(value); }
  String operator()(const String& value) const { return value; }
  template <class Array>
  String operator()(const Array&) const {
    throw Fault(FaultKind::kTypeMismatch);
  }
};

}  // namespace

Integer to_integer(Double value) {
  constexpr Double kMin = std::numeric_limits<Integer>::min();
  constexpr Double kMax = std::numeric_limits<Integer>::max();
  const Double rounded = std::nearbyint(value);
  // Written so that NaN, for which every comparison is false, is an overflow too.
  if (!(rounded >= kMin && rounded <= kMax)) throw Fault(FaultKind::kOverflow);
  return static_cast<Integer>(rounded);
}

// A cast of a value beyond the largest Single is undefined behaviour, so such values are not cast:
// up to half a step (ULP) beyond, they round to the largest; further out, to infinity.
Single to_single(Double value) {
  constexpr Double kMaxSingle = std::numeric_limits<Single>::max();
  constexpr Double kHalfAStepBeyond = 0x1.ffffffp127;
  const Double magnitude = std::abs(value);
  if (magnitude >= kHalfAStepBeyond) {
    return std::copysign(std::numeric_limits<Single>::infinity(), value > 0 ? 1.0F : -1.0F);
  }
  if (magnitude > kMaxSingle) return static_cast<Single>(std::copysign(kMaxSingle, value));
  return static_cast<Single>(value);
}

Integer to_integer(const Variant& value) {
  return to_integer(to_double(value));
}

Single to_single(const Variant& value) {
  const Single narrow = to_single(to_double(value));
  if (std::isinf(narrow)) throw Fault(FaultKind::kOverflow);
  return narrow;
}

Double to_double(const Variant& value) {
  return std::visit(ReadNumber{}, value);
}

String to_string(const Variant& value) {
  return std::visit(WriteText{}, value);
}

Boolean to_boolean(const Variant& value) {
  if (const auto* truth = std::get_if<Boolean>(&value)) return *truth;
  if (const auto* text = std::get_if<String>(&value)) {
    if (const std::optional<Boolean> word = word_to_boolean(*text)) return *word;
  }
  return to_double(value) != 0;
}

}  // namespace kurv
