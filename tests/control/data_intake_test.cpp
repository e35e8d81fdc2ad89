#include <gtest/gtest.h>

#include <functional>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::columns;
using test::flags;
using test::names;
using test::points;
using test::TestHost;

FaultKind fault_of(const std::function<void()>& call) {
  try {
    call();
  } catch (const Fault& fault) {
    return fault.kind();
  }
  return FaultKind{};
}

void load_counts(TestHost& host, Integer num_data, Integer num_y, Integer num_functions = 0) {
  host.control.scatter_graph(columns({{1, 2, 3}, {4, 5, 6}}), points({1, 2, 3}), num_data, num_y,
                             String("T"), "x", names({"a", "b"}), num_functions, names({"x"}));
}

void load2_counts(TestHost& host, Integer num_data, Integer num_y) {
  host.control.scatter_graph2("T", columns({{1, 2, 3}, {4, 5, 6}}), names({"x", "a"}), num_data,
                              num_y, flags({true}), 0, {});
}

TEST(ScatterGraph, StoresEverythingAndDraws) {
  TestHost host;
  host.control.scatter_graph(columns({{1, 2, 3}, {4, 5, 6}}), points({10, 20, 30}), 3, 2,
                             Variant(2.5), "time", names({"a", "b"}), 1, names({"x^2", "unused"}),
                             Boolean(true), Boolean(true));
  const GraphDocument& document = host.document();
  EXPECT_EQ(document.NumData, 3);
  EXPECT_EQ(document.NumY, 2);
  EXPECT_EQ(document.NumYFunc, 1);
  EXPECT_EQ(document.Title, "2.5") << "the title is converted to text";
  EXPECT_TRUE(document.Connected.is_exactly_true());
  EXPECT_TRUE(document.DrawMarkers.is_exactly_true());
  EXPECT_EQ(document.xyArr(1, 3), 30);
  EXPECT_EQ(document.xyArr(2, 1), 1);
  EXPECT_EQ(document.xyArr(3, 3), 6);
  EXPECT_EQ(document.yVarName(1), "time");
  EXPECT_EQ(document.yVarName(2), "a");
  EXPECT_EQ(document.yVarName(3), "b");
  EXPECT_TRUE(document.y_visible(2).is_exactly_true());
  EXPECT_EQ(document.y_func(1).expression, "x^2");
  EXPECT_EQ(document.y_func(1).label, "x^2");
  EXPECT_TRUE(document.y_func(1).visible.is_exactly_true());
  EXPECT_EQ(document.y_func(2).expression, "");
  EXPECT_FALSE(document.y_func(2).visible);
  EXPECT_TRUE(document.GraphValid);
  EXPECT_TRUE(document.DataFromHost);
  EXPECT_NE(host.surface.log().find("cls\n"), std::string::npos);
  EXPECT_TRUE(host.shell.messages.empty());
}

TEST(ScatterGraph, OmittedSwitchesCountAsFalse) {
  TestHost host;
  host.document().Connected = true;
  load_counts(host, 3, 2);
  EXPECT_EQ(host.document().Connected, Boolean(false));
  EXPECT_EQ(host.document().DrawMarkers, Boolean(false));
}

TEST(ScatterGraph, MatrixGoesFromColumnZeroTo150) {
  TestHost host;
  load_counts(host, 3, 2);
  EXPECT_EQ(host.document().xyArr.upper_column(), 150);
  EXPECT_EQ(host.document().xyArr.upper_point(), 3);
  EXPECT_EQ(host.document().yVarName.upper(), 3);
  EXPECT_EQ(host.document().y_visible.upper(), 2);
}

TEST(ScatterGraph, NoTicksBecomeTen) {
  TestHost host;
  host.control.set_NumTicks(0);
  load_counts(host, 3, 2);
  EXPECT_EQ(host.control.NumTicks(), 10);
}

TEST(ScatterGraph, RefusedDataStayButAreNotDrawn) {
  TestHost host;
  host.load({4, 4}, {7, 8});
  EXPECT_FALSE(host.document().GraphValid);
  EXPECT_EQ(host.document().xyArr(2, 2), 8);
  EXPECT_FALSE(host.document().DataFromHost) << "as it was before";
  EXPECT_EQ(host.surface.log(), "");
  EXPECT_EQ(host.redrawn(), "");
  host.load({1, 2}, {3, 4});
  EXPECT_TRUE(host.document().DataFromHost);
  host.load({4, 4}, {7, 8});
  EXPECT_TRUE(host.document().DataFromHost) << "as it was before";
}

TEST(ScatterGraph, ShortArraysAreOutOfRange) {
  for (const Integer num_data : {Integer{4}, Integer{32767}}) {
    TestHost host;
    EXPECT_EQ(fault_of([&] { load_counts(host, num_data, 2); }), FaultKind::kSubscriptOutOfRange);
    EXPECT_EQ(host.document().NumData, num_data) << "what was written stays";
  }
  TestHost host;
  EXPECT_EQ(fault_of([&] { load_counts(host, 3, 3); }), FaultKind::kSubscriptOutOfRange);
  EXPECT_EQ(fault_of([&] { load_counts(host, 3, 2, 2); }), FaultKind::kSubscriptOutOfRange);
  EXPECT_EQ(
      fault_of([&] {
        host.control.scatter_graph(columns({{1, 2}}), points({1, 2}), 2, 1, {}, "x", {}, 0, {});
      }),
      FaultKind::kSubscriptOutOfRange)
      << "names are too few";
  EXPECT_NO_THROW(load_counts(host, 3, 2)) << "the control lives on";
}

TEST(ScatterGraph, HoldsAHundredAndFortyNineCurvesAndNoMore) {
  const std::vector<std::vector<Double>> many(150, {1, 2});
  const std::vector<String> curve_names(150, "c");
  TestHost host;
  host.control.scatter_graph(columns(many), points({1, 2}), 2, 149, String("T"), "x",
                             names(curve_names), 0, {});
  EXPECT_TRUE(host.document().GraphValid);
  EXPECT_EQ(fault_of([&] {
              host.control.scatter_graph(columns(many), points({1, 2}), 2, 150, String("T"), "x",
                                         names(curve_names), 0, {});
            }),
            FaultKind::kSubscriptOutOfRange);
}

TEST(ScatterGraph, AnyNumberOfCurvesWithoutPointsIsRefusedWithTheMessage) {
  const List<String> curve_names = names(std::vector<String>(200, "c"));
  for (const Integer points_claimed : {Integer{0}, Integer{-1}}) {
    for (const Integer curves : {Integer{149}, Integer{150}, Integer{200}}) {
      SCOPED_TRACE(testing::Message() << curves << " curves of " << points_claimed);
      TestHost host;
      EXPECT_NO_THROW(host.control.scatter_graph({}, {}, points_claimed, curves, String("T"), "x",
                                                 curve_names, 0, {}));
      ASSERT_EQ(host.shell.messages.size(), 1U);
      EXPECT_EQ(host.shell.messages[0].text,
                "Graph cannot be plotted with 1 or less x axis values.\r\n");
      EXPECT_FALSE(host.document().GraphValid);
      EXPECT_NO_THROW(host.control.Restore_Grf());
    }
  }
}

TEST(ScatterGraph, ImpossibleCountsAreErrorsAndZeroIsNone) {
  TestHost host;
  EXPECT_EQ(fault_of([&] { load_counts(host, -2, 1); }), FaultKind::kSubscriptOutOfRange);
  EXPECT_EQ(fault_of([&] { load_counts(host, 3, -2); }), FaultKind::kSubscriptOutOfRange);
  EXPECT_EQ(fault_of([&] { load_counts(host, 3, 32767); }), FaultKind::kOverflow)
      << "the count of names has no successor";
  EXPECT_NO_THROW(load_counts(host, -1, 1));
  EXPECT_NO_THROW(load_counts(host, 0, 0));
  EXPECT_EQ(host.shell.messages.size(), 2U);
}

TEST(ScatterGraph, MoreThanThirtyFunctionsFillTheThirtySlots) {
  TestHost host;
  host.control.scatter_graph(columns({{1, 2}}), points({1, 2}), 2, 1, String("T"), "x",
                             names({"a"}), 40, names(std::vector<String>(40, "x")));
  EXPECT_EQ(host.document().NumYFunc, 40);
  EXPECT_EQ(host.document().y_func(30).expression, "x");
}

TEST(ScatterGraph, VisibilityOfCurvesThatRemainIsSetAfresh) {
  TestHost host;
  load_counts(host, 3, 2);
  host.document().y_visible(1) = false;
  load_counts(host, 3, 2);
  EXPECT_TRUE(host.document().y_visible(1));
}

TEST(ScatterGraph2, TakesNamesFlagsAndMatrixAsTheyCome) {
  TestHost host;
  host.control.scatter_graph2("T", columns({{1, 2}, {3, 4}, {5, 6}}),
                              names({"x", "a", "b", "c", "d"}), 2, 2,
                              flags({false, Boolean::from_bits(1)}), 0, {}, Boolean(true));
  const GraphDocument& document = host.document();
  EXPECT_EQ(document.yVarName.upper(), 5) << "the whole array of names is kept";
  EXPECT_EQ(document.yVarName(5), "d");
  EXPECT_EQ(document.y_visible(1), Boolean(false));
  EXPECT_EQ(document.y_visible(2), Boolean::from_bits(1));
  EXPECT_EQ(document.xyArr(3, 2), 6);
}

TEST(ScatterGraph2, CutsTwoHundredCurvesTo149) {
  const std::vector<std::vector<Double>> many(201, {1, 2});
  TestHost host;
  host.control.scatter_graph2("T", columns(many), names(std::vector<String>(201, "c")), 2, 200,
                              flags(std::vector<Boolean>(200, true)), 0, {}, Boolean(true));
  EXPECT_EQ(host.document().NumY, 149);
  EXPECT_EQ(host.document().y_visible.upper(), 149);
  EXPECT_EQ(host.document().yVarName.upper(), 201);
  EXPECT_TRUE(host.shell.messages.empty());
  const std::string log = host.surface.log();
  std::size_t segments_in_black = 0;  // curves 14, 28, ... 140: a segment and a sample
  for (std::size_t at = 0; (at = log.find(" 0\n", at)) != std::string::npos; ++at) {
    const std::size_t start = log.rfind('\n', at) + 1;
    if (log.compare(start, 8, "segment ") == 0) ++segments_in_black;
  }
  EXPECT_EQ(segments_in_black, 2 * 10U);
  EXPECT_NE(log.find("forecolor 9\n"), std::string::npos) << "curve 149";
}

TEST(ScatterGraph2, RefusedDataCountAsTheHosts) {
  TestHost host;
  host.control.scatter_graph2("T", columns({{1, 1}, {3, 4}}), names({"x", "a"}), 2, 1,
                              flags({true}), 0, {});
  EXPECT_FALSE(host.document().GraphValid);
  EXPECT_TRUE(host.document().DataFromHost);
}

TEST(ScatterGraph2, ShortArraysAndImpossibleCountsAreErrors) {
  TestHost host;
  EXPECT_EQ(fault_of([&] { load2_counts(host, 4, 1); }), FaultKind::kSubscriptOutOfRange);
  EXPECT_EQ(fault_of([&] { load2_counts(host, 3, 2); }), FaultKind::kSubscriptOutOfRange);
  EXPECT_EQ(fault_of([&] { load2_counts(host, -2, 1); }), FaultKind::kSubscriptOutOfRange);
  EXPECT_EQ(fault_of([&] { load2_counts(host, 3, -2); }), FaultKind::kSubscriptOutOfRange);
  EXPECT_TRUE(host.document().DataFromHost) << "set before anything can fail";
  EXPECT_NO_THROW(load2_counts(host, 3, 1));
}

TEST(ScatterGraph2, WithoutVisibleCurveValidatesTheOldLimits) {
  TestHost host;
  host.load({1, 2}, {3, 4});
  host.control.set_xmin(7);
  host.control.set_xmax(7);
  host.control.scatter_graph2("T", columns({{1, 2}, {3, 4}}), names({"x", "a"}), 2, 1,
                              flags({false}), 0, {});
  ASSERT_EQ(host.shell.messages.size(), 1U);
  EXPECT_EQ(host.shell.messages[0].text, "Graph cannot be plotted when all x values are the same.");
}

}  // namespace
}  // namespace kurv
