// Lets the user choose which columns and rows of a table to draw, and shows the first rows.
#pragma once

#include <QDialog>
#include <QTimer>
#include <optional>
#include <string>

#include "app/csv/table_survey.h"
#include "app/graph/graph_intake.h"

class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QScrollArea;
class QSpinBox;
class QVBoxLayout;

namespace kurv::app {

// Controls by name: tblPreview, cboX, lstCurves, cmdAll, cmdNone, spnEvery, chkSort, txtTitle,
// lblDialect, lblSummary, lblNotes in scrNotes, cmdImport, cmdCancel.
class ImportDialog final : public QDialog {
 public:
  ImportDialog(const std::string& path, CsvTable table, QWidget* parent);

  // Once accepted: the choices, and the data, which can be drawn. Call take_source() once.
  GraphChoice choice() const;
  GraphSource take_source();

  // Closes the dialog only when the selection can be drawn.
  void accept() override;

 private:
  QWidget* make_preview();
  QScrollArea* make_notes();
  QVBoxLayout* make_x_fields();
  QVBoxLayout* make_curve_fields();
  void fill_fields();
  void connect_fields();
  void hide_x_among_curves();
  void check_all(Qt::CheckState state);
  Selection selection() const;
  // Reads the selected data and shows the result, warnings or the error.
  void evaluate();
  TableData read();
  void show_result(const QString& summary, const QString& notes);

  std::string m_path;
  CsvTable m_table;
  // Read with the N that was chosen last, so that ticking curves parses no cell twice.
  TableColumns m_columns;
  TableSurvey m_survey;
  std::optional<TableData> m_data;
  QTimer m_evaluation;

  QComboBox* m_x;
  QListWidget* m_curves;
  QPushButton* m_all;
  QPushButton* m_none;
  QSpinBox* m_every;
  QCheckBox* m_sort;
  QLineEdit* m_title;
  QLabel* m_summary;
  QLabel* m_notes;
  QScrollArea* m_notes_area;
  QPushButton* m_import;
};

}  // namespace kurv::app
