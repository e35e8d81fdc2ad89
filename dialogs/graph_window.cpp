#include "dialogs/graph_window.h"

#include <QPointer>
#include <QScopedValueRollback>

namespace kurv {

void GraphWindow::fill_quietly() {
  const QScopedValueRollback<bool> filling(m_filling, true);
  fill();
}

void GraphWindow::init(Integer page) {
  fill_quietly();
  show_page(page);
}

void GraphWindow::refill() {
  if (m_client && !m_filling && !m_handling) fill_quietly();
}

void GraphWindow::show_page(Integer) {}

bool GraphWindow::handle(const std::function<void(Control&)>& work) {
  if (!m_client || m_filling) return false;
  const QPointer<GraphWindow> alive = this;
  const Client* const client = m_client;
  const bool was_handling = m_handling;
  const bool was_active = isActiveWindow();
  m_handling = true;
  m_client->handle(work);
  if (!alive) return false;
  m_handling = was_handling;
  // A box that the graph has shown gives the focus back to the host's window, not to this one.
  if (was_active && isVisible() && !isActiveWindow()) activateWindow();
  return m_client == client;
}

}  // namespace kurv
