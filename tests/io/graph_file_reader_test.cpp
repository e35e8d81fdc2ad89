#include "io/graph_file_reader.h"

#include <KurvGraph/number_text.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>

#include "io/text_file.h"
#include "tests/support/graph_files.h"

namespace kurv {
namespace {

using test::fault_of;
using test::sample_with;

struct GraphFileReaderTest : test::GraphFileTest {
  GraphFile read_bytes(std::string_view bytes) {
    InputFile file(write("a.gdf", bytes));
    return read_graph_file(file, document, *library_services().text_field, '.');
  }
  int fault_with(int line, const std::string& text) {
    return fault_of([&] { read_bytes(sample_with(line, text)); });
  }

  GraphDocument document;
};

TEST_F(GraphFileReaderTest, ReadsEveryLineIntoItsPlace) {
  const GraphFile graph = read_bytes(test::joined(test::sample_lines()));
  EXPECT_EQ(document.Title, "Demo");
  EXPECT_EQ(document.SubTitle, "Sub");
  EXPECT_EQ(document.NumTicks, 8);
  EXPECT_EQ(document.BorderWidth, 3);
  EXPECT_EQ(document.CurvesWidth, 2);
  EXPECT_EQ(document.Top_margine, 500);
  EXPECT_EQ(document.Left_margine, 810);
  EXPECT_EQ(document.Right_margine, 300);
  EXPECT_EQ(document.Bottom_margine, 600);
  EXPECT_EQ(document.AxisLabelFormatX, "0.000");
  EXPECT_EQ(document.AxisLabelFormatY, "0.0");
  EXPECT_EQ(axis_font(document), (Font{"Arial", 9, true, false}));
  EXPECT_EQ(title_font(document), (Font{"Courier", 12, false, true}));
  EXPECT_EQ(subtitle_font(document), (Font{"Times", 10, true, true}));
  EXPECT_EQ(document.XLimitsExact, Boolean(false));
  EXPECT_EQ(document.YLimitsExact, Boolean(true));
  EXPECT_EQ(document.SortXY, Boolean(false));

  EXPECT_EQ(graph.num_data, 3);
  EXPECT_EQ(graph.num_y, 1);
  EXPECT_EQ(graph.num_functions, 1);
  EXPECT_EQ(graph.imgTitle.top, 120);
  EXPECT_EQ(graph.imgTitle.left, 2400);
  EXPECT_EQ(graph.imgSubTitle.top, 420);
  EXPECT_EQ(graph.imgSubTitle.left, 2401);
  EXPECT_EQ(graph.picLegend.top, 610);
  EXPECT_EQ(graph.picLegend.left, 5200);
  EXPECT_EQ(graph.height, 4800);
  EXPECT_EQ(graph.width, 7200);
  EXPECT_EQ(graph.deferred.ymin, 0.5);
  EXPECT_EQ(graph.deferred.ymax, 10);
  EXPECT_EQ(graph.deferred.xmin, -1);
  EXPECT_EQ(graph.deferred.xmax, 3.25);
  EXPECT_EQ(graph.deferred.Y_grid, Boolean(true));
  EXPECT_EQ(graph.deferred.X_grid, Boolean(false));
  EXPECT_EQ(graph.Connected, Boolean(true));
  EXPECT_EQ(graph.DrawMarkers, Boolean(true));
  EXPECT_EQ(graph.xyarr(1, 3), 3);
  EXPECT_EQ(graph.xyarr(2, 3), 9);
  EXPECT_EQ(graph.names(1), "x");
  EXPECT_EQ(graph.names(2), "y");
  EXPECT_EQ(graph.visible(1), Boolean(true));
  EXPECT_EQ(graph.functions(1), "x^2");
}

TEST_F(GraphFileReaderTest, LineTwoMayDifferFromLineSix) {
  read_bytes(sample_with(2, "Another"));
  EXPECT_EQ(document.Title, "Demo");
}

TEST_F(GraphFileReaderTest, FirstLineIsNotLookedAt) {
  read_bytes(sample_with(1, "foreign"));
  EXPECT_EQ(document.Title, "Demo");
}

TEST_F(GraphFileReaderTest, CountsAreLeadingNumbers) {
  EXPECT_EQ(read_bytes(sample_with(3, " 2 points")).num_data, 2);
  EXPECT_EQ(read_bytes(sample_with(3, "2.5")).num_data, 2) << "ties go to the even neighbour";
  EXPECT_EQ(read_bytes(sample_with(5, "none")).num_functions, 0);
  EXPECT_EQ(read_bytes(sample_with(5, "")).num_functions, 0);
  EXPECT_EQ(fault_with(3, "32768"), 6);
  EXPECT_EQ(fault_with(4, "1e9"), 6);
  EXPECT_EQ(fault_with(5, "-32769"), 6);
}

TEST_F(GraphFileReaderTest, PlacesAndSizesAreRoundedToTheNearestEven) {
  EXPECT_EQ(read_bytes(sample_with(15, " 120.5 ")).imgTitle.top, 120);
  EXPECT_EQ(read_bytes(sample_with(15, " 121.5 ")).imgTitle.top, 122);
  EXPECT_EQ(read_bytes(sample_with(22, "-7200.7 ")).width, -7201);
  read_bytes(sample_with(32, " 8.25 "));
  EXPECT_EQ(document.FontSize, 8) << "a font size of 8.25 comes back as 8";
  EXPECT_EQ(fault_with(15, " 32767.5 "), 6);
  EXPECT_EQ(fault_with(40, " NaN "), 6);
}

TEST_F(GraphFileReaderTest, LimitsKeepTheirFullPrecision) {
  const GraphFile graph = read_bytes(sample_with(23, " .30000000000000004 "));
  EXPECT_EQ(graph.deferred.ymin, 0.1 + 0.2);
}

TEST_F(GraphFileReaderTest, ALimitThatIsNotFiniteIsAnOverflow) {
  for (const int line : {23, 24, 25, 26}) {
    for (const char* limit : {" NaN ", " Inf ", "-Inf ", "1e999"}) {
      EXPECT_EQ(fault_with(line, limit), 6) << line << limit;
    }
  }
}

TEST_F(GraphFileReaderTest, BooleansAreWordsOrNumbers) {
  EXPECT_EQ(read_bytes(sample_with(44, "FALSE")).deferred.Y_grid, Boolean(false));
  EXPECT_EQ(read_bytes(sample_with(44, "0")).deferred.Y_grid, Boolean(false));
  EXPECT_EQ(read_bytes(sample_with(44, " 7 ")).deferred.Y_grid, Boolean(true));
  EXPECT_EQ(fault_with(44, "yes"), 13);
  EXPECT_EQ(fault_with(51, "1,0"), 0);
  EXPECT_EQ(fault_with(51, ""), 13) << "a flag that is not there is no truth";
}

TEST_F(GraphFileReaderTest, AFlagOfOneComesBackAsMinusOne) {
  EXPECT_EQ(read_bytes(sample_with(51, "1")).visible(1).bits(), -1);
}

TEST_F(GraphFileReaderTest, EveryNumberLineRefusesWhatIsNoNumber) {
  for (int line = 8; line <= 26; ++line) EXPECT_EQ(fault_with(line, "x"), 13) << line;
  for (const int line : {32, 36, 40, 48, 49}) EXPECT_EQ(fault_with(line, "1x,2,3"), 13) << line;
}

TEST_F(GraphFileReaderTest, ADataLineNeedsAsManyValuesAsThereArePoints) {
  EXPECT_EQ(fault_with(48, "1,2"), 9);
  EXPECT_EQ(fault_with(49, ""), 9);
  EXPECT_EQ(fault_with(48, "1,2,3,4,oops"), 0) << "further ones are ignored";
  EXPECT_EQ(fault_with(48, " 1 , 2,3 "), 0);
  EXPECT_EQ(fault_with(48, "1,,3"), 13);
  EXPECT_EQ(fault_with(48, "x,2"), 13) << "the first thing wrong is what counts";
}

// A number in the usual notation is read by a fast path, any other by the general parser.
TEST_F(GraphFileReaderTest, EachNumberOfALineIsWhatItIsByItself) {
  const std::vector<std::vector<std::string>> lines = {
      {"1", " 2 ", "-.5"},   {"+3", "1E+2", "0"},      {" Inf ", "-7", "NaN"}, {"1e5", ".25", " 8"},
      {"-0", "1e-400", "3"}, {"0.1", "&H10", "1.5E3"}, {"2.", "-2.", "007"},   {" 1", "2", "3 "}};
  for (const std::vector<std::string>& fields : lines) {
    const std::string line = fields[0] + "," + fields[1] + "," + fields[2];
    std::vector<Double> expected;
    for (const std::string& field : fields) {
      const std::optional<Double> number = text_to_number(field);
      if (number) expected.push_back(*number);
    }
    const bool are_numbers = expected.size() == fields.size();
    ASSERT_EQ(fault_with(48, line), are_numbers ? 0 : 13) << line;
    if (!are_numbers) continue;
    const GraphFile graph = read_bytes(sample_with(48, line));
    for (int i = 1; i <= 3; ++i) {
      EXPECT_EQ(std::bit_cast<std::uint64_t>(graph.xyarr(1, i)),
                std::bit_cast<std::uint64_t>(expected[static_cast<std::size_t>(i - 1)]))
          << line;
    }
  }
}

// Far longer than what is read from a file at a time.
TEST_F(GraphFileReaderTest, LongLinesAreReadToTheLastDigit) {
  constexpr int kCount = 30'000;
  std::string line;
  const auto value = [](int i) { return (i % 2 == 0 ? 1 : -1) * std::sqrt(i) * 1e-3; };
  for (int i = 1; i <= kCount; ++i) line += (i == 1 ? "" : ",") + number_to_text(value(i));
  std::vector<std::string> lines = test::sample_lines();
  lines[2] = std::to_string(kCount);
  lines[47] = lines[48] = line;
  const GraphFile graph = read_bytes(test::joined(lines));
  for (int i = 1; i <= kCount; ++i) {
    ASSERT_EQ(graph.xyarr(1, i), value(i)) << i;
    ASSERT_EQ(graph.xyarr(2, i), value(i)) << i;
  }
}

TEST_F(GraphFileReaderTest, ANameWithACommaShiftsTheNamesAndTheLastIsLost) {
  const GraphFile graph = read_bytes(sample_with(50, "x,a,b"));
  EXPECT_EQ(graph.names(1), "x");
  EXPECT_EQ(graph.names(2), "a");
  EXPECT_EQ(graph.names.upper(), 2);
}

TEST_F(GraphFileReaderTest, NamesThatAreNotThereAreEmpty) {
  EXPECT_EQ(read_bytes(sample_with(50, "x")).names(2), "");
}

TEST_F(GraphFileReaderTest, WithoutCurvesOneDataLineIsRead) {
  std::vector<std::string> lines = test::sample_lines();
  lines[3] = "0";
  lines.erase(lines.begin() + 48);
  lines[48] = "x";
  lines[49] = "";
  const GraphFile graph = read_bytes(test::joined(lines));
  EXPECT_EQ(graph.num_y, 0);
  EXPECT_EQ(graph.xyarr(1, 3), 3);
  EXPECT_EQ(graph.names(1), "x");
  EXPECT_EQ(graph.functions(1), "x^2");
}

TEST_F(GraphFileReaderTest, NoFunctionsStillNeedTheirEmptyLine) {
  std::vector<std::string> lines = test::sample_lines();
  lines[4] = "0";
  lines[51] = "";
  EXPECT_EQ(read_bytes(test::joined(lines)).functions.upper(), 0);
  lines.pop_back();
  EXPECT_EQ(fault_of([&] { read_bytes(test::joined(lines)); }), 62);
}

TEST_F(GraphFileReaderTest, MinusOnePointsAreNone) {
  const GraphFile graph = read_bytes(sample_with(3, "-1"));
  EXPECT_EQ(graph.num_data, -1);
  EXPECT_EQ(graph.xyarr.upper_point(), -1);
  EXPECT_EQ(graph.names(1), "x");
}

TEST_F(GraphFileReaderTest, CountsThatLieAreCaught) {
  EXPECT_EQ(fault_with(3, "-2"), 9);
  EXPECT_EQ(fault_with(3, "-32768"), 9);
  EXPECT_EQ(fault_with(4, "-1"), 9);
  EXPECT_EQ(fault_with(4, "-32768"), 9);
  EXPECT_EQ(fault_with(4, "32767"), 6) << "the names would have one entry more";
  EXPECT_EQ(fault_with(3, "32767"), 9);
  EXPECT_EQ(fault_with(4, "32766"), 13) << "the names are read as numbers";
  EXPECT_EQ(fault_with(5, "32767"), 0);
  EXPECT_EQ(fault_with(5, "-5"), 0);
  std::vector<std::string> lines = test::sample_lines();
  lines[2] = "32767";
  lines[3] = "32766";
  EXPECT_EQ(fault_of([&] { read_bytes(test::joined(lines)); }), 9);
}

TEST_F(GraphFileReaderTest, AsksTheFieldServiceForNamesFlagsAndExpressions) {
  struct Recording final : TextFieldTool {
    String GetField(std::string_view text, int field, std::string_view delimiter) const override {
      calls += String(text) + " " + std::to_string(field) + String(delimiter) + "\n";
      return "1";
    }
    mutable std::string calls;
  } tool;
  InputFile file(write("a.gdf", test::joined(test::sample_lines())));
  const GraphFile graph = read_graph_file(file, document, tool, '.');
  EXPECT_EQ(tool.calls, "x,y 1,\nx,y 2,\nTrue 1,\nx^2 1,\n");
  EXPECT_EQ(graph.names(2), "1");
}

TEST_F(GraphFileReaderTest, NamesBeyondWhatAGraphCanShowAreSplitAlike) {
  std::vector<std::string> lines = test::sample_lines();
  constexpr int kCurves = 200;
  lines[2] = "0";
  lines[3] = std::to_string(kCurves);
  lines.erase(lines.begin() + 47, lines.begin() + 51);
  std::string names = "x";
  std::string flags = "True";
  for (int k = 1; k <= kCurves - 5; ++k) names += ",n" + std::to_string(k);
  for (int k = 2; k <= kCurves; ++k) flags += k % 3 == 0 ? ",False" : ",True";
  std::vector<std::string> tail(kCurves + 1, "");
  tail.push_back(names + ",");
  tail.push_back(flags);
  lines.insert(lines.begin() + 47, tail.begin(), tail.end());
  const GraphFile graph = read_bytes(test::joined(lines));
  for (int k = 1; k <= kCurves; ++k) {
    EXPECT_EQ(graph.names(k + 1), k <= kCurves - 5 ? "n" + std::to_string(k) : "") << k;
    EXPECT_EQ(graph.visible(k), Boolean(k % 3 != 0)) << k;
  }
}

TEST_F(GraphFileReaderTest, ALongLineOfManyNamesCostsNoMoreThanItsLength) {
  std::vector<std::string> lines = test::sample_lines();
  lines[2] = "0";
  lines[3] = "32766";
  lines[4] = "32767";
  lines.resize(47);
  std::string text = test::joined(lines);
  for (int c = 1; c <= 32767; ++c) text += "\n";
  std::string names;
  for (int c = 1; c <= 32767; ++c) names += std::string(300, 'n') + ",";
  std::string flags = "0";
  for (int c = 2; c <= 32766; ++c) flags += ",1";
  text += names + "\n" + flags + "\n" + names;
  const GraphFile graph = read_bytes(text);
  EXPECT_EQ(graph.names(32767), std::string(300, 'n'));
  EXPECT_EQ(graph.visible(1), Boolean(false));
  EXPECT_EQ(graph.visible(32766), Boolean(true));
}

TEST_F(GraphFileReaderTest, SingleByteTextBecomesUtf8) {
  std::vector<std::string> lines = test::sample_lines();
  lines[5] =
      "Gr\xF6\xDF"
      "e";
  lines[6] =
      "Gr\xC3\xB6\xC3\x9F"
      "e";
  lines[49] = "x,\x80";
  const GraphFile graph = read_bytes(test::joined(lines));
  EXPECT_EQ(document.Title,
            "Gr\xC3\xB6\xC3\x9F"
            "e");
  EXPECT_EQ(document.SubTitle, document.Title);
  EXPECT_EQ(graph.names(2), "\xE2\x82\xAC");
}

TEST_F(GraphFileReaderTest, LineEndsMayBeLfAndTheLastMayBeMissing) {
  EXPECT_EQ(read_bytes(test::joined(test::sample_lines(), "\n")).functions(1), "x^2");
  std::string text = test::joined(test::sample_lines());
  text.resize(text.size() - 2);
  EXPECT_EQ(read_bytes(text).functions(1), "x^2");
}

}  // namespace
}  // namespace kurv
