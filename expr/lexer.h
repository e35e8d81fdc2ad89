// The lexer: splits the text of an expression into tokens.
#pragma once

#include <cstddef>
#include <string_view>

#include "expr/bracketed_name.h"

namespace kurv::expr {

enum class TokenKind {
  kNumber,
  kName,
  kQuotedName,   // in brackets, "]]" standing for "]"
  kMatchedName,  // in brackets that match, as it is
  kSymbol,       // one of + - * / ^ ( ) ,
  kEnd,
  // Errors, which end the parse:
  kUnknownCharacter,
  kUnclosedBracket,
  kInvalidUtf8
};

struct Token {
  TokenKind kind = TokenKind::kEnd;
  std::string_view text;          // as written in the expression; empty at the end
  bool depends_on_names = false;  // whether another definition may change how it is read
};

// Returns the tokens of a text one after the other.
//
//   number = digits ["." [digits]] [exponent] | "." digits [exponent]
//   exponent = ("e" | "E") ["+" | "-"] digits
//   name = letter {letter | digit}
//   quoted name = "[" {any character but "]" | "]]"} "]"
//   matched name = "[" {any character but "[" and "]" | matched name} "]"
//
// Where a bracket can be read as either, bracketed_name_at() decides.
//
// Blanks, tabulators and line ends separate tokens and mean nothing else.
class Lexer {
 public:
  // The function is called while tokens are read.
  Lexer(std::string_view text, const IsDefined& is_defined)
      : m_text(text), m_is_defined(&is_defined) {}

  // Nothing is left to read.
  void stop() { m_at = m_text.size(); }

  Token next();

 private:
  Token take(TokenKind kind, std::size_t size);
  Token take_bracketed_name();
  std::size_t digits_from(std::size_t at) const;
  std::size_t number_size() const;
  std::size_t name_size() const;

  std::string_view m_text;
  const IsDefined* m_is_defined;
  std::size_t m_at = 0;
};

// Whether the whole text is one name, as an expression would read it.
bool is_name(std::string_view text);

}  // namespace kurv::expr
