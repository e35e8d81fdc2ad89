// What becomes of the steps where data are edited, loaded or added to.
#include <gmock/gmock.h>

#include <cmath>
#include <memory>
#include <new>
#include <optional>
#include <utility>
#include <vector>

#include "control/data_intake.h"
#include "model/data_set.h"
#include "tests/control/undo_fixture.h"

namespace kurv {
namespace {

using test::UndoHost;
using testing::ElementsAre;

// -- Edited cells
// -----------------------------------------------------------------------------------------

std::vector<const Double*> addresses(const Matrix<Double>& data) {
  std::vector<const Double*> all;
  for (int c = 1; c <= 4; ++c) all.push_back(&data.column(c)(1));
  return all;
}

TEST(Undo, AnEditedCellTakesTheMemoryOfOneColumn) {
  UndoHost host;
  std::vector<const Double*> before = addresses(host.document().xyArrUnsorted);
  host.edit(3, 2, 99);
  const std::vector<const Double*> after = addresses(host.document().xyArrUnsorted);
  EXPECT_NE(after[2], before[2]);
  EXPECT_THAT(after, ElementsAre(before[0], before[1], after[2], before[3]));
  const std::vector<const Double*> sorted = addresses(host.document().xyArrSorted);
  host.control.undo();
  EXPECT_EQ(addresses(host.document().xyArrUnsorted), before);
  // Neither is another column of the sorted copy made anew.
  std::vector<const Double*> sorted_before = addresses(host.document().xyArrSorted);
  sorted_before[2] = sorted[2];
  EXPECT_EQ(sorted_before, sorted);
}

TEST(Undo, SortedPointsShareTheirColumns) {
  UndoHost host;
  host.control.scatter_graph2("Title", test::columns({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {1, 1, 1}}),
                              test::names({"x", "a", "b", "c"}), 3, 3,
                              test::flags({true, true, true}), 0, {});
  host.edit(2, 2, 50);
  host.control.undo();
  EXPECT_EQ(std::as_const(host.document().xyArrUnsorted)(2, 2), 5);
  EXPECT_EQ(addresses(host.document().xyArrSorted), addresses(host.document().xyArrUnsorted));
}

TEST(Undo, BothOrdersOfThePointsAreAsThoughTheyHadJustBeenLoaded) {
  UndoHost host;
  const auto sorted = [](GraphDocument& document) {
    Matrix<Double> found(1, 4, 1, 5);
    for (int c = 1; c <= 4; ++c) {
      for (int i = 1; i <= 5; ++i) {
        const Double value = std::as_const(document).xyArrSorted(c, i);
        found(c, i) = std::isnan(value) ? -1 : value;
      }
    }
    return found;
  };
  UndoHost untouched;
  host.edit(2, 2, 11);  // a value of y
  host.edit(1, 1, 6);   // a value of x, which moves its point
  host.edit(3, 3, 12);
  host.control.undo();
  host.control.undo();
  host.control.undo();
  EXPECT_EQ(sorted(host.document()), sorted(untouched.document()));
  EXPECT_EQ(host.document().sorted_places, untouched.document().sorted_places);
  host.control.redo();
  host.control.redo();
  host.control.redo();
  UndoHost edited;
  edited.control.set_undo_enabled(false);
  edited.edit(2, 2, 11);
  edited.edit(1, 1, 6);
  edited.edit(3, 3, 12);
  EXPECT_EQ(sorted(host.document()), sorted(edited.document()));
  EXPECT_EQ(host.document().sorted_places, edited.document().sorted_places);
}

TEST(Undo, CachesHearThatTheDataAreOthers) {
  UndoHost host;
  host.edit(2, 2, 11);
  const unsigned revision = host.document().data_revision;
  host.control.undo();
  EXPECT_NE(host.document().data_revision, revision);
  EXPECT_EQ(host.control.cell_edits(), 0u);
}

TEST(Undo, DataThatAreRefusedAgainLeaveNoPicture) {
  UndoHost host;
  host.control.scatter_graph2("Title", test::columns({{1, 1}, {4, 5}}), test::names({"x", "a"}), 2,
                              1, test::flags({true}), 0, {});
  ASSERT_FALSE(host.document().GraphValid);
  host.edit(1, 2, 2);
  show_repaired_data(host.state());
  EXPECT_TRUE(host.document().GraphValid);
  EXPECT_THAT(host.step_names(), ElementsAre("Edit Cells"));
  host.surface.clear_log();
  EXPECT_TRUE(host.control.undo());
  EXPECT_FALSE(host.document().GraphValid);
  EXPECT_EQ(host.surface.log(), "cls\n");
  EXPECT_TRUE(host.control.redo());
  EXPECT_TRUE(host.document().GraphValid);
}

// -- Loading --------------------------------------------------------------------------------------

TEST(Undo, LoadingDataBeginsANewHistory) {
  UndoHost host;
  host.rename("other");
  host.load_three();
  EXPECT_THAT(host.step_names(), ElementsAre());
  EXPECT_FALSE(host.control.undo());
  host.rename("other");
  host.load({1, 2}, {3, 4});
  EXPECT_FALSE(host.control.undo());
}

TEST(Undo, LoadingDataDuringAStepBeginsANewHistoryToo) {
  UndoHost host;
  host.rename("other");
  host.control.make_step("Load", [&host] { host.load({1, 2}, {3, 4}); });
  EXPECT_THAT(host.step_names(), ElementsAre());
}

// As a timer does while a message box is open.
TEST(Undo, NothingCanBeUndoneWhileDataAreLoaded) {
  UndoHost host;
  host.rename("other");
  bool undone = true;
  host.shell.while_message_box = [&] { undone = host.control.undo(); };
  host.load({1, 1}, {3, 4});
  EXPECT_FALSE(undone);
}

TEST(Undo, MorePointsForgetTheStepsThatHaveChangedData) {
  UndoHost host;
  host.rename("one");
  host.edit(2, 1, 31);
  host.rename("two");
  host.control.drag(Item::kLegend, {0, 0}, {4000, 3000});
  host.rename("three");
  host.control.undo();
  host.control.append_points(test::columns({{6}, {60}, {6}, {6}}));
  EXPECT_THAT(host.step_names(), ElementsAre("Rename Curve", "Move Legend", "Rename Curve"));
  EXPECT_EQ(host.control.undo_text(), "Move Legend");
  EXPECT_TRUE(host.control.undo());
  EXPECT_TRUE(host.control.undo());
  EXPECT_FALSE(host.control.undo());
  EXPECT_EQ(host.document().NumData, 6);
  EXPECT_EQ(host.document().yVarName(2), "one");
  EXPECT_EQ(host.document().xyArr(2, 1), 31);
}

TEST(Undo, MorePointsForgetTheUndoneStepsFromTheFirstThatHasChangedData) {
  UndoHost host;
  host.rename("one");
  host.edit(2, 1, 31);
  host.rename("two");
  host.control.undo();
  host.control.undo();
  host.control.undo();
  host.control.append_points(test::columns({{6}, {60}, {6}, {6}}));
  EXPECT_THAT(host.step_names(), ElementsAre("Rename Curve"));
  EXPECT_EQ(host.control.redo_text(), "Rename Curve");
}

TEST(Undo, LimitsThatFollowTheDataSuitTheNewPoints) {
  UndoHost host;
  set_curve_visible(host.state(), 1, false);
  host.control.append_points(test::columns({{6}, {600}, {60}, {6}}));
  host.control.undo();
  EXPECT_EQ(host.control.ymax(), 600);
  host.control.redo();
  EXPECT_EQ(host.control.ymax(), 60);
}

TEST(Undo, OtherNamesOfAHostBeginANewHistory) {
  UndoHost host;
  host.rename("other");
  const Matrix<Double> points = test::columns({{1, 2}, {3, 4}, {5, 6}, {7, 8}});
  host.control.replace_points(points, test::names({"x", "a", "b", "c"}));
  EXPECT_THAT(host.step_names(), ElementsAre("Rename Curve"));
  host.control.replace_points(points, test::names({"x", "a", "b", "d"}));
  EXPECT_THAT(host.step_names(), ElementsAre());
}

// -- Points that a host appends -------------------------------------------------------------------

struct RefusedUndoHost : UndoHost {
  RefusedUndoHost() {
    control.scatter_graph2("Title", test::columns({{1}, {4}}), test::names({"x", "a"}), 1, 1,
                           test::flags({true}), 0, {});
    EXPECT_FALSE(document().GraphValid);
  }
};

TEST(Undo, PointsOfAHostThatRepairTheDataAreNoStep) {
  RefusedUndoHost host;
  host.control.append_points(test::columns({{2, 3}, {5, 6}}));
  EXPECT_TRUE(host.document().GraphValid);
  EXPECT_THAT(host.step_names(), ElementsAre());
}

TEST(Undo, PointsOfAHostThatRepairTheDataAreNoPartOfTheStepBefore) {
  RefusedUndoHost host;
  host.rename("other");
  host.control.append_points(test::columns({{2, 3}, {5, 6}}));
  EXPECT_TRUE(host.control.undo());
  EXPECT_TRUE(host.document().GraphValid);
  EXPECT_EQ(host.document().yVarName(2), "a");
}

TEST(Undo, DataThatAreRepairedWithoutAStepAreNone) {
  RefusedUndoHost host;
  GraphDocument& document = host.document();
  document.xyArr = test::columns({{1, 2}, {4, 5}});
  document.NumData = 2;
  refresh_sorted_data(document, *host.services.swap);
  show_repaired_data(host.state());
  EXPECT_TRUE(host.document().GraphValid);
  EXPECT_THAT(host.step_names(), ElementsAre());
}

// A host's service that may fail.
struct FailingSwap final : SwapService {
  explicit FailingSwap(std::unique_ptr<SwapService> other) : swap(std::move(other)) {}
  void exchange(Double& first, Double& second) const override {
    if (fails) throw std::bad_alloc();
    swap->exchange(first, second);
  }

  std::unique_ptr<SwapService> swap;
  bool fails = false;
};

TEST(Undo, ListenersAreToldOfForgottenStepsAlsoWherePointsCannotBeStored) {
  UndoHost host;
  auto swap = std::make_unique<FailingSwap>(std::move(host.services.swap));
  FailingSwap& failing = *swap;
  host.services.swap = std::move(swap);
  std::optional<String> text;
  host.control.add_undo_listener([&] { text = host.control.undo_text(); });
  const Matrix<Double> points = test::columns({{2, 1}, {3, 4}, {5, 6}, {7, 8}});
  for (const bool appended : {true, false}) {
    host.load_three();
    host.rename("one");
    host.edit(2, 1, 31);
    ASSERT_EQ(text, "Edit Cells");
    failing.fails = true;
    if (appended) {
      EXPECT_THROW(host.control.append_points(points), std::bad_alloc);
    } else {
      EXPECT_THROW(host.control.replace_points(points, test::names({"x", "a", "b", "c"})),
                   std::bad_alloc);
    }
    EXPECT_EQ(text, host.control.undo_text());
    failing.fails = false;
  }
}

}  // namespace
}  // namespace kurv
