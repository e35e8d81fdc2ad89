// The table used by keyboard alone.
#include <gmock/gmock.h>

#include <QMenuBar>
#include <QPushButton>
#include <cmath>
#include <limits>

#include "tests/dialogs/table_support.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TableKeys, TypedNumbersGoIntoTheDataAtOnce) {
  Table table;
  table.type(2, 2, " 12.50 ");
  EXPECT_EQ(table.document().xyArrUnsorted(2, 2), 12.5);
  EXPECT_EQ(table.cell(2, 2), "12.5");
  EXPECT_EQ(table.client.redraws(), 1);
}

TEST(TableKeys, ADigitBeginsANewText) {
  Table table;
  table.select(2, 2);
  QTest::keyClick(table.grid, Qt::Key_7);
  auto* const editor = table.grid->findChild<QLineEdit*>();
  ASSERT_TRUE(editor);
  EXPECT_EQ(editor->text(), "7");
  QTest::keyClick(editor, Qt::Key_Return);
  table.settle();
  EXPECT_EQ(table.document().xyArrUnsorted(2, 2), 7);
  EXPECT_TRUE(table.window.isVisible()) << "Enter closes the cell alone";
}

TEST(TableKeys, TypedTextIsMarkedWithoutAMessage) {
  Table table;
  table.type(1, 2, "n/a");
  EXPECT_EQ(table.cell(1, 2), "n/a");
  EXPECT_TRUE(table.is_marked(1, 2));
  EXPECT_EQ(table.document().xyArrUnsorted(2, 1), 30);
  EXPECT_EQ(table.client.redraws(), 0);
  EXPECT_THAT(table.messages(), IsEmpty());
  table.type(1, 2, "");
  EXPECT_TRUE(std::isnan(table.document().xyArrUnsorted(2, 1))) << "an emptied cell is missing";
  EXPECT_FALSE(table.is_marked(1, 2));
}

TEST(TableKeys, AnEditorThatIsLeftAsItWasChangesNothing) {
  Table table({{1, 2}, {0.1, 1.0 / 3}});
  for (int row = 1; row <= 2; ++row) {
    table.select(row, 2);
    QTest::keyClick(table.grid, Qt::Key_F2);
    QTest::keyClick(table.grid->findChild<QLineEdit*>(), Qt::Key_Return);
    table.settle();
  }
  EXPECT_EQ(table.client.redraws(), 0);
  EXPECT_THAT(table.column_of_host(2), ElementsAre(0.1, 1.0 / 3));
}

TEST(TableKeys, OpeningAnEditorOnARefusedTextMarksNothing) {
  Table table({{1, 2}, {std::numeric_limits<Double>::infinity(), 4}});
  table.select(1, 2);
  QTest::keyClick(table.grid, Qt::Key_F2);
  QTest::keyClick(table.grid->findChild<QLineEdit*>(), Qt::Key_Return);
  table.settle();
  EXPECT_FALSE(table.is_marked(1, 2));
  table.type(1, 2, "Inf");
  EXPECT_TRUE(table.is_marked(1, 2)) << "but typing it shows that it is refused";
  EXPECT_THAT(table.messages(), IsEmpty());
}

TEST(TableKeys, ATypedXThatMakesAllTheSameIsUndoneAndReportedLater) {
  Table table({{1, 2}, {3, 4}});
  table.type(1, 1, "2");
  EXPECT_THAT(table.column_of_host(1), ElementsAre(1, 2));
  EXPECT_EQ(table.cell(1, 1), "2");
  EXPECT_TRUE(table.is_marked(1, 1));
  EXPECT_THAT(table.messages(),
              ElementsAre("Graph cannot be plotted when all x values are the same."));
}

TEST(TableKeys, ATypedXMovesItsRowInTheSortedTable) {
  Table table;
  table.client.host.control.set_SortXY(true);
  table.client.host.control.build_the_graph();
  table.window.refill();
  table.client.redraws();
  table.type(1, 1, "9");
  EXPECT_EQ(table.cell(3, 1), "9");
  EXPECT_EQ(table.cell(3, 2), "10");
  EXPECT_THAT(table.column_of_host(1), ElementsAre(3, 9, 2));
  EXPECT_EQ(table.client.redraws(), 1);
}

TEST(TableKeys, EscapeLeavesTheCellAndThenTheWindow) {
  Table table;
  table.select(1, 2);
  QTest::keyClick(table.grid, Qt::Key_F2);
  auto* const editor = table.grid->findChild<QLineEdit*>();
  ASSERT_TRUE(editor);
  QTest::keyClicks(editor, "99");
  QTest::keyClick(editor, Qt::Key_Escape);
  table.settle();
  EXPECT_TRUE(table.window.isVisible());
  EXPECT_EQ(table.document().xyArrUnsorted(2, 1), 30);
  QTest::keyClick(table.grid, Qt::Key_Escape);
  EXPECT_FALSE(table.window.isVisible());
}

TEST(TableKeys, EnterInTheGridClosesNothing) {
  Table table;
  QTest::keyClick(table.grid, Qt::Key_Return);
  EXPECT_TRUE(table.window.isVisible());
}

TEST(TableKeys, CutCopyPasteAndDelete) {
  Table table;
  table.select(1, 2);
  QTest::keyClick(table.grid, Qt::Key_Down, Qt::ShiftModifier);
  QTest::keyClick(table.grid, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(table.clipboard(), "30\r\n10");
  QTest::keyClick(table.grid, Qt::Key_Delete);
  EXPECT_TRUE(std::isnan(table.document().xyArrUnsorted(2, 2)));
  QTest::keyClick(table.grid, Qt::Key_V, Qt::ControlModifier);
  EXPECT_THAT(table.column_of_host(2), ElementsAre(30, 10, 20))
      << "at the block's first cell, although its last one is the current";
  QTest::keyClick(table.grid, Qt::Key_X, Qt::ControlModifier);
  EXPECT_TRUE(std::isnan(table.document().xyArrUnsorted(2, 1)));
}

TEST(TableKeys, BelongToTheEditorWhileThereIsOne) {
  Table table;
  table.select(1, 2);
  QApplication::clipboard()->setText("5");
  QTest::keyClick(table.grid, Qt::Key_F2);
  auto* const editor = table.grid->findChild<QLineEdit*>();
  ASSERT_TRUE(editor);
  editor->selectAll();
  QTest::keyClick(editor, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(editor->text(), "5");
  EXPECT_EQ(table.document().xyArrUnsorted(2, 1), 30) << "not before it is left";
}

TEST(TableKeys, ControlASelectsEverything) {
  Table table;
  QTest::keyClick(table.grid, Qt::Key_A, Qt::ControlModifier);
  table.copy();
  EXPECT_EQ(table.clipboard(), "3\t30\t-3\r\n1\t10\t-1\r\n2\t20\t-2");
}

TEST(TableKeys, ControlAndTabLeaveTheGrid) {
  Table table;
  table.grid->setFocus();
  QTest::keyClick(table.grid, Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(QApplication::focusWidget(), table.window.findChild<QPushButton*>("cmdExit"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(QApplication::focusWidget(), table.grid);
}

// Of a table of three rows and three columns.
struct Step {
  int row, column;
  Qt::Key key;
  Qt::KeyboardModifiers modifiers;
  int to_row, to_column;
};
const Step kSteps[] = {
    {1, 2, Qt::Key_Return, {}, 2, 2},
    {3, 2, Qt::Key_Return, {}, 3, 2},
    {2, 2, Qt::Key_Enter, Qt::KeypadModifier, 3, 2},
    {2, 2, Qt::Key_Return, Qt::ShiftModifier, 1, 2},
    {1, 2, Qt::Key_Return, Qt::ShiftModifier, 1, 2},
    {1, 2, Qt::Key_Tab, {}, 1, 3},
    {1, 3, Qt::Key_Tab, {}, 2, 1},
    {3, 3, Qt::Key_Tab, {}, 3, 3},
    {2, 1, Qt::Key_Backtab, Qt::ShiftModifier, 1, 3},
    {1, 1, Qt::Key_Backtab, Qt::ShiftModifier, 1, 1},
};

TEST(TableKeys, EnterGoesDownAndTabToTheRightAndWithShiftBack) {
  for (const Step& step : kSteps) {
    Table table;
    table.select(step.row, step.column);
    QTest::keyClick(table.grid, step.key, step.modifiers);
    EXPECT_EQ(table.grid->currentIndex(), table.at(step.to_row, step.to_column)) << step.key;
    EXPECT_EQ(table.grid->selectionModel()->selectedIndexes().size(), 1);
    EXPECT_EQ(QApplication::focusWidget(), table.grid);
    EXPECT_TRUE(table.window.isVisible());
  }
}

TEST(TableKeys, EnterAndTabTakeWhatIsTypedAndGoOn) {
  for (const Step& step : kSteps) {
    Table table;
    table.select(step.row, step.column);
    QTest::keyClick(table.grid, Qt::Key_9);
    QTest::keyClick(QApplication::focusWidget(), step.key, step.modifiers);
    table.settle();
    EXPECT_EQ(table.cell(step.row, step.column), "9");
    EXPECT_EQ(table.grid->currentIndex(), table.at(step.to_row, step.to_column)) << step.key;
    EXPECT_EQ(table.grid->findChild<QLineEdit*>(), nullptr) << "the next cell waits for a key";
    EXPECT_EQ(QApplication::focusWidget(), table.grid);
  }
}

TEST(TableKeys, ARowOfNumbersIsTypedWithoutTheMouse) {
  Table table;
  table.select(1, 2);
  for (const char* text : {"7", "8", "9"}) {
    QTest::keyClicks(table.grid, text);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(table.cell(1, 2), "7");
  EXPECT_EQ(table.cell(1, 3), "8");
  EXPECT_EQ(table.cell(2, 1), "9");
}

TEST(TableKeys, AWindowThatGoesWhileEnterIsTakenDoesNoHarm) {
  TableClient client;
  load_columns(client.host, {{3, 1, 2}, {30, 10, 20}});
  frmTable* const window = open_table(client);
  auto* const grid = window->findChild<QTableView*>("grdTable");
  grid->setFocus();
  QTest::keyClick(grid, Qt::Key_9);
  client.handled = [&] {
    client.handled = {};
    window->deleteLater();
    window->hide();
    window->set_client(nullptr);
  };
  QTest::keyClick(grid->findChild<QLineEdit*>(), Qt::Key_Return);
  Table::settle();
  EXPECT_EQ(client.host.document().xyArrUnsorted(1, 1), 9);
}

TEST(TableKeys, CloseTakesWhatIsBeingTyped) {
  Table table;
  table.select(1, 2);
  QTest::keyClick(table.grid, Qt::Key_F2);
  QTest::keyClicks(table.grid->findChild<QLineEdit*>(), "6");
  QTest::mouseClick(table.window.findChild<QPushButton*>("cmdExit"), Qt::LeftButton);
  EXPECT_FALSE(table.window.isVisible());
  EXPECT_EQ(table.document().xyArrUnsorted(2, 1), 6);
}

TEST(TableMenus, HaveTheirItemsNamesAndKeys) {
  const Table table;
  const auto caption = [&](const char* name) {
    return table.window.findChild<QAction*>(name)->text().toStdString();
  };
  const auto key = [&](const char* name) {
    return table.window.findChild<QAction*>(name)->shortcut().toString().toStdString();
  };
  EXPECT_EQ(caption("mnuSave"), "&Save Graph");
  EXPECT_EQ(caption("mnuFileItem_0"), "Save as &Text…");
  EXPECT_EQ(caption("mnuEditItem_0"), "Cu&t");
  EXPECT_EQ(caption("mnuEditItem_1"), "&Copy");
  EXPECT_EQ(caption("mnuEditItem_2"), "&Paste");
  EXPECT_EQ(caption("mnuEditItem_3"), "&Delete");
  EXPECT_EQ(key("mnuSave"), "Ctrl+S");
  EXPECT_EQ(key("mnuFileItem_0"), "Ctrl+E");
  EXPECT_EQ(key("mnuCopyWithHeadings"), "Ctrl+Shift+C");
  EXPECT_EQ(key("mnuFind"), "Ctrl+F");
  EXPECT_EQ(key("mnuGoToRow"), "Ctrl+G");
  EXPECT_EQ(key("mnuSelectAll"), "Ctrl+A");
  EXPECT_EQ(key("mnuEditItem_0"), "Ctrl+X");
  EXPECT_EQ(key("mnuEditItem_1"), "Ctrl+C");
  EXPECT_EQ(key("mnuEditItem_2"), "Ctrl+V");
  EXPECT_EQ(key("mnuEditItem_3"), "Del");
}

}  // namespace
}  // namespace kurv::test
