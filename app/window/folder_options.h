// How the tables of a folder are written, kept in the settings.
#pragma once

#include <QString>
#include <QStringList>
#include <string>

#include "app/csv/table_options.h"
#include "app/window/settings_file.h"

namespace kurv::app {

// What the user has chosen for the last table of each folder; nothing is kept of a folder where
// everything was automatic. As with the recent files, all windows share the settings, and settings
// that cannot be read or written are not an error.
class FolderOptions {
 public:
  explicit FolderOptions(QString place = settings_file()) : m_place(std::move(place)) {}

  // Without a selection.
  TableOptions options_for(const std::string& table_path) const;
  // Keeps the newest hundred folders.
  void remember(const std::string& table_path, const TableOptions& options);

 private:
  QStringList entries() const;

  QString m_place;
};

}  // namespace kurv::app
