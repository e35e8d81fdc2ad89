// Pictures that a main window writes: their names, and what is asked about them.
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QSpinBox>
#include <QStatusBar>

#include "app/window/export_dialog.h"
#include "tests/app/window/window_fixture.h"

namespace kurv::app {
namespace {

using testing::HasSubstr;

class MainWindowExport : public Windows {
 protected:
  MainWindow* window_of_dotted_name() {
    return window_of(written(path("temp.2020.csv"), "x,y\n1,2\n2,3\n"));
  }

  // The first answer to an export; that about the name is the next one.
  void take_picture_as_in_window() {
    answer<ExportDialog>([](ExportDialog& dialog) { dialog.accept(); });
  }

  QByteArray content(const char* file) const {
    QFile opened(m_folder.filePath(file));
    return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
  }
};

TEST_F(MainWindowExport, WritesThePictureOfTheGraph) {
  MainWindow* const kurv = window_of(table());
  take_picture_as_in_window();
  choose_file(path("picture"));
  press(kurv, "mnuExportPicture");
  const QImage picture(m_folder.filePath("picture.png"));
  EXPECT_EQ(picture.convertToFormat(QImage::Format_RGB32),
            kurv->graph().image().convertToFormat(QImage::Format_RGB32));
  EXPECT_FALSE(kurv->isWindowModified());
}

struct Filter {
  const char* extension;
  const char* beginning;  // of such a file
};

constexpr Filter kFilters[] = {
    {".png", "\x89PNG"}, {".svg", "<?xml"}, {".pdf", "%PDF"}, {".bmp", "BM"}};

TEST_F(MainWindowExport, ProposesTheWholeNameAndFollowsTheFilter) {
  MainWindow* const kurv = window_of_dotted_name();
  for (int i = 0; i < 4; ++i) {
    const std::string file = std::string("temp.2020") + kFilters[i].extension;
    take_picture_as_in_window();
    answer<QFileDialog>([=](QFileDialog& dialog) {
      choose_filter(dialog, i);
      EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text().toStdString(), file);
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
    press(kurv, "mnuExportPicture");
    EXPECT_TRUE(content(file.c_str()).startsWith(kFilters[i].beginning)) << file;
  }
}

TEST_F(MainWindowExport, TheStatusBarNamesThePictureUntilAnotherGraphIsShown) {
  MainWindow* const kurv = window_of(table());
  take_picture_as_in_window();
  choose_file(path("picture.png"));
  press(kurv, "mnuExportPicture");
  EXPECT_TRUE(kurv->statusBar()->currentMessage().contains("picture.png"));
  kurv->show_graph({}, load(graph_file(), {}));
  EXPECT_EQ(kurv->statusBar()->currentMessage(), "");
}

TEST_F(MainWindowExport, CompletesEveryNameThatIsNotThatOfAPicture) {
  MainWindow* const kurv = window_of_dotted_name();
  for (int i = 0; i < 4; ++i) {
    for (const std::string typed : {"plain", "sales.2021", ".hidden", "ends.", "a.b c"}) {
      take_picture_as_in_window();
      choose_file(path(typed.c_str()), i);
      press(kurv, "mnuExportPicture");
      const std::string file = typed + kFilters[i].extension;
      EXPECT_TRUE(content(file.c_str()).startsWith(kFilters[i].beginning)) << file;
    }
  }
}

TEST_F(MainWindowExport, APicturesOwnExtensionDecides) {
  MainWindow* const kurv = window_of(table());
  take_picture_as_in_window();
  choose_file(path("picture.PDF"));
  press(kurv, "mnuExportPicture");
  EXPECT_TRUE(content("picture.PDF").startsWith("%PDF"));
}

TEST_F(MainWindowExport, AsksBeforeItReplacesAFileUnderTheCompletedName) {
  MainWindow* const kurv = window_of_dotted_name();
  written(path("old.2020.png"), "old");
  take_picture_as_in_window();
  choose_file(path("old.2020"));
  QString text;
  click_box("&Cancel", &text);
  answer<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
  press(kurv, "mnuExportPicture");
  EXPECT_EQ(text, "old.2020.png already exists.");
  EXPECT_EQ(content("old.2020.png"), "old");

  take_picture_as_in_window();
  choose_file(path("old.2020"));
  click_box("&Replace");
  press(kurv, "mnuExportPicture");
  EXPECT_TRUE(content("old.2020.png").startsWith("\x89PNG"));
}

TEST_F(MainWindowExport, WhoeverKeepsTheOldFileChoosesAnotherName) {
  MainWindow* const kurv = window_of(table());
  written(path("old.png"), "old");
  take_picture_as_in_window();
  choose_file(path("old"));
  click_box("&Cancel");
  choose_file(path("new"));
  press(kurv, "mnuExportPicture");
  EXPECT_EQ(content("old.png"), "old");
  EXPECT_TRUE(content("new.png").startsWith("\x89PNG"));
}

TEST_F(MainWindowExport, WhatCannotBeWrittenIsSaidWithItsPathAsItIs) {
  MainWindow* const kurv = window_of(table());
  take_picture_as_in_window();
  choose_file(path("no_such_folder/picture.png"));
  QString text;
  click_box("OK", &text);
  press(kurv, "mnuExportPicture");
  EXPECT_THAT(text.toStdString(), testing::StartsWith(path("no_such_folder/picture.png")));
}

TEST_F(MainWindowExport, WhatCannotBeDrawnIsSaidInASentence) {
  MainWindow* const kurv = window_of(table());
  kurv->graph().set_xmax(kurv->graph().xmin());
  take_picture_as_in_window();
  choose_file(path("picture.svg"));
  QString text;
  click_box("OK", &text);
  press(kurv, "mnuExportPicture");
  EXPECT_THAT(
      text.toStdString(),
      testing::StartsWith("The graph cannot be drawn: an axis has equal limits or no ticks; "));
}

TEST_F(MainWindowExport, AWindowThatGoesTakesItsQuestionsAlong) {
  for (const bool has_older : {false, true}) {
    const QPointer<MainWindow> kurv = window_of(table());
    written(path("old.png"), "old");
    if (has_older) {
      take_picture_as_in_window();
      choose_file(path("old"));
    }
    answer<QDialog>([&](QDialog&) { delete kurv.data(); });
    press(kurv, "mnuExportPicture");
    EXPECT_FALSE(kurv);
    EXPECT_EQ(content("old.png"), "old");
  }
}

TEST_F(MainWindowExport, HasTheSizeAndResolutionThatAreChosenAndRemembersThem) {
  MainWindow* const kurv = window_of(table());
  answer<ExportDialog>([](ExportDialog& dialog) {
    dialog.findChild<QCheckBox*>("chkAsInWindow")->setChecked(false);
    dialog.findChild<QCheckBox*>("chkProportions")->setChecked(false);
    dialog.findChild<QComboBox*>("cboUnit")->setCurrentIndex(1);
    dialog.findChild<QSpinBox*>("spnResolution")->setValue(300);
    dialog.findChild<QDoubleSpinBox*>("spnWidth")->setValue(85);
    dialog.findChild<QDoubleSpinBox*>("spnHeight")->setValue(60);
    dialog.accept();
  });
  choose_file(path("picture"));
  press(kurv, "mnuExportPicture");
  const QImage picture(m_folder.filePath("picture.png"));
  EXPECT_EQ(picture.size(), QSize(1004, 709));
  EXPECT_EQ(picture.dotsPerMeterX(), 11811);
  EXPECT_EQ(picture.dotsPerMeterY(), 11811);
  take_picture_as_in_window();
  choose_file(path("again"));
  press(kurv, "mnuExportPicture");
  EXPECT_EQ(content("again.png"), content("picture.png"));
}

TEST_F(MainWindowExport, CancelledAsksForNoName) {
  MainWindow* const kurv = window_of(table());
  answer<ExportDialog>([](ExportDialog& dialog) { dialog.reject(); });
  press(kurv, "mnuExportPicture");
  EXPECT_EQ(kurv->statusBar()->currentMessage(), "");
}

TEST_F(MainWindowExport, TheFormatChoosesTheFilterOfTheName) {
  MainWindow* const kurv = window_of(table());
  answer<ExportDialog>([](ExportDialog& dialog) {
    dialog.findChild<QComboBox*>("cboFormat")->setCurrentIndex(2);
    dialog.accept();
  });
  answer<QFileDialog>([](QFileDialog& dialog) {
    EXPECT_EQ(dialog.selectedNameFilter(), "PDF document (*.pdf)");
    EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "small.pdf");
    dialog.reject();
  });
  press(kurv, "mnuExportPicture");
}

}  // namespace
}  // namespace kurv::app
