#include "app/window/table_option_texts.h"

#include <QStringList>
#include <algorithm>

#include "app/base/message_text.h"

namespace kurv::app {

namespace {

QString quoted(const std::string& text) {
  return QString::fromStdString(in_quotes(text));
}

QString lines_skipped(std::size_t count) {
  if (count == 0) return "no lines skipped";
  return QString::number(count) + (count == 1 ? " line skipped" : " lines skipped");
}

QString missing_texts(const std::vector<std::string>& texts) {
  if (texts.empty()) return "only empty cells missing";
  constexpr std::size_t kShown = 5;
  return "missing values " + QString::fromStdString(enumeration(texts, kShown));
}

QString thousands(char sign) {
  if (sign == '\0') return "no thousands sign";
  return "thousands " + word_of(thousands_words(), sign);
}

QString dates(DateOrder order) {
  const QString word = word_of(date_words(), static_cast<int>(order));
  return order == DateOrder::kNone ? word : "dates " + word;
}

}  // namespace

const std::vector<OptionWord>& separator_words() {
  static const std::vector<OptionWord> words{{',', "comma"},      {';', "semicolon"},
                                             {'\t', "tab"},       {'|', "bar"},
                                             {kBlanks, "blanks"}, {kFixedWidth, "fixed width"}};
  return words;
}

const std::vector<OptionWord>& header_words() {
  static const std::vector<OptionWord> words{
      {static_cast<int>(HeaderChoice::kNone), "none"},
      {static_cast<int>(HeaderChoice::kNames), "names"},
      {static_cast<int>(HeaderChoice::kNamesAndUnits), "names and units"}};
  return words;
}

const std::vector<OptionWord>& decimal_words() {
  static const std::vector<OptionWord> words{{'.', "point"}, {',', "comma"}};
  return words;
}

const std::vector<OptionWord>& thousands_words() {
  static const std::vector<OptionWord> words{
      {'\0', "none"}, {'.', "point"}, {',', "comma"}, {'\'', "apostrophe"}, {' ', "blank"}};
  return words;
}

const std::vector<OptionWord>& date_words() {
  static const std::vector<OptionWord> words{
      {static_cast<int>(DateOrder::kDayFirst), "day first"},
      {static_cast<int>(DateOrder::kMonthFirst), "month first"},
      {static_cast<int>(DateOrder::kYearFirst), "year first"},
      {static_cast<int>(DateOrder::kUnixSeconds), "seconds since 1970"},
      {static_cast<int>(DateOrder::kUnixMilliseconds), "milliseconds since 1970"},
      {static_cast<int>(DateOrder::kNone), "no dates"}};
  return words;
}

const std::vector<Encoding>& all_encodings() {
  static const std::vector<Encoding> encodings{
      Encoding::kUtf8,    Encoding::kUtf16Le, Encoding::kUtf16Be, Encoding::kUtf32Le,
      Encoding::kUtf32Be, Encoding::kCp1252,  Encoding::kLatin1};
  return encodings;
}

QString word_of(const std::vector<OptionWord>& words, int value) {
  const auto found = std::find_if(words.begin(), words.end(),
                                  [value](const OptionWord& word) { return word.value == value; });
  return found != words.end() ? QString(found->text) : quoted({static_cast<char>(value)});
}

QString word_of_comment(const std::string& comment) {
  return comment.empty() ? QString("none") : QString::fromStdString(on_one_line(comment));
}

QString word_of_header(const CsvDialect& dialect) {
  const HeaderChoice with_names =
      dialect.units ? HeaderChoice::kNamesAndUnits : HeaderChoice::kNames;
  const HeaderChoice header = dialect.header ? with_names : HeaderChoice::kNone;
  return word_of(header_words(), static_cast<int>(header));
}

QString word_of_dates(ReadTable& read) {
  using Digits = DateSurvey::Digits;
  const std::vector<ColumnKind>& kinds = read.survey.kinds;
  const auto first = std::find(kinds.begin(), kinds.end(), ColumnKind::kDates);
  if (first == kinds.end()) return "no dates";
  const auto column = static_cast<std::size_t>(first - kinds.begin());
  DateOrder order = read.survey.dialect.notation.dates;
  const Digits digits = read.columns.survey(column).dates().digits;
  if (digits == Digits::kYearMonthDay) order = DateOrder::kYearFirst;
  if (digits == Digits::kUnixSeconds) order = DateOrder::kUnixSeconds;
  if (digits == Digits::kUnixMilliseconds) order = DateOrder::kUnixMilliseconds;
  return word_of(date_words(), static_cast<int>(order));
}

QString described(const TableOptions& options) {
  QStringList parts;
  if (options.sheet) parts << "worksheet " + quoted(*options.sheet);
  if (options.encoding) parts << QString::fromLatin1(encoding_name(*options.encoding).data());
  if (options.separator) parts << word_of(separator_words(), *options.separator);
  if (options.skip) parts << lines_skipped(*options.skip);
  if (options.comment) {
    parts << (options.comment->empty() ? "no comments" : "comments " + quoted(*options.comment));
  }
  if (options.header) {
    parts << (*options.header == HeaderChoice::kNone
                  ? "no header"
                  : "header with " + word_of(header_words(), static_cast<int>(*options.header)));
  }
  if (options.decimal) parts << "decimal " + word_of(decimal_words(), *options.decimal);
  if (options.thousands) parts << thousands(*options.thousands);
  if (options.missing) parts << missing_texts(*options.missing);
  if (options.dates) parts << dates(*options.dates);
  return parts.join(", ");
}

}  // namespace kurv::app
