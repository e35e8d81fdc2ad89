#include "app/sources/xlsx_sheet.h"

#include <KurvGraph/number_text.h>

#include <optional>
#include <utility>

#include "app/base/user_error.h"
#include "app/sources/member_xml.h"

namespace kurv::app {

namespace {

// The size of the largest sheet; positions count from 0.
constexpr std::size_t kMaxXlsxRows = 1'048'576;
constexpr std::size_t kMaxXlsxColumns = 16'384;

struct Position {
  std::size_t row;
  std::size_t column;
};

// "B3" is row 2, column 1.
std::optional<Position> position_of(QStringView reference) {
  std::size_t column = 0;
  qsizetype i = 0;
  for (; i < reference.size() && reference[i] >= u'A' && reference[i] <= u'Z'; ++i) {
    column = column * 26 + static_cast<std::size_t>(reference[i].unicode() - u'A') + 1;
    if (column > kMaxXlsxColumns) return std::nullopt;
  }
  bool is_number = false;
  const std::size_t row = reference.mid(i).toULongLong(&is_number);
  if (column == 0 || !is_number || row == 0 || row > kMaxXlsxRows) return std::nullopt;
  return Position{row - 1, column - 1};
}

class SheetReader {
 public:
  SheetReader(ZipArchive& archive, const std::string& part, const XlsxWorkbook& workbook)
      : m_path(archive.path()),
        m_workbook(workbook),
        m_xml(archive, part),
        m_result{TsvWriter(archive.path()), 0} {}

  XlsxCells read() {
    while (m_xml.next()) {
      if (m_xml.is_end() && m_xml.name() == u"sheetData") break;
      if (!m_xml.is_start()) continue;
      if (m_xml.name() == u"row") begin_row();
      if (m_xml.name() == u"c") read_cell();
    }
    return std::move(m_result);
  }

 private:
  // A row or a cell without a position is after the one before.
  void begin_row() {
    const std::size_t number = count_attribute(m_xml.attributes(), u"r", m_next.row + 1);
    m_position = {number - 1, 0};
    check_position(number != 0);
    m_next = {number, 0};
  }

  void read_cell() {
    const QXmlStreamAttributes attributes = m_xml.attributes();
    const QStringView reference = attribute(attributes, u"r");
    if (reference.isEmpty()) {
      m_position.column = m_next.column;
    } else {
      const std::optional<Position> position = position_of(reference);
      check_position(position.has_value());
      m_position = *position;
    }
    check_position(true);
    m_next = {m_position.row + 1, m_position.column + 1};
    const QStringView type = attribute(attributes, u"t");
    const std::size_t style = count_attribute(attributes, u"s", 0);
    const bool has_formula = read_content();
    // An empty text is a result as well.
    if (has_formula && m_content.empty() && type != u"str") ++m_result.formulas_without_result;
    m_result.table.add(m_position.row, m_position.column, cell_text(type, style));
  }

  void check_position(bool is_position) const {
    if (is_position && m_position.row < kMaxXlsxRows && m_position.column < kMaxXlsxColumns) return;
    throw damaged_file(m_path, "it has a cell outside the sheet");
  }

  // The value is in <v>, or the text in <is><t> and <is><r><t>. Returns whether there is a formula.
  bool read_content() {
    m_content.clear();
    bool has_formula = false;
    const int depth = m_xml.depth();
    while (m_xml.next() && !(m_xml.is_end() && m_xml.depth() == depth)) {
      if (!m_xml.is_start()) continue;
      if (m_xml.name() == u"f") has_formula = true;
      if (m_xml.name() == u"v" || m_xml.name() == u"t") {
        m_content += m_xml.element_text();
      } else if (m_xml.name() == u"f" || m_xml.name() == u"rPh") {
        m_xml.skip_element();
      }
    }
    return has_formula;
  }

  std::string cell_text(QStringView type, std::size_t style) const {
    if (m_content.empty()) return {};
    if (type == u"s") return shared_string();
    if (type == u"str" || type == u"inlineStr") return unescape_xlsx(m_content);
    if (type == u"b") return boolean_cell(m_content != "0");
    if (type == u"d") return iso_cell(m_content);
    if (type == u"e") return m_content;
    return number_text(style);
  }

  std::string shared_string() const {
    const std::optional<double> index = text_to_number(m_content);
    if (!index || !(*index >= 0 && *index < static_cast<double>(m_workbook.strings.size()))) {
      throw damaged_file(m_path, "a text of a cell is missing");
    }
    return std::string(m_workbook.strings[static_cast<std::size_t>(*index)]);
  }

  std::string number_text(std::size_t style) const {
    const FormatKind kind =
        style < m_workbook.styles.size() ? m_workbook.styles[style] : FormatKind::kNumber;
    if (kind == FormatKind::kNumber) return number_cell(m_content);
    if (kind == FormatKind::kPercent) return percent_cell(m_content);
    const std::optional<double> days = text_to_number(m_content);
    const std::optional<std::string> date =
        days ? date_cell(*days, kind, m_workbook.dates) : std::nullopt;
    return date ? *date : number_cell(m_content);
  }

  const std::string& m_path;
  const XlsxWorkbook& m_workbook;
  MemberXml m_xml;
  XlsxCells m_result;
  Position m_position{0, 0};
  Position m_next{0, 0};
  std::string m_content;
};

}  // namespace

XlsxCells read_xlsx_sheet(ZipArchive& archive, const std::string& part,
                          const XlsxWorkbook& workbook) {
  return SheetReader(archive, part, workbook).read();
}

}  // namespace kurv::app
