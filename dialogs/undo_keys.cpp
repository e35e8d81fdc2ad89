#include "dialogs/undo_keys.h"

#include <QKeyEvent>
#include <utility>

namespace kurv {

UndoKeys::UndoKeys(GraphWindow& window, QWidget& field, QLineEdit& line,
                   std::function<bool()> is_stored)
    : QObject(&field), m_window(window), m_line(line), m_is_stored(std::move(is_stored)) {
  field.installEventFilter(this);
}

bool UndoKeys::eventFilter(QObject*, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<QKeyEvent&>(*event);
  const std::optional<UndoKey> wanted = m_window.undo_key(key);
  if (!wanted) return false;
  const bool is_undo = *wanted == UndoKey::kUndo;
  const bool is_of_field =
      is_undo ? !m_is_stored() && m_line.isUndoAvailable() : m_line.isRedoAvailable();
  if (is_of_field) return false;
  // Otherwise the field would keep its text, as one that is being typed. The window may be gone
  // after that.
  m_line.setModified(false);
  m_window.run(*wanted);
  return true;
}

}  // namespace kurv
