#include "app/csv/fixed_width.h"

#include <KurvGraph/text.h>

#include <cstddef>

#include "app/csv/line_fields.h"

namespace kurv::app {

namespace {

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

}  // namespace

std::vector<std::uint32_t> fixed_columns(std::string_view text, const std::string& comment) {
  std::vector<std::uint32_t> starts;
  for (const Run& run : merged(runs_of(filled_places(text, comment)))) starts.push_back(run.begin);
  if (!starts.empty()) starts.front() = 0;
  return starts;
}

}  // namespace kurv::app
