// When a graph is saved again after something was undone.
#include <gtest/gtest.h>

#include "control/graph_file_commands.h"
#include "tests/control/undo_fixture.h"
#include "tests/support/graph_files.h"

namespace kurv {
namespace {

struct SavedGraph : test::GraphFileTest {
  SavedGraph() {
    save();
    EXPECT_TRUE(is_saved());
  }
  void save() { save_graph_file(host.state(), path("a.gdf")); }
  bool is_saved() const { return bool(host.control.GraphSaved()); }

  test::UndoHost host;
};

TEST_F(SavedGraph, IsSavedAgainWhenItsChangesAreUndone) {
  host.rename("other");
  host.edit(2, 1, 31);
  EXPECT_FALSE(is_saved());
  host.control.undo();
  EXPECT_FALSE(is_saved());
  host.control.undo();
  EXPECT_TRUE(is_saved());
  host.control.redo();
  EXPECT_FALSE(is_saved());
}

TEST_F(SavedGraph, IsSavedAgainWhenItsChangesAreDoneAgain) {
  host.rename("other");
  save();
  host.control.undo();
  EXPECT_FALSE(is_saved());
  host.control.redo();
  EXPECT_TRUE(is_saved());
}

TEST_F(SavedGraph, IsNotWithAnotherSize) {
  host.rename("other");
  host.container.width = 3000;
  host.control.undo();
  EXPECT_FALSE(is_saved());
}

TEST_F(SavedGraph, IsNotWithAnotherChangeByTheHost) {
  host.rename("other");
  host.control.set_Title("By the host");
  host.control.undo();
  EXPECT_FALSE(is_saved());
}

TEST_F(SavedGraph, CanBeReachedFromTheMiddleOfTyping) {
  const auto type = [this](const String& text) {
    const StepRecorder step(host.state(), {.name = "Change Title", .key = "title"});
    host.control.set_Title(text);
    host.control.build_the_graph();
  };
  type("T");
  save();
  type("Ti");
  host.control.undo();
  EXPECT_EQ(host.control.Title(), "T");
  EXPECT_TRUE(is_saved());
}

TEST_F(SavedGraph, IsSavedAgainWhereUndoWasTurnedOnSince) {
  host.control.set_undo_enabled(false);
  save();
  host.control.set_undo_enabled(true);
  host.rename("other");
  host.control.undo();
  EXPECT_TRUE(is_saved());
}

TEST_F(SavedGraph, BeginsANewHistoryWhenItIsLoaded) {
  host.rename("other");
  host.control.file_load(path("a.gdf"));
  EXPECT_EQ(host.control.undo_text(), std::nullopt);
  host.rename("other");
  host.control.undo();
  EXPECT_TRUE(is_saved());
}

TEST_F(SavedGraph, SavingAndOpeningAreNoSteps) {
  host.shell.files = {{path("b.gdf"), 1}, {path("c.bmp"), 2}};
  host.control.ChartOptions("saveas");
  host.control.ChartOptions("saveas");
  EXPECT_EQ(host.control.undo_text(), std::nullopt);
}

TEST_F(SavedGraph, IsSavedAgainWhereTheStepsWereForgottenSince) {
  host.rename("other");
  save();
  host.control.clear_undo();
  host.rename("third");
  host.control.undo();
  EXPECT_TRUE(is_saved());
}

}  // namespace
}  // namespace kurv
