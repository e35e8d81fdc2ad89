// Choosing from a table what is to become a graph.
#include <gmock/gmock.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QStyle>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <algorithm>

#include "tests/app/window/import_fixture.h"

namespace kurv::app {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

std::vector<std::string> names_of(const GraphSource& source) {
  std::vector<std::string> names;
  for (int i = 1; i <= source.data->names.upper(); ++i) names.push_back(source.data->names(i));
  return names;
}

const char* const kTable = "day;up;note;down\n1;2,5;a;3\n2;3,5;b;4\n3;4;c;5\n";

TEST(ImportDialog, ShowsTheTableAsItIsRead) {
  Import import(kTable);
  const QAbstractItemModel& rows = *import.get<QTableView>("tblPreview").model();
  EXPECT_EQ(rows.rowCount(), 3);
  EXPECT_EQ(rows.columnCount(), 4);
  EXPECT_EQ(rows.headerData(1, Qt::Horizontal).toString(), "up\nnumbers");
  EXPECT_EQ(rows.index(0, 1).data().toString(), "2,5");
  EXPECT_EQ(import.label("lblDialect"),
            "The fields are separated by semicolons, numbers have a decimal comma, and the first "
            "line holds the names of the columns.");
}

TEST(ImportDialog, TakesWhatTheCommandLineWouldTake) {
  Import import(kTable);
  EXPECT_EQ(import.summary(), "3 points, 2 curves");
  EXPECT_EQ(import.get<QLineEdit>("txtTitle").text(), "a");
  EXPECT_THAT(names_of(import.taken()), ElementsAre("day", "up", "down"));
}

TEST(ImportDialog, AnotherXColumnMakesTheFirstOneACurve) {
  Import import(kTable);
  import.get<QComboBox>("cboX").setCurrentText("down");
  EXPECT_TRUE(import.curve("down")->isHidden());
  EXPECT_THAT(names_of(import.taken()), ElementsAre("down", "day", "up"));
}

TEST(ImportDialog, TheRowNumberCanBeX) {
  Import import(kTable);
  import.get<QComboBox>("cboX").setCurrentText("Row number");
  const GraphSource source = import.taken();
  EXPECT_THAT(names_of(source), ElementsAre("row", "day", "up", "down"));
  EXPECT_EQ(source.data->values(1, 3), 3);
}

TEST(ImportDialog, ReturnImportsAndEscapeDoesNot) {
  for (const auto& [key, result] : {std::pair(Qt::Key_Return, int(QDialog::Accepted)),
                                    std::pair(Qt::Key_Escape, int(QDialog::Rejected))}) {
    Import import(kTable);
    import.dialog.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&import.dialog));
    ASSERT_NE(import.dialog.focusWidget(), nullptr);
    QTest::keyClick(import.dialog.focusWidget(), key);
    EXPECT_EQ(import.dialog.result(), result);
    EXPECT_FALSE(import.dialog.isVisible());
  }
}

TEST(ImportDialog, CurvesThatAreNotTickedStayOut) {
  Import import(kTable);
  import.curve("up")->setCheckState(Qt::Unchecked);
  EXPECT_THAT(names_of(import.taken()), ElementsAre("day", "down"));
}

TEST(ImportDialog, WithoutACurveThereIsNothingToImport) {
  Import import(kTable);
  QTest::mouseClick(&import.get<QPushButton>("cmdNone"), Qt::LeftButton);
  import.dialog.accept();
  EXPECT_EQ(import.dialog.result(), QDialog::Rejected);
  EXPECT_EQ(import.summary(), "Choose at least one curve.");
  EXPECT_FALSE(import.can_import());
  QTest::mouseClick(&import.get<QPushButton>("cmdAll"), Qt::LeftButton);
  EXPECT_TRUE(import.comes_to_say("3 points, 2 curves"));
  EXPECT_TRUE(import.can_import());
}

TEST(ImportDialog, AColumnOfWordsIsShownAndCannotBeChosen) {
  Import import(kTable);
  EXPECT_EQ(import.curve("note (words)")->flags(), Qt::NoItemFlags);
  EXPECT_EQ(import.get<QComboBox>("cboX").findText("note"), -1);
}

TEST(ImportDialog, DatesCanBeXAndNoCurve) {
  Import import("day,v\n2020-01-01,1\n2020-01-02,2\n");
  EXPECT_EQ(import.get<QComboBox>("cboX").currentText(), "day (dates)");
  EXPECT_THAT(names_of(import.taken()), ElementsAre("day (days since 2020-01-01)", "v"));
}

TEST(ImportDialog, EveryNthRowAndSortAndTitleAreTaken) {
  Import import(kTable);
  import.get<QSpinBox>("spnEvery").setValue(2);
  import.get<QCheckBox>("chkSort").setChecked(true);
  import.get<QLineEdit>("txtTitle").setText("New");
  EXPECT_EQ(import.taken().data->values.upper_point(), 2);
  const GraphChoice choice = import.dialog.choice();
  EXPECT_TRUE(choice.table.selection.sort);
  EXPECT_EQ(choice.title, "New");
}

TEST(ImportDialog, TheSameXEverywhereIsExplainedInTheDialogsOwnWords) {
  Import import("x,y\n1,2\n1,3\n");
  EXPECT_EQ(import.summary(),
            "The file cannot be drawn: all values of x, the column \"x\", are the same; choose "
            "another column with \"X axis\".");
  EXPECT_FALSE(import.can_import());
}

TEST(ImportDialog, TooLargeAStepIsExplained) {
  Import import(kTable);
  import.get<QSpinBox>("spnEvery").setValue(1000);
  EXPECT_TRUE(import.comes_to_say("one row of data with this \"Take every\""));
  EXPECT_FALSE(import.can_import());
}

TEST(ImportDialog, TooManyRowsAreThinnedOutFromTheStart) {
  std::string text = "x,y\n";
  for (int i = 0; i < 40000; ++i) text += std::to_string(i) + (i == 777 ? ",9\n" : ",1\n");
  Import import(text);
  EXPECT_EQ(import.shown_in("cboRows"), "Keep all peaks");
  EXPECT_EQ(import.summary(), "32767 points, 1 curve");
  EXPECT_THAT(import.label("lblNotes"),
              testing::HasSubstr("thinned out to 32767 rows that keep the peaks of all curves; "
                                 "\"Take every\" takes each N-th row instead."));
  import.choose("cboRows", "Every N-th row");
  EXPECT_TRUE(import.comes_to_say("20000 points, 1 curve"));
  EXPECT_EQ(import.label("lblNotes"), "");
  import.choose("cboRows", "Keep all peaks");
  EXPECT_TRUE(import.comes_to_say("32767 points"));
  import.get<QSpinBox>("spnEvery").setValue(4);
  EXPECT_TRUE(import.comes_to_say("10000 points"));
  EXPECT_EQ(import.shown_in("cboRows"), "Every N-th row");
  EXPECT_EQ(import.get<QTableView>("tblPreview").model()->rowCount(), 100);
}

TEST(ImportDialog, OfTooManyCurvesTheFirstAreTicked) {
  std::string names = "x";
  std::string first = "1";
  std::string second = "2";
  for (int i = 0; i < 200; ++i) {
    names += ",c" + std::to_string(i);
    first += ",1";
    second += ",2";
  }
  Import import(names + '\n' + first + '\n' + second + '\n');
  EXPECT_EQ(import.summary(), "2 points, 149 curves");
  import.curve("c199")->setCheckState(Qt::Checked);
  EXPECT_TRUE(import.comes_to_say("150 curves, more than the 149"));
  EXPECT_FALSE(import.can_import());
}

TEST(ImportDialog, OddTablesAreShownAndExplained) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "The file is empty; it needs a row of names and rows of numbers."},
      {"\n\n\n", "The file is empty; it needs a row of names and rows of numbers."},
      {"x,y\n", "The file has a header and nothing below it; it needs rows of numbers."},
      {"a,b\nc,d\ne,f\n", "The file has no column of numbers to draw as a curve"},
      {"x,y\n1,2\n", "one row of data, and a graph needs at least two"},
      {"x,y\nNA,2\nNA,3\n", "2 points, 1 curve"},
  };
  for (const auto& [text, sentence] : cases) {
    Import import(text);
    EXPECT_THAT(import.summary(), HasSubstr(sentence)) << text;
  }
}

TEST(ImportDialog, OddFieldsAreToldAboutAndLeftOut) {
  Import import("x,y\n1,2\n2,3\n3,oops\n4,5\n5,6\n6,7\n");
  EXPECT_EQ(import.summary(), "6 points, 1 curve");
  EXPECT_THAT(import.label("lblNotes"), HasSubstr("\"oops\" in line 4"));
}

TEST(ImportDialog, GuessesNameTheFieldsThatChangeThem) {
  Import import("t;p\n1;980\n2;990\n3;1.001\n");
  EXPECT_THAT(import.label("lblNotes"),
              AllOf(HasSubstr("is read as a number with a thousands point"),
                    HasSubstr("; \"Decimal sign\" changes that."), Not(HasSubstr("--"))));
}

TEST(ImportDialog, HostileTextIsShownAsItIs) {
  Import import("<b>x</b>,\"y\n2\"\n1,2\n2,3\n");
  const QAbstractItemModel& rows = *import.get<QTableView>("tblPreview").model();
  EXPECT_EQ(rows.headerData(0, Qt::Horizontal).toString(), "<b>x</b>\nnumbers");
  EXPECT_EQ(rows.headerData(1, Qt::Horizontal).toString(), "y 2\nnumbers");
}

TEST(ImportDialog, EveryFieldHasANameForScreenReaders) {
  Import import(kTable);
  for (const char* name : {"cboX", "lstCurves", "spnEvery", "txtTitle", "cboEncoding",
                           "cboSeparator", "spnSkip", "cboComment", "cboHeader", "cboDecimal",
                           "cboThousands", "cboMissing", "cboDates", "cboSheet"}) {
    const auto* const widget = import.dialog.findChild<QWidget*>(name);
    bool labelled = false;
    for (const QLabel* label : import.dialog.findChildren<QLabel*>()) {
      labelled = labelled || label->buddy() == widget;
    }
    EXPECT_TRUE(labelled) << name;
  }
  for (const char* name : {"cboRows", "scrNotes", "tblPreview", "tblLines", "imgPreview"}) {
    EXPECT_FALSE(import.get<QWidget>(name).accessibleName().isEmpty()) << name;
  }
}

TEST(ImportDialog, EveryLetterOfAMnemonicIsThereOnce) {
  Import import(kTable);
  QStringList captions;
  for (const QLabel* label : import.dialog.findChildren<QLabel*>()) {
    if (label->buddy()) captions << label->text();
  }
  for (const QAbstractButton* button : import.dialog.findChildren<QPushButton*>()) {
    EXPECT_TRUE(button->objectName().startsWith("cmd")) << button->text().toStdString();
    captions << button->text();
  }
  captions << import.get<QCheckBox>("chkSort").text();
  for (int tab = 0; tab < 2; ++tab) captions << import.get<QTabWidget>("tabViews").tabText(tab);
  EXPECT_EQ(captions.size(), 23);
  QSet<QString> letters;
  for (const QString& caption : captions) {
    const QString letter = QKeySequence::mnemonic(caption).toString();
    EXPECT_FALSE(letter.isEmpty()) << caption.toStdString();
    EXPECT_FALSE(letters.contains(letter)) << caption.toStdString();
    letters.insert(letter);
  }
}

TEST(ImportDialog, ItsButtonsImportAndCancel) {
  for (const auto& [name, result] : {std::pair("cmdImport", int(QDialog::Accepted)),
                                     std::pair("cmdCancel", int(QDialog::Rejected))}) {
    Import import(kTable);
    QTest::mouseClick(&import.get<QPushButton>(name), Qt::LeftButton);
    EXPECT_EQ(import.dialog.result(), result) << name;
    EXPECT_FALSE(import.dialog.isVisible());
  }
}

TEST(ImportDialog, ItsMnemonicsPressTheButtons) {
  for (const auto& [key, result] : {std::pair(Qt::Key_I, int(QDialog::Accepted)),
                                    std::pair(Qt::Key_L, int(QDialog::Rejected))}) {
    Import import(kTable);
    import.dialog.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&import.dialog));
    QTest::keyClick(import.dialog.focusWidget(), key, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !import.dialog.isVisible(); }, 5000));
    EXPECT_EQ(import.dialog.result(), result);
  }
}

TEST(ImportDialog, ColumnsShowTheirNamesAlsoInLargeLetters) {
  const QFont usual = QApplication::font();
  QFont large = usual;
  large.setPointSizeF(usual.pointSizeF() * 2);
  QApplication::setFont(large);
  {
    Import import("x,body_mass_index," + std::string(300, 'w') + "\n1,2,3\n2,3,4\n");
    const QHeaderView& names = *import.get<QTableView>("tblPreview").horizontalHeader();
    EXPECT_GT(names.sectionSize(1), names.fontMetrics().horizontalAdvance("body_mass_index"));
    EXPECT_LT(names.sectionSize(2), import.dialog.width() * 2 / 3) << "nobody takes the view";
  }
  QApplication::setFont(usual);
}

// Between the darkest and the lightest of a widget's pixels in this rectangle.
int contrast_in(QWidget& widget, const QRect& rect) {
  const QImage shot = widget.grab(rect).toImage();
  int darkest = 255, lightest = 0;
  for (int y = 0; y < shot.height(); ++y) {
    for (int x = 0; x < shot.width(); ++x) {
      darkest = std::min(darkest, qGray(shot.pixel(x, y)));
      lightest = std::max(lightest, qGray(shot.pixel(x, y)));
    }
  }
  return lightest - darkest;
}

TEST(ImportDialog, EmptyBoxesAreSeenOnDarkDesktops) {
  const QPalette usual = QApplication::palette();
  QPalette dark(QColor(55, 59, 64), QColor(42, 45, 49));
  dark.setColor(QPalette::Base, QColor(30, 32, 35));
  QApplication::setPalette(dark);
  {
    Import import("x,a\n1,2\n2,3\n");
    auto& curves = import.get<QListWidget>("lstCurves");
    import.get<QPushButton>("cmdNone").click();
    curves.clearSelection();
    // Before their texts.
    const QRect row = curves.visualItemRect(import.curve("a"));
    EXPECT_GT(contrast_in(*curves.viewport(), {row.left(), row.top(), 14, row.height()}), 40);
    auto& sort = import.get<QCheckBox>("chkSort");
    EXPECT_GT(contrast_in(sort, {0, 0, 14, sort.height()}), 40);
  }
  QApplication::setPalette(usual);
}

TEST(ImportDialog, DrawsTheOnlyColumnOfNumbersOnlyWhereTheUserSaysSo) {
  Import import("t;v\n1;fast\n2;slow\n3;fast\n");
  EXPECT_FALSE(import.can_import());
  EXPECT_THAT(import.summary(), AllOf(HasSubstr("no column of numbers beside x, the column \"t\""),
                                      HasSubstr("first \"fast\" in line 2"),
                                      HasSubstr("choose the row number as \"X axis\"")));
  EXPECT_EQ(import.get<QComboBox>("cboX").currentText(), "t");
  import.get<QComboBox>("cboX").setCurrentText("Row number");
  EXPECT_TRUE(import.comes_to_say("3 points, 1 curve"));
  EXPECT_THAT(names_of(import.taken()), ElementsAre("row", "t"));
}

TEST(ImportDialog, ASingleColumnIsDrawnWithoutAQuestion) {
  Import import("v\n1\n2\n3\n");
  EXPECT_EQ(import.summary(), "3 points, 1 curve");
  EXPECT_TRUE(import.can_import());
}

TEST(ImportDialog, BoxesAreAsLargeAsTheLettersBesideThem) {
  const QFont usual = QApplication::font();
  const int usual_height = QApplication::style()->pixelMetric(QStyle::PM_IndicatorHeight);
  QFont large = usual;
  large.setPointSize(24);
  QApplication::setFont(large);
  {
    Import import("x,a\n1,2\n2,3\n");
    for (const QWidget* widget : {static_cast<QWidget*>(&import.get<QListWidget>("lstCurves")),
                                  static_cast<QWidget*>(&import.get<QCheckBox>("chkSort"))}) {
      const int height = widget->style()->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, widget);
      EXPECT_EQ(height, QFontMetrics(large).ascent());
      EXPECT_GT(height, usual_height);
      EXPECT_EQ(widget->style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, widget), height);
    }
  }
  QApplication::setFont(usual);
}

TEST(ImportDialog, OffersMarkersWhereXGoesBackAndForth) {
  Import scattered("x,y\n1,2\n3,1\n2,5\n");
  EXPECT_EQ(scattered.shown_in("cboStyle"), "Markers");
  EXPECT_EQ(scattered.dialog.choice().lines, false);
  EXPECT_EQ(scattered.dialog.choice().markers, true);
  auto& sort = scattered.get<QCheckBox>("chkSort");
  sort.click();
  EXPECT_EQ(scattered.shown_in("cboStyle"), "Lines");
  scattered.choose("cboStyle", "Both");
  sort.click();
  EXPECT_EQ(scattered.shown_in("cboStyle"), "Both");
  EXPECT_EQ(scattered.dialog.choice().lines, true);
  EXPECT_EQ(scattered.dialog.choice().markers, true);

  Import ascending("x,y\n1,2\n2,1\n3,5\n");
  EXPECT_EQ(ascending.shown_in("cboStyle"), "Lines");
  EXPECT_EQ(ascending.dialog.choice().markers, false);
}

}  // namespace
}  // namespace kurv::app
