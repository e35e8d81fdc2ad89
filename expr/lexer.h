// The lexer: splits the text of an expression into tokens.
#pragma once

#include <cstddef>
#include <string_view>

namespace kurv::expr {

enum class TokenKind {
  kNumber,
  kName,
  kQuotedName,
  kSymbol,  // one of + - * / ^ ( ) ,
  kEnd,
  // Errors, which end the parse:
  kUnknownCharacter,
  kUnclosedBracket,
  kInvalidUtf8
};

struct Token {
  TokenKind kind = TokenKind::kEnd;
  std::string_view text;  // as written in the expression; empty at the end
};

// Returns the tokens of a text one after the other, in linear time.
//
//   number = digits ["." [digits]] [exponent] | "." digits [exponent]
//   exponent = ("e" | "E") ["+" | "-"] digits
//   name = letter {letter | digit}
//   quoted name = "[" {any character but "]"} "]"
//
// Blanks, tabulators and line ends separate tokens and mean nothing else.
class Lexer {
 public:
  explicit Lexer(std::string_view text) : m_text(text) {}

  Token next();

 private:
  Token take(TokenKind kind, std::size_t size);
  Token take_quoted_name();
  std::size_t digits_from(std::size_t at) const;
  std::size_t number_size() const;
  std::size_t name_size() const;

  std::string_view m_text;
  std::size_t m_at = 0;
};

// Whether the whole text is one name, as an expression would read it.
bool is_name(std::string_view text);

}  // namespace kurv::expr
