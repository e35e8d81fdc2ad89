// Undo in the window of the table.
#include <QMenu>
#include <QTableView>

#include "dialogs/frm_table.h"

namespace kurv {

void frmTable::add_undo(QMenu& menu) {
  m_undo = menu.addAction({}, this, &frmTable::undo_in_table);
  m_undo->setObjectName(QStringLiteral("mnuUndo"));
  m_undo->setShortcut(QKeySequence::Undo);
  m_redo = menu.addAction({}, this, &frmTable::redo_in_table);
  m_redo->setObjectName(QStringLiteral("mnuRedo"));
  m_redo->setShortcuts(
      {QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
  m_undo_separator = menu.addSeparator();
  connect(&menu, &QMenu::aboutToShow, this, &frmTable::update_undo);
}

// Where the host has turned undo off, the menu has no entries for it.
void frmTable::update_undo() {
  const Control* const graph = client() ? &client()->control() : nullptr;
  const bool is_on = graph && graph->undo_enabled();
  for (QAction* action : {m_undo, m_redo, m_undo_separator}) action->setVisible(is_on);
  if (!is_on) return;
  const auto show = [](QAction* action, const QString& caption, const std::optional<String>& step) {
    action->setEnabled(step.has_value());
    action->setText(step ? caption + u' ' + QString::fromStdString(*step) : caption);
  };
  show(m_undo, tr("&Undo"), m_model.can_take_back_marks() ? String("Typing") : graph->undo_text());
  show(m_redo, tr("&Redo"), graph->redo_text());
}

// A text that is no number is in no step, so it is taken back here.
void frmTable::undo_in_table() {
  m_grid->setFocus();
  if (m_model.can_take_back_marks()) {
    m_model.take_back_marks();
    fill();
  } else {
    undo();
  }
}

void frmTable::redo_in_table() {
  m_grid->setFocus();
  redo();
}

}  // namespace kurv
