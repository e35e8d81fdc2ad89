#include "app/csv/table_file.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "app/base/message_text.h"
#include "app/csv/csv_reader.h"
#include "app/csv/csv_text.h"
#include "app/sources/json_table.h"

namespace kurv::app {

namespace {

// The text of a workbook or of JSON is written by this program, so its notation is known.
TableOptions with_known_notation(TableOptions options) {
  options.separator = '\t';
  options.comment = "";
  if (!options.decimal) options.decimal = '.';
  if (!options.thousands) options.thousands = '\0';
  return options;
}

// Whether the texts among the cells of a sheet have decimal commas: the numbers of the sheet, which
// are written with decimal points, must be whole then. "1,234" could be either and does not count.
bool has_decimal_commas(std::string_view cells) {
  bool any = false;
  while (!cells.empty()) {
    const std::size_t end = std::min(cells.find_first_of("\t\n"), cells.size());
    const std::string_view cell = cells.substr(0, end);
    cells.remove_prefix(std::min(end + 1, cells.size()));
    const std::size_t comma = cell.find(',');
    const std::size_t last_digits = cell.size() - std::min(comma + 1, cell.size());
    if (cell.empty() || cell.find_first_not_of("0123456789+-.,eE%") != cell.npos) continue;
    // Two points are in a date.
    if (comma == cell.npos && std::count(cell.begin(), cell.end(), '.') == 1) return false;
    if (comma == cell.npos || comma == 0 || last_digits == 0) continue;
    if (cell.find_first_of(".,", comma + 1) != cell.npos) return false;
    any = any || last_digits != 3 || cell.starts_with("0,");
  }
  return any;
}

void add_notes(TableSource& source, std::vector<std::string> notes) {
  source.notes.insert(source.notes.begin(), std::make_move_iterator(notes.begin()),
                      std::make_move_iterator(notes.end()));
}

// What the user says about a file of another kind.
void note_idle_option(bool is_set, const std::string& option, const std::string& kind,
                      TableSource& source) {
  if (is_set) add_notes(source, {option + " has no effect, because the table is " + kind + "."});
}

CsvTable table_of_json(const std::string& text, const std::string& name, TableOptions options) {
  JsonTable json = read_json_table(text, name);
  options.skip = 0;
  if (json.has_header && !options.header) options.header = HeaderChoice::kNames;
  CsvTable table = parse_csv(std::move(json.text), name, with_known_notation(std::move(options)));
  table.source().kind = "JSON";
  add_notes(table.source(), std::move(json.notes));
  note_idle_option(table.source().options.sheet.has_value(), "--sheet", "JSON", table.source());
  return table;
}

CsvTable table_of_text(DecodedText decoded, const std::string& name, const TableOptions& options) {
  CsvTable table = parse_csv(std::move(decoded.text), name, options);
  table.source().encoding = decoded.encoding;
  if (decoded.first_foreign_line > 0) {
    add_notes(table.source(),
              {"line " + std::to_string(decoded.first_foreign_line) +
               " is not UTF-8 although others are, and is read as code page 1252; --encoding "
               "changes that."});
  } else if (options.encoding && *options.encoding != decoded.encoding) {
    add_notes(table.source(),
              {"the text is not " + std::string(encoding_name(*options.encoding)) +
               ", and is read as " + std::string(encoding_name(decoded.encoding)) + "."});
  }
  note_idle_option(options.sheet.has_value(), "--sheet", "text", table.source());
  return table;
}

}  // namespace

CsvTable parse_sheet(SheetText sheet, const std::string& name, const TableOptions& options) {
  TableOptions known = with_known_notation(options);
  if (!options.decimal && has_decimal_commas(sheet.text)) {
    known.decimal = ',';
    known.thousands = options.thousands;
    sheet.notes.push_back(
        "the texts of the sheet are read as numbers with decimal commas; --decimal changes that.");
  }
  CsvTable table = parse_csv(std::move(sheet.text), name, known);
  TableSource& source = table.source();
  source.kind = "sheet " + in_quotes(sheet.sheets[sheet.sheet]);
  if (sheet.sheets.size() > 1) source.kind += " of " + std::to_string(sheet.sheets.size());
  if (sheet.sheets.size() > 1 && !options.sheet) {
    source.has_other_sheets = true;
    sheet.notes.push_back(source.kind + " is read; --sheet chooses another one.");
  }
  add_notes(source, std::move(sheet.notes));
  note_idle_option(options.separator.has_value(), "--separator", "a sheet of a workbook", source);
  note_idle_option(options.encoding.has_value(), "--encoding", "a sheet of a workbook", source);
  return table;
}

CsvTable parse_table(std::string bytes, const std::string& name, const TableOptions& options) {
  if (looks_like_spreadsheet(bytes)) {
    return parse_sheet(read_spreadsheet(bytes, name, options.sheet), name, options);
  }
  DecodedText decoded = decode_csv_text(std::move(bytes), options.encoding, name);
  if (!options.separator && looks_like_json(decoded.text)) {
    return table_of_json(decoded.text, name, options);
  }
  return table_of_text(std::move(decoded), name, options);
}

CsvTable read_table(const std::string& path, const TableOptions& options) {
  return parse_table(read_table_bytes(path, options.encoding), name_of_source(path), options);
}

}  // namespace kurv::app
