#include "qt/widget/read_out.h"

#include <QStringList>

#include "control/control_state.h"
#include "control/read_out_text.h"

namespace kurv {

namespace {

constexpr int kLongestName = 60;  // characters in a tool tip

enum class Coordinate { kX, kY };

// The column of a point's coordinate; 0 for values that are in no column.
int column_of(const std::optional<FoundPoint>& point, Coordinate axis) {
  if (axis == Coordinate::kX) return 1;
  return point && !point->is_function ? point->curve + 1 : 0;
}

// A host may pass fewer names than it should, which the redraw reports.
QString name_of_curve(const GraphDocument& document, const FoundPoint& point) {
  if (point.is_function) return QString::fromStdString(document.y_func(point.curve).label);
  const int column = point.curve + 1;
  if (document.yVarName.upper() < column) return {};
  return QString::fromStdString(document.yVarName(column));
}

}  // namespace

ReadOut read_out_of(const ControlState& state, const AxisText& x_text,
                    const std::optional<FoundPoint>& point, const std::optional<DataPoint>& place,
                    double pixel) {
  const GraphDocument& document = state.document;
  ReadOut read_out;
  if (point) {
    read_out.place = QPointF(point->value.x, point->value.y);
    read_out.nearest =
        CurvePoint{name_of_curve(document, *point),       point->is_function, point->curve,
                   point->is_function ? 0 : point->point, point->value.x,     point->value.y};
  }
  if (place) read_out.place = QPointF(place->x, place->y);
  if (!read_out.place) return read_out;

  const DataPoint shown = point ? point->value : *place;
  const DataPoint unit = data_per_twip(state);
  const auto text = [&](Coordinate axis, double value, double resolution, const String& format) {
    const RoundLimitsSwitch& limits = document.round_limits;
    if (x_text && limits.x_unit != AxisUnit::kNumbers &&
        limits.x_unit_column == column_of(point, axis)) {
      const bool is_exact = point && !point->is_function;
      const QString own = x_text(value, is_exact ? 0 : resolution);
      if (!own.isEmpty()) return own;
    }
    return QString::fromStdString(point ? value_text(value, format, resolution)
                                        : place_text(value, format, resolution));
  };
  read_out.x_text = text(Coordinate::kX, shown.x, unit.x * pixel, document.AxisLabelFormatX);
  read_out.y_text = text(Coordinate::kY, shown.y, unit.y * pixel, document.AxisLabelFormatY);
  return read_out;
}

QString tip_text(const CurvePoint& point, const ReadOut& read_out) {
  QString name = point.name.simplified();
  if (name.size() > kLongestName) name = name.left(kLongestName) + QChar(0x2026);
  QStringList lines;
  if (!name.isEmpty())
    lines << QStringLiteral("<b>") + name.toHtmlEscaped() + QStringLiteral("</b>");
  lines << QStringLiteral("x: ") + read_out.x_text.toHtmlEscaped()
        << QStringLiteral("y: ") + read_out.y_text.toHtmlEscaped();
  return QStringLiteral("<p style='white-space:pre'>") + lines.join(QStringLiteral("<br>")) +
         QStringLiteral("</p>");
}

QString spoken_text(const ReadOut& read_out) {
  QStringList parts;
  if (read_out.nearest && !read_out.nearest->name.isEmpty()) parts << read_out.nearest->name;
  parts << QStringLiteral("x ") + read_out.x_text << QStringLiteral("y ") + read_out.y_text;
  return parts.join(QStringLiteral(", "));
}

}  // namespace kurv
