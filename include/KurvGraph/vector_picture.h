// A drawing surface whose picture is a document of lines and text, which stays sharp at any size.
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>
#include <memory>

#include <KurvGraph/plot_surface.h>

namespace kurv {

enum class VectorFormat { kSvg, kPdf };

// Draws what Picture draws, with the same extents of texts, but nothing is rounded to pixels. Needs
// a QGuiApplication for text; no window and no display server. It belongs to one thread.
class VectorPicture final : public PlotSurface {
 public:
  // As large in twips as a Picture of the same arguments; otherwise the ratio means nothing here.
  // The document carries the title for whoever catalogues it.
  VectorPicture(VectorFormat format, const QString& title, QSize logical_size,
                double device_pixel_ratio = 1);
  ~VectorPicture() override;

  // The whole document with what has been drawn on white. The surface is blank again then.
  QByteArray take_document();

  Double ScaleWidth() const override;
  Double ScaleHeight() const override;
  void Cls() override;
  void Line(SurfacePoint from, SurfacePoint to, int colour, LineKind kind) override;
  void Circle(SurfacePoint centre, Single radius, int colour) override;
  void Arc(SurfacePoint centre, Single radius, int colour, Single start, Single end) override;
  void PSet(SurfacePoint at, int colour) override;
  // A pen below one logical pixel is one.
  void DrawWidth(Integer pixels) override;
  void Print(Single CurrentX, Single CurrentY, std::string_view text) override;
  Double TextWidth(std::string_view text) const override;
  Double TextHeight(std::string_view text) const override;
  // Nothing: it has no pixels.
  String bitmap() const override;
  const Font& font() const override;
  void set_font(const Font& font) override;
  int ForeColor() const override;
  void set_ForeColor(int colour) override;

 private:
  struct Sheet;
  std::unique_ptr<Sheet> m_sheet;
};

}  // namespace kurv
