// The graph that a window serves, as the window sees it.
#pragma once

#include <KurvGraph/control.h>

#include <QWidget>
#include <functional>

namespace kurv {

class Client {
 public:
  virtual ~Client() = default;
  virtual Control& control() = 0;
  // The host's window that the graph stands in; null where there is none.
  virtual QWidget* window() const = 0;
  // Does what the user has asked for: what it has drawn becomes visible, and a fault is told as one
  // of the user's own actions. It may end with the client being gone.
  virtual void handle(const std::function<void(Control&)>& work) = 0;
};

}  // namespace kurv
