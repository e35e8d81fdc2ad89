// The list of recent files, kept in the settings.
#pragma once

#include <QString>
#include <string>
#include <vector>

namespace kurv::app {

// The file that holds the list, in the user's folder for settings.
QString recent_files_place();

// All windows and running programs of a user share one list, so it is read anew each time. A file
// that cannot be written leaves the list empty and is not an error.
class RecentFiles {
 public:
  explicit RecentFiles(QString place = recent_files_place()) : m_place(std::move(place)) {}

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
