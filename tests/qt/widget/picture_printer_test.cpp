// One page of a printer, without the dialog before it.
#include "qt/widget/picture_printer.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPdfWriter>
#include <QPrinter>
#include <QProcess>
#include <QTemporaryDir>

#include "tests/support/refusing_platform.h"

namespace kurv {
namespace {

using test::FullDisk;
using test::Unprivileged;

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

// -- PDF files ------------------------------------------------------------------------------------

QByteArray contents(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return file.readAll();
}

// The dates are the only bytes in which two files of the same page differ.
QByteArray without_date(QByteArray pdf) {
  const qsizetype date = pdf.indexOf("/CreationDate");
  EXPECT_GE(date, 0);
  return pdf.remove(date, pdf.indexOf('\n', date) - date);
}

class PrintedFile : public PrinterPage {
 protected:
  PrintedFile() {
    m_printer.setOutputFormat(QPrinter::PdfFormat);
    m_printer.setOutputFileName(path());
    m_printer.setDocName("document");
    m_printer.setPageSize(QPageSize(QPageSize::A5));
    m_printer.setPageOrientation(QPageLayout::Landscape);
  }

  static QImage coloured() {
    QImage image(60, 40, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, qRgb(4 * x, 6 * y, 99));
    }
    return image;
  }

  QStringList names() const { return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden); }

  const Caption m_caption{"Caption", QFont("Liberation Sans", 12)};
  QPrinter m_printer{QPrinter::HighResolution};
};

TEST_F(PrintedFile, HasTheBytesThatThePrinterItselfWouldWrite) {
  ASSERT_TRUE(print_page(m_printer, coloured(), m_caption));
  const QByteArray expected = without_date(contents(path()));
  ASSERT_TRUE(QFile::remove(path()));
  ASSERT_TRUE(print_file(m_printer, coloured(), m_caption));
  EXPECT_EQ(without_date(contents(path())), expected);
  EXPECT_EQ(names(), QStringList{"page.pdf"});
}

TEST_F(PrintedFile, IsGreyWhereTheUserHasChosenSo) {
  m_printer.setColorMode(QPrinter::GrayScale);
  ASSERT_TRUE(print_file(m_printer, coloured(), m_caption));
  const QImage shown = page();
  for (int y = 0; y < shown.height(); ++y) {
    for (int x = 0; x < shown.width(); ++x) {
      const QRgb pixel = shown.pixel(x, y);
      ASSERT_TRUE(qRed(pixel) == qGreen(pixel) && qGreen(pixel) == qBlue(pixel)) << x << ' ' << y;
    }
  }
  EXPECT_FALSE(ink(shown).isNull());
}

TEST_F(PrintedFile, IsNotThereWhereTheDiskIsFull) {
  ASSERT_TRUE(print_file(m_printer, coloured(), m_caption));
  const auto size = static_cast<rlim_t>(QFile(path()).size());
  for (const rlim_t room : {rlim_t{0}, rlim_t{100}, size / 2, size - 1}) {
    QFile::remove(path());
    const FullDisk disk(room);
    EXPECT_FALSE(print_file(m_printer, coloured(), m_caption)) << room;
    EXPECT_EQ(names(), QStringList{}) << room;
  }
}

TEST_F(PrintedFile, LeavesTheOlderOneWhereTheDiskIsFull) {
  ASSERT_TRUE(print_file(m_printer, black(10, 10), m_caption));
  const QByteArray before = contents(path());
  {
    const FullDisk disk(3000);
    EXPECT_FALSE(print_file(m_printer, coloured(), m_caption));
  }
  EXPECT_EQ(contents(path()), before);
  EXPECT_EQ(names(), QStringList{"page.pdf"});
}

// A folder in which the file may be written and no other.
TEST_F(PrintedFile, LeavesTheOlderOneAlsoWhereItIsOverwrittenInPlace) {
  ASSERT_TRUE(print_file(m_printer, coloured(), m_caption));
  const qsizetype size = contents(path()).size();
  const QFile::Permissions shared = QFile::Permissions::fromInt(0x6666);
  const auto print_in_place = [&] {
    QFile::setPermissions(m_folder.path(), QFile::Permissions::fromInt(0x5555));
    bool printed = false;
    {
      const Unprivileged user;
      printed = print_file(m_printer, coloured(), m_caption);
    }
    QFile::setPermissions(m_folder.path(), QFile::Permissions::fromInt(0x7777));
    return printed;
  };
  for (const qsizetype older : {qsizetype{0}, qsizetype{9}, size / 3, 4 * size}) {
    const QByteArray before(older, 'o');
    {
      QFile file(path());
      ASSERT_TRUE(file.open(QIODevice::WriteOnly));
      ASSERT_EQ(file.write(before), older);
    }
    QFile::setPermissions(path(), shared);
    for (const qsizetype room : {qsizetype{0}, size / 2, size - 1}) {
      const FullDisk disk(static_cast<rlim_t>(room));
      EXPECT_FALSE(print_in_place()) << older << ' ' << room;
      EXPECT_EQ(contents(path()), before) << room;
    }
    EXPECT_TRUE(print_in_place());
    EXPECT_EQ(contents(path()).size(), size);
    EXPECT_EQ(names(), QStringList{"page.pdf"});
  }
}

TEST_F(PrintedFile, ReplacesNeitherADeviceNorAFolder) {
  for (const QString& target : {QString("/dev/full"), QString("/dev/null"), m_folder.path()}) {
    m_printer.setOutputFileName(target);
    EXPECT_FALSE(print_file(m_printer, coloured(), m_caption)) << target.toStdString();
    EXPECT_FALSE(QFileInfo(target).isFile());
  }
  m_printer.setOutputFileName("/nosuch/folder/page.pdf");
  EXPECT_FALSE(print_file(m_printer, coloured(), m_caption));
}

}  // namespace
}  // namespace kurv
