// The search in the table.
#include <QKeyEvent>
#include <algorithm>

#include "control/control_state.h"
#include "dialogs/frm_table.h"

namespace kurv {

namespace {

constexpr QChar kRowMark = u'#';

}  // namespace

void frmTable::open_finder(const QString& text) {
  m_finder->open(text);
}

// A text that goes on is searched for from where the search for its beginning has begun, so that
// the result does not depend on how fast it is typed.
void frmTable::find_typed() {
  const QModelIndex current = m_grid->currentIndex();
  if (m_found != current || !m_find_from.isValid()) m_find_from = current;
  find_from(m_find_from, 0);
  m_found = m_grid->currentIndex();
}

void frmTable::find(bool is_forward) {
  if (m_finder->isHidden() || m_finder->text().trimmed().isEmpty()) return open_finder();
  find_from(m_grid->currentIndex(), is_forward ? 1 : -1);
  m_find_from = m_found = m_grid->currentIndex();
}

// The step is 1 to find the next cell, -1 for the one before, 0 where the first one counts too.
void frmTable::find_from(const QModelIndex& origin, int step) {
  const QString text = m_finder->text().trimmed();
  if (text.isEmpty() || !client() || !origin.isValid()) return m_finder->set_note({});
  if (text.startsWith(kRowMark)) return go_to_row(text.mid(1));
  const CellPattern pattern(text, client()->control().state().decimal_separator);
  const int rows = m_model.rowCount();
  const int count = rows * m_model.columnCount();
  const auto place = [rows](const QModelIndex& cell) { return cell.column() * rows + cell.row(); };
  const int first = (place(origin) + step + count) % count;
  const QModelIndex found =
      m_model.find(pattern, m_model.index(first % rows, first / rows), step >= 0);
  if (!found.isValid()) {
    if (const std::optional<Double> number = pattern.number()) return show_nearest_x(*number);
    return m_finder->set_note(tr("No cell shows \"%1\".").arg(text));
  }
  m_grid->go_to(found);
  QString note = place_text(found);
  if (step >= 0 && place(found) < place(origin) + step) note += tr(", from the beginning again");
  if (step < 0 && place(found) > place(origin) + step) note += tr(", from the end again");
  m_finder->set_note(note);
}

void frmTable::go_to_row(const QString& number) {
  bool is_number = false;
  const int row = number.trimmed().toInt(&is_number);
  if (!is_number || row < 1 || row > m_model.rowCount()) {
    return m_finder->set_note(tr("Rows are 1 to %1.").arg(m_model.rowCount()));
  }
  const QModelIndex cell = m_model.index(row - 1, std::max(0, m_grid->currentIndex().column()));
  m_grid->go_to(cell);
  m_finder->set_note(place_text(cell));
}

// For a value between those of the table, as between two measurements.
void frmTable::show_nearest_x(Double number) {
  const QModelIndex nearest = m_model.nearest_x(number);
  if (!nearest.isValid()) return m_finder->set_note(tr("No cell shows this number."));
  m_grid->go_to(nearest);
  m_finder->set_note(tr("No cell shows this number. The nearest x is in row %1: %2")
                         .arg(nearest.row() + 1)
                         .arg(nearest.data().toString()));
}

QString frmTable::place_text(const QModelIndex& cell) const {
  const QString name =
      m_model.headerData(cell.column(), Qt::Horizontal, Qt::DisplayRole).toString();
  const QString row = tr("Row %1").arg(cell.row() + 1);
  return name.isEmpty() ? row : row + QStringLiteral(", ") + name;
}

// The first Escape closes the search, and the next one the window.
void frmTable::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && !m_finder->isHidden()) {
    m_finder->close_line();
  } else {
    GraphWindow::keyPressEvent(event);
  }
}

}  // namespace kurv
