#include "dialogs/frm_table.h"

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionHeader>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>

namespace kurv {

namespace {

constexpr const char* kBoxTitle = "KURV Guide";
constexpr int kAskBeforeReplacing = 2;
enum EditItem { kCut, kCopy, kPaste, kDelete };

// How much of a large table the initial size shows.
constexpr int kRowsShown = 20;
constexpr int kColumnsShown = 8;
// Column widths, in characters, and how many rows are measured for them.
constexpr int kNarrowColumn = 8;
constexpr int kWideColumn = 24;
constexpr int kRowsMeasured = 50;

// A refill after a redraw by the host must not overwrite what is being typed in an editor.
class CellDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
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

QString counted(int count, const QString& one, const QString& many) {
  return QString::number(count) + u' ' + (count == 1 ? one : many);
}

}  // namespace

// -- Layout ---------------------------------------------------------------------------------------

frmTable::frmTable(QWidget* parent)
    : GraphWindow(parent), m_grid(new QTableView(this)), m_status(new QLabel(this)) {
  setObjectName(QStringLiteral("frmTable"));
  setWindowTitle(tr("Data Table"));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  setSizeGripEnabled(true);
  init_grid();
  auto* const layout = new QVBoxLayout(this);
  layout->setMenuBar(new_menu_bar());
  layout->addWidget(m_grid);
  layout->addWidget(new_bottom_line());
  connect(&m_model, &TableModel::typed, this, &frmTable::commit_typed);
}

void frmTable::init_grid() {
  m_grid->setObjectName(QStringLiteral("grdTable"));
  m_grid->setAccessibleName(tr("Data table: a row for each point, columns for x and the curves"));
  m_grid->setItemDelegate(new CellDelegate(m_grid));
  m_grid->setModel(&m_model);
  // The grid lines are hardly visible on dark desktops.
  m_grid->setAlternatingRowColors(true);
  m_grid->setSelectionMode(QAbstractItemView::ContiguousSelection);
  m_grid->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                          QAbstractItemView::AnyKeyPressed);
  // The arrow keys move between the cells, so that the Tab key can leave the table.
  m_grid->setTabKeyNavigation(false);
  m_grid->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  m_grid->setHorizontalHeader(new NameHeader(m_grid));
  m_grid->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  m_grid->verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
  fit_rows();
}

QMenuBar* frmTable::new_menu_bar() {
  auto* const bar = new QMenuBar(this);
  QMenu* const file = bar->addMenu(tr("&File"));
  file->addAction(tr("&Save as Text…"), this, &frmTable::mnuFileItem_Click)
      ->setShortcut(QKeySequence::Save);
  file->actions().constFirst()->setObjectName(QStringLiteral("mnuFileItem_0"));

  QMenu* const menu = bar->addMenu(tr("&Edit"));
  add_undo(*menu);
  const auto add = [&](int index, const QString& caption, QKeySequence::StandardKey key) {
    QAction* const item =
        menu->addAction(caption, this, [this, index] { mnuEditItem_Click(index); });
    item->setObjectName(QStringLiteral("mnuEditItem_%1").arg(index));
    item->setShortcuts(key);
  };
  add(kCut, tr("Cu&t"), QKeySequence::Cut);
  add(kCopy, tr("&Copy"), QKeySequence::Copy);
  add(kPaste, tr("&Paste"), QKeySequence::Paste);
  add(kDelete, tr("&Delete"), QKeySequence::Delete);
  return bar;
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

void frmTable::fit_rows() {
  const int text = m_grid->fontMetrics().height();
  m_grid->verticalHeader()->setMinimumSectionSize(text);
  m_grid->verticalHeader()->setDefaultSectionSize(text + text / 2);
  m_grid->setIconSize({text, text});
}

void frmTable::fit_columns() {
  const int digit = m_grid->fontMetrics().horizontalAdvance(u'0');
  m_grid->resizeColumnsToContents();
  for (int column = 0; column < m_model.columnCount(); ++column) {
    const int wanted = m_grid->columnWidth(column) + digit;
    m_grid->setColumnWidth(column, std::clamp(wanted, kNarrowColumn * digit, kWideColumn * digit));
  }
}

// Sets an initial size that suits the data, unless the user has resized the window.
void frmTable::resize_table_form() {
  if (testAttribute(Qt::WA_Resized)) return;
  ensurePolished();
  const QHeaderView& columns = *m_grid->horizontalHeader();
  const QHeaderView& rows = *m_grid->verticalHeader();
  int width = rows.sizeHint().width() + m_grid->verticalScrollBar()->sizeHint().width();
  for (int i = 0; i < std::min(columns.count(), kColumnsShown); ++i)
    width += columns.sectionSize(i);
  const int height =
      columns.sizeHint().height() +
      rows.defaultSectionSize() * std::clamp(rows.count(), kRowsShown / 2, kRowsShown);
  const int frame = 2 * m_grid->frameWidth() + 2;
  const QSize wanted = sizeHint() - m_grid->sizeHint() + QSize(width + frame, height + frame);
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
  if (was_empty || m_model.columnCount() != columns) fit_columns();
  if (!m_grid->currentIndex().isValid()) m_grid->setCurrentIndex(m_model.index(0, 0));
  show_status();
  update_undo();
  resize_table_form();
}

void frmTable::changeEvent(QEvent* event) {
  GraphWindow::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fit_rows();
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
  const String text = block_text(block, [this](String& cells, int row, int column) {
    m_model.append_cell(cells, row, column);
  });
  QClipboard* const clipboard = QApplication::clipboard();
  clipboard->clear();
  clipboard->setText(QString::fromStdString(text));
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
