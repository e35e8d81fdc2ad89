#include "qt/widget/redraw_counter.h"

#include <KurvGraph/recording_surface.h>
#include <gtest/gtest.h>

namespace kurv {
namespace {

// A surface with its own batch calls.
class FastSurface final : public PlotSurface {
 public:
  int polylines = 0;
  int several = 0;
  int repeats = 0;

  Double ScaleWidth() const override { return 1; }
  Double ScaleHeight() const override { return 2; }
  void Cls() override {}
  void Line(SurfacePoint, SurfacePoint, int, LineKind) override { ADD_FAILURE(); }
  void Polylines(std::span<const Single>, int, Integer,
                 const std::function<PolylineOver(int)>&) override {
    ++several;
  }
  void Polyline(const PolylinePoints& points, int colour) override {
    ++polylines;
    EXPECT_EQ(points.x.size(), 3U);
    EXPECT_EQ(colour, 5);
  }
  void Circle(SurfacePoint, Single, int) override { ADD_FAILURE(); }
  void Arc(SurfacePoint, Single, int, Single, Single) override { ADD_FAILURE(); }
  void Repeat(const FigureCentres& centres, Double reach, const Figure& figure) override {
    ++repeats;
    EXPECT_EQ(centres.x.size(), 2U);
    EXPECT_EQ(reach, 7);
    figure(*this, {centres.x[0], centres.y[0]});
  }
  void PSet(SurfacePoint, int) override { ADD_FAILURE(); }
  void DrawWidth(Integer) override {}
  void Print(Single, Single, std::string_view) override {}
  Double TextWidth(std::string_view) const override { return 0; }
  Double TextHeight(std::string_view) const override { return 0; }
  String bitmap() const override { return {}; }
  const Font& font() const override { return m_font; }
  void set_font(const Font& font) override { m_font = font; }
  int ForeColor() const override { return 0; }
  void set_ForeColor(int) override {}

 private:
  Font m_font;
};

TEST(RedrawCounter, PassesOnBatchesAsTheyAre) {
  FastSurface target;
  RedrawCounter counter(target);
  const std::vector<Single> places = {1, 2, 3};
  const std::vector<std::uint8_t> drawn = {1, 1, 1};
  counter.Polyline({places, places, drawn}, 5);
  counter.Polylines(places, 1, 3, [&](int) { return PolylineOver{places, drawn, 5}; });
  const std::vector<Double> x = {1, 3}, y = {2, 4};
  int figures = 0;
  counter.Repeat({x, y}, 7, [&](PlotSurface& surface, FigureCentre centre) {
    ++figures;
    EXPECT_EQ(&surface, &target);
    EXPECT_EQ(centre.y, 2);
  });
  EXPECT_EQ(target.polylines, 1);
  EXPECT_EQ(target.several, 1);
  EXPECT_EQ(target.repeats, 1);
  EXPECT_EQ(figures, 1);
}

TEST(RedrawCounter, CountsRedrawsSinceTheLastCall) {
  RecordingSurface target(100, 100);
  RedrawCounter counter(target);
  counter.Cls();
  counter.Cls();
  EXPECT_EQ(counter.take_redraws(), 2);
  EXPECT_EQ(counter.take_redraws(), 0);
  EXPECT_EQ(target.log(), "cls\ncls\n");
}

}  // namespace
}  // namespace kurv
