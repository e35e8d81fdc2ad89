#include "app/window/window_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace kurv::app {

namespace {

// Drawn on a grid of 16 by 16, so that the axes of the smallest icon are crisp.
constexpr int kGrid = 16;

QPixmap drawn(int size) {
  QPixmap pixmap(size, size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(double(size) / kGrid, double(size) / kGrid);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(QRectF(0, 0, 16, 16), 3, 3);
  painter.fillRect(QRectF(3, 2, 1, 11), QColor(0x40, 0x40, 0x40));
  painter.fillRect(QRectF(3, 12, 11, 1), QColor(0x40, 0x40, 0x40));
  QPainterPath curve(QPointF(4.5, 10.5));
  curve.cubicTo(QPointF(7, 1), QPointF(9, 13), QPointF(13.5, 3.5));
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(0x00, 0x00, 0xC0), 1.6, Qt::SolidLine, Qt::RoundCap));
  painter.drawPath(curve);
  return pixmap;
}

}  // namespace

QIcon window_icon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128}) icon.addPixmap(drawn(size));
  return icon;
}

}  // namespace kurv::app
