// The late-bound calls of automation.h on a widget, and its listeners.
#include <KurvGraph/automation.h>
#include <gmock/gmock.h>

#include <QPointer>
#include <QTest>
#include <span>
#include <string>
#include <vector>

#include "tests/qt/widget/widget_support.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

template <class Work>
FaultKind fault_of(Work work) {
  try {
    work();
  } catch (const Fault& fault) {
    return fault.kind();
  }
  return FaultKind{};
}

Variant sample(ValueType type) {
  if (type == ValueType::kInteger) return Integer{17};
  if (type == ValueType::kBoolean) return Boolean::from_bits(5);
  if (type == ValueType::kSingle) return Single{8.25F};
  if (type == ValueType::kDouble) return -1.0 / 3;
  return String("Ω text");
}

std::vector<Variant> small_data() {
  Matrix<Double> y(1, 1, 1, 2);
  y(1, 1) = 5;
  y(1, 2) = 9;
  return {y,
          List<Double>(1, std::vector<Double>{2, 4}),
          Integer{2},
          1.0,
          String("T"),
          String("x"),
          List<String>(1, std::vector<String>{"curve"}),
          Integer{0},
          List<String>()};
}

TEST(WidgetAutomation, EveryPropertyReadsBackWhatWasSet) {
  KurvGraph graph;
  graph.plot(small_graph());
  Listener listener(graph);
  listener.redraws_since();
  for (const Member& row : properties()) {
    SCOPED_TRACE(std::string(row.name));
    const Variant value = sample(row.type);
    set_property(graph, row.dispatch_id, value);
    EXPECT_TRUE(get_property(graph, row.name) == value);
  }
  EXPECT_EQ(graph.Title(), "Ω text");
  set_property(graph, "QueryForSave", Boolean(false));  // no question at the end
  EXPECT_EQ(listener.redraws_since(), 0) << "a property alone never redraws";
}

TEST(WidgetAutomation, ValuesConvertAsTheyDoForAControl) {
  KurvGraph graph;
  set_property(graph, "NUMticks", String(" 7 "));
  EXPECT_EQ(graph.NumTicks(), 7);
  set_property(graph, "NumTicks", 2.5);
  EXPECT_EQ(graph.NumTicks(), 2);
  EXPECT_EQ(fault_of([&] { set_property(graph, "NumTicks", 40000.0); }), FaultKind::kOverflow);
  EXPECT_EQ(fault_of([&] { set_property(graph, "NumTicks", String("many")); }),
            FaultKind::kTypeMismatch);
  EXPECT_EQ(graph.NumTicks(), 2);
}

TEST(WidgetAutomation, MethodsDrawAndEmitTheSignalsOfTheirMembers) {
  KurvGraph graph;
  Listener listener(graph);
  std::vector<Variant> arguments = small_data();
  call_method(graph, "SCATTER_graph", arguments);
  EXPECT_EQ(listener.redraws, 1) << "before the call returns";
  EXPECT_EQ(graph.Title(), "T");
  EXPECT_EQ(graph.xmax(), 4);
  EXPECT_FALSE(graph.Connected()) << "an omitted flag";
  std::vector<Variant> word{String("refresh")};
  call_method(graph, "ChartOptions", word);
  EXPECT_EQ(listener.redraws, 2);
  set_property(graph, "NumTicks", Integer{0});
  EXPECT_EQ(fault_of([&] { call_method(graph, "build_the_graph", {}); }),
            FaultKind::kDivisionByZero);
  EXPECT_EQ(listener.redraws_since(), 2);
  EXPECT_THAT(listener.errors, IsEmpty());
}

TEST(WidgetAutomation, AChangeByNameIsAChange) {
  KurvGraph graph;
  process_all();
  int changes = 0;
  QObject::connect(&graph, &KurvGraph::changed, [&] { ++changes; });
  set_property(graph, "Title", String("Other"));
  process_all();
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(get_property(graph, "title"), Variant(String("Other")));
  process_all();
  EXPECT_EQ(changes, 1) << "reading is none";
}

TEST(WidgetAutomation, WrongNamesKindsAndCountsAreTypedErrors) {
  KurvGraph graph;
  std::vector<Variant> two{String("save"), String("now")};
  EXPECT_EQ(fault_of([&] { get_property(graph, "init"); }), FaultKind::kNoSuchMember);
  EXPECT_EQ(fault_of([&] { set_property(graph, 7U, Integer{1}); }), FaultKind::kNoSuchMember);
  EXPECT_EQ(fault_of([&] { call_method(graph, "Title", {}); }), FaultKind::kNoSuchMember);
  EXPECT_EQ(fault_of([&] { call_method(graph, "ChartOptions", {}); }), FaultKind::kArgumentMissing);
  EXPECT_EQ(fault_of([&] { call_method(graph, "ChartOptions", two); }),
            FaultKind::kTooManyArguments);
}

// A shown widget whose plot takes a right click, which opens no menu here.
struct ClickedGraph {
  ClickedGraph() {
    graph->setContextMenuPolicy(Qt::NoContextMenu);
    resize_plot(*graph, {400, 300});
    graph->show();
    process_all();
  }
  ~ClickedGraph() { delete graph.data(); }
  void click() {
    QTest::mouseClick(plot_of(*graph), Qt::RightButton, Qt::ShiftModifier, {10, 20});
    process_all();
  }

  QPointer<KurvGraph> graph = new KurvGraph;
};

TEST(WidgetAutomation, ListenersHearOfTheEventAfterItsSignal) {
  ClickedGraph clicked;
  std::vector<std::string> heard;
  QObject::connect(clicked.graph, &KurvGraph::MouseUp, [&] { heard.emplace_back("signal"); });
  for (const char* const name : {"first", "second"}) {
    clicked.graph->add_listener(
        [&heard, name](const Event& event, std::span<const Variant> values) {
          std::string line = std::string(name) + ' ' + std::string(event.name);
          for (const Variant& value : values) line += ' ' + to_string(value);
          heard.push_back(line);
        });
  }
  clicked.click();
  EXPECT_THAT(heard,
              ElementsAre("signal", "first MouseUp 2 1 150 300", "second MouseUp 2 1 150 300"));
}

TEST(WidgetAutomation, AfterASlotHasDeletedTheWidgetNoListenerIsCalled) {
  ClickedGraph clicked;
  int heard = 0;
  QObject::connect(clicked.graph, &KurvGraph::MouseUp, [&] { delete clicked.graph.data(); });
  clicked.graph->add_listener([&](const Event&, std::span<const Variant>) { ++heard; });
  clicked.click();
  EXPECT_FALSE(clicked.graph);
  EXPECT_EQ(heard, 0);
}

TEST(WidgetAutomation, AListenerMayDeleteTheWidget) {
  ClickedGraph clicked;
  int heard = 0;
  for (int i = 0; i < 2; ++i) {
    clicked.graph->add_listener([&](const Event&, std::span<const Variant>) {
      ++heard;
      delete clicked.graph.data();
    });
  }
  clicked.click();
  EXPECT_FALSE(clicked.graph);
  EXPECT_EQ(heard, 1);
}

TEST(WidgetAutomation, AListenerThatFailsIsReported) {
  ClickedGraph clicked;
  Listener listener(*clicked.graph);
  clicked.graph->add_listener(
      [&](const Event&, std::span<const Variant>) { get_property(*clicked.graph, "nothing"); });
  clicked.click();
  EXPECT_THAT(listener.errors, ElementsAre(438));
}

}  // namespace
}  // namespace kurv::test
