#include "dialogs/graph_window.h"

#include <KurvGraph/screen_fit.h>

#include <QPointer>
#include <QScopedValueRollback>
#include <utility>

namespace kurv {

GraphWindow::GraphWindow(QWidget* parent) : QDialog(parent) {
  fit_to_screen(*this);
}

void GraphWindow::fill_quietly(const std::function<void()>& filling) {
  const QScopedValueRollback<bool> quiet(m_filling, true);
  filling();
}

void GraphWindow::init(Integer page) {
  fill_quietly([this] { fill(); });
  show_page(page);
}

void GraphWindow::refill() {
  if (!m_client || m_filling) return;
  // The client reports a handler's own changes after it has returned. A report that arrives while
  // the handler runs concerns a change by others, made while its modal prompt was open.
  if (m_handling) {
    m_outdated = m_outdated || m_working;
    return;
  }
  fill_quietly([this] { fill(); });
}

void GraphWindow::show_page(Integer) {}

bool GraphWindow::handle(const std::function<void(Control&)>& work) {
  if (!m_client || m_filling) return false;
  const QPointer<GraphWindow> alive = this;
  const Client* const client = m_client;
  const bool was_active = isActiveWindow();
  const bool was_handling = std::exchange(m_handling, true);
  const bool was_working = m_working;
  m_client->handle([&](Control& control) {
    m_working = true;
    work(control);
    if (alive) m_working = was_working;
  });
  if (!alive) return false;
  m_handling = was_handling;
  m_working = was_working;
  // A message box of the graph returns the focus to the host's window, not to this one.
  if (was_active && isVisible() && !isActiveWindow()) activateWindow();
  if (m_client != client) return false;
  if (!m_handling && std::exchange(m_outdated, false)) fill_quietly([this] { fill(); });
  return true;
}

}  // namespace kurv
