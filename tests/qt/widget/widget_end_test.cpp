// The application ends while there are graphs.
#include <gtest/gtest.h>

#include <memory>

#include "tests/qt/widget/widget_support.h"

namespace kurv::test {
namespace {

TEST(WidgetEnd, GraphsMayOutliveTheApplicationAndThenAskNothing) {
  int count = 1;
  char name[] = "test";
  char* arguments[] = {name, nullptr};
  auto application = std::make_unique<QApplication>(count, arguments);
  auto shown = std::make_unique<KurvGraph>();
  auto hidden = std::make_unique<KurvGraph>();
  for (KurvGraph* graph : {shown.get(), hidden.get()}) {
    graph->plot(small_graph());
    // A dialog could not be answered any more, and would wait for ever.
    graph->set_QueryForSave(true);
  }
  shown->show();
  process_all();
  QMetaObject::invokeMethod(shown.get(), "build_the_graph", Qt::QueuedConnection);
  application.reset();
  EXPECT_EQ(shown->Title(), "Small");
  shown.reset();
  hidden.reset();
}

TEST(WidgetEnd, TheApplicationMayEndInASlotOfARedraw) {
  int count = 1;
  char name[] = "test";
  char* arguments[] = {name, nullptr};
  QApplication application(count, arguments);
  KurvGraph graph;
  graph.plot(small_graph());
  QObject::connect(&graph, &KurvGraph::redrawn, &application, &QApplication::quit);
  graph.show();
  EXPECT_EQ(QApplication::exec(), 0);
}

}  // namespace
}  // namespace kurv::test
