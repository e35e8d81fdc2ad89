// The graph in the main window.
#pragma once

#include <KurvGraph/KurvGraph.h>

#include <QMainWindow>

namespace kurv::app {

// Its toolbar does what the entries of the window's menu do, and each of its buttons is enabled
// when that entry is. Left to itself the graph would open a file in place of a graph that is not
// saved, and save, print or copy before there is one.
class WindowGraph final : public KurvGraph {
 public:
  // The window has its menu already.
  explicit WindowGraph(const QMainWindow& window);

 protected:
  void run_command(const QString& word) override;

 private:
  const QMainWindow& m_window;
};

}  // namespace kurv::app
