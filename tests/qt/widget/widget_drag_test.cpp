// Dragging title, subtitle and legend.
#include <gmock/gmock.h>

#include <QApplication>
#include <QMenu>

#include "tests/qt/widget/plot_test.h"

namespace kurv::test {
namespace {

class WidgetDrag : public PlotTest {
 protected:
  Rect& legend() { return m_graph.layout().picLegend; }
  QImage shot() { return m_plot.grab().toImage(); }
};

TEST_F(WidgetDrag, AnItemFollowsTheMouseAndIsDrawnWhereItIsDropped) {
  for (Rect Layout::*const item : {&Layout::picLegend, &Layout::imgTitle, &Layout::imgSubTitle}) {
    const Rect before = m_graph.layout().*item;
    const QPoint grab = middle(before);
    m_mouse.drag(grab, grab + QPoint(40, 60));
    const Rect& after = m_graph.layout().*item;
    EXPECT_FLOAT_EQ(after.left, before.left + 600);
    EXPECT_FLOAT_EQ(after.top, before.top + 900);
    EXPECT_EQ(m_listener.redraws_since(), 1);
    m_graph.ChartOptions("refresh");
    m_listener.redraws_since();
  }
}

TEST_F(WidgetDrag, TheOutlineFollowsThePointerAndDrawsNothingAnew) {
  const QPoint grab = middle(legend());
  const QImage before = shot();
  m_mouse.press(grab);
  m_mouse.move(grab + QPoint(100, 100));
  const QImage first = shot();
  m_mouse.move(grab + QPoint(150, 100));
  EXPECT_NE(first, before);
  EXPECT_NE(shot(), first);
  const QImage picture = m_graph.image();
  EXPECT_EQ(m_listener.redraws_since(), 0);
  m_mouse.release(grab + QPoint(150, 100));
  EXPECT_NE(m_graph.image(), picture);
  EXPECT_EQ(shot().convertToFormat(QImage::Format_RGB32), m_graph.image()) << "no outline is left";
}

TEST_F(WidgetDrag, AMoveWithinTheThresholdIsNoDrag) {
  const Rect before = legend();
  const QPoint grab = middle(before);
  m_mouse.drag(grab, grab + QPoint(QApplication::startDragDistance() - 1, 0));
  EXPECT_EQ(legend().left, before.left);
  EXPECT_EQ(m_listener.redraws_since(), 0);
  m_mouse.drag(grab, grab + QPoint(QApplication::startDragDistance(), 0));
  EXPECT_EQ(legend().left,
            before.left + 15.f * static_cast<float>(QApplication::startDragDistance()));
  EXPECT_EQ(m_listener.redraws_since(), 1);
}

TEST_F(WidgetDrag, ADragBackToWhereItBeganIsADrop) {
  const Rect before = legend();
  const QPoint grab = middle(before);
  m_mouse.press(grab);
  m_mouse.move(grab + QPoint(100, 0));
  m_mouse.move(grab);
  m_mouse.release(grab);
  EXPECT_EQ(legend().left, before.left);
  EXPECT_EQ(m_listener.redraws_since(), 1);
}

TEST_F(WidgetDrag, OnlyTheLeftButtonDrags) {
  const Rect before = legend();
  for (const Qt::MouseButton button : {Qt::MiddleButton, Qt::RightButton}) {
    m_graph.setContextMenuPolicy(Qt::NoContextMenu);
    Mouse(m_plot, button).drag(middle(before), {300, 300});
  }
  EXPECT_EQ(legend().left, before.left);
  EXPECT_EQ(m_listener.redraws_since(), 0);
}

TEST_F(WidgetDrag, OtherButtonsAreIgnoredMeanwhile) {
  const Rect before = legend();
  const QPoint grab = middle(before);
  int ups = 0;
  QObject::connect(&m_graph, &KurvGraph::MouseUp, [&] { ++ups; });
  m_mouse.press(grab);
  m_mouse.move(grab + QPoint(100, 0));
  Mouse(m_plot, Qt::MiddleButton).click({300, 300});
  m_mouse.release(grab + QPoint(100, 0));
  EXPECT_EQ(ups, 0);
  EXPECT_FLOAT_EQ(legend().left, before.left + 1500);
}

TEST_F(WidgetDrag, AButtonPressedMeanwhileIsIgnoredUntilItsNextPress) {
  const QPoint grab = middle(legend());
  int ups = 0;
  QObject::connect(&m_graph, &KurvGraph::MouseUp, [&] { ++ups; });
  Mouse other(m_plot, Qt::RightButton);
  m_mouse.press(grab);
  m_mouse.move(grab + QPoint(100, 0));
  other.press({300, 300});
  m_mouse.release(grab + QPoint(100, 0));
  other.release({300, 300});
  EXPECT_EQ(ups, 0);
  EXPECT_EQ(m_graph.findChild<QMenu*>("mnuPlot"), nullptr);
  other.click({300, 300});
  EXPECT_EQ(ups, 1) << "the next click counts again";
}

TEST_F(WidgetDrag, EscapeLeavesTheItemWhereItWas) {
  const Rect before = legend();
  const QImage picture = shot();
  m_mouse.press(middle(before));
  m_mouse.move({300, 300});
  QTest::keyClick(&m_plot, Qt::Key_Escape);
  EXPECT_EQ(shot(), picture);
  m_mouse.move({310, 310});
  m_mouse.release({310, 310});
  EXPECT_EQ(legend().left, before.left);
  EXPECT_EQ(m_listener.redraws_since(), 0);
}

TEST_F(WidgetDrag, AMissedReleaseEndsIt) {
  const Rect before = legend();
  m_mouse.press(middle(before));
  m_mouse.move({300, 300});
  m_mouse.move({310, 310}, false);
  m_mouse.release({310, 310});
  EXPECT_EQ(legend().left, before.left);
}

TEST_F(WidgetDrag, ADropOnAnotherItemOrOnItselfMovesItThereAsWell) {
  const QPoint grab = middle(legend());
  const Rect title = m_graph.layout().imgTitle;
  const Rect before = legend();
  const QPoint on_title = middle(title);
  m_mouse.drag(grab, on_title);
  EXPECT_NEAR(legend().left, before.left + 15.f * static_cast<float>(on_title.x() - grab.x()), 0.1);
  EXPECT_NEAR(legend().top, before.top + 15.f * static_cast<float>(on_title.y() - grab.y()), 0.1);
  m_graph.ChartOptions("refresh");
  // A step that ends within the item itself.
  m_mouse.press(grab);
  m_mouse.move(grab + QPoint(30, 30));
  m_mouse.move(grab + QPoint(5, 3));
  m_mouse.release(grab + QPoint(5, 3));
  EXPECT_NEAR(legend().left, before.left + 75, 0.1);
  EXPECT_NEAR(legend().top, before.top + 45, 0.1);
}

TEST_F(WidgetDrag, ADropBeyondTheTopLeftEdgeIsNotClamped) {
  const Rect before = legend();
  const QPoint grab = middle(before);
  m_mouse.drag(grab, {-50, -30});
  EXPECT_NEAR(legend().left, before.left - 15.f * static_cast<float>(grab.x() + 50), 0.1);
  EXPECT_NEAR(legend().top, before.top - 15.f * static_cast<float>(grab.y() + 30), 0.1);
  EXPECT_EQ(m_listener.redraws_since(), 1);
}

TEST_F(WidgetDrag, TheUppermostItemIsGrabbed) {
  m_graph.layout().imgTitle.left = legend().left;
  m_graph.layout().imgTitle.top = legend().top;
  m_graph.build_the_graph();
  const Rect before = legend();
  m_mouse.drag(middle(m_graph.layout().imgTitle), {300, 300});
  EXPECT_EQ(legend().left, before.left);
  EXPECT_NE(m_graph.layout().imgTitle.left, before.left);
}

TEST_F(WidgetDrag, WithoutACurveInTheLegendThereIsNoneToGrab) {
  const QPoint grab = middle(legend());
  m_graph.document().y_visible(1) = false;
  m_graph.document().y_visible(2) = false;
  m_graph.build_the_graph();
  const Rect before = legend();
  m_mouse.drag(grab, {300, 300});
  EXPECT_EQ(legend().left, before.left);
}

TEST_F(WidgetDrag, ADropThatFailsIsReported) {
  m_graph.set_NumTicks(0);
  m_mouse.drag(middle(legend()), {300, 300});
  process_all();
  EXPECT_THAT(m_listener.errors, testing::ElementsAre(11));
}

TEST_F(WidgetDrag, AnItemOutsideIsOutlinedAtTheNearestEdge) {
  m_plot.setFocus();
  for (const float far : {1e30f, -1e30f, 20000.0f, -20000.0f}) {
    legend().left = far;
    m_mouse.move({100, 100}, false);
    m_plot.focus_on(Region::kFrame);
    const QImage elsewhere = m_plot.grab().toImage();
    m_plot.focus_on(Item::kLegend);
    const QImage focused = m_plot.grab().toImage();
    const QRect edge(far > 0 ? m_plot.width() - 12 : 0, 0, 12, m_plot.height());
    EXPECT_NE(focused.copy(edge), m_graph.image().copy(edge)) << far;
    EXPECT_NE(focused, elsewhere) << far;
  }
}

TEST_F(WidgetDrag, APlaceThatIsNoNumberLeavesThePlotAsItIs) {
  legend().left = std::numeric_limits<float>::quiet_NaN();
  m_mouse.move({100, 100}, false);
  m_plot.focus_on(Item::kLegend);
  EXPECT_EQ(m_plot.grab().size(), m_plot.size());
}

TEST_F(WidgetDrag, TheWidgetMayGoInASlotOfTheRedraw) {
  auto* const graph = new OpenGraph;
  const QPointer<KurvGraph> alive = graph;
  graph->plot(small_graph());
  graph->show();
  process_all();
  QObject::connect(graph, &KurvGraph::redrawn, graph, [&] { delete graph; });
  Mouse(graph->view()).drag(middle(graph->layout().picLegend), {300, 300});
  process_all();
  EXPECT_FALSE(alive);
}

}  // namespace
}  // namespace kurv::test
