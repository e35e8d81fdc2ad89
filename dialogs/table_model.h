// The client's points as a table: a view of the document, with marks on what the data did not take.
#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <optional>

#include "control/control_state.h"
#include "control/table_edits.h"
#include "dialogs/cell_marks.h"
#include "dialogs/graph_window.h"
#include "dialogs/table_block.h"

namespace kurv {

// Puts all cells of one command; it may be asked to do so twice.
using PutCells = std::function<void(const PutCell&)>;

class TableModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  // Shows the graph of whichever client the window has.
  explicit TableModel(const GraphWindow& window) : m_window(window) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  // Passes on what was typed as typed().
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  // The graph has changed, perhaps. Marks stay as long as the data are the same.
  void refresh();
  // Whether the document still has the size that is shown.
  bool is_current() const;

  // What a cell shows, in UTF-8; rows and columns count from 1, and row 0 is the heading.
  void append_cell(String& text, int row, int column) const;

  struct Outcome {
    std::optional<String> refusal;  // why the data are as they were
    bool has_invalid = false;       // some texts are no numbers
  };
  // One command: finite numbers go into the data, empty texts as missing values. Other texts stay
  // in their cells, marked, and so does everything that is refused. Views learn of it by the next
  // refresh(). Throws what the redraw throws; then the edits are made, and the outcome says so.
  void enter(ControlState& state, const PutCells& put_cells, Outcome& outcome);

  int mark_count() const { return m_marks.count(); }

 Q_SIGNALS:
  // From 1.
  void typed(int row, int column, const QString& text);

 private:
  ControlState* state() const;
  const QString* mark_at(int row, int column) const;
  QString text_at(int row, int column) const;
  QString reason(int row, int column, const QString& text) const;
  QVariant mark_data(int row, int column, const QString& text, int role) const;
  void set_rows(int rows);
  void set_columns(int columns);
  void tell_changes();

  const GraphWindow& m_window;
  TableSize m_size;
  CellMarks m_marks;
  unsigned m_revision = 0;  // of the data that the marks belong to
};

}  // namespace kurv
