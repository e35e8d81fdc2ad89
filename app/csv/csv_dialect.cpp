#include "app/csv/csv_dialect.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "app/base/message_text.h"
#include "app/csv/cell_value.h"
#include "app/csv/unit_text.h"

namespace kurv::app {

namespace {

bool is_value(CellKind kind) {
  return kind != CellKind::kWord && kind != CellKind::kMissing;
}

bool equals_row(const CsvTable& table, std::size_t one, std::size_t other) {
  if (table.width(one) != table.width(other)) return false;
  for (std::size_t column = 0; column < table.width(one); ++column) {
    if (table.cell(one, column) != table.cell(other, column)) return false;
  }
  return true;
}

// A number with letters, such as "1st", is a name where the cell below it is something else.
bool is_name(const CsvTable& table, std::size_t column, const CsvDialect& dialect) {
  const CellValue cell = read_cell(table.cell(0, column), dialect);
  if (cell.kind == CellKind::kWord) return true;
  if (cell.unit.empty() || table.rows() < 2) return false;
  return read_cell(table.cell(1, column), dialect).unit != cell.unit;
}

bool is_above_values(const CsvTable& table, std::size_t column, const CsvDialect& dialect) {
  return table.rows() > 1 && is_value(read_cell(table.cell(1, column), dialect).kind);
}

// A word that is in its column again is no name.
bool is_repeated_below(const CsvTable& table, std::size_t column) {
  const std::string_view name = table.cell(0, column);
  bool is_repeated = false;
  for (std::size_t row = 1; row < table.rows() && !is_repeated; ++row) {
    is_repeated = table.cell(row, column) == name && !equals_row(table, row, 0);
  }
  return is_repeated;
}

// Consecutive years in all fields but the first, which is empty, and is not empty in the row below.
bool has_years_above(const CsvTable& table) {
  if (table.rows() < 2 || table.width(0) < 3 || !table.cell(0, 0).empty()) return false;
  if (table.cell(1, 0).empty()) return false;
  constexpr double kFirst = 1500;
  constexpr double kLast = 2200;
  double before = 0;
  for (std::size_t column = 1; column < table.width(0); ++column) {
    const std::optional<Double> year = read_number(table.cell(0, column), {});
    if (!year || *year < kFirst || *year > kLast) return false;
    if (column > 1 && *year != before + 1) return false;
    before = *year;
  }
  return true;
}

bool has_header(const CsvTable& table, const CsvDialect& dialect) {
  if (table.rows() == 0) return false;
  if (table.source().header_in_comment) return true;
  bool has_name = false;
  bool has_repeated_word = false;
  for (std::size_t column = 0; column < table.width(0); ++column) {
    if (!is_name(table, column, dialect)) continue;
    if (is_above_values(table, column, dialect)) return true;
    has_name = true;
    has_repeated_word = has_repeated_word || is_repeated_below(table, column);
  }
  return (has_name && !has_repeated_word) || has_years_above(table);
}

// A row of words above a row with values in these columns.
struct RowOfWords {
  bool above_values = false;
  bool above_words = false;
  bool has_value = false;
  bool any_word = false;
  bool all_units = true;
};

RowOfWords compare_with_next(const CsvTable& table, std::size_t row, const CsvDialect& dialect) {
  RowOfWords result;
  for (std::size_t column = 0; column < table.width(row); ++column) {
    const std::string_view text = trim_whitespace(table.cell(row, column));
    const CellValue cell = read_cell(text, dialect);
    result.has_value = result.has_value || is_value(cell.kind);
    if (cell.kind != CellKind::kWord) continue;
    result.any_word = true;
    result.all_units = result.all_units && is_unit_text(text);
    const CellValue below = read_cell(table.cell(row + 1, column), dialect);
    result.above_values = result.above_values || is_value(below.kind);
    result.above_words = result.above_words || below.kind == CellKind::kWord;
  }
  return result;
}

// The rows between the names and the first row with a value: units and descriptions. A row with a
// word above another one is data, unless all of its words are units.
void find_first_row(const CsvTable& table, CsvDialect& dialect) {
  dialect.first_row = 1;
  if (table.rows() < 3) return;
  constexpr std::size_t kMost = 5;
  std::size_t first = 1;
  std::vector<bool> units;
  for (; first < kMost && first + 1 < table.rows(); ++first) {
    const RowOfWords words = compare_with_next(table, first, dialect);
    const bool may_be_units = words.all_units && words.any_word;
    if (words.has_value || !words.any_word || (words.above_words && !may_be_units)) break;
    units.push_back(may_be_units);
    if (words.above_values) {
      ++first;
      break;
    }
  }
  // Words above nothing else than missing values may be data.
  if (first == 1 || !compare_with_next(table, first - 1, dialect).above_values) return;
  dialect.units = units.front();
  for (std::size_t row = dialect.units ? 2 : 1; row < first; ++row) {
    dialect.notes.push_back("line " + std::to_string(table.line(row)) +
                            " is left out, because it has words above the values; --header and "
                            "--skip change that.");
  }
  dialect.first_row = first;
}

bool is_empty_row(const CsvTable& table, std::size_t row) {
  for (std::size_t column = 0; column < table.width(row); ++column) {
    if (!trim_whitespace(table.cell(row, column)).empty()) return false;
  }
  return true;
}

std::string_view first_text(const CsvTable& table, std::size_t row) {
  for (std::size_t column = 0; column < table.width(row); ++column) {
    const std::string_view text = trim_whitespace(table.cell(row, column));
    if (!text.empty()) return text;
  }
  return {};
}

// A line of totals begins with a word for it.
bool is_total(const CsvTable& table, std::size_t row, const CsvDialect& dialect) {
  constexpr std::array<std::string_view, 13> kSums{
      "total", "totals", "grand total", "sum",  "subtotal", "summe",      "gesamt",
      "somme", "suma",   "totale",      "soma", "summa",    "gesamtsumme"};
  // Words that may be names in a column of words.
  constexpr std::array<std::string_view, 18> kStatistics{
      "mean",  "average", "avg",     "mittelwert", "durchschnitt", "durchschn",
      "count", "min",     "max",     "minimum",    "maximum",      "median",
      "std",   "stddev",  "moyenne", "media",      "anzahl",       "insgesamt"};
  std::string_view text = first_text(table, row);
  while (text.ends_with(':') || text.ends_with('.')) text.remove_suffix(1);
  const auto is_text = [&](std::string_view word) { return equals_ignoring_case(text, word); };
  if (std::any_of(kSums.begin(), kSums.end(), is_text)) return true;
  if (std::none_of(kStatistics.begin(), kStatistics.end(), is_text)) return false;
  return is_value(read_cell(table.cell(dialect.first_row, 0), dialect).kind);
}

// A text below the table, in a line with fewer fields than the rows have.
bool is_footnote(const CsvTable& table, std::size_t row, const CsvDialect& dialect) {
  if (row == dialect.first_row || table.width(row) > 1 || table.width(row - 1) < 2) return false;
  return read_cell(table.cell(row, 0), dialect).kind == CellKind::kWord;
}

class LeftOutRows {
 public:
  LeftOutRows(const CsvTable& table, CsvDialect& dialect) : m_table(table), m_dialect(dialect) {}

  void find() {
    std::size_t end = m_table.rows();
    std::size_t first_empty = 0;
    std::size_t empty = 0;
    std::vector<std::size_t> rows;
    for (; end > m_dialect.first_row && is_empty_row(m_table, end - 1); --end) {
      first_empty = end - 1;
      ++empty;
      rows.push_back(end - 1);
    }
    // A table of empty rows alone stays as it is.
    if (end == m_dialect.first_row) return;
    find_lines_below(end, rows);
    find_repeated_headers(end, rows);
    note_lines(m_totals, "holds totals", "hold totals");
    note_lines(m_footnotes, "is a text below the table", "are texts below the table");
    if (empty > 0) note(empty, first_empty, "at the end is empty", "at the end are empty");
    std::sort(rows.begin(), rows.end());
    for (const std::size_t row : rows) {
      m_dialect.left_out.push_back(static_cast<std::uint32_t>(row));
    }
  }

 private:
  void note(std::size_t count, std::size_t first, const std::string& is, const std::string& are) {
    m_dialect.notes.push_back(std::to_string(count) + (count == 1 ? " row " + is : " rows " + are) +
                              " (line " + std::to_string(m_table.line(first)) +
                              (count == 1 ? ")" : " is the first)") +
                              (count == 1 ? " and is left out." : " and are left out."));
  }

  // "lines 4 ("Min") and 5 ("Max") are left out, because they hold totals."
  void note_lines(const std::vector<std::size_t>& rows, const std::string& is,
                  const std::string& are) {
    if (rows.empty()) return;
    const auto line = [&](std::size_t row) { return std::to_string(m_table.line(row)); };
    const auto text = [&](std::size_t row) { return in_quotes(first_text(m_table, row)); };
    if (rows.size() == 1) {
      m_dialect.notes.push_back("line " + line(rows[0]) + ", " + text(rows[0]) +
                                ", is left out, because it " + is + '.');
      return;
    }
    std::string lines;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (i > 0) lines += i + 1 == rows.size() ? " and " : ", ";
      lines += line(rows[i]) + " (" + text(rows[i]) + ')';
    }
    m_dialect.notes.push_back("lines " + lines + " are left out, because they " + are + '.');
  }

  // They are found from the last one up.
  static void prepend(std::vector<std::size_t>& lines, std::size_t row) {
    lines.insert(lines.begin(), row);
  }

  // Totals, and texts below the table.
  void find_lines_below(std::size_t& end, std::vector<std::size_t>& rows) {
    constexpr std::size_t kMost = 4;
    for (std::size_t count = 0; count < kMost && end > m_dialect.first_row + 1; ++count) {
      const std::size_t row = end - 1;
      const bool total = is_total(m_table, row, m_dialect);
      if (!total && !is_footnote(m_table, row, m_dialect)) return;
      prepend(total ? m_totals : m_footnotes, row);
      rows.push_back(row);
      --end;
    }
  }

  void find_repeated_headers(std::size_t end, std::vector<std::size_t>& rows) {
    if (!m_dialect.header) return;
    std::size_t count = 0;
    std::size_t first = 0;
    for (std::size_t row = m_dialect.first_row; row < end; ++row) {
      if (m_table.cell(row, 0) != m_table.cell(0, 0) || !equals_row(m_table, row, 0)) continue;
      if (count++ == 0) first = row;
      rows.push_back(row);
    }
    if (count > 0) note(count, first, "repeats the header", "repeat the header");
  }

  const CsvTable& m_table;
  CsvDialect& m_dialect;
  // In the order of the file.
  std::vector<std::size_t> m_totals;
  std::vector<std::size_t> m_footnotes;
};

// Whether each row has one field more than the header, and not merely a separator at its end.
bool is_header_one_short(const CsvTable& table, const CsvDialect& dialect) {
  const std::size_t names = table.width(0);
  bool any_last = false;
  for (std::size_t row = dialect.first_row; row < table.rows(); ++row) {
    if (table.width(row) != names + 1) return false;
    any_last = any_last || !table.cell(row, names).empty();
  }
  return any_last;
}

void find_header(const CsvTable& table, const TableOptions& options, CsvDialect& dialect) {
  dialect.header = options.header ? *options.header != HeaderChoice::kNone && table.rows() > 0
                                  : has_header(table, dialect);
  if (!dialect.header) return;
  if (!options.header) return find_first_row(table, dialect);
  dialect.first_row = 1;
  dialect.units = *options.header == HeaderChoice::kNamesAndUnits && table.rows() > 1;
  if (dialect.units) dialect.first_row = 2;
}

}  // namespace

std::string_view header_text(const CsvTable& table, const CsvDialect& dialect, std::size_t column) {
  const std::size_t shift = dialect.first_has_no_name ? 1 : 0;
  if (!dialect.header || column < shift) return {};
  return trim_whitespace(table.cell(0, column - shift));
}

CsvDialect detect_dialect(const CsvTable& table) {
  const TableOptions& options = table.source().options;
  CsvDialect dialect;
  dialect.notation = find_notation(table, options);
  dialect.missing = options.missing;
  dialect.chosen_dates = options.dates;
  dialect.notes = dialect.notation.notes;
  find_header(table, options, dialect);
  dialect.first_has_no_name = dialect.header && is_header_one_short(table, dialect);
  if (dialect.first_has_no_name) {
    dialect.notes.push_back(
        "each row has one field more than the header, so the first column is read as the one "
        "without a name.");
  }
  LeftOutRows(table, dialect).find();
  return dialect;
}

}  // namespace kurv::app
