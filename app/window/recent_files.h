// The list of recent files, kept in the settings.
#pragma once

#include <QString>
#include <string>
#include <vector>

#include "app/window/settings_file.h"

namespace kurv::app {

// All windows and running programs of a user share one list, so it is read anew each time. A file
// that cannot be written leaves the list empty and is not an error.
class RecentFiles {
 public:
  explicit RecentFiles(QString place = settings_file()) : m_place(std::move(place)) {}

  // Absolute paths, newest first, ten at most.
  std::vector<std::string> paths() const;
  void add(const std::string& path);
  void remove(const std::string& path);
  void clear();

 private:
  void store(const std::vector<std::string>& paths);

  QString m_place;
};

}  // namespace kurv::app
