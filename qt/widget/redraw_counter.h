// A decorator of a drawing surface that counts the redraws, also those that fail.
#pragma once

#include <KurvGraph/plot_surface.h>

#include <utility>

namespace kurv {

class RedrawCounter final : public PlotSurface {
 public:
  explicit RedrawCounter(PlotSurface& target) : m_target(target) {}

  // How many redraws have begun since the last call of this.
  int take_redraws() { return std::exchange(m_redraws, 0); }

  Double ScaleWidth() const override { return m_target.ScaleWidth(); }
  Double ScaleHeight() const override { return m_target.ScaleHeight(); }
  // A redraw begins by clearing its surface, and nothing else clears one.
  void Cls() override {
    ++m_redraws;
    m_target.Cls();
  }
  void Line(SurfacePoint from, SurfacePoint to, int colour, LineKind kind) override {
    m_target.Line(from, to, colour, kind);
  }
  void Polyline(const PolylinePoints& points, int colour) override {
    m_target.Polyline(points, colour);
  }
  void Polylines(std::span<const Single> x, int count, Integer pen,
                 const std::function<PolylineOver(int)>& line) override {
    m_target.Polylines(x, count, pen, line);
  }
  void Circle(SurfacePoint centre, Single radius, int colour) override {
    m_target.Circle(centre, radius, colour);
  }
  void Arc(SurfacePoint centre, Single radius, int colour, Single start, Single end) override {
    m_target.Arc(centre, radius, colour, start, end);
  }
  void Repeat(const FigureCentres& centres, Double reach, const Figure& figure) override {
    m_target.Repeat(centres, reach, figure);
  }
  void PSet(SurfacePoint at, int colour) override { m_target.PSet(at, colour); }
  void DrawWidth(Integer pixels) override { m_target.DrawWidth(pixels); }
  void Print(Single CurrentX, Single CurrentY, std::string_view text) override {
    m_target.Print(CurrentX, CurrentY, text);
  }
  Double TextWidth(std::string_view text) const override { return m_target.TextWidth(text); }
  Double TextHeight(std::string_view text) const override { return m_target.TextHeight(text); }
  String bitmap() const override { return m_target.bitmap(); }
  const Font& font() const override { return m_target.font(); }
  void set_font(const Font& font) override { m_target.set_font(font); }
  int ForeColor() const override { return m_target.ForeColor(); }
  void set_ForeColor(int colour) override { m_target.set_ForeColor(colour); }

 private:
  PlotSurface& m_target;
  int m_redraws = 0;
};

}  // namespace kurv
