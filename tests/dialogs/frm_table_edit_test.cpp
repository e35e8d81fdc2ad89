// Cut, copy, paste and delete.
#include <gmock/gmock.h>

#include <QImage>
#include <QMimeData>
#include <cmath>
#include <limits>

#include "tests/dialogs/table_support.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNan;

constexpr const char* kInvalid = "Invalid numerical data cells were detected.";
constexpr const char* kLeftOut = "Note that some data has not been pasted in this action.";
constexpr const char* kAllTheSame = "Graph cannot be plotted when all x values are the same.";

TEST(TableCopy, PutsTheBlockOnTheClipboardAndLeavesTheData) {
  Table table;
  table.select(1, 1, 2, 3);
  table.copy();
  EXPECT_EQ(table.clipboard(), "3\t30\t-3\r\n1\t10\t-1");
  EXPECT_EQ(table.cell(1, 1), "3");
  EXPECT_EQ(table.client.redraws(), 0);
}

TEST(TableCopy, OrdersTheCorners) {
  Table table;
  table.grid->setCurrentIndex(table.at(3, 3));
  table.grid->selectionModel()->select(QItemSelection(table.at(2, 2), table.at(3, 3)),
                                       QItemSelectionModel::ClearAndSelect);
  table.copy();
  EXPECT_EQ(table.clipboard(), "10\t-1\r\n20\t-2");
}

TEST(TableCopy, TakesTheCurrentCellWhereNothingIsSelected) {
  Table table;
  table.select(2, 2);
  table.grid->selectionModel()->clearSelection();
  table.copy();
  EXPECT_EQ(table.clipboard(), "10");
}

TEST(TableCopy, ReplacesWhateverWasThere) {
  Table table;
  QApplication::clipboard()->setImage(QImage(2, 2, QImage::Format_RGB32));
  table.select(1, 1);
  table.copy();
  EXPECT_FALSE(QApplication::clipboard()->mimeData()->hasImage());
  EXPECT_EQ(table.clipboard(), "3");
}

TEST(TableCut, CopiesAndEmpties) {
  Table table;
  table.select(1, 2, 2, 3);
  table.cut();
  EXPECT_EQ(table.clipboard(), "30\t-3\r\n10\t-1");
  EXPECT_THAT(table.column_of_host(2), ElementsAre(IsNan(), IsNan(), 20));
  EXPECT_THAT(table.column_of_host(3), ElementsAre(IsNan(), IsNan(), -2));
  EXPECT_EQ(table.cell(1, 2), "");
  EXPECT_FALSE(table.is_marked(1, 2));
  EXPECT_EQ(table.client.redraws(), 1) << "one for the whole block";
  EXPECT_THAT(table.messages(), IsEmpty());
}

TEST(TableDelete, EmptiesAndLeavesTheClipboard) {
  Table table;
  QApplication::clipboard()->setText("kept");
  table.select(2, 3);
  table.erase();
  EXPECT_TRUE(std::isnan(table.document().xyArrUnsorted(3, 2)));
  EXPECT_EQ(table.clipboard(), "kept");
  EXPECT_EQ(table.client.redraws(), 1);
}

TEST(TableDelete, OfAllXIsUndoneAndTold) {
  Table table;
  table.select(1, 1, 3, 2);
  table.erase();
  ASSERT_EQ(table.shell().messages.size(), 1u);
  EXPECT_EQ(table.shell().messages[0].flags, kCriticalStop);
  EXPECT_EQ(table.shell().messages[0].title, "KURV Guide");
  EXPECT_THAT(table.messages(), ElementsAre(kAllTheSame));
  EXPECT_THAT(table.column_of_host(1), ElementsAre(3, 1, 2));
  EXPECT_THAT(table.column_of_host(2), ElementsAre(30, 10, 20));
  EXPECT_EQ(table.cell(1, 1), "") << "the cells keep their texts";
  EXPECT_TRUE(table.is_marked(1, 1));
  EXPECT_TRUE(table.is_marked(3, 2));
  EXPECT_FALSE(table.is_marked(1, 3));
  EXPECT_EQ(table.status(), "3 &points, 3 columns; 6 cells are not in the graph");
  EXPECT_EQ(table.client.redraws(), 0);
}

TEST(TablePaste, PutsNumbersIntoTheDataAtOnce) {
  Table table;
  table.select(2, 2);
  table.paste("1.50\t-7e2\r\n 0.25 \t+4\r\n");
  EXPECT_THAT(table.column_of_host(2), ElementsAre(30, 1.5, 0.25));
  EXPECT_THAT(table.column_of_host(3), ElementsAre(-3, -700, 4));
  EXPECT_EQ(table.cell(2, 2), "1.5");
  EXPECT_EQ(table.client.redraws(), 1);
  EXPECT_THAT(table.messages(), IsEmpty());
  EXPECT_GE(table.document().ymax, 30);
  EXPECT_LE(table.document().ymin, -700);
}

TEST(TablePaste, LeavesTheLimitsWithoutAutoscale) {
  Table table;
  table.document().Autoscale = false;
  table.select(1, 2);
  const Double before = table.document().ymax;
  table.paste("9000");
  EXPECT_EQ(table.document().ymax, before);
  EXPECT_EQ(table.client.redraws(), 1);
}

TEST(TablePaste, KeepsTheBlockThatWasSelected) {
  Table table;
  table.select(1, 1, 3, 2);
  table.paste("5\n6\n7");
  EXPECT_EQ(table.grid->selectionModel()->selectedIndexes().size(), 6);
  EXPECT_THAT(table.column_of_host(1), ElementsAre(5, 6, 7));
}

TEST(TablePaste, ShowsTextsThatAreNoNumbersAndKeepsTheData) {
  Table table;
  table.select(1, 2);
  table.paste("abc\t1\n5");
  ASSERT_EQ(table.shell().messages.size(), 1u);
  EXPECT_EQ(table.shell().messages[0].flags, kExclamation);
  EXPECT_EQ(table.shell().messages[0].title, "KURV Guide");
  EXPECT_THAT(table.messages(), ElementsAre(kInvalid));
  EXPECT_EQ(table.cell(1, 2), "abc");
  EXPECT_TRUE(table.is_marked(1, 2));
  EXPECT_TRUE(table.at(1, 2).data(Qt::DecorationRole).isValid());
  EXPECT_EQ(table.at(1, 2).data(Qt::ToolTipRole).toString(),
            "Not a number. The graph still has 30 here.");
  EXPECT_EQ(table.at(1, 2).data(Qt::AccessibleDescriptionRole),
            table.at(1, 2).data(Qt::ToolTipRole));
  EXPECT_THAT(table.column_of_host(2), ElementsAre(30, 5, 20));
  EXPECT_THAT(table.column_of_host(3), ElementsAre(1, -1, -2));
  EXPECT_EQ(table.client.redraws(), 1);
  EXPECT_EQ(table.status(), "3 &points, 3 columns; 1 cell is not in the graph");
  table.select(1, 2);
  table.paste("31");
  EXPECT_FALSE(table.is_marked(1, 2)) << "a number takes the mark away";
  EXPECT_EQ(table.cell(1, 2), "31");
}

TEST(TablePaste, OfTextAloneRedrawsNothing) {
  Table table;
  table.select(1, 2);
  table.paste("abc");
  EXPECT_EQ(table.client.redraws(), 0);
}

TEST(TablePaste, SaysWhatFallsOutsideTheGrid) {
  Table table;
  table.select(3, 3);
  table.paste("8\t9\n10");
  ASSERT_EQ(table.shell().messages.size(), 1u);
  EXPECT_EQ(table.shell().messages[0].flags, kExclamation);
  EXPECT_THAT(table.messages(), ElementsAre(kLeftOut));
  EXPECT_EQ(table.document().xyArrUnsorted(3, 3), 8);
  EXPECT_EQ(table.grid->model()->rowCount(), 3);
}

TEST(TablePaste, TellsTheGravestFirst) {
  Table table;
  table.select(1, 1);
  table.paste("1\tx\n1\n1\n1");
  EXPECT_THAT(table.messages(), ElementsAre(kAllTheSame, kInvalid, kLeftOut));
}

TEST(TablePaste, OfEqualXIsUndoneAndKeepsItsTexts) {
  Table table;
  table.select(1, 1);
  table.paste("4.0\t99\n4.0\t98\n4.0\t97");
  EXPECT_THAT(table.messages(), ElementsAre(kAllTheSame));
  EXPECT_EQ(table.cell(1, 1), "4.0") << "as it was written";
  EXPECT_TRUE(table.is_marked(1, 2)) << "all of the command";
  EXPECT_THAT(table.column_of_host(2), ElementsAre(30, 10, 20));
  EXPECT_EQ(
      table.at(1, 1).data(Qt::ToolTipRole).toString(),
      "Not stored: at least two points need different values of x. The graph still has 3 here.");
  table.select(1, 2);
  table.erase();
  EXPECT_FALSE(table.is_marked(1, 2)) << "what is taken later is marked no more";
}

TEST(TablePaste, NeedsTextOnTheClipboard) {
  Table table;
  table.select(1, 1);
  QApplication::clipboard()->clear();
  table.choose("mnuEditItem_2");
  QApplication::clipboard()->setImage(QImage(2, 2, QImage::Format_RGB32));
  table.choose("mnuEditItem_2");
  EXPECT_THAT(table.column_of_host(1), ElementsAre(3, 1, 2));
}

TEST(TablePaste, OfAnEmptyCellEmptiesOne) {
  Table table;
  table.select(1, 2);
  table.erase();
  table.copy();
  table.select(2, 2);
  table.choose("mnuEditItem_2");
  EXPECT_TRUE(std::isnan(table.document().xyArrUnsorted(2, 2)));
}

TEST(TablePaste, AcceptsMissingValuesByName) {
  Table table;
  table.select(1, 2);
  table.paste("nan\tNaN");
  EXPECT_TRUE(std::isnan(table.document().xyArrUnsorted(2, 1)));
  EXPECT_TRUE(std::isnan(table.document().xyArrUnsorted(3, 1)));
  EXPECT_EQ(table.cell(1, 2), "");
  EXPECT_THAT(table.messages(), IsEmpty());
}

TEST(TablePaste, TakesNoInfiniteValueBecauseItWouldBlankThePlot) {
  Table table;
  const Double ymax = table.document().ymax;
  table.select(1, 1);
  table.paste("inf\tInf\t-Inf\n4\t1e999\t-1E400");
  EXPECT_THAT(table.messages(), ElementsAre(kInvalid));
  EXPECT_THAT(table.column_of_host(1), ElementsAre(3, 4, 2));
  EXPECT_THAT(table.column_of_host(2), ElementsAre(30, 10, 20));
  EXPECT_THAT(table.column_of_host(3), ElementsAre(-3, -1, -2));
  EXPECT_EQ(table.document().ymax, ymax);
  EXPECT_EQ(table.cell(2, 2), "1e999") << "as it was written";
  EXPECT_EQ(table.at(2, 2).data(Qt::ToolTipRole).toString(),
            "Not a number. The graph still has 10 here.");
  for (const auto& [row, column] : {std::pair{1, 1}, {1, 2}, {1, 3}, {2, 2}, {2, 3}}) {
    EXPECT_TRUE(table.is_marked(row, column)) << row << ", " << column;
  }
}

TEST(TablePaste, OfACopiedInfiniteValueIsMarkedWhereTheHostsOwnIsShown) {
  constexpr Double kInf = std::numeric_limits<Double>::infinity();
  Table table({{1, 2, 3}, {kInf, 5, 6}});
  table.select(1, 2);
  table.copy();
  EXPECT_EQ(table.clipboard(), "Inf");
  EXPECT_FALSE(table.is_marked(1, 2));
  table.select(2, 2);
  table.choose("mnuEditItem_2");
  EXPECT_THAT(table.column_of_host(2), ElementsAre(kInf, 5, 6));
  EXPECT_EQ(table.cell(2, 2), "Inf");
  EXPECT_TRUE(table.is_marked(2, 2));
  EXPECT_THAT(table.messages(), ElementsAre(kInvalid));
}

TEST(TablePaste, HostileTextIsOnlyText) {
  Table table;
  table.select(1, 2);
  table.paste(QString("0x10\t1,5\n1 2\t<img src=x>\n=A1+1\t") + QChar(0) + QChar(0xD800));
  EXPECT_THAT(table.messages(), ElementsAre(kInvalid));
  EXPECT_THAT(table.column_of_host(2), ElementsAre(30, 10, 20));
  EXPECT_EQ(table.status(), "3 &points, 3 columns; 6 cells are not in the graph");
  table.grid->grab();
  table.select(1, 2);
  table.paste(QString(5000000, u'y'));
  table.messages();
  table.grid->grab();
  EXPECT_EQ(table.at(1, 2).data(Qt::EditRole).toString().size(), 5000000);
}

TEST(TablePaste, InTheSortedTableGoesToThePointsOfTheRows) {
  Table table;
  table.client.host.control.set_SortXY(true);
  table.client.host.control.build_the_graph();
  table.window.refill();
  table.client.redraws();
  // x 1 2 3 become 9 2.5 3: the first row goes to the end, with what is pasted beside it.
  table.select(1, 1);
  table.paste("9\t90\tno\n2.5\t25");
  EXPECT_THAT(table.messages(), ElementsAre(kInvalid));
  EXPECT_THAT(table.column_of_host(1), ElementsAre(3, 9, 2.5));
  EXPECT_THAT(table.column_of_host(2), ElementsAre(30, 90, 25));
  EXPECT_EQ(table.cell(3, 1), "9");
  EXPECT_EQ(table.cell(3, 3), "no") << "the mark goes with its point";
  EXPECT_TRUE(table.is_marked(3, 3));
  EXPECT_FALSE(table.is_marked(1, 3));
  EXPECT_EQ(table.client.redraws(), 1);
  table.client.host.control.set_SortXY(false);
  table.client.host.control.build_the_graph();
  table.window.refill();
  EXPECT_EQ(table.cell(2, 3), "no") << "and is there in the host's order too";
}

}  // namespace
}  // namespace kurv::test
