// How a text lies on the surface: its lines, the pieces that they are drawn in, and their extents.
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

// CR LF, LF or CR begins a new line, also at the very end; an empty text has no lines.
std::vector<std::string_view> lines_of(std::string_view text);

// Long lines are measured and drawn in pieces: the toolkit's layout counts in 32-bit fractions, and
// of a megabyte only a few pieces are ever visible. Characters that show nothing become blanks.
std::vector<QString> pieces_of(std::string_view line);

// What is drawn of a text at once, and where it begins, in twips.
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

  // One pixel of it is about one twip. All layout is done with it, and the painter scales it down
  // to device pixels: so a text has the same extents, in twips, at every resolution, and sizes with
  // a fraction of a device pixel come out as they are, which they do not when asked for directly.
  const QFont& font() const { return m_font; }
  double twips_per_font_pixel() const { return m_twips_per_pixel; }

  double ascent() const { return m_metrics.ascent() * m_twips_per_pixel; }
  double line_height() const { return ascent() + m_metrics.descent() * m_twips_per_pixel; }
  double width(const QString& piece) const {
    return m_metrics.horizontalAdvance(piece) * m_twips_per_pixel;
  }

  // Of all lines: the widest one, and their height together.
  double text_width(std::string_view text) const;
  double text_height(std::string_view text) const;

  // Hands to `draw`, in their order, the pieces of a text that can be seen on a page of that size;
  // the text has its top-left corner at `at`, which may be NaN, infinite or far away.
  void place(SurfacePoint at, std::string_view text, QSizeF page,
             const std::function<void(const PlacedPiece&)>& draw) const;

 private:
  void place_line(double left, double top, std::string_view line, QSizeF page,
                  const std::function<void(const PlacedPiece&)>& draw) const;

  QFont m_font;
  QFontMetricsF m_metrics;
  double m_twips_per_pixel;
  mutable std::map<std::string, double, std::less<>> m_widths;  // of texts that were asked for
};

// Another number once the program has got other fonts.
int font_generation();

// Those of the fonts that were used last, because a redraw goes through the same few each time.
class TextLayouts {
 public:
  // Lasts until another font is asked for.
  const TextLayout& of(const Font& font);

 private:
  std::list<std::pair<Font, TextLayout>> m_layouts;  // the last one first
};

}  // namespace kurv
