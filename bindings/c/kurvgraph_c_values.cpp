// Values in memory that belongs to the library: one block for each, so that one pointer releases
// it.
#include <KurvGraph/kurvgraph_c_values.h>

#include <cstdlib>
#include <cstring>
#include <new>

#include "bindings/c/value_conversion.h"

namespace kurv::c {

namespace {

void* new_block(std::size_t bytes) {
  void* const block = std::malloc(bytes > 0 ? bytes : 1);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

template <class T>
T* new_array(kurv_value& value, std::size_t count) {
  value.owner = new_block(count * sizeof(T));
  return static_cast<T*>(value.owner);
}

template <class T>
std::size_t count_of(const List<T>& list) {
  return static_cast<std::size_t>(static_cast<long long>(list.upper()) - list.lower() + 1);
}

// Copies the text and a NUL after it to `at`, which then points behind them.
kurv_text copied(const String& text, char*& at) {
  char* const begin = at;
  std::memcpy(begin, text.c_str(), text.size() + 1);
  at += text.size() + 1;
  return {begin, text.size()};
}

struct Own {
  kurv_value operator()(std::monostate) const { return kurv_missing(); }
  kurv_value operator()(Integer number) const { return kurv_integer(number); }
  kurv_value operator()(Single number) const { return kurv_single(number); }
  kurv_value operator()(Double number) const { return kurv_double(number); }
  kurv_value operator()(Boolean truth) const {
    kurv_value value = kurv_value_of(KURV_BOOLEAN);
    value.as.boolean = truth.bits();
    return value;
  }
  kurv_value operator()(const String& text) const {
    kurv_value value = kurv_value_of(KURV_STRING);
    char* at = new_array<char>(value, text.size() + 1);
    value.as.text = copied(text, at);
    return value;
  }
  kurv_value operator()(const List<Double>& list) const {
    kurv_value value = kurv_doubles(nullptr, count_of(list));
    value.lower = list.lower();
    auto* at = new_array<double>(value, value.as.doubles.count);
    value.as.doubles.data = at;
    for (int i = list.lower(); i <= list.upper(); ++i) *at++ = list(i);
    return value;
  }
  kurv_value operator()(const List<Boolean>& list) const {
    kurv_value value = kurv_booleans(nullptr, count_of(list));
    value.lower = list.lower();
    auto* at = new_array<std::int16_t>(value, value.as.booleans.count);
    value.as.booleans.data = at;
    for (int i = list.lower(); i <= list.upper(); ++i) *at++ = list(i).bits();
    return value;
  }
  // The texts follow the array of their pointers.
  kurv_value operator()(const List<String>& list) const {
    kurv_value value = kurv_strings(nullptr, count_of(list));
    value.lower = list.lower();
    std::size_t bytes = value.as.strings.count * sizeof(kurv_text);
    for (int i = list.lower(); i <= list.upper(); ++i) bytes += list(i).size() + 1;
    value.owner = new_block(bytes);
    auto* text = static_cast<kurv_text*>(value.owner);
    value.as.strings.data = text;
    char* at = reinterpret_cast<char*>(text + value.as.strings.count);
    for (int i = list.lower(); i <= list.upper(); ++i) *text++ = copied(list(i), at);
    return value;
  }
  kurv_value operator()(const Matrix<Double>& matrix) const {
    const auto extent = [](int lower, int upper) {
      return static_cast<std::size_t>(static_cast<long long>(upper) - lower + 1);
    };
    const std::size_t columns = extent(matrix.lower_column(), matrix.upper_column());
    const std::size_t points = extent(matrix.lower_point(), matrix.upper_point());
    kurv_value value = kurv_matrix(nullptr, columns, points);
    value.lower = matrix.lower_column();
    value.lower_point = matrix.lower_point();
    auto* at = new_array<double>(value, columns * points);
    value.as.matrix.data = at;
    for (int c = matrix.lower_column(); c <= matrix.upper_column(); ++c) {
      const Column<const Double> column = matrix.column(c);
      for (int i = column.lower(); i <= column.upper(); ++i) *at++ = column(i);
    }
    return value;
  }
};

}  // namespace

kurv_value owned_value(const Variant& value) {
  return std::visit(Own{}, value);
}

}  // namespace kurv::c

void kurv_value_clear(kurv_value* value) {
  if (value == nullptr) return;
  std::free(value->owner);
  *value = kurv_missing();
}
