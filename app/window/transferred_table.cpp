#include "app/window/transferred_table.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <QUrl>
#include <algorithm>
#include <filesystem>

#include "app/base/user_error.h"
#include "app/csv/csv_dialect.h"
#include "app/csv/table_file.h"
#include "app/csv/table_survey.h"

namespace kurv::app {

namespace {

// Laying out a page takes far longer than reading text, and large tables come with text as well.
constexpr qsizetype kMaxPage = 1 << 20;  // characters

// A page that loads nothing, whatever it refers to.
class ClosedPage final : public QTextDocument {
 public:
  explicit ClosedPage(const QString& html) {
    setUndoRedoEnabled(false);
    setHtml(html);
  }

 protected:
  QVariant loadResource(int, const QUrl&) override { return {}; }
};

constexpr QLatin1String kTable("<table");
constexpr QLatin1String kTableEnd("</table");

// The first table of a page with the tables in it. What is before it may hide it from Qt's parser,
// such as a link to a style sheet.
QString first_table(const QString& html) {
  const qsizetype begin = html.indexOf(kTable, 0, Qt::CaseInsensitive);
  qsizetype end = begin;
  for (int depth = 0; end >= 0;) {
    const qsizetype inner = html.indexOf(kTable, end, Qt::CaseInsensitive);
    const qsizetype close = html.indexOf(kTableEnd, end, Qt::CaseInsensitive);
    if (close < 0) break;
    const bool opens = inner >= 0 && inner < close;
    depth += opens ? 1 : -1;
    end = opens ? inner + kTable.size() : close + kTableEnd.size();
    if (depth == 0) return html.mid(begin, end - begin) + u'>';
  }
  return begin < 0 ? QString() : html.mid(begin);
}

// Characters that mark the ends of a table in the cell.
constexpr QChar kTableBegin(0xFDD0);
constexpr QChar kTableClose(0xFDD1);

// On one line, and in quotation marks where it has some.
QString field(const QTextTableCell& cell) {
  QTextCursor cursor = cell.firstCursorPosition();
  cursor.setPosition(cell.lastCursorPosition().position(), QTextCursor::KeepAnchor);
  QString text = cursor.selectedText();
  text.remove(QChar::ObjectReplacementCharacter);
  const auto is_break = [](QChar c) {
    return c == QChar::ParagraphSeparator || c == QChar::LineSeparator || c == kTableBegin ||
           c == kTableClose || c.category() == QChar::Other_Control;
  };
  std::replace_if(text.begin(), text.end(), is_break, u' ');
  text = text.trimmed();
  return text.contains(u'"') ? '"' + text.replace(u'"', QLatin1String("\"\"")) + '"' : text;
}

QString tab_separated(const QTextTable& table) {
  QString text;
  for (int row = 0; row < table.rows(); ++row) {
    for (int column = 0; column < table.columns(); ++column) {
      if (column > 0) text += u'\t';
      const QTextTableCell cell = table.cellAt(row, column);
      if (cell.row() == row && cell.column() == column) text += field(cell);
    }
    text += u'\n';
  }
  return text;
}

bool has_page_with_table(const QMimeData& data) {
  if (!data.hasHtml()) return false;
  const QString html = data.html();
  if (html.size() > kMaxPage && data.hasText()) return false;
  return html.contains(kTable, Qt::CaseInsensitive);
}

}  // namespace

// QUrl::toLocalFile() changes names that are not UTF-8.
std::vector<std::string> files_in(const QMimeData& data) {
  std::vector<std::string> paths;
  for (const QUrl& url : data.urls()) {
    if (!url.isLocalFile()) continue;
    const std::string path =
        QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString();
    std::error_code ignored;
    if (std::filesystem::is_regular_file(path, ignored)) paths.push_back(path);
  }
  return paths;
}

bool has_table_text(const QMimeData& data) {
  if (data.hasUrls()) return false;
  return data.hasText() || has_page_with_table(data);
}

std::string table_text(const QMimeData& data) {
  if (has_page_with_table(data)) {
    const ClosedPage page(first_table(data.html()));
    for (const QTextFrame* const frame : page.rootFrame()->childFrames()) {
      if (const auto* const table = qobject_cast<const QTextTable*>(frame)) {
        return tab_separated(*table).toStdString();
      }
    }
  }
  return data.text().toStdString();
}

bool holds_numbers(const std::string& text) {
  try {
    const CsvTable table = parse_table(text, "the clipboard");
    TableColumns columns(table, detect_dialect(table), 1);
    const TableSurvey survey = survey_table(columns);
    const auto& kinds = survey.kinds;
    return survey.rows > 1 &&
           std::find(kinds.begin(), kinds.end(), ColumnKind::kNumbers) != kinds.end();
  } catch (const UserError&) {
    return false;
  }
}

}  // namespace kurv::app
