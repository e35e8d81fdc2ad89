// A whole graph as a vector document.
#include <gmock/gmock.h>

#include <cmath>

#include "control/control_state.h"
#include "tests/qt/surface/vector_documents.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

constexpr QSize kSize(500, 352);

struct GraphHost {
  GraphHost() {
    control.first_placement();
    control.show();
  }

  void load(int curves, int count, bool lines = true, bool markers = true) {
    std::vector<std::vector<Double>> y(static_cast<std::size_t>(curves));
    std::vector<Double> x;
    std::vector<String> names;
    for (int i = 0; i < count; ++i) x.push_back(i);
    for (int k = 0; k < curves; ++k) {
      auto& values = y[static_cast<std::size_t>(k)];
      for (int i = 0; i < count; ++i) values.push_back(std::sin(i * 0.37 + k) * (1 + k));
      names.push_back("curve " + std::to_string(k));
    }
    control.scatter_graph(test::columns(y), test::points(x), static_cast<Integer>(count),
                          static_cast<Integer>(curves), String("A \"title\" & more"), "time",
                          test::names(names), 0, {}, Boolean(lines), Boolean(markers));
  }

  QByteArray document(VectorFormat format) const {
    VectorPicture page(format, "T", kSize);
    control.draw_on(page);
    return page.take_document();
  }

  test::PlainContainer container;
  test::ScriptedShell shell;
  Picture picture{kSize, 2};
  Control control{container, shell, picture};
};

TEST(VectorGraph, LooksLikeItsPixels) {
  GraphHost host;
  host.control.set_X_grid(true);
  host.control.set_Y_grid(true);
  host.load(5, 12);
  host.control.add_function("sin(x)*3");
  host.control.ChartOptions("refresh");
  host.control.build_the_graph();
  const QImage expected = host.picture.image();
  const QImage svg = test::rendered_svg(host.document(VectorFormat::kSvg), 2);
  const QImage pdf = test::rendered_pdf(host.document(VectorFormat::kPdf), 2);
  EXPECT_LT(test::difference(svg, expected), 2);
  EXPECT_LT(test::difference(pdf, expected), 2);
  QImage blank(expected.size(), QImage::Format_RGB32);
  blank.fill(Qt::white);
  EXPECT_GT(test::difference(blank, expected), 6) << "or else nothing is compared";
}

TEST(VectorGraph, EveryTextOfTheGraphIsThere) {
  GraphHost host;
  host.load(2, 5);
  host.control.ChartOptions("refresh");
  std::vector<std::string> texts;
  for (const auto& text : test::elements_named(host.document(VectorFormat::kSvg), "text")) {
    texts.push_back(text.text.trimmed().toStdString());
  }
  EXPECT_THAT(texts, testing::IsSupersetOf(
                         {"A \"title\" & more", "curve 0", "curve 1", "time", "0.00", "4.00"}));
  const std::string pdf = test::pdf_text(host.document(VectorFormat::kPdf)).toStdString();
  EXPECT_THAT(pdf, testing::HasSubstr("A \"title\" & more"));
  EXPECT_THAT(pdf, testing::HasSubstr("curve 1"));
}

TEST(VectorGraph, AnEmptyGraphIsABlankPage) {
  GraphHost host;
  const QByteArray svg = host.document(VectorFormat::kSvg);
  EXPECT_EQ(test::elements_of(svg).size(), 3U) << "the page, its title and its white";
  EXPECT_EQ(test::pdf_text(host.document(VectorFormat::kPdf)).trimmed(), "");
}

TEST(VectorGraph, FilesGrowWithThePoints) {
  GraphHost host;
  host.load(3, 1000, true, false);
  const auto small = host.document(VectorFormat::kSvg).size();
  host.load(20, 5000, true, false);
  const auto large = host.document(VectorFormat::kSvg).size();
  EXPECT_LT(large, 100000 * 14) << "so many bytes for each of its points";
  EXPECT_GT(large, 20 * small);
  EXPECT_LT(host.document(VectorFormat::kPdf).size(), large);
}

}  // namespace
}  // namespace kurv
