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

QPoint place_beside(const QRect& area, const Covered& covered, QSize size) {
  QPoint best;
  std::optional<std::tuple<qint64, qint64, qint64>> least;
  for (const QRect& beside : {covered.main, covered.plot}) {
    const int right = beside.x() + beside.width();
    const int bottom = beside.y() + beside.height();
    const int left = beside.x() - size.width();
    const int raised = bottom - size.height();
    const QPoint sides[] = {{right, beside.y()},  {left, beside.y()},
                            {right, raised},      {left, raised},
                            {beside.x(), bottom}, {beside.x(), beside.y() - size.height()}};
    for (const QPoint& side : sides) {
      const QRect window(moved_into(area, QRect(side, size)), size);
      const std::tuple now(common_area(window, covered.titles), common_area(window, covered.plot),
                           common_area(window, covered.main));
      if (least && now >= *least) continue;
      least = now;
      best = window.topLeft();
    }
  }
  return best;
}

}  // namespace kurv
