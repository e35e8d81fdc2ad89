/// @file
/// How a picture of pixels measures and paints its texts. A host without a font library implements
/// it with what its platform has.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include <KurvGraph/plot_surface.h>

namespace kurv {

/// Pixels of a picture. Half open: `right` and `bottom` are the first column and row outside.
struct PixelBox {
  int left = 0;    ///< the first column
  int top = 0;     ///< the first row
  int right = 0;   ///< the first column outside
  int bottom = 0;  ///< the first row outside

  /// The number of columns.
  int width() const { return right - left; }
  /// The number of rows.
  int height() const { return bottom - top; }
  /// Whether there is no pixel in it.
  bool is_empty() const { return right <= left || bottom <= top; }
};

/// The picture on which a text is painted.
struct PictureSize {
  int width = 0;                ///< in pixels
  int height = 0;               ///< in pixels
  double twips_per_pixel = 15;  ///< in either direction
};

/// A text as it is passed to PlotSurface::Print().
struct PlacedText {
  const Font& font;          ///< in which it is painted
  std::uint32_t colour = 0;  ///< 0xFFRRGGBB
  SurfacePoint at;           ///< its top-left corner in twips: not NaN, but maybe far away
  std::string_view text;     ///< UTF-8, of one or more lines
};

/// The pixels to paint on: a part of the picture, or all of it.
struct TextTarget {
  std::uint32_t* pixels = nullptr;  ///< 0xAARRGGBB, premultiplied
  std::ptrdiff_t stride = 0;        ///< in pixels
  PixelBox box;                     ///< its place in the picture
  bool is_opaque = false;           ///< every alpha is 255, and has to stay so
};

/// Measures and paints the texts of a PixelPicture. Used by one thread at a time.
class KURV_EXPORT TextPainter {
 public:
  virtual ~TextPainter() = default;

  /// The width in twips, as PlotSurface::TextWidth(). The same for every picture.
  virtual Double text_width(const Font& font, std::string_view text) = 0;
  /// The height in twips, as PlotSurface::TextHeight(). The same for every picture.
  virtual Double text_height(const Font& font, std::string_view text) = 0;

  /// The pixels of the picture that paint() may change; empty where the text is not visible.
  virtual PixelBox bounds(const PlacedText& text, const PictureSize& picture) = 0;
  /// Blends the text over the target, and leaves all pixels outside of it alone.
  virtual void paint(const PlacedText& text, const PictureSize& picture,
                     const TextTarget& target) = 0;

  /// Changes when the same text may look different from now on. Pictures then drop the texts that
  /// they keep for the next redraw.
  virtual int generation() { return 0; }
};

}  // namespace kurv
