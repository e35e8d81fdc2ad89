#include "render/legend_titles.h"

#include <gtest/gtest.h>

#include "tests/support/golden.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;

std::string layer_of(TestHost& host) {
  host.surface.clear_log();
  DrawLegendAndTitles(host.document(), host.layout(), host.surface);
  return host.surface.log();
}

void load_two(TestHost& host, bool markers = false) {
  host.control.scatter_graph(test::columns({{1, 2}, {3, 4}}), test::points({1, 2}), 2, 2,
                             String("Title"), "x", test::names({"first", "z = x*2"}), 0, {},
                             Boolean(true), Boolean(markers));
}

TEST(Legend, LineSamples) {
  TestHost host;
  load_two(host);
  test::expect_golden("legend_lines.txt", layer_of(host));
}

TEST(Legend, Markers) {
  TestHost host;
  load_two(host, true);
  host.control.set_SubTitle("Sub");
  SizeTitleHandles(host.document(), host.layout(), host.surface);
  test::expect_golden("legend_markers.txt", layer_of(host));
}

TEST(Legend, DefinitionIsListedUnderItsName) {
  TestHost host;
  load_two(host);
  const std::string log = layer_of(host);
  EXPECT_NE(log.find("\"z    \""), std::string::npos);
  EXPECT_NE(log.find("\"first    \""), std::string::npos);
  EXPECT_EQ(log.find("x*2"), std::string::npos);
}

TEST(Legend, IsAbsentWhenAllCurvesAreHiddenAndTitlesStay) {
  TestHost host;
  load_two(host);
  host.document().y_visible(1) = host.document().y_visible(2) = false;
  const std::string log = layer_of(host);
  EXPECT_EQ(log.find("box "), std::string::npos);
  EXPECT_NE(log.find("\"Title\""), std::string::npos);
  EXPECT_EQ(log.find("forecolor"), std::string::npos);
}

TEST(Legend, FlagThatIsNotExactlyTrueIsNotListed) {
  TestHost host;
  load_two(host);
  host.document().y_visible(1) = Boolean::from_bits(1);
  const std::string log = layer_of(host);
  EXPECT_EQ(log.find("first"), std::string::npos);
  EXPECT_NE(log.find("\"z    \""), std::string::npos);
}

TEST(Legend, LargeMarkersOfTwoCurvesMakeThreePitches) {
  TestHost host;
  load_two(host);
  host.control.set_MarkerSize(400);
  layer_of(host);
  EXPECT_FLOAT_EQ(host.layout().picLegend.height, 3 * 2.2F * 400);
}

TEST(Legend, HeightFollowsTheTextOtherwise) {
  TestHost host;
  load_two(host);
  layer_of(host);
  EXPECT_EQ(host.layout().picLegend.height, 3 * 192) << "the last line end begins a line too";
  EXPECT_EQ(host.layout().picLegend.width, (3 + 5 + 4) * 80 + 3 * 40);
}

TEST(Legend, TextColourIsRestored) {
  TestHost host;
  load_two(host);
  host.surface.set_ForeColor(4);
  layer_of(host);
  EXPECT_EQ(host.surface.ForeColor(), 4);
}

TEST(Handles, BeyondTheSurfaceComeBackAtAThirdOfThePlot) {
  TestHost host;
  load_two(host);
  host.layout().picLegend.top = 9001;
  host.layout().imgTitle.left = 12001;
  host.layout().imgSubTitle.top = 9000;
  layer_of(host);
  EXPECT_FLOAT_EQ(host.layout().picLegend.top, 8000 / 3.0F);
  EXPECT_FLOAT_EQ(host.layout().imgTitle.left, 10400 / 3.0F);
  EXPECT_EQ(host.layout().imgSubTitle.top, 9000) << "on the edge is not beyond it";
}

TEST(Handles, NegativePositionsStay) {
  TestHost host;
  load_two(host);
  host.layout().picLegend.left = -500;
  layer_of(host);
  EXPECT_EQ(host.layout().picLegend.left, -500);
}

TEST(Titles, EmptyTitleIsAnEmptyBoxAndNoVisibleText) {
  TestHost host;
  load_two(host);
  host.control.set_Title("");
  SizeTitleHandles(host.document(), host.layout(), host.surface);
  EXPECT_EQ(host.layout().imgTitle.width, 0);
  EXPECT_EQ(host.layout().imgTitle.height, 264) << "one line of the font";
  EXPECT_NE(layer_of(host).find("print 800 156 \"\"\n"), std::string::npos);
}

TEST(Titles, HandlesGetTheSizeOfTheirTextsAndTheAxisFontIsLeft) {
  TestHost host;
  load_two(host);
  host.control.set_SubTitle("Sub");
  SizeTitleHandles(host.document(), host.layout(), host.surface);
  EXPECT_EQ(host.layout().imgTitle.width, 550);
  EXPECT_EQ(host.layout().imgTitle.height, 264);
  EXPECT_EQ(host.layout().imgSubTitle.width, 240);
  EXPECT_EQ(host.layout().imgSubTitle.height, 192);
  EXPECT_EQ(host.surface.font(), axis_font(host.document()));
}

TEST(Titles, TheFirstSubtitleIsAboveTheFrame) {
  TestHost host;
  load_two(host);
  host.control.ChartOptions("refresh");
  host.control.set_SubTitle("Sub");
  host.control.build_the_graph();
  const Rect& subtitle = host.layout().imgSubTitle;
  EXPECT_EQ(subtitle.top + subtitle.height, host.control.Top_margine() - 60);
}

}  // namespace
}  // namespace kurv
