#include "app/csv/table_start.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "app/csv/csv_separator.h"
#include "app/csv/line_fields.h"
#include "app/csv/missing_text.h"
#include "app/csv/row_sample.h"
#include "app/csv/table_options.h"
#include "app/csv/unit_text.h"

namespace kurv::app {

namespace {

using Fields = std::vector<std::string_view>;

// A row above the first one of values.
struct UpperRow {
  std::size_t offset;
  std::size_t line;
  std::size_t fields;
  bool has_empty_field;
  bool follows_empty_line;
  bool is_comment;
};

std::size_t count_lines(std::string_view text) {
  std::size_t lines = 0;
  while (!text.empty()) {
    take_line(text);
    ++lines;
  }
  return lines;
}

bool has_word(const Fields& fields) {
  return std::any_of(fields.begin(), fields.end(), [](std::string_view field) {
    return !looks_like_value(field) && !is_usual_missing_text(field);
  });
}

class StartFinder {
 public:
  StartFinder(std::string_view text, char separator, const std::string& comment)
      : m_text(text),
        m_separator(separator),
        m_comment(comment),
        m_width(usual_width(text, separator, comment)) {
    look_at_columns();
  }

  TableStart find() {
    std::string_view rest = m_text;
    std::size_t line = 1;
    bool follows_empty_line = false;
    while (!rest.empty()) {
      const std::size_t offset = m_text.size() - rest.size();
      const std::string_view row = take_row(rest);
      const std::size_t lines = count_lines(m_text.substr(offset, row.size() + 1));
      std::string_view content = trim_blanks(row);
      const bool is_comment = !m_comment.empty() && content.starts_with(m_comment);
      if (content.empty()) {
        follows_empty_line = true;
      } else {
        if (is_comment) content.remove_prefix(m_comment.size());
        Fields fields = split_row(content, m_separator);
        const bool counts = !is_comment && !is_rule(content);
        if (counts && is_row_of_values(fields)) return start_above({offset, line, false});
        while (!fields.empty() && fields.back().empty()) fields.pop_back();
        if (fields.empty()) follows_empty_line = true;
        if (fields.empty() || is_rule(content)) {
          line += std::max<std::size_t>(lines, 1);
          continue;
        }
        add(fields, {offset, line, fields.size(), false, follows_empty_line, is_comment});
        follows_empty_line = false;
      }
      line += std::max<std::size_t>(lines, 1);
    }
    return {};
  }

 private:
  void add(const Fields& fields, UpperRow row) {
    if (row.is_comment && !(row.fields == m_width && has_word(fields))) return;
    row.has_empty_field = std::any_of(fields.begin(), fields.end(),
                                      [](std::string_view field) { return field.empty(); });
    (row.is_comment ? m_comments : m_rows).push_back(row);
  }

  // The first field of a column of values must be no word, as it is in a line of a preamble, and
  // most of the others must be none.
  bool is_row_of_values(const Fields& fields) const {
    if (!has_table_width(fields.size())) return false;
    std::size_t values = 0;
    std::size_t words = 0;
    bool any_missing = false;
    for (std::size_t i = 0; i < std::min(fields.size(), m_holds_values.size()); ++i) {
      if (!m_holds_values[i]) continue;
      if (looks_like_value(fields[i])) {
        ++values;
      } else if (!is_usual_missing_text(fields[i])) {
        if (values == 0) return false;
        ++words;
      }
      any_missing = any_missing || !fields[i].empty();
    }
    return any_missing && words <= values;
  }

  // At least half as many as usual: rows may be shorter.
  bool has_table_width(std::size_t fields) const {
    return m_width < 2 || fields >= std::max<std::size_t>(2, (m_width + 1) / 2);
  }

  TableStart start_above(const TableStart& values) const {
    std::size_t first = m_rows.size();
    while (first > 0 && !may_be_names(m_rows[first - 1])) --first;
    const std::size_t end = first;
    while (first > 0 && may_be_names(m_rows[first - 1]) &&
           (first == end || !m_rows[first].follows_empty_line)) {
      --first;
      // In narrow tables the line above the names may be one of the preamble.
      if (m_width <= 2 && first + 1 < end && !may_be_units(m_rows[first + 1])) {
        ++first;
        break;
      }
    }
    first = first_complete(first, end);
    if (first < end) return {m_rows[first].offset, m_rows[first].line, false};
    if (m_comments.empty()) return values;
    return {m_comments.back().offset, m_comments.back().line, true};
  }

  // Of the lines above the values, the first that has a name for each column. Below more than one
  // line without, it must have words alone.
  std::size_t first_complete(std::size_t first, std::size_t end) const {
    std::size_t row = first;
    while (row < end && (m_rows[row].fields != m_width || m_rows[row].has_empty_field)) ++row;
    if (row == end) return first;
    return row <= first + 1 || has_words_alone(m_rows[row]) ? row : first;
  }

  bool has_words_alone(const UpperRow& row) const {
    const Fields fields = fields_of(row);
    return std::none_of(fields.begin(), fields.end(), [](std::string_view field) {
      return looks_like_value(field) || is_usual_missing_text(field);
    });
  }

  Fields fields_of(const UpperRow& row) const {
    std::string_view rest = m_text.substr(row.offset);
    return split_row(take_row(rest), m_separator);
  }

  // "Serial number: 1234" is none.
  bool may_be_names(const UpperRow& row) const {
    if (!has_table_width(row.fields)) return false;
    const Fields fields = fields_of(row);
    const auto is_key = [](std::string_view field) { return field.ends_with(':'); };
    return m_separator == kBlanks ? std::none_of(fields.begin(), fields.end(), is_key)
                                  : !is_key(fields.front());
  }

  bool may_be_units(const UpperRow& row) const {
    const Fields fields = fields_of(row);
    return std::all_of(fields.begin(), fields.end(), [](std::string_view field) {
      return is_usual_missing_text(field) || is_unit_text(field);
    });
  }

  void look_at_columns();

  std::string_view m_text;
  char m_separator;
  const std::string& m_comment;
  std::size_t m_width;
  std::vector<bool> m_holds_values;
  std::vector<UpperRow> m_rows;
  std::vector<UpperRow> m_comments;
};

// Which columns hold values; empty ones at the right are none.
void StartFinder::look_at_columns() {
  struct Count {
    std::size_t values = 0;
    std::size_t words = 0;
  };
  std::vector<Count> counts(m_width);
  std::size_t filled = 1;
  for (const std::string_view row : last_rows(sample_rows(m_text, m_comment))) {
    const Fields fields = split_row(row, m_separator);
    if (fields.size() != m_width) continue;
    for (std::size_t i = 0; i < m_width; ++i) {
      if (fields[i].empty()) continue;
      filled = std::max(filled, i + 1);
      if (looks_like_value(fields[i])) {
        ++counts[i].values;
      } else if (!is_usual_missing_text(fields[i])) {
        ++counts[i].words;
      }
    }
  }
  m_width = std::min(m_width, filled);
  for (const Count& count : counts) m_holds_values.push_back(count.values > count.words);
}

}  // namespace

TableStart find_table_start(std::string_view text, char separator, const std::string& comment) {
  return StartFinder(text, separator, comment).find();
}

}  // namespace kurv::app
