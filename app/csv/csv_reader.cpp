#include "app/csv/csv_reader.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "app/csv/comment_lines.h"
#include "app/csv/csv_parser.h"
#include "app/csv/csv_separator.h"
#include "app/csv/fixed_width.h"
#include "app/csv/line_fields.h"
#include "app/csv/table_start.h"

namespace kurv::app {

namespace {

// What is found out about a text before it is parsed.
class Layout {
 public:
  Layout(std::string& text, const TableOptions& options) : m_text(text), m_options(options) {
    skip_lines();
    find_separator_and_comment();
    if (!options.skip) find_start();
    m_last_of_preamble = last_line_of_preamble();
    if (m_rules.separator == kBlanks) m_rules.joins_dates_and_times = names_join_dates_and_times();
    if (m_rules.separator == kFixedWidth) m_rules.starts = fixed_columns(rest(), m_rules.comment);
  }

  const ParseRules& rules() const { return m_rules; }

  void describe(TableSource& source) const {
    source.skipped_lines = m_rules.line - 1;
    source.header_in_comment = m_rules.first_is_no_comment;
    if (m_options.skip || m_last_of_preamble == 0) return;
    const std::size_t last = m_last_of_preamble;
    source.notes.push_back(
        (last == 1 ? "line 1 is" : "lines 1 to " + std::to_string(last) + " are") +
        " above the table and left out; --skip changes that.");
  }

 private:
  std::string_view rest() const {
    return std::string_view(m_text).substr(std::min(m_rules.offset, m_text.size()));
  }

  void skip_lines() {
    std::string_view text = m_text;
    for (std::size_t i = 0; i < m_options.skip.value_or(0) && !text.empty(); ++i) {
      take_line(text);
      ++m_rules.line;
    }
    m_rules.offset = m_text.size() - text.size();
  }

  void find_separator_and_comment() {
    const std::optional<char> declared = declared_separator(rest());
    if (declared) {
      // The end of its line stays, so that the lines below are counted as in the file.
      m_rules.offset += std::min(rest().find_first_of("\r\n"), rest().size());
      m_first = m_rules.offset;
    }
    m_rules.comment = m_options.comment ? *m_options.comment : find_comment_prefix(rest());
    if (m_options.separator) {
      m_rules.separator = *m_options.separator;
    } else {
      const bool decimal_commas = m_options.decimal == ',';
      m_rules.separator =
          declared ? *declared : find_separator(rest(), m_rules.comment, decimal_commas);
    }
    if (!m_options.comment && m_rules.comment.empty() && m_rules.separator != kFixedWidth) {
      m_rules.comment = find_later_comment_prefix(rest(), m_rules.separator);
    }
    m_rules.outer_bars =
        m_rules.separator == '|' && has_outer_separators(rest(), '|', m_rules.comment);
  }

  void find_start() {
    const char separator = m_rules.separator == kFixedWidth ? kBlanks : m_rules.separator;
    const TableStart start = find_table_start(rest(), separator, m_rules.comment);
    m_rules.offset += start.offset;
    m_rules.line += start.line - 1;
    if (!start.is_comment) return;
    m_rules.first_is_no_comment = true;
    remove_prefix();
  }

  // The names of the columns come after what begins the comment, unless that is a name itself.
  void remove_prefix() {
    const std::size_t prefix = m_text.find(m_rules.comment, m_rules.offset);
    const std::size_t after = prefix + m_rules.comment.size();
    if (after < m_text.size() && m_text[after] == m_rules.separator && m_text[after] != kBlanks)
      return;
    m_text.replace(prefix, m_rules.comment.size(), m_rules.comment.size(), ' ');
  }

  // Whether the names of the columns fit the row below them only where a date and its time are one
  // field.
  bool names_join_dates_and_times() const {
    std::string_view text = rest();
    const std::string_view names = take_row(text);
    std::string_view row;
    while (trim_blanks(row).empty() && !text.empty()) row = take_row(text);
    const auto fields = [](std::string_view line, bool joined) {
      return split_row(line, kBlanks, joined).size();
    };
    if (fields(names, false) == fields(row, false)) return false;
    const std::size_t joined = fields(row, true);
    return joined != fields(row, false) &&
           (fields(names, true) == joined || fields(names, true) + 1 == joined);
  }

  // The last line above the table that is neither empty nor a comment; 0 without one.
  std::size_t last_line_of_preamble() const {
    std::string_view text = std::string_view(m_text).substr(m_first, m_rules.offset - m_first);
    std::size_t last = 0;
    for (std::size_t number = 1; !text.empty(); ++number) {
      const std::string_view line = trim_blanks(take_line(text));
      const bool comment = !m_rules.comment.empty() && line.starts_with(m_rules.comment);
      if (!line.empty() && !comment) last = number;
    }
    return last;
  }

  std::string& m_text;
  const TableOptions& m_options;
  ParseRules m_rules;
  // After the line that declares the separator.
  std::size_t m_first = 0;
  std::size_t m_last_of_preamble = 0;
};

}  // namespace

ParsedText parse_text(std::string text, const std::string& path, const TableOptions& options) {
  const Layout layout(text, options);
  ParsedText result{parse_csv(std::move(text), layout.rules(), path), layout.rules()};
  layout.describe(result.table.source());
  result.table.source().options = options;
  return result;
}

CsvTable parse_csv(std::string text, const std::string& path, const TableOptions& options) {
  return parse_text(std::move(text), path, options).table;
}

}  // namespace kurv::app
