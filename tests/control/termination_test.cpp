#include <memory>

#include "control/lifecycle.h"
#include "tests/support/graph_files.h"

namespace kurv {
namespace {

using test::fault_of;

struct Termination : test::GraphFileTest {
  Termination() {
    control->first_placement();
    control->scatter_graph(test::columns({{3, 4}}), test::points({1, 2}), 2, 1, String("T"), "x",
                           test::names({"y"}), 0, {});
    control->set_QueryForSave(true);
  }

  test::PlainContainer container;
  test::ScriptedShell shell;
  RecordingSurface surface{7200, 4800};
  std::unique_ptr<Control> control = std::make_unique<Control>(container, shell, surface);
};

TEST_F(Termination, DestroyingRightAfterARedrawAsksAndNoLosesTheGraphSilently) {
  control.reset();
  ASSERT_EQ(shell.messages.size(), 1U);
  EXPECT_EQ(shell.messages[0].text,
            "The graph was not saved. Do you want to save it before closing ?");
  EXPECT_EQ(shell.messages[0].title, "KURV Guide");
  EXPECT_EQ(shell.messages[0].flags, 36);
  EXPECT_TRUE(shell.save_dialogs.empty());
}

TEST_F(Termination, YesSaves) {
  shell.answers = {Answer::kYes};
  shell.files = {{path("a.gdf"), 1}};
  control->terminate();
  EXPECT_TRUE(read("a.gdf").starts_with("QXPLOT"));
  EXPECT_TRUE(control->GraphSaved());
}

TEST_F(Termination, DestroyingSavesToo) {
  shell.answers = {Answer::kYes};
  shell.files = {{path("a.gdf"), 1}};
  control.reset();
  EXPECT_TRUE(exists("a.gdf"));
  EXPECT_EQ(shell.messages.size(), 1U);
}

TEST_F(Termination, NothingIsAskedByDefaultOrOfASavedGraph) {
  control->set_QueryForSave(false);
  control->terminate();
  EXPECT_TRUE(shell.messages.empty());

  Control saved(container, shell, surface);
  saved.set_QueryForSave(true);
  saved.file_load(write("a.gdf", test::joined(test::sample_lines())));
  saved.terminate();
  EXPECT_TRUE(shell.messages.empty());
}

TEST_F(Termination, AsksOnce) {
  control->terminate();
  control->terminate();
  control.reset();
  EXPECT_EQ(shell.messages.size(), 1U);
}

TEST_F(Termination, AFailingSaveReachesTheHostThatTerminates) {
  shell.answers = {Answer::kYes};
  shell.files = {{path("nowhere/a.gdf"), 1}};
  EXPECT_EQ(fault_of([&] { control->terminate(); }), 76);
  control.reset();
  EXPECT_EQ(shell.messages.size(), 1U) << "it has been reported already";
}

TEST_F(Termination, AFailingSaveOfADestructorIsReportedToTheUser) {
  shell.answers = {Answer::kYes};
  shell.files = {{path("nowhere/a.gdf"), 1}};
  control.reset();
  ASSERT_EQ(shell.messages.size(), 2U);
  EXPECT_EQ(shell.messages[1].text, "The graph could not be saved.");
  EXPECT_EQ(shell.messages[1].flags, kCriticalStop);
}

TEST_F(Termination, DestroyingWhileAnotherFaultIsOnItsWayIsSafe) {
  shell.answers = {Answer::kYes};
  shell.files = {{path("nowhere/a.gdf"), 1}};
  EXPECT_EQ(fault_of([&] {
              const std::unique_ptr<Control> dying = std::move(control);
              throw Fault(FaultKind::kOverflow);
            }),
            6);
  EXPECT_EQ(shell.messages.size(), 2U);
}

TEST_F(Termination, ControlsOfOneProcessShareNoGraphAndNoFile) {
  Control other(container, shell, surface);
  other.file_load(write("a.gdf", test::joined(test::sample_lines())));
  EXPECT_EQ(control->Title(), "T");
  EXPECT_EQ(control->FileName(), "");
  other.set_decimal_separator(',');
  EXPECT_EQ(control->decimal_separator(), '.');
}

TEST_F(Termination, ClosingItsDialogsLeavesTheControlAtWork) {
  control->CloseMe();
  control->build_the_graph();
  control->CloseMe();
  EXPECT_EQ(control->Title(), "T");
  EXPECT_TRUE(shell.messages.empty());
}

}  // namespace
}  // namespace kurv
