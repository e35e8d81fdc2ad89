#include "dialogs/graph_window.h"

#include <KurvGraph/screen_fit.h>

#include <QKeyEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <utility>

#include "control/control_state.h"
#include "control/undo.h"

namespace kurv {

namespace {

bool is_redo(const QKeyEvent& event) {
  return event.matches(QKeySequence::Redo) ||
         (event.key() == Qt::Key_Y && event.modifiers() == Qt::ControlModifier);
}

}  // namespace

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

void GraphWindow::keyPressEvent(QKeyEvent* event) {
  if (const std::optional<UndoKey> key = undo_key(*event)) {
    run(*key);
  } else {
    QDialog::keyPressEvent(event);
  }
}

std::optional<UndoKey> GraphWindow::undo_key(const QKeyEvent& event) const {
  if (!m_client || !m_client->control().undo_enabled()) return std::nullopt;
  if (event.matches(QKeySequence::Undo)) return UndoKey::kUndo;
  return is_redo(event) ? std::optional(UndoKey::kRedo) : std::nullopt;
}

void GraphWindow::run(UndoKey key) {
  const auto step = [key](Control& control) {
    control.state().history.end_merging();
    key == UndoKey::kUndo ? control.undo() : control.redo();
  };
  if (handle(step)) refill();
}

bool GraphWindow::edit(const StepLabel& label, const std::function<void(Control&)>& work) {
  return handle([&](Control& control) {
    const StepRecorder step(control.state(), label);
    work(control);
  });
}

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
