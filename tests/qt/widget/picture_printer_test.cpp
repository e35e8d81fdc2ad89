// One page of a printer, without the dialog before it.
#include "qt/widget/picture_printer.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QPdfWriter>
#include <QProcess>
#include <QTemporaryDir>
#include <vector>

namespace kurv {
namespace {

class PrinterPage : public testing::Test {
 protected:
  QString path() const { return m_folder.filePath("page.pdf"); }

  // A page of 400 x 300 points with margins of 20.
  void print(const QImage& picture, const QString& caption = {}) {
    QPdfWriter writer(path());
    writer.setPageLayout(
        QPageLayout(QPageSize(QSizeF(400, 300), QPageSize::Point, {}, QPageSize::ExactMatch),
                    QPageLayout::Portrait, QMarginsF(20, 20, 20, 20)));
    EXPECT_TRUE(print_page(writer, picture, {caption, QFont("Liberation Sans", 12)}));
  }

  QByteArray run(const QString& tool, const QStringList& arguments) {
    QProcess process;
    process.setWorkingDirectory(m_folder.path());
    process.start(tool, arguments);
    EXPECT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 0);
    return process.readAllStandardOutput();
  }

  // A pixel for each point.
  QImage page() {
    run("pdftoppm", {"-r", "72", "-png", "-singlefile", "page.pdf", "page"});
    return QImage(m_folder.filePath("page.png")).convertToFormat(QImage::Format_RGB32);
  }

  static QRect ink(const QImage& image) {
    QRect found;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (qGray(image.pixel(x, y)) < 128) found |= QRect(x, y, 1, 1);
      }
    }
    return found;
  }

  static QImage black(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::black);
    return image;
  }

  QTemporaryDir m_folder;
};

// Within a pixel of the page.
void expect_near(const QRect& found, const QRect& wanted) {
  EXPECT_NEAR(found.left(), wanted.left(), 1);
  EXPECT_NEAR(found.top(), wanted.top(), 1);
  EXPECT_NEAR(found.right(), wanted.right(), 1);
  EXPECT_NEAR(found.bottom(), wanted.bottom(), 1);
}

TEST_F(PrinterPage, APictureFillsWhatTheMarginsLeaveAndKeepsItsShape) {
  print(black(360, 260));
  expect_near(ink(page()), QRect(20, 20, 360, 260));
  print(black(36, 13));
  expect_near(ink(page()), QRect(20, 85, 360, 130));
  print(black(10, 1000));
  expect_near(ink(page()), QRect(199, 20, 3, 260));
}

TEST_F(PrinterPage, ACaptionIsBelowThePicture) {
  print(black(360, 260), "Below the picture");
  const QByteArray text = run("pdftotext", {"page.pdf", "-"});
  EXPECT_TRUE(text.contains("Below the picture")) << text.toStdString();
  const QImage shown = page();
  EXPECT_GT(qGray(shown.pixel(25, 270)), 128) << "the picture has made room";
  EXPECT_LT(ink(shown).bottom(), 281);
}

TEST_F(PrinterPage, EveryPixelReachesThePaperAsItIs) {
  QImage noise(300, 200, QImage::Format_RGB32);
  quint32 state = 1;
  for (int y = 0; y < noise.height(); ++y) {
    for (int x = 0; x < noise.width(); ++x) {
      state = state * 1664525U + 1013904223U;
      noise.setPixel(x, y, 0xFF000000 | (state >> 8));
    }
  }
  print(noise);
  run("pdfimages", {"-png", "page.pdf", "image"});
  const QImage printed =
      QImage(m_folder.filePath("image-000.png")).convertToFormat(QImage::Format_RGB32);
  EXPECT_EQ(printed, noise);
}

TEST_F(PrinterPage, ABlankPictureAndNoPictureAtAllLeaveThePageBlank) {
  QImage white(100, 100, QImage::Format_RGB32);
  white.fill(Qt::white);
  for (const QImage& picture : {white, QImage()}) {
    print(picture);
    EXPECT_TRUE(ink(page()).isNull());
  }
}

TEST_F(PrinterPage, AFileThatCannotBeOpenedIsRefused) {
  QPdfWriter writer("/nosuch/folder/page.pdf");
  EXPECT_FALSE(print_page(writer, black(10, 10), {}));
}

TEST_F(PrinterPage, OnlyAFileWithAllOfItsBytesIsWhole) {
  print(black(360, 260), "caption");
  EXPECT_TRUE(is_complete_pdf(path()));
  QFile file(path());
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray whole = file.readAll();
  file.close();
  const auto write = [&](const QByteArray& bytes) {
    EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
    file.close();
  };
  for (const qsizetype length : {qsizetype(0), qsizetype(10), whole.size() / 2, whole.size() - 9}) {
    write(whole.left(length));
    EXPECT_FALSE(is_complete_pdf(path())) << length;
  }
  write(whole.left(200) + whole.mid(300));
  EXPECT_FALSE(is_complete_pdf(path())) << "a hole in the middle";
  EXPECT_FALSE(is_complete_pdf(m_folder.filePath("missing.pdf")));
  EXPECT_FALSE(is_complete_pdf("/dev/full")) << "which would be read without end";
}

}  // namespace
}  // namespace kurv
