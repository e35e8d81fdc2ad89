// The mouse on the plot: marks, double clicks, and the event.
#include <gmock/gmock.h>

#include <QHelpEvent>
#include <QToolTip>
#include <QWindow>
#include <tuple>

#include "tests/qt/widget/plot_test.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WidgetMouse : public PlotTest {
 protected:
  void SetUp() override {
    PlotTest::SetUp();
    QObject::connect(
        &m_graph, &KurvGraph::MouseUp, &m_listener.context,
        [this](int button, int, float x, float y) { m_ups.emplace_back(button, x, y); });
  }
  const std::vector<Region>& outlined() { return m_graph.control().mouse.outlined; }
  QPoint frame() { return middle(m_graph.layout().shpGraphBorder[1]); }

  std::vector<std::tuple<int, float, float>> m_ups;
};

TEST_F(WidgetMouse, APressMarksTheRegionUntilTheRelease) {
  const QImage before = m_plot.grab().toImage();
  const struct {
    Region region;
    QPoint at;
  } cases[] = {{Region::kXCaption, middle(m_graph.layout().shpXcaption)},
               {Region::kXLabels, {100, 380}},
               {Region::kYLabels, middle(m_graph.layout().shpYlabels)},
               {Region::kFrame, frame()}};
  for (const auto& each : cases) {
    m_mouse.press(each.at);
    EXPECT_THAT(outlined(), ElementsAre(each.region));
    EXPECT_NE(m_plot.grab().toImage(), before) << "the outline is to be seen";
    m_mouse.release(each.at);
    EXPECT_THAT(outlined(), IsEmpty());
    EXPECT_EQ(m_plot.grab().toImage(), before);
  }
  EXPECT_EQ(m_listener.redraws_since(), 0);
}

TEST_F(WidgetMouse, APressOnThePlainPlotMarksNothing) {
  m_mouse.press({300, 200});
  EXPECT_THAT(outlined(), IsEmpty());
}

TEST_F(WidgetMouse, APointOnARegionsEdgeIsInside) {
  const Rect& labels = m_graph.layout().shpXlabels;
  const double top = labels.top / 15;
  m_mouse.press({200, top});
  EXPECT_THAT(outlined(), ElementsAre(Region::kXLabels));
  m_mouse.release({200, top});
  m_mouse.press({200, top - 1});
  EXPECT_THAT(outlined(), testing::Not(testing::Contains(Region::kXLabels)));
}

TEST_F(WidgetMouse, WhereRegionsOverlapTheEarlierOneIsMarked) {
  m_graph.layout().shpXlabels = m_graph.layout().shpXcaption;
  m_mouse.press(middle(m_graph.layout().shpXcaption));
  EXPECT_THAT(outlined(), ElementsAre(Region::kXCaption));
}

TEST_F(WidgetMouse, AReleaseBelongsToThePlotThatThePressBeganOn) {
  m_mouse.press({300, 200});
  m_mouse.release({-10, 450});
  EXPECT_THAT(m_ups, ElementsAre(std::tuple(1, -150.f, 6750.f)));
  m_mouse.press({300, 200});
  m_mouse.release(middle(m_graph.layout().picLegend));
  EXPECT_EQ(m_ups.size(), 2u) << "over an item too";
}

TEST_F(WidgetMouse, ClicksOnItemsRaiseNoEventAndChangeNothing) {
  const Rect legend = m_graph.layout().picLegend;
  for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton}) {
    Mouse mouse(m_plot, button);
    mouse.click(middle(legend));
    mouse.click(middle(m_graph.layout().imgTitle));
  }
  EXPECT_THAT(m_ups, IsEmpty());
  EXPECT_EQ(m_listener.redraws_since(), 0);
  EXPECT_EQ(m_graph.layout().picLegend.left, legend.left);
  EXPECT_EQ(m_graph.layout().picLegend.top, legend.top);
}

TEST_F(WidgetMouse, DoubleClicksOpenTheEditorOfTheTarget) {
  ShownWindows windows;
  m_mouse.double_click(middle(m_graph.layout().shpXcaption));
  EXPECT_THAT(windows.names(), ElementsAre("frmCurves"));
  m_mouse.double_click({100, 380});
  EXPECT_THAT(windows.names(), ElementsAre("frmPropert A&xes"));
  m_mouse.double_click(middle(m_graph.layout().shpYlabels));
  EXPECT_THAT(windows.names(), ElementsAre("frmPropert A&xes"));
  m_mouse.double_click(frame());
  EXPECT_THAT(windows.names(), ElementsAre("frmPropert &Lines and Markers"));
  m_mouse.double_click({300, 200});
  EXPECT_THAT(windows.names(), ElementsAre("frmCurves")) << "the plain plot";
  m_mouse.double_click(middle(m_graph.layout().imgTitle));
  EXPECT_THAT(windows.names(), ElementsAre("frmPropert &Titles and Fonts"));
  m_mouse.double_click(middle(m_graph.layout().imgSubTitle));
  EXPECT_THAT(windows.names(), ElementsAre("frmPropert &Titles and Fonts"));
  m_mouse.double_click(middle(m_graph.layout().picLegend));
  EXPECT_THAT(windows.names(), ElementsAre("frmCurves"));
}

TEST_F(WidgetMouse, ADoubleClickRaisesItsEventsBeforeItsWindowOpensAndLeavesNoMark) {
  ShownWindows windows;
  m_mouse.double_click(frame());
  EXPECT_EQ(m_ups.size(), 2u);
  EXPECT_THAT(windows.names(), ElementsAre("frmPropert &Lines and Markers"));
  EXPECT_THAT(outlined(), IsEmpty());
}

TEST_F(WidgetMouse, ADoubleClickWithoutItsReleaseOpensNothingLater) {
  ShownWindows windows;
  m_mouse.click(frame());
  QMouseEvent second(QEvent::MouseButtonDblClick, frame(), m_plot.mapToGlobal(frame()),
                     Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&m_plot, &second);
  m_graph.hide();
  m_graph.show();
  m_mouse.click(frame());
  EXPECT_THAT(windows.names(), IsEmpty());
}

TEST_F(WidgetMouse, OtherButtonsDoubleClickNothing) {
  ShownWindows windows;
  Mouse middle_button(m_plot, Qt::MiddleButton);
  middle_button.double_click(frame());
  middle_button.double_click(middle(m_graph.layout().picLegend));
  EXPECT_THAT(windows.names(), IsEmpty());
  EXPECT_EQ(m_ups.size(), 2u);
}

TEST_F(WidgetMouse, AnEmptyGraphHasNothingButItsCurves) {
  OpenGraph empty;
  empty.show();
  ShownWindows windows;
  Mouse mouse(empty.view());
  mouse.move({1, 1}, false);
  EXPECT_FALSE(empty.view().testAttribute(Qt::WA_SetCursor));
  mouse.double_click({100, 100});
  EXPECT_THAT(windows.names(), ElementsAre("frmCurves"));
}

TEST_F(WidgetMouse, TheWidgetMayGoInASlotOfTheClickBeforeADoubleClicksWindow) {
  auto* const graph = new OpenGraph;
  graph->plot(small_graph());
  graph->show();
  ShownWindows windows;
  Mouse mouse(graph->view());
  mouse.click({300, 200});
  QObject::connect(graph, &KurvGraph::MouseUp, graph, [&] { delete graph; });
  mouse.double_click({300, 200});
  EXPECT_THAT(windows.names(), IsEmpty());
}

TEST_F(WidgetMouse, InDesignModeTheMouseGoesThrough) {
  m_graph.set_design_mode(true);
  ShownWindows windows;
  QWindow* const window = m_graph.windowHandle();
  const QPoint at = m_graph.plot_rect().topLeft() + frame();
  QTest::mouseClick(window, Qt::LeftButton, {}, at);
  QTest::mouseClick(window, Qt::LeftButton, {}, {20, 20});
  EXPECT_THAT(m_ups, IsEmpty());
  EXPECT_EQ(m_listener.redraws_since(), 0);
  m_graph.set_design_mode(false);
  QTest::mouseClick(window, Qt::LeftButton, {}, at);
  EXPECT_EQ(m_ups.size(), 1u);
}

// -- Pointers and tips ----------------------------------------------------------------------------

TEST_F(WidgetMouse, ThePointerShowsWhatCanBeGrabbedAndWhatCanBeDoubleClicked) {
  const QPoint legend = middle(m_graph.layout().picLegend);
  m_mouse.move(legend, false);
  EXPECT_EQ(m_plot.cursor().shape(), Qt::OpenHandCursor);
  m_mouse.press(legend);
  EXPECT_EQ(m_plot.cursor().shape(), Qt::ClosedHandCursor);
  m_mouse.release(legend);
  EXPECT_EQ(m_plot.cursor().shape(), Qt::OpenHandCursor);
  m_mouse.move(frame(), false);
  EXPECT_EQ(m_plot.cursor().shape(), Qt::PointingHandCursor);
  m_mouse.move({300, 200}, false);
  EXPECT_EQ(m_plot.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(WidgetMouse, ThePointerFollowsAnItemThatARedrawHasTakenAway) {
  const QPoint legend = middle(m_graph.layout().picLegend);
  m_mouse.move(legend, false);
  m_graph.layout().picLegend.left += 4000;
  m_graph.build_the_graph();
  EXPECT_EQ(m_plot.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(WidgetMouse, TheHourglassHidesThePlotsOwnPointers) {
  m_graph.set_NumTicks(0);
  EXPECT_THROW(m_graph.ChartOptions("refresh"), Fault);
  m_mouse.move(middle(m_graph.layout().picLegend), false);
  EXPECT_EQ(m_plot.cursor().shape(), Qt::WaitCursor) << "it stays after a command that failed";
  m_graph.set_NumTicks(5);
  m_graph.ChartOptions("");
  EXPECT_EQ(m_plot.cursor().shape(), Qt::OpenHandCursor);
}

TEST_F(WidgetMouse, AHostsOwnPointerShowsOverThePlainPlot) {
  m_graph.setCursor(Qt::CrossCursor);
  m_mouse.move({300, 200}, false);
  EXPECT_EQ(m_plot.cursor().shape(), Qt::CrossCursor);
}

TEST_F(WidgetMouse, ATipSaysWhatTheMouseDoes) {
  const auto tip_at = [&](QPoint at) {
    QHelpEvent event(QEvent::ToolTip, at, m_plot.mapToGlobal(at));
    QApplication::sendEvent(&m_plot, &event);
    return QToolTip::text();
  };
  EXPECT_EQ(tip_at(middle(m_graph.layout().picLegend)),
            "Drag to move the legend; double-click to edit the curves");
  EXPECT_EQ(tip_at(middle(m_graph.layout().imgTitle)),
            "Drag to move the title; double-click to edit titles and fonts");
  EXPECT_EQ(tip_at(middle(m_graph.layout().shpXcaption)),
            "Double-click to edit the names of the variables");
  EXPECT_EQ(tip_at({100, 380}), "Double-click to edit the axes");
  EXPECT_EQ(tip_at(frame()), "Double-click to edit lines and markers");
  EXPECT_EQ(tip_at({300, 200}), "Double-click to edit the curves; right-click for more");
  QToolTip::hideText();
}

}  // namespace
}  // namespace kurv::test
