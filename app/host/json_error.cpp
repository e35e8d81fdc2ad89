#include "app/host/json_error.h"

#include <KurvGraph/text.h>

#include <QJsonDocument>
#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "app/host/host_fault.h"

namespace kurv::app {

namespace {

constexpr int kMaxDepth = 1024;  // of the parser
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool is_word_character(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}
bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

// The text that JSON has for a number that it does not know.
std::string_view text_of_number(std::string_view word) {
  if (equals_ignoring_case(word, "nan") || equals_ignoring_case(word, "-nan")) return "\"NaN\"";
  const bool is_negative = word.starts_with('-');
  const std::string_view size = word.substr(is_negative ? 1 : 0);
  if (!equals_ignoring_case(size, "inf") && !equals_ignoring_case(size, "infinity")) return {};
  return is_negative ? "\"-Inf\"" : "\"Inf\"";
}

// Reads a line as the parser does, which takes more than JSON: any bytes after a backslash, and
// numbers such as ".5".
class JsonScanner {
 public:
  explicit JsonScanner(std::string_view line) : m_line(line) {}

  // Nothing where the whole line is an array or an object.
  std::optional<std::string> error() {
    try {
      if (m_line.starts_with(kByteOrderMark)) m_at = kByteOrderMark.size();
      skip_blanks();
      if (at_end()) return "the line is empty";
      if (!next_is('[') && !next_is('{')) fail_at_token("where '{' is expected");
      const bool is_object = next_is('{');
      value();
      skip_blanks();
      if (!at_end()) fail_at_token(is_object ? "after the end of the object" : "after its end");
    } catch (const Problem& problem) {
      return "column " + std::to_string(column(problem.at)) + ": " + problem.text;
    }
    return std::nullopt;
  }

 private:
  struct Problem {
    std::size_t at;
    std::string text;
  };

  bool at_end() const { return m_at >= m_line.size(); }
  bool next_is(char c) const { return !at_end() && m_line[m_at] == c; }
  void skip_blanks() { m_at = std::min(m_line.find_first_not_of(" \t\r\n", m_at), m_line.size()); }
  bool take(char c) {
    skip_blanks();
    if (!next_is(c)) return false;
    ++m_at;
    return true;
  }
  // Counted in characters, from 1.
  std::size_t column(std::size_t at) const {
    const auto begin = m_line.begin();
    const auto is_first_byte = [](char c) { return !is_utf8_continuation(c); };
    return static_cast<std::size_t>(
               std::count_if(begin, begin + static_cast<std::ptrdiff_t>(at), is_first_byte)) +
           1;
  }

  [[noreturn]] void fail(std::size_t at, std::string text) const { throw Problem{at, text}; }

  // Fails at the word or the character that is next.
  [[noreturn]] void fail_at_token(const std::string& what) const {
    if (at_end()) fail(m_at, "the line ends " + what);
    fail(m_at, "found " + token() + ' ' + what);
  }
  std::string token() const {
    if (next_is('\'')) return "a single quote";
    std::size_t end = m_at;
    while (end < m_line.size() && is_word_character(m_line[end])) ++end;
    if (end > m_at) return quote(m_line.substr(m_at, end - m_at));
    ++end;
    while (end < m_line.size() && is_utf8_continuation(m_line[end])) ++end;
    require_utf8(m_at, end);
    return quote(m_line.substr(m_at, end - m_at));
  }
  void require_utf8(std::size_t begin, std::size_t end) const {
    while (begin < end) {
      std::size_t next = begin + 1;
      while (next < end && is_utf8_continuation(m_line[next])) ++next;
      if (!is_valid_utf8(m_line.substr(begin, next - begin))) {
        constexpr std::string_view kDigits = "0123456789ABCDEF";
        const auto byte = static_cast<unsigned char>(m_line[begin]);
        fail(begin, std::string("found the byte 0x") + kDigits[byte / 16] + kDigits[byte % 16] +
                        ", which is no UTF-8");
      }
      begin = next;
    }
  }

  void value() {
    skip_blanks();
    if (next_is('{')) return object();
    if (next_is('[')) return array();
    if (next_is('"')) return text();
    if (!at_end() && (is_digit(m_line[m_at]) || next_is('-') || next_is('.'))) return number();
    word();
  }

  void enter() {
    if (++m_depth > kMaxDepth) fail(m_at, "arrays and objects are nested too deeply");
    ++m_at;
  }

  void object() {
    enter();
    skip_blanks();
    if (!next_is('}')) {
      do {
        skip_blanks();
        if (!next_is('"')) fail_at_token("where a key in double quotes is expected");
        text();
        if (!take(':')) fail_at_token("where ':' is expected");
        value();
      } while (take(','));
    }
    if (!take('}')) fail_at_token("where ',' or '}' is expected");
    --m_depth;
  }

  void array() {
    enter();
    skip_blanks();
    if (!next_is(']')) {
      do value();
      while (take(','));
    }
    if (!take(']')) fail_at_token("where ',' or ']' is expected");
    --m_depth;
  }

  void text() {
    const std::size_t begin = m_at++;
    while (!at_end() && !next_is('"')) m_at += next_is('\\') ? 2 : 1;
    if (at_end()) {
      fail(m_line.size(),
           "the line ends in a text that begins at column " + std::to_string(column(begin)));
    }
    require_utf8(begin, m_at);
    ++m_at;
  }

  void digits() {
    while (!at_end() && is_digit(m_line[m_at])) ++m_at;
  }
  void number() {
    const std::size_t begin = m_at;
    if (next_is('-')) ++m_at;
    if (!at_end() && is_word_character(m_line[m_at]) && !is_digit(m_line[m_at])) {
      while (!at_end() && is_word_character(m_line[m_at])) ++m_at;
      return no_value(m_line.substr(begin, m_at - begin), begin);
    }
    if (next_is('0')) {
      ++m_at;
    } else {
      digits();
    }
    if (next_is('.')) {
      ++m_at;
      digits();
    }
    if (next_is('e') || next_is('E')) {
      ++m_at;
      if (next_is('+') || next_is('-')) ++m_at;
      digits();
    }
    check_number(m_line.substr(begin, m_at - begin), begin);
  }
  void check_number(std::string_view text, std::size_t begin) const {
    bool is_number = false;
    QByteArray(text.data(), static_cast<qsizetype>(text.size())).toDouble(&is_number);
    if (is_number) return;
    const bool is_large = is_digit(text.back());
    fail(begin, quote(text) + (is_large ? " is too large a number" : " is no JSON number"));
  }

  void word() {
    const std::size_t begin = m_at;
    std::size_t end = begin;
    while (end < m_line.size() && is_word_character(m_line[end])) ++end;
    const std::string_view found = m_line.substr(begin, end - begin);
    if (found == "true" || found == "false" || found == "null") {
      m_at = end;
      return;
    }
    no_value(found, begin);
  }

  [[noreturn]] void no_value(std::string_view found, std::size_t begin) {
    static constexpr std::array<std::string_view, 3> kWords = {"true", "false", "null"};
    m_at = begin;
    if (const std::string_view number = text_of_number(found); !number.empty()) {
      fail(begin,
           quote(found) + " is no JSON number; write it in double quotes: " + std::string(number));
    }
    std::string meant =
        suggestion(QString::fromUtf8(found.data(), static_cast<qsizetype>(found.size())), kWords);
    if (found == "None") meant = "; did you mean 'null'?";
    if (!meant.empty()) fail(begin, quote(found) + " is no JSON value" + meant);
    fail_at_token("where a value is expected");
  }

  std::string_view m_line;
  std::size_t m_at = 0;
  int m_depth = 0;
};

}  // namespace

std::string json_error(const QByteArray& line) {
  const std::string_view text(line.constData(), static_cast<std::size_t>(line.size()));
  if (const std::optional<std::string> error = JsonScanner(text).error()) return *error;
  // The parser knows better.
  QJsonParseError parsed;
  QJsonDocument::fromJson(line, &parsed);
  return "column " + std::to_string(parsed.offset + 1) + ": " + parsed.errorString().toStdString();
}

}  // namespace kurv::app
