#include "qt/widget/plot_description.h"

#include <QStringList>
#include <algorithm>

namespace kurv {

namespace {

QString counted(int count, const QString& one) {
  return QString::number(count) + u' ' + one + (count == 1 ? QString() : QStringLiteral("s"));
}

QString limits(const QString& axis, Double low, Double high) {
  return axis + u' ' + QString::number(low) + QStringLiteral(" to ") + QString::number(high);
}

// A count may exceed the arrays; a redraw then fails, but a description must not.
int curves_drawn(const GraphDocument& document) {
  const int curves = std::min<int>(document.NumY, document.y_visible.upper());
  const int functions = std::min<int>(document.NumYFunc, kMaxFunctions);
  int count = 0;
  for (int k = 1; k <= curves; ++k) count += document.y_visible(k) ? 1 : 0;
  for (int k = 1; k <= functions; ++k) count += document.y_func(k).visible ? 1 : 0;
  return count;
}

}  // namespace

QString name_of(const GraphDocument& document) {
  const QString title = QString::fromStdString(document.Title);
  // A graph that is not drawn may have a title, which is not visible.
  return !document.GraphValid || title.trimmed().isEmpty() ? QStringLiteral("Graph") : title;
}

QString description_of(const GraphDocument& document) {
  if (!document.GraphValid) return QStringLiteral("empty graph");
  const QStringList parts{counted(curves_drawn(document), QStringLiteral("curve")),
                          counted(document.NumData, QStringLiteral("point")),
                          limits(QStringLiteral("x"), document.xmin, document.xmax),
                          limits(QStringLiteral("y"), document.ymin, document.ymax)};
  return parts.join(QStringLiteral(", "));
}

}  // namespace kurv
