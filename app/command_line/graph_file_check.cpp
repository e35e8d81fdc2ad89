#include "app/command_line/graph_file_check.h"

#include <KurvGraph/fault.h>
#include <KurvGraph/limits.h>
#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include <algorithm>
#include <utility>

#include "app/base/message_text.h"
#include "app/csv/column_choice.h"
#include "app/graph/graph_file.h"

namespace kurv::app {

namespace {

constexpr std::size_t kLongestLine = std::size_t{1} << 26;
constexpr int kMostColumns = 32767;

bool fits_16_bits(double number) {
  try {
    static_cast<void>(to_integer(number));
    return true;
  } catch (const Fault&) {
    return false;
  }
}

// Whether a list line is as long as it should be; an empty line may hold no entry at all.
std::size_t entries_of(std::string_view line, std::size_t expected) {
  return expected == 0 && line.empty() ? 0 : count_pieces(line);
}

class Check {
 public:
  Check(const GraphFileText& file, char decimal_separator)
      : m_file(file), m_decimal_separator(decimal_separator) {}

  std::vector<Oddity> run() {
    check_bytes();
    for (std::size_t line = 1; line <= std::min(kFixedLines, m_file.lines()); ++line) {
      check_fixed(line, kLayout[line - 1]);
    }
    check_limits(kYMaxLine);
    check_limits(kXMaxLine);
    if (m_file.lines() < kNumYLine || !counts_are_possible()) {
      check_length(kFixedLines);
    } else {
      check_lists(*m_file.counts().data, *m_file.counts().curves, m_file.counts().functions);
      check_length(GraphFileText::functions_line(*m_file.counts().curves));
    }
    std::stable_sort(m_oddities.begin(), m_oddities.end(),
                     [](const Oddity& one, const Oddity& other) { return one.line < other.line; });
    return std::move(m_oddities);
  }

 private:
  void odd(std::size_t line, const std::string& sentence) {
    m_oddities.push_back({line, sentence, false});
  }
  void fatal(std::size_t line, const std::string& sentence) {
    m_oddities.push_back({line, sentence, true});
  }

  std::string quoted(std::string_view text) const { return in_quotes(to_utf8(text)); }

  void check_bytes() {
    for (std::size_t number = 1; number <= m_file.lines(); ++number) {
      const std::string_view line = m_file.line(number);
      if (line.size() > kLongestLine) fatal(number, "it is longer than 64 MiB");
      if (!is_valid_utf8(line)) odd(number, "it is not UTF-8 and is taken as Western text");
      const auto is_control = [](char c) { return static_cast<unsigned char>(c) < 0x20; };
      if (std::any_of(line.begin(), line.end(), is_control))
        odd(number, "it has control characters");
    }
  }

  void check_fixed(std::size_t number, const FixedLine& layout) {
    const std::string_view line = m_file.line(number);
    const std::string name = layout.name;
    switch (layout.kind) {
      case LineKind::kTag:
        if (!line.starts_with(kGraphFileTag)) {
          odd(number, "it does not begin with " + quoted(kGraphFileTag) + ", as graph files do");
        }
        break;
      case LineKind::kCopy:
        if (m_file.lines() >= kTitleLine && line != m_file.line(kTitleLine)) {
          odd(number, "it differs from line 6, which is the title that is read");
        }
        break;
      case LineKind::kCount:
        check_count(number, name);
        break;
      case LineKind::kWhole:
      case LineKind::kNumber:
        check_number(number, name, layout.kind == LineKind::kWhole);
        break;
      case LineKind::kFlag:
        if (!text_to_boolean(line, m_decimal_separator)) {
          fatal(number, name + " is " + quoted(line) + ", which is neither True nor False");
        }
        break;
      case LineKind::kText:
        break;
    }
  }

  void check_count(std::size_t number, const std::string& name) {
    const std::string_view line = m_file.line(number);
    const double value = leading_number(line);
    if (!fits_16_bits(value)) {
      fatal(number, name + " is " + quoted(line) + ", which is beyond 16 bits");
      return;
    }
    const int count = to_integer(value);
    if (text_to_number(line) != count) {
      odd(number, name + " is " + quoted(line) + ", which is read as " + std::to_string(count));
    }
    if (count < 0 && number != kNumYFuncLine) fatal(number, name + " is negative");
    if (count < 0 && number == kNumYFuncLine) odd(number, name + " is negative");
    if (number == kNumYLine && count == kMostColumns) {
      fatal(number, name + " is " + std::to_string(count) + ", which leaves no column for x");
    } else if (number == kNumYLine && count > kMaxCurves) {
      odd(number, name + " is " + std::to_string(count) + ", and a graph takes the first " +
                      std::to_string(kMaxCurves));
    }
    if (number == kNumYFuncLine && count > kMaxFunctions) {
      odd(number, name + " is " + std::to_string(count) + ", and a graph takes the first " +
                      std::to_string(kMaxFunctions));
    }
  }

  void check_number(std::size_t line, const std::string& name, bool whole) {
    const std::string_view text = m_file.line(line);
    const std::optional<Double> value = text_to_number(text, m_decimal_separator);
    if (!value) {
      fatal(line, name + " is " + quoted(text) + ", which is no number");
    } else if (whole && !fits_16_bits(*value)) {
      fatal(line, name + " is " + quoted(text) + ", which is beyond 16 bits");
    }
  }

  // The axis between them could not be drawn.
  void check_limits(std::size_t line) {
    if (m_file.lines() < line) return;
    const auto lower = text_to_number(m_file.line(line - 1), m_decimal_separator);
    const auto upper = text_to_number(m_file.line(line), m_decimal_separator);
    if (lower && upper && *lower == *upper) {
      fatal(line, std::string(kLayout[line - 1].name) + " equals " + kLayout[line - 2].name);
    }
  }

  bool counts_are_possible() const {
    const GraphCounts& counts = m_file.counts();
    return counts.data && counts.curves && *counts.data >= 0 && *counts.curves >= 0 &&
           *counts.curves < kMostColumns;
  }

  void check_lists(int data, int curves, std::optional<int> functions) {
    for (int column = 0; column <= curves; ++column) {
      const std::size_t line = kFirstDataLine + static_cast<std::size_t>(column);
      if (line > m_file.lines()) break;
      check_values(line, static_cast<std::size_t>(data));
    }
    const std::size_t columns = static_cast<std::size_t>(curves) + 1;
    check_entries(GraphFileText::names_line(curves), columns, "names");
    check_flags(GraphFileText::flags_line(curves), static_cast<std::size_t>(curves));
    if (functions) {
      const std::size_t expected = static_cast<std::size_t>(std::max(*functions, 0));
      check_entries(GraphFileText::functions_line(curves), expected, "expressions");
    }
  }

  void check_values(std::size_t line, std::size_t expected) {
    const std::string_view text = m_file.line(line);
    const std::size_t found = text.empty() ? 0 : count_pieces(text);
    if (found < expected)
      fatal(line, amount(found, "values") + " instead of " + std::to_string(expected));
    if (found > expected) {
      odd(line, amount(found, "values") + " instead of " + std::to_string(expected) +
                    "; those behind are ignored");
    }
    Pieces pieces(text);
    for (std::size_t i = 1; i <= std::min(found, expected); ++i) {
      const std::string_view piece = pieces.next().value_or("");
      if (text_to_number(piece, m_decimal_separator)) continue;
      fatal(line, "value " + std::to_string(i) + " is " + quoted(piece) + ", which is no number");
      return;
    }
  }

  void check_flags(std::size_t line, std::size_t expected) {
    if (line > m_file.lines()) return;
    check_entries(line, expected, "flags");
    Pieces pieces(m_file.line(line));
    for (std::size_t i = 1; i <= expected; ++i) {
      const std::string_view piece = pieces.next().value_or("");
      if (text_to_boolean(piece, m_decimal_separator)) continue;
      fatal(line, "flag " + std::to_string(i) + " is " + quoted(piece) +
                      ", which is neither True nor False");
      return;
    }
  }

  // Nothing in a list is quoted, so a comma in an entry makes two of it.
  void check_entries(std::size_t line, std::size_t expected, const std::string& what) {
    if (line > m_file.lines()) return;
    const std::size_t found = entries_of(m_file.line(line), expected);
    if (found == expected) return;
    odd(line, amount(found, what) + " instead of " + std::to_string(expected) +
                  (found < expected ? "; the others are empty"
                                    : "; one with a comma in it shifts those behind, and the last "
                                      "are lost"));
  }

  static std::string amount(std::size_t count, const std::string& what) {
    return "it has " + std::to_string(count) + ' ' + what;
  }

  void check_length(std::size_t expected) {
    const std::size_t lines = m_file.lines();
    if (lines < expected) {
      fatal(lines + 1, "the file ends, and should have " + std::to_string(expected) + " lines");
    } else if (lines > expected && counts_are_possible()) {
      odd(expected + 1, "the graph ends before it, and what follows is ignored");
    }
  }

  const GraphFileText& m_file;
  char m_decimal_separator;
  std::vector<Oddity> m_oddities;
};

}  // namespace

std::vector<Oddity> check_graph_file(const GraphFileText& file, char decimal_separator) {
  return Check(file, decimal_separator).run();
}

}  // namespace kurv::app
