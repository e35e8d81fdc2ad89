// What the status bar says, and how long.
#include <QClipboard>
#include <QMimeData>
#include <QStatusBar>
#include <QStatusTipEvent>

#include "tests/app/window/window_fixture.h"

namespace kurv::app {
namespace {

class MainWindowStatus : public Windows {
 protected:
  static QString status(MainWindow* window) { return window->statusBar()->currentMessage(); }
  static void show_tip(MainWindow* window, const QString& text) {
    QStatusTipEvent tip(text);
    QApplication::sendEvent(window, &tip);
  }
};

TEST_F(MainWindowStatus, ANoteStandsForFiveSeconds) {
  MainWindow* const kurv = window_of(table());
  press(kurv, "mnuCopy");
  EXPECT_EQ(status(kurv), "Copied");
  EXPECT_TRUE(QApplication::clipboard()->mimeData()->hasImage());
  QTest::qWait(4000);
  EXPECT_EQ(status(kurv), "Copied");
  EXPECT_TRUE(QTest::qWaitFor([&] { return status(kurv).isEmpty(); }, 3000));
}

TEST_F(MainWindowStatus, ANoteIsBelowTheTipOfAMenu) {
  MainWindow* const kurv = window_of(table());
  press(kurv, "mnuCopy");
  show_tip(kurv, "Print the graph");
  EXPECT_EQ(status(kurv), "Print the graph");
  show_tip(kurv, "");
  EXPECT_EQ(status(kurv), "Copied");
}

TEST_F(MainWindowStatus, ANoteCoversALastingMessageThatComesAfterIt) {
  MainWindow* const kurv = window_of(table());
  kurv->show_status("small.csv: 3 rows");
  press(kurv, "mnuCopy");
  kurv->show_status("small.csv has ended after 3 rows.");
  EXPECT_EQ(status(kurv), "Copied");
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return status(kurv) == "small.csv has ended after 3 rows."; }, 8000));
  press(kurv, "mnuCopy");
  kurv->show_status("");
  EXPECT_EQ(status(kurv), "Copied");
}

TEST_F(MainWindowStatus, TheLastingMessageComesBackAfterANote) {
  MainWindow* const kurv = window_of(table());
  kurv->show_status("small.csv has ended after 3 rows.");
  press(kurv, "mnuCopy");
  EXPECT_EQ(status(kurv), "Copied");
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return status(kurv) == "small.csv has ended after 3 rows."; }, 8000));
  show_tip(kurv, "Print the graph");
  show_tip(kurv, "");
  EXPECT_EQ(status(kurv), "small.csv has ended after 3 rows.");
  kurv->show_status("");
  EXPECT_EQ(status(kurv), "");
}

TEST_F(MainWindowStatus, ASaveIsSaidWhereItHasWritten) {
  MainWindow* const kurv = window_of(table());
  answer<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
  press(kurv, "mnuSave");
  EXPECT_EQ(status(kurv), "");
  choose_file(path("saved.gdf"));
  press(kurv, "mnuSave");
  EXPECT_EQ(status(kurv), "Saved: " + m_folder.filePath("saved.gdf"));
  choose_file(path("picture.bmp"), 1);
  MainWindow* const other = window_of(table());
  press(other, "mnuSaveAs");
  EXPECT_EQ(status(other), "") << "a picture is no saved graph";
}

TEST_F(MainWindowStatus, APrintIsSaidWhenItIsPrinted) {
  MainWindow* const kurv = window_of(table());
  Q_EMIT kurv->graph().printed("");
  EXPECT_EQ(status(kurv), "Printed");
  Q_EMIT kurv->graph().printed("/somewhere/page.pdf");
  EXPECT_EQ(status(kurv), "Printed: /somewhere/page.pdf");
}

// -- Names that are proposed ----------------------------------------------------------------------

TEST_F(MainWindowStatus, TheFirstSaveProposesTheNameOfTheTable) {
  MainWindow* const kurv = window_of(table());
  for (const char* entry : {"mnuSave", "mnuSaveAs"}) {
    answer<QFileDialog>([&](QFileDialog& dialog) {
      EXPECT_EQ(dialog.directory().path(), m_folder.path());
      EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "small.gdf");
      dialog.reject();
    });
    press(kurv, entry);
  }
}

TEST_F(MainWindowStatus, TheFirstSaveProposesTheFolderOfARelativePath) {
  ASSERT_TRUE(QDir(m_folder.path()).mkdir("tables"));
  written(path("tables/small.csv"), "x,y\n1,2\n2,3\n");
  const QString before = QDir::currentPath();
  ASSERT_TRUE(QDir::setCurrent(m_folder.path()));
  MainWindow* const kurv = window_of("tables/small.csv");
  answer<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().path(), m_folder.filePath("tables"));
    EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "small.gdf");
    dialog.reject();
  });
  press(kurv, "mnuSave");
  QDir::setCurrent(before);
}

TEST_F(MainWindowStatus, AnExistingFileUnderTheProposedNameIsAskedAbout) {
  MainWindow* const kurv = window_of(table());
  written(path("small.gdf"), "old");
  // The question comes inside of the key's event, and no answer inside of another one.
  answer<QFileDialog>([](QFileDialog& dialog) {
    QTimer::singleShot(0, &dialog, [&dialog] { QTest::keyClick(&dialog, Qt::Key_Return); });
  });
  answer<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
  answer<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
  press(kurv, "mnuSave");
  QFile file(m_folder.filePath("small.gdf"));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(), "old");
}

TEST_F(MainWindowStatus, TheContextMenuHasTheActionsOfTheWindow) {
  MainWindow* const kurv = window_of(table());
  EXPECT_TRUE(kurv->graph().extended_menu());
  QStringList names;
  for (const QAction* one : kurv->graph().actions()) names << one->objectName();
  EXPECT_EQ(names, (QStringList{"mnuCopy", "mnuExportPicture", "mnuPrint"}));
}

}  // namespace
}  // namespace kurv::app
