#include "app/csv/csv_table.h"

#include <csv.h>

#include <algorithm>
#include <new>
#include <optional>

#include "app/base/user_error.h"
#include "app/csv/csv_separator.h"
#include "app/csv/csv_text.h"

namespace kurv::app {

namespace {

// Receives fields and line ends and keeps count of the lines.
class TableFiller {
 public:
  explicit TableFiller(CsvTable& table) : m_table(table) {}

  void add_field(std::string_view text) {
    if (!m_in_row) m_table.begin_row(m_line);
    m_in_row = true;
    m_last_end = 0;
    m_table.add_cell(text);
    m_line += line_ends(text);
  }

  void end_line(int character) {
    m_in_row = false;
    const bool second_half = character == '\n' && m_last_end == '\r';
    if (!second_half) ++m_line;
    m_last_end = second_half ? 0 : character;
  }

  bool in_row() const { return m_in_row; }
  std::size_t line() const { return m_line; }

 private:
  static std::size_t line_ends(std::string_view text) {
    std::size_t count = 0;
    char before = 0;
    for (const char c : text) {
      if (c == '\r' || (c == '\n' && before != '\r')) ++count;
      before = c;
    }
    return count;
  }

  CsvTable& m_table;
  std::size_t m_line = 1;
  bool m_in_row = false;
  int m_last_end = 0;
};

// The parser is written in C, and no exception may pass through it: an exhausted memory is
// recorded, and thrown after the parser has returned.
struct Sink {
  TableFiller filler;
  bool out_of_memory = false;
  bool line_ended = false;
};

void take_field(void* text, std::size_t length, void* data) {
  Sink& sink = *static_cast<Sink*>(data);
  try {
    sink.filler.add_field({static_cast<const char*>(text), length});
  } catch (const std::bad_alloc&) {
    sink.out_of_memory = true;
  }
}

void take_line_end(int character, void* data) {
  Sink& sink = *static_cast<Sink*>(data);
  sink.line_ended = true;
  sink.filler.end_line(character);
}

class Parser {
 public:
  explicit Parser(char separator) {
    // Every line end is reported, because the empty lines count too when a line is to be named.
    if (csv_init(&m_parser, CSV_REPALL_NL) != 0) throw std::bad_alloc();
    csv_set_delim(&m_parser, static_cast<unsigned char>(separator));
    // One field may be as large as the file; the small default block would copy it too often.
    csv_set_blk_size(&m_parser, std::size_t{64} * 1024);
  }
  ~Parser() { csv_free(&m_parser); }
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;

  void parse(std::string_view bytes, Sink& sink) {
    if (csv_parse(&m_parser, bytes.data(), bytes.size(), take_field, take_line_end, &sink) !=
        bytes.size()) {
      throw std::bad_alloc();
    }
  }

  // False when a quotation mark is still open: then one more line end does not end a line.
  bool finish(Sink& sink) {
    sink.line_ended = false;
    parse("\n", sink);
    return sink.line_ended;
  }

 private:
  csv_parser m_parser;
};

}  // namespace

std::string_view CsvTable::cell(std::size_t row, std::size_t column) const {
  if (column >= width(row)) return {};
  const std::size_t index = m_row_starts[row] + column;
  const std::size_t begin = index == 0 ? 0 : m_cell_ends[index - 1];
  return std::string_view(m_text).substr(begin, m_cell_ends[index] - begin);
}

void CsvTable::begin_row(std::size_t line) {
  m_row_starts.push_back(static_cast<std::uint32_t>(m_cell_ends.size()));
  m_lines.push_back(static_cast<std::uint32_t>(line));
}

void CsvTable::add_cell(std::string_view text) {
  m_text.append(text);
  m_cell_ends.push_back(static_cast<std::uint32_t>(m_text.size()));
}

CsvTable parse_csv(std::string_view bytes, char separator, const std::string& path) {
  CsvTable table(separator);
  table.reserve_text(bytes.size());
  Sink sink{TableFiller(table)};
  Parser parser(separator);
  parser.parse(bytes, sink);
  if (!parser.finish(sink)) {
    const std::size_t line =
        sink.filler.in_row() ? table.line(table.rows() - 1) : sink.filler.line();
    throw UserError(path + " has a quotation mark that is never closed, in the row that begins in" +
                    " line " + std::to_string(line) + "; close it.");
  }
  if (sink.out_of_memory) throw std::bad_alloc();
  return table;
}

CsvTable parse_csv(std::string_view bytes, const std::string& path) {
  const std::optional<char> declared = declared_separator(bytes);
  if (!declared) return parse_csv(bytes, find_separator(bytes), path);
  // The end of its line stays, so that the lines below are counted as in the file.
  bytes.remove_prefix(std::min(bytes.find_first_of("\r\n"), bytes.size()));
  return parse_csv(bytes, *declared, path);
}

CsvTable read_csv(const std::string& path) {
  return parse_csv(read_csv_text(path), path);
}

}  // namespace kurv::app
