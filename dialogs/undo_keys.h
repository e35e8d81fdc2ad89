// The keys of undo in the text fields of the properties.
//
// What is typed there is a step of the graph at once. A second history in the field would add steps
// of its own, and forget those that can be done again.
#pragma once

#include <QEvent>
#include <QLineEdit>
#include <QObject>
#include <functional>

#include "dialogs/graph_window.h"

namespace kurv {

// A filter of the events of a field, which is `line` or contains it. While its text is stored in
// the graph, the keys are those of the window; otherwise they are those of the field, as far as it
// has something to undo. Without undo in the graph, nothing changes.
class UndoKeys final : public QObject {
 public:
  // A child of the field.
  UndoKeys(GraphWindow& window, QWidget& field, QLineEdit& line, std::function<bool()> is_stored);

  bool eventFilter(QObject* field, QEvent* event) override;

 private:
  GraphWindow& m_window;
  QLineEdit& m_line;
  std::function<bool()> m_is_stored;
};

}  // namespace kurv
