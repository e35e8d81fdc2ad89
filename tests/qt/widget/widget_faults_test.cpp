// Run-time errors: a host's call gets them, the event loop never does.
#include <gmock/gmock.h>

#include <QMessageBox>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include "tests/qt/widget/widget_support.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kDivisionByZero = 11;

// A graph whose next redraw fails.
struct Doomed {
  Doomed() {
    graph.plot(small_graph());
    graph.show();
    process_all();
    graph.set_NumTicks(0);
  }
  KurvGraph graph;
};

TEST(WidgetFaults, ACallOfTheHostThrowsAndEmitsNoSignal) {
  Doomed doomed;
  Listener listener(doomed.graph);
  EXPECT_THROW(doomed.graph.build_the_graph(), Fault);
  EXPECT_THROW(QMetaObject::invokeMethod(&doomed.graph, "build_the_graph"), Fault);
  EXPECT_EQ(listener.redraws_since(), 0);
  EXPECT_THAT(listener.errors, IsEmpty());
  doomed.graph.set_NumTicks(5);
  doomed.graph.build_the_graph();
  EXPECT_EQ(listener.redraws_since(), 1);
}

TEST(WidgetFaults, AnArrayThatIsTooShortReachesTheHost) {
  KurvGraph graph;
  try {
    graph.scatter_graph(Matrix<Double>(1, 1, 1, 2), List<Double>(1, 2), 3, 1, String("T"), "x",
                        List<String>(1, 1), 0, {});
    ADD_FAILURE();
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.kind(), FaultKind::kSubscriptOutOfRange);
  }
}

TEST(WidgetFaults, CountsThatDoNotFitReachTheHost) {
  KurvGraph graph;
  EXPECT_THROW(graph.scatter_graph2("T", {}, {}, 40000, 1, {}, 0, {}), Fault);
  EXPECT_THROW(graph.scatter_graph2("T", {}, {}, 1, -40000, {}, 0, {}), Fault);
}

TEST(WidgetFaults, AResizeThatFailsIsReportedAndTheProgramGoesOn) {
  Doomed doomed;
  Listener listener(doomed.graph);
  doomed.graph.resize(500, 300);
  EXPECT_EQ(listener.redraws_since(), 0);
  EXPECT_THAT(listener.errors, ElementsAre(kDivisionByZero));
  EXPECT_THAT(listener.texts, ElementsAre(QString("Division by zero")));
  EXPECT_EQ(doomed.graph.NumTicks(), 0) << "the state is as the error left it";
  doomed.graph.set_NumTicks(5);
  doomed.graph.resize(400, 300);
  EXPECT_EQ(listener.redraws_since(), 1);
}

TEST(WidgetFaults, AShowThatFailsIsReported) {
  Doomed doomed;
  doomed.graph.hide();
  Listener listener(doomed.graph);
  doomed.graph.show();
  process_all();
  EXPECT_THAT(listener.errors, ElementsAre(kDivisionByZero));
}

TEST(WidgetFaults, AQueuedCallThatFailsIsReported) {
  Doomed doomed;
  Listener listener(doomed.graph);
  QMetaObject::invokeMethod(&doomed.graph, "build_the_graph", Qt::QueuedConnection);
  process_all();
  EXPECT_THAT(listener.errors, ElementsAre(kDivisionByZero));
}

TEST(WidgetFaults, ASlotOfAClickThatFailsIsReported) {
  Doomed doomed;
  Listener listener(doomed.graph);
  QObject::connect(&doomed.graph, &KurvGraph::MouseUp, &doomed.graph, &KurvGraph::build_the_graph);
  QTest::mouseClick(plot_of(doomed.graph), Qt::LeftButton);
  process_all();
  EXPECT_THAT(listener.errors, ElementsAre(kDivisionByZero));
}

TEST(WidgetFaults, WithoutAListenerOneMessageBoxIsShown) {
  Doomed doomed;
  int boxes = 0;
  QString text;
  QTimer answer;
  QObject::connect(&answer, &QTimer::timeout, [&] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    ++boxes;
    text = box->text();
    // Others that come meanwhile find the box open.
    doomed.graph.resize(510, 310);
    process_all();
    EXPECT_EQ(QApplication::activeModalWidget(), box);
    box->accept();
  });
  answer.start(1);
  doomed.graph.resize(500, 300);
  doomed.graph.resize(501, 300);
  for (int i = 0; i < 50 && boxes == 0; ++i) QTest::qWait(2);
  EXPECT_GE(boxes, 1);
  EXPECT_EQ(text, "Division by zero");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  answer.stop();
}

TEST(WidgetFaults, WholeRedrawsBeforeAFailureAreReported) {
  KurvGraph graph;
  graph.plot(small_graph());
  Listener listener(graph);
  QObject::connect(&graph, &KurvGraph::redrawn, &listener.context, [&] {
    graph.set_NumTicks(0);
    EXPECT_THROW(graph.build_the_graph(), Fault);
  });
  graph.build_the_graph();
  EXPECT_EQ(listener.redraws_since(), 1);
  EXPECT_TRUE(listener.errors.empty()) << "the caller has been told";
}

}  // namespace
}  // namespace kurv::test
