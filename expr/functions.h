// The functions and constants that an expression can name.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include <KurvGraph/values.h>

namespace kurv::expr {

// Outside its domain a function gives NaN or an infinity, which fails the evaluation.
struct Function {
  std::string_view name;  // in lower case
  Double (*unary)(Double) = nullptr;
  Double (*binary)(Double, Double) = nullptr;
  // Takes one argument or more, and folds them with `binary` from left to right.
  bool variadic = false;
};

// All of them, in one array.
const Function* functions();

// The position in functions(), for a name in any letter case.
std::optional<std::size_t> find_function(std::string_view name);

// The value of a constant, for a name in any letter case.
std::optional<Double> find_constant(std::string_view name);

// x^y.
Double power(Double x, Double y);

}  // namespace kurv::expr
