#include "app/window/raw_lines.h"

#include <KurvGraph/text.h>

#include <QFontDatabase>
#include <algorithm>
#include <optional>
#include <set>
#include <string_view>

#include "app/csv/line_fields.h"
#include "app/window/cell_colours.h"

namespace kurv::app {

namespace {

// A line may be as long as the file.
constexpr qsizetype kMaxCharacters = 500;
constexpr std::size_t kMaxLineBytes = 2000;

// Tabs can be seen, and other control characters do no harm.
QString visible(std::string_view line) {
  constexpr qsizetype kTab = 8;
  const QString text =
      QString::fromUtf8(line.data(), static_cast<qsizetype>(std::min(line.size(), kMaxLineBytes)));
  QString result;
  for (const QChar c : text) {
    if (result.size() >= kMaxCharacters) return result + QChar(0x2026);
    if (c == u'\t') {
      const qsizetype width = kTab - result.size() % kTab;
      result += QChar(0x2192) + QString(width - 1, u' ');
    } else {
      result += c.category() == QChar::Other_Control ? QChar(u' ') : c;
    }
  }
  return line.size() > kMaxLineBytes ? result + QChar(0x2026) : result;
}

// The lines of rows that were read and are not drawn.
std::set<std::size_t> left_out_lines(const ReadTable& read) {
  const CsvDialect& dialect = read.survey.dialect;
  std::set<std::size_t> lines;
  for (const std::uint32_t row : dialect.left_out) lines.insert(read.table.line(row));
  if (!dialect.header) return lines;
  const std::size_t names = dialect.units ? 2 : 1;
  for (std::size_t row = names; row < dialect.first_row; ++row) lines.insert(read.table.line(row));
  return lines;
}

class LineCheck {
 public:
  explicit LineCheck(const ReadTable& read)
      : m_source(read.table.source()), m_left_out(left_out_lines(read)) {}

  const char* left_out(std::size_t number, std::string_view line) const {
    if (number <= m_source.skipped_lines) return "above the table, left out";
    const bool is_header = m_source.header_in_comment && number == m_source.skipped_lines + 1;
    const std::string& comment = m_source.comment;
    if (!is_header && !comment.empty() && trim_blanks(line).starts_with(comment)) {
      return "a comment, left out";
    }
    return m_left_out.contains(number) ? "left out" : nullptr;
  }

 private:
  const TableSource& m_source;
  std::set<std::size_t> m_left_out;
};

}  // namespace

std::vector<RawLine> raw_lines(const std::string& text, const ReadTable* table) {
  // The rows of JSON are not its lines.
  const bool has_rows = table != nullptr && table->table.source().kind != "JSON";
  const std::optional<LineCheck> check = has_rows ? std::optional<LineCheck>(*table) : std::nullopt;
  std::vector<RawLine> lines;
  for (std::string_view rest = text; !rest.empty() && lines.size() < RawLines::kMaxLines;) {
    const std::string_view line = take_line(rest);
    const std::size_t number = lines.size() + 1;
    lines.push_back({visible(line), check ? check->left_out(number, line) : nullptr});
  }
  return lines;
}

int RawLines::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

int RawLines::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : 1;
}

QVariant RawLines::data(const QModelIndex& index, int role) const {
  const RawLine& line = m_lines[static_cast<std::size_t>(index.row())];
  if (role == Qt::DisplayRole) return line.text;
  if (role == Qt::FontRole) return QFontDatabase::systemFont(QFontDatabase::FixedFont);
  if (line.left_out == nullptr) return {};
  if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole) {
    return QString(line.left_out);
  }
  if (role == Qt::ForegroundRole) return grey_text();
  return {};
}

QVariant RawLines::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation == Qt::Horizontal) return {};
  return section + 1;
}

}  // namespace kurv::app
