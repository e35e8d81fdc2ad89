// A graph file split into lines, for looking into it without loading it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kurv::app {

// The counts that the file claims; nothing where a count does not fit into 16 bits.
struct GraphCounts {
  std::optional<int> data;
  std::optional<int> curves;
  std::optional<int> functions;
};

class GraphFileText {
 public:
  // Throws UserError, which begins with `path`, when the file cannot be read.
  explicit GraphFileText(const std::string& path);

  // The number of lines. Lines after the longest possible graph are counted but not kept.
  std::size_t lines() const { return m_total; }
  // The line with that number, from 1 on, without its end; empty where there is none.
  std::string_view line(std::size_t number) const;
  const GraphCounts& counts() const { return m_counts; }

 private:
  std::string m_bytes;
  std::vector<std::string_view> m_lines;
  std::size_t m_total = 0;
  GraphCounts m_counts;
};

// Iterates over the comma-separated entries of a list line. An empty line has one empty entry.
class ListEntries {
 public:
  explicit ListEntries(std::string_view line) : m_rest(line) {}
  // Nothing after the last one.
  std::optional<std::string_view> next();

 private:
  std::string_view m_rest;
  bool m_at_end = false;
};

std::size_t count_entries(std::string_view line);

}  // namespace kurv::app
