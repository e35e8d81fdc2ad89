// The widget adds nothing to what the control draws and leaves nothing out.
#include <KurvGraph/KurvGraph.h>
#include <gtest/gtest.h>

#include <functional>

#include "tests/qt/widget/widget_support.h"
#include "tests/support/test_host.h"

namespace kurv::test {
namespace {

constexpr Double kWidth = 12000;
constexpr Double kHeight = 9000;

// A widget whose drawing goes into a log.
struct RecordedSurface {
  RecordingSurface surface{kWidth, kHeight};
};
class RecordedGraph : private RecordedSurface, public KurvGraph {
 public:
  RecordedGraph() : KurvGraph(RecordedSurface::surface, nullptr) {}
  RecordingSurface& recording() { return RecordedSurface::surface; }
};

Matrix<Double> matrix() {
  return columns({{3, 1, 2, 5}, {30, 10, 20, 50}, {1, 2, 3, 4}});
}

// The same host, once of the widget and once of the control.
template <class AnyGraph>
void drive(AnyGraph& graph) {
  graph.scatter_graph2("Title", matrix(), names({"x", "first", "second"}), 4, 2,
                       flags({true, true}), 0, {}, true, true);
  graph.set_X_grid(true);
  graph.set_Y_grid(true);
  graph.set_SortXY(true);
  graph.set_Left_margine(1200);
  graph.build_the_graph();
  graph.ChartOptions("refresh");
  graph.Restore_Grf();
}

std::string log_without_widget(const std::function<void(TestHost&)>& resized) {
  TestHost host(kWidth, kHeight);
  drive(host.control);
  host.control.show();
  resized(host);
  return host.surface.log();
}

TEST(WidgetLog, EqualsTheLogOfTheControlAlone) {
  const std::string expected = log_without_widget([](TestHost& host) {
    host.surface.set_size(6000, 3000);
    host.control.resize();
  });
  RecordedGraph graph;
  graph.recording().clear_log();
  drive(graph);
  graph.show();
  process_all();
  graph.recording().set_size(6000, 3000);
  graph.resize(400, 200);
  process_all();
  EXPECT_GT(expected.size(), 1000u);
  EXPECT_EQ(graph.recording().log(), expected);
}

TEST(WidgetLog, PaintingAsksNothingOfTheSurface) {
  RecordedGraph graph;
  drive(graph);
  graph.show();
  process_all();
  graph.recording().clear_log();
  for (int i = 0; i < 50; ++i) graph.repaint();
  EXPECT_EQ(graph.recording().log(), "");
}

}  // namespace
}  // namespace kurv::test
