// The graph without a mouse.
#include <gmock/gmock.h>

#include <QAction>
#include <QClipboard>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "tests/qt/widget/plot_test.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A window with a field before the graph in tab order and one after it.
class WidgetKeyboard : public testing::Test {
 protected:
  void SetUp() override {
    auto* const layout = new QVBoxLayout(&m_window);
    layout->addWidget(&m_before);
    layout->addWidget(&m_graph);
    layout->addWidget(&m_behind);
    m_before.setObjectName("before");
    m_behind.setObjectName("behind");
    m_window.resize(600, 500);
    m_graph.set_SubTitle("below");
    m_graph.plot(small_graph());
    m_window.show();
    QApplication::setActiveWindow(&m_window);
    m_before.setFocus();
    process_all();
    m_listener.redraws_since();
  }
  void TearDown() override {
    // They are on the stack.
    for (QWidget* child : {static_cast<QWidget*>(&m_before), static_cast<QWidget*>(&m_graph),
                           static_cast<QWidget*>(&m_behind)})
      child->setParent(nullptr);
  }

  // As from a keyboard: to whatever has the focus.
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(m_window.windowHandle(), key, modifiers);
    process_all();
  }
  // Where the focus is: the name of a hit target, or of a widget.
  std::string here() {
    const QWidget* const widget = QApplication::focusWidget();
    if (!widget) return "nowhere";
    const std::optional<HitTarget> place = m_plot.focused();
    if (widget == &m_plot && place) return name_of(*place).toStdString();
    return widget->objectName().toStdString();
  }
  void go_to(const HitTarget& place) {
    m_plot.focus_on(place);
    process_all();
  }
  Rect& legend() { return m_graph.layout().picLegend; }

  QWidget m_window;
  QLineEdit m_before;
  OpenGraph m_graph;
  QLineEdit m_behind;
  PlotView& m_plot = m_graph.view();
  Listener m_listener{m_graph};
};

const std::vector<std::string> kWay{"before",
                                    "tbrGraph.refresh",
                                    "tbrGraph.save",
                                    "tbrGraph.saveas",
                                    "tbrGraph.open",
                                    "tbrGraph.print",
                                    "tbrGraph.copy",
                                    "tbrGraph.curves",
                                    "tbrGraph.setup",
                                    "tbrGraph.table",
                                    "tbrGraph.help",
                                    "Title",
                                    "Subtitle",
                                    "Legend",
                                    "Name of the x axis",
                                    "Labels of the x axis",
                                    "Labels of the y axis",
                                    "Frame",
                                    "behind"};

TEST_F(WidgetKeyboard, TabWalksToolbarItemsAndRegionsAndLeaves) {
  std::vector<std::string> way{here()};
  for (std::size_t i = 1; i < kWay.size(); ++i) {
    key(Qt::Key_Tab);
    way.push_back(here());
  }
  EXPECT_EQ(way, kWay);
  EXPECT_EQ(m_listener.redraws_since(), 0);
}

TEST_F(WidgetKeyboard, ShiftTabWalksTheSameWayBack) {
  m_behind.setFocus();
  std::vector<std::string> way{here()};
  for (std::size_t i = 1; i < kWay.size(); ++i) {
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    way.push_back(here());
  }
  EXPECT_EQ(way, std::vector<std::string>(kWay.rbegin(), kWay.rend()));
}

TEST_F(WidgetKeyboard, WhatIsNotThereIsPassedOver) {
  m_graph.set_SubTitle("");
  m_graph.set_toolbar_visible(false);
  m_graph.document().y_visible(1) = false;
  m_graph.document().y_visible(2) = false;
  m_graph.build_the_graph();
  key(Qt::Key_Tab);
  EXPECT_EQ(here(), "Title");
  key(Qt::Key_Tab);
  EXPECT_EQ(here(), "Name of the x axis");
}

TEST_F(WidgetKeyboard, AnEmptyGraphIsOneStep) {
  m_graph.document().GraphValid = false;
  m_graph.control().last_picture.reset();
  m_graph.findChild<QToolButton*>("tbrGraph.help")->setFocus();
  key(Qt::Key_Tab);
  EXPECT_EQ(here(), "Empty plot");
  EXPECT_NE(m_plot.grab().toImage().convertToFormat(QImage::Format_RGB32), m_graph.image())
      << "the focus is to be seen";
  ShownWindows windows;
  key(Qt::Key_Return);
  EXPECT_THAT(windows.names(), ElementsAre("frmCurves"));
  QApplication::setActiveWindow(&m_window);
  key(Qt::Key_Tab);
  EXPECT_EQ(here(), "behind");
}

TEST_F(WidgetKeyboard, TheFocusIsSeenAndEscapeDropsItsOutline) {
  const QImage plain = m_plot.grab().toImage();
  go_to(Item::kTitle);
  const QImage title = m_plot.grab().toImage();
  key(Qt::Key_Tab);
  EXPECT_NE(title, plain);
  EXPECT_NE(m_plot.grab().toImage(), title);
  key(Qt::Key_Escape);
  EXPECT_EQ(m_plot.grab().toImage(), plain);
  EXPECT_EQ(here(), "PicGraph");
  EXPECT_EQ(m_listener.redraws_since(), 0);
}

TEST_F(WidgetKeyboard, TheOutlineGoesWithTheFocusAndAClickDropsIt) {
  const QImage plain = m_plot.grab().toImage();
  go_to(Region::kFrame);
  m_behind.setFocus();
  EXPECT_EQ(m_plot.grab().toImage(), plain);
  go_to(Region::kFrame);
  Mouse(m_plot).click({300, 200});
  EXPECT_EQ(m_plot.grab().toImage(), plain);
}

TEST_F(WidgetKeyboard, TheWidgetsFocusIsThePlots) {
  m_graph.setFocus();
  EXPECT_TRUE(m_plot.hasFocus());
  EXPECT_EQ(here(), "PicGraph");
  key(Qt::Key_Tab);
  EXPECT_EQ(here(), "Title");
}

TEST_F(WidgetKeyboard, EnterIsTheDoubleClick) {
  ShownWindows windows;
  const struct {
    HitTarget place;
    const char* window;
  } cases[] = {{Item::kTitle, "frmPropert &Titles and Fonts"},
               {Item::kSubTitle, "frmPropert &Titles and Fonts"},
               {Item::kLegend, "frmCurves"},
               {Region::kXCaption, "frmCurves"},
               {Region::kXLabels, "frmPropert A&xes"},
               {Region::kYLabels, "frmPropert A&xes"},
               {Region::kFrame, "frmPropert &Lines and Markers"}};
  for (const auto& each : cases) {
    go_to(each.place);
    key(Qt::Key_Return);
    EXPECT_THAT(windows.names(), ElementsAre(each.window)) << name_of(each.place).toStdString();
    QApplication::setActiveWindow(&m_window);
    EXPECT_EQ(here(), name_of(each.place).toStdString()) << "the target is kept meanwhile";
  }
  go_to(Item::kLegend);
  key(Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_THAT(windows.names(), ElementsAre("frmCurves"));
}

TEST_F(WidgetKeyboard, EnterOnNothingIsLeftToTheHost) {
  ShownWindows windows;
  m_graph.setFocus();
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QApplication::sendEvent(&m_plot, &enter);
  EXPECT_FALSE(enter.isAccepted());
  EXPECT_THAT(windows.names(), IsEmpty());
}

TEST_F(WidgetKeyboard, ArrowsMoveAnItemByOneRedrawEach) {
  for (const Item item : {Item::kTitle, Item::kSubTitle, Item::kLegend}) {
    go_to(item);
    const Rect before = rect_of(m_graph.control(), item);
    key(Qt::Key_Right);
    EXPECT_EQ(m_listener.redraws_since(), 1);
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    key(Qt::Key_Left, Qt::ShiftModifier);
    key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(m_listener.redraws_since(), 4);
    const Rect& after = rect_of(m_graph.control(), item);
    EXPECT_FLOAT_EQ(after.left, before.left + 75 - 15);
    EXPECT_FLOAT_EQ(after.top, before.top + 150 - 15);
    EXPECT_EQ(here(), name_of(item).toStdString());
  }
}

TEST_F(WidgetKeyboard, ArrowsMoveNoRegion) {
  go_to(Region::kYLabels);
  key(Qt::Key_Right);
  EXPECT_EQ(m_listener.redraws_since(), 0);
  EXPECT_EQ(here(), "Labels of the y axis");
}

TEST_F(WidgetKeyboard, AMoveThatFailsIsReported) {
  m_graph.set_NumTicks(0);
  go_to(Item::kLegend);
  key(Qt::Key_Right);
  EXPECT_THAT(m_listener.errors, ElementsAre(11));
}

TEST_F(WidgetKeyboard, TheMenuKeyOpensTheMenuAtTheFocus) {
  go_to(Item::kLegend);
  key(Qt::Key_F10, Qt::ShiftModifier);
  QWidget* const menu = QApplication::activePopupWidget();
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->objectName(), "mnuPlot");
  EXPECT_EQ(menu->pos(), m_plot.mapToGlobal(m_plot.bounds_of(Item::kLegend).center()));
  menu->close();
  process_all();
  EXPECT_EQ(here(), "Legend") << "the target is kept meanwhile";
}

TEST_F(WidgetKeyboard, APlaceThatIsGoneHasNoKeys) {
  go_to(Item::kSubTitle);
  m_graph.set_SubTitle("");
  m_graph.build_the_graph();
  m_listener.redraws_since();
  key(Qt::Key_Right);
  key(Qt::Key_Escape);
  EXPECT_EQ(m_listener.redraws_since(), 0);
  key(Qt::Key_Tab);
  EXPECT_EQ(here(), "Title");
}

TEST_F(WidgetKeyboard, InDesignModeTheGraphIsNoPlaceForTheFocus) {
  m_graph.set_design_mode(true);
  key(Qt::Key_Tab);
  EXPECT_EQ(here(), "behind");
}

// -- Commands -------------------------------------------------------------------------------------

TEST_F(WidgetKeyboard, KeysAreCommandsWhileTheGraphOrAButtonHasTheFocus) {
  m_graph.setFocus();
  key(Qt::Key_F5);
  EXPECT_EQ(m_listener.redraws_since(), 1);
  m_graph.findChild<QToolButton*>("tbrGraph.table")->setFocus();
  key(Qt::Key_F5);
  EXPECT_EQ(m_listener.redraws_since(), 1);
  QApplication::clipboard()->clear();
  key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32),
            m_graph.image());
}

// Notes the commands that the keys ask for, and runs none.
class NotedGraph : public KurvGraph {
 public:
  QStringList words;

 protected:
  void run_command(const QString& word) override { words << word; }
};

TEST(WidgetKeys, EachSendsItsWord) {
  NotedGraph graph;
  graph.show();
  QWidget& plot = *plot_of(graph);
  plot.setFocus();
  const std::pair<Qt::Key, Qt::KeyboardModifiers> keys[] = {{Qt::Key_S, Qt::ControlModifier},
                                                            {Qt::Key_O, Qt::ControlModifier},
                                                            {Qt::Key_P, Qt::ControlModifier},
                                                            {Qt::Key_C, Qt::ControlModifier},
                                                            {Qt::Key_F5, Qt::NoModifier}};
  for (const auto& [key, modifiers] : keys) QTest::keyClick(&plot, key, modifiers);
  EXPECT_THAT(graph.words, ElementsAre("save", "open", "print", "copy", "refresh"));
}

TEST_F(WidgetKeyboard, TheyAreNoneElsewhereOrWhereAHostWantsNone) {
  m_before.setFocus();
  key(Qt::Key_F5);
  EXPECT_EQ(m_listener.redraws_since(), 0);
  m_graph.set_shortcuts_enabled(false);
  m_graph.setFocus();
  key(Qt::Key_F5);
  EXPECT_EQ(m_listener.redraws_since(), 0);
  m_graph.set_shortcuts_enabled(true);
  key(Qt::Key_F5, Qt::ShiftModifier);
  EXPECT_EQ(m_listener.redraws_since(), 0) << "another key";
  key(Qt::Key_F5);
  EXPECT_EQ(m_listener.redraws_since(), 1);
}

TEST_F(WidgetKeyboard, AKeyThatIsHeldDownIsOneCommand) {
  m_graph.setFocus();
  for (const bool repeated : {false, true, true}) {
    QKeyEvent event(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier, QString(), repeated);
    QApplication::sendEvent(&m_plot, &event);
    EXPECT_TRUE(event.isAccepted());
  }
  EXPECT_EQ(m_listener.redraws_since(), 1);
}

TEST_F(WidgetKeyboard, ACommandByKeyThatFailsIsReported) {
  m_graph.set_NumTicks(0);
  m_graph.setFocus();
  key(Qt::Key_F5);
  EXPECT_THAT(m_listener.errors, ElementsAre(11));
}

TEST(WidgetKeys, AHostsActionWithTheSameKeyIsItsOwnAndNotAmbiguous) {
  QMainWindow window;
  auto* const graph = new OpenGraph;
  window.setCentralWidget(graph);
  QAction* const reload = window.menuBar()->addMenu("View")->addAction("Reload");
  reload->setShortcut(Qt::Key_F5);
  int reloads = 0;
  QObject::connect(reload, &QAction::triggered, [&] { ++reloads; });
  graph->plot(small_graph());
  window.show();
  QApplication::setActiveWindow(&window);
  graph->setFocus();
  Listener listener(*graph);
  listener.redraws_since();
  QTest::keyClick(window.windowHandle(), Qt::Key_F5);
  EXPECT_EQ(listener.redraws_since(), 0);
  EXPECT_EQ(reloads, 1);
}

TEST(WidgetKeys, AHostsActionDoesNotTakeTheKeysThatMoveAnItem) {
  QMainWindow window;
  auto* const graph = new OpenGraph;
  window.setCentralWidget(graph);
  QAction* const next = window.menuBar()->addMenu("View")->addAction("Next");
  next->setShortcut(Qt::Key_Right);
  int nexts = 0;
  QObject::connect(next, &QAction::triggered, [&] { ++nexts; });
  graph->plot(small_graph());
  window.show();
  QApplication::setActiveWindow(&window);
  Listener listener(*graph);
  listener.redraws_since();
  graph->view().focus_on(Item::kLegend);
  QTest::keyClick(window.windowHandle(), Qt::Key_Right);
  EXPECT_EQ(listener.redraws_since(), 1);
  EXPECT_EQ(nexts, 0);
  graph->view().focus_on(Region::kFrame);
  QTest::keyClick(window.windowHandle(), Qt::Key_Right);
  EXPECT_EQ(nexts, 1) << "it moves nothing here";
}

}  // namespace
}  // namespace kurv::test
