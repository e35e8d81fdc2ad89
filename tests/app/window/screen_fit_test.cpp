// Windows on a screen that is too small for their usual sizes.
#include <QFontDialog>
#include <QScreen>
#include <QWindow>

#include "tests/app/window/window_fixture.h"

namespace kurv::app {
namespace {

std::string text_of(const QRect& rect) {
  return std::to_string(rect.width()) + 'x' + std::to_string(rect.height()) + " at " +
         std::to_string(rect.x()) + ',' + std::to_string(rect.y());
}

bool has_frame(const QWidget& window) {
  return window.windowHandle() && !window.windowHandle()->frameMargins().isNull();
}

// Once the window manager has put the frame around it, the window has to fit.
testing::AssertionResult fits(QWidget& window) {
  if (!QTest::qWaitFor([&] { return has_frame(window); }, 5000))
    return testing::AssertionFailure() << "there is no frame";
  QTest::qWait(100);
  const QRect screen = window.screen()->availableGeometry();
  const auto is_inside = [&] { return screen.contains(window.frameGeometry()); };
  if (QTest::qWaitFor(is_inside, 2000)) return testing::AssertionSuccess();
  return testing::AssertionFailure()
         << text_of(window.frameGeometry()) << " on a screen of " << text_of(screen);
}

// As large as the screen, so that nothing of it is wasted.
void expect_to_fill_screen(QWidget& window) {
  EXPECT_TRUE(fits(window));
  EXPECT_EQ(window.frameGeometry().size(), window.screen()->availableGeometry().size());
}

class ScreenFit : public Windows {
 protected:
  MainWindow* window_with(const std::string& file, const GraphChoice& choice) {
    auto* const made = new MainWindow(std::nullopt, {});
    made->show_graph(choice, load(file, choice));
    return made;
  }

  std::string graph_file_of(QSize size) {
    GraphChoice choice;
    choice.size = size;
    save_graph(choice, load(table(), {}), path("sized.gdf"));
    return path("sized.gdf");
  }

  // Opens a dialog by an entry of the menu.
  template <class Dialog>
  void expect_to_fit(MainWindow* window, const char* entry) {
    answer<Dialog>([entry](Dialog& dialog) {
      EXPECT_TRUE(fits(dialog)) << entry;
      dialog.reject();
    });
    press(window, entry);
  }
};

TEST_F(ScreenFit, AnEmptyWindowIsNotLargerThanTheScreen) {
  expect_to_fill_screen(*window());
}

TEST_F(ScreenFit, ATablesWindowIsNotLargerThanTheScreen) {
  expect_to_fill_screen(*window_with(table(), {}));
}

TEST_F(ScreenFit, ASizeThatIsAskedForIsLimitedByTheScreen) {
  GraphChoice choice;
  choice.size = QSize(3000, 2000);
  expect_to_fill_screen(*window_with(table(), choice));
  expect_to_fill_screen(*window_with(graph_file(), choice));
}

TEST_F(ScreenFit, AGraphFilesOwnSizeIsLimitedByTheScreen) {
  const std::string file = graph_file_of({3000, 2000});
  expect_to_fill_screen(*window_with(file, {}));
  MainWindow* const kurv = window();
  EXPECT_TRUE(fits(*kurv));
  EXPECT_TRUE(kurv->open(file));
  expect_to_fill_screen(*kurv);
}

TEST_F(ScreenFit, AWindowThatGrowsInACornerStaysOnTheScreen) {
  GraphChoice choice;
  choice.size = QSize(250, 150);
  MainWindow* const kurv = window_with(table(), choice);
  EXPECT_TRUE(fits(*kurv));
  kurv->move(kurv->screen()->availableGeometry().bottomRight() - QPoint(280, 240));
  QTest::qWait(100);
  EXPECT_TRUE(kurv->open(graph_file_of({450, 250})));
  EXPECT_TRUE(fits(*kurv));
}

TEST_F(ScreenFit, TheDialogsOfAGraphFit) {
  MainWindow* const kurv = window_of(graph_file());
  EXPECT_TRUE(fits(*kurv));
  expect_to_fit<QDialog>(kurv, "mnuCurves");
  for (const char* entry : {"mnuTable", "mnuDesign"}) {
    press(kurv, entry);
    QDialog* dialog = nullptr;
    for (QDialog* each : kurv->findChildren<QDialog*>()) {
      if (each->isVisible()) dialog = each;
    }
    ASSERT_NE(dialog, nullptr) << entry;
    EXPECT_TRUE(fits(*dialog)) << entry;
    dialog->reject();
    QTest::qWait(50);
  }
}

TEST_F(ScreenFit, TheDialogsAboutFilesFit) {
  MainWindow* const kurv = window_of(table());
  EXPECT_TRUE(fits(*kurv));
  for (const char* entry : {"mnuOpen", "mnuSaveAs", "mnuExportPicture"}) {
    expect_to_fit<QFileDialog>(kurv, entry);
  }
  for (const char* entry : {"mnuGettingStarted", "mnuAbout"}) {
    expect_to_fit<QMessageBox>(kurv, entry);
  }
  answer<ImportDialog>([](ImportDialog& dialog) {
    EXPECT_TRUE(fits(dialog));
    dialog.reject();
  });
  kurv->open(table());
}

TEST_F(ScreenFit, TheFontDialogFits) {
  MainWindow* const kurv = window_of(table());
  EXPECT_TRUE(fits(*kurv));
  answer<QFontDialog>([](QFontDialog& dialog) {
    EXPECT_TRUE(fits(dialog));
    dialog.reject();
  });
  press(kurv, "mnuTitles");
  kurv->findChild<QPushButton*>("cmdFonts_0")->click();
}

}  // namespace
}  // namespace kurv::app
