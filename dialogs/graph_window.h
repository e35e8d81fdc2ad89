// What the three windows have in common: a client, and the rule that filling is not editing.
#pragma once

#include <KurvGraph/control.h>

#include <QDialog>
#include <functional>

#include "dialogs/client.h"

namespace kurv {

class GraphWindow : public QDialog {
  Q_OBJECT

 public:
  explicit GraphWindow(QWidget* parent) : QDialog(parent) {}

  Client* client() const { return m_client; }
  // Null: the graph is gone, or serves another window; nothing that the user does has an effect.
  void set_client(Client* client) { m_client = client; }

  // Shows the client's graph, and the tab of this page first where there are tabs. No handler fires
  // meanwhile.
  void init(Integer page);
  // Someone has changed the client's graph. What this window changes itself its handlers show; what
  // others change while a handler waits for an answer of the user is shown after it.
  void refill();

 protected:
  // What init() and refill() do.
  virtual void fill() = 0;
  virtual void show_page(Integer page);

  // For handlers: does the work on the client's graph, unless the window is being filled or has no
  // client. False where it was not done, or the client is gone; then touch nothing any more.
  bool handle(const std::function<void(Control&)>& work);
  bool is_filling() const { return m_filling; }
  // For handlers that refill a part of the window: no handler fires meanwhile.
  void fill_quietly(const std::function<void()>& filling);

 private:
  Client* m_client = nullptr;
  bool m_filling = false;
  bool m_handling = false;
  bool m_working = false;  // inside the work of a handler
  bool m_outdated = false;
};

}  // namespace kurv
