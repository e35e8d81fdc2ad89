// Edit > Undo and Redo.
#include "tests/app/window/window_fixture.h"

namespace kurv::app {
namespace {

class MainWindowUndo : public Windows {
 protected:
  static void add_function(MainWindow* window) {
    EXPECT_EQ(window->graph().add_function("x^2"), std::nullopt);
  }
  static std::string text(MainWindow* window, const char* name) {
    return action(window, name).text().toStdString();
  }
};

TEST_F(MainWindowUndo, NothingThatHasMadeTheGraphCanBeUndone) {
  MainWindow* const empty = window();
  EXPECT_FALSE(action(empty, "mnuUndo").isEnabled());
  MainWindow* const kurv = window();
  GraphChoice choice;
  choice.functions = {"x"};
  kurv->show_graph(choice, load(table(), choice));
  EXPECT_FALSE(action(kurv, "mnuUndo").isEnabled());
  EXPECT_EQ(text(kurv, "mnuUndo"), "&Undo");
}

TEST_F(MainWindowUndo, TheMenuNamesTheStep) {
  MainWindow* const kurv = window_of(table());
  add_function(kurv);
  EXPECT_EQ(text(kurv, "mnuUndo"), "&Undo Add Function");
  press(kurv, "mnuUndo");
  EXPECT_TRUE(kurv->graph().functions().empty());
  EXPECT_EQ(text(kurv, "mnuRedo"), "&Redo Add Function");
  press(kurv, "mnuRedo");
  EXPECT_EQ(kurv->graph().functions().size(), 1u);
}

TEST_F(MainWindowUndo, HasKeys) {
  MainWindow* const kurv = window_of(table());
  QApplication::setActiveWindow(kurv);
  add_function(kurv);
  const auto key = [kurv](Qt::Key pressed, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(kurv, pressed, modifiers);
    QApplication::processEvents();
    return kurv->graph().functions().size();
  };
  EXPECT_EQ(key(Qt::Key_Z, Qt::ControlModifier), 0u);
  EXPECT_EQ(key(Qt::Key_Y, Qt::ControlModifier), 1u);
  EXPECT_EQ(key(Qt::Key_Z, Qt::ControlModifier), 0u);
  EXPECT_EQ(key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier), 1u);
}

TEST_F(MainWindowUndo, TheSavedGraphShowsNoChanges) {
  MainWindow* const kurv = window_of(graph_file());
  add_function(kurv);
  EXPECT_TRUE(becomes_modified(kurv, true));
  press(kurv, "mnuUndo");
  EXPECT_TRUE(becomes_modified(kurv, false));
  press(kurv, "mnuRedo");
  press(kurv, "mnuSave");
  EXPECT_TRUE(becomes_modified(kurv, false));
  press(kurv, "mnuUndo");
  EXPECT_TRUE(becomes_modified(kurv, true));
}

TEST_F(MainWindowUndo, AnotherGraphHasAHistoryOfItsOwn) {
  MainWindow* const kurv = window_of(table());
  add_function(kurv);
  kurv->show_graph({}, load(table(), {}));
  EXPECT_FALSE(action(kurv, "mnuUndo").isEnabled());
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  add_function(kurv);
  press(kurv, "mnuUndo");
  EXPECT_TRUE(kurv->graph().functions().empty());
}

}  // namespace
}  // namespace kurv::app
