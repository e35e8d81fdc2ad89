// QPainter on an image: a polyline per curve, a line at a time, or shapes as markers.
#include <QImage>
#include <QPainter>
#include <QPolygonF>

#include "bench/common/data.h"
#include "bench/common/shapes.h"
#include "bench/common/subject.h"

namespace {

using bench::Scale;
using bench::Table;

// Qt's fastest format to draw on.
QImage white(int width, int height) {
  QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::white);
  return image;
}

QPolygonF polygon_of(const Table& data, const Scale& scale, const std::vector<double>& y) {
  QPolygonF polygon(static_cast<qsizetype>(data.x.size()));
  for (std::size_t i = 0; i < data.x.size(); ++i) {
    polygon[static_cast<qsizetype>(i)] = {scale.x(data.x[i]), scale.y(y[i])};
  }
  return polygon;
}

void draw(QPainter& painter, const QPolygonF& polygon, const std::string& method) {
  if (method == "polyline") {
    painter.drawPolyline(polygon);
    return;
  }
  for (qsizetype i = 1; i < polygon.size(); ++i) painter.drawLine(polygon[i - 1], polygon[i]);
}

// Squares, circles and crosses in turn, each on a white square.
void draw_marker(QPainter& painter, int kind, QPointF at) {
  constexpr double kSize = bench::kMarkerSize;
  const QRectF box(at.x() - kSize / 2, at.y() - kSize / 2, kSize, kSize);
  painter.fillRect(box, Qt::white);
  switch (kind % 5) {
    case 0:
      painter.drawRect(box);
      break;
    case 1:
      painter.drawEllipse(box);
      break;
    case 2:
      painter.drawLine(box.topLeft(), box.bottomRight());
      painter.drawLine(box.bottomLeft(), box.topRight());
      break;
    case 3:
      painter.drawLine(QPointF(box.left(), at.y()), QPointF(box.right(), at.y()));
      painter.drawLine(QPointF(at.x(), box.top()), QPointF(at.x(), box.bottom()));
      break;
    default:
      painter.drawPolygon(QPolygonF{box.bottomLeft(), box.bottomRight(), {at.x(), box.top()}});
  }
}

void draw_markers(QPainter& painter, const Table& data, const Scale& scale, int curve) {
  const std::vector<double>& y = data.y[static_cast<std::size_t>(curve - 1)];
  for (std::size_t i = 0; i < data.x.size(); ++i) {
    draw_marker(painter, curve, {scale.x(data.x[i]), scale.y(y[i])});
  }
}

void measure(const bench::Drawing& drawing) {
  const Table data = bench::table(drawing.kind, drawing.curves, drawing.points);
  const Scale scale(data);
  QImage image = white(bench::kWidth, bench::kHeight);
  bench::serve([&] {
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int k = 1; k <= drawing.curves; ++k) {
      painter.setPen(QPen(QColor::fromRgb(bench::colour_of(k)), drawing.width));
      if (drawing.method == "markers") {
        draw_markers(painter, data, scale, k);
      } else {
        draw(painter, polygon_of(data, scale, data.y[static_cast<std::size_t>(k - 1)]),
             drawing.method);
      }
    }
  });
}

void draw_shape(const bench::Arguments& arguments) {
  const bench::Shape shape = bench::shape_of(arguments.at(2));
  QImage image = white(shape.width, shape.height);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(
      QPen(Qt::black, std::stod(arguments.at(3)), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  QPolygonF polygon;
  for (const bench::ShapePoint& point : shape.points) polygon << QPointF(point.x, point.y);
  draw(painter, polygon, arguments.at(0));
  painter.end();
  bench::write_coverage(
      arguments.at(4),
      bench::coverage_of(image.constBits(), static_cast<std::size_t>(image.bytesPerLine()),
                         shape.width, shape.height));
}

}  // namespace

int main(int argc, char** argv) {
  return bench::subject_main(argc, argv, [](const bench::Arguments& arguments) {
    if (arguments.at(1) == "shape") {
      draw_shape(arguments);
    } else {
      measure(bench::drawing_of(arguments));
    }
  });
}
