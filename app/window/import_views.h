// The views of a table's file in the import window: its rows as columns, and its lines.
#pragma once

#include <QTabWidget>

#include "app/window/table_reader.h"

class QTableView;

namespace kurv::app {

// Controls by name: tblPreview, tblLines.
class ImportViews final : public QTabWidget {
 public:
  explicit ImportViews(QWidget* parent = nullptr);

  // The table, which must outlive the view; nullptr where none can be read. `beginning` is the text
  // of the file.
  void show_table(ReadTable* read, const std::string& beginning);
  // Brings the lines of the file to the front.
  void show_lines();

 private:
  void show_rows(ReadTable* read);

  QTableView* m_rows;
  QTableView* m_lines;
};

}  // namespace kurv::app
