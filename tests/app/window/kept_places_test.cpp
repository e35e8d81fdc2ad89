// Where windows are from one run to the next.
#include "app/window/kept_places.h"

#include <KurvGraph/KurvGraph.h>
#include <KurvGraph/window_places.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QDataStream>
#include <QDialog>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

namespace kurv::app {
namespace {

struct Places : testing::Test {
  Places() { m_none = window_places(); }
  ~Places() override { set_window_places(m_none); }
  QString place() const { return m_folder.filePath("kurv.ini"); }

  QByteArray stored() const {
    return QSettings(place(), QSettings::IniFormat).value("windows/graph").toByteArray();
  }
  bool become_stored() const {
    return QTest::qWaitFor([this] { return stored() == window_places(); }, 5000);
  }

  // The geometry of a window at this place.
  static QByteArray moved(QPoint to) {
    QWidget window;
    window.setGeometry(QRect(to, QSize(200, 150)));
    return window.saveGeometry();
  }

  QTemporaryDir m_folder;
  QByteArray m_none;
};

TEST_F(Places, AreKeptFromOneRunToTheNext) {
  QByteArray places;
  QDataStream stream(&places, QIODevice::WriteOnly);
  stream.setVersion(QDataStream::Qt_6_0);
  for (int i = 0; i < 3; ++i) stream << moved({100 + i, 50});
  {
    const KeptPlaces run(place());
    set_window_places(places);
  }
  set_window_places(m_none);
  ASSERT_NE(window_places(), places);
  const KeptPlaces next_run(place());
  EXPECT_EQ(window_places(), places);
}

TEST_F(Places, NothingIsWrittenWhereNothingWasMoved) {
  { const KeptPlaces run(place()); }
  EXPECT_FALSE(QFile::exists(place()));
}

// A process that is killed, as where its user logs out, does not end its run.
TEST_F(Places, AreWrittenWhenAWindowIsLeftHiddenOrClosed) {
  const KeptPlaces run(place());
  KurvGraph graph;
  graph.plot({.x = {1, 2, 3}, .y = {{"a", {1, 4, 2}}}});
  graph.show();
  graph.ChartOptions("setup");
  QWidget* window = nullptr;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->objectName() == "frmPropert") window = widget;
  }
  ASSERT_NE(window, nullptr);
  QApplication::processEvents();
  window->move(31, 41);
  QEvent left(QEvent::WindowDeactivate);
  QApplication::sendEvent(window, &left);
  EXPECT_TRUE(become_stored()) << "left";
  window->move(32, 42);
  window->hide();
  EXPECT_TRUE(become_stored()) << "hidden";
  window->show();
  window->move(33, 43);
  window->close();
  EXPECT_TRUE(become_stored()) << "closed";
}

TEST_F(Places, TheImportOpensBesideThePlotAndThenWhereItWas) {
  QWidget plot;
  plot.setGeometry(50, 50, 300, 200);
  plot.show();
  const auto opened = [&] {
    QDialog import;
    import.resize(400, 300);
    place_import(import, plot, place());
    import.show();
    QApplication::processEvents();
    const QRect found = import.frameGeometry();
    import.move(90, 110);
    import.close();
    keep_import_place(import, place());
    return found;
  };
  EXPECT_FALSE(opened().intersects(plot.frameGeometry()));
  EXPECT_EQ(opened().topLeft(), QPoint(90, 110));
}

TEST_F(Places, AnImportWithALargerFontHasItsOwnSize) {
  QWidget plot;
  const auto opened = [&](int points) {
    QDialog import;
    QFont font = import.font();
    font.setPointSize(points);
    import.setFont(font);
    import.resize(points * 30, points * 20);
    place_import(import, plot, place());
    const QRect found = import.geometry();
    import.setGeometry(90, 110, 250, 150);
    import.show();
    import.close();
    keep_import_place(import, place());
    return found;
  };
  opened(10);
  EXPECT_EQ(opened(10), QRect(90, 110, 250, 150));
  EXPECT_EQ(opened(20), QRect(90, 110, 600, 400));
  EXPECT_EQ(opened(20), QRect(90, 110, 250, 150));
}

TEST_F(Places, SettingsThatAreNoPlacesAreIgnored) {
  QFile file(place());
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("[windows]\ngraph=@ByteArray(\\xff\\xff)\nimport=17\n");
  file.close();
  const KeptPlaces run(place());
  EXPECT_EQ(window_places(), m_none);
  QWidget plot;
  QDialog import;
  import.resize(400, 300);
  place_import(import, plot, place());
  EXPECT_EQ(import.size(), QSize(400, 300));
}

}  // namespace
}  // namespace kurv::app
