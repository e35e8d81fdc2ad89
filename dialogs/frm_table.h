#pragma once

#include <QTableView>
#include <optional>
#include <vector>

#include "dialogs/graph_window.h"
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

 private:
  struct Message {
    String text;
    int flags;
  };

  QMenuBar* new_menu_bar();
  QWidget* new_bottom_line();
  void init_grid();
  void resize_table_form();
  void fit_columns();
  void fit_rows();
  void show_status();

  void edit(int index);
  void copy(const CellBlock& block);
  void paste(const CellBlock& block);
  void commit_typed(int row, int column, const QString& text);
  CellBlock selected_block() const;
  // Nothing where it was not done or the window may be gone; then the caller must not use any
  // member.
  std::optional<TableModel::Outcome> commit(const char* step, const SetCells& set_cells);
  void show_messages(const std::vector<Message>& messages);

  // -- In frm_table_undo.cpp --------------------------------------------------------------------
  void add_undo(QMenu& menu);
  void update_undo();
  void undo_in_table();
  void redo_in_table();

  TableModel m_model{*this};
  QTableView* m_grid;
  QAction* m_undo = nullptr;
  QAction* m_redo = nullptr;
  QAction* m_undo_separator = nullptr;
  QLabel* m_status;
};

}  // namespace kurv
