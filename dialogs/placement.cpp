#include "dialogs/placement.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace kurv {

namespace {

qint64 common_area(const QRect& a, const QRect& b) {
  const QRect common = a & b;
  return qint64(common.width()) * common.height();
}

}  // namespace

QPoint moved_into(const QRect& area, const QRect& window) {
  const int right = area.x() + area.width() - window.width();
  const int bottom = area.y() + area.height() - window.height();
  return {std::max(area.x(), std::min(window.x(), right)),
          std::max(area.y(), std::min(window.y(), bottom))};
}

QPoint place_beside(const QRect& area, const QRect& plot, const QRect& main, QSize size) {
  QPoint best;
  std::optional<std::tuple<qint64, qint64>> least;
  for (const QRect& beside : {main, plot}) {
    const QPoint sides[] = {{beside.x() + beside.width(), beside.y()},
                            {beside.x() - size.width(), beside.y()},
                            {beside.x(), beside.y() + beside.height()},
                            {beside.x(), beside.y() - size.height()}};
    for (const QPoint& side : sides) {
      const QRect window(moved_into(area, QRect(side, size)), size);
      const std::tuple covered(common_area(window, plot), common_area(window, main));
      if (least && covered >= *least) continue;
      least = covered;
      best = window.topLeft();
    }
  }
  return best;
}

}  // namespace kurv
