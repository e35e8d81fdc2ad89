// The menus of the table's window. The Edit menu is its context menu as well.
#include <QApplication>
#include <QClipboard>
#include <QMenuBar>
#include <QMimeData>

#include "dialogs/frm_table.h"

namespace kurv {

namespace {

bool clipboard_has_text() {
  const QMimeData* const offered = QApplication::clipboard()->mimeData();
  return offered && offered->hasText();
}

}  // namespace

QMenuBar* frmTable::new_menu_bar() {
  auto* const bar = new QMenuBar(this);
  QMenu* const file = bar->addMenu(tr("&File"));
  QAction* const save = file->addAction(tr("&Save Graph"), this, &frmTable::save_graph);
  save->setObjectName(QStringLiteral("mnuSave"));
  save->setShortcut(QKeySequence::Save);
  QAction* const text = file->addAction(tr("Save as &Text…"), this, &frmTable::mnuFileItem_Click);
  text->setObjectName(QStringLiteral("mnuFileItem_0"));
  text->setShortcut(QKeySequence(QStringLiteral("Ctrl+E")));

  m_edit = bar->addMenu(tr("&Edit"));
  m_edit->setObjectName(QStringLiteral("mnuEdit"));
  add_undo(*m_edit);
  add_clipboard(*m_edit);
  m_edit->addSeparator();
  add_find(*m_edit);
  m_edit->addSeparator();
  QAction* const all = m_edit->addAction(tr("Select &All"), m_grid, &TableGrid::selectAll);
  all->setObjectName(QStringLiteral("mnuSelectAll"));
  all->setShortcut(QKeySequence::SelectAll);
  m_of_cells.push_back(all);
  connect(m_grid, &TableGrid::menu_wanted, m_edit, [this](QPoint at) { m_edit->popup(at); });
  return bar;
}

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

void frmTable::add_clipboard(QMenu& menu) {
  const auto add = [&](int index, const QString& caption, QKeySequence::StandardKey key) {
    QAction* const item =
        menu.addAction(caption, this, [this, index] { mnuEditItem_Click(index); });
    item->setObjectName(QStringLiteral("mnuEditItem_%1").arg(index));
    item->setShortcuts(key);
    m_of_cells.push_back(item);
    return item;
  };
  add(kCut, tr("Cu&t"), QKeySequence::Cut);
  add(kCopy, tr("&Copy"), QKeySequence::Copy);
  QAction* const headings =
      menu.addAction(tr("Copy with &Headings"), this, &frmTable::copy_with_headings);
  headings->setObjectName(QStringLiteral("mnuCopyWithHeadings"));
  headings->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+C")));
  m_of_cells.push_back(headings);
  QAction* const paste = add(kPaste, tr("&Paste"), QKeySequence::Paste);
  add(kDelete, tr("&Delete"), QKeySequence::Delete);
  // Disabled only while the menu is open, because not every desktop reports each change of the
  // clipboard, and the key has to work after it.
  connect(&menu, &QMenu::aboutToShow, this,
          [this, paste] { paste->setEnabled(has_cells() && clipboard_has_text()); });
  connect(&menu, &QMenu::aboutToHide, this, [this, paste] { paste->setEnabled(has_cells()); });
}

void frmTable::add_find(QMenu& menu) {
  const auto add = [&](const char* name, const QString& caption, const char* key, auto work) {
    QAction* const item = menu.addAction(caption, this, work);
    item->setObjectName(QLatin1String(name));
    item->setShortcut(QKeySequence(QLatin1String(key)));
    m_of_cells.push_back(item);
  };
  add("mnuFind", tr("&Find…"), "Ctrl+F", [this] { open_finder(); });
  add("mnuFindNext", tr("Find &Next"), "F3", [this] { find(true); });
  add("mnuFindPrevious", tr("Find Pre&vious"), "Shift+F3", [this] { find(false); });
  add("mnuGoToRow", tr("&Go to Row…"), "Ctrl+G", [this] { open_finder(QStringLiteral("#")); });
}

bool frmTable::has_cells() const {
  return m_model.rowCount() > 0 && m_model.columnCount() > 0;
}

void frmTable::update_menus() {
  for (QAction* const action : m_of_cells) action->setEnabled(has_cells());
  update_undo();
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
    run(UndoKey::kUndo);
  }
}

void frmTable::redo_in_table() {
  m_grid->setFocus();
  run(UndoKey::kRedo);
}

// As the button of the toolbar does, because a host may have replaced what that does.
void frmTable::save_graph() {
  m_grid->setFocus();
  if (client()) client()->run_command("save");
}

}  // namespace kurv
