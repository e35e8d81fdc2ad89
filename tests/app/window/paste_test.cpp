// Tables that come from other programs through the clipboard or by dragging.
#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTcpServer>
#include <QUrl>

#include "app/window/transferred_table.h"
#include "tests/app/window/window_fixture.h"

namespace kurv::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string text_of_page(const QString& html, const QString& plain = {}) {
  QMimeData data;
  data.setHtml(html);
  if (!plain.isEmpty()) data.setText(plain);
  return table_text(data);
}

TEST(TransferredTable, IsPlainTextAsItIs) {
  QMimeData data;
  data.setText("a\tb\n1\t2,5\n");
  EXPECT_TRUE(has_table_text(data));
  EXPECT_EQ(table_text(data), "a\tb\n1\t2,5\n");
}

TEST(TransferredTable, OfAPageIsItsFirstTable) {
  EXPECT_EQ(text_of_page("<p>Before</p><table><tr><th>a</th><th>b</th></tr><tr><td>1</td><td></td>"
                         "</tr></table><table><tr><td>other</td></tr></table>",
                         "a b\n1"),
            "a\tb\n1\t\n");
}

TEST(TransferredTable, OfAPageWithoutOneIsItsText) {
  EXPECT_EQ(text_of_page("<p>1;2</p>", "1;2"), "1;2");
}

TEST(TransferredTable, KeepsTheColumnsOfMergedCells) {
  EXPECT_EQ(text_of_page("<table><tr><th colspan=2>both</th><th>c</th></tr>"
                         "<tr><td rowspan=2>1</td><td>2</td><td>3</td></tr>"
                         "<tr><td>5</td><td>6</td></tr></table>"),
            "both\t\tc\n1\t2\t3\n\t5\t6\n");
}

TEST(TransferredTable, HasTheTablesInItsCellsAsText) {
  EXPECT_EQ(text_of_page("<TABLE><tr><td>1</td><td><table><tr><td>2</td></tr></table></td></tr>"
                         "<tr><td>3</td><td>4</td></tr></TABLE><table><tr><td>9</td></tr></table>"),
            "1\t2\n3\t4\n");
}

TEST(TransferredTable, NeedsNoEndAndNoOrder) {
  EXPECT_EQ(text_of_page("<table><tr><td>1<td>2<tr><td>3"), "1\t2\n3\t\n");
  EXPECT_EQ(text_of_page("</table><table>", "plain"), "plain");
}

TEST(TransferredTable, HasACellOnOneLine) {
  EXPECT_EQ(text_of_page("<table><tr><td>a<br>b<p>c</p></td><td>6\" pipe</td></tr></table>"),
            "a b c\t\"6\"\" pipe\"\n");
}

TEST(TransferredTable, IsNoImageAndNoAddress) {
  QMimeData image;
  image.setImageData(QImage(2, 2, QImage::Format_RGB32));
  image.setHtml("<img src='a.png'>");
  EXPECT_FALSE(has_table_text(image));
  QMimeData address;
  address.setUrls({QUrl("https://example.org/a.csv")});
  EXPECT_FALSE(has_table_text(address));
}

TEST(TransferredTable, LoadsNothingThatAPageRefersTo) {
  QTcpServer server;
  ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
  const QString address = "http://127.0.0.1:" + QString::number(server.serverPort()) + "/a.png";
  const QTemporaryDir folder;
  const QString file = folder.filePath("red.png");
  QImage image(40, 40, QImage::Format_RGB32);
  ASSERT_TRUE(image.save(file));
  EXPECT_EQ(
      text_of_page("<link rel='stylesheet' href='" + address + "'><style>@import url(" + address +
                   ");</style><table><tr><td>1<img src='" + address + "'></td><td background='" +
                   file + "'>2<img src='" + file + "'></td></tr></table>"),
      "1\t2\n");
  EXPECT_FALSE(server.waitForNewConnection(100));
}

TEST(TransferredTable, WithNumbersIsToldFromOtherText) {
  EXPECT_TRUE(holds_numbers("a\tb\n1\t2\n2\t3\n"));
  EXPECT_FALSE(holds_numbers("Just a sentence."));
  EXPECT_FALSE(holds_numbers(""));
  EXPECT_FALSE(holds_numbers(std::string("\0\1\2", 3)));
}

class Paste : public Windows {
 protected:
  void import_as_it_is() {
    answer<ImportDialog>([](ImportDialog& dialog) {
      EXPECT_EQ(dialog.windowTitle(), "Import clipboard");
      dialog.accept();
    });
  }

  static void copy(const QString& text) { QGuiApplication::clipboard()->setText(text); }

  static bool drag_in(MainWindow* window, const QMimeData& data, Qt::DropAction* action) {
    QDragEnterEvent event(QPoint(50, 50), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    event.setDropAction(Qt::MoveAction);
    event.setAccepted(false);
    QApplication::sendEvent(window, &event);
    *action = event.dropAction();
    return event.isAccepted();
  }
};

constexpr const char* kCells = "time\tspeed\n1\t2\n2\t3\n3\t5\n";

TEST_F(Paste, DrawsTheTableInAnEmptyWindow) {
  MainWindow* const kurv = window();
  copy(kCells);
  import_as_it_is();
  press(kurv, "mnuPaste");
  EXPECT_TRUE(kurv->graph().has_graph());
  EXPECT_EQ(kurv->graph().xmax(), 3.2) << "a round limit";
  EXPECT_EQ(kurv->windowTitle(), QStringLiteral("Untitled[*] \u2013 kurv"));
  EXPECT_THAT(RecentFiles().paths(), ElementsAre());
}

TEST_F(Paste, IsUnsavedUntilItHasAFile) {
  MainWindow* const kurv = window();
  copy(kCells);
  import_as_it_is();
  press(kurv, "mnuPaste");
  EXPECT_FALSE(kurv->is_saved());
  QString text;
  click_box("&Cancel", &text);
  EXPECT_FALSE(kurv->close());
  EXPECT_EQ(text, "The graph is not saved.");
  choose_file(path("pasted.gdf"));
  press(kurv, "mnuSave");
  EXPECT_TRUE(kurv->is_saved());
  EXPECT_THAT(RecentFiles().paths(), ElementsAre(path("pasted.gdf")));
}

TEST_F(Paste, LeavesUnsavedWorkAndOpensAWindow) {
  MainWindow* const kurv = window_of(graph_file());
  change_title(kurv, "Other");
  copy(kCells);
  import_as_it_is();
  press(kurv, "mnuPaste");
  EXPECT_EQ(kurv->graph().Title(), "Other");
  EXPECT_EQ(all().size(), 2u);
}

TEST_F(Paste, SaysWhereThereIsNoTable) {
  MainWindow* const kurv = window();
  copy("Just a sentence.");
  QString text;
  click_box("OK", &text);
  press(kurv, "mnuPaste");
  EXPECT_THAT(text.toStdString(), HasSubstr("No table was found"));
  EXPECT_FALSE(kurv->graph().has_graph());
}

TEST_F(Paste, IsEnabledWhereTheClipboardMayHoldATable) {
  QGuiApplication::clipboard()->clear();
  MainWindow* const kurv = window();
  EXPECT_FALSE(action(kurv, "mnuPaste").isEnabled());
  copy(kCells);
  EXPECT_TRUE(action(kurv, "mnuPaste").isEnabled());
  QGuiApplication::clipboard()->setImage(QImage(2, 2, QImage::Format_RGB32));
  EXPECT_FALSE(action(kurv, "mnuPaste").isEnabled());
  EXPECT_EQ(action(kurv, "mnuPaste").shortcut(), QKeySequence("Ctrl+Shift+V"));
}

TEST_F(Paste, ShowsWhatWasLeftOut) {
  MainWindow* const kurv = window();
  copy("x\ty\tstate\n1\t2\ton\n2\t3\toff\n3\t4\ton\n");
  import_as_it_is();
  press(kurv, "mnuPaste");
  EXPECT_EQ(kurv->findChild<QWidget*>("barNotices")->isVisible(),
            !kurv->findChild<QAbstractButton*>("cmdNotices")->text().isEmpty());
}

TEST_F(Paste, TakesCopiedFilesAsFiles) {
  MainWindow* const kurv = window();
  auto* const data = new QMimeData;
  data->setUrls({QUrl::fromLocalFile(QString::fromStdString(graph_file()))});
  QGuiApplication::clipboard()->setMimeData(data);
  press(kurv, "mnuPaste");
  EXPECT_EQ(kurv->graph().FileName(), path("small.gdf"));
}

TEST_F(Paste, TakesDroppedTextAndLeavesItWhereItIs) {
  MainWindow* const kurv = window();
  QMimeData data;
  data.setText(kCells);
  Qt::DropAction action = Qt::IgnoreAction;
  ASSERT_TRUE(drag_in(kurv, data, &action));
  EXPECT_EQ(action, Qt::CopyAction);
  import_as_it_is();
  QDropEvent event(QPointF(50, 50), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                   Qt::NoModifier);
  event.setDropAction(Qt::MoveAction);
  QApplication::sendEvent(kurv, &event);
  EXPECT_EQ(event.dropAction(), Qt::CopyAction);
  QApplication::processEvents();
  EXPECT_TRUE(kurv->graph().has_graph());
}

}  // namespace
}  // namespace kurv::app
