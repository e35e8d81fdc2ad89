// A drawing surface of real pixels, at device resolution.
#pragma once

#include <QImage>
#include <QSize>
#include <memory>

#include <KurvGraph/plot_surface.h>

namespace kurv {

namespace raster {
class Sprite;
}

// Needs a QGuiApplication for text, but no window and no display server. To be used by one thread
// only.
class Picture final : public PlotSurface {
 public:
  // The size in logical pixels, and the device pixels per logical pixel in either direction.
  explicit Picture(QSize logical_size, double device_pixel_ratio = 1);
  ~Picture() override;

  // Drops the contents and starts white. Both sides have at least one device pixel. A logical pixel
  // has 15 twips, or fewer where a side would then exceed 32767 twips. A picture that would have
  // more than 4 x 7680 x 4320 device pixels gets a lower resolution.
  void resize(QSize logical_size, double device_pixel_ratio);

  // What has been drawn, as RGB with `devicePixelRatio` and dots per metre set. Implicitly shared.
  QImage image() const;

  QSize device_size() const;
  double twips_per_device_pixel() const;

  Double ScaleWidth() const override;
  Double ScaleHeight() const override;
  void Cls() override;
  void Line(SurfacePoint from, SurfacePoint to, int colour, LineKind kind) override;
  void Polyline(const PolylinePoints& points, int colour) override;
  void Polylines(std::span<const Single> x, int count, Integer pen,
                 const std::function<PolylineOver(int)>& line) override;
  void Circle(SurfacePoint centre, Single radius, int colour) override;
  void Arc(SurfacePoint centre, Single radius, int colour, Single start, Single end) override;
  void Repeat(const FigureCentres& centres, Double reach, const Figure& figure) override;
  void PSet(SurfacePoint at, int colour) override;
  void DrawWidth(Integer pixels) override;
  void Print(Single CurrentX, Single CurrentY, std::string_view text) override;
  Double TextWidth(std::string_view text) const override;
  Double TextHeight(std::string_view text) const override;
  String bitmap() const override;
  const Font& font() const override;
  void set_font(const Font& font) override;
  int ForeColor() const override;
  void set_ForeColor(int colour) override;

 private:
  struct Pixels;
  explicit Picture(std::unique_ptr<Pixels> pixels);
  raster::Sprite make_sprite(const Figure& figure, FigureCentre centre, Picture& white,
                             Picture& black) const;
  std::unique_ptr<Pixels> m_pixels;
};

}  // namespace kurv
