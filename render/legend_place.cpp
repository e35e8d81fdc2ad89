#include "render/legend_place.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <tuple>
#include <utility>
#include <vector>

#include "render/mapping.h"

namespace kurv {

namespace {

// Twips.
constexpr Double kCell = 60;
constexpr Double kInset = 200;

// Of more lines than these only every n-th counts, so that finding a place takes no longer than a
// few redraws.
constexpr std::int64_t kMostLines = 250'000;

// Cells from `first` to before `last` in each direction.
struct CellRange {
  int first_column;
  int last_column;
  int first_row;
  int last_row;
};

// How much there is in each cell of the plot.
class CellCounts {
 public:
  CellCounts(int columns, int rows)
      : m_columns(columns), m_rows(rows), m_sums(index(0, rows + 1), 0) {}

  void add(int column, int row) {
    const int c = std::clamp(column, 0, m_columns - 1);
    const int r = std::clamp(row, 0, m_rows - 1);
    ++m_sums[index(c + 1, r + 1)];
  }
  // Makes every element the sum of the cells to its left and above. Called once, after the last
  // add().
  void add_up() {
    for (int r = 1; r <= m_rows; ++r) {
      for (int c = 1; c <= m_columns; ++c) {
        m_sums[index(c, r)] +=
            m_sums[index(c - 1, r)] + m_sums[index(c, r - 1)] - m_sums[index(c - 1, r - 1)];
      }
    }
  }
  std::int64_t in(const CellRange& range) const {
    return m_sums[index(range.last_column, range.last_row)] -
           m_sums[index(range.first_column, range.last_row)] -
           m_sums[index(range.last_column, range.first_row)] +
           m_sums[index(range.first_column, range.first_row)];
  }
  std::int64_t all() const { return m_sums[index(m_columns, m_rows)]; }

 private:
  std::size_t index(int column, int row) const {
    return static_cast<std::size_t>(row) * (static_cast<std::size_t>(m_columns) + 1) +
           static_cast<std::size_t>(column);
  }

  int m_columns;
  int m_rows;
  std::vector<std::int64_t> m_sums;
};

class PlotCells {
 public:
  PlotCells(const GraphDocument& document, const PlotRect& plot)
      : m_columns(cells(plot.PlotWidth)),
        m_rows(cells(plot.PlotHeight)),
        m_points(m_columns, m_rows),
        m_lines(m_columns, m_rows),
        m_line_step(static_cast<int>(std::int64_t{document.NumY} * document.NumData / kMostLines) +
                    1) {
    const Mapping mapping(document, plot);
    find_columns(document, mapping);
    for (int k = 1; k <= document.NumY; ++k) {
      if (document.y_visible(k)) add_curve(document, mapping, k + 1);
    }
    m_points.add_up();
    m_lines.add_up();
  }

  static int cells(Double length) { return std::max(1, static_cast<int>(length / kCell) + 1); }

  int columns() const { return m_columns; }
  int rows() const { return m_rows; }
  const CellCounts& points() const { return m_points; }
  const CellCounts& lines() const { return m_lines; }

 private:
  struct Cell {
    int column;
    int row;
  };

  static constexpr int kOutside = -1;

  // All curves have the same x.
  void find_columns(const GraphDocument& document, const Mapping& mapping) {
    const auto x = document.xyArr.column(1);
    for (int i = 1; i <= document.NumData; ++i) {
      const Double across = mapping.NormX(x(i));
      // False for NaN too.
      const bool is_inside = 0 <= across && across <= 1;
      m_column_of.push_back(is_inside ? static_cast<int>(across * (m_columns - 1)) : kOutside);
    }
  }

  void add_curve(const GraphDocument& document, const Mapping& mapping, int column) {
    const auto y = document.xyArr.column(column);
    Cell before{};
    bool has_before = false;
    for (int i = 1; i <= document.NumData; ++i) {
      const Double down = 1 - mapping.NormY(y(i));
      const int across = m_column_of[static_cast<std::size_t>(i) - 1];
      const bool is_inside = across != kOutside && 0 <= down && down <= 1;
      const bool continues = std::exchange(has_before, is_inside);
      if (!is_inside) continue;
      const Cell cell{across, static_cast<int>(down * (m_rows - 1))};
      m_points.add(cell.column, cell.row);
      if (document.Connected && continues && i % m_line_step == 0) add_line(before, cell);
      before = cell;
    }
  }

  // The cells between two points that are not neighbours.
  void add_line(const Cell& from, const Cell& to) {
    const int columns = to.column - from.column;
    const int rows = to.row - from.row;
    const int steps = std::max(std::abs(columns), std::abs(rows));
    for (int i = 1; i < steps; ++i) {
      m_lines.add(from.column + columns * i / steps, from.row + rows * i / steps);
    }
  }

  int m_columns;
  int m_rows;
  CellCounts m_points;
  CellCounts m_lines;
  int m_line_step;
  std::vector<int> m_column_of;  // of each point
};

// The places on the grid of cells, and what a legend would hide at each.
class Places {
 public:
  struct Place {
    int column;
    int row;
    std::int64_t points;
    std::int64_t lines;
  };

  Places(const PlotCells& cells, const Rect& legend, int last_column, int last_row)
      : m_last_column(last_column), m_last_row(last_row) {
    const int inset = static_cast<int>(kInset / kCell);
    const int width = PlotCells::cells(legend.width) + 1;
    const int height = PlotCells::cells(legend.height) + 1;
    for (int row = 0; row <= last_row; ++row) {
      for (int column = 0; column <= last_column; ++column) {
        const int left = column + inset;
        const int top = row + inset;
        const CellRange range{left, std::min(left + width, cells.columns()), top,
                              std::min(top + height, cells.rows())};
        m_places.push_back({column, row, cells.points().in(range), cells.lines().in(range)});
      }
    }
  }

  // Drops the places that hide more than a quarter more than the best one.
  void keep_least(std::int64_t Place::*hidden) {
    const auto less = [hidden](const Place& a, const Place& b) { return a.*hidden < b.*hidden; };
    const std::int64_t least = (*std::min_element(m_places.begin(), m_places.end(), less)).*hidden;
    std::erase_if(m_places, [=](const Place& place) { return place.*hidden > least + least / 4; });
  }
  Place nearest_to_corner() const {
    const auto rank = [this](const Place& place) {
      const int to_side = std::min(place.column, m_last_column - place.column);
      const int to_end = std::min(place.row, m_last_row - place.row);
      return std::tuple(to_side + to_end, place.row, place.column);
    };
    return *std::min_element(m_places.begin(), m_places.end(),
                             [&](const Place& a, const Place& b) { return rank(a) < rank(b); });
  }

 private:
  int m_last_column;
  int m_last_row;
  std::vector<Place> m_places;
};

}  // namespace

std::optional<LegendPlace> find_legend_place(const GraphDocument& document, const Layout& layout) {
  const PlotRect& plot = layout.plot;
  const Rect& legend = layout.picLegend;
  const int last_column =
      static_cast<int>(std::floor((plot.PlotWidth - legend.width - 2 * kInset) / kCell));
  const int last_row =
      static_cast<int>(std::floor((plot.PlotHeight - legend.height - 2 * kInset) / kCell));
  if (last_column < 0 || last_row < 0) return std::nullopt;

  const PlotCells cells(document, plot);
  Places places(cells, legend, last_column, last_row);
  places.keep_least(&Places::Place::points);
  places.keep_least(&Places::Place::lines);
  const Places::Place best = places.nearest_to_corner();
  const Double all = static_cast<Double>(std::max<std::int64_t>(cells.points().all(), 1));
  return LegendPlace{static_cast<Single>(plot.PlotLeft + kInset + best.column * kCell),
                     static_cast<Single>(plot.PlotTop + kInset + best.row * kCell),
                     static_cast<Double>(best.points) / all};
}

}  // namespace kurv
