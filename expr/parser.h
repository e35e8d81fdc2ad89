// The parser: compiles an expression to a program, or says why the text is no expression.
#pragma once

#include <cstddef>
#include <string_view>

#include <KurvGraph/values.h>

#include "expr/bracketed_name.h"
#include "expr/program.h"

namespace kurv::expr {

// The limits bound memory and recursion for hostile texts; no formula that a person writes comes
// near them. The length also limits the number of variables to 16,384, so that their count and
// every character's number fit into an Integer.
constexpr std::size_t kMaxLength = 32767;  // bytes
constexpr int kMaxNesting = 256;           // parentheses, arguments and exponents inside each other

struct Compilation {
  Program program;    // empty when the text is no expression
  String message;     // one whole sentence then, otherwise empty
  Integer place = 0;  // the character, from 1, that the sentence names; 0 where it names none
  bool depends_on_names = false;  // whether another definition may change any of it
};

// Which variables are defined decides where a name in brackets ends.
Compilation compile(std::string_view text, const IsDefined& is_defined = {});

// Whether the text can be written in an expression, without brackets, as the name of a variable.
bool is_variable_name(std::string_view text);

}  // namespace kurv::expr
