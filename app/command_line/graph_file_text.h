// A graph file as the lines that it consists of.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kurv::app {

// How a line is read.
enum class LineKind {
  kTag,
  kCopy,    // repeats the title for whoever only wants that; not read
  kCount,   // the number that it begins with
  kText,    // as it stands
  kWhole,   // a number, rounded to 16 bits
  kNumber,  // a number
  kFlag,    // True, False or a number
};

struct FixedLine {
  const char* name;
  LineKind kind;
};

// Lines 1 to 47, which each graph file has; the lists follow. The names are those of the control's
// properties where it has them.
inline constexpr std::size_t kFixedLines = 47;
extern const std::array<FixedLine, kFixedLines> kLayout;

inline constexpr std::size_t kTagLine = 1;
inline constexpr std::size_t kCopyLine = 2;
inline constexpr std::size_t kNumDataLine = 3;
inline constexpr std::size_t kNumYLine = 4;
inline constexpr std::size_t kNumYFuncLine = 5;
inline constexpr std::size_t kTitleLine = 6;
// Each below the other end of its axis.
inline constexpr std::size_t kYMaxLine = 24;
inline constexpr std::size_t kXMaxLine = 26;
inline constexpr std::size_t kFirstDataLine = 48;

// How much of everything the file claims to have. Nothing where the claim does not fit 16 bits.
struct GraphCounts {
  std::optional<int> data;
  std::optional<int> curves;
  std::optional<int> functions;
};

class GraphFileText {
 public:
  // Throws UserError, which begins with `path`, when the file cannot be read.
  explicit GraphFileText(const std::string& path);

  // All lines of the file. Those that no graph can need are counted and not kept.
  std::size_t lines() const { return m_total; }
  // Counted from 1, without its end; empty where there is none.
  std::string_view line(std::size_t number) const;
  const GraphCounts& counts() const { return m_counts; }

  // The lines behind the columns of a graph with so many curves.
  static std::size_t names_line(int curves) { return kFirstDataLine + 1 + std::size_t(curves); }
  static std::size_t flags_line(int curves) { return names_line(curves) + 1; }
  static std::size_t functions_line(int curves) { return names_line(curves) + 2; }

 private:
  std::string m_bytes;
  std::vector<std::string_view> m_lines;
  std::size_t m_total = 0;
  GraphCounts m_counts;
};

// Takes the pieces of a list line one by one. An empty line has one empty piece.
class Pieces {
 public:
  explicit Pieces(std::string_view line) : m_rest(line) {}
  // Nothing behind the last one.
  std::optional<std::string_view> next();

 private:
  std::string_view m_rest;
  bool m_at_end = false;
};

std::size_t count_pieces(std::string_view line);

}  // namespace kurv::app
