#include "expr/functions.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

#include <KurvGraph/text.h>

namespace kurv::expr {

namespace {

Double sign(Double x) {
  if (x == 0) return 0;
  return x > 0 ? 1 : -1;
}

constexpr Function kFunctions[] = {
    {"sin", [](Double x) { return std::sin(x); }},
    {"cos", [](Double x) { return std::cos(x); }},
    {"tan", [](Double x) { return std::tan(x); }},
    {"asin", [](Double x) { return std::asin(x); }},
    {"acos", [](Double x) { return std::acos(x); }},
    {"atan", [](Double x) { return std::atan(x); }},
    {"atan2", nullptr, [](Double y, Double x) { return std::atan2(y, x); }},
    {"sinh", [](Double x) { return std::sinh(x); }},
    {"cosh", [](Double x) { return std::cosh(x); }},
    {"tanh", [](Double x) { return std::tanh(x); }},
    {"asinh", [](Double x) { return std::asinh(x); }},
    {"acosh", [](Double x) { return std::acosh(x); }},
    {"atanh", [](Double x) { return std::atanh(x); }},
    {"exp", [](Double x) { return std::exp(x); }},
    {"ln", [](Double x) { return std::log(x); }},
    {"log", [](Double x) { return std::log(x); }},
    {"log10", [](Double x) { return std::log10(x); }},
    {"log2", [](Double x) { return std::log2(x); }},
    {"sqrt", [](Double x) { return std::sqrt(x); }},
    {"cbrt", [](Double x) { return std::cbrt(x); }},
    {"abs", [](Double x) { return std::abs(x); }},
    {"sign", sign},
    {"floor", [](Double x) { return std::floor(x); }},
    {"ceil", [](Double x) { return std::ceil(x); }},
    {"round", [](Double x) { return std::round(x); }},  // halves away from zero
    {"int", [](Double x) { return std::trunc(x); }},
    {"frac", [](Double x) { return x - std::trunc(x); }},
    {"min", nullptr, [](Double x, Double y) { return std::min(x, y); }, true},
    {"max", nullptr, [](Double x, Double y) { return std::max(x, y); }, true},
    {"mod", nullptr, [](Double x, Double y) { return std::fmod(x, y); }},  // the sign of x
    {"pow", nullptr, power},
    {"hypot", nullptr, [](Double x, Double y) { return std::hypot(x, y); }},
};

}  // namespace

Double power(Double x, Double y) {
  // Squares are by far the most frequent powers, and a product is rounded as exactly.
  return y == 2 ? x * x : std::pow(x, y);
}

const Function* functions() {
  return kFunctions;
}

std::optional<std::size_t> find_function(std::string_view name) {
  const auto* found = std::find_if(
      std::begin(kFunctions), std::end(kFunctions),
      [name](const Function& function) { return equals_ignoring_case(name, function.name); });
  if (found == std::end(kFunctions)) return std::nullopt;
  return static_cast<std::size_t>(found - std::begin(kFunctions));
}

std::optional<Double> find_constant(std::string_view name) {
  if (equals_ignoring_case(name, "pi")) return std::numbers::pi;
  return std::nullopt;
}

}  // namespace kurv::expr
