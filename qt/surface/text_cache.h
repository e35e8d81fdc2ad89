// A cache of rendered texts. Most texts are the same in the next redraw, and rendering one takes Qt
// longer than drawing a line of a thousand points takes the raster.
#pragma once

#include <KurvGraph/plot_surface.h>

#include <QImage>
#include <QPoint>
#include <QRect>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <tuple>

class QPainter;

namespace kurv {

// For a canvas of one size and resolution.
class TextCache {
 public:
  // Everything on which the pixels of a text depend.
  struct PlacedText {
    const Font& font;
    QRgb colour;
    SurfacePoint at;  // not NaN
    std::string_view text;
  };
  // Paints the text in the coordinates of the canvas.
  using Paint = std::function<void(QPainter&)>;

  // Draws the text on the canvas, an image of 32 bits a pixel. On a cache miss it is painted: `box`
  // gives the bounds of all pixels that `paint` may touch.
  void draw(QImage& canvas, const PlacedText& placed, const std::function<QRect()>& box,
            const Paint& paint);

 private:
  // Cropped to the pixels that are not transparent; `corner` is its position on the canvas.
  struct CachedImage {
    QPoint corner;
    QImage image;  // premultiplied
  };
  using Key = std::tuple<String, Single, bool, bool, QRgb, Single, Single, std::string>;

  std::map<Key, CachedImage> m_images;
  qsizetype m_pixels = 0;  // of all images, plus the bytes of the texts
};

}  // namespace kurv
