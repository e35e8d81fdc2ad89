// The search in the table.
#include <gmock/gmock.h>

#include <QToolButton>
#include <cstring>
#include <ctime>
#include <limits>

#include "tests/dialogs/table_support.h"

namespace kurv::test {
namespace {

constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

// x 1 2 3 4, a 10 20 30.5 missing, b 4 5 6 20.
struct Search : Table {
  Search() : Table({{1, 2, 3, 4}, {10, 20, 30.5, kNaN}, {4, 5, 6, 20}}) { select(1, 1); }

  QLineEdit& field() { return *window.findChild<QLineEdit*>("txtFind"); }
  std::string note() { return window.findChild<QLabel*>("lblFind")->text().toStdString(); }
  void open() { press(Qt::Key_F, Qt::ControlModifier); }
  void look_for(const QString& text) {
    open();
    QTest::keyClicks(&field(), text);
  }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
  std::pair<int, int> current() const {
    return {grid->currentIndex().row() + 1, grid->currentIndex().column() + 1};
  }
};
using Place = std::pair<int, int>;

TEST(TableFind, TheLineComesWithItsKeyAndGoesWithEscapeBeforeTheWindow) {
  Search table;
  EXPECT_FALSE(table.field().isVisible());
  table.open();
  EXPECT_TRUE(table.field().hasFocus());
  table.press(Qt::Key_Escape);
  EXPECT_FALSE(table.field().isVisible());
  EXPECT_TRUE(table.grid->hasFocus());
  table.open();
  table.grid->setFocus();
  table.press(Qt::Key_Escape);
  EXPECT_FALSE(table.field().isVisible());
  EXPECT_TRUE(table.window.isVisible());
  table.press(Qt::Key_Escape);
  EXPECT_FALSE(table.window.isVisible());
}

TEST(TableFind, TypingGoesToTheFirstCellFromWhereItBegan) {
  Search table;
  table.look_for("2");
  EXPECT_EQ(table.current(), Place(2, 1));
  table.press(Qt::Key_0);
  EXPECT_EQ(table.current(), Place(2, 2));
  EXPECT_EQ(table.note(), "Row 2, curve1");
  table.press(Qt::Key_Backspace);
  EXPECT_EQ(table.current(), Place(2, 1));
  EXPECT_EQ(table.grid->selectionModel()->selectedIndexes().size(), 1);
}

TEST(TableFind, NextAndPreviousGoDownTheColumnsAndAroundTheEnds) {
  Search table;
  table.look_for("20");
  table.press(Qt::Key_F3);
  EXPECT_EQ(table.current(), Place(4, 3));
  table.press(Qt::Key_Return);
  EXPECT_EQ(table.current(), Place(2, 2));
  EXPECT_EQ(table.note(), "Row 2, curve1, from the beginning again");
  table.press(Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(table.current(), Place(4, 3));
  EXPECT_EQ(table.note(), "Row 4, curve2, from the end again");
  table.press(Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(table.current(), Place(2, 2));
  QTest::mouseClick(table.window.findChild<QToolButton*>("cmdFindNext"), Qt::LeftButton);
  EXPECT_EQ(table.current(), Place(4, 3));
  table.grid->setFocus();
  table.press(Qt::Key_F3);
  EXPECT_EQ(table.current(), Place(2, 2)) << "also from the table";
}

TEST(TableFind, WithoutATextTheKeysForTheNextOpenTheLine) {
  Search table;
  table.press(Qt::Key_F3);
  EXPECT_TRUE(table.field().hasFocus());
  EXPECT_EQ(table.note(), "");
}

TEST(TableFind, GoesToARowByItsNumber) {
  Search table;
  table.select(1, 2);
  table.press(Qt::Key_G, Qt::ControlModifier);
  EXPECT_EQ(table.field().text(), "#");
  QTest::keyClicks(&table.field(), "3");
  EXPECT_EQ(table.current(), Place(3, 2));
  QTest::keyClicks(&table.field(), "0");
  EXPECT_EQ(table.current(), Place(3, 2));
  EXPECT_EQ(table.note(), "Rows are 1 to 4.");
}

TEST(TableFind, ANumberThatIsNowhereLeadsToTheNearestX) {
  Search table;
  table.select(1, 2);
  table.look_for("3.4");
  EXPECT_EQ(table.current(), Place(3, 1));
  EXPECT_EQ(table.note(), "No cell shows this number. The nearest x is in row 3: 3");
}

TEST(TableFind, ATextIsFoundAmongTheCellsThatAreNotInTheGraph) {
  Search table;
  table.type(3, 3, "n/a today");
  table.select(1, 1);
  table.look_for("N/A");
  EXPECT_EQ(table.current(), Place(3, 3));
  table.open();
  QTest::keyClicks(&table.field(), "6");
  EXPECT_NE(table.current(), Place(3, 3)) << "the cell does not show its value";
  table.open();
  QTest::keyClicks(&table.field(), "none");
  EXPECT_EQ(table.note(), "No cell shows \"none\".");
}

TEST(TableFind, OfASortedTableIsByTheRowsThatAreShown) {
  Table table;
  table.client.host.control.set_SortXY(true);
  table.client.host.control.build_the_graph();
  table.window.refill();
  table.select(1, 1);
  QTest::keyClick(table.grid, Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(table.window.findChild<QLineEdit*>("txtFind"), "30");
  EXPECT_EQ(table.grid->currentIndex(), table.at(3, 2));
}

TEST(TableFind, SurvivesATableThatBecomesSmallerOrGoes) {
  Search table;
  table.look_for("20");
  table.press(Qt::Key_F3);
  load_columns(table.client.host, {{1, 2}, {20, 7}});
  table.window.refill();
  table.press(Qt::Key_F3);
  EXPECT_EQ(table.current(), Place(1, 2));
  table.window.set_client(nullptr);
  table.press(Qt::Key_F3);
  table.window.mnuEditItem_Click(1);
}

TEST(TableFind, InTheLargestTableTakesNoTime) {
  constexpr int kPoints = 32767;
  std::vector<std::vector<Double>> data(150, std::vector<Double>(kPoints));
  for (std::size_t c = 0; c < data.size(); ++c) {
    for (std::size_t i = 0; i < kPoints; ++i) data[c][i] = static_cast<Double>(i * 7 + c) / 8;
  }
  Table table(data, false);
  table.select(1, 1);
  QTest::keyClick(table.grid, Qt::Key_F, Qt::ControlModifier);
  auto* const field = table.window.findChild<QLineEdit*>("txtFind");
  for (const char* text : {"99999", "n/a", "-0"}) {
    field->clear();
    // The time of this process alone, because the machine may be busy; each key searches.
    const std::clock_t before = std::clock();
    QTest::keyClicks(field, text);
    const double seconds = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    EXPECT_LT(seconds, 0.5 * static_cast<double>(std::strlen(text))) << text;
  }
}

}  // namespace
}  // namespace kurv::test
