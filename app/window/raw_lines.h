// A model of the first lines of a file, as they are before they become a table.
#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <string>
#include <vector>

#include "app/window/table_reader.h"

namespace kurv::app {

struct RawLine {
  QString text;
  // Why the line is not part of the table; nullptr where it is.
  const char* left_out = nullptr;
};

// The first lines of `text`, each cut where it is very long. Without a table, none is left out.
std::vector<RawLine> raw_lines(const std::string& text, const ReadTable* table);

class RawLines final : public QAbstractTableModel {
 public:
  static constexpr std::size_t kMaxLines = 200;

  RawLines(std::vector<RawLine> lines, QObject* parent)
      : QAbstractTableModel(parent), m_lines(std::move(lines)) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::vector<RawLine> m_lines;
};

}  // namespace kurv::app
