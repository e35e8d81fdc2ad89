// The window of the example with menus of its own, used from inside.
#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>
#include <set>

#define main own_menus_main
#include "examples/own_menus/main.cpp"
#undef main

namespace {

class OwnMenus : public testing::Test {
 protected:
  OwnMenus() { m_window.show(); }

  QAction& action(const char* name) { return *m_window.findChild<QAction*>(name); }
  void trigger(const char* name) {
    action(name).trigger();
    QApplication::processEvents();
  }
  bool is_enabled(const char* name) {
    QApplication::processEvents();
    return action(name).isEnabled();
  }

  QTemporaryDir m_folder;
  MenuWindow m_window;
};

constexpr const char* kGraphEntries[] = {"saveas", "print", "copy",   "refresh",
                                         "curves", "setup", "titles", "table"};

TEST_F(OwnMenus, WithoutAGraphOnlyOpeningIsPossible) {
  for (const char* name : kGraphEntries) EXPECT_FALSE(is_enabled(name)) << name;
  EXPECT_FALSE(is_enabled("save"));
  for (const char* name : {"example", "open", "quit"}) EXPECT_TRUE(is_enabled(name)) << name;
  EXPECT_FALSE(m_window.graph().toolbar_visible());
}

TEST_F(OwnMenus, AGraphEnablesTheEntries) {
  trigger("example");
  for (const char* name : kGraphEntries) EXPECT_TRUE(is_enabled(name)) << name;
  EXPECT_TRUE(is_enabled("save"));
}

TEST_F(OwnMenus, SaveIsEnabledWhileTheGraphIsNotSaved) {
  trigger("example");
  m_window.graph().save_to(m_folder.filePath("a.gdf").toStdString());
  EXPECT_FALSE(is_enabled("save"));
  EXPECT_TRUE(is_enabled("saveas"));
  m_window.graph().build_the_graph();
  EXPECT_TRUE(is_enabled("save"));
  trigger("save");
  EXPECT_FALSE(is_enabled("save"));
  EXPECT_TRUE(m_window.graph().GraphSaved());
}

TEST_F(OwnMenus, CommandsReachTheGraph) {
  trigger("example");
  int redraws = 0;
  QObject::connect(&m_window.graph(), &kurv::KurvGraph::redrawn, [&] { ++redraws; });
  trigger("refresh");
  EXPECT_EQ(redraws, 1);
}

TEST_F(OwnMenus, AFailedCommandIsShownWithItsFile) {
  trigger("example");
  const QString folder = m_folder.filePath("gone");
  ASSERT_TRUE(QDir().mkdir(folder));
  m_window.graph().save_to((folder + "/a.gdf").toStdString());
  m_window.graph().build_the_graph();
  ASSERT_TRUE(QDir(folder).removeRecursively());
  QString text;
  QTimer::singleShot(0, &m_window, [&] {
    QTimer::singleShot(50, &m_window, [&] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      text = box->text();
      box->accept();
    });
  });
  trigger("save");
  EXPECT_EQ(text, folder + "/a.gdf: Path not found");
  EXPECT_TRUE(is_enabled("save"));
}

TEST_F(OwnMenus, EachMenuHasDistinctMnemonics) {
  for (QMenu* const menu : m_window.menuBar()->findChildren<QMenu*>()) {
    std::set<QString> used;
    for (const QAction* entry : menu->actions()) {
      if (entry->isSeparator()) continue;
      const auto at = entry->text().indexOf('&');
      ASSERT_GE(at, 0) << entry->text().toStdString();
      EXPECT_TRUE(used.insert(entry->text().mid(at + 1, 1).toLower()).second)
          << entry->text().toStdString();
    }
  }
}

}  // namespace
