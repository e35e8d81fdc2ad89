// The shortest host: a graph in a window of its own.
#include <KurvGraph/KurvGraph.h>

#include <QApplication>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  kurv::KurvGraph graph;
  graph.plot({.title = "Squares", .x = {0, 1, 2, 3, 4}, .y = {{"y", {0, 1, 4, 9, 16}}}});
  graph.show();
  return QApplication::exec();
}
