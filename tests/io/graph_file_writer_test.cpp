#include "io/graph_file_writer.h"

#include <cmath>
#include <limits>

#include "tests/support/graph_files.h"

namespace kurv {
namespace {

using test::fault_of;

struct GraphFileWriterTest : test::GraphFileTest {
  GraphFileWriterTest() {
    document.NumData = 3;
    document.NumY = 1;
    document.NumYFunc = 1;
    document.Title = "Demo";
    document.xyArr = Matrix<Double>(0, 150, 0, 3);
    for (int i = 1; i <= 3; ++i) {
      document.xyArr(1, i) = i;
      document.xyArr(2, i) = i * i;
    }
    document.yVarName = test::names({"x", "y"});
    document.y_visible = test::flags({Boolean(true)});
    document.y_func(1).expression = "x^2";
  }

  std::vector<std::string> written() {
    write_graph_file(path("a.gdf"), document, layout, size, '.');
    return read_lines("a.gdf");
  }
  std::string line(int number) { return written().at(static_cast<std::size_t>(number - 1)); }

  GraphDocument document;
  Layout layout;
  ControlSize size{4800, 7200};
};

TEST_F(GraphFileWriterTest, TheTextWithoutASizeLacksThoseTwoLinesAlone) {
  const auto text = [this](const std::optional<ControlSize>& of_size) {
    String result;
    write_graph_text([&result](std::string_view piece) { result += piece; }, document, layout,
                     of_size, '.');
    return result;
  };
  String whole;
  for (const std::string& each : written()) whole += each + "\r\n";
  EXPECT_EQ(text(size), whole);
  const String lines = "\r\n 4800 \r\n 7200 \r\n";
  const std::size_t at = whole.find(lines);
  ASSERT_NE(at, whole.npos);
  EXPECT_EQ(text(std::nullopt), whole.erase(at, lines.size() - 2));
}

TEST_F(GraphFileWriterTest, WritesEveryLineInItsPlaceAndKind) {
  document.SubTitle = "Sub";
  document.NumTicks = 8;
  document.BorderWidth = 3;
  document.CurvesWidth = 2;
  document.Top_margine = 500;
  document.Left_margine = 810;
  document.Right_margine = 300;
  document.Bottom_margine = 600;
  layout.imgTitle = {2400, 120, 1, 2};
  layout.imgSubTitle = {2401, 420, 3, 4};
  layout.picLegend = {5200, 610, 5, 6};
  document.ymin = 0.5;
  document.ymax = 10;
  document.xmin = -1;
  document.xmax = 3.25;
  document.AxisLabelFormatX = "0.000";
  document.AxisLabelFormatY = "0.0";
  document.FontBold = true;
  document.FontName = "Arial";
  document.FontSize = 9;
  document.TitleFontBold = false;
  document.TitleFontItalic = true;
  document.TitleFontName = "Courier";
  document.TitleFontSize = 12;
  document.SubTitleFontBold = true;
  document.SubTitleFontItalic = true;
  document.SubTitleFontName = "Times";
  document.SubTitleFontSize = 10;
  document.XLimitsExact = false;
  document.YLimitsExact = true;
  document.Y_grid = true;
  document.Connected = true;
  document.DrawMarkers = true;
  written();
  EXPECT_EQ(read("a.gdf"), test::joined(test::sample_lines()));
}

TEST_F(GraphFileWriterTest, StampIsTheVersionTimesThreeInHexadecimal) {
  EXPECT_EQ(version_stamp(1, 0), "1E");
  EXPECT_EQ(version_stamp(0, 9), "1B");
  EXPECT_EQ(version_stamp(2, 5), "4B");
  EXPECT_EQ(version_stamp(1, 12), "150");
  EXPECT_EQ(version_stamp(0, 0), "0");
  EXPECT_EQ(line(1), "QXPLOT/V500//1E");
}

TEST_F(GraphFileWriterTest, NumbersAreInTheirShortestForm) {
  document.NumData = 7;
  document.xyArr = Matrix<Double>(0, 150, 0, 7);
  int i = 0;
  for (const Double value :
       {0.1, -0.5, 1e-7, 1.5e20, -0.0, std::nan(""), -std::numeric_limits<Double>::infinity()}) {
    document.xyArr(1, ++i) = value;
  }
  document.ymin = 0.1 + 0.2;
  document.ymax = 1e-7;
  layout.imgTitle.top = -0.1F;
  size.height = 4800.5;
  EXPECT_EQ(line(48), "0.1,-0.5,1E-07,1.5E+20,0,NaN,-Inf");
  EXPECT_EQ(line(23), " .30000000000000004 ");
  EXPECT_EQ(line(24), " 1E-07 ");
  EXPECT_EQ(line(15), "-.1 ") << "a single-precision number has its own shortest form";
  EXPECT_EQ(line(21), " 4800.5 ");
}

TEST_F(GraphFileWriterTest, AFlagThatIsNotZeroIsTrue) {
  document.y_visible(1) = Boolean::from_bits(1);
  document.SortXY = Boolean::from_bits(256);
  EXPECT_EQ(line(51), "True");
  EXPECT_EQ(line(43), "True");
}

TEST_F(GraphFileWriterTest, WithoutCurvesXAndItsNameAreStillWritten) {
  document.NumY = 0;
  const std::vector<std::string> lines = written();
  ASSERT_EQ(lines.size(), 51U);
  EXPECT_EQ(lines[47], "1,2,3");
  EXPECT_EQ(lines[48], "x");
  EXPECT_EQ(lines[49], "");
  EXPECT_EQ(lines[50], "x^2");
}

TEST_F(GraphFileWriterTest, WithoutFunctionsTheLastLineIsEmpty) {
  document.NumYFunc = 0;
  const std::vector<std::string> lines = written();
  ASSERT_EQ(lines.size(), 52U);
  EXPECT_EQ(lines.back(), "");
}

TEST_F(GraphFileWriterTest, NothingIsEscaped) {
  document.yVarName(2) = "a,b";
  document.y_func(1).expression = "atan2(x,2)";
  const std::vector<std::string> lines = written();
  ASSERT_EQ(lines.size(), 52U);
  EXPECT_EQ(lines[49], "x,a,b");
  EXPECT_EQ(lines[51], "atan2(x,2)");
}

TEST_F(GraphFileWriterTest, ALineBreakInATextIsABlank) {
  const std::pair<const char*, const char*> kTexts[] = {
      {"two\r\nlines", "two lines"}, {"two\nlines", "two lines"}, {"two\rlines", "two lines"},
      {"\n\n\r\r\n", "    "},        {"end\r", "end "},           {"\nx^2", " x^2"},
  };
  for (const auto& [text, expected] : kTexts) {
    document.Title = document.SubTitle = text;
    document.AxisLabelFormatX = document.AxisLabelFormatY = text;
    document.FontName = document.TitleFontName = document.SubTitleFontName = text;
    document.yVarName(1) = document.yVarName(2) = text;
    document.y_func(1).expression = text;
    const std::vector<std::string> lines = written();
    ASSERT_EQ(lines.size(), 52U) << expected;
    for (const std::size_t number : {2U, 6U, 7U, 27U, 28U, 31U, 35U, 39U, 52U}) {
      EXPECT_EQ(lines[number - 1], expected) << number;
    }
    EXPECT_EQ(lines[49], std::string(expected) + ',' + expected);
    EXPECT_EQ(read("a.gdf").find_first_of("\r\n"), read("a.gdf").find("\r\n"));
    EXPECT_EQ(document.Title, text) << "the document keeps it";
  }
}

TEST_F(GraphFileWriterTest, AtMostThirtyFunctionsCanBeSaved) {
  document.NumYFunc = 30;
  for (int k = 1; k <= 30; ++k) document.y_func(k).expression = "x";
  EXPECT_EQ(line(52).size(), 59U);
  document.NumYFunc = 31;
  EXPECT_EQ(fault_of([&] { written(); }), 9);
  EXPECT_EQ(read_lines("a.gdf").size(), 51U) << "all lines before it are in the partial file";
  EXPECT_TRUE(exists("a.gdf~"));
}

TEST_F(GraphFileWriterTest, CountsBeyondTheArraysAreCaughtThere) {
  const GraphDocument good = document;
  document.NumData = 4;
  EXPECT_EQ(fault_of([&] { written(); }), 9);
  document = good;
  document.NumY = 2;
  EXPECT_EQ(fault_of([&] { written(); }), 9);
  document.NumY = 32767;
  EXPECT_EQ(fault_of([&] { written(); }), 9);
  document = good;
  document.NumData = document.NumY = document.NumYFunc = -1;
  EXPECT_EQ(fault_of([&] { written(); }), 0) << "lists of fewer than no entries are empty";
}

}  // namespace
}  // namespace kurv
