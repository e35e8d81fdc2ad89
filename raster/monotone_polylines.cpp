#include "raster/monotone_polylines.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "raster/geometry.h"
#include "raster/row_blender.h"
#include "raster/stroke_math.h"

namespace kurv::raster {
namespace {

// Beyond this, single precision is too coarse to interpolate along a segment.
constexpr float kMaxCoordinate = 1 << 17;  // pixels

bool is_near(float pixels) {
  return std::abs(pixels) < kMaxCoordinate;
}

// The disc of the pen is applied to each subcolumn, so the time grows with the width of the pen.
bool is_narrow(const Pen& pen) {
  return pen.half_width <= 64;
}

bool is_wide(const Pen& pen) {
  return pen.half_width > 2.5;
}

}  // namespace

bool MonotonePolylines::accepts(const Pen& pen, std::span<const float> x) {
  return is_narrow(pen) && m_x_positions.set_x(x);
}

bool MonotonePolylines::add(const Pen& pen, const Polyline& line) {
  if (!accepts(pen, line.x)) return false;
  add_accepted(pen, line, nullptr);
  return true;
}

void MonotonePolylines::add_accepted(const Pen& pen, const Polyline& line,
                                     const FrontToBackLayer* occluder) {
  if (line.x.empty()) return;
  m_occluder = occluder;
  const bool is_all_near = scale_y(pen, line.y);
  m_is_noisy = is_noisy(m_y);
  if (!m_is_noisy) find_extrema();
  if (m_subcolumns.is_empty()) {
    configure(pen, !is_wide(pen) && (m_is_noisy || needs_fine_subcolumns(pen, line)));
  }
  m_x_positions.set_grid({pen.pixels_per_unit * m_subcolumns.per_pixel(), m_envelope.origin_node(),
                          m_envelope.last_node(), m_envelope.rim_offset()});
  if (m_is_noisy && !m_x_positions.is_dense()) {
    m_is_noisy = false;
    find_extrema();
  }
  if (is_all_near && is_whole(line)) {
    add_run(0, static_cast<int>(line.x.size()));
  } else {
    add_runs(line);
  }
}

void MonotonePolylines::flush(const Canvas& canvas, std::uint32_t colour) {
  const RowBlender blender(canvas, colour);
  m_subcolumns.flush(
      [&](int strip, int y, const RowCoverage& coverage) { blender.blend(strip, y, coverage); });
}

void MonotonePolylines::flush(FrontToBackLayer& layer, std::uint32_t colour) {
  m_subcolumns.flush([&](int strip, int y, const RowCoverage& coverage) {
    layer.blend_under(strip, y, coverage, colour);
  });
}

// Fills m_y; false where any y is far away or NaN.
bool MonotonePolylines::scale_y(const Pen& pen, std::span<const float> y) {
  m_y.resize(y.size());
  const auto scale = static_cast<float>(pen.pixels_per_unit);
  int far = 0;
  for (std::size_t i = 0; i < y.size(); ++i) {
    m_y[i] = y[i] * scale;
    far += is_near(m_y[i]) ? 0 : 1;
  }
  if (m_x_positions.is_reversed()) std::ranges::reverse(m_y);
  return far == 0;
}

bool MonotonePolylines::is_noisy(std::span<const float> y) {
  constexpr std::size_t kSample = 128;
  if (y.size() < 8 * kSample) return false;
  std::size_t turns = 0;
  for (std::size_t k = 0; k < kSample; ++k) {
    const float* const at = &y[k * (y.size() - 3) / kSample];
    turns += (at[1] - at[0]) * (at[2] - at[1]) < 0 ? 1 : 0;
  }
  return turns * 2 > kSample;
}

// A plateau is an extremum, at its end, if the line leaves it on the side from which it came.
bool MonotonePolylines::is_true_extremum(int point) const {
  const float* const y = m_y.data() + point;
  const float after = y[1] - y[0];
  if (y[0] != y[-1] || after == 0) return after != 0;
  const float* before = y;
  while (before > m_y.data() && before[-1] == y[0]) --before;
  return before > m_y.data() && (y[0] - before[-1]) * after < 0;
}

void MonotonePolylines::find_extrema() {
  const std::size_t count = m_y.size();
  constexpr std::size_t kAtOnce = 8;
  m_is_extremum.assign(count + kAtOnce, 0);
  // Local pointers: bytes may alias anything, so after each write the compiler would reload the
  // data pointers of the vectors.
  const float* const y = m_y.data();
  std::uint8_t* const is_extremum = m_is_extremum.data();
  for (std::size_t i = 1; i + 1 < count; ++i) {
    const float before = y[i] - y[i - 1], after = y[i + 1] - y[i];
    is_extremum[i] = static_cast<std::uint8_t>((before * after <= 0) & (before != after));
  }
  m_extrema.resize(count + kAtOnce);
  int* extremum = m_extrema.data();
  for (std::size_t i = 0; i < count; i += kAtOnce) {
    std::uint64_t any;
    std::memcpy(&any, is_extremum + i, sizeof any);
    if (any == 0) continue;
    // Each index is written and the end moved on only for extrema: a branch would be mispredicted.
    for (std::size_t k = i; k < i + kAtOnce; ++k) {
      *extremum = static_cast<int>(k);
      extremum += is_extremum[k];
    }
  }
  m_extrema.resize(static_cast<std::size_t>(extremum - m_extrema.data()));
  std::erase_if(m_extrema, [this](int point) { return !is_true_extremum(point); });
}

// The x of an extremum or a jump is known to a subcolumn only. Where a line has no jumps and few
// extrema, eight subcolumns a pixel show no difference from sixteen.
bool MonotonePolylines::needs_fine_subcolumns(const Pen& pen, const Polyline& line) const {
  constexpr double kPixelsPerExtremum = 4;
  const auto right = static_cast<float>(m_subcolumns.width() / pen.pixels_per_unit);
  const auto [low, high] = std::minmax(line.x.front(), line.x.back());
  const double visible = (std::min(high, right) - std::max(low, 0.0F)) * pen.pixels_per_unit;
  if (static_cast<double>(m_extrema.size()) * kPixelsPerExtremum >= visible) return true;
  constexpr float kSteep = 16;  // times as high as wide
  const auto pixel = static_cast<float>(1 / pen.pixels_per_unit);
  int jumps = 0;
  for (std::size_t i = 1; i < line.x.size(); ++i) {
    const float step = std::abs(line.x[i] - line.x[i - 1]);
    jumps += std::abs(line.y[i] - line.y[i - 1]) > pixel + kSteep * step ? 1 : 0;
  }
  return jumps > 0;
}

void MonotonePolylines::configure(const Pen& pen, bool fine_subcolumns) {
  m_pen = pen;
  m_subcolumns.set_per_pixel_log2(fine_subcolumns ? 4 : 3);
  m_envelope.configure(m_subcolumns, pen.half_width);
}

// Whether all segments are drawn and all x are near.
bool MonotonePolylines::is_whole(const Polyline& line) const {
  const auto scale = static_cast<float>(m_pen.pixels_per_unit);
  return is_near(line.x.front() * scale) && is_near(line.x.back() * scale) &&
         std::memchr(line.drawn.data() + 1, 0, line.drawn.size() - 1) == nullptr;
}

// Splits the line into runs, in which all segments are drawn and all points near.
void MonotonePolylines::add_runs(const Polyline& line) {
  const std::size_t count = line.x.size();
  const bool is_reversed = m_x_positions.is_reversed();
  const auto scale = static_cast<float>(m_pen.pixels_per_unit);
  const auto index = [=](int i) {
    const auto forward = static_cast<std::size_t>(i);
    return is_reversed ? count - 1 - forward : forward;
  };
  const auto is_drawn = [&](int i) { return line.drawn[index(is_reversed ? i - 1 : i)] != 0; };
  const auto point = [&](int i) { return Point{line.x[index(i)], line.y[index(i)]}; };
  const auto near = [&](int i) {
    return is_near(m_y[static_cast<std::size_t>(i)]) && is_near(line.x[index(i)] * scale);
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

// Adds points first..end-1, all of which are near, and the segments between them.
void MonotonePolylines::add_run(int first, int end) {
  if (end - first < 2) return;
  const XPositions& x = m_x_positions;
  const int last = m_envelope.last_node();
  const int first_node = std::max(x.nearest_node(first), 0);
  const int last_node = std::min(x.nearest_node(end - 1), last);
  if (first_node > last_node) return;
  m_envelope.reset(first_node, last_node);
  while (x.nearest_node(first) < 0 && x.nearest_node(first + 1) < 0) ++first;
  while (x.nearest_node(end - 1) > last && x.nearest_node(end - 2) > last) --end;

  if (m_is_noisy) {
    sample_points(first, end);
    m_x_positions.find_rim_crossings();
    const DenseRun run{x, m_y.data(), first, end};
    m_envelope.dilate(first_node, last_node, m_subcolumns, m_occluder, &run);
  } else {
    sample_line(first, end);
    m_envelope.dilate(first_node, last_node, m_subcolumns, m_occluder, nullptr);
  }
}

// Samples the line at each node, and adds its ends and local extrema at their nearest nodes. Other
// points are not added: off their node they would widen the line.
void MonotonePolylines::sample_line(int first, int end) {
  const XPositions& x = m_x_positions;
  const auto add_point = [&](int i) {
    m_envelope.add_sample(x.nearest_node(i), m_y[static_cast<std::size_t>(i)]);
  };
  add_point(first);
  const auto extrema_end = std::ranges::lower_bound(m_extrema, end - 1);
  for (auto extremum = std::ranges::upper_bound(m_extrema, first); extremum < extrema_end;
       ++extremum) {
    add_point(*extremum);
  }
  add_point(end - 1);
  const int last = m_envelope.last_node();
  const int from = static_cast<int>(std::ceil(std::max(x.position(first), 0.0F)));
  const int to =
      static_cast<int>(std::ceil(std::min(x.position(end - 1), static_cast<float>(last + 1))));
  for (int node = from; node < to; ++node) {
    const Crossing crossing = x.crossing(node);
    const auto segment = static_cast<std::size_t>(crossing.segment);
    const float before = m_y[segment - 1];
    m_envelope.add_sample(node, before + crossing.fraction * (m_y[segment] - before));
  }
}

// Takes all points at their nearest nodes. Where they are this dense, the line between them adds
// nothing.
void MonotonePolylines::sample_points(int first, int end) {
  const int* const nearest = m_x_positions.nearest_nodes();
  for (int i = first; i < end; ++i)
    m_envelope.add_sample(nearest[i], m_y[static_cast<std::size_t>(i)]);
}

// Adds the visible part of a segment with an end that is far away. `from` has the lower x.
void MonotonePolylines::add_far_segment(Point from, Point to) {
  if (has_nan(from) || has_nan(to)) return;
  const double scale = m_pen.pixels_per_unit;
  const double margin = (m_pen.half_width + 2) / scale;
  const Box box{{-margin, -margin},
                {m_subcolumns.width() / scale + margin, m_subcolumns.height() / scale + margin}};
  const std::optional<ClippedSegment> part = clip_segment(finite(from), finite(to), box);
  if (!part) return;
  const auto node_at = [&](double x) {
    return x * scale * m_subcolumns.per_pixel() + m_envelope.origin_node();
  };
  const double begin = node_at(part->from.x), end = node_at(part->to.x);
  const int last = m_envelope.last_node();
  const auto nearest = [last](double node) {
    return static_cast<int>(std::floor(std::clamp(node + 0.5, -1.0, last + 1.0)));
  };
  const auto add_sample = [&](int node, double y) {
    if (node < 0 || node > last) return;
    m_envelope.add_sample(node, static_cast<float>(std::clamp(y * scale, -1e30, 1e30)));
  };
  const int first_node = std::max(nearest(begin), 0), last_node = std::min(nearest(end), last);
  m_envelope.reset(first_node, last_node);
  add_sample(nearest(begin), part->from.y);
  add_sample(nearest(end), part->to.y);
  for (int node = nearest(begin) + 1; node < nearest(end); ++node) {
    const double fraction = (node - begin) / (end - begin);
    add_sample(node, part->from.y + fraction * (part->to.y - part->from.y));
  }
  m_envelope.dilate(first_node, last_node, m_subcolumns, m_occluder, nullptr);
}

}  // namespace kurv::raster
