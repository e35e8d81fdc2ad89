// The grid of the table's window: its keys, its editors and its headings.
#pragma once

#include <QTableView>

namespace kurv {

// Enter goes down and Tab to the right, with Shift back, also from a cell that is being edited. Tab
// goes on in the next row at the end of one. Ctrl+Tab and Ctrl+Shift+Tab leave the grid.
class TableGrid final : public QTableView {
  Q_OBJECT

 public:
  explicit TableGrid(QWidget* parent);

  void fit_rows();
  void fit_columns();
  // The size in which the beginning of the table is seen.
  QSize size_for_table() const;

  // Makes the cell the current one, and the only one that is selected.
  void go_to(const QModelIndex& cell);
  // Whether the key leads from one cell to another.
  static bool is_move(const QKeyEvent& event);
  // To where such a key leads.
  void go_by(const QKeyEvent& event);

 Q_SIGNALS:
  // A right click, or the menu key at the current cell.
  void menu_wanted(QPoint global);

 protected:
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  bool m_is_going = false;  // inside of go_to()
};

}  // namespace kurv
