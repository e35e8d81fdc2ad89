#include "raster/columns.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "raster/geometry.h"
#include "raster/stroke_parts.h"

namespace kurv::raster {
namespace {

// Beyond it single precision no longer tells the pixels of a slope apart.
constexpr float kFar = 1 << 17;  // pixels

bool is_near(float pixels) {
  return std::abs(pixels) < kFar;
}

// Each disc passes over each cell, so a wide pen would take time in proportion to its square.
bool is_narrow(const Pen& pen) {
  return pen.half_width <= 64;
}

bool is_wide(const Pen& pen) {
  return pen.half_width > 2.5;
}

}  // namespace

bool Columns::add(const Pen& pen, const Polyline& line) {
  if (!is_narrow(pen) || !m_abscissae.take(line.x)) return false;
  if (line.x.empty()) return true;
  scale_y(pen, line.y);
  const int turns = find_turns();
  if (m_cells.is_empty()) use(pen, !is_wide(pen) && needs_fine_cells(pen, line, turns));
  m_abscissae.place(
      {pen.pixels_per_unit * m_cells.per_pixel(), m_trace.node_of_zero(), m_trace.last_node()});
  add_runs(line);
  return true;
}

void Columns::scale_y(const Pen& pen, std::span<const float> y) {
  m_y.resize(y.size());
  const auto scale = static_cast<float>(pen.pixels_per_unit);
  for (std::size_t i = 0; i < y.size(); ++i) m_y[i] = y[i] * scale;
  if (m_abscissae.is_reversed()) std::ranges::reverse(m_y);
}

// How often the line turns up or down.
int Columns::find_turns() {
  constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
  m_turns.resize(m_y.size());
  int turns = 0, level = 0;
  for (std::size_t i = 1; i + 1 < m_y.size(); ++i) {
    const float before = m_y[i] - m_y[i - 1], behind = m_y[i + 1] - m_y[i];
    const bool is_turn = before * behind < 0;
    m_turns[i] = is_turn ? m_y[i] : kNone;
    turns += is_turn ? 1 : 0;
    level += before == 0 ? 1 : 0;
  }
  if (level == 0) return turns;
  // Where it was level it turns if it then goes back to where it came from.
  float way = 0;
  for (std::size_t i = 1; i + 1 < m_y.size(); ++i) {
    if (m_y[i] != m_y[i - 1]) way = m_y[i] - m_y[i - 1];
    const bool is_turn = way * (m_y[i + 1] - m_y[i]) < 0;
    turns += is_turn && m_y[i] == m_y[i - 1] ? 1 : 0;
    m_turns[i] = is_turn ? m_y[i] : kNone;
  }
  return turns;
}

// Within a cell it is not known where a line turns or jumps. Where it does not jump and seldom
// turns nobody sees that the cells are few.
bool Columns::needs_fine_cells(const Pen& pen, const Polyline& line, int turns) const {
  constexpr double kSeldom = 4;  // pixels
  const auto right = static_cast<float>(m_cells.width() / pen.pixels_per_unit);
  const auto [low, high] = std::minmax(line.x.front(), line.x.back());
  const double visible = (std::min(high, right) - std::max(low, 0.0F)) * pen.pixels_per_unit;
  if (turns * kSeldom >= visible) return true;
  constexpr float kSteep = 16;  // times as high as wide
  const auto pixel = static_cast<float>(1 / pen.pixels_per_unit);
  int jumps = 0;
  for (std::size_t i = 1; i < line.x.size(); ++i) {
    const float step = std::abs(line.x[i] - line.x[i - 1]);
    jumps += std::abs(line.y[i] - line.y[i - 1]) > pixel + kSteep * step ? 1 : 0;
  }
  return jumps > 0;
}

void Columns::use(const Pen& pen, bool fine_cells) {
  m_pen = pen;
  m_cells.set_per_pixel_log2(fine_cells ? 4 : 3);
  m_trace.use(m_cells, pen.half_width);
}

// A run goes on as long as its segments are there and near.
void Columns::add_runs(const Polyline& line) {
  const std::size_t count = line.x.size();
  const bool is_reversed = m_abscissae.is_reversed();
  const auto scale = static_cast<float>(m_pen.pixels_per_unit);
  const auto place = [=](int i) {
    const auto forward = static_cast<std::size_t>(i);
    return is_reversed ? count - 1 - forward : forward;
  };
  const auto is_drawn = [&](int i) { return line.drawn[place(is_reversed ? i - 1 : i)] != 0; };
  const auto point = [&](int i) { return Point{line.x[place(i)], line.y[place(i)]}; };
  const auto near = [&](int i) {
    return is_near(m_y[static_cast<std::size_t>(i)]) && is_near(line.x[place(i)] * scale);
  };
  const int end = static_cast<int>(count);
  int first = 0;
  bool was_near = end > 0 && near(0);
  for (int i = 1; i < end; ++i) {
    const bool now_near = near(i);
    if (!is_drawn(i) || !was_near || !now_near) {
      add_run(first, i);
      first = i;
      if (is_drawn(i) && !(was_near && now_near)) add_far_segment(point(i - 1), point(i));
    }
    was_near = now_near;
  }
  add_run(first, end);
}

// Points first..end-1, all of which are near, and the segments between them.
void Columns::add_run(int first, int end) {
  if (end - first < 2) return;
  const Abscissae& x = m_abscissae;
  const int last = m_trace.last_node();
  const int first_node = std::max(x.nearest(first), 0);
  const int last_node = std::min(x.nearest(end - 1), last);
  if (first_node > last_node) return;
  m_trace.begin(first_node, last_node);
  while (x.nearest(first) < 0 && x.nearest(first + 1) < 0) ++first;
  while (x.nearest(end - 1) > last && x.nearest(end - 2) > last) --end;

  // Where the line turns is known to the nearest node only. Elsewhere that would widen it.
  const auto pass_point = [&](int i, float y) {
    const int node = x.nearest(i);
    if (node >= 0 && node <= last) m_trace.pass(node, y);
  };
  pass_point(first, m_y[static_cast<std::size_t>(first)]);
  for (int i = first + 1; i < end - 1; ++i) pass_point(i, m_turns[static_cast<std::size_t>(i)]);
  pass_point(end - 1, m_y[static_cast<std::size_t>(end - 1)]);
  const int from = static_cast<int>(std::ceil(std::max(x.at(first), 0.0F)));
  const int to = static_cast<int>(std::ceil(std::min(x.at(end - 1), static_cast<float>(last + 1))));
  for (int node = from; node < to; ++node) {
    const auto segment = static_cast<std::size_t>(x.segment(node));
    const float before = m_y[segment - 1];
    m_trace.pass(node, before + x.fraction(node) * (m_y[segment] - before));
  }
  m_trace.dilate(first_node, last_node, m_cells);
}

// The visible part of a segment with an end that is far away, the lower x first.
void Columns::add_far_segment(Point from, Point to) {
  if (has_nan(from) || has_nan(to)) return;
  const double scale = m_pen.pixels_per_unit;
  const double margin = (m_pen.half_width + 2) / scale;
  const Box box{{-margin, -margin},
                {m_cells.width() / scale + margin, m_cells.height() / scale + margin}};
  const std::optional<VisiblePart> part = visible_part(finite(from), finite(to), box);
  if (!part) return;
  const auto node_at = [&](double x) {
    return x * scale * m_cells.per_pixel() + m_trace.node_of_zero();
  };
  const double begin = node_at(part->from.x), end = node_at(part->to.x);
  const int last = m_trace.last_node();
  const auto nearest = [last](double node) {
    return static_cast<int>(std::floor(std::clamp(node + 0.5, -1.0, last + 1.0)));
  };
  const auto pass = [&](int node, double y) {
    if (node < 0 || node > last) return;
    m_trace.pass(node, static_cast<float>(std::clamp(y * scale, -1e30, 1e30)));
  };
  const int first_node = std::max(nearest(begin), 0), last_node = std::min(nearest(end), last);
  m_trace.begin(first_node, last_node);
  pass(nearest(begin), part->from.y);
  pass(nearest(end), part->to.y);
  for (int node = nearest(begin) + 1; node < nearest(end); ++node) {
    const double fraction = (node - begin) / (end - begin);
    pass(node, part->from.y + fraction * (part->to.y - part->from.y));
  }
  m_trace.dilate(first_node, last_node, m_cells);
}

}  // namespace kurv::raster
