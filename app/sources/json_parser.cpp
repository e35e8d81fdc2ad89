#include "app/sources/json_parser.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <charconv>

#include "app/base/user_error.h"
#include "app/sources/cell_text.h"

namespace kurv::app {

namespace {

// The tables of real files nest a few levels; the parser calls itself for each.
constexpr int kMaxNesting = 128;

struct SyntaxError {
  std::size_t offset;
  const char* what;
};

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

bool is_literal_character(char c) {
  return is_digit(c) || (to_lower(c) >= 'a' && to_lower(c) <= 'z') || c == '-' || c == '+' ||
         c == '.';
}

// -?(0|[1-9]\d*)(\.\d+)?([eE][+-]?\d+)?
bool is_number(std::string_view text) {
  std::size_t at = text.starts_with('-') ? 1 : 0;
  const auto skip_digits = [&] {
    const std::size_t begin = at;
    while (at < text.size() && is_digit(text[at])) ++at;
    return at - begin;
  };
  const bool begins_with_zero = at < text.size() && text[at] == '0';
  const std::size_t digits = skip_digits();
  if (digits == 0 || (begins_with_zero && digits > 1)) return false;
  if (at < text.size() && text[at] == '.') {
    ++at;
    if (skip_digits() == 0) return false;
  }
  if (at < text.size() && to_lower(text[at]) == 'e') {
    ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    if (skip_digits() == 0) return false;
  }
  return at == text.size();
}

// Whether the text could be the beginning of a word or a number.
bool is_literal_prefix(std::string_view text) {
  for (const std::string_view word : {"true", "false", "null", "NaN", "Infinity", "-Infinity"}) {
    if (word.starts_with(text)) return true;
  }
  return text.find_first_not_of("0123456789+-.eE") == std::string_view::npos;
}

void append_code_point(std::string& text, unsigned code) {
  const auto add = [&](unsigned byte) { text += static_cast<char>(byte); };
  if (code < 0x80) {
    add(code == 0 ? ' ' : code);
  } else if (code < 0x800) {
    add(0xC0 | code >> 6);
    add(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    add(0xE0 | code >> 12);
    add(0x80 | (code >> 6 & 0x3F));
    add(0x80 | (code & 0x3F));
  } else {
    add(0xF0 | code >> 18);
    add(0x80 | (code >> 12 & 0x3F));
    add(0x80 | (code >> 6 & 0x3F));
    add(0x80 | (code & 0x3F));
  }
}

class Parser {
 public:
  Parser(std::string_view text, JsonHandler& handler) : m_text(text), m_handler(handler) {}

  std::size_t skip_blanks() {
    m_at = std::min(m_text.size(), m_text.find_first_not_of(" \t\r\n", m_at));
    return m_at;
  }

  // After the last value.
  std::size_t offset() const { return m_at; }

  void parse_value() {
    skip_blanks();
    switch (next()) {
      case '{':
        return parse_object();
      case '[':
        return parse_array();
      case '"':
        return m_handler.scalar(take_string());
      default:
        return m_handler.scalar(take_literal());
    }
  }

 private:
  [[noreturn]] void fail(const char* what) const { throw SyntaxError{m_at, what}; }

  char next() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }

  bool take(char c) {
    skip_blanks();
    if (m_at == m_text.size() || m_text[m_at] != c) return false;
    ++m_at;
    return true;
  }

  void enter() {
    if (++m_depth > kMaxNesting) fail("it is nested too deeply");
    ++m_at;
  }

  void parse_object() {
    enter();
    m_handler.begin_object();
    if (!take('}')) {
      do {
        skip_blanks();
        if (next() != '"') fail("a key in quotation marks is missing");
        m_handler.key(take_string());
        if (!take(':')) fail("a colon is missing");
        parse_value();
      } while (take(','));
      if (!take('}')) fail("a comma or } is missing");
    }
    m_handler.end_object();
    --m_depth;
  }

  void parse_array() {
    enter();
    m_handler.begin_array();
    if (!take(']')) {
      do {
        parse_value();
      } while (take(','));
      if (!take(']')) fail("a comma or ] is missing");
    }
    m_handler.end_array();
    --m_depth;
  }

  // A number, or a word, as the text of a cell.
  std::string take_literal() {
    std::size_t end = m_at;
    while (end < m_text.size() && is_literal_character(m_text[end])) ++end;
    const std::string_view text = m_text.substr(m_at, end - m_at);
    std::string cell;
    if (is_number(text)) {
      cell = number_cell(text);
    } else if (text == "true" || text == "false") {
      cell = boolean_cell(text == "true");
    } else if (text == "NaN") {
      cell = "NaN";
    } else if (text == "Infinity" || text == "-Infinity") {
      cell = text.front() == '-' ? "-Inf" : "Inf";
    } else if (text != "null") {
      if (end == m_text.size() && is_literal_prefix(text)) m_at = end;
      fail("no value begins here");
    }
    m_at = end;
    return cell;
  }

  // Stays valid until the next string.
  std::string_view take_string() {
    const std::size_t begin = ++m_at;
    skip_plain();
    std::string_view string = m_text.substr(begin, m_at - begin);
    if (next() == '\\') {
      m_string = string;
      while (next() == '\\') {
        take_escape();
        const std::size_t plain = m_at;
        skip_plain();
        m_string += m_text.substr(plain, m_at - plain);
      }
      string = m_string;
    }
    if (m_at == m_text.size()) fail("a text has no end");
    if (next() != '"') fail("a text has a control character");
    if (!is_valid_utf8(string)) fail("a text is not in UTF-8");
    ++m_at;
    return string;
  }

  void skip_plain() {
    while (m_at < m_text.size() && m_text[m_at] != '"' && m_text[m_at] != '\\' &&
           static_cast<unsigned char>(m_text[m_at]) >= ' ') {
      ++m_at;
    }
  }

  void take_escape() {
    constexpr std::string_view kLetters = "\"\\/bfnrt";
    constexpr std::string_view kCharacters = "\"\\/\b\f\n\r\t";
    ++m_at;
    if (next() == 'u') return append_code_point(m_string, take_code_point());
    const std::size_t index = kLetters.find(next());
    if (index == std::string_view::npos) fail("an escape in a text is wrong");
    m_string += kCharacters[index];
    ++m_at;
  }

  // After the backslash. Characters above U+FFFF are two escapes.
  unsigned take_code_point() {
    const unsigned first = take_hexadecimal();
    if (first < 0xD800 || first > 0xDFFF) return first;
    if (first > 0xDBFF || m_text.substr(m_at, 2) != "\\u") fail("a surrogate has no pair");
    ++m_at;
    const unsigned second = take_hexadecimal();
    if (second < 0xDC00 || second > 0xDFFF) fail("a surrogate has no pair");
    return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
  }

  unsigned take_hexadecimal() {
    const std::string_view digits = m_text.substr(m_at + 1, 4);
    unsigned code = 0;
    const char* const end = digits.data() + digits.size();
    if (digits.size() < 4) m_at = m_text.size();
    if (digits.size() < 4 || std::from_chars(digits.data(), end, code, 16).ptr != end) {
      fail("an escape in a text is wrong");
    }
    m_at += 5;
    return code;
  }

  std::string_view m_text;
  JsonHandler& m_handler;
  std::size_t m_at = 0;
  int m_depth = 0;
  std::string m_string;
};

UserError no_json(const std::string& path, std::string_view text, const SyntaxError& error) {
  if (error.offset >= text.size()) {
    return UserError(path + " is incomplete: it ends before its table does; write it again.");
  }
  return UserError(path + " is no valid JSON in line " +
                   std::to_string(line_of(text, error.offset)) + ": " + error.what +
                   "; correct it, or save the table as a CSV file.");
}

}  // namespace

std::size_t line_of(std::string_view text, std::size_t offset) {
  const std::string_view before = text.substr(0, offset);
  return static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1;
}

std::size_t parse_json(std::string_view text, const std::string& path, JsonHandler& handler) {
  Parser parser(text, handler);
  std::size_t end_of_last = 0;
  while (true) {
    const std::size_t begin = parser.skip_blanks();
    if (begin == text.size()) return begin;
    try {
      parser.parse_value();
    } catch (const SyntaxError& error) {
      const std::string_view before = text.substr(end_of_last, begin - end_of_last);
      const std::string_view rest = trim_whitespace(text.substr(begin));
      const bool is_last_line = end_of_last > 0 && before.find('\n') != std::string_view::npos &&
                                rest.find('\n') == std::string_view::npos;
      if (!is_last_line) throw no_json(path, text, error);
      return begin;
    }
    end_of_last = parser.offset();
  }
}

}  // namespace kurv::app
