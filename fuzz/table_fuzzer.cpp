// Gives any bytes to the reader of tables, which must return numbers that fit together or refuse
// the table in a sentence. tools/fuzz builds and runs it.
#include <KurvGraph/limits.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "app/base/user_error.h"
#include "app/csv/csv_reader.h"
#include "app/csv/csv_text.h"
#include "app/csv/table_data.h"
#include "app/csv/table_survey.h"

namespace kurv::app {
namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

void check_table(const CsvTable& table) {
  for (std::size_t row = 0; row < table.rows(); ++row) {
    require(table.line(row) >= 1 && (row == 0 || table.line(row) > table.line(row - 1)));
    for (std::size_t column = 0; column < table.width(row); ++column) table.cell(row, column);
  }
}

void check_data(const TableData& data, std::size_t rows) {
  require(data.values.upper_point() >= 1 && data.values.upper_point() <= kMaxPoints);
  if (rows <= std::size_t{kMaxPoints}) {
    require(static_cast<std::size_t>(data.values.upper_point()) == rows);
  }
  require(data.values.upper_column() >= 2 && data.values.upper_column() <= kMaxCurves + 1);
  require(data.names.upper() == data.values.upper_column());
  for (int i = 1; i <= data.names.upper(); ++i) {
    require(data.names(i).find_first_of(",\r\n") == std::string::npos);
  }
}

void check(const std::string& bytes, const TableOptions& options) {
  try {
    DecodedText decoded = decode_csv_text(bytes, options.encoding, "table");
    const CsvTable table = parse_csv(std::move(decoded.text), "table", options);
    check_table(table);
    TableColumns columns(table, detect_dialect(table), options.selection.every);
    const TableSurvey survey = survey_table(columns);
    require(survey.names.size() == survey.kinds.size());
    check_data(make_table_data(columns, options.selection, "table"), columns.rows().size());
  } catch (const UserError& error) {
    require(*error.what() != '\0');
  }
}

TableOptions some_options() {
  TableOptions options;
  options.separator = kFixedWidth;
  options.header = HeaderChoice::kNamesAndUnits;
  options.decimal = ',';
  options.thousands = ' ';
  options.dates = DateOrder::kUnixSeconds;
  options.missing = {"x"};
  options.skip = 1;
  options.selection.every = 2;
  return options;
}

}  // namespace
}  // namespace kurv::app

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kurv::app;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  check(bytes, {});
  TableOptions options;
  options.separator = kBlanks;
  check(bytes, options);
  check(bytes, some_options());
  return 0;
}
