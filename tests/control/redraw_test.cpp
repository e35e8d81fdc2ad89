#include "control/redraw.h"

#include <gtest/gtest.h>

#include "tests/support/golden.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;

TEST(Redraw, FreshControlDrawsNothing) {
  TestHost host;
  EXPECT_EQ(host.redrawn(), "");
}

TEST(Redraw, PaintsItsLayersInOrder) {
  TestHost host;
  host.load({0, 1, 2}, {1, 3, 2}, true, true);
  host.control.set_SubTitle("Subtitle");
  test::expect_golden("redraw_whole.txt", host.redrawn());
}

TEST(Redraw, MarksTheGraphUnsaved) {
  TestHost host;
  host.load({0, 1}, {1, 3});
  host.document().GraphSaved = true;
  host.control.build_the_graph();
  EXPECT_FALSE(host.document().GraphSaved);
}

TEST(Redraw, TwiceTheSameIsTheSamePicture) {
  TestHost host;
  host.load({0, 1, 2}, {1, 3, 2}, true, true);
  const std::string first = host.redrawn();
  EXPECT_EQ(host.redrawn(), first);
}

TEST(Redraw, PenWidthSurvivesFromOneRedrawToTheNext) {
  TestHost host;
  host.load({0, 1}, {1, 3});
  host.document().y_visible(1) = false;
  host.control.set_BorderWidth(4);
  const std::string log = host.redrawn();
  EXPECT_EQ(log.find("width "), log.rfind("width ")) << "only the border sets a width";
  EXPECT_LT(log.find("segment "), log.find("width 4\n")) << "ticks have the width that was left";
}

TEST(Redraw, MovesNoHandleHome) {
  TestHost host;
  host.load({0, 1}, {1, 3});
  host.layout().imgTitle.left = 1234;
  host.layout().picLegend.top = 2345;
  host.control.set_Left_margine(1500);
  host.control.build_the_graph();
  EXPECT_EQ(host.layout().imgTitle.left, 1234);
  EXPECT_EQ(host.layout().picLegend.top, 2345);
}

TEST(Redraw, FaultLeavesWhatWasPainted) {
  TestHost host;
  host.load({0, 1}, {1, 3});
  host.control.set_ymax(host.control.ymin());
  host.surface.clear_log();
  EXPECT_THROW(host.control.build_the_graph(), Fault);
  EXPECT_NE(host.surface.log().find("box "), std::string::npos) << "the axes were painted";
  EXPECT_EQ(host.surface.log().find("\"Title\""), std::string::npos);
}

}  // namespace
}  // namespace kurv
