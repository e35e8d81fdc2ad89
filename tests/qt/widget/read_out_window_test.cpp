// The read-out under a real mouse and a real keyboard.
#include <gtest/gtest.h>

#include <QToolTip>

#include "tests/qt/widget/plot_test.h"
#include "tests/qt/widget/tools.h"

namespace kurv::test {
namespace {

class ReadOutOnScreen : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(QGuiApplication::platformName(), "xcb") << "this test needs a real window";
    resize_plot(m_graph, {600, 400});
    m_graph.plot(small_graph());
    m_graph.set_readout_enabled(true);
    QObject::connect(&m_graph, &KurvGraph::pointed, &m_graph,
                     [this](const ReadOut& read_out) { m_said = read_out; });
    m_graph.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_graph));
    m_graph.setFocus();
    QTest::qWait(100);
  }

  void move_to(QPointF at) {
    run_tool("xdotool", {"mousemove", "--window", QString::number(m_graph.winId()),
                         QString::number(qRound(at.x())), QString::number(qRound(at.y()))});
  }
  bool says(const QString& name, int point) {
    return QTest::qWaitFor(
        [&] {
          return m_said.nearest && m_said.nearest->name == name && m_said.nearest->point == point;
        },
        5000);
  }

  OpenGraph m_graph;
  ReadOut m_said;
};

TEST_F(ReadOutOnScreen, FollowsThePointerAndShowsATipWhereItRests) {
  move_to(*m_graph.pixel_of(2, 4) + QPointF(30, 30));
  move_to(*m_graph.pixel_of(2, 4) + QPointF(2, 2));
  EXPECT_TRUE(says("a", 2));
  EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text().contains("<b>a</b>"); }, 5000));
  EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::isVisible(); }, 5000));
  EXPECT_FALSE(m_graph.view().ring().isEmpty()) << "the tip has not taken the pointer away";
  move_to(*m_graph.pixel_of(3, 5) + QPointF(-3, 0));
  EXPECT_TRUE(says("b", 3));
  move_to({20, 5});
  EXPECT_TRUE(QTest::qWaitFor([&] { return !m_said.place; }, 5000)) << "on the toolbar";
  EXPECT_TRUE(m_graph.view().ring().isEmpty());
}

TEST_F(ReadOutOnScreen, GoesFromPointToPointByTheKeyboard) {
  move_to({20, 5});
  m_graph.view().focus_on(Region::kFrame);
  for (const char* const key : {"Tab", "Right", "Down"}) {
    run_tool("xdotool", {"key", key});
    QTest::qWait(100);
  }
  EXPECT_TRUE(says("b", 2));
  EXPECT_TRUE(QToolTip::text().contains("<b>b</b>"));
  run_tool("xdotool", {"key", "Escape"});
  EXPECT_TRUE(QTest::qWaitFor([&] { return !m_said.place; }, 5000));
}

}  // namespace
}  // namespace kurv::test
