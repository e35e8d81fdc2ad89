// What a main window shows and asks.
#include <QMenu>

#include "tests/app/window/window_fixture.h"

namespace kurv::app {
namespace {

using testing::HasSubstr;

QString hint_of(MainWindow* window) {
  const auto* const hint = window->findChild<QLabel*>("lblHint");
  return hint->isVisible() ? hint->text() : QString();
}

class MainWindowTest : public Windows {};

TEST_F(MainWindowTest, AnEmptyOneSaysWhatToDoAndOffersNothingElse) {
  MainWindow* const kurv = window();
  EXPECT_EQ(hint_of(kurv), "Open or drop a table or a graph file here");
  EXPECT_EQ(kurv->windowTitle(), "kurv");
  for (const char* name : {"mnuSave", "mnuSaveAs", "mnuExportPicture", "mnuPrint", "mnuCopy",
                           "mnuTable", "mnuCurves", "mnuTitles", "mnuDesign", "mnuRefresh"}) {
    EXPECT_FALSE(action(kurv, name).isEnabled()) << name;
  }
  for (const char* name : {"mnuNewWindow", "mnuOpen", "mnuClose", "mnuQuit", "mnuAbout"}) {
    EXPECT_TRUE(action(kurv, name).isEnabled()) << name;
  }
}

TEST_F(MainWindowTest, ATableThatIsLookedAtOnlyClosesWithoutAQuestion) {
  const QPointer<MainWindow> kurv = window_of(table());
  EXPECT_EQ(hint_of(kurv), "");
  EXPECT_TRUE(action(kurv, "mnuSave").isEnabled());
  EXPECT_EQ(kurv->windowTitle(), QStringLiteral("small.csv[*] \u2013 kurv"));
  EXPECT_FALSE(kurv->isWindowModified());
  EXPECT_TRUE(kurv->close());
}

TEST_F(MainWindowTest, AChangeMarksTheTitleAndTakenBackUnmarksIt) {
  MainWindow* const kurv = window_of(graph_file());
  EXPECT_FALSE(kurv->isWindowModified());
  change_title(kurv, "Other");
  EXPECT_TRUE(becomes_modified(kurv, true));
  change_title(kurv, "small");
  EXPECT_TRUE(becomes_modified(kurv, false));
}

TEST_F(MainWindowTest, ResizingIsNoChange) {
  MainWindow* const kurv = window_of(graph_file());
  kurv->resize(kurv->size() + QSize(120, 80));
  QTest::qWait(400);
  EXPECT_FALSE(kurv->graph().GraphSaved()) << "the graph itself counts a resize as a change";
  EXPECT_TRUE(kurv->is_saved());
  EXPECT_FALSE(kurv->isWindowModified());
}

TEST_F(MainWindowTest, MovedTitlesOfAGraphFileComeBackWhereTheyWere) {
  const std::string file = graph_file();
  QFile stored(QFile::decodeName(file.c_str()));
  ASSERT_TRUE(stored.open(QIODevice::ReadWrite));
  QList<QByteArray> lines = stored.readAll().split('\n');
  lines[15] = " 3000 \r";  // where the title begins
  stored.seek(0);
  stored.write(lines.join('\n'));
  stored.resize(stored.pos());
  stored.close();
  MainWindow* const kurv = window_of(file);
  QTest::qWait(50);
  std::string text;
  kurv->graph().graph_text([&](std::string_view piece) { text += piece; });
  EXPECT_THAT(text, HasSubstr("\r\n 3000 \r\n"));
  EXPECT_FALSE(kurv->isWindowModified());
}

TEST_F(MainWindowTest, AChangeFromTheCommandLineIsAChangeOfTheFile) {
  GraphChoice choice;
  choice.title = "From the command line";
  MainWindow* const kurv = window();
  kurv->show_graph(choice, load(graph_file(), choice));
  EXPECT_TRUE(kurv->isWindowModified());
}

TEST_F(MainWindowTest, SaveWritesToTheFileAndUnmarksTheTitle) {
  MainWindow* const kurv = window_of(graph_file());
  change_title(kurv, "Kept");
  ASSERT_TRUE(becomes_modified(kurv, true));
  press(kurv, "mnuSave");
  EXPECT_FALSE(kurv->isWindowModified());
  EXPECT_EQ(window_of(path("small.gdf"))->graph().Title(), "Kept");
}

TEST_F(MainWindowTest, ASaveByTheGraphItselfCountsToo) {
  MainWindow* const kurv = window_of(graph_file());
  change_title(kurv, "Kept");
  ASSERT_TRUE(becomes_modified(kurv, true));
  kurv->graph().Save_graph();
  EXPECT_TRUE(becomes_modified(kurv, false));
}

TEST_F(MainWindowTest, SavingATableAsksForAGraphFileAndTakesItsName) {
  MainWindow* const kurv = window_of(table());
  choose_file(path("new.gdf"));
  press(kurv, "mnuSave");
  EXPECT_EQ(kurv->graph().FileName(), path("new.gdf"));
  QTest::qWait(20);
  EXPECT_EQ(kurv->windowTitle(), QStringLiteral("new.gdf[*] \u2013 kurv"));
  EXPECT_TRUE(QFile::exists(m_folder.filePath("new.gdf")));
}

TEST_F(MainWindowTest, ATableInPlaceOfAGraphFileIsNeverSavedOverIt) {
  MainWindow* const kurv = window_of(graph_file());
  kurv->show_graph({}, load(table(), {}));
  EXPECT_EQ(kurv->graph().FileName(), "");
}

TEST_F(MainWindowTest, ClosingAsksAndCancelKeepsTheWindow) {
  const QPointer<MainWindow> kurv = window_of(graph_file());
  change_title(kurv, "Other");
  QString text;
  click_box("&Cancel", &text);
  EXPECT_FALSE(kurv->close());
  EXPECT_TRUE(kurv->isVisible());
  EXPECT_EQ(text, "The graph small.gdf has changes that are not saved.");
}

TEST_F(MainWindowTest, ClosingWithoutSavingLosesTheChange) {
  const std::string file = graph_file();
  const QPointer<MainWindow> kurv = window_of(file);
  change_title(kurv, "Other");
  click_box("&Don't Save");
  EXPECT_TRUE(kurv->close());
  EXPECT_EQ(window_of(file)->graph().Title(), "small");
}

TEST_F(MainWindowTest, ClosingWithSavingKeepsTheChange) {
  const std::string file = graph_file();
  const QPointer<MainWindow> kurv = window_of(file);
  change_title(kurv, "Other");
  click_box("&Save");
  EXPECT_TRUE(kurv->close());
  EXPECT_EQ(window_of(file)->graph().Title(), "Other");
}

TEST_F(MainWindowTest, ASaveThatIsCancelledKeepsTheWindowOpen) {
  const QPointer<MainWindow> kurv = window_of(table());
  change_title(kurv, "Other");
  click_box("&Save");
  answer<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_FALSE(kurv->close());
  EXPECT_TRUE(kurv->isVisible());
}

TEST_F(MainWindowTest, ASaveThatFailsIsSaidAndKeepsTheWindowOpen) {
  QDir(m_folder.path()).mkdir("gone");
  const QPointer<MainWindow> kurv = window_of(graph_file("gone/small.gdf"));
  change_title(kurv, "Other");
  ASSERT_TRUE(QDir(m_folder.filePath("gone")).removeRecursively());
  click_box("&Save");
  QString text;
  click_box("OK", &text);
  EXPECT_FALSE(kurv->close());
  EXPECT_EQ(text, "small.gdf cannot be written: there is no such folder; choose another folder.");
}

TEST_F(MainWindowTest, OneQuestionIsEnoughAlsoWhereTheGraphHasItsOwn) {
  const QPointer<MainWindow> kurv = window_of(graph_file());
  kurv->graph().set_QueryForSave(true);
  change_title(kurv, "Other");
  click_box("&Don't Save");
  EXPECT_TRUE(kurv->close());
  QTest::qWait(100);
  EXPECT_FALSE(kurv);
}

TEST_F(MainWindowTest, QuitStopsAtTheWindowThatIsToStay) {
  const QPointer<MainWindow> first = window_of(graph_file());
  change_title(first, "Other");
  click_box("&Cancel");
  press(first, "mnuQuit");
  EXPECT_TRUE(first && first->isVisible());
}

TEST_F(MainWindowTest, AFunctionWithACommaIsWarnedOfWhenItIsSaved) {
  MainWindow* const kurv = window_of(graph_file());
  ASSERT_EQ(kurv->graph().add_function("max(x,2)"), std::nullopt);
  click_box("&Save Anyway");
  press(kurv, "mnuSave");
  EXPECT_THAT(said,
              testing::ElementsAre(
                  "warning: a graph file splits the function \"max(x,2)\" at its comma, so it "
                  "does not come back as it is."));
  change_title(kurv, "Again");
  press(kurv, "mnuSave");
  EXPECT_EQ(said.size(), 1u) << "it has been said";
}

TEST_F(MainWindowTest, ARunTimeErrorIsSaidWithTheFile) {
  MainWindow* const kurv = window_of(graph_file());
  QString text;
  click_box("OK", &text);
  Q_EMIT kurv->graph().runTimeError(6, "Overflow");
  EXPECT_EQ(text,
            "small.gdf cannot be drawn: a number is too large; check the limits, the "
            "margins and the sizes.");
}

TEST_F(MainWindowTest, AWindowThatGoesTakesItsBoxesAlong) {
  for (const char* entry : {"mnuAbout", "mnuGettingStarted"}) {
    const QPointer<MainWindow> kurv = window();
    answer<QMessageBox>([&](QMessageBox&) { delete kurv.data(); });
    press(kurv, entry);
    EXPECT_FALSE(kurv) << entry;
  }
  const QPointer<MainWindow> failing = window();
  answer<QMessageBox>([&](QMessageBox&) { delete failing.data(); });
  EXPECT_FALSE(failing->open(path("missing.gdf")));
  EXPECT_FALSE(failing);
  const QPointer<MainWindow> warning = window_of(graph_file());
  ASSERT_EQ(warning->graph().add_function("max(x,2)"), std::nullopt);
  answer<QMessageBox>([&](QMessageBox&) { delete warning.data(); });
  press(warning, "mnuSave");
  EXPECT_FALSE(warning);
}

TEST_F(MainWindowTest, EveryMenuEntryHasAMnemonicOfItsOwnAndAName) {
  MainWindow* const kurv = window();
  for (const QMenu* menu : kurv->findChildren<QMenu*>()) {
    QSet<QString> keys;
    for (const QAction* entry : menu->actions()) {
      if (entry->isSeparator()) continue;
      const QString key = QKeySequence::mnemonic(entry->text()).toString();
      EXPECT_FALSE(key.isEmpty()) << entry->text().toStdString();
      EXPECT_FALSE(keys.contains(key)) << entry->text().toStdString();
      keys.insert(key);
      EXPECT_TRUE(entry->menu() || entry->objectName().startsWith("mnu"));
    }
  }
}

TEST_F(MainWindowTest, AHiddenToolbarStaysHiddenForTheNextFile) {
  MainWindow* const kurv = window_of(graph_file());
  EXPECT_TRUE(kurv->graph().property("toolbar_visible").toBool());
  press(kurv, "mnuShowToolbar");
  EXPECT_FALSE(kurv->graph().property("toolbar_visible").toBool());
  kurv->show_graph({}, load(table(), {}));
  EXPECT_FALSE(kurv->graph().property("toolbar_visible").toBool());
}

TEST_F(MainWindowTest, TheToolbarsHelpIsTheMenus) {
  MainWindow* const kurv = window();
  QString text;
  click_box("OK", &text);
  kurv->findChild<QAction*>("tbrGraph.help")->trigger();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !text.isEmpty(); }, 5000));
  EXPECT_THAT(text.toStdString(), HasSubstr("Double-click"));
}

}  // namespace
}  // namespace kurv::app
