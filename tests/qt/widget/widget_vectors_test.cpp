// The graph of a widget as a vector document.
#include <gmock/gmock.h>

#include <QXmlStreamReader>

#include "tests/qt/widget/widget_support.h"

namespace kurv::test {
namespace {

using testing::HasSubstr;

TEST(WidgetVectors, AreAsLargeAsTheWidgetAndCarryItsTitle) {
  KurvGraph graph;
  resize_plot(graph, {321, 217});
  graph.plot(small_graph());
  QXmlStreamReader xml(graph.svg());
  ASSERT_TRUE(xml.readNextStartElement());
  EXPECT_EQ(xml.attributes().value("width").toString(), "321");
  EXPECT_EQ(xml.attributes().value("height").toString(), "217");
  EXPECT_EQ(xml.attributes().value("viewBox").toString(), "0 0 4815 3255");
  ASSERT_TRUE(xml.readNextStartElement());
  EXPECT_EQ(xml.readElementText(), "Small");
  EXPECT_TRUE(graph.pdf().startsWith("%PDF"));
}

TEST(WidgetVectors, ChangeNothing) {
  KurvGraph graph;
  graph.plot(small_graph());
  Listener listener(graph);
  const QImage before = graph.image();
  EXPECT_EQ(graph.svg(), graph.svg());
  EXPECT_FALSE(graph.pdf().isEmpty());
  EXPECT_EQ(listener.redraws_since(), 0);
  EXPECT_EQ(graph.image(), before);
}

TEST(WidgetVectors, ShowWhatTheNextRedrawWould) {
  KurvGraph graph;
  graph.plot(small_graph());
  graph.set_Title("Not drawn yet");
  EXPECT_THAT(graph.svg().toStdString(), HasSubstr(">Not drawn yet</text>"));
}

TEST(WidgetVectors, OfAnEmptyGraphAreBlank) {
  const KurvGraph graph;
  EXPECT_EQ(graph.svg().count("<text"), 0);
  EXPECT_EQ(graph.svg().count("<path"), 0);
}

TEST(WidgetVectors, AFaultReachesTheCaller) {
  KurvGraph graph;
  graph.plot(small_graph());
  graph.set_xmax(graph.xmin());
  EXPECT_THROW(graph.svg(), Fault);
  EXPECT_THROW(graph.pdf(), Fault);
}

}  // namespace
}  // namespace kurv::test
