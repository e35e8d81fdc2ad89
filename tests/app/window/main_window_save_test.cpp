// What a main window counts as unsaved, and that saving keeps all of it.
#include <QAbstractItemModel>
#include <QTableView>

#include "tests/app/window/window_fixture.h"

namespace kurv::app {
namespace {

using testing::HasSubstr;

class MainWindowSave : public Windows {
 protected:
  double saved_xmax() { return window_of(path("small.gdf"))->graph().xmax(); }

  // A graph that counts as saved to itself, and has a limit that was set and not drawn.
  MainWindow* with_limit_not_drawn() {
    MainWindow* const kurv = window_of(graph_file());
    press(kurv, "mnuSave");
    QTest::qWait(20);
    kurv->graph().set_xmax(77);
    EXPECT_TRUE(kurv->graph().GraphSaved());
    return kurv;
  }

  static void let_it_see(MainWindow* window) {
    Q_EMIT window->graph().changed();
    QApplication::processEvents();
  }
};

TEST_F(MainWindowSave, WritesWhatIsSetAndNotDrawn) {
  MainWindow* const kurv = with_limit_not_drawn();
  press(kurv, "mnuSave");
  EXPECT_TRUE(kurv->is_saved());
  EXPECT_FALSE(kurv->isWindowModified());
  EXPECT_EQ(saved_xmax(), 77);
}

TEST_F(MainWindowSave, OfTheToolbarWritesWhatIsSetAndNotDrawn) {
  MainWindow* const kurv = with_limit_not_drawn();
  QTest::mouseClick(kurv->findChild<QWidget*>("tbrGraph.save"), Qt::LeftButton);
  EXPECT_TRUE(QTest::qWaitFor([&] { return kurv->is_saved(); }, 5000));
  EXPECT_EQ(saved_xmax(), 77);
}

TEST_F(MainWindowSave, BeforeClosingWritesWhatIsSetAndNotDrawn) {
  MainWindow* const kurv = with_limit_not_drawn();
  click_box("&Save");
  EXPECT_TRUE(kurv->close());
  EXPECT_EQ(saved_xmax(), 77);
}

TEST_F(MainWindowSave, ThatFailsIsSaidAndKeepsTheWindowOpenAlsoForWhatIsNotDrawn) {
  QDir(m_folder.path()).mkdir("gone");
  MainWindow* const kurv = window_of(graph_file("gone/small.gdf"));
  press(kurv, "mnuSave");
  kurv->graph().set_xmax(77);
  ASSERT_TRUE(QDir(m_folder.filePath("gone")).removeRecursively());
  click_box("&Save");
  QString text;
  click_box("OK", &text);
  EXPECT_FALSE(kurv->close());
  EXPECT_EQ(text, "small.gdf cannot be written: there is no such folder; choose another folder.");
}

TEST_F(MainWindowSave, UnderAnotherNameThatFailsIsSaidWithThatName) {
  MainWindow* const kurv = window_of(table());
  for (const char* entry : {"mnuSave", "mnuSaveAs"}) {
    choose_file(path("gone/other.gdf"));
    QString text;
    click_box("OK", &text);
    press(kurv, entry);
    EXPECT_EQ(text, m_folder.filePath("gone/other.gdf") +
                        " cannot be written: there is no such folder; choose another folder.")
        << entry;
  }
}

TEST_F(MainWindowSave, ATableThatFailsIsSaidWithItsName) {
  MainWindow* const kurv = window_of(table());
  QString text;
  click_box("OK", &text);
  Q_EMIT kurv->graph().runTimeError(76, "/gone/small.txt: Path not found");
  EXPECT_EQ(text,
            "/gone/small.txt cannot be written: there is no such folder; choose another folder.");
}

// The control's own command would not ask about the comma.
TEST_F(MainWindowSave, OfTheTableIsThatOfTheWindow) {
  MainWindow* const kurv = window_of(graph_file());
  ASSERT_EQ(kurv->graph().add_function("max(x,2)"), std::nullopt);
  kurv->graph().build_the_graph();
  press(kurv, "mnuTable");
  click_box("&Save Anyway");
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->objectName() != "frmTable" || !widget->isVisible()) continue;
    widget->findChild<QAction*>("mnuSave")->trigger();
  }
  EXPECT_TRUE(QTest::qWaitFor([&] { return kurv->is_saved(); }, 5000));
  EXPECT_EQ(said.size(), 1u);
}

TEST_F(MainWindowSave, TheTitleIsMarkedForWhatIsNotDrawn) {
  MainWindow* const kurv = with_limit_not_drawn();
  QTest::qWait(300);
  Q_EMIT kurv->graph().changed();
  EXPECT_TRUE(becomes_modified(kurv, true));
}

// A graph file whose x values are all the same.
class RefusedData : public MainWindowSave {
 protected:
  MainWindow* flat() {
    QFile stored(QFile::decodeName(exact_graph_file().c_str()));
    EXPECT_TRUE(stored.open(QIODevice::ReadOnly));
    QByteArray bytes = stored.readAll();
    bytes.replace("\r\n1,2,3\r\n", "\r\n1,1,1\r\n");
    MainWindow* const kurv = window();
    click_box("OK");
    EXPECT_TRUE(kurv->open(written(path("flat.gdf"), bytes)));
    return kurv;
  }

  // In the table, as a person types it.
  static void edit_x(MainWindow* kurv, int row, const QString& text) {
    press(kurv, "mnuTable");
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* const grid = widget->findChild<QTableView*>("grdTable");
      if (!grid || !widget->isVisible()) continue;
      EXPECT_TRUE(grid->model()->setData(grid->model()->index(row, 0), text));
      QApplication::processEvents();
      return;
    }
    ADD_FAILURE() << "the table has not opened";
  }

  static QLabel& hint(MainWindow* kurv) { return *kurv->findChild<QLabel*>("lblHint"); }
};

TEST_F(RefusedData, AreSaidWithWhatHelps) {
  MainWindow* const kurv = flat();
  EXPECT_TRUE(hint(kurv).isVisible());
  EXPECT_EQ(hint(kurv).text(),
            "Nothing is shown: the data of flat.gdf cannot be plotted.\n\n"
            "Correct them in Edit > Data Table: at least two points need different values of x.");
  EXPECT_TRUE(action(kurv, "mnuTable").isEnabled());
  EXPECT_FALSE(action(kurv, "mnuPrint").isEnabled());
}

TEST_F(RefusedData, ComeUpWhenTheTableHasMendedThem) {
  MainWindow* const kurv = flat();
  edit_x(kurv, 2, "4");
  let_it_see(kurv);
  EXPECT_TRUE(kurv->graph().has_graph());
  EXPECT_FALSE(hint(kurv).isVisible());
  EXPECT_TRUE(action(kurv, "mnuPrint").isEnabled());
  EXPECT_EQ(kurv->graph().xmax(), 4);
  EXPECT_TRUE(becomes_modified(kurv, true));
  press(kurv, "mnuSave");
  EXPECT_EQ(window_of(path("flat.gdf"))->graph().xmax(), 4);
}

TEST_F(RefusedData, StayAwayWhileTheyCannotBePlotted) {
  MainWindow* const kurv = flat();
  kurv->graph().set_Title("Other");
  let_it_see(kurv);
  EXPECT_FALSE(kurv->graph().has_graph());
  EXPECT_TRUE(hint(kurv).isVisible());
}

TEST_F(RefusedData, CanBeSavedAsTheyAre) {
  MainWindow* const kurv = flat();
  kurv->graph().set_Title("Kept");
  press(kurv, "mnuSave");
  EXPECT_TRUE(kurv->is_saved());
  choose_file(path("copy.gdf"));
  press(kurv, "mnuSaveAs");
  MainWindow* const again = window();
  click_box("OK");
  EXPECT_TRUE(again->open(path("copy.gdf")));
  EXPECT_EQ(again->graph().Title(), "Kept");
}

TEST_F(RefusedData, AnEmptyWindowHasNoneToShow) {
  MainWindow* const kurv = window();
  let_it_see(kurv);
  EXPECT_FALSE(kurv->graph().has_graph());
}

}  // namespace
}  // namespace kurv::app
