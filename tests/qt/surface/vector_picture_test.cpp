// The contents of vector documents.
#include <gmock/gmock.h>

#include <QRegularExpression>
#include <cmath>
#include <limits>

#include "model/palette.h"
#include "tests/qt/surface/picture_pixels.h"
#include "tests/qt/surface/vector_documents.h"

namespace kurv {
namespace {

using test::elements_named;
using test::SvgElement;
using testing::HasSubstr;

constexpr Single kInfinity = std::numeric_limits<Single>::infinity();
constexpr Single kNan = std::numeric_limits<Single>::quiet_NaN();
constexpr Single kLargest = std::numeric_limits<Single>::max();

VectorPicture svg_picture(QSize size = {400, 300}, double ratio = 1) {
  return {VectorFormat::kSvg, "Title", size, ratio};
}

std::vector<SvgElement> paths(VectorPicture& picture) {
  return elements_named(picture.take_document(), "path");
}

std::string path_data(const SvgElement& path) {
  return path.attributes["d"].toStdString();
}

TEST(VectorPicture, HasTheSizeInTwipsOfAPictureAtEveryRatio) {
  for (const QSize size : {QSize(333, 217), QSize(1, 1), QSize(0, -5), QSize(7680, 4320)}) {
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 0.0}) {
      const Picture pixels(size, ratio);
      const VectorPicture vectors = svg_picture(size, ratio);
      EXPECT_EQ(vectors.ScaleWidth(), pixels.ScaleWidth()) << size.width() << ' ' << ratio;
      EXPECT_EQ(vectors.ScaleHeight(), pixels.ScaleHeight()) << size.height() << ' ' << ratio;
    }
  }
}

TEST(VectorPicture, MeasuresTextsAsAPictureDoes) {
  Picture pixels(QSize(400, 300));
  VectorPicture vectors = svg_picture();
  for (const Font& font : {Font{}, Font{"DejaVu Serif", 13.5F, true, true}, Font{"", 0, false}}) {
    pixels.set_font(font);
    vectors.set_font(font);
    for (const char* text : {"", "1958.21", "two\r\nlines and more", "x\n", "\xF0\x9F\x98\x80"}) {
      EXPECT_EQ(vectors.TextWidth(text), pixels.TextWidth(text)) << text;
      EXPECT_EQ(vectors.TextHeight(text), pixels.TextHeight(text)) << text;
    }
  }
}

TEST(VectorPicture, IsAWhitePageOfItsSize) {
  VectorPicture picture = svg_picture();
  const QByteArray svg = picture.take_document();
  const SvgElement root = elements_named(svg, "svg").at(0);
  EXPECT_EQ(root.attributes["width"], "400");
  EXPECT_EQ(root.attributes["height"], "300");
  EXPECT_EQ(root.attributes["viewBox"], "0 0 6000 4500");
  EXPECT_EQ(elements_named(svg, "title").at(0).text, "Title");
  EXPECT_TRUE(is_filled(test::rendered_svg(svg), QRect(0, 0, 400, 300), kWhite));
}

TEST(VectorPicture, ConnectedSegmentsOfAColourAreOnePath) {
  VectorPicture picture = svg_picture();
  picture.Line({0, 0}, {10, 20}, 9, LineKind::kSegment);
  picture.Line({10, 20}, {12.344F, 19}, 9, LineKind::kSegment);
  picture.Line({100, 100}, {200, 100}, 9, LineKind::kSegment);
  picture.Line({200, 100}, {300, 100}, 1, LineKind::kSegment);
  const std::vector<SvgElement> found = paths(picture);
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(path_data(found[0]), "M0 0l10 20 2.34-1M100 100l100 0");
  EXPECT_EQ(found[0].attributes["stroke"], "#0000ff");
  EXPECT_EQ(found[0].attributes["stroke-width"], "15");
  EXPECT_EQ(path_data(found[1]), "M200 100l100 0");
}

TEST(VectorPicture, RelativeCommandsDoNotAccumulateRoundingErrors) {
  VectorPicture picture = svg_picture();
  const int kSteps = 3000;
  const Single step = 1.0F / 3;
  for (int i = 0; i < kSteps; ++i) {
    const Single from = static_cast<Single>(i) * step;
    const Single to = static_cast<Single>(i + 1) * step;
    picture.Line({from, 0}, {to, 0}, 1, LineKind::kSegment);
  }
  double x = 0;
  const QString data = paths(picture).at(0).attributes["d"];
  const QStringList numbers = data.mid(5).split(' ');
  for (qsizetype i = 0; i < numbers.size(); i += 2) x += numbers[i].toDouble();
  EXPECT_NEAR(x, 1000, 0.02);
}

TEST(VectorPicture, PointsThatRoundToTheSameAreWrittenOnce) {
  VectorPicture picture = svg_picture();
  for (int i = 0; i < 30000; ++i) {
    picture.Line({100, 100}, {100.001F, 100}, 1, LineKind::kSegment);
    picture.Line({100.001F, 100}, {100, 100}, 1, LineKind::kSegment);
  }
  EXPECT_LT(picture.take_document().size(), 3000);
}

TEST(VectorPicture, AWiderPenBeginsAnotherPath) {
  VectorPicture picture = svg_picture();
  picture.Line({0, 0}, {10, 0}, 1, LineKind::kSegment);
  picture.DrawWidth(3);
  picture.Line({10, 0}, {20, 0}, 1, LineKind::kSegment);
  picture.DrawWidth(-2);
  picture.Line({20, 0}, {30, 0}, 1, LineKind::kSegment);
  const std::vector<SvgElement> found = paths(picture);
  ASSERT_EQ(found.size(), 3U);
  EXPECT_EQ(found[1].attributes["stroke-width"], "45");
  EXPECT_EQ(found[2].attributes["stroke-width"], "15") << "at least one logical pixel";
}

TEST(VectorPicture, RulesAndFramesAreCrispAndMarkersAreNotSnapped) {
  VectorPicture picture = svg_picture();
  picture.Line({100, 100}, {900, 100}, kDarkGrey, LineKind::kRule);
  picture.Line({900, 900}, {100, 100}, kBlack, LineKind::kBox);
  picture.Line({100, 100}, {166.5F, 166.5F}, 2, LineKind::kBox);
  const std::vector<SvgElement> found = paths(picture);
  ASSERT_EQ(found.size(), 3U);
  EXPECT_EQ(path_data(found[0]), "M100 100l800 0");
  EXPECT_EQ(path_data(found[1]), "M100 100l800 0 0 800-800 0 0-800z");
  EXPECT_EQ(path_data(found[2]), "M100 100l66.5 0 0 66.5-66.5 0 0-66.5z");
  for (const SvgElement& path : found) {
    EXPECT_EQ(path.attributes["stroke-linecap"], "square");
    EXPECT_EQ(path.attributes["stroke-linejoin"], "miter");
  }
  EXPECT_EQ(found[0].attributes["shape-rendering"], "crispEdges");
  EXPECT_EQ(found[1].attributes["shape-rendering"], "crispEdges");
  EXPECT_FALSE(found[2].attributes.contains("shape-rendering"));
}

TEST(VectorPicture, WhatIsDrawnLaterLiesAbove) {
  VectorPicture picture = svg_picture();
  picture.Line({0, 1500}, {6000, 1500}, 12, LineKind::kSegment);
  picture.Line({1500, 1000}, {3000, 2000}, kWhite, LineKind::kFilledBox);
  picture.Line({0, 1500}, {2250, 1500}, 9, LineKind::kSegment);
  const QImage image = test::rendered_svg(picture.take_document(), 2);
  EXPECT_TRUE(is_palette(image, 250, 200, 9));
  EXPECT_TRUE(is_palette(image, 350, 200, kWhite));
  EXPECT_TRUE(is_palette(image, 500, 200, 12));
}

TEST(VectorPicture, TextStaysText) {
  VectorPicture picture = svg_picture();
  picture.set_font({"DejaVu Sans", 12, true, true});
  picture.set_ForeColor(4);
  picture.Print(100, 200, "a < b & \"c\"  ");
  const QByteArray svg = picture.take_document();
  const SvgElement text = elements_named(svg, "text").at(0);
  EXPECT_EQ(text.text, "a < b & \"c\"  ");
  EXPECT_EQ(text.attributes["xml:space"], "preserve");
  EXPECT_EQ(text.attributes["font-family"], "'DejaVu Sans'");
  EXPECT_EQ(text.attributes["font-size"], "240");
  EXPECT_EQ(text.attributes["font-weight"], "bold");
  EXPECT_EQ(text.attributes["font-style"], "italic");
  EXPECT_EQ(text.attributes["fill"], "#800000");
  EXPECT_EQ(text.attributes["style"],
            "font:italic bold 240px 'DejaVu Sans','Liberation Sans',sans-serif");
  EXPECT_NEAR(text.attributes["textLength"].toDouble(), picture.TextWidth("a < b & \"c\"  "), 0.01);
}

TEST(VectorPicture, ReplacesCharactersThatXmlForbids) {
  VectorPicture picture(VectorFormat::kSvg,
                        QString::fromUtf8("a\x01\nb<\xEF\xBF\xBF\xF0\x9F\x98\x80"),
                        QSize(400, 300));
  picture.set_font({"Fo\x02'nt\\", 8});
  picture.Print(0, 0, "tab\tbell\x07\xEF\xBF\xBE \xF0\x9F\x98\x80 \xFF\xC3 ]]>");
  const QByteArray svg = picture.take_document();
  EXPECT_EQ(elements_named(svg, "title").at(0).text,
            QString::fromUtf8("a  b<\xEF\xBF\xBD\xF0\x9F\x98\x80"));
  const QString text = elements_named(svg, "text").at(0).text;
  EXPECT_THAT(text.toStdString(), testing::StartsWith("tab bell \xEF\xBF\xBD \xF0\x9F\x98\x80"));
  EXPECT_THAT(text.toStdString(), testing::EndsWith("]]>"));
}

TEST(VectorPicture, LinesOfATextStandBelowEachOther) {
  VectorPicture picture = svg_picture();
  picture.Print(100, 200, "one\r\ntwo\rthree");
  const auto texts = elements_named(picture.take_document(), "text");
  ASSERT_EQ(texts.size(), 3U);
  const double height = picture.TextHeight("x");
  EXPECT_NEAR(texts[2].attributes["y"].toDouble() - texts[0].attributes["y"].toDouble(), 2 * height,
              0.02);
}

TEST(VectorPicture, OfAMegabyteOfTextOnlyWhatCanBeSeenIsWritten) {
  VectorPicture picture = svg_picture();
  picture.Print(0, 100, std::string(1000000, 'x'));
  picture.Print(0, 100, std::string(1000000, '\n'));
  EXPECT_LT(picture.take_document().size(), 5000);
}

TEST(VectorPicture, ADocumentIsTakenOnceAndThePageIsBlankAgain) {
  for (const VectorFormat format : {VectorFormat::kSvg, VectorFormat::kPdf}) {
    VectorPicture picture(format, "T", QSize(100, 100));
    picture.DrawWidth(2);
    picture.Print(100, 100, "once");
    const QByteArray first = picture.take_document();
    EXPECT_THAT(format == VectorFormat::kSvg ? QString(first).toStdString()
                                             : test::pdf_text(first).toStdString(),
                HasSubstr("once"));
    picture.Print(100, 100, "cleared");
    picture.Cls();
    picture.Line({0, 0}, {100, 100}, 1, LineKind::kSegment);
    const QByteArray second = picture.take_document();
    EXPECT_FALSE(second.contains("once"));
    EXPECT_FALSE(second.contains("cleared"));
    EXPECT_GT(second.size(), 100);
  }
}

TEST(VectorPicture, HasNoPixels) {
  EXPECT_EQ(svg_picture().bitmap(), "");
}

TEST(VectorPicture, PdfHasTitleSizeAndText) {
  VectorPicture picture(VectorFormat::kPdf, QString::fromUtf8("CO\u2082 <b>"), QSize(400, 300));
  picture.Print(100, 200, "label 1958.21");
  const QByteArray pdf = picture.take_document();
  const QTemporaryDir folder;
  const std::string info = test::output_of("pdfinfo", {"in.pdf"}, pdf, folder).toStdString();
  EXPECT_THAT(info, HasSubstr("CO\u2082 <b>"));
  EXPECT_THAT(info, HasSubstr("300 x 225 pts"));
  EXPECT_THAT(info, testing::ContainsRegex("Pages: +1"));
  EXPECT_THAT(test::pdf_text(pdf).toStdString(), HasSubstr("label 1958.21"));
}

TEST(VectorPicture, APdfPageIsOfWholePointsAndCutsNothingOff) {
  VectorPicture picture(VectorFormat::kPdf, "T", QSize(401, 350));
  const QTemporaryDir folder;
  const QByteArray info = test::output_of("pdfinfo", {"in.pdf"}, picture.take_document(), folder);
  EXPECT_THAT(info.toStdString(), HasSubstr("301 x 263 pts"));
}

// -- Extreme coordinates --------------------------------------------------------------------------

// Draws everything at and around positions that are off the page, far away or NaN.
void draw_hostile(PlotSurface& surface) {
  const Single wild[] = {kNan, kInfinity, -kInfinity, kLargest, -kLargest, 1e30F, -3e9F, 0, 2000};
  surface.DrawWidth(2);
  for (const Single a : wild) {
    for (const Single b : wild) {
      for (const LineKind kind : {LineKind::kSegment, LineKind::kRule, LineKind::kBox}) {
        surface.Line({a, b}, {1000, 2000}, 1, kind);
        surface.Line({b, 500}, {a, b}, 12, kind);
      }
      surface.Circle({a, b}, a, 2);
      surface.Circle({3000, 2000}, b, 3);
      surface.Arc({a, 1000}, b, 4, a, b);
      surface.Arc({a, b}, 1000, 5, b, 1);
      surface.PSet({a, b}, 9);
      surface.Print(a, b, "wild\nwords");
    }
  }
}

TEST(VectorPicture, DrawsNothingForNaNAndKeepsNumbersNearThePage) {
  VectorPicture picture = svg_picture();
  draw_hostile(picture);
  const QByteArray svg = picture.take_document();
  EXPECT_FALSE(svg.contains("nan"));
  EXPECT_FALSE(svg.contains("inf"));
  EXPECT_FALSE(svg.contains("1e"));
  for (const SvgElement& path : elements_named(svg, "path")) {
    for (const QString& number : path.attributes["d"].split(QRegularExpression("[^0-9.]+"))) {
      EXPECT_LT(number.toDouble(), 200000) << path_data(path);
    }
  }
}

TEST(VectorPicture, ShowsWhatAPictureShowsOfFarAwayCoordinates) {
  Picture pixels(QSize(400, 300), 2);
  VectorPicture svg = svg_picture();
  VectorPicture pdf(VectorFormat::kPdf, "T", QSize(400, 300));
  for (PlotSurface* surface : {static_cast<PlotSurface*>(&pixels), static_cast<PlotSurface*>(&svg),
                               static_cast<PlotSurface*>(&pdf)}) {
    draw_hostile(*surface);
    surface->Line({-1e9F, -1e9F}, {1e9F, 1.00001e9F}, 12, LineKind::kSegment);
    surface->Line({-1e30F, 100}, {1e30F, 100}, 9, LineKind::kSegment);
    surface->Circle({3000, 2.0e9F}, 1.99999795e9F, 13);
    surface->Circle({1e7F, 1e7F}, 1.4141e7F, 10);
    surface->Arc({3000, 1.0e6F}, 998000, 4, 1.5708F, 2);
    surface->Arc({3000, -1.0e6F}, 1003000, 2, 4, 4.7124F);
  }
  const QImage expected = pixels.image();
  EXPECT_LT(test::difference(test::rendered_svg(svg.take_document(), 2), expected), 1);
  EXPECT_LT(test::difference(test::rendered_pdf(pdf.take_document(), 2), expected), 2);
}

}  // namespace
}  // namespace kurv
