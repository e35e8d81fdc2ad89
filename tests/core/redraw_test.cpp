#include "core/redraw.h"

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
