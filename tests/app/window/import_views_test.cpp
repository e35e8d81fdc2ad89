// What the import window shows of a file.
#include <QApplication>
#include <QLineEdit>
#include <QTabWidget>

#include "app/window/picture_preview.h"
#include "tests/app/window/import_fixture.h"

namespace kurv::app {
namespace {

using testing::HasSubstr;

const char* const kTable =
    "Logger\n# a comment\nday;Temp (°C);state\n1;2,5;ok\n2;oops;ok\n3;4;bad\n4;;ok\n5;3;ok\n"
    "6;2;ok\n7;1;ok\n";

QString text_in(const QAbstractItemModel& model, int row, int column = 0) {
  return model.index(row, column).data().toString();
}

QString tip_in(const QAbstractItemModel& model, int row, int column = 0) {
  return model.index(row, column).data(Qt::ToolTipRole).toString();
}

PicturePreview& picture_of(Import& import) {
  return *static_cast<PicturePreview*>(import.dialog.findChild<QWidget*>("imgPreview"));
}

QImage drawn_by(Import& import) {
  PicturePreview& preview = picture_of(import);
  EXPECT_TRUE(QTest::qWaitFor([&] { return preview.is_current(); }, 5000));
  return preview.picture();
}

TEST(ImportViews, ColumnsSayTheirKindAndUnit) {
  Import import(kTable);
  EXPECT_EQ(import.rows().headerData(1, Qt::Horizontal).toString(), "Temp (°C)\nnumbers, °C");
  EXPECT_EQ(import.rows().headerData(2, Qt::Horizontal).toString(), "state\nwords");
}

TEST(ImportViews, CellsThatWereNotUnderstoodAreMarked) {
  Import import(kTable);
  const QAbstractItemModel& rows = import.rows();
  EXPECT_EQ(tip_in(rows, 1, 1), "not a number: counts as missing");
  EXPECT_TRUE(rows.index(1, 1).data(Qt::BackgroundRole).isValid());
  EXPECT_EQ(tip_in(rows, 3, 1), "missing");
  EXPECT_NE(rows.index(3, 1).data(Qt::BackgroundRole), rows.index(1, 1).data(Qt::BackgroundRole));
  EXPECT_FALSE(rows.index(0, 1).data(Qt::BackgroundRole).isValid());
  EXPECT_FALSE(rows.index(0, 2).data(Qt::BackgroundRole).isValid()) << "a word among words";
  EXPECT_NE(import.curve("Temp (°C) (1 not understood)"), nullptr);
  EXPECT_NE(import.curve("state (words)"), nullptr);
}

TEST(ImportViews, TheMarksCanBeReadOnLightAndDarkDesktops) {
  const QPalette usual = QApplication::palette();
  for (const bool is_dark : {false, true}) {
    QPalette palette = is_dark ? QPalette(QColor(55, 59, 64), QColor(42, 45, 49)) : usual;
    if (is_dark) {
      palette.setColor(QPalette::Base, QColor(30, 32, 35));
      palette.setColor(QPalette::Text, Qt::white);
    }
    QApplication::setPalette(palette);
    Import import(kTable);
    for (const int row : {1, 3}) {
      const auto mark = import.rows().index(row, 1).data(Qt::BackgroundRole).value<QBrush>();
      const int text = qGray(palette.color(QPalette::Text).rgb());
      EXPECT_GT(std::abs(qGray(mark.color().rgb()) - text), 100) << row << is_dark;
    }
  }
  QApplication::setPalette(usual);
}

TEST(ImportViews, TheLinesAreThoseOfTheFile) {
  Import import(kTable);
  const QAbstractItemModel& lines = import.lines();
  EXPECT_EQ(lines.rowCount(), 10);
  EXPECT_EQ(text_in(lines, 0), "Logger");
  EXPECT_EQ(lines.headerData(0, Qt::Vertical).toString(), "1");
  EXPECT_EQ(tip_in(lines, 0), "above the table, left out");
  EXPECT_TRUE(lines.index(0, 0).data(Qt::ForegroundRole).isValid());
  EXPECT_FALSE(lines.index(3, 0).data(Qt::ForegroundRole).isValid());
  EXPECT_EQ(tip_in(lines, 2), "");
}

TEST(ImportViews, CommentsAndTotalsAmongTheLinesAreGreyed) {
  Import import("# one\nx,y\n1,2\n# two\n2,3\n3,4\nTotal,9\n");
  EXPECT_EQ(tip_in(import.lines(), 3), "a comment, left out");
  EXPECT_EQ(tip_in(import.lines(), 6), "left out");
  EXPECT_EQ(tip_in(import.lines(), 5), "");
}

TEST(ImportViews, AHeaderInACommentIsNotGreyed) {
  Import import("# a b\n1 2\n2 3\n");
  EXPECT_EQ(tip_in(import.lines(), 0), "");
}

TEST(ImportViews, LinesAreDecodedAndTabsCanBeSeen) {
  Import import(
      "x\tGr\xF6\xDF"
      "e\n1\t2\n2\t3\n");
  EXPECT_EQ(text_in(import.lines(), 0), "x\u2192      Größe");
}

TEST(ImportViews, ThePictureIsDrawnInTheSizeOfTheView) {
  Import import(kTable);
  const QImage picture = drawn_by(import);
  EXPECT_EQ(picture.deviceIndependentSize().toSize(), picture_of(import).size());
  import.dialog.resize(import.dialog.width() + 60, import.dialog.height() + 40);
  QTest::qWait(20);
  EXPECT_EQ(drawn_by(import).deviceIndependentSize().toSize(), picture_of(import).size());
}

TEST(ImportViews, ThePictureIsWhatTheCommandLineWouldDraw) {
  Import import(kTable);
  const QImage picture = drawn_by(import);
  GraphChoice choice = import.dialog.choice();
  choice.size = picture_of(import).size();
  const GraphSource source = import.taken();
  const QByteArray png =
      render_picture(choice, source, PictureFormat::kPng, picture.devicePixelRatio());
  EXPECT_EQ(QImage::fromData(png).convertToFormat(QImage::Format_RGB32),
            picture.convertToFormat(QImage::Format_RGB32));
}

TEST(ImportViews, ThePictureFollowsTheChoices) {
  Import import("x,y,z\n1,2,3\n2,3,100\n3,5,7\n");
  const QImage both = drawn_by(import);
  import.curve("z")->setCheckState(Qt::Unchecked);
  EXPECT_TRUE(import.comes_to_say("1 curve"));
  const QImage one = drawn_by(import);
  EXPECT_NE(one, both);
  import.get<QLineEdit>("txtTitle").setText("Other");
  const QImage titled = drawn_by(import);
  EXPECT_NE(titled, one);
  import.get<QLineEdit>("txtTitle").setText("a");
  import.curve("z")->setCheckState(Qt::Checked);
  EXPECT_TRUE(import.comes_to_say("2 curves"));
  EXPECT_EQ(drawn_by(import), both) << "nothing of the earlier pictures is left";
  import.get<QPushButton>("cmdNone").click();
  EXPECT_TRUE(import.comes_to_say("Choose at least one curve."));
  EXPECT_TRUE(picture_of(import).picture().isNull());
  EXPECT_EQ(picture_of(import).accessibleDescription(), "No graph yet");
}

TEST(ImportViews, ALineAsLongAsAFileIsCut) {
  std::string text(50'000'000, 'x');
  text += "\n";
  Import import(text);
  EXPECT_LE(text_in(import.lines(), 0).size(), 501);
  EXPECT_FALSE(import.can_import());
  // Laying out all of it would take a minute.
  EXPECT_LE(import.get<QListWidget>("lstCurves").item(0)->text().size(), 250);
}

TEST(ImportViews, VeryManyColumnsAreShown) {
  std::string names, values;
  for (int i = 0; i < 99'999; ++i) {
    names += "c" + std::to_string(i) + ',';
    values += "1,";
  }
  Import import(names + "z\n" + values + "2\n" + values + "3\n");
  EXPECT_EQ(import.rows().columnCount(), 100'000);
  Import more("z," + names + "z\n1," + values + "2\n2," + values + "3\n");
  EXPECT_THAT(more.summary(), HasSubstr("at most 100000 can be read"));
  EXPECT_FALSE(more.can_import());
}

TEST(ImportViews, NulsAndHeadersAloneAreExplained) {
  Import nuls(std::string("x,y\n1,\0\n2,3\n", 12));
  EXPECT_THAT(nuls.summary(), HasSubstr("The file is no text"));
  EXPECT_EQ(text_in(nuls.lines(), 1), "1, ");
  Import header("x,y\n");
  EXPECT_THAT(header.summary(), HasSubstr("has a header and nothing below it"));
  Import nothing("");
  EXPECT_EQ(nothing.lines().rowCount(), 0);
  EXPECT_FALSE(nothing.can_import());
}

}  // namespace
}  // namespace kurv::app
