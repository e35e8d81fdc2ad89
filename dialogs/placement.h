// Where on a screen a window goes.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QWidget>

namespace kurv {

// The top left of `window`, moved into the area; its left and top are inside also where it is
// larger.
QPoint moved_into(const QRect& area, const QRect& window);

// What a window should not cover: the titles of a plot, the plot, and the window with the plot.
struct Covered {
  QRect titles;  // null where there are none
  QRect plot;
  QRect main;
};

// The place for a window of this size in the area. Of the places beside the main window and beside
// the plot it is the one that covers least of the titles, of those that cover the same, the one
// that covers least of the plot, and then least of the main window; to the right rather than to the
// left.
QPoint place_beside(const QRect& area, const Covered& covered, QSize size);

// As place_beside() of window_places.h. The titles are in the coordinates of the plot.
void place_beside(QWidget& window, const QWidget& plot, const QRect& titles);

}  // namespace kurv
