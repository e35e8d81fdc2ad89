// The graph of a table as a window shows it first: round limits and items in places where they fit.
#include "tests/app/window/window_fixture.h"

namespace kurv::app {
namespace {

class FirstGraph : public Windows {
 protected:
  // Points all over the plot, so that the legend is beside it.
  std::string dense_table() const {
    constexpr int kCurves = 12;
    QByteArray text = "x";
    for (int k = 1; k <= kCurves; ++k) text += ",curve " + QByteArray::number(k);
    for (int i = 0; i < 450; ++i) {
      text += '\n' + QByteArray::number(i);
      for (int k = 1; k <= kCurves; ++k) text += ',' + QByteArray::number(i * k * 7 % 23);
    }
    return written(path("dense.csv"), text + '\n');
  }
  MainWindow* small_window_of(const std::string& file) {
    GraphChoice choice;
    choice.size = QSize(500, 300);
    MainWindow* const made = window();
    made->show_graph(choice, load(file, choice));
    return made;
  }
};

TEST_F(FirstGraph, OfATableHasRoundLimitsThatTheMenuTurnsOffAndOn) {
  MainWindow* const kurv = window_of(table());
  KurvGraph& graph = kurv->graph();
  QAction& entry = action(kurv, "mnuRoundLimits");
  EXPECT_TRUE(entry.isEnabled() && entry.isChecked());
  const int round_ticks = graph.NumTicks();
  EXPECT_LT(graph.xmin(), 1);
  entry.trigger();
  EXPECT_FALSE(graph.round_limits() || entry.isChecked());
  EXPECT_EQ(graph.xmin(), 1);
  EXPECT_EQ(graph.NumTicks(), 10);
  EXPECT_TRUE(becomes_modified(kurv, true));
  entry.trigger();
  EXPECT_TRUE(graph.round_limits() && entry.isChecked());
  EXPECT_LT(graph.xmin(), 1);
  EXPECT_EQ(graph.NumTicks(), round_ticks);
  EXPECT_TRUE(becomes_modified(kurv, false));
}

TEST_F(FirstGraph, OfAGraphFileHasRoundLimitsWhereItWasSavedWithThem) {
  EXPECT_TRUE(window_of(graph_file())->graph().round_limits());
  GraphChoice choice;
  choice.round_limits = false;
  save_graph(choice, load(table(), choice), path("rule.gdf"));
  MainWindow* const kurv = window_of(path("rule.gdf"));
  EXPECT_FALSE(kurv->graph().round_limits());
  EXPECT_FALSE(action(kurv, "mnuRoundLimits").isChecked());
  EXPECT_EQ(kurv->graph().NumTicks(), 10);
}

TEST_F(FirstGraph, FitsItsItemsAnewWhenItIsResizedWhichIsNoChange) {
  MainWindow* const kurv = small_window_of(dense_table());
  KurvGraph& graph = kurv->graph();
  QTest::qWait(50);
  ASSERT_GT(graph.Right_margine(), 800);
  std::string before;
  graph.graph_text([&](std::string_view piece) { before += piece; });
  kurv->resize(kurv->size() + QSize(300, 60));
  QTest::qWait(400);
  std::string after;
  graph.graph_text([&](std::string_view piece) { after += piece; });
  EXPECT_NE(before, after) << "the legend is beside the plot, which is larger now";
  EXPECT_TRUE(graph.has_items_in_fitted_places());
  EXPECT_TRUE(kurv->is_saved());
  EXPECT_FALSE(kurv->isWindowModified());
}

TEST_F(FirstGraph, AMarginThatIsChangedIsAChange) {
  MainWindow* const kurv = small_window_of(dense_table());
  kurv->graph().set_Top_margine(900);
  kurv->graph().build_the_graph();
  EXPECT_FALSE(kurv->graph().has_items_in_fitted_places());
  EXPECT_TRUE(becomes_modified(kurv, true));
}

}  // namespace
}  // namespace kurv::app
