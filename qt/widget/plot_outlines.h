// The outlines over the picture: what is pressed, dragged, and reached by the keyboard. They read
// on the white surface as well as over curves.
#pragma once

#include <QPainter>
#include <QRect>
#include <QRectF>
#include <vector>

namespace kurv {

// The parts of the axes under a pressed button.
void outline_pressed(QPainter& painter, const std::vector<QRectF>& rects);
// The item that follows the pointer.
void outline_dragged(QPainter& painter, const QRectF& rect);
// The target that the keyboard has reached, as far as it is inside of `view`, which has no room for
// lines of its own.
void outline_focused(QPainter& painter, const std::vector<QRectF>& rects, const QRect& view);

}  // namespace kurv
