// The shortest host without a window: the calls of one drawing, as text.
#include <KurvGraph/control.h>
#include <KurvGraph/headless.h>
#include <KurvGraph/recording_surface.h>

#include <iostream>

int main() {
  kurv::RecordingSurface surface(12000, 9000);  // twips
  kurv::HeadlessContainer container(surface);
  kurv::HeadlessShell shell;
  kurv::Control graph(container, shell, surface);
  graph.first_placement();
  graph.show();
  kurv::Matrix<kurv::Double> y(1, 1, 1, 4);  // one curve of four points
  y.set_column(1, {0, 1, 4, 9});
  graph.scatter_graph(y, {1, {0, 1, 2, 3}}, 4, 1, "Squares", "x", {1, {"y"}}, 0, {}, true);
  std::cout << surface.log();
}
