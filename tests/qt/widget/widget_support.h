// Small things that the widget's tests share.
#pragma once

#include <KurvGraph/KurvGraph.h>

#include <QApplication>
#include <QObject>
#include <QString>
#include <QWidget>
#include <utility>
#include <vector>

namespace kurv::test {

inline Graph small_graph() {
  return {.title = "Small", .x = {1, 2, 3}, .y = {{"a", {1, 4, 2}}, {"b", {3, 1, 5}}}};
}

// The child that shows the picture and takes the mouse.
inline QWidget* plot_of(const KurvGraph& graph) {
  return graph.findChild<QWidget*>(QStringLiteral("PicGraph"));
}

// Makes the widget so large that its plot has this size.
inline void resize_plot(KurvGraph& graph, QSize size) {
  graph.resize(graph.size() + size - graph.plot_rect().size());
}

// Until everything that was posted is done, and what that has posted in turn.
inline void process_all() {
  for (int i = 0; i < 3; ++i) QApplication::processEvents();
}

// Counts the signals of a widget.
struct Listener {
  explicit Listener(KurvGraph& graph) {
    QObject::connect(&graph, &KurvGraph::redrawn, &context, [this] { ++redraws; });
    QObject::connect(&graph, &KurvGraph::runTimeError, &context,
                     [this](int number, const QString& text) {
                       errors.push_back(number);
                       texts.push_back(text);
                     });
  }

  // The redraws since the last call, after all pending events.
  int redraws_since() {
    process_all();
    return std::exchange(redraws, 0);
  }

  QObject context;
  int redraws = 0;
  std::vector<int> errors;
  std::vector<QString> texts;
};

}  // namespace kurv::test
