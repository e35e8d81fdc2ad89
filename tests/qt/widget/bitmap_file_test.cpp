// The bytes of the bitmap that a graph is saved as, at the resolution of the screen.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <QtEndian>
#include <cmath>

#include "tests/qt/widget/widget_support.h"

namespace kurv::test {
namespace {

// A number of the file's header, which is little-endian.
int field(const QByteArray& bytes, int offset) {
  return qFromLittleEndian<qint32>(bytes.constData() + offset);
}

TEST(BitmapFile, HasTheScreensPixelsAndAsManyOfThemToAMetre) {
  const QTemporaryDir folder;
  KurvGraph graph;
  resize_plot(graph, {300, 200});
  graph.plot(small_graph());
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (!dialog) return;
    auto* const filters = dialog->findChild<QComboBox*>("fileTypeCombo");
    filters->setCurrentIndex(1);
    Q_EMIT filters->activated(1);
    Q_EMIT filters->textActivated(filters->currentText());
    dialog->findChild<QLineEdit*>("fileNameEdit")->setText(folder.filePath("plot"));
    static_cast<QDialog&>(*dialog).accept();
  });
  timer.start(5);
  graph.ChartOptions("saveas");
  timer.stop();

  QFile file(folder.filePath("plot.bmp"));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray bytes = file.readAll();
  const double ratio = graph.devicePixelRatioF();
  ASSERT_TRUE(bytes.startsWith("BM"));
  EXPECT_EQ(field(bytes, 2), bytes.size());
  EXPECT_EQ(field(bytes, 18), std::lround(300 * ratio));
  EXPECT_EQ(field(bytes, 22), std::lround(200 * ratio));
  // A logical pixel has 15 twips, of which an inch has 1440.
  const auto per_metre = static_cast<int>(std::lround(96 * ratio / 0.0254));
  EXPECT_EQ(field(bytes, 38), per_metre);
  EXPECT_EQ(field(bytes, 42), per_metre);
}

}  // namespace
}  // namespace kurv::test
