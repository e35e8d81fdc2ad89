/// @file
/// How an expression names a variable.
#pragma once

#include <string_view>

#include <KurvGraph/values.h>

namespace kurv {

/// The text that means the variable of this name in an expression of the built-in evaluator: the
/// name itself, or the name in brackets with each "]" doubled. So x is "x", body mass is
/// "[body mass]" and Temp [C] is "[Temp [C]]]". For a program that builds an expression from the
/// names of its data. An empty name and one of blanks cannot be written.
KURV_EXPORT String variable_text(std::string_view name);

}  // namespace kurv
