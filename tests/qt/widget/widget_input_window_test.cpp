// The graph under a real mouse and a real keyboard.
#include <gmock/gmock.h>

#include <QAction>
#include <QImage>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>

#include "tests/qt/widget/plot_test.h"
#include "tests/qt/widget/tools.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;

class InputWindow : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(QGuiApplication::platformName(), "xcb") << "this test needs a real window";
    resize_plot(m_graph, {600, 400});
    m_graph.plot(small_graph());
    m_graph.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_graph));
    m_graph.setFocus();
    QTest::qWait(100);
    m_listener.redraws_since();
  }

  // A point of the plot, as an argument of the tool.
  QStringList move_to(QPoint at) const {
    const QPoint in_window = m_graph.plot_rect().topLeft() + at;
    return {"mousemove", "--window", QString::number(m_graph.winId()),
            QString::number(in_window.x()), QString::number(in_window.y())};
  }
  void mouse(const QStringList& arguments) {
    run_tool("xdotool", arguments);
    QTest::qWait(200);
  }
  void double_click(QPoint at) {
    mouse(move_to(at) + QStringList{"click", "--repeat", "2", "--delay", "80", "1"});
  }
  void keys(const QStringList& names) {
    for (const QString& name : names) {
      run_tool("xdotool", {"key", name});
      QTest::qWait(50);
    }
  }
  bool comes(const QString& window) {
    QStringList seen;
    return QTest::qWaitFor([&] { return (seen += m_windows.names()).contains(window); }, 5000);
  }
  Rect& legend() { return m_graph.layout().picLegend; }

  OpenGraph m_graph;
  PlotView& m_plot = m_graph.view();
  Listener m_listener{m_graph};
  ShownWindows m_windows;
};

TEST_F(InputWindow, ALegendIsDraggedAndItsPictureFollows) {
  const Rect before = legend();
  const QPoint grab = middle(before);
  const QImage picture = m_graph.image();
  mouse(move_to(grab));
  EXPECT_EQ(m_plot.cursor().shape(), Qt::OpenHandCursor);
  mouse({"mousedown", "1"});
  for (const int step : {30, 90, 150}) mouse(move_to(grab + QPoint(step, step)));
  EXPECT_EQ(m_plot.cursor().shape(), Qt::ClosedHandCursor);
  EXPECT_EQ(m_graph.image(), picture) << "only the outline has moved so far";
  mouse({"mouseup", "1"});
  EXPECT_TRUE(QTest::qWaitFor([&] { return legend().left != before.left; }, 5000));
  EXPECT_FLOAT_EQ(legend().left, before.left + 2250);
  EXPECT_FLOAT_EQ(legend().top, before.top + 2250);
  EXPECT_EQ(m_listener.redraws_since(), 1);
}

TEST_F(InputWindow, EscapeCancelsADrag) {
  const Rect before = legend();
  mouse(move_to(middle(before)) + QStringList{"mousedown", "1"});
  for (const int x : {200, 250, 300}) mouse(move_to({x, 300}));
  keys({"Escape"});
  mouse({"mouseup", "1"});
  EXPECT_EQ(legend().left, before.left);
  EXPECT_EQ(m_listener.redraws_since(), 0);
}

TEST_F(InputWindow, DoubleClicksOpenWindowsAndTheMouseIsFreeAgainWhenTheyAreClosed) {
  double_click(middle(legend()));
  EXPECT_TRUE(comes("frmCurves"));
  double_click(middle(m_graph.layout().shpGraphBorder[1]));
  EXPECT_TRUE(comes("frmPropert &Lines and Markers"));
  double_click({300, 200});
  EXPECT_TRUE(comes("frmCurves"));
  EXPECT_EQ(QApplication::mouseButtons(), Qt::NoButton);
  EXPECT_TRUE(m_graph.control().mouse.outlined.empty());
}

TEST_F(InputWindow, AButtonOfTheToolbarRunsItsCommand) {
  const QWidget* const table = m_graph.findChild<QToolButton*>("tbrGraph.table");
  const QPoint at = table->mapTo(&m_graph, table->rect().center());
  mouse(move_to(at - m_graph.plot_rect().topLeft()) + QStringList{"click", "1"});
  EXPECT_TRUE(comes("frmTable"));
}

TEST_F(InputWindow, TabVisitsTheTargetsAndTheKeysActThere) {
  keys({"Tab"});
  EXPECT_EQ(m_plot.focused(), HitTarget(Item::kTitle));
  keys({"Tab"});
  EXPECT_EQ(m_plot.focused(), HitTarget(Item::kLegend)) << "there is no subtitle";
  const Rect before = legend();
  keys({"Right", "Right", "shift+Down"});
  EXPECT_TRUE(QTest::qWaitFor([&] { return legend().top != before.top; }, 5000));
  EXPECT_FLOAT_EQ(legend().left, before.left + 150);
  EXPECT_FLOAT_EQ(legend().top, before.top + 15);
  keys({"Tab", "Tab", "Return"});
  EXPECT_TRUE(comes("frmPropert A&xes"));
  ASSERT_TRUE(QTest::qWaitForWindowActive(&m_graph));
  EXPECT_EQ(m_plot.focused(), HitTarget(Region::kXLabels)) << "the target is kept meanwhile";
  keys({"shift+Tab", "shift+Tab", "shift+Tab", "shift+Tab"});
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "tbrGraph.help");
}

TEST_F(InputWindow, CtrlCGivesThePictureToOtherPrograms) {
  keys({"ctrl+c"});
  QTest::qWait(200);
  const QByteArray png = run_tool("xclip", {"-selection", "clipboard", "-t", "image/png", "-o"});
  EXPECT_EQ(QImage::fromData(png, "PNG").convertToFormat(QImage::Format_RGB32), m_graph.image());
}

TEST_F(InputWindow, F5RedrawsOnceAlsoWhereTheHostHasAMenuWithIt) {
  keys({"F5"});
  EXPECT_EQ(m_listener.redraws_since(), 1);
  QMainWindow window;
  QAction* const reload = window.menuBar()->addMenu("&View")->addAction("&Reload");
  reload->setShortcut(Qt::Key_F5);
  auto* const graph = new OpenGraph;
  graph->plot(small_graph());
  QObject::connect(reload, &QAction::triggered, [graph] { graph->ChartOptions("refresh"); });
  window.setCentralWidget(graph);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  graph->setFocus();
  Listener listener(*graph);
  listener.redraws_since();
  keys({"F5"});
  QTest::qWait(100);
  EXPECT_EQ(listener.redraws_since(), 1);
}

}  // namespace
}  // namespace kurv::test
