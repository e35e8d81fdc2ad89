#include "app/window/table_option_fields.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSpinBox>
#include <algorithm>
#include <array>
#include <limits>
#include <string_view>
#include <utility>

#include "app/base/user_error.h"
#include "app/csv/csv_parser.h"
#include "app/window/option_box.h"
#include "app/window/table_option_texts.h"
#include "app/window/window_texts.h"

namespace kurv::app {

namespace {

constexpr int kAutomaticSkip = -1;
constexpr int kNoComment = 0;
constexpr std::array kComments{"#", "%", "//"};
constexpr int kOnlyEmpty = 0;

void add_words(OptionBox& box, const std::vector<OptionWord>& words) {
  for (const OptionWord& word : words) box.add(capitalised(word.text), word.value);
}

template <class Value>
std::optional<Value> value_of(const OptionBox& box) {
  const std::optional<int> value = box.value();
  return value ? std::optional(static_cast<Value>(*value)) : std::nullopt;
}

void choose(OptionBox& box, std::optional<int> value) {
  value ? box.choose(*value) : box.choose_automatic();
}

template <class Value>
std::optional<int> as_int(const std::optional<Value>& value) {
  return value ? std::optional(static_cast<int>(*value)) : std::nullopt;
}

// A list as a line of CSV, its fields in quotation marks where they need them.
QString list_text(const std::vector<std::string>& texts) {
  QStringList fields;
  for (const std::string& text : texts) {
    QString field = QString::fromStdString(text);
    if (field.contains(',') || field.contains('"')) {
      field = '"' + field.replace('"', "\"\"") + '"';
    }
    fields << field;
  }
  return fields.join(',');
}

}  // namespace

TableOptionFields::TableOptionFields(QWidget* parent)
    : QGroupBox("How the file is written", parent),
      m_encoding(new OptionBox("cboEncoding", false)),
      m_separator(new OptionBox("cboSeparator", true)),
      m_skip(new QSpinBox),
      m_comment(new OptionBox("cboComment", true)),
      m_header(new OptionBox("cboHeader", false)),
      m_decimal(new OptionBox("cboDecimal", false)),
      m_thousands(new OptionBox("cboThousands", false)),
      m_missing(new OptionBox("cboMissing", true)),
      m_dates(new OptionBox("cboDates", false)),
      m_sheet(new OptionBox("cboSheet", false)),
      m_sheet_label(new QLabel("&Worksheet")),
      m_remark(new QLabel),
      m_automatic(new QPushButton("&Back to automatic")) {
  setObjectName("grpOptions");
  m_skip->setObjectName("spnSkip");
  m_skip->setRange(kAutomaticSkip, std::numeric_limits<int>::max());
  m_skip->setValue(kAutomaticSkip);
  m_skip->setSpecialValueText("Automatic");
  m_remark->setObjectName("lblRemark");
  m_remark->setTextFormat(Qt::PlainText);
  m_remark->setWordWrap(true);
  m_automatic->setObjectName("cmdAutomatic");
  m_automatic->setAutoDefault(false);
  fill_lists();
  setLayout(make_grid());
  connect_fields();
}

QGridLayout* TableOptionFields::make_grid() {
  auto* const grid = new QGridLayout;
  const auto add = [grid](int row, int column, QLabel* label, QWidget* field) {
    label->setBuddy(field);
    grid->addWidget(label, row, column);
    grid->addWidget(field, row, column + 1);
  };
  add(0, 0, new QLabel("Enc&oding"), m_encoding);
  add(1, 0, new QLabel("Se&parator"), m_separator);
  add(2, 0, new QLabel("Lines to s&kip"), m_skip);
  add(3, 0, new QLabel("Co&mments"), m_comment);
  add(4, 0, new QLabel("&Header"), m_header);
  add(0, 2, new QLabel("Decimal si&gn"), m_decimal);
  add(1, 2, new QLabel("Tho&usands sign"), m_thousands);
  add(2, 2, new QLabel("Missing &values"), m_missing);
  add(3, 2, new QLabel("&Dates"), m_dates);
  add(4, 2, m_sheet_label, m_sheet);
  auto* const last = new QHBoxLayout;
  last->addWidget(m_remark, 1);
  last->addWidget(m_automatic);
  grid->addLayout(last, 5, 0, 1, 4);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
  grid->setRowStretch(6, 1);
  return grid;
}

void TableOptionFields::fill_lists() {
  for (const Encoding encoding : all_encodings()) {
    m_encoding->add(QString::fromLatin1(encoding_name(encoding).data()),
                    static_cast<int>(encoding));
  }
  add_words(*m_separator, separator_words());
  m_separator->setToolTip("Another character can be typed.");
  m_skip->setToolTip("The number of lines above the table.");
  m_comment->add("None", kNoComment);
  for (std::size_t i = 0; i < kComments.size(); ++i) m_comment->add(kComments[i], int(i) + 1);
  m_comment->setToolTip("What comment lines begin with; another text can be typed.");
  add_words(*m_header, header_words());
  add_words(*m_decimal, decimal_words());
  add_words(*m_thousands, thousands_words());
  m_missing->add("Only empty cells", kOnlyEmpty);
  m_missing->setToolTip("The texts of cells without a value, with commas between them: -999,x");
  add_words(*m_dates, date_words());
}

void TableOptionFields::connect_fields() {
  for (OptionBox* box : {m_encoding, m_separator, m_comment, m_header, m_decimal, m_thousands,
                         m_missing, m_dates, m_sheet}) {
    box->on_change([this] { field_changed(); });
  }
  connect(m_skip, &QSpinBox::valueChanged, this, [this] { field_changed(); });
  connect(m_automatic, &QPushButton::clicked, this, [this] {
    set_automatic();
    field_changed();
  });
}

void TableOptionFields::field_changed() {
  if (m_is_filling) return;
  set_remark({});
  m_automatic->setEnabled(!are_automatic());
  m_changed();
}

bool TableOptionFields::are_automatic() const {
  const auto boxes = {m_encoding,  m_separator, m_comment, m_header, m_decimal,
                      m_thousands, m_missing,   m_dates,   m_sheet};
  return m_skip->value() == kAutomaticSkip &&
         std::all_of(boxes.begin(), boxes.end(),
                     [](OptionBox* box) { return box->is_automatic(); });
}

std::optional<Encoding> TableOptionFields::encoding() const {
  return value_of<Encoding>(*m_encoding);
}

std::optional<char> TableOptionFields::chosen_separator() const {
  if (const std::optional<int> value = m_separator->value()) return static_cast<char>(*value);
  const std::string typed = m_separator->typed().toStdString();
  if (typed.empty()) return std::nullopt;
  constexpr std::string_view kNoSeparators = "\"0123456789";
  if (typed.size() > 1 || kNoSeparators.find(typed.front()) != std::string_view::npos) {
    throw UserError("\"Separator\" takes one character, which is no digit and no quotation mark.");
  }
  return typed.front();
}

std::optional<std::vector<std::string>> TableOptionFields::chosen_missing() const {
  std::vector<std::string> texts;
  if (m_missing->value()) return texts;
  const QString typed = m_missing->typed();
  if (typed.isEmpty()) return std::nullopt;
  try {
    const CsvTable list = parse_csv(typed.toStdString(), ',', {});
    for (std::size_t i = 0; list.rows() == 1 && i < list.width(0); ++i) {
      texts.emplace_back(list.cell(0, i));
    }
  } catch (const UserError&) {
    throw UserError("\"Missing values\" has a quotation mark that is never closed; close it.");
  }
  return texts;
}

TableOptions TableOptionFields::options() const {
  TableOptions options;
  options.encoding = encoding();
  options.separator = chosen_separator();
  if (m_skip->value() != kAutomaticSkip) options.skip = static_cast<std::size_t>(m_skip->value());
  const QString comment = m_comment->typed();
  if (!comment.isEmpty()) options.comment = comment.toStdString();
  if (const std::optional<int> known = m_comment->value()) {
    options.comment = *known == kNoComment ? "" : kComments[static_cast<std::size_t>(*known) - 1];
  }
  options.header = value_of<HeaderChoice>(*m_header);
  options.decimal = value_of<char>(*m_decimal);
  options.thousands = value_of<char>(*m_thousands);
  options.missing = chosen_missing();
  options.dates = value_of<DateOrder>(*m_dates);
  if (m_sheet->value()) options.sheet = m_sheet->currentText().toStdString();
  if (options.decimal && options.decimal == options.thousands) {
    throw UserError("the decimal sign and the thousands sign are the same; choose different ones.");
  }
  return options;
}

void TableOptionFields::set_options(const TableOptions& options) {
  const QScopedValueRollback<bool> filling(m_is_filling, true);
  choose(*m_encoding, as_int(options.encoding));
  choose(*m_separator, as_int(options.separator));
  if (options.separator && !m_separator->value()) {
    m_separator->type(QChar(QLatin1Char(*options.separator)));
  }
  m_skip->setValue(options.skip ? static_cast<int>(*options.skip) : kAutomaticSkip);
  m_comment->choose_automatic();
  if (options.comment) {
    options.comment->empty() ? m_comment->choose(kNoComment)
                             : m_comment->type(QString::fromStdString(*options.comment));
  }
  choose(*m_header, as_int(options.header));
  choose(*m_decimal, as_int(options.decimal));
  choose(*m_thousands, as_int(options.thousands));
  m_missing->choose_automatic();
  if (options.missing) {
    options.missing->empty() ? m_missing->choose(kOnlyEmpty)
                             : m_missing->type(list_text(*options.missing));
  }
  choose(*m_dates, as_int(options.dates));
  m_sheet->choose_automatic();
  if (options.sheet) {
    const QString sheet = QString::fromStdString(*options.sheet);
    if (m_sheet->findText(sheet) < 1) m_sheet->add(sheet, m_sheet->count());
    m_sheet->setCurrentIndex(m_sheet->findText(sheet));
  }
  m_automatic->setEnabled(!are_automatic());
}

void TableOptionFields::set_remark(const QString& remark) {
  m_remark->setText(remark);
}

void TableOptionFields::show_meaning(const TableReader& reader, ReadTable* read) {
  const QScopedValueRollback<bool> filling(m_is_filling, true);
  // What is chosen says nothing about what would be guessed.
  const auto show = [read](OptionBox* box, const auto& meaning) {
    box->set_automatic_meaning(read != nullptr && box->is_automatic() ? meaning(*read) : QString());
  };
  const auto numbers = [](ReadTable& table) { return table.survey.dialect.notation.numbers; };
  show(m_encoding, [](ReadTable& table) {
    return QString::fromLatin1(encoding_name(table.table.source().encoding).data());
  });
  show(m_separator,
       [](ReadTable& table) { return word_of(separator_words(), table.table.separator()); });
  show(m_comment, [](ReadTable& table) { return word_of_comment(table.table.source().comment); });
  show(m_header, [](ReadTable& table) { return word_of_header(table.survey.dialect); });
  show(m_decimal,
       [&](ReadTable& table) { return word_of(decimal_words(), numbers(table).decimal); });
  show(m_thousands,
       [&](ReadTable& table) { return word_of(thousands_words(), numbers(table).thousands); });
  show(m_missing, [](ReadTable&) { return QString("NA, -"); });
  show(m_dates, [](ReadTable& table) { return word_of_dates(table); });
  show_sheets(reader);
  show(m_sheet, [&](ReadTable&) { return reader.sheet(); });
  m_skip->setSpecialValueText(read != nullptr && m_skip->value() == kAutomaticSkip
                                  ? "Automatic (" +
                                        QString::number(read->table.source().skipped_lines) + ')'
                                  : QString("Automatic"));
  enable_fields(reader, read);
  m_automatic->setEnabled(!are_automatic());
}

void TableOptionFields::show_sheets(const TableReader& reader) {
  const bool has_several = reader.sheets().size() > 1;
  m_sheet->setVisible(has_several);
  m_sheet_label->setVisible(has_several);
  const QString chosen = m_sheet->is_automatic() ? QString() : m_sheet->currentText();
  m_sheet->clear_values();
  for (const std::string& name : reader.sheets()) {
    m_sheet->add(QString::fromStdString(name), m_sheet->count());
  }
  if (!chosen.isEmpty()) m_sheet->setCurrentIndex(std::max(m_sheet->findText(chosen), 0));
}

// Workbooks and JSON say themselves what separates their cells, and have no comments.
void TableOptionFields::enable_fields(const TableReader& reader, const ReadTable* read) {
  const bool is_json = read != nullptr && read->table.source().kind == "JSON";
  m_encoding->setEnabled(!reader.is_workbook());
  m_separator->setEnabled(!reader.is_workbook());
  m_comment->setEnabled(!reader.is_workbook() && !is_json);
  m_skip->setEnabled(!is_json);
}

}  // namespace kurv::app
