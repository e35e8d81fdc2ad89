// Tables as their makers write them, and what is to be read from each. NAME.json says what the
// reader finds in NAME with another ending; what it leaves out is not checked.
//
//   encoding, separator, decimal, thousands   as "kurv info" prints them
//   header_row, skipped_lines, rows           true or false, and counts
//   columns                                   name, unit, kind and values of each
//   x, curves, x_title                        names; x is null where it is the row number
//   notes                                     texts that some note contains
//   error                                     a text in the error
//   options                                   the options of the command line to read it with
//
// The values of dates are texts such as "2012-01-31" or "2012-01-31T12:00:00", and null is a
// missing value.

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "app/base/user_error.h"
#include "app/command_line/option_values.h"
#include "app/command_line/table_option_values.h"
#include "app/csv/table_data.h"
#include "app/csv/table_file.h"
#include "app/csv/table_survey.h"
#include "app/csv/time_axis.h"
#include "app/csv/unit_text.h"

namespace kurv::app {
namespace {

constexpr const char* kFolder = KURV_SOURCE_DIR "/tests/tables";

TableOptions options_of(const QJsonObject& options) {
  TableOptionTexts texts;
  const auto take = [&](const char* name, std::optional<std::string>& text) {
    if (options.contains(name)) text = options[name].toVariant().toString().toStdString();
  };
  take("separator", texts.separator);
  take("decimal", texts.decimal);
  take("thousands", texts.thousands);
  take("header", texts.header);
  take("skip", texts.skip);
  take("comment", texts.comment);
  take("missing", texts.missing);
  take("encoding", texts.encoding);
  take("dates", texts.dates);
  TableOptions result;
  parse_table_options(texts, result);
  std::optional<std::string> y;
  take("x", result.selection.x);
  take("y", y);
  if (y) result.selection.y = parse_names(*y, "--y");
  return result;
}

// A name as it is drawn, without its unit.
std::string bare_name(const std::string& name) {
  std::string result;
  for (const char c : name) {
    const char letter = c == ',' ? ' ' : c;
    if (letter != ' ' || !result.ends_with(' ')) result.push_back(letter);
  }
  return result;
}

class Expectation {
 public:
  Expectation(const std::string& path, const QJsonObject& expected)
      : m_expected(expected),
        m_options(options_of(expected["options"].toObject())),
        m_table(read_table(path, m_options)),
        m_columns(m_table, detect_dialect(m_table), 1),
        m_survey(survey_table(m_columns)),
        m_path(path) {}

  void check() {
    check_text("encoding", std::string(encoding_name(m_table.source().encoding)));
    check_text("separator", separator_text(m_table.separator()));
    check_text("decimal", sign_text(m_columns.dialect().notation.numbers.decimal));
    check_text("thousands", sign_text(m_columns.dialect().notation.numbers.thousands));
    check_value("header_row", m_columns.dialect().header);
    check_value("skipped_lines", static_cast<int>(m_table.source().skipped_lines));
    check_value("rows", static_cast<int>(m_columns.rows().total()));
    check_columns();
    check_data();
  }

 private:
  void check_text(const char* key, const std::string& found) {
    if (!m_expected.contains(key)) return;
    std::string wanted = m_expected[key].toString().toStdString();
    if (const std::optional<Encoding> encoding = encoding_named(wanted);
        encoding && key == std::string("encoding")) {
      wanted = encoding_name(*encoding);
    }
    if (wanted == "\t") wanted = "tab";
    if (wanted == " ") wanted = "blank";
    if (wanted.empty()) wanted = "none";
    EXPECT_EQ(found, wanted) << key;
  }

  template <class Value>
  void check_value(const char* key, Value found) {
    if (!m_expected.contains(key)) return;
    EXPECT_EQ(QJsonValue(found), m_expected[key]) << key;
  }

  void check_columns() {
    if (!m_expected.contains("columns")) return;
    const QJsonArray columns = m_expected["columns"].toArray();
    std::size_t count = m_columns.size();
    while (count > 0 && is_trailing_separator(count - 1)) --count;
    EXPECT_EQ(count, static_cast<std::size_t>(columns.size())) << "number of columns";
    for (int i = 0; i < columns.size() && i < static_cast<int>(m_columns.size()); ++i) {
      SCOPED_TRACE("column " + std::to_string(i + 1));
      check_column(static_cast<std::size_t>(i), columns[i].toObject());
    }
  }

  // An empty column without a name.
  bool is_trailing_separator(std::size_t column) {
    if (m_columns.kind(column) != ColumnKind::kEmpty) return false;
    return !m_columns.dialect().header || m_table.cell(0, column).empty();
  }

  void check_column(std::size_t column, const QJsonObject& expected) {
    if (expected.contains("name")) check_name(expected["name"], m_columns.names()[column]);
    if (expected.contains("unit")) {
      const std::string wanted = expected["unit"].toString().toStdString();
      EXPECT_EQ(m_columns.unit(column), wanted) << "unit";
    }
    if (expected.contains("kind")) {
      const std::string kind = kind_name(m_columns.kind(column));
      EXPECT_EQ(kind, expected["kind"].toString().toStdString()) << "kind";
    }
    if (expected.contains("values") && m_columns.survey(column).usable()) {
      check_values(column, expected["values"].toArray());
    }
  }

  static void check_name(const QJsonValue& expected, const std::string& name) {
    const std::string wanted = bare_name(expected.toString().toStdString());
    const std::string whole = bare_name(name);
    EXPECT_THAT(wanted, testing::AnyOf(whole, std::string(split_unit(whole).name))) << "name";
  }

  void check_values(std::size_t column, const QJsonArray& values) {
    const int points = static_cast<int>(m_columns.rows().size());
    Matrix<Double> matrix(1, 1, 1, points);
    m_columns.copy_values(column, matrix, 1);
    EXPECT_EQ(points, values.size()) << "number of values";
    const bool dates = m_columns.kind(column) == ColumnKind::kDates;
    for (int i = 1; i <= std::min<int>(points, static_cast<int>(values.size())); ++i) {
      const QJsonValue wanted = values[i - 1];
      const double found = matrix(1, i);
      if (wanted.isNull() || std::isnan(found)) {
        EXPECT_EQ(wanted.isNull(), std::isnan(found)) << "value " << i;
      } else if (dates) {
        EXPECT_EQ(date_text(found, column, wanted.toString()), wanted.toString().toStdString())
            << "value " << i;
      } else {
        EXPECT_DOUBLE_EQ(found, wanted.toDouble()) << "value " << i;
      }
    }
  }

  // As precise as what is wanted.
  std::string date_text(double days, std::size_t column, const QString& wanted) {
    std::string instant = iso_instant_text(days);
    if (wanted.contains('.')) {
      if (instant.find('.') == std::string::npos) instant += '.';
      while (instant.size() - instant.find('.') < 4) instant += '0';
    }
    if (m_columns.survey(column).only_times()) return instant.substr(instant.find('T') + 1);
    return wanted.contains('T') ? instant : iso_date_text(days);
  }

  void check_data() {
    const bool wanted = m_expected.contains("x") || m_expected.contains("curves") ||
                        m_expected.contains("x_title") || m_expected.contains("notes");
    if (!wanted) return;
    const TableData data = make_table_data(m_columns, m_options.selection, m_path);
    const Choice choice = choose_columns(m_columns, m_options.selection, m_path);
    if (m_expected.contains("x")) {
      EXPECT_EQ(choice.x.has_value(), !m_expected["x"].isNull()) << "x";
      if (choice.x && !m_expected["x"].isNull())
        check_name(m_expected["x"], m_columns.names()[*choice.x]);
    }
    if (m_expected.contains("x_title")) {
      EXPECT_EQ(data.names(1), m_expected["x_title"].toString().toStdString());
    }
    check_curves(data);
    const std::string notes = testing::PrintToString(data.warnings);
    for (const QJsonValue& note : m_expected["notes"].toArray()) {
      EXPECT_THAT(notes, testing::HasSubstr(note.toString().toStdString()));
    }
  }

  void check_curves(const TableData& data) {
    if (!m_expected.contains("curves")) return;
    const QJsonArray curves = m_expected["curves"].toArray();
    EXPECT_EQ(data.names.upper() - 1, curves.size()) << "number of curves";
    for (int i = 0; i < curves.size() && i + 2 <= data.names.upper(); ++i) {
      check_name(curves[i], data.names(i + 2));
    }
  }

  QJsonObject m_expected;
  TableOptions m_options;
  CsvTable m_table;
  TableColumns m_columns;
  TableSurvey m_survey;
  std::string m_path;
};

// The table beside the expectations: the file of the same name with another ending.
std::string table_beside(const QString& json) {
  const QString name = QFileInfo(json).completeBaseName();
  for (const QString& file : QDir(kFolder).entryList({name + ".*"}, QDir::Files)) {
    if (QFileInfo(file).completeBaseName() == name && !file.endsWith(".json")) {
      return (QString(kFolder) + '/' + file).toStdString();
    }
  }
  return {};
}

void check_table(const QString& json) {
  QFile file(QString(kFolder) + '/' + json);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  QJsonParseError error;
  const QJsonObject expected = QJsonDocument::fromJson(file.readAll(), &error).object();
  ASSERT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
  const std::string table = table_beside(json);
  ASSERT_FALSE(table.empty()) << "there is no table beside it";
  if (!expected.contains("error")) {
    EXPECT_NO_THROW(Expectation(table, expected).check());
    return;
  }
  try {
    read_table_data(table, options_of(expected["options"].toObject()));
    FAIL() << "nothing was refused";
  } catch (const UserError& refusal) {
    EXPECT_THAT(refusal.what(), testing::HasSubstr(expected["error"].toString().toStdString()));
  }
}

TEST(Tables, AreReadAsTheirMakersMeantThem) {
  const QStringList files = QDir(kFolder).entryList({"*.json"}, QDir::Files);
  EXPECT_FALSE(files.isEmpty()) << "there are no tables in " << kFolder;
  for (const QString& json : files) {
    SCOPED_TRACE(json.toStdString());
    check_table(json);
  }
}

}  // namespace
}  // namespace kurv::app
