// The columns of a table: their names, what they hold, and their values.
#pragma once

#include <KurvGraph/arrays.h>
#include <KurvGraph/limits.h>
#include <KurvGraph/values.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/csv/column_names.h"
#include "app/csv/column_survey.h"
#include "app/csv/csv_dialect.h"
#include "app/csv/csv_table.h"
#include "app/csv/data_rows.h"

namespace kurv::app {

// Parses each cell once: the pass that counts what a column holds also yields its values. Columns
// that are never asked for are not parsed. Keeps the values of as many columns as a graph can hold,
// and none of words; of what is asked for beyond that, the values are parsed again. The table must
// outlive it.
class TableColumns {
 public:
  TableColumns(const CsvTable& table, const CsvDialect& dialect, std::size_t every);

  const CsvTable& table() const { return *m_table; }
  const CsvDialect& dialect() const { return m_dialect; }
  const DataRows& rows() const { return m_rows; }
  // All different: what the columns are drawn as.
  const std::vector<std::string>& names() const { return m_names.names; }
  // Those of them that have a number because the header has the name before.
  const std::vector<std::string>& repeated_names() const { return m_names.repeated; }
  std::size_t size() const { return m_names.names.size(); }

  // Reads several columns in one pass, which is faster than one pass for each. Columns that have
  // been read are skipped.
  void read(std::vector<std::size_t> columns);
  void read_all();

  // Both read the column where that has not been done.
  const ColumnSurvey& survey(std::size_t column);
  ColumnKind kind(std::size_t column) { return survey(column).kind(); }
  // What the column is measured in, as the header or else the cells say; empty where neither does.
  const std::string& unit(std::size_t column);
  // Makes the values of the column, numbers or dates as its kind is, the column `target` of a
  // matrix whose points are 1 to the number of rows, which must fit an int.
  void copy_values(std::size_t column, Matrix<Double>& matrix, int target);

 private:
  struct Reading;

  bool has_countable_rows() const;
  std::vector<Reading> parsed(const std::vector<std::size_t>& columns, std::size_t points) const;
  void keep(Reading reading);

  const CsvTable* m_table;
  CsvDialect m_dialect;
  DataRows m_rows;
  ColumnNames m_names;
  // Indexes into m_rows, the longest row first, so that the cells of a column are in the first of
  // them, and one long row costs no more time than its cells do. Empty where the rows come in that
  // order.
  std::vector<std::uint32_t> m_longest_first;
  std::vector<std::optional<ColumnSurvey>> m_surveys;
  // Column 1 is the first one of the table. The matrices of copy_values() share the columns that
  // are kept here.
  Matrix<Double> m_values;
  std::vector<bool> m_kept;
  int m_kept_count = 0;
};

}  // namespace kurv::app
