// The table of menus and keys in docs/window.md is that of the program.
#include <QMenu>
#include <QMenuBar>
#include <utility>

#include "tests/app/window/window_fixture.h"

namespace kurv::app {
namespace {

// A menu, an entry and its key, as the page writes them.
struct MenuRow {
  QString menu, entry, key;

  bool operator==(const MenuRow&) const = default;
};

std::ostream& operator<<(std::ostream& out, const MenuRow& row) {
  return out << qPrintable(row.menu + " > " + row.entry + " (" + row.key + ")");
}

QString plain(QString text) {
  return text.remove('&').remove(QChar(0x2026));
}

std::vector<MenuRow> rows_of_program(MainWindow* window) {
  std::vector<MenuRow> rows;
  for (const QAction* const top : window->menuBar()->actions()) {
    for (const QAction* const action : top->menu()->actions()) {
      if (action->isSeparator()) continue;
      rows.push_back({plain(top->text()), plain(action->text()), action->shortcut().toString()});
    }
  }
  return rows;
}

// A row of the page may have several entries and their keys; a menu's name is in its first row
// alone.
std::vector<MenuRow> rows_of_page() {
  QFile page(KURV_SOURCE_DIR "/docs/window.md");
  EXPECT_TRUE(page.open(QIODevice::ReadOnly));
  const QString text = QString::fromUtf8(page.readAll());
  const QString table = text.section("| Menu | Entry | Key | Does |\n|---|---|---|---|\n", 1, 1);
  std::vector<MenuRow> rows;
  QString menu;
  for (const QString& line : table.section("\n\n", 0, 0).split('\n')) {
    const QStringList cells = line.split('|');
    if (cells.size() != 6) ADD_FAILURE() << qPrintable(line);
    if (!cells.value(1).trimmed().isEmpty()) menu = cells.value(1).trimmed();
    const QStringList entries = cells.value(2).trimmed().split(", ");
    const QStringList keys = cells.value(3).trimmed().split(", ");
    for (int i = 0; i < entries.size(); ++i) rows.push_back({menu, entries[i], keys.value(i)});
  }
  return rows;
}

class MenuPage : public Windows {};

TEST_F(MenuPage, ListsTheMenusAndKeysInTheirOrder) {
  EXPECT_EQ(rows_of_page(), rows_of_program(window()));
}

}  // namespace
}  // namespace kurv::app
