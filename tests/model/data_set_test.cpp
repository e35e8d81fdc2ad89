#include "model/data_set.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;

// The format that is chosen for y limits lo..hi in place of "0.0".
String format_for(Double lo, Double hi) {
  GraphDocument document;
  document.ymin = lo;
  document.ymax = hi;
  document.xmin = 0;
  document.xmax = 50;
  choose_label_formats(document, *library_services().numeric);
  return document.AxisLabelFormatY;
}

TEST(LabelFormats, FollowSpanAndMagnitude) {
  EXPECT_EQ(format_for(0, 0.004), "0.00E+0");
  EXPECT_EQ(format_for(0, 0.5), "0.0000");
  EXPECT_EQ(format_for(0, 50), "0.0") << "a middling span keeps the format";
  EXPECT_EQ(format_for(0, 500), "0");
  EXPECT_EQ(format_for(0, 10000), "0") << "exactly ten thousand is not above it";
  EXPECT_EQ(format_for(0, 10001), "0.00E+0");
  EXPECT_EQ(format_for(-6000, 6000), "0.00E+0");
  EXPECT_EQ(format_for(0, 0.01), "0.00E+0") << "a span of a hundredth";
  EXPECT_EQ(format_for(5, 5), "0.00E+0") << "no span at all";
  EXPECT_EQ(format_for(0, 1), "0.0");
  EXPECT_EQ(format_for(0, 100), "0.0");
  EXPECT_EQ(format_for(500, 0), "0") << "crossed limits have a span too";
}

TEST(LabelFormats, EachAxisHasItsOwn) {
  GraphDocument document;
  document.ymin = 0;
  document.ymax = 500;
  document.xmin = 0;
  document.xmax = 0.5;
  choose_label_formats(document, *library_services().numeric);
  EXPECT_EQ(document.AxisLabelFormatY, "0");
  EXPECT_EQ(document.AxisLabelFormatX, "0.0000");
}

TEST(LabelFormats, LogarithmIsAskedOfTheNumericHelper) {
  struct Large final : NumericService {
    Double decimal_logarithm(Double) const override { return 5; }
    Double round_down(Double value) const override { return value; }
    Double round_up(Double value) const override { return value; }
    Double larger_of(Double value, Double) const override { return value; }
  };
  GraphDocument document;
  document.xmax = document.ymax = 50;
  choose_label_formats(document, Large());
  EXPECT_EQ(document.AxisLabelFormatX, "0.00E+0");
}

TEST(Validate, OnePointHasBothMessages) {
  TestHost host;
  host.load({4}, {7});
  ASSERT_EQ(host.shell.messages.size(), 1U);
  EXPECT_EQ(host.shell.messages[0].text,
            "Graph cannot be plotted with 1 or less x axis values.\r\n"
            "Graph cannot be plotted when all x values are the same.");
  EXPECT_EQ(host.shell.messages[0].flags, 16);
  EXPECT_EQ(host.shell.messages[0].title, "KURV Guide");
  EXPECT_FALSE(host.document().GraphValid);
}

TEST(Validate, EqualXHaveTheSecondMessageAlone) {
  TestHost host;
  host.load({4, 4}, {7, 8});
  ASSERT_EQ(host.shell.messages.size(), 1U);
  EXPECT_EQ(host.shell.messages[0].text, "Graph cannot be plotted when all x values are the same.");
}

TEST(Validate, NoPointAtAllHasTheFirstMessageAndALineBreak) {
  TestHost host;
  host.load({}, {});
  ASSERT_EQ(host.shell.messages.size(), 1U);
  EXPECT_EQ(host.shell.messages[0].text,
            "Graph cannot be plotted with 1 or less x axis values.\r\n");
}

TEST(RefreshSortedData, KeepsBothOrdersAndLeavesTheSelectedOne) {
  for (const bool sorted : {false, true}) {
    TestHost host;
    host.control.set_SortXY(sorted);
    host.load({3, 1, 2}, {30, 10, 20});
    GraphDocument& document = host.document();
    EXPECT_EQ(document.xyArrUnsorted(1, 1), 3);
    EXPECT_EQ(document.xyArrUnsorted(2, 1), 30);
    EXPECT_EQ(document.xyArrSorted(1, 1), 1);
    EXPECT_EQ(document.xyArrSorted(2, 1), 10);
    EXPECT_TRUE(document.xyArr == (sorted ? document.xyArrSorted : document.xyArrUnsorted));
    host.control.set_SortXY(!sorted);
    host.control.build_the_graph();
    EXPECT_TRUE(document.xyArr == (sorted ? document.xyArrUnsorted : document.xyArrSorted));
  }
}

TEST(RefreshSortedData, RemembersThePlaceOfEachSortedPoint) {
  TestHost host;
  host.load({3, 1, 2, 1}, {30, 10, 20, 11});
  const GraphDocument& document = host.document();
  for (int i = 1; i <= 4; ++i) {
    const int place = document.sorted_places(i);
    EXPECT_EQ(document.xyArrSorted(1, i), document.xyArrUnsorted(1, place)) << i;
    EXPECT_EQ(document.xyArrSorted(2, i), document.xyArrUnsorted(2, place)) << i;
  }
  const unsigned revision = document.data_revision;
  host.load({1, 2}, {10, 20});
  EXPECT_EQ(document.sorted_places.upper(), 2) << "no more than there are points";
  EXPECT_EQ(document.sorted_places(2), 2);
  EXPECT_NE(document.data_revision, revision);
}

TEST(RefreshSortedData, PlacesOutliveADirectSortOfThePlottedData) {
  TestHost host;
  host.load({3, 1, 2}, {30, 10, 20});
  host.control.Sort_xy();
  EXPECT_EQ(host.document().sorted_places(1), 2);
  EXPECT_EQ(host.document().xyArrUnsorted(1, 1), 3);
}

TEST(ValidatePoints, AsksForTwoFiniteXThatDiffer) {
  constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
  constexpr Double kInf = std::numeric_limits<Double>::infinity();
  const auto verdict = [](const std::vector<Double>& x) {
    GraphDocument document;
    document.NumData = static_cast<Integer>(x.size());
    document.xyArrUnsorted = Matrix<Double>(0, 150, 0, document.NumData);
    for (int i = 1; i <= document.NumData; ++i) {
      document.xyArrUnsorted(1, i) = x[static_cast<std::size_t>(i - 1)];
    }
    return validate_points(document).value_or("");
  };
  EXPECT_EQ(verdict({1, 2}), "");
  EXPECT_EQ(verdict({kNaN, 1, kInf, 1, 2}), "");
  for (const auto& x : std::vector<std::vector<Double>>{
           {1, 1}, {1, kNaN}, {kNaN, kNaN}, {1, kInf}, {-kInf, kInf}}) {
    EXPECT_EQ(verdict(x), "Graph cannot be plotted when all x values are the same.");
  }
  EXPECT_EQ(verdict({}),
            "Graph cannot be plotted with 1 or less x axis values.\r\n"
            "Graph cannot be plotted when all x values are the same.");
}

}  // namespace
}  // namespace kurv
