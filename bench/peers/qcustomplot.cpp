// QCustomPlot: replot() of a widget, with and without adaptive sampling.
#include <qcustomplot.h>

#include <QApplication>

#include "bench/common/data.h"
#include "bench/common/subject.h"

namespace {

QVector<double> vector_of(const std::vector<double>& values) {
  return {values.begin(), values.end()};
}

void add_graphs(QCustomPlot& plot, const bench::Table& data, const bench::Drawing& drawing) {
  const QVector<double> x = vector_of(data.x);
  for (int k = 1; k <= drawing.curves; ++k) {
    QCPGraph* const graph = plot.addGraph();
    graph->setName(QString("curve %1").arg(k));
    graph->setPen(QPen(QColor::fromRgb(bench::colour_of(k)), drawing.width));
    graph->setAntialiased(true);
    graph->setAdaptiveSampling(drawing.method != "all");
    graph->setData(x, vector_of(data.y[static_cast<std::size_t>(k - 1)]), true);
  }
  const bench::Scale scale(data);
  plot.xAxis->setRange(scale.x_range().low, scale.x_range().high);
  plot.yAxis->setRange(scale.y_range().low, scale.y_range().high);
}

// The legend, labels and titles, as the control shows them.
void add_texts(QCustomPlot& plot) {
  plot.legend->setVisible(true);
  plot.xAxis->setLabel("x");
  plot.plotLayout()->insertRow(0);
  plot.plotLayout()->addElement(0, 0, new QCPTextElement(&plot, "Title", QFont("sans", 12)));
  plot.plotLayout()->insertRow(1);
  plot.plotLayout()->addElement(1, 0, new QCPTextElement(&plot, "Subtitle", QFont("sans", 8)));
}

void run(const bench::Arguments& arguments) {
  const bench::Drawing drawing = bench::drawing_of(arguments);
  const bench::Table data = bench::table(drawing.kind, drawing.curves, drawing.points);
  QCustomPlot plot;
  plot.resize(bench::kWidth, bench::kHeight);
  add_graphs(plot, data, drawing);
  if (drawing.method == "small") add_texts(plot);
  plot.show();
  QApplication::processEvents();
  // Queued, so that copying the picture to the window is not counted.
  const bench::Range x = bench::Scale(data).x_range();
  bench::MovingEnd end(x.low, x.high);
  bench::serve([&] {
    if (drawing.is_moving) plot.xAxis->setRange(x.low, end.next());
    plot.replot(QCustomPlot::rpQueuedRefresh);
  });
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return bench::subject_main(argc, argv, run);
}
