// The widget's properties, methods and signals by name, as hosts find them at run time.
#include <KurvGraph/automation.h>
#include <gmock/gmock.h>

#include <QMetaMethod>
#include <QMetaProperty>
#include <limits>
#include <string>
#include <type_traits>

#include "tests/qt/widget/widget_support.h"

namespace kurv::test {
namespace {

using testing::IsSupersetOf;

// The list of properties declares the members that hosts compile against.
static_assert(std::is_same_v<decltype(&KurvGraph::Title), QString (KurvGraph::*)() const>);
static_assert(std::is_same_v<decltype(&KurvGraph::set_Title), void (KurvGraph::*)(const QString&)>);
static_assert(std::is_same_v<decltype(&KurvGraph::set_NumTicks), void (KurvGraph::*)(int)>);
static_assert(std::is_same_v<decltype(&KurvGraph::set_X_grid), void (KurvGraph::*)(bool)>);
static_assert(std::is_same_v<decltype(&KurvGraph::set_FontSize), void (KurvGraph::*)(double)>);
static_assert(std::is_same_v<decltype(&KurvGraph::set_xmin), void (KurvGraph::*)(double)>);

std::vector<QMetaProperty> own_properties() {
  const QMetaObject& meta = KurvGraph::staticMetaObject;
  std::vector<QMetaProperty> result;
  for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
    result.push_back(meta.property(i));
  }
  return result;
}

std::vector<std::string> own_methods(QMetaMethod::MethodType type) {
  const QMetaObject& meta = KurvGraph::staticMetaObject;
  std::vector<std::string> result;
  for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
    if (meta.method(i).methodType() == type) result.push_back(meta.method(i).name().toStdString());
  }
  return result;
}

QMetaType::Type toolkit_type(ValueType type) {
  if (type == ValueType::kInteger) return QMetaType::Int;
  if (type == ValueType::kBoolean) return QMetaType::Bool;
  if (type == ValueType::kString) return QMetaType::QString;
  return QMetaType::Double;
}

TEST(WidgetMembers, PropertiesAreThoseOfTheControlInItsOrder) {
  const std::vector<QMetaProperty> found = own_properties();
  ASSERT_EQ(found.size(), properties().size() + 3);
  for (std::size_t i = 0; i < properties().size(); ++i) {
    const Member& expected = properties()[i];
    EXPECT_EQ(found[i].name(), expected.name);
    EXPECT_EQ(found[i].typeId(), toolkit_type(expected.type)) << expected.name;
    EXPECT_TRUE(found[i].isWritable()) << expected.name;
  }
}

// The values that the table of properties states, in the font of the plot.
TEST(WidgetMembers, ANewWidgetHasTheStatedValues) {
  const KurvGraph graph;
  for (const Member& row : properties()) {
    const std::string stated(row.initially);
    if (stated == "random" || stated.starts_with("the surface's")) continue;
    std::string expected = stated == "empty" ? "" : stated;
    if (stated.starts_with('`')) expected = stated.substr(1, stated.size() - 2);
    EXPECT_EQ(to_string(get_property(graph, row.name)), expected) << row.name;
  }
  EXPECT_EQ(graph.FontName(), "Liberation Sans");
  EXPECT_EQ(graph.FontSize(), 8);
  EXPECT_EQ(graph.TitleFontSize(), 11);
}

TEST(WidgetMembers, TheWidgetsOwnPropertiesFollow) {
  const std::vector<QMetaProperty> found = own_properties();
  EXPECT_STREQ(found[found.size() - 3].name(), "toolbar_visible");
  EXPECT_STREQ(found[found.size() - 2].name(), "shortcuts_enabled");
  EXPECT_STREQ(found[found.size() - 1].name(), "zoom_enabled");
  KurvGraph graph;
  EXPECT_EQ(graph.property("toolbar_visible"), true);
  EXPECT_EQ(graph.property("shortcuts_enabled"), true);
  EXPECT_EQ(graph.property("zoom_enabled"), false);
}

TEST(WidgetMembers, EveryPropertyReadsBackWhatWasSet) {
  KurvGraph graph;
  Listener listener(graph);
  for (int round = 0; round < 2; ++round) {
    for (const QMetaProperty& property : own_properties()) {
      const bool truth = round == 0;
      QVariant value = truth ? 37 : 12;
      if (property.typeId() == QMetaType::QString) value = truth ? "Grün" : "0.00";
      if (property.typeId() == QMetaType::Bool) value = truth;
      if (property.typeId() == QMetaType::Double) value = truth ? 2.5 : -7.25;
      EXPECT_TRUE(property.write(&graph, value)) << property.name();
      EXPECT_EQ(property.read(&graph), value) << property.name();
    }
  }
  EXPECT_EQ(listener.redraws_since(), 0) << "a property alone never redraws";
}

TEST(WidgetMembers, AWholeNumberThatDoesNotFitIsAnOverflowAndChangesNothing) {
  KurvGraph graph;
  for (const int value : {32768, -32769, 2147483647}) {
    try {
      graph.set_NumTicks(value);
      ADD_FAILURE() << value;
    } catch (const Fault& fault) {
      EXPECT_EQ(fault.kind(), FaultKind::kOverflow);
    }
  }
  EXPECT_EQ(graph.NumTicks(), 10);
  graph.set_NumTicks(-32768);
  EXPECT_EQ(graph.NumTicks(), -32768);
}

TEST(WidgetMembers, ANumberThatNoSingleHoldsIsAnOverflowToo) {
  KurvGraph graph;
  const double before = graph.FontSize();
  for (const double size : {1e39, -1e300, std::numeric_limits<double>::infinity()}) {
    EXPECT_THROW(graph.set_FontSize(size), Fault) << size;
    EXPECT_THROW(graph.setProperty("TitleFontSize", size), Fault) << size;
  }
  EXPECT_EQ(graph.FontSize(), before);
}

TEST(WidgetMembers, AnOverflowReachesAHostThatSetsByName) {
  KurvGraph graph;
  EXPECT_THROW(graph.setProperty("NumTicks", 40000), Fault);
  EXPECT_EQ(graph.property("NumTicks"), 10);
}

TEST(WidgetMembers, MarkerSizesOutOfRangeAreIgnored) {
  KurvGraph graph;
  for (const int size : {1, 501, -5}) graph.set_MarkerSize(size);
  EXPECT_EQ(graph.MarkerSize(), 40);
  graph.set_MarkerSize(500);
  EXPECT_EQ(graph.MarkerSize(), 500);
}

TEST(WidgetMembers, MethodsAndSignalsHaveTheirNames) {
  std::vector<std::string> expected;
  for (const Member& member : members()) {
    if (member.kind == MemberKind::kMethod) expected.emplace_back(member.name);
  }
  EXPECT_THAT(own_methods(QMetaMethod::Method), IsSupersetOf(expected));
  EXPECT_THAT(own_methods(QMetaMethod::Signal),
              testing::ElementsAre("MouseUp", "redrawn", "filed", "printed", "changed", "pointed",
                                   "runTimeError"));
  EXPECT_GE(KurvGraph::staticMetaObject.indexOfSignal("MouseUp(int,int,float,float)"), 0);
}

TEST(WidgetMembers, MethodsRunByName) {
  KurvGraph graph;
  graph.plot(small_graph());
  Listener listener(graph);
  EXPECT_TRUE(QMetaObject::invokeMethod(&graph, "init"));
  EXPECT_TRUE(QMetaObject::invokeMethod(&graph, "Sort_xy"));
  EXPECT_EQ(listener.redraws, 0);
  EXPECT_TRUE(QMetaObject::invokeMethod(&graph, "build_the_graph"));
  EXPECT_EQ(listener.redraws, 1);
  EXPECT_TRUE(QMetaObject::invokeMethod(&graph, "ChartOptions", Q_ARG(QString, "refresh")));
  EXPECT_EQ(listener.redraws, 2);
  graph.set_Top_margine(7);
  EXPECT_TRUE(QMetaObject::invokeMethod(&graph, "Restore_Grf"));
  EXPECT_EQ(listener.redraws, 3);
  EXPECT_EQ(graph.Top_margine(), 480);
}

TEST(WidgetMembers, DataAreLoadedByName) {
  KurvGraph graph;
  Matrix<Double> y(1, 1, 1, 2);
  y(1, 1) = 5;
  y(1, 2) = 9;
  const List<Double> x(1, std::vector<Double>{2, 4});
  const List<String> names(1, std::vector<String>{"curve"});
  ASSERT_TRUE(QMetaObject::invokeMethod(
      &graph, "scatter_graph", Q_ARG(kurv::Matrix<kurv::Double>, y),
      Q_ARG(kurv::List<kurv::Double>, x), Q_ARG(int, 2), Q_ARG(int, 1),
      Q_ARG(kurv::Variant, Variant(String("T"))), Q_ARG(kurv::String, String("x")),
      Q_ARG(kurv::List<kurv::String>, names), Q_ARG(int, 0),
      Q_ARG(kurv::List<kurv::String>, List<String>())));
  EXPECT_EQ(graph.Title(), "T");
  EXPECT_EQ(graph.xmin(), 2);
  EXPECT_EQ(graph.xmax(), 4);
}

}  // namespace
}  // namespace kurv::test
