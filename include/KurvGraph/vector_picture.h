/// @file
/// A drawing surface that makes a vector document, which stays sharp at any size.
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>
#include <memory>

#include <KurvGraph/plot_surface.h>

namespace kurv {

/// The format of a vector document.
enum class VectorFormat {
  kSvg,  ///< Scalable Vector Graphics
  kPdf   ///< a PDF document of one page
};

/// Draws what Picture draws, with the same extents of texts, but rounds nothing to pixels. Needs a
/// QGuiApplication for text, but no window and no display server. To be used by one thread only.
class KURV_EXPORT VectorPicture final : public PlotSurface {
 public:
  /// Has the size in twips of a Picture with the same arguments; the ratio affects nothing else.
  /// The title goes into the document's metadata.
  VectorPicture(VectorFormat format, const QString& title, QSize logical_size,
                double device_pixel_ratio = 1);
  ~VectorPicture() override;

  /// Returns the whole document and clears the surface. The page is white.
  QByteArray take_document();

  Double ScaleWidth() const override;
  Double ScaleHeight() const override;
  void Cls() override;
  void Line(SurfacePoint from, SurfacePoint to, int colour, LineKind kind) override;
  void Circle(SurfacePoint centre, Single radius, int colour) override;
  void Arc(SurfacePoint centre, Single radius, int colour, Single start, Single end) override;
  void PSet(SurfacePoint at, int colour) override;
  /// A pen is at least one logical pixel wide.
  void DrawWidth(Integer pixels) override;
  void Print(Single CurrentX, Single CurrentY, std::string_view text) override;
  Double TextWidth(std::string_view text) const override;
  Double TextHeight(std::string_view text) const override;
  /// Empty: the surface has no pixels.
  String bitmap() const override;
  const Font& font() const override;
  void set_font(const Font& font) override;
  int ForeColor() const override;
  void set_ForeColor(int colour) override;

 private:
  struct KURV_HIDDEN Sheet;
  std::unique_ptr<Sheet> m_sheet;
};

}  // namespace kurv
