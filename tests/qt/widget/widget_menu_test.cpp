// The menu on the plot, without a window system.
#include <gmock/gmock.h>

#include <QAccessible>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <memory>
#include <set>

#include "tests/qt/widget/plot_test.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;

// The menu that is open.
QMenu* open_menu() {
  auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  return menu && menu->objectName() == "mnuPlot" ? menu : nullptr;
}

QAction* action(const char* name) {
  return open_menu() ? open_menu()->findChild<QAction*>(name) : nullptr;
}

// Where neither an item nor a part of the axes is.
constexpr QPoint kPlain(300, 200);

class WidgetMenu : public testing::Test {
 protected:
  void SetUp() override {
    m_graph.resize(600, 400);
    m_graph.plot(small_graph());
    m_graph.show();
    process_all();
  }
  void TearDown() override {
    if (open_menu()) open_menu()->close();
  }
  void right_click() { click(Qt::RightButton); }
  void click(Qt::MouseButton button) { QTest::mouseClick(plot_of(m_graph), button, {}, kPlain); }

  OpenGraph m_graph;
};

TEST_F(WidgetMenu, OffersTheWindowsAndEverythingThatIsPromptedForByName) {
  right_click();
  ASSERT_NE(open_menu(), nullptr);
  std::vector<std::string> texts;
  for (const QAction* entry : open_menu()->actions()) {
    if (!entry->isSeparator()) texts.push_back(entry->text().remove('&').toStdString());
  }
  EXPECT_THAT(texts, ElementsAre("Curves and Functions…", "Titles and Fonts…", "Axes…",
                                 "Lines and Markers…", "Table…", "Marker Size…", "Left Margin…",
                                 "Right Margin…", "Top Margin…", "Bottom Margin…", "X Axis Title…",
                                 "Axis Font…", "Title Font…", "Subtitle Font…", "Add Function…",
                                 "Add Derived Curve…"));
}

TEST_F(WidgetMenu, EveryEntryHasALetterOfItsOwn) {
  right_click();
  ASSERT_NE(open_menu(), nullptr);
  std::set<QString> letters;
  int entries = 0;
  for (const QAction* entry : open_menu()->actions()) {
    if (entry->isSeparator()) continue;
    ++entries;
    const QKeySequence mnemonic = QKeySequence::mnemonic(entry->text());
    EXPECT_FALSE(mnemonic.isEmpty()) << entry->text().toStdString();
    letters.insert(mnemonic.toString());
  }
  EXPECT_EQ(static_cast<int>(letters.size()), entries);
}

TEST_F(WidgetMenu, AScreenReaderFindsItsEntries) {
  right_click();
  ASSERT_NE(open_menu(), nullptr);
  QAccessibleInterface* const menu = QAccessible::queryAccessibleInterface(open_menu());
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->role(), QAccessible::PopupMenu);
  EXPECT_EQ(menu->text(QAccessible::Name), "Graph");
  ASSERT_EQ(menu->childCount(), open_menu()->actions().size());
  EXPECT_EQ(menu->child(0)->text(QAccessible::Name), "Curves and Functions…");
}

TEST_F(WidgetMenu, ComesAfterTheHostHasHeardOfTheClick) {
  bool open_at_mouse_up = true;
  QObject::connect(&m_graph, &KurvGraph::MouseUp,
                   [&] { open_at_mouse_up = open_menu() != nullptr; });
  QTest::mousePress(plot_of(m_graph), Qt::RightButton, {}, kPlain);
  EXPECT_EQ(open_menu(), nullptr) << "a press is no click yet";
  QTest::mouseRelease(plot_of(m_graph), Qt::RightButton, {}, kPlain);
  EXPECT_FALSE(open_at_mouse_up);
  EXPECT_NE(open_menu(), nullptr);
}

TEST_F(WidgetMenu, ComesOnAnItemTooOfWhichTheHostHearsNothing) {
  int ups = 0;
  QObject::connect(&m_graph, &KurvGraph::MouseUp, [&] { ++ups; });
  Mouse(m_graph.view(), Qt::RightButton).click(middle(m_graph.layout().picLegend));
  EXPECT_NE(open_menu(), nullptr);
  EXPECT_EQ(ups, 0);
}

TEST_F(WidgetMenu, ItsFirstEntriesOpenTheWindows) {
  const std::pair<const char*, const char*> entries[] = {
      {"mnuCurves", "frmCurves"},
      {"mnuTitles", "frmPropert &Titles and Fonts"},
      {"mnuAxes", "frmPropert A&xes"},
      {"mnuLines", "frmPropert &Lines and Markers"},
      {"mnuTable", "frmTable"}};
  ShownWindows windows;
  for (const auto& [entry, window] : entries) {
    right_click();
    ASSERT_NE(action(entry), nullptr);
    action(entry)->trigger();
    open_menu()->close();
    EXPECT_THAT(windows.names(), ElementsAre(window)) << entry;
  }
}

TEST_F(WidgetMenu, OtherButtonsOpenNone) {
  click(Qt::LeftButton);
  click(Qt::MiddleButton);
  EXPECT_EQ(open_menu(), nullptr);
}

TEST_F(WidgetMenu, TheToolkitsOwnRequestOpensItForTheKeyboardAlone) {
  QContextMenuEvent by_mouse(QContextMenuEvent::Mouse, {10, 10}, {10, 10});
  QApplication::sendEvent(&m_graph, &by_mouse);
  EXPECT_EQ(open_menu(), nullptr);
  EXPECT_TRUE(by_mouse.isAccepted()) << "nobody behind opens another";
  QContextMenuEvent by_key(QContextMenuEvent::Keyboard, {10, 10}, {10, 10});
  QApplication::sendEvent(&m_graph, &by_key);
  EXPECT_NE(open_menu(), nullptr);
}

TEST_F(WidgetMenu, ShiftF10OpensItAndF10DoesNot) {
  QTest::keyClick(&m_graph, Qt::Key_F10);
  EXPECT_EQ(open_menu(), nullptr);
  QTest::keyClick(&m_graph, Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_NE(open_menu(), nullptr);
}

TEST_F(WidgetMenu, AHostMayHaveAMenuOfItsOwnAndAFormEditorToo) {
  m_graph.setContextMenuPolicy(Qt::PreventContextMenu);
  right_click();
  EXPECT_EQ(open_menu(), nullptr);
  m_graph.setContextMenuPolicy(Qt::DefaultContextMenu);
  m_graph.set_design_mode(true);
  right_click();
  EXPECT_EQ(open_menu(), nullptr);
}

TEST_F(WidgetMenu, ADerivedCurveIsOfferedBelow149CurvesOnly) {
  m_graph.document().NumY = 148;
  right_click();
  ASSERT_NE(action("mnuAddDerivedCurve"), nullptr);
  EXPECT_TRUE(action("mnuAddDerivedCurve")->isEnabled());
  open_menu()->close();
  m_graph.document().NumY = 149;
  right_click();
  EXPECT_FALSE(action("mnuAddDerivedCurve")->isEnabled());
  EXPECT_TRUE(action("mnuAddFunction")->isEnabled());
}

TEST_F(WidgetMenu, AFunctionIsOfferedAtThirtyToo) {
  m_graph.document().NumYFunc = 30;
  right_click();
  ASSERT_NE(action("mnuAddFunction"), nullptr);
  EXPECT_TRUE(action("mnuAddFunction")->isEnabled()) << "which has a message of its own";
}

TEST_F(WidgetMenu, TheWidgetMayGoInASlotOfTheClick) {
  auto* const graph = new KurvGraph;
  QObject::connect(graph, &KurvGraph::MouseUp, graph, [&] { delete graph; });
  graph->show();
  QTest::mouseClick(plot_of(*graph), Qt::RightButton, {}, {5, 5});
  EXPECT_EQ(open_menu(), nullptr);
}

TEST_F(WidgetMenu, AChosenEntryOfAWidgetThatIsGoneDoesNothing) {
  auto graph = std::make_unique<KurvGraph>();
  graph->show();
  QTest::mouseClick(plot_of(*graph), Qt::RightButton);
  ASSERT_NE(action("mnuMarkerSize"), nullptr);
  action("mnuMarkerSize")->trigger();
  graph.reset();
  process_all();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(WidgetMenu, AClosedMenuIsNotKept) {
  for (int i = 0; i < 3; ++i) {
    right_click();
    ASSERT_NE(open_menu(), nullptr);
    open_menu()->close();
  }
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(m_graph.findChildren<QMenu*>("mnuPlot").isEmpty());
}

// -- Curves from expressions ----------------------------------------------------------------------

TEST_F(WidgetMenu, ExpressionsAreAddedWithoutAPromptOrRefusedWithASentence) {
  Listener listener(m_graph);
  EXPECT_EQ(m_graph.add_function("x^2"), std::nullopt);
  EXPECT_EQ(m_graph.document().y_func(1).expression, "x^2");
  EXPECT_EQ(m_graph.derive("Größe", "a+b"), std::nullopt);
  EXPECT_EQ(m_graph.document().yVarName(4), "Größe");
  EXPECT_EQ(listener.redraws_since(), 2);
  EXPECT_EQ(m_graph.add_function("a"), "Only 'x' variable is allowed in the algebric expression.");
  EXPECT_EQ(m_graph.derive("ä", "ö"), "'ö' is not a known scatter curve name");
  EXPECT_EQ(listener.redraws_since(), 0);
}

}  // namespace
}  // namespace kurv::test
