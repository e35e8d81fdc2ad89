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
  // Only the first one puts the titles in their default places: a new window is shown once more
  // when the graph in it is complete.
  void showEvent(QShowEvent* event) override;

 private:
  const QMainWindow& m_window;
  bool m_was_shown = false;
};

}  // namespace kurv::app
