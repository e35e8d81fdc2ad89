// plot(), and the mapping between pixels and data.
#include <gmock/gmock.h>

#include <limits>
#include <stdexcept>

#include "tests/qt/widget/widget_support.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string refusal_of(const Graph& graph) {
  KurvGraph widget;
  widget.plot(small_graph());
  Listener listener(widget);
  try {
    widget.plot(graph);
  } catch (const std::invalid_argument& error) {
    EXPECT_EQ(widget.Title(), "Small") << "nothing has changed";
    EXPECT_EQ(listener.redraws_since(), 0);
    return error.what();
  }
  return "nothing was refused";
}

TEST(WidgetPlot, TakesOrdinaryContainers) {
  KurvGraph graph;
  graph.set_Left_margine(900);
  graph.plot({.title = "Größe",
              .x_name = "t",
              .x = {10, 20, 30},
              .y = {{"up", {1, 2, kNaN}}, {"down", {9, 5, 1}}},
              .connected = false,
              .markers = true});
  EXPECT_EQ(graph.Title(), "Größe");
  EXPECT_EQ(graph.xmin(), 10);
  EXPECT_EQ(graph.xmax(), 30);
  EXPECT_LE(graph.ymin(), 1);
  EXPECT_GE(graph.ymax(), 9);
  EXPECT_FALSE(graph.Connected());
  EXPECT_TRUE(graph.DrawMarkers());
  EXPECT_EQ(graph.Left_margine(), 900);
}

TEST(WidgetPlot, TakesAsMuchAsThereIsRoomFor) {
  KurvGraph graph;
  Graph large;
  for (int i = 0; i < 300; ++i) large.x.push_back(i);
  for (int k = 0; k < 149; ++k) large.y.push_back({QString::number(k), large.x});
  large.expressions.assign(30, "x");
  graph.plot(large);
  EXPECT_EQ(graph.xmax(), 299);
  Graph longest{.x = std::vector<double>(32767, 1), .y = {{"y", std::vector<double>(32767, 2)}}};
  longest.x.back() = 2;
  graph.plot(longest);
  EXPECT_EQ(graph.xmax(), 2);
}

TEST(WidgetPlot, RefusesWhatCannotBeDrawnInASentence) {
  EXPECT_EQ(refusal_of({.x = {1, 2}}), "A graph needs at least one series of y values.");
  EXPECT_EQ(refusal_of({.x = {1}, .y = {{"a", {1}}}}), "A graph needs at least two points, not 1.");
  EXPECT_EQ(refusal_of({.x = {1, 2, 3}, .y = {{"a", {1, 2}}}}),
            "There are 3 x values, but the series \"a\" has 2.");
  EXPECT_EQ(refusal_of({.x = {5, 5, kNaN}, .y = {{"a", {1, 2, 3}}}}),
            "A graph needs at least two different x values.");
  EXPECT_EQ(refusal_of({.x = {kNaN, kNaN}, .y = {{"a", {1, 2}}}}),
            "A graph needs at least two different x values.");
  EXPECT_EQ(refusal_of({.x = {1, kInfinity}, .y = {{"a", {1, 2}}}}),
            "Value 2 of x is infinite; NaN stands for a missing value.");
  EXPECT_EQ(refusal_of({.x = {1, 2}, .y = {{"a", {-kInfinity, 2}}}}),
            "Value 1 of the series \"a\" is infinite; NaN stands for a missing value.");
  EXPECT_EQ(refusal_of({.x = {1, 2}, .y = {{"a", {kNaN, kNaN}}}}),
            "None of the series has a number in it.");
}

TEST(WidgetPlot, RefusesMoreThanThereIsRoomFor) {
  const std::vector<double> two{1, 2};
  EXPECT_THAT(refusal_of({.x = two, .y = std::vector<Series>(150, Series{"a", two})}),
              HasSubstr("at most 149 series, not 150"));
  EXPECT_THAT(refusal_of({.x = two, .y = {{"a", two}}, .expressions = std::vector<QString>(31)}),
              HasSubstr("at most 30 expressions, not 31"));
  const std::vector<double> many(32768, 1);
  EXPECT_THAT(refusal_of({.x = many, .y = {{"a", many}}}),
              HasSubstr("at most 32767 points, not 32768"));
}

TEST(WidgetPlot, NamesABadExpressionBeforeTheSentenceOfAddFunction) {
  KurvGraph other;
  const std::vector<double> two{1, 2};
  for (const char* const bad : {"sin(", "x+y", "X*x", "2x)", "", " "}) {
    const std::optional<QString> sentence = other.add_function(bad);
    ASSERT_TRUE(sentence) << bad;
    EXPECT_EQ(
        refusal_of({.title = "Other", .x = two, .y = {{"a", two}}, .expressions = {"x", bad}}),
        "Expression \"" + std::string(bad) + "\": " + sentence->toStdString());
  }
}

TEST(WidgetPlot, ARefusedExpressionLeavesDataAndFunctionsAlone) {
  KurvGraph graph;
  Graph good = small_graph();
  good.expressions = {"X^2", "3"};
  graph.plot(good);
  EXPECT_THAT(graph.functions(), ElementsAre("X^2", "3"));
  const double highest = graph.ymax();
  EXPECT_THROW(graph.plot({.x = {1, 2}, .y = {{"a", {0, 900}}}, .expressions = {"y"}}),
               std::invalid_argument);
  EXPECT_THAT(graph.functions(), ElementsAre("X^2", "3"));
  EXPECT_EQ(graph.ymax(), highest);
}

TEST(WidgetPlot, PixelsAndDataLeadToEachOther) {
  KurvGraph graph;
  graph.resize(800, 600);
  EXPECT_FALSE(graph.data_at({400, 300})) << "there is no graph yet";
  EXPECT_FALSE(graph.pixel_of(1, 1));
  graph.plot(small_graph());
  const QPointF low = graph.pixel_of(graph.xmin(), graph.ymin()).value();
  EXPECT_NEAR(low.x(), 800 / 15.0, 0.1);
  EXPECT_NEAR(low.y(), 600 - 520 / 15.0, 0.1);
  for (const QPointF data : {QPointF(1.25, 3), QPointF(2, 0), QPointF(-5, 100)}) {
    const QPointF back = graph.data_at(graph.pixel_of(data.x(), data.y()).value()).value();
    EXPECT_NEAR(back.x(), data.x(), 1e-9);
    EXPECT_NEAR(back.y(), data.y(), 1e-9);
  }
}

TEST(WidgetPlot, PlacesThatDoNotExistAreNone) {
  KurvGraph graph;
  graph.plot(small_graph());
  EXPECT_FALSE(graph.pixel_of(kNaN, 1));
  EXPECT_FALSE(graph.pixel_of(1, kInfinity));
  EXPECT_FALSE(graph.data_at({kNaN, 1}));
  graph.set_xmax(graph.xmin());
  EXPECT_FALSE(graph.pixel_of(1, 1));
  EXPECT_FALSE(graph.data_at({10, 10}));
}

}  // namespace
}  // namespace kurv::test
