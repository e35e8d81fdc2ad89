#include "app/csv/csv_parser.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "app/base/user_error.h"
#include "app/csv/characters.h"
#include "app/csv/line_fields.h"

namespace kurv::app {

namespace {

constexpr bool is_line_end(char c) {
  return c == '\n' || c == '\r';
}

std::size_t line_ends(std::string_view text) {
  std::size_t count = 0;
  char before = 0;
  for (const char c : text) {
    if (c == '\r' || (c == '\n' && before != '\r')) ++count;
    before = c;
  }
  return count;
}

// What is kept of a column, whatever is in it, takes a hundred times the memory of its separator.
void check_widths(const CsvTable& table, const std::string& path) {
  constexpr std::size_t kMaxColumns = 100'000;
  for (std::size_t row = 0; row < table.rows(); ++row) {
    if (table.width(row) <= kMaxColumns) continue;
    throw UserError(path + " has " + std::to_string(table.width(row)) + " fields in line " +
                    std::to_string(table.line(row)) +
                    ", and at most 100000 can be read; is this the separator? --separator names "
                    "another one.");
  }
}

}  // namespace

class CsvParser {
 public:
  CsvParser(CsvTable& table, const ParseRules& rules, const std::string& path)
      : m_table(table),
        m_rules(rules),
        m_path(path),
        m_text(table.m_text.data()),
        m_at(m_text + std::min(rules.offset, table.m_text.size())),
        m_end(m_text + table.m_text.size()),
        m_line(rules.line) {
    m_ends_field.fill(false);
    const auto set = [&](char c) { m_ends_field[static_cast<unsigned char>(c)] = true; };
    for (const char c : {'\n', '\r', rules.separator}) set(c);
    if (rules.separator == kBlanks) set('\t');
    // A line of the table is rarely shorter than the first ones, so that the cells need not move.
    const auto bytes = static_cast<std::size_t>(m_end - m_at);
    m_table.m_cells.reserve(std::min(bytes / 2 + 1, cells_in_sample(bytes)));
  }

  void parse() {
    while (m_at != m_end) {
      skip_blanks();
      if (m_at == m_end) break;
      if (is_line_end(*m_at)) {
        skip_line_end();
      } else if (is_comment()) {
        ++m_table.m_source.comment_lines;
        skip_to_line_end();
      } else if (is_rule_line()) {
        skip_to_line_end();
      } else {
        parse_row();
      }
    }
  }

 private:
  bool ends_field(char c) const { return m_ends_field[static_cast<unsigned char>(c)]; }

  // How many cells the text has if it goes on as it begins.
  std::size_t cells_in_sample(std::size_t bytes) const {
    constexpr std::size_t kSample = 64 * 1024;
    const std::size_t size = std::min(bytes, kSample);
    std::size_t ends = 1;
    for (const char* c = m_at; c != m_at + size; ++c) ends += ends_field(*c) ? 1 : 0;
    return size == 0 ? 0 : ends * (bytes / size + 1) + ends / 16;
  }

  void skip_blanks() {
    if (m_rules.separator == kFixedWidth) {
      const char* begin = m_at;
      while (m_at != m_end && is_blank(*m_at)) ++m_at;
      // The places of the columns count from the beginning of the line.
      if (m_at != m_end && !is_line_end(*m_at)) m_at = begin;
      return;
    }
    const bool merges = m_rules.separator == kBlanks;
    while (m_at != m_end && is_blank(*m_at) && (merges || !ends_field(*m_at))) ++m_at;
  }

  void skip_line_end() {
    const bool pair = *m_at == '\r' && m_at + 1 != m_end && m_at[1] == '\n';
    m_at += pair ? 2 : 1;
    ++m_line;
  }

  void skip_to_line_end() {
    while (m_at != m_end && !is_line_end(*m_at)) ++m_at;
  }

  bool is_comment() const {
    const bool first = m_rules.first_is_no_comment && m_table.m_lines.empty();
    if (m_rules.comment.empty() || first) return false;
    const char* begin = m_at;
    while (begin != m_end && is_blank(*begin)) ++begin;
    return std::string_view(begin, static_cast<std::size_t>(m_end - begin))
        .starts_with(m_rules.comment);
  }

  bool is_rule_line() const {
    if (*m_at != '-' && *m_at != '=' && *m_at != '+' && *m_at != '|') return false;
    const char* const end = std::find_if(m_at, m_end, is_line_end);
    return is_rule({m_at, static_cast<std::size_t>(end - m_at)});
  }

  void parse_row() {
    m_table.m_row_starts.push_back(static_cast<std::uint32_t>(m_table.m_cells.size()));
    m_table.m_lines.push_back(static_cast<std::uint32_t>(m_line));
    if (m_rules.separator == kFixedWidth) {
      parse_fixed_fields();
    } else {
      parse_fields();
    }
    if (m_at != m_end) skip_line_end();
  }

  // Ends at the line end or the end of the text.
  void parse_fields() {
    if (m_rules.outer_bars && m_at != m_end && *m_at == m_rules.separator) ++m_at;
    for (;;) {
      skip_blanks();
      // Blanks at the end of a line separate nothing.
      const bool at_end = m_at == m_end || is_line_end(*m_at);
      if (m_rules.separator == kBlanks && at_end) return;
      if (!at_end && *m_at == '"') {
        parse_quoted_field();
      } else {
        parse_plain_field();
      }
      if (m_at == m_end || is_line_end(*m_at)) return;
      ++m_at;
      if (m_rules.outer_bars && rest_is_blank()) return;
    }
  }

  bool rest_is_blank() {
    skip_blanks();
    return m_at == m_end || is_line_end(*m_at);
  }

  void parse_plain_field() {
    const char* const begin = m_at;
    while (m_at != m_end && !ends_field(*m_at)) ++m_at;
    const char* end = m_at;
    while (end != begin && is_blank(end[-1])) --end;
    if (m_rules.separator == kBlanks && continues_time(begin, end)) {
      m_table.m_cells.back().end = static_cast<std::uint32_t>(end - m_text);
    } else {
      add_cell(begin, end);
    }
  }

  // Whether the field and the one before it in the row are one time.
  bool continues_time(const char* begin, const char* end) const {
    if (m_table.m_cells.size() == m_table.m_row_starts.back()) return false;
    const auto& before = m_table.m_cells.back();
    return are_one_time({m_text + before.begin, before.end - before.begin},
                        {begin, static_cast<std::size_t>(end - begin)},
                        m_rules.joins_dates_and_times);
  }

  // The usual quoted field is a view of the text; one with a quotation mark inside is rewritten in
  // its place, where it only gets shorter.
  void parse_quoted_field() {
    m_table.m_has_quotes = true;
    const char* const begin = ++m_at;
    const char* const end = find_quote(begin);
    if (end != m_end) {
      const char* after = end + 1;
      while (after != m_end && is_blank(*after) && !ends_field(*after)) ++after;
      if (after == m_end || ends_field(*after)) {
        m_line += line_ends({begin, static_cast<std::size_t>(end - begin)});
        m_at = after;
        return add_cell(begin, end);
      }
    }
    rewrite_quoted_field(begin);
  }

  const char* find_quote(const char* from) const {
    const void* found = std::memchr(from, '"', static_cast<std::size_t>(m_end - from));
    return found == nullptr ? m_end : static_cast<const char*>(found);
  }

  // A quotation mark ends the field where only blanks follow it in the field. Two of them are one,
  // and any other is text.
  void rewrite_quoted_field(const char* const begin) {
    char* out = m_table.m_text.data() + (begin - m_text);
    const char* in = begin;
    bool might_end = false;
    std::ptrdiff_t blanks = 0;
    for (; in != m_end; ++in) {
      const char c = *in;
      if (might_end && ends_field(c)) break;
      if (c == '"' && might_end && blanks == 0) {
        // The second one of a pair, of which the first is kept.
        might_end = false;
        continue;
      }
      if (c == '"') {
        might_end = true;
        blanks = 0;
      } else if (might_end && is_blank(c)) {
        ++blanks;
      } else {
        might_end = false;
      }
      *out++ = c;
    }
    if (!might_end) throw unclosed();
    m_line += line_ends({begin, static_cast<std::size_t>(in - begin)});
    m_at = in;
    add_cell(begin, out - blanks - 1);
  }

  void parse_fixed_fields() {
    const char* const line_end = std::find_if(m_at, m_end, is_line_end);
    std::size_t column = 0;
    std::uint32_t place = 0;
    const char* begin = m_at;
    const auto add = [&](const char* end) {
      const char* first = begin;
      while (first != end && is_blank(*first)) ++first;
      while (end != first && is_blank(end[-1])) --end;
      add_cell(first, end);
    };
    for (const char* c = m_at; c != line_end; ++c) {
      if (is_utf8_continuation(*c)) continue;
      if (column + 1 < m_rules.starts.size() && place == m_rules.starts[column + 1]) {
        add(c);
        begin = c;
        ++column;
      }
      ++place;
    }
    add(line_end);
    m_at = line_end;
  }

  void add_cell(const char* begin, const char* end) {
    m_table.m_cells.push_back(
        {static_cast<std::uint32_t>(begin - m_text), static_cast<std::uint32_t>(end - m_text)});
  }

  UserError unclosed() const {
    return UserError(m_path +
                     " has a quotation mark that is never closed, in the row that begins in line " +
                     std::to_string(m_table.m_lines.back()) + "; close it.");
  }

  CsvTable& m_table;
  const ParseRules& m_rules;
  const std::string& m_path;
  const char* m_text;
  const char* m_at;
  const char* m_end;
  std::size_t m_line;
  // For each byte whether it ends a field that has no quotes.
  std::array<bool, 256> m_ends_field;
};

CsvTable parse_csv(std::string text, const ParseRules& rules, const std::string& path) {
  CsvTable table(std::move(text));
  table.source().separator = rules.separator;
  table.source().comment = rules.comment;
  CsvParser(table, rules, path).parse();
  check_widths(table, path);
  return table;
}

CsvTable parse_csv(std::string text, char separator, const std::string& path) {
  ParseRules rules;
  rules.separator = separator;
  return parse_csv(std::move(text), rules, path);
}

}  // namespace kurv::app
