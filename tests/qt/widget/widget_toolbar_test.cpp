// The toolbar, its icons, and its layout.
#include <gmock/gmock.h>

#include <QAccessible>
#include <QIcon>
#include <QMainWindow>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include "qt/widget/line_icon.h"
#include "tests/qt/widget/plot_test.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WidgetToolbar : public PlotTest {
 protected:
  QToolBar& bar() { return *m_graph.findChild<QToolBar*>("tbrGraph"); }
  QToolButton& button(const QString& key) {
    return *m_graph.findChild<QToolButton*>("tbrGraph." + key);
  }
};

TEST_F(WidgetToolbar, HasElevenButtonsInOrderWithKeysTipsAndPictures) {
  std::vector<std::string> found;
  for (QAction* action : bar().actions()) {
    const auto* const shown = qobject_cast<QToolButton*>(bar().widgetForAction(action));
    ASSERT_NE(shown, nullptr);
    found.push_back(shown->objectName().toStdString() + "|" + shown->toolTip().toStdString() +
                    (shown->icon().isNull() ? "|" : "|picture"));
  }
  EXPECT_THAT(
      found,
      ElementsAre("tbrGraph.refresh|Refresh|picture", "tbrGraph.save|Save|picture",
                  "tbrGraph.saveas|Save As|picture", "tbrGraph.open|Open|picture",
                  "tbrGraph.print|Print|picture", "tbrGraph.copy|Copy|picture", "tbrGraph.design||",
                  "tbrGraph.curves|Curves and Functions|picture", "tbrGraph.setup|Design|picture",
                  "tbrGraph.table|Table|picture", "tbrGraph.help|Help|picture"));
}

TEST_F(WidgetToolbar, ItsButtonsStandFromLeftToRight) {
  int last = -1;
  for (QAction* action : bar().actions()) {
    const QWidget* const shown = bar().widgetForAction(action);
    EXPECT_GT(shown->x(), last);
    last = shown->x();
  }
}

TEST_F(WidgetToolbar, AScreenReaderFindsItsButtons) {
  for (QAction* action : bar().actions()) {
    auto* const button = QAccessible::queryAccessibleInterface(bar().widgetForAction(action));
    ASSERT_NE(button, nullptr);
    EXPECT_FALSE(button->text(QAccessible::Name).isEmpty());
  }
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&button("saveas"))->text(QAccessible::Name),
            "Save As");
}

TEST_F(WidgetToolbar, AButtonRunsItsCommandOnceTheClickIsOver) {
  button("refresh").click();
  EXPECT_EQ(m_listener.redraws, 0) << "the button is still in the middle of it";
  EXPECT_EQ(m_listener.redraws_since(), 1);
  ShownWindows windows;
  button("curves").click();
  EXPECT_THAT(windows.names(), ElementsAre("frmCurves"));
  button("setup").click();
  EXPECT_THAT(windows.names(), ElementsAre("frmPropert &General"));
  button("table").click();
  EXPECT_THAT(windows.names(), ElementsAre("frmTable"));
}

TEST_F(WidgetToolbar, DesignAndHelpDoNothing) {
  const QImage before = m_graph.image();
  ShownWindows windows;
  button("design").click();
  button("help").click();
  EXPECT_THAT(windows.names(), IsEmpty());
  EXPECT_EQ(m_listener.redraws_since(), 0);
  EXPECT_EQ(m_graph.image(), before);
  EXPECT_EQ(m_graph.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(WidgetToolbar, OtherWordsDoNothing) {
  ShownWindows windows;
  for (const char* word : {"Refresh", "SAVE", "", "close", "design", "help", " refresh"}) {
    m_graph.ChartOptions(word);
  }
  EXPECT_THAT(windows.names(), IsEmpty());
  EXPECT_EQ(m_listener.redraws_since(), 0);
  EXPECT_EQ(m_graph.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(WidgetToolbar, ACommandThatFailsIsReportedAndKeepsTheHourglass) {
  m_graph.set_NumTicks(0);
  button("refresh").click();
  process_all();
  EXPECT_THAT(m_listener.errors, ElementsAre(11));
  EXPECT_EQ(m_graph.cursor().shape(), Qt::WaitCursor);
  EXPECT_EQ(bar().cursor().shape(), Qt::WaitCursor) << "over the whole widget";
  EXPECT_EQ(m_plot.cursor().shape(), Qt::WaitCursor);
}

TEST_F(WidgetToolbar, RefreshPutsATallTitleAboveTheEdgeOfASmallMargin) {
  m_graph.set_Top_margine(30);
  button("refresh").click();
  process_all();
  const Rect& title = m_graph.layout().imgTitle;
  EXPECT_FLOAT_EQ(title.top, 30 - title.height - 60);
  EXPECT_LT(title.top, 0);
}

TEST_F(WidgetToolbar, TheWidgetMayGoWhenAButtonWasPressed) {
  auto* const graph = new KurvGraph;
  graph->plot(small_graph());
  graph->findChild<QToolButton*>("tbrGraph.curves")->click();
  delete graph;
  ShownWindows windows;
  EXPECT_THAT(windows.names(), IsEmpty());
}

// -- Layout ---------------------------------------------------------------------------------------

TEST_F(WidgetToolbar, ThePlotFillsWhatItLeaves) {
  EXPECT_EQ(bar().geometry(), QRect(0, 0, 600, m_graph.height() - 400));
  EXPECT_EQ(m_plot.geometry(), m_graph.plot_rect());
  EXPECT_EQ(m_plot.geometry(), QRect(0, bar().height(), 600, 400));
  EXPECT_EQ(m_graph.image().size(), QSize(600, 400));
  EXPECT_EQ(bar().height() % 4, 0);
}

TEST_F(WidgetToolbar, HidingItIsAResize) {
  const QSize outer = m_graph.size();
  m_graph.document().GraphSaved = true;
  m_graph.set_toolbar_visible(false);
  EXPECT_FALSE(m_graph.toolbar_visible());
  EXPECT_EQ(m_listener.redraws_since(), 1);
  EXPECT_FALSE(bool(m_graph.document().GraphSaved));
  EXPECT_EQ(m_graph.size(), outer);
  EXPECT_EQ(m_graph.image().size(), outer);
  EXPECT_EQ(m_plot.geometry(), QRect(QPoint(0, 0), outer));
  m_graph.set_toolbar_visible(false);
  EXPECT_EQ(m_listener.redraws_since(), 0);
  m_graph.set_toolbar_visible(true);
  EXPECT_EQ(m_listener.redraws_since(), 1);
  EXPECT_EQ(m_graph.image().size(), QSize(600, 400));
}

TEST_F(WidgetToolbar, ForcesNoWidthOnAHost) {
  QMainWindow window;
  auto* const graph = new OpenGraph;
  window.setCentralWidget(graph);
  window.resize(60, 50);
  window.show();
  process_all();
  EXPECT_EQ(graph->width(), 60);
  EXPECT_EQ(graph->plot_rect().width(), 60);
  window.resize(60, 10);
  process_all();
  EXPECT_EQ(graph->height(), 10);
  EXPECT_EQ(graph->plot_rect().height(), 0);
}

TEST_F(WidgetToolbar, WhatHasNoRoomIsInAMenuBehindTheRestThatTheKeyboardReaches) {
  m_graph.resize(200, 300);
  process_all();
  EXPECT_FALSE(button("table").isVisible());
  auto* const more = m_graph.findChild<QToolButton*>("qt_toolbar_ext_button");
  ASSERT_NE(more, nullptr);
  EXPECT_TRUE(more->isVisible());
  EXPECT_TRUE(more->focusPolicy() & Qt::TabFocus);
  EXPECT_EQ(more->accessibleName(), "More");
  ASSERT_NE(more->menu(), nullptr);
  QStringList offered;
  for (const QAction* action : more->menu()->actions()) offered << action->objectName();
  EXPECT_TRUE(offered.contains("tbrGraph.table"));
}

TEST_F(WidgetToolbar, PixelsOfTheWidgetLeadToDataBelowIt) {
  const int top = m_graph.plot_rect().top();
  const QPointF below = m_graph.pixel_of(2, 3).value();
  m_graph.set_toolbar_visible(false);
  resize_plot(m_graph, {600, 400});
  process_all();
  const QPointF bare = m_graph.pixel_of(2, 3).value();
  EXPECT_NEAR(below.y() - bare.y(), top, 1e-9);
  EXPECT_NEAR(below.x(), bare.x(), 1e-9);
}

TEST_F(WidgetToolbar, GrowsWithTheFont) {
  const int before = bar().height();
  QFont font = m_graph.font();
  font.setPointSizeF(font.pointSizeF() * 3);
  m_graph.setFont(font);
  process_all();
  EXPECT_GT(bar().height(), before);
  EXPECT_EQ(m_plot.y(), bar().height());
  EXPECT_EQ(m_listener.redraws_since(), 1) << "the plot has become smaller";
}

// -- Icons ----------------------------------------------------------------------------------------

// The darkest and the lightest opaque colour of an icon.
std::pair<int, int> ink_of(const QImage& image) {
  std::pair<int, int> range(255, 0);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qAlpha(image.pixel(x, y)) < 255) continue;
      const int grey = qGray(image.pixel(x, y));
      range = {std::min(range.first, grey), std::max(range.second, grey)};
    }
  }
  return range;
}

QImage picture(const QIcon& icon, QIcon::Mode mode = QIcon::Normal) {
  return icon.pixmap(QSize(24, 24), 1.0, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

TEST_F(WidgetToolbar, PicturesAreInTheColourOfTheDesktopsText) {
  QPalette dark = m_graph.palette();
  dark.setColor(QPalette::ButtonText, Qt::white);
  dark.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(100, 100, 100));
  EXPECT_LT(ink_of(picture(button("save").icon())).first, 80);
  const QImage plot = m_graph.image();
  m_graph.setPalette(dark);
  process_all();
  EXPECT_EQ(ink_of(picture(button("save").icon())), std::pair(255, 255));
  EXPECT_EQ(ink_of(picture(button("save").icon(), QIcon::Disabled)), std::pair(100, 100));
  EXPECT_EQ(m_graph.image(), plot) << "the picture of the graph stays white";
}

TEST_F(WidgetToolbar, PicturesHaveTheScreensOwnPixels) {
  for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
    const QPixmap pixmap = button("table").icon().pixmap(QSize(24, 24), ratio);
    EXPECT_EQ(pixmap.size(), QSize(24, 24) * ratio);
    EXPECT_EQ(pixmap.devicePixelRatio(), ratio);
  }
}

TEST_F(WidgetToolbar, EveryPictureIsAnother) {
  std::vector<QImage> seen;
  for (QAction* action : bar().actions()) {
    if (action->icon().isNull()) continue;
    seen.push_back(picture(action->icon()));
    EXPECT_LT(ink_of(seen.back()).first, 255) << action->objectName().toStdString();
  }
  EXPECT_EQ(seen.size(), 10u);
  for (std::size_t i = 0; i < seen.size(); ++i) {
    for (std::size_t k = 0; k < i; ++k) EXPECT_NE(seen[i], seen[k]);
  }
}

TEST(LineIcon, ADrawingThatIsNotThereIsNoIcon) {
  EXPECT_TRUE(line_icon("no such drawing", QPalette()).isNull());
}

}  // namespace
}  // namespace kurv::test
