// The graph of a widget as a vector document, and in pictures of other sizes.
#include <KurvGraph/vector_picture.h>
#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QXmlStreamReader>
#include <cstdlib>
#include <limits>

#include "tests/qt/widget/widget_support.h"

namespace kurv::test {
namespace {

using testing::HasSubstr;

TEST(WidgetVectors, AreAsLargeAsTheWidgetAndCarryItsTitle) {
  KurvGraph graph;
  resize_plot(graph, {321, 217});
  graph.plot(small_graph());
  QXmlStreamReader xml(graph.svg());
  ASSERT_TRUE(xml.readNextStartElement());
  EXPECT_EQ(xml.attributes().value("width").toString(), "321");
  EXPECT_EQ(xml.attributes().value("height").toString(), "217");
  EXPECT_EQ(xml.attributes().value("viewBox").toString(), "0 0 4815 3255");
  ASSERT_TRUE(xml.readNextStartElement());
  EXPECT_EQ(xml.readElementText(), "Small");
  EXPECT_TRUE(graph.pdf().startsWith("%PDF"));
}

TEST(WidgetVectors, ChangeNothing) {
  KurvGraph graph;
  graph.plot(small_graph());
  Listener listener(graph);
  const QImage before = graph.image();
  EXPECT_EQ(graph.svg(), graph.svg());
  EXPECT_FALSE(graph.pdf().isEmpty());
  EXPECT_EQ(listener.redraws_since(), 0);
  EXPECT_EQ(graph.image(), before);
}

TEST(WidgetVectors, ShowWhatTheNextRedrawWould) {
  KurvGraph graph;
  graph.plot(small_graph());
  graph.set_Title("Not drawn yet");
  EXPECT_THAT(graph.svg().toStdString(), HasSubstr(">Not drawn yet</text>"));
}

TEST(WidgetVectors, OfAnEmptyGraphAreBlank) {
  const KurvGraph graph;
  EXPECT_EQ(graph.svg().count("<text"), 0);
  EXPECT_EQ(graph.svg().count("<path"), 0);
}

// -- In another size ------------------------------------------------------------------------------

TEST(WidgetPictures, OfAnotherSizeAreThoseOfAWindowOfThatSize) {
  KurvGraph graph;
  KurvGraph other;
  resize_plot(graph, {400, 300});
  resize_plot(other, {640, 480});
  for (KurvGraph* const one : {&graph, &other}) {
    one->set_fitted_items(true);
    one->plot(small_graph());
    one->ChartOptions("refresh");
  }
  const QImage before = graph.image();
  EXPECT_EQ(graph.picture({640, 480}, 96).convertToFormat(QImage::Format_RGB32),
            other.image().convertToFormat(QImage::Format_RGB32));
  EXPECT_EQ(graph.document(VectorFormat::kSvg, {640, 480}), other.svg());
  EXPECT_EQ(graph.picture({400, 300}, 96).convertToFormat(QImage::Format_RGB32), before);
  EXPECT_EQ(graph.image(), before);
}

TEST(WidgetPictures, HaveTheirPixelsAndResolutionExactly) {
  KurvGraph graph;
  graph.plot(small_graph());
  for (const QSize size : {QSize(1004, 709), QSize(333, 777), QSize(1, 1)}) {
    const QImage picture = graph.picture(size, 300);
    EXPECT_EQ(picture.size(), size);
    EXPECT_EQ(picture.dotsPerMeterX(), 11811);
    EXPECT_EQ(picture.dotsPerMeterY(), 11811);
  }
}

TEST(WidgetPictures, OfTwiceTheResolutionShowTheSameInMorePixels) {
  KurvGraph graph;
  resize_plot(graph, {400, 300});
  graph.plot(small_graph());
  const QImage large = graph.picture({800, 600}, 192);
  const QImage small = large.scaled(400, 300, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  int different = 0;
  for (int y = 0; y < 300; ++y) {
    for (int x = 0; x < 400; ++x) {
      const int difference = qGray(small.pixel(x, y)) - qGray(graph.image().pixel(x, y));
      if (std::abs(difference) > 128) ++different;
    }
  }
  EXPECT_LT(different, 400);
}

TEST(WidgetPictures, WithTooManyPixelsAreNull) {
  KurvGraph graph;
  graph.plot(small_graph());
  EXPECT_TRUE(graph.picture({32767, 32767}, 96).isNull());
}

TEST(WidgetPictures, WithoutPixelsOrWithoutAResolutionAreNull) {
  KurvGraph graph;
  graph.plot(small_graph());
  for (const QSize size : {QSize(), QSize(0, 0), QSize(100, 0), QSize(-5, 10)}) {
    EXPECT_TRUE(graph.picture(size, 96).isNull());
  }
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const double resolutions[] = {0, -96, std::numeric_limits<double>::quiet_NaN(), kInfinity};
  for (const double resolution : resolutions) {
    EXPECT_TRUE(graph.picture({100, 100}, resolution).isNull()) << resolution;
  }
}

// Without memory for the largest picture there is, which would not be this one.
TEST(WidgetPictures, OfTooLowAResolutionAreNullAtOnce) {
  KurvGraph graph;
  graph.plot(small_graph());
  for (const double resolution : {1e-300, 1e-5}) {
    QElapsedTimer clock;
    clock.start();
    EXPECT_TRUE(graph.picture({100, 100}, resolution).isNull()) << resolution;
    EXPECT_LT(clock.elapsed(), 1000) << resolution;
  }
}

TEST(WidgetVectors, AFaultReachesTheCaller) {
  KurvGraph graph;
  graph.plot(small_graph());
  graph.set_xmax(graph.xmin());
  EXPECT_THROW(graph.svg(), Fault);
  EXPECT_THROW(graph.pdf(), Fault);
  EXPECT_THROW(graph.picture({100, 100}, 96), Fault);
}

}  // namespace
}  // namespace kurv::test
