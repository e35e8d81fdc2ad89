#include "expr/lexer.h"

#include "expr/characters.h"

namespace kurv::expr {

Token Lexer::next() {
  m_at = m_text.find_first_not_of(" \t\r\n", m_at);
  if (m_at == std::string_view::npos) {
    m_at = m_text.size();
    return {};
  }
  if (const std::size_t size = number_size(); size > 0) return take(TokenKind::kNumber, size);
  if (const std::size_t size = name_size(); size > 0) return take(TokenKind::kName, size);
  if (m_text[m_at] == '[') return take_bracketed_name();
  constexpr std::string_view kSymbols = "+-*/^(),";
  if (kSymbols.find(m_text[m_at]) != std::string_view::npos) return take(TokenKind::kSymbol, 1);

  const Character character = character_at(m_text, m_at);
  if (character.size == 0) return take(TokenKind::kInvalidUtf8, 1);
  return take(TokenKind::kUnknownCharacter, character.size);
}

Token Lexer::take(TokenKind kind, std::size_t size) {
  const Token token{kind, m_text.substr(m_at, size), false};
  m_at += size;
  return token;
}

Token Lexer::take_bracketed_name() {
  const BracketedName name = bracketed_name_at(m_text, m_at, *m_is_defined);
  const std::size_t end = name.size > 0 ? m_at + name.size : m_text.size();
  for (std::size_t at = m_at; at < end;) {
    const std::size_t size = character_at(m_text, at).size;
    if (size == 0) {
      m_at = at;
      return take(TokenKind::kInvalidUtf8, 1);
    }
    at += size;
  }
  if (name.size == 0) return take(TokenKind::kUnclosedBracket, end - m_at);
  Token token = take(name.doubled ? TokenKind::kQuotedName : TokenKind::kMatchedName, name.size);
  token.depends_on_names = name.depends_on_names;
  return token;
}

// The position after the digits that begin at `at`.
std::size_t Lexer::digits_from(std::size_t at) const {
  while (at < m_text.size() && m_text[at] >= '0' && m_text[at] <= '9') ++at;
  return at;
}

// The size of the number that begins here, or 0. An "e" without digits after it is left for the
// next token, so that "2e" is refused in the same way as "2x".
std::size_t Lexer::number_size() const {
  std::size_t end = digits_from(m_at);
  std::size_t digits = end - m_at;
  if (end < m_text.size() && m_text[end] == '.') {
    const std::size_t fraction = end + 1;
    end = digits_from(fraction);
    digits += end - fraction;
  }
  if (digits == 0) return 0;

  if (end < m_text.size() && (m_text[end] == 'e' || m_text[end] == 'E')) {
    std::size_t exponent = end + 1;
    if (exponent < m_text.size() && (m_text[exponent] == '+' || m_text[exponent] == '-')) {
      ++exponent;
    }
    const std::size_t exponent_end = digits_from(exponent);
    if (exponent_end > exponent) end = exponent_end;
  }
  return end - m_at;
}

// The size of the name that begins here, or 0.
std::size_t Lexer::name_size() const {
  std::size_t at = m_at;
  while (at < m_text.size()) {
    const Character character = character_at(m_text, at);
    const bool belongs = is_letter(character.code) || (at > m_at && is_digit(character.code));
    if (character.size == 0 || !belongs) break;
    at += character.size;
  }
  return at - m_at;
}

bool is_name(std::string_view text) {
  const IsDefined none;
  const Token token = Lexer(text, none).next();
  return token.kind == TokenKind::kName && token.text.size() == text.size();
}

}  // namespace kurv::expr
