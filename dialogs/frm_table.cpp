#include "dialogs/frm_table.h"

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

namespace kurv {

namespace {

constexpr const char* kBoxTitle = "KURV Guide";
constexpr int kAskBeforeReplacing = 2;

void set_clipboard(const String& text) {
  QClipboard* const clipboard = QApplication::clipboard();
  clipboard->clear();
  clipboard->setText(QString::fromStdString(text));
}

QString counted(int count, const QString& one, const QString& many) {
  return QString::number(count) + u' ' + (count == 1 ? one : many);
}

}  // namespace

// -- Layout ---------------------------------------------------------------------------------------

frmTable::frmTable(QWidget* parent)
    : GraphWindow(parent),
      m_grid(new TableGrid(this)),
      m_finder(new TableFinder(this)),
      m_status(new QLabel(this)) {
  setObjectName(QStringLiteral("frmTable"));
  setWindowTitle(tr("Data Table"));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  setSizeGripEnabled(true);
  m_grid->setObjectName(QStringLiteral("grdTable"));
  m_grid->setAccessibleName(tr("Data table: a row for each point, columns for x and the curves"));
  m_grid->setModel(&m_model);
  auto* const layout = new QVBoxLayout(this);
  layout->setMenuBar(new_menu_bar());
  layout->addWidget(m_grid);
  layout->addWidget(m_finder);
  layout->addWidget(new_bottom_line());
  connect(&m_model, &TableModel::typed, this, &frmTable::commit_typed);
  connect(m_finder, &TableFinder::typed, this, &frmTable::find_typed);
  connect(m_finder, &TableFinder::wanted, this, &frmTable::find);
  connect(m_finder, &TableFinder::closed, this, [this] { m_grid->setFocus(); });
}

QWidget* frmTable::new_bottom_line() {
  auto* const line = new QWidget(this);
  m_status->setObjectName(QStringLiteral("lblStatus"));
  m_status->setBuddy(m_grid);
  auto* const exit = new QPushButton(tr("&Close"), line);
  exit->setObjectName(QStringLiteral("cmdExit"));
  // The Enter key is for the cells.
  exit->setAutoDefault(false);
  connect(exit, &QPushButton::clicked, this, &frmTable::cmdExit_Click);
  auto* const layout = new QHBoxLayout(line);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(m_status, 1);
  layout->addWidget(exit);
  return line;
}

// Sets an initial size that suits the data, unless the user has resized the window.
void frmTable::resize_table_form() {
  if (testAttribute(Qt::WA_Resized)) return;
  ensurePolished();
  const QSize wanted = sizeHint() - m_grid->sizeHint() + m_grid->size_for_table();
  resize(wanted.expandedTo(minimumSizeHint()).boundedTo(screen()->availableSize() * 4 / 5));
}

void frmTable::show_status() {
  QString text = counted(m_model.rowCount(), tr("&point"), tr("&points")) + QStringLiteral(", ") +
                 counted(m_model.columnCount(), tr("column"), tr("columns"));
  if (const int marks = m_model.mark_count()) {
    text += QStringLiteral("; ") +
            counted(marks, tr("cell is not in the graph"), tr("cells are not in the graph"));
  }
  m_status->setText(text);
}

void frmTable::fill() {
  const int columns = m_model.columnCount();
  const bool was_empty = m_model.rowCount() == 0;
  m_model.refresh();
  if (was_empty || m_model.columnCount() != columns) m_grid->fit_columns();
  if (!m_grid->currentIndex().isValid()) m_grid->setCurrentIndex(m_model.index(0, 0));
  show_status();
  update_menus();
  resize_table_form();
}

void frmTable::changeEvent(QEvent* event) {
  GraphWindow::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    m_grid->fit_rows();
  }
}

// -- Commands -------------------------------------------------------------------------------------

// Setting the focus closes the editor, so that what is being typed is in the table before a command
// reads it.
void frmTable::mnuFileItem_Click() {
  m_grid->setFocus();
  const QPointer<frmTable> alive = this;
  const bool is_still_open = handle([&](Control& control) {
    const Client* const asked_for = client();
    const FileChoice choice = control.state().shell.save_file(
        {"Save table File", "Text files (*.txt)|*.txt|All files (*.*)|*.*", "txt", "",
         kAskBeforeReplacing});
    if (choice.path.empty() || !alive || client() != asked_for) return;
    m_model.refresh();
    save_table(
        choice.path, m_model.rowCount(), m_model.columnCount(),
        [this](String& text, int row, int column) { m_model.append_cell(text, row, column); });
  });
  if (is_still_open) fill();
}

void frmTable::mnuEditItem_Click(int index) {
  if (index < kCut || index > kDelete) {
    const QPointer<frmTable> alive = this;
    show_messages({{"Error : illegal Edit command.", kExclamation}});
    if (!alive) return;
  }
  edit(index);
}

void frmTable::cmdExit_Click() {
  m_grid->setFocus();
  close();
}

void frmTable::edit(int index) {
  m_grid->setFocus();
  const CellBlock block = selected_block();
  if (block.is_empty()) return;
  if (index == kCopy || index == kCut) copy(block);
  if (index == kPaste) paste(block);
  if (index != kCut && index != kDelete) return;
  const std::optional<TableModel::Outcome> outcome = commit(
      index == kCut ? "Cut" : "Delete", [&](const SetCell& set) { clear_block(block, set); });
  if (outcome && outcome->refusal) show_messages({{*outcome->refusal, kCriticalStop}});
}

void frmTable::copy(const CellBlock& block) {
  set_clipboard(text_of(block));
}

// The names of the columns are the first line. A tab or a line end in a name would begin another
// cell.
void frmTable::copy_with_headings() {
  m_grid->setFocus();
  const CellBlock block = selected_block();
  if (block.is_empty()) return;
  const CellBlock headings{0, block.first_column, 0, block.last_column};
  const String names = block_text(headings, [this](String& cells, int row, int column) {
    String name;
    m_model.append_cell(name, row, column);
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    cells += name;
  });
  set_clipboard(names + "\r\n" + text_of(block));
}

String frmTable::text_of(const CellBlock& block) const {
  return block_text(block, [this](String& cells, int row, int column) {
    m_model.append_cell(cells, row, column);
  });
}

// A paste begins at the top left cell of the selection, whichever cell is the current one.
void frmTable::paste(const CellBlock& block) {
  const QMimeData* const offered = QApplication::clipboard()->mimeData();
  // A picture has no text. An empty text is pasted: it comes from copying an empty cell.
  if (!offered || !offered->hasText()) return;
  const String text = offered->text().toStdString();
  bool left_out = false;
  const std::optional<TableModel::Outcome> outcome = commit("Paste", [&](const SetCell& set) {
    left_out = paste_text(text, block.first_row, block.first_column, m_model.rowCount(),
                          m_model.columnCount(), set);
  });
  if (!outcome) return;
  std::vector<Message> messages;
  if (outcome->refusal) messages.push_back({*outcome->refusal, kCriticalStop});
  if (outcome->has_invalid) {
    messages.push_back({"Invalid numerical data cells were detected.", kExclamation});
  }
  if (left_out) {
    messages.push_back({"Note that some data has not been pasted in this action.", kExclamation});
  }
  show_messages(messages);
}

// The message is queued: Qt is still closing the cell's editor, and the window may be destroyed
// while a message box is open.
void frmTable::commit_typed(int row, int column, const QString& text) {
  const String typed = text.trimmed().toStdString();
  const std::optional<TableModel::Outcome> outcome =
      commit("Edit Cell", [&](const SetCell& set) { set(row, column, typed); });
  if (!outcome || !outcome->refusal) return;
  QMetaObject::invokeMethod(
      this,
      [this, refusal = *outcome->refusal] {
        show_messages({{refusal, kCriticalStop}});
      },
      Qt::QueuedConnection);
}

CellBlock frmTable::selected_block() const {
  const QItemSelection selection = m_grid->selectionModel()->selection();
  if (selection.isEmpty()) {
    const QModelIndex at = m_grid->currentIndex();
    if (!at.isValid()) return {};
    return {at.row() + 1, at.column() + 1, at.row() + 1, at.column() + 1};
  }
  CellBlock block{m_model.rowCount(), m_model.columnCount(), 1, 1};
  for (const QItemSelectionRange& range : selection) {
    block.first_row = std::min(block.first_row, range.top() + 1);
    block.first_column = std::min(block.first_column, range.left() + 1);
    block.last_row = std::max(block.last_row, range.bottom() + 1);
    block.last_column = std::max(block.last_column, range.right() + 1);
  }
  return block;
}

std::optional<TableModel::Outcome> frmTable::commit(const char* step, const SetCells& set_cells) {
  std::optional<TableModel::Outcome> outcome;
  const bool is_still_open = GraphWindow::edit({step}, [&](Control& control) {
    // Where the data have been replaced since the last fill, nothing is written: the user has
    // selected cells of the old data. The outcome is set before a redraw can throw: the client
    // reports the fault, and the caller shows the messages.
    if (m_model.is_current()) m_model.commit(control.state(), set_cells, outcome.emplace());
  });
  if (!is_still_open) return std::nullopt;
  fill();
  return outcome;
}

void frmTable::show_messages(const std::vector<Message>& messages) {
  if (messages.empty()) return;
  const QPointer<frmTable> alive = this;
  const bool is_still_open = handle([&](Control& control) {
    const Client* const asked_for = client();
    for (const Message& message : messages) {
      control.state().shell.message_box(message.text, message.flags, kBoxTitle);
      // No further messages about a table that was closed while the box was open.
      if (!alive || client() != asked_for) return;
    }
  });
  // Changes that were made while a box was open have not been shown yet.
  if (is_still_open) fill();
}

}  // namespace kurv
