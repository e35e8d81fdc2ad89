#include "app/csv/curve_outline.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace kurv::app {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLevels = 4000;

// The slopes of the chords from a vertex that pass all vertices since within the tolerance.
class Chord {
 public:
  Chord(const Vertex& begin, double tolerance) : m_begin(begin), m_tolerance(tolerance) {}

  bool may_end_at(const Vertex& vertex) const {
    const double slope = slope_to(vertex, 0);
    return slope >= m_least && slope <= m_largest;
  }
  void pass(const Vertex& vertex) {
    if (vertex.position > m_begin.position) {
      m_least = std::max(m_least, slope_to(vertex, -m_tolerance));
      m_largest = std::min(m_largest, slope_to(vertex, m_tolerance));
    } else if (std::abs(vertex.value - m_begin.value) > m_tolerance) {
      m_least = kInfinity;  // none passes it
    }
  }

 private:
  // NaN, which no comparison is true for, where both have the same position and value.
  double slope_to(const Vertex& vertex, double above) const {
    return (vertex.value + above - m_begin.value) / (vertex.position - m_begin.position);
  }

  Vertex m_begin;
  double m_tolerance;
  double m_least = -kInfinity;
  double m_largest = kInfinity;
};

void leave_out_straight_rows(std::vector<Vertex>& vertices, double tolerance,
                             const RowScores& scores) {
  std::size_t kept = 1;
  std::size_t begin = 0;
  Chord chord(vertices.front(), tolerance);
  for (std::size_t i = 1; i < vertices.size(); ++i) {
    const std::size_t before = i - 1;
    const bool goes_on = chord.may_end_at(vertices[i]) && !scores.is_needed(vertices[before].row);
    if (!goes_on && before > begin) {
      begin = before;
      vertices[kept++] = vertices[before];
      chord = Chord(vertices[before], tolerance);
    }
    chord.pass(vertices[i]);
  }
  vertices[kept++] = vertices.back();
  vertices.resize(kept);
}

// Finds the vertices that are the largest of some window.
class WindowMaxima {
 public:
  // `sign` is -1 for the least ones instead. Values count in steps of `tolerance`, so that of many
  // that differ by less not all are needed.
  WindowMaxima(const std::vector<Vertex>& vertices, double sign, double tolerance, double window,
               RowScores& scores)
      : m_vertices(vertices),
        m_sign(sign),
        m_tolerance(tolerance),
        m_window(window),
        m_scores(scores) {}

  void find() {
    for (std::size_t i = 0; i < m_vertices.size(); ++i) add(i);
    for (const Maximum& maximum : m_open) close(maximum, kInfinity);
  }

 private:
  // One vertex, or several of a level that are near each other, of which the first and the last are
  // enough.
  struct Maximum {
    std::size_t first;
    std::size_t last;
    double level;
    double larger_before;  // a position
  };

  double position(std::size_t vertex) const { return m_vertices[vertex].position; }

  void add(std::size_t vertex) {
    const double level = std::floor(m_sign * m_vertices[vertex].value / m_tolerance);
    while (!m_open.empty() && m_open.back().level < level) {
      close(m_open.back(), position(vertex));
      m_open.pop_back();
    }
    double before = -kInfinity;
    if (!m_open.empty()) {
      Maximum& last = m_open.back();
      if (last.level == level && position(vertex) - position(last.first) < m_window / 2) {
        last.last = vertex;
        return;
      }
      before = position(last.last);
    }
    m_open.push_back({vertex, vertex, level, before});
  }

  void close(const Maximum& maximum, double larger_after) {
    raise(maximum.first, maximum.larger_before, larger_after);
    if (maximum.last != maximum.first) raise(maximum.last, maximum.larger_before, larger_after);
  }

  void raise(std::size_t vertex, double before, double after) {
    const double left = std::min(position(vertex) - before, m_window);
    const double right = std::min(after - position(vertex), m_window);
    const double share = (left + right - m_window) / m_window;
    if (!(share > 0)) return;
    m_scores.raise_extreme(m_vertices[vertex].row, share);
    if (vertex > 0) m_scores.raise_neighbour(m_vertices[vertex - 1].row, share);
    if (vertex + 1 < m_vertices.size()) {
      m_scores.raise_neighbour(m_vertices[vertex + 1].row, share);
    }
  }

  const std::vector<Vertex>& m_vertices;
  double m_sign;
  double m_tolerance;
  double m_window;
  RowScores& m_scores;
  // Those after which no larger one has come yet; their levels do not increase.
  std::vector<Maximum> m_open;
};

}  // namespace

void score_outline(std::vector<Vertex>& vertices, std::vector<WindowScores>& windows) {
  if (vertices.empty()) return;
  const auto [least, largest] =
      std::minmax_element(vertices.begin(), vertices.end(),
                          [](const Vertex& a, const Vertex& b) { return a.value < b.value; });
  for (WindowScores& window : windows) {
    for (const Vertex& vertex : {vertices.front(), *least, *largest, vertices.back()}) {
      window.scores.need(vertex.row);
    }
  }
  // Divided first, because the difference of two finite numbers may be too large.
  const double range = largest->value / kLevels - least->value / kLevels;
  const double tolerance = std::max(range, std::numeric_limits<double>::min());
  leave_out_straight_rows(vertices, tolerance, windows.front().scores);
  for (auto& [window, scores] : windows) {
    WindowMaxima(vertices, 1, tolerance, window, scores).find();
    WindowMaxima(vertices, -1, tolerance, window, scores).find();
  }
}

}  // namespace kurv::app
