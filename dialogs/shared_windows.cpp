#include "dialogs/shared_windows.h"

#include <KurvGraph/window_places.h>

#include <QDataStream>
#include <QIODevice>
#include <QPointer>
#include <array>

#include "control/control_state.h"
#include "dialogs/frm_curves.h"
#include "dialogs/frm_propert.h"
#include "dialogs/frm_table.h"
#include "dialogs/placement.h"

namespace kurv {

namespace {

struct SharedWindow {
  Client* client = nullptr;
  // Created when it is shown; null again when it has been closed.
  QPointer<GraphWindow> window;
  QByteArray place;  // where the user left it
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
  if (!window) return;
  shared.place = window_place(*window);
  shared.window.clear();
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

// In pixels of the plot.
QRect titles_of(const ControlState& state, const QWidget& plot) {
  const Double width = state.surface.ScaleWidth();
  const Double height = state.surface.ScaleHeight();
  if (!(width > 0 && height > 0)) return {};
  const auto shown = [&](const Rect& rect) {
    const Double x_scale = plot.width() / width;
    const Double y_scale = plot.height() / height;
    return QRectF(rect.left * x_scale, rect.top * y_scale, rect.width * x_scale,
                  rect.height * y_scale);
  };
  return (shown(state.layout.imgTitle) | shown(state.layout.imgSubTitle)).toAlignedRect();
}

// Where the user left it, or beside the plot.
void place(GraphWindow& window, const SharedWindow& shared) {
  const QWidget* const plot = shared.client->plot();
  if (restore_window_place(window, shared.place) || !plot) return;
  place_beside(window, *plot, titles_of(shared.client->control().state(), *plot));
}

// Creates the window, also where its client has moved to another parent window. False where it
// exists.
bool create_window(SharedWindow& shared, Window kind) {
  QWidget* const parent = shared.client->window();
  if (shared.window && shared.window->parentWidget() == parent) return false;
  Client* const client = shared.client;
  unload(shared);
  shared.client = client;
  GraphWindow* const window = new_window(kind, parent);
  shared.window = window;
  window->set_client(client);
  QObject::connect(window, &QDialog::finished, window, [&shared, window] {
    if (shared.window == window) unload(shared);
  });
  return true;
}

}  // namespace

QByteArray window_places() {
  QByteArray places;
  QDataStream stream(&places, QIODevice::WriteOnly);
  stream.setVersion(kPlacesVersion);
  for (const SharedWindow& shared : all_windows()) {
    stream << (shared.window ? window_place(*shared.window) : shared.place);
  }
  return places;
}

void set_window_places(const QByteArray& places) {
  QDataStream stream(places);
  stream.setVersion(kPlacesVersion);
  std::array<QByteArray, std::tuple_size_v<SharedWindows>> read;
  for (QByteArray& place : read) stream >> place;
  if (stream.status() != QDataStream::Ok) return;
  for (std::size_t i = 0; i < read.size(); ++i) all_windows()[i].place = read[i];
}

void load_windows(Client& client) {
  for (SharedWindow& shared : all_windows()) load(shared, client);
}

void show_window(Window kind, Client& client, Integer page) {
  SharedWindow& shared = all_windows()[static_cast<std::size_t>(kind)];
  load(shared, client);
  const bool is_new = create_window(shared, kind);
  GraphWindow* const window = shared.window;
  // First, because the size of the table depends on its cells.
  window->init(page);
  if (is_new) place(*window, shared);
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
