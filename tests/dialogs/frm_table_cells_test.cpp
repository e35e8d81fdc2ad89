// What the table shows, and how it keeps up with its graph.
#include <gmock/gmock.h>

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <cmath>
#include <limits>

#include "tests/dialogs/table_support.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;

constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
constexpr Double kInf = std::numeric_limits<Double>::infinity();

std::string heading(const Table& table, int column) {
  return table.grid->model()->headerData(column - 1, Qt::Horizontal).toString().toStdString();
}

TEST(TableCells, AreThePointsUnderTrimmedNames) {
  const Table table;
  EXPECT_EQ(table.grid->model()->rowCount(), 3);
  EXPECT_EQ(table.grid->model()->columnCount(), 3);
  EXPECT_EQ(heading(table, 1), "x");
  EXPECT_EQ(heading(table, 3), "curve2");
  EXPECT_EQ(table.grid->model()->headerData(2, Qt::Vertical).toString(), "3");
  EXPECT_EQ(table.cell(1, 1), "3");
  EXPECT_EQ(table.cell(2, 2), "10");
  EXPECT_EQ(table.cell(3, 3), "-2");
  EXPECT_EQ(table.status(), "3 &points, 3 columns");
}

TEST(TableCells, ShowTheShortestFormThatReadsBackTheSame) {
  const Table table({{0.1, 1.0 / 3, 2}, {1e20, kNaN, kInf}, {-kInf, -0.0, 2e-7}});
  EXPECT_EQ(table.cell(1, 1), "0.1");
  EXPECT_EQ(table.cell(2, 1), "0.3333333333333333");
  EXPECT_EQ(table.cell(1, 2), "1E+20");
  EXPECT_EQ(table.cell(2, 2), "") << "a missing value";
  EXPECT_EQ(table.cell(3, 2), "Inf");
  EXPECT_EQ(table.cell(1, 3), "-Inf");
  EXPECT_EQ(table.cell(2, 3), "0");
  EXPECT_EQ(table.cell(3, 3), "2E-07");
}

TEST(TableCells, HaveTheSeparatorOfTheControl) {
  Table table({{1, 2}, {0.5, 2.25}});
  table.client.host.control.set_decimal_separator(',');
  EXPECT_EQ(table.cell(1, 2), "0,5");
  table.type(1, 2, "1,75");
  EXPECT_EQ(table.document().xyArr(2, 1), 1.75);
  table.type(1, 2, "1.5");
  EXPECT_TRUE(table.is_marked(1, 2)) << "a point means something else there";
}

TEST(TableCells, AreTheSortedPointsWhereThoseArePlotted) {
  Table table;
  table.client.host.control.set_SortXY(true);
  table.client.host.control.build_the_graph();
  table.window.refill();
  EXPECT_EQ(table.cell(1, 1), "1");
  EXPECT_EQ(table.cell(1, 2), "10");
  EXPECT_EQ(table.cell(3, 1), "3");
}

TEST(TableCells, AreRightAlignedAndNamedForScreenReaders) {
  const Table table;
  EXPECT_TRUE(table.at(1, 1).data(Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignRight);
  EXPECT_FALSE(table.grid->accessibleName().isEmpty());
  EXPECT_EQ(table.window.findChild<QLabel*>("lblStatus")->buddy(), table.grid);
}

TEST(TableRefill, ShowsTheDataThatHaveComeInTheMeantime) {
  Table table;
  load_columns(table.client.host, {{1, 2, 3, 4, 5}, {6, 7, 8, 9, 10}});
  table.window.refill();
  EXPECT_EQ(table.grid->model()->rowCount(), 5);
  EXPECT_EQ(table.grid->model()->columnCount(), 2);
  EXPECT_EQ(table.cell(5, 2), "10");
  EXPECT_EQ(table.status(), "5 &points, 2 columns");
  load_columns(table.client.host, {{1, 2}, {6, 7}});
  table.window.refill();
  EXPECT_EQ(table.grid->model()->rowCount(), 2);
  EXPECT_EQ(table.client.redraws(), 0) << "filling is not editing";
}

TEST(TableRefill, ShowsADerivedCurveAndANewName) {
  Table table;
  EXPECT_EQ(table.client.host.control.derive("sum", "curve1+curve2"), std::nullopt);
  table.document().yVarName(2) = "  renamed ";
  table.window.refill();
  EXPECT_EQ(table.grid->model()->columnCount(), 4);
  EXPECT_EQ(heading(table, 2), "renamed");
  EXPECT_EQ(heading(table, 4), "sum");
  EXPECT_EQ(table.cell(1, 4), "27");
}

TEST(TableRefill, KeepsMarksWithTheirDataAndDropsThemWithOthers) {
  Table table;
  table.paste("abc");
  table.messages();
  EXPECT_TRUE(table.is_marked(1, 1));
  table.client.host.control.build_the_graph();
  table.window.refill();
  EXPECT_EQ(table.cell(1, 1), "abc") << "a redraw by the host";
  load_columns(table.client.host, {{3, 1, 2}, {30, 10, 20}, {-3, -1, -2}});
  table.window.refill();
  EXPECT_EQ(table.cell(1, 1), "3") << "other data, even if they look the same";
  EXPECT_FALSE(table.is_marked(1, 1));
  EXPECT_EQ(table.status(), "3 &points, 3 columns");
}

TEST(TableRefill, KeepsTheSelectionAndTheWidths) {
  Table table;
  table.select(2, 2, 3, 3);
  table.grid->setColumnWidth(1, 321);
  load_columns(table.client.host, {{3, 1, 2}, {3, 1, 2}, {4, 5, 6}});
  table.window.refill();
  EXPECT_EQ(table.grid->selectionModel()->selectedIndexes().size(), 4);
  EXPECT_EQ(table.grid->columnWidth(1), 321);
}

TEST(TableRefill, DoesNotDisturbWhoIsTyping) {
  Table table;
  table.select(1, 2);
  QTest::keyClick(table.grid, Qt::Key_F2);
  auto* const editor = table.grid->findChild<QLineEdit*>();
  ASSERT_TRUE(editor);
  QTest::keyClicks(editor, "77");
  table.client.host.control.build_the_graph();
  table.window.refill();
  EXPECT_EQ(editor->text(), "77");
}

TEST(TableRefill, EditsOfDataThatWereNotShownAreNotMade) {
  Table table;
  load_columns(table.client.host, {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
  table.type(1, 2, "99");
  EXPECT_THAT(table.column_of_host(2), ElementsAre(4, 5, 6));
  EXPECT_EQ(table.cell(1, 2), "4") << "but the new data are shown";
}

TEST(TableRefill, CountsThatAnIntakeFailedOnAreHarmless) {
  Table table;
  EXPECT_THROW(table.client.host.load({1, 2, 3, 4}, {1}), Fault);
  table.grid->grab();
  table.window.refill();
  table.select(1, 1, 3, 2);
  table.copy();
  table.erase();
  EXPECT_EQ(table.grid->model()->rowCount(), 3);
}

TEST(TableWithoutClient, IsEmptyAndDoesNothing) {
  Table table;
  table.window.set_client(nullptr);
  EXPECT_EQ(table.cell(1, 1), "");
  table.grid->grab();
  table.paste("1");
  table.erase();
  table.window.mnuFileItem_Click();
  table.window.mnuEditItem_Click(7);
  EXPECT_TRUE(table.shell().messages.empty());
  EXPECT_TRUE(table.shell().save_dialogs.empty());
  EXPECT_THAT(table.column_of_host(1), ElementsAre(3, 1, 2));
}

TEST(TableOfAFreshGraph, ShowsTheDemonstrationData) {
  TableClient client;
  frmTable window(nullptr);
  window.set_client(&client);
  window.init(0);
  EXPECT_EQ(window.findChild<QTableView*>("grdTable")->model()->rowCount(), 10);
  EXPECT_EQ(window.findChild<QTableView*>("grdTable")->model()->columnCount(), 4);
}

TEST(TableOfNothing, IsEmpty) {
  TableClient client;
  client.host.document() = GraphDocument();
  frmTable window(nullptr);
  window.set_client(&client);
  window.init(0);
  window.show();
  window.mnuEditItem_Click(1);
  window.mnuEditItem_Click(2);
  EXPECT_EQ(window.findChild<QLabel*>("lblStatus")->text(), "0 &points, 0 columns");
}

TEST(TableWindow, HasAFirstSizeAndKeepsTheUsers) {
  Table table;
  EXPECT_GT(table.grid->width(), 200);
  table.window.resize(900, 700);
  table.window.init(0);
  EXPECT_EQ(table.window.size(), QSize(900, 700));
  EXPECT_GT(table.grid->width(), 800) << "the grid fills the window";
}

TEST(TableWindow, LongNamesAndManyColumnsStayBounded) {
  const Table table(std::vector<std::vector<Double>>(150, {1, 2}), {"x", String(5000, 'n')});
  ASSERT_EQ(heading(table, 2).size(), 5000u) << "there before the columns were fitted";
  EXPECT_LT(table.grid->columnWidth(1), 400);
  EXPECT_GT(table.grid->columnWidth(1), table.grid->columnWidth(2)) << "but it is given more room";
  Table other;
  other.document().yVarName(1) = "<b>a & b</b>";
  EXPECT_EQ(heading(other, 1), "<b>a & b</b>");
  EXPECT_LE(table.window.width(), table.window.screen()->availableSize().width());
}

}  // namespace
}  // namespace kurv::test
