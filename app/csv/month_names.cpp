#include "app/csv/month_names.h"

#include <QList>
#include <QLocale>
#include <algorithm>
#include <map>
#include <string>

namespace kurv::app {

namespace {

constexpr int kMonths = 12;
constexpr int kWeekdays = 7;

// In small letters, without the point of an abbreviation.
std::string key(const QString& name) {
  QString text = name.toLower();
  if (text.endsWith('.')) text.chop(1);
  return text.toStdString();
}

struct CollectedNames {
  std::map<std::string, unsigned> months;
  std::map<std::string, unsigned> weekdays;
};

CollectedNames collected_names() {
  CollectedNames names;
  // English last, so that it decides where languages differ.
  const QList<QLocale> locales{QLocale(),           QLocale::German,          QLocale::French,
                               QLocale::Spanish,    QLocale::Italian,         QLocale::Dutch,
                               QLocale::Portuguese, QLocale::Swedish,         QLocale::Danish,
                               QLocale::Polish,     QLocale::NorwegianBokmal, QLocale::c()};
  for (const QLocale& locale : locales) {
    for (const QLocale::FormatType format : {QLocale::LongFormat, QLocale::ShortFormat}) {
      for (int i = 1; i <= kMonths; ++i) {
        names.months[key(locale.monthName(i, format))] = static_cast<unsigned>(i);
        names.months[key(locale.standaloneMonthName(i, format))] = static_cast<unsigned>(i);
      }
      for (int i = 1; i <= kWeekdays; ++i) {
        names.weekdays[key(locale.dayName(i, format))] = static_cast<unsigned>(i);
      }
    }
  }
  names.months["sept"] = 9;
  names.months.erase("");
  return names;
}

const CollectedNames& names() {
  static const CollectedNames collected = collected_names();
  return collected;
}

std::string key_of(std::string_view name) {
  constexpr std::size_t kLongest = 40;
  return key(
      QString::fromUtf8(name.data(), static_cast<qsizetype>(std::min(name.size(), kLongest))));
}

}  // namespace

std::optional<unsigned> month_named(std::string_view name) {
  const auto found = names().months.find(key_of(name));
  if (found == names().months.end()) return std::nullopt;
  return found->second;
}

bool is_weekday_name(std::string_view name) {
  return names().weekdays.count(key_of(name)) > 0;
}

}  // namespace kurv::app
