// Where the user left windows, kept in the settings from one run to the next.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <QWidget>

#include "app/window/settings_file.h"

namespace kurv::app {

// As long as it lives, the windows of graphs open where they were when the last one ended, and
// their places are written when one of them is left, hidden or closed: the program may be killed
// where its user logs out. Needs the application. As with the recent files, settings that cannot be
// read or written are not an error.
class KeptPlaces final : public QObject {
 public:
  explicit KeptPlaces(QString place = settings_file());
  ~KeptPlaces() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void store();

  QString m_place;
  QByteArray m_places;  // in the settings
  QTimer m_delay;
};

// Before an import window is shown: puts it where the last one was, and the first one beside the
// plot. The size of the last one holds as long as the font is as large.
void place_import(QWidget& window, const QWidget& plot, const QString& place = settings_file());
// When it has been closed.
void keep_import_place(const QWidget& window, const QString& place = settings_file());

}  // namespace kurv::app
