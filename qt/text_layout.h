// How a text lies on the surface: its lines, the pieces that they are drawn in, and their extents.
#pragma once

#include <KurvGraph/plot_surface.h>

#include <QFont>
#include <QFontMetricsF>
#include <QString>
#include <string_view>
#include <vector>

namespace kurv {

// CR LF, LF or CR begins a new line, also at the very end; an empty text has no lines.
std::vector<std::string_view> lines_of(std::string_view text);

// Long lines are measured and drawn in pieces: the toolkit's layout counts in 32-bit fractions, and
// of a megabyte only a few pieces are ever visible. Characters that show nothing become blanks.
std::vector<QString> pieces_of(std::string_view line);

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

 private:
  QFont m_font;
  QFontMetricsF m_metrics;
  double m_twips_per_pixel;
};

}  // namespace kurv
