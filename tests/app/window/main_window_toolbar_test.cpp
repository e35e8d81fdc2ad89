// The graph's own buttons and menu in the main window.
#include <QClipboard>
#include <QMenu>
#include <QToolButton>

#include "tests/app/window/window_fixture.h"

namespace kurv::app {
namespace {

constexpr const char* kForAGraph[] = {"refresh", "save",   "saveas", "print",
                                      "copy",    "curves", "setup",  "table"};

class MainWindowToolbar : public Windows {
 protected:
  static QToolButton* button(MainWindow* window, const char* key) {
    auto* const found = window->graph().findChild<QToolButton*>(QStringLiteral("tbrGraph.") + key);
    EXPECT_NE(found, nullptr) << key;
    return found;
  }

  static void click(MainWindow* window, const char* key) {
    QTest::mouseClick(button(window, key), Qt::LeftButton);
    QApplication::processEvents();
    QApplication::processEvents();
  }

  static bool offers_a_menu(MainWindow* window) {
    QWidget* const plot = window->graph().childAt(window->graph().plot_rect().center());
    const QPoint middle = plot->rect().center();
    QTest::mousePress(plot, Qt::RightButton, {}, middle);
    QTest::mouseRelease(plot, Qt::RightButton, {}, middle);
    QTest::qWait(50);
    auto* const menu = window->graph().findChild<QMenu*>("mnuPlot");
    const bool came_up = menu && menu->isVisible();
    if (menu) menu->close();
    return came_up;
  }
};

TEST_F(MainWindowToolbar, OffersBeforeTheFirstGraphToOpenOneAndNothingElse) {
  MainWindow* const kurv = window();
  EXPECT_TRUE(button(kurv, "open")->isEnabled());
  for (const char* key : kForAGraph) {
    EXPECT_FALSE(button(kurv, key)->isEnabled()) << key;
    click(kurv, key);
  }
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_TRUE(QDir(m_folder.path()).entryList({"*.gdf"}).isEmpty());
}

TEST_F(MainWindowToolbar, OffersEverythingForAGraph) {
  MainWindow* const kurv = window_of(table());
  for (const char* key : kForAGraph) EXPECT_TRUE(button(kurv, key)->isEnabled()) << key;
}

TEST_F(MainWindowToolbar, OffersWhatTheMenuOffersForRefusedData) {
  QFile stored(QFile::decodeName(exact_graph_file().c_str()));
  ASSERT_TRUE(stored.open(QIODevice::ReadOnly));
  QByteArray bytes = stored.readAll();
  bytes.replace("\r\n1,2,3\r\n", "\r\n1,1,1\r\n");
  MainWindow* const kurv = window();
  click_box("OK");
  ASSERT_TRUE(kurv->open(written(path("flat.gdf"), bytes)));
  for (const char* key : {"save", "saveas", "curves", "setup", "table"}) {
    EXPECT_TRUE(button(kurv, key)->isEnabled()) << key;
  }
  for (const char* key : {"refresh", "print", "copy"}) {
    EXPECT_FALSE(button(kurv, key)->isEnabled()) << key;
  }
}

// A press may come from elsewhere, such as a screen reader, or be on its way when the graph goes.
TEST_F(MainWindowToolbar, DropsWhatTheMenuDoesNotOffer) {
  MainWindow* const kurv = window();
  for (const char* key : kForAGraph) {
    QAction& press = action(kurv, (std::string("tbrGraph.") + key).c_str());
    press.setEnabled(true);
    answer<QDialog>([](QDialog& dialog) { dialog.reject(); });
    press.trigger();
  }
  QTest::qWait(100);
  EXPECT_EQ(answers_left(), std::size(kForAGraph)) << "a dialog has come up";
  expect_nothing();
  for (const QWidget* widget : QApplication::topLevelWidgets()) {
    EXPECT_FALSE(widget->objectName().startsWith("frm") && widget->isVisible());
  }
}

TEST_F(MainWindowToolbar, SavesAndCopies) {
  MainWindow* const kurv = window_of(graph_file());
  change_title(kurv, "Kept");
  click(kurv, "save");
  EXPECT_TRUE(kurv->is_saved());
  QApplication::clipboard()->clear();
  click(kurv, "copy");
  EXPECT_FALSE(QApplication::clipboard()->image().isNull());
}

// What the graph's own "open" would do in place of it is to lose this graph without a question.
TEST_F(MainWindowToolbar, OpensAsTheWindowDoesAndLosesNothing) {
  MainWindow* const kurv = window_of(graph_file());
  change_title(kurv, "Unsaved");
  choose_file(graph_file("other.gdf"));
  click(kurv, "open");
  EXPECT_TRUE(QTest::qWaitFor([] { return all().size() == 2; }, 5000)) << "a window of its own";
  EXPECT_EQ(kurv->graph().Title(), "Unsaved");
}

TEST_F(MainWindowToolbar, ThePlotHasAMenuOnceThereIsSomethingToChange) {
  EXPECT_FALSE(offers_a_menu(window()));
  EXPECT_TRUE(offers_a_menu(window_of(table())));
}

}  // namespace
}  // namespace kurv::app
