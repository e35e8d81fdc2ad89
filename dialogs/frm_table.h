#pragma once

#include <QTableView>
#include <optional>
#include <vector>

#include "dialogs/graph_window.h"
#include "dialogs/table_model.h"

class QLabel;
class QMenuBar;

namespace kurv {

// The data as a grid, which edits them through the keyboard and the clipboard and saves them as
// text.
class frmTable final : public GraphWindow {
  Q_OBJECT

 public:
  explicit frmTable(QWidget* parent);

  // Asks for a file and writes what the grid shows. A file that cannot be written is told as a
  // fault of the client.
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
  void set_up_grid();
  void resize_table_form();
  void fit_columns();
  void fit_rows();
  void show_status();

  void edit(int index);
  void copy(const CellBlock& block);
  void paste(const CellBlock& block);
  void take_typed(int row, int column, const QString& text);
  CellBlock selected_block() const;
  // Nothing where it was not done, or the window may be gone; then touch nothing any more.
  std::optional<TableModel::Outcome> enter(const PutCells& put_cells);
  void tell(const std::vector<Message>& messages);

  TableModel m_model{*this};
  QTableView* m_grid;
  QLabel* m_status;
};

}  // namespace kurv
