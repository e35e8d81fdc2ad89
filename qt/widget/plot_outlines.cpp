#include "qt/widget/plot_outlines.h"

#include <QColor>
#include <QPen>
#include <algorithm>

namespace kurv {

namespace {

// The picture is white on every desktop, and so the ink does not follow the palette.
constexpr QRgb kOutlineInk = 0xFF003C8C;

// Logical pixels; whole ones, so that the lines are crisp.
constexpr int kFocusWidth = 2;
constexpr int kFocusGap = 2;  // keeps the line off the text
constexpr double kRingRadius = 6;
constexpr double kRingWidth = 2;
constexpr double kRingEdge = 1.5;  // of white on either side, to be seen over curves

// Moves an interval that begins at `at` until a piece of it is inside first..last; returns where it
// begins then.
int moved_inside(int at, int extent, int first, int last) {
  constexpr int kPiece = 4 * kFocusWidth;
  const int least = first - extent + kPiece;
  return std::clamp(at, least, std::max(least, last - kPiece));
}

void outline(QPainter& painter, const QRect& rect, int width, Qt::PenStyle style) {
  QPen pen(Qt::white, width);
  pen.setJoinStyle(Qt::MiterJoin);
  painter.setPen(pen);
  painter.drawRect(rect);
  pen.setColor(QColor::fromRgb(kOutlineInk));
  pen.setStyle(style);
  pen.setCapStyle(Qt::FlatCap);
  painter.setPen(pen);
  painter.drawRect(rect);
}

}  // namespace

void outline_pressed(QPainter& painter, const std::vector<QRectF>& rects) {
  for (const QRectF& rect : rects) outline(painter, rect.toAlignedRect(), 1, Qt::SolidLine);
}

void outline_dragged(QPainter& painter, const QRectF& rect) {
  outline(painter, rect.toAlignedRect(), 1, Qt::DashLine);
}

void outline_focused(QPainter& painter, const std::vector<QRectF>& rects, const QRect& view) {
  const QRect inside = view.adjusted(1, 1, -kFocusWidth, -kFocusWidth);
  for (const QRectF& rect : rects) {
    QRect around = rect.toAlignedRect().adjusted(-kFocusGap, -kFocusGap, kFocusGap, kFocusGap);
    // A target outside is outlined at the nearest edge.
    around.moveLeft(moved_inside(around.left(), around.width(), inside.left(), inside.right()));
    around.moveTop(moved_inside(around.top(), around.height(), inside.top(), inside.bottom()));
    outline(painter, around & inside, kFocusWidth, Qt::DashLine);
  }
}

QRect ring_around(const QPointF& point) {
  constexpr double kExtent = kRingRadius + kRingWidth / 2 + kRingEdge;
  return QRectF(point - QPointF(kExtent, kExtent), point + QPointF(kExtent, kExtent))
      .toAlignedRect()
      .adjusted(-1, -1, 1, 1);
}

void ring_point(QPainter& painter, const QPointF& point) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Qt::white, kRingWidth + 2 * kRingEdge));
  painter.drawEllipse(point, kRingRadius, kRingRadius);
  painter.setPen(QPen(QColor::fromRgb(kOutlineInk), kRingWidth));
  painter.drawEllipse(point, kRingRadius, kRingRadius);
  painter.setRenderHint(QPainter::Antialiasing, false);
}

}  // namespace kurv
