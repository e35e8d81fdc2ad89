#include "qt/surface/text_layout.h"

#include <QGuiApplication>
#include <QPointer>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <limits>

#include "pixels/resolution.h"
#include "pixels/text_lines.h"

namespace kurv {
namespace {

double size_in_twips(const Font& font) {
  return kTwipsPerPoint * (font.FontSize > 0 ? std::min<double>(font.FontSize, 1638) : 8);
}

QFont layout_font(const Font& font) {
  // Beyond some ten thousand pixels Qt's font metrics overflow.
  constexpr int kMaxPixelSize = 8000;
  QStringList families = {QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans"),
                          QStringLiteral("sans-serif")};
  // An empty name would match any font.
  if (!font.FontName.empty()) families.prepend(QString::fromStdString(font.FontName));
  QFont result;
  result.setFamilies(families);
  result.setStyleHint(QFont::SansSerif,
                      QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
  result.setHintingPreference(QFont::PreferNoHinting);
  result.setKerning(true);
  result.setPixelSize(
      std::clamp(static_cast<int>(std::lround(size_in_twips(font))), 1, kMaxPixelSize));
  result.setBold(font.FontBold);
  result.setItalic(font.FontItalic);
  return result;
}

}  // namespace

std::vector<QString> pieces_of(std::string_view line) {
  constexpr qsizetype kPiece = 200;
  QString text = QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size()));
  for (QChar& character : text) {
    const QChar::Category category = character.category();
    if (category == QChar::Other_Control || category == QChar::Separator_Line ||
        category == QChar::Separator_Paragraph) {
      character = u' ';
    }
  }
  std::vector<QString> pieces;
  for (qsizetype start = 0; start < text.size();) {
    qsizetype end = std::min(start + kPiece, text.size());
    if (end < text.size() && text.at(end).isLowSurrogate()) --end;
    pieces.push_back(text.mid(start, end - start));
    start = end;
  }
  return pieces;
}

TextLayout::TextLayout(const Font& font)
    : m_font(layout_font(font)),
      m_metrics(m_font),
      m_twips_per_pixel(size_in_twips(font) / m_font.pixelSize()) {}

double TextLayout::text_width(std::string_view text) const {
  constexpr std::size_t kMaxCachedWidths = 500, kMaxCachedLength = 200;
  const auto known = m_widths.find(text);
  if (known != m_widths.end()) return known->second;
  double widest = 0;
  for (const std::string_view line : lines_of(text)) {
    double line_width = 0;
    for (const QString& piece : pieces_of(line)) line_width += width(piece);
    widest = std::max(widest, line_width);
  }
  if (m_widths.size() >= kMaxCachedWidths) m_widths.clear();
  if (text.size() <= kMaxCachedLength) m_widths.emplace(text, widest);
  return widest;
}

double TextLayout::text_height(std::string_view text) const {
  return static_cast<double>(lines_of(text).size()) * line_height();
}

void TextLayout::place(SurfacePoint at, std::string_view text, QSizeF page,
                       const std::function<void(const PlacedPiece&)>& draw) const {
  place_lines(at, text, page.height(), line_height(),
              [&](double left, double top, std::string_view line) {
                place_line(left, top, line, page, draw);
              });
}

void TextLayout::place_line(double left, double top, std::string_view line, QSizeF page,
                            const std::function<void(const PlacedPiece&)>& draw) const {
  // Glyphs may extend past their measured width.
  const double overhang = line_height();
  for (const QString& piece : pieces_of(line)) {
    if (left > page.width() + overhang) return;
    const double piece_width = width(piece);
    if (left + piece_width > -overhang) draw({left, top + ascent(), piece_width, piece});
    left += piece_width;
  }
}

int font_generation() {
  static int generation = 0;
  static QPointer<QGuiApplication> watched;
  auto* const application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
  if (application && application != watched) {
    ++generation;
    watched = application;
    QObject::connect(application, &QGuiApplication::fontDatabaseChanged, [] { ++generation; });
  }
  return generation;
}

const TextLayout& TextLayouts::of(const Font& font) {
  constexpr std::size_t kMaxLayouts = 8;
  const auto known = std::ranges::find(m_layouts, font, &std::pair<Font, TextLayout>::first);
  if (known != m_layouts.end()) {
    m_layouts.splice(m_layouts.begin(), m_layouts, known);
  } else {
    if (m_layouts.size() == kMaxLayouts) m_layouts.pop_back();
    m_layouts.emplace_front(font, TextLayout(font));
  }
  return m_layouts.front().second;
}

}  // namespace kurv
