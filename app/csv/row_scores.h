// How much the picture of a table needs each of its rows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kurv::app {

// Rows count from 0. A row that several curves need has the highest of their scores. A row that no
// curve needs may be taken as well, where there is space for it.
class RowScores {
 public:
  explicit RowScores(int rows) : m_scores(static_cast<std::size_t>(rows), kAny) {}

  // The row is taken only where need() says so.
  void exclude(int row) { score(row) = kNone; }
  void need(int row) { raise(row, kNeeded); }
  bool is_needed(int row) const { return m_scores[static_cast<std::size_t>(row)] == kNeeded; }
  // An extreme of a curve, and one of the two rows beside it. `share`, above 0 and at most 1, says
  // how much would be lost without the extreme.
  void raise_extreme(int row, double share) { raise(row, scaled(kLeastExtreme, share)); }
  void raise_neighbour(int row, double share) { raise(row, scaled(kLeastNeighbour, share)); }

  // The number of rows that are needed, of extremes and of their neighbours.
  int useful_rows() const { return m_useful; }
  // The `count` rows with the highest scores, in ascending order. Those with the last score that
  // is taken are taken evenly.
  std::vector<int> best(int count) const;

 private:
  static constexpr std::uint8_t kNone = 0;
  static constexpr std::uint8_t kAny = 1;
  static constexpr std::uint8_t kLeastNeighbour = 2;
  static constexpr std::uint8_t kLeastExtreme = 128;
  static constexpr std::uint8_t kNeeded = 255;

  std::uint8_t& score(int row) { return m_scores[static_cast<std::size_t>(row)]; }
  static std::uint8_t scaled(std::uint8_t least, double share) {
    return static_cast<std::uint8_t>(least + share * 125);
  }
  void raise(int row, std::uint8_t value);

  std::vector<std::uint8_t> m_scores;
  int m_useful = 0;
};

}  // namespace kurv::app
