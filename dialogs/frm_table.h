#pragma once

#include <optional>
#include <vector>

#include "dialogs/graph_window.h"
#include "dialogs/table_finder.h"
#include "dialogs/table_grid.h"
#include "dialogs/table_model.h"

class QAction;
class QLabel;
class QMenu;
class QMenuBar;

namespace kurv {

// The window with the data as a grid. The user edits them by keyboard and clipboard, and saves them
// as text.
class frmTable final : public GraphWindow {
  Q_OBJECT

 public:
  explicit frmTable(QWidget* parent);

  // Asks for a file and writes what the grid shows. The client reports a file that cannot be
  // written.
  void mnuFileItem_Click();
  // 0 cut, 1 copy, 2 paste, 3 delete.
  void mnuEditItem_Click(int index);
  void cmdExit_Click();

 protected:
  void fill() override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  enum EditItem { kCut, kCopy, kPaste, kDelete };
  struct Message {
    String text;
    int flags;
  };

  QWidget* new_bottom_line();
  void resize_table_form();
  void show_status();

  void edit(int index);
  void copy(const CellBlock& block);
  void copy_with_headings();
  String text_of(const CellBlock& block) const;
  void paste(const CellBlock& block);
  void commit_typed(int row, int column, const QString& text);
  CellBlock selected_block() const;
  // Nothing where it was not done or the window may be gone; then the caller must not use any
  // member.
  std::optional<TableModel::Outcome> commit(const char* step, const SetCells& set_cells);
  void show_messages(const std::vector<Message>& messages);

  // -- In frm_table_menus.cpp -------------------------------------------------------------------
  QMenuBar* new_menu_bar();
  void add_undo(QMenu& menu);
  void add_clipboard(QMenu& menu);
  void add_find(QMenu& menu);
  bool has_cells() const;
  void update_menus();
  void update_undo();
  void undo_in_table();
  void redo_in_table();
  void save_graph();

  // -- In frm_table_find.cpp --------------------------------------------------------------------
  void open_finder(const QString& text = {});
  void find_typed();
  void find(bool is_forward);
  void find_from(const QModelIndex& origin, int step);
  void go_to_row(const QString& number);
  void show_nearest_x(Double number);
  QString place_text(const QModelIndex& cell) const;

  TableModel m_model{*this};
  TableGrid* m_grid;
  TableFinder* m_finder;
  // Where the search for the text that is being typed begins, and what it has found.
  QPersistentModelIndex m_find_from;
  QPersistentModelIndex m_found;
  QMenu* m_edit = nullptr;  // also the context menu
  QAction* m_undo = nullptr;
  QAction* m_redo = nullptr;
  QAction* m_undo_separator = nullptr;
  std::vector<QAction*> m_of_cells;  // the entries that need cells
  QLabel* m_status;
};

}  // namespace kurv
