// The layout of a text: its lines, the pieces in which they are drawn, and their extents.
#pragma once

#include <KurvGraph/plot_surface.h>

#include <QFont>
#include <QFontMetricsF>
#include <QSizeF>
#include <QString>
#include <functional>
#include <list>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kurv {

// Splits a line into pieces that are measured and drawn one by one: Qt's text layout overflows its
// 26.6 fixed-point numbers on long lines, and of a megabyte only a few pieces are ever visible.
// Control characters become blanks.
std::vector<QString> pieces_of(std::string_view line);

// A piece of a text and its position, in twips.
struct PlacedPiece {
  double left;
  double baseline;
  double width;
  const QString& text;
};

// The extents of texts in one font. Lengths are in twips.
class TextLayout {
 public:
  explicit TextLayout(const Font& font);

  // One of its pixels is about one twip. All layout is done with this font, and the painter scales
  // it down to device pixels. So a text has the same extents in twips at every resolution, and its
  // size need not be a whole number of device pixels.
  const QFont& font() const { return m_font; }
  double twips_per_font_pixel() const { return m_twips_per_pixel; }

  double ascent() const { return m_metrics.ascent() * m_twips_per_pixel; }
  double line_height() const { return ascent() + m_metrics.descent() * m_twips_per_pixel; }
  double width(const QString& piece) const {
    return m_metrics.horizontalAdvance(piece) * m_twips_per_pixel;
  }

  // The width of the widest line, and the height of all lines together.
  double text_width(std::string_view text) const;
  double text_height(std::string_view text) const;

  // Calls `draw` for each piece, in order, that is visible on a page of that size. The top-left
  // corner of the text is at `at`, which may be NaN, infinite or far away.
  void place(SurfacePoint at, std::string_view text, QSizeF page,
             const std::function<void(const PlacedPiece&)>& draw) const;

 private:
  void place_line(double left, double top, std::string_view line, QSizeF page,
                  const std::function<void(const PlacedPiece&)>& draw) const;

  QFont m_font;
  QFontMetricsF m_metrics;
  double m_twips_per_pixel;
  mutable std::map<std::string, double, std::less<>> m_widths;  // a cache
};

// Changes when the application's fonts change. Cached layouts and texts are then outdated.
int font_generation();

// A cache of the layouts of the fonts used last: each redraw uses the same few.
class TextLayouts {
 public:
  // Valid until the next call.
  const TextLayout& of(const Font& font);

 private:
  std::list<std::pair<Font, TextLayout>> m_layouts;  // most recently used first
};

}  // namespace kurv
