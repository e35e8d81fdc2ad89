#include "dialogs/placement.h"

#include <gtest/gtest.h>

#include <string>

namespace kurv {
namespace {

const QRect kScreen(0, 30, 1920, 1050);

QRect placed(const QRect& plot, const QRect& main, QSize size, const QRect& area = kScreen) {
  return {place_beside(area, {{}, plot, main}, size), size};
}

TEST(Placement, IsToTheRightOfTheWindowWhereThereIsSpace) {
  const QRect main(100, 200, 800, 600);
  EXPECT_EQ(placed(main.adjusted(0, 50, 0, -20), main, {500, 400}), QRect(900, 200, 500, 400));
}

TEST(Placement, ElseToTheLeftOrBelowOrAbove) {
  const QSize size(500, 400);
  const QRect right(1000, 200, 800, 600);
  EXPECT_EQ(placed(right, right, size), QRect(500, 200, 500, 400));
  const QRect wide(0, 30, 1920, 600);
  EXPECT_EQ(placed(wide, wide, size), QRect(0, 630, 500, 400));
  const QRect low(0, 500, 1920, 580);
  EXPECT_EQ(placed(low, low, size), QRect(0, 100, 500, 400));
}

TEST(Placement, CoversTheWindowRatherThanThePlot) {
  // The plot is the left half of a window as large as the screen.
  const QRect plot(0, 60, 900, 1020);
  const QRect window = placed(plot, kScreen, {600, 400});
  EXPECT_FALSE(window.intersects(plot));
  EXPECT_TRUE(kScreen.contains(window));
}

TEST(Placement, CoversAsLittleOfThePlotAsItCan) {
  const QRect main(300, 100, 1300, 800);
  const QRect plot = main.adjusted(5, 80, -5, -30);
  EXPECT_EQ(placed(plot, main, {500, 400}), QRect(1420, 100, 500, 400));
}

TEST(Placement, LeavesTheTitlesFreeWhereItHasToCoverThePlot) {
  const QRect plot = kScreen.adjusted(0, 60, 0, -30);
  const QRect title(0, 100, 1920, 40);
  const QSize size(500, 400);
  const QRect window(place_beside(kScreen, {title, plot, kScreen}, size), size);
  EXPECT_EQ(window, QRect(1420, 680, 500, 400));
  // A window that is as high as the screen covers the shorter part of them.
  const QRect right(1000, 100, 300, 40);
  EXPECT_EQ(place_beside(kScreen, {right, plot, kScreen}, {800, 1050}), QPoint(0, 30));
}

TEST(Placement, StaysOnTheScreen) {
  const QRect screens[] = {kScreen, {-1280, 0, 1280, 1024}, {0, 0, 640, 480}};
  for (const QRect& screen : screens) {
    for (const QRect& main : {QRect(0, 0, 700, 500), QRect(-900, 900, 800, 600), screen}) {
      const QRect window = placed(main, main, {600, 400}, screen);
      EXPECT_TRUE(screen.contains(window)) << window.x() << ' ' << window.y();
    }
  }
}

TEST(Placement, AWindowLargerThanTheScreenBeginsAtItsCorner) {
  EXPECT_EQ(placed({0, 30, 700, 500}, {0, 30, 700, 500}, {3000, 2000}).topLeft(),
            kScreen.topLeft());
}

}  // namespace
}  // namespace kurv
