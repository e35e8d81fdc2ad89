// The menus of the table, and what is undone while a cell is being typed in.
#include <gmock/gmock.h>

#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QTimer>
#include <cmath>
#include <set>

#include "tests/dialogs/table_support.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;

struct Menus : Table {
  QMenu& edit() { return *window.findChild<QMenu*>("mnuEdit"); }
  QAction& entry(const char* name) { return *window.findChild<QAction*>(name); }
  // Opens the menu, looks at it, closes it.
  template <class Look>
  void in_menu(const QPoint& at, QContextMenuEvent::Reason reason, Look look) {
    QContextMenuEvent event(reason, at, grid->viewport()->mapToGlobal(at));
    QApplication::sendEvent(grid->viewport(), &event);
    EXPECT_TRUE(edit().isVisible());
    look();
    edit().close();
  }
};

TEST(TableMenus, TheEditMenuIsTheContextMenu) {
  Menus table;
  const QPoint at = table.grid->visualRect(table.at(2, 2)).center();
  QStringList captions;
  table.in_menu(at, QContextMenuEvent::Mouse, [&] {
    EXPECT_EQ(table.edit().pos(), table.grid->viewport()->mapToGlobal(at));
    for (const QAction* entry : table.edit().actions()) {
      if (!entry->isSeparator() && entry->isVisible()) captions << entry->text();
    }
  });
  EXPECT_EQ(captions.join(' ').toStdString(),
            "Cu&t &Copy Copy with &Headings &Paste &Delete &Find… Find &Next Find Pre&vious "
            "&Go to Row… Select &All");
}

TEST(TableMenus, TheMenuKeyOpensItAtTheCurrentCell) {
  Menus table;
  table.select(3, 2);
  table.in_menu({0, 0}, QContextMenuEvent::Keyboard, [&] {
    const QRect cell = table.grid->visualRect(table.at(3, 2));
    EXPECT_TRUE(cell.contains(table.grid->viewport()->mapFromGlobal(table.edit().pos())));
  });
}

TEST(TableMenus, NoMnemonicIsUsedTwice) {
  Menus table;
  table.client.host.control.set_undo_enabled(true);
  table.window.refill();
  std::multiset<QChar> letters;
  for (const QAction* entry : table.edit().actions()) {
    const qsizetype mark = entry->text().indexOf(u'&');
    if (mark >= 0) letters.insert(entry->text().at(mark + 1).toLower());
  }
  for (const QChar letter : letters) EXPECT_EQ(letters.count(letter), 1u) << char(letter.unicode());
}

TEST(TableMenus, PasteIsDisabledInItWithoutATextButItsKeyWorksAfterwards) {
  Menus table;
  table.select(1, 2);
  auto* const picture = new QMimeData;
  picture->setImageData(QImage(2, 2, QImage::Format_RGB32));
  QApplication::clipboard()->setMimeData(picture);
  table.in_menu({5, 5}, QContextMenuEvent::Mouse,
                [&] { EXPECT_FALSE(table.entry("mnuEditItem_2").isEnabled()); });
  QApplication::clipboard()->setText("5");
  QTest::keyClick(table.grid, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(table.cell(1, 2), "5");
  table.in_menu({5, 5}, QContextMenuEvent::Mouse,
                [&] { EXPECT_TRUE(table.entry("mnuEditItem_2").isEnabled()); });
}

TEST(TableMenus, WithoutCellsNothingCanBeDoneWithThem) {
  Menus table;
  table.window.set_client(nullptr);
  table.window.init(0);
  for (const char* name : {"mnuEditItem_0", "mnuEditItem_1", "mnuEditItem_2", "mnuEditItem_3",
                           "mnuCopyWithHeadings", "mnuFind", "mnuGoToRow", "mnuSelectAll"}) {
    EXPECT_FALSE(table.entry(name).isEnabled()) << name;
  }
}

TEST(TableMenus, CopiesWithTheNamesOfTheColumnsAsTheFirstLine) {
  Table table({{3, 1, 2}, {30, 10, 20}, {-3, -1, -2}}, {" x ", "up\tand\ndown", "z"});
  table.select(1, 2, 2, 3);
  QTest::keyClick(table.grid, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(table.clipboard(), "up and down\tz\r\n30\t-3\r\n10\t-1");
}

TEST(TableMenus, SaveIsTheCommandOfTheGraphAndTakesWhatIsTyped) {
  Table table;
  table.select(1, 2);
  QTest::keyClick(table.grid, Qt::Key_9);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(table.document().xyArrUnsorted(2, 1), 9);
  EXPECT_THAT(table.client.commands, ElementsAre("save"));
  EXPECT_TRUE(table.shell().save_dialogs.empty());
  QTest::keyClick(table.grid, Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(table.shell().save_dialogs.size(), 1u);
}

TEST(TableMenus, SelectAllSelectsTheTable) {
  Table table;
  table.choose("mnuSelectAll");
  EXPECT_EQ(table.grid->selectionModel()->selectedIndexes().size(), 9);
}

TEST(TableUndoKeys, UndoTheTypingFirstAndThenTheGraph) {
  Table table;
  table.client.host.control.set_undo_enabled(true);
  table.window.refill();
  table.type(1, 3, "55");
  table.select(1, 2);
  QTest::keyClick(table.grid, Qt::Key_9);
  auto* const editor = table.grid->findChild<QLineEdit*>();
  ASSERT_TRUE(editor);
  QTest::keyClick(editor, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(editor->text(), "30");
  EXPECT_EQ(table.cell(1, 3), "55");
  QTest::keyClick(editor, Qt::Key_Z, Qt::ControlModifier);
  table.settle();
  EXPECT_EQ(table.cell(1, 3), "-3");
  EXPECT_EQ(table.grid->findChild<QLineEdit*>(), nullptr);
  EXPECT_EQ(table.cell(1, 2), "30");
}

}  // namespace
}  // namespace kurv::test
