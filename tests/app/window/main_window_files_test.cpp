// How files come into windows: by name, by hand, by menu.
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QUrl>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>

#include "tests/app/window/window_fixture.h"

namespace kurv::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class MainWindowFilesTest : public Windows {
 protected:
  void import_as_it_is() {
    answer<ImportDialog>([](ImportDialog& dialog) { dialog.accept(); });
  }

  static QUrl url(const std::string& path) {
    return QUrl::fromEncoded("file://" + QByteArray::fromStdString(path).toPercentEncoding("/"));
  }

  static bool would_take(MainWindow* window, const QMimeData& data) {
    QDragEnterEvent event(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.setAccepted(false);
    QApplication::sendEvent(window, &event);
    return event.isAccepted();
  }

  static void drop(MainWindow* window, const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    ASSERT_TRUE(would_take(window, data));
    QDropEvent event(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window, &event);
    QApplication::processEvents();
  }

  std::vector<std::string> recent() const { return RecentFiles().paths(); }
};

TEST_F(MainWindowFilesTest, OpenTakesSeveralFilesIntoSeveralWindows) {
  const std::string first = graph_file("a.gdf");
  const std::string second = graph_file("b.gdf");
  MainWindow* const kurv = window();
  kurv->open_all({first, second, first});
  EXPECT_EQ(all().size(), 3u);
  EXPECT_EQ(kurv->graph().FileName(), first);
}

TEST_F(MainWindowFilesTest, OpenWithTheDialogShowsTheGraph) {
  MainWindow* const kurv = window();
  choose_file(graph_file());
  press(kurv, "mnuOpen");
  EXPECT_EQ(kurv->graph().FileName(), path("small.gdf"));
}

TEST_F(MainWindowFilesTest, UnsavedWorkIsNotReplaced) {
  MainWindow* const kurv = window_of(graph_file("a.gdf"));
  change_title(kurv, "Other");
  EXPECT_TRUE(kurv->open(graph_file("b.gdf")));
  EXPECT_EQ(kurv->graph().Title(), "Other");
  EXPECT_EQ(all().size(), 2u);
}

TEST_F(MainWindowFilesTest, AFileThatCannotBeLoadedLeavesTheGraphAsItWas) {
  MainWindow* const kurv = window_of(graph_file());
  const std::string broken =
      written(path("broken.gdf"), "QXPLOT/V500//1E\r\nT\r\n3\r\n1\r\n0\r\nBroken\r\n");
  QString text;
  click_box("OK", &text);
  EXPECT_FALSE(kurv->open(broken));
  EXPECT_THAT(text.toStdString(),
              HasSubstr("broken.gdf cannot be loaded: the file ends too early; "));
  EXPECT_EQ(kurv->graph().Title(), "small");
  EXPECT_EQ(kurv->graph().FileName(), path("small.gdf"));
  EXPECT_TRUE(kurv->graph().isVisible());
  EXPECT_EQ(kurv->findChildren<KurvGraph*>().size(), 1);
}

TEST_F(MainWindowFilesTest, NoWindowStaysOfAFileThatCannotBeOpened) {
  MainWindow* const kurv = window_of(graph_file());
  change_title(kurv, "Other");
  click_box("OK");
  EXPECT_FALSE(kurv->open(path("missing.gdf")));
  EXPECT_EQ(all().size(), 1u);
}

TEST_F(MainWindowFilesTest, ADroppedGraphFileOpensHere) {
  MainWindow* const kurv = window();
  drop(kurv, {url(graph_file())});
  EXPECT_EQ(kurv->graph().FileName(), path("small.gdf"));
}

TEST_F(MainWindowFilesTest, ADroppedTableGoesThroughThePreview) {
  MainWindow* const kurv = window();
  import_as_it_is();
  drop(kurv, {url(table())});
  EXPECT_TRUE(kurv->graph().has_graph());
  EXPECT_EQ(kurv->graph().Title(), "small");
}

TEST_F(MainWindowFilesTest, APreviewThatIsCancelledChangesNothing) {
  MainWindow* const kurv = window();
  answer<ImportDialog>([](ImportDialog& dialog) { dialog.reject(); });
  drop(kurv, {url(table())});
  EXPECT_FALSE(kurv->graph().has_graph());
  EXPECT_THAT(recent(), ElementsAre());
}

TEST_F(MainWindowFilesTest, ATableIsPreviewedOverUnsavedWorkAndThenGetsAWindow) {
  MainWindow* const kurv = window_of(graph_file());
  change_title(kurv, "Other");
  std::size_t windows = 0;
  answer<ImportDialog>([&](ImportDialog& dialog) {
    windows = all().size();
    EXPECT_EQ(dialog.parentWidget(), kurv);
    dialog.accept();
  });
  EXPECT_TRUE(kurv->open(table()));
  EXPECT_EQ(windows, 1u) << "there must be no empty one behind the preview";
  ASSERT_EQ(all().size(), 2u);
  for (const MainWindow* each : all()) {
    EXPECT_EQ(each->graph().Title(), each == kurv ? "Other" : "small");
  }
}

TEST_F(MainWindowFilesTest, APreviewThatIsCancelledOverUnsavedWorkLeavesNoWindow) {
  MainWindow* const kurv = window_of(graph_file());
  change_title(kurv, "Other");
  answer<ImportDialog>([&](ImportDialog& dialog) {
    EXPECT_EQ(all().size(), 1u);
    dialog.reject();
  });
  EXPECT_FALSE(kurv->open(table()));
  EXPECT_EQ(all().size(), 1u);
}

TEST_F(MainWindowFilesTest, AFileThatCannotBeOpenedIsSaidOverUnsavedWorkWithoutANewWindow) {
  MainWindow* const kurv = window_of(graph_file());
  change_title(kurv, "Other");
  const std::string broken =
      written(path("broken.gdf"), "QXPLOT/V500//1E\r\nT\r\n3\r\n1\r\n0\r\nBroken\r\n");
  for (const std::string& file : {broken, path("missing.csv")}) {
    answer<QMessageBox>([&](QMessageBox& box) {
      EXPECT_EQ(all().size(), 1u) << file;
      EXPECT_EQ(box.parentWidget(), kurv) << file;
      box.accept();
    });
    EXPECT_FALSE(kurv->open(file));
  }
  EXPECT_EQ(kurv->graph().Title(), "Other");
}

// Its title is not in the default place, to which showing a graph moves it.
TEST_F(MainWindowFilesTest, AGraphThatCannotBePlottedOverUnsavedWorkIsInItsWindowWhenThatAppears) {
  const std::string file = exact_graph_file();
  QFile text(QFile::decodeName(file.c_str()));
  ASSERT_TRUE(text.open(QIODevice::ReadOnly));
  const QByteArray good = text.readAll().replace("\n 174.21875 ", "\n 99 ");
  QByteArray bad = good;
  bad.replace("\n1,2,3\r", "\n1,1,1\r");
  ASSERT_NE(bad, good);
  MainWindow* const kurv = window_of(graph_file());
  change_title(kurv, "Other");
  const auto on_screen = [] {
    const std::vector<MainWindow*> windows = all();
    return std::count_if(windows.begin(), windows.end(), [](const MainWindow* window) {
      return window->windowHandle()->isVisible();
    });
  };
  answer<QMessageBox>([&](QMessageBox& box) {
    EXPECT_EQ(on_screen(), 1);
    box.accept();
  });
  EXPECT_TRUE(kurv->open(written(path("bad.gdf"), bad)));
  EXPECT_EQ(on_screen(), 2);
  EXPECT_TRUE(kurv->open(written(path("good.gdf"), good)));
  EXPECT_EQ(on_screen(), 3);
  QTest::qWait(50);
  for (const MainWindow* each : all()) EXPECT_EQ(each->is_saved(), each != kurv);
}

TEST_F(MainWindowFilesTest, WhatIsNoFileIsRefused) {
  MainWindow* const kurv = window();
  QMimeData web;
  web.setUrls({QUrl("https://example.org/a.csv")});
  QMimeData folder;
  folder.setUrls({url(m_folder.path().toStdString())});
  QMimeData missing;
  missing.setUrls({url(path("missing.csv"))});
  for (const QMimeData* data : {&web, &folder, &missing}) {
    EXPECT_FALSE(would_take(kurv, *data));
  }
}

TEST_F(MainWindowFilesTest, HostileNamesAreNamesLikeAnyOther) {
  for (const char* name : {"a\nb.gdf", "a[*]b.gdf", "a&b.gdf", "a%20b.gdf", "\xff\xfe.gdf"}) {
    const std::string file = m_folder.path().toStdString() + '/' + name;
    std::filesystem::copy_file(graph_file(), file);
    MainWindow* const kurv = window();
    drop(kurv, {url(file)});
    EXPECT_EQ(kurv->graph().FileName(), file);
    EXPECT_EQ(kurv->windowTitle().count('\n'), 0);
    EXPECT_EQ(recent().front(), file);
    change_title(kurv, "Kept");
    press(kurv, "mnuSave");
    EXPECT_TRUE(kurv->is_saved());
    EXPECT_EQ(window_of(file)->graph().Title(), "Kept");
    // The folder's own end does not find a name that is no text.
    std::filesystem::remove(file);
  }
}

TEST_F(MainWindowFilesTest, AStarInBracketsIsNoMarkOfUnsavedWork) {
  const std::string file = m_folder.path().toStdString() + "/a[*]b.gdf";
  std::filesystem::copy_file(graph_file(), file);
  EXPECT_EQ(window_of(file)->windowTitle(), QStringLiteral("a[*][*]b.gdf[*] \u2013 kurv"));
}

TEST_F(MainWindowFilesTest, OpenedAndSavedFilesAreRecent) {
  MainWindow* const kurv = window_of(graph_file());
  choose_file(path("copy.gdf"));
  press(kurv, "mnuSaveAs");
  EXPECT_THAT(recent(), ElementsAre(path("copy.gdf"), path("small.gdf")));
}

TEST_F(MainWindowFilesTest, TheMenuOfRecentFilesOpensThem) {
  const std::string file = graph_file();
  RecentFiles().add(file);
  MainWindow* const kurv = window();
  Q_EMIT kurv->findChild<QMenu*>("mnuRecent")->aboutToShow();
  press(kurv, "mnuRecent1");
  EXPECT_EQ(kurv->graph().FileName(), file);
}

TEST_F(MainWindowFilesTest, ARecentFileThatIsGoneIsSaidAndForgotten) {
  RecentFiles().add(path("gone.gdf"));
  MainWindow* const kurv = window();
  Q_EMIT kurv->findChild<QMenu*>("mnuRecent")->aboutToShow();
  QString text;
  click_box("OK", &text);
  press(kurv, "mnuRecent1");
  EXPECT_THAT(text.toStdString(), HasSubstr("gone.gdf is not there any more"));
  EXPECT_THAT(recent(), ElementsAre());
}

TEST_F(MainWindowFilesTest, TheListOfRecentFilesCanBeCleared) {
  RecentFiles().add(graph_file());
  MainWindow* const kurv = window();
  Q_EMIT kurv->findChild<QMenu*>("mnuRecent")->aboutToShow();
  press(kurv, "mnuClearRecent");
  EXPECT_THAT(recent(), ElementsAre());
}

TEST_F(MainWindowFilesTest, ANewWindowIsEmpty) {
  MainWindow* const kurv = window_of(graph_file());
  press(kurv, "mnuNewWindow");
  ASSERT_EQ(all().size(), 2u);
  for (const MainWindow* each : all()) {
    EXPECT_EQ(each->graph().has_graph(), each == kurv);
  }
}

TEST_F(MainWindowFilesTest, TheWheelChangesNoKindOfFileInPassing) {
  MainWindow* const kurv = window();
  answer<QFileDialog>([](QFileDialog& dialog) {
    auto* const kinds = dialog.findChild<QComboBox*>("fileTypeCombo");
    QWheelEvent turn(QPointF(5, 5), kinds->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(kinds, &turn);
    EXPECT_EQ(kinds->currentIndex(), 0);
    dialog.reject();
  });
  press(kurv, "mnuOpen");
}

}  // namespace
}  // namespace kurv::app
