#include "render/axes.h"

#include "render/number_format.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/golden.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;

std::vector<std::string> lines_starting(const std::string& log, const std::string& start) {
  std::vector<std::string> found;
  std::istringstream stream(log);
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with(start)) found.push_back(line);
  }
  return found;
}

// The axis pass alone on a surface of 12000 x 9000 twips; the plot is 10400 x 8000.
struct AxesHost : TestHost {
  AxesHost() {
    load({0, 10}, {0, 20});
    surface.clear_log();
  }
  std::string drawn() {
    surface.clear_log();
    DrawAxes(document(), *services.numeric, layout(), surface);
    return surface.log();
  }
};

TEST(Axes, WholePass) {
  AxesHost host;
  test::expect_golden("axes.txt", host.drawn());
}

TEST(Axes, BothGrids) {
  AxesHost host;
  host.control.set_X_grid(true);
  host.control.set_Y_grid(true);
  test::expect_golden("axes_grids.txt", host.drawn());
}

TEST(Axes, TicksStandTenTwipsOffTheirPlaces) {
  AxesHost host;
  const auto ticks = lines_starting(host.drawn(), "segment ");
  ASSERT_EQ(ticks.size(), 22U);
  EXPECT_EQ(ticks[10], "segment 800 470 860 470 8") << "the top y tick is 10 above the border";
  EXPECT_EQ(ticks[21], "segment 11190 8410 11190 8480 8") << "the last x tick is 10 to the left";
}

TEST(Axes, EveryTickUpToTwentyHasALabelThenEverySecondThenEveryThird) {
  const auto labels = [](Integer ticks) {
    AxesHost host;
    host.control.set_NumTicks(ticks);
    return lines_starting(host.drawn(), "print ").size();
  };
  // One print is the caption; both axes have the same number of labels.
  EXPECT_EQ(labels(19), 1U + 2 * 20);
  EXPECT_EQ(labels(20), 1U + 2 * 21);
  EXPECT_EQ(labels(21), 1U + 2 * 11);
  EXPECT_EQ(labels(39), 1U + 2 * 20);
  EXPECT_EQ(labels(40), 1U + 2 * 14);
}

TEST(Axes, GridLengthLagsBehindAChangeOfMarginsByOneRedraw) {
  AxesHost host;
  host.control.set_X_grid(true);
  host.control.set_Right_margine(400);
  EXPECT_NE(host.drawn().find("segment 800 470 11200 470 8\n"), std::string::npos)
      << "the first redraw ends short of the right border";
  EXPECT_NE(host.drawn().find("segment 800 470 11600 470 8\n"), std::string::npos);
}

TEST(Axes, VerticalGridLinesLagBehindTheTopMarginToo) {
  AxesHost host;
  host.control.set_Y_grid(true);
  host.control.set_Top_margine(280);
  EXPECT_NE(host.drawn().find("segment 790 480 790 8480 8\n"), std::string::npos);
  EXPECT_NE(host.drawn().find("segment 790 280 790 8480 8\n"), std::string::npos);
}

TEST(Axes, WideYLabelStartsTenTwipsFromTheEdge) {
  AxesHost host;
  host.control.set_ymax(123456789);
  const auto labels = lines_starting(host.drawn(), "print ");
  EXPECT_EQ(labels[11], "print 10 374 \"123456789.0\"");
}

TEST(Axes, YLabelIsCentredInTheMargin) {
  AxesHost host;
  const auto labels = lines_starting(host.drawn(), "print ");
  // "20.0" is 320 twips wide in the made-up metrics: 400 - 160.
  EXPECT_EQ(labels[11], "print 240 374 \"20.0\"");
}

TEST(Axes, XLabelStartsAHundredTwipsLeftOfItsTickWhateverItsWidth) {
  AxesHost host;
  host.control.set_AxisLabelFormatX("0.00000000");
  const auto labels = lines_starting(host.drawn(), "print ");
  EXPECT_EQ(labels[12], "print 700 8530 \"0.00000000\"");
  EXPECT_EQ(labels[22], "print 11100 8530 \"10.00000000\"");
}

TEST(Axes, CaptionBeginsAtTheMiddleOfThePlot) {
  AxesHost host;
  host.document().yVarName(1) = "time";
  EXPECT_EQ(lines_starting(host.drawn(), "print ")[0], "print 6000 8722 \"time\"");
  const Rect& area = host.layout().shpXcaption;
  EXPECT_EQ(area.left, 5950);
  EXPECT_EQ(area.top, 8710);
  EXPECT_EQ(area.width, 320 + 100);
  EXPECT_EQ(area.height, 192);
}

TEST(Axes, HitAreasSurroundAxesAndLabels) {
  AxesHost host;
  host.drawn();
  const Layout& layout = host.layout();
  EXPECT_EQ(layout.shpGraphBorder[0].top, 8430);
  EXPECT_EQ(layout.shpGraphBorder[0].left, 750);
  EXPECT_EQ(layout.shpGraphBorder[0].width, 10500);
  EXPECT_EQ(layout.shpGraphBorder[0].height, 100);
  EXPECT_EQ(layout.shpGraphBorder[1].top, 430);
  EXPECT_EQ(layout.shpGraphBorder[1].left, 750);
  EXPECT_EQ(layout.shpGraphBorder[1].width, 100);
  EXPECT_EQ(layout.shpGraphBorder[1].height, 8100);
  // "0.00" is narrower than "10.00", and the smaller width of the two counts: 320 twips.
  EXPECT_EQ(layout.shpXlabels.left, 480);
  EXPECT_EQ(layout.shpXlabels.top, 8530);
  EXPECT_EQ(layout.shpXlabels.width, 10400 + 640);
  EXPECT_EQ(layout.shpXlabels.height, 192);
  // The last label starts at 240.
  EXPECT_EQ(layout.shpYlabels.left, 190);
  EXPECT_EQ(layout.shpYlabels.top, 480 - 192);
  EXPECT_EQ(layout.shpYlabels.width, 800 - 240 - 100);
  EXPECT_EQ(layout.shpYlabels.height, 8000 + 2 * 192);
}

TEST(Axes, HitAreasKeepTheirLowerBounds) {
  AxesHost host;
  for (auto set : {&Control::set_Left_margine, &Control::set_Top_margine,
                   &Control::set_Right_margine, &Control::set_Bottom_margine}) {
    (host.control.*set)(0);
  }
  host.drawn();
  EXPECT_EQ(host.layout().shpGraphBorder[0].left, 5);
  EXPECT_EQ(host.layout().shpGraphBorder[1].top, 5);
  EXPECT_EQ(host.layout().shpXlabels.left, 0);
  EXPECT_EQ(host.layout().shpYlabels.left, 10);
  EXPECT_EQ(host.layout().shpYlabels.top, 10);
  EXPECT_EQ(host.layout().shpYlabels.width, 10);
}

TEST(Axes, NoTicksAreADivisionByZero) {
  AxesHost host;
  host.control.set_NumTicks(0);
  try {
    host.drawn();
    FAIL();
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.kind(), FaultKind::kDivisionByZero);
  }
}

TEST(Axes, SenselessFormatIsPrintedAsTheFormattingReturnsIt) {
  AxesHost host;
  host.control.set_AxisLabelFormatY("E+");
  host.control.set_AxisLabelFormatX("no digits");
  const auto labels = lines_starting(host.drawn(), "print ");
  ASSERT_EQ(labels.size(), 23U);
  EXPECT_EQ(labels[1], "print 320 8374 \"" + format_number(0, "E+") + "\"");
  EXPECT_EQ(labels[12], "print 700 8530 \"" + format_number(0, "no digits") + "\"");
}

TEST(Axes, TickWidthIsWhateverThePenHad) {
  AxesHost host;
  EXPECT_EQ(lines_starting(host.drawn(), "width ").size(), 1U) << "only the border sets it";
}

TEST(Axes, LabelPositionsAreAskedOfTheNumericHelper) {
  struct Fixed final : NumericService {
    Double decimal_logarithm(Double) const override { return 0; }
    Double round_down(Double value) const override { return value; }
    Double round_up(Double value) const override { return value; }
    Double larger_of(Double, Double) const override { return 77; }
  };
  AxesHost host;
  host.surface.clear_log();
  DrawAxes(host.document(), Fixed(), host.layout(), host.surface);
  EXPECT_EQ(lines_starting(host.surface.log(), "print 77 ").size(), 11U) << "every y label";
  EXPECT_EQ(host.layout().shpXlabels.left, 77);
}

}  // namespace
}  // namespace kurv
