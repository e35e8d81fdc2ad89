#include "app/command_line/graph_file_check.h"

#include <KurvGraph/fault.h>
#include <KurvGraph/graph_file_fields.h>
#include <KurvGraph/limits.h>
#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

#include "app/base/message_text.h"

namespace kurv::app {

namespace {

// A file may claim this many points; it loads as one with 0 points does.
constexpr int kNoPoints = -1;

bool fits_16_bits(double number) {
  try {
    static_cast<void>(to_integer(number));
    return true;
  } catch (const Fault&) {
    return false;
  }
}

// The number of entries of a list line. An empty line has none where none is expected.
std::size_t entries_of(std::string_view line, std::size_t expected) {
  return expected == 0 && line.empty() ? 0 : count_entries(line);
}

class Check {
 public:
  Check(const GraphFileText& file, char decimal_separator)
      : m_file(file), m_decimal_separator(decimal_separator) {}

  std::vector<Diagnostic> run() {
    check_bytes();
    const std::span<const GraphFileField> fields = graph_file_fields();
    for (std::size_t line = 1; line <= std::min(fields.size(), m_file.lines()); ++line) {
      check_field(line, fields[line - 1]);
    }
    check_limits("ymin", "ymax");
    check_limits("xmin", "xmax");
    if (m_file.lines() < m_num_y_line || !counts_are_possible()) {
      check_length(fields.size());
    } else {
      check_lists(*m_file.counts().curves);
      check_length(graph_file_length(*m_file.counts().curves));
    }
    std::stable_sort(
        m_diagnostics.begin(), m_diagnostics.end(),
        [](const Diagnostic& one, const Diagnostic& other) { return one.line < other.line; });
    return std::move(m_diagnostics);
  }

 private:
  void warn(std::size_t line, const std::string& message) {
    m_diagnostics.push_back({line, message, false});
  }
  void error(std::size_t line, const std::string& message) {
    m_diagnostics.push_back({line, message, true});
  }

  std::string quoted(std::string_view text) const { return in_quotes(to_utf8(text)); }

  void check_bytes() {
    for (std::size_t number = 1; number <= m_file.lines(); ++number) {
      const std::string_view line = m_file.line(number);
      if (line.size() > kMaxGraphFileLine) {
        error(number, "it is longer than " + std::to_string(kMaxGraphFileLine >> 20) + " MiB");
      }
      if (!is_valid_utf8(line)) warn(number, "it is not UTF-8 and is taken as Western text");
      const auto is_control = [](char c) { return static_cast<unsigned char>(c) < 0x20; };
      if (std::any_of(line.begin(), line.end(), is_control))
        warn(number, "it has control characters");
    }
  }

  void check_field(std::size_t number, const GraphFileField& field) {
    const std::string_view line = m_file.line(number);
    const std::string name(field.name);
    switch (field.kind) {
      case GraphFieldKind::kTag:
        if (!line.starts_with(kGraphFileTag)) {
          warn(number, "it does not begin with " + quoted(kGraphFileTag) + ", as graph files do");
        }
        break;
      case GraphFieldKind::kCopy:
        if (m_file.lines() >= m_title_line && line != m_file.line(m_title_line)) {
          warn(number, "it differs from line " + std::to_string(m_title_line) +
                           ", which is the title that is read");
        }
        break;
      case GraphFieldKind::kCount:
        check_count(number, name);
        break;
      case GraphFieldKind::kWhole:
      case GraphFieldKind::kNumber:
        check_number(number, name, field.kind == GraphFieldKind::kWhole);
        break;
      case GraphFieldKind::kBoolean:
        if (!text_to_boolean(line, m_decimal_separator)) {
          error(number, name + " is " + quoted(line) + ", which is neither True nor False");
        }
        break;
      case GraphFieldKind::kText:
        break;
    }
  }

  void check_count(std::size_t number, const std::string& name) {
    const std::string_view line = m_file.line(number);
    const double value = leading_number(line);
    if (!fits_16_bits(value)) {
      error(number, name + " is " + quoted(line) + ", which is beyond 16 bits");
      return;
    }
    const int count = to_integer(value);
    if (text_to_number(line) != count) {
      warn(number, name + " is " + quoted(line) + ", which is read as " + std::to_string(count));
    }
    if (count < 0) check_negative_count(number, name, count);
    if (number == m_num_y_line && count == kMaxCount) {
      error(number, name + " is " + std::to_string(count) + ", which leaves no column for x");
    } else if (number == m_num_y_line && count > kMaxCurves) {
      warn(number, name + " is " + std::to_string(count) + ", and a graph takes the first " +
                       std::to_string(kMaxCurves));
    }
    if (number == m_num_functions_line && count > kMaxFunctions) {
      warn(number, name + " is " + std::to_string(count) + ", and a graph takes the first " +
                       std::to_string(kMaxFunctions));
    }
  }

  void check_negative_count(std::size_t number, const std::string& name, int count) {
    if (number == m_num_functions_line) {
      warn(number, name + " is negative");
    } else if (number == m_num_data_line && count == kNoPoints) {
      warn(number, name + " is negative, so there are no points to draw");
    } else {
      error(number, name + " is negative");
    }
  }

  void check_number(std::size_t line, const std::string& name, bool whole) {
    const std::string_view text = m_file.line(line);
    const std::optional<Double> value = text_to_number(text, m_decimal_separator);
    if (!value) {
      error(line, name + " is " + quoted(text) + ", which is no number");
    } else if (!std::isfinite(*value)) {
      error(line, name + " is " + quoted(text) + ", which is not finite");
    } else if (whole && !fits_16_bits(*value)) {
      error(line, name + " is " + quoted(text) + ", which is beyond 16 bits");
    }
  }

  // An axis between equal limits cannot be drawn.
  void check_limits(const std::string& min, const std::string& max) {
    const std::size_t line = graph_file_line(max);
    if (m_file.lines() < line) return;
    const auto lower = text_to_number(m_file.line(graph_file_line(min)), m_decimal_separator);
    const auto upper = text_to_number(m_file.line(line), m_decimal_separator);
    if (lower && upper && *lower == *upper) error(line, max + " equals " + min);
  }

  bool counts_are_possible() const {
    const GraphCounts& counts = m_file.counts();
    return counts.data && counts.curves && *counts.data >= kNoPoints && *counts.curves >= 0 &&
           *counts.curves < kMaxCount;
  }

  void check_lists(int curves) {
    for (const GraphFileList& list : graph_file_lists(curves)) {
      const std::optional<std::size_t> expected = expected_entries(list.entries);
      if (!expected) continue;
      for (std::size_t line = list.first_line; line < list.first_line + list.lines; ++line) {
        if (line > m_file.lines()) return;
        check_list_line(line, *expected, list);
      }
    }
  }

  // Nothing where the count does not fit into 16 bits, which has been reported.
  std::optional<std::size_t> expected_entries(GraphFileEntries entries) const {
    const GraphCounts& counts = m_file.counts();
    const auto size = [](int count) { return static_cast<std::size_t>(std::max(count, 0)); };
    switch (entries) {
      case GraphFileEntries::kPoints:
        return size(*counts.data);
      case GraphFileEntries::kColumns:
        return size(*counts.curves) + 1;
      case GraphFileEntries::kCurves:
        return size(*counts.curves);
      case GraphFileEntries::kFunctions:
        break;
    }
    if (!counts.functions) return std::nullopt;
    return size(*counts.functions);
  }

  void check_list_line(std::size_t line, std::size_t expected, const GraphFileList& list) {
    if (list.kind == GraphFieldKind::kNumber) {
      check_values(line, expected);
      return;
    }
    check_entries(line, expected, std::string(list.name));
    if (list.kind == GraphFieldKind::kBoolean) check_flags(line, expected);
  }

  void check_values(std::size_t line, std::size_t expected) {
    const std::string_view text = m_file.line(line);
    const std::size_t found = text.empty() ? 0 : count_entries(text);
    if (found < expected)
      error(line, amount(found, "values") + " instead of " + std::to_string(expected));
    if (found > expected) {
      warn(line, amount(found, "values") + " instead of " + std::to_string(expected) +
                     "; the rest is ignored");
    }
    ListEntries entries(text);
    for (std::size_t i = 1; i <= std::min(found, expected); ++i) {
      const std::string_view entry = entries.next().value_or("");
      if (text_to_number(entry, m_decimal_separator)) continue;
      error(line, "value " + std::to_string(i) + " is " + quoted(entry) + ", which is no number");
      return;
    }
  }

  void check_flags(std::size_t line, std::size_t expected) {
    ListEntries entries(m_file.line(line));
    for (std::size_t i = 1; i <= expected; ++i) {
      const std::string_view entry = entries.next().value_or("");
      if (text_to_boolean(entry, m_decimal_separator)) continue;
      error(line, "flag " + std::to_string(i) + " is " + quoted(entry) +
                      ", which is neither True nor False");
      return;
    }
  }

  // Nothing in a list is quoted, so a comma in an entry makes two of it.
  void check_entries(std::size_t line, std::size_t expected, const std::string& what) {
    const std::size_t found = entries_of(m_file.line(line), expected);
    if (found == expected) return;
    warn(line,
         amount(found, what) + " instead of " + std::to_string(expected) +
             (found < expected ? "; the others are empty"
                               : "; a comma in one shifts those after it, and the last are lost"));
  }

  static std::string amount(std::size_t count, const std::string& what) {
    return "it has " + std::to_string(count) + ' ' + what;
  }

  void check_length(std::size_t expected) {
    const std::size_t lines = m_file.lines();
    if (lines < expected) {
      error(lines + 1,
            "the file ends here, but should have " + std::to_string(expected) + " lines");
    } else if (lines > expected && counts_are_possible()) {
      warn(expected + 1, "the graph ends before this line; what follows is ignored");
    }
  }

  const std::size_t m_num_data_line = graph_file_line("NumData");
  const std::size_t m_num_y_line = graph_file_line("NumY");
  const std::size_t m_num_functions_line = graph_file_line("NumYFunc");
  const std::size_t m_title_line = graph_file_line("Title");
  const GraphFileText& m_file;
  char m_decimal_separator;
  std::vector<Diagnostic> m_diagnostics;
};

}  // namespace

std::vector<Diagnostic> check_graph_file(const GraphFileText& file, char decimal_separator) {
  return Check(file, decimal_separator).run();
}

}  // namespace kurv::app
