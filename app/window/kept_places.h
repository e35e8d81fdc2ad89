// Where the user left windows, kept in the settings from one run to the next.
#pragma once

#include <QString>
#include <QWidget>

#include "app/window/settings_file.h"

namespace kurv::app {

// As long as it lives, the windows of graphs open where they were when the last one ended. As with
// the recent files, settings that cannot be read or written are not an error.
class KeptPlaces {
 public:
  explicit KeptPlaces(QString place = settings_file());
  ~KeptPlaces();
  KeptPlaces(const KeptPlaces&) = delete;
  KeptPlaces& operator=(const KeptPlaces&) = delete;

 private:
  QString m_place;
  QByteArray m_places;  // at the beginning
};

// Before an import window is shown: puts it where the last one was, and the first one beside the
// plot.
void place_import(QWidget& window, const QWidget& plot,
                  const QString& place = settings_file());
// When it has been closed.
void keep_import_place(const QWidget& window, const QString& place = settings_file());

}  // namespace kurv::app
