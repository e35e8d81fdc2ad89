// The item model of the client's points: a view of the document, with marks on the cells whose
// texts are not in the data.
#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <optional>
#include <vector>

#include "control/control_state.h"
#include "control/table_edits.h"
#include "dialogs/cell_marks.h"
#include "dialogs/cell_pattern.h"
#include "dialogs/graph_window.h"
#include "dialogs/table_block.h"

namespace kurv {

// Sets all cells of one command; may be called twice.
using SetCells = std::function<void(const SetCell&)>;

class TableModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  // Shows the graph of the window's client, which may change.
  explicit TableModel(const GraphWindow& window) : m_window(window) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  // Emits typed() instead of changing the data.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  // To be called when the graph may have changed. Marks stay as long as the data are the same.
  void refresh();
  // Whether the document still has the size that is shown.
  bool is_current() const;

  // Appends the text of a cell in UTF-8; rows and columns count from 1, and row 0 is the heading.
  void append_cell(String& text, int row, int column) const;

  // The first cell that matches, from a cell on, down the columns one after another and from the
  // last cell to the first; or in the other direction. Invalid where there is none.
  QModelIndex find(const CellPattern& pattern, const QModelIndex& from, bool is_forward) const;
  // The cell with the value of x that is nearest to a number. Invalid where x has no values.
  QModelIndex nearest_x(Double number) const;

  struct Outcome {
    std::optional<String> refusal;  // the message where the data were not changed
    bool has_invalid = false;       // some texts are no numbers
  };
  // Applies one command: finite numbers are written to the data, empty texts as missing values.
  // Other texts stay in their cells as marks, and so do all texts where the edits are refused.
  // Views are updated by the next refresh(). Throws what the redraw throws; then the edits have
  // been made, and the outcome is set.
  void commit(ControlState& state, const SetCells& set_cells, Outcome& outcome);

  // Whether the last command whose marks have not been taken back has changed no data, and the
  // graph is as it was then. Views are updated by the next refresh().
  bool can_take_back_marks() const;
  void take_back_marks();

  int mark_count() const { return m_marks.count(); }

 Q_SIGNALS:
  // Row and column count from 1.
  void typed(int row, int column, const QString& text);

 private:
  struct EarlierMark {
    int point;
    int column;
    QString text;  // null where there was no mark
  };
  // What a command has replaced.
  struct EarlierMarks {
    std::vector<EarlierMark> cells;
    unsigned last_step;
  };

  ControlState* state() const;
  const QString* mark_at(int row, int column) const;
  QString text_at(int row, int column) const;
  QString reason(int row, int column, const QString& text) const;
  QVariant mark_data(int row, int column, const QString& text, int role) const;
  QString marked_text(int point, int column) const;
  void keep(EarlierMarks earlier);
  void set_rows(int rows);
  void set_columns(int columns);
  void emit_changes();

  const GraphWindow& m_window;
  TableSize m_size;
  CellMarks m_marks;
  std::vector<EarlierMarks> m_earlier_marks;  // of the last commands, as long as none changes data
  unsigned m_revision = 0;                    // of the data that the marks belong to
};

}  // namespace kurv
