#include "app/window/recent_files.h"

#include <QSettings>
#include <QStringList>
#include <algorithm>

#include "app/base/absolute_path.h"

namespace kurv::app {

namespace {

constexpr std::size_t kMaxFiles = 10;
constexpr const char* kFilesKey = "recent/files";

// A name may hold any bytes, and the list is text, so the names are percent-encoded.
QString as_text(const std::string& path) {
  return QString::fromLatin1(QByteArray::fromStdString(path).toPercentEncoding("/"));
}

std::string as_path(const QString& text) {
  return QByteArray::fromPercentEncoding(text.toLatin1()).toStdString();
}

}  // namespace

std::vector<std::string> RecentFiles::paths() const {
  const QSettings settings(m_place, QSettings::IniFormat);
  std::vector<std::string> result;
  for (const QString& text : settings.value(kFilesKey).toStringList()) {
    const std::string path = as_path(text);
    const bool known = std::find(result.begin(), result.end(), path) != result.end();
    // The file may have been edited.
    if (!path.starts_with('/') || known || result.size() == kMaxFiles) continue;
    result.push_back(path);
  }
  return result;
}

void RecentFiles::add(const std::string& path) {
  const std::string added = absolute_path(path);
  std::vector<std::string> all = paths();
  std::erase(all, added);
  all.insert(all.begin(), added);
  if (all.size() > kMaxFiles) all.resize(kMaxFiles);
  store(all);
}

void RecentFiles::remove(const std::string& path) {
  std::vector<std::string> all = paths();
  std::erase(all, path);
  store(all);
}

void RecentFiles::clear() {
  store({});
}

void RecentFiles::store(const std::vector<std::string>& paths) {
  QStringList texts;
  for (const std::string& path : paths) texts << as_text(path);
  QSettings settings(m_place, QSettings::IniFormat);
  settings.setValue(kFilesKey, texts);
}

}  // namespace kurv::app
