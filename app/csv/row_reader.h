// More rows of a table that has been read up to some row.
#pragma once

#include <KurvGraph/arrays.h>
#include <KurvGraph/values.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/csv/csv_dialect.h"
#include "app/csv/csv_parser.h"
#include "app/csv/table_data.h"

namespace kurv::app {

// Reads rows as the ones before them are written, without deciding anything anew: a row that is
// written otherwise does not change what the table means.
class RowReader {
 public:
  // Goes on after the rows of these columns and the data made of them.
  RowReader(TableColumns& columns, const Choice& choice, const TableData& data, ParseRules rules,
            std::string name);

  // Whole lines. Throws UserError where a quotation mark is not closed; then nothing has been read.
  void read(const std::string& text);
  // Counts a line that read() has refused, and notes it.
  void leave_out(const std::string& line);
  // All rows of data, from the beginning of the table on.
  std::size_t rows() const { return m_rows; }

  // The points that have been read since the last call, at most the last kMaxPoints of them;
  // column 1 is x.
  Matrix<Double> take_points();
  // Sentences about rows and cells that are not understood, one of each kind.
  std::vector<std::string> take_notes();

 private:
  struct CellColumn {
    std::size_t column;
    std::string name;
    ColumnKind kind;
    bool only_times;
    DateSurvey::Digits digits;
  };
  struct Row {
    std::vector<Double> values;
    bool has_value = false;
    const CellColumn* unreadable = nullptr;
  };

  static CellColumn cell_column(TableColumns& columns, std::size_t column);
  Row read_row(const CsvTable& table, std::size_t row) const;
  Double read_value(const CsvTable& table, std::size_t row, const CellColumn& column,
                    Row& result) const;
  void follow_times(const Matrix<Double>& values);
  // Adds the days that have passed since the first time of day.
  void roll_over(Double& time);
  Double x_value(const CsvTable& table, std::size_t row, Row& result) const;
  bool is_header(const CsvTable& table, std::size_t row) const;
  void keep(Row row);
  void note_cell(const CsvTable& table, std::size_t row, const CellColumn& column);
  void note_row(std::size_t line, std::string_view text);

  CsvDialect m_dialect;
  ParseRules m_rules;
  std::string m_name;
  std::vector<std::string> m_header;
  std::optional<CellColumn> m_x;
  std::optional<CellColumn> m_time;
  std::vector<CellColumn> m_y;
  std::optional<TimeScale> m_scale;
  std::size_t m_every;
  std::size_t m_rows;
  // The values of one point after those of the other.
  std::vector<Double> m_points;
  std::vector<std::string> m_notes;
  bool m_noted_cell = false;
  bool m_noted_row = false;
  // x has times of day that ascend and go on after midnight.
  bool m_ascending_times = false;
  Double m_last_time = 0;
  Double m_midnights = 0;
};

}  // namespace kurv::app
