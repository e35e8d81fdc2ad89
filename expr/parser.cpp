#include "expr/parser.h"

#include <deque>
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

bool is_bracketed(TokenKind kind) {
  return kind == TokenKind::kQuotedName || kind == TokenKind::kMatchedName;
}

// The name in the brackets of such a token, with the blanks around it.
String text_inside(const Token& token) {
  const std::string_view inside = token.text.substr(1, token.text.size() - 2);
  return token.kind == TokenKind::kQuotedName ? without_doubled_brackets(inside) : String(inside);
}

// A recursive-descent parser: a member function for each production, with the production above it.
// Operators of lower precedence are parsed by the outer functions. Every function emits the code of
// what it has parsed, operands before their operator.
//
// Only the first error is reported. After it the current token is the end of the text, at which
// every production returns. The program is discarded at last; until then an operator in it may lack
// its right operand, but never its left one, so the depth of the stack is never negative.
class Parser {
 public:
  Parser(std::string_view text, const IsDefined& is_defined)
      : m_text(text), m_lexer(text, is_defined) {}

  Compilation compile();

 private:
  using Production = void (Parser::*)();

  void expression();
  void term();
  void signed_power();
  void power();
  void primary();
  void name(const Token& token);
  void bracketed_name(const Token& token);
  void call(const Token& token, std::size_t function);
  void number(const Token& token);
  void variable(std::string_view name);
  void push_number(Double number);
  void close_parenthesis();
  void report_missing_operand();
  void report_misplaced();
  String name_up_to_next_bracket() const;

  void nested(Production production);
  bool accept(std::string_view symbol);
  Token advance();
  void read_token();

  std::size_t place_of(const Token& token) const;
  std::size_t last_place() const;
  void fail(String message, std::size_t place);
  void fail_at(String (*message)(const Token&, std::size_t), const Token& token);

  std::string_view m_text;
  Lexer m_lexer;
  Token m_current;
  Token m_last;                // that was consumed
  std::size_t m_consumed = 0;  // bytes, to the end of the last token that was consumed
  int m_nesting = 0;
  std::unordered_map<std::string_view, std::size_t> m_variables;  // positions as operands
  std::deque<String> m_undoubled;  // the names among them that are not written so in the text
  Compilation m_result;
};

// text = expression end
Compilation Parser::compile() {
  read_token();
  expression();
  if (m_current.kind != TokenKind::kEnd) report_misplaced();
  if (!m_result.message.empty()) m_result.program = {};
  return std::move(m_result);
}

// expression = term {("+" | "-") term}
void Parser::expression() {
  term();
  while (true) {
    if (accept("+")) {
      term();
      m_result.program.add_operation(Opcode::kAdd);
    } else if (accept("-")) {
      term();
      m_result.program.add_operation(Opcode::kSubtract);
    } else {
      return;
    }
  }
}

// term = signed power {("*" | "/") signed power}
void Parser::term() {
  signed_power();
  while (true) {
    if (accept("*")) {
      signed_power();
      m_result.program.add_operation(Opcode::kMultiply);
    } else if (accept("/")) {
      signed_power();
      m_result.program.add_operation(Opcode::kDivide);
    } else {
      return;
    }
  }
}

// signed power = {"+" | "-"} power
void Parser::signed_power() {
  bool negative = false;
  while (true) {
    if (accept("-")) {
      negative = !negative;
    } else if (!accept("+")) {
      break;
    }
  }
  power();
  if (negative) m_result.program.add_operation(Opcode::kNegate);
}

// power = primary ["^" signed power]
//
// The exponent is a signed power itself. So the operator is right-associative (2^3^2), 2^-1 is
// allowed, and "^" takes precedence over the minus of -x^2.
void Parser::power() {
  primary();
  if (!accept("^")) return;
  nested(&Parser::signed_power);
  m_result.program.add_operation(Opcode::kPower);
}

// primary = number | name | bracketed name | "(" expression ")"
void Parser::primary() {
  if (accept("(")) {
    nested(&Parser::expression);
    close_parenthesis();
  } else if (m_current.kind == TokenKind::kNumber) {
    number(advance());
  } else if (m_current.kind == TokenKind::kName) {
    name(advance());
  } else if (is_bracketed(m_current.kind)) {
    bracketed_name(advance());
  } else {
    report_missing_operand();
  }
}

// name = call | constant | variable
void Parser::name(const Token& token) {
  if (const std::optional<std::size_t> function = find_function(token.text)) {
    return call(token, *function);
  }
  if (m_current.text == "(") return fail_at(unknown_function_message, token);
  if (const std::optional<Double> constant = find_constant(token.text)) {
    return push_number(*constant);
  }
  variable(token.text);
}

// bracketed name = quoted name | matched name
void Parser::bracketed_name(const Token& token) {
  std::string_view inside = token.text.substr(1, token.text.size() - 2);
  if (token.kind == TokenKind::kQuotedName && inside.find("]]") != inside.npos) {
    inside = m_undoubled.emplace_back(without_doubled_brackets(inside));
  }
  inside = trim_blanks(inside);
  if (inside.empty()) return fail(nameless_brackets_message(place_of(token)), place_of(token));
  variable(inside);
}

// call = function "(" [expression {"," expression}] ")", with as many as the function takes
//
// A variadic function is called for its first two arguments, then for that value and each further
// argument, so that the stack needs no more than two places for them.
void Parser::call(const Token& token, std::size_t index) {
  const Function& function = functions()[index];
  if (!accept("(")) return fail_at(arguments_missing_message, token);

  std::size_t count = 0;
  if (m_current.text != ")") {
    do {
      nested(&Parser::expression);
      ++count;
      if (function.variadic && count > 1) m_result.program.add_call(index, 2);
    } while (accept(","));
  }
  close_parenthesis();

  const std::size_t wanted = function.unary ? 1 : 2;
  const bool accepted = function.variadic ? count > 0 : count == wanted;
  if (!accepted) {
    return fail(wrong_count_message(token, place_of(token), function, count), place_of(token));
  }
  if (!function.variadic) m_result.program.add_call(index, static_cast<int>(count));
}

void Parser::number(const Token& token) {
  const std::optional<Double> value = text_to_number(token.text);
  constexpr Double kLargest = std::numeric_limits<Double>::max();
  if (!value || *value > kLargest) return fail_at(too_large_number_message, token);
  push_number(*value);
}

void Parser::variable(std::string_view name) {
  const auto [entry, is_new] = m_variables.try_emplace(name, 0);
  if (is_new) entry->second = m_result.program.add_operand({String(name), 0});
  m_result.program.add_push(entry->second);
}

void Parser::push_number(Double number) {
  m_result.program.add_push(m_result.program.add_operand({"", number}));
}

void Parser::close_parenthesis() {
  if (accept(")")) return;
  if (m_current.kind == TokenKind::kEnd) {
    return fail(parenthesis_missing_message(last_place()), last_place());
  }
  report_misplaced();
}

void Parser::report_missing_operand() {
  if (m_current.kind == TokenKind::kEnd) {
    return fail(operand_missing_message(last_place()), last_place());
  }
  fail_at(operand_needed_message, m_current);
}

void Parser::report_misplaced() {
  const String name = name_up_to_next_bracket();
  if (name.empty()) return fail_at(misplaced_message, m_current);
  const std::size_t place = place_of(m_current);
  fail(split_name_message(m_current, place, name), place);
}

// The name that the writer of [a]b] means, a]b. Empty where the last token was no name in brackets,
// where an operator is not what is missing after it, and where no "]" follows it or another "["
// comes first.
String Parser::name_up_to_next_bracket() const {
  if (!is_bracketed(m_last.kind)) return {};
  const bool lacks_operator = m_current.kind < TokenKind::kUnknownCharacter &&
                              m_current.text != ")" && m_current.text != ",";
  const std::string_view rest = m_text.substr(m_consumed);
  const std::size_t end = rest.find_first_of("[]");
  if (!lacks_operator || end == rest.npos || rest[end] == '[') return {};
  if (!is_valid_utf8(rest.substr(0, end))) return {};
  return text_inside(m_last) + ']' + String(rest.substr(0, end));
}

void Parser::nested(Production production) {
  if (m_nesting == kMaxNesting) {
    return fail(too_deep_message(last_place()), last_place());
  }
  ++m_nesting;
  (this->*production)();
  --m_nesting;
}

// Consumes the current token if it is this symbol.
bool Parser::accept(std::string_view symbol) {
  if (m_current.kind != TokenKind::kSymbol || m_current.text != symbol) return false;
  advance();
  return true;
}

Token Parser::advance() {
  const Token token = m_current;
  m_last = token;
  m_consumed = static_cast<std::size_t>(token.text.data() - m_text.data()) + token.text.size();
  read_token();
  return token;
}

void Parser::read_token() {
  m_current = m_lexer.next();
  if (m_current.depends_on_names) m_result.depends_on_names = true;
}

// The character at which a token begins, from 1. It is counted only for an error message.
std::size_t Parser::place_of(const Token& token) const {
  const auto begin = static_cast<std::size_t>(token.text.data() - m_text.data());
  return count_characters(m_text.substr(0, begin)) + 1;
}

// The last character of the last token consumed; 0 before the first.
std::size_t Parser::last_place() const {
  return count_characters(m_text.substr(0, m_consumed));
}

void Parser::fail(String message, std::size_t place) {
  if (m_result.message.empty()) {
    m_result.message = std::move(message);
    m_result.place = static_cast<Integer>(place);
  }
  m_current = {};
  m_lexer.stop();
}

// A token that is allowed nowhere is reported as such, whatever was expected in its place.
void Parser::fail_at(String (*message)(const Token&, std::size_t), const Token& token) {
  const bool usable = token.kind < TokenKind::kUnknownCharacter;
  fail((usable ? message : unusable_message)(token, place_of(token)), place_of(token));
}

}  // namespace

Compilation compile(std::string_view text, const IsDefined& is_defined) {
  if (text.size() > kMaxLength) return {{}, too_long_message(text.size()), 0, false};
  return Parser(text, is_defined).compile();
}

bool is_variable_name(std::string_view text) {
  return text.size() <= kMaxLength && is_name(text) && !find_function(text) && !find_constant(text);
}

}  // namespace kurv::expr
