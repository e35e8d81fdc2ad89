// Measures the errors of pixels.
//
//   bench_quality exact SHAPE WIDTH FILE       writes the exact coverage
//   bench_quality compare SHAPE WIDTH FILE...  prints mean and largest error of each, 0..255, over
//                                              the pixels that are touched in either picture
//   bench_quality sheet PICTURE SHAPE,... LABEL=FILE...
//                                              draws the coverages side by side: a column for each
//                                              PGM file, in which the shapes are one below the
//                                              other
#include <QColor>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QString>
#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "bench/common/subject.h"
#include "bench/quality/exact.h"

namespace {

using bench::Arguments;
using bench::CoverageBytes;

CoverageBytes read_coverage(const std::string& path, const bench::Shape& shape) {
  std::ifstream file(path, std::ios::binary);
  CoverageBytes bytes(std::istreambuf_iterator<char>(file), {});
  if (bytes.size() !=
      static_cast<std::size_t>(shape.width) * static_cast<std::size_t>(shape.height)) {
    throw std::runtime_error("no picture of this shape: " + path);
  }
  return bytes;
}

// The coverages of several shapes of the same size, in a PGM file as high as all of them.
CoverageBytes read_column(const std::string& path, const bench::Shape& shape, std::size_t shapes) {
  std::ifstream file(path, std::ios::binary);
  std::string format;
  std::size_t width = 0, height = 0, white = 0;
  file >> format >> width >> height >> white;
  file.get();
  CoverageBytes bytes(std::istreambuf_iterator<char>(file), {});
  if (format != "P5" || width != static_cast<std::size_t>(shape.width) ||
      height != static_cast<std::size_t>(shape.height) * shapes || white != 255 ||
      bytes.size() != width * height) {
    throw std::runtime_error("no picture of these shapes: " + path);
  }
  return bytes;
}

void compare(const Arguments& arguments) {
  const bench::Shape shape = bench::shape_of(arguments.at(1));
  const CoverageBytes exact = bench::exact_coverage(shape, std::stod(arguments.at(2)));
  for (std::size_t file = 3; file < arguments.size(); ++file) {
    const CoverageBytes compared = read_coverage(arguments[file], shape);
    long sum = 0, touched = 0;
    int largest = 0;
    for (std::size_t i = 0; i < exact.size(); ++i) {
      if (exact[i] == 0 && compared[i] == 0) continue;
      const int error = std::abs(int{exact[i]} - int{compared[i]});
      sum += error;
      ++touched;
      largest = std::max(largest, error);
    }
    std::cout << static_cast<double>(sum) / static_cast<double>(touched) << ' ' << largest
              << std::endl;
  }
}

// An enlarged comparison: a column for each subject, a row for each shape.
class Sheet {
 public:
  Sheet(int columns, int rows, const bench::Shape& shape)
      : m_image(kLeft + columns * (shape.width * kScale + kGap),
                kTop + rows * (shape.height * kScale + kGap), QImage::Format_RGB32) {
    m_image.fill(QColor(232, 232, 232));
  }

  void label(int column, const std::string& text, const bench::Shape& shape) {
    write({kLeft + column * (shape.width * kScale + kGap), 0, shape.width * kScale, kTop}, text);
  }
  void name(int row, const std::string& text, const bench::Shape& shape) {
    write({4, kTop + row * (shape.height * kScale + kGap), kLeft - 8, shape.height * kScale}, text);
  }
  void draw(int column, int row, const bench::Shape& shape, const CoverageBytes& coverage) {
    const QImage grey(coverage.data(), shape.width, shape.height, shape.width,
                      QImage::Format_Grayscale8);
    QImage drawn = grey.copy();
    drawn.invertPixels();
    QPainter painter(&m_image);
    painter.drawImage(QRect(kLeft + column * (shape.width * kScale + kGap),
                            kTop + row * (shape.height * kScale + kGap), shape.width * kScale,
                            shape.height * kScale),
                      drawn);
  }
  void save(const std::string& path) const {
    if (!m_image.save(QString::fromStdString(path))) {
      throw std::runtime_error("cannot write " + path);
    }
  }

 private:
  static constexpr int kScale = 6;
  static constexpr int kGap = 10;
  static constexpr int kLeft = 90;
  static constexpr int kTop = 34;

  void write(QRect box, const std::string& text) {
    QPainter painter(&m_image);
    QFont font("Liberation Sans");
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(18);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(box, Qt::AlignCenter | Qt::TextWordWrap, QString::fromStdString(text));
  }

  QImage m_image;
};

Arguments split(const std::string& text, char separator) {
  Arguments parts{""};
  for (const char c : text) {
    if (c == separator) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

void draw_sheet(const Arguments& arguments) {
  const Arguments shapes = split(arguments.at(2), ',');
  const bench::Shape shape = bench::shape_of(shapes.at(0));
  const auto size = static_cast<std::ptrdiff_t>(shape.width) * shape.height;
  const int columns = static_cast<int>(arguments.size()) - 3;
  Sheet sheet(columns, static_cast<int>(shapes.size()), shape);
  for (int column = 0; column < columns; ++column) {
    const Arguments subject = split(arguments[static_cast<std::size_t>(column) + 3], '=');
    const CoverageBytes coverages = read_column(subject.at(1), shape, shapes.size());
    sheet.label(column, subject.at(0), shape);
    auto coverage = coverages.begin();
    for (int row = 0; row < static_cast<int>(shapes.size()); ++row, coverage += size) {
      if (column == 0) sheet.name(row, shapes[static_cast<std::size_t>(row)], shape);
      sheet.draw(column, row, shape, CoverageBytes(coverage, coverage + size));
    }
  }
  sheet.save(arguments.at(1));
}

void run(const Arguments& arguments) {
  const std::string& what = arguments.at(0);
  if (what == "exact") {
    bench::write_coverage(arguments.at(3), bench::exact_coverage(bench::shape_of(arguments.at(1)),
                                                                 std::stod(arguments.at(2))));
  } else if (what == "compare") {
    compare(arguments);
  } else if (what == "sheet") {
    draw_sheet(arguments);
  } else {
    throw std::invalid_argument("no such work");
  }
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  return bench::subject_main(argc, argv, run);
}
