#include "dialogs/table_grid.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionHeader>
#include <QStyledItemDelegate>
#include <algorithm>

namespace kurv {

namespace {

// How much of a large table the initial size shows.
constexpr int kRowsShown = 20;
constexpr int kColumnsShown = 8;
// Column widths, in characters, and how many rows are measured for them.
constexpr int kNarrowColumn = 8;
constexpr int kWideColumn = 24;
constexpr int kRowsMeasured = 50;

class CellDelegate final : public QStyledItemDelegate {
 public:
  explicit CellDelegate(TableGrid* grid) : QStyledItemDelegate(grid), m_grid(*grid) {}

  // A refill after a redraw by the host must not overwrite what is being typed in an editor.
  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    const auto* const line = qobject_cast<const QLineEdit*>(editor);
    if (line && line->isModified()) return;
    QStyledItemDelegate::setEditorData(editor, index);
  }
  // An editor that was opened and closed without typing changes nothing, even if its text is no
  // number.
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override {
    const auto* const line = qobject_cast<const QLineEdit*>(editor);
    if (line && !line->isModified()) return;
    QStyledItemDelegate::setModelData(editor, model, index);
  }

 protected:
  bool eventFilter(QObject* editor, QEvent* event) override {
    auto* const line = qobject_cast<QLineEdit*>(editor);
    if (line && event->type() == QEvent::ShortcutOverride) {
      if (is_of_the_graph(*line, static_cast<QKeyEvent&>(*event))) {
        event->ignore();
        return true;
      }
    } else if (line && event->type() == QEvent::KeyPress) {
      if (leave(*line, static_cast<QKeyEvent&>(*event))) return true;
    }
    return QStyledItemDelegate::eventFilter(editor, event);
  }

 private:
  // The editor undoes what was typed in it; where nothing of that is left, the keys are those of
  // the window, which undo the changes of the graph.
  static bool is_of_the_graph(const QLineEdit& line, const QKeyEvent& key) {
    return (key.matches(QKeySequence::Undo) && !line.isUndoAvailable()) ||
           (key.matches(QKeySequence::Redo) && !line.isRedoAvailable());
  }
  // Setting the data may show a message box, in which the window may be destroyed.
  bool leave(QLineEdit& line, const QKeyEvent& key) {
    if (!TableGrid::is_move(key)) return false;
    const QPointer<QLineEdit> editor = &line;
    const QPointer<TableGrid> grid = &m_grid;
    Q_EMIT commitData(&line);
    if (editor) Q_EMIT closeEditor(editor, NoHint);
    if (grid) grid->go_by(key);
    return true;
  }

  TableGrid& m_grid;
};

// Elides long names at their ends; Qt would clip them on both sides. Selected columns have bold
// names, so the bold width is used for all, and selecting a column does not change its name.
class NameHeader final : public QHeaderView {
 public:
  explicit NameHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsClickable(true);
    setHighlightSections(true);
    setResizeContentsPrecision(kRowsMeasured);
  }

 protected:
  void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override {
    QHeaderView::initStyleOptionForIndex(option, section);
    QFont bold = font();
    bold.setBold(true);
    const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, option, this);
    option->text = QFontMetrics(bold).elidedText(option->text, Qt::ElideRight,
                                                 sectionSize(section) - 2 * margin);
  }
};

bool is_enter_key(int key) {
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool is_tab_key(int key) {
  return key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

bool is_backward(const QKeyEvent& event) {
  return event.key() == Qt::Key_Backtab || (event.modifiers() & Qt::ShiftModifier) != 0;
}

}  // namespace

TableGrid::TableGrid(QWidget* parent) : QTableView(parent) {
  setItemDelegate(new CellDelegate(this));
  // The grid lines are hardly visible on dark desktops.
  setAlternatingRowColors(true);
  setSelectionMode(QAbstractItemView::ContiguousSelection);
  setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                  QAbstractItemView::AnyKeyPressed);
  setTabKeyNavigation(true);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setHorizontalHeader(new NameHeader(this));
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
  fit_rows();
}

// -- Size -----------------------------------------------------------------------------------------

void TableGrid::fit_rows() {
  const int text = fontMetrics().height();
  verticalHeader()->setMinimumSectionSize(text);
  verticalHeader()->setDefaultSectionSize(text + text / 2);
  setIconSize({text, text});
}

void TableGrid::fit_columns() {
  const int digit = fontMetrics().horizontalAdvance(u'0');
  resizeColumnsToContents();
  for (int column = 0; column < model()->columnCount(); ++column) {
    const int wanted = columnWidth(column) + digit;
    setColumnWidth(column, std::clamp(wanted, kNarrowColumn * digit, kWideColumn * digit));
  }
}

QSize TableGrid::size_for_table() const {
  const QHeaderView& columns = *horizontalHeader();
  const QHeaderView& rows = *verticalHeader();
  int width = rows.sizeHint().width() + verticalScrollBar()->sizeHint().width();
  for (int i = 0; i < std::min(columns.count(), kColumnsShown); ++i)
    width += columns.sectionSize(i);
  const int height =
      columns.sizeHint().height() +
      rows.defaultSectionSize() * std::clamp(rows.count(), kRowsShown / 2, kRowsShown);
  const int frame = 2 * frameWidth() + 2;
  return QSize(width + frame, height + frame);
}

// -- Keys -----------------------------------------------------------------------------------------

// Otherwise the Shift of a key that leads to another cell would extend the selection to that.
QItemSelectionModel::SelectionFlags TableGrid::selectionCommand(const QModelIndex& index,
                                                                const QEvent* event) const {
  return m_is_going ? QItemSelectionModel::SelectionFlags(QItemSelectionModel::ClearAndSelect)
                    : QTableView::selectionCommand(index, event);
}

void TableGrid::go_to(const QModelIndex& cell) {
  const QScopedValueRollback<bool> going(m_is_going, true);
  setCurrentIndex(cell);
}

bool TableGrid::is_move(const QKeyEvent& event) {
  const bool is_plain = (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
  return is_plain && (is_enter_key(event.key()) || is_tab_key(event.key()));
}

// At the ends of the table it stays where it is.
void TableGrid::go_by(const QKeyEvent& event) {
  const int columns = model()->columnCount();
  const QModelIndex from = currentIndex();
  if (!from.isValid()) return;
  const int step = is_backward(event) ? -1 : 1;
  if (is_enter_key(event.key())) {
    const QModelIndex to = from.siblingAtRow(from.row() + step);
    if (to.isValid()) go_to(to);
    return;
  }
  const int place = from.row() * columns + from.column() + step;
  const QModelIndex to = model()->index(place / columns, place % columns);
  if (place >= 0 && to.isValid()) go_to(to);
}

void TableGrid::keyPressEvent(QKeyEvent* event) {
  if (is_move(*event)) {
    go_by(*event);
  } else if (is_tab_key(event->key())) {
    QAbstractScrollArea::focusNextPrevChild(!is_backward(*event));
  } else {
    QTableView::keyPressEvent(event);
  }
}

// The menu key has no place of its own, and the pointer may be anywhere.
void TableGrid::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (event->reason() != QContextMenuEvent::Keyboard) {
    Q_EMIT menu_wanted(event->globalPos());
    return;
  }
  const QModelIndex cell = currentIndex();
  scrollTo(cell);
  Q_EMIT menu_wanted(viewport()->mapToGlobal(visualRect(cell).center()));
}

}  // namespace kurv
