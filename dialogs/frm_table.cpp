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

// The first size shows so much of a large table.
constexpr int kRowsShown = 20;
constexpr int kColumnsShown = 8;
// Column widths, in characters, and how many rows have a say in them.
constexpr int kNarrowColumn = 8;
constexpr int kWideColumn = 24;
constexpr int kRowsMeasured = 50;

// A redraw by somebody else must not take from an editor what has just been typed into it.
class CellDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    const auto* const line = qobject_cast<const QLineEdit*>(editor);
    if (line && line->isModified()) return;
    QStyledItemDelegate::setEditorData(editor, index);
  }
};

// Long names end in an ellipsis; the toolkit would cut them off on both sides. Selected columns
// have theirs in bold letters, and no name may change with that.
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
  set_up_grid();
  auto* const layout = new QVBoxLayout(this);
  layout->setMenuBar(new_menu_bar());
  layout->addWidget(m_grid);
  layout->addWidget(new_bottom_line());
  connect(&m_model, &TableModel::typed, this, &frmTable::take_typed);
}

void frmTable::set_up_grid() {
  m_grid->setObjectName(QStringLiteral("grdTable"));
  m_grid->setAccessibleName(tr("Data table: a row for each point, columns for x and the curves"));
  m_grid->setItemDelegate(new CellDelegate(m_grid));
  m_grid->setModel(&m_model);
  m_grid->setSelectionMode(QAbstractItemView::ContiguousSelection);
  m_grid->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                          QAbstractItemView::AnyKeyPressed);
  // The arrow keys walk the cells, so that the tab key can leave them.
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
  // Enter belongs to the cells.
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

// A first size that suits the data; one that the user has given the window stays.
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
  resize_table_form();
}

void frmTable::changeEvent(QEvent* event) {
  GraphWindow::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fit_rows();
}

// -- Commands -------------------------------------------------------------------------------------

// What is being typed in a cell belongs to the table before a command looks at it.
void frmTable::mnuFileItem_Click() {
  m_grid->setFocus();
  const QPointer<frmTable> alive = this;
  const bool is_here = handle([&](Control& control) {
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
  if (is_here) fill();
}

void frmTable::mnuEditItem_Click(int index) {
  if (index < kCut || index > kDelete) {
    const QPointer<frmTable> alive = this;
    tell({{"Error : illegal Edit command.", kExclamation}});
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
  const std::optional<TableModel::Outcome> outcome =
      enter([&](const PutCell& put) { put_empty(block, put); });
  if (outcome && outcome->refusal) tell({{*outcome->refusal, kCriticalStop}});
}

void frmTable::copy(const CellBlock& block) {
  const String text = block_text(block, [this](String& cells, int row, int column) {
    m_model.append_cell(cells, row, column);
  });
  QClipboard* const clipboard = QApplication::clipboard();
  clipboard->clear();
  clipboard->setText(QString::fromStdString(text));
}

// The block's first cell is where a paste begins, wherever the selection was begun.
void frmTable::paste(const CellBlock& block) {
  const QMimeData* const offered = QApplication::clipboard()->mimeData();
  // A picture is no text; an empty text is an empty cell that was copied.
  if (!offered || !offered->hasText()) return;
  const String text = offered->text().toStdString();
  bool left_out = false;
  const std::optional<TableModel::Outcome> outcome = enter([&](const PutCell& put) {
    left_out = put_text(text, block.first_row, block.first_column, m_model.rowCount(),
                        m_model.columnCount(), put);
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
  tell(messages);
}

// The toolkit is still busy with the cell's editor, and a message may end with the window being
// gone, so it has to wait.
void frmTable::take_typed(int row, int column, const QString& text) {
  const String typed = text.trimmed().toStdString();
  const std::optional<TableModel::Outcome> outcome =
      enter([&](const PutCell& put) { put(row, column, typed); });
  if (!outcome || !outcome->refusal) return;
  QMetaObject::invokeMethod(
      this,
      [this, refusal = *outcome->refusal] {
        tell({{refusal, kCriticalStop}});
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

std::optional<TableModel::Outcome> frmTable::enter(const PutCells& put_cells) {
  std::optional<TableModel::Outcome> outcome;
  const bool is_here = handle([&](Control& control) {
    // Data that came unnoticed are shown first: nobody has chosen cells of theirs.
    if (m_model.is_current()) outcome = m_model.enter(control.state(), put_cells);
  });
  if (!is_here) return std::nullopt;
  fill();
  return outcome;
}

void frmTable::tell(const std::vector<Message>& messages) {
  if (messages.empty()) return;
  const bool is_here = handle([&](Control& control) {
    Shell& shell = control.state().shell;
    for (const Message& message : messages) {
      shell.message_box(message.text, message.flags, kBoxTitle);
    }
  });
  // While a box was open this window was told of no change.
  if (is_here) fill();
}

}  // namespace kurv
