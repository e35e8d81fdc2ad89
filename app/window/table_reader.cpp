#include "app/window/table_reader.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "app/csv/column_choice.h"
#include "app/csv/table_file.h"

namespace kurv::app {

namespace {

// More than the view of the lines shows, unless they are very long.
constexpr std::size_t kBeginning = 256 * 1024;

// Without the character at the end that has been cut into, if there is one.
std::string_view whole_characters(std::string_view text) {
  constexpr std::size_t kLongest = 4;
  for (std::size_t cut = 0; cut < std::min(kLongest, text.size()); ++cut) {
    const std::size_t last = text.size() - 1 - cut;
    if (is_utf8_continuation(text[last])) continue;
    return utf8_length(text.substr(last)) == cut + 1 ? text : text.substr(0, last);
  }
  return text;
}

}  // namespace

ReadTable::ReadTable(CsvTable read)
    : table(std::move(read)),
      columns(table, detect_dialect(table), 1),
      survey(survey_table(columns)) {}

void check_has_curves(ReadTable& read) {
  const std::vector<ColumnKind>& kinds = read.survey.kinds;
  const auto curves = std::count(kinds.begin(), kinds.end(), ColumnKind::kNumbers);
  if (curves == 1 && kinds.front() == ColumnKind::kNumbers) {
    choose_columns(read.columns, {}, TableReader::kName);
  }
}

TableReader::TableReader(std::string bytes)
    : m_bytes(std::move(bytes)), m_is_workbook(looks_like_spreadsheet(m_bytes)) {}

std::unique_ptr<ReadTable> TableReader::read(const TableOptions& options) {
  if (!m_is_workbook) return std::make_unique<ReadTable>(parse_table(m_bytes, kName, options));
  if (!m_sheet || m_sheet_option != options.sheet) {
    m_sheet.reset();
    m_sheet = read_spreadsheet(m_bytes, kName, options.sheet);
    m_sheet_option = options.sheet;
    m_sheets = m_sheet->sheets;
  }
  return std::make_unique<ReadTable>(parse_sheet(*m_sheet, kName, options));
}

QString TableReader::sheet() const {
  return m_sheet ? QString::fromStdString(m_sheets[m_sheet->sheet]) : QString();
}

std::string TableReader::beginning(std::optional<Encoding> encoding) const {
  if (m_is_workbook) {
    if (!m_sheet) return {};
    return std::string(whole_characters(std::string_view(m_sheet->text).substr(0, kBeginning)));
  }
  std::string_view bytes = std::string_view(m_bytes).substr(0, kBeginning);
  if (!encoding) encoding = encoding_of_beginning(bytes).value_or(Encoding::kLatin1);
  if (encoding == Encoding::kUtf8 && bytes.size() < m_bytes.size()) bytes = whole_characters(bytes);
  return decode(std::string(bytes), *encoding).text;
}

}  // namespace kurv::app
