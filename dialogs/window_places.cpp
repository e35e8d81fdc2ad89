#include <KurvGraph/window_places.h>

#include <QDataStream>
#include <QIODevice>
#include <QScreen>

#include "dialogs/placement.h"

namespace kurv {

namespace {

// So that the places are read by later versions of the toolkit too.
constexpr auto kPlaceVersion = QDataStream::Qt_6_0;

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

QByteArray window_place(const QWidget& window) {
  QByteArray place;
  QDataStream stream(&place, QIODevice::WriteOnly);
  stream.setVersion(kPlaceVersion);
  stream << window.saveGeometry() << qint32(window.fontMetrics().height());
  return place;
}

bool restore_window_place(QWidget& window, const QByteArray& place) {
  QDataStream stream(place);
  stream.setVersion(kPlaceVersion);
  QByteArray geometry;
  qint32 line_height = 0;
  stream >> geometry >> line_height;
  const QSize size = window.size();
  const bool has_size = window.testAttribute(Qt::WA_Resized);
  if (stream.status() != QDataStream::Ok || !window.restoreGeometry(geometry)) return false;
  if (line_height != window.fontMetrics().height()) {
    window.resize(size);
    window.setAttribute(Qt::WA_Resized, has_size);
  }
  return true;
}

}  // namespace kurv
