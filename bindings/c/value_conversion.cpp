#include "bindings/c/value_conversion.h"

#include <bit>
#include <cstddef>
#include <cstring>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

#include "bindings/c/call_error.h"

namespace kurv::c {

namespace {

// Throws where there are elements, but no array, or where no index can reach the last one.
void check_array(const void* data, std::size_t count, int lower) {
  constexpr auto kHighest = std::size_t(std::numeric_limits<int>::max());
  if (data == nullptr && count > 0) throw CallError(KURV_INVALID_CALL, "a null pointer");
  if (count > kHighest) throw Fault(FaultKind::kOverflow);
  if (count > 0 && static_cast<long long>(lower) + static_cast<long long>(count) - 1 >
                       static_cast<long long>(kHighest)) {
    throw Fault(FaultKind::kOverflow);
  }
}

int upper_bound(int lower, std::size_t count) {
  return static_cast<int>(static_cast<long long>(lower) + static_cast<long long>(count) - 1);
}

// `convert` makes an element of the list out of one of the caller's.
template <class T, class Source, class Convert>
List<T> list_of(const Source* data, std::size_t count, int lower, Convert convert) {
  check_array(data, count, lower);
  std::vector<T> elements;
  elements.reserve(count);
  for (std::size_t i = 0; i < count; ++i) elements.push_back(convert(data[i]));
  return {lower, std::move(elements)};
}

Matrix<Double> matrix_of(const kurv_value& value) {
  const auto& from = value.as.matrix;
  check_array(from.data, from.points > 0 ? from.columns : 0, value.lower);
  check_array(from.data, from.columns > 0 ? from.points : 0, value.lower_point);
  Matrix<Double> result(value.lower, upper_bound(value.lower, from.columns), value.lower_point,
                        upper_bound(value.lower_point, from.points));
  for (std::size_t c = 0; c < from.columns; ++c) {
    std::vector<Double> column(from.points);
    const double* at = from.data + static_cast<std::ptrdiff_t>(c) * from.column_stride;
    for (std::size_t p = 0; p < from.points; ++p) {
      column[p] = at[static_cast<std::ptrdiff_t>(p) * from.point_stride];
    }
    result.set_column(upper_bound(value.lower, c + 1), std::move(column));
  }
  return result;
}

// Bit by bit, because a missing value is a NaN.
bool is_same(Double left, Double right) {
  return std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}
bool is_same(Single left, Single right) {
  return std::bit_cast<std::uint32_t>(left) == std::bit_cast<std::uint32_t>(right);
}
bool is_same(const List<Double>& left, const List<Double>& right) {
  if (left.lower() != right.lower() || left.upper() != right.upper()) return false;
  for (int i = left.lower(); i <= left.upper(); ++i) {
    if (!is_same(left(i), right(i))) return false;
  }
  return true;
}
bool is_same(const Matrix<Double>& left, const Matrix<Double>& right) {
  if (left.lower_column() != right.lower_column() || left.upper_column() != right.upper_column() ||
      left.lower_point() != right.lower_point() || left.upper_point() != right.upper_point()) {
    return false;
  }
  for (int c = left.lower_column(); c <= left.upper_column(); ++c) {
    const Column<const Double> one = left.column(c);
    const Column<const Double> other = right.column(c);
    for (int i = one.lower(); i <= one.upper(); ++i) {
      if (&one(i) == &other(i)) break;  // copies share a column until one of them is changed
      if (!is_same(one(i), other(i))) return false;
    }
  }
  return true;
}
template <class T>
bool is_same(const T& left, const T& right) {
  return left == right;
}

}  // namespace

std::int32_t type_number(ValueType type) {
  switch (type) {
    case ValueType::kInteger:
      return KURV_INTEGER;
    case ValueType::kBoolean:
      return KURV_BOOLEAN;
    case ValueType::kSingle:
      return KURV_SINGLE;
    case ValueType::kDouble:
      return KURV_DOUBLE;
    case ValueType::kString:
      return KURV_STRING;
    case ValueType::kVariant:
      return KURV_VARIANT;
    case ValueType::kDoubleList:
      return KURV_DOUBLES;
    case ValueType::kDoubleMatrix:
      return KURV_MATRIX;
    case ValueType::kStringList:
      return KURV_STRINGS;
    case ValueType::kBooleanList:
      return KURV_BOOLEANS;
  }
  return KURV_MISSING;
}

std::string_view text_view(const kurv_text& text) {
  if (text.bytes == nullptr) {
    if (text.length != 0) throw CallError(KURV_INVALID_CALL, "a null pointer");
    return {};
  }
  return {text.bytes, text.length == KURV_TERMINATED ? std::strlen(text.bytes) : text.length};
}

Variant to_variant(const kurv_value& value) {
  const auto& as = value.as;
  switch (value.type) {
    case KURV_MISSING:
      return {};
    case KURV_INTEGER:
      return Integer(as.integer);
    case KURV_BOOLEAN:
      return Boolean::from_bits(as.boolean);
    case KURV_SINGLE:
      return as.single;
    case KURV_DOUBLE:
      return as.number;
    case KURV_STRING:
      return String(text_view(as.text));
    case KURV_DOUBLES:
      return list_of<Double>(as.doubles.data, as.doubles.count, value.lower,
                             [](double number) { return number; });
    case KURV_MATRIX:
      return matrix_of(value);
    case KURV_STRINGS:
      return list_of<String>(as.strings.data, as.strings.count, value.lower,
                             [](const kurv_text& text) { return String(text_view(text)); });
    case KURV_BOOLEANS:
      return list_of<Boolean>(as.booleans.data, as.booleans.count, value.lower,
                              [](std::int16_t bits) { return Boolean::from_bits(bits); });
    default:
      throw Fault(FaultKind::kTypeMismatch);
  }
}

void return_argument(const Variant& after, const Variant& passed, kurv_value& argument) {
  const bool is_changed =
      after.index() != passed.index() ||
      !std::visit(
          [&](const auto& value) {
            return is_same(value, std::get<std::remove_cvref_t<decltype(value)>>(passed));
          },
          after);
  if (!is_changed) return;
  const kurv_value changed = owned_value(after);
  kurv_value_clear(&argument);
  argument = changed;
}

}  // namespace kurv::c
