// The interface through which a window works on a graph.
#pragma once

#include <KurvGraph/control.h>

#include <QWidget>
#include <functional>

namespace kurv {

class Client {
 public:
  virtual ~Client() = default;
  virtual Control& control() = 0;
  // The host's window that contains the graph; null where there is none.
  virtual QWidget* window() const = 0;
  // What a window should not cover; null where there is none.
  virtual const QWidget* plot() const { return window(); }
  // Runs `work` for an action of the user, then shows what it has drawn and reports a fault to the
  // user. The client may be destroyed meanwhile.
  virtual void handle(const std::function<void(Control&)>& work) = 0;
  // Runs the command of this word as the button of the toolbar does, once the event is over;
  // nothing where there is no toolbar.
  virtual void run_command(const char*) {}
};

}  // namespace kurv
