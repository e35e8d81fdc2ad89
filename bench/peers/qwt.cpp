// Qwt: curves and symbols painted on an image, as its canvas does.
#include <qwt_plot_curve.h>
#include <qwt_scale_map.h>
#include <qwt_symbol.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <memory>

#include "bench/common/data.h"
#include "bench/common/subject.h"

namespace {

using Curves = std::vector<std::unique_ptr<QwtPlotCurve>>;

// Opaque symbols, like the markers of the control.
QwtSymbol* symbol_of(int curve, const QPen& pen) {
  constexpr QwtSymbol::Style kStyles[] = {QwtSymbol::Rect, QwtSymbol::Ellipse, QwtSymbol::Diamond,
                                          QwtSymbol::DTriangle, QwtSymbol::UTriangle};
  const QSizeF size(bench::kMarkerSize, bench::kMarkerSize);
  return new QwtSymbol(kStyles[curve % 5], QBrush(Qt::white), pen, size.toSize());
}

Curves curves_of(const bench::Table& data, const bench::Drawing& drawing) {
  Curves curves;
  for (int k = 1; k <= drawing.curves; ++k) {
    auto curve = std::make_unique<QwtPlotCurve>();
    const QPen pen(QColor::fromRgb(bench::colour_of(k)), drawing.width);
    curve->setPen(pen);
    curve->setRenderHint(QwtPlotItem::RenderAntialiased);
    const std::vector<double>& y = data.y[static_cast<std::size_t>(k - 1)];
    curve->setRawSamples(data.x.data(), y.data(), drawing.points);
    if (drawing.method == "markers") {
      curve->setStyle(QwtPlotCurve::NoCurve);
      curve->setSymbol(symbol_of(k, pen));
    }
    curves.push_back(std::move(curve));
  }
  return curves;
}

void run(const bench::Arguments& arguments) {
  const bench::Drawing drawing = bench::drawing_of(arguments);
  const bench::Table data = bench::table(drawing.kind, drawing.curves, drawing.points);
  const bench::Scale scale(data);
  const QRectF rectangle(bench::kPlot.left, bench::kPlot.top, bench::kPlot.width,
                         bench::kPlot.height);
  QwtScaleMap x_map, y_map;
  x_map.setScaleInterval(scale.x_range().low, scale.x_range().high);
  x_map.setPaintInterval(rectangle.left(), rectangle.right());
  y_map.setScaleInterval(scale.y_range().low, scale.y_range().high);
  y_map.setPaintInterval(rectangle.bottom(), rectangle.top());

  const Curves curves = curves_of(data, drawing);
  QImage image(bench::kWidth, bench::kHeight, QImage::Format_ARGB32_Premultiplied);
  bench::serve([&] {
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const auto& curve : curves) curve->draw(&painter, x_map, y_map, rectangle);
  });
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return bench::subject_main(argc, argv, run);
}
