// Reads the table of a file again and again, as the options of the import window say.
#pragma once

#include <QString>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/csv/table_survey.h"
#include "app/sources/spreadsheet.h"

namespace kurv::app {

// A table with what has been found out about it.
struct ReadTable {
  explicit ReadTable(CsvTable read);
  // The columns have the address of the table.
  ReadTable(const ReadTable&) = delete;
  ReadTable& operator=(const ReadTable&) = delete;

  CsvTable table;
  // Read with the N that was chosen last, so that ticking curves parses no cell twice.
  TableColumns columns;
  TableSurvey survey;
};

// Throws UserError, as the command line does, where only the first column has numbers although it
// is not the only column: it is x, and nothing is left to draw.
void check_has_curves(ReadTable& read);

class TableReader {
 public:
  // What messages call the file.
  static constexpr const char* kName = "the file";

  explicit TableReader(std::string bytes);

  bool is_workbook() const { return m_is_workbook; }
  // The sheets of a workbook that has been read; otherwise empty.
  const std::vector<std::string>& sheets() const { return m_sheets; }
  // The name of the sheet that was read last; empty without one.
  QString sheet() const;

  // Throws UserError, which begins with kName, as parse_table() does.
  std::unique_ptr<ReadTable> read(const TableOptions& options);

  // The text that the file begins with, or the sheet that was read last: whole characters, though
  // the last line may be incomplete. `encoding` is that of a text.
  std::string beginning(std::optional<Encoding> encoding) const;

 private:
  std::string m_bytes;
  bool m_is_workbook;
  std::vector<std::string> m_sheets;
  // The last sheet that was read, and the option it was read by.
  std::optional<SheetText> m_sheet;
  std::optional<std::string> m_sheet_option;
};

}  // namespace kurv::app
