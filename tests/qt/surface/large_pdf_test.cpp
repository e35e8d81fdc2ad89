// A page of a PDF that is larger than what Qt is prepared to hold in memory.
#include <KurvGraph/vector_picture.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QByteArray>
#include <QtEndian>
#include <csignal>

namespace kurv {
namespace {

// Beyond 100 MB Qt may move the contents of a page to a temporary file, whose errors it ignores.
constexpr qsizetype kLarge = 110'000'000;
constexpr int kSegments = 4'700'000;

// The operators of the page, which are compressed in the file.
QByteArray page_contents(const QByteArray& pdf) {
  const QByteArray begin = "/Filter /FlateDecode\n>>\nstream\n";
  const qsizetype start = pdf.indexOf(begin) + begin.size();
  const qsizetype end = pdf.indexOf("\nendstream", start);
  QByteArray sized(4, 0);
  qToBigEndian<quint32>(2 * kLarge, sized.data());
  return qUncompress(sized + pdf.mid(start, end - start));
}

TEST(LargePdf, NeedsNoDiskToBeComplete) {
  VectorPicture picture(VectorFormat::kPdf, "T", QSize(400, 300));
  const SurfacePoint points[] = {{1234.5678F, 2345.6789F}, {3456.789F, 1234.5671F}};
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit nothing{0, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &nothing);
  for (int i = 0; i < kSegments; ++i) {
    picture.Line(points[i % 2], points[(i + 1) % 2], 0, LineKind::kSegment);
  }
  const QByteArray pdf = picture.take_document();
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);

  const QByteArray contents = page_contents(pdf);
  EXPECT_GT(contents.size(), kLarge);
  EXPECT_EQ(contents.count(" l\n"), kSegments);
  EXPECT_TRUE(contents.endsWith("Q Q\n")) << contents.right(40).toStdString();
}

}  // namespace
}  // namespace kurv
