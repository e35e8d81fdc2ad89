#include "app/window/folder_options.h"

#include <QSettings>
#include <filesystem>
#include <limits>
#include <utility>

namespace kurv::app {

namespace {

constexpr int kMaxFolders = 100;
constexpr const char* kFoldersKey = "tables/folders";

using Pairs = QList<std::pair<QByteArray, QByteArray>>;

// A table from the clipboard has a name and is in no folder.
bool has_folder(const std::string& table_path) {
  return std::filesystem::path(table_path).has_parent_path();
}

// The folder, as text that holds any bytes of its name.
QString folder_text(const std::string& table_path) {
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(table_path, error);
  const std::filesystem::path path = error ? std::filesystem::path(table_path) : absolute;
  const std::string folder = path.lexically_normal().parent_path().string();
  return QString::fromLatin1(QByteArray::fromStdString(folder).toPercentEncoding("/"));
}

// An entry is "FOLDER?option=value&option=value", with all values percent-encoded.
QString entry_text(const QString& folder, const Pairs& pairs) {
  QStringList options;
  for (const auto& [name, value] : pairs) {
    options << QString::fromLatin1(name + '=' + value.toPercentEncoding());
  }
  return folder + '?' + options.join('&');
}

Pairs pairs_of(const QString& entry) {
  Pairs pairs;
  for (const QString& option : entry.section('?', 1).split('&', Qt::SkipEmptyParts)) {
    pairs.emplace_back(option.section('=', 0, 0).toLatin1(),
                       QByteArray::fromPercentEncoding(option.section('=', 1).toLatin1()));
  }
  return pairs;
}

QByteArray number(std::size_t value) {
  return QByteArray::number(static_cast<qulonglong>(value));
}

// The texts are separated by line ends, which no cell of a list has.
QByteArray joined(const std::vector<std::string>& texts) {
  QByteArrayList result;
  for (const std::string& text : texts) result << QByteArray::fromStdString(text);
  return result.join('\n');
}

std::vector<std::string> split(const QByteArray& text) {
  std::vector<std::string> result;
  if (text.isEmpty()) return result;
  for (const QByteArray& part : text.split('\n')) result.push_back(part.toStdString());
  return result;
}

Pairs pairs_of(const TableOptions& options) {
  Pairs pairs;
  const auto add = [&](const char* name, const QByteArray& value) {
    pairs.emplace_back(name, value);
  };
  if (options.sheet) add("sheet", QByteArray::fromStdString(*options.sheet));
  if (options.encoding) {
    const std::string_view name = encoding_name(*options.encoding);
    add("encoding", {name.data(), static_cast<qsizetype>(name.size())});
  }
  if (options.separator) add("separator", QByteArray(1, *options.separator));
  if (options.skip) add("skip", number(*options.skip));
  if (options.comment) add("comment", QByteArray::fromStdString(*options.comment));
  if (options.header) add("header", number(static_cast<std::size_t>(*options.header)));
  if (options.decimal) add("decimal", QByteArray(1, *options.decimal));
  if (options.thousands) add("thousands", QByteArray(1, *options.thousands));
  if (options.missing) add("missing", joined(*options.missing));
  if (options.dates) add("dates", number(static_cast<std::size_t>(*options.dates)));
  return pairs;
}

// The value, where it is one of these characters.
std::optional<char> one_of(std::string_view characters, const QByteArray& value) {
  const bool fits = value.size() == 1 && characters.find(value.front()) != characters.npos;
  return fits ? std::optional(value.front()) : std::nullopt;
}

std::optional<char> separator_of(const QByteArray& value) {
  constexpr std::string_view kNoSeparators = "\"\r\n0123456789";
  const bool fits = value.size() == 1 && static_cast<unsigned char>(value.front()) < 0x80 &&
                    kNoSeparators.find(value.front()) == kNoSeparators.npos;
  return fits ? std::optional(value.front()) : std::nullopt;
}

std::optional<int> number_up_to(int last, const QByteArray& value) {
  bool is_number = false;
  const int result = value.toInt(&is_number);
  return is_number && result >= 0 && result <= last ? std::optional(result) : std::nullopt;
}

// The settings may have been edited, so that a value that does not fit counts as automatic.
void set_option(TableOptions& options, const QByteArray& name, const QByteArray& value) {
  using namespace std::string_view_literals;
  if (name == "sheet") options.sheet = value.toStdString();
  if (name == "encoding") options.encoding = encoding_named(value.toStdString());
  if (name == "separator") options.separator = separator_of(value);
  if (name == "skip") options.skip = number_up_to(std::numeric_limits<int>::max(), value);
  if (name == "comment") options.comment = value.toStdString();
  if (name == "decimal") options.decimal = one_of(".,"sv, value);
  if (name == "thousands") options.thousands = one_of(".,' \0"sv, value);
  if (name == "missing") options.missing = split(value);
  if (name == "header") {
    const auto header = number_up_to(static_cast<int>(HeaderChoice::kNamesAndUnits), value);
    if (header) options.header = static_cast<HeaderChoice>(*header);
  }
  if (name == "dates") {
    const auto dates = number_up_to(static_cast<int>(DateOrder::kNone), value);
    if (dates) options.dates = static_cast<DateOrder>(*dates);
  }
}

}  // namespace

QStringList FolderOptions::entries() const {
  const QSettings settings(m_place, QSettings::IniFormat);
  return settings.value(kFoldersKey).toStringList();
}

TableOptions FolderOptions::options_for(const std::string& table_path) const {
  TableOptions options;
  if (!has_folder(table_path)) return options;
  const QString begin = folder_text(table_path) + '?';
  for (const QString& entry : entries()) {
    if (!entry.startsWith(begin)) continue;
    for (const auto& [name, value] : pairs_of(entry)) set_option(options, name, value);
    break;
  }
  if (options.decimal && options.decimal == options.thousands) options.thousands.reset();
  return options;
}

void FolderOptions::remember(const std::string& table_path, const TableOptions& options) {
  if (!has_folder(table_path)) return;
  const QString folder = folder_text(table_path);
  QStringList all = entries();
  const QStringList before = all;
  all.removeIf([&](const QString& entry) { return entry.startsWith(folder + '?'); });
  if (const Pairs pairs = pairs_of(options); !pairs.isEmpty()) {
    all.prepend(entry_text(folder, pairs));
  }
  while (all.size() > kMaxFolders) all.removeLast();
  if (all == before) return;
  QSettings settings(m_place, QSettings::IniFormat);
  settings.setValue(kFoldersKey, all);
}

}  // namespace kurv::app
