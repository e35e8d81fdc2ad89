// What reaches the screen, and how often it is drawn.
#include <gtest/gtest.h>

#include <QVBoxLayout>

#include "tests/qt/widget/widget_support.h"

namespace kurv::test {
namespace {

bool has_ink(const QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) != 0xFFFFFFFF) return true;
    }
  }
  return false;
}

TEST(WidgetPainting, AResizeIsOneRedraw) {
  KurvGraph graph;
  graph.plot(small_graph());
  graph.show();
  Listener listener(graph);
  listener.redraws_since();
  resize_plot(graph, {900, 300});
  EXPECT_EQ(listener.redraws_since(), 1);
  resize_plot(graph, {900, 300});
  EXPECT_EQ(listener.redraws_since(), 0) << "the same size is no resize";
  EXPECT_EQ(graph.image().size(), QSize(900, 300));
}

TEST(WidgetPainting, AResizeInALayoutIsOneRedraw) {
  QWidget window;
  auto* const layout = new QVBoxLayout(&window);
  auto* const graph = new KurvGraph;
  layout->addWidget(graph);
  window.resize(500, 400);
  graph->plot(small_graph());
  window.show();
  Listener listener(*graph);
  listener.redraws_since();
  window.resize(800, 600);
  EXPECT_EQ(listener.redraws_since(), 1);
}

TEST(WidgetPainting, RepaintsDrawNothingAnew) {
  KurvGraph graph;
  graph.plot(small_graph());
  graph.show();
  Listener listener(graph);
  listener.redraws_since();
  const QImage before = graph.image();
  for (int i = 0; i < 50; ++i) graph.repaint();
  EXPECT_EQ(listener.redraws_since(), 0);
  // Untouched pixels are still the shared ones.
  EXPECT_EQ(graph.image().constBits(), before.constBits());
}

TEST(WidgetPainting, ARedrawIsOnTheScreenWithoutFurtherAsking) {
  KurvGraph graph;
  graph.show();
  process_all();
  EXPECT_FALSE(has_ink(graph.image()));
  graph.plot(small_graph());
  EXPECT_TRUE(has_ink(graph.image()));
  EXPECT_EQ(plot_of(graph)->grab().toImage().convertToFormat(QImage::Format_RGB32), graph.image());
}

TEST(WidgetPainting, WorksAtTheSmallestAndTheLargestSize) {
  for (const QSize size : {QSize(1, 1), QSize(7680, 1), QSize(1, 4320), QSize(7680, 4320)}) {
    KurvGraph graph;
    graph.set_toolbar_visible(false);
    graph.resize(size);
    graph.plot(small_graph());
    graph.show();
    Listener listener(graph);
    process_all();
    EXPECT_TRUE(listener.errors.empty());
    EXPECT_EQ(graph.image().size(), size);
  }
}

TEST(WidgetPainting, AWideGraphKeepsItsProportions) {
  KurvGraph graph;
  graph.set_toolbar_visible(false);
  graph.resize(7680, 4320);
  graph.plot(small_graph());
  // Fonts and margins shrink in the same measure in both directions, so that nothing is distorted.
  const QPointF low = graph.pixel_of(1, graph.ymin()).value();
  const double scale = 32767.0 / 7680;
  EXPECT_NEAR(low.x(), 800 / scale, 1);
  EXPECT_NEAR(low.y(), 4320 - 520 / scale, 1);
}

TEST(WidgetPainting, FirstShowDoesNotRedrawForASizeThatIsKnownAlready) {
  KurvGraph graph;
  resize_plot(graph, {640, 360});
  Listener listener(graph);
  graph.plot(small_graph());
  EXPECT_EQ(listener.redraws_since(), 2) << "the intake's and that of refresh";
  EXPECT_EQ(graph.image().size(), QSize(640, 360));
  graph.show();
  EXPECT_EQ(listener.redraws_since(), 1) << "the show's";
}

TEST(WidgetPainting, HasAUsableSizeWithoutALayout) {
  QWidget window;
  auto* const graph = new KurvGraph(&window);
  EXPECT_EQ(graph->size(), graph->sizeHint());
  EXPECT_EQ(graph->plot_rect().size(), QSize(720, 480));
  EXPECT_EQ(graph->minimumSizeHint(), QSize(1, 1));
  graph->set_toolbar_visible(false);
  EXPECT_EQ(graph->sizeHint(), QSize(720, 480));
}

}  // namespace
}  // namespace kurv::test
