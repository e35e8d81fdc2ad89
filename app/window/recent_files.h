// The files that were opened or saved last, kept for the next start of the program.
#pragma once

#include <QString>
#include <string>
#include <vector>

namespace kurv::app {

// In the user's folder for settings.
QString recent_files_place();

// All windows and programs of a user share one list, so it is read anew each time. A place that
// cannot be written leaves the list empty and is no error.
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
