// Reads and renders SVG and PDF documents.
#pragma once

#include <KurvGraph/picture.h>
#include <KurvGraph/vector_picture.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QMap>
#include <QPainter>
#include <QProcess>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <cmath>
#include <vector>

namespace kurv::test {

struct SvgElement {
  QString name;
  QMap<QString, QString> attributes;
  QString text;
};

// All elements in document order. Fails the test where the XML is not well-formed.
inline std::vector<SvgElement> elements_of(const QByteArray& svg) {
  std::vector<SvgElement> elements;
  QXmlStreamReader xml(svg);
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isStartElement()) {
      SvgElement element{xml.name().toString(), {}, {}};
      for (const QXmlStreamAttribute& attribute : xml.attributes()) {
        element.attributes[attribute.qualifiedName().toString()] = attribute.value().toString();
      }
      elements.push_back(element);
    } else if (xml.isCharacters() && !xml.isWhitespace()) {
      elements.back().text += xml.text();
    }
  }
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  return elements;
}

inline std::vector<SvgElement> elements_named(const QByteArray& svg, const QString& name) {
  std::vector<SvgElement> found;
  for (const SvgElement& element : elements_of(svg)) {
    if (element.name == name) found.push_back(element);
  }
  return found;
}

inline QImage rendered_svg(const QByteArray& svg, double scale = 1) {
  QSvgRenderer renderer(svg);
  EXPECT_TRUE(renderer.isValid());
  QImage image(renderer.defaultSize() * scale, QImage::Format_RGB32);
  image.fill(Qt::magenta);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  renderer.render(&painter);
  return image;
}

// The output of a PDF tool for the document, whose file is "in.pdf" in its arguments.
inline QByteArray output_of(const QString& tool, const QStringList& arguments,
                            const QByteArray& pdf, const QTemporaryDir& folder) {
  QFile file(folder.filePath("in.pdf"));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(pdf);
  file.close();
  QProcess process;
  process.setWorkingDirectory(folder.path());
  process.start(tool, arguments);
  EXPECT_TRUE(process.waitForFinished(60000)) << tool.toStdString();
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  return process.readAllStandardOutput();
}

inline QString pdf_text(const QByteArray& pdf) {
  const QTemporaryDir folder;
  return QString::fromUtf8(output_of("pdftotext", {"-layout", "in.pdf", "-"}, pdf, folder));
}

// `scale` pixels for 15 twips.
inline QImage rendered_pdf(const QByteArray& pdf, double scale = 1) {
  const QTemporaryDir folder;
  output_of("pdftoppm", {"-r", QString::number(96 * scale), "-png", "-singlefile", "in.pdf", "out"},
            pdf, folder);
  return QImage(folder.filePath("out.png")).convertToFormat(QImage::Format_RGB32);
}

// The mean difference of their channels, 0..255, after both have been blurred a little, so that it
// does not matter whether a line is on a whole pixel or between two.
inline double difference(const QImage& a, const QImage& b) {
  EXPECT_EQ(a.size(), b.size());
  if (a.size() != b.size()) return 255;
  const QSize small = a.size() / 4;
  const QImage first = a.scaled(small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  const QImage second = b.scaled(small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  double sum = 0;
  for (int y = 0; y < small.height(); ++y) {
    for (int x = 0; x < small.width(); ++x) {
      const QRgb p = first.pixel(x, y);
      const QRgb q = second.pixel(x, y);
      sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) +
             std::abs(qBlue(p) - qBlue(q));
    }
  }
  return sum / (3.0 * small.width() * small.height());
}

}  // namespace kurv::test
