// Where on a screen a window goes.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace kurv {

// The top left of `window`, moved into the area; its left and top are inside also where it is
// larger.
QPoint moved_into(const QRect& area, const QRect& window);

// The place for a window of this size in the area. Of the places beside `main`, the window with the
// plot, and beside the plot itself it is the one that covers least of the plot, and of those that
// cover the same, the one that covers least of `main`; to the right rather than to the left.
QPoint place_beside(const QRect& area, const QRect& plot, const QRect& main, QSize size);

}  // namespace kurv
