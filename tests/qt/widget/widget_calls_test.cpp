// The widget as the control's container, and the event of the mouse.
#include <gmock/gmock.h>

#include <QTest>
#include <tuple>

#include "qt/widget/kurv_graph_state.h"
#include "tests/qt/widget/widget_support.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;

class ContainedGraph : public KurvGraph {
 public:
  // The widget as the control sees it.
  Container& container() { return *m_state; }
};

TEST(WidgetCalls, SizesAreFifteenTwipsAPixel) {
  ContainedGraph graph;
  graph.resize(400, 300);
  graph.build_the_graph();
  EXPECT_EQ(graph.container().Width(), 6000);
  EXPECT_EQ(graph.container().Height(), 4500);
  graph.container().set_Width(3000);
  graph.container().set_Height(1507);
  EXPECT_EQ(graph.size(), QSize(200, 100));
  EXPECT_EQ(graph.image().size(), QSize(200, 100 - graph.plot_rect().top()))
      << "the toolbar is part of the outer size alone";
}

TEST(WidgetCalls, ASizeThatIsAskedForIsOneRedraw) {
  ContainedGraph graph;
  graph.plot(small_graph());
  graph.show();
  Listener listener(graph);
  listener.redraws_since();
  graph.container().set_Width(3000);
  EXPECT_EQ(listener.redraws_since(), 1);
  graph.container().set_Width(3000);
  EXPECT_EQ(listener.redraws_since(), 0);
}

TEST(WidgetCalls, AtTheCeilingALargerWindowStaysAsItIs) {
  ContainedGraph graph;
  graph.resize(5000, 4000);
  graph.build_the_graph();
  EXPECT_EQ(graph.container().Width(), 32767);
  graph.container().set_Width(32767);
  EXPECT_EQ(graph.size(), QSize(5000, 4000));
  graph.resize(500, 400);
  graph.build_the_graph();
  graph.container().set_Width(32767);
  EXPECT_EQ(graph.size(), QSize(2184, 400));
}

TEST(WidgetCalls, AbsurdSizesAreTakenAsFarAsTheyGo) {
  ContainedGraph graph;
  graph.container().set_Width(-100);
  EXPECT_EQ(graph.width(), 1);
  graph.container().set_Height(0);
  EXPECT_EQ(graph.height(), 1);
  graph.container().set_Height(std::numeric_limits<float>::quiet_NaN());
  EXPECT_EQ(graph.height(), 1);
}

TEST(WidgetCalls, TheHourglassGoesWhenTheCommandIsDoneAndStaysWhenItFails) {
  KurvGraph graph;
  graph.plot(small_graph());
  graph.ChartOptions("refresh");
  EXPECT_EQ(graph.cursor().shape(), Qt::ArrowCursor);
  graph.set_NumTicks(0);
  EXPECT_THROW(graph.ChartOptions("refresh"), Fault);
  EXPECT_EQ(graph.cursor().shape(), Qt::WaitCursor);
  graph.ChartOptions("nothing");
  EXPECT_EQ(graph.cursor().shape(), Qt::ArrowCursor);
}

TEST(WidgetCalls, AReleasedButtonIsReportedInTwips) {
  KurvGraph graph;
  resize_plot(graph, {400, 300});
  graph.show();
  QWidget* const plot = plot_of(graph);
  std::vector<std::tuple<int, int, float, float>> seen;
  QObject::connect(&graph, &KurvGraph::MouseUp, [&](int button, int shift, float x, float y) {
    seen.emplace_back(button, shift, x, y);
  });
  QTest::mousePress(plot, Qt::LeftButton, {}, {10, 20});
  EXPECT_TRUE(seen.empty());
  QTest::mouseRelease(plot, Qt::LeftButton, {}, {10, 20});
  QTest::mouseClick(plot, Qt::RightButton, Qt::ShiftModifier | Qt::AltModifier, {1, 0});
  QTest::mouseClick(plot, Qt::MiddleButton, Qt::ControlModifier, {399, 299});
  QTest::mouseClick(plot, Qt::BackButton, {}, {1, 1});
  EXPECT_THAT(seen, ElementsAre(std::tuple(1, 0, 150.f, 300.f), std::tuple(2, 5, 15.f, 0.f),
                                std::tuple(4, 2, 5985.f, 4485.f)));
}

}  // namespace
}  // namespace kurv::test
