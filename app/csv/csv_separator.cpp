#include "app/csv/csv_separator.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>

#include "app/csv/fixed_width.h"
#include "app/csv/line_fields.h"
#include "app/csv/row_sample.h"
#include "app/csv/table_options.h"

namespace kurv::app {

namespace {

constexpr double kNearlyAll = 0.95;
// Scores that differ by less are the same.
constexpr double kSmallest = 1e-9;

using Rows = std::vector<std::string_view>;

struct Width {
  std::size_t fields = 1;
  // The rows of this width, and all rows.
  std::size_t rows = 0;
  std::size_t all_rows = 0;
  // The fields of these rows that look like values or are empty, as a part of all of them.
  double values = 0;

  double part() const {
    return all_rows == 0 ? 0 : static_cast<double>(rows) / static_cast<double>(all_rows);
  }
  double score() const { return part() * (0.5 + values); }
};

// The most frequent number of fields above 1.
Width width_of(const Rows& rows, char separator) {
  struct Count {
    std::size_t rows = 0;
    std::size_t values = 0;
  };
  std::map<std::size_t, Count> counts;
  for (const std::string_view row : rows) {
    const std::vector<std::string_view> fields = split_row(row, separator);
    Count& count = counts[fields.size()];
    ++count.rows;
    for (const std::string_view field : fields) {
      if (field.empty() || looks_like_value(field)) ++count.values;
    }
  }
  Width best;
  best.all_rows = rows.size();
  for (const auto& [fields, count] : counts) {
    if (fields < 2 || count.rows <= best.rows) continue;
    best.fields = fields;
    best.rows = count.rows;
    best.values = static_cast<double>(count.values) / static_cast<double>(fields * count.rows);
  }
  return best;
}

// The best of the characters that may separate fields.
struct Best {
  char separator = ',';
  Width width;
};

Best best_character(const Rows& rows, bool commas_are_decimal) {
  constexpr std::string_view kCharacters = "\t;,|";
  Best best;
  for (const char separator : kCharacters) {
    if (separator == ',' && commas_are_decimal) continue;
    const Width width = width_of(rows, separator);
    // The earlier ones take precedence also where rounding makes the later one a little better.
    if (width.score() > best.width.score() + kSmallest) best = {separator, width};
  }
  return best;
}

// Whether the first row is one name above rows in which no comma separates more than two fields:
// then the commas are decimal ones.
bool has_one_name(const Rows& rows) {
  if (rows.size() < 2 || looks_like_value(rows.front()) ||
      split_row(rows.front(), ',').size() != 1) {
    return false;
  }
  bool any_comma = false;
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const std::size_t fields = split_row(rows[i], ',').size();
    if (fields > 2 || !looks_like_value(trim_blanks(rows[i]))) return false;
    any_comma = any_comma || fields == 2;
  }
  return any_comma;
}

// Whether columns at fixed places explain the rows better than the blanks between them do.
bool has_fixed_width(std::string_view text, const std::string& comment, const Rows& rows,
                     const Width& by_blanks) {
  if (by_blanks.part() >= kNearlyAll || text.find('\t') != text.npos) return false;
  // Columns without a name at the left are no reason for it.
  const bool all_below_first = by_blanks.rows + 1 == rows.size();
  if (all_below_first && split_row(rows.front(), kBlanks).size() < by_blanks.fields) return false;
  const std::vector<std::uint32_t> starts = fixed_columns(text, comment);
  return starts.size() >= 2 && starts.size() >= by_blanks.fields;
}

}  // namespace

char find_separator(std::string_view text, const std::string& comment, bool commas_are_decimal) {
  const Rows rows = sample_rows(text, comment);
  const bool decimal = commas_are_decimal || has_one_name(rows);
  // The beginning may be a preamble.
  const Best last = best_character(last_rows(rows), decimal);
  const Best best = last.width.part() >= kNearlyAll && last.width.values >= 0.5
                        ? last
                        : best_character(rows, decimal);
  // Between other things than commas there are rarely numbers with blanks between them.
  if (best.separator != ',' && best.width.part() >= kNearlyAll) return best.separator;
  // Blanks are in many texts, so that they must explain most of the rows.
  constexpr double kMost = 0.6;
  const double score = best.width.score();
  const Width by_blanks = width_of(rows, kBlanks);
  const bool explains = by_blanks.part() >= kMost && by_blanks.score() > score + kSmallest;
  if (score == 0 || explains) {
    if (rows.size() > 2 && by_blanks.rows > 0 && has_fixed_width(text, comment, rows, by_blanks))
      return kFixedWidth;
    if (explains) return kBlanks;
  }
  // Without another separator, commas are decimal ones.
  return score == 0 && decimal ? ';' : best.separator;
}

std::optional<char> declared_separator(std::string_view bytes) {
  constexpr std::string_view kDeclaration = "sep=";
  constexpr std::string_view kPossible = ",;\t|:!^~";
  std::string_view line = bytes.substr(0, bytes.find_first_of("\r\n"));
  if (line.size() > 2 && line.front() == '"' && line.back() == '"') {
    line = line.substr(1, line.size() - 2);
  }
  if (line.size() != kDeclaration.size() + 1 || kPossible.find(line.back()) == line.npos ||
      !equals_ignoring_case(line.substr(0, kDeclaration.size()), kDeclaration)) {
    return std::nullopt;
  }
  return line.back();
}

bool has_outer_separators(std::string_view text, char separator, const std::string& comment) {
  const Rows rows = sample_rows(text, comment);
  std::size_t count = 0;
  for (const std::string_view row : rows) {
    const std::string_view content = trim_blanks(row);
    if (content.size() > 1 && content.front() == separator && content.back() == separator) ++count;
  }
  return count * 2 > rows.size();
}

std::size_t usual_width(std::string_view text, char separator, const std::string& comment) {
  const Rows rows = sample_rows(text, comment);
  const Width last = width_of(last_rows(rows), separator);
  return last.part() >= kNearlyAll ? last.fields : width_of(rows, separator).fields;
}

}  // namespace kurv::app
