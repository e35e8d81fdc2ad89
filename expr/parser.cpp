#include "expr/parser.h"

#include <limits>
#include <optional>
#include <unordered_map>
#include <utility>

#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include "expr/characters.h"
#include "expr/functions.h"
#include "expr/lexer.h"
#include "expr/messages.h"

namespace kurv::expr {

namespace {

// The grammar stands above the member functions, one production each. Every function adds the steps
// of what it has read to the program, operands before their operator.
//
// The first failure is kept and ends the text: from then on the current token is the end, where
// every production returns and every further complaint is dropped. The program is thrown away then;
// until it is, an operator may lack its right operand in it, but never its left one.
class Parser {
 public:
  explicit Parser(std::string_view text) : m_text(text), m_lexer(text) {}

  Compilation compile();

 private:
  using Production = void (Parser::*)();

  void expression();
  void term();
  void signed_power();
  void power();
  void primary();
  void name(const Token& token);
  void call(const Token& token, std::size_t function);
  void number(const Token& token);
  void variable(std::string_view name);
  void push_number(Double number);
  void close_parenthesis();
  void refuse_operand();

  void nested(Production production);
  bool take(std::string_view sign);
  Token take();

  std::size_t place_of(const Token& token) const;
  std::size_t last_place() const;
  void fail(String message, std::size_t place);
  void refuse(String (*message)(const Token&, std::size_t), const Token& token);

  std::string_view m_text;
  Lexer m_lexer;
  Token m_current;
  std::size_t m_taken = 0;  // bytes, to the end of the last token that was taken
  int m_nesting = 0;
  std::unordered_map<std::string_view, std::size_t> m_variables;  // positions as operands
  Compilation m_result;
};

// text = expression end
Compilation Parser::compile() {
  m_current = m_lexer.next();
  expression();
  if (m_current.kind != TokenKind::kEnd) refuse(misplaced_message, m_current);
  if (!m_result.message.empty()) m_result.program = {};
  return std::move(m_result);
}

// expression = term {("+" | "-") term}
void Parser::expression() {
  term();
  while (true) {
    if (take("+")) {
      term();
      m_result.program.apply(Operation::kAdd);
    } else if (take("-")) {
      term();
      m_result.program.apply(Operation::kSubtract);
    } else {
      return;
    }
  }
}

// term = signed power {("*" | "/") signed power}
void Parser::term() {
  signed_power();
  while (true) {
    if (take("*")) {
      signed_power();
      m_result.program.apply(Operation::kMultiply);
    } else if (take("/")) {
      signed_power();
      m_result.program.apply(Operation::kDivide);
    } else {
      return;
    }
  }
}

// signed power = {"+" | "-"} power
void Parser::signed_power() {
  bool negative = false;
  while (true) {
    if (take("-")) {
      negative = !negative;
    } else if (!take("+")) {
      break;
    }
  }
  power();
  if (negative) m_result.program.apply(Operation::kNegate);
}

// power = primary ["^" signed power]
//
// The exponent is a signed power of its own: so 2^3^2 is taken from the right, 2^-1 is allowed, and
// the minus of -x^2 is outside.
void Parser::power() {
  primary();
  if (!take("^")) return;
  nested(&Parser::signed_power);
  m_result.program.apply(Operation::kPower);
}

// primary = number | name | quoted name | "(" expression ")"
void Parser::primary() {
  if (take("(")) {
    nested(&Parser::expression);
    close_parenthesis();
  } else if (m_current.kind == TokenKind::kNumber) {
    number(take());
  } else if (m_current.kind == TokenKind::kName) {
    name(take());
  } else if (m_current.kind == TokenKind::kQuotedName) {
    const Token token = take();
    const std::string_view inside = trim_blanks(token.text.substr(1, token.text.size() - 2));
    if (inside.empty()) return fail(nameless_brackets_message(place_of(token)), place_of(token));
    variable(inside);
  } else {
    refuse_operand();
  }
}

// name = call | constant | variable
void Parser::name(const Token& token) {
  if (const std::optional<std::size_t> function = find_function(token.text)) {
    return call(token, *function);
  }
  if (m_current.text == "(") return refuse(unknown_function_message, token);
  if (const std::optional<Double> constant = find_constant(token.text)) {
    return push_number(*constant);
  }
  variable(token.text);
}

// call = function "(" [expression {"," expression}] ")", with as many as the function takes
//
// The arguments of a function of many are taken together two by two, as soon as they are there: the
// stack stays as shallow as for two.
void Parser::call(const Token& token, std::size_t index) {
  const Function& function = functions()[index];
  if (!take("(")) return refuse(arguments_missing_message, token);

  std::size_t count = 0;
  if (m_current.text != ")") {
    do {
      nested(&Parser::expression);
      ++count;
      if (function.of_many && count > 1) m_result.program.call(index, 2);
    } while (take(","));
  }
  close_parenthesis();

  const std::size_t wanted = function.of_one ? 1 : 2;
  const bool accepted = function.of_many ? count > 0 : count == wanted;
  if (!accepted) {
    return fail(wrong_count_message(token, place_of(token), function, count), place_of(token));
  }
  if (!function.of_many) m_result.program.call(index, static_cast<int>(count));
}

void Parser::number(const Token& token) {
  const std::optional<Double> value = text_to_number(token.text);
  constexpr Double kLargest = std::numeric_limits<Double>::max();
  if (!value || *value > kLargest) return refuse(too_large_number_message, token);
  push_number(*value);
}

void Parser::variable(std::string_view name) {
  const auto [entry, is_new] = m_variables.try_emplace(name, 0);
  if (is_new) entry->second = m_result.program.add_operand({String(name), 0});
  m_result.program.push(entry->second);
}

void Parser::push_number(Double number) {
  m_result.program.push(m_result.program.add_operand({"", number}));
}

void Parser::close_parenthesis() {
  if (take(")")) return;
  if (m_current.kind == TokenKind::kEnd) {
    return fail(parenthesis_missing_message(last_place()), last_place());
  }
  refuse(misplaced_message, m_current);
}

void Parser::refuse_operand() {
  if (m_current.kind == TokenKind::kEnd) {
    return fail(operand_missing_message(last_place()), last_place());
  }
  refuse(operand_needed_message, m_current);
}

void Parser::nested(Production production) {
  if (m_nesting == kMaxNesting) {
    return fail(too_deep_message(last_place()), last_place());
  }
  ++m_nesting;
  (this->*production)();
  --m_nesting;
}

// Goes on when the current token is this sign.
bool Parser::take(std::string_view sign) {
  if (m_current.kind != TokenKind::kSign || m_current.text != sign) return false;
  take();
  return true;
}

Token Parser::take() {
  const Token token = m_current;
  m_taken = static_cast<std::size_t>(token.text.data() - m_text.data()) + token.text.size();
  m_current = m_lexer.next();
  return token;
}

// The character at which a token begins, from 1. It is counted only when there is something to say.
std::size_t Parser::place_of(const Token& token) const {
  const auto begin = static_cast<std::size_t>(token.text.data() - m_text.data());
  return count_characters(m_text.substr(0, begin)) + 1;
}

// The last character of the last token taken; 0 before the first.
std::size_t Parser::last_place() const {
  return count_characters(m_text.substr(0, m_taken));
}

void Parser::fail(String message, std::size_t place) {
  if (m_result.message.empty()) {
    m_result.message = std::move(message);
    m_result.place = static_cast<Integer>(place);
  }
  m_current = {};
  m_lexer = Lexer({});
}

// A token that can stand nowhere is complained of as such, whatever was expected in its place.
void Parser::refuse(String (*message)(const Token&, std::size_t), const Token& token) {
  const bool usable = token.kind < TokenKind::kUnknownCharacter;
  fail((usable ? message : unusable_message)(token, place_of(token)), place_of(token));
}

}  // namespace

Compilation compile(std::string_view text) {
  if (text.size() > kMaxLength) return {{}, too_long_message(text.size()), 0};
  return Parser(text).compile();
}

bool is_variable_name(std::string_view text) {
  return text.size() <= kMaxLength && is_name(text) && !find_function(text) && !find_constant(text);
}

}  // namespace kurv::expr
