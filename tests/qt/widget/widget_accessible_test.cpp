// What a screen reader finds.
#include <gmock/gmock.h>

#include <QAccessible>

#include "qt/widget/plot_description.h"
#include "tests/qt/widget/plot_test.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;

class WidgetAccessible : public PlotTest {
 protected:
  QAccessibleInterface& plot() { return *QAccessible::queryAccessibleInterface(&m_plot); }
  std::string description() { return plot().text(QAccessible::Description).toStdString(); }
};

TEST_F(WidgetAccessible, ThePlotIsAChartWithItsTitleForAName) {
  EXPECT_EQ(plot().role(), QAccessible::Chart);
  EXPECT_EQ(plot().text(QAccessible::Name), "Small");
  m_graph.set_Title(" ");
  m_graph.build_the_graph();
  EXPECT_EQ(plot().text(QAccessible::Name), "Graph");
}

TEST_F(WidgetAccessible, ItsDescriptionSaysWhatIsDrawn) {
  EXPECT_EQ(description(), "2 curves, 3 points, x 1 to 3, y 1 to 5");
  m_graph.add_function("x^2");
  EXPECT_EQ(description(), "3 curves, 3 points, x 1 to 3, y 1 to 5");
  m_graph.document().y_visible(1) = false;
  m_graph.document().y_func(1).visible = false;
  m_graph.build_the_graph();
  EXPECT_EQ(description(), "1 curve, 3 points, x 1 to 3, y 1 to 5") << "hidden ones do not count";
}

TEST_F(WidgetAccessible, AnEmptyGraphSaysSo) {
  OpenGraph empty;
  EXPECT_EQ(empty.view().accessibleDescription(), "empty graph");
  EXPECT_EQ(empty.view().accessibleName(), "Graph") << "its title is nowhere to be seen";
  QAccessibleInterface* const plot = QAccessible::queryAccessibleInterface(&empty.view());
  ASSERT_EQ(plot->childCount(), 1);
  EXPECT_EQ(plot->child(0)->text(QAccessible::Name), "Empty plot");
}

TEST_F(WidgetAccessible, LimitsHaveSixDigits) {
  GraphDocument& document = m_graph.document();
  document.xmin = 1958.2027;
  document.xmax = 1.0 / 3;
  document.ymax = 1e300;
  EXPECT_EQ(description_of(document), "2 curves, 3 points, x 1958.2 to 0.333333, y 1 to 1e+300");
}

TEST_F(WidgetAccessible, MoreCurvesThanThereIsRoomForAreDescribedAllTheSame) {
  m_graph.document().NumY = 150;
  m_graph.document().NumYFunc = 31;
  EXPECT_EQ(description_of(m_graph.document()), "2 curves, 3 points, x 1 to 3, y 1 to 5");
  m_mouse.move({100, 100}, false);
}

TEST_F(WidgetAccessible, ItemsAndRegionsAreItsChildrenInTheOrderOfTab) {
  std::vector<std::string> names;
  for (int i = 0; i < plot().childCount(); ++i) {
    QAccessibleInterface* const child = plot().child(i);
    names.push_back(child->text(QAccessible::Name).toStdString());
    EXPECT_EQ(plot().indexOfChild(child), i);
    EXPECT_EQ(child->parent(), &plot());
    EXPECT_TRUE(child->isValid());
    EXPECT_TRUE(child->state().focusable);
    EXPECT_FALSE(child->text(QAccessible::Description).isEmpty());
    EXPECT_TRUE(plot().rect().intersects(child->rect()));
  }
  EXPECT_THAT(names,
              ElementsAre("Title: Small", "Subtitle: below", "Legend", "Name of the x axis: x",
                          "Labels of the x axis", "Labels of the y axis", "Frame"));
  EXPECT_EQ(plot().child(-1), nullptr);
  EXPECT_EQ(plot().child(7), nullptr);
}

TEST_F(WidgetAccessible, AChildIsFoundAtItsPosition) {
  const QPoint legend = m_plot.mapToGlobal(middle(m_graph.layout().picLegend));
  ASSERT_NE(plot().childAt(legend.x(), legend.y()), nullptr);
  EXPECT_EQ(plot().childAt(legend.x(), legend.y())->text(QAccessible::Name), "Legend");
  const QPoint plain = m_plot.mapToGlobal(QPoint(300, 200));
  EXPECT_EQ(plot().childAt(plain.x(), plain.y()), nullptr);
}

TEST_F(WidgetAccessible, TheFocusIsOnTheChildThatTabHasReached) {
  QApplication::setActiveWindow(&m_graph);
  m_plot.focus_on(Item::kLegend);
  ASSERT_NE(plot().focusChild(), nullptr);
  EXPECT_EQ(plot().focusChild()->text(QAccessible::Name), "Legend");
  EXPECT_TRUE(plot().child(2)->state().focused);
  EXPECT_FALSE(plot().child(0)->state().focused);
}

TEST_F(WidgetAccessible, AChildThatIsGoneIsInvalidAndDoesNothing) {
  QAccessibleInterface* const subtitle = plot().child(1);
  m_graph.set_SubTitle("");
  m_graph.build_the_graph();
  EXPECT_FALSE(subtitle->isValid());
  EXPECT_TRUE(subtitle->state().invalid);
  ShownWindows windows;
  subtitle->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_TRUE(windows.names().isEmpty());
  EXPECT_EQ(plot().childCount(), 6);
}

TEST_F(WidgetAccessible, AChildIsPressedAndFocusedFromOutside) {
  QApplication::setActiveWindow(&m_graph);
  ShownWindows windows;
  QAccessibleActionInterface* const frame = plot().child(6)->actionInterface();
  ASSERT_NE(frame, nullptr);
  frame->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_THAT(windows.names(), ElementsAre("frmPropert &Lines and Markers"));
  frame->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_EQ(m_plot.focused(), HitTarget(Region::kFrame));
}

TEST(WidgetAccessibleEnd, ChildrenThatAScreenReaderKnowsGoWithTheWidget) {
  auto* const graph = new OpenGraph;
  graph->plot(small_graph());
  QAccessibleInterface* const plot = QAccessible::queryAccessibleInterface(&graph->view());
  ASSERT_EQ(plot->childCount(), 6);
  const QAccessible::Id id = QAccessible::uniqueId(plot->child(0));
  delete graph;
  EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

}  // namespace
}  // namespace kurv::test
