// A model of the first rows of a table.
#pragma once

#include <QAbstractTableModel>

#include "app/csv/data_rows.h"
#include "app/window/table_reader.h"

namespace kurv::app {

// The table must outlive the model.
class TablePreview final : public QAbstractTableModel {
 public:
  static constexpr int kMaxRows = 100;

  TablePreview(ReadTable& read, QObject* parent)
      : QAbstractTableModel(parent), m_read(read), m_rows(read.table, read.survey.dialect, 1) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  // Of a column its name, and on a second line what it holds and in which unit.
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QVariant missing_or_refused(std::string_view text, std::size_t column, int role) const;

  ReadTable& m_read;
  DataRows m_rows;
};

}  // namespace kurv::app
