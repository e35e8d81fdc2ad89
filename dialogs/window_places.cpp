#include <KurvGraph/window_places.h>

#include <QScreen>

#include "dialogs/placement.h"

namespace kurv {

namespace {

// With the frame, which is unknown before a window is shown; that of the main window is as large.
QSize framed_size(const QWidget& window, const QWidget& main) {
  const QSize frame = main.frameGeometry().size() - main.size();
  return (window.testAttribute(Qt::WA_Resized) ? window.size() : window.sizeHint()) + frame;
}

}  // namespace

void place_beside(QWidget& window, const QWidget& plot, const QRect& titles) {
  if (!plot.isVisible()) return;
  const QWidget& main = *plot.window();
  const QPoint origin = plot.mapToGlobal(QPoint());
  const Covered covered{titles.isEmpty() ? QRect() : titles.translated(origin),
                        QRect(origin, plot.size()), main.frameGeometry()};
  window.move(place_beside(main.screen()->availableGeometry(), covered, framed_size(window, main)));
}

void place_beside(QWidget& window, const QWidget& plot) {
  place_beside(window, plot, QRect());
}

}  // namespace kurv
