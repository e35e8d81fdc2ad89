#include <KurvGraph/recording_surface.h>

#include <gtest/gtest.h>

#include <limits>

namespace kurv {
namespace {

TEST(RecordingSurface, WritesEveryCallAsALine) {
  RecordingSurface surface(100, 100);
  surface.set_font({"A \"B\"", 8.25F, true, false});
  surface.DrawWidth(2);
  surface.set_ForeColor(3);
  surface.Cls();
  surface.Line({1, 2}, {3.5F, -4}, 8, LineKind::kSegment);
  surface.Line({1, 2}, {1, 4}, 8, LineKind::kRule);
  surface.Line({1, 2}, {3, 4}, 0, LineKind::kBox);
  surface.Line({1, 2}, {3, 4}, 15, LineKind::kFilledBox);
  surface.Circle({1, 2}, 0.1F, 1);
  surface.Arc({1, 2}, 40, 1, 0, 3.1415927F);
  surface.PSet({1, 2}, 0);
  surface.Print(1, 2, "tab\t, line\r\n, \\, bell\a, Ω");
  EXPECT_EQ(surface.log(),
            "font \"A \\\"B\\\"\" 8.25 1 0\n"
            "width 2\n"
            "forecolor 3\n"
            "cls\n"
            "segment 1 2 3.5 -4 8\n"
            "segment 1 2 1 4 8\n"
            "box 1 2 3 4 0\n"
            "fill 1 2 3 4 15\n"
            "circle 1 2 0.1 1\n"
            "arc 1 2 40 1 0 3.1415927\n"
            "point 1 2 0\n"
            "print 1 2 \"tab\\t, line\\r\\n, \\\\, bell\\u0007, Ω\"\n");
}

TEST(RecordingSurface, WritesWhatIsNoNumber) {
  RecordingSurface surface(100, 100);
  const Single inf = std::numeric_limits<Single>::infinity();
  surface.Line({inf, -inf}, {std::numeric_limits<Single>::quiet_NaN(), 0}, 1, LineKind::kSegment);
  EXPECT_EQ(surface.log(), "segment Inf -Inf NaN 0 1\n");
}

TEST(RecordingSurface, MeasuresTheWidestLineAndAllOfThem) {
  RecordingSurface surface(100, 100);
  surface.set_font({"any", 10, false, false});
  EXPECT_EQ(surface.TextWidth("Ωab"), 300) << "characters, not bytes";
  EXPECT_EQ(surface.TextWidth("a\r\nabcd\nab"), 400);
  EXPECT_EQ(surface.TextHeight("a"), 240);
  EXPECT_EQ(surface.TextHeight("a\r\nb\rc\nd"), 4 * 240);
  EXPECT_EQ(surface.TextHeight("a\r\n"), 2 * 240);
  EXPECT_EQ(surface.TextHeight(""), 0);
  EXPECT_EQ(surface.TextWidth(""), 0);
}

}  // namespace
}  // namespace kurv
