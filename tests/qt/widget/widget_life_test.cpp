// Being placed, shown, hidden and deleted, at any moment.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "tests/qt/widget/widget_support.h"

namespace kurv::test {
namespace {

// A new member of the state does not change the size that hosts have compiled.
TEST(WidgetLife, AWidgetIsOnePointerLargerThanItsBase) {
  EXPECT_EQ(sizeof(KurvGraph), sizeof(QWidget) + sizeof(void*));
}

TEST(WidgetLife, WhatAHostSetsBeforeTheFirstShowStays) {
  KurvGraph graph;
  graph.set_NumTicks(4);
  graph.set_X_grid(true);
  graph.set_Y_grid(true);
  graph.show();
  process_all();
  EXPECT_EQ(graph.NumTicks(), 4);
  EXPECT_TRUE(graph.X_grid());
  EXPECT_TRUE(graph.Y_grid());
}

TEST(WidgetLife, EachShowByTheHostRedraws) {
  KurvGraph graph;
  graph.plot(small_graph());
  Listener listener(graph);
  graph.show();
  EXPECT_EQ(listener.redraws_since(), 1);
  graph.hide();
  EXPECT_EQ(listener.redraws_since(), 0);
  graph.show();
  EXPECT_EQ(listener.redraws_since(), 1);
}

TEST(WidgetLife, AShowWithoutDataDrawsNothing) {
  KurvGraph graph;
  Listener listener(graph);
  graph.show();
  graph.resize(300, 300);
  EXPECT_EQ(listener.redraws_since(), 0);
}

TEST(WidgetLife, InDesignModeAShowDoesNothing) {
  KurvGraph graph;
  graph.set_design_mode(true);
  graph.plot(small_graph());
  Listener listener(graph);
  graph.show();
  EXPECT_EQ(listener.redraws_since(), 0);
  graph.resize(300, 300);
  EXPECT_EQ(listener.redraws_since(), 1);
}

TEST(WidgetLife, SeveralGraphsLiveSideBySide) {
  QWidget window;
  auto* const first = new KurvGraph(&window);
  auto* const second = new KurvGraph(&window);
  first->plot(small_graph());
  EXPECT_TRUE(first->data_at({100, 100}));
  EXPECT_FALSE(second->data_at({100, 100}));
  second->set_Title("Other");
  EXPECT_EQ(first->Title(), "Small");
  delete first;
  second->plot(small_graph());
  EXPECT_TRUE(second->data_at({100, 100}));
}

TEST(WidgetLife, GoesWithItsParent) {
  auto* const window = new QWidget;
  const QPointer<KurvGraph> graph = new KurvGraph(window);
  graph->plot(small_graph());
  window->show();
  delete window;
  EXPECT_FALSE(graph);
}

TEST(WidgetLife, MayBeDeletedInASlotOfItsRedraw) {
  const QPointer<KurvGraph> graph = new KurvGraph;
  QObject::connect(graph, &KurvGraph::redrawn, graph, [&] { delete graph.data(); });
  graph->plot(small_graph());
  EXPECT_FALSE(graph);
}

TEST(WidgetLife, MayBeDeletedInASlotOfTheRedrawThatAShowOrAResizeCauses) {
  for (const bool resize : {false, true}) {
    const QPointer<KurvGraph> graph = new KurvGraph;
    graph->plot(small_graph());
    if (resize) graph->show();
    process_all();
    QObject::connect(graph, &KurvGraph::redrawn, graph, [&] { delete graph.data(); });
    if (resize) {
      graph->resize(300, 200);
    } else {
      graph->show();
    }
    process_all();
    EXPECT_FALSE(graph);
  }
}

TEST(WidgetLife, MayBeDeletedInASlotOfAClick) {
  const QPointer<KurvGraph> graph = new KurvGraph;
  graph->show();
  QObject::connect(graph, &KurvGraph::MouseUp, graph, [&] { delete graph.data(); });
  QTest::mouseClick(plot_of(*graph), Qt::LeftButton);
  EXPECT_FALSE(graph);
}

TEST(WidgetLife, MayBeDeletedInASlotOfItsRunTimeError) {
  const QPointer<KurvGraph> graph = new KurvGraph;
  graph->plot(small_graph());
  graph->show();
  QObject::connect(graph, &KurvGraph::runTimeError, graph, [&] { delete graph.data(); });
  graph->set_NumTicks(0);
  graph->resize(300, 200);
  process_all();
  EXPECT_FALSE(graph);
}

TEST(WidgetLife, MayBeDeletedWhileItsMessageBoxIsOpen) {
  const QPointer<KurvGraph> graph = new KurvGraph;
  graph->show();
  bool was_open = false;
  QTimer::singleShot(0, [&] {
    was_open = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr;
    delete graph.data();
  });
  Matrix<Double> y(1, 1, 1, 2);
  graph->scatter_graph(y, List<Double>(1, 2), 2, 1, String("same x"), "x", List<String>(1, 1), 0,
                       {});
  EXPECT_TRUE(was_open);
  EXPECT_FALSE(graph);
}

TEST(WidgetLife, ItsEndAsksWhereTheHostWantsThat) {
  const QTemporaryDir folder;
  const QString file = folder.filePath("kept.gdf");
  for (const bool save : {false, true}) {
    auto* const graph = new KurvGraph;
    graph->plot(small_graph());
    graph->show();
    graph->set_QueryForSave(true);
    QStringList questions;
    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, [&] {
      if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        questions << box->text();
        box->button(save ? QMessageBox::Yes : QMessageBox::No)->click();
      } else if (auto* const dialog =
                     qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(file);
        static_cast<QDialog*>(dialog)->accept();
      }
    });
    answer.start(1);
    delete graph;
    EXPECT_EQ(questions.value(0),
              "The graph was not saved. Do you want to save it before closing ?");
    EXPECT_EQ(QFile::exists(file), save);
  }
}

// What the graph saves, with 0.5 as a value of y.
QByteArray saved_by(KurvGraph& graph) {
  const QTemporaryDir folder;
  const QString file = folder.filePath("graph.gdf");
  graph.plot({.title = "Halves", .x = {1, 2}, .y = {{"y", {0.5, 2}}}});
  QTimer answer;
  QObject::connect(&answer, &QTimer::timeout, [&] {
    auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (!dialog) return;
    dialog->findChild<QLineEdit*>("fileNameEdit")->setText(file);
    static_cast<QDialog*>(dialog)->accept();
  });
  answer.start(1);
  graph.ChartOptions("saveas");
  QFile bytes(file);
  EXPECT_TRUE(bytes.open(QIODevice::ReadOnly));
  return bytes.readAll();
}

TEST(WidgetLife, OnlyALocaleSetOnTheWidgetDecidesAboutFiles) {
  const QLocale before;
  QLocale::setDefault(QLocale("de_DE"));
  KurvGraph graph;
  EXPECT_TRUE(saved_by(graph).contains("\r\n0.5,2\r\n")) << "the system's has no say";
  graph.setLocale(QLocale("de_DE"));
  EXPECT_TRUE(saved_by(graph).contains("\r\n0,5,2\r\n"));
  graph.setLocale(QLocale("en_US"));
  EXPECT_TRUE(saved_by(graph).contains("\r\n0.5,2\r\n"));
  graph.setLocale(QLocale("de_DE"));
  graph.unsetLocale();
  EXPECT_TRUE(saved_by(graph).contains("\r\n0.5,2\r\n"));
  QLocale::setDefault(before);
}

TEST(WidgetLife, ASavedGraphComesBack) {
  const QTemporaryDir folder;
  const QString file = folder.filePath("graph.gdf");
  KurvGraph graph;
  graph.resize(400, 300);
  graph.plot(small_graph());
  QTimer answer;
  QObject::connect(&answer, &QTimer::timeout, [&] {
    auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (!dialog) return;
    dialog->findChild<QLineEdit*>("fileNameEdit")->setText(file);
    static_cast<QDialog*>(dialog)->accept();
  });
  answer.start(1);
  graph.Save_graph();
  KurvGraph other;
  Listener listener(other);
  other.file_load(file);
  EXPECT_EQ(other.Title(), "Small");
  EXPECT_EQ(other.size(), QSize(400, 300));
  EXPECT_GT(listener.redraws_since(), 0);
  EXPECT_TRUE(other.pixel_of(1, 1));
}

TEST(WidgetLife, AFileThatIsNotThereReachesTheHost) {
  KurvGraph graph;
  EXPECT_THROW(graph.file_load("/no/such/file.gdf"), Fault);
}

TEST(WidgetLife, QueuedCallsThatComeTooLateAreDropped) {
  auto* const graph = new KurvGraph;
  graph->plot(small_graph());
  int redraws = 0;
  QObject::connect(graph, &KurvGraph::redrawn, [&redraws] { ++redraws; });
  QMetaObject::invokeMethod(graph, "build_the_graph", Qt::QueuedConnection);
  delete graph;
  process_all();
  EXPECT_EQ(redraws, 0);
}

}  // namespace
}  // namespace kurv::test
