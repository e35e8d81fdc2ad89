// What the graph's own windows and dialogs show, and where.
#include <gmock/gmock.h>

#include <QFileDialog>
#include <QLineEdit>
#include <QTableView>
#include <QTemporaryDir>

#include "tests/qt/widget/plot_test.h"

namespace kurv::test {
namespace {

class WidgetWindows : public PlotTest {
 protected:
  ~WidgetWindows() override { m_graph.CloseMe(); }

  template <class Child>
  static Child* child(const char* window, const char* name) {
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (top->objectName() != window || !top->isVisible()) continue;
      return top->findChild<Child*>(name);
    }
    return nullptr;
  }

  // Loads two points with the same x, which are rejected.
  void load_refused() {
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, [] {
      if (QWidget* const box = QApplication::activeModalWidget()) box->close();
    });
    closer.start(1);
    Matrix<Double> y(1, 1, 1, 2);
    m_graph.scatter_graph(y, {1, {5, 5}}, 2, 1, String("Refused"), "x", {1, {"only"}}, 0, {});
  }
};

TEST_F(WidgetWindows, ShowWhatAHostHasSetWithoutARedraw) {
  m_graph.ChartOptions("setup");
  auto* const ticks = child<QLineEdit>("frmPropert", "txtAxisTicks");
  ASSERT_NE(ticks, nullptr);
  m_graph.set_NumTicks(23);
  EXPECT_EQ(ticks->text(), "23");
  m_graph.set_Title("set");
  EXPECT_EQ(child<QLineEdit>("frmPropert", "txtTitle")->text(), "set");
}

TEST_F(WidgetWindows, ShowDataThatWereRefused) {
  m_graph.ChartOptions("setup");
  m_graph.ChartOptions("table");
  auto* const table = child<QTableView>("frmTable", "grdTable");
  ASSERT_NE(table, nullptr);
  ASSERT_EQ(table->model()->rowCount(), 3);
  load_refused();
  EXPECT_EQ(table->model()->rowCount(), 2);
  EXPECT_EQ(child<QLineEdit>("frmPropert", "txtTitle")->text(), "Refused");
}

TEST_F(WidgetWindows, OfWhichOneIsClosedCarryNoDialog) {
  m_graph.ChartOptions("setup");
  QWidget* const properties = child<QLineEdit>("frmPropert", "txtTitle")->window();
  QApplication::setActiveWindow(properties);
  QPointer<QWidget> before;
  QTimer::singleShot(20, [&] {
    QWidget* const dialog = QApplication::activeModalWidget();
    if (!dialog) return;
    before = dialog->parentWidget();
    EXPECT_FALSE(dialog->windowTitle().isEmpty());
    dialog->close();
  });
  m_graph.CloseMe();
  m_graph.ChartOptions("saveas");
  EXPECT_EQ(before, &m_graph);
}

TEST_F(WidgetWindows, ABitmapThatIsSavedShowsTheCurvesThatWereDrawnOnceMore) {
  const QImage before = m_graph.image();
  QTemporaryDir folder;
  // A curve across the legend, which the second drawing paints over it.
  m_graph.layout().picLegend.left = m_graph.layout().plot.PlotLeft + 2000;
  m_graph.build_the_graph();
  process_all();
  QTimer::singleShot(20, [&] {
    auto* const dialog = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    dialog->selectNameFilter(dialog->nameFilters().at(1));
    dialog->findChild<QLineEdit*>("fileNameEdit")->setText(folder.filePath("a.bmp"));
    QTest::keyClick(dialog, Qt::Key_Return);
  });
  m_graph.ChartOptions("saveas");
  ASSERT_TRUE(QFile::exists(folder.filePath("a.bmp")));
  process_all();
  EXPECT_NE(m_graph.image(), before);
  EXPECT_EQ(m_plot.grab().toImage().convertToFormat(QImage::Format_RGB32),
            m_graph.image().convertToFormat(QImage::Format_RGB32));
}

TEST_F(WidgetWindows, AChangeIsReportedOnceForEachEvent) {
  int changes = 0;
  QObject::connect(&m_graph, &KurvGraph::changed, [&] { ++changes; });
  process_all();
  changes = 0;
  m_graph.set_Title("a");
  m_graph.set_xmin(1);
  m_graph.build_the_graph();
  EXPECT_EQ(changes, 0) << "the event is not over";
  process_all();
  EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace kurv::test
