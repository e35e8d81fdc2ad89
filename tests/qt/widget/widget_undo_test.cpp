// The steps of a widget as a QUndoStack, and its keys and menu entries for them.
#include <gmock/gmock.h>

#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <QUndoGroup>
#include <QUndoStack>
#include <memory>
#include <string>
#include <vector>

#include "control/curve_edits.h"
#include "tests/qt/widget/plot_test.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;

class WidgetUndo : public testing::Test {
 protected:
  void SetUp() override {
    m_graph->resize(600, 400);
    m_graph->plot(small_graph());
    m_graph->show();
    QApplication::setActiveWindow(m_graph.get());
    process_all();
  }
  void hide(int curve) {
    m_graph->view().client().handle(
        [curve](Control& control) { set_curve_visible(control.state(), curve, false); });
  }
  bool is_shown(int curve) { return bool(m_graph->document().y_visible(curve)); }
  std::vector<std::string> commands() {
    std::vector<std::string> texts;
    const QUndoStack& stack = *m_graph->undo_stack();
    for (int i = 0; i < stack.count(); ++i) texts.push_back(stack.text(i).toStdString());
    return texts;
  }
  Control& control() { return m_graph->view().client().control(); }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(plot_of(*m_graph), key, modifiers);
    process_all();
  }
  static QAction* menu_entry(const char* name) {
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    return menu ? menu->findChild<QAction*>(name) : nullptr;
  }
  void open_menu() { QTest::mouseClick(plot_of(*m_graph), Qt::RightButton, {}, {300, 200}); }

  std::unique_ptr<OpenGraph> m_graph = std::make_unique<OpenGraph>();
};

TEST_F(WidgetUndo, NothingIsKeptUntilAHostAsksForTheStack) {
  hide(1);
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(is_shown(1));
  EXPECT_FALSE(control().undo_enabled());
  open_menu();
  EXPECT_NE(menu_entry("mnuCurves"), nullptr);
  EXPECT_EQ(menu_entry("mnuUndo"), nullptr);
  QApplication::activePopupWidget()->close();
  EXPECT_THAT(commands(), ElementsAre());
  EXPECT_TRUE(control().undo_enabled());
}

TEST_F(WidgetUndo, EachStepIsACommandOfTheStack) {
  QUndoStack& stack = *m_graph->undo_stack();
  hide(1);
  hide(2);
  EXPECT_THAT(commands(), ElementsAre("Hide Curve", "Hide Curve"));
  EXPECT_EQ(stack.index(), 2);
  stack.undo();
  EXPECT_FALSE(is_shown(1));
  EXPECT_TRUE(is_shown(2));
  EXPECT_EQ(control().redo_text(), "Hide Curve");
  stack.setIndex(0);
  EXPECT_TRUE(is_shown(1));
  stack.setIndex(2);
  EXPECT_FALSE(is_shown(2));
  EXPECT_EQ(control().undo_text(), "Hide Curve");
}

TEST_F(WidgetUndo, TheStackFollowsTheControl) {
  QUndoStack& stack = *m_graph->undo_stack();
  hide(1);
  hide(2);
  m_graph->ChartOptions("undo");
  EXPECT_EQ(stack.index(), 1);
  m_graph->make_step("Both", [this] { m_graph->set_Title("Other"); });
  EXPECT_THAT(commands(), ElementsAre("Hide Curve", "Both"));
  EXPECT_EQ(stack.index(), 2);
  m_graph->plot(small_graph());
  EXPECT_THAT(commands(), ElementsAre());
  EXPECT_FALSE(stack.canUndo());
}

TEST_F(WidgetUndo, TheStackFollowsForgottenSteps) {
  QUndoStack& stack = *m_graph->undo_stack();
  hide(1);
  EXPECT_EQ(m_graph->derive("d", "a+b"), std::nullopt);
  hide(2);
  hide(3);
  m_graph->ChartOptions("undo");
  Matrix<Double> point(1, 3, 1, 1);
  point(1, 1) = 4;
  m_graph->append_points(point);
  EXPECT_THAT(commands(), ElementsAre("Hide Curve", "Hide Curve"));
  EXPECT_EQ(stack.index(), 1);
  EXPECT_FALSE(stack.isClean());
  stack.undo();
  EXPECT_TRUE(is_shown(2));
}

TEST_F(WidgetUndo, AHundredCommandsAreKept) {
  QUndoStack& stack = *m_graph->undo_stack();
  for (int i = 0; i < 105; ++i) {
    m_graph->make_step(QString::number(i), [=, this] { m_graph->set_xmin(-i - 1); });
  }
  EXPECT_EQ(stack.count(), 100);
  stack.setIndex(0);
  EXPECT_EQ(m_graph->xmin(), -5);
  EXPECT_EQ(control().undo_text(), std::nullopt);
}

TEST_F(WidgetUndo, ClearingTheStackForgetsTheSteps) {
  QUndoStack& stack = *m_graph->undo_stack();
  hide(1);
  stack.clear();
  EXPECT_EQ(control().undo_text(), std::nullopt);
  EXPECT_FALSE(control().undo());
}

TEST_F(WidgetUndo, TheStackIsCleanWhereTheGraphIsSaved) {
  const QTemporaryDir folder;
  QUndoStack& stack = *m_graph->undo_stack();
  hide(1);
  EXPECT_FALSE(stack.isClean());
  m_graph->save_to(folder.filePath("a.gdf").toStdString());
  EXPECT_TRUE(stack.isClean());
  hide(2);
  EXPECT_FALSE(stack.isClean());
  stack.undo();
  EXPECT_TRUE(stack.isClean());
  EXPECT_TRUE(m_graph->GraphSaved());
  m_graph->file_load(folder.filePath("a.gdf"));
  EXPECT_TRUE(stack.isClean());
  EXPECT_EQ(stack.count(), 0);
}

// It is a child of the widget, which Qt deletes after the graph.
TEST_F(WidgetUndo, TheStackIsEmptiedWhileThereIsAGraph) {
  QUndoStack& stack = *m_graph->undo_stack();
  hide(1);
  int emptied = 0;
  QObject::connect(&stack, &QUndoStack::indexChanged, [&] {
    ++emptied;
    auto* const graph = qobject_cast<KurvGraph*>(stack.parent());
    ASSERT_NE(graph, nullptr);
    EXPECT_FALSE(graph->GraphSaved());
    EXPECT_EQ(graph->undo_stack(), &stack);
    graph->build_the_graph();
  });
  int ended = 0;
  QObject::connect(m_graph.get(), &QObject::destroyed, [&] {
    ++ended;
    EXPECT_EQ(stack.count(), 0);
    stack.undo();
    stack.clear();
  });
  m_graph.reset();
  EXPECT_EQ(emptied, 1);
  EXPECT_EQ(ended, 1);
}

TEST_F(WidgetUndo, AGroupOfTheHostUndoesInTheActiveGraph) {
  QUndoGroup group;
  const std::unique_ptr<QAction> undo(group.createUndoAction(nullptr, "Undo"));
  OpenGraph other;
  other.plot(small_graph());
  group.addStack(other.undo_stack());
  group.addStack(m_graph->undo_stack());
  group.setActiveStack(m_graph->undo_stack());
  EXPECT_FALSE(undo->isEnabled());
  hide(1);
  EXPECT_EQ(undo->text(), "Undo Hide Curve");
  undo->trigger();
  EXPECT_TRUE(is_shown(1));
  m_graph.reset();
  EXPECT_EQ(group.stacks().size(), 1);
}

TEST_F(WidgetUndo, AFaultIsReportedAndTheStepIsUndoneAllTheSame) {
  QUndoStack& stack = *m_graph->undo_stack();
  Listener listener(*m_graph);
  hide(1);
  m_graph->set_NumTicks(0);
  stack.undo();
  process_all();
  EXPECT_THAT(listener.errors, ElementsAre(11));
  EXPECT_EQ(stack.index(), 0);
  EXPECT_TRUE(is_shown(1));
}

TEST_F(WidgetUndo, Keys) {
  m_graph->undo_stack();
  hide(1);
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(is_shown(1));
  key(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_FALSE(is_shown(1));
  key(Qt::Key_Z, Qt::ControlModifier);
  key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_FALSE(is_shown(1));
  m_graph->set_shortcuts_enabled(false);
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(is_shown(1));
}

TEST_F(WidgetUndo, TheMenuNamesTheSteps) {
  m_graph->undo_stack();
  hide(1);
  open_menu();
  ASSERT_NE(menu_entry("mnuUndo"), nullptr);
  EXPECT_EQ(menu_entry("mnuUndo")->text(), "&Undo Hide Curve");
  EXPECT_FALSE(menu_entry("mnuRedo")->isEnabled());
  menu_entry("mnuUndo")->trigger();
  QApplication::activePopupWidget()->close();
  process_all();
  EXPECT_TRUE(is_shown(1));
  open_menu();
  EXPECT_EQ(menu_entry("mnuRedo")->text(), "Redo Hide Curve");
  EXPECT_FALSE(menu_entry("mnuUndo")->isEnabled());
  QApplication::activePopupWidget()->close();
}

TEST_F(WidgetUndo, ArrowKeysMoveAnItemInOneStep) {
  m_graph->undo_stack();
  const Single left = m_graph->layout().picLegend.left;
  m_graph->view().focus_on(Item::kLegend);
  for (int i = 0; i < 5; ++i) key(Qt::Key_Right, {});
  EXPECT_THAT(commands(), ElementsAre("Move Legend"));
  m_graph->view().focus_on(Item::kTitle);
  key(Qt::Key_Down, {});
  m_graph->view().focus_on(Item::kLegend);
  key(Qt::Key_Right, {});
  EXPECT_THAT(commands(), ElementsAre("Move Legend", "Move Title", "Move Legend"));
  m_graph->undo_stack()->setIndex(0);
  EXPECT_EQ(m_graph->layout().picLegend.left, left);
}

}  // namespace
}  // namespace kurv::test
