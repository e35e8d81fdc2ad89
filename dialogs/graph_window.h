// The base class of the three windows: it has a client, and filling the window is not an edit.
#pragma once

#include <KurvGraph/control.h>

#include <QDialog>
#include <functional>
#include <optional>

#include "control/history.h"
#include "dialogs/client.h"

namespace kurv {

enum class UndoKey { kUndo, kRedo };

class GraphWindow : public QDialog {
  Q_OBJECT

 public:
  explicit GraphWindow(QWidget* parent);

  Client* client() const { return m_client; }
  // Null: the graph is gone or the window is unloaded; then no action of the user has an effect.
  void set_client(Client* client) { m_client = client; }

  // Shows the client's graph, and the tab of this page where there are tabs. Calls no handler.
  void init(Integer page);
  // To be called after the client's graph has changed. Changes by this window are shown by its
  // handlers; changes by others that are made while a handler is in a modal prompt are shown after
  // it.
  void refill();

  // What the key does: Ctrl+Z undoes the last change of the graph, Ctrl+Y and Ctrl+Shift+Z do it
  // again. Nothing for other keys, and where the host has not turned undo on.
  std::optional<UndoKey> undo_key(const QKeyEvent& event) const;
  // Does that, and fills the window.
  void run(UndoKey key);

 protected:
  // Called by init() and refill().
  virtual void fill() = 0;
  virtual void show_page(Integer page);
  // The keys of undo.
  void keyPressEvent(QKeyEvent* event) override;

  // For handlers: runs `work` on the client's graph, unless the window is being filled or has no
  // client. False where it was not run or the client is gone; then the caller must not use any
  // member.
  bool handle(const std::function<void(Control&)>& work);
  // The same for a change of the graph, as one step.
  bool edit(const StepLabel& label, const std::function<void(Control&)>& work);
  bool is_filling() const { return m_filling; }
  // For handlers that refill a part of the window: runs `filling`, which calls no handler.
  void fill_quietly(const std::function<void()>& filling);

 private:
  Client* m_client = nullptr;
  bool m_filling = false;
  bool m_handling = false;
  bool m_working = false;  // inside the work of a handler
  bool m_outdated = false;
};

}  // namespace kurv
