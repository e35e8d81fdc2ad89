// The error messages of the parser: sentences that say why a text is no expression.
#pragma once

#include <cstddef>
#include <string_view>

#include <KurvGraph/values.h>

#include "expr/functions.h"
#include "expr/lexer.h"

namespace kurv::expr {

// `place` is a character, counted from 1.
String too_long_message(std::size_t length);
String too_deep_message(std::size_t place);
String operand_missing_message(std::size_t place);
String operand_needed_message(const Token& token, std::size_t place);
String parenthesis_missing_message(std::size_t place);
String too_large_number_message(const Token& token, std::size_t place);
String nameless_brackets_message(std::size_t place);
String unknown_function_message(const Token& token, std::size_t place);
String arguments_missing_message(const Token& token, std::size_t place);
String wrong_count_message(const Token& token, std::size_t place, const Function& function,
                           std::size_t count);
// For a valid token in a place where it is not allowed.
String misplaced_message(const Token& token, std::size_t place);
// The same where the token is in a name in brackets that its own "]" has ended.
String split_name_message(const Token& token, std::size_t place, std::string_view name);
// For a token that is allowed nowhere.
String unusable_message(const Token& token, std::size_t place);

}  // namespace kurv::expr
