// Windows on a screen that is too small for their usual sizes.
#include <KurvGraph/screen_fit.h>

#include <QDialogButtonBox>
#include <QInputDialog>
#include <QScreen>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QWindow>

#include "app/window/export_dialog.h"
#include "app/window/window_message.h"
#include "qt/widget/font_dialog.h"
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

// Once the window manager has put the frame around it, the window has to fit. The frame that
// QWidget::frameGeometry() goes by is at times an old one.
testing::AssertionResult fits(QWidget& window) {
  if (!QTest::qWaitFor([&] { return has_frame(window); }, 5000))
    return testing::AssertionFailure() << "there is no frame";
  QTest::qWait(100);
  const QRect screen = window.screen()->availableGeometry();
  const auto is_inside = [&] { return screen.contains(window.windowHandle()->frameGeometry()); };
  if (QTest::qWaitFor(is_inside, 2000)) return testing::AssertionSuccess();
  return testing::AssertionFailure() << text_of(window.windowHandle()->frameGeometry())
                                     << " on a screen of " << text_of(screen);
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

  // What is entered in the prompts after a button of the curves window was pressed; the last prompt
  // is cancelled. Each has to fit.
  void expect_prompts_to_fit(MainWindow* window, const char* button, const QStringList& entered,
                             bool is_refused = false) {
    answer<QDialog>([button](QDialog& curves) {
      auto* const found = curves.findChild<QPushButton*>(button);
      if (!found->isVisible()) curves.findChild<QTabWidget*>("tabCurves")->setCurrentIndex(1);
      QTimer::singleShot(0, found, &QPushButton::click);
    });
    for (const QString& text : entered) {
      answer<QInputDialog>([button, text](QInputDialog& prompt) {
        EXPECT_TRUE(fits(prompt)) << button;
        expect_usable(prompt);
        prompt.setTextValue(text);
        text.isEmpty() ? prompt.reject() : prompt.accept();
      });
    }
    if (is_refused) expect_message_to_fit();
    answer<QDialog>([](QDialog& curves) { curves.reject(); });
    press(window, "mnuCurves");
  }

  void expect_message_to_fit() {
    answer<QMessageBox>([](QMessageBox& box) {
      EXPECT_TRUE(fits(box)) << box.text().toStdString();
      expect_usable(box);
      box.reject();
    });
  }

  // All of a text can be read, and the buttons be reached.
  static void expect_usable(const QDialog& dialog) {
    for (const QTextEdit* text : dialog.findChildren<QTextEdit*>()) {
      const QScrollBar* const bar = text->verticalScrollBar();
      EXPECT_TRUE(bar->maximum() == 0 || bar->isVisible()) << text->toPlainText().toStdString();
    }
    for (const QAbstractButton* button :
         dialog.findChild<QDialogButtonBox*>()->findChildren<QAbstractButton*>()) {
      EXPECT_TRUE(button->isVisible());
      EXPECT_EQ(button->visibleRegion().boundingRect(), button->rect());
    }
  }
};

// A window manager that is still opening a window may answer to the size before the last one.
TEST_F(ScreenFit, AnEarlierSizeThatComesLateIsNotKept) {
  QWidget window;
  fit_to_screen(window);
  window.resize(300, 180);
  window.show();
  window.resize(200, 150);
  ASSERT_TRUE(QTest::qWaitFor([&] { return has_frame(window); }, 5000));
  window.windowHandle()->resize(300, 180);
  ASSERT_TRUE(QTest::qWaitFor([&] { return window.width() == 300; }, 2000));
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.size() == QSize(200, 150); }, 2000));
}

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
  for (const char* entry : {"mnuOpen", "mnuSaveAs"}) expect_to_fit<QFileDialog>(kurv, entry);
  answer<ExportDialog>([](ExportDialog& dialog) {
    EXPECT_TRUE(fits(dialog));
    dialog.accept();
  });
  expect_to_fit<QFileDialog>(kurv, "mnuExportPicture");
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
  answer<FontDialog>([](FontDialog& dialog) {
    EXPECT_TRUE(fits(dialog));
    dialog.reject();
  });
  press(kurv, "mnuTitles");
  kurv->findChild<QPushButton*>("cmdFonts_0")->click();
}

TEST_F(ScreenFit, ThePromptsOfTheCurvesFit) {
  MainWindow* const kurv = window_of(graph_file());
  EXPECT_TRUE(fits(*kurv));
  for (const char* button : {"cmdXLabel", "cmdYTitle", "cmdAddScatter", "cmdAddFunc"}) {
    expect_prompts_to_fit(kurv, button, {""});
  }
  expect_prompts_to_fit(kurv, "cmdAddScatter", {"new", ""});
}

TEST_F(ScreenFit, AMessageAboutALongNameFits) {
  MainWindow* const kurv = window_of(graph_file());
  EXPECT_TRUE(fits(*kurv));
  expect_prompts_to_fit(kurv, "cmdAddFunc", {QString(150, 'm')}, true);
}

TEST_F(ScreenFit, MessagesAboutALongFileNameFit) {
  const std::string name = std::string(200, 'm') + ".gdf";
  MainWindow* const kurv = window_of(graph_file(name.c_str()));
  EXPECT_TRUE(fits(*kurv));
  change_title(kurv, "Other");
  expect_message_to_fit();
  EXPECT_FALSE(kurv->close());
  expect_message_to_fit();
  EXPECT_FALSE(kurv->open(path((std::string(200, 'w') + ".csv").c_str())));
}

// All of the text can be read by scrolling.
TEST_F(ScreenFit, AMessageHigherThanTheScreenScrolls) {
  MainWindow* const kurv = window();
  EXPECT_TRUE(fits(*kurv));
  answer<QMessageBox>([](QMessageBox& box) {
    EXPECT_TRUE(fits(box));
    expect_usable(box);
    box.reject();
  });
  show_message(kurv, QMessageBox::Warning, "kurv",
               QString("A line of the message.\n").repeated(99));
}

// The buttons stay in sight while the fields scroll.
TEST_F(ScreenFit, TheButtonsOfTheDialogsStayInSight) {
  MainWindow* const kurv = window_of(graph_file());
  EXPECT_TRUE(fits(*kurv));
  const auto expect_in_sight = [](const QDialog& dialog, const char* name) {
    const auto* const button = dialog.findChild<QPushButton*>(name);
    EXPECT_EQ(button->visibleRegion().boundingRect(), button->rect()) << name;
  };
  answer<QDialog>([&](QDialog& curves) {
    EXPECT_TRUE(fits(curves));
    expect_in_sight(curves, "cmdClose");
    curves.reject();
  });
  press(kurv, "mnuCurves");
  answer<ImportDialog>([&](ImportDialog& dialog) {
    EXPECT_TRUE(fits(dialog));
    expect_in_sight(dialog, "cmdImport");
    expect_in_sight(dialog, "cmdCancel");
    dialog.reject();
  });
  kurv->open(table());
  press(kurv, "mnuDesign");
  auto* const properties = kurv->findChild<QDialog*>("frmPropert");
  ASSERT_NE(properties, nullptr);
  EXPECT_TRUE(fits(*properties));
  for (const char* name : {"cmdRestoreXY", "cmdApply", "cmdClose"}) {
    expect_in_sight(*properties, name);
  }
  properties->reject();
}

}  // namespace
}  // namespace kurv::app
