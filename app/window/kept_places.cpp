#include "app/window/kept_places.h"

#include <KurvGraph/window_places.h>

#include <QCoreApplication>
#include <QDialog>
#include <QEvent>
#include <QSettings>
#include <utility>

namespace kurv::app {

namespace {

constexpr const char* kGraphWindowsKey = "windows/graph";
constexpr const char* kImportKey = "windows/import";

}  // namespace

KeptPlaces::KeptPlaces(QString place) : m_place(std::move(place)) {
  const QSettings settings(m_place, QSettings::IniFormat);
  set_window_places(settings.value(kGraphWindowsKey).toByteArray());
  m_places = window_places();
  m_delay.setSingleShot(true);
  connect(&m_delay, &QTimer::timeout, this, [this] { store(); });
  QCoreApplication::instance()->installEventFilter(this);
}

KeptPlaces::~KeptPlaces() {
  store();
}

void KeptPlaces::store() {
  const QByteArray places = window_places();
  if (places == std::exchange(m_places, places)) return;
  QSettings(m_place, QSettings::IniFormat).setValue(kGraphWindowsKey, places);
}

// The place of a window that is closed is known when the event has been handled.
bool KeptPlaces::eventFilter(QObject* watched, QEvent* event) {
  const bool is_left = event->type() == QEvent::WindowDeactivate || event->type() == QEvent::Hide;
  if (is_left && qobject_cast<QDialog*>(watched)) m_delay.start(0);
  return false;
}

void place_import(QWidget& window, const QWidget& plot, const QString& place) {
  const QSettings settings(place, QSettings::IniFormat);
  if (restore_window_place(window, settings.value(kImportKey).toByteArray())) return;
  place_beside(window, plot);
}

void keep_import_place(const QWidget& window, const QString& place) {
  QSettings(place, QSettings::IniFormat).setValue(kImportKey, window_place(window));
}

}  // namespace kurv::app
