#include "app/csv/csv_separator.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>

namespace kurv::app {

namespace {

constexpr std::string_view kSeparators = "\t;,";
constexpr std::size_t kSampleSize = 64 * 1024;
constexpr int kSampleLines = 200;

using Counts = std::array<int, kSeparators.size()>;

// For each separator: how often it occurs in a line, and the number of such lines.
using Frequencies = std::array<std::map<int, int>, kSeparators.size()>;

// Walks over the beginning of a file, outside and inside quotes.
class LineCounter {
 public:
  // True when a line is complete.
  bool take(char c) {
    if (m_in_quotes) {
      if (c == '"') m_in_quotes = false;
      m_after_quotes = !m_in_quotes;
      return false;
    }
    if (c == '\n' || c == '\r') return m_filled;
    // A doubled quotation mark inside quotes, or a first one at the start of a field.
    m_in_quotes = c == '"' && (m_after_quotes || m_at_start);
    m_after_quotes = false;
    m_filled = true;
    const std::size_t separator = kSeparators.find(c);
    if (separator != std::string_view::npos) ++m_counts[separator];
    m_at_start = separator != std::string_view::npos || (m_at_start && c == ' ');
    return false;
  }

  bool filled() const { return m_filled; }
  const Counts& counts() const { return m_counts; }

 private:
  Counts m_counts{};
  bool m_in_quotes = false;
  bool m_after_quotes = false;
  bool m_at_start = true;
  bool m_filled = false;
};

void add(Frequencies& frequencies, const Counts& counts) {
  for (std::size_t i = 0; i < counts.size(); ++i) ++frequencies[i][counts[i]];
}

Frequencies count_lines(std::string_view bytes) {
  Frequencies frequencies;
  LineCounter line;
  int lines = 0;
  for (const char c : bytes.substr(0, kSampleSize)) {
    if (!line.take(c)) continue;
    add(frequencies, line.counts());
    line = LineCounter();
    if (++lines == kSampleLines) return frequencies;
  }
  // A line that is truncated at the end of the sample is ignored, unless it is the only one.
  if (line.filled() && (lines == 0 || bytes.size() <= kSampleSize)) add(frequencies, line.counts());
  return frequencies;
}

}  // namespace

char find_separator(std::string_view bytes) {
  const Frequencies frequencies = count_lines(bytes);
  char best = ',';
  int best_lines = 0;
  for (std::size_t i = 0; i < kSeparators.size(); ++i) {
    for (const auto& [separators, lines] : frequencies[i]) {
      if (separators == 0 || lines <= best_lines) continue;
      best = kSeparators[i];
      best_lines = lines;
    }
  }
  return best;
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

}  // namespace kurv::app
