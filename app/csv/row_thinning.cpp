#include "app/csv/row_thinning.h"

#include <KurvGraph/limits.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "app/csv/curve_outline.h"
#include "app/csv/mixed_rows.h"
#include "app/csv/row_positions.h"
#include "app/csv/row_scores.h"

namespace kurv::app {

namespace {

// Device pixels of the plot of a large picture, and of one of the default size.
constexpr int kFineWindows = 2048;
constexpr int kWindows = 1024;
constexpr int kGaps = 8192;
// Of more rows, those are left out first that are no extremes of one of so many buckets: each is
// far narrower than a window, and a bucket costs less than the search for the extremes of windows.
constexpr int kBuckets = 1 << 17;

// Makes the first, the least, the largest and the last row of each bucket a vertex.
class VertexBuckets {
 public:
  // With a width of zero each row is a bucket of its own.
  VertexBuckets(const RowPositions& at, const Double* values, double width,
                std::vector<Vertex>& vertices)
      : m_at(at), m_values(values), m_width(width), m_vertices(vertices) {}

  void add(int row, double position) {
    const double value = m_values[row];
    if (!(position < m_end)) {
      close();
      m_end = position + m_width;
      m_first = m_least_row = m_largest_row = row;
      m_least = m_largest = value;
    } else if (value < m_least) {
      m_least = value;
      m_least_row = row;
    } else if (value > m_largest) {
      m_largest = value;
      m_largest_row = row;
    }
    m_last = row;
  }
  // The last bucket ends.
  void close() {
    if (m_first < 0) return;
    const auto [second, third] = std::minmax(m_least_row, m_largest_row);
    int before = -1;
    for (const int row : {m_first, second, third, m_last}) {
      if (row > before) m_vertices.push_back({row, m_at(row), m_values[row]});
      before = row;
    }
  }

 private:
  const RowPositions& m_at;
  const Double* m_values;
  double m_width;
  std::vector<Vertex>& m_vertices;
  double m_end = -std::numeric_limits<double>::infinity();
  double m_least = 0;
  double m_largest = 0;
  int m_first = -1;
  int m_least_row = -1;
  int m_largest_row = -1;
  int m_last = -1;
};

class Thinning {
 public:
  explicit Thinning(const Matrix<Double>& values)
      : m_values(values), m_at(values), m_gap(m_at.extent() / kGaps) {}

  ThinnedRows thinned() {
    std::vector<WindowScores> windows;
    for (const int count : {kFineWindows, kWindows}) {
      windows.push_back({m_at.extent() / count, drawable_rows()});
    }
    for (int column = m_at.are_x() ? 2 : 1; column <= m_values.upper_column(); ++column) {
      read_vertices(column, windows);
      score_outline(m_vertices, windows);
      // Further curves need no fewer rows.
      if (has_too_many(windows.front()) && windows.size() > 1) windows.erase(windows.begin());
      if (m_at.are_x() && has_too_many(windows.front())) {
        return {mixed_rows(m_values, m_at, kMaxPoints), true};
      }
    }
    return {values_of(windows.front().scores.best(kMaxPoints)), false};
  }

 private:
  static bool has_too_many(const WindowScores& window) {
    return window.scores.useful_rows() > kMaxPoints;
  }

  RowScores drawable_rows() const {
    RowScores scores(m_at.rows());
    for (int row = 0; row < m_at.rows() && !m_at.are_complete(); ++row) {
      if (std::isnan(m_at(row))) scores.exclude(row);
    }
    if (!m_at.are_x()) need_evenly_spaced(scores);
    return scores;
  }

  void need_evenly_spaced(RowScores& scores) const {
    constexpr std::int64_t kCount = kMaxPoints / 2;
    for (std::int64_t i = 0; i < kCount; ++i) {
      const int row = static_cast<int>(i * m_at.rows() / kCount);
      if (!std::isnan(m_at(row))) scores.need(row);
    }
  }

  // Also marks the rows around each gap, and one in it.
  void read_vertices(int column, std::vector<WindowScores>& windows) {
    const Double* const values = &m_values(column, 1);
    const bool are_few = m_at.rows() <= 4 * kBuckets;
    m_vertices.clear();
    VertexBuckets buckets(m_at, values, are_few ? 0 : m_at.extent() / kBuckets, m_vertices);
    int last = -1;
    int missing = -1;
    for (int row = 0; row < m_at.rows(); ++row) {
      const double position = m_at(row);
      if (std::isnan(position) || std::isnan(values[row])) {
        if (missing < 0) missing = row;
        continue;
      }
      if (missing >= 0 && last >= 0 && position - m_at(last) > m_gap) {
        for (WindowScores& window : windows) {
          for (const int needed : {last, missing, row}) window.scores.need(needed);
        }
      }
      missing = -1;
      last = row;
      buckets.add(row, position);
    }
    buckets.close();
  }

  Matrix<Double> values_of(const std::vector<int>& rows) const {
    const int columns = m_values.upper_column();
    Matrix<Double> result(1, columns, 1, static_cast<int>(rows.size()));
    for (int column = 1; column <= columns; ++column) {
      std::vector<Double> values = values_in(column, rows);
      if (column > 1 && m_at.are_x()) close_gaps(column, rows, values);
      result.set_column(column, std::move(values));
    }
    return result;
  }

  std::vector<Double> values_in(int column, const std::vector<int>& rows) const {
    const Double* const values = &m_values(column, 1);
    std::vector<Double> result;
    result.reserve(rows.size());
    for (const int row : rows) result.push_back(values[row]);
    return result;
  }

  // A missing value in a narrow gap would break the line from the row before to the row after it,
  // which may be far away once the rows between are left out.
  void close_gaps(int column, const std::vector<int>& rows, std::vector<Double>& chosen) const {
    if (std::none_of(chosen.begin(), chosen.end(), [](Double v) { return std::isnan(v); })) return;
    const Double* const values = &m_values(column, 1);
    int before = -1;
    std::size_t next = 0;
    for (int row = 0; row < m_at.rows() && next < rows.size(); ++row) {
      if (std::isnan(values[row]) || std::isnan(m_at(row))) continue;
      const bool is_narrow = before >= 0 && m_at(row) - m_at(before) <= m_gap;
      for (; next < rows.size() && rows[next] <= row; ++next) {
        const double at = m_at(rows[next]);
        if (!is_narrow || std::isnan(at)) continue;
        const bool is_nearer = m_at(row) - at <= at - m_at(before);
        chosen[next] = values[is_nearer ? row : before];
      }
      before = row;
    }
  }

  const Matrix<Double>& m_values;
  RowPositions m_at;
  double m_gap;
  std::vector<Vertex> m_vertices;  // of one curve
};

}  // namespace

ThinnedRows thinned(const Matrix<Double>& values) {
  return Thinning(values).thinned();
}

}  // namespace kurv::app
