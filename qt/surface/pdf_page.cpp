// A page that is written as PDF, by QPdfWriter.
#include <QBuffer>
#include <QColor>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPen>
#include <cmath>

#include "model/palette.h"
#include "pixels/resolution.h"
#include "qt/surface/vector_page.h"

namespace kurv {

namespace {

QColor painter_colour(int index) {
  return QColor::fromRgb(palette_rgb(index));
}

// A unit of the painter is a twip. Everything is written into memory, because QPdfWriter does not
// report a full disk. The contents of the page stay in memory too, whatever their size: above 100
// MB QPdfWriter moves them to a temporary file only where more is drawn after they have been read.
class PdfPage final : public VectorPage {
 public:
  explicit PdfPage(const PageSetup& setup) : m_writer(&m_buffer) {
    m_buffer.open(QIODevice::WriteOnly);
    m_writer.setTitle(setup.title);
    m_writer.setCreator(QStringLiteral("KurvGraph"));
    m_writer.setResolution(kTwipsPerInch);
    // QPdfWriter takes whole points only. They are rounded up: a white edge is better than a lost
    // one.
    const QSizeF points(std::ceil(setup.twips.width() / kTwipsPerPoint),
                        std::ceil(setup.twips.height() / kTwipsPerPoint));
    const QPageSize size(points, QPageSize::Point, {}, QPageSize::ExactMatch);
    m_writer.setPageLayout(QPageLayout(size, QPageLayout::Portrait, {}, QPageLayout::Point));
    m_painter.begin(&m_writer);
    m_painter.fillRect(QRectF(QPointF(0, 0), points * kTwipsPerPoint), Qt::white);
  }

  void stroke(const QPainterPath& path, int colour, double pen_width, Style style) override {
    const bool is_round = style == Style::kRound;
    m_painter.strokePath(path, QPen(painter_colour(colour), pen_width, Qt::SolidLine,
                                    is_round ? Qt::RoundCap : Qt::SquareCap,
                                    is_round ? Qt::RoundJoin : Qt::MiterJoin));
  }

  // PDF has no equivalent of the style: viewers snap rectangles to pixels as they choose.
  void fill(const QRectF& rect, int colour, Style) override {
    m_painter.fillRect(rect, painter_colour(colour));
  }

  void print(const PlacedPiece& piece, const TextLayout& layout, int colour) override {
    const double scale = layout.twips_per_font_pixel();
    m_painter.save();
    m_painter.setFont(layout.font());
    m_painter.setPen(painter_colour(colour));
    m_painter.translate(piece.left, piece.baseline);
    m_painter.scale(scale, scale);
    m_painter.drawText(QPointF(0, 0), piece.text);
    m_painter.restore();
  }

  QByteArray finish() override {
    m_painter.end();
    return m_buffer.data();
  }

 private:
  QBuffer m_buffer;
  QPdfWriter m_writer;
  QPainter m_painter;
};

}  // namespace

std::unique_ptr<VectorPage> make_pdf_page(const PageSetup& setup) {
  return std::make_unique<PdfPage>(setup);
}

}  // namespace kurv
