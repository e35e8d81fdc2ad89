#include <limits>

#include "tests/support/graph_files.h"

namespace kurv {
namespace {

struct RoundTrip : test::GraphFileTest {
  std::string saved(test::TestHost& host, const std::string& name) {
    host.document().GraphSaved = false;
    host.shell.files = {{path(name), 1}};
    host.control.ChartOptions("saveas");
    return read(name);
  }
};

void change_every_setting(test::TestHost& host) {
  Control& control = host.control;
  control.set_Title(
      "Gr\xC3\xB6\xC3\x9F"
      "e \"in\" \xE2\x82\xAC");
  control.set_SubTitle("  blanks outside  ");
  control.set_NumTicks(7);
  control.set_BorderWidth(4);
  control.set_CurvesWidth(3);
  control.set_Top_margine(481);
  control.set_Left_margine(802);
  control.set_Right_margine(803);
  control.set_Bottom_margine(524);
  control.set_AxisLabelFormatX("0.0000");
  control.set_AxisLabelFormatY("#.##");
  control.set_FontBold(true);
  control.set_FontItalic(true);
  control.set_FontName("Font A");
  control.set_FontSize(9);
  control.set_TitleFontBold(false);
  control.set_TitleFontItalic(true);
  control.set_TitleFontName("Font B");
  control.set_TitleFontSize(21);
  control.set_SubTitleFontBold(true);
  control.set_SubTitleFontItalic(true);
  control.set_SubTitleFontName("");
  control.set_SubTitleFontSize(5);
  control.set_SortXY(true);
  control.set_Y_grid(true);
  control.set_X_grid(true);
  control.set_ymin(0.1 + 0.2);
  control.set_ymax(1.5e20);
  control.set_xmin(-1e-7);
  control.set_xmax(1.0 / 3);
  host.document().XLimitsExact = false;
  host.document().YLimitsExact = true;
  host.layout().imgTitle.top = -33;
  host.layout().imgTitle.left = 101;
  host.layout().imgSubTitle.top = 202;
  host.layout().imgSubTitle.left = 303;
  host.layout().picLegend.top = 404;
  host.layout().picLegend.left = 505;
  host.container.height = 4801;
  host.container.width = 7201;
}

void load_data(test::TestHost& host) {
  host.control.scatter_graph2(
      "T", test::columns({{3, 1, 2, 10}, {0.1, 1e-7, -1.5e-300, 7}, {1, 2, 3, 4}}),
      test::names({"x name", "first", "second = first + 1"}), 4, 2,
      test::flags({Boolean(false), Boolean(true)}), 2, test::names({"x^2", "sin(x)"}),
      Boolean(true), Boolean(true));
}

TEST_F(RoundTrip, EverySettingComesBackByteForByte) {
  test::TestHost first;
  load_data(first);
  change_every_setting(first);
  first.control.build_the_graph();
  const std::string before = saved(first, "a.gdf");

  test::TestHost second;
  second.control.file_load(path("a.gdf"));
  EXPECT_EQ(saved(second, "b.gdf"), before);
}

TEST_F(RoundTrip, ValuesWithoutANumberComeBack) {
  constexpr Double kInf = std::numeric_limits<Double>::infinity();
  constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
  test::TestHost first;
  first.load({1, 2, 3, 4}, {1, kNaN, kInf, -kInf});
  saved(first, "a.gdf");
  EXPECT_EQ(test::fault_of([&] { test::TestHost().control.file_load(path("a.gdf")); }), 6)
      << "the limits of infinite data";
  first.control.set_ymin(0);
  first.control.set_ymax(1);
  const std::string before = saved(first, "a.gdf");
  EXPECT_NE(before.find("1,NaN,Inf,-Inf\r\n"), before.npos);
  test::TestHost second;
  second.control.file_load(path("a.gdf"));
  EXPECT_EQ(saved(second, "b.gdf"), before);
}

TEST_F(RoundTrip, ALineBreakShiftsNoLine) {
  test::TestHost first;
  load_data(first);
  first.control.set_Title("two\r\nlines");
  first.control.set_SubTitle("two\nlines");
  first.document().yVarName(2) = "name\nunit";
  first.document().y_func(2).expression = "sin(x)\n";
  saved(first, "a.gdf");
  EXPECT_EQ(first.control.Title(), "two\r\nlines");

  test::TestHost second;
  second.control.file_load(path("a.gdf"));
  EXPECT_EQ(second.control.Title(), "two lines");
  EXPECT_EQ(second.control.SubTitle(), "two lines");
  EXPECT_EQ(second.document().yVarName(2), "name unit");
  EXPECT_EQ(second.document().y_func(2).expression, "sin(x) ");
}

TEST_F(RoundTrip, AnItemDroppedFarOutsideLoadsAgain) {
  test::TestHost first;
  load_data(first);
  first.control.drag(Item::kTitle, {0, 0}, {-40000, -1e30F});
  saved(first, "a.gdf");
  test::TestHost second;
  second.control.file_load(path("a.gdf"));
  EXPECT_EQ(second.layout().imgTitle.left, -32768);
  EXPECT_EQ(second.layout().imgTitle.top, -32768);
}

// The differences are the format's own: halves that become whole, and what a comma splits.
TEST_F(RoundTrip, WholeNumbersAndCommasAreAllThatIsLost) {
  test::TestHost first;
  load_data(first);
  first.control.set_FontSize(8.25F);
  first.control.set_TitleFontSize(10.5F);
  first.layout().picLegend.left = 505.5F;
  first.container.width = 7200.5F;
  first.document().yVarName(2) = "a,b";
  first.document().y_func(1).expression = "atan2(x,2)";
  saved(first, "a.gdf");
  std::vector<std::string> expected = read_lines("a.gdf");
  expected[31] = " 8 ";
  expected[35] = " 10 ";
  expected[19] = " 506 ";
  expected[21] = " 7200 ";
  expected[50] = "x name,a,b";
  expected[52] = "atan2(x,2)";

  test::TestHost second;
  second.control.file_load(path("a.gdf"));
  EXPECT_EQ(second.document().yVarName(2), "a");
  EXPECT_EQ(second.document().yVarName(3), "b") << "the last name is lost";
  EXPECT_EQ(second.document().y_func(1).expression, "atan2(x");
  EXPECT_EQ(second.document().y_func(2).expression, "2)");
  saved(second, "b.gdf");
  EXPECT_EQ(read_lines("b.gdf"), expected);
}

TEST_F(RoundTrip, TheSortedOrderIsAllThatIsLeftOfTheHostsOrder) {
  test::TestHost first;
  load_data(first);
  first.control.set_SortXY(true);
  first.control.build_the_graph();
  saved(first, "a.gdf");
  test::TestHost second;
  second.control.file_load(path("a.gdf"));
  second.control.set_SortXY(false);
  second.control.build_the_graph();
  EXPECT_EQ(second.document().xyArr(1, 1), 1);
}

TEST_F(RoundTrip, AFlagThatIsNeitherTrueNorFalseComesBackAsTrue) {
  test::TestHost first;
  load_data(first);
  first.document().y_visible(1) = Boolean::from_bits(1);
  const std::string before = saved(first, "a.gdf");
  test::TestHost second;
  second.control.file_load(path("a.gdf"));
  EXPECT_EQ(second.document().y_visible(1).bits(), -1);
  EXPECT_EQ(saved(second, "b.gdf"), before);
}

TEST_F(RoundTrip, PlacesOfAGraphThatDoNotFitAreNearestToThemInTheFile) {
  test::TestHost host;
  host.load({1, 2, 3}, {1, 4, 9});
  host.control.build_the_graph();
  host.layout().imgTitle.top = -48982.03F;
  host.layout().imgTitle.left = 1e30F;
  host.layout().imgSubTitle.top = -32768.4F;
  const std::string text = saved(host, "far.gdf");
  EXPECT_NE(text.find("\r\n-32768 \r\n 32767 \r\n-32768 \r\n"), text.npos) << text;
  EXPECT_EQ(host.layout().imgTitle.top, -48982.03F) << "the graph itself stays as it is";
  test::TestHost other;
  other.control.file_load(path("far.gdf"));
  EXPECT_EQ(other.layout().imgTitle.top, -32768);
  EXPECT_EQ(other.layout().imgSubTitle.top, -32768);
}

}  // namespace
}  // namespace kurv
