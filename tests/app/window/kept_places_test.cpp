// Where windows are from one run to the next.
#include "app/window/kept_places.h"

#include <KurvGraph/window_places.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QDataStream>
#include <QDialog>
#include <QFile>
#include <QTemporaryDir>

namespace kurv::app {
namespace {

struct Places : testing::Test {
  Places() { m_none = window_places(); }
  ~Places() override { set_window_places(m_none); }
  QString place() const { return m_folder.filePath("kurv.ini"); }

  // As a properties window that was closed at this place.
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

TEST_F(Places, SettingsThatAreNoPlacesAreIgnored) {
  QFile file(place());
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("[windows]\ngraph=@ByteArray(\\xff\\xff)\nimport=17\n");
  file.close();
  const KeptPlaces run(place());
  EXPECT_EQ(window_places(), m_none);
  QWidget plot;
  QDialog import;
  place_import(import, plot, place());
}

}  // namespace
}  // namespace kurv::app
