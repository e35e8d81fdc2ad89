// What a sequence of presses, moves and releases means, before any toolkit is involved.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "control/mouse.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;

constexpr SurfacePoint kPlain{6000, 4000};
constexpr SurfacePoint kFrame{800, 4000};

SurfacePoint middle(const Rect& rect) {
  return {rect.left + rect.width / 2, rect.top + rect.height / 2};
}

struct RouterHost : TestHost {
  RouterHost() {
    load({1, 2}, {3, 4});
    control.build_the_graph();
    surface.clear_log();
    shell.windows.clear();
  }

  ControlState& state() { return control.state(); }
  SurfacePoint title() { return middle(layout().imgTitle); }
  bool press(MouseButton button, SurfacePoint at) { return kurv::press(state(), button, at); }
  Release release(MouseButton button, SurfacePoint at) { return end_press(state(), button, at); }
};

TEST(Router, FollowsEachButtonSeparately) {
  RouterHost host;
  EXPECT_TRUE(host.press(MouseButton::kRight, host.title()));
  EXPECT_TRUE(host.press(MouseButton::kMiddle, kPlain));
  EXPECT_EQ(host.release(MouseButton::kRight, kPlain).kind, ReleaseKind::kClick);
  EXPECT_EQ(host.release(MouseButton::kMiddle, host.title()).kind, ReleaseKind::kMouseUp);
}

TEST(Router, AReleaseWithoutAPressBelongsToTheSurface) {
  RouterHost host;
  EXPECT_EQ(host.release(MouseButton::kLeft, host.title()).kind, ReleaseKind::kMouseUp);
  EXPECT_EQ(host.release(MouseButton::kAny, kPlain).kind, ReleaseKind::kMouseUp);
  EXPECT_EQ(host.release(MouseButton::kAny, host.title()).kind, ReleaseKind::kClick)
      << "a host that tells no buttons apart";
}

TEST(Router, OnlyTheLeftButtonDrags) {
  for (const MouseButton button : {MouseButton::kAny, MouseButton::kRight, MouseButton::kMiddle}) {
    RouterHost host;
    host.press(button, host.title());
    EXPECT_FALSE(drag_to(host.state(), kPlain, true));
    EXPECT_EQ(host.release(button, kPlain).kind, ReleaseKind::kClick);
  }
}

TEST(Router, ADragBeginsBeyondTheThresholdAndThenStaysOne) {
  RouterHost host;
  host.press(MouseButton::kLeft, host.title());
  EXPECT_FALSE(drag_to(host.state(), kPlain, false));
  EXPECT_FALSE(dragged_rect(host.state()));
  EXPECT_TRUE(drag_to(host.state(), kPlain, true));
  EXPECT_TRUE(drag_to(host.state(), host.title(), false));
  EXPECT_TRUE(dragged_rect(host.state()));
  EXPECT_EQ(host.release(MouseButton::kLeft, host.title()).kind, ReleaseKind::kDrop);
  EXPECT_FALSE(dragged_rect(host.state()));
}

TEST(Router, ADeliveredDropMovesTheItemByItsGrabbedPoint) {
  RouterHost host;
  const Rect before = host.layout().imgTitle;
  host.press(MouseButton::kLeft, {before.left + 30, before.top + 40});
  drag_to(host.state(), kPlain, true);
  const Release release = host.release(MouseButton::kLeft, kPlain);
  EXPECT_TRUE(release.has_effect());
  EXPECT_EQ(host.surface.log(), "") << "not before it is delivered";
  deliver(host.state(), release, 1, 0, kPlain);
  EXPECT_EQ(host.layout().imgTitle.left, kPlain.x - 30);
  EXPECT_EQ(host.layout().imgTitle.top, kPlain.y - 40);
  EXPECT_EQ(host.container.mouse_ups, 0);
}

TEST(Router, AClickOnAnItemHasNoEffect) {
  RouterHost host;
  host.press(MouseButton::kLeft, host.title());
  const Release release = host.release(MouseButton::kLeft, host.title());
  EXPECT_EQ(release.kind, ReleaseKind::kClick);
  EXPECT_FALSE(release.has_effect());
}

TEST(Router, OtherButtonsAreIgnoredDuringADragAndUntilTheirNextPress) {
  RouterHost host;
  host.press(MouseButton::kLeft, host.title());
  EXPECT_FALSE(host.press(MouseButton::kRight, kFrame));
  EXPECT_TRUE(host.state().mouse.outlined.empty());
  EXPECT_EQ(host.release(MouseButton::kLeft, host.title()).kind, ReleaseKind::kClick);
  EXPECT_EQ(host.release(MouseButton::kRight, kFrame).kind, ReleaseKind::kIgnored);
  EXPECT_TRUE(host.press(MouseButton::kRight, kFrame));
  EXPECT_EQ(host.release(MouseButton::kRight, kFrame).kind, ReleaseKind::kMouseUp);
}

TEST(Router, ACancelledDragEndsInAClick) {
  RouterHost host;
  host.press(MouseButton::kLeft, host.title());
  drag_to(host.state(), kPlain, true);
  cancel_drag(host.state());
  EXPECT_EQ(host.release(MouseButton::kLeft, kPlain).kind, ReleaseKind::kClick);
}

TEST(Router, TheReleaseOfALeftDoublePressCarriesTheDoubleClick) {
  RouterHost host;
  double_press(host.state(), MouseButton::kLeft, host.title());
  EXPECT_FALSE(drag_to(host.state(), kPlain, true)) << "it does not drag";
  const Release on_title = host.release(MouseButton::kLeft, host.title());
  ASSERT_TRUE(on_title.double_click);
  open_double_click(host.state(), *on_title.double_click);
  double_press(host.state(), MouseButton::kLeft, kFrame);
  const Release on_frame = host.release(MouseButton::kLeft, kFrame);
  ASSERT_TRUE(on_frame.double_click);
  open_double_click(host.state(), *on_frame.double_click);
  EXPECT_EQ(host.shell.windows, (std::vector<std::string>{"frmPropert 1", "frmPropert 4"}));

  double_press(host.state(), MouseButton::kMiddle, kFrame);
  EXPECT_FALSE(host.release(MouseButton::kMiddle, kFrame).double_click);
}

TEST(Router, APressOrACancelForgetsTheDoubleClick) {
  RouterHost host;
  double_press(host.state(), MouseButton::kLeft, kFrame);
  host.press(MouseButton::kRight, kFrame);
  EXPECT_FALSE(host.release(MouseButton::kLeft, kFrame).double_click);
  double_press(host.state(), MouseButton::kLeft, kFrame);
  cancel_gestures(host.state());
  EXPECT_FALSE(host.release(MouseButton::kLeft, kFrame).double_click);
}

TEST(Router, ThePointerShowsWhatCanBeDone) {
  RouterHost host;
  EXPECT_EQ(pointer_at(host.state(), std::nullopt), PointerKind::kPlain);
  EXPECT_EQ(pointer_at(host.state(), kPlain), PointerKind::kPlain);
  EXPECT_EQ(pointer_at(host.state(), kFrame), PointerKind::kCanEdit);
  EXPECT_EQ(pointer_at(host.state(), host.title()), PointerKind::kCanGrab);
  host.press(MouseButton::kLeft, host.title());
  EXPECT_EQ(pointer_at(host.state(), kPlain), PointerKind::kGrabbing);
}

}  // namespace
}  // namespace kurv
