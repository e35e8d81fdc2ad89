// The graph in the main window.
#pragma once

#include <KurvGraph/KurvGraph.h>

#include <QMainWindow>

namespace kurv::app {

// Its toolbar triggers the actions of the window's menu, and each of its buttons is enabled when
// that action is. The graph's own commands would open a file in place of an unsaved graph, and
// save, print or copy before there is a graph.
class MainWindowGraph final : public KurvGraph {
 public:
  // The window must have its menu.
  explicit MainWindowGraph(const QMainWindow& window);

 protected:
  void run_command(const QString& word) override;

 private:
  const QMainWindow& m_window;
};

}  // namespace kurv::app
