// The outlines over the picture: of what is pressed, dragged, and focused by the keyboard. They are
// visible on the white surface as well as over curves.
#pragma once

#include <QPainter>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <vector>

namespace kurv {

// The parts of the axes under a pressed button.
void outline_pressed(QPainter& painter, const std::vector<QRectF>& rects);
// The item that follows the pointer.
void outline_dragged(QPainter& painter, const QRectF& rect);
// The target with the keyboard's focus, clipped to `view`, outside of which nothing is painted. A
// target beyond an edge is outlined at that edge.
void outline_focused(QPainter& painter, const std::vector<QRectF>& rects, const QRect& view);

// The point that is read out.
QRect ring_around(const QPointF& point);
void ring_point(QPainter& painter, const QPointF& point);

}  // namespace kurv
