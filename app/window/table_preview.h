// A model of the first rows of a table.
#pragma once

#include <QAbstractTableModel>

#include "app/csv/csv_table.h"
#include "app/csv/table_survey.h"

namespace kurv::app {

// Both must outlive the model.
class TablePreview final : public QAbstractTableModel {
 public:
  static constexpr int kMaxRows = 100;

  TablePreview(const CsvTable& table, const TableSurvey& survey, QObject* parent)
      : QAbstractTableModel(parent), m_table(table), m_survey(survey) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const CsvTable& m_table;
  const TableSurvey& m_survey;
};

}  // namespace kurv::app
