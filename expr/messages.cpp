#include "expr/messages.h"

#include <string>

#include <KurvGraph/variable_text.h>

#include "expr/characters.h"
#include "expr/parser.h"

namespace kurv::expr {

namespace {

// A part of the user's text in quotes: on one line, and short enough for a message box.
String shown(std::string_view text) {
  constexpr std::size_t kLongest = 40;
  String line = "'";
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) {
    if (count == kLongest) {
      line += "…";
      break;
    }
    const Character character = character_at(text, at);
    if (is_invisible(character.code)) {
      line += ' ';
    } else {
      line += text.substr(at, character.size);
    }
    at += character.size;
  }
  return line + "'";
}

// Such as U+00A0.
String code_name(char32_t code) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  String digits;
  for (; code > 0 || digits.size() < 4; code >>= 4) {
    digits.insert(digits.begin(), kDigits[code & 0xF]);
  }
  return "U+" + digits;
}

String character_number(std::size_t place) {
  return "character " + std::to_string(place);
}

String taken_arguments(const Function& function) {
  if (function.variadic) return "one argument or more";
  return function.unary ? "one argument" : "two arguments";
}

String missing_operator(const Token& token, std::size_t place) {
  return "An operator is missing before " + shown(token.text) + " at " + character_number(place);
}

}  // namespace

String too_long_message(std::size_t length) {
  return "The expression is " + std::to_string(length) + " bytes long, but at most " +
         std::to_string(kMaxLength) + " are allowed.";
}

String too_deep_message(std::size_t place) {
  return "The expression is nested more than " + std::to_string(kMaxNesting) + " deep at " +
         character_number(place) + ".";
}

String operand_missing_message(std::size_t place) {
  if (place == 0) return "The expression is empty.";
  return "A number, a name or an opening parenthesis is missing after " + character_number(place) +
         ".";
}

String operand_needed_message(const Token& token, std::size_t place) {
  return "A number, a name or an opening parenthesis is missing before " + shown(token.text) +
         " at " + character_number(place) + ".";
}

String parenthesis_missing_message(std::size_t place) {
  return "A closing parenthesis is missing after " + character_number(place) + ".";
}

String too_large_number_message(const Token& token, std::size_t place) {
  return "The number " + shown(token.text) + " at " + character_number(place) + " is too large.";
}

String nameless_brackets_message(std::size_t place) {
  return "The brackets at " + character_number(place) + " hold no name.";
}

String unknown_function_message(const Token& token, std::size_t place) {
  return shown(token.text) + " is not a function that can be used here (" +
         character_number(place) + ").";
}

String arguments_missing_message(const Token& token, std::size_t place) {
  return "The function " + shown(token.text) + " at " + character_number(place) +
         " needs its arguments in parentheses.";
}

String wrong_count_message(const Token& token, std::size_t place, const Function& function,
                           std::size_t count) {
  return "The function " + shown(token.text) + " at " + character_number(place) + " takes " +
         taken_arguments(function) + ", but it has " +
         (count == 0 ? "none" : std::to_string(count)) + ".";
}

String misplaced_message(const Token& token, std::size_t place) {
  if (token.text == ")") {
    return "The closing parenthesis at " + character_number(place) + " has no opening one.";
  }
  if (token.text == ",") {
    return "The comma at " + character_number(place) +
           " is not between the arguments of a function.";
  }
  return missing_operator(token, place) + ".";
}

String split_name_message(const Token& token, std::size_t place, std::string_view name) {
  return missing_operator(token, place) + "; a ']' in a name is written twice, as in " +
         shown(variable_text(name)) + ".";
}

String unusable_message(const Token& token, std::size_t place) {
  if (token.kind == TokenKind::kInvalidUtf8) {
    return "The text is not valid UTF-8 at " + character_number(place) + ".";
  }
  if (token.kind == TokenKind::kUnclosedBracket) {
    return "The bracket at " + character_number(place) + " is not closed.";
  }
  if (token.text == "]") {
    return "The closing bracket at " + character_number(place) + " has no opening one.";
  }
  const char32_t code = character_at(token.text, 0).code;
  return (is_invisible(code) ? code_name(code) : shown(token.text)) + " at " +
         character_number(place) + " cannot be used in an expression.";
}

}  // namespace kurv::expr
