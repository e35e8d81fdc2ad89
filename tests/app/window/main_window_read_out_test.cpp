// What the status bar says about the point under the mouse.
#include <gtest/gtest.h>

#include <QLabel>
#include <QMouseEvent>
#include <QStatusBar>

#include "app/window/read_out_label.h"
#include "tests/app/window/window_fixture.h"

namespace kurv::app {
namespace {

class ReadOutWindow : public Windows {
 protected:
  static void point(MainWindow* window, double x, double y) {
    KurvGraph& graph = window->graph();
    auto* const plot = graph.findChild<QWidget*>("PicGraph");
    const QPointF at = *graph.pixel_of(x, y) - graph.plot_rect().topLeft();
    QMouseEvent move(QEvent::MouseMove, at, plot->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(plot, &move);
    QApplication::processEvents();
  }
  static ReadOutLabel& label(MainWindow* window) {
    return *window->findChild<ReadOutLabel*>("lblReadOut");
  }
  static std::string text(MainWindow* window) { return label(window).text().toStdString(); }
};

TEST_F(ReadOutWindow, NamesThePointAndItsValues) {
  MainWindow* const window = window_of(table());
  EXPECT_EQ(text(window), "");
  point(window, 2, 3);
  EXPECT_EQ(text(window), "y: x 2.0, y 3.00");
  point(window, 2.5, 2.25);
  EXPECT_TRUE(text(window).starts_with("x 2.5")) << text(window);
  auto* const plot = window->graph().findChild<QWidget*>("PicGraph");
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(plot, &leave);
  QApplication::processEvents();
  EXPECT_EQ(text(window), "");
}

TEST_F(ReadOutWindow, ShowsDatesAsDates) {
  MainWindow* const years =
      window_of(written(path("years.csv"), "day,y\n1958-03-29,1\n1976-02-29,3\n2001-12-29,2\n"));
  point(years, 1976 + 59.0 / 366, 3);
  EXPECT_EQ(text(years), "y: x 1976-02-29, y 3.0");
  MainWindow* const days =
      window_of(written(path("days.csv"), "day,y\n2012-01-31,1\n2012-02-29,3\n2012-03-31,2\n"));
  point(days, 29, 3);
  EXPECT_EQ(text(days), "y: x 2012-02-29, y 3.0");
  point(days, 10, 2.5);
  EXPECT_TRUE(text(days).starts_with("x 2012-02-10")) << text(days);
}

TEST_F(ReadOutWindow, ShowsNumbersWhereXIsNoDate) {
  MainWindow* const window =
      window_of(written(path("year.csv"), "year,y\n1958.25,1\n1976.5,3\n2001.75,2\n"));
  point(window, 1976.5, 3);
  EXPECT_EQ(text(window), "y: x 1976.5, y 3.0");
}

TEST_F(ReadOutWindow, KeepsItsWidthAndTheMessagesBesideIt) {
  MainWindow* const window = window_of(table());
  QApplication::processEvents();
  const QRect before = label(window).geometry();
  window->statusBar()->showMessage("Saved");
  point(window, 2, 3);
  EXPECT_EQ(window->statusBar()->currentMessage(), "Saved");
  EXPECT_EQ(text(window), "y: x 2.0, y 3.00");
  QApplication::processEvents();
  EXPECT_EQ(label(window).geometry(), before);
  ReadOut endless;
  endless.place = QPointF(1, 2);
  endless.nearest = CurvePoint{QString(500, 'n'), false, 1, 1, 1, 2};
  endless.x_text = "1";
  endless.y_text = "2.5";
  label(window).show_read_out(endless);
  QApplication::processEvents();
  EXPECT_EQ(label(window).geometry(), before);
  EXPECT_TRUE(label(window).text().endsWith("y 2.5"));
  EXPECT_TRUE(label(window).toolTip().contains(QString(500, 'n')));
}

}  // namespace
}  // namespace kurv::app
