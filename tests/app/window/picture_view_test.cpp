// Previews: when they draw, and what they say where that fails.
#include "app/window/picture_view.h"

#include <KurvGraph/fault.h>
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTest>
#include <new>

#include "app/base/user_error.h"

namespace kurv::app {
namespace {

bool becomes_current(const PictureView& view) {
  return QTest::qWaitFor([&] { return view.is_current(); }, 10000);
}

QString text_after(const std::function<QImage()>& draw) {
  PictureView view(draw);
  view.draw_later();
  EXPECT_TRUE(becomes_current(view));
  EXPECT_TRUE(view.picture().isNull());
  EXPECT_EQ(view.accessibleDescription(), view.text());
  return view.text();
}

TEST(PictureView, DrawsSeveralChangesOnce) {
  int times = 0;
  PictureView view([&] {
    ++times;
    return QImage(10, 10, QImage::Format_RGB32);
  });
  for (int i = 0; i < 3; ++i) view.draw_later();
  EXPECT_FALSE(view.is_current());
  EXPECT_EQ(times, 0);
  EXPECT_TRUE(becomes_current(view));
  EXPECT_EQ(times, 1);
  EXPECT_EQ(view.picture().size(), QSize(10, 10));
}

TEST(PictureView, WaitsLongerWhereDrawingTakesLonger) {
  QElapsedTimer since_change;
  qint64 waited = 0;
  PictureView view([&] {
    waited = since_change.elapsed();
    QTest::qSleep(150);
    return QImage(10, 10, QImage::Format_RGB32);
  });
  for (int i = 0; i < 2; ++i) {
    since_change.start();
    view.draw_later();
    EXPECT_TRUE(becomes_current(view));
  }
  EXPECT_GE(waited, 290) << "the second time";
}

TEST(PictureView, SaysWhyThereIsNoPicture) {
  EXPECT_EQ(text_after([]() -> QImage { throw UserError("No curves."); }), "No curves.");
  EXPECT_EQ(text_after([]() -> QImage { throw std::bad_alloc(); }),
            "There is not enough memory for the picture.");
  EXPECT_TRUE(text_after([]() -> QImage {
                throw Fault(FaultKind::kDivisionByZero);
              }).startsWith("This cannot be drawn: an axis has equal limits or no ticks; "));
  EXPECT_EQ(text_after([] { return QImage(); }), "");
}

TEST(PictureView, ATextTakesThePlaceOfAPictureThatIsStillToBeDrawn) {
  int times = 0;
  PictureView view([&] {
    ++times;
    return QImage(10, 10, QImage::Format_RGB32);
  });
  view.draw_later();
  view.show_text("No graph yet");
  EXPECT_TRUE(view.is_current());
  view.resize(300, 200);
  QTest::qWait(200);
  EXPECT_EQ(times, 0);
  EXPECT_EQ(view.text(), "No graph yet");
}

}  // namespace
}  // namespace kurv::app
