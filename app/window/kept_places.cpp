#include "app/window/kept_places.h"

#include <KurvGraph/window_places.h>

#include <QSettings>
#include <utility>

namespace kurv::app {

namespace {

constexpr const char* kGraphWindowsKey = "windows/graph";
constexpr const char* kImportKey = "windows/import";

QByteArray stored_value(const QString& place, const char* key) {
  return QSettings(place, QSettings::IniFormat).value(key).toByteArray();
}

void store_value(const QString& place, const char* key, const QByteArray& value) {
  QSettings(place, QSettings::IniFormat).setValue(key, value);
}

}  // namespace

KeptPlaces::KeptPlaces(QString place) : m_place(std::move(place)) {
  set_window_places(stored_value(m_place, kGraphWindowsKey));
  m_places = window_places();
}

KeptPlaces::~KeptPlaces() {
  const QByteArray places = window_places();
  if (places != m_places) store_value(m_place, kGraphWindowsKey, places);
}

void place_import(QWidget& window, const QWidget& plot, const QString& place) {
  if (!window.restoreGeometry(stored_value(place, kImportKey))) place_beside(window, plot);
}

void keep_import_place(const QWidget& window, const QString& place) {
  store_value(place, kImportKey, window.saveGeometry());
}

}  // namespace kurv::app
