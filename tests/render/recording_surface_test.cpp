#include <KurvGraph/recording_surface.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

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

// The default implementation, for surfaces that override nothing.
TEST(PlotSurface, PolylineIsItsSegmentsThatAreDrawn) {
  RecordingSurface surface(100, 100);
  const std::vector<Single> x = {1, 2, 3, 4, 5}, y = {10, 20, 30, 40, 50};
  const std::vector<std::uint8_t> drawn = {1, 1, 0, 1, 255};
  surface.Polyline({x, y, drawn}, 6);
  EXPECT_EQ(surface.log(),
            "segment 1 10 2 20 6\n"
            "segment 3 30 4 40 6\n"
            "segment 4 40 5 50 6\n");
}

TEST(PlotSurface, PolylineOfNoPointsOrOneIsNothing) {
  RecordingSurface surface(100, 100);
  const std::vector<Single> one = {1};
  const std::vector<std::uint8_t> drawn = {1};
  surface.Polyline({}, 6);
  surface.Polyline({one, one, drawn}, 6);
  EXPECT_EQ(surface.log(), "");
}

TEST(PlotSurface, RepeatDrawsTheFigureAtEachCentreInTurn) {
  RecordingSurface surface(100, 100);
  constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
  const std::vector<Double> x = {3, 1, kNaN, 5, 3}, y = {4, 2, 6, kNaN, 4};
  surface.Repeat({x, y}, 5, [](PlotSurface& target, FigureCentre at) {
    target.PSet({to_single(at.x), to_single(at.y)}, 7);
  });
  EXPECT_EQ(surface.log(), "point 3 4 7\npoint 1 2 7\npoint 3 4 7\n");
}

TEST(RecordingSurface, MeasuresTheWidestLineAndAllOfThem) {
  RecordingSurface surface(100, 100);
  surface.set_font({"any", 10, false, false});
  EXPECT_EQ(surface.TextWidth("Ωab"), 300) << "characters, not bytes";
  EXPECT_EQ(surface.TextWidth("a\r\nabcd\nab"), 400);
  EXPECT_EQ(surface.TextHeight("a"), 240);
  EXPECT_EQ(surface.TextHeight("a\r\nb\rc\nd"), 4 * 240);
  EXPECT_EQ(surface.TextHeight("a\r\n"), 2 * 240);
  EXPECT_EQ(surface.TextHeight(""), 240) << "one line";
  EXPECT_EQ(surface.TextWidth(""), 0);
}

}  // namespace
}  // namespace kurv
