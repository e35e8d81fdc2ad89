#include "app/window/import_views.h"

#include <QHeaderView>
#include <QTableView>
#include <algorithm>
#include <memory>

#include "app/window/raw_lines.h"
#include "app/window/table_preview.h"

namespace kurv::app {

namespace {

// Widths of the columns, in digits, and how many of them get one of their own.
constexpr int kNarrowColumn = 8;
constexpr int kWideColumn = 24;
constexpr int kMaxFitted = 150;

QTableView* new_view(const char* name, const QString& accessible_name) {
  auto* const view = new QTableView;
  view->setObjectName(name);
  view->setAccessibleName(accessible_name);
  view->setEditTriggers(QAbstractItemView::NoEditTriggers);
  view->setTabKeyNavigation(false);
  view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() * 3 / 2);
  view->verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
  view->horizontalHeader()->setHighlightSections(false);
  return view;
}

// Resizes the columns to their contents within limits, so that a long word does not fill the view.
// Only the first columns, because measuring very many takes long.
void fit_columns(QTableView& table) {
  const int digit = table.fontMetrics().horizontalAdvance(u'0');
  const int count = std::min(table.horizontalHeader()->count(), kMaxFitted);
  for (int column = 0; column < count; ++column) {
    table.resizeColumnToContents(column);
    const int wanted = table.columnWidth(column) + digit;
    table.setColumnWidth(column, std::clamp(wanted, kNarrowColumn * digit, kWideColumn * digit));
  }
}

void replace_model(QTableView& view, QAbstractItemModel* model) {
  const std::unique_ptr<QAbstractItemModel> old_model(view.model());
  const std::unique_ptr<QItemSelectionModel> old_selection(view.selectionModel());
  view.setModel(model);
}

}  // namespace

ImportViews::ImportViews(QWidget* parent)
    : QTabWidget(parent),
      m_rows(new_view("tblPreview", "The first rows of the table")),
      m_lines(new_view("tblLines", "The first lines of the file")) {
  setObjectName("tabViews");
  m_rows->setAlternatingRowColors(true);
  m_lines->setShowGrid(false);
  m_lines->setWordWrap(false);
  m_lines->horizontalHeader()->hide();
  addTab(m_rows, "&Rows");
  addTab(m_lines, "Lines of the &file");
}

void ImportViews::show_table(ReadTable* read, const std::string& beginning) {
  show_rows(read);
  replace_model(*m_lines, new RawLines(raw_lines(beginning, read), m_lines));
  m_lines->resizeColumnToContents(0);
}

void ImportViews::show_rows(ReadTable* read) {
  replace_model(*m_rows, read == nullptr ? nullptr : new TablePreview(*read, m_rows));
  if (read == nullptr) return setTabText(0, "&Rows");
  fit_columns(*m_rows);
  const bool are_all = read->survey.rows <= std::size_t{TablePreview::kMaxRows};
  setTabText(0, are_all ? QString("&Rows")
                        : "&Rows (" + QString::number(TablePreview::kMaxRows) + " of " +
                              QString::number(read->survey.rows) + ")");
}

void ImportViews::show_lines() {
  setCurrentWidget(m_lines);
}

}  // namespace kurv::app
