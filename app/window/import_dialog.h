// Lets the user see how a table has been understood, correct that, and choose what to draw of it.
#pragma once

#include <QDialog>
#include <QTimer>
#include <memory>
#include <optional>
#include <string>

#include "app/graph/graph_intake.h"
#include "app/window/table_reader.h"

class QBoxLayout;
class QLabel;
class QPushButton;
class QScrollArea;

namespace kurv::app {

class DrawingFields;
class ImportViews;
class PicturePreview;
class TableOptionFields;

// Controls by name: those of ImportViews, DrawingFields and TableOptionFields, imgPreview,
// lblDialect, lblSummary, lblNotes in scrNotes, cmdImport, cmdCancel.
class ImportDialog final : public QDialog {
 public:
  // The bytes are those of the file. Where they are no table, the window says so and offers the
  // options that may help.
  ImportDialog(const std::string& path, std::string bytes, QWidget* parent);
  ~ImportDialog() override;

  // Once accepted: the choices, and the data, which can be drawn. Call take_source() once.
  GraphChoice choice() const;
  GraphSource take_source();

  // Closes the dialog only when the selection can be drawn.
  void accept() override;

 private:
  QWidget* make_page();
  QBoxLayout* make_buttons();
  QScrollArea* make_notes();
  void connect_parts();
  // Reads the table in the way that the user chose for the last one of this folder, if that works.
  void read_as_before();
  // Reads the table as the options say, and shows it or the error.
  void read();
  void show_table(const QString& failure);
  // Makes the data of the selection and shows the result, warnings or the error.
  void evaluate();
  TableData selected_data();
  void show_result(const QString& summary, const QString& notes);
  void show_picture();

  std::string m_path;
  TableReader m_reader;
  std::unique_ptr<ReadTable> m_read;
  // Why there is no table.
  QString m_failure;
  std::optional<TableData> m_data;
  QTimer m_reading;
  QTimer m_evaluation;

  ImportViews* m_views;
  PicturePreview* m_picture;
  TableOptionFields* m_options;
  DrawingFields* m_drawing;
  QLabel* m_dialect;
  QLabel* m_summary;
  QLabel* m_notes;
  QScrollArea* m_notes_area;
  QPushButton* m_import = nullptr;
};

}  // namespace kurv::app
