// A graph at the resolution that the environment asks for.
#include <gtest/gtest.h>

#include <cmath>

#include "tests/qt/widget/widget_support.h"

namespace kurv::test {
namespace {

double wanted_ratio() {
  const QByteArray text = qgetenv("QT_SCALE_FACTOR");
  return text.isEmpty() ? 1 : text.toDouble();
}

int device_pixels(int logical) {
  return static_cast<int>(std::lround(logical * wanted_ratio()));
}

TEST(WidgetRatio, ThePictureHasTheScreensOwnPixels) {
  KurvGraph graph;
  ASSERT_EQ(graph.devicePixelRatioF(), wanted_ratio());
  for (const QSize size : {QSize(600, 400), QSize(601, 399), QSize(1, 1)}) {
    resize_plot(graph, size);
    graph.plot(small_graph());
    EXPECT_EQ(graph.image().width(), device_pixels(size.width()));
    EXPECT_EQ(graph.image().height(), device_pixels(size.height()));
    EXPECT_EQ(graph.image().devicePixelRatio(), wanted_ratio());
  }
}

TEST(WidgetRatio, ThePicturesPixelsAreTheScreens) {
  KurvGraph graph;
  graph.resize(600, 400);
  graph.plot(small_graph());
  graph.show();
  process_all();
  EXPECT_EQ(plot_of(graph)->grab().toImage().convertToFormat(QImage::Format_RGB32), graph.image());
}

TEST(WidgetRatio, ThePlotStandsWhereItDoesAtEveryRatio) {
  KurvGraph graph;
  graph.resize(600, 400);
  graph.plot(small_graph());
  const QPointF low = graph.pixel_of(graph.xmin(), graph.ymin()).value();
  EXPECT_NEAR(low.x(), 800 / 15.0, 0.1);
  EXPECT_NEAR(low.y(), 400 - 520 / 15.0, 0.1);
}

}  // namespace
}  // namespace kurv::test
