// The texts of cells that are not in the data, because they are no numbers or were refused.
#pragma once

#include <QString>
#include <vector>

namespace kurv {

// Points and columns count from 1. A point is one of the host's order, so that a mark follows it
// when the rows are sorted. The memory of a column is allocated at its first mark.
class CellMarks {
 public:
  // Forgets all marks.
  void resize(int points, int columns) {
    m_columns.assign(static_cast<std::size_t>(columns), {});
    m_points = static_cast<std::size_t>(points);
    m_count = 0;
  }
  int count() const { return m_count; }

  // Null where there is no mark. Where the clearing of a cell was refused, the mark's text is
  // empty.
  const QString* find(int point, int column) const {
    const std::size_t c = static_cast<std::size_t>(column) - 1;
    if (m_count == 0 || c >= m_columns.size() || m_columns[c].empty()) return nullptr;
    const std::size_t i = static_cast<std::size_t>(point) - 1;
    if (i >= m_points || m_columns[c][i].isNull()) return nullptr;
    return &m_columns[c][i];
  }

  // Both ignore cells outside the size.
  void set(int point, int column, const QString& text) {
    const std::size_t c = static_cast<std::size_t>(column) - 1;
    const std::size_t i = static_cast<std::size_t>(point) - 1;
    if (c >= m_columns.size() || i >= m_points) return;
    m_columns[c].resize(m_points);
    if (m_columns[c][i].isNull()) ++m_count;
    m_columns[c][i] = text.isNull() ? QLatin1String("") : text;
  }
  void clear(int point, int column) {
    if (!find(point, column)) return;
    m_columns[static_cast<std::size_t>(column) - 1][static_cast<std::size_t>(point) - 1].clear();
    --m_count;
  }

 private:
  std::vector<std::vector<QString>> m_columns;  // empty until there is a mark
  std::size_t m_points = 0;
  int m_count = 0;
};

}  // namespace kurv
