#include "app/csv/row_scores.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kurv::app {

void RowScores::raise(int row, std::uint8_t value) {
  std::uint8_t& current = score(row);
  if (value <= current) return;
  if (current <= kAny) ++m_useful;
  current = value;
}

std::vector<int> RowScores::best(int count) const {
  std::array<std::int64_t, 256> counts{};  // of each score
  for (const std::uint8_t score : m_scores) ++counts[score];
  std::size_t last = kNeeded;
  std::int64_t left = count;
  while (last > kAny && counts[last] <= left) left -= counts[last--];
  const std::int64_t taken = std::min(left, counts[last]);
  std::vector<int> rows;
  std::int64_t due = 0;  // of those with the last score, in fractions of their number
  for (std::size_t row = 0; row < m_scores.size(); ++row) {
    bool is_taken = m_scores[row] > last;
    if (m_scores[row] == last) {
      due += taken;
      is_taken = due >= counts[last];
      if (is_taken) due -= counts[last];
    }
    if (is_taken) rows.push_back(static_cast<int>(row));
  }
  return rows;
}

}  // namespace kurv::app
