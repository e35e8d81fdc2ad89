#include "qt/surface/clipped_paths.h"

#include <QPointF>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "raster/geometry.h"

namespace kurv {

namespace {

constexpr double kDotLength = 0.01;
constexpr double kFullTurn = 2 * std::numbers::pi;

// The angles of an arc in radians, anticlockwise; the start is reduced to less than a full turn.
struct ArcSweep {
  double start;
  double sweep;
  bool is_circle() const { return sweep >= kFullTurn; }
};

raster::Point finite_point(SurfacePoint point) {
  return raster::finite(raster::Point{point.x, point.y});
}

double radius_of(const QRectF& page) {
  return std::hypot(page.width(), page.height()) / 2;
}

void add_line(QPainterPath& path, QPointF from, QPointF to) {
  if (path.isEmpty() || path.currentPosition() != from) path.moveTo(from);
  path.lineTo(from == to ? to + QPointF(kDotLength, 0) : to);
}

// A circle so large that it is nearly straight on the page. Points on it are given by the angle at
// its centre from the one nearest to the middle of the page.
class LargeCircle {
 public:
  LargeCircle(const QRectF& page, raster::Point centre, Single radius) : m_radius(radius) {
    const QPointF middle = page.center();
    const QPointF towards = QPointF(centre.x, centre.y) - middle;
    const double distance = std::hypot(towards.x(), towards.y());
    m_inwards = towards / distance;
    // From the power of a point: the difference of two distances would cancel to nothing.
    const double power = raster::power_of_origin(centre, radius) +
                         QPointF::dotProduct(middle, middle) -
                         2 * QPointF::dotProduct(middle, QPointF(centre.x, centre.y));
    m_foot = middle + m_inwards * (power / (distance + m_radius));
    m_angle = std::atan2(m_inwards.y(), -m_inwards.x());
    m_reach = std::asin(std::min(1.0, radius_of(page) / m_radius));
    const QPointF aside = m_foot - middle;
    m_is_near = std::hypot(aside.x(), aside.y()) <= radius_of(page);
  }

  // Adds the part of the arc that may be visible.
  void add(QPainterPath& path, const ArcSweep& arc) const {
    if (!m_is_near) return;
    if (arc.is_circle()) return add_arc_piece(path, -m_reach, m_reach);
    const double start = std::remainder(arc.start - m_angle, kFullTurn);
    for (const double turns : {-kFullTurn, 0.0, kFullTurn}) {
      add_arc_piece(path, std::max(start + turns, -m_reach),
                    std::min(start + turns + arc.sweep, m_reach));
    }
  }

 private:
  // The point of the circle at an angle from m_foot.
  QPointF at(double angle) const {
    const QPointF along(-m_inwards.y(), m_inwards.x());
    const double half = std::sin(angle / 2);
    return m_foot + along * (m_radius * std::sin(angle)) + m_inwards * (2 * m_radius * half * half);
  }

  void add_arc_piece(QPainterPath& path, double from, double to) const {
    constexpr int kSteps = 64;
    if (!(from <= to)) return;
    path.moveTo(at(from));
    for (int i = 1; i <= kSteps; ++i) path.lineTo(at(from + (to - from) * i / kSteps));
  }

  double m_radius;
  QPointF m_inwards;  // unit vector from the page to the centre
  QPointF m_foot;     // the circle's point nearest to the middle of the page
  double m_angle;     // of m_foot
  double m_reach;     // the page is within this angle on either side of m_angle
  bool m_is_near;
};

void add_arc_path(QPainterPath& path, const QRectF& page, raster::Point centre, Single radius,
                  const ArcSweep& arc) {
  // Beyond this radius Bezier curves are too inaccurate, and the page shows a small part of the
  // circle.
  const double widest = 16 * radius_of(page);
  const QPointF middle(centre.x, centre.y);
  const QRectF around(middle.x() - radius, middle.y() - radius, 2.0 * radius, 2.0 * radius);
  if (radius > widest) {
    LargeCircle(page, centre, radius).add(path, arc);
  } else if (!around.intersects(page)) {
    return;
  } else if (arc.is_circle()) {
    path.addEllipse(around);
  } else {
    const double degrees = 180 / std::numbers::pi;
    path.arcMoveTo(around, arc.start * degrees);
    path.arcTo(around, arc.start * degrees, arc.sweep * degrees);
  }
}

}  // namespace

void add_clipped_segment(QPainterPath& path, const QRectF& page, SurfacePoint from,
                         SurfacePoint to) {
  const raster::Point first = finite_point(from);
  const raster::Point last = finite_point(to);
  if (raster::has_nan(first) || raster::has_nan(last)) return;
  const raster::Box box{{page.left(), page.top()}, {page.right(), page.bottom()}};
  const std::optional<raster::ClippedSegment> part = raster::clip_segment(first, last, box);
  if (part) add_line(path, {part->from.x, part->from.y}, {part->to.x, part->to.y});
}

void add_clipped_circle(QPainterPath& path, const QRectF& page, SurfacePoint centre,
                        Single radius) {
  const raster::Point middle = finite_point(centre);
  if (raster::has_nan(middle) || !(radius >= 0)) return;
  if (radius == 0) return add_clipped_segment(path, page, centre, centre);
  add_arc_path(path, page, middle, finite_point({radius, 0}).x, {0, kFullTurn});
}

void add_clipped_arc(QPainterPath& path, const QRectF& page, SurfacePoint centre, Single radius,
                     Single start, Single end) {
  const raster::Point angles = finite_point({start, end});
  if (raster::has_nan(angles)) return;
  const ArcSweep arc{std::fmod(double(angles.x), kFullTurn), raster::sweep_of(angles.x, angles.y)};
  if (!(radius > 0) || arc.is_circle()) return add_clipped_circle(path, page, centre, radius);
  const raster::Point middle = finite_point(centre);
  if (raster::has_nan(middle)) return;
  const Single finite_radius = finite_point({radius, 0}).x;
  // A very short arc is a dot.
  if (arc.sweep * finite_radius < kDotLength) {
    const SurfacePoint dot{static_cast<Single>(middle.x + finite_radius * std::cos(arc.start)),
                           static_cast<Single>(middle.y - finite_radius * std::sin(arc.start))};
    return add_clipped_segment(path, page, dot, dot);
  }
  add_arc_path(path, page, middle, finite_radius, arc);
}

std::optional<QRectF> clipped_box(const QRectF& page, SurfacePoint a, SurfacePoint b) {
  const raster::Point first = finite_point(a);
  const raster::Point last = finite_point(b);
  if (raster::has_nan(first) || raster::has_nan(last)) return std::nullopt;
  const QPointF low(std::max<double>(std::min(first.x, last.x), page.left()),
                    std::max<double>(std::min(first.y, last.y), page.top()));
  const QPointF high(std::min<double>(std::max(first.x, last.x), page.right()),
                     std::min<double>(std::max(first.y, last.y), page.bottom()));
  if (low.x() > high.x() || low.y() > high.y()) return std::nullopt;
  return QRectF(low, high);
}

}  // namespace kurv
