#include "dialogs/shared_windows.h"

#include <KurvGraph/window_places.h>

#include <QDataStream>
#include <QIODevice>
#include <QPointer>
#include <array>

#include "dialogs/frm_curves.h"
#include "dialogs/frm_propert.h"
#include "dialogs/frm_table.h"

namespace kurv {

namespace {

struct SharedWindow {
  Client* client = nullptr;
  // Created when it is shown; null again when it has been closed.
  QPointer<GraphWindow> window;
  QByteArray geometry;  // where the user left it
};

using SharedWindows = std::array<SharedWindow, 3>;

// So that the places are read by later versions of the toolkit too.
constexpr auto kPlacesVersion = QDataStream::Qt_6_0;

SharedWindows& all_windows() {
  static SharedWindows all;
  return all;
}

// The window may be in a handler, so it is deleted by the event loop.
void unload(SharedWindow& shared) {
  shared.client = nullptr;
  GraphWindow* const window = shared.window;
  shared.window.clear();
  if (!window) return;
  shared.geometry = window->saveGeometry();
  window->set_client(nullptr);
  window->hide();
  window->deleteLater();
}

void load(SharedWindow& shared, Client& client) {
  if (shared.client != &client) unload(shared);
  shared.client = &client;
}

GraphWindow* new_window(Window window, QWidget* parent) {
  switch (window) {
    case Window::kCurves:
      return new frmCurves(parent);
    case Window::kTable:
      return new frmTable(parent);
    case Window::kProperties:
      break;
  }
  return new frmPropert(parent);
}

// The window, created anew where its client has moved to another parent window.
GraphWindow* window_of(SharedWindow& shared, Window kind) {
  QWidget* const parent = shared.client->window();
  if (shared.window && shared.window->parentWidget() == parent) return shared.window.data();
  Client* const client = shared.client;
  unload(shared);
  shared.client = client;
  GraphWindow* const window = new_window(kind, parent);
  shared.window = window;
  const QWidget* const plot = client->plot();
  if (!window->restoreGeometry(shared.geometry) && plot) place_beside(*window, *plot);
  window->set_client(client);
  QObject::connect(window, &QDialog::finished, window, [&shared, window] {
    if (shared.window == window) unload(shared);
  });
  return window;
}

}  // namespace

QByteArray window_places() {
  QByteArray places;
  QDataStream stream(&places, QIODevice::WriteOnly);
  stream.setVersion(kPlacesVersion);
  for (const SharedWindow& shared : all_windows()) {
    stream << (shared.window ? shared.window->saveGeometry() : shared.geometry);
  }
  return places;
}

void set_window_places(const QByteArray& places) {
  QDataStream stream(places);
  stream.setVersion(kPlacesVersion);
  std::array<QByteArray, std::tuple_size_v<SharedWindows>> geometries;
  for (QByteArray& geometry : geometries) stream >> geometry;
  if (stream.status() != QDataStream::Ok) return;
  for (std::size_t i = 0; i < geometries.size(); ++i) all_windows()[i].geometry = geometries[i];
}

void load_windows(Client& client) {
  for (SharedWindow& shared : all_windows()) load(shared, client);
}

void show_window(Window kind, Client& client, Integer page) {
  SharedWindow& shared = all_windows()[static_cast<std::size_t>(kind)];
  load(shared, client);
  GraphWindow* const window = window_of(shared, kind);
  window->init(page);
  if (kind == Window::kCurves && !window->isVisible()) {
    window->exec();
    return;
  }
  window->show();
  window->raise();
  window->activateWindow();
}

void unload_windows() {
  for (SharedWindow& shared : all_windows()) unload(shared);
}

void release_windows(const Client& client) {
  for (SharedWindow& shared : all_windows()) {
    if (shared.client == &client) unload(shared);
  }
}

void refill_windows(const Client& client) {
  for (SharedWindow& shared : all_windows()) {
    if (shared.client == &client && shared.window && shared.window->isVisible())
      shared.window->refill();
  }
}

}  // namespace kurv
