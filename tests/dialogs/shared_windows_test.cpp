// The windows that all controls of a process share, around real widgets.
#include "dialogs/shared_windows.h"

#include <KurvGraph/KurvGraph.h>
#include <KurvGraph/window_places.h>
#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDataStream>
#include <QInputDialog>
#include <QListWidget>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

#include "dialogs/frm_curves.h"

namespace kurv {
namespace {

// Does each step as soon as the window of this kind is the modal one, from inside its event loop.
template <class Dialog>
class WhenModal {
 public:
  explicit WhenModal(std::function<void(Dialog&)> step) {
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, step] {
      auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
      if (!dialog) return;
      m_timer.stop();
      done = true;
      step(*dialog);
    });
    m_timer.start(1);
  }
  ~WhenModal() { EXPECT_TRUE(done); }
  bool done = false;

 private:
  QTimer m_timer;
};

QWidget* shown(const char* name) {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->objectName() == QLatin1String(name) && widget->isVisible()) return widget;
  }
  return nullptr;
}

std::unique_ptr<KurvGraph> new_graph(QWidget* parent = nullptr) {
  auto graph = std::make_unique<KurvGraph>(parent);
  graph->plot({.title = "T", .x = {1, 2, 3}, .y = {{"a", {1, 4, 2}}, {"b", {3, 1, 5}}}});
  return graph;
}

void drain() {
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QApplication::processEvents();
}

class SharedWindows : public testing::Test {
 protected:
  ~SharedWindows() override { drain(); }
};

TEST_F(SharedWindows, TheCurvesAreModalAndReturnWhenTheUserHasClosedThem) {
  const auto graph = new_graph();
  const WhenModal<frmCurves> user([&](frmCurves& curves) {
    EXPECT_TRUE(curves.isModal());
    EXPECT_EQ(curves.parentWidget(), graph.get());
    EXPECT_EQ(curves.findChild<QListWidget*>("lstScatters")->count(), 2);
    QTest::keyClick(&curves, Qt::Key_Escape);
  });
  graph->ChartOptions("curves");
  EXPECT_EQ(shown("frmCurves"), nullptr);
}

TEST_F(SharedWindows, TheNextCommandLoadsThemAgain) {
  const auto graph = new_graph();
  for (int i = 0; i < 2; ++i) {
    const WhenModal<frmCurves> user([](frmCurves& curves) { curves.close(); });
    graph->ChartOptions("curves");
  }
  graph->CloseMe();
  const WhenModal<frmCurves> user([&](frmCurves& curves) {
    EXPECT_EQ(curves.findChild<QListWidget*>("lstScatters")->count(), 2);
    curves.close();
  });
  graph->ChartOptions("curves");
}

TEST_F(SharedWindows, TheOthersStayOpenBesideTheGraph) {
  const auto graph = new_graph();
  graph->ChartOptions("setup");
  EXPECT_NE(shown("frmPropert"), nullptr);
  EXPECT_FALSE(shown("frmPropert")->isModal());
  graph->ChartOptions("table");
  EXPECT_NE(shown("frmTable"), nullptr);
  graph->CloseMe();
  EXPECT_EQ(shown("frmPropert"), nullptr);
  EXPECT_EQ(shown("frmTable"), nullptr);
}

TEST_F(SharedWindows, AVisibleWindowClosesWhenItsClientChanges) {
  const auto one = new_graph();
  const auto two = new_graph();
  const WhenModal<frmCurves> user([&](frmCurves& curves) {
    const QPointer<frmCurves> first = &curves;
    const WhenModal<frmCurves> user_of_the_other([&](frmCurves& other) {
      EXPECT_NE(&other, first.data());
      EXPECT_EQ(other.parentWidget(), two.get());
      EXPECT_FALSE(first && first->isVisible());
      other.close();
    });
    two->ChartOptions("curves");
  });
  one->ChartOptions("curves");
}

TEST_F(SharedWindows, ANewControlTakesTheWindows) {
  const auto one = new_graph();
  one->ChartOptions("setup");
  const auto two = new_graph();
  EXPECT_EQ(shown("frmPropert"), nullptr);
}

TEST_F(SharedWindows, TheEndOfAControlTakesOnlyItsOwn) {
  auto one = new_graph();
  auto two = new_graph();
  two->ChartOptions("setup");
  one.reset();
  EXPECT_NE(shown("frmPropert"), nullptr);
  two.reset();
  EXPECT_EQ(shown("frmPropert"), nullptr);
}

TEST_F(SharedWindows, CloseMeOfAnotherControlClosesThemToo) {
  const auto one = new_graph();
  const auto two = new_graph();
  two->ChartOptions("setup");
  one->CloseMe();
  EXPECT_EQ(shown("frmPropert"), nullptr);
}

TEST_F(SharedWindows, ChangesOfTheHostAreShown) {
  const auto graph = new_graph();
  const WhenModal<frmCurves> user([&](frmCurves& curves) {
    auto* const list = curves.findChild<QListWidget*>("lstScatters");
    list->setCurrentRow(1);
    graph->plot({.title = "T", .x = {1, 2}, .y = {{"c", {1, 4}}, {"d", {3, 1}}, {"e", {1, 1}}}});
    EXPECT_EQ(list->count(), 3);
    EXPECT_EQ(list->item(2)->text(), "e");
    EXPECT_EQ(list->currentRow(), 1);
    curves.close();
  });
  graph->ChartOptions("curves");
}

TEST_F(SharedWindows, WhatTheUserDoesIsSeenInThePicture) {
  const auto graph = new_graph();
  int redraws = 0;
  QObject::connect(graph.get(), &KurvGraph::redrawn, graph.get(), [&] { ++redraws; });
  const WhenModal<frmCurves> user([&](frmCurves& curves) {
    drain();
    redraws = 0;
    QTest::mouseClick(curves.findChild<QAbstractButton*>("cmdHideAllCurves"), Qt::LeftButton);
    drain();
    EXPECT_EQ(redraws, 1);
    curves.close();
  });
  graph->ChartOptions("curves");
}

// -- Ends -----------------------------------------------------------------------------------------

TEST_F(SharedWindows, TheHostsWindowMayGoUnderTheCurves) {
  auto* const host = new QWidget;
  KurvGraph* const graph = new_graph(host).release();
  const WhenModal<frmCurves> user([&](frmCurves&) { delete host; });
  graph->ChartOptions("curves");
  EXPECT_EQ(shown("frmCurves"), nullptr);
}

TEST_F(SharedWindows, TheGraphAloneMayGoUnderTheCurves) {
  QWidget host;
  KurvGraph* const graph = new_graph(&host).release();
  const WhenModal<frmCurves> user([&](frmCurves&) { delete graph; });
  graph->ChartOptions("curves");
  EXPECT_EQ(shown("frmCurves"), nullptr);
}

TEST_F(SharedWindows, CloseMeEndsTheCurvesInTheirOwnLoop) {
  const auto graph = new_graph();
  const WhenModal<frmCurves> user([&](frmCurves&) { graph->CloseMe(); });
  graph->ChartOptions("curves");
  EXPECT_EQ(shown("frmCurves"), nullptr);
}

// What may happen while a prompt is open that the user has asked for in the modal window.
void expect_end_under_a_prompt(KurvGraph& graph, const std::function<void()>& end) {
  QPointer<QInputDialog> prompt;
  const WhenModal<frmCurves> user([&](frmCurves& curves) {
    const WhenModal<QInputDialog> prompted([&](QInputDialog& dialog) {
      EXPECT_EQ(dialog.parentWidget(), &curves) << "in front of the window that it belongs to";
      prompt = &dialog;
      end();
    });
    QTest::mouseClick(curves.findChild<QAbstractButton*>("cmdYTitle"), Qt::LeftButton);
  });
  graph.ChartOptions("curves");
  drain();
  EXPECT_FALSE(prompt);
  EXPECT_EQ(shown("frmCurves"), nullptr);
}

TEST_F(SharedWindows, TheHostsWindowMayGoUnderAPromptOfTheCurves) {
  auto* const host = new QWidget;
  KurvGraph* const graph = new_graph(host).release();
  expect_end_under_a_prompt(*graph, [&] { delete host; });
}

TEST_F(SharedWindows, TheGraphMayGoUnderAPromptOfTheCurves) {
  QWidget host;
  KurvGraph* const graph = new_graph(&host).release();
  expect_end_under_a_prompt(*graph, [&] { delete graph; });
}

TEST_F(SharedWindows, CloseMeUnderAPromptOfTheCurves) {
  const auto graph = new_graph();
  expect_end_under_a_prompt(*graph, [&] { graph->CloseMe(); });
}

TEST_F(SharedWindows, AnAnsweredPromptOfTheCurvesRenames) {
  const auto graph = new_graph();
  const WhenModal<frmCurves> user([&](frmCurves& curves) {
    const WhenModal<QInputDialog> prompted([](QInputDialog& prompt) {
      EXPECT_EQ(prompt.textValue(), "a");
      prompt.setTextValue("better");
      prompt.accept();
    });
    QTest::mouseClick(curves.findChild<QAbstractButton*>("cmdYTitle"), Qt::LeftButton);
    EXPECT_EQ(curves.findChild<QListWidget*>("lstScatters")->item(0)->text(), "better");
    curves.close();
  });
  graph->ChartOptions("curves");
}

// -- Places ---------------------------------------------------------------------------------------

struct WindowPlaces : SharedWindows {
  WindowPlaces() {
    set_window_places(m_none);
    host.setGeometry(60, 60, 300, 250);
    new_graph(&host).release()->resize(300, 250);
    host.show();
    QApplication::processEvents();
  }
  ~WindowPlaces() override { set_window_places(m_none); }

  KurvGraph& graph() { return *host.findChild<KurvGraph*>(); }
  QWidget& open_properties() {
    graph().ChartOptions("setup");
    QApplication::processEvents();
    return *shown("frmPropert");
  }

  // As if no window had been closed before.
  static QByteArray no_places() {
    QByteArray places;
    QDataStream stream(&places, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_0);
    for (int i = 0; i < 3; ++i) stream << QByteArray();
    return places;
  }

  const QByteArray m_none = no_places();
  QWidget host;
};

TEST_F(WindowPlaces, AWindowOpensBesideThePlot) {
  EXPECT_FALSE(open_properties().frameGeometry().intersects(host.frameGeometry()));
  EXPECT_TRUE(host.screen()->availableGeometry().contains(shown("frmPropert")->frameGeometry()));
}

TEST_F(WindowPlaces, ATableOpensBesideThePlotInTheSizeThatItsDataNeed) {
  graph().plot({.title = "T",
                .x = {1, 2, 3},
                .y = {{"a", {1, 4, 2}},
                      {"b", {1, 4, 2}},
                      {"c", {1, 4, 2}},
                      {"d", {1, 4, 2}},
                      {"e", {1, 4, 2}},
                      {"f", {1, 4, 2}},
                      {"g", {1, 4, 2}}}});
  graph().ChartOptions("table");
  QApplication::processEvents();
  const QRect table = shown("frmTable")->frameGeometry();
  EXPECT_FALSE(table.intersects(host.frameGeometry()));
  EXPECT_TRUE(host.screen()->availableGeometry().contains(table));
}

TEST_F(WindowPlaces, AWindowThatHasToCoverThePlotLeavesTheTitlesFree) {
  host.setGeometry(host.screen()->availableGeometry());
  graph().resize(host.size());
  graph().plot({.title = QString(40, u'W'), .x = {1, 2}, .y = {{"a", {1, 4}}}});
  QApplication::processEvents();
  const QRect window = open_properties().frameGeometry();
  EXPECT_TRUE(host.screen()->availableGeometry().contains(window));
  EXPECT_GT(window.top(), host.mapToGlobal(QPoint(0, 80)).y());
}

TEST_F(WindowPlaces, AWindowOpensWhereItWas) {
  open_properties().move(77, 88);
  shown("frmPropert")->close();
  EXPECT_EQ(open_properties().pos(), QPoint(77, 88));
}

TEST_F(WindowPlaces, ArePassedToTheNextRun) {
  open_properties().move(77, 88);
  const QByteArray places = window_places();
  shown("frmPropert")->move(150, 150);
  shown("frmPropert")->close();
  set_window_places(places);
  EXPECT_EQ(open_properties().pos(), QPoint(77, 88));
}

TEST_F(WindowPlaces, AWindowOpensAsSmallAsItWasLeft) {
  open_properties().resize(400, 200);
  shown("frmPropert")->close();
  EXPECT_EQ(open_properties().size(), QSize(400, 200));
}

TEST_F(WindowPlaces, AWindowThatWasLeftWithSmallLettersShowsAllWithLargeOnes) {
  const QFont before = QApplication::font();
  open_properties().resize(400, 200);
  shown("frmPropert")->move(77, 88);
  shown("frmPropert")->close();
  const QByteArray places = window_places();
  QFont large = before;
  large.setPointSizeF(before.pointSizeF() * 1.25);
  QApplication::setFont(large);
  set_window_places(m_none);
  const QSize needed = open_properties().size();
  shown("frmPropert")->close();
  set_window_places(places);
  EXPECT_EQ(open_properties().size(), needed);
  EXPECT_EQ(shown("frmPropert")->pos(), QPoint(77, 88));
  QApplication::setFont(before);
}

TEST_F(WindowPlaces, OthersAreIgnored) {
  open_properties().move(77, 88);
  shown("frmPropert")->close();
  const QByteArray places = window_places();
  for (const QByteArray& torn : {QByteArray(), QByteArray("junk"), places.left(places.size() / 2),
                                 QByteArray(3, '\xff'), QByteArray(4000, '\x7f')}) {
    set_window_places(torn);
    EXPECT_EQ(window_places(), places);
  }
  EXPECT_EQ(open_properties().pos(), QPoint(77, 88));
}

// -- Stacking order -------------------------------------------------------------------------------

// The window that a message box of the graph belongs to.
QWidget* parent_of_a_message(KurvGraph& graph) {
  QWidget* parent = nullptr;
  const WhenModal<QMessageBox> user([&](QMessageBox& box) {
    parent = box.parentWidget();
    box.accept();
  });
  graph.scatter_graph({}, {}, 0, 0, String(), "x", {}, 0, {});
  return parent;
}

TEST_F(SharedWindows, MessagesStandBeforeTheWindowInUse) {
  QWidget host;
  KurvGraph* const graph = new_graph(&host).release();
  host.show();
  EXPECT_EQ(parent_of_a_message(*graph), &host);
  graph->ChartOptions("setup");
  QApplication::setActiveWindow(shown("frmPropert"));
  EXPECT_EQ(parent_of_a_message(*graph), shown("frmPropert"));
}

TEST_F(SharedWindows, MessagesStandBeforeNoWindowOfAnotherGraph) {
  const auto one = new_graph();
  const auto two = new_graph();
  one->show();
  two->show();
  QApplication::setActiveWindow(two.get());
  EXPECT_EQ(parent_of_a_message(*one), one.get());
}

}  // namespace
}  // namespace kurv
