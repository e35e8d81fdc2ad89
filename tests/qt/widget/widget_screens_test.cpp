// A window that moves between screens of different resolution.
#include <gtest/gtest.h>

#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

#include "tests/qt/widget/widget_support.h"

namespace kurv::test {
namespace {

QScreen* screen_of_ratio(double ratio) {
  for (QScreen* screen : QGuiApplication::screens()) {
    if (screen->devicePixelRatio() == ratio) return screen;
  }
  return nullptr;
}

TEST(WidgetScreens, APictureFollowsItsWindowToAScreenOfAnotherRatioInOneRedraw) {
  QScreen* const plain = screen_of_ratio(1);
  QScreen* const dense = screen_of_ratio(2);
  ASSERT_TRUE(plain && dense);

  QWidget window;
  auto* const graph = new KurvGraph;
  (new QVBoxLayout(&window))->addWidget(graph);
  graph->plot(small_graph());
  window.setGeometry(100, 100, 600, 400);
  window.setScreen(plain);
  window.show();
  Listener listener(*graph);
  listener.redraws_since();
  const QSize logical = graph->plot_rect().size();
  EXPECT_EQ(graph->image().size(), logical);

  window.windowHandle()->setScreen(dense);
  window.move(1500, 100);
  EXPECT_EQ(listener.redraws_since(), 1);
  EXPECT_EQ(graph->devicePixelRatioF(), 2);
  EXPECT_EQ(graph->image().size(), 2 * logical);
  EXPECT_EQ(graph->image().devicePixelRatio(), 2);

  window.windowHandle()->setScreen(plain);
  window.move(100, 100);
  EXPECT_EQ(listener.redraws_since(), 1);
  EXPECT_EQ(graph->image().size(), logical);
}

}  // namespace
}  // namespace kurv::test
