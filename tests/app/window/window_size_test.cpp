// How large a main window is where the screen is large enough.
#include "tests/app/window/window_fixture.h"

namespace kurv::app {
namespace {

class WindowSize : public Windows {
 protected:
  static GraphChoice sized(QSize size) {
    GraphChoice choice;
    choice.size = size;
    return choice;
  }

  static MainWindow* window_with(const std::string& file, const GraphChoice& choice) {
    auto* const made = new MainWindow(std::nullopt, {});
    made->show_graph(choice, load(file, choice));
    QTest::qWait(50);
    return made;
  }

  // Without the toolbar; what an export writes.
  static void expect_plot(const MainWindow& window, QSize size) {
    EXPECT_EQ(window.graph().plot_rect().size(), size);
    EXPECT_EQ(window.graph().image().size(), size);
  }
};

TEST_F(WindowSize, ThePlotOfAnEmptyWindowHasTheDefaultSize) {
  MainWindow* const kurv = window();
  QTest::qWait(50);
  expect_plot(*kurv, kDefaultSize);
}

TEST_F(WindowSize, ThePlotOfATableHasTheSizeOfAPicture) {
  expect_plot(*window_with(table(), {}), kDefaultSize);
  expect_plot(*window_with(table(), sized({500, 400})), {500, 400});
}

TEST_F(WindowSize, AGraphFileBringsTheSizeOfTheGraphUnlessAnotherIsGiven) {
  save_graph(sized({500, 400}), load(table(), {}), path("sized.gdf"));
  EXPECT_EQ(window_with(path("sized.gdf"), {})->graph().size(), QSize(500, 400));
  expect_plot(*window_with(path("sized.gdf"), sized({600, 450})), {600, 450});
}

TEST_F(WindowSize, AGraphComesBackAsLargeAsItWas) {
  MainWindow* const kurv = window_with(graph_file(), sized({640, 330}));
  change_title(kurv, "Kept");
  press(kurv, "mnuSave");
  expect_plot(*window_with(path("small.gdf"), {}), {640, 330});
}

}  // namespace
}  // namespace kurv::app
