#include "app/csv/csv_separator.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>

#include "app/csv/line_fields.h"
#include "app/csv/table_options.h"

namespace kurv::app {

namespace {

constexpr std::size_t kSampleSize = 64 * 1024;
constexpr std::size_t kSampleRows = 100;
constexpr double kNearlyAll = 0.95;
// Scores that differ by less are the same.
constexpr double kSmallest = 1e-9;

using Rows = std::vector<std::string_view>;

// Complete rows of the text, at most so many. A row that is cut off is ignored, unless it is
// the only one. Returns whether these are all.
bool add_rows(std::string_view text, const std::string& comment, std::size_t most, Rows& rows) {
  const bool is_cut = text.size() > kSampleSize;
  text = text.substr(0, kSampleSize);
  std::size_t count = 0;
  while (!text.empty() && count < most) {
    const std::string_view row = take_row(text);
    const std::string_view content = trim_blanks(row);
    if (content.empty() || (!comment.empty() && content.starts_with(comment))) continue;
    if (is_rule(content)) continue;
    if (is_cut && text.empty() && !rows.empty()) return false;
    rows.push_back(row);
    ++count;
  }
  return text.empty() && !is_cut;
}

// From the beginning of the first whole line.
std::string_view from_line(std::string_view text) {
  take_line(text);
  return text;
}

// The last ones of the text.
void add_last_rows(std::string_view text, const std::string& comment, Rows& rows) {
  Rows last;
  add_rows(from_line(text.substr(text.size() - std::min(text.size(), kSampleSize))), comment,
           text.size(), last);
  const std::size_t kept = std::min(last.size(), kSampleRows);
  rows.insert(rows.end(), last.end() - static_cast<std::ptrdiff_t>(kept), last.end());
}

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

// For each place of a line in how many of these lines it is not blank.
struct Places {
  std::vector<std::uint32_t> filled;
  // The same for the first line, which may be the names.
  std::vector<bool> filled_in_first;
};

Places filled_places(std::string_view text, const std::string& comment) {
  constexpr std::size_t kLongestLine = 4096;
  Places places;
  bool is_first = true;
  while (!text.empty()) {
    const std::string_view line = take_line(text);
    const std::string_view content = trim_blanks(line);
    if (content.empty() || (!comment.empty() && content.starts_with(comment))) continue;
    if (is_rule(content)) continue;
    std::size_t place = 0;
    for (const char c : line) {
      if (is_utf8_continuation(c)) continue;
      if (place == kLongestLine) break;
      if (place == places.filled.size()) {
        places.filled.push_back(0);
        places.filled_in_first.push_back(false);
      }
      if (c != ' ') ++places.filled[place];
      if (c != ' ' && is_first) places.filled_in_first[place] = true;
      ++place;
    }
    is_first = false;
  }
  return places;
}

// Places that follow one another and are not blank in every line.
struct Run {
  std::uint32_t begin;
  std::uint32_t end;
  // Some line after the first one has something there.
  bool has_values;
};

std::vector<Run> runs_of(const Places& places) {
  std::vector<Run> runs;
  for (std::uint32_t place = 0; place < places.filled.size(); ++place) {
    if (places.filled[place] == 0) continue;
    if (runs.empty() || runs.back().end != place) runs.push_back({place, place, false});
    runs.back().end = place + 1;
    const std::uint32_t in_first = places.filled_in_first[place] ? 1 : 0;
    runs.back().has_values = runs.back().has_values || places.filled[place] > in_first;
  }
  return runs;
}

// A word of a name with nothing below it belongs to the nearest other run.
std::vector<Run> merged(std::vector<Run> runs) {
  for (std::size_t i = 0; i < runs.size() && runs.size() > 1;) {
    if (runs[i].has_values) {
      ++i;
      continue;
    }
    const bool has_next = i + 1 < runs.size();
    const bool to_next =
        i == 0 || (has_next && runs[i + 1].begin - runs[i].end <= runs[i].begin - runs[i - 1].end);
    const std::size_t first = to_next ? i : i - 1;
    runs[first].end = runs[first + 1].end;
    runs[first].has_values = runs[first].has_values || runs[first + 1].has_values;
    runs.erase(runs.begin() + static_cast<std::ptrdiff_t>(first) + 1);
    if (!to_next) --i;
  }
  return runs;
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

std::vector<std::string_view> sample_rows(std::string_view text, const std::string& comment) {
  Rows rows;
  if (add_rows(text, comment, kSampleRows, rows)) return rows;
  add_rows(from_line(text.substr(text.size() / 2)), comment, kSampleRows, rows);
  add_last_rows(text, comment, rows);
  return rows;
}

std::vector<std::string_view> last_rows(const std::vector<std::string_view>& rows) {
  constexpr std::size_t kFewest = 3;
  const std::size_t count = std::min(rows.size(), std::max(kFewest, rows.size() / 3));
  return {rows.end() - static_cast<std::ptrdiff_t>(count), rows.end()};
}

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

std::vector<std::uint32_t> fixed_columns(std::string_view text, const std::string& comment) {
  std::vector<std::uint32_t> starts;
  for (const Run& run : merged(runs_of(filled_places(text, comment)))) starts.push_back(run.begin);
  if (!starts.empty()) starts.front() = 0;
  return starts;
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

std::string find_comment_prefix(std::string_view text) {
  std::string_view first;
  while (first.empty() && !text.empty()) first = trim_blanks(take_line(text));
  for (const std::string_view prefix : {"#", "%", "//"}) {
    if (first.starts_with(prefix)) return std::string(prefix);
  }
  return {};
}

std::string find_later_comment_prefix(std::string_view text, char separator) {
  const Rows rows = sample_rows(text, {});
  const std::size_t width = width_of(rows, separator).fields;
  for (const std::string_view prefix : {"#", "%", "//"}) {
    bool any = false;
    bool all_differ = true;
    for (const std::string_view row : rows) {
      if (!trim_blanks(row).starts_with(prefix)) continue;
      any = true;
      all_differ = all_differ && split_row(row, separator).size() != width;
    }
    if (any && all_differ) return std::string(prefix);
  }
  return {};
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
