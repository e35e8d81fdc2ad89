// Saying in the import window how a table is written.
#include <QApplication>
#include <QSpinBox>
#include <QWheelEvent>

#include "tests/app/sources/zip_bytes.h"
#include "tests/app/window/import_fixture.h"

namespace kurv::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const char* const kTable = "Logger\n# a comment\nday;up;down\n1;2,5;3\n2;3,5;4\n3;4;5\n";

std::vector<std::string> names_of(const GraphSource& source) {
  std::vector<std::string> names;
  for (int i = 1; i <= source.data->names.upper(); ++i) names.push_back(source.data->names(i));
  return names;
}

TEST(ImportOptions, EachFieldShowsWhatAutomaticMeans) {
  Import import(kTable);
  EXPECT_EQ(import.shown_in("cboEncoding"), "Automatic (UTF-8)");
  EXPECT_EQ(import.shown_in("cboSeparator"), "Automatic (semicolon)");
  EXPECT_EQ(import.get<QSpinBox>("spnSkip").text(), "Automatic (2)");
  EXPECT_EQ(import.shown_in("cboComment"), "Automatic (#)");
  EXPECT_EQ(import.shown_in("cboHeader"), "Automatic (names)");
  EXPECT_EQ(import.shown_in("cboDecimal"), "Automatic (comma)");
  EXPECT_EQ(import.shown_in("cboThousands"), "Automatic (none)");
  EXPECT_EQ(import.shown_in("cboMissing"), "Automatic (NA, -)");
  EXPECT_EQ(import.shown_in("cboDates"), "Automatic (no dates)");
  EXPECT_FALSE(import.get<QComboBox>("cboSheet").isVisible());
  EXPECT_FALSE(import.get<QPushButton>("cmdAutomatic").isEnabled());
}

TEST(ImportOptions, AnotherSeparatorReadsTheTableAnew) {
  Import import("a b,c d\n1 2,3 4\n2 3,4 5\n3 4,5 6\n");
  import.choose("cboSeparator", "Blanks");
  EXPECT_TRUE(QTest::qWaitFor([&] { return import.rows().columnCount() == 3; }, 5000));
  import.choose("cboSeparator", "Comma");
  EXPECT_TRUE(QTest::qWaitFor([&] { return import.rows().columnCount() == 2; }, 5000));
}

TEST(ImportOptions, ASeparatorCanBeTyped) {
  Import import("x^y\n1^2\n2^3\n");
  EXPECT_FALSE(import.can_import());
  import.type("cboSeparator", "^");
  EXPECT_TRUE(import.comes_to_say("2 points, 1 curve"));
  EXPECT_TRUE(import.can_import());
  import.type("cboSeparator", "12");
  EXPECT_TRUE(import.comes_to_say("\"Separator\" takes one character"));
  EXPECT_FALSE(import.can_import());
  import.type("cboSeparator", "^");
  EXPECT_TRUE(import.comes_to_say("2 points, 1 curve"));
}

TEST(ImportOptions, TheDecimalSignChangesWhatNumbersAre) {
  Import import("x;y\n1;1.500\n2;2.500\n");
  import.choose("cboDecimal", "Comma");
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return import.shown_in("cboThousands") == "Automatic (point)"; }, 5000));
  EXPECT_EQ(import.taken().data->values(2, 1), 1500);
}

TEST(ImportOptions, TheSameSignTwiceIsRefused) {
  Import import(kTable);
  import.choose("cboDecimal", "Comma");
  import.choose("cboThousands", "Comma");
  EXPECT_TRUE(import.comes_to_say("are the same; choose different ones."));
  EXPECT_FALSE(import.can_import());
}

TEST(ImportOptions, LinesAreSkippedAndTheHeaderIsChosen) {
  Import import("5,6\n1,2\n2,3\n3,4\n");
  EXPECT_EQ(import.summary(), "4 points, 1 curve");
  import.get<QSpinBox>("spnSkip").setValue(1);
  EXPECT_TRUE(import.comes_to_say("3 points"));
  import.choose("cboHeader", "Names");
  EXPECT_TRUE(import.comes_to_say("2 points"));
  EXPECT_EQ(import.rows().headerData(1, Qt::Horizontal).toString(), "2\nnumbers");
}

TEST(ImportOptions, MissingTextsAndCommentsAreTyped) {
  Import import("x,y\n1,2\n2,-999\nREM,5\n3,4\n4,5\n5,6\n");
  import.type("cboMissing", "-999,x");
  import.type("cboComment", "REM");
  EXPECT_TRUE(import.comes_to_say("5 points"));
  EXPECT_EQ(import.rows().index(1, 1).data(Qt::ToolTipRole).toString(), "missing");
}

TEST(ImportOptions, DatesAreReadAsChosen) {
  Import import("d,v\n01/02/2020,1\n03/02/2020,2\n05/02/2020,3\n");
  EXPECT_EQ(import.shown_in("cboDates"), "Automatic (month first)");
  import.choose("cboDates", "Day first");
  EXPECT_TRUE(import.comes_to_say("3 points"));
  QTest::qWait(400);
  EXPECT_THAT(names_of(import.taken()), ElementsAre("d (days since 2020-02-01)", "v"));
}

TEST(ImportOptions, ATextInAnotherEncodingIsReadAnew) {
  Import import(
      "x,Gr\xC3\xB6\xC3\x9F"
      "e\n1,2\n2,3\n");
  EXPECT_NE(import.curve("Größe"), nullptr);
  import.choose("cboEncoding", "Latin-1");
  EXPECT_TRUE(QTest::qWaitFor([&] { return import.curve("Größe") == nullptr; }, 5000));
}

TEST(ImportOptions, XAndCurvesStayByTheirNames) {
  Import import(kTable);
  import.choose("cboX", "down");
  import.curve("day")->setCheckState(Qt::Unchecked);
  import.choose("cboDecimal", "Comma");
  QTest::qWait(400);
  EXPECT_EQ(import.shown_in("cboX"), "down");
  EXPECT_EQ(import.curve("day")->checkState(), Qt::Unchecked);
  EXPECT_EQ(import.curve("up")->checkState(), Qt::Checked);
  // And after a reading in which they were not there.
  import.choose("cboSeparator", "Tab");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !import.can_import(); }, 5000));
  import.choose("cboSeparator", "Semicolon");
  EXPECT_TRUE(import.comes_to_say("3 points, 1 curve"));
  EXPECT_EQ(import.shown_in("cboX"), "down");
}

TEST(ImportOptions, WhatCannotBeReadIsSaidAndCanBeMended) {
  Import import("x,y\n\"1,2\n2,3\n3,4\n");
  EXPECT_THAT(import.summary(), HasSubstr("has a quotation mark that is never closed"));
  EXPECT_FALSE(import.can_import());
  EXPECT_TRUE(import.get<QTableView>("tblLines").isVisible()) << "the lines are in front";
  import.get<QSpinBox>("spnSkip").setValue(2);
  EXPECT_TRUE(import.comes_to_say("2 points, 1 curve"));
  EXPECT_TRUE(import.can_import());
}

TEST(ImportOptions, ATextInNoEncodingCanBeGivenOne) {
  std::string bytes;
  for (const char c : std::string("x,y\n1,2\n2,3\n")) bytes += {c, '\0'};
  Import import(bytes);
  import.choose("cboEncoding", "Latin-1");
  EXPECT_TRUE(import.comes_to_say("The file is no text"));
  EXPECT_THAT(import.summary(), HasSubstr("name its encoding with \"Encoding\"."));
  import.choose("cboEncoding", "UTF-16LE");
  EXPECT_TRUE(import.comes_to_say("2 points, 1 curve"));
}

// A workbook of thirty sheets, of which the first one is empty.
std::string thirty_sheets() {
  const std::string schema = "=\"urn:oasis:names:tc:opendocument:xmlns:";
  std::string content = "<office:document-content xmlns:office" + schema +
                        "office:1.0\" xmlns:table" + schema + "table:1.0\" xmlns:text" + schema +
                        "text:1.0\"><office:body><office:spreadsheet>";
  for (int sheet = 1; sheet <= 30; ++sheet) {
    content += "<table:table table:name=\"S" + std::to_string(sheet) + "\">";
    for (int row = 0; row < (sheet == 1 ? 0 : sheet); ++row) {
      const std::string value = std::to_string(row);
      const std::string cell = "<table:table-cell office:value-type=\"float\" office:value=\"" +
                               value + "\"><text:p>" + value + "</text:p></table:table-cell>";
      content += "<table:table-row>" + cell + cell + "</table:table-row>";
    }
    content += "</table:table>";
  }
  content += "</office:spreadsheet></office:body></office:document-content>";
  return zip_bytes(
      {{"mimetype", "application/vnd.oasis.opendocument.spreadsheet"}, {"content.xml", content}});
}

TEST(ImportOptions, TheSheetsOfAWorkbookAreNamed) {
  Import import(thirty_sheets(), "/data/a.ods");
  auto& sheets = import.get<QComboBox>("cboSheet");
  EXPECT_TRUE(sheets.isVisible());
  EXPECT_EQ(sheets.count(), 31);
  EXPECT_EQ(sheets.currentText(), "Automatic (S2)");
  EXPECT_FALSE(import.get<QComboBox>("cboSeparator").isEnabled());
  import.choose("cboSheet", "S30");
  EXPECT_TRUE(import.comes_to_say("30 points"));
  EXPECT_EQ(import.lines().rowCount(), 30);
  import.choose("cboSheet", "S1");
  EXPECT_TRUE(import.comes_to_say("has no cell with a value"));
  import.choose("cboSheet", "S3");
  EXPECT_TRUE(import.comes_to_say("3 points")) << "the sheets can still be chosen";
}

TEST(ImportOptions, AcceptingReadsWhatWasChangedLast) {
  Import import("x;y\n1;1.500\n2;2.500\n");
  import.choose("cboDecimal", "Comma");
  EXPECT_EQ(import.taken().data->values(2, 1), 1500) << "without waiting";
}

TEST(ImportOptions, ReturnInATypedFieldImports) {
  Import import("x^y\n1^2\n2^3\n");
  import.dialog.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&import.dialog));
  import.type("cboSeparator", "^");
  EXPECT_TRUE(import.comes_to_say("2 points"));
  QTest::keyClick(import.dialog.focusWidget(), Qt::Key_Return);
  EXPECT_EQ(import.dialog.result(), QDialog::Accepted);
}

TEST(ImportOptions, AnEmptiedFieldIsAutomaticAgain) {
  Import import(kTable);
  import.type("cboSeparator", "|");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !import.can_import(); }, 5000));
  auto& field = import.get<QComboBox>("cboSeparator");
  QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&field, Qt::Key_Delete);
  EXPECT_TRUE(import.comes_to_say("3 points, 2 curves"));
  import.get<QComboBox>("cboX").setFocus();
  EXPECT_EQ(import.shown_in("cboSeparator"), "Automatic (semicolon)");
}

TEST(ImportOptions, QuickChangesEndWithTheLastOne) {
  Import import(kTable);
  for (int i = 0; i < 20; ++i) {
    for (const char* separator : {"Comma", "Tab", "Blanks", "Fixed width", "Semicolon"}) {
      import.choose("cboSeparator", separator);
      QTest::qWait(i % 3);
    }
  }
  QTest::qWait(400);
  EXPECT_EQ(import.summary(), "3 points, 2 curves");
}

// Scrolling the page must not change a field that the pointer happens to be over.
TEST(ImportOptions, TheWheelTurnsOnlyTheFieldThatHasTheFocus) {
  Import import(kTable);
  import.dialog.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&import.dialog));
  const auto turn = [](QWidget& field) {
    QWheelEvent event(QPointF(5, 5), field.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&field, &event);
  };
  auto& header = import.get<QComboBox>("cboHeader");
  turn(header);
  EXPECT_EQ(header.currentIndex(), 0);
  turn(import.get<QSpinBox>("spnSkip"));
  EXPECT_EQ(import.get<QSpinBox>("spnSkip").value(), -1);
  header.setFocus();
  turn(header);
  EXPECT_EQ(header.currentIndex(), 1);
}

TEST(ImportOptions, TheButtonMakesAllAutomatic) {
  Import import(kTable);
  import.choose("cboSeparator", "Comma");
  import.choose("cboHeader", "None");
  import.get<QSpinBox>("spnSkip").setValue(0);
  QTest::qWait(400);
  auto& button = import.get<QPushButton>("cmdAutomatic");
  EXPECT_TRUE(button.isEnabled());
  button.click();
  EXPECT_TRUE(import.comes_to_say("3 points, 2 curves"));
  EXPECT_EQ(import.shown_in("cboSeparator"), "Automatic (semicolon)");
  EXPECT_EQ(import.get<QSpinBox>("spnSkip").text(), "Automatic (2)");
  EXPECT_FALSE(button.isEnabled());
}

TEST(ImportOptions, TheNextTableOfAFolderOpensInTheSameWay) {
  const auto settings = std::make_shared<ImportSettings>();
  {
    Import first("x;y\n1;1.500\n2;2.500\n", "/data/a.csv", settings);
    EXPECT_EQ(first.label("lblRemark"), "");
    first.choose("cboSeparator", "Semicolon");
    first.choose("cboDecimal", "Comma");
    first.taken();
  }
  {
    Import other("x;y\n1;3.500\n2;4.500\n", "/other/b.csv", settings);
    EXPECT_EQ(other.label("lblRemark"), "");
  }
  Import next("x;y\n1;3.500\n2;4.500\n", "/data/b.csv", settings);
  EXPECT_EQ(next.label("lblRemark"),
            "As for the last table of this folder: semicolon, decimal comma");
  EXPECT_EQ(next.shown_in("cboDecimal"), "Comma");
  next.get<QPushButton>("cmdAutomatic").click();
  EXPECT_EQ(next.label("lblRemark"), "");
  EXPECT_EQ(next.taken().data->values(2, 1), 3.5);
  EXPECT_EQ(Import("x;y\n1;3\n2;4\n", "/data/c.csv", settings).label("lblRemark"), "")
      << "everything was automatic last";
}

TEST(ImportOptions, ChoicesThatDoNotFitTheNextTableAreDropped) {
  const auto settings = std::make_shared<ImportSettings>();
  {
    Import first("x^y\n1^2\n2^3\n", "/data/a.csv", settings);
    first.type("cboSeparator", "^");
    first.taken();
  }
  Import next("x;y\n1;2\n2;3\n", "/data/b.csv", settings);
  EXPECT_EQ(next.summary(), "2 points, 1 curve");
  EXPECT_THAT(next.label("lblRemark"), HasSubstr("do not fit this one, so they are not used"));
  EXPECT_EQ(next.shown_in("cboSeparator"), "Automatic (semicolon)");
}

TEST(ImportOptions, CancellingRemembersNothing) {
  const auto settings = std::make_shared<ImportSettings>();
  {
    Import first(kTable, "/data/a.csv", settings);
    first.choose("cboDecimal", "Comma");
    first.dialog.reject();
  }
  EXPECT_EQ(Import(kTable, "/data/b.csv", settings).label("lblRemark"), "");
}

}  // namespace
}  // namespace kurv::app
