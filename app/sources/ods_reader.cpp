#include "app/sources/ods_reader.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "app/base/user_error.h"
#include "app/sources/cell_text.h"
#include "app/sources/member_xml.h"

namespace kurv::app {

namespace {

// No program has larger sheets; positions count from 0.
constexpr std::size_t kMaxOdsRows = std::size_t{1} << 24;
constexpr std::size_t kMaxOdsColumns = 16'384;

struct Cell {
  std::size_t column;
  std::size_t count;  // how many columns it is repeated in
  std::string text;
};

// Elements in a sheet or a cell that are not its text: comments, drawings, forms.
bool is_beside_the_cells(const MemberXml& xml) {
  return xml.prefix() == u"draw" || xml.name() == u"annotation" || xml.name() == u"shapes" ||
         xml.name() == u"forms";
}

class OdsReader {
 public:
  OdsReader(ZipArchive& archive, const WantedSheet& wanted)
      : m_path(archive.path()),
        m_wanted(wanted),
        m_xml(archive, "content.xml"),
        m_result{TsvWriter(m_path), {}, 0} {}

  OdsCells read() {
    bool is_workbook = false;
    while (m_xml.next()) {
      if (!m_xml.is_start()) continue;
      if (m_xml.name() == u"spreadsheet") is_workbook = true;
      if (!is_workbook || m_xml.depth() <= kDepthOfWorkbook) continue;
      if (m_xml.name() == u"table") {
        read_table();
      } else {
        m_xml.skip_element();
      }
    }
    if (!is_workbook) {
      throw UserError(m_path +
                      " is no spreadsheet but another document; save its table as a CSV file.");
    }
    if (m_wanted && m_rank == 0) throw missing_sheet(m_path, *m_wanted, m_result.sheets);
    if (m_result.table.is_empty()) throw no_cells(m_path);
    return std::move(m_result);
  }

 private:
  // <document-content><body><spreadsheet>
  static constexpr int kDepthOfWorkbook = 3;

  void read_table() {
    const std::size_t index = m_result.sheets.size();
    std::string name;
    append_utf8(name, attribute(m_xml.attributes(), u"name"));
    m_result.sheets.push_back(name);
    const int rank = m_wanted ? sheet_rank(*m_wanted, name, index) : 1;
    const bool is_better = m_wanted ? rank > m_rank : m_result.table.is_empty();
    if (!is_better) {
      m_xml.skip_element();
      return;
    }
    m_rank = rank;
    m_result.sheet = index;
    m_result.table = TsvWriter(m_path);
    read_rows();
  }

  void read_rows() {
    const int depth = m_xml.depth();
    std::size_t row = 0;
    while (m_xml.next() && !(m_xml.is_end() && m_xml.depth() == depth)) {
      if (!m_xml.is_start()) continue;
      if (is_beside_the_cells(m_xml)) {
        m_xml.skip_element();
      } else if (m_xml.name() == u"table-row") {
        const std::size_t count = repetitions(u"number-rows-repeated", kMaxOdsRows + 1);
        read_row();
        write_row(row, count);
        row += count;
      }
    }
  }

  std::size_t repetitions(QStringView name, std::size_t limit) const {
    return std::min(count_attribute(m_xml.attributes(), name, 1), limit);
  }

  void read_row() {
    m_cells.clear();
    const int depth = m_xml.depth();
    std::size_t column = 0;
    while (m_xml.next() && !(m_xml.is_end() && m_xml.depth() == depth)) {
      if (!m_xml.is_start()) continue;
      const bool is_cell = m_xml.name() == u"table-cell";
      // Below a merged cell; what is in there is not shown.
      const bool is_covered = m_xml.name() == u"covered-table-cell";
      const std::size_t count = repetitions(u"number-columns-repeated", kMaxOdsColumns + 1);
      std::string text = is_cell ? read_cell() : std::string();
      if (!is_cell) m_xml.skip_element();
      if (!text.empty()) {
        if (column + count > kMaxOdsColumns) throw outside_the_sheet();
        m_cells.push_back({column, count, std::move(text)});
      }
      if (is_cell || is_covered) column += count;
    }
  }

  UserError outside_the_sheet() const {
    return damaged_file(m_path, "it has a cell outside the sheet");
  }

  void write_row(std::size_t row, std::size_t count) {
    if (m_cells.empty()) return;
    if (row + count > kMaxOdsRows) throw outside_the_sheet();
    std::size_t cells = 0;
    for (const Cell& cell : m_cells) cells += cell.count;
    m_result.table.check_size(cells * count);
    for (std::size_t i = 0; i < count; ++i) {
      for (const Cell& cell : m_cells) {
        for (std::size_t k = 0; k < cell.count; ++k) {
          m_result.table.add(row + i, cell.column + k, cell.text);
        }
      }
    }
  }

  std::string read_cell() {
    const QXmlStreamAttributes attributes = m_xml.attributes();
    if (std::optional<std::string> value = typed_value(attributes)) {
      m_xml.skip_element();
      return *std::move(value);
    }
    // An error is a text whose value is empty.
    const std::string shown = read_paragraphs();
    const std::string text = text_of(attributes, u"string-value");
    return text.empty() ? shown : text;
  }

  static std::string text_of(const QXmlStreamAttributes& attributes, QStringView name) {
    std::string text;
    append_utf8(text, attribute(attributes, name));
    return text;
  }

  // Nothing for a cell that holds a text.
  static std::optional<std::string> typed_value(const QXmlStreamAttributes& attributes) {
    const QStringView type = attribute(attributes, u"value-type");
    if (type == u"float" || type == u"currency") return number_cell(text_of(attributes, u"value"));
    if (type == u"percentage") return percent_cell(text_of(attributes, u"value"));
    if (type == u"date") return iso_cell(text_of(attributes, u"date-value"));
    if (type == u"time") return duration_cell(text_of(attributes, u"time-value"));
    if (type != u"boolean") return std::nullopt;
    return boolean_cell(text_of(attributes, u"boolean-value") == "true");
  }

  // The text that a cell shows.
  std::string read_paragraphs() {
    std::string text;
    const int depth = m_xml.depth();
    bool is_first = true;
    int paragraph = 0;  // its depth, 0 between paragraphs
    while (m_xml.next() && !(m_xml.is_end() && m_xml.depth() == depth)) {
      if (m_xml.is_text() && paragraph > 0) append_utf8(text, m_xml.text());
      if (m_xml.is_end() && m_xml.depth() == paragraph) paragraph = 0;
      if (!m_xml.is_start()) continue;
      if (is_beside_the_cells(m_xml) || m_xml.name() == u"table") {
        m_xml.skip_element();
      } else if (paragraph == 0 && m_xml.name() == u"p") {
        paragraph = m_xml.depth();
        if (!std::exchange(is_first, false)) text += '\n';
      } else {
        append_character(text);
      }
    }
    return text;
  }

  // Blanks and line ends are elements, because XML does not keep them.
  void append_character(std::string& text) const {
    if (m_xml.name() == u"tab") text += '\t';
    if (m_xml.name() == u"line-break") text += '\n';
    constexpr std::size_t kMaxBlanks = 32'767;  // the longest text of a cell
    if (m_xml.name() == u"s") text.append(repetitions(u"c", kMaxBlanks), ' ');
  }

  const std::string m_path;
  const WantedSheet& m_wanted;
  MemberXml m_xml;
  OdsCells m_result;
  int m_rank = 0;
  std::vector<Cell> m_cells;  // of one row
};

}  // namespace

OdsCells read_ods(ZipArchive& archive, const WantedSheet& wanted) {
  return OdsReader(archive, wanted).read();
}

}  // namespace kurv::app
