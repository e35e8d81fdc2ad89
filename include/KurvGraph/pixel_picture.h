/// @file
/// A drawing surface of real pixels, at device resolution, that needs no toolkit.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string_view>

#include <KurvGraph/pixel_view.h>
#include <KurvGraph/plot_surface.h>
#include <KurvGraph/text_painter.h>

namespace kurv {

class PixelStore;

namespace raster {
class Sprite;
}

/// A drawing surface of pixels in memory. To be used by one thread only.
class KURV_EXPORT PixelPicture : public PlotSurface {
 public:
  /// The size in logical pixels, and the device pixels per logical pixel in either direction. A
  /// painter may serve several pictures; it must not be null.
  PixelPicture(std::shared_ptr<TextPainter> texts, int width, int height,
               double device_pixel_ratio = 1);
  ~PixelPicture() override;
  PixelPicture(const PixelPicture&) = delete;
  PixelPicture& operator=(const PixelPicture&) = delete;

  /// Drops the contents and starts white. Both sides have at least one device pixel. A logical
  /// pixel has 15 twips, or fewer where a side would then exceed 32767 twips. A picture that would
  /// have more than 4 x 7680 x 4320 device pixels gets a lower resolution.
  void resize(int width, int height, double device_pixel_ratio);

  /// What has been drawn. Valid until the picture is drawn on or resized.
  PixelView pixels() const;

  /// The width and height of a device pixel, in twips.
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

 protected:
  /// Draws into a store of another kind.
  PixelPicture(std::unique_ptr<PixelStore> store, std::shared_ptr<TextPainter> texts, double width,
               double height, double device_pixel_ratio);
  /// The store, with everything that has been drawn.
  const PixelStore& store() const;

 private:
  struct KURV_HIDDEN State;
  explicit PixelPicture(std::unique_ptr<State> state);
  raster::Sprite make_sprite(const Figure& figure, FigureCentre centre, PixelPicture& white,
                             PixelPicture& black) const;
  std::unique_ptr<State> m_state;
};

}  // namespace kurv
