// Texts as they were painted, for the next redraw: most of them come back as they were, and
// painting one takes the toolkit longer than a whole line of a thousand points takes us.
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

// Of a canvas of one size and resolution.
class TextCache {
 public:
  // What makes a text look as it does.
  struct PlacedText {
    const Font& font;
    QRgb colour;
    SurfacePoint at;  // not NaN
    std::string_view text;
  };
  // Paints it on the canvas.
  using Paint = std::function<void(QPainter&)>;

  // Puts the text onto the canvas, an image of 32 bits a pixel. `box` holds all that `paint` may
  // touch, in pixels. Painting happens where the text is not known yet.
  void draw(QImage& canvas, const PlacedText& placed, const std::function<QRect()>& box,
            const Paint& paint);

 private:
  // Without the outermost pixels that show nothing, and where it is on the canvas.
  struct CachedImage {
    QPoint corner;
    QImage image;  // premultiplied
  };
  using Key = std::tuple<String, Single, bool, bool, QRgb, Single, Single, std::string>;

  std::map<Key, CachedImage> m_images;
  qsizetype m_pixels = 0;  // of all of them, and letters
};

}  // namespace kurv
